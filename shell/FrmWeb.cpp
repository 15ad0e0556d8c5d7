// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmWeb.h"

#include "platform/AppPath.h"
#include "platform/DesktopLook.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "services/Profile.h"
#include "services/ShippedSettings.h"
#include "shell/Find.h"
#include "shell/FindBar.h"
#include "shell/Icons.h"
#include "shell/ScreenFonts.h"
#include "shell/SourceOffers.h"
#include "shell/SourceSpelling.h"
#include "shell/StatusLine.h"
#include "shell/SurfaceCommands.h"
#include "shell/WindowLayout.h"
#include "web/InputGate.h"

#include <QActionGroup>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QScreen>
#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

constexpr int TwipsPerPixel = 15;

/// The layout's numbers are made for tabs of at most so many pixels, which leave the status line its height
/// in any common font.
constexpr int UsualTabs = 22;
/// From the edges of a frame to its controls, in pixels: half of what `resized` takes off a frame's width.
constexpr int Inset = 8;

/// Where a tool can be used.
enum class Usable { Always, OnTheDocument, OnTheSource };

/// A button of the toolbar. One that stands for a menu entry does what the entry does; the others ask for a
/// window.
struct ToolButton
{
    Tool tool;
    const char* toolTip;
    const char* icon;
    QAction* Ui::FrmWeb::*entry;
    Usable usable;
    bool beginsGroup = false; ///< a separator stands in front of it
};

constexpr bool BeginsGroup = true;

// The tool tips are spelt as users know them: a misspelt one is meant to stay.
constexpr std::array<ToolButton, ToolCount> ToolButtons = {{
    {Tool::New, "New", "document-new", &Ui::FrmWeb::MnNew, Usable::Always},
    {Tool::Open, "Open", "document-open", &Ui::FrmWeb::MnOpen, Usable::Always},
    {Tool::Save, "Save", "document-save", &Ui::FrmWeb::mnsave, Usable::Always},
    {Tool::SaveAs, "Save As", "document-save-as", &Ui::FrmWeb::mnsaveas, Usable::Always},
    {Tool::Cut, "Cut", "edit-cut", &Ui::FrmWeb::MnCut, Usable::OnTheDocument, BeginsGroup},
    {Tool::Copy, "Copy", "edit-copy", &Ui::FrmWeb::MnCopy, Usable::OnTheDocument},
    {Tool::Paste, "Paste", "edit-paste", &Ui::FrmWeb::MnPaste, Usable::OnTheDocument},
    {Tool::Find, "Find", "edit-find", &Ui::FrmWeb::munfind, Usable::OnTheDocument},
    {Tool::Highlight, "Hightlight", "draw-highlight", &Ui::FrmWeb::munhighlight, Usable::OnTheSource,
     BeginsGroup},
    {Tool::Unhighlight, "Unhightlight", "draw-eraser", &Ui::FrmWeb::munUNHighlight, Usable::OnTheSource},
    {Tool::HighlightColor, "Highlight Color", "color-management", &Ui::FrmWeb::munhighlightcolor,
     Usable::OnTheSource},
    {Tool::Create, "Brindlemark Create", "tools-wizard", nullptr, Usable::OnTheDocument, BeginsGroup},
    {Tool::Body, "Body Attributes", "document-properties", nullptr, Usable::OnTheSource, BeginsGroup},
    {Tool::Font, "Font Properties", "font", nullptr, Usable::OnTheSource},
    {Tool::Picture, "Picture Properties", "insert-image", nullptr, Usable::OnTheSource},
    {Tool::Table, "Tables Properties", "insert-table", nullptr, Usable::OnTheSource},
    {Tool::List, "Lists Properties", "format-list-unordered", nullptr, Usable::OnTheSource},
    {Tool::Rule, "Horizontal Rule Properties", "insert-horizontal-rule", nullptr, Usable::OnTheSource},
}};

static_assert(
    [] {
        for (size_t i = 0; i < ToolButtons.size(); ++i) {
            if (ToolButtons.at(i).tool != static_cast<Tool>(i))
                return false;
        }
        return true;
    }(),
    "the table is in the order of the tools");

struct ButtonIcon
{
    QToolButton* Ui::FrmWeb::*button;
    const char* icon;
};

