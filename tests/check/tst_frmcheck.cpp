// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebServer.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "check/FrmCheck.h"
#include "check/PlacedSource.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QWindow>

using namespace brindlemark;

namespace {

/// A page in which nothing is found but what a test puts into its body.
QByteArray pageWith(const QByteArray& body)
{
    return "<HTML>\r\n<HEAD><META name=viewport content=\"width=device-width\"><TITLE>Brass "
           "lamp</TITLE></HEAD>\r\n<BODY>\r\n" +
           body + "\r\n</BODY></HTML>\r\n";
}

const QByteArray TwoPictures =
    "<IMG src=\"https://p.example/1.jpg\" width=300>\r\n"
    "<P>A lamp of brass that was made in the thirties, with a new cord, a green shade and "
    "a switch that works as it did on its first day.</P>\r\n"
    "<IMG src=\"https://p.example/2.jpg\" width=300>";

struct Desk : MainWindow
{
    Desk() { connectOpenings(web); }

    /// Opens the window for a text in the source.
    FrmCheck* check(const QByteArray& text)
    {
        web->RichTextBox1->setText(text);
        choose(web->muntools, web->munchecklisting);
        if (!QTest::qWaitFor([] { return isLoaded<FrmCheck>() && form<FrmCheck>()->isVisible(); }, Patience))
            QTest::qFail("the window does not open", __FILE__, __LINE__);
        return form<FrmCheck>();
    }
    /// What is selected in the source.
    QByteArray selected() const { return web->RichTextBox1->SelText(); }
};

/// The list, a line a finding: severity, line, column, sentence.
QStringList listed(const FrmCheck* window)
{
    QStringList lines;
    for (int row = 0; row < window->Findings->topLevelItemCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < 4; ++column)
            cells << window->Findings->topLevelItem(row)->text(column);
        lines << cells.join(u'|');
    }
    return lines;
}

void clickRow(const FrmCheck* window, int row)
{
    QTreeWidget* list = window->Findings;
    list->scrollToItem(list->topLevelItem(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->topLevelItem(row)).center());
}

const QStringList NoAlts = {"Warning|4|1|The picture has no words (alt) for those who can't see it.",
                            "Warning|6|1|The picture has no words (alt) for those who can't see it."};

} // namespace

class TestFrmCheck : public QObject
{
    Q_OBJECT

private slots:
    void listsWhatIsFound();
    void countsTheText();
    void clickSelectsThePlace();
    void clickAfterAnEdit();
    void keysWalkOverTheFindings();
    void openingLeavesTheCaret();
    void mendsInOneStep();
    void mendsAllOfAKind();
    void enterBehindAMending();
    void enterOnAFinding();
    void findingThatIsGone();
    void nothingToMend();
    void checksAnewWhileOneTypes();
    void typedWhileItChecks();
    void mendAgainByEnter();
    void staysOverMain();
    void turnsToTheEditor();
    void reducedTexts();
    void limitsOfTheSettings();
    void manyFindings();
    void longText();
    void whatSticksOut();
    void fitsPhonesInOneStep();
    void samplePagesFitPhones();
    void copiesThePage();
    void copiesWhatPreviewShows();
};

void TestFrmCheck::listsWhatIsFound()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    QCOMPARE(listed(window), NoAlts);
    QVERIFY(window->Summary->text().startsWith("2 warnings. "));
    QCOMPARE(desk.source(), pageWith(TwoPictures)); // nothing is changed unasked
}

void TestFrmCheck::countsTheText()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith("<P>caf\xC3\xA9 au lait</P>"));
    const QByteArray text = desk.source();
    QCOMPARE(window->Summary->text(),
             QStringLiteral("Nothing found. %1 of 500,000 characters, %2 of 500,000 bytes, 3 words.")
                 .arg(text.size() - 1)
                 .arg(text.size()));
}

void TestFrmCheck::clickSelectsThePlace()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    clickRow(window, 1);
    QTRY_COMPARE(desk.selected(), "<IMG src=\"https://p.example/2.jpg\" width=300>");
    QCOMPARE(window->Mending->text(), "Writes the listing's title.");
    clickRow(window, 0); // the one that is marked when the window opens, too
    QTRY_COMPARE(desk.selected(), "<IMG src=\"https://p.example/1.jpg\" width=300>");
}

