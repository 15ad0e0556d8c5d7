// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MainWindow.h"
#include "Widgets.h"
#include "colour/Fader5.h"

#include <QTest>

namespace brindlemark {

class ScrollBar;

/// The fader on top of a main window, used as a hand uses it.
class FaderTool : public MainWindow
{
public:
    FaderTool();

    Fader5* tool = nullptr;

    /// Presses the fader's button of the toolbar.
    void show();
    /// Shows it with a text.
    void show(const QString& text);
    /// A control of the tool.
    template <typename Control>
    Control* control(const QString& name) const
    {
        auto* found = tool->findChild<Control*>(name);
        if (!found)
            QTest::qFail(qPrintable(name + QStringLiteral(" is no such control")), __FILE__, __LINE__);
        return found;
    }

    static void click(QAbstractButton* button);
    /// Clicks on the buttons with these names.
    void click(const QStringList& names) const;
    /// Moves a bar with keys.
    static void step(QWidget* bar, Qt::Key key) { QTest::keyClick(bar, key); }
    /// Takes a bar's slider and moves it, without letting go.
    static void dragBy(ScrollBar* bar, int pixels);
    static void letGo(ScrollBar* bar);

    /// The document that the sample shows.
    QString sample() const { return pageBody(tool->WebBrowser1); }
    /// The same when all that was under way is done.
    QString settledSample() const { return brindlemark::settledSample(tool->WebBrowser1); }
    /// What a sample shows of a fragment.
    QString rendered(const QString& fragment);
    /// What Copy gives.
    QString copied() const;

private:
    DocumentSurface m_reference;
};

} // namespace brindlemark
