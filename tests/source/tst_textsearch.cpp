// SPDX-License-Identifier: GPL-3.0-or-later

#include "source/TextSearch.h"

#include <QTest>
#include <QVector>

using namespace brindlemark;

namespace {

constexpr FindOptions Any;
constexpr TextMatch None{-1, 0};

QVector<TextMatch> allMatches(const QByteArray& text, const QByteArray& wanted, FindOptions options)
{
    const TextSearch search(wanted, options);
    QVector<TextMatch> matches;
    for (auto match = search.find(text, 0, text.size()); match;
         match = search.find(text, match->position + 1, text.size()))
        matches << *match;
    return matches;
}

} // namespace

Q_DECLARE_METATYPE(TextMatch)

class TestTextSearch : public QObject
{
    Q_OBJECT

private slots:
    void find_data();
    void find();
    void bounds_data();
    void bounds();
    void index();
    void overlappingMatches();
    void agreesWithPlainSearch();
};

void TestTextSearch::find_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("wanted");
    QTest::addColumn<FindOptions>("options");
    QTest::addColumn<TextMatch>("match");

    const auto row = [](const char* name, const QByteArray& text, const QByteArray& wanted,
                        FindOptions options, const TextMatch& match) {
        QTest::newRow(name) << text << wanted << options << match;
    };
    row("empty wanted", "abc", "", Any, None);
    row("empty text", "", "a", Any, None);
    row("longer than the text", "ab", "abc", Any, None);
    row("the whole text", "abc", "ABC", Any, {0, 3});
    row("at the end", "abc", "C", Any, {2, 1});
    row("case ignored", "x<Script>", "<SCRIPT", Any, {1, 7});
    row("case matched", "<B><b>", "<b>", MatchCase, {3, 3});
    row("case matched, none", "<B>", "<b>", MatchCase, None);
    row("signs beside the letters", "@[`{", "`", Any, {2, 1});
    row("begun twice", "<!-<!--", "<!--", Any, {3, 4});
    row("begun twice, then letters", "<!-- a<!-- B -->", "<!-- b", Any, {6, 6});
    row("signs, then letters, never", "<!-- a <!-- b", "<!-- c", Any, None);
    row("NUL in both", QByteArray("a\0b\0C", 5), QByteArray("\0c", 2), Any, {3, 2});

    row("accent, small for capital", "\xC3\x89t\xC3\xA9", "\xC3\xA9", Any, {0, 2});
    row("accent, capital for small", "t\xC3\xA9", "\xC3\x89", Any, {1, 2});
    row("accent, case matched", "\xC3\x89t\xC3\xA9", "\xC3\xA9", MatchCase, {3, 2});
    row("greek", "\xCE\x91\xCE\x92", "\xCE\xB1\xCE\xB2", Any, {0, 4});
    row("cases of unequal size", "a\xC8\xBA", "\xE2\xB1\xA5", Any, {1, 2});
    row("sharp s stays one letter", "SS", "\xC3\x9F", Any, None);
    row("dotless i is no i", "iI", "\xC4\xB1", Any, None);
    row("capital with dot is no i", "i", "\xC4\xB0", Any, None);
    row("four bytes", "a\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80", Any, {1, 4});
    row("desert capital for small", "\xF0\x90\x90\x80", "\xF0\x90\x90\xA8", Any, {0, 4});
    row("byte of a character", "\xC3\xA9", "\xA9", Any, {1, 1});
    row("broken bytes", "a\xFF\xE2\x82z", "\xFF\xE2\x82", Any, {1, 3});
    row("broken bytes have no case", "\xE9", "\xC9", Any, None);
    row("cut character at the end", "\xE2\x82", "\xE2\x82\xAC", Any, None);
    row("nul", QByteArray("a\0b", 3), QByteArray("\0B", 2), Any, {1, 2});
    row("line feed of a line end", "a\r\nb", "\n", Any, {2, 1});

    row("word, alone", "cat", "cat", WholeWord, {0, 3});
    row("word, later", "concat cats cat.", "cat", WholeWord, {12, 3});
    row("word, runs on before", "bobcat", "cat", WholeWord, None);
    row("word, digit behind", "cat9", "cat", WholeWord, None);
    row("word, underline before", "_cat", "cat", WholeWord, None);
    row("word, accent behind", "cat\xC3\xA9", "cat", WholeWord, None);
    row("word, accent before",
        "\xC3\xA9"
        "cat",
        "cat", WholeWord, None);
    row("word, combining accent behind", "cafe\xCC\x81", "cafe", WholeWord, None);
    row("word, hard blank behind", "cat\xC2\xA0", "cat", WholeWord, {0, 3});
    row("word, quotes around",
        "\xE2\x80\x9C"
        "cat\xE2\x80\x9D",
        "cat", WholeWord, {3, 3});
    row("word, broken byte behind", "cat\xFF", "cat", WholeWord, {0, 3});
    row("word of signs", "a<b>c", "<b>", WholeWord, {1, 3});
    row("word with case", "Cat cat", "cat", WholeWord | MatchCase, {4, 3});
}

