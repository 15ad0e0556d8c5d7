// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPoint>
#include <QRect>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>
#include <cstdio>

namespace brindlemark {

namespace {

// ---- A Wayland desktop, which alone knows its windows and tells of them by swaymsg

/// A window as the desktop has it.
struct DesktopWindow
{
    QString title;
    QRect place; // without its frame
    bool hasKeyboard = false;

    bool operator==(const DesktopWindow&) const = default;
};

void collect(const QJsonObject& node, QList<DesktopWindow>& windows)
{
    const auto rect = [&](const char* name) {
        const QJsonObject sides = node.value(QLatin1String(name)).toObject();
        return QRect(sides.value(QLatin1String("x")).toInt(), sides.value(QLatin1String("y")).toInt(),
                     sides.value(QLatin1String("width")).toInt(),
                     sides.value(QLatin1String("height")).toInt());
    };
    if (node.contains(QLatin1String("pid"))) {
        const QRect inside = rect("window_rect");
        windows.append({node.value(QLatin1String("name")).toString(),
                        inside.translated(rect("rect").topLeft()),
                        node.value(QLatin1String("focused")).toBool()});
    }
    for (const char* children : {"nodes", "floating_nodes"}) {
        const QJsonArray nodes = node.value(QLatin1String(children)).toArray();
        for (const auto& child : nodes)
            collect(child.toObject(), windows);
    }
}

/// The desktop's windows, the lowest first.
QList<DesktopWindow> desktopWindows()
{
    QProcess asked;
    asked.start(QStringLiteral("swaymsg"),
                {QStringLiteral("--raw"), QStringLiteral("--type"), QStringLiteral("get_tree")});
    QList<DesktopWindow> windows;
    if (asked.waitForFinished(Patience))
        collect(QJsonDocument::fromJson(asked.readAllStandardOutput()).object(), windows);
    return windows;
}

/// Waits until the window with this title is in front, has the keyboard and lies still.
bool comesToTheFront(const QString& title)
{
    // The desktop tells a new place at once and goes there when the program has drawn, after 200 ms at the
    // latest.
    constexpr int Settled = 400; // milliseconds
    DesktopWindow last;
    QElapsedTimer still;
    return QTest::qWaitFor(
        [&] {
            const QList<DesktopWindow> windows = desktopWindows();
            const DesktopWindow front = windows.isEmpty() ? DesktopWindow() : windows.constLast();
            if (!still.isValid() || front != last)
                still.start();
            last = front;
            return front.title == title && front.hasKeyboard && still.hasExpired(Settled);
        },
        Patience);
}

std::optional<DesktopWindow> desktopWindow(const QString& title)
{
    const QList<DesktopWindow> windows = desktopWindows();
    const auto window = std::find_if(windows.begin(), windows.end(),
                                     [&](const DesktopWindow& each) { return each.title == title; });
    return window == windows.end() ? std::nullopt : std::optional(*window);
}

/// Without what the Wayland protocol's own log says, each line of which begins with the time.
QByteArray withoutProtocol(const QByteArray& errors)
{
    static const QRegularExpression line(QStringLiteral("^\\[ *[\\d.]+\\].*\\n"),
                                         QRegularExpression::MultilineOption);
    return QString::fromUtf8(errors).remove(line).toUtf8();
}

} // namespace

bool isWayland()
{
    return qEnvironmentVariableIsSet("SWAYSOCK");
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        QTest::qFail(qPrintable(path + QStringLiteral(" can't be read")), __FILE__, __LINE__);
        return {};
    }
    return file.readAll();
}

QString xdotool(const QStringList& arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), arguments);
    if (!tool.waitForFinished(Patience) || tool.exitCode() != 0)
        return QString();
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

bool displayAnswers()
{
    if (isWayland())
        return true; // with-wayland has waited
    return QTest::qWaitFor([] { return !xdotool({QStringLiteral("get_num_desktops")}).isEmpty(); }, Patience);
}

bool installProgram(const QString& folder)
{
    QProcess cmake;
    cmake.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    cmake.start(QStringLiteral(CMAKE), {QStringLiteral("--install"), QStringLiteral(BUILD_FOLDER),
                                        QStringLiteral("--prefix"), folder});
    if (!cmake.waitForFinished(Patience) || cmake.exitStatus() != QProcess::NormalExit ||
        cmake.exitCode() != 0)
        return false;
    const QString other = qEnvironmentVariable("BRINDLEMARK_PROGRAM"); // with a planted fault
    const QString program = folder + QStringLiteral("/brindlemark");
    return other.isEmpty() || (QFile::remove(program) && QFile::copy(other, program));
}

Program::Program() : m_ownFolder(std::in_place), m_folder(m_ownFolder->path())
{
    QVERIFY(m_errors.open());
    QVERIFY(installProgram(m_folder));
}

Program::Program(const QString& folder) : m_folder(folder)
{
    QVERIFY(m_errors.open());
}

Program::~Program()
{
    kill();
    const QByteArray written = withoutProtocol(errors());
    static_cast<void>(std::fwrite(written.constData(), 1, size_t(written.size()), stderr));
}

void Program::setEnvironment(const char* name, const QString& value)
{
    QProcessEnvironment environment = m_process.processEnvironment();
    if (environment.isEmpty())
        environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QString::fromLatin1(name), value);
    m_process.setProcessEnvironment(environment);
}

void Program::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

