// SPDX-License-Identifier: GPL-3.0-or-later

#include "Windows.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QTest>

using namespace brindlemark;

// Takes a picture of each window, on a real display, into the folder that GALLERY names.

class Gallery : public QObject
{
    Q_OBJECT

private slots:
    void pictures_data();
    void pictures();

private:
    PictureHost m_pictures;
};

void Gallery::pictures_data()
{
    addViews();
}

/// The window as the screen shows it once it stands still, or goes.
QPixmap settledPicture(const QPointer<QWidget>& window)
{
    QImage last;
    for (int round = 0; round < 10; ++round) {
        QTest::qWait(250);
        if (!window)
            break;
        const QPixmap picture = window->screen()->grabWindow(window->winId());
        if (picture.toImage() == last)
            break;
        last = picture.toImage();
    }
    return QPixmap::fromImage(last);
}

void Gallery::pictures()
{
    const WindowView& view = fetchedView();
    const QString folder = qEnvironmentVariable("GALLERY");
    QVERIFY(!folder.isEmpty() && QDir().mkpath(folder));
    MainWindow main;
    QWidget* window = openView(view, main);
    QVERIFY(settledPicture(window).save(QDir(folder).filePath(QString::fromLatin1(view.name) + ".png")));
}

int main(int argc, char** argv)
{
    prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0); // pictures stand still
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    takeDesktopLook();
    Gallery gallery;
    return QTest::qExec(&gallery, argc, argv);
}

#include "gallery.moc"
