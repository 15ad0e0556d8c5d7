// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Dictionaries.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

namespace brindlemark {

namespace {

QStringList dictionaryFolders()
{
    QStringList folders = qEnvironmentVariable("DICPATH").split(QDir::listSeparator(), Qt::SkipEmptyParts);
    for (const QString& name : {QStringLiteral("hunspell"), QStringLiteral("myspell/dicts")}) {
        folders += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, name,
                                             QStandardPaths::LocateDirectory);
    }
    return folders;
}

} // namespace

std::vector<Dictionary> installedDictionaries()
{
    std::vector<Dictionary> found;
    for (const QString& folder : dictionaryFolders()) {
        const QStringList names = QDir(folder).entryList({QStringLiteral("*.dic")}, QDir::Files, QDir::Name);
        for (const QString& name : names) {
            const QString language = name.chopped(4);
            const QString rules = folder + u'/' + language + QStringLiteral(".aff");
            const bool isThere = std::ranges::any_of(
                found, [&](const Dictionary& other) { return other.language == language; });
            if (!isThere && QFileInfo(rules).isFile())
                found.push_back({language, rules, folder + u'/' + name});
        }
    }
    std::ranges::sort(found, {}, &Dictionary::language);
    return found;
}

QString languageName(const QString& code)
{
    const QLocale locale(code);
    return locale.language() == QLocale::C ? code
                                           : QStringLiteral("%1 (%2)").arg(locale.nativeLanguageName(), code);
}

QString languageOfSystem(const std::vector<Dictionary>& dictionaries, const QLocale& system)
{
    QString wanted = system.name(); // "en_US"
    const QString language = wanted.section(u'_', 0, 0);
    QString found;
    for (const Dictionary& dictionary : dictionaries) {
        if (dictionary.language == wanted)
            return wanted;
        if (found.isEmpty() && dictionary.language.section(u'_', 0, 0) == language)
            found = dictionary.language;
    }
    return found;
}

} // namespace brindlemark
