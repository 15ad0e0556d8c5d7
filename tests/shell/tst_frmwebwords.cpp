// SPDX-License-Identifier: GPL-3.0-or-later

// Words in the main window and in the fields of its tools: how they are spelt, counted and written, and
// pastes of other kinds.

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/FieldSpelling.h"
#include "shell/Spelling.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

namespace {

/// The system's folder of dictionaries, with an English and a German one of a few words.
class Dictionaries
{
public:
    Dictionaries()
    {
        write("en", "7\nbrass\nlamp\nfrom\nOhio\nreceived\nnew\nexcellent\n");
        write("de", "2\nLampe\nneu\n");
        qputenv("DICPATH", m_folder.path().toLocal8Bit());
        qputenv("XDG_DATA_DIRS", m_folder.path().toLocal8Bit());
    }
    void write(const QString& language, const QByteArray& words) const
    {
        for (const auto& [ending, bytes] :
             {std::pair(QStringLiteral(".dic"), words),
              std::pair(QStringLiteral(".aff"), QByteArray("SET UTF-8\nTRY esianrtolcdugmphbyfvkwz\n"))}) {
            QFile file(m_folder.filePath(language + ending));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(bytes);
        }
    }
    void remove(const QString& language) const
    {
        QFile::remove(m_folder.filePath(language + ".dic"));
        QFile::remove(m_folder.filePath(language + ".aff"));
    }

private:
    QTemporaryDir m_folder;
};

struct Desk : MainWindow
{
    /// Chooses the languages by the menu.
    void spellBy(const QStringList& names)
    {
        for (const QString& name : names)
            chooseSpelling(name);
    }
    QStringList spellingEntries() const
    {
        emit web->munspelling->aboutToShow();
        QStringList entries;
        for (const QAction* entry : web->munspelling->actions()) {
            if (!entry->isSeparator())
                entries << entry->text() + QLatin1String(entry->isChecked() ? "*" : "") +
                               QLatin1String(entry->isEnabled() ? "" : "-");
        }
        return entries;
    }
    void chooseSpelling(const QString& name) const
    {
        emit web->munspelling->aboutToShow();
        for (QAction* entry : web->munspelling->actions()) {
            if (entry->text() == name) {
                entry->trigger();
                return;
            }
        }
        QTest::qFail(qPrintable("no entry " + name), __FILE__, __LINE__);
    }
    /// The words of the source that are underlined.
    QStringList underlined() const
    {
        RichTextBox* box = web->RichTextBox1;
        QStringList words;
        const QByteArray text = box->Text();
        QByteArray word;
        for (qsizetype i = 0; i <= text.size(); ++i) {
            const bool isMarked =
                i < text.size() && box->SendScintilla(QsciScintillaBase::SCI_INDICATORVALUEAT, 8UL,
                                                      long(box->utf8Position(int(i)))) != 0;
            if (isMarked) {
                word += text.at(i);
            } else if (!word.isEmpty()) {
                words << box->decode(word);
                word.clear();
            }
        }
        return words;
    }
    void write(const QByteArray& text) const { web->RichTextBox1->setText(text); }
    void select(const QByteArray& words) const
    {
        web->RichTextBox1->setSelStart(int(source().indexOf(words)));
        web->RichTextBox1->setSelLength(int(words.size()));
    }
    QString notice() const
    {
        const auto* bar = web->findChild<NoticeBar*>();
        return bar->isVisible() ? bar->findChild<QLabel*>()->text() : QString();
    }
    /// The menu over a place of the source.
    QMenu* menuAt(const QByteArray& words) const
    {
        RichTextBox* box = web->RichTextBox1;
        const auto place = long(box->utf8Position(int(source().indexOf(words)) + 1));
        const QPoint point(int(box->SendScintilla(QsciScintillaBase::SCI_POINTXFROMPOSITION, 0UL, place)),
                           int(box->SendScintilla(QsciScintillaBase::SCI_POINTYFROMPOSITION, 0UL, place)) +
                               3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, box->viewport()->mapToGlobal(point));
        QApplication::sendEvent(box->viewport(), &event);
        return popup();
    }
    static QMenu* popup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    static QStringList entries(const QMenu* menu, int most = 4)
    {
        QStringList texts;
        for (const QAction* entry : menu->actions().mid(0, most))
            texts << (entry->isSeparator() ? QStringLiteral("-") : entry->text().section('\t', 0, 0));
        return texts;
    }
    void clip(const QString& html, const QString& text)
    {
        auto given = std::make_unique<QMimeData>();
        if (!html.isEmpty())
            given->setHtml(html);
        given->setText(text);
        doors.setClipboard(std::move(given));
    }
    QString body() const
    {
        const QString text = web->WebBrowser1->innerHtml();
        const qsizetype start = text.indexOf('>', text.indexOf("<BODY")) + 1;
        return text.sliced(start).chopped(int(qstrlen("</BODY>"))).remove("\r\n");
    }
};

const QByteArray Misspelt = "<P>brass lampp from <B>Oh</B>ioo</P><!-- lampp --><IMG alt=lampp src=lampp.jpg>";

} // namespace

