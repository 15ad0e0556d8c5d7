// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/EngineDictionaries.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace brindlemark;

/// Dictionaries in the engine's form, made by its own tool.
class TestEngineDictionaries : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void makesThem();
    void keepsWhatIsThere();
    void makesOlderOnesAnew();
    void leavesDamagedOnesOut();
    void takesTheSystemsOwn();
    void ownWords();
    void othersMeanwhile();
    void usersFolder();
    void none();
    void folderThatCannotBeMade();

private:
    Dictionary dictionary(const QString& language, const QByteArray& words) const;
    QStringList made(const std::vector<Dictionary>& dictionaries, const std::set<QString>& ownWords = {});
    QString path(const QString& name) const { return m_folder->filePath(name); }
    void write(const QString& name, const QByteArray& bytes) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<EngineDictionaries> m_engine;
};

void TestEngineDictionaries::init()
{
    QVERIFY2(EngineDictionaries::canHave("en"), "needs the package qt6-webengine-dev-tools");
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_DIRS", path("system").toLocal8Bit());
    m_engine = std::make_unique<EngineDictionaries>(path("made"), EngineDictionaries::Owner::Program);
}

void TestEngineDictionaries::write(const QString& name, const QByteArray& bytes) const
{
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

Dictionary TestEngineDictionaries::dictionary(const QString& language, const QByteArray& words) const
{
    write(language + ".dic", words);
    write(language + ".aff", "SET UTF-8\n");
    return {language, path(language + ".aff"), path(language + ".dic")};
}

QStringList TestEngineDictionaries::made(const std::vector<Dictionary>& dictionaries,
                                         const std::set<QString>& ownWords)
{
    QSignalSpy made(m_engine.get(), &EngineDictionaries::made);
    m_engine->make(dictionaries, ownWords);
    if (made.isEmpty() && !made.wait(30'000))
        QTest::qFail("it never says that they are there", __FILE__, __LINE__);
    return made.isEmpty() ? QStringList() : made.constLast().constFirst().toStringList();
}

static QByteArray begin(const QString& file)
{
    QFile made(file);
    return made.open(QIODevice::ReadOnly) ? made.read(4) : QByteArray();
}

void TestEngineDictionaries::makesThem()
{
    QCOMPARE(made({dictionary("en", "2\nlamp\nbrass\n"), dictionary("de", "2\nLampe\nneu\n")}),
             QStringList({"en", "de"}));
    QCOMPARE(begin(path("made/en.bdic")), QByteArray("BDic"));
    QCOMPARE(begin(path("made/de.bdic")), QByteArray("BDic"));
    QCOMPARE(QDir(path("made")).entryList(QDir::Files), QStringList({"de.bdic", "en.bdic"}));
}

void TestEngineDictionaries::keepsWhatIsThere()
{
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    write("made/en.bdic", "there");
    QCOMPARE(made({english}), QStringList({"en"}));
    QCOMPARE(begin(path("made/en.bdic")), QByteArray("ther"));
}

void TestEngineDictionaries::makesOlderOnesAnew()
{
    write("made/en.bdic", "there");
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    QFile older(path("made/en.bdic"));
    QVERIFY(older.open(QIODevice::ReadWrite));
    QVERIFY(older.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    older.close();
    QCOMPARE(made({english}), QStringList({"en"}));
    QCOMPARE(begin(path("made/en.bdic")), QByteArray("BDic"));
}

/// The tool falls over some of them.
void TestEngineDictionaries::leavesDamagedOnesOut()
{
    QCOMPARE(made({dictionary("de", "2\nLampe\nneu\n"), dictionary("en", "lamp\n"),
                   Dictionary{"fr", path("fr.aff"), path("fr.dic")}}),
             QStringList({"de"}));
    QCOMPARE(QDir(path("made")).entryList(QDir::Files), QStringList({"de.bdic"}));
}

void TestEngineDictionaries::takesTheSystemsOwn()
{
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    write("system/hunspell-bdic/en.bdic", "the system's");
    QCOMPARE(made({english}), QStringList({"en"}));
    QCOMPARE(begin(path("made/en.bdic")), QByteArray("the "));
}

/// The engine reads each name once, so other words have another name.
void TestEngineDictionaries::ownWords()
{
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    const QStringList first = made({english}, {"Aladdin"});
    QCOMPARE(first.size(), 2);
    QVERIFY(first.contains("en"));
    const QStringList second = made({english}, {"Aladdin", "Gr\u00F6\u00DFe"});
    QCOMPARE(second.size(), 2);
    QVERIFY(first != second);
    for (const QString& name : second)
        QCOMPARE(begin(path("made/" + name + ".bdic")), QByteArray("BDic"));
    QCOMPARE(QDir(path("made")).entryList({"*.bdic"}, QDir::Files).size(), 2); // those of the former are gone
}

/// Off, or other languages, while the tool is at work.
void TestEngineDictionaries::othersMeanwhile()
{
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    const Dictionary german = dictionary("de", "2\nLampe\nneu\n");
    QSignalSpy told(m_engine.get(), &EngineDictionaries::made);
    m_engine->make({english}, {});
    m_engine->make({german}, {});
    QTRY_COMPARE(told.size(), 1);
    QCOMPARE(told.constLast().constFirst().toStringList(), QStringList({"de"}));
    m_engine->make({english}, {});
    m_engine->make({}, {});
    QCOMPARE(told.size(), 2);
    QCOMPARE(made({german}), QStringList({"de"})); // the tool has ended when this is told
    for (const QVariantList& names : told.sliced(1))
        QVERIFY(!names.constFirst().toStringList().contains("en"));
}

/// What a user has put into a folder is used as it is.
void TestEngineDictionaries::usersFolder()
{
    const Dictionary english = dictionary("en", "2\nlamp\nbrass\n");
    const Dictionary german = dictionary("de", "2\nLampe\nneu\n");
    write("made/en.bdic", "the user's");
    QFile older(path("made/en.bdic"));
    QVERIFY(older.open(QIODevice::ReadWrite));
    QVERIFY(older.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
    older.close();
    m_engine = std::make_unique<EngineDictionaries>(path("made"), EngineDictionaries::Owner::User);
    QCOMPARE(made({english, german}), QStringList({"en", "de"}));
    QCOMPARE(begin(path("made/en.bdic")), QByteArray("the "));
    QCOMPARE(begin(path("made/de.bdic")), QByteArray("BDic"));
}

void TestEngineDictionaries::none()
{
    QCOMPARE(made({}, {"Aladdin"}), QStringList());
    QVERIFY(!QFile::exists(path("made")));
}

void TestEngineDictionaries::folderThatCannotBeMade()
{
    write("made", "a file");
    QCOMPARE(made({dictionary("en", "2\nlamp\nbrass\n")}, {"Aladdin"}), QStringList());
}

QTEST_GUILESS_MAIN(TestEngineDictionaries)
#include "tst_enginedictionaries.moc"
