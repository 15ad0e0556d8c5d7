// SPDX-License-Identifier: GPL-3.0-or-later

// The keys of the main window.

#include "platform/Events.h"
#include "shell/Find.h"
#include "shell/FindBar.h"
#include "shell/FrmWeb.h"
#include "shell/Keys.h"

#include <QKeyEvent>
#include <QShortcut>
#include <array>

namespace brindlemark {

namespace {

template <Tool Button>
void pressTool(FrmWeb& main)
{
    main.toolbarButton(Button)->trigger();
}

template <FrmWeb::Tab Page>
void turnToPage(FrmWeb& main)
{
    main.SSTab1->setTab(Page);
    main.giveKeyboardToView();
}

template <auto Entry> // a member of the window
void choose(FrmWeb& main)
{
    (main.*Entry)->trigger();
}

constexpr char ListingGroup[] = "The listing";
constexpr char FindGroup[] = "Finding";
constexpr char EditGroup[] = "Editing";
constexpr char ViewGroup[] = "Looking";
constexpr char BuildGroup[] = "Builders";

constexpr auto Keys = std::to_array<MainKey>({
    {ListingGroup, "Ctrl+N", "A new, empty page", choose<&Ui::FrmWeb::MnNew>},
    {ListingGroup, "Ctrl+O", "Open a page", choose<&Ui::FrmWeb::MnOpen>},
    {ListingGroup, "Ctrl+S", "Save", choose<&Ui::FrmWeb::mnsave>},
    {ListingGroup, "Ctrl+Shift+S", "Save under another name", choose<&Ui::FrmWeb::mnsaveas>},
    {ListingGroup, "Ctrl+P", "Print", choose<&Ui::FrmWeb::munprint>},
    {EditGroup, "Ctrl+Z", "Undo"},
    {EditGroup, "Ctrl+Y; Ctrl+Shift+Z", "Redo"},
    {EditGroup, "Ctrl+X", "Cut"},
    {EditGroup, "Ctrl+C", "Copy"},
    {EditGroup, "Ctrl+V", "Paste"},
    {EditGroup, "Ctrl+Shift+V", "Paste as text", choose<&Ui::FrmWeb::munpastetext>},
    {EditGroup, "Ctrl+A", "Select all"},
    {EditGroup, "Ctrl+K", "Make or change a link, on the design surface"},
    {EditGroup, "F7", "Next misspelt word", choose<&Ui::FrmWeb::munnextmisspelt>},
    {FindGroup, "Ctrl+F", "Find", choose<&Ui::FrmWeb::munfind>},
    {FindGroup, "F3", "Find the next place", [](FrmWeb& main) { main.findAgain(false); }},
    {FindGroup, "Shift+F3", "Find the place before", [](FrmWeb& main) { main.findAgain(true); }},
    {FindGroup, "Ctrl+H", "Find and replace, in the editor", [](FrmWeb& main) { main.openReplace(); }},
    {ViewGroup, "Ctrl+1", "The editor", turnToPage<FrmWeb::EditorTab>},
    {ViewGroup, "Ctrl+2", "The preview", turnToPage<FrmWeb::PreviewTab>},
    {ViewGroup, "Ctrl+3", "The Internet", turnToPage<FrmWeb::InternetTab>},
    {ViewGroup, "Ctrl++; Ctrl+=", "Larger; Ctrl and the wheel do it too",
     [](FrmWeb& main) { main.zoomBy(1); }},
    {ViewGroup, "Ctrl+-", "Smaller", [](FrmWeb& main) { main.zoomBy(-1); }},
    {ViewGroup, "Ctrl+0", "As large as at first", [](FrmWeb& main) { main.zoomBy(0); }},
    {ViewGroup, "Ctrl+Tab", "Out of the text to the buttons, and between editor and preview"},
    {ViewGroup, "Escape", "From the buttons back to the text; in the text, closes Find"},
    {ViewGroup, "F10", "The menu bar", [](FrmWeb& main) { main.openMenuBar(); }},
    {ViewGroup, "F1", "Help about what is up"},
    {BuildGroup, "Ctrl+Shift+N", "A new listing, page by page", pressTool<Tool::Create>},
    {BuildGroup, "Ctrl+Shift+B", "Body colors", pressTool<Tool::Body>},
    {BuildGroup, "Ctrl+Shift+F", "Faded text", pressTool<Tool::Font>},
    {BuildGroup, "Ctrl+Shift+P", "Picture", pressTool<Tool::Picture>},
    {BuildGroup, "Ctrl+Shift+T", "Table", pressTool<Tool::Table>},
    {BuildGroup, "Ctrl+Shift+L", "List", pressTool<Tool::List>},
    {BuildGroup, "Ctrl+Shift+R", "Rule", pressTool<Tool::Rule>},
});

} // namespace

std::span<const MainKey> mainKeys()
{
    return Keys;
}

void FrmWeb::connectKeys()
{
    for (const MainKey& key : Keys) {
        if (!key.act)
            continue;
        for (const QKeySequence& keys : QKeySequence::listFromString(QString::fromLatin1(key.keys))) {
            auto* shortcut = new QShortcut(keys, this);
            shortcut->setAutoRepeat(key.group == FindGroup); // a held key opens one window
            on(shortcut, &QShortcut::activated, this, [this, act = key.act] { act(*this); });
        }
    }
    onInner(RichTextBox1, &RichTextBox::ZoomWanted, this, &FrmWeb::zoomSource);
    for (DocumentSurface* surface : {WebBrowser1, WebBrowser3})
        onInner(surface, &DocumentSurface::zoomWanted, this, &FrmWeb::zoomSurfaces);
    for (QWidget* watched : std::initializer_list<QWidget*>{SSTab1, RichTextBox1})
        watched->installEventFilter(this);
}

void FrmWeb::giveKeyboardToView()
{
    viewThatIsUp()->setFocus();
}

bool FrmWeb::eventFilter(QObject* watched, QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::KeyPress) {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (watched == SSTab1 ? turnsTab(key) : closesFind(key))
                return true;
        }
        return Form::eventFilter(watched, event);
    });
}

