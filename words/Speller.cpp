// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Speller.h"

#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "words/Dictionaries.h"

#include <QFile>
#include <algorithm>
#include <array>
#include <hunspell.hxx>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

namespace brindlemark {

namespace {

constexpr qsizetype MostSuggestions = 8;
constexpr qsizetype MostJudged = 50'000; // words whose judgement is remembered

/// Whether a file begins as a dictionary's list of words does: with their number, and then at least one.
bool isListOfWords(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray first = file.readLine(100);
    if (first.startsWith("\xEF\xBB\xBF"))
        first.remove(0, 3);
    bool isNumber = false;
    return first.trimmed().toInt(&isNumber) > 0 && isNumber && !file.readLine(1000).trimmed().isEmpty();
}

/// A word as dictionaries write it.
QString asDictionaries(QString word)
{
    return word.replace(u'\u2019', u'\'');
}

} // namespace

/// The dictionary of one language.
class Speller::Book
{
public:
    /// Throws RuntimeError for an encoding that nobody knows.
    explicit Book(const Dictionary& dictionary)
        : m_hunspell(QFile::encodeName(dictionary.rules).constData(),
                     QFile::encodeName(dictionary.words).constData()),
          m_encoding(encodingOf(m_hunspell.get_dict_encoding()))
    {
        UErrorCode error = U_ZERO_ERROR;
        ucnv_close(ucnv_open(m_encoding.c_str(), &error));
        if (U_FAILURE(error))
            throw RuntimeError(ErrorNumber::PathFileAccess);
    }

    bool isRight(const QString& word) { return m_hunspell.spell(bytesOf(word)); }

    QStringList suggestions(const QString& word)
    {
        QStringList result;
        for (const std::string& suggestion : m_hunspell.suggest(bytesOf(word))) {
            const icu::UnicodeString text(suggestion.data(), int32_t(suggestion.size()), m_encoding.c_str());
            result << QString(reinterpret_cast<const QChar*>(text.getBuffer()), text.length());
        }
        return result;
    }

private:
    /// Hunspell's name of an encoding as ICU writes it.
    static std::string encodingOf(const std::string& name)
    {
        if (name == "ISCII-DEVANAGARI")
            return "ISCII,version=0";
        const std::string microsoft = "microsoft-cp";
        return name.starts_with(microsoft) ? "windows-" + name.substr(microsoft.size()) : name;
    }

    /// In the encoding of the dictionary; what that has not is a character that is in no word.
    std::string bytesOf(const QString& word) const
    {
        const icu::UnicodeString text(reinterpret_cast<const char16_t*>(word.utf16()), int32_t(word.size()));
        std::string bytes(size_t(word.size()) * 4 + 1, '\0');
        bytes.resize(
            size_t(text.extract(0, text.length(), bytes.data(), uint32_t(bytes.size()), m_encoding.c_str())));
        return bytes;
    }

    Hunspell m_hunspell;
    std::string m_encoding;
};

struct Speller::Books
{
    std::vector<std::unique_ptr<Book>> books;
    QStringList damaged;
};

Speller::Speller(QString ownWordsFile, QObject* parent)
    : QObject(parent), m_ownWordsFile(std::move(ownWordsFile))
{
    readOwnWords();
}

void Speller::readOwnWords()
{
    QFile file(m_ownWordsFile);
    if (!file.open(QIODevice::ReadOnly))
        return; // there are none yet, or none that can be read: they are misspelt then
    const QStringList words = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString& word : words) {
        if (!word.trimmed().isEmpty())
            m_ownWords.insert(asDictionaries(word.trimmed()));
    }
}

Speller::~Speller()
{
    if (m_reader)
        m_reader->wait();
}

void Speller::setDictionaries(const std::vector<Dictionary>& dictionaries)
{
    if (m_reader)
        m_reader->wait();
    m_reader.reset();
    m_read.reset();
    m_books.clear();
    m_damaged.clear();
    m_judged.clear();
    if (!dictionaries.empty()) {
        m_read = std::make_shared<Books>();
        m_reader.reset(QThread::create([dictionaries, read = m_read] {
            for (const Dictionary& dictionary : dictionaries) {
                try {
                    if (!isListOfWords(dictionary.words))
                        throw RuntimeError(ErrorNumber::PathFileAccess);
                    read->books.push_back(std::make_unique<Book>(dictionary));
                } catch (const RuntimeError&) {
                    read->damaged << dictionary.language;
                }
            }
        }));
        onInner(m_reader.get(), &QThread::finished, this, [this, read = m_read] {
            if (read == m_read) // else others were wanted since
                take();
        });
        m_reader->start();
    }
    emit changed();
}

/// The thread has read the dictionaries.
void Speller::take()
{
    m_books = std::move(m_read->books);
    m_damaged = m_read->damaged;
    m_read.reset();
    emit changed();
}

bool Speller::isRight(const QString& word) const
{
    const QString plain = asDictionaries(word);
    if (m_books.empty() || isOwn(plain) || std::ranges::any_of(word, [](QChar c) { return c.isDigit(); }))
        return true;
    if (const auto judged = m_judged.constFind(word); judged != m_judged.cend())
        return *judged;
    const bool isRight = std::ranges::any_of(m_books, [&](const auto& book) { return book->isRight(plain); });
    if (m_judged.size() >= MostJudged)
        m_judged.clear();
    m_judged.insert(word, isRight);
    return isRight;
}

bool Speller::isOwn(const QString& word) const
{
    const QString small = word.toLower();
    const bool isSmallWithCapital = QStringView(word).sliced(1) == QStringView(small).sliced(1);
    return m_ownWords.contains(word) ||
           ((isSmallWithCapital || word == word.toUpper()) && m_ownWords.contains(small));
}

QStringList Speller::suggestions(const QString& word) const
{
    std::vector<QStringList> lists;
    for (const auto& book : m_books)
        lists.push_back(book->suggestions(word));
    QStringList result;
    for (qsizetype i = 0; i < MostSuggestions; ++i) {
        for (const QStringList& list : lists) {
            if (i < list.size() && !result.contains(list.at(i)))
                result << list.at(i);
        }
    }
    return result.first(std::min(result.size(), MostSuggestions));
}

void Speller::addOwnWord(const QString& word)
{
    const FileTurn turn(m_ownWordsFile);
    readOwnWords();
    m_ownWords.insert(asDictionaries(word));
    emit changed();
    QByteArray text;
    for (const QString& own : m_ownWords)
        text += own.toUtf8() + '\n';
    writeFile(m_ownWordsFile, text);
}

} // namespace brindlemark