/// The buttons of the internet tab.
constexpr std::array<ButtonIcon, 6> InternetIcons = {{
    {&Ui::FrmWeb::Command14, "go-jump"},
    {&Ui::FrmWeb::Command15, "go-home"},
    {&Ui::FrmWeb::Command17, "go-previous"},
    {&Ui::FrmWeb::Command18, "go-next"},
    {&Ui::FrmWeb::Command19, "process-stop"},
    {&Ui::FrmWeb::Command20, "view-refresh"},
}};

TwipsRect twips(const QWidget* widget)
{
    return {widget->x() * TwipsPerPixel, widget->y() * TwipsPerPixel, widget->width() * TwipsPerPixel,
            widget->height() * TwipsPerPixel};
}

void place(QWidget* widget, const TwipsRect& rect)
{
    widget->setGeometry(rect.Left / TwipsPerPixel, rect.Top / TwipsPerPixel, rect.Width / TwipsPerPixel,
                        rect.Height / TwipsPerPixel);
}

} // namespace

FrmWeb::FrmWeb() : m_recent(appFile(DataFile::RecentFiles))
{
    setupUi(this);
    standBelow();
    const QStringList folders = {AppPath(), QDir::homePath()};
    m_document = std::make_unique<Document>(*RichTextBox1, folders);
    m_earlier = std::make_unique<EarlierTexts>(folders);
    m_notice = new NoticeBar(this);
    InputGate::letThrough(*m_notice);
    m_status = new StatusLine(this);
    setCaption(m_document->name());
    for (DocumentSurface* surface : {WebBrowser1, WebBrowser3})
        new FindBar(surface);
    for (ComboBox* combo : {Combo1, Combo2, Combo3})
        combo->setChoiceActs();
    takeColors();
    buildToolbar();
    for (const auto& entry : SurfaceButtons<Ui::FrmWeb>)
        (this->*entry.button)->setIcon(namedIcon(entry.icon, this));
    for (const ButtonIcon& entry : InternetIcons)
        (this->*entry.button)->setIcon(namedIcon(entry.icon, this));
    sizeSymbols();

    auto* textSizes = new QActionGroup(this); // one size at a time is checked
    for (QAction* size : mutextsize->actions())
        textSizes->addAction(size);
    munview->menuAction()->setEnabled(false);

    for (const char* size : PointSizes)
        Combo2->AddItem(QString::fromLatin1(size));
    Combo2->setText(QStringLiteral("Normal"));
    Combo1->setText(QStringLiteral("Arial"));

    arrangeFrames();
    const QSize screenSize = screen()->availableSize();
    resize(qMin(1000, screenSize.width()), qMin(700, screenSize.height()));

    mendSettingsOnFatal(offerShippedSettings);
    loadSettings();
    RichTextBox1->setHint(QStringLiteral("Press the wand for a new listing, or open a page."));
    connectHandlers();
    connectViews();
    connectRegions();
    connectQuickTags();
    connectInternet();
    connectWords();
    connectOffers();
    connectKeys();
    connectRecent();
    connectUndo();
    connectStatus();
    connectPrinting();
    keepOnFatal([this] { return keepText(); });
    on(m_document.get(), &Document::settled, WebBrowser1, &DocumentSurface::forgetEdits);
    m_journalTimer.setObjectName(QStringLiteral("JournalTimer"));
    m_journalTimer.setSingleShot(true);
    on(&m_journalTimer, &QTimer::timeout, this, &FrmWeb::runJournal);
    runJournal();
    RichTextBox1->SetFocus();
}

FrmWeb::~FrmWeb()
{
    keepOnFatal(nullptr);
}

/// A grey of its own on a light desktop; on a dark one it looks like all other windows.
void FrmWeb::takeColors()
{
    const QColor grey(0xE0, 0xE0, 0xE0);
    const bool isDark = QApplication::palette().color(QPalette::Window).lightness() < 128;
    setPalette(isDark ? QApplication::palette() : withReadableSelections(withReadableHints(QPalette(grey))));
    QPalette field = palette();
    if (!isDark)
        field.setColor(QPalette::Base, grey);
    for (ComboBox* combo : {Combo1, Combo2, Combo3})
        combo->setPalette(field);
}

