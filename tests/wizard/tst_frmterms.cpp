// SPDX-License-Identifier: GPL-3.0-or-later

#include "ProgramFolder.h"
#include "ScriptedDoors.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "platform/RuntimeError.h"
#include "shell/SurfaceCommands.h"
#include "wizard/FrmTerms.h"
#include "wizard/Terms.h"

#include <QDir>
#include <QMenu>
#include <QMimeData>
#include <csignal>

using namespace brindlemark;

namespace {

constexpr char CannotSave[] = "MsgBox|Error|There has been a (28)error, Cannot save file.|Stop|Ok";

QString paymentFile()
{
    return QStringLiteral("\\weblst.ini");
}

/// What is between the body tags of the editor's document.
QString bodyOf(FrmTerms* editor)
{
    const QString html = editor->WebBrowser1->innerHtml();
    const qsizetype begin = html.indexOf(QLatin1String("<BODY>")) + 6;
    return html.mid(begin, html.indexOf(QLatin1String("</BODY>")) - begin).remove(QLatin1String("\r\n"));
}

} // namespace

class TestFrmTerms : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void readsTheWholeFileUnchanged_data();
    void readsTheWholeFileUnchanged();
    void whatCannotBeReadIsEmpty();
    void cutsHeads_data();
    void cutsHeads();
    void eachButtonOpensItsFile_data();
    void eachButtonOpensItsFile();
    void noSuchFile();
    void missingFileLeavesTheSurfaceEmpty();
    void shownAsDesigned();
    void eachCommand_data();
    void eachCommand();
    void indentAndOutdent();
    void eachSize_data();
    void eachSize();
    void anyOtherSizeText();
    void fontNames();
    void colors_data();
    void colors();
    void hyperlink();
    void savesTheBody();
    void shippedTermsStandStill_data();
    void shippedTermsStandStill();
    void savesWhatCannotBeWestern();
    void savesFiveMegabytes();
    void cancelUnloads();
    void escapeCancels();
    void okHidesAndKeepsTheForm();
    void openEditorTurnsToTheOtherFile();
    void captionIsForTheEye();
    void typingGoesIntoTheTerms();
    void menuAndKeysPaste();
    void failedWrite_data();
    void failedWrite();
    void lostRenderer();
    void lostRendererComesBackWithTheChanges();

private:
    std::unique_ptr<ProgramFolder> m_folder;
};

void TestFrmTerms::init()
{
    m_folder = std::make_unique<ProgramFolder>();
    for (const TermsFile& terms : TermsFiles)
        QFile::remove(m_folder->path(terms.file.sliced(1).toString()));
}

void TestFrmTerms::cleanup()
{
    if (isLoaded<FrmTerms>())
        form<FrmTerms>()->Unload();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_folder.reset();
}

void TestFrmTerms::readsTheWholeFileUnchanged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("as saved") << QByteArray("\r\n<BODY>a</BODY>\r\n")
                              << QStringLiteral("\r\n<BODY>a</BODY>\r\n");
    QTest::newRow("empty") << QByteArray("") << QString();
    QTest::newRow("blanks and line feeds")
        << QByteArray("  a\n\n b \t\r") << QStringLiteral("  a\n\n b \t\r");
    QTest::newRow("UTF-8") << QByteArray("Gr\xC3\xBC\xC3\x9F\x65 \xF0\x9F\x98\x80")
                           << QString::fromUtf8("Grüße 😀");
    QTest::newRow("Western") << QByteArray("Gr\xFC\xDF\x65, 5 \x80") << QString::fromUtf8("Grüße, 5 €");
}

void TestFrmTerms::readsTheWholeFileUnchanged()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    m_folder->write(QStringLiteral("weblst.ini"), bytes);
    QCOMPARE(GetTermsList(paymentFile()), text);
}

void TestFrmTerms::whatCannotBeReadIsEmpty()
{
    const ScriptedDoors noDialog;
    QCOMPARE(GetTermsList(paymentFile()), QString());
    QVERIFY(QDir().mkdir(m_folder->path(QStringLiteral("weblst.ini"))));
    QCOMPARE(GetTermsList(paymentFile()), QString());
}

