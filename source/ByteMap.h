// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextEncoding.h"

#include <QByteArray>

namespace brindlemark {

/// The map between a document's bytes and the text that the component holds for them, which is UTF-8 in
/// either encoding: the component's positions (called inner here) equal the document's only in a UTF-8
/// document.
///
/// The text is given with each call, as it lies in the component; `changed` tells of each change of it.
class ByteMap
{
public:
    TextEncoding encoding() const { return m_encoding; }
    void setEncoding(TextEncoding encoding);
    /// Whether positions are the same on both sides.
    bool isIdentity() const { return m_encoding == TextEncoding::Utf8; }

    /// The text for some of the document's bytes, and the bytes for some of the text.
    QByteArray toInner(const QByteArray& bytes) const;
    QByteArray fromInner(QByteArrayView text) const;

    /// The inner position for one of the document's; those outside of the text are brought into it.
    qsizetype toInner(QByteArrayView text, qsizetype position) const;
    /// The document's position for an inner one.
    qsizetype fromInner(QByteArrayView text, qsizetype position) const;

    /// To be called when the text changes from an inner position on.
    void changed(qsizetype position);

private:
    /// A place whose position is known on both sides; places of a Western text are counted from here.
    struct Mark
    {
        qsizetype inner = 0;
        qsizetype outer = 0;
    };

    TextEncoding m_encoding = TextEncoding::Utf8;
    mutable Mark m_mark;
};

} // namespace brindlemark
