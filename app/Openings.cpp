#include "app/Openings.h"

#include "builders/FrmAddTable.h"
#include "builders/FrmListChoose.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "colour/Fader5.h"
#include "colour/FrmBody.h"
#include "colour/FrmColorcode.h"
#include "colour/FrmHR.h"
#include "colour/color.h"
#include "platform/Events.h"
#include "shell/About.h"
#include "shell/FrmHelp.h"
#include "shell/FrmWeb.h"
#include "shell/FrmWord.h"
#include "wizard/FrmBuild1.h"

namespace {

/// Shows the form's one window when the menu entry is chosen.
template <typename F>
void opens(QAction* entry)
{
    on(entry, &QAction::triggered, entry, [] { form<F>()->Show(); });
}

/// Shows the form's one window when the main window wants the tool of a toolbar button.
template <typename F>
void toolOpens(FrmWeb* main, int toolbarIndex)
{
    QObject::connect(main, &FrmWeb::toolWanted, main, [toolbarIndex](int wanted) {
        if (wanted == toolbarIndex)
            guarded([] { form<F>()->Show(); });
    });
}

} // namespace

// What opens what: one line an opening. A tool without a line is not there yet.
void connectOpenings(FrmWeb* main)
{
    toolOpens<FrmBuild1>(main, 15);
    toolOpens<FrmBody>(main, 17);
    toolOpens<Fader5>(main, 18);
    toolOpens<Pics>(main, 19);
    toolOpens<FrmTable>(main, 20);
    toolOpens<FrmListChoose>(main, 21);
    toolOpens<FrmHR>(main, 22);
    opens<color>(main->munhighlightcolor);
    opens<FrmAddTable>(main->munaddtable);
    opens<FrmColorcode>(main->muncolorcode);
    opens<FrmWord>(main->muQW);
    opens<FrmHelp>(main->munhelp);
    opens<About>(main->munabout);
}
