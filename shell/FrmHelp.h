#pragma once

#include "platform/Form.h"

class WebBrowser;

/// The help page in a window of its own.
class FrmHelp : public Form
{
    Q_OBJECT

public:
    FrmHelp();

    WebBrowser* WebBrowser1;
};