class TestFrmWebWords : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_dictionaries = std::make_unique<Dictionaries>(); }
    void languagesOfTheMenu();
    void withoutDictionaries();
    void damagedDictionary();
    void offAtFirst();
    void underlinesWhatIsMisspelt();
    void wordThatIsBeingTyped();
    void wordThatIsMendedInFrontOfTheCaret();
    void severalLanguages();
    void languagesAreKept();
    void languagesOfADocument();
    void languagesOfTheNextDocument();
    void suggestions();
    void suggestionOverTags();
    void ownWords();
    void menuByKey();
    void nextMisspelt();
    void nextWithoutItsDictionary();
    void inLongLines();
    void inFadedWords();
    void afterAnotherSize();
    void western();
    void fields();
    void fieldOfLines();
    void countsWords_data();
    void countsWords();
    void countsWhatIsSeen();
    void letters_data();
    void letters();
    void lettersOnTheSurface_data();
    void lettersOnTheSurface();
    void lettersOfNothing();
    void pastesText();
    void pastesHtml();
    void pasteOfHtmlWithoutHtml();
    void pasteOfHtmlFromTheSurface();
    void menuOfTheSurface();

private:
    std::unique_ptr<Dictionaries> m_dictionaries;
};

void TestFrmWebWords::languagesOfTheMenu()
{
    Desk desk;
    QCOMPARE(desk.spellingEntries().first(3), QStringList({"Deutsch (de)", "American English (en)", "Off*"}));
    desk.chooseSpelling("American English (en)");
    QCOMPARE(desk.spellingEntries().first(3), QStringList({"Deutsch (de)", "American English (en)*", "Off"}));
    desk.chooseSpelling("Deutsch (de)");
    QCOMPARE(desk.spellingEntries().first(3),
             QStringList({"Deutsch (de)*", "American English (en)*", "Off"}));
    desk.chooseSpelling("Off");
    QCOMPARE(desk.spellingEntries().first(3), QStringList({"Deutsch (de)", "American English (en)", "Off*"}));
}

void TestFrmWebWords::withoutDictionaries()
{
    m_dictionaries->remove("en");
    m_dictionaries->remove("de");
    Desk desk;
    QCOMPARE(desk.spellingEntries().first(2),
             QStringList({"No dictionary is installed: see packages such as hunspell-en-us-", "Off*-"}));
    desk.write(Misspelt);
    QTest::keyClick(desk.web, Qt::Key_F7);
    QCOMPARE(desk.notice(), "No language is chosen for the spelling (Tools, Spelling).");
    QCOMPARE(desk.underlined(), QStringList());
}

/// It is told in the menu, and no word is wrong.
void TestFrmWebWords::damagedDictionary()
{
    m_dictionaries->write("en", "no number\n");
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(desk.spellingEntries().contains("The dictionary en can't be read-"));
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_F7);
    QCOMPARE(desk.notice(),
             "The dictionary of the chosen language is missing or can't be read (Tools, Spelling).");
    QCOMPARE(desk.underlined(), QStringList());
}

