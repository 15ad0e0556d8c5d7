#pragma once

#include <QString>
#include <QUrl>

class QWebEngineProfile;

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

/// Sets the rendering engine up. To be called first thing in `main()`, before the application object is made.
void prepareWebEngine();

/// The empty page into which documents are written. It has an address of its own, because from there pictures
/// load, local ones too, and nothing else does.
QUrl blankAddress();

/// What the document surfaces share: no cookies, nothing on the disk; of what a page names only
/// pictures and styles are loaded.
QWebEngineProfile* documentProfile();

/// What the internet tab has for itself, forgotten at the program's end.
QWebEngineProfile* internetProfile();

/// The object of functions that the control runs in a page, as a JavaScript expression, which makes it where
/// it is not there yet (see surface.js). Only for the first call in a page: the engine keeps a copy of the
/// text each time, 47 KiB.
const QString& surfaceScript();

/// What cleans pastes, as a JavaScript expression (see clean.js): for the surface's function `cleanWith`, once
/// in a page in which something is pasted.
const QString& cleanerScript();

/// A call of one of these functions, such as "reveal()", as a JavaScript expression; `undefined` in a page in
/// which they were not made.
QString surfaceCall(const QString& function);
