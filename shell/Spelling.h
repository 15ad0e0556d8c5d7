// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "words/EngineDictionaries.h"
#include "words/MisspeltWords.h"
#include "words/Speller.h"

#include <QObject>
#include <QStringList>
#include <vector>

namespace brindlemark {

/// By which languages the program's texts are spelt: those that were chosen for a document, else those that
/// were chosen last, at first the system's. Dictionaries are read when a word is first judged, and made for
/// the engine when a surface is first shown.
class Spelling : public QObject
{
    Q_OBJECT

public:
    explicit Spelling(QObject* parent);

    /// Judges by the languages, from some moment after it was first asked for.
    Speller& speller();
    /// What is right by it.
    Judge judge();
    /// Reads dictionaries that were installed, changed their place or went since they were read.
    void lookAnew();
    /// Has the surfaces checked too, as soon as dictionaries are there for them.
    void startOnSurfaces();

    /// The languages whose dictionaries are installed; looks anew.
    static QStringList installed();
    /// The languages by which is spelt; empty: by none.
    const QStringList& languages() const { return m_languages; }
    /// Those whose dictionary could not be read.
    const QStringList& damaged() const { return m_speller.damaged(); }
    /// Spells by these from now on, also when the document that is open is opened again. They go to the
    /// settings.
    void choose(const QStringList& languages);
    /// Another document is open; without a file, its path is empty.
    void turnTo(const QString& document);
    /// The document that is open is saved under another path: its languages go with it.
    void follow(const QString& document);
    /// Makes a word right for all checks. Throws RuntimeError when it can't be kept.
    void addOwnWord(const QString& word);

signals:
    /// Something else is right now.
    void changed();

private:
    void take(const QStringList& languages);
    void begin();
    std::vector<Dictionary> dictionaries() const;
    void makeForSurfaces();

    Speller m_speller;
    EngineDictionaries m_engine;
    QStringList m_languages;
    std::vector<Dictionary> m_read; // last
    QString m_document;
    bool m_isOfDocument = false; // the languages were chosen for it
    bool m_isUsed = false;
    bool m_isOnSurfaces = false;
};

/// The one of the main window; null without it.
Spelling* loadedSpelling();

} // namespace brindlemark
