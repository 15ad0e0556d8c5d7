// SPDX-License-Identifier: GPL-3.0-or-later

#include "Controls.h"
#include "MeasuredContrast.h"
#include "Windows.h"
#include "web/WebEngine.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QTest>

using namespace brindlemark;

// What must hold of each window in each look of the desktop (see `takeDesktopLook`; QT_SCALE_FACTOR is the
// scale): it fits a small screen, no text is cut off, nothing lies on something else, and text can be read.

namespace {

/// Logical pixels of the smallest screen, without the frame that a window gets there.
constexpr QSize SmallScreen(1366 - 4, 768 - 32);
/// The least ratio of lightness between a text, or a symbol, and what is behind it.
constexpr double TextContrast = 4.5;
constexpr double SymbolContrast = 3;

/// The search bar and notices lie on the page, and a box that switches a frame on its caption.
bool meantToOverlap(const QWidget* over, const QWidget* under)
{
    if (over->inherits("brindlemark::FindBar"))
        return under->inherits("brindlemark::WebControl");
    if (over->inherits("brindlemark::NoticeBar"))
        return true;
    if (over->inherits("brindlemark::StatusLine")) // the room below the views is the tabs' too
        return under->inherits("brindlemark::SSTab");
    const auto* frame = qobject_cast<const QGroupBox*>(under);
    return frame && over->inherits("QCheckBox") && frame->title().startsWith(u' ');
}

/// The contrast of a symbol's best seen pixel, 21 where there is no symbol.
double contrastOfIcon(const QAbstractButton& button)
{
    if (button.icon().isNull())
        return 21;
    const QImage symbol = button.icon().pixmap(button.iconSize()).toImage();
    double best = 1;
    for (int y = 0; y < symbol.height(); ++y) {
        for (int x = 0; x < symbol.width(); ++x) {
            const QColor pixel = symbol.pixelColor(x, y);
            if (pixel.alpha() >= 100) // thin lines fill no pixel
                best = qMax(best, measuredContrast(pixel, button.palette().color(QPalette::Button)));
        }
    }
    return best;
}

/// The lowest contrast of a control's words, 21 where there are none.
double contrastOf(const QWidget* widget)
{
    const QPalette palette = widget->palette();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget); button && button->text().isEmpty())
        return contrastOfIcon(*button);
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
        const QColor base = palette.color(QPalette::Base);
        QColor hint = palette.color(QPalette::PlaceholderText);
        hint = QColor::fromRgbF(hint.redF() * hint.alphaF() + base.redF() * (1 - hint.alphaF()),
                                hint.greenF() * hint.alphaF() + base.greenF() * (1 - hint.alphaF()),
                                hint.blueF() * hint.alphaF() + base.blueF() * (1 - hint.alphaF()));
        const double ofHint = line->placeholderText().isEmpty() ? 21 : measuredContrast(hint, base);
        return qMin(ofHint, measuredContrast(palette.color(QPalette::Text), base));
    }
    if (widget->inherits("QAbstractItemView") || widget->inherits("QPlainTextEdit"))
        return measuredContrast(palette.color(QPalette::Text), palette.color(QPalette::Base));
    if (widget->inherits("QPushButton") || widget->inherits("QToolButton") || widget->inherits("QComboBox"))
        return measuredContrast(palette.color(QPalette::ButtonText), palette.color(QPalette::Button));
    if (!wordsOf(widget).isEmpty())
        return measuredContrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window));
    return 21;
}

/// The lowest contrast of what is selected in a control, whatever state it and its window are in; 21 where
/// nothing can be.
double contrastOfSelection(const QWidget* widget)
{
    const bool selects = qobject_cast<const QLineEdit*>(widget) || qobject_cast<const QComboBox*>(widget) ||
                         widget->inherits("QAbstractItemView") || widget->inherits("QPlainTextEdit");
    double least = 21;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        if (selects) {
            least = qMin(least, measuredContrast(widget->palette().color(group, QPalette::HighlightedText),
                                                 widget->palette().color(group, QPalette::Highlight)));
        }
    }
    return least;
}

} // namespace

class TestLooks : public QObject
{
    Q_OBJECT

private slots:
    void windows_data();
    void windows();

private:
    PictureHost m_pictures;
};

void TestLooks::windows_data()
{
    addViews();
}

void TestLooks::windows()
{
    MainWindow main;
    QWidget* window = openView(fetchedView(), main);

    QStringList faults;
    const QSize size = window->size();
    if (size.width() > SmallScreen.width() || size.height() > SmallScreen.height())
        faults << QStringLiteral("%1 x %2 is more than a small screen").arg(size.width()).arg(size.height());
    const QList<QWidget*> controls = seenControls(window);
    for (QWidget* control : controls) {
        if (const int missing = missingWidth(control); missing > 0) {
            faults << QStringLiteral("%1 \"%2\" lacks %3 pixels")
                          .arg(describe(control), wordsOf(control))
                          .arg(missing);
        }
        if (!control->parentWidget()->rect().contains(control->geometry()))
            faults << describe(control) + QStringLiteral(" leaves its frame");
        if (control->isEnabled() &&
            contrastOf(control) < (wordsOf(control).isEmpty() ? SymbolContrast : TextContrast)) {
            faults << QStringLiteral("%1 \"%2\" has a contrast of %3")
                          .arg(describe(control), wordsOf(control))
                          .arg(contrastOf(control));
        }
        if (contrastOfSelection(control) < TextContrast) {
            faults << QStringLiteral("what is selected in %1 has a contrast of %2")
                          .arg(describe(control))
                          .arg(contrastOfSelection(control));
        }
        for (QWidget* other : controls) {
            if (other <= control || other->parentWidget() != control->parentWidget() ||
                meantToOverlap(control, other) || meantToOverlap(other, control))
                continue;
            const QRect both = control->geometry().intersected(other->geometry());
            if (!both.isEmpty()) {
                faults << describe(control) + QStringLiteral(" and ") + describe(other) +
                              QStringLiteral(" overlap");
            }
        }
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

int main(int argc, char** argv)
{
    prepareWebEngine();
    QApplication application(argc, argv);
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    takeDesktopLook();
    TestLooks test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_looks.moc"
