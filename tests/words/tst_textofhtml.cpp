// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/MisspeltWords.h"
#include "words/TextOfHtml.h"

#include <QElapsedTimer>
#include <QTest>

using namespace brindlemark;

/// What a reader sees of a source, where it stands there, and which of its words are looked up.
class TestTextOfHtml : public QObject
{
    Q_OBJECT

private slots:
    void text_data();
    void text();
    void places();
    void placesInWestern();
    void wordsAreCut_data();
    void wordsAreCut();
    void count_data();
    void count();
    void lookedUp_data();
    void lookedUp();
    void lookedUpInStretch();
    void longTextWithoutBlanks();
    void cutWithinCharacters();
    void cutWithinWords_data();
    void cutWithinWords();
    void next();
    void textOnPage();
};

void TestTextOfHtml::text_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QString>("text");
    QTest::newRow("plain") << QByteArray("Brass lamp") << "Brass lamp";
    QTest::newRow("inline") << QByteArray("<B>G</B><FONT color=#FF0000>lobe</FONT>") << "Globe";
    QTest::newRow("block") << QByteArray("<P>one</P><P>two") << "one\ntwo";
    QTest::newRow("cells") << QByteArray("<TABLE><TR><TD>one<TD>two</TABLE>") << "one\ntwo\n";
    QTest::newRow("break") << QByteArray("one<BR>two") << "one\ntwo";
    QTest::newRow("unknown element") << QByteArray("one<align=middle>two") << "one\ntwo";
    QTest::newRow("references") << QByteArray("caf&eacute; &amp; b&#97;r&nbsp;x") << "caf\u00E9 & bar\u00A0x";
    QTest::newRow("no references") << QByteArray("A & B &zzz; &") << "A & B &zzz; &";
    QTest::newRow("comment") << QByteArray("one<!-- no -->two") << "onetwo";
    QTest::newRow("script") << QByteArray("one<SCRIPT>no</SCRIPT>two<STYLE>no</STYLE>") << "one\ntwo\n";
    QTest::newRow("title") << QByteArray("<TITLE>Lamp &amp; more</TITLE>") << "Lamp & more\n";
    QTest::newRow("mark") << QByteArray("\xEF\xBB\xBFone") << "one";
    QTest::newRow("torn tag") << QByteArray("one <B") << "one ";
}

void TestTextOfHtml::text()
{
    QFETCH(QByteArray, html);
    QFETCH(QString, text);
    QCOMPARE(TextOfHtml(html, TextEncoding::Utf8).text(), text);
}

static QList<QByteArray> at(const QByteArray& html, const std::vector<TextRange>& places)
{
    QList<QByteArray> texts;
    for (const TextRange& place : places)
        texts << html.sliced(place.start, place.length);
    return texts;
}

void TestTextOfHtml::places()
{
    const QByteArray html = "<P>Gr\xC3\xB6\xC3\x9F"
                            "e c<B>a</B>f&eacute;s and</P>";
    const TextOfHtml text(html, TextEncoding::Utf8);
    QCOMPARE(text.text(), "Gr\u00F6\u00DFe caf\u00E9s and\n");
    QCOMPARE(at(html, text.places(0, 5)), QList<QByteArray>({"Gr\xC3\xB6\xC3\x9F"
                                                             "e"}));
    QCOMPARE(at(html, text.places(2, 2)), QList<QByteArray>({"\xC3\xB6\xC3\x9F"}));
    QCOMPARE(at(html, text.places(6, 5)), QList<QByteArray>({"c", "a", "f&eacute;s"}));
    QCOMPARE(at(html, text.places(8, 1)), QList<QByteArray>({"f"}));
    QCOMPARE(at(html, text.places(9, 1)), QList<QByteArray>({"&eacute;"}));
    const QByteArray marked = "\xEF\xBB\xBFone two";
    QCOMPARE(at(marked, TextOfHtml(marked, TextEncoding::Utf8).places(0, 3)), QList<QByteArray>({"one"}));
    const QByteArray longOne = "a&notit;b"; // the reference is "&not"
    const TextOfHtml ofLongOne(longOne, TextEncoding::Utf8);
    QCOMPARE(ofLongOne.text(), "a\u00ACit;b");
    QCOMPARE(at(longOne, ofLongOne.places(2, 1)), QList<QByteArray>({"&notit;"}));
}

void TestTextOfHtml::placesInWestern()
{
    const QByteArray html = "Gr\xF6\xDF"
                            "e &amp; \x80";
    const TextOfHtml text(html, TextEncoding::Western);
    QCOMPARE(text.text(), "Gr\u00F6\u00DFe & \u20AC");
    QCOMPARE(at(html, text.places(2, 2)), QList<QByteArray>({"\xF6\xDF"}));
    QCOMPARE(at(html, text.places(8, 1)), QList<QByteArray>({"\x80"}));
}

