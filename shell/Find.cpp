// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Find.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/Desktop.h"
#include "services/Messages.h"
#include "source/RichTextBox.h"

#include <QByteArrayMatcher>
#include <QScreen>
#include <utility>

namespace brindlemark {

namespace {

/// Replaces each occurrence of `find` (not empty) in one pass: what has been replaced is not looked at again,
/// so `with` may hold `find`.
QByteArray replacedEverywhere(const QByteArray& text, const QByteArray& find, const QByteArray& with)
{
    const QByteArrayMatcher matcher(find);
    QByteArray result;
    result.reserve(text.size());
    qsizetype done = 0;
    for (qsizetype hit = matcher.indexIn(text); hit >= 0; hit = matcher.indexIn(text, done)) {
        result.append(text.constData() + done, hit - done).append(with);
        done = hit + find.size();
    }
    return result.append(text.constData() + done, text.size() - done);
}

void replaceEverywhere(RichTextBox& source, const QString& find, const QString& with)
{
    const WaitCursor hourglass;
    const QByteArray text = replacedEverywhere(source.Text(), source.encode(find), source.encode(with));
    const RichTextBox::EditName name(&source, QStringLiteral("Replace All"));
    source.setText(text, source.textEncoding());
}

} // namespace

Find::Find()
{
    setupUi(this);
    StayOnTop(this);

    on(Check1, &CheckBox::Click, this, &Find::Check1_Click);
    on(Check2, &CheckBox::Click, this, &Find::Check2_Click);
    on(Command3, &QPushButton::clicked, this, &Find::Command3_Click);
    on(Command5, &QPushButton::clicked, this, &Find::Unload);
    on(Command6, &QPushButton::clicked, this, &Find::Command6_Click);
    on(Command7, &QPushButton::clicked, this, &Find::Command7_Click);
    on(Command8, &QPushButton::clicked, this, &Find::Command8_Click);
    setDefaultButton(Command8);
    setCancelButton(Command5);
    for (ComboBox* field : {Text1, Text2})
        connect(field, &ComboBox::EnterPressed, Command8, &QPushButton::click);
}

void Find::searchIn(RichTextBox* source)
{
    m_source = source;
}

bool Find::IsContained(const ListObject& list, const QString& text) const
{
    for (int i = 0; i < list.ListCount(); ++i) {
        if (list.List(i) == text)
            return true;
    }
    return false;
}

void Find::showEvent(QShowEvent* event)
{
    guardedCall([&] {
        if (m_source && !std::exchange(m_aside, true))
            placeAside();
        Form::showEvent(event);
    });
}

/// Puts the window into the upper right corner of the source's window, where it covers least of the source:
/// lines begin at the left, and a search downwards scrolls its hit to the lower edge.
void Find::placeAside()
{
    const QWidget* main = m_source->window();
    const QRect area = main->screen()->availableGeometry();
    adjustSize();
    constexpr int frame = 16; // what the window manager may add to the width
    const QPoint corner = main->geometry().topRight() - QPoint(width() + frame, 0);
    move(qBound(area.left(), corner.x(), qMax(area.left(), area.right() - width() - frame)),
         qBound(area.top(), corner.y(), qMax(area.top(), area.bottom() - height())));
}

void Find::Check1_Click()
{
    Text1->setFocus();
    CaseFlag = Check1->isChecked() ? FindOptions(MatchCase) : FindOptions();
}

void Find::Check2_Click()
{
    Text1->setFocus();
    WordFlag = Check2->isChecked() ? FindOptions(WholeWord) : FindOptions();
}

/// Selects the next hit in the source; its position, or -1.
int Find::searchSource() const
{
    return m_source->Find(m_source->encode(Text1->Text()), NextStart, -1, WordFlag | CaseFlag);
}

/// Searches, and tells the user when nothing was found. A hit at the very start of the text, position 0, is
/// selected and yet told as not found, which is meant: what users know stays. Returns the hit's position, or
/// less than 1.
int Find::findText() const
{
    if (!m_source)
        return -1;
    m_source->activateWindow(); // comes up behind this window, which stays on top
    m_source->SetFocus();
    const QString wanted = Text1->Text();
    if (wanted.isEmpty())
        return -1;
    const int hit = searchSource();
    if (hit < 1) {
        showMessage(Messages::NotFound, wanted);
    }
    return hit;
}

bool Find::findAgain(RichTextBox& source, bool backwards) const
{
    const QString wanted = Text1->Text();
    if (wanted.isEmpty())
        return false;
    if (!source.findAround(source.encode(wanted), WordFlag | CaseFlag, backwards))
        showMessage(Messages::NotFound, wanted);
    return true;
}

/// Meant to find the same place each time, so that the user comes back to it: `NextStart` stays.
void Find::Command8_Click()
{
    findText();
}

/// Meant to find nothing past the last hit, so that the user knows the end: `NextStart` isn't set back.
void Find::Command3_Click()
{
    const int hit = findText();
    if (hit >= 1)
        NextStart = hit + 1;
}

void Find::Command7_Click()
{
    const QString with = Text2->Text();
    if (!m_source || Text1->Text().isEmpty() || with.isEmpty() || m_source->SelLength() == 0)
        return;
    const RichTextBox::EditName name(m_source, QStringLiteral("Replace"));
    m_source->setSelText(m_source->encode(with));
    searchSource(); // says nothing when there is no more
}

/// Meant to compare letter for letter, whatever the two boxes say: it replaces nothing that the user has not
/// typed.
void Find::Command6_Click()
{
    const QString find = Text1->Text();
    const QString with = Text2->Text();
    if (!m_source || find.isEmpty() || with.isEmpty())
        return;
    replaceEverywhere(*m_source, find, with);
    showMessage(Messages::Replaced, with);
}

} // namespace brindlemark
