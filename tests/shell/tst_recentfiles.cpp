// SPDX-License-Identifier: GPL-3.0-or-later

// The files that were the document last, in the menu Tools.

#include "MainWindow.h"
#include "WebTestMain.h"

#include <QDir>
#include <QFile>
#include <QMenu>
#include <QTest>

using namespace brindlemark;

namespace {

struct Desk : MainWindow
{
    /// "-" at the end: greyed.
    QStringList entries() const
    {
        emit web->munrecent->aboutToShow();
        QStringList texts;
        for (const QAction* entry : web->munrecent->actions()) {
            if (!entry->isSeparator())
                texts << entry->text() + QLatin1String(entry->isEnabled() ? "" : "-");
        }
        return texts;
    }
    void take(const QString& text) const
    {
        emit web->munrecent->aboutToShow();
        for (QAction* entry : web->munrecent->actions()) {
            if (entry->text() == text) {
                entry->trigger();
                return;
            }
        }
        QTest::qFail(qPrintable("no entry " + text), __FILE__, __LINE__);
    }
    void openClean(const QString& name)
    {
        web->document().setDirty(false);
        open(folder.path(name));
        web->document().setDirty(false);
    }
};

} // namespace

class TestRecentFiles : public QObject
{
    Q_OBJECT

private slots:
    void noneYet();
    void newestFirst();
    void savedOnes();
    void tenAtMost();
    void foldersWhereNamesAreTheSame();
    void goneOnes();
    void caret();
    void caretOfThePage();
    void caretBehindTheEnd();
    void asksAsOpenDoes();
    void cleared();
    void ofTwoPrograms();
    void damagedList();
    void listThatCannotBeWritten();
};

void TestRecentFiles::noneYet()
{
    const Desk desk;
    QCOMPARE(desk.entries(), QStringList({"No file was opened or saved yet-", "Clear This List-"}));
    QVERIFY(!QFile::exists(desk.folder.path("recent.txt")));
}

void TestRecentFiles::newestFirst()
{
    Desk desk;
    for (const char* name : {"one.htm", "two & three.htm"})
        desk.folder.write(QString::fromLatin1(name), name);
    desk.openClean("one.htm");
    desk.openClean("two & three.htm");
    QCOMPARE(desk.entries(), QStringList({"two && three.htm", "one.htm", "Clear This List"}));
    desk.take("one.htm");
    QCOMPARE(desk.source(), QByteArray("one.htm"));
    QCOMPARE(desk.entries(), QStringList({"one.htm", "two && three.htm", "Clear This List"}));
}

void TestRecentFiles::savedOnes()
{
    Desk desk;
    desk.type("lamp");
    desk.saveAs(desk.folder.path("lamp.htm"));
    QCOMPARE(desk.entries(), QStringList({"lamp.htm", "Clear This List"}));
    desk.folder.write("not there yet", "");
    desk.web->MnNew->trigger();
    desk.type("x");
    desk.doors.answerSave(QString()); // cancelled
    desk.web->mnsaveas->trigger();
    QCOMPARE(desk.entries(), QStringList({"lamp.htm", "Clear This List"}));
    desk.web->document().setDirty(false);
}

void TestRecentFiles::tenAtMost()
{
    Desk desk;
    for (int i = 1; i <= 11; ++i) {
        desk.folder.write(QStringLiteral("%1.htm").arg(i), "x");
        desk.openClean(QStringLiteral("%1.htm").arg(i));
    }
    const QStringList entries = desk.entries();
    QCOMPARE(entries.size(), 11);
    QCOMPARE(entries.constFirst(), "11.htm");
    QCOMPARE(entries.at(9), "2.htm");
}

void TestRecentFiles::foldersWhereNamesAreTheSame()
{
    Desk desk;
    QVERIFY(QDir().mkpath(desk.folder.path("a")) && QDir().mkpath(desk.folder.path("b")));
    for (const char* name : {"a/page.htm", "b/page.htm", "lamp.htm"})
        desk.folder.write(QString::fromLatin1(name), name);
    for (const char* name : {"a/page.htm", "b/page.htm", "lamp.htm"})
        desk.openClean(QString::fromLatin1(name));
    const QString b = "page.htm (" + desk.folder.path("b") + ')';
    QCOMPARE(desk.entries(),
             QStringList({"lamp.htm", b, "page.htm (" + desk.folder.path("a") + ')', "Clear This List"}));
    desk.take(b);
    QCOMPARE(desk.source(), QByteArray("b/page.htm"));
    desk.web->document().setDirty(false);
}

void TestRecentFiles::goneOnes()
{
    Desk desk;
    desk.folder.write("one.htm", "one");
    desk.folder.write("two.htm", "two");
    desk.openClean("one.htm");
    desk.openClean("two.htm");
    QVERIFY(QFile::remove(desk.folder.path("one.htm")));
    QCOMPARE(desk.entries(), QStringList({"two.htm", "one.htm-", "Clear This List"}));
}

