#include "platform/Events.h"

#include "platform/Doors.h"
#include "platform/RuntimeError.h"

#include <new>

namespace {

std::function<QString()>& keeper()
{
    static std::function<QString()> keep;
    return keep;
}

} // namespace

void keepOnFatal(std::function<QString()> keep)
{
    keeper() = std::move(keep);
}

void fatal(const RuntimeError& error)
{
    // A second failure on the way out (a paint, a timer) must neither ask again nor keep a half-made text.
    static bool ending = false;
    if (ending)
        return;
    ending = true;

    QString text = QStringLiteral("Run-time error '%1':\n\n%2")
                       .arg(static_cast<int>(error.number()))
                       .arg(error.description());
    if (keeper()) {
        const QString kept = keeper()();
        if (!kept.isEmpty())
            text += QStringLiteral("\n\n") + kept;
    }
    MsgBox(text, ProgramTitle, MsgIcon::Stop);
    doors().endNow(1);
    ending = false; // only a test's door comes back
}

void guarded(const std::function<void()>& body)
{
    try {
        body();
    } catch (const RuntimeError& error) {
        fatal(error);
    } catch (const std::bad_alloc&) {
        fatal(RuntimeError(ErrorNumber::Overflow, QStringLiteral("Out of memory")));
    } catch (const std::exception& error) {
        fatal(RuntimeError(ErrorNumber::InvalidProcedureCall, QString::fromLocal8Bit(error.what())));
    }
}
