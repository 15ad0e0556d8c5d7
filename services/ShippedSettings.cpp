// SPDX-License-Identifier: GPL-3.0-or-later

#include "services/ShippedSettings.h"

#include "platform/AppPath.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "services/Messages.h"
#include "services/Profile.h"

#include <QFile>

namespace brindlemark {

namespace {

/// The settings as they ship, compiled into the program. Throws RuntimeError(FileNotFound).
QByteArray shippedSettings()
{
    QFile file(QStringLiteral(":/web.ini"));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(ErrorNumber::FileNotFound);
    return file.readAll();
}

/// Throws RuntimeError where the file can't be read or its copy not be written.
void keepDamaged(const QString& file)
{
    QString kept;
    for (int number = 1; kept.isEmpty() || QFile::exists(kept); ++number)
        kept = AppPath() + QStringLiteral("/web-damaged-%1.ini").arg(number);
    writeFile(kept, readFile(file));
}

} // namespace

void offerShippedSettings(const QString& file)
{
    if (file != webIni() || !confirmed(Messages::ShippedSettings))
        return;
    try {
        const QByteArray shipped = shippedSettings();
        if (QFile::exists(file))
            keepDamaged(file);
        writeFile(file, shipped);
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
    }
}

} // namespace brindlemark
