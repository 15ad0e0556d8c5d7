// SPDX-License-Identifier: GPL-3.0-or-later

#include "Controls.h"
#include "MeasuredContrast.h"
#include "Widgets.h"
#include "Windows.h"
#include "shell/NoticeBar.h"
#include "web/WebEngine.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <array>

using namespace brindlemark;

// What a user can read in a picture of each window, in each look of the desktop (see `takeDesktopLook`): all
// words that can be used have a contrast of 4.5 to 1 with what is behind them, whatever palette or style has
// painted them.

namespace {

constexpr double TextContrast = 4.5;

/// Words whose colours are the seller's choice.
struct LeftOut
{
    const char* window;
    const char* control;
    const char* why;
};
constexpr std::array<LeftOut, 2> AllLeftOut = {{
    {"FrmBody", "Lab", "shows words in the colour that is being mixed"},
    {"FrmList2", "LabV", "shows a character in the colour that it will have on the page"},
}};

bool isLeftOut(const QWidget* widget)
{
    if (widget->inherits("brindlemark::ColorSample")) // the colour is what it shows
        return true;
    return std::ranges::any_of(AllLeftOut, [widget](const LeftOut& each) {
        return className(widget->window()) == each.window &&
               widget->objectName() == QLatin1String(each.control);
    });
}

/// Some words, and the place of a picture where they stand, in logical pixels.
struct Words
{
    QString text;
    QRect place;
    QString who;
};

// Where the words of each kind of control stand, in its own pixels.

QRect placeOfButton(const QAbstractButton* button)
{
    constexpr int Frame = 4; // pixels
    QStyleOptionButton look;
    look.initFrom(button);
    if (!button->property("graphical").toBool()) {
        if (button->inherits("QCheckBox"))
            return button->style()->subElementRect(QStyle::SE_CheckBoxContents, &look, button);
        if (button->inherits("QRadioButton"))
            return button->style()->subElementRect(QStyle::SE_RadioButtonContents, &look, button);
    }
    return button->rect().adjusted(Frame, Frame, -Frame, -Frame);
}

QRect placeOfChoice(const QComboBox* combo)
{
    QStyleOptionComboBox look;
    look.initFrom(combo);
    look.editable = combo->isEditable();
    return combo->style()->subControlRect(QStyle::CC_ComboBox, &look, QStyle::SC_ComboBoxEditField, combo);
}

QRect placeOfTitle(const QGroupBox* frame)
{
    QStyleOptionGroupBox look;
    look.initFrom(frame);
    look.text = frame->title();
    look.lineWidth = 1;
    look.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
    return frame->style()->subControlRect(QStyle::CC_GroupBox, &look, QStyle::SC_GroupBoxLabel, frame);
}

/// Collects the words of a window.
class Reader
{
public:
    explicit Reader(const QWidget* window) : m_window(window) {}

    const QList<Words>& words() const { return m_words; }

    void read(QWidget* widget)
    {
        if (!widget->isVisible() || !widget->isEnabled() || widget->window() != m_window || isLeftOut(widget))
            return;
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            add(widget, label->text(), label->contentsRect());
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
            readButton(button);
        } else if (const auto* combo = qobject_cast<const QComboBox*>(widget)) {
            if (!combo->isEditable()) // or else the field in it comes by itself
                add(widget, combo->currentText(), placeOfChoice(combo));
        } else if (const auto* line = qobject_cast<const QLineEdit*>(widget)) {
            constexpr int Frame = 3;
            add(widget, line->displayText().isEmpty() ? line->placeholderText() : line->displayText(),
                line->rect().adjusted(Frame, Frame, -Frame, -Frame));
        } else if (const auto* text = qobject_cast<const QPlainTextEdit*>(widget)) {
            add(text->viewport(), text->toPlainText(), text->viewport()->rect());
        } else if (const auto* frame = qobject_cast<const QGroupBox*>(widget)) {
            if (!frame->title().startsWith(u' ')) // or else a box lies on it
                add(widget, frame->title(), placeOfTitle(frame));
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            readTabs(tabs);
        } else if (const auto* bar = qobject_cast<const QMenuBar*>(widget)) {
            for (QAction* entry : bar->actions())
                readEntry(widget, entry, bar->actionGeometry(entry));
        } else if (const auto* header = qobject_cast<const QHeaderView*>(widget)) {
            readHeader(header);
        } else if (const auto* view = qobject_cast<const QAbstractItemView*>(widget)) {
            readRows(view, view->rootIndex());
        }
    }

