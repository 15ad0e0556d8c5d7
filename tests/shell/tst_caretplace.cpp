// SPDX-License-Identifier: GPL-3.0-or-later

// The caret over a change of view: it stays at its word.

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/CaretPlace.h"

#include <QTest>
#include <cctype>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    /// The word of the source that has the caret.
    QByteArray wordAtCaret() const { return wordAt(source(), web->RichTextBox1->SelStart()); }
    /// The word of the surface that has the caret.
    QByteArray wordOnSurface() const
    {
        const SurfaceLetters letters = web->WebBrowser1->letters();
        return wordAt(letters.text.toLatin1(), letters.ahead);
    }
    bool isInSight() const
    {
        const TextRange view = web->RichTextBox1->inView();
        const int caret = web->RichTextBox1->SelStart();
        return view.start <= caret && caret <= view.end();
    }
    /// Selects a word of the surface.
    void selectOnSurface(const QString& word) const
    {
        const qsizetype start = web->WebBrowser1->letters().text.indexOf(word);
        QVERIFY(start >= 0);
        QVERIFY(web->WebBrowser1->selectLetters(start, start + word.size()));
    }
    /// Whether the surface's caret is in what is seen of the page.
    bool isInSightOnSurface() const
    {
        const QString inSight =
            QStringLiteral("(() => { const box = getSelection().getRangeAt(0).cloneRange();"
                           "box.setEnd(box.startContainer, box.startContainer.length);"
                           "const {top, bottom} = box.getBoundingClientRect();"
                           "return getComputedStyle(document.documentElement).display !== 'none' &&"
                           " bottom > 0 && top < innerHeight; })()");
        return probe(web->WebBrowser1).evaluate(inSight).value_or(QVariant()).toBool();
    }

private:
    static QByteArray wordAt(const QByteArray& text, qsizetype place)
    {
        qsizetype start = place;
        while (start > 0 && std::isalnum(uchar(text.at(start - 1))))
            --start;
        qsizetype end = place;
        while (end < text.size() && std::isalnum(uchar(text.at(end))))
            ++end;
        return text.sliced(start, end - start);
    }
};

/// Some 100 KB with what parts text in pages: tables, lists, formats, references, comments.
QByteArray longPage()
{
    QByteArray page =
        "<HTML><HEAD><TITLE>Brass lamp</TITLE><STYLE>P { color: #102030 }</STYLE></HEAD><BODY>\r\n";
    for (int i = 0; page.size() < 100'000; ++i) {
        const QByteArray n = QByteArray::number(i);
        page += "<P>alpha" + n + " and&nbsp;be<B>ta" + n +
                "</B> &amp; caf&eacute;<!-- word -->\r\n" //
                "<TABLE><TR><TD>cell" +
                n + "<TD>other</TABLE><UL><LI>item" + n +
                "<LI>more</UL>" //
                "<FONT color=#102030>l</FONT><FONT color=#203040>amp" +
                n + "</FONT><BR>last" + n + "</P>\r\n";
    }
    return page + "</BODY></HTML>\r\n";
}

} // namespace

class TestCaretPlace : public QObject
{
    Q_OBJECT

private slots:
    void places_data();
    void places();
    void bytes_data();
    void bytes();
    void thereAndBack();
    void toWhereTheSurfaceIs();
    void behindAllText();
    void onThePreviewToo();
    void untouchedAtTheBeginning();
    void listingKeepsItsButtons();
    void letterGoesWhereTheCaretIs();
    void behindTheLastLetterOfAParagraph();
    void fromWhereNoLetterIs();
};

