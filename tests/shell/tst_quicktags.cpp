// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"

#include <QMenu>
#include <QTabBar>

using namespace brindlemark;

/// The Quick Tags menu, opened and used by hand.
class TestQuickTags : public QObject
{
    Q_OBJECT

private slots:
    void snippets_data();
    void snippets();
    void questions_data();
    void questions();
    void questionsThatInsertNothing_data();
    void questionsThatInsertNothing();
    void marquees_data();
    void marquees();
    void messageScript();
    void messageScriptWithoutMessage();
    void answersGoInAsTheyAre_data();
    void answersGoInAsTheyAre();
    void insertionIsOneStepOfUndo();
    void westernDocument();
};

namespace {

QAction* entryOf(const MainWindow& window, const QString& name)
{
    auto* entry = window.web->findChild<QAction*>(name);
    if (!entry)
        QTest::qFail(qPrintable(name + QStringLiteral(" is no entry")), __FILE__, __LINE__);
    return entry;
}

void choose(const MainWindow& window, const QString& name)
{
    window.choose(window.web->munoptions, entryOf(window, name));
}

/// A source "one two three" with "two" selected.
void prepare(const MainWindow& window)
{
    RichTextBox& source = *window.web->RichTextBox1;
    source.setText("one two three");
    source.setSelStart(4);
    source.setSelLength(3);
}

} // namespace

void TestQuickTags::snippets_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("munbr1") << "<BR>";
    QTest::newRow("munbr2") << "<BR><BR>";
    QTest::newRow("munbr3") << "<BR><BR><BR>";
    QTest::newRow("munbr4") << "<BR><BR><BR><BR>";
    QTest::newRow("munbr5") << "<BR><BR><BR><BR><BR>";
    QTest::newRow("mup") << "<P></P>";
    QTest::newRow("muhr") << "<HR>";
    QTest::newRow("muleft") << "<P Align=left>";
    QTest::newRow("mucenter") << "<P Align=center>";
    QTest::newRow("muright") << "<P Align=right>";
    QTest::newRow("munnonp") << "</P>";
    QTest::newRow("muncenters") << "<Center></Center>";
    QTest::newRow("munnb1") << "&nbsp;";
    QTest::newRow("munnb2") << "&nbsp;&nbsp;";
    QTest::newRow("munnb3") << "&nbsp;&nbsp;&nbsp;";
    QTest::newRow("munnb4") << "&nbsp;&nbsp;&nbsp;&nbsp;";
    QTest::newRow("munnb5") << "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;";
}

void TestQuickTags::snippets()
{
    QFETCH(QString, html);
    const MainWindow window;
    prepare(window);
    choose(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.source(), "one " + html.toLatin1() + " three"); // in place of the selection
    QCOMPARE(window.web->RichTextBox1->SelStart(), 4 + int(html.size()));
    choose(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.source(), "one " + html.toLatin1() + html.toLatin1() + " three"); // at the caret
}

void TestQuickTags::questions_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("html");
    QTest::newRow("mubackim") << "http://x.example/back.gif"
                              << "InputBox|Edit Hyperlink|Enter the Internet Address.|http://"
                              << "<body background=\"http://x.example/back.gif\" bgproperties=\"fixed\">";
    QTest::newRow("munAIL")
        << "http://x.example"
        << "InputBox|Internet Address.|Type the full URL you wish to link to including the "
           "http://|"
        << "<A href=\"http://http://x.example\">Click here</A>";
    QTest::newRow("munemailink") << "me@x.example"
                                 << "InputBox|E-Mail|Enter your email address.|"
                                 << "<A href=\"Mailto:me@x.example\">E-Mail Me</A>";
}

void TestQuickTags::questions()
{
    QFETCH(QString, answer);
    QFETCH(QString, asked);
    QFETCH(QString, html);
    MainWindow window;
    prepare(window);
    window.doors.answerInputBox(answer);
    choose(window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(window.doors.takeAsked(), QStringList(asked));
    QCOMPARE(window.source(), "one " + html.toLatin1() + " three");
}

void TestQuickTags::questionsThatInsertNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("answer"); // null: Cancel
    QTest::newRow("background, default left") << "mubackim"
                                              << "http://";
    QTest::newRow("background, empty") << "mubackim"
                                       << "";
    QTest::newRow("background, cancel") << "mubackim" << QString();
    QTest::newRow("link, empty") << "munAIL"
                                 << "";
    QTest::newRow("link, cancel") << "munAIL" << QString();
    QTest::newRow("mail, empty") << "munemailink"
                                 << "";
    QTest::newRow("mail, cancel") << "munemailink" << QString();
}

void TestQuickTags::questionsThatInsertNothing()
{
    QFETCH(QString, name);
    QFETCH(QString, answer);
    MainWindow window;
    prepare(window);
    if (answer.isNull()) {
        window.doors.cancelInputBox();
    } else {
        window.doors.answerInputBox(answer);
    }
    choose(window, name);
    QCOMPARE(window.source(), QByteArray("one two three"));
    QCOMPARE(window.web->RichTextBox1->SelText(), QByteArray("two")); // the selection stays as well
}

