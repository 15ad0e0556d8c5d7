// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/Messages.h"

namespace brindlemark {

MsgAnswer showMessage(const Message& message, const QString& value)
{
    const QString text = message.text.toString();
    return MsgBox(value.isNull() ? text : text.arg(value), message.title.toString(), message.icon,
                  message.buttons);
}

bool confirmed(const Message& question, const QString& value)
{
    return showMessage(question, value) == MsgAnswer::Yes;
}

} // namespace brindlemark
