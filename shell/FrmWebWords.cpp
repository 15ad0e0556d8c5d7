// SPDX-License-Identifier: GPL-3.0-or-later

// Words of the document: how they are spelt, counted and written, and pastes of other kinds.

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "shell/FrmWeb.h"
#include "shell/SourceSpelling.h"
#include "shell/Spelling.h"
#include "shell/SpellingMenu.h"
#include "words/LetterCase.h"
#include "words/TextOfHtml.h"
#include "words/Words.h"

#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <algorithm>

namespace brindlemark {

namespace {

/// "1 word", "1,000 words".
QString counted(qsizetype number, const QString& thing)
{
    return QLocale(QLocale::English).toString(number) + u' ' + thing +
           (number == 1 ? QString() : QStringLiteral("s"));
}

/// An entry's text shows what a menu would take for an access key.
QString entryText(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

Spelling* loadedSpelling()
{
    const auto* main = loaded<FrmWeb>();
    return main ? main->spelling() : nullptr;
}

void FrmWeb::connectWords()
{
    m_spelling = new Spelling(this);
    m_sourceSpelling = std::make_unique<SourceSpelling>(*RichTextBox1, *m_spelling);
    on(munspelling, &QMenu::aboutToShow, this, &FrmWeb::munspelling_Popup);
    on(munnextmisspelt, &QAction::triggered, this, &FrmWeb::munnextmisspelt_Click);
    on(muncountwords, &QAction::triggered, this, &FrmWeb::muncountwords_Click);
    const auto changesCase = [this](QAction* entry, LetterCase letterCase) {
        on(entry, &QAction::triggered, this, [this, letterCase] { changeCase(letterCase); });
    };
    changesCase(munuppercase, LetterCase::Upper);
    changesCase(munlowercase, LetterCase::Lower);
    changesCase(muntitlecase, LetterCase::Title);
    on(munpastetext, &QAction::triggered, this, &FrmWeb::munpastetext_Click);
    on(munpastelooks, &QAction::triggered, this, &FrmWeb::munpastelooks_Click);
    on(munpastehtml, &QAction::triggered, this, &FrmWeb::munpastehtml_Click);
    on(RichTextBox1, &RichTextBox::MenuOpens, this, &FrmWeb::RichTextBox1_MenuOpens);
    on(WebBrowser1, &DocumentSurface::menuWanted, this, &FrmWeb::WebBrowser1_MenuWanted);
    switchWordTools();
}

/// The entries of the tab that is up.
void FrmWeb::switchWordTools()
{
    const bool isEditor = SSTab1->Tab() == EditorTab;
    const bool takesText = isEditable();
    for (QAction* entry : {munpastetext, munletters->menuAction(), muncountwords})
        entry->setEnabled(takesText);
    munpastelooks->setEnabled(takesText && !isEditor);
    munpastehtml->setEnabled(isEditor);
    munnextmisspelt->setEnabled(takesText);
}

// ---- Spelling --------------------------------------------------------------------------------------------

/// Lists the languages anew: dictionaries may have been installed.
void FrmWeb::munspelling_Popup()
{
    for (QAction* entry : munspelling->actions()) {
        munspelling->removeAction(entry);
        if (entry != munnextmisspelt)
            entry->deleteLater();
    }
    m_spelling->lookAnew();
    const QStringList installed = Spelling::installed();
    for (const QString& language : installed) {
        QAction* entry = munspelling->addAction(entryText(languageName(language)));
        entry->setCheckable(true);
        entry->setChecked(m_spelling->languages().contains(language));
        on(entry, &QAction::triggered, this, [this, language, entry] {
            QStringList languages = m_spelling->languages();
            languages.removeAll(language);
            if (entry->isChecked())
                languages << language;
            m_spelling->choose(languages);
        });
    }
    if (installed.isEmpty()) {
        munspelling
            ->addAction(QStringLiteral("No dictionary is installed: see packages such as hunspell-en-us"))
            ->setEnabled(false);
    }
    for (const QString& damaged : m_spelling->damaged()) {
        munspelling->addAction(QStringLiteral("The dictionary %1 can't be read").arg(entryText(damaged)))
            ->setEnabled(false);
    }
    if (!std::ranges::all_of(installed, &EngineDictionaries::canHave)) {
        munspelling->addAction(QStringLiteral("For the design surface install qt6-webengine-dev-tools"))
            ->setEnabled(false);
    }
    QAction* off = munspelling->addAction(QStringLiteral("Off"));
    off->setCheckable(true);
    off->setChecked(m_spelling->languages().isEmpty());
    off->setEnabled(!installed.isEmpty());
    on(off, &QAction::triggered, this, [this] { m_spelling->choose({}); });
    munspelling->addSeparator();
    munspelling->addAction(munnextmisspelt);
}

void FrmWeb::munnextmisspelt_Click()
{
    if (m_spelling->languages().isEmpty()) {
        tell(QStringLiteral("No language is chosen for the spelling (Tools, Spelling)."));
        return;
    }
    if (!m_spelling->speller().judges()) {
        tell(m_spelling->speller().isReading()
                 ? QStringLiteral("The dictionaries are still being read; press F7 again in a moment.")
                 : QStringLiteral("The dictionary of the chosen language is missing or can't be read (Tools, "
                                  "Spelling)."));
        return;
    }
    if (!(SSTab1->Tab() == PreviewTab ? selectNextMisspeltOnSurface() : selectNextMisspeltInSource()))
        tell(QStringLiteral("No misspelt word was found."));
}

/// False: there is none.
bool FrmWeb::selectNextMisspeltInSource()
{
    const int from = RichTextBox1->SelStart() + RichTextBox1->SelLength();
    const std::optional<MisspeltWord> word = m_sourceSpelling->nextFrom(from);
    if (!word)
        return false;
    const qsizetype start = word->places.front().start;
    select({start, word->places.back().end() - start});
    return true;
}

/// Likewise; the engine tells of a misspelt word only when it is clicked, so that these are the source's
/// words.
bool FrmWeb::selectNextMisspeltOnSurface()
{
    const WaitCursor hourglass;
    const SurfaceLetters letters = WebBrowser1->letters();
    const std::optional<WordPlace> word = nextMisspelt(letters.text, letters.ahead, m_spelling->judge());
    return word && WebBrowser1->selectLetters(word->start, word->end());
}

/// Puts a suggestion in the place of a word: over tags, where its first letters stand.
void FrmWeb::replaceWord(const MisspeltWord& word, const QString& by)
{
    std::vector<TextEdit> edits;
    for (const TextRange& place : word.places)
        edits.push_back({place, edits.empty() ? RichTextBox1->encode(by) : QByteArray()});
    edit(edits, QStringLiteral("Spelling"));
}

void FrmWeb::RichTextBox1_MenuOpens(QMenu* menu, int position)
{
    menu->addSeparator();
    menu->addActions({munpastetext, munpastehtml});
    menu->addMenu(munletters);
    menu->addAction(muncountwords);
    const std::optional<MisspeltWord> word = m_sourceSpelling->wordAt(position);
    if (!word)
        return;
    addSpellingTo(*menu, *m_spelling, word->word,
                  [this, word = *word](const QString& by) { replaceWord(word, by); });
}

void FrmWeb::WebBrowser1_MenuWanted(const SurfaceMenu& wanted)
{
    QMenu* menu = menuOf(*WebBrowser1, wanted, this);
    menu->addSeparator();
    menu->addMenu(munletters);
    menu->addAction(muncountwords);
    menu->popup(wanted.place);
}

// ---- Counting, letters -----------------------------------------------------------------------------------

/// Of the selection, or of all where nothing is selected.
void FrmWeb::muncountwords_Click()
{
    QString text;
    bool isAll = false;
    if (SSTab1->Tab() == PreviewTab) {
        text = WebBrowser1->selectedText();
        isAll = text.isEmpty();
        if (isAll)
            text = TextOfHtml(readSurface(WebBrowser1).toUtf8(), TextEncoding::Utf8).textOnPage();
    } else {
        isAll = RichTextBox1->SelLength() == 0;
        const TextRange stretch = isAll ? TextRange{0, RichTextBox1->TextLength()} : selection();
        text = TextOfHtml(RichTextBox1->textForNow(), RichTextBox1->textEncoding(), stretch).textOnPage();
    }
    static const QRegularExpression blanks(QStringLiteral("[ \\t\\r\\n\\f]+")); // a page shows one
    const TextCount count = countText(text.replace(blanks, QStringLiteral(" ")).trimmed());
    tell(QStringLiteral("%1: %2, %3.")
             .arg(isAll ? QStringLiteral("The page") : QStringLiteral("The selection"),
                  counted(count.words, QStringLiteral("word")),
                  counted(count.characters, QStringLiteral("character"))));
}

void FrmWeb::changeCase(LetterCase letterCase)
{
    bool isSelected = true;
    if (SSTab1->Tab() == PreviewTab) {
        isSelected =
            WebBrowser1->changeSelection([&](const QString& text) { return inCase(text, letterCase); });
    } else {
        const TextRange stretch = selection();
        isSelected = stretch.length > 0;
        const std::vector<TextEdit> edits =
            caseEdits(RichTextBox1->textForNow(), RichTextBox1->textEncoding(), stretch, letterCase);
        edit(edits, QStringLiteral("Letters"));
        qsizetype length = stretch.length;
        for (const TextEdit& change : edits)
            length += change.text.size() - change.range.length;
        select({stretch.start, length});
    }
    if (!isSelected)
        tell(QStringLiteral("Select the words first whose letters shall change."));
}

// ---- Pastes ----------------------------------------------------------------------------------------------

void FrmWeb::munpastetext_Click()
{
    if (SSTab1->Tab() == EditorTab) {
        RichTextBox1->paste();
    } else {
        static_cast<void>(WebBrowser1->paste(PasteWay::AsText)); // the user sees it
    }
}

void FrmWeb::munpastelooks_Click()
{
    static_cast<void>(WebBrowser1->paste(PasteWay::WithLooks)); // likewise
}

/// The source of what a paste would bring to the surface; the text where the clipboard has no HTML.
void FrmWeb::munpastehtml_Click()
{
    const QMimeData* clip = doors().clipboard();
    if (!clip)
        return;
    QString html = clip->hasHtml() ? WebBrowser1->cleaned(*clip) : QString();
    if (html.isEmpty()) {
        RichTextBox1->paste();
        return;
    }
    html.remove(u'\r').replace(u'\n', QStringLiteral("\r\n"));
    insert(html, QStringLiteral("Paste"));
}

} // namespace brindlemark
