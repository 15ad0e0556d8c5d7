// SPDX-License-Identifier: GPL-3.0-or-later

#include "ScriptedDoors.h"
#include "forms/Form.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <new>
#include <stdexcept>

using namespace brindlemark;

namespace {

/// A form with one button whose handler the test chooses.
class Sample : public Form
{
public:
    Sample()
    {
        if (failLoad)
            throw RuntimeError(ErrorNumber::TypeMismatch);
        on(&Command1, &QPushButton::clicked, this, &Sample::Command1_Click);
        ++loads;
    }
    ~Sample() override { --loads; }

    QPushButton Command1{QStringLiteral("Go"), this};
    std::function<void()> click;
    bool refuse = false;
    std::function<void()> asked;

    using Form::setCancelButton;
    using Form::setDefaultButton;

    static inline int loads = 0;
    static inline bool failLoad = false;

protected:
    bool queryUnload() override
    {
        if (asked)
            asked();
        return !refuse;
    }

private:
    void Command1_Click()
    {
        if (click)
            click();
    }
};

} // namespace

class TestForms : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void oneInstanceUntilUnloaded();
    void refusedUnloadKeepsTheForm();
    void formUnloadedInItsOwnHandlerLivesOn();
    void formUnloadedWhileItsHandlerServesEventsLivesOn();
    void failedLoadLeavesNoInstance();
    void closeButtonAsksToo();
    void closingWhileItAsksAsksNothing();
    void enterIsForTheButtonInHand();
    void heldEnterIsOnePress();
    void helpComesOnceAPress();
    void escapeIsForWhatIsOpenFirst();
    void untrappedErrorEndsTheProgram();
    void otherErrorsEndItToo_data();
    void otherErrorsEndItToo();
    void whateverTheToolkitCallsEndsIt_data();
    void whateverTheToolkitCallsEndsIt();
    void secondErrorIsSilent();
    void fatalSaysWhereTheTextIsKept();
};

void TestForms::cleanup()
{
    Sample::failLoad = false;
    if (isLoaded<Sample>()) {
        form<Sample>()->refuse = false;
        form<Sample>()->Unload();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    keepOnFatal(nullptr);
}

void TestForms::oneInstanceUntilUnloaded()
{
    QVERIFY(!isLoaded<Sample>());
    Sample* first = form<Sample>();
    QCOMPARE(form<Sample>(), first);
    first->Show();
    QVERIFY(first->isVisible());
    first->Unload();
    QVERIFY(!isLoaded<Sample>());
    QVERIFY(form<Sample>() != first);
}

void TestForms::refusedUnloadKeepsTheForm()
{
    Sample* sample = form<Sample>();
    sample->Show();
    sample->refuse = true;
    sample->Unload();
    QVERIFY(isLoaded<Sample>());
    QVERIFY(sample->isVisible());
}

void TestForms::formUnloadedInItsOwnHandlerLivesOn()
{
    Sample* sample = form<Sample>();
    sample->Show();
    int loadsInHandler = 0;
    sample->click = [&] {
        sample->Unload();
        QCoreApplication::processEvents();
        loadsInHandler = Sample::loads;
    };
    QTest::mouseClick(&sample->Command1, Qt::LeftButton);
    QCOMPARE(loadsInHandler, 1);
    QTRY_COMPARE(Sample::loads, 0);
}

void TestForms::formUnloadedWhileItsHandlerServesEventsLivesOn()
{
    // The first handler waits in a loop; meanwhile a second one, at a deeper level, closes the form.
    Sample* sample = form<Sample>();
    sample->Show();
    QPushButton closer;
    on(&closer, &QPushButton::clicked, &closer, [sample] { sample->Unload(); });
    int loadsInHandler = 0;
    sample->click = [&] {
        QTimer::singleShot(0, &closer, &QPushButton::click);
        while (!sample->isUnloaded())
            QCoreApplication::processEvents();
        for (int round = 0; round < 5; ++round)
            QCoreApplication::processEvents();
        loadsInHandler = Sample::loads;
    };
    QTimer::singleShot(0, &sample->Command1, &QPushButton::click);
    QTRY_COMPARE(loadsInHandler, 1);
    QTRY_COMPARE(Sample::loads, 0);
}

void TestForms::failedLoadLeavesNoInstance()
{
    Sample::failLoad = true;
    QVERIFY_THROWS_EXCEPTION(RuntimeError, form<Sample>());
    QVERIFY(!isLoaded<Sample>());
}

void TestForms::closeButtonAsksToo()
{
    Sample* sample = form<Sample>();
    sample->Show();
    sample->refuse = true;
    QVERIFY(!sample->close());
    QVERIFY(sample->isVisible());
    sample->refuse = false;
    sample->close();
    QVERIFY(!isLoaded<Sample>());
}

void TestForms::escapeIsForWhatIsOpenFirst()
{
    Sample* sample = form<Sample>();
    QLineEdit field(sample);
    field.setCompleter(new QCompleter({QStringLiteral("lamp")}, &field));
    sample->setCancelButton(&sample->Command1);
    int cancelled = 0;
    sample->click = [&] { ++cancelled; };
    sample->Show();
    QVERIFY(QTest::qWaitForWindowActive(sample));
    field.setFocus();
    QTest::keyClick(sample->windowHandle(), Qt::Key_L);
    const QWidget* words = field.completer()->popup();
    QTRY_VERIFY(words->isVisible());
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key_Escape);
    QTRY_VERIFY(!words->isVisible());
    QCOMPARE(cancelled, 0);
    QCOMPARE(field.text(), QStringLiteral("l"));
    QTest::keyClick(sample->windowHandle(), Qt::Key_Escape);
    QCOMPARE(cancelled, 1);
}