/// Symbols are as large beside the letters as they are at 9 points.
void FrmWeb::sizeSymbols()
{
    constexpr int Least = 22;             // pixels
    constexpr double ToolOfLetters = 1.5; // of a line's height
    constexpr double ButtonOfLetters = 16.0 / 15;
    const int line = fontMetrics().height();
    const int tool = qMax(Least, qRound(line * ToolOfLetters));
    Toolbar1->setIconSize(QSize(tool, tool));
    const int small = qMax(16, qRound(line * ButtonOfLetters));
    for (const auto& entry : SurfaceButtons<Ui::FrmWeb>)
        (this->*entry.button)->setIconSize(QSize(small, small));
    for (const ButtonIcon& entry : InternetIcons)
        (this->*entry.button)->setIconSize(QSize(small, small));
}

void FrmWeb::buildToolbar()
{
    for (const ToolButton& entry : ToolButtons) {
        if (entry.beginsGroup)
            Toolbar1->addSeparator();
        QAction* button =
            Toolbar1->addAction(namedIcon(entry.icon, this), QString::fromLatin1(entry.toolTip));
        // Some tools have no menu entry: without this the keyboard could not reach them.
        Toolbar1->widgetForAction(button)->setFocusPolicy(Qt::TabFocus);
        m_toolButtons.at(size_t(entry.tool)) = button;
        on(button, &QAction::triggered, this, [this, entry] { Toolbar1_ButtonClick(entry.tool); });
    }
    for (const Tool tool : {Tool::Cut, Tool::Copy}) // nothing is selected yet
        toolbarButton(tool)->setEnabled(false);
}

/// Toolbar and menu offer what the tab that is up can take.
void FrmWeb::switchTools()
{
    const int tab = SSTab1->Tab();
    for (const ToolButton& entry : ToolButtons) {
        if (entry.usable != Usable::Always) {
            toolbarButton(entry.tool)
                ->setEnabled(entry.usable == Usable::OnTheSource ? tab == EditorTab : tab != InternetTab);
        }
    }
    for (QMenu* menu : {MnEdit, munoptions})
        menu->menuAction()->setEnabled(tab == EditorTab);
    muncolorcode->setEnabled(tab == EditorTab);
    for (QAction* entry : {munprint, munprintpreview, munpdf})
        entry->setEnabled(tab != InternetTab);
    switchWordTools();
    munview->menuAction()->setEnabled(tab == InternetTab);
}

/// The load step: settings, blank surfaces, fonts.
void FrmWeb::loadSettings()
{
    LoadList(appFile(DataFile::Addresses), *Combo3);
    Combo3->setText(ReadProfile(QStringLiteral("internet"), QStringLiteral("home"), webIni()));
    RichTextBox1->setTextFont(QFont(QStringLiteral("Comic Sans MS"), 10));
    loadEditorFont();
    loadEditorBackground();

    const QString blank = QStringLiteral("about:blank");
    WebBrowser1->Navigate(blank);
    WebBrowser2->Navigate(blank);
    WebBrowser3->Navigate(blank);
    WebBrowser1->setDesignMode(DesignMode::On);
    WebBrowser3->setDesignMode(DesignMode::Off);
    m_document->setDirty(false);
    addScreenFonts(*Combo1, 0);
}

void FrmWeb::connectHandlers()
{
    on(MnNew, &QAction::triggered, this, &FrmWeb::MnNew_Click);
    on(MnOpen, &QAction::triggered, this, &FrmWeb::MnOpen_Click);
    on(mnsave, &QAction::triggered, this, &FrmWeb::mnsave_Click);
    on(mnsaveas, &QAction::triggered, this, &FrmWeb::mnsaveas_Click);
    on(MnExit, &QAction::triggered, this, &FrmWeb::MnExit_Click);
    on(munfind, &QAction::triggered, this, &FrmWeb::munfind_Click);
    on(mnuhtml, &QAction::triggered, this, &FrmWeb::mnuhtml_Click);
    on(MnCut, &QAction::triggered, this, &FrmWeb::MnCut_Click);
    on(MnCopy, &QAction::triggered, this, &FrmWeb::MnCopy_Click);
    on(MnPaste, &QAction::triggered, this, &FrmWeb::MnPaste_Click);
    on(MnSelect, &QAction::triggered, this, &FrmWeb::MnSelect_Click);
    on(munsetfont, &QAction::triggered, this, &FrmWeb::munsetfont_Click);
    on(munEBC, &QAction::triggered, this, &FrmWeb::munEBC_Click);
    on(munhighlight, &QAction::triggered, this, &FrmWeb::munhighlight_Click);
    on(munUNHighlight, &QAction::triggered, this, &FrmWeb::munUNHighlight_Click);

    on(RichTextBox1, &RichTextBox::Change, this, &FrmWeb::RichTextBox1_Change);
    on(RichTextBox1, &RichTextBox::SelChange, this, &FrmWeb::RichTextBox1_SelChange);
    on(RichTextBox1, &RichTextBox::Click, this, &FrmWeb::RichTextBox1_Click);
    on(RichTextBox1, &RichTextBox::KeyUp, this, &FrmWeb::RichTextBox1_KeyUp);
    on(RichTextBox1, &RichTextBox::FilesDropped, this, &FrmWeb::RichTextBox1_FilesDropped);
}