void TestTextOfHtml::wordsAreCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("words"); // a number in brackets
    QTest::newRow("blanks") << "Brass  lamp, old." << QStringList{"Brass", "lamp", "old"};
    QTest::newRow("apostrophe") << "don't maker\u2019s" << QStringList{"don't", "maker\u2019s"};
    QTest::newRow("hyphen") << "hand-made" << QStringList{"hand", "made"};
    QTest::newRow("numbers") << "12 1,000 4.50 12in" << QStringList{"(12)", "(1,000)", "(4.50)", "12in"};
    QTest::newRow("accents") << "Gr\u00F6\u00DFe nai\u0308ve"
                             << QStringList{"Gr\u00F6\u00DFe", "nai\u0308ve"};
    QTest::newRow("Cyrillic") << "\u043B\u0430\u043C\u043F\u0430"
                              << QStringList{"\u043B\u0430\u043C\u043F\u0430"};
    QTest::newRow("Chinese") << "\u706F" << QStringList{"(\u706F)"};
    QTest::newRow("nothing") << " \n.-" << QStringList{};
}

void TestTextOfHtml::wordsAreCut()
{
    QFETCH(QString, text);
    QStringList words;
    for (const WordPlace& word : wordsOf(text)) {
        const QString letters = text.sliced(word.start, word.length);
        words << (word.isInLetters ? letters : u'(' + letters + u')');
    }
    QTEST(words, "words");
}

void TestTextOfHtml::count_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("words");
    QTest::addColumn<qsizetype>("characters");
    QTest::newRow("nothing") << "" << qsizetype{0} << qsizetype{0};
    QTest::newRow("words") << "Brass lamp, 12 in" << qsizetype{4} << qsizetype{17};
    QTest::newRow("line end") << "a\r\nb" << qsizetype{2} << qsizetype{3};
    QTest::newRow("combined") << "e\u0301" << qsizetype{1} << qsizetype{1};
    QTest::newRow("above U+FFFF") << "\U0001F4A1 a" << qsizetype{1} << qsizetype{3};
    QTest::newRow("family") << "\U0001F468\u200D\U0001F469\u200D\U0001F467" << qsizetype{0} << qsizetype{1};
}

void TestTextOfHtml::count()
{
    QFETCH(QString, text);
    const TextCount count = countText(text);
    QTEST(count.words, "words");
    QTEST(count.characters, "characters");
}

void TestTextOfHtml::lookedUp_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("text") << QByteArray("<P>Brass lamp</P>") << QStringList{"Brass", "lamp"};
    QTest::newRow("over tags") << QByteArray("<B>Br</B>ass") << QStringList{"Brass"};
    QTest::newRow("not tags") << QByteArray("<IMG alt=\"brass lamp\" src=lamp.jpg title='x y'>")
                              << QStringList{};
    QTest::newRow("not comments") << QByteArray("<!-- Body-title --><!x y>") << QStringList{};
    QTest::newRow("not scripts") << QByteArray("<SCRIPT>brass</SCRIPT><STYLE>lamp</STYLE>") << QStringList{};
    QTest::newRow("not numbers") << QByteArray("12 4.50") << QStringList{};
    QTest::newRow("not addresses") << QByteArray("a https://lamps.example/maker?id=7 b www.lamps.example/x c "
                                                 "me@lamps.example d lamps.com/old lamp.jpg e")
                                   << QStringList{"a", "b", "c", "d", "e"};
    QTest::newRow("references") << QByteArray("caf&eacute; A&nbsp;B") << QStringList{"caf\u00E9", "A", "B"};
}

/// All words are wrong for this judge, so that those that are looked up are seen.
static const Judge NothingIsRight = [](const QString&) { return false; };

void TestTextOfHtml::lookedUp()
{
    QFETCH(QByteArray, html);
    QStringList words;
    for (const MisspeltWord& word : misspeltWords(html, TextEncoding::Utf8, {0, html.size()}, NothingIsRight))
        words << word.word;
    QTEST(words, "words");
}

/// A stretch may begin within a comment or a tag, and end within a word.
void TestTextOfHtml::lookedUpInStretch()
{
    const QByteArray html = "<!-- one two --><P align=left>three four five</P>";
    const auto words = [&](const char* from, const char* to) {
        const qsizetype start = html.indexOf(from);
        QStringList found;
        for (const MisspeltWord& word :
             misspeltWords(html, TextEncoding::Utf8, {start, html.indexOf(to) - start}, NothingIsRight))
            found << word.word;
        return found;
    };
    QCOMPARE(words("two", "</P>"), QStringList({"three", "four", "five"}));
    QCOMPARE(words("left", " five"), QStringList({"three", "four"}));
    QCOMPARE(words("hree", "ive"), QStringList({"four"}));
}