/// A click that comes before the text is looked at again.
void TestFrmCheck::clickAfterAnEdit()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    desk.web->RichTextBox1->setSelStart(0);
    desk.web->RichTextBox1->setSelText("<!-- in front -->\r\n");
    clickRow(window, 1);
    QTRY_COMPARE(desk.selected(), "<IMG src=\"https://p.example/2.jpg\" width=300>");
}

void TestFrmCheck::keysWalkOverTheFindings()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    QTest::keyClick(window->Findings, Qt::Key_Down);
    QTRY_COMPARE(desk.selected(), "<IMG src=\"https://p.example/2.jpg\" width=300>");
    QTest::keyClick(window->Findings, Qt::Key_Up);
    QTRY_COMPARE(desk.selected(), "<IMG src=\"https://p.example/1.jpg\" width=300>");
}

void TestFrmCheck::openingLeavesTheCaret()
{
    Desk desk;
    desk.web->RichTextBox1->setText(pageWith(TwoPictures));
    desk.web->RichTextBox1->setSelStart(20);
    desk.web->RichTextBox1->setSelLength(4);
    desk.choose(desk.web->muntools, desk.web->munchecklisting);
    QTRY_VERIFY(isLoaded<FrmCheck>() && form<FrmCheck>()->Findings->topLevelItemCount() == 2);
    QCoreApplication::processEvents();
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 20);
    QCOMPARE(desk.web->RichTextBox1->SelLength(), 4);
}

void TestFrmCheck::mendsInOneStep()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    clickRow(window, 1);
    click(window->Mend);
    QByteArray mended = TwoPictures;
    mended.replace("<IMG src=\"https://p.example/2.jpg\"",
                   "<IMG alt=\"Brass lamp\" src=\"https://p.example/2.jpg\"");
    QCOMPARE(desk.source(), pageWith(mended));
    QCOMPARE(listed(window), NoAlts.mid(0, 1));
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), pageWith(TwoPictures));
}

void TestFrmCheck::mendsAllOfAKind()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    clickRow(window, 0);
    click(window->MendAll);
    QByteArray mended = TwoPictures;
    mended.replace("<IMG ", "<IMG alt=\"Brass lamp\" ");
    QCOMPARE(desk.source(), pageWith(mended));
    QCOMPARE(listed(window), QStringList());
    QVERIFY(!window->Mend->isEnabled() && !window->MendAll->isEnabled());
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), pageWith(TwoPictures));
    QTRY_COMPARE(listed(window), NoAlts);
}

/// Enter once more does nothing that was not wanted.
void TestFrmCheck::enterBehindAMending()
{
    Desk desk;
    const FrmCheck* window = desk.check("<P>one</P>");
    QCOMPARE(listed(window).size(), 2);
    clickRow(window, int(listed(window).indexOf(QRegularExpression(".*viewport.*"))));
    window->Mend->setFocus();
    QTest::keyClick(window->Mend, Qt::Key_Return);
    const QByteArray mended = desk.source();
    QVERIFY(mended.contains("viewport"));
    QVERIFY(!window->Mend->isEnabled()); // what is left is for a person
    QCOMPARE(window->focusWidget(), window->Findings);
    QCOMPARE(window->Mending->text(), "Done; one Undo takes it back.");
    QCOMPARE(desk.source(), mended);
}

void TestFrmCheck::enterOnAFinding()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    clickRow(window, 1);
    QTest::keyClick(window->Findings, Qt::Key_Return);
    QTRY_VERIFY(desk.web->RichTextBox1->hasFocus());
    QCOMPARE(desk.web->RichTextBox1->SelLength(), 0); // a further key takes nothing away
    QCOMPARE(desk.web->RichTextBox1->SelStart(), int(desk.source().lastIndexOf("<IMG")));
}

