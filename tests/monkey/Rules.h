// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace brindlemark {

/// From here on warnings of the toolkit are kept, those that are known left out.
void watchWarnings();
/// The first one since the last call, or an empty text.
QString takeWarning();

/// What must hold of windows and files, whatever was done.
class Rules
{
public:
    /// `documents` is the folder in which they lie.
    explicit Rules(QString documents);

    /// To be called before an action.
    void before();
    /// To be called after it: what is wrong, or an empty text. `twice`: it may have brought a text and saved
    /// it, as two clicks on Open do.
    QString after(bool twice = false);

    /// Whether an error that ends the program is one that is known, and meant to do so.
    static bool isKnown(const QString& fatal);
    /// Files in the program's folder that are none of its own.
    static QString strangeFiles(const QString& folder);

private:
    /// What could be saved at a moment.
    struct Source
    {
        QByteArray text;
        bool isUp = false; ///< else the surface's page is what a save writes
    };

    static Source source();
    static QString windows();
    QString files(bool twice);

    QString m_documents;
    QMap<QString, QByteArray> m_files;
    Source m_before;
};

} // namespace brindlemark
