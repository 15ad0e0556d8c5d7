// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/RuntimeError.h"
#include "shell/GeneratorTag.h"
#include "shell/HighlightRuns.h"
#include "shell/ListingParts.h"

#include <QTest>
#include <algorithm>

using namespace brindlemark;

namespace {

constexpr qsizetype Torn = -1;

const QByteArray Stamp = "<META content=\"Brindlemark 1.0\" ";

constexpr HighlightColors AllColors = {
    .tags = 't', .values = 'v', .comments = 'c', .scripts = 's', .text = 'x'};

/// The colours of a text, a letter a byte: t tag, v value, c comment, s script, x plain text, "." none.
QByteArray painted(QByteArrayView text, const HighlightColors& colors)
{
    QByteArray letters(text.size(), '.');
    highlightRuns(text, colors, [&](const ColorRun& run, double) {
        std::fill_n(letters.begin() + run.range.start, run.range.length, static_cast<char>(run.color));
    });
    return letters;
}

} // namespace

/// What is found in the bytes of a page: generator tags, the parts and the style of a listing, the stretches
/// of a highlight.
class TestPageText : public QObject
{
    Q_OBJECT

private slots:
    void stamps_data();
    void stamps();
    void tornTag_data();
    void tornTag();

    void region_data();
    void region();
    void everyRegion();
    void style_data();
    void style();
    void beginning_data();
    void beginning();

    void runs_data();
    void runs();
    void missingColor();
    void runsLieWithinTheText();
    void passesFollowEachOther();
    void walkTellsHowFarItIs();
};

// ---- The generator tag

void TestPageText::stamps_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const QByteArray far(90'001, 'x');
    QTest::newRow("no text") << QByteArray() << QByteArray();
    QTest::newRow("none") << QByteArray("<HEAD></HEAD>") << QByteArray("<HEAD></HEAD>");
    QTest::newRow("one") << QByteArray("a<META content=\"E 5\" name=GENERATOR>b")
                         << "a" + Stamp + "name=GENERATOR>b";
    QTest::newRow("stamped before") << Stamp + "name=GENERATOR>" << Stamp + "name=GENERATOR>";
    QTest::newRow("no value") << QByteArray("<META content= name=GENERATOR>") << Stamp + "name=GENERATOR>";
    QTest::newRow("case") << QByteArray("<mEtA CONTENT=e Name=generator>") << Stamp + "Name=generator>";
    QTest::newRow("two, shorter and longer")
        << QByteArray("1<META content=e name=GENERATOR>2<META content=\"a name that is longer than ours\" "
                      "name=GENERATOR>3")
        << "1" + Stamp + "name=GENERATOR>2" + Stamp + "name=GENERATOR>3";
    QTest::newRow("one in another") << QByteArray("<META content=a><META content=b name=GENERATOR>")
                                    << Stamp + "name=GENERATOR>";
    const QByteArray noText("\xFF\0", 2);
    QTest::newRow("bytes of any kind")
        << noText + "<META content=\xE9 name=GENERATOR>\xC3" << noText + Stamp + "name=GENERATOR>\xC3";
    QTest::newRow("behind 90000 bytes")
        << far + "<META content=e name=GENERATOR>" << far + Stamp + "name=GENERATOR>";
}

void TestPageText::stamps()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(stamped(text), expected);
    QVERIFY(!findGeneratorTags(text).torn);
}

void TestPageText::tornTag_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("whole"); // tags in front of the torn one
    QTest::addColumn<int>("torn");  // where it begins
    QTest::newRow("alone") << QByteArray("<META content=") << 0 << 0;
    QTest::newRow("no generator") << QByteArray("ab<meta content=x name=author>") << 0 << 2;
    QTest::newRow("the name in front") << QByteArray("a name=GENERATOR><META content=x>") << 0 << 17;
    QTest::newRow("half a name") << QByteArray("<META content=x name=GENERATOR") << 0 << 0;
    QTest::newRow("no blank") << QByteArray("<META content=x\tname=GENERATOR>") << 0 << 0;
    QTest::newRow("behind a whole one")
        << QByteArray("<META content=x name=GENERATOR><META content=y>") << 1 << 31;
    QTest::newRow("the first of two") << QByteArray("<META content=x><META content=y>") << 0 << 0;
}

