// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace brindlemark {

// A fuzz target is a function that takes any bytes, feeds them to one piece of the program, and checks what
// must hold whatever they are. libFuzzer calls it with bytes of its making (Fuzzer.cpp), tst_corpus with the
// files of corpus/<target>.

namespace targets {

void fade(const QByteArray& bytes);
void faderfragment(const QByteArray& bytes);
void generator(const QByteArray& bytes);
void highlight(const QByteArray& bytes);
void list(const QByteArray& bytes);
void preset(const QByteArray& bytes);
void profile(const QByteArray& bytes);
void readback(const QByteArray& bytes);
void regions(const QByteArray& bytes);
void replaceall(const QByteArray& bytes);
void tokens(const QByteArray& bytes);

} // namespace targets

/// The fields of an input, parted by the control character 0x1E.
class Fields
{
public:
    explicit Fields(const QByteArray& bytes) : m_rest(bytes) {}

    /// The next field; empty when there is none left.
    QByteArray next();
    /// The same as text.
    QString nextText();
    /// The next field as a number, whatever it holds.
    uint nextNumber();
    /// All that is left, separators included.
    QByteArray rest() const { return m_rest; }

private:
    QByteArray m_rest;
};

/// The text of UTF-8 bytes, byte order marks included.
QString textOf(const QByteArray& bytes);

/// Ends the run, with `rule` as the reason, unless it holds.
void hold(bool holds, const char* rule);

/// The path of a file that targets may write.
QString scratchFile(const char* name);
/// The bytes of a file; none when it isn't there.
QByteArray contentOf(const QString& file);
void fill(const QString& file, const QByteArray& bytes);

} // namespace brindlemark