/// What was typed meanwhile has mended it.
void TestFrmCheck::findingThatIsGone()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith("<P>Ask anna@mail.example</P>\r\n" + TwoPictures));
    QCOMPARE(listed(window).size(), 3);
    const int place = int(desk.source().indexOf("anna@"));
    desk.web->RichTextBox1->setSelStart(place);
    desk.web->RichTextBox1->setSelLength(17);
    desk.web->RichTextBox1->setSelText("us");
    clickRow(window, 0);
    QTRY_COMPARE(listed(window),
                 (QStringList{"Warning|5|1|The picture has no words (alt) for those who can't see it.",
                              "Warning|7|1|The picture has no words (alt) for those who can't see it."}));
    QCOMPARE(desk.selected(), QByteArray());
}

void TestFrmCheck::nothingToMend()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith("<P>Ask anna@mail.example for more.</P>"));
    QCOMPARE(listed(window),
             QStringList("Hint|4|8|A mail address in the open, which sites may refuse: anna@mail.example"));
    clickRow(window, 0);
    QTRY_COMPARE(desk.selected(), "anna@mail.example");
    QVERIFY(!window->Mend->isEnabled() && !window->MendAll->isEnabled());
    QCOMPARE(window->Mending->text(), "This is for a person to decide.");
}

void TestFrmCheck::checksAnewWhileOneTypes()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    desk.web->RichTextBox1->setSelStart(int(desk.source().indexOf("<P>")));
    QTest::keyClicks(desk.web->RichTextBox1, "<B>");
    QTRY_COMPARE(listed(window), (QStringList{NoAlts[0], "Warning|5|1|<B> is never closed.", NoAlts[1]}));
}

/// What is typed while the other thread still looks through the text before counts too. How long that takes
/// depends on the machine; one of these moments lies before its end.
void TestFrmCheck::typedWhileItChecks()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(QByteArray("<P>long</P>\r\n").repeated(200'000)));
    desk.web->RichTextBox1->setSelStart(int(desk.source().indexOf("<P>")));
    for (const auto& [moment, tag] : {std::pair(350, "<B>"), std::pair(600, "<I>"), std::pair(850, "<U>"),
                                      std::pair(1100, "<TT>"), std::pair(1350, "<EM>")}) {
        desk.type(QStringLiteral("x"));
        QTest::qWait(moment);
        desk.type(QString::fromLatin1(tag));
        const QString finding = QString::fromLatin1(tag) + QStringLiteral(" is never closed.");
        QTRY_VERIFY_WITH_TIMEOUT(!listed(window).filter(finding).isEmpty(), Patience);
    }
}

/// Enter on the button goes on to the next one of the kind.
void TestFrmCheck::mendAgainByEnter()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    window->Mend->setFocus();
    QTest::keyClick(window->Mend, Qt::Key_Return);
    QCOMPARE(listed(window).size(), 1);
    QCOMPARE(window->focusWidget(), window->Mend);
    QTest::keyClick(window->Mend, Qt::Key_Return);
    QCOMPARE(listed(window).size(), 0);
    QCOMPARE(window->focusWidget(), window->Findings);
}

void TestFrmCheck::staysOverMain()
{
    Desk desk;
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    QCOMPARE(window->windowHandle()->transientParent(), desk.web->windowHandle());
    QVERIFY(window->windowFlags().testFlag(Qt::Dialog)); // or else X11 would not heed it
}

/// On Preview the page may be newer than the source, which is where the places are.
void TestFrmCheck::turnsToTheEditor()
{
    Desk desk;
    const FrmCheck* window = desk.check("<P>one</P><IMG src=https://p.example/1.jpg width=9><P>two</P>");
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeOnSurface("written ");
    const auto row = listed(window).indexOf(QRegularExpression(".*no words.*"));
    QVERIFY(row >= 0);
    clickRow(window, int(row));
    QTRY_COMPARE(desk.web->SSTab1->Tab(), int(FrmWeb::EditorTab));
    QTRY_VERIFY(desk.selected().startsWith("<IMG "));
    QVERIFY(desk.source().contains("written"));
}

