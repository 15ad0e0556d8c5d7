// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/Sample.h"
#include "web/WebControl.h"

namespace brindlemark {

/// What tests and measurements reach behind a control that shows pages: its page, its renderer and its
/// patience.
class WebProbe
{
public:
    explicit WebProbe(WebControl& control) : m_control(control) {}

    /// The result of a script in the control's own world; no value when nobody answered. Throws SurfaceLost
    /// when the control is deleted meanwhile.
    [[nodiscard]] std::optional<QVariant> evaluate(const QString& script)
    {
        return m_control.askPage(script).value;
    }
    /// How long a question waits, in milliseconds, besides what the length of the text adds.
    void setPatience(int milliseconds) { m_control.m_patience = milliseconds; }
    /// The system's number of the process that renders the page; 0 when there is none.
    qint64 rendererPid() const { return m_control.rendererPid(); }
    /// Whether a page that was given to a sample is still on its way to the eye.
    static bool isWriting(const Sample& sample)
    {
        return sample.m_next || sample.m_writing != Sample::Writing::Nobody;
    }

private:
    WebControl& m_control;
};

inline WebProbe probe(WebControl& control)
{
    return WebProbe(control);
}

inline WebProbe probe(WebControl* control)
{
    return WebProbe(*control);
}

} // namespace brindlemark
