#include "app/Openings.h"

#include "platform/Events.h"
#include "shell/About.h"
#include "shell/FrmHelp.h"
#include "shell/FrmWeb.h"

namespace {

/// Shows the form's one window when the menu entry is chosen.
template <typename F>
void opens(QAction* entry)
{
    on(entry, &QAction::triggered, entry, [] { form<F>()->Show(); });
}

} // namespace

// What opens what: one line an opening. A tool without a line is not there yet.
void connectOpenings(FrmWeb* main)
{
    opens<FrmHelp>(main->munhelp);
    opens<About>(main->munabout);
}