void TestFrmTerms::cutsHeads_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("rest");
    QTest::addColumn<QByteArray>("cut");
    QTest::newRow("none") << QByteArray("<BODY>a</BODY>") << QByteArray("<BODY>a</BODY>") << QByteArray();
    QTest::newRow("nothing at all") << QByteArray() << QByteArray() << QByteArray();
    QTest::newRow("one") << QByteArray("<HEAD>x</HEAD>\r\n<BODY>a</BODY>") << QByteArray("\r\n<BODY>a</BODY>")
                         << QByteArray("<HEAD>x</HEAD>");
    QTest::newRow("all there is") << QByteArray("<HEAD></HEAD>") << QByteArray()
                                  << QByteArray("<HEAD></HEAD>");
    QTest::newRow("any case") << QByteArray("<head>x</Head>b") << QByteArray("b")
                              << QByteArray("<head>x</Head>");
    QTest::newRow("two") << QByteArray("<HEAD>x</HEAD>ab<HEAD>y</HEAD>c") << QByteArray("abc")
                         << QByteArray("<HEAD>y</HEAD>");
    QTest::newRow("not closed") << QByteArray("<HEAD>x</HEAD>a<!--<HEAD>-->b")
                                << QByteArray("a<!--<HEAD>-->b") << QByteArray("<HEAD>x</HEAD>");
    const QByteArray large(200000, 'a');
    QTest::newRow("behind 90000 characters")
        << large + "<HEAD>x</HEAD>b" << large + 'b' << QByteArray("<HEAD>x</HEAD>");
}

void TestFrmTerms::cutsHeads()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, rest);
    QFETCH(QByteArray, cut);
    QCOMPARE(cutHeads(text), cut);
    QCOMPARE(text, rest);
}

void TestFrmTerms::eachButtonOpensItsFile_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("caption");
    QTest::newRow("payment") << 0 << "weblst.ini"
                             << "- Payment - Terms of Lists";
    QTest::newRow("location") << 1 << "weblst2.ini"
                              << "- Location Shipping - Terms of Lists";
    QTest::newRow("who pays") << 2 << "weblst3.ini"
                              << "- Pays Shipping - Terms of Lists";
}

void TestFrmTerms::eachButtonOpensItsFile()
{
    QFETCH(int, index);
    QFETCH(QString, file);
    QFETCH(QString, caption);
    ScriptedDoors doors;
    m_folder->write(file, "\r\n<BODY>old</BODY>\r\n");

    openTerms(index);
    auto* editor = form<FrmTerms>();
    QVERIFY(editor->isVisible());
    QVERIFY(!editor->isModal());
    QCOMPARE(editor->windowTitle(), caption);
    QCOMPARE(bodyOf(editor), QStringLiteral("old"));

    editor->WebBrowser1->write(QStringLiteral("<BODY>new</BODY>"));
    click(editor->Command14);
    QCOMPARE(m_folder->read(file), QByteArray("\r\n<BODY>new</BODY>\r\n"));
    for (const TermsFile& other : TermsFiles) {
        const QString name = other.file.sliced(1).toString();
        QCOMPARE(m_folder->has(name), name == file);
    }
}

void TestFrmTerms::noSuchFile()
{
    for (int index : {-1, 3}) {
        QVERIFY_THROWS_EXCEPTION(RuntimeError, openTerms(index));
        QVERIFY(!isLoaded<FrmTerms>());
    }
}

void TestFrmTerms::missingFileLeavesTheSurfaceEmpty()
{
    const ScriptedDoors noDialog;
    openTerms(1);
    QCOMPARE(bodyOf(form<FrmTerms>()), QString());
}

