// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/AppPath.h"

#include <QCoreApplication>

namespace brindlemark {

namespace {

QString& chosenFolder()
{
    static QString folder;
    return folder;
}

} // namespace

QString AppPath()
{
    return chosenFolder().isEmpty() ? QCoreApplication::applicationDirPath() : chosenFolder();
}

void setAppPath(const QString& folder)
{
    chosenFolder() = folder;
}

QString appFile(QStringView name)
{
    return AppPath() + name.toString().replace(u'\\', u'/');
}

} // namespace brindlemark
