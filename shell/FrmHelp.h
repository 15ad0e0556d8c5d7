#pragma once

#include "platform/Form.h"

#include <QTimer>
#include <QUrl>

class WebBrowser;

/// The help page in a window of its own.
class FrmHelp : public Form
{
    Q_OBJECT

public:
    FrmHelp();

    /// Shows the window in front, at the section of the page with this id; at the top without one.
    void showSection(const QString& id);

    WebBrowser* WebBrowser1;

private:
    void openPlace();

    QUrl m_place; // of the help page, with the section
    QTimer m_opening;
};
