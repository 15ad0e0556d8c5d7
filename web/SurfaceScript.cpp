// SPDX-License-Identifier: GPL-3.0-or-later

#include "web/SurfaceScript.h"

#include <QFile>

// A library's resources are linked only when something calls for them; the macro can't stand in a namespace.
static void initResources()
{
    Q_INIT_RESOURCE(web);
    Q_INIT_RESOURCE(cleaner);
}

namespace brindlemark {

namespace {

QString resourceText(const QString& path)
{
    initResources();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s is not in the program", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

} // namespace

const QString& surfaceScript()
{
    static const QString script = [] {
        // Elements with names are properties of the global object too; a symbol can't be one of them.
        return QStringLiteral("(globalThis[Symbol.for('surface')] ?\?= (%1)(%2))")
            .arg(resourceText(QStringLiteral(":/web/surface.js")),
                 resourceText(QStringLiteral(":/web/serialise.js")));
    }();
    return script;
}

const QString& cleanerScript()
{
    static const QString script =
        resourceText(QStringLiteral(":/web/clean.js"))
            .replace(QStringLiteral("/* structure */"), resourceText(QStringLiteral(":/web/structure.js")))
            .replace(QStringLiteral("/* DOMPurify */"), resourceText(QStringLiteral(":/web/purify.js")));
    return script;
}

QString surfaceCall(const QString& function)
{
    return QStringLiteral("globalThis[Symbol.for('surface')]?.") + function;
}

QString callOrAbsence(const QString& function)
{
    return QStringLiteral(
               "globalThis[Symbol.for('surface')] ? globalThis[Symbol.for('surface')].%1 : {absent: 0}")
        .arg(function);
}

bool isAbsence(const QVariant& result)
{
    return result.typeId() == QMetaType::QVariantMap; // the functions return texts, booleans and lists
}

QString literal(const QString& text)
{
    QString quoted;
    quoted.reserve(text.size() + text.size() / 16 + 2);
    quoted += u'"';
    for (const QChar character : text) {
        const char16_t unit = character.unicode();
        if (unit < 0x20 || unit == 0x2028 || unit == 0x2029 || character.isSurrogate()) {
            quoted += QLatin1String("\\u");
            for (const int shift : {12, 8, 4, 0})
                quoted += QLatin1Char("0123456789abcdef"[unit >> shift & 0xF]);
            continue;
        }
        if (unit == u'"' || unit == u'\\')
            quoted += u'\\';
        quoted += character;
    }
    return quoted += u'"';
}

QString literal(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace brindlemark
