// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <new>
#include <optional>
#include <stdexcept>

namespace brindlemark {

/// The numbers of the failures that handlers tell apart.
enum class ErrorNumber {
    InvalidProcedureCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    PathFileAccess = 75,
    ObjectNotSet = 91,
    InvalidPropertyValue = 380,
};

/// Where a setting stands.
struct SettingPlace
{
    QString file;
    QString section;
    QString key;
};

/// The one failure of the program's own code. Code that traps errors catches it; one that leaves a handler
/// ends the program (see Events.h).
class RuntimeError : public std::runtime_error
{
public:
    /// An error with the number's usual text, such as "Type mismatch".
    explicit RuntimeError(ErrorNumber number);
    /// An error that tells more than its number, such as the reason that the file system gives.
    RuntimeError(ErrorNumber number, const QString& description);

    ErrorNumber number() const { return m_number; }
    /// The text for the user, one line without a full stop.
    QString description() const { return QString::fromUtf8(what()); }

    /// The same error, of a setting that is missing or can't be taken.
    RuntimeError ofSetting(SettingPlace place) const;
    /// The setting that it comes from; no value where it comes from something else.
    const std::optional<SettingPlace>& setting() const { return m_setting; }

private:
    ErrorNumber m_number;
    std::optional<SettingPlace> m_setting;
};

/// The failure of an operation for which there is not enough memory.
RuntimeError outOfMemory();

/// Runs what loads a text, and returns what it returns. For want of memory it fails like for any other
/// reason: throws `outOfMemory`.
template <typename Body>
auto withinMemory(Body&& body)
{
    try {
        return body();
    } catch (const std::bad_alloc&) {
        throw outOfMemory();
    }
}

} // namespace brindlemark