/// The tests' system speaks no language.
void TestFrmWebWords::offAtFirst()
{
    Desk desk;
    QCOMPARE(desk.web->spelling()->languages(), QStringList());
}

void TestFrmWebWords::underlinesWhatIsMisspelt()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_COMPARE(desk.underlined(), QStringList({"lampp", "Oh", "ioo"}));
    QVERIFY(desk.source() == Misspelt);
    desk.chooseSpelling("Off");
    QTRY_COMPARE(desk.underlined(), QStringList());
}

void TestFrmWebWords::wordThatIsBeingTyped()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.type("lamq bras");
    QTRY_COMPARE(desk.underlined(), QStringList({"lamq"}));
    desk.type("q ");
    QTRY_COMPARE(desk.underlined(), QStringList({"lamq", "brasq"}));
}

/// The caret stays where it was.
void TestFrmWebWords::wordThatIsMendedInFrontOfTheCaret()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write("xlamp brass");
    QTRY_COMPARE(desk.underlined(), QStringList({"xlamp"}));
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_Delete);
    QCOMPARE(desk.source(), QByteArray("lamp brass"));
    QTRY_COMPARE(desk.underlined(), QStringList());
}

void TestFrmWebWords::severalLanguages()
{
    Desk desk;
    desk.spellBy({"American English (en)", "Deutsch (de)"});
    desk.write("lamp Lampe lampada");
    QTRY_COMPARE(desk.underlined(), QStringList({"lampada"}));
}

void TestFrmWebWords::languagesAreKept()
{
    Desk desk;
    desk.spellBy({"American English (en)", "Deutsch (de)"});
    QVERIFY(desk.folder.read("web.ini").contains("[Spelling]\r\nlanguages=en de\r\n"));
    desk.chooseSpelling("Off");
    QVERIFY(desk.folder.read("web.ini").contains("languages=off\r\n"));
}

void TestFrmWebWords::languagesOfADocument()
{
    Desk desk;
    desk.folder.write("one.htm", "lamp");
    desk.folder.write("two.htm", "Lampe");
    desk.open(desk.folder.path("one.htm"));
    desk.spellBy({"American English (en)"});
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("two.htm"));
    desk.chooseSpelling("American English (en)");
    desk.chooseSpelling("Deutsch (de)");
    QCOMPARE(desk.web->spelling()->languages(), QStringList({"de"}));
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("one.htm"));
    QCOMPARE(desk.web->spelling()->languages(), QStringList({"en"}));
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("two.htm"));
    QCOMPARE(desk.web->spelling()->languages(), QStringList({"de"}));
}

/// A document without a choice of its own goes by the last one; one that gets its name keeps what was chosen.
void TestFrmWebWords::languagesOfTheNextDocument()
{
    Desk desk;
    desk.folder.write("one.htm", "lamp");
    desk.folder.write("two.htm", "lamp");
    desk.open(desk.folder.path("one.htm"));
    desk.chooseSpelling("Off");
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("two.htm"));
    desk.spellBy({"Deutsch (de)"});
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("one.htm"));
    QCOMPARE(desk.web->spelling()->languages(), QStringList());
    desk.web->document().setDirty(false);
    desk.web->MnNew->trigger();
    QCOMPARE(desk.web->spelling()->languages(), QStringList({"de"}));
    desk.chooseSpelling("American English (en)"); // and German
    desk.doors.answerSave(desk.folder.path("three.htm"));
    desk.web->mnsaveas->trigger();
    desk.open(desk.folder.path("one.htm"));
    QCOMPARE(desk.web->spelling()->languages(), QStringList());
    desk.web->document().setDirty(false);
    desk.open(desk.folder.path("three.htm"));
    QCOMPARE(desk.web->spelling()->languages(), QStringList({"de", "en"}));
}

void TestFrmWebWords::suggestions()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(!desk.underlined().isEmpty());
    QMenu* menu = desk.menuAt("lampp");
    QVERIFY(menu);
    QCOMPARE(Desk::entries(menu, 3), QStringList({"lamp", "Add \"lampp\" to My Words", "-"}));
    takeEntry(menu, "lamp");
    QCOMPARE(desk.source(), QByteArray(Misspelt).replace("brass lampp", "brass lamp"));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), Misspelt);
    menu = desk.menuAt("brass");
    QVERIFY(menu);
    QCOMPARE(Desk::entries(menu, 1), QStringList({"&Undo: Typing"}));
    menu->close();
}

