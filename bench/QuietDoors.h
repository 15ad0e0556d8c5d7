// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Doors.h"

namespace brindlemark {

/// Says OK where a message would come up, for what is measured up to there. Of all else there is nothing.
class QuietDoors : public Doors
{
public:
    QuietDoors() { setDoors(this); }
    ~QuietDoors() override { setDoors(nullptr); }
    Q_DISABLE_COPY_MOVE(QuietDoors)

    MsgAnswer msgBox(const QString&, const QString&, MsgIcon, MsgButtons) override { return MsgAnswer::Ok; }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override { return {}; }
    bool openDialog(CommonDialog&) override { return false; }
    bool saveDialog(CommonDialog&) override { return false; }
    bool colorDialog(CommonDialog&) override { return false; }
    bool fontDialog(CommonDialog&) override { return false; }
    bool printDialog(QPrinter&, PageChoice) override { return false; }
    void printPreview(QPrinter&, const std::function<bool()>&) override {}
    void setClipboard(std::unique_ptr<QMimeData>) override {}
    const QMimeData* clipboard() override { return nullptr; }
    const QMimeData* selection() override { return nullptr; }
    void beep() override {}
    qint64 clock() override { return 0; }
    void end(int) override {}
    void endNow(int) override {}
};

} // namespace brindlemark
