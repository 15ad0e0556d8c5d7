// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/CheckBox.h"
#include "forms/ComboBox.h"
#include "forms/ListBox.h"
#include "forms/OptionButton.h"
#include "forms/SSTab.h"
#include "forms/ScrollBar.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QButtonGroup>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <functional>

using namespace brindlemark;

namespace {

/// Writes down, in order, which events came and what a handler could read by then.
class Log
{
public:
    template <typename Sender>
    void note(Sender* sender, void (Sender::*signal)(), const QString& name,
              const std::function<QString()>& reading)
    {
        QObject::connect(sender, signal, &m_context, [this, name, reading] { m_lines << name + reading(); });
    }

    void add(const QString& line) { m_lines << line; }
    /// What came since the last call, parted by blanks.
    QString take() { return std::exchange(m_lines, {}).join(u' '); }

private:
    QStringList m_lines;
    QObject m_context;
};

/// The number that `action` raises, 0 when it raises none.
int raised(const std::function<void()>& action)
{
    try {
        action();
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
    return 0;
}

void show(QWidget& window)
{
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
}

void wheel(QWidget* widget, int delta)
{
    const QPointF middle = QRectF(widget->rect()).center();
    QWheelEvent event(middle, widget->mapToGlobal(middle), {}, {0, delta}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(
        &event); // only such a one goes on to the parents, and `sendEvent` sends none
    QCoreApplication::instance()->notify(widget, &event);
}

/// A level bar from 0 to 100 with arrows of 1 and pages of 10, at 50.
struct Bar
{
    Bar()
    {
        bar.setOrientation(Qt::Horizontal);
        bar.setRange(0, 100);
        bar.setSingleStep(1);
        bar.setPageStep(10);
        bar.setValue(50);
        bar.resize(400, 20);
        show(bar);
        const auto value = [this] { return QString::number(bar.Value()); };
        log.note(&bar, &ScrollBar::Change, QStringLiteral("Change"), value);
        log.note(&bar, &ScrollBar::Scroll, QStringLiteral("Scroll"), value);
    }

    /// The middle of the bar's arrow, page area or slider.
    QPoint part(QStyle::SubControl part) const
    {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.state |= QStyle::State_Horizontal;
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.singleStep = bar.singleStep();
        option.pageStep = bar.pageStep();
        option.sliderPosition = option.sliderValue = bar.value();
        option.subControls = QStyle::SC_All;
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
    }

    ScrollBar bar{nullptr};
    Log log;
};

template <typename Box>
QString texts(const Box& box)
{
    QStringList all;
    for (int i = 0; i < box.ListCount(); ++i)
        all << box.List(i);
    return all.join(u',');
}

/// A list with the entries "a", "b", "c", "d".
struct Entries
{
    explicit Entries(QAbstractItemView::SelectionMode mode = QAbstractItemView::SingleSelection)
    {
        box.setSelectionMode(mode);
        for (const char* text : {"a", "b", "c", "d"})
            box.AddItem(QString::fromLatin1(text));
        box.resize(150, 200);
        show(box);
        const auto index = [this] { return QString::number(box.ListIndex()); };
        log.note(&box, &ListBox::MouseDown, QStringLiteral("MouseDown"), index);
        log.note(&box, &ListBox::Click, QStringLiteral("Click"), index);
        log.note(&box, &ListBox::DblClick, QStringLiteral("DblClick"), index);
        log.note(&box, &ListBox::MouseUp, QStringLiteral("MouseUp"), index);
    }

    QPoint entry(int index) const { return box.visualItemRect(box.item(index)).center(); }
    /// Below the last entry.
    QPoint noEntry() const { return {10, box.viewport()->height() - 3}; }
    void press(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(box.viewport(), button, {}, at);
    }
    void release(QPoint at, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(box.viewport(), button, {}, at);
    }
    void click(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(box.viewport(), button, {}, entry(index));
    }
    /// The second half of a double click.
    void clickAgain(int index, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPointF at = entry(index);
        QMouseEvent second(QEvent::MouseButtonDblClick, at, box.viewport()->mapToGlobal(at), button, button,
                           Qt::NoModifier);
        QCoreApplication::sendEvent(box.viewport(), &second);
        release(entry(index), button);
    }

    ListBox box;
    Log log;
};

/// A combo box in a window, with the entries "a", "b", "c".
struct Choice
{
    explicit Choice(bool editable)
    {
        box.setEditable(editable);
        for (const char* text : {"a", "b", "c"})
            box.AddItem(QString::fromLatin1(text));
        box.setMinimumWidth(200); // the list hasn't to scroll sideways
        layout.addWidget(&box);
        layout.addWidget(&other);
        show(window);
        const auto state = [this] { return QStringLiteral("%1/%2").arg(box.ListIndex()).arg(box.Text()); };
        log.note(&box, &ComboBox::Click, QStringLiteral("Click"), state);
        log.note(&box, &ComboBox::Change, QStringLiteral("Change"), state);
        log.note(&box, &ComboBox::EnterPressed, QStringLiteral("Enter"), state);
    }

    /// Opens the list and clicks on an entry.
    void pick(int index)
    {
        QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(box.view()->isVisible());
        QTest::qWait(QApplication::doubleClickInterval() + 1); // sooner is taken for the opening click's end
        const QPoint entry = box.view()->visualRect(box.model()->index(index, 0)).center();
        QTest::mouseMove(box.view()->viewport(), entry);
        QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, entry);
        QTRY_VERIFY(!box.view()->isVisible());
    }

    QWidget window;
    QVBoxLayout layout{&window};
    ComboBox box;
    QPushButton other;
    Log log;
};

/// Two options that share a window.
struct Options
{
    Options()
    {
        layout.addWidget(&one);
        layout.addWidget(&two);
        const auto values = [this] {
            return QStringLiteral("%1%2").arg(one.Value() ? 1 : 0).arg(two.Value() ? 1 : 0);
        };
        log.note(&one, &OptionButton::Click, QStringLiteral("one.Click"), values);
        log.note(&two, &OptionButton::Click, QStringLiteral("two.Click"), values);
        log.note(&one, &OptionButton::MouseUp, QStringLiteral("one.MouseUp"), values);
        log.note(&two, &OptionButton::MouseUp, QStringLiteral("two.MouseUp"), values);
        show(window);
    }

    QWidget window;
    QVBoxLayout layout{&window};
    OptionButton one{&window};
    OptionButton two{&window};
    Log log;
};

/// Three pages.
struct Pages
{
    Pages()
    {
        QObject::connect(&tabs, &SSTab::Click, &context, [this](int previous) {
            log.add(QStringLiteral("Click%1>%2").arg(previous).arg(tabs.Tab()));
        });
        for (const char* caption : {" Editor", " Preview", " Internet"})
            tabs.addTab(new QWidget, QString::fromLatin1(caption));
        tabs.resize(400, 200);
        show(tabs);
    }

    SSTab tabs;
    Log log;
    QObject context;
};

/// A box with its log.
struct Ticked
{
    Ticked()
    {
        const auto value = [this] { return QString::number(box.Value()); };
        log.note(&box, &CheckBox::Click, QStringLiteral("Click"), value);
        log.note(&box, &CheckBox::MouseUp, QStringLiteral("MouseUp"), value);
        box.setText(QStringLiteral("Bold"));
        show(box);
    }

    QPoint middle{8, 8};
    CheckBox box{nullptr};
    Log log;
};

} // namespace

class TestControls : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QApplication::setDoubleClickInterval(20); }

    void dragScrollsAndChangesOnce();
    void dragBackToItsStartChangesNothing();
    void barStepsChangeAlone_data();
    void barStepsChangeAlone();
    void barThatCannotMoveIsSilent();
    void heldArrowChangesAtEachStep();
    void wheelIsTheWindowsWithoutTheKeyboard();
    void barCanBeReachedByTheKeyboard();
    void barsOfATintShareTheirPalette();

    void checkBoxByHand();
    void checkBoxByCode();
    void checkBoxRefusesOtherValues();
    void checkBoxReleasedElsewhere();
    void checkBoxIgnoresForeignReleases();

    void optionByHand();
    void optionByKeys();
    void optionByCode();
    void optionsCanAllBeCleared_data();
    void optionsCanAllBeCleared();
    void optionReleasedElsewhere();

    void graphicalButtons_data();
    void graphicalButtons();

    void listHoldsTexts();
    void listRefusesIndexesOutside();
    void listIndexByCode();
    void listSelectedByCode();
    void listByMouse_data() { mouseButtons(); }
    void listByMouse();
    void listByKeys();
    void listDoubleClick();
    void listDoubleClickOfAnotherButton();
    void listClickOnNoEntry_data() { mouseButtons(); }
    void listClickOnNoEntry();
    void listFollowsItsFont();
    void listReleasedElsewhere_data() { mouseButtons(); }
    void listReleasedElsewhere();
    void listDragged();
    void listOfReleasedSelection_data() { mouseButtons(); }
    void listOfReleasedSelection();
    void listOfTwoButtons();
    void listKeepsSelectionWithItsEntry();
    void listWithSeveralSelected();
    void listFocusSelectsNothing();
    void listShowsTheBeginningOfALongEntry();

    void comboTakesALongText();
    void comboAddsWithoutChoosing_data();
    void comboAddsWithoutChoosing();
    void comboIndexByCode_data();
    void comboIndexByCode();
    void comboTextByCode();
    void comboTextOfAListWithoutField();
    void comboPickedByHand_data();
    void comboPickedByHand();
    void comboStepsByHand();
    void comboWhoseChoiceActsOpens_data();
    void comboWhoseChoiceActsOpens();
    void keyThatClosesTheListIsSpent_data();
    void keyThatClosesTheListIsSpent();
    void keyWhoseChoiceOpensADialogIsSpent();
    void keyBehindAClosedList();
    void choiceThatEndsTheBox();
    void comboTypingChangesTheTextOnly();
    void comboEnterIsConsumed();
    void comboWithoutFieldHasNoEnter();
    void comboChosenTextReplacesTypedText();
    void comboCleared();

    void tabByHand();
    void tabByKeys();
    void tabByCode();
    void tabCaptionsKeepTheirBlank();

    void listObjects();
    void accessibleRoles();