void TestFrmTerms::shownAsDesigned()
{
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QCOMPARE(editor->Frame1->title().remove(u'&'), QStringLiteral("View Sample"));
    QCOMPARE(editor->Combo1->Text(), QStringLiteral("Arial"));
    QCOMPARE(editor->Combo2->Text(), QStringLiteral("Normal"));
    QStringList sizes;
    for (int i = 0; i < editor->Combo2->ListCount(); ++i)
        sizes << editor->Combo2->List(i);
    QCOMPARE(sizes, QStringList({"8", "10", "12", "14", "18", "24", "36"}));
    QCOMPARE(editor->Command14->text().remove(u'&'), QStringLiteral("OK"));
    QCOMPARE(editor->Command15->text().remove(u'&'), QStringLiteral("Cancel"));
    QCOMPARE(editor->WebBrowser1->designMode(), DesignMode::On);
    const std::pair<QToolButton*, const char*> tips[] = {
        {editor->Command1, "Bold"},       {editor->Command2, "Italic"},
        {editor->Command3, "Underline"},  {editor->Command4, "Insert Horizontal Rule"},
        {editor->Command5, "Font Color"}, {editor->Command6, "Indent"},
        {editor->Command7, "Outdent"},    {editor->Command8, "Left"},
        {editor->Command9, "Center"},     {editor->Command10, "Right"},
        {editor->Command11, "Highlight"}, {editor->Command12, "Undo"},
        {editor->Command13, "Redo"},      {editor->Command16, "Hyperlink"},
    };
    for (const auto& [button, tip] : tips) {
        QCOMPARE(button->toolTip(), QString::fromLatin1(tip));
        QCOMPARE(button->accessibleName(), QString::fromLatin1(tip));
        QVERIFY(!button->icon().isNull());
    }
}

void TestFrmTerms::eachCommand_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("body");
    const QString plain = QStringLiteral("<P>text</P>");
    QTest::newRow("Bold") << 1 << plain << "<P><B>text</B></P>";
    QTest::newRow("Italic") << 2 << plain << "<P><I>text</I></P>";
    QTest::newRow("Underline") << 3 << plain << "<P><U>text</U></P>";
    QTest::newRow("Insert Horizontal Rule") << 4 << plain << "<HR>";
    const QString aligned = QStringLiteral("<P style=\"text-align: %1;\">text</P>");
    QTest::newRow("Left") << 8 << aligned.arg(QStringLiteral("right")) << aligned.arg(QStringLiteral("left"));
    QTest::newRow("Center") << 9 << plain << aligned.arg(QStringLiteral("center"));
    QTest::newRow("Right") << 10 << plain << aligned.arg(QStringLiteral("right"));
}

void TestFrmTerms::eachCommand()
{
    QFETCH(int, button);
    QFETCH(QString, start);
    QFETCH(QString, body);
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(start);
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    auto* pressed = editor->findChild<QToolButton*>(QStringLiteral("Command%1").arg(button));
    click(pressed);
    QCOMPARE(bodyOf(editor), body);
    click(editor->Command12);
    QCOMPARE(bodyOf(editor), start);
    click(editor->Command13);
    QCOMPARE(bodyOf(editor), body);
}

void TestFrmTerms::indentAndOutdent()
{
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(QStringLiteral("<P>text</P>"));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    click(editor->Command6);
    QVERIFY2(bodyOf(editor).startsWith(QLatin1String("<BLOCKQUOTE")), qPrintable(bodyOf(editor)));
    click(editor->Command7);
    QCOMPARE(bodyOf(editor), QStringLiteral("<P>text</P>"));
}

void TestFrmTerms::eachSize_data()
{
    QTest::addColumn<int>("entry");
    QTest::addColumn<QString>("size");
    const char* steps[] = {"1", "2", "3", "4", "5", "6", "7"};
    for (int i = 0; i < 7; ++i)
        QTest::newRow(PointSizes[i]) << i << QString::fromLatin1(steps[i]);
}

void TestFrmTerms::eachSize()
{
    QFETCH(int, entry);
    QFETCH(QString, size);
    openTerms(0);
    auto* editor = form<FrmTerms>();
    const QString sized = QStringLiteral("<P><FONT size=%1>text</FONT></P>");
    editor->edit(sized.arg(size == QLatin1String("5") ? 6 : 5));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    editor->Combo2->setListIndex(entry);
    // 3 is the size of a text without any
    QCOMPARE(bodyOf(editor), size == QLatin1String("3") ? QStringLiteral("<P>text</P>") : sized.arg(size));
}

/// A text that is no size at all, as the box's own "Normal", gives size 3.
void TestFrmTerms::anyOtherSizeText()
{
    openTerms(0);
    auto* editor = form<FrmTerms>();
    for (const char* text : {"Normal", "9", "huge", ""}) {
        editor->edit(QStringLiteral("<P><FONT size=5>text</FONT></P>"));
        editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
        editor->Combo2->setText(QString::fromLatin1(text));
        emit editor->Combo2->Click();
        QCOMPARE(bodyOf(editor), QStringLiteral("<P>text</P>"));
    }
}