void TestTextOfHtml::longTextWithoutBlanks()
{
    const QByteArray html = QByteArray(1'000'000, 'a');
    QElapsedTimer time;
    time.start();
    QCOMPARE(misspeltWords(html, TextEncoding::Utf8, {0, html.size()}, NothingIsRight).size(), size_t(1));
    QVERIFY(time.elapsed() < 20'000); // in a time with the square of the length it would be hours
}

/// A stretch that begins or ends within a character has none of its bytes, and all places are right.
void TestTextOfHtml::cutWithinCharacters()
{
    const QString russian = QStringLiteral("\u043B\u0430\u043C\u043F\u0430 ");
    const QByteArray html = russian.repeated(400).toUtf8(); // 11 bytes a word, with its blank
    for (qsizetype start = 0; start < 22; ++start) {
        const TextRange stretch{start, 3001};
        const std::vector<MisspeltWord> words =
            misspeltWords(html, TextEncoding::Utf8, stretch, NothingIsRight);
        QCOMPARE(words.size(), size_t((stretch.end() + 2) / 11 - (start + 10) / 11));
        for (const MisspeltWord& word : words)
            QCOMPARE(at(html, word.places), QList<QByteArray>({russian.trimmed().toUtf8()}));
    }
}

void TestTextOfHtml::cutWithinWords_data()
{
    QTest::addColumn<QByteArray>("html"); // the stretch is between the bars
    QTest::addColumn<QStringList>("words");
    QTest::newRow("letters") << QByteArray("la|mp old br|ass") << QStringList{"old"};
    QTest::newRow("blanks") << QByteArray("lamp |old| brass") << QStringList{"old"};
    QTest::newRow("at tags of a letter")
        << QByteArray("<B>l</B>|<I>a</I> old <B>b</B>|<I>r</I>") << QStringList{"old"};
    QTest::newRow("within tags of a letter")
        << QByteArray("<B>l</B><I|>a</I> old <B>b</B><I|>r</I>") << QStringList{"old"};
    QTest::newRow("at paragraphs") << QByteArray("x<P>|lamp old brass|</P>y")
                                   << QStringList{"lamp", "old", "brass"};
    QTest::newRow("at comments") << QByteArray("x<!-- y -->|lamp old brass|<!-- y -->z")
                                 << QStringList{"old"};
    QTest::newRow("in a comment") << QByteArray("x <!-- |y -->lamp old brass <!-- |y -->z")
                                  << QStringList{"lamp", "old", "brass"};
    QTest::newRow("all") << QByteArray("|lamp old brass|") << QStringList{"lamp", "old", "brass"};
}

void TestTextOfHtml::cutWithinWords()
{
    QFETCH(QByteArray, html);
    const qsizetype start = html.indexOf('|');
    html.remove(start, 1);
    const qsizetype end = html.indexOf('|');
    html.remove(end, 1);
    QStringList words;
    for (const MisspeltWord& word :
         misspeltWords(html, TextEncoding::Utf8, {start, end - start}, NothingIsRight))
        words << word.word;
    QTEST(words, "words");
}

/// From a byte on and round, and no word is judged behind the one that is wrong.
void TestTextOfHtml::next()
{
    const QByteArray html = "<P>Gr\xC3\xB6\xC3\x9F"
                            "e lamp <B>o</B>ld lamp";
    QStringList judged;
    const auto nextFrom = [&](qsizetype byte, const QString& wrong) {
        judged.clear();
        const auto word = nextMisspelt(html, TextEncoding::Utf8, byte, [&](const QString& one) {
            judged << one;
            return one != wrong;
        });
        return word ? int(word->places.front().start) : -1;
    };
    QCOMPARE(nextFrom(0, "lamp"), 11);
    QCOMPARE(judged, QStringList({"Gr\u00F6\u00DFe", "lamp"}));
    QCOMPARE(nextFrom(11, "lamp"), 11);
    QCOMPARE(nextFrom(12, "lamp"), 27);
    QCOMPARE(judged, QStringList({"old", "lamp"}));
    QCOMPARE(nextFrom(28, "lamp"), 11);
    QCOMPARE(nextFrom(html.size(), "old"), 19);
    QCOMPARE(nextFrom(0, "brass"), -1);
    const QByteArray longOne = QByteArray("lamp ").repeated(600'000); // 3 MB in one piece
    QElapsedTimer time;
    time.start();
    QVERIFY(nextMisspelt(longOne, TextEncoding::Utf8, 2'000'000, NothingIsRight));
    QVERIFY(time.elapsed() < 10'000); // in a time with the square of the length it would be hours
}

void TestTextOfHtml::textOnPage()
{
    const QByteArray html = "<TITLE>Lamp &amp; more</TITLE><BODY>brass";
    QCOMPARE(TextOfHtml(html, TextEncoding::Utf8).textOnPage(), "\nbrass");
}

QTEST_GUILESS_MAIN(TestTextOfHtml)
#include "tst_textofhtml.moc"
