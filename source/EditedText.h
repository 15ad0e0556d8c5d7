// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEncoding.h"

#include <QByteArray>
#include <functional>
#include <limits>

namespace brindlemark {

/// The text of a document while it is edited: bytes, whatever holds and shows them.
class EditedText
{
public:
    /// How much can be edited, in bytes: the component counts with 32 bits.
    static constexpr qint64 MostBytes = std::numeric_limits<qint32>::max();

    using Later = std::function<QByteArray()>;

    virtual ~EditedText() = default;

    virtual QByteArray Text() const = 0;
    /// The text as it is now, for another thread: what is costly in it is done when the result is called.
    virtual Later textLater() const = 0;
    /// Whether the text is empty; much cheaper than asking `Text`.
    virtual bool isEmpty() const = 0;
    /// What the bytes mean.
    virtual TextEncoding textEncoding() const = 0;
    /// Takes the text of another document: undo doesn't reach behind it. Decides the encoding anew. Throws
    /// RuntimeError(PathFileAccess) when it takes more than `MostBytes` to edit it.
    virtual void load(const QByteArray& text) = 0;
};

} // namespace brindlemark