/// Ctrl+Tab leads to and fro between editor and preview, and never to the Internet, where a stranger's page
/// would come up.
bool FrmWeb::turnsTab(const QKeyEvent& key)
{
    const bool isTab = key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab;
    if (!isTab || !(key.modifiers() & Qt::ControlModifier))
        return false;
    SSTab1->setTab(SSTab1->Tab() == EditorTab ? PreviewTab : EditorTab);
    return true;
}

/// A search gives the source the keyboard, and Find stays on top: Escape reaches it from there. What stands
/// open over the source sees the key before.
bool FrmWeb::closesFind(const QKeyEvent& key)
{
    Find* find = loaded<Find>();
    if (key.key() != Qt::Key_Escape || !find || !find->isVisible())
        return false;
    guarded([find] { find->Unload(); });
    return true;
}

/// Escape, which the view that has the keyboard keeps, leads from a button to the text.
void FrmWeb::keyPressEvent(QKeyEvent* event)
{
    guardedCall([&] {
        if (event->key() == Qt::Key_Escape) {
            giveKeyboardToView();
        } else {
            Form::keyPressEvent(event);
        }
    });
}

void FrmWeb::openReplace()
{
    if (SSTab1->Tab() != EditorTab)
        return;
    munfind_Click();
    form<Find>()->Text2->setFocus();
}

void FrmWeb::findAgain(bool backwards)
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        if (!isLoaded<Find>() || !form<Find>()->findAgain(*RichTextBox1, backwards))
            munfind_Click();
        break;
    case PreviewTab:
        findChild<FindBar*>(shownSurface()->objectName() + QStringLiteral("FindBar"))->findAgain(backwards);
        break;
    }
}

void FrmWeb::zoomBy(int steps)
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        zoomSource(steps);
        break;
    case PreviewTab:
        zoomSurfaces(steps);
        break;
    }
}

void FrmWeb::zoomSource(int steps)
{
    m_sourceZoom.turn(steps);
    RichTextBox1->setZoom(m_sourceZoom.percent());
    tellStatusSoon();
}

void FrmWeb::zoomSurfaces(int steps)
{
    m_surfaceZoom.turn(steps);
    for (DocumentSurface* surface : {WebBrowser1, WebBrowser3})
        surface->setZoom(m_surfaceZoom.percent());
    tellStatusSoon();
}

int FrmWeb::percentZoomed() const
{
    return (SSTab1->Tab() == EditorTab ? m_sourceZoom : m_surfaceZoom).percent();
}

/// The bar has the keyboard then, as after Alt, and gives it back: without it, the keys that follow a menu's
/// end, or come at an entry that opens none, would go into the text.
void FrmWeb::openMenuBar()
{
    for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyRelease}) {
        QKeyEvent alt(type, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(this, &alt);
    }
    MenuBar1->setActiveAction(MenuBar1->actions().constFirst());
}

} // namespace brindlemark