/// Puts the bars of the three pages in place and their views below them; the views get their sizes in
/// `placeControls`.
void FrmWeb::arrangeFrames()
{
    struct Page
    {
        QWidget* frame;
        QWidget* bar;
        std::initializer_list<QWidget*> views;
    };
    constexpr int Gap = 4;
    for (const Page& page :
         {Page{Frame1, RegionBar, {RichTextBox1, Picture1}},
          Page{Frame2, DesignBar, {WebBrowser1, WebBrowser3}}, Page{Frame3, AddressBar, {WebBrowser2}}}) {
        page.frame->move(Inset, Gap);
        const int barHeight = page.bar->sizeHint().height();
        page.bar->setGeometry(Inset, 0, page.bar->sizeHint().width(), barHeight);
        for (QWidget* view : page.views)
            view->move(Inset, barHeight + Gap);
    }
    Label1->move(Inset, 0);
    ProgressBar1->resize(100, Label1->sizeHint().height());
    Label1->resize(Label1->sizeHint());
    limitSize();
}

/// The window gets no smaller than what shows the whole bar of each page and some lines of its view.
void FrmWeb::limitSize()
{
    constexpr int LeastView = 100;                                    // pixels
    constexpr int Beside = (250 + TwipsPerPixel) / TwipsPerPixel;     // of a frame: what `resized` leaves
    constexpr int Below = (50 + 950 + TwipsPerPixel) / TwipsPerPixel; // likewise, of the lowest view

    int design = DesignBar->minimumSizeHint().width();
    for (const ComboBox* list : {Combo1, Combo2})
        design -= list->minimumSizeHint().width() / 3; // the widest, which give way first
    const int bars =
        std::max({RegionBar->minimumSizeHint().width(), design, AddressBar->minimumSizeHint().width()});
    const int width = bars + 2 * Inset + Beside;
    const int surplus = qMax(0, SSTab1->tabBar()->sizeHint().height() - UsualTabs);
    const int height = MenuBar1->heightForWidth(width) + Toolbar1->sizeHint().height() + surplus +
                       WebBrowser2->y() + LeastView + Below;
    setMinimumSize(QSize(width, height).boundedTo(screen()->availableSize()));
}

bool FrmWeb::queryUnload()
{
    if (!mayGiveUp([this] { Unload(); }))
        return false;
    noteRecent();
    doors().end(0);
    return true;
}

void FrmWeb::resizeEvent(QResizeEvent* event)
{
    guardedCall([&] {
        Form::resizeEvent(event);
        placeControls();
    });
}

bool FrmWeb::event(QEvent* event)
{
    return guardedCall([&] {
        if (event->type() == QEvent::ApplicationPaletteChange)
            takeColors();
        return Form::event(event);
    });
}

void FrmWeb::changeEvent(QEvent* event)
{
    guardedCall([&] {
        Form::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
            sizeSymbols();
            arrangeFrames();
            placeControls();
        }
    });
}