void TestTextSearch::find()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, wanted);
    QFETCH(FindOptions, options);
    QFETCH(TextMatch, match);
    const TextMatch found = TextSearch(wanted, options).find(text, 0, text.size()).value_or(None);
    QCOMPARE(found.position, match.position);
    QCOMPARE(found.length, match.length);
}

void TestTextSearch::bounds_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("end");
    QTest::addColumn<FindOptions>("options");
    QTest::addColumn<int>("position");
    // in "abXabXabc"
    QTest::newRow("all") << 0 << 9 << Any << 0;
    QTest::newRow("from the match") << 3 << 9 << Any << 3;
    QTest::newRow("behind a match") << 1 << 9 << Any << 3;
    QTest::newRow("behind the last") << 7 << 9 << Any << -1;
    QTest::newRow("from the end") << 9 << 9 << Any << -1;
    QTest::newRow("to the match's end") << 1 << 5 << Any << 3;
    QTest::newRow("to the match's middle") << 1 << 4 << Any << -1;
    QTest::newRow("exact, to the match's end") << 1 << 5 << FindOptions(MatchCase) << 3;
    QTest::newRow("exact, to the match's middle") << 1 << 4 << FindOptions(MatchCase) << -1;
    QTest::newRow("a word runs on behind the end") << 6 << 8 << FindOptions(WholeWord) << -1;
}

void TestTextSearch::bounds()
{
    QFETCH(int, from);
    QFETCH(int, end);
    QFETCH(FindOptions, options);
    const TextMatch found = TextSearch("ab", options).find("abXabXabc", from, end).value_or(None);
    QTEST(static_cast<int>(found.position), "position");
}

void TestTextSearch::index()
{
    const TextSearch search("ab", Any);
    const QByteArray text = "xABxab";
    QCOMPARE(search.indexIn(text, 0), qsizetype(1));
    QCOMPARE(search.indexIn(text, 1), qsizetype(1));
    QCOMPARE(search.indexIn(text, 2), qsizetype(4));
    for (const qsizetype from : {5, 6, 7, 1000}) // also behind the text
        QCOMPARE(search.indexIn(text, from), qsizetype(-1));
    QCOMPARE(search.indexIn(QByteArrayView(), 2), qsizetype(-1));
}

void TestTextSearch::overlappingMatches()
{
    QCOMPARE(allMatches("aaaa", "Aa", Any), (QVector<TextMatch>{{0, 2}, {1, 2}, {2, 2}}));
    QCOMPARE(allMatches("aaaa", "aa", MatchCase), (QVector<TextMatch>{{0, 2}, {1, 2}, {2, 2}}));
    // One that is refused as part of a word hides no other.
    QCOMPARE(allMatches("ba a a", "a a", WholeWord), (QVector<TextMatch>{{3, 3}}));
}

/// Without letters that have two cases the search is a plain one.
void TestTextSearch::agreesWithPlainSearch()
{
    const QByteArray text = "<a>=\"1\"<!-- 2 --><<!-- -->\"";
    for (const char* wanted : {"<", ">", "=\"", "\"", "<!--", "-->", " "}) {
        qsizetype expected = text.indexOf(wanted);
        for (const TextMatch& match : allMatches(text, wanted, Any)) {
            QCOMPARE(match.position, expected);
            expected = text.indexOf(wanted, expected + 1);
        }
        QCOMPARE(expected, -1);
    }
}

QTEST_GUILESS_MAIN(TestTextSearch)
#include "tst_textsearch.moc"
