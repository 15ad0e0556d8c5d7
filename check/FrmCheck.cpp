// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/FrmCheck.h"

#include "check/PlacedSource.h"
#include "check/ReducedListing.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/CharacterReferences.h"
#include "services/HtmlTokenizer.h"
#include "shell/ListingEditor.h"

#include <QLocale>
#include <QTreeWidgetItem>
#include <algorithm>
#include <array>
#include <new>

namespace brindlemark {

namespace {

/// How long the user must rest before the text is looked through, in milliseconds.
constexpr int Rest = 300;
/// A longer text would take seconds, in bytes.
constexpr qsizetype LongestChecked = 20'000'000;
/// Before a page is measured, in milliseconds: it loads its pictures anew. How long, and how often, they are
/// waited for.
constexpr int MeasureRest = 1000;
constexpr int PicturePause = 250;
constexpr int PictureTries = 40;
/// A longer page would keep the engine busy, in bytes.
constexpr qsizetype LongestMeasured = 1'000'000;
/// More findings than a person can look at are only counted.
constexpr qsizetype MostShown = 1000;

constexpr int SentenceColumn = 3;

struct SeverityWords
{
    const char* one;
    const char* many;
};
constexpr std::array<SeverityWords, 3> AllSeverityWords = {
    {{"Problem", "problems"}, {"Warning", "warnings"}, {"Hint", "hints"}}};

QString wordsFor(Severity severity)
{
    return QString::fromLatin1(AllSeverityWords.at(size_t(severity)).one);
}

/// A place of a text as people count: lines and characters from 1.
class LineCounter
{
public:
    LineCounter(const QByteArray& text, TextEncoding encoding) : m_text(text), m_encoding(encoding) {}

    /// Goes on to a place behind the one before.
    void goTo(qsizetype place)
    {
        for (; m_place < std::min(place, m_text.size()); ++m_place) {
            const char c = m_text[m_place];
            if (c == '\n' || (c == '\r' && !m_text.sliced(m_place).startsWith("\r\n"))) {
                ++m_line;
                m_column = 1;
            } else if (m_encoding != TextEncoding::Utf8 || !isContinuation(c)) {
                ++m_column;
            }
        }
    }