/// The word goes where its first letters stand, and the tags stay.
void TestFrmWebWords::suggestionOverTags()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(!desk.underlined().isEmpty());
    takeEntry(desk.menuAt("ioo"), "Ohio");
    QCOMPARE(desk.source(), QByteArray(Misspelt).replace("<B>Oh</B>ioo", "<B>Ohio</B>"));
}

void TestFrmWebWords::ownWords()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(!desk.underlined().isEmpty());
    takeEntry(desk.menuAt("lampp"), "Add \"lampp\" to My Words");
    QTRY_COMPARE(desk.underlined(), QStringList({"Oh", "ioo"}));
    QCOMPARE(desk.folder.read("words.txt"), QByteArray("lampp\n"));
}

void TestFrmWebWords::menuByKey()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(!desk.underlined().isEmpty());
    desk.web->RichTextBox1->setSelStart(int(Misspelt.indexOf("lampp") + 2));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(desk.web->RichTextBox1->viewport(), &event);
    QVERIFY(Desk::popup());
    QCOMPARE(Desk::entries(Desk::popup(), 1), QStringList({"lamp"}));
    Desk::popup()->close();
}

void TestFrmWebWords::nextMisspelt()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(Misspelt);
    QTRY_VERIFY(!desk.underlined().isEmpty());
    const auto next = [&] {
        QTest::keyClick(desk.web->RichTextBox1, Qt::Key_F7);
        return desk.web->RichTextBox1->SelText();
    };
    QCOMPARE(next(), QByteArray("lampp"));
    QCOMPARE(next(), QByteArray("Oh</B>ioo"));
    QCOMPARE(next(), QByteArray("lampp"));
    desk.write("lampp brass lamqq");
    QCOMPARE(next(), QByteArray("lampp")); // at the caret itself
    QCOMPARE(next(), QByteArray("lamqq"));
    desk.write("brass lamp");
    QCOMPARE(next(), QByteArray());
    QCOMPARE(desk.notice(), "No misspelt word was found.");
}

/// Bytes of a document that is not UTF-8.
/// It is not "still being read" for ever, and one that is installed again is taken.
void TestFrmWebWords::nextWithoutItsDictionary()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    m_dictionaries->remove("en");
    desk.spellingEntries();
    desk.write(Misspelt);
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_F7);
    QCOMPARE(desk.notice(),
             "The dictionary of the chosen language is missing or can't be read (Tools, Spelling).");
    m_dictionaries->write("en", "2\nbrass\nlamp\n");
    QVERIFY(desk.spellingEntries().contains("American English (en)*"));
    desk.write(Misspelt + ' ');
    QTRY_VERIFY(desk.underlined().contains("lampp"));
}

/// A line that holds all of the text is underlined where it is in view.
void TestFrmWebWords::inLongLines()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.write(QByteArray("brass ").repeated(20'000) + "lampp brass");
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    QTRY_COMPARE(desk.underlined(), QStringList({"lampp"}));
}

/// A faded letter takes thirty bytes of the source.
void TestFrmWebWords::inFadedWords()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    QByteArray faded;
    for (const char letter : QByteArray("excellentreceivednewbrasslamp"))
        faded += QByteArray("<FONT color=\"#A01020\">") + letter + "</FONT>";
    desk.write("<P>brass " + faded + " lamp</P>");
    desk.web->RichTextBox1->setSelStart(0);
    QTRY_COMPARE(desk.underlined().join(QString()), "excellentreceivednewbrasslamp");
    desk.select("e</FONT>"); // brings it into view
    desk.menuAt("e</FONT>");
    QVERIFY(Desk::popup());
    QVERIFY(Desk::entries(Desk::popup(), 20).contains("Add \"excellentreceivednewbrasslamp\" to My Words"));
    Desk::popup()->close();
}

