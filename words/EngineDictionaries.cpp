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

bool isUpToDate(const QString& path, const QString& source)
{
    const QFileInfo file(path);
    return file.isFile() && file.size() > 0 && file.lastModified() >= QFileInfo(source).lastModified();
}

} // namespace

EngineDictionaries::EngineDictionaries(QString folder, QObject* parent)
    : QObject(parent), m_folder(std::move(folder))
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

bool EngineDictionaries::canMake()
{
    return QFileInfo(tool()).isExecutable();
}

QString EngineDictionaries::path(const QString& name, const char* ending) const
{
    return m_folder + u'/' + name + QString::fromLatin1(ending);
}

void EngineDictionaries::make(const std::vector<Dictionary>& dictionaries, const std::set<QString>& ownWords)
{
    m_wanted = dictionaries;
    m_made.clear();
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
        } catch (const RuntimeError&) {
            // A full disk: the engine finds the user's own words misspelt.
        }
    }
    if (m_tool.state() == QProcess::NotRunning)
        next();
}

/// Goes on with what is still wanted.
void EngineDictionaries::next()
{
    while (!m_wanted.empty()) {
        const Dictionary dictionary = m_wanted.back();
        m_wanted.pop_back();
        const QString result = path(dictionary.language, ".bdic");
        if (const QString copy = shipped(dictionary.language); !copy.isEmpty() && !isUpToDate(result, copy)) {
            QDir().mkpath(m_folder);
            QFile::remove(result);
            QFile::copy(copy, result);
        }
        if (isUpToDate(result, dictionary.words)) {
            m_made.prepend(dictionary.language);
        } else if (canMake() && QDir().mkpath(m_folder)) {
            convert(dictionary.language, dictionary.words);
            return;
        }
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
    const QString result = path(m_name, ".bdic");
    if (status == QProcess::NormalExit && exitCode == 0 && QFileInfo(path(m_name, ".new")).size() > 0) {
        QFile::remove(result);
        if (QFile::rename(path(m_name, ".new"), result))
            m_made.prepend(m_name);
    } else {
        QFile::remove(path(m_name, ".new"));
    }
    next();
}

} // namespace brindlemark
