#pragma once

#include <QString>
#include <QUrl>

class QWebEngineProfile;

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
