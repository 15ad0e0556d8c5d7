// SPDX-License-Identifier: GPL-3.0-or-later

#include "MainWindow.h"
#include "Widgets.h"
#include "forms/AddressField.h"
#include "shell/FrmPicture.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

namespace {

struct Desk
{
    ScriptedDoors doors;
    QTemporaryDir folder;
    QLineEdit field{QStringLiteral("http://")};

    ~Desk() { unloadAll(); }

    /// A picture file.
    QString picture(const QString& name, QSize size) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::blue);
        image.save(folder.filePath(name));
        return folder.filePath(name);
    }
    FrmPicture* browse(const QString& path)
    {
        doors.answerOpen(path);
        FrmPicture::chooseFor(&field);
        return loaded<FrmPicture>();
    }
};

} // namespace

class TestFrmPicture : public QObject
{
    Q_OBJECT

private slots:
    void showsThePicture();
    void addressGoesIntoTheField();
    void smallerCopy();
    void cancelledDialog();
    void noPicture();
    void anotherPicture();
    void fieldThatIsGone();
    void pastedAddress_data();
    void pastedAddress();
    void typedAddress();
};

void TestFrmPicture::showsThePicture()
{
    Desk desk;
    const FrmPicture* window = desk.browse(desk.picture("lamp.png", {1800, 900}));
    QVERIFY(window && window->isVisible());
    const QString weight = QLocale().formattedDataSize(QFileInfo(desk.folder.filePath("lamp.png")).size());
    QCOMPARE(window->Facts->text(), "lamp.png: 1,800 x 900 pixels, " + weight);
    const QSize shown = window->Thumbnail->pixmap(Qt::ReturnByValue).size();
    QCOMPARE(shown, QSize(320, 160));
    QCOMPARE(desk.field.text(), "http://"); // until it is wanted
    QVERIFY(window->Advice->text().startsWith("Buyers see a picture only from a web address"));
}

void TestFrmPicture::addressGoesIntoTheField()
{
    Desk desk;
    FrmPicture* window = desk.browse(desk.picture("my lamp.png", {20, 10}));
    const QSignalSpy taken(window, &FrmPicture::taken);
    QTest::keyClick(window->Use, Qt::Key_Return);
    QCOMPARE(desk.field.text(), "file://" + desk.folder.path() + "/my%20lamp.png");
    QCOMPARE(taken.size(), 1);
    QVERIFY(!isLoaded<FrmPicture>());
}

void TestFrmPicture::smallerCopy()
{
    Desk desk;
    const FrmPicture* window = desk.browse(desk.picture("lamp.png", {3200, 1600}));
    click(window->Smaller);
    QVERIFY(QFile::exists(desk.folder.filePath("lamp-web.jpg")));
    QVERIFY2(
        window->Facts->text().startsWith("The copy, beside the picture: lamp-web.jpg: 1,600 x 800 pixels, "),
        qPrintable(window->Facts->text()));
    QVERIFY(!window->Smaller->isEnabled()); // no copy of the copy
    QCOMPARE(window->focusWidget(), window->Use);
    QTest::keyClick(window->Use, Qt::Key_Return);
    QVERIFY(desk.field.text().endsWith("/lamp-web.jpg"));
}

void TestFrmPicture::cancelledDialog()
{
    Desk desk;
    desk.doors.cancelOpen();
    FrmPicture::chooseFor(&desk.field);
    QVERIFY(!isLoaded<FrmPicture>());
    QCOMPARE(desk.field.text(), "http://");
}

void TestFrmPicture::noPicture()
{
    Desk desk;
    QFile file(desk.folder.filePath("text.jpg"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    desk.doors.answerOpen(file.fileName());
    desk.doors.answerMsgBox(MsgAnswer::Ok);
    FrmPicture::chooseFor(&desk.field);
    QVERIFY(desk.doors.asked.last().contains("text.jpg is no picture that can be read."));
    QVERIFY(!isLoaded<FrmPicture>());
}

void TestFrmPicture::anotherPicture()
{
    Desk desk;
    const FrmPicture* window = desk.browse(desk.picture("one.png", {20, 10}));
    desk.doors.cancelOpen();
    click(window->Another);
    QVERIFY(window->Facts->text().startsWith("one.png")); // as before
    desk.doors.answerOpen(desk.picture("two.png", {30, 10}));
    click(window->Another);
    QVERIFY(window->Facts->text().startsWith("two.png: 30 x 10 pixels"));
}

/// The window that wanted a picture was closed meanwhile.
void TestFrmPicture::fieldThatIsGone()
{
    Desk desk;
    auto field = std::make_unique<QLineEdit>();
    desk.doors.answerOpen(desk.picture("lamp.png", {20, 10}));
    FrmPicture::chooseFor(field.get());
    field.reset();
    click(form<FrmPicture>()->Use);
    QVERIFY(!isLoaded<FrmPicture>());
}

void TestFrmPicture::pastedAddress_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("after");
    QTest::newRow("behind") << "http://" << 7 << "https://p.example/1.jpg"
                            << "https://p.example/1.jpg";
    QTest::newRow("in front") << "http://" << 0 << "https://p.example/1.jpg"
                              << "https://p.example/1.jpg";
    QTest::newRow("the same scheme") << "http://" << 7 << "http://p.example/1.jpg"
                                     << "http://p.example/1.jpg";
    QTest::newRow("no scheme") << "http://" << 7 << "httpd.example/1.jpg"
                               << "http://httpd.example/1.jpg";
    QTest::newRow("no whole address") << "http://" << 7 << "p.example/1.jpg"
                                      << "http://p.example/1.jpg";
    QTest::newRow("more is there") << "http://a/" << 9 << "https://b/"
                                   << "http://a/https://b/";
    QTest::newRow("empty") << "" << 0 << "https://b/"
                           << "https://b/";
}

void TestFrmPicture::pastedAddress()
{
    QFETCH(QString, before);
    QFETCH(int, caret);
    QFETCH(QString, pasted);
    QFETCH(QString, after);
    QLineEdit field(before);
    takeWholeAddress(&field);
    field.setCursorPosition(caret);
    QApplication::clipboard()->setText(pasted);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(field.text(), after);
    if (before == "http://" && pasted.startsWith("http"))
        QCOMPARE(field.cursorPosition(), int(after.size()));
    while (field.isUndoAvailable())
        QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.text(), before);
}

void TestFrmPicture::typedAddress()
{
    QLineEdit field("http://");
    takeWholeAddress(&field);
    QTest::keyClicks(&field, "https:/");
    QCOMPARE(field.text(), "http://https:/");
    QTest::keyClick(&field, '/');
    QCOMPARE(field.text(), "https://");
    QTest::keyClicks(&field, "p.example/");
    QCOMPARE(field.text(), "https://p.example/");

    // Undo brings back what was typed, and it stays.
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(field.text(), "http://https://");
    QTest::keyClick(&field, Qt::Key_End);
    QTest::keyClicks(&field, "q.example/");
    QCOMPARE(field.text(), "http://https://q.example/");

    // What is no scheme is part of the address.
    field.setText("http://");
    QTest::keyClicks(&field, "p.example/https://q.example/");
    QCOMPARE(field.text(), "http://p.example/https://q.example/");

    // The cursor stays with the letters beside it.
    field.setText("http://https:p.example/");
    field.setCursorPosition(13);
    QTest::keyClicks(&field, "//");
    QCOMPARE(field.text(), "https://p.example/");
    QCOMPARE(field.cursorPosition(), 8);
}

QTEST_MAIN(TestFrmPicture)
#include "tst_frmpicture.moc"