    qsizetype place() const { return m_place; }
    qsizetype line() const { return m_line; }
    qsizetype column() const { return m_column; }

private:
    const QByteArray& m_text;
    const TextEncoding m_encoding;
    qsizetype m_place = 0;
    qsizetype m_line = 1;
    qsizetype m_column = 1;
};

/// A number beside its limit, if there is one.
QString measured(qsizetype number, int limit, const char* unit)
{
    const QLocale locale;
    const QString of = limit > 0 ? QStringLiteral(" of %1").arg(locale.toString(limit)) : QString();
    return locale.toString(qlonglong(number)) + of + u' ' + QString::fromLatin1(unit);
}

} // namespace

FrmCheck::FrmCheck()
{
    setupUi(this);
    stayOverMain();
    Profile->setListIndex(0);
    m_limits = checkLimits();
    m_checker.setMaxThreadCount(1);
    m_phone = new LivePage(this);
    m_phone->setWindowFlags(Qt::Tool);
    m_phone->setAttribute(Qt::WA_DontShowOnScreen);
    m_phone->setScrollBars(false);
    m_phone->resize(m_limits.phoneWidth, m_limits.phoneWidth * 2);
    m_measureTimer.setSingleShot(true);
    on(&m_measureTimer, &QTimer::timeout, this, &FrmCheck::measure);
    onInner(m_phone, &LivePage::shown, this, [this] {
        if (m_phoneState != Phone::Writes)
            return; // an older text
        m_phoneState = Phone::Shows;
        m_measureTimer.start(0);
    });
    Findings->setMinimumHeight(fontMetrics().lineSpacing() * 12);
    m_rest.setSingleShot(true);
    m_rest.setInterval(Rest);
    on(&m_rest, &QTimer::timeout, this, &FrmCheck::check);
    on(this, &FrmCheck::checked, this, &FrmCheck::takeIfWanted);
    on(Profile, &ComboBox::Click, this, &FrmCheck::Profile_Click);
    on(Findings, &QTreeWidget::currentItemChanged, this, &FrmCheck::Findings_CurrentItemChanged);
    on(Findings, &QTreeWidget::itemClicked, this, &FrmCheck::Findings_CurrentItemChanged);
    on(Findings, &QTreeWidget::itemActivated, this, &FrmCheck::Findings_ItemActivated);
    on(Mend, &QPushButton::clicked, this, &FrmCheck::Mend_Click);
    on(MendAll, &QPushButton::clicked, this, &FrmCheck::MendAll_Click);
    on(FitPhones, &QPushButton::clicked, this, &FrmCheck::FitPhones_Click);
    on(CopyReduced, &QPushButton::clicked, this, &FrmCheck::CopyReduced_Click);
    on(CloseWindow, &QPushButton::clicked, this, &FrmCheck::Unload);
    setCancelButton(CloseWindow);
    if (ListingEditor* editor = loadedEditor()) {
        const auto changed = [this] { checkSoon(); };
        editor->follow({.window = this, .textChanged = changed});
    }
    checkNow();
    Findings->setFocus();
}

FrmCheck::~FrmCheck()
{
    m_checker.waitForDone();
}

CheckProfile FrmCheck::profile() const
{
    return static_cast<CheckProfile>(std::max(Profile->ListIndex(), 0));
}

void FrmCheck::checkSoon()
{
    m_isFresh = false;
    ++m_asked; // what the other thread is looking through is an older text
    m_rest.start();
}

/// Whether there is a text to look through; the user is told of one that is too long.
bool FrmCheck::isThereText()
{
    const ListingEditor* editor = loadedEditor();
    if (!editor)
        return false;
    if (editor->textLength() <= LongestChecked)
        return true;
    ++m_asked;
    take(QByteArray(), CheckReport());
    Summary->setText(QStringLiteral("A text of more than 20 MB is not checked."));
    return false;
}

/// Has the text looked through by the other thread.
void FrmCheck::check()
{
    if (!isThereText())
        return;
    const ListingEditor* editor = loadedEditor();
    const quint64 number = ++m_asked;
    m_checker.start([this, number, text = editor->text(), limits = m_limits, wanted = profile()] {
        try {
            emit checked(number, text, checkListing(text, limits, wanted));
        } catch (const std::bad_alloc&) {
            // The findings stay those of the text before.
        }
    });
}

/// The same at once, for what is about to be done with the result.
void FrmCheck::checkNow()
{
    if (!isThereText())
        return;
    const ListingEditor* editor = loadedEditor();
    const WaitCursor hourglass;
    ++m_asked; // what the other thread finds is too late
    const QByteArray text = editor->text();
    take(text, checkListing(text, m_limits, profile()));
}

/// The other thread has a result; another text may be asked for meanwhile.
void FrmCheck::takeIfWanted(quint64 number, const QByteArray& text, const CheckReport& report)
{
    if (number == m_asked)
        take(text, report);
}

void FrmCheck::take(const QByteArray& text, CheckReport report)
{
    m_rest.stop();
    m_isFresh = true;
    m_text = text;
    m_encoding = encodingOf(text);
    m_report = std::move(report);
    list();
    showSummary();
    m_phoneState = Phone::Waits;
    m_tries = PictureTries;
    m_measureTimer.start(MeasureRest);
}

/// Lays the page out as wide as a phone, and asks what sticks out when its pictures are there.
void FrmCheck::measure()
{
    if (!m_isFresh || profile() != CheckProfile::Page || !m_limits.counts(CheckRule::SticksOut) ||
        m_text.size() > LongestMeasured)
        return;
    if (m_phoneState == Phone::Waits) {
        m_phoneState = Phone::Writes;
        m_phone->show();
        m_phone->writeSoon(decode(withPlaces(m_text), m_encoding));
    }
    if (m_phoneState != Phone::Shows)
        return;
    m_phone->askWidths([this](const LivePage::Widths& widths) {
        if (widths.complete || m_tries-- <= 0) {
            takeWidth(widths);
        } else {
            m_measureTimer.start(PicturePause);
        }
    });
}

void FrmCheck::takeWidth(const LivePage::Widths& widths)
{
    if (!m_isFresh || m_phoneState != Phone::Shows)
        return;
    m_phoneState = Phone::Measured;
    if (widths.width <= m_limits.phoneWidth)
        return;
    TextRange place;
    HtmlToken token;
    if (widths.widest >= 0 && widths.widest < m_text.size() &&
        HtmlTokenizer(QByteArrayView(m_text).sliced(widths.widest)).next(token))
        place = {widths.widest, token.whole.length};
    // Behind all others: it comes later, and no row may go away under the hand.
    m_report.findings.push_back({CheckRule::SticksOut, place, QByteArray::number(widths.width), {}});
    list();
    showSummary();
}

/// Shows the findings. The marked one stays marked: the same of its kind, counted from the top.
void FrmCheck::list()
{
    QTreeWidgetItem* marked = Findings->currentItem();
    const QSignalBlocker quiet(Findings);
    const QString kind = marked ? marked->text(SentenceColumn) : QString();
    const int row = marked ? Findings->indexOfTopLevelItem(marked) : -1;
    Findings->clear();
    std::optional<LineCounter> counter(std::in_place, m_text, m_encoding);
    const QLocale locale;
    QList<QTreeWidgetItem*> items;
    for (const Finding& finding : m_report.findings) {
        if (items.size() == MostShown)
            break;
        if (finding.place.start < counter->place())
            counter.emplace(m_text, m_encoding);
        counter->goTo(finding.place.start);
        const CheckRuleText& rule = ruleText(finding.rule);
        const QString sentence = QString::fromLatin1(rule.sentence)
                                     .replace(QStringLiteral("%1"), decode(finding.what, m_encoding));
        auto* item =
            new QTreeWidgetItem({wordsFor(rule.severity), locale.toString(qlonglong(counter->line())),
                                 locale.toString(qlonglong(counter->column())), sentence});
        for (const int number : {1, 2})
            item->setTextAlignment(number, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(SentenceColumn, sentence);
        items << item;
    }
    Findings->addTopLevelItems(items);
    for (int column = 0; column < Findings->columnCount(); ++column)
        Findings->resizeColumnToContents(column);
    if (row < 0 && !items.isEmpty()) {
        Findings->setCurrentItem(
            items.front()); // or else the keyboard would choose it, and that would select its place
    } else if (!items.isEmpty()) {
        const auto same = std::ranges::find_if(
            items, [&](const QTreeWidgetItem* item) { return item->text(SentenceColumn) == kind; });
        const qsizetype nearest = std::min<qsizetype>(row, items.size() - 1);
        Findings->setCurrentItem(
            items[nearest]->text(SentenceColumn) == kind || same == items.end() ? items[nearest] : *same);
    }
    CopyReduced->setEnabled(profile() != CheckProfile::Page);
    showMending();
}

/// Shows what can be done about the marked finding.
void FrmCheck::showMending()
{
    const Finding* finding = current();
    const bool mends = finding && !finding->mend.empty();
    const bool mendsAll = finding && std::ranges::any_of(m_report.findings, [&](const Finding& other) {
                              return other.rule == finding->rule && !other.mend.empty();
                          });
    if ((focusWidget() == Mend && !mends) || (focusWidget() == MendAll && !mendsAll))
        Findings->setFocus(); // a button that goes grey would leave Enter to the next one
    Mend->setEnabled(mends);
    MendAll->setEnabled(mendsAll);
    const QString mend = finding ? QString::fromLatin1(ruleText(finding->rule).mend) : QString();
    Mending->setText(!finding                ? QString()
                     : finding->mend.empty() ? QStringLiteral("This is for a person to decide.")
                                             : mend);
}

void FrmCheck::showSummary()
{
    std::array<qsizetype, AllSeverityWords.size()> counts{};
    for (const Finding& finding : m_report.findings)
        ++counts.at(size_t(ruleText(finding.rule).severity));
    const QLocale locale;
    QStringList parts;
    for (size_t i = 0; i < counts.size(); ++i) {
        if (counts.at(i) > 0) {
            parts << locale.toString(qlonglong(counts.at(i))) + u' ' +
                         QString::fromLatin1(counts.at(i) == 1 ? AllSeverityWords.at(i).one
                                                               : AllSeverityWords.at(i).many)
                             .toLower();
        }
    }
    const QString found =
        parts.isEmpty() ? QStringLiteral("Nothing found") : parts.join(QStringLiteral(", "));
    const QString shown =
        qsizetype(m_report.findings.size()) > MostShown
            ? QStringLiteral(" (the first %1 are listed)").arg(locale.toString(qlonglong(MostShown)))
            : QString();
    Summary->setText(found + shown + QStringLiteral(". ") +
                     QStringList{measured(m_report.characters, m_limits.mostCharacters, "characters"),
                                 measured(m_report.bytes, m_limits.mostBytes, "bytes"),
                                 measured(m_report.words, 0, m_report.words == 1 ? "word" : "words")}
                         .join(QStringLiteral(", ")) +
                     u'.');
}

const Finding* FrmCheck::current() const
{
    const int row = Findings->indexOfTopLevelItem(Findings->currentItem());
    return row < 0 ? nullptr : &m_report.findings.at(size_t(row));
}

QString FrmCheck::currentSentence() const
{
    const QTreeWidgetItem* item = Findings->currentItem();
    return item ? item->text(SentenceColumn) : QString();
}

/// The marked finding where it stands in the source now.
const Finding* FrmCheck::currentInSource()
{
    ListingEditor* editor = loadedEditor();
    if (!editor || !current())
        return nullptr;
    const QString sentence = currentSentence();
    editor->turnToSource();
    if (!m_isFresh)
        checkNow();
    return currentSentence() == sentence ? current() : nullptr; // it may be gone
}

void FrmCheck::Profile_Click()
{
    checkNow();
}

/// The list is made anew when the text has changed, which it must not be while it tells of a click.
void FrmCheck::Findings_CurrentItemChanged()
{
    showMending();
    const QString sentence = currentSentence();
    soon(this, [this, sentence] {
        const Finding* finding = currentSentence() == sentence ? currentInSource() : nullptr;
        if (finding)
            loadedEditor()->select(finding->place);
    });
}

void FrmCheck::Findings_ItemActivated()
{
    const Finding* finding = currentInSource();
    if (!finding)
        return;
    loadedEditor()->select({finding->place.start, 0}); // or else the next key would take its place
    loadedEditor()->giveKeyboardToSource();
}

void FrmCheck::edit(const std::vector<TextEdit>& edits)
{
    ListingEditor* editor = loadedEditor();
    if (!editor || edits.empty())
        return;
    const WaitCursor hourglass;
    editor->edit(edits, QStringLiteral("Corrections"));
    checkNow();
    Mending->setText(QStringLiteral("Done; one Undo takes it back."));
}

void FrmCheck::Mend_Click()
{
    if (const Finding* finding = currentInSource())
        edit(std::vector<TextEdit>(finding->mend));
}

void FrmCheck::MendAll_Click()
{
    if (const Finding* finding = currentInSource())
        edit(mendAll(m_report.findings, finding->rule));
}

void FrmCheck::FitPhones_Click()
{
    ListingEditor* editor = loadedEditor();
    if (!editor)
        return;
    editor->turnToSource();
    const std::vector<TextEdit> edits = phoneEdits(editor->text(), m_limits);
    edit(edits);
    if (edits.empty())
        Mending->setText(QStringLiteral("Nothing was left to do."));
}

void FrmCheck::CopyReduced_Click()
{
    if (!m_isFresh)
        checkNow();
    QString text = decode(withFewTags(m_text), m_encoding);
    if (profile() == CheckProfile::Plain) {
        const QByteArray plain = decode(withoutTags(m_text), m_encoding).toUtf8();
        text = QString::fromUtf8(withoutReferences(plain, ReferencePlace::Text));
    }
    Clipboard::Clear();
    Clipboard::SetText(text);
    Mending->setText(
        QStringLiteral("%1 characters are on the clipboard.").arg(QLocale().toString(text.size())));
}

} // namespace brindlemark