    /// The entries of a menu, of which a picture is taken by itself.
    void readMenu(const QMenu* menu)
    {
        for (QAction* entry : menu->actions())
            readEntry(menu, entry, menu->actionGeometry(entry));
    }

private:
    void add(const QWidget* widget, const QString& text, const QRect& place)
    {
        const QRect seen = widget == m_window ? place : place & widget->visibleRegion().boundingRect();
        if (!text.trimmed().isEmpty() && !seen.isEmpty())
            m_words << Words{text, seen.translated(widget->mapTo(m_window, QPoint())), describe(widget)};
    }

    void readButton(const QAbstractButton* button)
    {
        const auto* tool = qobject_cast<const QToolButton*>(button);
        const bool isSymbol =
            tool && tool->toolButtonStyle() == Qt::ToolButtonIconOnly && !tool->icon().isNull();
        if (!isSymbol)
            add(button, button->text(), placeOfButton(button));
    }

    void readTabs(const QTabBar* tabs)
    {
        constexpr int Beside = 8; // pixels, to the tab's edge
        constexpr int Above = 4;
        for (int i = 0; i < tabs->count(); ++i) {
            if (tabs->isTabEnabled(i))
                add(tabs, tabs->tabText(i), tabs->tabRect(i).adjusted(Beside, Above, -Beside, -Above));
        }
    }

    void readEntry(const QWidget* menu, const QAction* entry, const QRect& place)
    {
        constexpr int Frame = 2;
        if (entry->isVisible() && entry->isEnabled() && !entry->isSeparator())
            add(menu, entry->text(), place.adjusted(Frame, Frame, -Frame, -Frame));
    }

    void readHeader(const QHeaderView* header)
    {
        constexpr int Frame = 3;
        for (int i = 0; i < header->count(); ++i) {
            if (header->orientation() != Qt::Horizontal || header->isSectionHidden(i))
                continue;
            const QRect section(header->sectionViewportPosition(i), 0, header->sectionSize(i),
                                header->height());
            add(header->viewport(), header->model()->headerData(i, Qt::Horizontal).toString(),
                section.adjusted(Frame, Frame, -Frame, -Frame));
        }
    }

    void readRows(const QAbstractItemView* view, const QModelIndex& parent)
    {
        constexpr int Most = 200; // what is in view stands among the first
        const QAbstractItemModel* model = view->model();
        if (!model)
            return;
        for (int row = 0; row < std::min(model->rowCount(parent), Most); ++row) {
            for (int column = 0; column < model->columnCount(parent); ++column) {
                const QModelIndex index = model->index(row, column, parent);
                if (index.flags().testFlag(Qt::ItemIsEnabled) &&
                    view->viewport()->rect().contains(view->visualRect(index)))
                    add(view->viewport(), index.data().toString(), view->visualRect(index));
            }
            readRows(view, model->index(row, 0, parent));
        }
    }

    const QWidget* m_window;
    QList<Words> m_words;
};

struct Seen
{
    QColor ground;
    QColor ink;
    double contrast = 1;
};