void TestFrmWebWords::afterAnotherSize()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    desk.web->resize(desk.web->width(), 300);
    desk.write(QByteArray("brass\r\n").repeated(18) + "lampp\r\n" + QByteArray("brass\r\n").repeated(300));
    QTest::qWait(600); // as long as a rest, twice
    const auto isSeen = [&] { return desk.web->RichTextBox1->inView().end() > 18 * 7 + 5; };
    QVERIFY(!isSeen());
    desk.web->resize(desk.web->width(), 700);
    QTRY_VERIFY(isSeen());
    QTRY_COMPARE(desk.underlined(), QStringList({"lampp"}));
}

void TestFrmWebWords::western()
{
    m_dictionaries->write("de", "2\nLampe\nGr\xC3\xB6\xC3\x9F"
                                "e\n");
    Desk desk;
    desk.spellBy({"Deutsch (de)"});
    desk.write("Gr\xF6\xDF"
               "e Lampe Gr\xF6\xDF"
               "ee Lampe");
    QTRY_COMPARE(desk.underlined(), QStringList({"Gr\u00F6\u00DFee"}));
    takeEntry(desk.menuAt("Gr\xF6\xDF"
                          "ee"),
              "Gr\u00F6\u00DFe");
    QCOMPARE(desk.source(), QByteArray("Gr\xF6\xDF"
                                       "e Lampe Gr\xF6\xDF"
                                       "e Lampe"));
}

/// Whether there is a pixel of the line's colour.
static bool isUnderlined(QWidget* field)
{
    const QImage picture = field->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (color.red() > 150 && color.green() < 110 && color.blue() < 110)
                return true;
        }
    }
    return false;
}

void TestFrmWebWords::fields()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    QLineEdit field;
    checkSpellingIn(&field);
    field.resize(300, 40);
    field.show();
    field.setText("brass lamp");
    QTest::qWait(600);
    QVERIFY(!isUnderlined(&field));
    field.setText("new lampp");
    QTRY_VERIFY(isUnderlined(&field));
    QVERIFY(field.text() == "new lampp" && !field.isModified());
    field.setCursorPosition(6);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&field, &event);
    QMenu* menu = Desk::popup();
    QVERIFY(menu);
    QCOMPARE(Desk::entries(menu, 2), QStringList({"lamp", "Add \"lampp\" to My Words"}));
    takeEntry(menu, "lamp");
    QCOMPARE(field.text(), "new lamp");
    QTRY_VERIFY(!isUnderlined(&field));
    field.undo();
    QCOMPARE(field.text(), "new lampp");
}

void TestFrmWebWords::fieldOfLines()
{
    Desk desk;
    desk.spellBy({"American English (en)"});
    QPlainTextEdit field;
    checkSpellingIn(&field);
    field.resize(300, 90);
    field.show();
    field.setPlainText("brass lamp\nnew lampp lamp");
    QTRY_COMPARE(field.extraSelections().size(), 1);
    QCOMPARE(field.extraSelections().constFirst().cursor.selectedText(), "lampp");
    QTRY_VERIFY(isUnderlined(&field));
    QTextCursor caret = field.textCursor();
    caret.setPosition(17);
    const QPoint point = [&] {
        field.setTextCursor(caret);
        return field.cursorRect().center();
    }();
    QContextMenuEvent event(QContextMenuEvent::Mouse, point, field.viewport()->mapToGlobal(point));
    QApplication::sendEvent(field.viewport(), &event);
    QMenu* menu = Desk::popup();
    QVERIFY(menu);
    takeEntry(menu, "lamp");
    QCOMPARE(field.toPlainText(), "brass lamp\nnew lamp lamp");
    field.undo();
    QCOMPARE(field.toPlainText(), "brass lamp\nnew lampp lamp");
}

void TestFrmWebWords::countsWords_data()
{
    QTest::addColumn<QByteArray>("selected");
    QTest::addColumn<QString>("sentence");
    QTest::newRow("all") << QByteArray() << "The page: 6 words, 21 characters.";
    QTest::newRow("words") << QByteArray("lamp,</P>") << "The selection: 1 word, 5 characters.";
    QTest::newRow("a tag") << QByteArray("<P>") << "The selection: 0 words, 0 characters.";
    QTest::newRow("over tags") << QByteArray("<B>12</B> in x") << "The selection: 3 words, 7 characters.";
}

