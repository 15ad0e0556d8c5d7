// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Doors.h"

#include <QList>
#include <QStringList>
#include <functional>

namespace brindlemark {

/// Answers modal dialogs from a script and keeps a record of what was asked. A dialog that the script does
/// not expect fails the test. Lives on the test's stack: the desktop's doors come back at its end, which also
/// fails the test when an answer was left over.
class ScriptedDoors : public Doors
{
public:
    ScriptedDoors();
    ~ScriptedDoors() override;

    /// The next dialogs' answers, in the order in which the dialogs are expected.
    void answerMsgBox(MsgAnswer answer);
    void answerInputBox(const QString& text);
    void cancelInputBox();
    void answerOpen(const QString& path);
    void cancelOpen();
    void answerSave(const QString& path);
    void cancelSave();
    void answerColor(int number);
    void cancelColor();
    void answerFont(const QFont& font);
    void cancelFont();
    /// The print goes to a PDF file; of a source, to these pages only (from 1), where they are given.
    void answerPrint(const QString& path, int fromPage = 0, int toPage = 0);
    void cancelPrint();
    /// Looks at the preview, and closes it.
    void closePreview();

    /// Drops the answers that are left over, where chance decides what is asked.
    void forgetAnswers() { m_script.clear(); }

    /// Runs `during` while the next dialog is open, before it is answered.
    void during(std::function<void()> during);

    /// Selects something in another window, for the mouse's middle button.
    void select(std::unique_ptr<QMimeData> data);

    /// One line a dialog, as "MsgBox|title|prompt|icon|buttons", "InputBox|title|prompt|initial",
    /// "Open|title|file name|filter", "Save|...", "Color|number", "Font|family|size|bold|italic",
    /// "Print|name|pages that can be chosen", "Preview|name|how many pages there are to see".
    QStringList asked;
    /// Takes the record: what was asked since the last call.
    QStringList takeAsked();

    int beeps = 0;
    /// The exit code, once the program has ended.
    std::optional<int> ended;
    /// Whether that was the end of a program that may not go on.
    bool endedAtOnce = false;

    MsgAnswer msgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& initial) override;
    bool openDialog(CommonDialog& dialog) override;
    bool saveDialog(CommonDialog& dialog) override;
    bool colorDialog(CommonDialog& dialog) override;
    bool fontDialog(CommonDialog& dialog) override;
    bool printDialog(QPrinter& printer, PageChoice choice) override;
    void printPreview(QPrinter& printer, const std::function<bool()>& paint) override;
    void setClipboard(std::unique_ptr<QMimeData> data) override;
    const QMimeData* clipboard() override;
    const QMimeData* selection() override;
    void beep() override;
    qint64 clock() override;
    void end(int exitCode) override;
    void endNow(int exitCode) override;

private:
    struct Answer
    {
        QString dialog; // "MsgBox", "Open" ...
        bool cancelled = false;
        MsgAnswer button = MsgAnswer::Ok;
        QString text{};
        int number = 0;
        QFont font{};
        int fromPage = 0;
        int toPage = 0;
        std::function<void()> during{};
    };

    void expect(Answer answer);
    Answer next(const QString& dialog, const QString& record);
    bool takeFile(CommonDialog& dialog, const Answer& answer);

    QList<Answer> m_script;
    std::function<void()> m_during;
    std::unique_ptr<QMimeData> m_clipboard = std::make_unique<QMimeData>();
    std::unique_ptr<QMimeData> m_selection = std::make_unique<QMimeData>();
};

/// How many pages a preview shows, painted as the toolkit's own dialog has them painted; -1: `paint` could
/// not.
int previewedPages(QPrinter& printer, const std::function<bool()>& paint);

} // namespace brindlemark