void TestQuickTags::marquees_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("opening");
    QTest::newRow("munMarleft") << "Scrolling text on left"
                                << "<MARQUEE behavior=scroll direction=left>";
    QTest::newRow("munMarright") << "Scrolling text on right"
                                 << "<MARQUEE behavior=scroll direction=right>";
    QTest::newRow("munMarLR") << "Scrolling text on left and right"
                              << "<MARQUEE BEHAVIOR = alternate loop=infinite>";
}

void TestQuickTags::marquees()
{
    QFETCH(QString, title);
    QFETCH(QString, opening);
    MainWindow window;
    const QString entry = QString::fromLatin1(QTest::currentDataTag());
    const QStringList asked(
        QStringLiteral("InputBox|%1|Please Enter your desired scrolling text:|").arg(title));

    QVERIFY(QTest::qWaitForWindowActive(window.web));

    prepare(window);
    window.web->SSTab1->tabBar()->setFocus();
    window.doors.answerInputBox(QStringLiteral("Sale!"));
    choose(window, entry);
    QCOMPARE(window.doors.takeAsked(), asked);
    QCOMPARE(window.source(), "one " + opening.toLatin1() + "Sale!</marquee> three");
    QVERIFY(window.web->RichTextBox1->hasFocus());

    prepare(window);
    window.web->SSTab1->tabBar()->setFocus();
    window.doors.cancelInputBox(); // scrolls nothing, but scrolls
    choose(window, entry);
    QCOMPARE(window.doors.takeAsked(), asked);
    QCOMPARE(window.source(), "one " + opening.toLatin1() + "</marquee> three");
    QVERIFY(window.web->RichTextBox1->hasFocus());
}

void TestQuickTags::messageScript()
{
    MainWindow window;
    prepare(window);
    window.doors.answerInputBox(QStringLiteral("No copies, please"));
    choose(window, QStringLiteral("munmsg"));
    QCOMPARE(window.doors.takeAsked(),
             QStringList(QStringLiteral("InputBox|Message PopUp|What do you like to say on message ?|")));
    const QByteArrayList lines = {"<SCRIPT language=JavaScript>",
                                  "<!-- ",
                                  "var message=\"No copies, please\";",
                                  "function click(e) {",
                                  "if (document.all) {",
                                  "if (event.button == 2) {",
                                  "alert(message);",
                                  "return false;",
                                  "}",
                                  "}",
                                  "if (document.layers) {",
                                  "if (e.which == 3) {",
                                  "alert(message);",
                                  "return false;",
                                  "}",
                                  "}",
                                  "}",
                                  "if (document.layers) {",
                                  "document.captureEvents(Event.MOUSEDOWN);",
                                  "}",
                                  "document.onmousedown=click;",
                                  "// -->",
                                  "</SCRIPT>",
                                  ""};
    QCOMPARE(lines.size(), 23 + 1);
    QCOMPARE(window.source(), "one " + lines.join("\r\n") + " three");
}

void TestQuickTags::messageScriptWithoutMessage()
{
    MainWindow window;
    prepare(window);
    window.doors.answerInputBox(QString());
    choose(window, QStringLiteral("munmsg"));
    window.doors.cancelInputBox();
    choose(window, QStringLiteral("munmsg"));
    QCOMPARE(window.source(), QByteArray("one two three"));
}

void TestQuickTags::answersGoInAsTheyAre_data()
{
    QTest::addColumn<QString>("answer");
    QTest::newRow("quotes") << QStringLiteral("say \"hi\"");
    QTest::newRow("html") << QStringLiteral("</SCRIPT><B>&amp;");
    QTest::newRow("emoji") << QStringLiteral("Größe \U0001F600");
    QTest::newRow("blanks") << QStringLiteral("  ");
    QTest::newRow("1 MB") << QString(1'000'000, u'x');
}

void TestQuickTags::answersGoInAsTheyAre()
{
    QFETCH(QString, answer);
    MainWindow window;
    for (const char* entry : {"mubackim", "munAIL", "munemailink", "munMarleft", "munmsg"}) {
        window.web->RichTextBox1->setText("x");
        window.doors.answerInputBox(answer);
        choose(window, QString::fromLatin1(entry));
        const QByteArray source = window.source();
        QVERIFY2(source.count(answer.toUtf8()) == 1, entry);
        QVERIFY2(source.endsWith("x"), entry);
    }
}

void TestQuickTags::insertionIsOneStepOfUndo()
{
    MainWindow window;
    prepare(window);
    window.doors.answerInputBox(QStringLiteral("hello"));
    choose(window, QStringLiteral("munmsg"));
    QVERIFY(window.source().contains("hello"));
    QTest::keyClick(window.web->RichTextBox1, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.source(), QByteArray("one two three"));
}

void TestQuickTags::westernDocument()
{
    MainWindow window;
    window.folder.write(QStringLiteral("western.htm"), "caf\xE9 \xE9\xE8");
    window.open(window.folder.path(QStringLiteral("western.htm")));
    window.web->RichTextBox1->setSelStart(0);
    window.doors.answerInputBox(QString::fromUtf8("é"));
    choose(window, QStringLiteral("munemailink"));
    QCOMPARE(window.source(), QByteArray("<A href=\"Mailto:\xE9\">E-Mail Me</A>caf\xE9 \xE9\xE8"));
}

WEB_TEST_MAIN(TestQuickTags)
#include "tst_quicktags.moc"
