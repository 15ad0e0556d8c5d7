// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/Journal.h"

#include <QByteArray>
#include <QTimer>
#include <functional>

class QWidget;

namespace brindlemark {

/// Keeps what somebody types into a window of the wizard, every 10 seconds, in case the program is ended from
/// outside. The end of the object is an end in good order: then nothing is left.
class Unfinished
{
public:
    /// What is kept: a listing's fields, or the text of terms.
    enum class Kind { Listing, Terms };

    /// Has `keep` called whenever it is time, which calls `keepNow` or does nothing. `owner` lives longer.
    Unfinished(Kind kind, QObject* owner, std::function<void()> keep);

    /// Keeps a text, unless it is the one that was kept last or passed over; returns at once. `of` is the
    /// path of the file that it is meant for, if any.
    void keepNow(const QString& of, const QByteArray& text);
    /// Takes a text as nothing that is worth keeping: what the window began with, or what is in a file now.
    void passOver(const QByteArray& text);
    /// Asks for `keep` now, and waits until the text is on the disk.
    void finish();

private:
    QTimer m_timer;
    std::function<void()> m_keep;
    Journal m_journal;
    QByteArray m_last;
};

/// What stands in the fields of a form and its tab pages: their names and values, as text.
QByteArray fieldsOf(const QWidget& form);
/// Puts such values back; what the form has no field for is passed over. Options come first, as they enable
/// others.
void fillFields(const QWidget& form, const QByteArray& fields);

/// Asks whether what an ended program has left of a listing, and of terms, shall come back, and opens the
/// windows as they stood on Yes. For the start only.
void offerUnfinished();

} // namespace brindlemark
