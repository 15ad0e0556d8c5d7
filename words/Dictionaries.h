// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <vector>

namespace brindlemark {

/// A dictionary of this computer: two files of one name, in the form of Hunspell.
struct Dictionary
{
    QString language; ///< the files' name, such as "en_US"
    QString rules;    ///< the path of "en_US.aff"
    QString words;    ///< the path of "en_US.dic"

    bool operator==(const Dictionary&) const = default;
};

/// What is installed, by the names of the languages: where the environment's DICPATH says, in the folders
/// `hunspell` and `myspell/dicts` of the desktop's data. The first of each language counts; those without
/// both files don't.
std::vector<Dictionary> installedDictionaries();

/// A language in its own words, with its code: "Deutsch (de_DE)". A code that says nothing is given back.
QString languageName(const QString& code);

/// Of some languages the one that a system speaks, as "en_GB", else any other "en"; empty where there is
/// none.
QString languageOfSystem(const std::vector<Dictionary>& dictionaries,
                         const QLocale& system = QLocale::system());

} // namespace brindlemark
