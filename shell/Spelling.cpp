// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/Spelling.h"

#include "platform/AppPath.h"
#include "platform/Events.h"
#include "services/Profile.h"
#include "web/WebEngine.h"

#include <QCryptographicHash>
#include <QScopeGuard>
#include <algorithm>

namespace brindlemark {

namespace {

const QString Section = QStringLiteral("Spelling");
const QString LanguagesKey = QStringLiteral("languages");
const QString Off = QStringLiteral("off");

/// The key under which a document's languages stand: paths have signs that a key can't have.
QString keyOf(const QString& document)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(document.toUtf8(), QCryptographicHash::Sha1).toHex().first(16));
}

QString settingOf(const QStringList& languages)
{
    return languages.isEmpty() ? Off : languages.join(u' ');
}

/// What a setting says; the system's language where it says nothing.
QStringList languagesOf(const QString& setting)
{
    if (setting == Off)
        return {};
    QStringList named = setting.split(u' ', Qt::SkipEmptyParts);
    if (!named.isEmpty())
        return named;
    const QString system = languageOfSystem(installedDictionaries());
    return system.isEmpty() ? QStringList() : QStringList(system);
}

} // namespace

Spelling::Spelling(QObject* parent)
    : QObject(parent), m_speller(appFile(DataFile::OwnWords)),
      m_engine(engineDictionaries(), ownsEngineDictionaries() ? EngineDictionaries::Owner::Program
                                                              : EngineDictionaries::Owner::User)
{
    connect(&m_speller, &Speller::changed, this, &Spelling::changed);
    onInner(&m_engine, &EngineDictionaries::made, this, [](const QStringList& names) { setSpelling(names); });
    m_languages = languagesOf(ReadProfile(Section, LanguagesKey, webIni()));
}

Speller& Spelling::speller()
{
    if (!m_isUsed) {
        m_isUsed = true;
        begin();
    }
    return m_speller;
}

Judge Spelling::judge()
{
    return [this](const QString& word) { return speller().isRight(word); };
}

void Spelling::lookAnew()
{
    if (dictionaries() != m_read)
        begin();
}

void Spelling::startOnSurfaces()
{
    if (m_isOnSurfaces)
        return;
    m_isOnSurfaces = true;
    if (!m_languages.isEmpty())
        makeForSurfaces();
}

void Spelling::makeForSurfaces()
{
    if (m_isOnSurfaces)
        m_engine.make(dictionaries(), m_speller.ownWords());
}

QStringList Spelling::installed()
{
    QStringList languages;
    for (const Dictionary& dictionary : installedDictionaries())
        languages << dictionary.language;
    return languages;
}

std::vector<Dictionary> Spelling::dictionaries() const
{
    std::vector<Dictionary> chosen = installedDictionaries();
    std::erase_if(chosen, [this](const Dictionary& one) { return !m_languages.contains(one.language); });
    return chosen;
}

void Spelling::begin()
{
    m_read = dictionaries();
    if (m_isUsed)
        m_speller.setDictionaries(m_read);
    makeForSurfaces();
}

void Spelling::take(const QStringList& languages)
{
    if (languages == m_languages)
        return;
    m_languages = languages;
    begin();
}

void Spelling::choose(const QStringList& languages)
{
    WriteProfile(Section, LanguagesKey, settingOf(languages), webIni());
    m_isOfDocument = true;
    if (!m_document.isEmpty())
        WriteProfile(Section, keyOf(m_document), settingOf(languages), webIni());
    take(languages);
}

void Spelling::turnTo(const QString& document)
{
    m_document = document;
    QString own = document.isEmpty() ? QString() : ReadProfile(Section, keyOf(document), webIni());
    m_isOfDocument = !own.isEmpty();
    if (!m_isOfDocument)
        own = ReadProfile(Section, LanguagesKey, webIni());
    take(languagesOf(own));
}

void Spelling::follow(const QString& document)
{
    if (m_isOfDocument)
        WriteProfile(Section, keyOf(document), settingOf(m_languages), webIni());
}

void Spelling::addOwnWord(const QString& word)
{
    const auto forSurfaces = qScopeGuard([this] { makeForSurfaces(); }); // also when it can't be kept
    m_speller.addOwnWord(word);
}

} // namespace brindlemark