void TestFrmCheck::reducedTexts()
{
    Desk desk;
    FrmCheck* window =
        desk.check("<BODY bgColor=#ffffff>\r\n<!-- c --><TABLE><TR><TD><B class=x>Brass</B>\r\n lamp &amp; "
                   "cord</TD></TR></TABLE>\r\n<UL><LI>new<LI>green</UL><SCRIPT>run()</SCRIPT></BODY>");
    QVERIFY(!window->CopyReduced->isEnabled());
    choose(window->Profile, 1);
    QTRY_VERIFY(window->CopyReduced->isEnabled());
    click(window->CopyReduced);
    QCOMPARE(Clipboard::GetText(), "<b>Brass</b> lamp &amp; cord<ul><li>new<li>green</ul>");
    choose(window->Profile, 2);
    click(window->CopyReduced);
    QCOMPARE(Clipboard::GetText(), "Brass lamp & cord\r\n- new\r\n- green");
    QVERIFY(!listed(window).filter("<table> is not taken there.").isEmpty());
    QVERIFY(listed(window).filter("words (alt)").isEmpty());
}

void TestFrmCheck::limitsOfTheSettings()
{
    Desk desk;
    desk.folder.write("web.ini", "[Check]\r\nMostCharacters=100\r\nNoAlt=0\r\n");
    const FrmCheck* window = desk.check(pageWith(TwoPictures));
    const QString characters = QString::number(desk.source().size());
    QCOMPARE(listed(window),
             QStringList("Problem|1|1|" + characters + " characters are more than the limit."));
    QVERIFY(window->Summary->text().contains(characters + " of 100 characters"));
}

void TestFrmCheck::manyFindings()
{
    Desk desk;
    const FrmCheck* window = desk.check(
        pageWith(QByteArray("<IMG src=https://p.example/1.jpg width=9>").repeated(1200) + TwoPictures));
    QCOMPARE(window->Findings->topLevelItemCount(), 1000);
    QVERIFY2(window->Summary->text().startsWith("1,202 warnings (the first 1,000 are listed). "),
             qPrintable(window->Summary->text()));
    clickRow(window, 999);
    click(window->MendAll); // also those that aren't listed
    QCOMPARE(window->Findings->topLevelItemCount(), 0);
}

void TestFrmCheck::longText()
{
    Desk desk;
    const FrmCheck* window = desk.check(QByteArray("<B>").repeated(7'000'000));
    QCOMPARE(window->Summary->text(), "A text of more than 20 MB is not checked.");
    QCOMPARE(window->Findings->topLevelItemCount(), 0);
    desk.web->RichTextBox1->setText(pageWith(TwoPictures));
    QTRY_COMPARE(listed(window), NoAlts);
}

