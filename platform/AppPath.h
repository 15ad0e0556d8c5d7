// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

namespace brindlemark {

/// The folder in which all settings and data files lie; without a slash at its end. It is the program's own
/// where its user may write there, else one of the user's.
QString AppPath();

/// Makes another folder the program's: each test lives in one of its own.
void setAppPath(const QString& folder);

/// What `AppPath` is for a program that lies in a folder: that folder, or "brindlemark" where the desktop has
/// its users' data.
QString settingsFolder(const QString& programFolder);

/// Fills a settings folder that isn't the program's own from there: settings that it lacks, and what only the
/// program's makers write, such as the help, if it is another one. What can't be copied is missing there, as
/// a file that was deleted.
void fillSettingsFolder(const QString& programFolder, const QString& folder);

/// The settings, lists and texts beside the program, all of them.
namespace DataFile {
inline constexpr QStringView Settings = u"\\web.ini";
inline constexpr QStringView Addresses = u"\\Ils.ini"; ///< of the tab Internet
inline constexpr QStringView QuickWords = u"\\Quick.ini";
inline constexpr QStringView TableSets = u"\\Table.ini";
inline constexpr QStringView TableTitles = u"\\Table2.ini"; ///< of those sets
inline constexpr QStringView ListTitles = u"\\list2.ini";
inline constexpr QStringView PageColors = u"\\webstyle.ini";
inline constexpr QStringView PageColorTitles = u"\\webstyle2.ini";
inline constexpr QStringView PaymentTerms = u"\\weblst.ini"; ///< terms are named ".ini", but HTML
inline constexpr QStringView LocationTerms = u"\\weblst2.ini";
inline constexpr QStringView WhoPaysTerms = u"\\weblst3.ini";
inline constexpr QStringView OwnWords = u"\\words.txt"; ///< that are right for the user
inline constexpr QStringView RecentFiles = u"\\recent.txt";
inline constexpr QStringView Help = u"\\Help0.htm";
} // namespace DataFile

/// The path of a data file: `AppPath` plus a name that begins with a backslash, in the form that the file
/// system takes.
QString appFile(QStringView name);

} // namespace brindlemark