private:
    static void mouseButtons();
};

// --- scroll bars

void TestControls::dragScrollsAndChangesOnce()
{
    Bar bar;
    const QPoint from = bar.part(QStyle::SC_ScrollBarSlider);
    QTest::mousePress(&bar.bar, Qt::LeftButton, {}, from);
    QCOMPARE(bar.log.take(), QString());

    int steps = 0;
    for (int x = 10; x <= 60; x += 10) {
        const int before = bar.bar.Value();
        QTest::mouseMove(&bar.bar, from + QPoint(x, 0));
        QVERIFY(bar.bar.Value() > before);
        QCOMPARE(bar.log.take(), QStringLiteral("Scroll%1").arg(bar.bar.Value()));
        ++steps;
    }
    QCOMPARE(steps, 6);

    const int at = bar.bar.Value();
    QTest::mouseRelease(&bar.bar, Qt::LeftButton, {}, from + QPoint(60, 0));
    QCOMPARE(bar.bar.Value(), at);
    QCOMPARE(bar.log.take(), QStringLiteral("Change%1").arg(at));
}

void TestControls::dragBackToItsStartChangesNothing()
{
    Bar bar;
    const QPoint from = bar.part(QStyle::SC_ScrollBarSlider);
    QTest::mousePress(&bar.bar, Qt::LeftButton, {}, from);
    QTest::mouseMove(&bar.bar, from + QPoint(40, 0));
    QVERIFY(bar.bar.Value() > 50);
    QTest::mouseMove(&bar.bar, from);
    QTest::mouseRelease(&bar.bar, Qt::LeftButton, {}, from);
    QCOMPARE(bar.bar.Value(), 50);
    const QString log = bar.log.take();
    QVERIFY2(log.endsWith(u" Scroll50"), qPrintable(log));
    QVERIFY2(!log.contains(u"Change"), qPrintable(log));
}

void TestControls::barStepsChangeAlone_data()
{
    QTest::addColumn<std::function<void(Bar&)>>("step");
    QTest::addColumn<QString>("events");

    using Step = std::function<void(Bar&)>;
    const auto clickOn = [](QStyle::SubControl part) {
        return Step([part](Bar& b) { QTest::mouseClick(&b.bar, Qt::LeftButton, {}, b.part(part)); });
    };
    const auto press = [](Qt::Key key) { return Step([key](Bar& b) { QTest::keyClick(&b.bar, key); }); };

    QTest::newRow("arrow up") << clickOn(QStyle::SC_ScrollBarAddLine) << "Change51";
    QTest::newRow("arrow down") << clickOn(QStyle::SC_ScrollBarSubLine) << "Change49";
    QTest::newRow("page up") << clickOn(QStyle::SC_ScrollBarAddPage) << "Change60";
    QTest::newRow("page down") << clickOn(QStyle::SC_ScrollBarSubPage) << "Change40";
    QTest::newRow("right key") << press(Qt::Key_Right) << "Change51";
    QTest::newRow("left key") << press(Qt::Key_Left) << "Change49";
    QTest::newRow("down key") << press(Qt::Key_Down) << "Change51";
    QTest::newRow("up key") << press(Qt::Key_Up) << "Change49";
    QTest::newRow("page down key") << press(Qt::Key_PageDown) << "Change60";
    QTest::newRow("page up key") << press(Qt::Key_PageUp) << "Change40";
    QTest::newRow("home") << press(Qt::Key_Home) << "Change0";
    QTest::newRow("end") << press(Qt::Key_End) << "Change100";
    QTest::newRow("code") << Step([](Bar& b) { b.bar.setValue(7); }) << "Change7";
    QTest::newRow("code, same value") << Step([](Bar& b) { b.bar.setValue(50); }) << "";
    QTest::newRow("code, range") << Step([](Bar& b) { b.bar.setMaximum(30); }) << "Change30";
    QTest::newRow("click on the slider") << clickOn(QStyle::SC_ScrollBarSlider) << "";
}

void TestControls::barStepsChangeAlone()
{
    QFETCH(std::function<void(Bar&)>, step);
    QFETCH(QString, events);
    Bar bar;
    step(bar);
    QCOMPARE(bar.log.take(), events);
}