/// Where it stood when another document came, and when the program ended.
void TestRecentFiles::caret()
{
    Desk desk;
    const QByteArray text = QByteArray("lamp\r\n").repeated(300);
    desk.folder.write("one.htm", text);
    desk.folder.write("two.htm", text);
    desk.openClean("one.htm");
    desk.web->RichTextBox1->setSelStart(1203);
    desk.openClean("two.htm");
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 0);
    desk.web->RichTextBox1->setSelStart(605);
    desk.web->document().setDirty(false);
    desk.take("one.htm");
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 1203);
    QCOMPARE(desk.web->RichTextBox1->SelLength(), 0);
    QTRY_VERIFY(desk.web->RichTextBox1->topOfView() > 600);
    desk.web->document().setDirty(false);
    desk.web->MnNew->trigger();
    desk.take("two.htm");
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 605);
    desk.web->RichTextBox1->setSelStart(7);
    desk.web->document().setDirty(false);
    desk.web->MnExit->trigger();
    QVERIFY(desk.folder.read("recent.txt").startsWith("7 " + desk.folder.path("two.htm").toUtf8() + '\n'));
}

/// Where it stood on the design surface at a save; and it comes back to the view that is up.
void TestRecentFiles::caretOfThePage()
{
    Desk desk;
    QByteArray page = "<HTML><HEAD></HEAD><BODY>";
    for (int i = 0; i < 90; ++i)
        page += "<P>lamp" + QByteArray::number(i) + "</P>\r\n";
    desk.folder.write("one.htm", page + "</BODY></HTML>\r\n");
    desk.folder.write("two.htm", "<P>two");
    desk.openClean("one.htm");
    DocumentSurface* surface = desk.web->WebBrowser1;
    const auto inSource = [&] { return desk.source().mid(desk.web->RichTextBox1->SelStart(), 6); };
    const auto onSurface = [&] {
        const SurfaceLetters letters = surface->letters();
        return letters.text.mid(letters.ahead, 6);
    };

    desk.showTab(FrmWeb::PreviewTab);
    const qsizetype word = surface->letters().text.indexOf(QStringLiteral("lamp70"));
    QVERIFY(surface->selectLetters(word, word));
    desk.web->mnsave->trigger();
    QCOMPARE(inSource(), QByteArray("lamp70"));
    QVERIFY(!desk.web->Dirty());

    desk.openClean("two.htm");
    QTRY_COMPARE(onSurface(), QStringLiteral("two"));
    desk.take("one.htm");
    QTRY_COMPARE(onSurface(), QStringLiteral("lamp70"));

    desk.openClean("two.htm");
    desk.showTab(FrmWeb::EditorTab);
    desk.web->document().setDirty(false);
    desk.take("one.htm");
    QCOMPARE(inSource(), QByteArray("lamp70"));
    desk.web->document().setDirty(false);
}

void TestRecentFiles::caretBehindTheEnd()
{
    Desk desk;
    desk.folder.write("one.htm", "a long text");
    desk.openClean("one.htm");
    desk.web->RichTextBox1->setSelStart(9);
    desk.web->document().setDirty(false);
    desk.web->MnNew->trigger();
    desk.folder.write("one.htm", "short");
    desk.take("one.htm");
    QCOMPARE(desk.web->RichTextBox1->SelStart(), 5);
    desk.web->document().setDirty(false);
}

void TestRecentFiles::asksAsOpenDoes()
{
    Desk desk;
    desk.folder.write("one.htm", "one");
    desk.openClean("one.htm");
    desk.web->MnNew->trigger();
    desk.type("unsaved");
    desk.doors.answerMsgBox(MsgAnswer::Cancel);
    static_cast<void>(desk.doors.takeAsked());
    desk.take("one.htm");
    QCOMPARE(desk.source(), QByteArray("unsaved"));
    QCOMPARE(desk.doors.takeAsked().size(), 1);
    desk.web->document().setDirty(false);
}

void TestRecentFiles::cleared()
{
    Desk desk;
    desk.folder.write("one.htm", "one");
    desk.openClean("one.htm");
    desk.take("Clear This List");
    QCOMPARE(desk.entries(), QStringList({"No file was opened or saved yet-", "Clear This List-"}));
    desk.openClean("one.htm");
    QCOMPARE(desk.entries(), QStringList({"one.htm", "Clear This List"}));
}

void TestRecentFiles::ofTwoPrograms()
{
    const ProgramFolder folder;
    const RecentFiles one(folder.path("recent.txt"));
    const RecentFiles other(folder.path("recent.txt"));
    one.note({"/a.htm", 1});
    other.note({"/b\u00E9 c.htm", 2});
    one.note({"/a.htm", 3});
    QCOMPARE(other.files(), QList<RecentFile>({{"/a.htm", 3}, {"/b\u00E9 c.htm", 2}}));
}

void TestRecentFiles::damagedList()
{
    ProgramFolder folder;
    folder.write("recent.txt", "\n/a.htm\nx /b.htm\n-5 /c.htm\n7 /d.htm\n99999999999 /e.htm");
    QCOMPARE(RecentFiles(folder.path("recent.txt")).files(),
             QList<RecentFile>({{"/c.htm", 0}, {"/d.htm", 7}}));
}

void TestRecentFiles::listThatCannotBeWritten()
{
    const ProgramFolder folder;
    const RecentFiles list(folder.path("none/recent.txt"));
    list.note({"/a.htm", 1});
    QCOMPARE(list.files(), QList<RecentFile>());
}

WEB_TEST_MAIN(TestRecentFiles)
#include "tst_recentfiles.moc"
