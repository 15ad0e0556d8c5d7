// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

/// How large a view shows its text, in steps as browsers have them; at first 100 percent.
class Zoom
{
public:
    /// Larger, or smaller, by some steps, as far as there are any; 0 leads back to the first size.
    void turn(int steps);
    /// 50 to 300.
    int percent() const;

private:
    int m_step = 0;
};

} // namespace brindlemark
