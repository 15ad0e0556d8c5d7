// SPDX-License-Identifier: GPL-3.0-or-later

#include "Widgets.h"
#include "platform/Doors.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <functional>

using namespace brindlemark;

// The desktop's own file dialogs behind `CommonDialog`, used with keys.

namespace {

const QString Filter =
    QStringLiteral("HTML Files (*.htm)|*.htm|Text files (*.txt)|*.txt|All files (*.*)|*.*");

/// What a hand does in a dialog that is up.
using Hand = std::function<void(QFileDialog& dialog, QLineEdit& name)>;

/// Opens a dialog over `folder`, lets the hand use it, and cancels it if it is still there afterwards.
/// Returns the path that was taken; empty when none was. `told` gets what message boxes have said meanwhile.
QString taken(bool (CommonDialog::*show)(), const QString& folder, const QString& proposal, const Hand& hand,
              QString* told = nullptr)
{
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Files");
    dialog.FileName = proposal;
    dialog.Filter = Filter;
    bool used = false;
    QString unexpected;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* up = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (used || !up || QApplication::activeWindow() != up)
            return;
        used = true;
        look.stop();
        auto* name = up->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        up->setDirectory(folder);
        const auto* list = up->findChild<QListView*>(QStringLiteral("listView"));
        if (!QTest::qWaitFor([&] { return list->model()->rowCount(list->rootIndex()) > 0; }, Patience))
            QTest::qFail("the folder does not show", __FILE__, __LINE__);
        hand(*up, *name);
        if (up->isVisible())
            up->reject();
    });
    look.start(10);
    QTimer boxes; // of its own: the other one's handler waits for the hand
    QObject::connect(&boxes, &QTimer::timeout, &boxes, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            (told ? *told : unexpected) += box->text();
            box->accept();
        }
    });
    boxes.start(10);
    const bool took = (dialog.*show)();
    if (!used)
        QTest::qFail("no dialog came up", __FILE__, __LINE__);
    if (!unexpected.isEmpty())
        QTest::qFail(qPrintable(unexpected), __FILE__, __LINE__);
    return took ? dialog.FileName : QString();
}

/// Types into the field and presses Enter.
void type(QLineEdit& name, const QString& text)
{
    QTest::keyClicks(&name, text);
    QCOMPARE(name.text(), text); // what was proposed is gone
    QTest::keyClick(&name, Qt::Key_Return);
}

QPushButton* taker(const QFileDialog& dialog)
{
    const auto* buttons = dialog.findChild<QDialogButtonBox*>();
    return buttons->button(dialog.acceptMode() == QFileDialog::AcceptOpen ? QDialogButtonBox::Open
                                                                          : QDialogButtonBox::Save);
}

} // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void openShowsThePattern();
    void openTakesTheNameAsTyped_data();
    void openTakesTheNameAsTyped();
    void openByTheButton();
    void openLooksIntoAFolder();
    void openFollowsTheFilter();
    void openRefusesWhatIsNotThere();
    void patternIsNoName_data();
    void patternIsNoName();
    void saveAddsTheSuffix_data();
    void saveAddsTheSuffix();
    void saveAfterAWalk();
    void saveProposesTheName();
    void escapeIsLater();
    void printsIntoAFileWithoutAPrinter();
    void previewGoesWithItsPaint();
    void previewsBarIsLight();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::optional<QTemporaryDir> m_folder;
};

void TestDialogs::init()
{
    m_folder.emplace();
    for (const char* name : {"README", "page.htm", "both", "both.htm", "list.txt"}) {
        QFile file(path(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("pages")));
}

void TestDialogs::openShowsThePattern()
{
    taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
          [](const QFileDialog&, const QLineEdit& name) {
              QCOMPARE(name.text(), QStringLiteral("*.htm"));
              QVERIFY(name.hasFocus());
          });
}

void TestDialogs::openTakesTheNameAsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::newRow("no suffix") << QStringLiteral("README") << QStringLiteral("README");
    QTest::newRow("suffix left out") << QStringLiteral("page") << QStringLiteral("page.htm");
    QTest::newRow("with its suffix") << QStringLiteral("page.htm") << QStringLiteral("page.htm");
    QTest::newRow("either") << QStringLiteral("both") << QStringLiteral("both");
    QTest::newRow("of another filter") << QStringLiteral("list.txt") << QStringLiteral("list.txt");
    QTest::newRow("by way of its folder") << QStringLiteral("pages/../README") << QStringLiteral("README");
}

