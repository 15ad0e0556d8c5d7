// SPDX-License-Identifier: GPL-3.0-or-later

#include "Action.h"

#include <QFile>
#include <QUrl>

namespace brindlemark {

QString toText(const Action& action)
{
    QStringList parts = {action.verb};
    for (const QString& word : action.words)
        parts << QString::fromLatin1(QUrl::toPercentEncoding(word, "/+#"));
    parts << QStringLiteral("@%1").arg(action.answers);
    return parts.join(u' ');
}

std::optional<Action> toAction(const QString& line)
{
    QStringList parts = line.split(u' ');
    if (parts.size() < 2 || parts.constFirst().isEmpty() || !parts.constLast().startsWith(u'@'))
        return std::nullopt;
    bool isNumber = false;
    Action action;
    action.answers = parts.takeLast().mid(1).toUInt(&isNumber);
    if (!isNumber)
        return std::nullopt;
    action.verb = parts.takeFirst();
    for (const QString& part : parts)
        action.words << QUrl::fromPercentEncoding(part.toLatin1());
    return action;
}

std::optional<QList<Action>> readActions(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QList<Action> actions;
    for (const QByteArray& bytes : file.readAll().split('\n')) {
        const QString line = QString::fromLatin1(bytes);
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const std::optional<Action> action = toAction(line);
        if (!action)
            return std::nullopt;
        actions << *action;
    }
    return actions;
}

bool writeActions(const QString& path, const QList<Action>& actions)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (const Action& action : actions)
        file.write(toText(action).toLatin1() + '\n');
    return file.flush();
}

} // namespace brindlemark
