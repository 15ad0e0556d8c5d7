// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Widgets.h"

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <optional>

namespace brindlemark {

// The program itself, in a folder of its own and on a real display, used with keys and mouse. Windows are
// found by their titles, results are read from files. What stacks the windows is a small window manager, or a
// Wayland desktop whose screen is that display (tests/with-wayland).

/// The title of the main window at the start.
inline const QString MainWindow = QStringLiteral("Untitled - Brindlemark 1.0");
/// The title of message boxes that have none of their own.
inline const QString Box = QStringLiteral("Brindlemark");

/// A file's bytes; fails the test when it can't be read.
QByteArray fileBytes(const QString& path);

/// What an xdotool command prints; empty when it fails.
QString xdotool(const QStringList& arguments);

/// Whether the desktop is a Wayland one.
bool isWayland();

/// Waits for the display and its window manager.
bool displayAnswers();

/// Installs the program into a folder, as its user would; the one that BRINDLEMARK_PROGRAM names, if it names
/// one. False when that fails.
bool installProgram(const QString& folder);

/// The program as it is installed, running as long as the object lives.
class Program
{
public:
    /// In a fresh folder of its own.
    Program();
    /// In a folder where it is installed already, and which stays.
    explicit Program(const QString& folder);
    ~Program();
    Q_DISABLE_COPY_MOVE(Program)

    QString path(const QString& name) const { return m_folder + u'/' + name; }
    void write(const QString& name, const QByteArray& bytes) const;
    /// A file's bytes; a null array when there is none.
    QByteArray read(const QString& name) const;

    /// Another value of a variable of the environment for the next start.
    void setEnvironment(const char* name, const QString& value);
    /// With a file that the desktop hands over, if one is named.
    void launch(const QStringList& arguments = {});
    /// Starts the program and waits for its main window.
    void start();
    bool isRunning() { return !m_process.waitForFinished(0) && m_process.state() == QProcess::Running; }
    /// Waits for the program's end; -1 when it stays or crashes.
    int exitCode();
    /// What the program has written to its error channel. It goes to the test's own when the object dies, but
    /// for what the program told a Wayland desktop.
    QByteArray errors() const { return fileBytes(m_errors.fileName()); }
    /// Ends the program as the system does when memory runs out.
    void kill();

    /// The desktop's name of the visible window with this title; empty when there is none.
    QString window(const QString& title) const;
    /// How many of the program's windows can be seen, open menus among them.
    qsizetype visibleWindows() const;
    /// How often a window has told a Wayland desktop that it belongs over another one.
    qsizetype ties() const;
    bool waitFor(const QString& title) const;
    bool waitGone(const QString& title) const;
    /// Waits for a window and until it has the keyboard. Under Wayland the program alone can bring it there.
    bool activate(const QString& title) const;

    static void key(const QString& name);
    /// Presses keys one after the other, their names with blanks between them.
    static void keys(const QString& names);
    static void type(const QString& text);
    /// Clicks in a window, at a place in pixels from its corner; negative ones count from the
    /// right and from the bottom.
    void click(const QString& title, int x, int y) const;

    /// Chooses an entry of the menu File by its access key.
    void file(const QString& title, const QString& accessKey) const;
    /// Types at the end of the source.
    void append(const QString& title, const QString& text) const;
    /// Types a path into a file dialog and takes it.
    void answerFile(const QString& dialog, const QString& filePath) const;
    /// Presses a key that closes a dialog.
    void press(const QString& dialog, const QString& keyName) const;

private:
    QStringList search(const QStringList& condition) const;
    qsizetype toldDesktop(const char* pattern) const;

    std::optional<QTemporaryDir> m_ownFolder;
    QString m_folder;
    QTemporaryFile m_errors;
    QProcess m_process;
};

} // namespace brindlemark