void TestControls::barThatCannotMoveIsSilent()
{
    Bar bar;
    bar.bar.setValue(100);
    bar.log.take();
    QTest::mouseClick(&bar.bar, Qt::LeftButton, {}, bar.part(QStyle::SC_ScrollBarAddLine));
    QTest::keyClick(&bar.bar, Qt::Key_Right);
    QTest::keyClick(&bar.bar, Qt::Key_End);
    wheel(&bar.bar, -120);
    QCOMPARE(bar.log.take(), QString());
    wheel(&bar.bar, 120);
    QVERIFY(bar.bar.Value() < 100);
    QCOMPARE(bar.log.take(), QStringLiteral("Change%1").arg(bar.bar.Value()));
}

void TestControls::heldArrowChangesAtEachStep()
{
    Bar bar;
    const QPoint arrow = bar.part(QStyle::SC_ScrollBarAddLine);
    QTest::mousePress(&bar.bar, Qt::LeftButton, {}, arrow);
    QTRY_VERIFY(bar.bar.Value() >= 53);
    QTest::mouseRelease(&bar.bar, Qt::LeftButton, {}, arrow);
    QStringList expected;
    for (int value = 51; value <= bar.bar.Value(); ++value)
        expected << QStringLiteral("Change%1").arg(value);
    QCOMPARE(bar.log.take(), expected.join(u' '));
}

namespace {

/// A window that counts how often the wheel comes to it.
class Wheeled : public QWidget
{
public:
    int turns = 0;

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        ++turns;
        event->accept();
    }
};

} // namespace

void TestControls::wheelIsTheWindowsWithoutTheKeyboard()
{
    Wheeled window;
    QVBoxLayout layout(&window);
    ScrollBar bar(nullptr);
    bar.setValue(50);
    ComboBox combo;
    for (const char* text : {"a", "b", "c"})
        combo.AddItem(QString::fromLatin1(text));
    combo.setListIndex(1);
    SSTab tabs;
    for (const char* caption : {"one", "two", "three"})
        tabs.addTab(new QWidget, QString::fromLatin1(caption));
    tabs.setTab(1);
    QPushButton other;
    for (QWidget* control : std::initializer_list<QWidget*>{&bar, &combo, &tabs, &other})
        layout.addWidget(control);
    show(window);
    const auto values = [&] { return QList<int>{bar.Value(), combo.ListIndex(), tabs.Tab()}; };
    const std::initializer_list<QWidget*> turned = {&bar, &combo, tabs.tabBar()};
    int turns = 0;
    for (QWidget* control : turned) {
        other.setFocus();
        QTRY_VERIFY(other.hasFocus());
        const QList<int> before = values();
        wheel(control, -120);
        QCOMPARE(window.turns, ++turns);
        QCOMPARE(values(), before);
        control->setFocus();
        QTRY_VERIFY(control->hasFocus());
        wheel(control, -120);
        QCOMPARE(window.turns, turns);
    }
    QVERIFY(bar.Value() > 50);
    QCOMPARE(combo.ListIndex(), 2);
    QCOMPARE(tabs.Tab(), 2);
}

void TestControls::barCanBeReachedByTheKeyboard()
{
    QWidget window;
    QVBoxLayout layout(&window);
    QLineEdit field;
    ScrollBar bar(nullptr);
    layout.addWidget(&field);
    layout.addWidget(&bar);
    show(window);
    field.setFocus();
    QTRY_VERIFY(field.hasFocus());
    const QImage without = bar.grab().toImage();
    QTest::keyClick(&field, Qt::Key_Tab);
    QVERIFY(bar.hasFocus());
    QVERIFY(bar.grab().toImage() != without); // the focus can be seen
}

void TestControls::barsOfATintShareTheirPalette()
{
    struct Tinted : ScrollBar
    {
        explicit Tinted(QRgb tint) { setTint(tint); }
        QPalette look() const
        {
            QStyleOptionSlider option;
            initStyleOption(&option);
            return option.palette;
        }
    };
    const Tinted red(0xFFE59A9A);
    const Tinted alsoRed(0xFFE59A9A);
    const Tinted green(0xFF9AD29A);
    QCOMPARE(red.look().cacheKey(), alsoRed.look().cacheKey());
    QCOMPARE(green.look().color(QPalette::Active, QPalette::Button), QColor(0x9A, 0xD2, 0x9A));
    QCOMPARE(red.look().color(QPalette::Inactive, QPalette::Button), QColor(0xE5, 0x9A, 0x9A));
    QCOMPARE(red.look().color(QPalette::Active, QPalette::ButtonText), QColor(Qt::black));
    QCOMPARE(red.look().color(QPalette::Disabled, QPalette::Button),
             ScrollBar().palette().color(QPalette::Disabled, QPalette::Button));

    // It is drawn as a bar that has these colours for its own.
    ScrollBar own;
    QPalette colors = own.palette();
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colors.setColor(group, QPalette::Button, QColor(0xE5, 0x9A, 0x9A));
        colors.setColor(group, QPalette::ButtonText, Qt::black);
    }
    own.setPalette(colors);
    Tinted bar(0xFFE59A9A);
    for (ScrollBar* each : {&own, static_cast<ScrollBar*>(&bar)}) {
        each->setOrientation(Qt::Horizontal);
        each->showValue(QStringLiteral("R"));
        each->resize(120, 20);
    }
    QCOMPARE(bar.grab().toImage(), own.grab().toImage());
    own.setEnabled(false);
    bar.setEnabled(false);
    QCOMPARE(bar.grab().toImage(), own.grab().toImage());
}

// --- check boxes

void TestControls::checkBoxByHand()
{
    Ticked it;
    QTest::mousePress(&it.box, Qt::LeftButton, {}, it.middle);
    QCOMPARE(it.log.take(), QString());
    QTest::mouseRelease(&it.box, Qt::LeftButton, {}, it.middle);
    QCOMPARE(it.log.take(), QStringLiteral("Click1 MouseUp1"));
    QTest::mouseClick(&it.box, Qt::LeftButton, {}, it.middle);
    QCOMPARE(it.log.take(), QStringLiteral("Click0 MouseUp0"));

    QTest::keyPress(&it.box, Qt::Key_Space);
    QCOMPARE(it.log.take(), QString());
    QTest::keyRelease(&it.box, Qt::Key_Space);
    QCOMPARE(it.log.take(), QStringLiteral("Click1 MouseUp1"));

    it.box.setText(QStringLiteral("&Bold"));
    it.box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&it.box));
    QTest::keyClick(&it.box, Qt::Key_B, Qt::AltModifier);
    QTRY_COMPARE(it.box.Value(), 0); // the box shows for a moment that it is pressed
    QCOMPARE(it.log.take(), QStringLiteral("Click0 MouseUp0"));
}

void TestControls::checkBoxByCode()
{
    Ticked it;
    it.box.setValue(0);
    QCOMPARE(it.log.take(), QString());
    it.box.setValue(1);
    QCOMPARE(it.log.take(), QStringLiteral("Click1"));
    it.box.setValue(1);
    QCOMPARE(it.log.take(), QString());
    it.box.setValue(0);
    QCOMPARE(it.log.take(), QStringLiteral("Click0"));
    it.box.setChecked(true);
    QCOMPARE(it.log.take(), QStringLiteral("Click1"));
}

void TestControls::checkBoxRefusesOtherValues()
{
    Ticked it;
    it.box.setValue(1);
    it.log.take();
    for (const int value : {-1, 2, 255})
        QCOMPARE(raised([&] { it.box.setValue(value); }), 380);
    QCOMPARE(it.box.Value(), 1);
    QCOMPARE(it.log.take(), QString());
}