void Program::write(const QString& name, const QByteArray& bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray Program::read(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void Program::launch(const QStringList& arguments)
{
    if (isWayland())
        setEnvironment("WAYLAND_DEBUG", QStringLiteral("client")); // tells what the desktop is told
    m_process.setStandardErrorFile(m_errors.fileName(), QIODevice::Append);
    m_process.start(path(QStringLiteral("brindlemark")), arguments);
    QVERIFY(m_process.waitForStarted());
}

void Program::start()
{
    launch();
    QVERIFY2(activate(MainWindow), "no main window");
}

int Program::exitCode()
{
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(Patience))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

/// The numbers of the program's visible windows of which this is true, too. A search falls over a window that
/// goes meanwhile, a list or a tip maybe, and is then made again: it has not found that there is none.
QStringList Program::search(const QStringList& condition) const
{
    const QStringList arguments =
        QStringList{QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
                    QStringLiteral("--pid"), QString::number(m_process.processId())} +
        condition;
    QProcess tool;
    for (QDeadlineTimer limit(Patience); !limit.hasExpired();) {
        tool.start(QStringLiteral("xdotool"), arguments);
        if (tool.waitForFinished(Patience) && tool.readAllStandardError().isEmpty())
            return QString::fromUtf8(tool.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    QTest::qFail("the display's windows can't be searched", __FILE__, __LINE__);
    return {};
}

/// How often the program has told a Wayland desktop something.
qsizetype Program::toldDesktop(const char* pattern) const
{
    return QString::fromLatin1(errors()).count(QRegularExpression(QString::fromLatin1(pattern)));
}

qsizetype Program::ties() const
{
    return toldDesktop("-> xdg_toplevel[@#]\\d+\\.set_parent\\(xdg_toplevel[@#]\\d+\\)");
}

QString Program::window(const QString& title) const
{
    if (isWayland())
        return desktopWindow(title) ? title : QString();
    const QString pattern = u'^' + QRegularExpression::escape(title) + u'$';
    return search({QStringLiteral("--name"), pattern}).value(0);
}

qsizetype Program::visibleWindows() const
{
    if (isWayland())
        return desktopWindows().size() + toldDesktop("-> xdg_surface[@#]\\d+\\.get_popup\\(") -
               toldDesktop("-> xdg_popup[@#]\\d+\\.destroy\\(");
    return search({}).size();
}

bool Program::waitFor(const QString& title) const
{
    return QTest::qWaitFor([&] { return !window(title).isEmpty(); }, Patience);
}

bool Program::waitGone(const QString& title) const
{
    return QTest::qWaitFor([&] { return window(title).isEmpty(); }, Patience);
}

bool Program::activate(const QString& title) const
{
    if (isWayland())
        return comesToTheFront(title);
    return QTest::qWaitFor(
        [&] {
            const QString id = window(title);
            if (id.isEmpty())
                return false;
            if (xdotool({QStringLiteral("getactivewindow")}) == id &&
                xdotool({QStringLiteral("getwindowfocus")}) == id)
                return true;
            xdotool({QStringLiteral("windowactivate"), id});
            return false;
        },
        Patience);
}

void Program::key(const QString& name)
{
    xdotool({QStringLiteral("key"), name});
}

void Program::keys(const QString& names)
{
    xdotool(QStringList{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("15")} +
            names.split(u' '));
}

void Program::type(const QString& text)
{
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("15"), QStringLiteral("--"),
             text});
}

void Program::click(const QString& title, int x, int y) const
{
    if (isWayland()) {
        const std::optional<DesktopWindow> window = desktopWindow(title);
        QVERIFY2(window, qPrintable(title));
        const QRect& place = window->place;
        const QPoint spot(x < 0 ? place.right() + 1 + x : place.x() + x,
                          y < 0 ? place.bottom() + 1 + y : place.y() + y);
        xdotool({QStringLiteral("mousemove"), QString::number(spot.x()), QString::number(spot.y()),
                 QStringLiteral("click"), QStringLiteral("1")});
        return;
    }
    const QString id = window(title);
    static const QRegularExpression size(QStringLiteral("WIDTH=(\\d+)\\s+HEIGHT=(\\d+)"));
    const auto measured =
        size.match(xdotool({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), id}));
    x += x < 0 ? measured.captured(1).toInt() : 0;
    y += y < 0 ? measured.captured(2).toInt() : 0;
    xdotool({QStringLiteral("mousemove"), QStringLiteral("--window"), id, QString::number(x),
             QString::number(y), QStringLiteral("click"), QStringLiteral("1")});
}

void Program::file(const QString& title, const QString& accessKey) const
{
    QVERIFY(activate(title));
    click(title, 15, 10); // the first title of the menu bar
    key(accessKey);
}

void Program::append(const QString& title, const QString& text) const
{
    QVERIFY(activate(title));
    click(title, 350, 350); // within the source box
    key(QStringLiteral("ctrl+End"));
    type(text);
}

void Program::answerFile(const QString& dialog, const QString& filePath) const
{
    QVERIFY2(activate(dialog), qPrintable(dialog));
    key(QStringLiteral("ctrl+a"));
    type(filePath);
    key(QStringLiteral("Return"));
    QVERIFY2(waitGone(dialog), qPrintable(dialog));
}

void Program::press(const QString& dialog, const QString& keyName) const
{
    QVERIFY2(activate(dialog), qPrintable(dialog));
    key(keyName);
    QVERIFY2(waitGone(dialog), qPrintable(dialog));
}

} // namespace brindlemark