void TestDialogs::openTakesTheNameAsTyped()
{
    QFETCH(QString, typed);
    QFETCH(QString, file);
    const QString got = taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
                              [&](const QFileDialog&, QLineEdit& name) { type(name, typed); });
    QCOMPARE(got, path(file));
}

void TestDialogs::openByTheButton()
{
    const QString got = taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
                              [](const QFileDialog& dialog, QLineEdit& name) {
                                  QTest::keyClicks(&name, QStringLiteral("README"));
                                  click(taker(dialog));
                              });
    QCOMPARE(got, path(QStringLiteral("README")));
}

void TestDialogs::openLooksIntoAFolder()
{
    QString folder;
    const QString got = taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
                              [&](const QFileDialog& dialog, QLineEdit& name) {
                                  type(name, QStringLiteral("pages"));
                                  folder = dialog.directory().path();
                              });
    QCOMPARE(got, QString());
    QCOMPARE(folder, path(QStringLiteral("pages")));
}

void TestDialogs::openFollowsTheFilter()
{
    const QString got = taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
                              [](const QFileDialog& dialog, QLineEdit& name) {
                                  auto* filters =
                                      dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
                                  filters->setFocus();
                                  QTest::keyClick(filters, Qt::Key_Down); // text files
                                  name.setFocus();
                                  name.selectAll();
                                  type(name, QStringLiteral("list"));
                              });
    QCOMPARE(got, path(QStringLiteral("list.txt")));
}

void TestDialogs::openRefusesWhatIsNotThere()
{
    QString told;
    const QString got = taken(
        &CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
        [](const QFileDialog&, QLineEdit& name) { type(name, QStringLiteral("none")); }, &told);
    QCOMPARE(got, QString());
    QVERIFY2(told.contains(QStringLiteral("none.htm")), qPrintable(told));
}

void TestDialogs::patternIsNoName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("filter");
    const QString html = QStringLiteral("HTML Files (*.htm)");
    QTest::newRow("as it is proposed") << QString() << html;
    QTest::newRow("of another filter") << QStringLiteral("*.TXT") << QStringLiteral("Text files (*.txt)");
    QTest::newRow("of none") << QStringLiteral("*.shtml") << html;
}

/// Enter on a pattern chooses its filter and asks nothing; the next letter types a name.
void TestDialogs::patternIsNoName()
{
    QFETCH(QString, typed);
    QFETCH(QString, filter);
    const QString got = taken(&CommonDialog::ShowOpen, m_folder->path(), QStringLiteral("*.htm"),
                              [&](const QFileDialog& dialog, QLineEdit& name) {
                                  if (typed.isEmpty()) {
                                      QTest::keyClick(&name, Qt::Key_Return);
                                  } else {
                                      type(name, typed);
                                  }
                                  QVERIFY(dialog.isVisible());
                                  QCOMPARE(dialog.selectedNameFilter(), filter);
                                  type(name, QStringLiteral("README"));
                              });
    QCOMPARE(got, path(QStringLiteral("README")));
}

void TestDialogs::saveAddsTheSuffix_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("file");
    QTest::newRow("new") << QStringLiteral("lamp") << QStringLiteral("lamp.htm");
    QTest::newRow("new, with a suffix") << QStringLiteral("lamp.html") << QStringLiteral("lamp.html");
    QTest::newRow("there without one") << QStringLiteral("README") << QStringLiteral("README");
    QTest::newRow("there with one") << QStringLiteral("page") << QStringLiteral("page.htm");
    QTest::newRow("beside a folder") << QStringLiteral("pages") << QStringLiteral("pages.htm");
}

void TestDialogs::saveAddsTheSuffix()
{
    QFETCH(QString, typed);
    QFETCH(QString, file);
    const QString got = taken(&CommonDialog::ShowSave, m_folder->path(), QString(),
                              [&](const QFileDialog&, QLineEdit& name) { type(name, typed); });
    QCOMPARE(got, path(file));
}

