// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/PlainText.h"

#include <QPlainTextEdit>
#include <QTextDocument>

namespace brindlemark {

QString wholeText(const QPlainTextEdit& box)
{
    QString text = box.document()->toRawText(); // `toPlainText` would make blanks of no-break blanks
    for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
        text.replace(lineEnd, QLatin1String("\r\n"));
    return text;
}

} // namespace brindlemark
