// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "platform/Files.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"
#include "wizard/Unfinished.h"

#include <QDir>
#include <QTest>

using namespace brindlemark;

// What is typed into the wizard and into terms outlives a program that is ended from outside.

namespace {

const QString Listing1 = QStringLiteral("Brindlemark-listing-1.htm");
const QString Terms1 = QStringLiteral("Brindlemark-terms-1.htm");

const QString ListingQuestion = QStringLiteral(
    "MsgBox|Brindlemark|Brindlemark ended while a listing was being made. What was filled in was kept."
    "\n\nDo you want it back? No deletes it, Later asks again at the next start.|Question|YesNoLater");
const QString TermsQuestion = QStringLiteral(
    "MsgBox|Brindlemark|Brindlemark ended before the terms were saved. Their text was kept."
    "\n\nDo you want it back? No moves it to the earlier texts, Later asks again at the next start."
    "|Question|YesNoLater");

struct Desk : MainWindow
{
    Desk()
    {
        connectOpenings(web);
        for (const char* name : {"weblst.ini", "weblst2.ini", "weblst3.ini"})
            QFile::copy(QStringLiteral(SOURCE_DIR "/data/") + QLatin1String(name),
                        folder.path(QLatin1String(name)));
    }

    FrmBuild1* openWizard() const
    {
        press(Tool::Create);
        if (!QTest::qWaitFor([] { return isLoaded<FrmBuild1>() && form<FrmBuild1>()->isVisible(); },
                             Patience))
            QTest::qFail("the wizard does not open", __FILE__, __LINE__);
        return form<FrmBuild1>();
    }
    bool has(const QString& name) const { return QFile::exists(folder.path(name)); }
    /// Lets the time run out after which a window's fields are kept, and waits for the file.
    void timeRunsOut(Form* window, const QString& file) const
    {
        const char* timer = qobject_cast<FrmTerms*>(window) ? "KeepTimer" : "UnfinishedTimer";
        window->findChild<QTimer*>(QLatin1String(timer))->start(0);
        if (!QTest::qWaitFor([&] { return has(file); }, Patience))
            QTest::qFail("nothing was kept", __FILE__, __LINE__);
    }
    /// Ends the program from outside, and starts it again: what lay on the disk at that moment is there.
    void killAndStart(const QStringList& names)
    {
        QHash<QString, QByteArray> files;
        for (const QString& name : names)
            files.insert(name, readFile(folder.path(name)));
        unloadAll();
        for (const QString& name : names) {
            QTRY_VERIFY(!has(name)); // an end in good order leaves nothing
            folder.write(name, files.value(name));
        }
        web = form<FrmWeb>();
        web->Show();
        QVERIFY(QTest::qWaitForWindowExposed(web, Patience));
        connectOpenings(web);
        web->offerUnsavedText();
        offerUnfinished();
    }
};

} // namespace

class TestUnfinished : public QObject
{
    Q_OBJECT

private slots:
    void listingComesBack();
    void page2ComesBack();
    void listingIsKeptAnew();
    void untouchedListingIsNotKept();
    void finishedListingLeavesNothing();
    void noDeletesTheListing();
    void laterAsksAgain();
    void tornListingHarmsNothing();
    void termsComeBack();
    void savedTermsLeaveNothing();
    void declinedTermsAreAnEarlierText();
    void allThreeComeBack();
};

/// Fills in a listing of which each kind of field tells.
static void fillIn(FrmBuild1* page)
{
    page->Text1->setText(QString::fromUtf8("A \"lamp\", \xE2\x82\xAC 5"));
    page->Text2->setPlainText("First line\n\n<B>second</B>");
    page->SSTab1->setTab(1);
    tick(page->OptP2);
    overtype(page->TxP2, "http://a/b.jpg");
    page->SSTab1->setTab(2);
    for (CheckBox* box : {page->ChKPay5, page->ChKPay1, page->ChKPay3}) // not in the order of the boxes
        tick(box);
    page->SSTab1->setTab(3);
    tick(page->OptLS3);
    tick(page->ChkLS8);
    page->SSTab1->setTab(4);
    overtype(page->TxSH1, "12");
}

static void compareListings(const Listing& now, const Listing& before)
{
    QCOMPARE(now.title, before.title);
    QCOMPARE(now.description, before.description);
    QCOMPARE(now.withPictures, before.withPictures);
    QCOMPARE(now.payments, before.payments);
    QCOMPARE(now.regions, before.regions);
    QCOMPARE(now.pictures, before.pictures);
    QCOMPARE(now.someRegions, before.someRegions);
    QCOMPARE(now.shippingDollars, before.shippingDollars);
}