void TestFrmWebWords::countsWords()
{
    QFETCH(QByteArray, selected);
    QFETCH(QString, sentence);
    Desk desk;
    desk.write("<P>Brass lamp,</P><!-- no --><B>12</B> in x&amp;y");
    if (!selected.isEmpty())
        desk.select(selected);
    desk.choose(desk.web->muntools, desk.web->muncountwords);
    QCOMPARE(desk.notice(), sentence);
}

/// Not the source's blanks, nor the title in the window's frame; the same on the surface.
void TestFrmWebWords::countsWhatIsSeen()
{
    Desk desk;
    desk.write("<HTML><HEAD><TITLE>Old lamp</TITLE></HEAD>\r\n<BODY>\r\n   <P>one</P>\r\n\r\n   <P>two\r\n"
               "   three</P></BODY></HTML>");
    desk.choose(desk.web->muntools, desk.web->muncountwords);
    QCOMPARE(desk.notice(), "The page: 3 words, 13 characters.");
    desk.showTab(FrmWeb::PreviewTab);
    QVERIFY(desk.web->WebBrowser1->execCommand("SelectAll"));
    desk.choose(desk.web->muntools, desk.web->muncountwords);
    QCOMPARE(desk.notice(), "The selection: 3 words, 13 characters.");
}

void TestFrmWebWords::letters_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QByteArray>("source");
    QTest::newRow("capitals") << 0 << QByteArray("<P title=a>BRASS <B>LAMP</B> &amp; m</P>");
    QTest::newRow("small") << 1 << QByteArray("<P title=a>brass <B>lamp</B> &amp; m</P>");
    QTest::newRow("title") << 2 << QByteArray("<P title=a>Brass <B>LaMp</B> &amp; m</P>");
}

void TestFrmWebWords::letters()
{
    QFETCH(int, entry);
    QFETCH(QByteArray, source);
    Desk desk;
    const QByteArray before = "<P title=a>brass <B>laMp</B> &amp; m</P>";
    desk.write(before);
    desk.select("brass <B>laMp</B> &amp;");
    QAction* const entries[] = {desk.web->munuppercase, desk.web->munlowercase, desk.web->muntitlecase};
    entries[entry]->trigger();
    QCOMPARE(desk.source(), source);
    QCOMPARE(desk.web->RichTextBox1->SelLength(), int(qstrlen("brass <B>laMp</B> &amp;")));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), before);
}

void TestFrmWebWords::lettersOnTheSurface_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("body");
    QTest::newRow("capitals") << 0 << "<P>BRASS L<B>AM</B>P<BR>NEW</P>";
    QTest::newRow("small") << 1 << "<P>brass l<B>am</B>p<BR>new</P>";
    QTest::newRow("title") << 2 << "<P>Brass L<B>am</B>p<BR>New</P>";
}

void TestFrmWebWords::lettersOnTheSurface()
{
    QFETCH(int, entry);
    Desk desk;
    desk.write("<P>brass l<B>am</B>p<BR>new</P>");
    desk.showTab(FrmWeb::PreviewTab);
    const QString before = desk.body();
    QVERIFY(desk.web->WebBrowser1->execCommand("SelectAll"));
    QAction* const entries[] = {desk.web->munuppercase, desk.web->munlowercase, desk.web->muntitlecase};
    entries[entry]->trigger();
    QTEST(desk.body(), "body");
    if (entry != 1) {
        QVERIFY(desk.web->WebBrowser1->execCommand("Undo"));
        QCOMPARE(desk.body(), before);
    }
}

void TestFrmWebWords::lettersOfNothing()
{
    Desk desk;
    desk.write("brass");
    desk.web->munuppercase->trigger();
    QCOMPARE(desk.source(), QByteArray("brass"));
    QCOMPARE(desk.notice(), "Select the words first whose letters shall change.");
}