/// Places all that follows the window's size.
void FrmWeb::placeControls()
{
    const int menuHeight = MenuBar1->heightForWidth(width());
    const int toolbarHeight = Toolbar1->sizeHint().height();
    MenuBar1->setGeometry(0, 0, width(), menuHeight);
    Toolbar1->setGeometry(0, menuHeight, width(), toolbarHeight);

    // The layout counts from below the menu bar, and frames from the tab control's own top. What taller tabs
    // than the usual ones take is taken from the control's height.
    const int tabsHeight = SSTab1->tabBar()->sizeHint().height();
    const int usualHeight = qMin(tabsHeight, UsualTabs);
    const int surplus = (tabsHeight - usualHeight) * TwipsPerPixel;
    WindowLayout layout = {
        .toolbar = {0, 0, width() * TwipsPerPixel, toolbarHeight * TwipsPerPixel},
        .tabs = twips(SSTab1),
        .editorFrame = twips(Frame1),
        .designFrame = twips(Frame2),
        .internetFrame = twips(Frame3),
        .source = twips(RichTextBox1),
        .cover = twips(Picture1),
        .designSurface = twips(WebBrowser1),
        .browser = twips(WebBrowser2),
        .preview = twips(WebBrowser3),
        .status = twips(Label1),
        .progress = twips(ProgressBar1),
    };
    for (TwipsRect* frame : {&layout.editorFrame, &layout.designFrame, &layout.internetFrame})
        frame->Top += usualHeight * TwipsPerPixel;

    // A window's frame and title are no part of `width()` and `height()`: 90 and 680 twips stand for them.
    layout = resized(layout, width() * TwipsPerPixel + 90,
                     (height() - menuHeight) * TwipsPerPixel + 680 - surplus);
    layout.tabs.Height += surplus;
    // A large font makes the address bar taller: the page below it ends where the status line begins.
    layout.browser.Height = qMin(layout.browser.Height, layout.status.Top - layout.browser.Top);

    for (TwipsRect* frame : {&layout.editorFrame, &layout.designFrame, &layout.internetFrame})
        frame->Top -= usualHeight * TwipsPerPixel;
    layout.tabs.Top += menuHeight * TwipsPerPixel;
    place(SSTab1, layout.tabs);
    place(Frame1, layout.editorFrame);
    place(Frame2, layout.designFrame);
    place(Frame3, layout.internetFrame);
    place(RichTextBox1, layout.source);
    place(Picture1, layout.cover);
    place(WebBrowser1, layout.designSurface);
    place(WebBrowser2, layout.browser);
    place(WebBrowser3, layout.preview);
    place(Label1, layout.status);
    place(ProgressBar1, layout.progress);
    placeStatus();
    m_notice->lieOver(viewThatIsUp());
    for (QWidget* bar : {RegionBar, DesignBar, AddressBar})
        bar->resize(bar->parentWidget()->width() - 2 * bar->x(), bar->height());
}

void FrmWeb::Toolbar1_ButtonClick(Tool tool)
{
    if (tool == Tool::Create) {
        if (newDocument([this] { Toolbar1_ButtonClick(Tool::Create); }))
            emit toolWanted(tool);
        return;
    }
    if (const auto entry = ToolButtons.at(size_t(tool)).entry) {
        (this->*entry)->trigger();
    } else {
        emit toolWanted(tool);
    }
}

void FrmWeb::MnExit_Click()
{
    Unload();
}

/// The source box is searched from a window, a surface by its own bar; the tab Internet holds no document.
void FrmWeb::munfind_Click()
{
    switch (SSTab1->Tab()) {
    case EditorTab:
        form<Find>()->searchIn(RichTextBox1);
        form<Find>()->Show();
        form<Find>()->Text1->setFocus();
        form<Find>()->Text1->lineEdit()->selectAll(); // the next letter begins another search
        break;
    case PreviewTab:
        shownSurface()->sendKeys(QStringLiteral("^f"));
        break;
    }
}

/// Keeps the source before a fatal error ends the program: in the journal, from which the next start offers
/// it, and as `Recovered.htm` in the first folder that takes it. An earlier `Recovered.htm` becomes
/// `Recovered.old.htm`. Returns what the user is told of it.
QString FrmWeb::keepText()
{
    const QByteArray text = RichTextBox1->Text();
    if (text.isEmpty())
        return QString();
    m_document->finishKeeping();
    runJournal();
    m_document->finishKeeping();
    for (const QString& folder : {AppPath(), QDir::homePath(), QDir::tempPath()}) {
        const QString path = folder + QStringLiteral("/Recovered.htm");
        const QString older = folder + QStringLiteral("/Recovered.old.htm");
        try {
            if (QFile::exists(path)) { // where it can't be moved, this text is worth more
                QFile::remove(older);
                QFile::rename(path, older);
            }
            writeFile(path, text);
            return QStringLiteral("Your text is kept in %1.").arg(QDir::toNativeSeparators(path));
        } catch (const RuntimeError&) {
            continue; // the next folder may take it
        }
    }
    return QStringLiteral("Your text could not be kept.");
}

} // namespace brindlemark