void TestUnfinished::listingComesBack()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    const Listing before = page->listing();
    QCOMPARE(before.payments.size(), 3);
    desk.timeRunsOut(page, Listing1);
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.killAndStart({Listing1});
    QCOMPARE(desk.doors.takeAsked(), QStringList{ListingQuestion});
    QVERIFY(isLoaded<FrmBuild1>() && form<FrmBuild1>()->isVisible());
    page = form<FrmBuild1>();
    compareListings(page->listing(), before);
    QCOMPARE(page->TxP2->text(), "http://a/b.jpg");
    QVERIFY(page->TxP2->isEnabled());
    QCOMPARE(page->SSTab1->Tab(), 4);
    QVERIFY(!isLoaded<FrmBuild2>());
}

void TestUnfinished::page2ComesBack()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    click(page->Command1);
    QTRY_VERIFY(isLoaded<FrmBuild2>() && form<FrmBuild2>()->isVisible());
    auto* page2 = form<FrmBuild2>();
    click(page2->Command2);
    click(page2->Command2);
    click(page2->Chk1);
    desk.doors.answerColor(0x112233);
    choose(page2->Combo3, 0);
    const PageLook look = page2->look();
    const Listing before = page->listing();
    QCOMPARE(look.style, 2);
    QCOMPARE(look.titleColor, "#332211");
    desk.doors.takeAsked();
    desk.timeRunsOut(page, Listing1);
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.killAndStart({Listing1});
    QTRY_VERIFY(isLoaded<FrmBuild2>() && form<FrmBuild2>()->isVisible());
    QVERIFY(!form<FrmBuild1>()->isVisible());
    page2 = form<FrmBuild2>();
    QCOMPARE(page2->look().style, look.style);
    QCOMPARE(page2->look().pictureStyle, look.pictureStyle);
    QCOMPARE(page2->look().titleColor, look.titleColor);
    QCOMPARE(page2->look().cellColor, look.cellColor);
    QCOMPARE(page2->Label11->text(), "2");
    compareListings(form<FrmBuild1>()->listing(), before);
    click(page2->Command23); // and the listing can be made
    QTRY_VERIFY(desk.source().contains("First line"));
}

void TestUnfinished::listingIsKeptAnew()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    desk.timeRunsOut(page, Listing1);
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.killAndStart({Listing1});
    const QStringList kept =
        QDir(QFileInfo(desk.folder.path(Listing1)).path()).entryList({"Brindlemark-listing-*.htm"});
    QCOMPARE(kept.size(), 1); // at once, and once
    desk.doors.takeAsked();
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.killAndStart(kept);
    QCOMPARE(desk.doors.takeAsked(), QStringList{ListingQuestion});
    QCOMPARE(form<FrmBuild1>()->Text2->toPlainText(), "First line\n\n<B>second</B>");
}

void TestUnfinished::untouchedListingIsNotKept()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    auto* timer = page->findChild<QTimer*>("UnfinishedTimer");
    QCOMPARE(timer->interval(), 10000);
    timer->stop();
    Unfinished fields(Unfinished::Kind::Listing, page, [] {});
    fields.passOver("as it began");
    fields.keepNow(QString(), "as it began");
    fields.finish();
    QVERIFY(!desk.has(Listing1));
    fields.keepNow(QString(), "changed");
    fields.finish();
    QVERIFY(desk.has(Listing1));
    fields.passOver("saved");
    fields.finish();
    QVERIFY(!desk.has(Listing1));
}

void TestUnfinished::finishedListingLeavesNothing()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    desk.timeRunsOut(page, Listing1);
    click(page->Command1);
    QTRY_VERIFY(isLoaded<FrmBuild2>());
    click(form<FrmBuild2>()->Command23);
    QTRY_VERIFY(!isLoaded<FrmBuild1>());
    QTRY_VERIFY(!desk.has(Listing1));
}

void TestUnfinished::noDeletesTheListing()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    desk.timeRunsOut(page, Listing1);
    desk.doors.answerMsgBox(MsgAnswer::No);
    desk.killAndStart({Listing1});
    QVERIFY(!isLoaded<FrmBuild1>());
    QTRY_VERIFY(!desk.has(Listing1));
}

void TestUnfinished::laterAsksAgain()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    desk.timeRunsOut(page, Listing1);
    desk.doors.answerMsgBox(MsgAnswer::Cancel);
    desk.killAndStart({Listing1});
    QVERIFY(!isLoaded<FrmBuild1>());
    QVERIFY(desk.has(Listing1));
    desk.doors.takeAsked();
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    offerUnfinished();
    QCOMPARE(desk.doors.takeAsked(), QStringList{ListingQuestion});
    QVERIFY(isLoaded<FrmBuild1>());
}

