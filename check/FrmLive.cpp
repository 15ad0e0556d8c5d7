// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FrmLive.h"

#include "check/PlacedSource.h"
#include "platform/Events.h"
#include "services/Profile.h"
#include "source/TextEncoding.h"

#include <QGuiApplication>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

// In milliseconds.
constexpr int LeastRest = 10;      // between two letters that are typed
constexpr int MostRest = 2000;     // for a text that takes so long itself
constexpr int BytesPerRest = 5000; // for so many a millisecond more
constexpr int PlaceRest = 300;
constexpr int PreviewRest = 1000;
constexpr int ScrollRest = 50;
constexpr int CaretScrolls = 300; // the source is painted by then where a caret has brought it

/// A longer text would hold up the hand, in bytes.
constexpr qsizetype LongestShown = 10'000'000;
constexpr int PhoneFrame = 6; // pixels

struct PageWidth
{
    const char* key; // in the settings
    int width;       // pixels of the page; 0: that of the window
};
/// In the order of the list.
constexpr std::array<PageWidth, 4> PageWidths = {
    {{"phone", 375}, {"tablet", 768}, {"desktop", 1200}, {"free", 0}}};

struct ZoomKey
{
    const char* keys;
    int steps; // 0: as at first
};
/// As in the main window.
constexpr std::array<ZoomKey, 3> ZoomKeys = {{{"Ctrl++; Ctrl+=", 1}, {"Ctrl+-", -1}, {"Ctrl+0", 0}}};

QString kept(const char* key)
{
    return ReadProfile(QStringLiteral("Live"), QString::fromLatin1(key), webIni());
}

} // namespace

FrmLive::FrmLive()
{
    setupUi(this);
    stayOverMain();
    for (QTimer* timer :
         {&m_placeTimer, &m_textTimer, &m_caretTimer, &m_caretScrolls, &m_previewTimer, &m_scrollTimer})
        timer->setSingleShot(true);
    m_placeTimer.setInterval(PlaceRest);
    m_caretTimer.setInterval(LeastRest);
    m_caretScrolls.setInterval(CaretScrolls);
    m_previewTimer.setInterval(PreviewRest);
    m_scrollTimer.setInterval(ScrollRest);
    on(&m_placeTimer, &QTimer::timeout, this, &FrmLive::keepPlace);
    on(&m_textTimer, &QTimer::timeout, this, &FrmLive::showSource);
    on(&m_caretTimer, &QTimer::timeout, this, &FrmLive::showCaret);
    on(&m_previewTimer, &QTimer::timeout, this, &FrmLive::showPreview);
    on(&m_scrollTimer, &QTimer::timeout, this, &FrmLive::Page1_Scrolled);
    on(Widths, &ComboBox::Click, this, &FrmLive::Widths_Click);
    on(Page1, &LivePage::placeClicked, this, &FrmLive::Page1_PlaceClicked);
    on(Page1, &LivePage::shown, this, &FrmLive::Page1_Shown);
    onInner(Page1, &LivePage::zoomWanted, this, &FrmLive::Page1_ZoomWanted);
    for (const ZoomKey& key : ZoomKeys) {
        for (const QKeySequence& keys : QKeySequence::listFromString(QString::fromLatin1(key.keys))) {
            auto* shortcut = new QShortcut(keys, this);
            on(shortcut, &QShortcut::activated, this, [this, key] { Page1_ZoomWanted(key.steps); });
        }
    }
    onInner(Page1, &LivePage::scrolled, this, [this] { m_scrollTimer.start(); });
    setEscape([this] { Unload(); });
    const QString width = kept("width");
    const auto chosen = std::ranges::find_if(
        PageWidths, [&](const PageWidth& w) { return width == QString::fromLatin1(w.key); });
    Widths->setListIndex(chosen == PageWidths.end() ? 0 : int(chosen - PageWidths.begin()));
    setPageWidth();
    placeBesideMain();
    if (ListingEditor* editor = loadedEditor()) {
        editor->follow({.window = this,
                        .textChanged = [this] { followSource(); },
                        .caretMoved =
                            [this] {
                                m_caretMoved = true;
                                m_caretTimer.start();
                                m_caretScrolls.start();
                            },
                        .scrolled = [this] { sourceScrolled(); },
                        .tabChanged = [this] { showSource(); }});
    }
    showSource();
}

/// Where the window was the last time, or at the right edge of the screen.
void FrmLive::placeBesideMain()
{
    std::array<int, 4> place{};
    const QStringList numbers = kept("place").split(u' ');
    bool isWhole = numbers.size() == qsizetype(place.size());
    for (size_t i = 0; isWhole && i < place.size(); ++i)
        place.at(i) = numbers.at(qsizetype(i)).toInt(&isWhole);
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    QRect wanted(place[0], place[1], place[2], place[3]);
    if (!isWhole || !wanted.isValid() || !QGuiApplication::screenAt(wanted.center())) {
        wanted.setSize(size().boundedTo(area.size() - QSize(20, 40)));
        wanted.moveTopRight(area.topRight() + QPoint(-10, 30));
    }
    resize(wanted.size());
    placeAt(wanted.topLeft());
}

bool FrmLive::queryUnload()
{
    keepPlace();
    return true;
}