void TestFrmTerms::fontNames()
{
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QVERIFY(editor->Combo1->ListCount() > 0);
    editor->edit(QStringLiteral("<P>text</P>"));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    const int entry = editor->Combo1->findText(QStringLiteral("Liberation Mono"));
    QVERIFY(entry >= 0);
    editor->Combo1->setListIndex(entry);
    QCOMPARE(bodyOf(editor), QStringLiteral("<P><FONT face=\"Liberation Mono\">text</FONT></P>"));
}

void TestFrmTerms::colors_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("body");
    QTest::newRow("Font Color") << 5 << "<P><FONT color=#4080ff>text</FONT></P>";
    QTest::newRow("Highlight") << 11
                               << "<P><SPAN style=\"background-color: rgb(64, 128, 255);\">text</SPAN></P>";
}

void TestFrmTerms::colors()
{
    QFETCH(int, button);
    QFETCH(QString, body);
    ScriptedDoors doors;
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(QStringLiteral("<P>text</P>"));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    auto* pressed = editor->findChild<QToolButton*>(QStringLiteral("Command%1").arg(button));
    doors.cancelColor();
    click(pressed);
    QCOMPARE(bodyOf(editor), QStringLiteral("<P>text</P>"));
    doors.answerColor(0xFF8040);
    click(pressed);
    QCOMPARE(bodyOf(editor), body);
}

void TestFrmTerms::hyperlink()
{
    ScriptedDoors doors;
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(QStringLiteral("<P>text</P>"));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    doors.answerInputBox(QStringLiteral("http://example.org/"));
    click(editor->Command16);
    QCOMPARE(bodyOf(editor), QStringLiteral("<P><A href=\"http://example.org/\">text</A></P>"));
}

void TestFrmTerms::savesTheBody()
{
    ScriptedDoors doors;
    Clipboard::SetText(QStringLiteral("the seller's own"));
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(QStringLiteral("<P>one</P>"));
    click(editor->Command14);
    QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("\r\n<BODY>\r\n<P>one</P></BODY>\r\n"));
    const QString head = Clipboard::GetText();
    QVERIFY2(head.startsWith(QLatin1String("<HEAD>")) && head.endsWith(QLatin1String("</HEAD>")) &&
                 head.contains(QLatin1String("name=GENERATOR>")),
             qPrintable(head));
    QCOMPARE(doors.asked, QStringList());
}

void TestFrmTerms::shippedTermsStandStill_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < 3; ++i)
        QTest::newRow(qPrintable(TermsFiles[size_t(i)].file.sliced(1).toString())) << i;
}

/// What is opened and kept again and again stays the same, byte for byte.
void TestFrmTerms::shippedTermsStandStill()
{
    QFETCH(int, index);
    const ScriptedDoors doors;
    const QString name = TermsFiles[size_t(index)].file.sliced(1).toString();
    QFile shipped(QStringLiteral(SOURCE_DIR "/data/") + name);
    QVERIFY(shipped.open(QIODevice::ReadOnly));
    const QByteArray bytes = shipped.readAll();
    m_folder->write(name, bytes);
    for (int i = 0; i < 3; ++i) {
        openTerms(index);
        click(form<FrmTerms>()->Command14);
        QCOMPARE(m_folder->read(name), bytes);
    }
}

void TestFrmTerms::savesWhatCannotBeWestern()
{
    const ScriptedDoors doors;
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY>Gr\xFC\xDF\x65</BODY>\r\n");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QCOMPARE(bodyOf(editor), QString::fromUtf8("Grüße"));
    editor->WebBrowser1->execCommand(QStringLiteral("SelectAll"));
    editor->WebBrowser1->execCommand(QStringLiteral("InsertText"), QString::fromUtf8("日本 😀"));
    click(editor->Command14);
    QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("\r\n<BODY>日本 😀</BODY>\r\n"));
}

void TestFrmTerms::savesFiveMegabytes()
{
    const ScriptedDoors doors;
    const QByteArray line = "<P>" + QByteArray(994, 'x') + "</P>\r\n";
    QByteArray body = "\r\n<BODY>\r\n" + line.repeated(5000);
    body.chop(2);
    body += "</BODY>\r\n";
    m_folder->write(QStringLiteral("weblst.ini"), body);
    QCOMPARE(GetTermsList(paymentFile()).size(), body.size());
    openTerms(0);
    click(form<FrmTerms>()->Command14);
    QVERIFY(m_folder->read(QStringLiteral("weblst.ini")) == body);
}

