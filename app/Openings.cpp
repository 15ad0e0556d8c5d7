// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Openings.h"

#include "builders/FrmAddTable.h"
#include "builders/FrmChar.h"
#include "builders/FrmList.h"
#include "builders/FrmList2.h"
#include "builders/FrmListChoose.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "check/CopyPage.h"
#include "check/FrmCheck.h"
#include "check/FrmLive.h"
#include "colour/Fader5.h"
#include "colour/FrmAutoColor.h"
#include "colour/FrmBody.h"
#include "colour/FrmColorcode.h"
#include "colour/FrmFonts.h"
#include "colour/FrmHR.h"
#include "colour/color.h"
#include "forms/SSTab.h"
#include "forms/Wait.h"
#include "platform/Events.h"
#include "shell/About.h"
#include "shell/Find.h"
#include "shell/FrmEarlier.h"
#include "shell/FrmHelp.h"
#include "shell/FrmKeys.h"
#include "shell/FrmPicture.h"
#include "shell/FrmSplash.h"
#include "shell/FrmWeb.h"
#include "shell/FrmWord.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

/// Shows the form's one window when the menu entry is chosen.
template <typename F>
void opens(QAction* entry)
{
    on(entry, &QAction::triggered, entry, [] { form<F>()->Show(); });
}

/// Shows the form's one window when the main window wants a tool.
template <typename F>
void toolOpens(FrmWeb* main, Tool tool)
{
    onInner(main, &FrmWeb::toolWanted, main, [tool](Tool wanted) {
        if (wanted == tool)
            guarded([] { form<F>()->Show(); });
    });
}

/// Where the help page tells of a window, and of the tab that is up there.
struct HelpSection
{
    const QMetaObject* form;
    int tab;
    const char* id;
};

const std::array HelpSections = std::to_array<HelpSection>({
    {&FrmSplash::staticMetaObject, 0, "start"},
    {&FrmWeb::staticMetaObject, FrmWeb::EditorTab, "editor"},
    {&FrmWeb::staticMetaObject, FrmWeb::PreviewTab, "preview"},
    {&FrmWeb::staticMetaObject, FrmWeb::InternetTab, "internet"},
    {&FrmBuild1::staticMetaObject, 0, "create-item"},
    {&FrmBuild1::staticMetaObject, 1, "create-pictures"},
    {&FrmBuild1::staticMetaObject, 2, "create-payment"},
    {&FrmBuild1::staticMetaObject, 3, "create-location"},
    {&FrmBuild1::staticMetaObject, 4, "create-pays"},
    {&FrmBuild2::staticMetaObject, 0, "create-look"},
    {&FrmPicture::staticMetaObject, 0, "pictures"},
    {&FrmTerms::staticMetaObject, 0, "terms"},
    {&FrmEarlier::staticMetaObject, 0, "earlier"},
    {&FrmKeys::staticMetaObject, 0, "keys"},
    {&FrmLive::staticMetaObject, 0, "live"},
    {&FrmCheck::staticMetaObject, 0, "check"},
    {&Find::staticMetaObject, 0, "find"},
    {&FrmWord::staticMetaObject, 0, "words"},
    {&color::staticMetaObject, 0, "highlight-color"},
    {&FrmColorcode::staticMetaObject, 0, "color-code"},
    {&FrmBody::staticMetaObject, 0, "body"},
    {&Fader5::staticMetaObject, 0, "fader"},
    {&Pics::staticMetaObject, 0, "picture"},
    {&FrmHR::staticMetaObject, 0, "rule"},
    {&FrmTable::staticMetaObject, 0, "table"},
    {&FrmAutoColor::staticMetaObject, 0, "two-colors"},
    {&FrmAddTable::staticMetaObject, 0, "newtable"},
    {&FrmListChoose::staticMetaObject, 0, "lists"},
    {&FrmList::staticMetaObject, 0, "list"},
    {&FrmFonts::staticMetaObject, 0, "fonts"},
    {&FrmList2::staticMetaObject, 0, "symbols"},
    {&FrmChar::staticMetaObject, 0, "characters"},
    {&Wait::staticMetaObject, 0, "wait"},
    {&FrmHelp::staticMetaObject, 0, "help"},
    {&About::staticMetaObject, 0, "about"},
});

/// Opens the help page where it tells of the form.
void showHelpOf(const Form& form)
{
    const auto* tabs = form.findChild<SSTab*>();
    const int tab = tabs ? tabs->Tab() : 0;
    const auto* section = std::ranges::find_if(HelpSections, [&](const HelpSection& entry) {
        return entry.form == form.metaObject() && entry.tab == tab;
    });
    brindlemark::form<FrmHelp>()->showSection(
        section == HelpSections.end() ? QString() : QString::fromLatin1(section->id));
}

} // namespace

// What opens what: one line an opening.
void connectOpenings(FrmWeb* main)
{
    toolOpens<FrmBuild1>(main, Tool::Create);
    toolOpens<FrmBody>(main, Tool::Body);
    toolOpens<Fader5>(main, Tool::Font);
    toolOpens<Pics>(main, Tool::Picture);
    toolOpens<FrmTable>(main, Tool::Table);
    toolOpens<FrmListChoose>(main, Tool::List);
    toolOpens<FrmHR>(main, Tool::Rule);
    opens<color>(main->munhighlightcolor);
    opens<FrmAddTable>(main->munaddtable);
    opens<FrmColorcode>(main->muncolorcode);
    opens<FrmWord>(main->muQW);
    opens<FrmEarlier>(main->munearlier);
    opens<FrmKeys>(main->munkeys);
    opens<FrmLive>(main->munliveview);
    opens<FrmCheck>(main->munchecklisting);
    on(main->muncopypage, &QAction::triggered, main, copyPage);
    opens<FrmHelp>(main->munhelp);
    opens<About>(main->munabout);
    showHelpBy(showHelpOf);
}

} // namespace brindlemark
