// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Events.h"
#include "source/RichTextBox.h"

namespace brindlemark {

/// One change of the box. Notifications wait until the outermost step is done: the component drops edits that
/// a handler makes in the middle of another.
class RichTextBox::Step
{
public:
    explicit Step(RichTextBox* box, bool typing = false) : m_box(box)
    {
        if (m_box->m_steps++ == 0 && !typing)
            m_box->endOvertyping();
    }
    ~Step()
    {
        if (--m_box->m_steps == 0)
            guardedCall([this] { m_box->notify(); });
    }
    Q_DISABLE_COPY_MOVE(Step)

private:
    RichTextBox* m_box;
};

} // namespace brindlemark
