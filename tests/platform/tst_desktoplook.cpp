// SPDX-License-Identifier: GPL-3.0-or-later

#include "MeasuredContrast.h"
#include "Widgets.h"
#include "platform/DesktopLook.h"
#include "platform/Doors.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QHash>
#include <QIcon>
#include <QImage>
#include <QMessageBox>
#include <QRadioButton>
#include <QScopeGuard>
#include <QStyleOptionButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

using namespace brindlemark;

// What the program draws in place of the desktop: the symbols of message boxes, ticks and dots. Runs at the
// scales of 100 and of 200 % (QT_SCALE_FACTOR).

namespace {

QPalette darkDesktop()
{
    QPalette dark(QColor(0x35, 0x35, 0x35), QColor(0x2B, 0x2B, 0x2B));
    dark.setColor(QPalette::Base, QColor(0x1E, 0x1E, 0x1E));
    return dark;
}

struct SeenBox
{
    QMessageBox::Icon kind = QMessageBox::NoIcon;
    QPixmap symbol;
};

/// What a message box is and shows beside its words.
SeenBox seenBox(MsgIcon icon)
{
    SeenBox seen;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box || !box->isVisible())
            return;
        look.stop();
        seen = {box->icon(), box->iconPixmap()};
        box->accept();
    });
    look.start(10);
    MsgBox(QStringLiteral("There is something to say."), QStringLiteral("Brindlemark"), icon);
    return seen;
}

/// The colour of which most of a picture is; what can be seen through doesn't count.
QColor mostCommon(const QImage& picture)
{
    QHash<QRgb, int> counts;
    QRgb most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (qAlpha(pixel) == 255 && ++counts[pixel] > counts.value(most))
                most = pixel;
        }
    }
    return QColor::fromRgb(most);
}

/// How many pixels a symbol covers in part: those of its edge.
int blurred(const QImage& picture)
{
    int pixels = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int alpha = qAlpha(picture.pixel(x, y));
            pixels += alpha > 0 && alpha < 255 ? 1 : 0;
        }
    }
    return pixels;
}

/// The box or circle of a button, without its words.
QImage indicatorOf(QAbstractButton& button, QStyle::SubElement which)
{
    QStyleOptionButton look;
    look.initFrom(&button);
    const QRect place = button.style()->subElementRect(which, &look, &button);
    const QImage picture = button.window()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const qreal ratio = picture.devicePixelRatio();
    const QPoint corner = button.mapTo(button.window(), place.topLeft());
    return picture.copy(QRect(corner * ratio, place.size() * ratio));
}

/// The best contrast with a colour that any pixel has which lies `from` to `to` off the middle, in parts of
/// the way to the edge.
double bestContrast(const QImage& picture, const QColor& with, double from, double to)
{
    double best = 1;
    const QPointF middle((picture.width() - 1) / 2.0, (picture.height() - 1) / 2.0);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double off = qMax(qAbs(x - middle.x()) / middle.x(), qAbs(y - middle.y()) / middle.y());
            if (off >= from && off <= to)
                best = qMax(best, measuredContrast(picture.pixelColor(x, y), with));
        }
    }
    return best;
}

} // namespace

class TestDesktopLook : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void symbols_data();
    void symbols();
    void symbolsGrowWithTheLetters();
    void plainBoxHasNone();
    void ticks_data();
    void ticks();
};

void TestDesktopLook::initTestCase()
{
    followDesktopLook();
}

void TestDesktopLook::symbols_data()
{
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("standard");
    QTest::addColumn<QColor>("color");
    const auto row = [](const char* name, MsgIcon icon, QMessageBox::Icon kind,
                        QStyle::StandardPixmap standard, QRgb color) {
        QTest::newRow(name) << int(icon) << int(kind) << int(standard) << QColor(color);
    };
    row("information", MsgIcon::Information, QMessageBox::Information, QStyle::SP_MessageBoxInformation,
        0x2A7BC8);
    row("question", MsgIcon::Question, QMessageBox::Question, QStyle::SP_MessageBoxQuestion, 0x8E61D4);
    row("warning", MsgIcon::Exclamation, QMessageBox::Warning, QStyle::SP_MessageBoxWarning, 0xF5B82E);
    row("critical", MsgIcon::Stop, QMessageBox::Critical, QStyle::SP_MessageBoxCritical, 0xD83A45);
}