void TestUnfinished::tornListingHarmsNothing()
{
    Desk desk;
    desk.folder.write(Listing1,
                      "{ \"fields\": \"{ \\\"SSTab1\\\": 99, \\\"Text1\\\": [], \\\"none\\\": 1 }\" }");
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    offerUnfinished();
    QVERIFY(form<FrmBuild1>()->isVisible());
    QCOMPARE(form<FrmBuild1>()->Text1->text(), QString());
    QCOMPARE(form<FrmBuild1>()->SSTab1->Tab(), 4); // the last there is
}

void TestUnfinished::termsComeBack()
{
    Desk desk;
    openTerms(1);
    auto* terms = form<FrmTerms>();
    QTRY_VERIFY(terms->WebBrowser1->inputWidget() &&
                terms->WebBrowser1->inputWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(terms->WebBrowser1->inputWidget(), "Typed ");
    QTRY_VERIFY(terms->WebBrowser1->innerHtml().contains("Typed"));
    desk.timeRunsOut(terms, Terms1);
    desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.killAndStart({Terms1});
    QCOMPARE(desk.doors.takeAsked(), QStringList{TermsQuestion});
    QVERIFY(isLoaded<FrmTerms>() && form<FrmTerms>()->isVisible());
    QCOMPARE(form<FrmTerms>()->windowTitle(), "- Location Shipping - Terms of Lists");
    QVERIFY(form<FrmTerms>()->WebBrowser1->innerHtml().contains("Typed"));
    click(form<FrmTerms>()->Command14);
    QVERIFY(readFile(desk.folder.path("weblst2.ini")).contains("Typed"));
}

void TestUnfinished::savedTermsLeaveNothing()
{
    Desk desk;
    openTerms(0);
    auto* terms = form<FrmTerms>();
    QTRY_VERIFY(terms->WebBrowser1->inputWidget() &&
                terms->WebBrowser1->inputWidget()->testAttribute(Qt::WA_InputMethodEnabled));
    QTest::keyClicks(terms->WebBrowser1->inputWidget(), "Typed ");
    QTRY_VERIFY(terms->WebBrowser1->innerHtml().contains("Typed"));
    desk.timeRunsOut(terms, Terms1);
    const QByteArray before = readFile(desk.folder.path("weblst.ini"));
    click(terms->Command14);
    QTRY_VERIFY(!desk.has(Terms1));
    const QList<EarlierText> kept = desk.web->earlierTexts().list();
    QCOMPARE(kept.size(), 1); // what the save wrote over
    QCOMPARE(EarlierTexts::text(kept.first()), before);
}

void TestUnfinished::declinedTermsAreAnEarlierText()
{
    Desk desk;
    {
        Journal killed({QFileInfo(desk.folder.path(Terms1)).path()}, "Brindlemark-terms");
        killed.keep(desk.folder.path("weblst.ini"), [] { return QByteArray("<P>Mine"); });
        killed.leave();
    }
    desk.doors.answerMsgBox(MsgAnswer::No);
    offerUnfinished();
    QTRY_VERIFY(!desk.has(Terms1));
    QVERIFY(!isLoaded<FrmTerms>());
    const QList<EarlierText> kept = desk.web->earlierTexts().list();
    QCOMPARE(kept.size(), 1);
    QCOMPARE(EarlierTexts::text(kept.first()), QByteArray("<P>Mine"));
}

void TestUnfinished::allThreeComeBack()
{
    Desk desk;
    FrmBuild1* page = desk.openWizard();
    fillIn(page);
    desk.timeRunsOut(page, Listing1);
    desk.web->RichTextBox1->setText("<P>document");
    desk.journalTimer().start(0);
    const QString document = QStringLiteral("Brindlemark-unsaved-1.htm");
    QTRY_VERIFY(desk.has(document));
    const QByteArray kept = readFile(desk.folder.path(document));
    const QByteArray listing = readFile(desk.folder.path(Listing1));
    unloadAll();
    desk.folder.write(document, kept);
    desk.folder.write(Listing1, listing);
    {
        Journal killed({QFileInfo(desk.folder.path(Terms1)).path()}, "Brindlemark-terms");
        killed.keep(desk.folder.path("weblst3.ini"), [] { return QByteArray("<P>Terms"); });
        killed.leave();
    }
    desk.web = form<FrmWeb>();
    desk.web->Show();
    for (int i = 0; i < 3; ++i)
        desk.doors.answerMsgBox(MsgAnswer::Yes);
    desk.web->offerUnsavedText();
    offerUnfinished();
    QCOMPARE(desk.source(), QByteArray("<P>document"));
    QCOMPARE(form<FrmBuild1>()->Text2->toPlainText(), "First line\n\n<B>second</B>");
    QVERIFY(form<FrmTerms>()->WebBrowser1->innerHtml().contains("Terms"));
}

WEB_TEST_MAIN(TestUnfinished)
#include "tst_unfinished.moc"
