// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's own checker on the design surface, with dictionaries that are made for it.

#include "MainWindow.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "shell/NoticeBar.h"
#include "shell/Spelling.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

namespace {

/// The user's cache is looked for before the engine starts.
const struct Cache
{
    Cache() { qputenv("XDG_CACHE_HOME", folder.path().toLocal8Bit()); }
    QTemporaryDir folder;
} cache;

QMenu* popup()
{
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

struct Desk : MainWindow
{
    Desk()
    {
        web->spelling()->choose({QStringLiteral("en_US")});
        web->RichTextBox1->setText("<DIV style=\"font-size:40px; line-height:60px\">lampp</DIV>"
                                   "<DIV style=\"font-size:40px; line-height:60px\">brasss</DIV>");
        showTab(FrmWeb::PreviewTab);
    }
    ~Desk() { web->spelling()->choose({}); }

    /// Right clicks on the word until the engine has an opinion of it; its dictionaries come later.
    QStringList entriesOverWord(int line, const QString& awaited) const
    {
        QStringList entries;
        const bool came = QTest::qWaitFor(
            [&] {
                QWidget* input = web->WebBrowser1->inputWidget();
                if (!input)
                    return false;
                QTest::mouseClick(input, Qt::RightButton, {}, QPoint(60, 35 + 60 * line));
                if (!QTest::qWaitFor([] { return popup() != nullptr; }, 1000))
                    return false;
                entries.clear();
                for (const QAction* entry : popup()->actions())
                    entries << entry->text().section('\t', 0, 0);
                if (entries.contains(awaited))
                    return true;
                popup()->close();
                return false;
            },
            Patience);
        if (!came)
            QTest::qFail(qPrintable(entries.join('|')), __FILE__, __LINE__);
        return entries;
    }
};

} // namespace

class TestSurfaceSpelling : public QObject
{
    Q_OBJECT

private slots:
    void suggestions();
    void ownWords();
    void nextMisspelt();
};

void TestSurfaceSpelling::suggestions()
{
    Desk desk;
    const QStringList entries = desk.entriesOverWord(0, "Add \"lampp\" to My Words");
    QCOMPARE(entries.constFirst(), "lamp");
    takeEntry(popup(), "lamp");
    QTRY_VERIFY2(desk.web->WebBrowser1->innerHtml().contains(">lamp</DIV>"),
                 qPrintable(desk.web->WebBrowser1->innerHtml()));
    QVERIFY(desk.web->WebBrowser1->execCommand("Undo"));
    QVERIFY(desk.web->WebBrowser1->innerHtml().contains(">lampp</DIV>"));
}

/// Its checker goes on with all others.
void TestSurfaceSpelling::ownWords()
{
    Desk desk;
    desk.entriesOverWord(0, "Add \"lampp\" to My Words");
    takeEntry(popup(), "Add \"lampp\" to My Words");
    QCOMPARE(desk.folder.read("words.txt"), QByteArray("lampp\n"));
    desk.showTab(FrmWeb::EditorTab); // written again, it is looked at again
    QTRY_VERIFY(QDir(cache.folder.path() + "/brindlemark/dictionaries").entryList({"own-*.bdic"}).size() ==
                1);
    desk.showTab(FrmWeb::PreviewTab);
    desk.entriesOverWord(1, "Add \"brasss\" to My Words");
    popup()->close();
    QVERIFY(!desk.entriesOverWord(0, "Select &All").contains("Add \"lampp\" to My Words"));
    popup()->close();
}

/// By F7, from the caret on and round; what nobody sees is none, and a word of two formats is one.
void TestSurfaceSpelling::nextMisspelt()
{
    Desk desk;
    desk.showTab(FrmWeb::EditorTab);
    desk.web->RichTextBox1->setText(
        "<STYLE>zzyx { color: red }</STYLE><P>A fine lampp of brass.</P><TABLE><TR><TD>right</TD>"
        "<TD><B>bra</B>sss</TD></TR></TABLE><!-- qqqx --><P title=\"wwwx\">One more "
        "tabble<BR>lampp &amp; www.vvvx.com</P>"
        "<DIV style=\"height:3000px\"></DIV><P>eend</P>");
    desk.showTab(FrmWeb::PreviewTab);
    DocumentSurface* const surface = desk.web->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget() && surface->inputWidget()->hasFocus());
    QTRY_VERIFY(desk.web->spelling()->speller().judges());
    const auto scrolled = [&] { return probe(*surface).evaluate("scrollY").value_or(QVariant()).toInt(); };
    const auto press = [&] { QTest::keyClick(surface->inputWidget(), Qt::Key_F7); };
    for (const char* word : {"lampp", "brasss", "tabble", "lampp", "eend", "lampp", "brasss"}) {
        press();
        QCOMPARE(surface->selectedText(), QString::fromLatin1(word));
        QCOMPARE(scrolled() > 2000, qstrcmp(word, "eend") == 0);
    }
    QVERIFY(surface->execCommand("InsertText", "brass")); // what is typed replaces it
    QVERIFY(surface->innerHtml().contains("<TD><B>brass</B></TD>"));
    press();
    QCOMPARE(surface->selectedText(), "tabble");
    QVERIFY(surface->execCommand("SelectAll"));
    QVERIFY(surface->execCommand("InsertText", "all is right"));
    press();
    auto* const notices = desk.web->findChild<NoticeBar*>();
    QVERIFY(notices->isVisible());
    QCOMPARE(notices->findChild<QLabel*>()->text(), "No misspelt word was found.");
}

WEB_TEST_MAIN(TestSurfaceSpelling)
#include "tst_surfacespelling.moc"