void TestControls::checkBoxReleasedElsewhere()
{
    Ticked it;
    const QPoint outside = it.middle + QPoint(0, 100);
    QTest::mousePress(&it.box, Qt::LeftButton, {}, it.middle);
    QTest::mouseMove(&it.box, outside);
    QTest::mouseRelease(&it.box, Qt::LeftButton, {}, outside);
    QCOMPARE(it.log.take(), QString());
    QCOMPARE(it.box.Value(), 0);
}

void TestControls::checkBoxIgnoresForeignReleases()
{
    Ticked it;
    QTest::mouseClick(&it.box, Qt::RightButton, {}, it.middle);
    QTest::keyRelease(&it.box, Qt::Key_Space); // pressed on another control
    QTest::keyClick(&it.box, Qt::Key_A);
    it.box.setEnabled(false);
    QTest::mouseClick(&it.box, Qt::LeftButton, {}, it.middle);
    QTest::keyClick(&it.box, Qt::Key_Space);
    QCOMPARE(it.log.take(), QString());
    QCOMPARE(it.box.Value(), 0);
}

// --- options

void TestControls::optionByHand()
{
    Options options;
    const QPoint middle(8, 8);
    QTest::mouseClick(&options.one, Qt::LeftButton, {}, middle);
    QCOMPARE(options.log.take(), QStringLiteral("one.Click10 one.MouseUp10"));
    QTest::mouseClick(&options.one, Qt::LeftButton, {}, middle); // set already
    QCOMPARE(options.log.take(), QStringLiteral("one.MouseUp10"));
    QTest::mouseClick(&options.two, Qt::LeftButton, {}, middle); // clearing the other is no click on it
    QCOMPARE(options.log.take(), QStringLiteral("two.Click01 two.MouseUp01"));
    QTest::mouseClick(&options.one, Qt::RightButton, {}, middle);
    QCOMPARE(options.log.take(), QString());
}

void TestControls::optionByKeys()
{
    Options options;
    QTest::keyPress(&options.one, Qt::Key_Space);
    QCOMPARE(options.log.take(), QString());
    QTest::keyRelease(&options.one, Qt::Key_Space);
    QCOMPARE(options.log.take(), QStringLiteral("one.Click10 one.MouseUp10"));
    QTest::keyClick(&options.one, Qt::Key_Down); // sets the next option, as a click on it does
    QCOMPARE(options.log.take(), QStringLiteral("two.Click01 two.MouseUp01"));
    QTest::keyClick(&options.two, Qt::Key_Space);
    QCOMPARE(options.log.take(), QStringLiteral("two.MouseUp01"));
    QTest::keyRelease(&options.one, Qt::Key_Space); // pressed on another control
    QCOMPARE(options.log.take(), QString());
}

void TestControls::optionByCode()
{
    Options options;
    options.two.setValue(true);
    QCOMPARE(options.log.take(), QStringLiteral("two.Click01"));
    options.two.setValue(true);
    QCOMPARE(options.log.take(), QString());
    options.one.setChecked(true);
    QCOMPARE(options.log.take(), QStringLiteral("one.Click10"));
    options.two.setValue(false);
    QCOMPARE(options.log.take(), QString());
    QVERIFY(options.one.Value());
}

void TestControls::optionsCanAllBeCleared_data()
{
    QTest::addColumn<bool>("grouped");
    QTest::newRow("one parent") << false;
    QTest::newRow("button group") << true;
}

void TestControls::optionsCanAllBeCleared()
{
    QFETCH(bool, grouped);
    Options options;
    QButtonGroup group;
    if (grouped) {
        group.addButton(&options.one, 4);
        group.addButton(&options.two, 5);
    }
    options.one.setValue(true);
    options.log.take();

    options.one.setValue(false);
    QVERIFY(!options.one.Value() && !options.two.Value());
    QCOMPARE(options.log.take(), QString());

    options.two.setValue(true); // still exclusive
    QCOMPARE(options.log.take(), QStringLiteral("two.Click01"));
    QTest::mouseClick(&options.one, Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(options.log.take(), QStringLiteral("one.Click10 one.MouseUp10"));
    QCOMPARE(group.id(&options.one), grouped ? 4 : -1);
}

void TestControls::optionReleasedElsewhere()
{
    Options options;
    QTest::mousePress(&options.one, Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseMove(&options.one, QPoint(8, 300));
    QTest::mouseRelease(&options.one, Qt::LeftButton, {}, QPoint(8, 300));
    QCOMPARE(options.log.take(), QString());
    QVERIFY(!options.one.Value());
}

// --- list boxes

// --- check boxes and options that look like push buttons

void TestControls::graphicalButtons_data()
{
    QTest::addColumn<bool>("option");
    QTest::newRow("check box") << false;
    QTest::newRow("option") << true;
}

void TestControls::graphicalButtons()
{
    QFETCH(bool, option);
    CheckBox box;
    OptionButton oneOfSeveral;
    QAbstractButton& button = option ? static_cast<QAbstractButton&>(oneOfSeveral) : box;
    QPixmap picture(16, 16);
    picture.fill(Qt::red);
    button.setIcon(picture);
    button.setText(QStringLiteral("Bold"));
    button.setProperty("graphical", true);
    QVERIFY(button.sizeHint().width() > 16 + button.fontMetrics().horizontalAdvance(QStringLiteral("Bold")));
    QVERIFY(button.sizeHint().height() >= 16);
    button.resize(300, 60); // by far larger than picture and text

    const QImage released = button.grab().toImage();
    QCOMPARE(released.pixelColor(0, 0),
             button.palette().color(QPalette::Window)); // no indicator, no text here
    int clicks = 0;
    int mouseUps = 0;
    if (option) {
        connect(&oneOfSeveral, &OptionButton::Click, [&] { ++clicks; });
        connect(&oneOfSeveral, &OptionButton::MouseUp, [&] { ++mouseUps; });
    } else {
        connect(&box, &CheckBox::Click, [&] { ++clicks; });
        connect(&box, &CheckBox::MouseUp, [&] { ++mouseUps; });
    }
    QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(295, 55)); // all of it can be pressed
    QVERIFY(button.isChecked());
    QCOMPARE(clicks, 1);
    QCOMPARE(mouseUps, 1);
    QVERIFY(button.grab().toImage() != released);
}

void TestControls::listHoldsTexts()
{
    Entries list;
    QCOMPARE(list.box.ListCount(), 4);
    QCOMPARE(list.box.List(2), QStringLiteral("c"));
    QCOMPARE(list.box.List(-1), QString());
    QCOMPARE(list.box.List(4), QString());
    QCOMPARE(list.box.ListIndex(), -1);
    list.box.AddItem(QStringLiteral("x"), 0);
    list.box.AddItem(QStringLiteral("y"), 5);
    list.box.AddItem(QString());
    QCOMPARE(texts(list.box), QStringLiteral("x,a,b,c,d,y,"));
    list.box.RemoveItem(1);
    list.box.RemoveItem(5);
    QCOMPARE(texts(list.box), QStringLiteral("x,b,c,d,y"));
    QCOMPARE(list.box.ListIndex(), -1);
    list.box.Clear();
    QCOMPARE(list.box.ListCount(), 0);
    QCOMPARE(list.log.take(), QString());
}

void TestControls::listRefusesIndexesOutside()
{
    Entries list;
    for (const int index : {-1, 4})
        QCOMPARE(raised([&] { list.box.RemoveItem(index); }), 5);
    for (const int index : {-1, 5})
        QCOMPARE(raised([&] { list.box.AddItem(QStringLiteral("x"), index); }), 5);
    for (const int index : {-2, 4})
        QCOMPARE(raised([&] { list.box.setListIndex(index); }), 380);
    for (const int index : {-1, 4}) {
        QCOMPARE(raised([&] { list.box.Selected(index); }), 380);
        QCOMPARE(raised([&] { list.box.setSelected(index, true); }), 380);
    }
    QCOMPARE(texts(list.box), QStringLiteral("a,b,c,d"));
    QCOMPARE(list.log.take(), QString());
}

void TestControls::listIndexByCode()
{
    Entries list;
    list.box.setListIndex(-1);
    QCOMPARE(list.log.take(), QString());
    list.box.setListIndex(2);
    QCOMPARE(list.log.take(), QStringLiteral("Click2"));
    QVERIFY(list.box.Selected(2));
    list.box.setListIndex(2);
    QCOMPARE(list.log.take(), QString());
    list.box.setListIndex(0);
    QCOMPARE(list.log.take(), QStringLiteral("Click0"));
    list.box.setListIndex(-1);
    QCOMPARE(list.log.take(), QStringLiteral("Click-1"));
    QVERIFY(!list.box.Selected(0));
}

void TestControls::listSelectedByCode()
{
    Entries list;
    list.box.setSelected(1, true);
    QCOMPARE(list.log.take(), QStringLiteral("Click1"));
    list.box.setSelected(1, true);
    list.box.setSelected(3, false);
    QCOMPARE(list.log.take(), QString());
    list.box.setSelected(3, true);
    QCOMPARE(list.log.take(), QStringLiteral("Click3"));
    QVERIFY(!list.box.Selected(1));
    list.box.setSelected(3, false);
    QCOMPARE(list.log.take(), QStringLiteral("Click-1"));
    QCOMPARE(list.box.ListIndex(), -1);
}

void TestControls::mouseButtons()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("back") << Qt::BackButton;
}