void TestFrmTerms::cancelUnloads()
{
    const ScriptedDoors noDialog;
    openTerms(0);
    form<FrmTerms>()->edit(QStringLiteral("<P>text</P>"));
    click(form<FrmTerms>()->Command15);
    QVERIFY(!isLoaded<FrmTerms>());
    QVERIFY(!m_folder->has(QStringLiteral("weblst.ini")));
}

void TestFrmTerms::escapeCancels()
{
    const ScriptedDoors noDialog;
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    editor->Command14->setFocus();
    QTest::keyClick(editor->Command14, Qt::Key_Escape);
    QVERIFY(!isLoaded<FrmTerms>());
}

void TestFrmTerms::okHidesAndKeepsTheForm()
{
    const ScriptedDoors doors;
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->Combo2->setText(QStringLiteral("14"));
    click(editor->Command14);
    QVERIFY(isLoaded<FrmTerms>());
    QVERIFY(!editor->isVisible());
    openTerms(2);
    QCOMPARE(form<FrmTerms>(), editor);
    QVERIFY(editor->isVisible());
    QCOMPARE(editor->Combo2->Text(), QStringLiteral("14"));
}

void TestFrmTerms::openEditorTurnsToTheOtherFile()
{
    const ScriptedDoors doors;
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY>pay</BODY>");
    m_folder->write(QStringLiteral("weblst2.ini"), "<BODY>ship</BODY>");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    openTerms(1);
    QCOMPARE(form<FrmTerms>(), editor);
    QCOMPARE(editor->windowTitle(), QStringLiteral("- Location Shipping - Terms of Lists"));
    QCOMPARE(bodyOf(editor), QStringLiteral("ship"));
    openTerms(2); // no such file yet: nothing of another section is taken for its terms
    QCOMPARE(bodyOf(editor), QString());
    click(editor->Command14);
    QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("<BODY>pay</BODY>"));
    QCOMPARE(m_folder->read(QStringLiteral("weblst2.ini")), QByteArray("<BODY>ship</BODY>"));
    QCOMPARE(m_folder->read(QStringLiteral("weblst3.ini")), QByteArray("\r\n<BODY></BODY>\r\n"));
}

/// Whatever else writes there, such as a sign of unsaved changes: the file stays the one that was opened.
void TestFrmTerms::captionIsForTheEye()
{
    const ScriptedDoors doors;
    openTerms(0);
    auto* editor = form<FrmTerms>();
    for (const QString& caption :
         {editor->windowTitle() + u'*', QString::fromLatin1(TermsFiles[2].caption)}) {
        m_folder->write(QStringLiteral("weblst.ini"), "<BODY>old</BODY>");
        editor->setWindowTitle(caption);
        editor->WebBrowser1->write(QStringLiteral("<BODY>pay</BODY>"));
        click(editor->Command14);
        QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("\r\n<BODY>pay</BODY>\r\n"));
        QVERIFY(!m_folder->has(QStringLiteral("weblst3.ini")));
    }
}

/// Also when the hand was last somewhere else in the editor.
void TestFrmTerms::typingGoesIntoTheTerms()
{
    const ScriptedDoors doors;
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY>pay</BODY>");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    for (const bool hidden : {false, true}) {
        editor->Command14->setFocus();
        QCOMPARE(editor->focusWidget(), editor->Command14);
        if (hidden)
            click(editor->Command14); // hides it
        openTerms(0);
        QVERIFY(QTest::qWaitForWindowActive(editor));
        const QWidget* surface = editor->WebBrowser1;
        QVERIFY(surface == editor->focusWidget() || surface->isAncestorOf(editor->focusWidget()));
    }
}

