// SPDX-License-Identifier: GPL-3.0-or-later

#include "WebTestMain.h"
#include "Windows.h"
#include "forms/ComboBox.h"
#include "platform/Doors.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace brindlemark;

// What is typed or pasted into a field stays whole, however long it is: half a text is another text.

class TestFields : public QObject
{
    Q_OBJECT

private slots:
    void fieldsTakeAll_data();
    void fieldsTakeAll();
    void inputBoxTakesAll();
    void longEntriesWidenNothing_data();
    void longEntriesWidenNothing();
    void longFontNameWidensNothing();
};

namespace {

/// Longer than what a field of the toolkit takes unasked.
QString longText()
{
    return QString(40'000, u'x');
}

} // namespace

void TestFields::fieldsTakeAll_data()
{
    addViews();
}

void TestFields::fieldsTakeAll()
{
    MainWindow main;
    const QWidget* window = openView(fetchedView(), main);
    QStringList cut;
    for (auto* field : window->findChildren<QLineEdit*>()) {
        if (field->isReadOnly())
            continue;
        field->selectAll();
        field->insert(longText()); // as a paste does
        if (field->text() != longText())
            cut << QStringLiteral("%1 of %2").arg(field->objectName(), field->parent()->objectName());
    }
    QVERIFY2(cut.isEmpty(), qPrintable(cut.join(u'\n')));
}

/// The real dialog: its initial text comes back whole.
void TestFields::inputBoxTakesAll()
{
    QTimer::singleShot(0, qApp, [] {
        auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    QCOMPARE(InputBox(QStringLiteral("Enter the title."), QStringLiteral("Save Title"), longText()),
             longText());
}

/// What a list remembers comes back when its window opens again.
void TestFields::longEntriesWidenNothing_data()
{
    QTest::addColumn<QString>("view");
    QTest::addColumn<QString>("list");
    QTest::newRow("title") << "special-list"
                           << "TxtTitle";
    QTest::newRow("set of a table") << "table"
                                    << "Combo1";
    QTest::newRow("found text") << "find"
                                << "Text1";
    QTest::newRow("replacement") << "find"
                                 << "Text2";
    QTest::newRow("colour set") << "wizard-page-2"
                                << "Combo4";
}

void TestFields::longEntriesWidenNothing()
{
    QFETCH(QString, view);
    QFETCH(QString, list);
    MainWindow main;
    const QWidget* window = openView(viewOf(view), main);
    auto* box = window->findChild<ComboBox*>(list);
    QVERIFY(box);
    const auto widths = [&] {
        return std::pair(window->sizeHint().width(), window->minimumSizeHint().width());
    };
    const auto before = widths();
    box->AddItem(longText());
    QEvent measured(QEvent::FontChange); // as when it is first shown
    QCoreApplication::sendEvent(box, &measured);
    QCoreApplication::processEvents();
    QCOMPARE(widths(), before);
}

/// The notice of a missing font names it, but not all of a name without end.
void TestFields::longFontNameWidensNothing()
{
    MainWindow main;
    const QWidget* window = openView(viewOf(QStringLiteral("fonts")), main);
    window->findChild<ComboBox*>(QStringLiteral("Combo1"))->setText(QString(300, u'W'));
    const auto* notice = window->findChild<QLabel*>(QStringLiteral("Notice"));
    QTRY_VERIFY(notice->isVisible());
    QVERIFY2(notice->text().contains(QString(40, u'W')), qPrintable(notice->text()));
    QVERIFY2(window->minimumSizeHint().width() < 1366,
             qPrintable(QString::number(window->minimumSizeHint().width())));
}

WEB_TEST_MAIN(TestFields)
#include "tst_fields.moc"
