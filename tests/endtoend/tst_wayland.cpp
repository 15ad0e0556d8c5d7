// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPoint>
#include <QTest>

using namespace brindlemark;

// The program on a Wayland desktop, where no window raises itself or knows where it is. The desktop tells
// which windows it has and which one has the keyboard; mouse and keys are those of its screen.

namespace {

const QString Page1 = QStringLiteral("Brindlemark Create 1 of 2");
const QString Page2 = QStringLiteral("Brindlemark Create 2 of 2 ");
const QString FindWindow = QStringLiteral("Find and Sreach");

// Places in the main window, in pixels from its corner.
constexpr QPoint FirstMenu(15, 10);
constexpr QPoint FindTool(243, 38);
constexpr QPoint HighlightTool(280, 38);
constexpr QPoint WizardTool(380, 38);
constexpr QPoint FaderTool(450, 38);
constexpr QPoint RuleTool(574, 38);
constexpr QPoint SourceBox(30, 400); // where no tool lies over it

/// Which windows get the keyboard, one after the other, as long as the object lives.
class KeyboardLog
{
public:
    KeyboardLog()
    {
        m_events.start(QStringLiteral("swaymsg"),
                       {QStringLiteral("--raw"), QStringLiteral("--monitor"), QStringLiteral("--type"),
                        QStringLiteral("subscribe"), QStringLiteral("[\"window\", \"tick\"]")});
        // The desktop begins with a tick.
        QVERIFY(QTest::qWaitFor([&] { return !read().isEmpty(); }, Patience));
    }
    ~KeyboardLog()
    {
        m_events.kill();
        m_events.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(KeyboardLog)

    QStringList titles()
    {
        QStringList titles;
        const QList<QByteArray> lines = read().split('\n');
        for (const QByteArray& line : lines) {
            const QJsonObject event = QJsonDocument::fromJson(line).object();
            if (event.value(QLatin1String("change")).toString() == QLatin1String("focus"))
                titles << event.value(QLatin1String("container"))
                              .toObject()
                              .value(QLatin1String("name"))
                              .toString();
        }
        return titles;
    }

private:
    QByteArray read() { return m_told += m_events.readAllStandardOutput(); }

    QProcess m_events;
    QByteArray m_told;
};

} // namespace

class TestWayland : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_program.reset(); }

    void listingBehindTheSaveQuestion();
    void toolComesBack_data();
    void toolComesBack();
    void toolsBelongToTheMainWindow();
    void offerOfUnsavedText();

private:
    void click(const QString& title, QPoint place) const { m_program->click(title, place.x(), place.y()); }
    QByteArray keptText() const;

    std::unique_ptr<Program> m_program;
};

void TestWayland::init()
{
    m_program = std::make_unique<Program>();
    m_program->start();
}

/// From window to window, each of which gets what is typed as soon as it has the keyboard.
void TestWayland::listingBehindTheSaveQuestion()
{
    const Program& hand = *m_program;
    click(MainWindow, SourceBox);
    hand.type(QStringLiteral("hello"));
    click(MainWindow, WizardTool);
    QVERIFY(m_program->activate(Box));
    hand.key(QStringLiteral("alt+n"));
    QVERIFY(m_program->activate(Page1));
    hand.type(QStringLiteral("Brass lamp"));
    hand.key(QStringLiteral("alt+d"));
    hand.type(QStringLiteral("Old and rare"));
    hand.keys(QStringLiteral("alt+m alt+a alt+l alt+w alt+y alt+s")); // PayPal, the seller pays
    KeyboardLog keyboard;
    hand.key(QStringLiteral("alt+o"));
    QVERIFY(m_program->activate(Page2));
    hand.key(QStringLiteral("alt+b"));
    QVERIFY(m_program->activate(Page1));
    hand.key(QStringLiteral("alt+o"));
    QVERIFY(m_program->activate(Page2));
    QTRY_COMPARE(keyboard.titles(), QStringList({Page2, Page1, Page2})); // and never the main window between
    hand.key(QStringLiteral("alt+e"));
    QVERIFY(m_program->activate(MainWindow));

    click(MainWindow, FirstMenu);
    hand.key(QStringLiteral("a"));
    QVERIFY(m_program->activate(QStringLiteral("Save As Files")));
    hand.key(QStringLiteral("ctrl+a"));
    hand.type(hand.path(QStringLiteral("lamp.htm")));
    hand.key(QStringLiteral("Return"));
    const QString title = QStringLiteral("lamp.htm - Brindlemark 1.0");
    QVERIFY(m_program->activate(title));
    const QByteArray page = hand.read(QStringLiteral("lamp.htm"));
    QVERIFY2(page.contains("\r\nBrass lamp\r\n") && page.contains("\r\nOld and rare\r\n"), page.constData());
    QVERIFY2(!page.contains("hello"), page.constData());
    click(title, FirstMenu);
    hand.key(QStringLiteral("e"));
    QCOMPARE(m_program->exitCode(), 0);
}

void TestWayland::toolComesBack_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::addColumn<QString>("tool");
    QTest::newRow("find") << FindTool << FindWindow;
    QTest::newRow("fader") << FaderTool << QStringLiteral(" Font Properties");
    QTest::newRow("rule") << RuleTool << QStringLiteral("Horizontal Rule Properties");
}

/// A tool that lies behind the main window comes to the front with its button.
void TestWayland::toolComesBack()
{
    QFETCH(QPoint, button);
    QFETCH(QString, tool);
    click(MainWindow, button);
    QVERIFY(m_program->activate(tool));
    click(MainWindow, SourceBox);
    QVERIFY(m_program->activate(MainWindow));
    click(MainWindow, button);
    QVERIFY(m_program->activate(tool));
}

/// Where the desktop heeds it, no tool gets behind the main window at all.
void TestWayland::toolsBelongToTheMainWindow()
{
    for (const auto& [button, tool] : {std::pair(FindTool, FindWindow), std::pair(WizardTool, Page1)}) {
        const qsizetype ties = m_program->ties();
        click(MainWindow, button);
        QVERIFY(m_program->activate(tool));
        QVERIFY2(m_program->ties() > ties, qPrintable(tool));
        Program::key(QStringLiteral("Escape"));
        QVERIFY(m_program->activate(MainWindow));
    }
    click(MainWindow, SourceBox);
    Program::type(QStringLiteral("lamp"));
    const qsizetype ties = m_program->ties();
    click(MainWindow, HighlightTool); // "loading..." comes and goes
    QTRY_VERIFY_WITH_TIMEOUT(m_program->ties() > ties, Patience);
}

QByteArray TestWayland::keptText() const
{
    return m_program->read(QStringLiteral("Brindlemark-unsaved-1.htm"));
}

void TestWayland::offerOfUnsavedText()
{
    click(MainWindow, SourceBox);
    Program::type(QStringLiteral("kept words"));
    QTRY_VERIFY_WITH_TIMEOUT(keptText().contains("kept words"), Patience);
    m_program->kill();
    const qsizetype ties = m_program->ties();
    m_program->launch();
    QVERIFY(m_program->activate(Box));
    QVERIFY(m_program->ties() > ties); // over the main window
    Program::key(QStringLiteral("alt+y"));
    QVERIFY(m_program->activate(MainWindow));
    click(MainWindow, SourceBox);
    Program::key(QStringLiteral("ctrl+End"));
    Program::type(QStringLiteral(" and more"));
    QTRY_VERIFY_WITH_TIMEOUT(keptText().contains("kept words and more"), Patience);
}

QTEST_GUILESS_MAIN(TestWayland)
#include "tst_wayland.moc"