void TestControls::listByMouse()
{
    QFETCH(Qt::MouseButton, button);
    Entries list;
    list.click(1, button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click1 MouseUp1"));
    list.click(1, button); // the same again
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown1 Click1 MouseUp1"));
    list.click(3, button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown1 Click3 MouseUp3"));
}

void TestControls::listByKeys()
{
    Entries list;
    list.box.setListIndex(0);
    list.log.take();
    QTest::keyClick(&list.box, Qt::Key_Down);
    QTest::keyClick(&list.box, Qt::Key_End);
    QTest::keyClick(&list.box, Qt::Key_Down); // there is none below
    QTest::keyClick(&list.box, Qt::Key_B);
    QCOMPARE(list.log.take(), QStringLiteral("Click1 Click3 Click1"));
}

void TestControls::listDoubleClick()
{
    Entries list;
    list.click(2);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click2 MouseUp2"));
    list.clickAgain(2);
    QCOMPARE(list.log.take(), QStringLiteral("DblClick2 MouseUp2"));
    list.clickAgain(3); // fast, but on another entry
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown2 Click3 MouseUp3"));
}

/// The left hand's alone; with another button these are two clicks.
void TestControls::listDoubleClickOfAnotherButton()
{
    Entries list;
    for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::RightButton}) {
        list.click(2, button);
        list.log.take();
        list.clickAgain(2, button);
        QCOMPARE(list.log.take(), QStringLiteral("MouseDown2 Click2 MouseUp2"));
    }
}

