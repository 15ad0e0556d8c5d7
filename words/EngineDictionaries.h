// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "words/Dictionaries.h"

#include <QObject>
#include <QProcess>
#include <QStringList>
#include <set>
#include <vector>

namespace brindlemark {

/// Makes dictionaries in the form of the web engine (".bdic") in a folder, in the background: those that the
/// system has are copied there, others are made by the engine's own tool, some 0.3 s each. Where that is
/// missing, or a dictionary is damaged, there is none of that language.
class EngineDictionaries : public QObject
{
    Q_OBJECT

public:
    /// Who looks after a folder. What a user has put into one counts as made, however old it is.
    enum class Owner { Program, User };

    /// The folder is made when it is first written to.
    explicit EngineDictionaries(QString folder, Owner owner, QObject* parent = nullptr);
    ~EngineDictionaries() override;

    /// Begins to make what is missing or older than its dictionary, and one of some words of the user's own.
    /// What was asked for before is given up.
    void make(const std::vector<Dictionary>& dictionaries, const std::set<QString>& ownWords);

    /// Whether a language can be had: the system has it in the engine's form, or the engine's tool is
    /// installed.
    static bool canHave(const QString& language);

signals:
    /// The names by which the engine knows those that are there now.
    void made(const QStringList& names);

private:
    void next();
    void convert(const QString& name, const QString& words);
    void converted(int exitCode, QProcess::ExitStatus status);
    QString path(const QString& name, const char* ending) const;
    void removeFormer(const QString& ownName) const;

    QString m_folder;
    Owner m_owner;
    std::vector<Dictionary> m_wanted;
    QStringList m_made;
    QString m_name; // that is being made; empty when nobody wants it any more
    QProcess m_tool;
};

} // namespace brindlemark