void TestCaretPlace::places_data()
{
    QTest::addColumn<QByteArray>("source"); // the caret is "|"
    QTest::addColumn<qsizetype>("letters");
    QTest::addColumn<bool>("isBehind");
    QTest::newRow("beginning") << QByteArray("|<P>lamp") << qsizetype{0} << false;
    QTest::newRow("first letter") << QByteArray("<P>|lamp") << qsizetype{0} << false;
    QTest::newRow("in a word") << QByteArray("<P>la|mp") << qsizetype{2} << true;
    QTest::newRow("behind a word") << QByteArray("<P>lamp| old") << qsizetype{4} << true;
    QTest::newRow("in front of one") << QByteArray("<P>lamp |old") << qsizetype{4} << false;
    QTest::newRow("in a tag") << QByteArray("<P>lamp<B cl|ass=x>old") << qsizetype{4} << false;
    QTest::newRow("behind a tag") << QByteArray("<P>lamp<B>|old") << qsizetype{4} << false;
    QTest::newRow("behind the title") << QByteArray("<TITLE>brass</TITLE><P>o|ld") << qsizetype{1} << true;
    QTest::newRow("in the title") << QByteArray("<TITLE>br|ass</TITLE><P>old") << qsizetype{0} << false;
    QTest::newRow("reference") << QByteArray("<P>caf&eacute;|s") << qsizetype{4} << true;
    QTest::newRow("in a reference") << QByteArray("<P>caf&ea|cute;s") << qsizetype{4} << false;
    QTest::newRow("in a long reference")
        << QByteArray("<P>c&Counter|ClockwiseContourIntegral;s") << qsizetype{2} << false;
    QTest::newRow("in front of a reference") << QByteArray("<P>caf|&eacute;s") << qsizetype{3} << true;
    QTest::newRow("far in front of the next word")
        << "<P>lamp|" + QByteArray(200, ' ') + "<P>old" << qsizetype{4} << true;
    QTest::newRow("bytes") << QByteArray("<P>caf\xc3\xa9 s|o") << qsizetype{5} << true;
    QTest::newRow("blanks") << QByteArray("<P> \r\n\t&nbsp;  o|ld") << qsizetype{1} << true;
    QTest::newRow("script") << QByteArray("<SCRIPT>alert</SCRIPT><!-- x -->o|ld") << qsizetype{1} << true;
    QTest::newRow("behind all") << QByteArray("<P>lamp</P>\r\n|") << qsizetype{4} << false;
}

void TestCaretPlace::places()
{
    QFETCH(QByteArray, source);
    QFETCH(const qsizetype, letters);
    QFETCH(const bool, isBehind);
    const qsizetype caret = source.indexOf('|');
    source.remove(caret, 1);
    const LetterPlace place = letterPlaceOf(source, TextEncoding::Utf8, caret);
    QCOMPARE(place.letters, letters);
    QCOMPARE(place.isBehind, isBehind);
}

void TestCaretPlace::bytes_data()
{
    QTest::addColumn<QByteArray>("source"); // the expected caret is "|"; without one there is none
    QTest::addColumn<LetterPlace>("place");
    QTest::newRow("first letter") << QByteArray("<P>|lamp") << LetterPlace{0, false};
    QTest::newRow("in a word") << QByteArray("<P>la|mp") << LetterPlace{2, true};
    QTest::newRow("behind a word") << QByteArray("<P>lamp|</P><P>old") << LetterPlace{4, true};
    QTest::newRow("in front of one") << QByteArray("<P>lamp</P><P>|old") << LetterPlace{4, false};
    QTest::newRow("over formats") << QByteArray("<P>l<B>am|</B>p") << LetterPlace{3, true};
    QTest::newRow("behind a reference") << QByteArray("<P>caf&eacute;|s") << LetterPlace{4, true};
    QTest::newRow("title") << QByteArray("<TITLE>brass</TITLE><P>o|ld") << LetterPlace{1, true};
    QTest::newRow("none") << QByteArray("<P>lamp") << LetterPlace{5, true};
    QTest::newRow("nothing behind") << QByteArray("<P>lamp|</P>") << LetterPlace{4, false};
}

void TestCaretPlace::bytes()
{
    QFETCH(QByteArray, source);
    QFETCH(const LetterPlace, place);
    const qsizetype caret = source.indexOf('|');
    if (caret >= 0)
        source.remove(caret, 1);
    QCOMPARE(byteOf(TextOfHtml(source, TextEncoding::Utf8), place).value_or(-1), caret);
}

/// Twenty places of a long page: at each word the caret goes along, in sight, there and back.
void TestCaretPlace::thereAndBack()
{
    Desk desk;
    const QByteArray page = longPage();
    desk.web->RichTextBox1->setText(page);
    const int last = int(page.count("<TABLE>")) - 1;
    int places = 0;
    for (int i = 0; i < 4; ++i) {
        const QByteArray n = QByteArray::number(last * (i + 1) / 4);
        for (const QByteArray& word : {"alpha" + n, "cell" + n, "item" + n, "last" + n, "amp" + n}) {
            const QByteArray source = desk.source();
            const qsizetype start = source.indexOf(word);
            QVERIFY2(start > 0, word.constData());
            desk.web->RichTextBox1->setSelStart(int(start + 2));
            desk.showTab(FrmWeb::PreviewTab);
            const QByteArray seen = word.startsWith("amp") ? "l" + word : word;
            QCOMPARE(desk.wordOnSurface(), seen);
            QTRY_VERIFY2(desk.isInSightOnSurface(), word.constData());
            desk.showTab(FrmWeb::EditorTab);
            QCOMPARE(desk.wordAtCaret(), word);
            QTRY_VERIFY2(desk.isInSight(), word.constData());
            ++places;
        }
    }
    QCOMPARE(places, 20);
}