/// What there is in the folder counts that is shown at last.
void TestDialogs::saveAfterAWalk()
{
    QFile file(path(QStringLiteral("pages/lamp")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QString got = taken(&CommonDialog::ShowSave, m_folder->path(), QString(),
                              [&](QFileDialog& dialog, QLineEdit& name) {
                                  QTest::keyClicks(&name, QStringLiteral("lamp"));
                                  dialog.setDirectory(path(QStringLiteral("pages")));
                                  QTest::keyClick(&name, Qt::Key_Return);
                              });
    QCOMPARE(got, path(QStringLiteral("pages/lamp")));
}

/// A document without a suffix stays without one.
void TestDialogs::saveProposesTheName()
{
    const QString got = taken(&CommonDialog::ShowSave, m_folder->path(), QStringLiteral("README"),
                              [&](const QFileDialog& dialog, QLineEdit& name) {
                                  QCOMPARE(name.text(), QStringLiteral("README"));
                                  click(taker(dialog));
                              });
    QCOMPARE(got, path(QStringLiteral("README")));
}

/// Whoever waves a question away has said neither Yes nor No.
void TestDialogs::escapeIsLater()
{
    for (const auto& row : {std::pair(Qt::Key_Escape, MsgAnswer::Cancel),
                            {Qt::Key_N, MsgAnswer::No},
                            {Qt::Key_L, MsgAnswer::Cancel},
                            {Qt::Key_Return, MsgAnswer::Yes}}) {
        const Qt::Key key = row.first;
        QStringList buttons;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box || !box->isActiveWindow())
                return;
            look.stop();
            for (const QAbstractButton* button : box->buttons())
                buttons << button->text();
            const bool letter = key == Qt::Key_N || key == Qt::Key_L;
            QTest::keyClick(box->windowHandle(), key, letter ? Qt::AltModifier : Qt::NoModifier);
        });
        look.start(10);
        QCOMPARE(MsgBox("Do you want it back?", "Brindlemark", MsgIcon::Question, MsgButtons::YesNoLater),
                 row.second);
        buttons.sort(); // their order is the desktop's
        QCOMPARE(buttons, (QStringList{"&Later", "&No", "&Yes"}));
    }
}

void TestDialogs::printsIntoAFileWithoutAPrinter()
{
    QPrinter printer(QPrinter::HighResolution);
    if (printer.outputFormat() != QPrinter::PdfFormat)
        QSKIP("there is a printer");
    printer.setDocName(QStringLiteral("lamp"));
    QString proposed;
    const auto show = [&](const std::function<void(QPrintDialog&, QLineEdit&)>& hand) {
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, &look, [&] {
            auto* up = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
            auto* name = up ? up->findChild<QLineEdit*>(QStringLiteral("filename")) : nullptr;
            if (!name || QApplication::activeWindow() != up)
                return;
            look.stop();
            proposed = name->text();
            hand(*up, *name);
        });
        look.start(10);
        return doors().printDialog(printer, Doors::PageChoice::AllPages);
    };
    QVERIFY(!show([](QPrintDialog& up, QLineEdit&) { QTest::keyClick(&up, Qt::Key_Escape); }));
    QVERIFY2(proposed.endsWith(QStringLiteral("/lamp.pdf")), qPrintable(proposed));
    QVERIFY(show([&](QPrintDialog& up, QLineEdit& name) {
        overtype(&name, path(QStringLiteral("lamp.pdf")));
        up.accept();
    }));
    QCOMPARE(printer.outputFileName(), path(QStringLiteral("lamp.pdf")));
}

/// Looks at the preview once it is up, and closes it.
static void inPreview(QPrinter& printer, const std::function<bool()>& paint,
                      const std::function<void(QPrintPreviewDialog&)>& see)
{
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* up = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        if (!up || QApplication::activeWindow() != up)
            return;
        look.stop();
        see(*up);
        up->reject();
    });
    look.start(10);
    doors().printPreview(printer, paint);
}

/// It comes up and stays; it goes when the paint says that it could not.
void TestDialogs::previewGoesWithItsPaint()
{
    QPrinter printer(QPrinter::HighResolution);
    int paints = 0;
    doors().printPreview(printer, [&] { // returns by itself
        ++paints;
        return false;
    });
    QCOMPARE(paints, 1);
    bool wasUp = false;
    const auto paint = [&] {
        ++paints;
        return true;
    };
    inPreview(printer, paint, [&](QPrintPreviewDialog&) { wasUp = true; });
    QVERIFY(wasUp);
    QCOMPARE(paints, 2);
}

/// Where the desktop is dark too: the symbols of the dialog are drawn for a light bar.
void TestDialogs::previewsBarIsLight()
{
    const auto light =
        qScopeGuard([desktop = QApplication::palette()] { QApplication::setPalette(desktop); });
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30)));
    QPrinter printer(QPrinter::HighResolution);
    QColor behindASymbol;
    const auto paint = [] { return true; };
    inPreview(printer, paint, [&](QPrintPreviewDialog& up) {
        const auto* bar = up.findChild<QToolBar*>();
        const QWidget* symbol = bar->widgetForAction(bar->actions().constFirst());
        behindASymbol = up.grab().toImage().pixelColor(symbol->mapTo(&up, QPoint(2, symbol->height() / 2)));
    });
    QVERIFY2(behindASymbol.lightness() > 200, qPrintable(behindASymbol.name()));
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"
