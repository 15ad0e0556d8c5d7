// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Random.h"
#include "platform/Doors.h"

#include <QElapsedTimer>
#include <QStringList>
#include <optional>

namespace brindlemark {

/// Answers every dialog at once and by chance: by a number that is set before each action, so that the same
/// action is answered alike again. Pages are saved in one folder, and all else in another.
class RandomDoors : public Doors
{
public:
    RandomDoors(QString documents, QString presets);
    ~RandomDoors() override;
    Q_DISABLE_COPY_MOVE(RandomDoors)

    /// What the next dialogs are answered by.
    void answerBy(quint32 number) { m_random = Random(number); }
    /// From now on a seller who wants to be done answers: saves nothing, says yes to all else, cancels no
    /// question.
    void leave(bool leaving) { m_leaving = leaving; }

    /// The program has ended.
    bool ended = false;
    /// The error that has ended it.
    QString fatal;
    /// One line a dialog.
    QStringList asked;

    MsgAnswer msgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& initial) override;
    bool openDialog(CommonDialog& dialog) override;
    bool saveDialog(CommonDialog& dialog) override;
    bool colorDialog(CommonDialog& dialog) override;
    bool fontDialog(CommonDialog& dialog) override;
    bool printDialog(QPrinter& printer, PageChoice choice) override;
    void printPreview(QPrinter& printer, const std::function<bool()>& paint) override;
    void setClipboard(std::unique_ptr<QMimeData> data) override { m_clipboard = std::move(data); }
    const QMimeData* clipboard() override { return m_clipboard.get(); }
    const QMimeData* selection() override { return m_clipboard.get(); }
    void beep() override {}
    qint64 clock() override { return m_clock.elapsed(); }
    void end(int) override { ended = true; }
    void endNow(int) override { ended = true; }

private:
    QString m_documents;
    QString m_presets;
    Random m_random{0};
    bool m_leaving = false;
    std::unique_ptr<QMimeData> m_clipboard = std::make_unique<QMimeData>();
    QElapsedTimer m_clock;
};

} // namespace brindlemark
