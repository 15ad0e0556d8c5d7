// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/LetterCase.h"

#include <QTest>

using namespace brindlemark;

/// Letters in another case, of texts and of sources.
class TestLetterCase : public QObject
{
    Q_OBJECT

private slots:
    void texts_data();
    void texts();
    void sources_data();
    void sources();
    void westernSource();
    void stretch();
};

void TestLetterCase::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("title");
    QTest::newRow("English") << "brass lamp, don't"
                             << "BRASS LAMP, DON'T"
                             << "brass lamp, don't"
                             << "Brass Lamp, Don't";
    QTest::newRow("capitals") << "BRASS LAMP"
                              << "BRASS LAMP"
                              << "brass lamp"
                              << "Brass Lamp";
    QTest::newRow("capitals of its own") << "new UL cord"
                                         << "NEW UL CORD"
                                         << "new ul cord"
                                         << "New UL Cord";
    QTest::newRow("German") << "gro\u00DFe \u00F6llampe"
                            << "GROSSE \u00D6LLAMPE"
                            << "gro\u00DFe \u00F6llampe"
                            << "Gro\u00DFe \u00D6llampe";
    QTest::newRow("Greek") << "\u03BB\u03CC\u03B3\u03BF\u03C2"
                           << "\u039B\u038C\u0393\u039F\u03A3"
                           << "\u03BB\u03CC\u03B3\u03BF\u03C2"
                           << "\u039B\u03CC\u03B3\u03BF\u03C2";
    QTest::newRow("Greek, small at the end") << "\u039B\u039F\u0393\u039F\u03A3"
                                             << "\u039B\u039F\u0393\u039F\u03A3"
                                             << "\u03BB\u03BF\u03B3\u03BF\u03C2"
                                             << "\u039B\u03BF\u03B3\u03BF\u03C2";
    QTest::newRow("Cyrillic") << "\u043B\u0430\u043C\u043F\u0430"
                              << "\u041B\u0410\u041C\u041F\u0410"
                              << "\u043B\u0430\u043C\u043F\u0430"
                              << "\u041B\u0430\u043C\u043F\u0430";
    QTest::newRow("digraph") << "\u01C6ez"
                             << "\u01C4EZ"
                             << "\u01C6ez"
                             << "\u01C5ez";
    QTest::newRow("Dutch") << "\uFB01ne"
                           << "FINE"
                           << "\uFB01ne"
                           << "Fine";
    QTest::newRow("above U+FFFF") << "\U00010428b"
                                  << "\U00010400B"
                                  << "\U00010428b"
                                  << "\U00010400b";
    QTest::newRow("without cases") << "\u706F 12"
                                   << "\u706F 12"
                                   << "\u706F 12"
                                   << "\u706F 12";
    QTest::newRow("nothing") << ""
                             << ""
                             << ""
                             << "";
}

void TestLetterCase::texts()
{
    QFETCH(QString, text);
    QTEST(inCase(text, LetterCase::Upper), "upper");
    QTEST(inCase(text, LetterCase::Lower), "lower");
    QTEST(inCase(text, LetterCase::Title), "title");
}

static QByteArray changed(const QByteArray& html, LetterCase letterCase)
{
    return edited(html, caseEdits(html, TextEncoding::Utf8, {0, html.size()}, letterCase));
}

void TestLetterCase::sources_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QByteArray>("upper");
    QTest::addColumn<QByteArray>("title");
    const auto row = [](const char* name, const char* html, const char* upper, const char* title) {
        QTest::newRow(name) << QByteArray(html) << QByteArray(upper) << QByteArray(title);
    };
    row("tags stay", "<a href=x.htm title='y z'>one two</a>", "<a href=x.htm title='y z'>ONE TWO</a>",
        "<a href=x.htm title='y z'>One Two</a>");
    row("over tags", "l<b>am</b>p", "L<b>AM</b>P", "L<b>am</b>p");
    row("parted by a block", "<p>one</p><p>two</p>", "<p>ONE</p><p>TWO</p>", "<p>One</p><p>Two</p>");
    row("comments stay", "a<!-- b -->c", "A<!-- b -->C", "A<!-- b -->c");
    row("scripts stay", "a <script>b</script>", "A <script>b</script>", "A <script>b</script>");
    row("references", "caf&eacute; &amp; &lt;b&gt;&nbsp;c", "CAF\xC3\x89 &amp; &lt;B&gt;&nbsp;C",
        "Caf&eacute; &amp; &lt;B&gt;&nbsp;C");
    row("longer than it was", "ma\xC3\x9F <b>x</b>", "MASS <b>X</b>", "Ma\xC3\x9F <b>X</b>");
    row("torn", "one <b", "ONE <b", "One <b");
}

void TestLetterCase::sources()
{
    QFETCH(QByteArray, html);
    QTEST(changed(html, LetterCase::Upper), "upper");
    QTEST(changed(html, LetterCase::Title), "title");
}

void TestLetterCase::westernSource()
{
    const QByteArray html =
        "\xF6l \xFF"; // the capital of the last one is in the encoding too, that of "z" dotted not
    QCOMPARE(edited(html, caseEdits(html, TextEncoding::Western, {0, html.size()}, LetterCase::Upper)),
             QByteArray("\xD6L \x9F"));
    const QByteArray micro = "\xB5"; // which has no capital in it
    QCOMPARE(edited(micro, caseEdits(micro, TextEncoding::Western, {0, 1}, LetterCase::Upper)),
             QByteArray("&#924;"));
}

void TestLetterCase::stretch()
{
    const QByteArray html = "<p title=one>one two three</p>";
    const qsizetype start = html.indexOf("title");
    const std::vector<TextEdit> edits =
        caseEdits(html, TextEncoding::Utf8, {start, html.indexOf(" three") - start}, LetterCase::Upper);
    QCOMPARE(edited(html, edits), QByteArray("<p title=one>ONE TWO three</p>"));
}

QTEST_GUILESS_MAIN(TestLetterCase)
#include "tst_lettercase.moc"