void TestCaretPlace::toWhereTheSurfaceIs()
{
    Desk desk;
    desk.web->RichTextBox1->setText(longPage());
    desk.showTab(FrmWeb::PreviewTab);
    for (const char* word : {"item7", "last120", "alpha200"}) {
        desk.selectOnSurface(QString::fromLatin1(word));
        desk.showTab(FrmWeb::EditorTab);
        QCOMPARE(desk.wordAtCaret(), QByteArray(word));
        QTRY_VERIFY(desk.isInSight());
        desk.showTab(FrmWeb::PreviewTab);
    }
}

void TestCaretPlace::behindAllText()
{
    Desk desk;
    desk.web->RichTextBox1->setText(longPage());
    QTest::keyClick(desk.web->RichTextBox1, Qt::Key_End, Qt::ControlModifier);
    const QByteArray last = "last" + QByteArray::number(desk.source().count("<TABLE>") - 1);
    desk.showTab(FrmWeb::PreviewTab);
    QCOMPARE(desk.wordOnSurface(), last);
    QTRY_VERIFY(desk.isInSightOnSurface());
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.wordAtCaret(), last);
}

/// It has no caret, but shows the place.
void TestCaretPlace::onThePreviewToo()
{
    Desk desk;
    const QByteArray page = longPage();
    desk.web->RichTextBox1->setText(page);
    desk.showTab(FrmWeb::PreviewTab);
    tick(desk.web->Option2);
    desk.showTab(FrmWeb::EditorTab);
    const int caret = int(desk.source().indexOf("alpha200"));
    desk.web->RichTextBox1->setSelStart(caret);
    desk.showTab(FrmWeb::PreviewTab);
    QTRY_VERIFY(probe(desk.web->WebBrowser3).evaluate("scrollY").value_or(QVariant()).toInt() > 1000);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.web->RichTextBox1->SelStart(), caret);
}

void TestCaretPlace::untouchedAtTheBeginning()
{
    Desk desk;
    desk.web->RichTextBox1->setText(longPage());
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 0);
    QCOMPARE(desk.web->RichTextBox1->SelLength(), 0);
}

/// The parts of a listing are looked for before the caret goes where it was.
void TestCaretPlace::listingKeepsItsButtons()
{
    Desk desk;
    desk.web->RichTextBox1->setText(
        "<BODY> <!-- Body-buildwizard0 --><!-- Body-title -->lamp<!-- Body-title2 -->"
        "<!-- Body-picture -->x<!-- Body-picture2 --><P>behind</P>");
    desk.web->RichTextBox1->setSelStart(int(desk.source().indexOf("hind")));
    desk.showTab(FrmWeb::PreviewTab);
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.wordAtCaret(), QByteArray("behind"));
    QVERIFY(desk.web->CmdTitle->isEnabled());
    QVERIFY(desk.web->CmdPic->isEnabled());
}

void TestCaretPlace::letterGoesWhereTheCaretIs()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>old</P><P>lamp</P>");
    desk.web->RichTextBox1->setSelStart(int(qstrlen("<P>old</P><P>la")));
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeAtCaretOfSurface("x");
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY2(desk.source().contains("<P>laxmp</P>"), desk.source().constData());
    desk.type("y");
    QVERIFY2(desk.source().contains("<P>laxymp</P>"), desk.source().constData());
}

/// Not in front of the first letter of the next one.
void TestCaretPlace::behindTheLastLetterOfAParagraph()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>alpha</P><P>beta</P>");
    desk.web->RichTextBox1->setSelStart(int(qstrlen("<P>alpha")));
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeAtCaretOfSurface("x");
    desk.showTab(FrmWeb::EditorTab);
    QVERIFY2(desk.source().contains("<P>alphax</P>"), desk.source().constData());
}

void TestCaretPlace::fromWhereNoLetterIs()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>alpha</P><TABLE><TR><TD></TD></TR></TABLE><P>beta</P><P>gamma</P>");
    desk.showTab(FrmWeb::PreviewTab);
    QVERIFY(!desk.web->WebBrowser1->letters().text.isEmpty()); // the keyboard has come, and moves no caret
    QVERIFY(probe(desk.web->WebBrowser1)
                .evaluate("getSelection().collapse(document.querySelector('td'), 0), true")
                .has_value());
    desk.showTab(FrmWeb::EditorTab);
    QCOMPARE(desk.wordAtCaret(), QByteArray("beta"));
}

WEB_TEST_MAIN(TestCaretPlace)
#include "tst_caretplace.moc"
