#include "ScriptedDoors.h"
#include "platform/Events.h"
#include "forms/Form.h"
#include "platform/RuntimeError.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

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

    using Form::setCancelButton;

    static inline int loads = 0;
    static inline bool failLoad = false;

protected:
    bool queryUnload() override { return !refuse; }

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
    void escapeIsForWhatIsOpenFirst();
    void untrappedErrorEndsTheProgram();
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
    QVERIFY_EXCEPTION_THROWN(form<Sample>(), RuntimeError);
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

void TestForms::untrappedErrorEndsTheProgram()
{
    ScriptedDoors script;
    Sample* sample = form<Sample>();
    sample->click = [] { throw RuntimeError(ErrorNumber::TypeMismatch); };
    script.answerMsgBox(MsgAnswer::Ok);
    QTest::mouseClick(&sample->Command1, Qt::LeftButton);
    QCOMPARE(script.asked, QStringList{"MsgBox|Brindlemark|Run-time error '13':\n\nType mismatch|Stop|Ok"});
    QCOMPARE(script.ended, 1);
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