/// Selects none, and counts when one was selected.
void TestControls::listClickOnNoEntry()
{
    QFETCH(Qt::MouseButton, button);
    Entries list;
    list.box.setListIndex(1);
    list.log.take();
    list.press(list.noEntry(), button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown1 Click-1"));
    list.release(list.noEntry(), button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseUp-1"));
    list.press(list.noEntry(), button);
    list.release(list.noEntry(), button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 MouseUp-1"));
    list.box.Clear();
    QTest::mouseClick(list.box.viewport(), button, {}, QPoint(10, 10));
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 MouseUp-1"));
}

/// What is known of the entries' sizes is of no use with another font, or for another text.
void TestControls::listFollowsItsFont()
{
    Entries list;
    const auto sizeOf = [&list](int index) {
        return list.box.sizeHintForIndex(list.box.model()->index(index, 0));
    };
    const QSize before = sizeOf(0);
    QFont larger = list.box.font();
    larger.setPointSizeF(larger.pointSizeF() * 2);
    list.box.setFont(larger);
    QVERIFY(sizeOf(0).height() > before.height());
    const QSize after = sizeOf(0);
    list.box.item(0)->setText(QStringLiteral("a longer entry"));
    QVERIFY(sizeOf(0).width() > after.width());
    QCOMPARE(sizeOf(0).height(), after.height());
}

void TestControls::listReleasedElsewhere()
{
    QFETCH(Qt::MouseButton, button);
    Entries list;
    list.press(list.entry(1), button);
    list.release(QPoint(500, 500), button);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click1 MouseUp1"));
}

/// The selection follows the left button, also over the edge and back.
void TestControls::listDragged()
{
    Entries list;
    list.press(list.entry(0));
    for (const QPoint& at : {list.entry(1), QPoint(500, list.entry(1).y()), list.entry(2)})
        QTest::mouseMove(list.box.viewport(), at);
    list.release(list.entry(2));
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click0 Click1 Click2 MouseUp2"));
}

void TestControls::listOfReleasedSelection()
{
    // A list that only fetches: its handler gives the selection back when the button goes up.
    QFETCH(Qt::MouseButton, button);
    Entries list;
    connect(&list.box, &ListBox::MouseUp, this, [&] { list.box.setListIndex(-1); });
    for (int round = 0; round < 2; ++round) {
        list.click(2, button);
        QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click2 MouseUp2 Click-1"));
        QCOMPARE(list.box.ListIndex(), -1);
    }
}

/// Each is told of its own press and release.
void TestControls::listOfTwoButtons()
{
    Entries list;
    list.press(list.entry(0), Qt::LeftButton);
    list.press(list.entry(1), Qt::RightButton);
    list.release(list.entry(1), Qt::RightButton);
    list.release(list.entry(0), Qt::LeftButton);
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown-1 Click0 MouseDown0 Click1 MouseUp1 MouseUp1"));
}

void TestControls::listKeepsSelectionWithItsEntry()
{
    Entries list;
    list.box.setListIndex(2);
    list.log.take();
    list.box.AddItem(QStringLiteral("x"), 0);
    QCOMPARE(list.box.ListIndex(), 3);
    QCOMPARE(list.log.take(), QString());
    list.box.RemoveItem(1);
    QCOMPARE(list.box.ListIndex(), 2);
    QCOMPARE(list.log.take(), QString());
    list.box.RemoveItem(2); // the selected one
    QCOMPARE(list.box.ListIndex(), -1);
    QCOMPARE(texts(list.box), QStringLiteral("x,b,d"));
    QCOMPARE(list.log.take(), QString());
    list.box.setListIndex(2);
    QCOMPARE(list.log.take(), QStringLiteral("Click2"));
    list.box.Clear();
    QCOMPARE(list.box.ListIndex(), -1);
    QCOMPARE(list.log.take(), QString());
}

void TestControls::listWithSeveralSelected()
{
    Entries list(QAbstractItemView::MultiSelection);
    list.click(0);
    list.click(2);
    QVERIFY(list.box.Selected(0) && !list.box.Selected(1) && list.box.Selected(2));
    QCOMPARE(list.log.take().count(u" Click"), 2);
    QCOMPARE(list.box.ListIndex(), 2);
    list.press(list.noEntry());
    list.release(list.noEntry());
    QCOMPARE(list.log.take(), QStringLiteral("MouseDown2 MouseUp2"));
    QVERIFY(list.box.Selected(0) && list.box.Selected(2));

    list.box.setSelected(0, false);
    QVERIFY(!list.box.Selected(0) && list.box.Selected(2));
    QCOMPARE(list.log.take(), QStringLiteral("Click2"));
    list.box.setListIndex(1); // moves the keys, selects nothing
    QCOMPARE(list.log.take(), QStringLiteral("Click1"));
    QVERIFY(!list.box.Selected(1) && list.box.Selected(2));

    list.box.RemoveItem(2);
    QCOMPARE(texts(list.box), QStringLiteral("a,b,d"));
    for (int i = 0; i < list.box.ListCount(); ++i)
        QVERIFY(!list.box.Selected(i));
    QCOMPARE(list.log.take(), QString());
}

void TestControls::listFocusSelectsNothing()
{
    QWidget window;
    QVBoxLayout layout(&window);
    Entries list;
    QLineEdit field;
    layout.addWidget(&field);
    layout.addWidget(&list.box);
    show(window);
    field.setFocus();
    QTRY_VERIFY(field.hasFocus());
    QTest::keyClick(&field, Qt::Key_Tab);
    QVERIFY(list.box.hasFocus());
    QCOMPARE(list.box.ListIndex(), -1);
    QCOMPARE(list.log.take(), QString());
}

/// And keeps all of it.
void TestControls::listShowsTheBeginningOfALongEntry()
{
    ListBox list;
    const QString longest(1'000'000, u'x');
    for (const QString& entry : {QString(1000, u'x'), QString(2000, u'x'), longest})
        list.AddItem(entry);
    show(list);
    const auto width = [&](int entry) {
        return list.sizeHintForIndex(list.model()->index(entry, 0)).width();
    };
    QVERIFY(width(1) > list.fontMetrics().horizontalAdvance(list.List(0)));
    QCOMPARE(width(2), width(1));
    QVERIFY(list.List(2) == longest);
}

// --- combo boxes

void TestControls::comboTakesALongText()
{
    Choice choice(true);
    const QString text(40'000, u'x');
    choice.box.setText(text);
    QVERIFY(choice.box.Text() == text);
}

void TestControls::comboAddsWithoutChoosing_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<QString>("text");
    QTest::newRow("with field") << true << "Load here";
    QTest::newRow("without field") << false << "";
}

void TestControls::comboAddsWithoutChoosing()
{
    QFETCH(bool, editable);
    QFETCH(QString, text);
    ComboBox box;
    QSignalSpy clicks(&box, &ComboBox::Click);
    box.setEditable(editable);
    if (editable)
        box.setText(text);
    box.AddItem(QStringLiteral("first"));
    box.AddItem(QStringLiteral("second"));
    QCOMPARE(texts(box), QStringLiteral("first,second"));
    QCOMPARE(box.ListIndex(), -1);
    QCOMPARE(box.Text(), text);
    box.Clear();
    box.addItem(QStringLiteral("third")); // as a form's own set-up does
    QCOMPARE(box.ListIndex(), -1);
    QCOMPARE(box.Text(), QString());
    QCOMPARE(clicks.count(), 0);
}

void TestControls::comboIndexByCode_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("with field") << true;
    QTest::newRow("without field") << false;
}

void TestControls::comboIndexByCode()
{
    QFETCH(bool, editable);
    Choice choice(editable);
    choice.box.setListIndex(1);
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b"));
    choice.box.setListIndex(1);
    QCOMPARE(choice.log.take(), QString());
    choice.box.setListIndex(2);
    QCOMPARE(choice.log.take(), QStringLiteral("Click2/c"));
    choice.box.setListIndex(-1);
    QCOMPARE(choice.log.take(), QStringLiteral("Click-1/"));
    for (const int index : {-2, 3})
        QCOMPARE(raised([&] { choice.box.setListIndex(index); }), 380);
    QCOMPARE(choice.box.ListIndex(), -1);
    QCOMPARE(choice.log.take(), QString());
}

void TestControls::comboTextByCode()
{
    Choice choice(true);
    choice.box.setText(QStringLiteral("b")); // reads like an entry, chooses none
    QCOMPARE(choice.log.take(), QStringLiteral("Change-1/b"));
    choice.box.setText(QStringLiteral("b"));
    QCOMPARE(choice.log.take(), QString());
    choice.box.setText(QString());
    QCOMPARE(choice.log.take(), QStringLiteral("Change-1/"));
}

void TestControls::comboTextOfAListWithoutField()
{
    Choice choice(false);
    choice.box.setText(QStringLiteral("c"));
    QCOMPARE(choice.box.Text(), QStringLiteral("c"));
    QCOMPARE(choice.box.ListIndex(), 2);
    for (const char* text : {"C", "", "x"})
        QCOMPARE(raised([&] { choice.box.setText(QString::fromLatin1(text)); }), 380);
    QCOMPARE(choice.box.ListIndex(), 2);
    QCOMPARE(choice.log.take(), QString());
}

void TestControls::comboPickedByHand_data()
{
    comboIndexByCode_data();
}

void TestControls::comboPickedByHand()
{
    QFETCH(bool, editable);
    Choice choice(editable);
    choice.pick(1);
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b"));
    choice.pick(1); // the same again
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b"));
    choice.pick(0);
    QCOMPARE(choice.log.take(), QStringLiteral("Click0/a"));

    QTest::keyClick(&choice.box, Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(choice.box.view()->isVisible());
    QTest::keyClick(choice.box.view(), Qt::Key_Down);
    QTest::keyClick(choice.box.view(), Qt::Key_Return);
    QTRY_VERIFY(!choice.box.view()->isVisible());
    QCoreApplication::processEvents(); // the next key is another one
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b"));

    QTest::keyClick(&choice.box, Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(choice.box.view()->isVisible());
    QTest::keyClick(choice.box.view(), Qt::Key_Escape);
    QTRY_VERIFY(!choice.box.view()->isVisible());
    QCOMPARE(choice.log.take(), QString());
}

void TestControls::comboStepsByHand()
{
    Choice choice(true);
    QTest::keyClick(&choice.box, Qt::Key_Down);
    QTest::keyClick(&choice.box, Qt::Key_Down);
    QTest::keyClick(&choice.box, Qt::Key_Up);
    QTest::keyClick(&choice.box, Qt::Key_Up); // there is none above
    wheel(&choice.box, -120);
    QCOMPARE(choice.log.take(), QStringLiteral("Click0/a Click1/b Click0/a Click1/b"));
}

void TestControls::comboWhoseChoiceActsOpens_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("with field") << true;
    QTest::newRow("without field") << false;
}

void TestControls::comboWhoseChoiceActsOpens()
{
    QFETCH(bool, editable);
    Choice choice(editable);
    choice.box.setChoiceActs();
    choice.box.setFocus();
    wheel(&choice.box, -120);
    QTest::keyClick(&choice.box, Qt::Key_Down);
    QTRY_VERIFY(choice.box.view()->isVisible());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up})
        QTest::keyClick(choice.box.view(), key);
    QCOMPARE(choice.log.take(), QString());
    const int marked = choice.box.view()->currentIndex().row();
    QTest::keyClick(choice.box.view(), Qt::Key_Return);
    QTRY_VERIFY(!choice.box.view()->isVisible());
    QCoreApplication::processEvents(); // the next key is another one
    QCOMPARE(choice.log.take(), QStringLiteral("Click%1/%2").arg(marked).arg(choice.box.List(marked)));

    QTest::keyClick(&choice.box, Qt::Key_C); // a field takes the letter, a list goes to the entry
    QCOMPARE(choice.box.view()->isVisible(), !editable);
    if (!editable) {
        QCOMPARE(choice.log.take(), QString());
        QTest::keyClick(choice.box.view(), Qt::Key_Return);
        QTRY_VERIFY(!choice.box.view()->isVisible());
        QCOMPARE(choice.log.take(), QStringLiteral("Click2/c"));
    }
}

void TestControls::keyThatClosesTheListIsSpent_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("with field, Enter") << true << Qt::Key_Return;
    QTest::newRow("without field, Enter") << false << Qt::Key_Return;
    QTest::newRow("without field, F4") << false << Qt::Key_F4;
}