/// At once where the window rests: the program's end asks it nothing.
void FrmLive::keepPlace()
{
    m_placeTimer.stop();
    if (!isVisible())
        return;
    const QString place = QStringLiteral("%1 %2 %3 %4").arg(x()).arg(y()).arg(width()).arg(height());
    const QString width = QString::fromLatin1(PageWidths.at(size_t(Widths->ListIndex())).key);
    WriteProfile({{QStringLiteral("Live"), QStringLiteral("place"), place},
                  {QStringLiteral("Live"), QStringLiteral("width"), width}},
                 webIni());
}

void FrmLive::moveEvent(QMoveEvent* event)
{
    guardedCall([&] {
        Form::moveEvent(event);
        m_placeTimer.start();
    });
}

void FrmLive::resizeEvent(QResizeEvent* event)
{
    guardedCall([&] {
        Form::resizeEvent(event);
        m_placeTimer.start();
    });
}

void FrmLive::Widths_Click()
{
    setPageWidth();
    m_placeTimer.start();
    makeRoomForPage();
}

/// Larger or smaller, but as wide in its own pixels as it was.
void FrmLive::Page1_ZoomWanted(int steps)
{
    m_zoom.turn(steps);
    Page1->setZoom(m_zoom.percent());
    setPageWidth();
    makeRoomForPage();
}

void FrmLive::makeRoomForPage()
{
    const int missing = Page1->minimumWidth() - View->viewport()->width();
    if (isVisible() && missing > 0) // before, nothing has its size yet
        resize(std::min(width() + missing + 2 * PhoneFrame, screen()->availableGeometry().width()), height());
}

/// The page is as wide as was chosen; a wider one than the window scrolls. A phone has a frame.
void FrmLive::setPageWidth()
{
    const int pixels = PageWidths.at(size_t(std::max(Widths->ListIndex(), 0))).width;
    const int width = pixels * m_zoom.percent() / 100;
    const bool isPhone = pixels == PageWidths.front().width;
    Phone->setFrameShape(isPhone ? QFrame::Box : QFrame::NoFrame);
    Phone->setLineWidth(isPhone ? PhoneFrame : 0);
    Phone->setMaximumWidth(width == 0 ? QWIDGETSIZE_MAX : width + (isPhone ? 2 * PhoneFrame : 0));
    Page1->setMinimumWidth(width);
    Page1->setScrollBars(!isPhone);
}

// ---- From the source to the page

void FrmLive::followSource()
{
    const ListingEditor* editor = loadedEditor();
    if (!editor || m_textTimer.isActive())
        return;
    m_textTimer.start(int(std::min<qsizetype>(LeastRest + editor->textLength() / BytesPerRest, MostRest)));
}

void FrmLive::showSource()
{
    ListingEditor* editor = loadedEditor();
    if (!editor || !isVisible())
        return;
    m_textTimer.stop();
    if (editor->tab() == ListingEditor::PreviewTab) {
        showPreview();
        return;
    }
    m_previewTimer.stop();
    m_shownPreview.clear();
    m_ofSource = true;
    if (editor->textLength() > LongestShown) {
        Page1->writeSoon(QStringLiteral("<P>A text of more than 10 MB is shown on the tab Preview alone."));
        return;
    }
    const QByteArray text = editor->text();
    Page1->writeSoon(decode(withPlaces(text), encodingOf(text)));
}

void FrmLive::showPreview()
{
    ListingEditor* editor = loadedEditor();
    if (!editor || editor->tab() != ListingEditor::PreviewTab)
        return;
    m_previewTimer.start();
    m_ofSource = false;
    editor->readPage([self = QPointer<FrmLive>(this)](const QString& html) {
        if (self && html != self->m_shownPreview) {
            self->m_shownPreview = html;
            self->Page1->writeSoon(html);
        }
    });
}

/// What is typed is followed by the place where it stands.
void FrmLive::Page1_Shown()
{
    if (m_caretMoved)
        showCaret();
}

void FrmLive::showCaret()
{
    const ListingEditor* editor = loadedEditor();
    if (!editor || !m_ofSource || handIsHere() || m_textTimer.isActive())
        return;
    m_caretMoved = false;
    Page1->showPlace(editor->selection().start);
}

void FrmLive::sourceScrolled()
{
    const ListingEditor* editor = loadedEditor();
    if (editor && m_ofSource && !handIsHere() && !m_caretScrolls.isActive() && !m_textTimer.isActive())
        Page1->bringToTop(editor->topOfView());
}

// ---- From the page to the source

/// Whether it is here that the user acts, and the source that follows.
bool FrmLive::handIsHere() const
{
    return isActiveWindow() && Page1->rect().contains(Page1->mapFromGlobal(QCursor::pos()));
}

/// The engine has told of the click, and must not be asked anything meanwhile.
void FrmLive::Page1_PlaceClicked(qsizetype place)
{
    soon(this, [this, place] {
        ListingEditor* editor = loadedEditor();
        if (!editor || !m_ofSource)
            return;
        editor->turnToSource();
        editor->select({place, 0});
        m_caretMoved = false;
        m_caretTimer.stop();
        editor->giveKeyboardToSource();
    });
}

void FrmLive::Page1_Scrolled()
{
    if (!m_ofSource || !handIsHere())
        return;
    Page1->askTop([](qsizetype place) {
        if (ListingEditor* editor = loadedEditor())
            editor->bringToTop(place);
    });
}

void FrmLive::showEvent(QShowEvent* event)
{
    guardedCall([&] {
        Form::showEvent(event);
        showSource();
    });
}

} // namespace brindlemark