void TestDesktopLook::symbols()
{
    QFETCH(int, icon);
    QFETCH(int, kind);
    QFETCH(int, standard);
    QFETCH(QColor, color);
    const SeenBox seen = seenBox(MsgIcon(icon));
    QCOMPARE(int(seen.kind), kind); // it is what screen readers are told
    QCOMPARE(mostCommon(seen.symbol.toImage()).name(), color.name());

    const qreal ratio = qApp->devicePixelRatio();
    QCOMPARE(seen.symbol.devicePixelRatio(), ratio);
    QVERIFY2(seen.symbol.width() >= 48 * ratio, qPrintable(QString::number(seen.symbol.width())));
    QCOMPARE(seen.symbol.height(), seen.symbol.width());

    // Twice as large it has an edge twice as long, which is no thicker: enlarged, it would be four times as
    // much.
    const QIcon symbol = QApplication::style()->standardIcon(QStyle::StandardPixmap(standard));
    const QImage small = symbol.pixmap(QSize(48, 48), 1).toImage();
    const QImage large = symbol.pixmap(QSize(48, 48), 2).toImage();
    QCOMPARE(small.size(), QSize(48, 48));
    QCOMPARE(large.size(), QSize(96, 96));
    QVERIFY(blurred(small) > 0);
    QVERIFY2(blurred(large) < 3 * blurred(small),
             qPrintable(QStringLiteral("%1 and %2").arg(blurred(small)).arg(blurred(large))));
}

void TestDesktopLook::symbolsGrowWithTheLetters()
{
    const QFont former = QApplication::font();
    const auto restore = qScopeGuard([&] { QApplication::setFont(former); });
    QFont large = former;
    large.setPixelSize(60);
    QApplication::setFont(large);
    const QPixmap symbol = seenBox(MsgIcon::Question).symbol;
    QVERIFY2(symbol.width() >= 150 * qApp->devicePixelRatio(), qPrintable(QString::number(symbol.width())));
}

void TestDesktopLook::plainBoxHasNone()
{
    const SeenBox seen = seenBox(MsgIcon::None);
    QCOMPARE(seen.kind, QMessageBox::NoIcon);
    QVERIFY(seen.symbol.isNull());
}

void TestDesktopLook::ticks_data()
{
    QTest::addColumn<bool>("round");
    QTest::addColumn<bool>("dark");
    for (const bool round : {false, true}) {
        for (const bool dark : {false, true}) {
            QTest::addRow("%s on a %s desktop", round ? "circle" : "box", dark ? "dark" : "light")
                << round << dark;
        }
    }
}

void TestDesktopLook::ticks()
{
    QFETCH(bool, round);
    QFETCH(bool, dark);
    const QPalette former = QApplication::palette();
    const auto restore = qScopeGuard([&] { QApplication::setPalette(former); });
    if (dark)
        QApplication::setPalette(darkDesktop());

    QWidget window;
    QVBoxLayout layout(&window);
    QAbstractButton* button = nullptr;
    if (round) {
        button = new QRadioButton(QStringLiteral("Buyer pays"));
    } else {
        button = new QCheckBox(QStringLiteral("Buyer pays"));
    }
    button->setFocusPolicy(Qt::NoFocus);
    layout.addWidget(button);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto which = round ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;

    const QColor ground = window.palette().color(QPalette::Window);
    QCOMPARE(ground.lightness() < 128, dark);
    const QImage clear = indicatorOf(*button, which);
    const QColor box = clear.pixelColor(clear.width() / 2, clear.height() / 2);
    const double edge = bestContrast(clear, ground, 0.8, 1);
    QVERIFY2(edge >= 3, qPrintable(QString::number(edge)));
    const double nothing = bestContrast(clear, box, 0, 0.5);
    QVERIFY2(nothing < 1.1, qPrintable(QString::number(nothing)));

    button->setChecked(true);
    const QImage ticked = indicatorOf(*button, which);
    const double mark = bestContrast(ticked, box, 0, 0.5);
    QVERIFY2(mark >= 4.5, qPrintable(QString::number(mark)));
    const double edgeOfTicked = bestContrast(ticked, ground, 0.8, 1);
    QVERIFY2(edgeOfTicked >= 3, qPrintable(QString::number(edgeOfTicked)));

    // Disabled, it is fainter, but still tells which it is.
    button->setEnabled(false);
    const QImage faint = indicatorOf(*button, which);
    const QColor faintBox = faint.pixelColor(faint.width() / 4, faint.height() / 4);
    const double faintMark = bestContrast(faint, faintBox, 0, 0.5);
    QVERIFY2(faintMark >= 1.5, qPrintable(QString::number(faintMark)));
    QVERIFY2(faintMark < mark, qPrintable(QString::number(faintMark)));
}

QTEST_MAIN(TestDesktopLook)
#include "tst_desktoplook.moc"