void TestFrmWebWords::pastesText()
{
    Desk desk;
    desk.clip("<b>one</b>", "one");
    desk.write("x");
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(desk.source(), QByteArray("onex"));
    desk.showTab(FrmWeb::PreviewTab);
    QVERIFY(desk.web->WebBrowser1->execCommand("SelectAll"));
    desk.web->munpastetext->trigger();
    QVERIFY2(!desk.body().contains("<B>") && desk.body().contains("one"), qPrintable(desk.body()));
    QVERIFY(desk.web->WebBrowser1->execCommand("SelectAll"));
    desk.web->munpastelooks->trigger();
    QVERIFY2(desk.body().contains("<B>one</B>"), qPrintable(desk.body()));
}

void TestFrmWebWords::pastesHtml()
{
    Desk desk;
    desk.clip("<p class=MsoNormal style='margin:0'><b>one</b> <o:p></o:p></p>", "one");
    desk.write("x");
    desk.web->munpastehtml->trigger();
    QCOMPARE(desk.source(), QByteArray("<p><b>one</b></p>x"));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), QByteArray("x"));
    desk.clip("<p>a\n<script>b</script>c</p>", "a");
    desk.web->munpastehtml->trigger();
    QCOMPARE(desk.source(), QByteArray("<p>a\r\nc</p>x"));
}

void TestFrmWebWords::pasteOfHtmlWithoutHtml()
{
    Desk desk;
    desk.clip({}, "a < b");
    desk.write("x");
    desk.web->munpastehtml->trigger();
    QCOMPARE(desk.source(), QByteArray("a < bx"));
}

/// What the surface has copied keeps its looks, as on the surface; the same from elsewhere does not.
void TestFrmWebWords::pasteOfHtmlFromTheSurface()
{
    Desk desk;
    desk.write(
        "<P class=MsoNormal style=\"mso-x: y; color: red\">a <FONT color=#0000FF>b</FONT></P><P>c</P>");
    desk.showTab(FrmWeb::PreviewTab);
    QTRY_VERIFY(desk.web->WebBrowser1->inputWidget());
    QWidget* input = desk.web->WebBrowser1->inputWidget();
    QTRY_VERIFY(input->testAttribute(Qt::WA_InputMethodEnabled)); // before that the engine drops keys
    QTest::keyClick(input, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(input, Qt::Key_C, Qt::ControlModifier);
    QTRY_VERIFY(desk.doors.clipboard()->hasHtml());
    const QString copied = desk.doors.clipboard()->html();
    desk.showTab(FrmWeb::EditorTab);
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_A, Qt::ControlModifier);
    desk.choose(desk.web->muntools, desk.web->munpastehtml);
    QTRY_VERIFY2(desk.source().contains("<font color=\"#0000FF\">b</font>"), desk.source().constData());
    QVERIFY2(desk.source().contains("<p class=\"MsoNormal\" style=\"mso-x: y; color: red\">a "),
             desk.source().constData());

    desk.clip(copied, "a b\nc");
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_A, Qt::ControlModifier);
    desk.choose(desk.web->muntools, desk.web->munpastehtml);
    QTRY_VERIFY2(desk.source().contains("<p>a b</p>"), desk.source().constData());
}

void TestFrmWebWords::menuOfTheSurface()
{
    Desk desk;
    desk.write("<P>brass</P>");
    desk.showTab(FrmWeb::PreviewTab);
    QTRY_VERIFY(desk.web->WebBrowser1->inputWidget());
    QTest::qWait(300);
    QWidget* input = desk.web->WebBrowser1->inputWidget();
    QTest::mouseClick(input, Qt::RightButton, {}, QPoint(100, 100));
    QTRY_VERIFY(Desk::popup());
    QVERIFY(Desk::entries(Desk::popup(), 20).contains("Paste With Its &Looks"));
    Desk::popup()->close();
    click(desk.web->Option2); // the design is off
    QVERIFY(!desk.web->munpastelooks->isEnabled());
    QTest::mouseClick(desk.web->WebBrowser3, Qt::RightButton, {}, QPoint(100, 100));
    QTest::qWait(300);
    QVERIFY(!Desk::popup());
}

WEB_TEST_MAIN(TestFrmWebWords)
#include "tst_frmwebwords.moc"
