// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "OpenTool.h"
#include "colour/FrmFonts.h"

#include <functional>

namespace brindlemark {

/// Where the two list builders have other names for the same thing.
template <typename F>
struct ListNames
{
    using Button = QPushButton* F::*;

    Button add;
    Button clear;
    Button toEditor;
    Button copy;
    Button cancel;
    Button font; ///< of the words
    QString clearQuestion;
    QString cancelQuestion;
};

/// A list builder beside a main window, and what holds of both of them.
template <typename F>
class ListTool : public OpenTool<F>
{
public:
    explicit ListTool(const ListNames<F>& names) : m_names(names) {}

    using OpenTool<F>::tool;

    void add(const char* word) const
    {
        overtype(tool->Text1, QString::fromLatin1(word));
        press(m_names.add);
    }
    /// What a press on Copy gives.
    QString copied() const
    {
        press(m_names.copy);
        return Clipboard::GetText();
    }

    /// Rows of a test: what goes out as it was typed.
    static void words()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("blank") << " ";
        QTest::newRow("HTML") << "<B>x</B> & \"y\"";
        QTest::newRow("emoji") << QStringLiteral("\U0001F600");
        QTest::newRow("long") << QString(40'000, u'x');
    }

    void addsInPlaceOfTheSelection(const QString& fragment)
    {
        OpenTool<F>::addsInPlaceOfTheSelection(tool->*m_names.toEditor, fragment);
    }
    void showsTheLastWord() const
    {
        for (int i = 0; i < 30; ++i)
            add("a");
        const QRect last = tool->List1->visualItemRect(tool->List1->item(29));
        QVERIFY(tool->List1->viewport()->rect().contains(last.center()));
    }
    /// With words in it. The sample is blank then.
    void asksBeforeItClears()
    {
        press(m_names.clear); // nothing to clear, nothing asked
        add("Visa");
        QVERIFY(this->settledSample().contains(QStringLiteral("Visa")));
        for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
            this->doors.answerMsgBox(answer);
            press(m_names.clear);
            QCOMPARE(this->doors.takeAsked(), QStringList{m_names.clearQuestion});
            QCOMPARE(tool->List1->ListCount(), answer == MsgAnswer::No ? 1 : 0);
        }
        QCOMPARE(this->settledSample(), QString());
        QVERIFY(isLoaded<F>());
    }
    /// With words in it; and the same for Escape and the window's close button.
    void asksBeforeItGoes()
    {
        press(m_names.cancel);
        QVERIFY(!isLoaded<F>());
        const QList<std::function<void()>> ways = {
            [this] { press(m_names.cancel); },
            [this] { QTest::keyClick(tool->Text1, Qt::Key_Escape); },
            [this] { tool->close(); },
        };
        for (const auto& way : ways) {
            this->show();
            add("a");
            for (const MsgAnswer answer : {MsgAnswer::No, MsgAnswer::Yes}) {
                this->doors.answerMsgBox(answer);
                way();
                QCOMPARE(this->doors.takeAsked(), QStringList{m_names.cancelQuestion});
                QCOMPARE(isLoaded<F>(), answer == MsgAnswer::No);
            }
        }
    }
    /// When its list goes out. `kept`: how the settings have the box.
    void closesByItsBox(const char* kept)
    {
        tick(tool->Check3);
        QVERIFY(this->settings().contains(kept));
        for (const auto give : {m_names.copy, m_names.toEditor}) {
            add("a");
            press(give);
            QVERIFY(!isLoaded<F>());
            this->show();
            QCOMPARE(tool->Check3->Value(), 1);
        }
    }
    /// The font window stays, and tells nobody.
    void goesBeforeItsFonts()
    {
        press(m_names.font);
        tool->Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        click(form<FrmFonts>()->Command1);
        QVERIFY(!isLoaded<FrmFonts>());
        QVERIFY(!isLoaded<F>());
    }

private:
    void press(typename ListNames<F>::Button button) const { click(tool->*button); }

    ListNames<F> m_names;
};

} // namespace brindlemark