/// The close button is there to be pressed while a question stands.
void TestForms::closingWhileItAsksAsksNothing()
{
    Sample* sample = form<Sample>();
    sample->Show();
    int questions = 0;
    sample->asked = [&] {
        if (++questions < 3)
            sample->close();
    };
    sample->Unload();
    QCOMPARE(questions, 1);
    QVERIFY(!isLoaded<Sample>());
}

namespace {

/// A window with a default button, another one and a box, and what is counted of them.
struct EnterDesk
{
    EnterDesk()
    {
        sample->setDefaultButton(&sample->Command1);
        sample->click = [this] { ++presses; };
        QObject::connect(&other, &QPushButton::clicked, &other, [this] { ++others; });
        sample->Show();
        if (!QTest::qWaitForWindowActive(sample))
            QTest::qFail("the window does not come to the front", __FILE__, __LINE__);
    }
    Sample* sample = form<Sample>();
    QPushButton other{QStringLiteral("Other"), sample};
    QCheckBox box{QStringLiteral("Box"), sample};
    int presses = 0;
    int others = 0;
};

} // namespace

/// Enter presses a button that has the keyboard; a box leaves it to the window's own.
void TestForms::enterIsForTheButtonInHand()
{
    EnterDesk desk;
    desk.box.setFocus();
    QTest::keyClick(&desk.box, Qt::Key_Return);
    QCOMPARE(desk.presses, 1);
    QVERIFY(!desk.box.isChecked());
    desk.other.setFocus();
    QTest::keyClick(&desk.other, Qt::Key_Enter);
    QCOMPARE(desk.others, 1);
    QCOMPARE(desk.presses, 1);
}

/// What a window gives to the editor with Enter must not go there ten times because a hand rests on the key.
void TestForms::heldEnterIsOnePress()
{
    EnterDesk desk;
    const auto hold = [](QWidget* widget, Qt::Key key, const QString& text) {
        widget->setFocus();
        for (const bool repeated : {false, true, true}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text, repeated);
            QCoreApplication::sendEvent(widget, &press);
            if (!repeated)
                continue;
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text, repeated);
            QCoreApplication::sendEvent(widget, &release);
        }
        QTest::keyRelease(widget, key);
    };
    hold(&desk.other, Qt::Key_Return, QStringLiteral("\r"));
    QCOMPARE(desk.others, 1);
    QCOMPARE(desk.presses, 0);
    hold(&desk.box, Qt::Key_Enter, QStringLiteral("\r")); // a box leaves it to the window's own button
    QCOMPARE(desk.presses, 1);
    hold(&desk.sample->Command1, Qt::Key_Return, QStringLiteral("\r"));
    QCOMPARE(desk.presses, 2);
    hold(&desk.sample->Command1, Qt::Key_Return, QStringLiteral("\r")); // the next press is one more
    QCOMPARE(desk.presses, 3);
    QCOMPARE(desk.others, 1);
    // Other keys that are held go on.
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, QStringLiteral("\t"), true);
    QCoreApplication::sendEvent(&desk.sample->Command1, &tab);
    QVERIFY(!desk.sample->Command1.hasFocus());
}

/// F1 that is held down shows the help page once.
void TestForms::helpComesOnceAPress()
{
    int shown = 0;
    showHelpBy([&](const Form&) { ++shown; });
    const auto restored = qScopeGuard([] { showHelpBy({}); });
    Sample* sample = form<Sample>();
    sample->Show();
    QVERIFY(QTest::qWaitForWindowActive(sample));
    for (const bool repeated : {false, true, true})
        qt_sendShortcutOverrideEvent(sample, 0, Qt::Key_F1, Qt::NoModifier, QString(), repeated);
    QCOMPARE(shown, 1);
}

