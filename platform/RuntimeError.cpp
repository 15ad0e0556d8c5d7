// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/RuntimeError.h"

#include <utility>

namespace brindlemark {

namespace {

QString usualText(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::PathFileAccess:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::ObjectNotSet:
        return QStringLiteral("Object variable not set");
    case ErrorNumber::InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    }
    return QStringLiteral("Unknown error");
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, usualText(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const QString& description)
    : std::runtime_error(description.toStdString()), m_number(number)
{
}

RuntimeError RuntimeError::ofSetting(SettingPlace place) const
{
    RuntimeError error = *this;
    error.m_setting = std::move(place);
    return error;
}

RuntimeError outOfMemory()
{
    return {ErrorNumber::Overflow, QStringLiteral("Out of memory")};
}

} // namespace brindlemark
