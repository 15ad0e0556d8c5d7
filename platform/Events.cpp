// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Events.h"

#include "platform/Doors.h"
#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <QScopedValueRollback>
#include <new>
#include <utility>
#include <vector>

namespace brindlemark {

namespace {

std::function<QString()>& keeper()
{
    static std::function<QString()> keep;
    return keep;
}

std::function<void(const QString&)>& settingsMender()
{
    static std::function<void(const QString&)> mend;
    return mend;
}

int runningHandlers = 0;

std::vector<std::function<void()>>& waitingActions()
{
    static std::vector<std::function<void()>> actions;
    return actions;
}

/// What nobody trapped, as the user is told of it.
RuntimeError untrapped(const std::exception& error)
{
    if (const auto* ours = dynamic_cast<const RuntimeError*>(&error))
        return *ours;
    if (dynamic_cast<const std::bad_alloc*>(&error))
        return outOfMemory();
    return RuntimeError(ErrorNumber::InvalidProcedureCall, QString::fromLocal8Bit(error.what()));
}

/// The keeper's sentence. Whatever goes wrong in it, the error that ends the program is still told.
QString kept()
{
    try {
        return keeper() ? keeper()() : QString();
    } catch (...) {
        return QStringLiteral("Your text could not be kept.");
    }
}

} // namespace

HandlerRun::HandlerRun()
{
    ++runningHandlers;
}

HandlerRun::~HandlerRun()
{
    if (--runningHandlers > 0)
        return;
    for (const auto& action : std::exchange(waitingActions(), {}))
        guardedCall(action);
}

bool handlersRun()
{
    return runningHandlers > 0;
}

void whenHandlersReturn(std::function<void()> action)
{
    if (!handlersRun()) {
        action();
    } else {
        waitingActions().push_back(std::move(action));
    }
}

void keepOnFatal(std::function<QString()> keep)
{
    keeper() = std::move(keep);
}

void mendSettingsOnFatal(std::function<void(const QString& file)> mend)
{
    settingsMender() = std::move(mend);
}

void fatal(const std::exception& exception)
{
    // A second failure on the way out (a paint, a timer) must neither ask again nor keep a half-made text.
    static bool ending = false;
    if (ending)
        return;
    const QScopedValueRollback<bool> once(ending, true); // only a test's door comes back

    const RuntimeError error = untrapped(exception);
    QString text =
        QStringLiteral("Run-time error '%1':\n\n%2").arg(int(error.number())).arg(error.description());
    if (const auto& setting = error.setting()) {
        text += QStringLiteral("\n\nThe setting \"%3\" in section [%2] of %1 is missing or damaged.")
                    .arg(QFileInfo(setting->file).fileName(), setting->section, setting->key);
    }
    if (const QString sentence = kept(); !sentence.isEmpty())
        text += QStringLiteral("\n\n") + sentence;
    MsgBox(text, ProgramTitle, MsgIcon::Stop);
    if (error.setting() && settingsMender()) {
        try {
            settingsMender()(error.setting()->file);
        } catch (...) {
            // The program ends all the same, and the next start tells of the setting again.
        }
    }
    doors().endNow(1);
}

} // namespace brindlemark
