// SPDX-License-Identifier: GPL-3.0-or-later

#include "Controls.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "Windows.h"
#include "shell/FindBar.h"
#include "shell/FrmHelp.h"
#include "web/DocumentSurface.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSet>
#include <QToolButton>

using namespace brindlemark;

// Windows that a user can size, beside another one on the screen: as wide as 400 pixels, or as narrow as they
// become, they show all that they have.

namespace {

constexpr int Narrow = 400; // pixels

/// The views whose windows can be sized; all others stay as large as they come.
const QSet<QString> Sized = {"editor", "editor-title", "design",        "preview",   "find-bar",
                             "notice", "internet",     "earlier-texts", "live-view", "keys",
                             "terms",  "help",         "check-listing"};

/// What is cut off in a window, a line each.
QStringList cut(QWidget* window)
{
    QStringList faults;
    for (QWidget* control : seenControls(window)) {
        const auto* combo = qobject_cast<QComboBox*>(control);
        const bool scrolls = combo && combo->isEditable();
        if (const int missing = scrolls ? 0 : missingWidth(control); missing > 0) {
            faults << QStringLiteral("%1 \"%2\" lacks %3 pixels")
                          .arg(describe(control), wordsOf(control))
                          .arg(missing);
        }
        const bool givesNoWay = qobject_cast<QAbstractButton*>(control) || qobject_cast<QLabel*>(control) ||
                                qobject_cast<QLineEdit*>(control);
        if (givesNoWay && control->width() < control->minimumSizeHint().width())
            faults << describe(control) + QStringLiteral(" is too narrow");
        if (!control->parentWidget()->rect().contains(control->geometry()))
            faults << describe(control) + QStringLiteral(" leaves its frame");
    }
    return faults;
}

/// Makes a window as narrow as it becomes, down to 400 pixels, and waits until all has its place.
void makeNarrow(QWidget* window)
{
    window->resize(Narrow, window->height());
    if (!QTest::qWaitFor([&] { return window->width() == qMax(Narrow, window->minimumWidth()); }, Patience))
        QTest::qFail("the window does not become narrow", __FILE__, __LINE__);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
}

} // namespace

class TestNarrow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { takeDesktopLook(); }
    void windows_data();
    void windows();
    void findBarOfTheHelp();

private:
    PictureHost m_pictures;
};

void TestNarrow::windows_data()
{
    addViews();
}

void TestNarrow::windows()
{
    const WindowView& view = fetchedView();
    MainWindow main;
    QWidget* window = openView(view, main);
    const bool isSized = window->minimumSize() != window->maximumSize();
    QCOMPARE(isSized, Sized.contains(QString::fromLatin1(view.name)));
    if (!isSized)
        return;
    makeNarrow(window);
    QStringList faults;
    QTRY_VERIFY2((faults = cut(window)).isEmpty(), qPrintable(faults.join(u'\n')));
}

/// A help that stands beside the main window is searched too.
void TestNarrow::findBarOfTheHelp()
{
    MainWindow main;
    QWidget* window = openView(viewOf(QStringLiteral("help")), main);
    makeNarrow(window);
    form<FrmHelp>()->WebBrowser1->sendKeys(QStringLiteral("^f"));
    auto* bar = window->findChild<FindBar*>();
    QTRY_VERIFY(bar->isVisible());
    QStringList faults;
    QTRY_VERIFY2((faults = cut(window)).isEmpty(), qPrintable(faults.join(u'\n')));
    QCOMPARE(bar->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly).size(), 3);
    window->resize(820, window->height()); // with room the field has its width again
    const auto* field = bar->findChild<QLineEdit*>();
    QTRY_VERIFY(field->width() >= 24 * field->fontMetrics().averageCharWidth());
    QVERIFY(bar->parentWidget()->rect().contains(bar->geometry()));
}

WEB_TEST_MAIN(TestNarrow)
#include "tst_narrow.moc"