/// A hand that is quicker than the desktop: the window still has the keyboard when the list is open.
void TestControls::keyThatClosesTheListIsSpent()
{
    QFETCH(bool, editable);
    QFETCH(Qt::Key, key);
    QDialog window;
    QVBoxLayout layout(&window);
    ComboBox box;
    box.setEditable(editable);
    box.AddItem(QStringLiteral("a"));
    QPushButton other;
    other.setDefault(true);
    layout.addWidget(&box);
    layout.addWidget(&other);
    show(window);
    box.setFocus();
    const QSignalSpy clicks(&other, &QPushButton::clicked);
    const QSignalSpy enters(&box, &ComboBox::EnterPressed);
    const QSignalSpy choices(&box, &ComboBox::Click);

    QTest::keyClick(window.windowHandle(), Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(box.view()->isVisible());
    QTest::keyClick(window.windowHandle(), Qt::Key_Down);
    QTest::keyClick(window.windowHandle(), key);
    QTRY_VERIFY(!box.view()->isVisible());
    const int chosen = key == Qt::Key_Return ? 1 : 0;
    QCOMPARE(choices.size(), chosen);
    QCOMPARE(box.Text(), QStringLiteral("a").first(chosen));
    QCOMPARE(clicks.size() + enters.size(), 0);

    if (key == Qt::Key_Return) { // the next one is the window's, or the field's
        QTest::keyClick(window.windowHandle(), key);
        QCOMPARE(editable ? enters.size() : clicks.size(), 1);
    }
}

/// A display gives the keyboard back some time after a list has closed; a quick hand has gone on by then.
void TestControls::keyBehindAClosedList()
{
    QWidget window;
    QVBoxLayout layout(&window);
    ComboBox box;
    ComboBox next;
    for (ComboBox* list : {&box, &next}) {
        list->AddItem(QStringLiteral("a"));
        list->AddItem(QStringLiteral("b"));
        layout.addWidget(list);
    }
    show(window);
    box.setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(box.view()->isVisible());
    QWindow* closed = box.view()->window()->windowHandle();
    QTest::keyClick(closed, Qt::Key_Escape);
    QTRY_VERIFY(!box.view()->isVisible());
    const int chosen = box.ListIndex();

    next.setFocus();
    QTest::keyClick(closed, Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(next.view()->isVisible());
    QVERIFY(!box.view()->isVisible());
    QCOMPARE(box.ListIndex(), chosen);
}

/// The dialog is over before the key that chose has reached anything else.
void TestControls::keyWhoseChoiceOpensADialogIsSpent()
{
    QDialog window;
    QVBoxLayout layout(&window);
    ComboBox box;
    box.AddItem(QStringLiteral("a"));
    QPushButton other;
    other.setDefault(true);
    layout.addWidget(&box);
    layout.addWidget(&other);
    int dialogs = 0;
    connect(&box, &ComboBox::Click, &window, [&] {
        QDialog dialog(&window);
        QTimer answer;
        connect(&answer, &QTimer::timeout, &dialog, &QDialog::accept);
        answer.start(0);
        dialog.exec();
        ++dialogs;
    });
    show(window);
    box.setFocus();
    const QSignalSpy clicks(&other, &QPushButton::clicked);

    QTest::keyClick(window.windowHandle(), Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(box.view()->isVisible());
    QTest::keyClick(window.windowHandle(), Qt::Key_Down);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QTRY_COMPARE(dialogs, 1);
    QVERIFY(!box.view()->isVisible());
    QTest::keyClick(window.windowHandle(), Qt::Key_Space); // a key later
    QCOMPARE(clicks.size(), 0);
}

void TestControls::choiceThatEndsTheBox()
{
    QDialog window;
    auto* box = new ComboBox(&window);
    const QPointer<ComboBox> watched(box);
    box->AddItem(QStringLiteral("a"));
    connect(box, &ComboBox::Click, &window, [box] { delete box; });
    show(window);
    box->showPopup();
    QTRY_VERIFY(box->view()->isVisible());
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(window.windowHandle(), Qt::Key_Return);
    QTRY_VERIFY(watched.isNull());
}

void TestControls::comboTypingChangesTheTextOnly()
{
    Choice choice(true);
    choice.box.AddItem(QStringLiteral("banana"));
    choice.box.setFocus();
    QTRY_VERIFY(choice.box.hasFocus());
    QTest::keyClicks(&choice.box, QStringLiteral("ban")); // isn't completed
    QCOMPARE(choice.log.take(), QStringLiteral("Change-1/b Change-1/ba Change-1/ban"));
    QCOMPARE(choice.box.lineEdit()->selectedText(), QString());

    QTest::keyClick(&choice.box, Qt::Key_Backspace);
    QTest::keyClick(&choice.box, Qt::Key_Backspace);
    QCOMPARE(choice.log.take(), QStringLiteral("Change-1/ba Change-1/b"));

    choice.other.setFocus(); // leaving the field with an entry's text chooses nothing
    QTRY_VERIFY(!choice.box.hasFocus());
    QCOMPARE(choice.log.take(), QString());
    QCOMPARE(choice.box.ListIndex(), -1);
    QCOMPARE(texts(choice.box), QStringLiteral("a,b,c,banana"));
}

void TestControls::comboEnterIsConsumed()
{
    struct Window : QWidget
    {
        void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
        int keys = 0;
    } window;
    QVBoxLayout layout(&window);
    ComboBox box;
    layout.addWidget(&box);
    box.setEditable(true);
    box.AddItem(QStringLiteral("a"));
    show(window);
    QSignalSpy enters(&box, &ComboBox::EnterPressed);
    QSignalSpy clicks(&box, &ComboBox::Click);
    QSignalSpy chosen(&box, &QComboBox::activated);
    for (const char* text : {"a", "new", ""}) { // an entry, no entry, nothing
        box.setText(QString::fromLatin1(text));
        enters.clear();
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClick(&box, Qt::Key_Enter);
        QTest::keyClick(box.lineEdit(), Qt::Key_Return);
        QCOMPARE(enters.count(), 3);
        QCOMPARE(box.Text(), QString::fromLatin1(text));
    }
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(box.ListIndex(), -1);
    QCOMPARE(texts(box), QStringLiteral("a"));
    QCOMPARE(window.keys, 0);
}

void TestControls::comboWithoutFieldHasNoEnter()
{
    Choice choice(true);
    choice.box.setEditable(false);
    QTest::keyClick(&choice.box, Qt::Key_Return);
    QCOMPARE(choice.log.take(), QString());
    choice.box.setEditable(true);
    choice.box.setEditable(true); // events come once all the same
    QTest::keyClicks(&choice.box, QStringLiteral("x"));
    QTest::keyClick(&choice.box, Qt::Key_Return);
    QCOMPARE(choice.log.take(), QStringLiteral("Change-1/x Enter-1/x"));
}

void TestControls::comboChosenTextReplacesTypedText()
{
    Choice choice(true);
    choice.box.setListIndex(1);
    choice.box.setText(QStringLiteral("typed"));
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b Change1/typed"));
    choice.box.setListIndex(1);
    QCOMPARE(choice.box.Text(), QStringLiteral("b"));
    QCOMPARE(choice.log.take(), QString());
    choice.box.setText(QStringLiteral("typed"));
    choice.log.take();
    choice.pick(1);
    QCOMPARE(choice.log.take(), QStringLiteral("Click1/b"));
}

void TestControls::comboCleared()
{
    Choice choice(true);
    choice.box.setListIndex(2);
    choice.log.take();
    choice.box.Clear();
    QCOMPARE(choice.box.ListCount(), 0);
    QCOMPARE(choice.box.ListIndex(), -1);
    QCOMPARE(choice.box.Text(), QString());
    QCOMPARE(choice.box.List(0), QString());
    QCOMPARE(choice.log.take(), QString());

    Choice typed(true); // a text of nobody's list goes too
    QTest::keyClicks(typed.box.lineEdit(), QStringLiteral("typed"));
    typed.box.Clear();
    QCOMPARE(typed.box.Text(), QString());
}

// --- tabs

void TestControls::tabByHand()
{
    Pages pages;
    QCOMPARE(pages.log.take(), QString()); // the first page came up by itself
    const auto click = [&](int tab) {
        QTest::mouseClick(pages.tabs.tabBar(), Qt::LeftButton, {},
                          pages.tabs.tabBar()->tabRect(tab).center());
    };
    click(2);
    QCOMPARE(pages.log.take(), QStringLiteral("Click0>2"));
    click(2);
    QCOMPARE(pages.log.take(), QString());
    click(1);
    QCOMPARE(pages.log.take(), QStringLiteral("Click2>1"));
}

void TestControls::tabByKeys()
{
    Pages pages;
    QTest::keyClick(pages.tabs.tabBar(), Qt::Key_Right);
    QTest::keyClick(pages.tabs.tabBar(), Qt::Key_Right);
    QTest::keyClick(pages.tabs.tabBar(), Qt::Key_Right); // there is none beyond
    QTest::keyClick(pages.tabs.tabBar(), Qt::Key_Left);
    QCOMPARE(pages.log.take(), QStringLiteral("Click0>1 Click1>2 Click2>1"));
    QTest::keyClick(&pages.tabs, Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(pages.log.take(), QStringLiteral("Click1>2"));
}

void TestControls::tabByCode()
{
    Pages pages;
    QCOMPARE(pages.tabs.Tab(), 0);
    pages.tabs.setTab(0);
    QCOMPARE(pages.log.take(), QString());
    pages.tabs.setTab(1);
    QCOMPARE(pages.tabs.Tab(), 1);
    QCOMPARE(pages.log.take(), QStringLiteral("Click0>1"));
    for (const int tab : {-1, 3})
        QCOMPARE(raised([&] { pages.tabs.setTab(tab); }), 380);
    QCOMPARE(pages.log.take(), QString());

    // A handler that goes elsewhere hears of each change once, with the right page before it.
    const auto goHome = connect(&pages.tabs, &SSTab::Click, this, [&](int) {
        if (pages.tabs.Tab() == 2)
            pages.tabs.setTab(0);
    });
    pages.tabs.setTab(2);
    QCOMPARE(pages.log.take(), QStringLiteral("Click1>2 Click2>0"));
    disconnect(goHome);
}

void TestControls::tabCaptionsKeepTheirBlank()
{
    Pages pages;
    QCOMPARE(pages.tabs.tabText(0), QStringLiteral(" Editor"));
    QCOMPARE(pages.tabs.tabText(1), QStringLiteral(" Preview"));
    QCOMPARE(pages.tabs.tabText(2), QStringLiteral(" Internet"));
}

// --- all

void TestControls::listObjects()
{
    ListBox list;
    ComboBox combo;
    for (ListObject* object : {static_cast<ListObject*>(&list), static_cast<ListObject*>(&combo)}) {
        QCOMPARE(object->ListCount(), 0);
        object->AddItem(QStringLiteral("one"));
        object->AddItem(QStringLiteral("two"));
        QCOMPARE(object->ListCount(), 2);
        QCOMPARE(object->List(1), QStringLiteral("two"));
        QCOMPARE(object->List(2), QString());
        QCOMPARE(object->List(-1), QString());
    }
}

void TestControls::accessibleRoles()
{
    const auto role = [](QWidget* widget) {
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(widget);
        return face ? face->role() : QAccessible::NoRole;
    };
    ScrollBar bar(nullptr);
    CheckBox check(nullptr);
    OptionButton option(nullptr);
    ListBox list;
    ComboBox combo;
    SSTab tabs;
    QCOMPARE(role(&check), role(std::make_unique<QCheckBox>().get()));
    QCOMPARE(role(&option), role(std::make_unique<QRadioButton>().get()));
    QCOMPARE(role(&list), role(std::make_unique<QListWidget>().get()));
    QCOMPARE(role(&combo), role(std::make_unique<QComboBox>().get()));
    QCOMPARE(role(&tabs), role(std::make_unique<QTabWidget>().get()));
    QCOMPARE(role(&bar), QAccessible::Slider);
    QCOMPARE(role(&check), QAccessible::CheckBox);
    QCOMPARE(role(&option), QAccessible::RadioButton);

    combo.setEditable(true); // the list, then the field
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&combo);
    QCOMPARE(face->childCount(), 2);
    QCOMPARE(face->child(0)->role(), QAccessible::List);
    QCOMPARE(face->child(1)->role(), QAccessible::EditableText);
    for (int i = 0; i < 2; ++i)
        QCOMPARE(face->indexOfChild(face->child(i)), i);

    auto* page = new QWidget; // told by its caption
    tabs.addTab(page, QString());
    tabs.setTabText(0, QStringLiteral(" &Payment"));
    face = QAccessible::queryAccessibleInterface(page);
    QCOMPARE(face->role(), QAccessible::Grouping);
    QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Payment"));
    tabs.removeTab(0);
    QCOMPARE(face->text(QAccessible::Name), QString());
    delete page;
}

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
