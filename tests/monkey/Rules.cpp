// SPDX-License-Identifier: GPL-3.0-or-later

#include "Rules.h"

#include "Monkey.h"
#include "platform/Events.h"
#include "shell/FrmEarlier.h"
#include "shell/FrmWeb.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMutex>
#include <QRegularExpression>
#include <QScreen>
#include <array>
#include <cstdio>
#include <utility>

namespace brindlemark {

namespace {

/// Warnings that say nothing of the program.
constexpr std::array KnownWarnings = {
    "This plugin does not support",             // what a platform without windows can't do
    "Release of profile requested but",         // the engine at its end
    "js: ",                                     // what a page's own scripts say
    "No suitable graphics backend found",       // the engine, without a display
    "Unknown or unsupported skia image format", // the engine, of a picture that is dragged
    "QRhiGles2: Failed to create",              // newer engines, where there is no OpenGL
    "QVulkanInstance: Failed to initialize",    // likewise
    "Unable to detect GPU vendor",              // likewise
};

QString firstWarning;
QMutex warningLock;
QtMessageHandler handlerBefore = nullptr;

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const bool known = std::ranges::any_of(
        KnownWarnings, [&](const char* begin) { return text.startsWith(QLatin1String(begin)); });
    if (known)
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const QMutexLocker locked(&warningLock);
        if (firstWarning.isEmpty())
            firstWarning = QLatin1String(context.category) + QStringLiteral(": ") + text;
    }
    handlerBefore(type, context, text);
}

QMap<QString, QByteArray> filesIn(const QString& folder)
{
    QMap<QString, QByteArray> files;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        QFile file(folder + u'/' + name);
        if (file.open(QIODevice::ReadOnly))
            files[name] = file.readAll();
    }
    return files;
}

} // namespace

void watchWarnings()
{
    handlerBefore = qInstallMessageHandler(hear);
}

QString takeWarning()
{
    const QMutexLocker locked(&warningLock);
    return std::exchange(firstWarning, QString());
}

Rules::Rules(QString documents) : m_documents(std::move(documents)), m_files(filesIn(m_documents)) {}

Rules::Source Rules::source()
{
    const FrmWeb* web = loaded<FrmWeb>();
    if (!web)
        return {};
    return {web->RichTextBox1->Text(), web->tab() == FrmWeb::EditorTab};
}

void Rules::before()
{
    m_before = source();
}

QString Rules::windows()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || !qobject_cast<const Form*>(window))
            continue;
        const QSize size =
            window->size().expandedTo(window->minimumSizeHint()).expandedTo(window->minimumSize());
        if (size.width() > screen.width() || size.height() > screen.height()) {
            return QStringLiteral("screen: %1 is %2 x %3")
                .arg(windowName(window))
                .arg(size.width())
                .arg(size.height());
        }
    }
    if (QGuiApplication::overrideCursor() && !handlersRun())
        return QStringLiteral("hourglass: it was left behind");
    return {};
}

/// A file changes when the document is saved, and holds just that then.
QString Rules::files(bool twice)
{
    const QMap<QString, QByteArray> now = filesIn(m_documents);
    const Source after = source();
    // Each surface writes a page its own way; the window of earlier texts saves any of them.
    const bool anyPage = twice || !m_before.isUp || !after.isUp || isLoaded<FrmEarlier>();
    QString wrong;
    for (const auto& [name, bytes] : now.asKeyValueRange()) {
        if (const auto former = m_files.constFind(name); former != m_files.cend() && *former == bytes)
            continue;
        const bool whole =
            anyPage ? !bytes.isEmpty() : bytes == m_before.text + "\r\n" || bytes == after.text + "\r\n";
        if (!whole)
            wrong = QStringLiteral("file: %1 holds neither what was to be saved nor what it held").arg(name);
    }
    for (const QString& name : m_files.keys()) {
        if (!now.contains(name))
            wrong = QStringLiteral("file: %1 is gone").arg(name);
    }
    m_files = now;
    return wrong;
}

QString Rules::after(bool twice)
{
    if (QString wrong = windows(); !wrong.isEmpty())
        return wrong;
    if (QString wrong = files(twice); !wrong.isEmpty())
        return wrong;
    const QString warning = takeWarning();
    return warning.isEmpty() ? QString() : QStringLiteral("warning: ") + warning;
}

bool Rules::isKnown(const QString& fatal)
{
    // A torn generator tag or region (380), and settings that hold no number (13).
    return fatal.startsWith(QStringLiteral("Run-time error '380'")) ||
           fatal.startsWith(QStringLiteral("Run-time error '13'"));
}

QString Rules::strangeFiles(const QString& folder)
{
    static const QRegularExpression own(QStringLiteral(
        "^(web|Ils|Quick|Table|Table2|list2|webstyle|webstyle2|weblst|weblst2|weblst3)\\.ini$|^Help0\\.htm$|"
        "^Recovered(\\.old)?\\.htm$|^(recent|words)\\.txt$|^Brindlemark-unsaved-\\d+\\.(htm|lock)$|^(page|"
        "print)\\.pdf$"));
    QStringList strange;
    for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
        if (!own.match(name).hasMatch())
            strange << name;
    }
    return strange.join(QStringLiteral(", "));
}

} // namespace brindlemark
