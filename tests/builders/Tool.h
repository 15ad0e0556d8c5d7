#pragma once

#include "MainWindow.h"
#include "Widgets.h"
#include "web/WebControl.h"

#include <QTest>

/// A tool's window beside a main window.
template <typename F>
class Tool : public MainWindow
{
public:
    Tool() { show(); }

    F* tool = nullptr;

    void show()
    {
        tool = form<F>();
        tool->Show();
        if (!QTest::qWaitForWindowActive(tool, Patience))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }
    /// What the engine says of the sample.
    QString ask(const char* script) const
    {
        return tool->WebBrowser1->evaluate(QString::fromLatin1(script)).value_or(QVariant()).toString();
    }
    QByteArray settings() const { return folder.read(QStringLiteral("web.ini")); }
};

/// A caption without its access key.
inline QString plain(const QAbstractButton* button)
{
    return button->text().remove(u'&');
}
