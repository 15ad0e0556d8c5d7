// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"

#include <optional>

class QProgressBar;

namespace brindlemark {

/// The small window on top of all others that stands while the source is recoloured, and while other work
/// takes longer than a second. It never takes the keyboard.
class Wait : public Form
{
    Q_OBJECT

public:
    Wait();

    /// Shows how much of the work is done, 0 to 1; without a value a bar that runs to and fro.
    void showProgress(std::optional<double> done);
    void hideProgress();

private:
    QProgressBar* m_progress;
};

} // namespace brindlemark
