// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/WarmUp.h"

#include "platform/Events.h"
#include "shell/FrmWeb.h"
#include "web/WebEngine.h"

#include <QTimer>

namespace brindlemark {

void warmUpBeforePreview(FrmWeb* main)
{
    constexpr int Rest = 1500; // milliseconds: longer than between two words
    auto* rest = new QTimer(main);
    rest->setSingleShot(true);
    rest->setInterval(Rest);
    onInner(main->RichTextBox1, &RichTextBox::Change, rest, [main, rest] {
        if (!main->RichTextBox1->isEmpty())
            rest->start();
    });
    onInner(rest, &QTimer::timeout, main, [main, rest] {
        if (canAct()) {
            main->WebBrowser1->warmUp();
        } else {
            rest->start();
        }
    });
}

} // namespace brindlemark
