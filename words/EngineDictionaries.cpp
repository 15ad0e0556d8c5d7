// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/EngineDictionaries.h"

#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <utility>

namespace brindlemark {

namespace {

QString tool()
{
    return QLibraryInfo::path(QLibraryInfo::LibraryExecutablesPath) +
           QStringLiteral("/qwebengine_convert_dict");
}

/// The system's own of a language; empty where there is none.
QString shipped(const QString& language)
{
    return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                  QStringLiteral("hunspell-bdic/") + language + QStringLiteral(".bdic"));
}

bool canMake()
{
    return QFileInfo(tool()).isExecutable();
}

bool isUpToDate(const QString& path, const QString& source)
{
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0 && file.lastModified() >= QFileInfo(source).lastModified();
}

} // namespace

EngineDictionaries::EngineDictionaries(QString folder, Owner owner, QObject* parent)
    : QObject(parent), m_folder(std::move(folder)), m_owner(owner)
{
    m_tool.setStandardOutputFile(QProcess::nullDevice());
    m_tool.setStandardErrorFile(QProcess::nullDevice());
    on(&m_tool, &QProcess::finished, this, &EngineDictionaries::converted);
}

EngineDictionaries::~EngineDictionaries()
{
    m_tool.disconnect(this);
    m_tool.kill();
    m_tool.waitForFinished();
}

bool EngineDictionaries::canHave(const QString& language)
{
    return canMake() || !shipped(language).isEmpty();
}

QString EngineDictionaries::path(const QString& name, const char* ending) const
{
    return m_folder + u'/' + name + QString::fromLatin1(ending);
}

void EngineDictionaries::make(const std::vector<Dictionary>& dictionaries, const std::set<QString>& ownWords)
{
    m_wanted = dictionaries;
    m_made.clear();
    m_name.clear(); // what the tool is at now is for nobody
    if (m_wanted.empty()) {
        emit made({});
        return;
    }
    if (!ownWords.empty() && QDir().mkpath(m_folder)) {
        std::set<QString> all = ownWords;
        all.insert({QStringLiteral("Brindlemark"),
                    QStringLiteral("Brindlemark's")}); // the tool refuses a single word
        QByteArray words = QByteArray::number(qsizetype(all.size())) + '\n';
        for (const QString& word : all)
            words += word.toUtf8() + '\n';
        // The engine reads a dictionary of one name only once.
        const QString name = QStringLiteral("own-%1").arg(qHash(words), 0, 16);
        try {
            writeFile(path(name, ".aff"), "SET UTF-8\n");
            writeFile(path(name, ".dic"), words);
            m_wanted.push_back({name, path(name, ".aff"), path(name, ".dic")});
            removeFormer(name);
        } catch (const RuntimeError&) {
            // A full disk: the engine finds the user's own words misspelt.
        }
    }
    if (m_tool.state() == QProcess::NotRunning)
        next();
}

/// The files of the words that the user had before.
void EngineDictionaries::removeFormer(const QString& ownName) const
{
    const QDir folder(m_folder);
    for (const QString& file : folder.entryList({QStringLiteral("own-*")}, QDir::Files)) {
        if (!file.startsWith(ownName + u'.'))
            QFile::remove(folder.filePath(file));
    }
}

/// Goes on with what is still wanted.
void EngineDictionaries::next()
{
    while (!m_wanted.empty()) {
        const Dictionary dictionary = m_wanted.back();
        m_wanted.pop_back();
        const QString result = path(dictionary.language, ".bdic");
        const bool isUsers = m_owner == Owner::User && QFileInfo(result).size() > 0;
        if (const QString copy = shipped(dictionary.language);
            !isUsers && !copy.isEmpty() && !isUpToDate(result, copy)) {
            QDir().mkpath(m_folder);
            QFile::remove(result);
            QFile::copy(copy, result);
        }
        const bool isDone = isUsers || isUpToDate(result, dictionary.words);
        if (!isDone && canMake() && QDir().mkpath(m_folder)) {
            convert(dictionary.language, dictionary.words);
            return;
        }
        if (QFileInfo(result).size() > 0) // an older one is better than none
            m_made.prepend(dictionary.language);
    }
    emit made(m_made);
}

void EngineDictionaries::convert(const QString& name, const QString& words)
{
    m_name = name;
    m_tool.start(tool(), {words, path(name, ".new")});
}

/// The tool ends with a crash over some damaged dictionaries.
void EngineDictionaries::converted(int exitCode, QProcess::ExitStatus status)
{
    const QString name = std::exchange(m_name, QString());
    if (name.isEmpty()) {
        next();
        return;
    }
    const QString result = path(name, ".bdic");
    if (status == QProcess::NormalExit && exitCode == 0 && QFileInfo(path(name, ".new")).size() > 0) {
        QFile::remove(result);
        if (QFile::rename(path(name, ".new"), result))
            m_made.prepend(name);
    } else {
        QFile::remove(path(name, ".new"));
    }
    next();
}

} // namespace brindlemark