/// As they are, as text, and with their looks.
void TestFrmTerms::menuAndKeysPaste()
{
    const ScriptedDoors desktop;
    const auto copied = [] {
        auto clip = std::make_unique<QMimeData>();
        clip->setText(QStringLiteral("cash"));
        clip->setHtml(QStringLiteral("<p class=MsoNormal style='color:red'><b>cash</b></p>"));
        return clip;
    };
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY><P>pay</P></BODY>");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QTRY_VERIFY(editor->WebBrowser1->inputWidget());
    const auto popup = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
    const auto take = [&](const char* entry) {
        const auto click = [&] { // a page that was never painted yet may lose one
            QTest::mouseClick(editor->WebBrowser1->inputWidget(), Qt::RightButton, {}, QPoint(60, 100));
            return QTest::qWaitFor([&] { return popup() != nullptr; }, 1000);
        };
        QVERIFY(QTest::qWaitFor(click, Patience));
        takeEntry(popup(), QString::fromLatin1(entry));
    };
    doors().setClipboard(copied());
    take("Select &All");
    QTest::keyClick(editor->WebBrowser1->inputWidget(), Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(bodyOf(editor), QStringLiteral("<P>cash</P>"));
    take("&Undo: Paste");
    QTRY_COMPARE(bodyOf(editor), QStringLiteral("<P>pay</P>"));
    take("Select &All");
    take("&Paste");
    QTRY_COMPARE(bodyOf(editor), QStringLiteral("<P><B>cash</B></P>"));
    take("Select &All");
    take("Paste With Its &Looks");
    QTRY_VERIFY2(bodyOf(editor).contains(QStringLiteral("red")), qPrintable(bodyOf(editor)));
}

void TestFrmTerms::failedWrite_data()
{
    QTest::addColumn<bool>("folder");
    QTest::newRow("a folder in its place") << true;
    QTest::newRow("a file that nobody may write") << false;
}

void TestFrmTerms::failedWrite()
{
    QFETCH(bool, folder);
    ScriptedDoors doors;
    const QString path = m_folder->path(QStringLiteral("weblst.ini"));
    if (folder) {
        QVERIFY(QDir().mkdir(path));
    } else {
        m_folder->write(QStringLiteral("weblst.ini"), "old");
        QVERIFY(QFile::setPermissions(path, QFileDevice::ReadOwner));
    }
    openTerms(0);
    auto* editor = form<FrmTerms>();
    editor->edit(QStringLiteral("<P>kept</P>"));
    doors.answerMsgBox(MsgAnswer::Ok);
    click(editor->Command14);
    QCOMPARE(doors.asked, QStringList(CannotSave));
    QVERIFY(editor->isVisible());
    QCOMPARE(bodyOf(editor), QStringLiteral("<P>kept</P>"));
    QVERIFY(Clipboard::GetText().startsWith(QLatin1String("<HEAD>")));
}

void TestFrmTerms::lostRenderer()
{
    ScriptedDoors doors;
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY>pay</BODY>");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QCOMPARE(bodyOf(editor), QStringLiteral("pay"));
    doors.answerMsgBox(MsgAnswer::Ok);
    ::kill(pid_t(probe(editor->WebBrowser1).rendererPid()), SIGKILL);
    QTRY_COMPARE(doors.asked.size(), 1);
    QTRY_COMPARE(bodyOf(editor), QStringLiteral("pay"));
    QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("<BODY>pay</BODY>"));
}

void TestFrmTerms::lostRendererComesBackWithTheChanges()
{
    ScriptedDoors doors;
    m_folder->write(QStringLiteral("weblst.ini"), "<BODY>pay</BODY>");
    openTerms(0);
    auto* editor = form<FrmTerms>();
    QCOMPARE(bodyOf(editor), QStringLiteral("pay"));
    QVERIFY(probe(editor->WebBrowser1).evaluate(QStringLiteral("document.body.append(' soon'); 1")));
    auto* keeper = editor->findChild<QTimer*>(QStringLiteral("KeepTimer"));
    QVERIFY(keeper->remainingTime() <= 15000);
    keeper->start(0);
    QTRY_VERIFY(keeper->remainingTime() > 0);
    QCOMPARE(bodyOf(editor), QStringLiteral("pay soon"));
    doors.answerMsgBox(MsgAnswer::Ok);
    ::kill(pid_t(probe(editor->WebBrowser1).rendererPid()), SIGKILL);
    QTRY_COMPARE(doors.asked.size(), 1);
    QTRY_COMPARE(bodyOf(editor), QStringLiteral("pay soon"));
    QCOMPARE(m_folder->read(QStringLiteral("weblst.ini")), QByteArray("<BODY>pay</BODY>"));
}

RENDERER_TEST_MAIN(TestFrmTerms)
#include "tst_frmterms.moc"
