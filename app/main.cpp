// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Openings.h"
#include "app/WarmUp.h"
#include "platform/AppPath.h"
#include "platform/DesktopLook.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "shell/FrmSplash.h"
#include "shell/FrmWeb.h"
#include "web/WebEngine.h"
#include "wizard/Unfinished.h"

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QPointer>

using namespace brindlemark;

namespace {

/// The file that the desktop hands over with the start; empty without one.
QString fileHandedOver()
{
    const QStringList arguments = QApplication::arguments();
    return arguments.size() == 2 ? QFileInfo(arguments.constLast()).absoluteFilePath() : QString();
}

void openHandedOver()
{
    if (const QString file = fileHandedOver(); !file.isEmpty())
        form<FrmWeb>()->openHandedOver(file);
}

/// Deletes the windows that are still open at the end, before the toolkit goes.
void closeForms()
{
    // The list has menus and pop-ups as well, which go with their forms.
    QList<QPointer<Form>> forms;
    for (QWidget* window : QApplication::topLevelWidgets())
        forms << qobject_cast<Form*>(window);
    for (const QPointer<Form>& form : forms)
        delete form;
}

} // namespace

int main(int argc, char* argv[])
{
    prepareWebEngine();
    QApplication app(argc, argv);
    QApplication::setApplicationName(ProgramTitle);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/brindlemark.svg")));
    QApplication::setQuitOnLastWindowClosed(false); // the main window's unload ends the program
    followDesktopLook();
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));

    guarded([] {
        fillSettingsFolder(QApplication::applicationDirPath(), AppPath());
        auto* splash = form<FrmSplash>();
        on(splash, &FrmSplash::mainWindowLoaded, splash, [] {
            connectOpenings(form<FrmWeb>());
            warmUpBeforePreview(form<FrmWeb>());
        });
        on(splash, &FrmSplash::documentOffered, splash, [] {
            openHandedOver();
            offerUnfinished();
        });
        splash->Show();
    });
    const int exitCode = QApplication::exec();
    closeForms();
    return exitCode;
}
