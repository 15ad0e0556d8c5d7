// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThread>
#include <memory>
#include <set>
#include <vector>

namespace brindlemark {

struct Dictionary;

/// Judges words by the dictionaries of some languages (Hunspell): a word that is right in one of them is
/// right, and so is one of the user's own. The dictionaries are read in a thread of its own; until they are
/// there, every word is right.
class Speller : public QObject
{
    Q_OBJECT

public:
    /// The user's own words are a text in UTF-8, one a line, which need not be there yet.
    explicit Speller(QString ownWordsFile, QObject* parent = nullptr);
    ~Speller() override;

    /// What it judges by from here on; an empty list: every word is right. One that can't be read is left
    /// out.
    void setDictionaries(const std::vector<Dictionary>& dictionaries);
    /// Whether it has dictionaries, and they are there.
    bool judges() const { return !m_books.empty(); }
    /// Whether dictionaries are being read.
    bool isReading() const { return m_read != nullptr; }
    /// The languages whose dictionary could not be read.
    const QStringList& damaged() const { return m_damaged; }

    /// Whether a word is right. Words with a digit are: they are sizes and numbers.
    bool isRight(const QString& word) const;
    /// What may have been meant, the best first, at most eight; each of the languages has its turn.
    QStringList suggestions(const QString& word) const;

    /// The user's own words, which are right in all languages.
    const std::set<QString>& ownWords() const { return m_ownWords; }
    /// Makes a word one of them; written small, it is right with a capital and in capitals too. Those that
    /// another running program has added since come with it. Throws RuntimeError when the file can't be
    /// written; the word counts until the end.
    void addOwnWord(const QString& word);

signals:
    /// It judges by something else from now on.
    void changed();

private:
    class Book;
    struct Books;

    void readOwnWords();
    bool isOwn(const QString& word) const;
    void take();

    QString m_ownWordsFile;
    std::set<QString> m_ownWords;
    std::vector<std::unique_ptr<Book>> m_books;
    QStringList m_damaged;
    mutable QHash<QString, bool> m_judged;
    std::unique_ptr<QThread> m_reader;
    std::shared_ptr<Books> m_read; // by the thread
};

} // namespace brindlemark
