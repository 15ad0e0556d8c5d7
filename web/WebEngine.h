// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QUrl>

class QWebEngineProfile;

namespace brindlemark {

/// An object on the stack for as long as something is under way; `isUnderWay` tells it to all others.
template <typename What>
class Span
{
public:
    Span() { ++s_count; }
    ~Span() { --s_count; }
    Q_DISABLE_COPY_MOVE(Span)

    static bool isUnderWay() { return s_count > 0; }

private:
    static inline int s_count = 0;
};

/// The engine has called the program. It does nothing else until that returns: who waits for an answer of any
/// page meanwhile waits in vain.
using EngineCall = Span<struct EngineCallName>;
/// The same for as long as a message of a page's script stands before the user.
using PageMessage = Span<struct PageMessageName>;
/// An operation of a control waits for the engine.
using EngineWait = Span<struct EngineWaitName>;

/// Whether the engine can answer now: not while it waits for the program itself.
bool engineListens();
/// Whether the program can act on a key now: nothing else is under way.
bool canAct();
/// How long what can't be done now waits for the next try, in milliseconds.
constexpr int BusyPause = 30;

/// Sets the rendering engine up. To be called first thing in `main()`, before the application object is made.
void prepareWebEngine();

/// The empty page into which documents are written. It has an address of its own, because from there pictures
/// load, local ones too, and nothing else does.
QUrl blankAddress();

/// What shows the pages, one line each for the toolkit and for its engine: their versions, and up to which
/// one of Chromium the holes are mended.
QString engineVersions();

/// Where the engine looks for its dictionaries (".bdic"): the folder that QTWEBENGINE_DICTIONARIES_PATH
/// names, if some are there, else one of the program's own in the user's cache, which need not be there yet.
QString engineDictionaries();
/// Whether that is the program's own.
bool ownsEngineDictionaries();

/// Has all design surfaces checked by these dictionaries, such as "en_US" for "en_US.bdic"; none: they are
/// not checked.
void setSpelling(const QStringList& names);

/// What the document surfaces share: no cookies, nothing on the disk; of what a page names only
/// pictures and styles are loaded.
QWebEngineProfile* documentProfile();

/// What the internet tab has for itself, forgotten at the program's end.
QWebEngineProfile* internetProfile();

} // namespace brindlemark
