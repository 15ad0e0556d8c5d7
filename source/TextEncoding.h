// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace brindlemark {

/// How a document's bytes are read as characters.
enum class TextEncoding {
    Utf8,
    Western, ///< Windows-1252, one byte a character; every byte has a character of its own
};

/// UTF-8 for bytes that are valid UTF-8 throughout (an empty text and plain ASCII are), else Western.
TextEncoding encodingOf(const QByteArray& bytes);

/// The bytes of a text. A character that a Western text can't hold becomes its numeric character reference,
/// such as "&#26085;", which a page shows as that character.
QByteArray encode(const QString& text, TextEncoding encoding);

/// The text of bytes. A byte order mark at the beginning is no character of the text; bytes that are not
/// valid UTF-8 become U+FFFD.
QString decode(const QByteArray& bytes, TextEncoding encoding);

/// The same text in UTF-8; bytes of UTF-8 are given back as they are, with a byte order mark and with what is
/// not valid.
QByteArray toUtf8(const QByteArray& bytes, TextEncoding encoding);

/// Whether a byte of UTF-8 goes on with a character that began before it.
inline bool isContinuation(char byte)
{
    return (byte & 0xC0) == 0x80;
}

} // namespace brindlemark