void TestForms::otherErrorsEndItToo_data()
{
    QTest::addColumn<std::function<void()>>("fail");
    QTest::addColumn<QString>("told");
    QTest::newRow("no memory") << std::function<void()>([] { throw std::bad_alloc(); })
                               << QStringLiteral("Run-time error '6':\n\nOut of memory");
    QTest::newRow("of a library") << std::function<void()>([] { throw std::runtime_error("The sky fell"); })
                                  << QStringLiteral("Run-time error '5':\n\nThe sky fell");
}

void TestForms::otherErrorsEndItToo()
{
    QFETCH(std::function<void()>, fail);
    QFETCH(QString, told);
    ScriptedDoors script;
    Sample* sample = form<Sample>();
    sample->click = fail;
    script.answerMsgBox(MsgAnswer::Ok);
    QTest::mouseClick(&sample->Command1, Qt::LeftButton);
    QCOMPARE(script.asked, QStringList{QStringLiteral("MsgBox|Brindlemark|%1|Stop|Ok").arg(told)});
    QCOMPARE(script.ended, 1);
}

/// What fails while the program ends is neither told nor keeps the text again.
/// What is no handler must not let an exception go through the toolkit either.
void TestForms::whateverTheToolkitCallsEndsIt_data()
{
    using Fail = std::function<void()>;
    QTest::addColumn<std::function<void(Fail)>>("called");
    QTest::newRow("override") << std::function<void(Fail)>([](const Fail& fail) {
        QVERIFY(!guardedCall([&] {
            fail();
            return true;
        }));
    });
    QTest::newRow("inner working") << std::function<void(Fail)>([](const Fail& fail) {
        QObject sender;
        onInner(&sender, &QObject::objectNameChanged, &sender, fail);
        sender.setObjectName(QStringLiteral("changed"));
    });
    QTest::newRow("from the queue") << std::function<void(Fail)>([](const Fail& fail) {
        QObject context;
        soon(&context, fail);
        QCoreApplication::processEvents();
    });
    QTest::newRow("waited for handlers")
        << std::function<void(Fail)>([](const Fail& fail) { guarded([&] { whenHandlersReturn(fail); }); });
}

void TestForms::whateverTheToolkitCallsEndsIt()
{
    using Fail = std::function<void()>;
    QFETCH(std::function<void(Fail)>, called);
    ScriptedDoors script;
    script.answerMsgBox(MsgAnswer::Ok);
    called([] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    QTRY_COMPARE(script.asked,
                 QStringList{"MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch|Stop|Ok"});
    QVERIFY(script.endedAtOnce);
}

void TestForms::secondErrorIsSilent()
{
    ScriptedDoors script;
    int kept = 0;
    keepOnFatal([&] {
        ++kept;
        return QString();
    });
    Sample* sample = form<Sample>();
    sample->click = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    script.during([] { guarded([] { throw RuntimeError(ErrorNumber::Overflow); }); });
    script.answerMsgBox(MsgAnswer::Ok);
    QTest::mouseClick(&sample->Command1, Qt::LeftButton);
    QCOMPARE(script.asked, QStringList{"MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch|Stop|Ok"});
    QCOMPARE(kept, 1);
    QCOMPARE(script.ended, 1);
}

void TestForms::untrappedErrorEndsTheProgram()
{
    ScriptedDoors script;
    Sample* sample = form<Sample>();
    sample->click = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    script.answerMsgBox(MsgAnswer::Ok);
    QTest::mouseClick(&sample->Command1, Qt::LeftButton);
    QCOMPARE(script.asked, QStringList{"MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch|Stop|Ok"});
    QCOMPARE(script.ended, 1);
    QVERIFY(script.endedAtOnce); // nothing more runs
}

void TestForms::fatalSaysWhereTheTextIsKept()
{
    ScriptedDoors script;
    keepOnFatal([] { return QStringLiteral("The text is kept."); });
    script.answerMsgBox(MsgAnswer::Ok);
    guarded([] { throw RuntimeError(ErrorNumber::InvalidPropertyValue); });
    QCOMPARE(script.asked, QStringList{"MsgBox|Brindlemark|Run-time error '380':\n\nInvalid property "
                                       "value\n\nThe text is kept.|Stop|Ok"});
    QCOMPARE(script.ended, 1);
}

QTEST_MAIN(TestForms)
#include "tst_forms.moc"