void TestFrmCheck::whatSticksOut()
{
    Desk desk;
    const FrmCheck* window =
        desk.check(pageWith("<TABLE border=0><TR><TD><DIV><PRE>" + QByteArray("wide ").repeated(200) +
                            "</PRE></DIV></TD></TR></TABLE>"));
    QVERIFY(listed(window).isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(listed(window).size(), 1, Patience); // once it has been laid out
    const QStringList cells = listed(window).constLast().split(u'|');
    static const QRegularExpression sentence(
        "^On a phone the page is (\\d+) pixels wide; this sticks out most\\.$");
    const auto match = sentence.match(cells[3]);
    QVERIFY2(match.hasMatch() && match.captured(1).toInt() > 1000, qPrintable(cells[3]));
    clickRow(window, 0);
    QTRY_VERIFY2(desk.selected().startsWith('<'), desk.selected().constData());
}

void TestFrmCheck::fitsPhonesInOneStep()
{
    Desk desk;
    const QByteArray page =
        "<BODY>\r\n<!-- Body-title --><B>Lamp \"Deco\"</B><!-- Body-title2 -->\r\n<TABLE width=800>"
        "<TR><TD>x<IMG src=https://p.example/1.jpg></TD></TR></TABLE></BODY>";
    const FrmCheck* window = desk.check(page);
    click(window->FitPhones);
    QCOMPARE(desk.source(),
             "<META name=viewport content=\"width=device-width, initial-scale=1\">\r\n<BODY>\r\n"
             "<!-- Body-title --><B>Lamp \"Deco\"</B><!-- Body-title2 -->\r\n<TABLE width=\"100%\"><TR><TD>x"
             "<IMG alt=\"Lamp &quot;Deco&quot;\" style=\"max-width:100%;height:auto\" "
             "src=https://p.example/1.jpg></TD></TR></TABLE></BODY>");
    QCOMPARE(window->Mending->text(), "Done; one Undo takes it back.");
    click(window->FitPhones);
    QCOMPARE(window->Mending->text(), "Nothing was left to do.");
    desk.web->RichTextBox1->undo();
    QCOMPARE(desk.source(), page);
}

/// Listings with photos as phones take them.
void TestFrmCheck::samplePagesFitPhones()
{
    WebServer server;
    server.answer("/photo.svg", "HTTP/1.0 200 OK\r\nContent-Type: image/svg+xml\r\n\r\n"
                                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"1200\" height=\"900\"/>");
    LivePage page;
    page.setScrollBars(false);
    page.resize(375, 750);
    page.show();
    const auto widthOf = [&](const QByteArray& html) {
        page.writeSoon(QString::fromUtf8(withPlaces(html)));
        if (!QTest::qWaitFor([&] { return !WebProbe::isWriting(page); }, Patience))
            QTest::qFail("the page does not come", __FILE__, __LINE__);
        const auto widths = std::make_shared<LivePage::Widths>(); // the last answer may come later
        const auto isComplete = [&] {
            page.askWidths([widths](const LivePage::Widths& told) { *widths = told; });
            return widths->complete;
        };
        if (!QTest::qWaitFor(isComplete, Patience))
            QTest::qFail("its pictures do not come", __FILE__, __LINE__);
        return widths->width;
    };
    const QDir folder(QStringLiteral(TEST_DATA "/pages"));
    int seen = 0;
    for (const QString& name : folder.entryList({"listing-*.htm"})) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        static const QRegularExpression address("http://pictures\\.example/\\w+\\.jpg");
        const QByteArray html =
            QString::fromUtf8(file.readAll()).replace(address, server.url("/photo.svg")).toUtf8();
        const int before = widthOf(html);
        QVERIFY2(
            before >= 1200,
            qPrintable(
                QStringLiteral("%1: %2 %3").arg(name).arg(before).arg(server.requestedPaths().join(u' '))));
        const int after = widthOf(edited(html, phoneEdits(html, CheckLimits())));
        QVERIFY2(after == 375, qPrintable(QStringLiteral("%1: %2").arg(name).arg(after)));
        ++seen;
    }
    QCOMPARE(seen, 16);
}

void TestFrmCheck::copiesThePage()
{
    Desk desk;
    desk.web->RichTextBox1->setText(pageWith(TwoPictures));
    desk.choose(desk.web->muntools, desk.web->muncopypage);
    QCOMPARE(Clipboard::GetText(), QString::fromUtf8(pageWith(TwoPictures)));
    const auto* bar = desk.web->findChild<NoticeBar*>();
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->findChild<QLabel*>()->text(),
             QStringLiteral("The page is on the clipboard: %1 characters. Open findings: 2.")
                 .arg(desk.source().size()));
    for (auto* button : bar->findChildren<QPushButton*>()) {
        if (button->isVisible())
            click(button);
    }
    QTRY_VERIFY(isLoaded<FrmCheck>() && form<FrmCheck>()->isVisible());
}

void TestFrmCheck::copiesWhatPreviewShows()
{
    Desk desk;
    desk.web->RichTextBox1->setText("<P>one</P>");
    desk.showTab(FrmWeb::PreviewTab);
    desk.typeOnSurface("written ");
    desk.choose(desk.web->muntools, desk.web->muncopypage);
    QVERIFY2(Clipboard::GetText().contains("written"), qPrintable(Clipboard::GetText()));
    QCOMPARE(desk.source(), QByteArray("<P>one</P>")); // which is read when the tab is left
}

WEB_TEST_MAIN(TestFrmCheck)
#include "tst_frmcheck.moc"