/// The colour that most of a place has, and the one that is most unlike it: the edges of letters lie between.
Seen seenIn(const QImage& picture, const QRect& place)
{
    const qreal ratio = picture.devicePixelRatio();
    const QRect pixels =
        QRect((QPointF(place.topLeft()) * ratio).toPoint(), place.size() * ratio) & picture.rect();
    QHash<QRgb, int> counts;
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        for (int x = pixels.left(); x <= pixels.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    Seen seen;
    int most = 0;
    for (auto each = counts.cbegin(); each != counts.cend(); ++each) {
        if (each.value() > most) {
            most = each.value();
            seen.ground = QColor::fromRgb(each.key());
        }
    }
    for (auto each = counts.cbegin(); each != counts.cend(); ++each) {
        const QColor color = QColor::fromRgb(each.key());
        if (const double found = measuredContrast(color, seen.ground); found > seen.contrast)
            seen = {seen.ground, color, found};
    }
    return seen;
}

/// What can't be read in a picture, a line each.
QStringList hardToRead(const QImage& picture, const QList<Words>& words)
{
    QStringList faults;
    for (const Words& each : words) {
        const Seen seen = seenIn(picture, each.place);
        if (seen.contrast < TextContrast) {
            faults << QStringLiteral("%1 \"%2\": %3 on %4, %5 to 1")
                          .arg(each.who, each.text.left(60), seen.ink.name(), seen.ground.name())
                          .arg(seen.contrast, 0, 'f', 2);
        }
    }
    return faults;
}

QImage pictureOf(QWidget* widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

class TestContrast : public QObject
{
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void entries();
    void noticeInItsOwnColours();
    void measure_data();
    void measure();

private:
    PictureHost m_pictures;
};

void TestContrast::words_data()
{
    addViews();
}

void TestContrast::words()
{
    const WindowView& view = fetchedView();
    MainWindow main;
    QWidget* window = openView(view, main);
    for (QLineEdit* line : window->findChildren<QLineEdit*>())
        line->deselect(); // that has colours of its own, see tst_looks
    const QImage picture = pictureOf(window);
    Reader reader(window);
    for (QWidget* widget : window->findChildren<QWidget*>())
        reader.read(widget);
    QVERIFY(!reader.words().isEmpty() || qstrcmp(view.name, "splash") == 0 ||
            qstrcmp(view.name, "help") == 0);
    const QStringList faults = hardToRead(picture, reader.words());
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

/// The menus of the menu bar, with those in them.
void TestContrast::entries()
{
    MainWindow main;
    QStringList faults;
    qsizetype seen = 0;
    for (QMenu* menu : main.web->findChildren<QMenu*>()) {
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        const QImage picture = pictureOf(menu);
        Reader reader(menu);
        reader.readMenu(menu);
        seen += reader.words().size();
        for (const QString& fault : hardToRead(picture, reader.words()))
            faults << menu->title() + QStringLiteral(": ") + fault;
    }
    QVERIFY2(seen > 50, qPrintable(QString::number(seen)));
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

/// On desktops whose tool tips are dark in a light window, too.
void TestContrast::noticeInItsOwnColours()
{
    NoticeBar bar(nullptr);
    bar.tell(QStringLiteral("Brass lamp"), {});
    QPalette palette = bar.palette();
    palette.setColor(QPalette::WindowText, Qt::black);
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    bar.setPalette(palette);
    Reader reader(&bar);
    reader.read(bar.findChild<QLabel*>());
    QCOMPARE(reader.words().size(), 1);
    QCOMPARE(hardToRead(pictureOf(&bar), reader.words()), QStringList());
}

void TestContrast::measure_data()
{
    QTest::addColumn<QColor>("ink");
    QTest::addColumn<bool>("readable");
    QTest::newRow("black") << QColor(Qt::black) << true;
    QTest::newRow("dark grey") << QColor(0x50, 0x50, 0x50) << true;
    QTest::newRow("middle grey") << QColor(0x90, 0x90, 0x90) << false;
    QTest::newRow("white") << QColor(Qt::white) << false;
}

/// The measure itself: words in some colour on white.
void TestContrast::measure()
{
    QFETCH(QColor, ink);
    QFETCH(bool, readable);
    QWidget window;
    QPalette paper = window.palette();
    paper.setColor(QPalette::Window, Qt::white);
    paper.setColor(QPalette::WindowText, ink);
    window.setPalette(paper);
    QLabel label(QStringLiteral("A heavy desk lamp in polished brass"), &window);
    label.move(10, 10);
    label.adjustSize();
    window.resize(label.width() + 20, label.height() + 20);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    Reader reader(&window);
    reader.read(&label);
    QCOMPARE(reader.words().size(), 1);
    QCOMPARE(hardToRead(pictureOf(&window), reader.words()).isEmpty(), readable);
}

int main(int argc, char** argv)
{
    prepareWebEngine();
    QApplication application(argc, argv);
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    takeDesktopLook();
    TestContrast test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_contrast.moc"