void TestPageText::tornTag()
{
    QFETCH(QByteArray, text);
    QFETCH(int, whole);
    QFETCH(int, torn);
    const GeneratorTags tags = findGeneratorTags(text);
    QCOMPARE(int(tags.starts.size()), whole);
    QVERIFY(tags.torn.has_value());
    QCOMPARE(tags.torn->start, qsizetype(torn));
    QCOMPARE(tags.torn->length, qsizetype(14)); // of "<META content="
    try {
        stamped(text);
        QFAIL("a torn tag is refused");
    } catch (const RuntimeError& error) {
        QVERIFY(error.number() == ErrorNumber::InvalidPropertyValue);
    }
}

// ---- The parts of a listing

void TestPageText::region_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qsizetype>("start"); // -1: there is no such part
    QTest::addColumn<qsizetype>("end");   // -1: torn
    const QByteArray far(90'001, 'x');
    const auto row = [](const char* name, const QByteArray& text, qsizetype start, qsizetype end) {
        QTest::newRow(name) << text << start << end;
    };
    row("no text", "", -1, Torn);
    row("none", "<P>text</P>", -1, Torn);
    row("closing marker alone", "<!-- Body-title2 -->", -1, Torn);
    row("another part", "<!-- Body-line --><HR><!-- Body-line2 -->", -1, Torn);
    row("at the start", "<!-- Body-title -->Lamp<!-- Body-title2 -->", 19, 23);
    row("empty", "a<!-- Body-title --><!-- Body-title2 -->", 20, 20);
    row("case", "<!-- BODY-TITLE -->Lamp<!-- body-Title2 -->", 19, 23);
    row("no other letters", "<!-- Body-t\xC4\xB1tle -->a<!-- Body-title2 -->", -1, Torn);
    row("the last of two", "<!-- Body-title -->1<!-- Body-title2 --><!-- Body-title -->2<!-- Body-title2 -->",
        59, 60);
    row("one in another", "<!-- Body-title -->1<!-- Body-title -->2<!-- Body-title2 -->3<!-- Body-title2 -->",
        39, 40);
    row("bytes of any kind", "\xE9\xFF<!-- Body-title -->\xE9<!-- Body-title2 -->", 21, 22);
    row("behind 90000 bytes", far + "<!-- Body-title -->Lamp<!-- Body-title2 -->", 90'020, 90'024);
    row("from front to end", "<!-- Body-title -->" + far + "<!-- Body-title2 -->", 19, 90'020);
    row("torn", "ab<!-- Body-title -->Lamp", 21, Torn);
    row("closing marker in front", "<!-- Body-title2 --><!-- Body-title -->", 39, Torn);
    row("half a closing marker", "<!-- Body-title -->Lamp<!-- Body-title2 --", 19, Torn);
    row("torn behind a whole one", "<!-- Body-title -->1<!-- Body-title2 --><!-- Body-title -->2", 59, Torn);
    row("the first of two torn ones", "<!-- Body-title -->1<!-- Body-title -->2", 19, Torn);
}

void TestPageText::region()
{
    QFETCH(QByteArray, text);
    QFETCH(qsizetype, start);
    QFETCH(qsizetype, end);
    const std::optional<TextRange> found = findRegion(text, Region::Title);
    QCOMPARE(found.has_value(), start >= 0);
    if (!found)
        return;
    QCOMPARE(found->start, start);
    QCOMPARE(found->length < 0, end == Torn);
    if (end != Torn)
        QCOMPARE(found->length, end - start);
}

void TestPageText::everyRegion()
{
    QByteArray text;
    for (const MarkerPair& pair : Markers) {
        text += "\r\n" + pair.opening.toByteArray() + pair.closing.toByteArray().sliced(5, 8) +
                pair.closing.toByteArray();
    }
    for (const MarkerPair& pair : Markers) {
        const std::optional<TextRange> found = findRegion(text, pair.region);
        QVERIFY(found.has_value());
        QCOMPARE(text.sliced(found->start, found->length), pair.closing.toByteArray().sliced(5, 8));
        QCOMPARE(text.sliced(found->end(), pair.closing.size()), pair.closing.toByteArray());
    }
}

void TestPageText::style_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("expected"); // -1: none
    const QByteArray page = "<BODY><!-- body-buildwizard2 -->";
    QTest::newRow("no text") << QByteArray() << 0 << -1;
    QTest::newRow("none") << QByteArray("<BODY>") << 0 << -1;
    QTest::newRow("style 0") << QByteArray("x<!-- body-buildwizard0 -->") << 0 << 0;
    QTest::newRow("style 1") << QByteArray("x<!-- body-buildwizard1 -->") << 0 << 1;
    QTest::newRow("style 2") << page << 0 << 2;
    QTest::newRow("style 3") << QByteArray("x<!-- body-buildwizard3 -->") << 0 << 3;
    QTest::newRow("style 4") << QByteArray("x<!-- body-buildwizard4 -->") << 0 << -1;
    QTest::newRow("case") << QByteArray("x<!-- BODY-BuildWizard1 -->") << 0 << 1;
    QTest::newRow("at the very start") << QByteArray("<!-- body-buildwizard0 -->") << 0 << -1;
    QTest::newRow("at the very start and behind it")
        << QByteArray("<!-- body-buildwizard0 --><!-- body-buildwizard0 -->") << 0 << -1;
    QTest::newRow("at the very start, looked for behind it")
        << QByteArray("<!-- body-buildwizard0 --><!-- body-buildwizard0 -->") << 1 << 0;
    QTest::newRow("another at the very start")
        << QByteArray("<!-- body-buildwizard0 --><!-- body-buildwizard3 -->") << 0 << 3;
    QTest::newRow("the lowest number")
        << QByteArray("x<!-- body-buildwizard3 --><!-- body-buildwizard1 -->") << 0 << 1;
    QTest::newRow("from its first byte") << page << 6 << 2;
    QTest::newRow("from its second byte") << page << 7 << -1;
    QTest::newRow("from the end") << page << int(page.size()) << -1;
    QTest::newRow("behind 90000 bytes") << QByteArray(90'001, 'x') + "<!-- body-buildwizard3 -->" << 0 << 3;
}

void TestPageText::style()
{
    QFETCH(QByteArray, text);
    QFETCH(int, from);
    QFETCH(int, expected);
    const std::optional<size_t> found = listingStyle(text, from);
    QCOMPARE(found ? int(*found) : -1, expected);
}

void TestPageText::beginning_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("utf8");
    QTest::addColumn<int>("western");
    const auto row = [](const char* name, qsizetype before, const QByteArray& behind, int utf8, int western) {
        QTest::newRow(name) << QByteArray(before, 'x') + behind << utf8 << western;
    };
    row("no text", 0, "", 0, 0);
    row("one byte", 1, "", 1, 1);
    row("90000 bytes", 90'000, "", 90'000, 90'000);
    row("90001 bytes", 90'001, "", 90'000, 90'000);
    row("1 of 2 bytes", 89'999, "\xC3\xA9", 89'999, 90'000);
    row("2 of 2 bytes", 89'998, "\xC3\xA9", 90'000, 90'000);
    row("1 of 3 bytes", 89'999, "\xE2\x82\xAC", 89'999, 90'000);
    row("2 of 3 bytes", 89'998, "\xE2\x82\xAC", 89'998, 90'000);
    row("3 of 3 bytes", 89'997, "\xE2\x82\xAC", 90'000, 90'000);
    row("3 of 4 bytes", 89'997, "\xF0\x9F\x98\x80", 89'997, 90'000);
    row("4 of 4 bytes", 89'996, "\xF0\x9F\x98\x80", 90'000, 90'000);
    row("behind a whole character", 89'997, "\xC3\xA9\xC3\xA9", 89'999, 90'000);
}

void TestPageText::beginning()
{
    QFETCH(QByteArray, text);
    QFETCH(int, utf8);
    QFETCH(int, western);
    QCOMPARE(lengthOfBeginning(text, TextEncoding::Utf8), qsizetype(utf8));
    QCOMPARE(lengthOfBeginning(text, TextEncoding::Western), qsizetype(western));
}

// ---- The highlight

void TestPageText::runs_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char* name, const QByteArray& text, const QByteArray& expected) {
        QTest::newRow(name) << text << expected;
    };
    const QByteArray far(90'000, 'a');
    row("no text", "", "");
    row("plain text", "a\r\nb", "xxxx");
    row("tag", "a<b>c", "xtttx");
    row("the closing text is looked for two bytes on", "<>x>y", "ttttx");
    row("nested tags", "<a<b>c>d", "tttttxxx");
    row("value up to its closing quote", "<p a=\"v\">t", "tttttvvvtx");
    row("value outside of a tag", "a=\"b\"c", "xxvvvx");
    row("comment over tag and value", "<!--<b a=\"c\">-->d", "ccccccccccccccccx");
    row("script in any case, over a comment", "<Script><!--x--></sCRIPT>", "sssssssssssssssssssssssss");
    row("script in a comment", "<!--<SCRIPT></SCRIPT>-->", "ccccsssssssssssssssssccc");
    row("no other letters", QByteArray("<\xC5\xBF") + "cript>a</SCRIPT>", "tttttttttxttttttttt");
    row("bytes of any kind", "\xE9<b>\xFF", "xtttx");
    row("unclosed", "x<y=\"z<!--<SCRIPT", "xxxxxxxxxxxxxxxxx");
    row("comment unclosed at the start", "<!--a", "ccxxx");
    row("script unclosed at the start", "<SCRIPT>a", "ssssssssx");
    row("script cut off at the start", "<SCRIPT", "sssssss");
    row("beyond 90000 bytes", far + "b<i c=\"d\">e<!--f-->", QByteArray(90'000, 'x') + ".tttttvvvt.cccccccc");
    row("over the byte 90000", QByteArray(89'999, 'a') + "<b>", QByteArray(89'999, 'x') + "ttt");
}

void TestPageText::runs()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, expected);
    QCOMPARE(painted(text, AllColors), expected);
}

void TestPageText::missingColor()
{
    const QByteArray text = "x<a b=\"c\"><!--d--><SCRIPT></SCRIPT>";
    const std::pair<std::optional<int> HighlightColors::*, const char*> rows[] = {
        {&HighlightColors::tags, "xxxxxxvvvxccccccccsssssssssssssssss"},
        {&HighlightColors::values, "xtttttttttccccccccsssssssssssssssss"},
        {&HighlightColors::comments, "xtttttvvvtttttttttsssssssssssssssss"},
        {&HighlightColors::scripts, "xtttttvvvtccccccccttttttttttttttttt"},
        {&HighlightColors::text, ".tttttvvvtccccccccsssssssssssssssss"},
    };
    for (const auto& [missing, expected] : rows) {
        HighlightColors colors = AllColors;
        colors.*missing = std::nullopt;
        QCOMPARE(painted(text, colors), QByteArray(expected));
    }
    QCOMPARE(painted(text, {}), QByteArray(35, '.'));
}

/// Also where a closing text is missing, or the text ends too early.
void TestPageText::runsLieWithinTheText()
{
    const QByteArray whole = "<!--<SCRIPT a=\"<b>\"></SCRIPT>=\"-->=\"<SCRIPT></SCRIPT>";
    for (qsizetype from = 0; from < whole.size(); ++from) {
        for (qsizetype end = from; end <= whole.size(); ++end) {
            const QByteArray text = whole.sliced(from, end - from);
            highlightRuns(text, AllColors, [&](const ColorRun& run, double) {
                QVERIFY2(run.range.start >= 0 && run.range.length >= 0 && run.range.end() <= text.size(),
                         text.constData());
            });
        }
    }
}

void TestPageText::passesFollowEachOther()
{
    QByteArray order;
    highlightRuns("<SCRIPT a=\"1\"></SCRIPT><!---->", AllColors,
                  [&](const ColorRun& run, double) { order += static_cast<char>(run.color); });
    QCOMPARE(order, QByteArray("xtttvcs"));
}

/// From 0 to nearly 1, also over a text in which nothing is closed.
void TestPageText::walkTellsHowFarItIs()
{
    for (const QByteArray& piece :
         {QByteArray("<!--=\"<SCRIPT></SCRIPT>\"-->"), QByteArray("<!--=\"<SCRIPT")}) {
        double last = 0;
        int calls = 0;
        highlightRuns(piece.repeated(1000), AllColors, [&](const ColorRun&, double done) {
            QVERIFY(done >= last && done <= 1);
            QVERIFY2(done - last < 0.26, "no step is longer than a pass");
            last = done;
            ++calls;
        });
        QVERIFY(last > 0.99);
        QVERIFY(calls > 5000);
    }
}

QTEST_APPLESS_MAIN(TestPageText)
#include "tst_pagetext.moc"
