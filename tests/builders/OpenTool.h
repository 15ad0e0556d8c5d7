// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "MainWindow.h"
#include "WebProbe.h"
#include "Widgets.h"
#include "forms/ListObject.h"
#include "web/Sample.h"

#include <QAbstractButton>
#include <QTest>

namespace brindlemark {

/// A tool's window beside a main window.
template <typename F>
class OpenTool : public MainWindow
{
public:
    OpenTool() { show(); }

    F* tool = nullptr;

    void show()
    {
        tool = form<F>();
        tool->Show();
        if (!QTest::qWaitForWindowActive(tool, Patience))
            QTest::qFail("the window does not come up", __FILE__, __LINE__);
    }
    /// Closes the window without a question and opens it anew.
    void reopen()
    {
        tool->Unload();
        show();
    }
    /// What the engine says of the sample.
    QString ask(const char* script) const
    {
        return probe(tool->WebBrowser1).evaluate(QString::fromLatin1(script)).value_or(QVariant()).toString();
    }
    /// What stands in the sample when all that was to be shown is there.
    QString settledSample() const { return brindlemark::settledSample(tool->WebBrowser1); }
    /// Presses a button that adds `fragment` to the page, with a word of that selected.
    void addsInPlaceOfTheSelection(QAbstractButton* button, const QString& fragment)
    {
        web->RichTextBox1->setText("one two three");
        web->RichTextBox1->setSelStart(4);
        web->RichTextBox1->setSelLength(3);
        click(button);
        QCOMPARE(source(), "one " + fragment.toUtf8() + " three");
        web->RichTextBox1->undo();
        QCOMPARE(source(), QByteArray("one two three"));
    }
    QByteArray settings() const { return folder.read(QStringLiteral("web.ini")); }
};

/// A caption without its access key.
inline QString plain(const QAbstractButton* button)
{
    return button->text().remove(u'&');
}

/// What a button says, and what its tool tip says.
struct Caption
{
    const QAbstractButton* button;
    const char* text;
    const char* toolTip = "";
};

inline void compareCaptions(const QList<Caption>& captions)
{
    for (const Caption& caption : captions) {
        QCOMPARE(plain(caption.button), QLatin1String(caption.text));
        if (*caption.toolTip)
            QCOMPARE(caption.button->toolTip(), QLatin1String(caption.toolTip));
    }
}

inline QStringList entries(const ListObject& list)
{
    QStringList texts;
    for (int i = 0; i < list.ListCount(); ++i)
        texts << list.List(i);
    return texts;
}

} // namespace brindlemark
