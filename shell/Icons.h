#pragma once

#include <QIcon>

/// The symbol of a button by its name in the icon set, such as "edit-undo".
inline QIcon namedIcon(const char* name)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
}
