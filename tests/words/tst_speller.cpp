// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Dictionaries.h"
#include "words/Speller.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

using namespace brindlemark;

/// Dictionaries in a folder of the test's own, and what is judged by them.
class TestSpeller : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void whatIsInstalled();
    void firstOfEachLanguage();
    void names_data();
    void names();
    void systemsLanguage();
    void judges();
    void withoutDictionary();
    void encodingsOfDictionaries();
    void twoLanguages();
    void tenLanguages();
    void damagedDictionary_data();
    void damagedDictionary();
    void suggestions();
    void ownWords();
    void ownWordsInOtherForms_data();
    void ownWordsInOtherForms();
    void ownWordsOfTwoPrograms();
    void ownWordsThatCannotBeWritten();
    void changeOfLanguages();
    void installedEnglish();

private:
    void write(const QString& name, const QByteArray& bytes) const;
    Dictionary dictionary(
        const QString& language, const QByteArray& words,
        const QByteArray& rules = "SET UTF-8\nTRY esianrtolcdugmphbyfvkwzESIANRTOLCDUGMPHBYFVKWZ'\n") const;
    void load(const std::vector<Dictionary>& dictionaries);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Speller> m_speller;
};

void TestSpeller::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_speller = std::make_unique<Speller>(m_folder->filePath("own.txt"));
    qputenv("DICPATH", m_folder->path().toLocal8Bit());
    qputenv("XDG_DATA_HOME", m_folder->filePath("data").toLocal8Bit());
    qputenv("XDG_DATA_DIRS", m_folder->filePath("system").toLocal8Bit());
}

void TestSpeller::write(const QString& name, const QByteArray& bytes) const
{
    QDir(m_folder->path()).mkpath(QFileInfo(name).path());
    QFile file(m_folder->filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

Dictionary TestSpeller::dictionary(const QString& language, const QByteArray& words,
                                   const QByteArray& rules) const
{
    write(language + ".dic", words);
    write(language + ".aff", rules);
    return {language, m_folder->filePath(language + ".aff"), m_folder->filePath(language + ".dic")};
}

void TestSpeller::load(const std::vector<Dictionary>& dictionaries)
{
    QSignalSpy changed(m_speller.get(), &Speller::changed);
    m_speller->setDictionaries(dictionaries);
    QTRY_COMPARE(changed.size(), dictionaries.empty() ? 1 : 2);
}

static QStringList languages(const std::vector<Dictionary>& dictionaries)
{
    QStringList names;
    for (const Dictionary& dictionary : dictionaries)
        names << dictionary.language;
    return names;
}

void TestSpeller::whatIsInstalled()
{
    QCOMPARE(languages(installedDictionaries()), QStringList());
    const Dictionary english = dictionary("en_GB", "1\nlamp\n");
    write("de_DE.dic", "1\nLampe\n"); // without its rules
    write("data/hunspell/fr.dic", "1\nlampe\n");
    write("data/hunspell/fr.aff", "SET UTF-8\n");
    write("system/myspell/dicts/it_IT.dic", "1\nlampada\n");
    write("system/myspell/dicts/it_IT.aff", "SET UTF-8\n");
    QCOMPARE(languages(installedDictionaries()), QStringList({"en_GB", "fr", "it_IT"}));
    QCOMPARE(installedDictionaries().front(), english);
}

void TestSpeller::firstOfEachLanguage()
{
    const Dictionary own = dictionary("fr", "1\nlampe\n");
    write("system/hunspell/fr.dic", "1\nlampe\n");
    write("system/hunspell/fr.aff", "SET UTF-8\n");
    QCOMPARE(installedDictionaries(), std::vector<Dictionary>({own}));
}

void TestSpeller::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("de_DE") << "Deutsch (de_DE)";
    QTest::newRow("fr") << "fran\u00E7ais (fr)";
    QTest::newRow("ru_RU") << "\u0440\u0443\u0441\u0441\u043A\u0438\u0439 (ru_RU)";
    QTest::newRow("lamps") << "lamps";
}

void TestSpeller::names()
{
    QTEST(languageName(QString::fromLatin1(QTest::currentDataTag())), "name");
}

void TestSpeller::systemsLanguage()
{
    const auto of = [](const QStringList& codes) {
        std::vector<Dictionary> dictionaries;
        for (const QString& code : codes)
            dictionaries.push_back({code, {}, {}});
        return languageOfSystem(dictionaries, QLocale(QStringLiteral("de_AT")));
    };
    QCOMPARE(of({"de_AT", "de_DE", "en_US"}), "de_AT");
    QCOMPARE(of({"de_DE", "de_LU", "en_US"}), "de_DE");
    QCOMPARE(of({"de", "en_US"}), "de");
    QCOMPARE(of({"en_US"}), "");
}

void TestSpeller::judges()
{
    load({dictionary("en", "3\nlamp/S\nbrass\nOhio\n", "SET UTF-8\nSFX S Y 1\nSFX S 0 s .\n")});
    QVERIFY(m_speller->judges());
    for (const char* right : {"lamp", "lamps", "Lamp", "LAMPS", "Ohio", "12in", "lamp2"})
        QVERIFY2(m_speller->isRight(QString::fromLatin1(right)), right);
    load({dictionary("en", "2\nlamp\ndon't\n")});
    QVERIFY(m_speller->isRight("don't"));
    QVERIFY(m_speller->isRight("don\u2019t"));
    for (const char* wrong : {"lmap", "ohio", "brasses"})
        QVERIFY2(!m_speller->isRight(QString::fromLatin1(wrong)), wrong);
}

void TestSpeller::withoutDictionary()
{
    load({});
    QVERIFY(!m_speller->judges());
    QVERIFY(m_speller->isRight("lmap"));
    QCOMPARE(m_speller->suggestions("lmap"), QStringList());
}

/// Older dictionaries are not in UTF-8.
void TestSpeller::encodingsOfDictionaries()
{
    load({dictionary("fr", "2\nz\xE8le\nlampe\n", "SET ISO8859-1\nTRY aelmpz\xE8\n"),
          dictionary("ru", "1\n\xCC\xC1\xCD\xD0\xC1\n", "SET KOI8-R\n")});
    QVERIFY(m_speller->isRight("z\u00E8le"));
    QVERIFY(!m_speller->isRight("zele"));
    QVERIFY(m_speller->suggestions("zele").contains("z\u00E8le"));
    QVERIFY(m_speller->isRight("\u043B\u0430\u043C\u043F\u0430"));
    QVERIFY(!m_speller->isRight("\u043B\u0430\u043C\u043F"));
    QVERIFY(!m_speller->isRight("\u706F")); // which neither can hold
    load({dictionary("bg", "1\n\xEB\xE0\xEC\xEF\xE0\n", "SET microsoft-cp1251\n")});
    QVERIFY(m_speller->isRight("\u043B\u0430\u043C\u043F\u0430"));
    QVERIFY(!m_speller->isRight("\u043B\u0430\u043C\u043F"));
    load({dictionary("xx", "1\nlamp\n", "SET no-such-encoding\n")});
    QCOMPARE(m_speller->damaged(), QStringList({"xx"}));
}

void TestSpeller::twoLanguages()
{
    load({dictionary("en", "1\nlamp\n"), dictionary("de", "1\nLampe\n")});
    QVERIFY(m_speller->isRight("lamp"));
    QVERIFY(m_speller->isRight("Lampe"));
    QVERIFY(!m_speller->isRight("lampada"));
    const QStringList suggestions = m_speller->suggestions("Lampt");
    QVERIFY(suggestions.contains("Lamp"));
    QVERIFY(suggestions.contains("Lampe"));
}

void TestSpeller::tenLanguages()
{
    std::vector<Dictionary> ten;
    for (int i = 0; i < 10; ++i)
        ten.push_back(
            dictionary(QStringLiteral("l%1").arg(i), "1\nlamp" + QByteArray(1, char('a' + i)) + '\n'));
    load(ten);
    QVERIFY(m_speller->isRight("lampa") && m_speller->isRight("lampj"));
    QVERIFY(!m_speller->isRight("lampk"));
    QCOMPARE(m_speller->suggestions("lampk").size(), 8);
}

void TestSpeller::damagedDictionary_data()
{
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("without words") << QByteArray("1\n");
    QTest::newRow("without their number") << QByteArray("lamp\nbrass\n");
    QTest::newRow("bytes") << QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
}

/// It is left out: or else each word would be wrong.
void TestSpeller::damagedDictionary()
{
    QFETCH(QByteArray, words);
    load({dictionary("en", words), dictionary("de", "1\nLampe\n")});
    QCOMPARE(m_speller->damaged(), QStringList({"en"}));
    QVERIFY(m_speller->isRight("Lampe"));
    load({dictionary("en", words)});
    QVERIFY(!m_speller->judges());
    QVERIFY(m_speller->isRight("lamp"));
}

void TestSpeller::suggestions()
{
    load({dictionary("en", "4\nlamp\nbrass\nbras\nclamp\n")});
    QCOMPARE(m_speller->suggestions("lmap").value(0), "lamp");
    QVERIFY(m_speller->suggestions("brss").contains("brass"));
    QCOMPARE(m_speller->suggestions("\u706F"), QStringList());
}

void TestSpeller::ownWords()
{
    load({dictionary("en", "1\nlamp\n")});
    QVERIFY(!m_speller->isRight("Aladdin"));
    QSignalSpy changed(m_speller.get(), &Speller::changed);
    m_speller->addOwnWord("Aladdin");
    m_speller->addOwnWord("Gr\u00F6\u00DFe");
    QCOMPARE(changed.size(), 2);
    QVERIFY(m_speller->isRight("Aladdin"));
    QFile file(m_folder->filePath("own.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("Aladdin\nGr\xC3\xB6\xC3\x9F"
                                        "e\n"));
    m_speller = std::make_unique<Speller>(m_folder->filePath("own.txt")); // the next start
    load({dictionary("en", "1\nlamp\n")});
    QVERIFY(m_speller->isRight("Aladdin"));
    QVERIFY(m_speller->isRight("Gr\u00F6\u00DFe"));
    QVERIFY(!m_speller->isRight("aladin"));
}

void TestSpeller::ownWordsInOtherForms_data()
{
    QTest::addColumn<QString>("own");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("right");
    QTest::newRow("with a capital") << "lampp"
                                    << "Lampp" << true;
    QTest::newRow("in capitals") << "lampp"
                                 << "LAMPP" << true;
    QTest::newRow("mixed") << "lampp"
                           << "lAmpp" << false;
    QTest::newRow("small") << "Lampp"
                           << "lampp" << false;
    QTest::newRow("written apostrophe") << "lampp's"
                                        << "lampp\u2019s" << true;
    QTest::newRow("typed apostrophe") << "lampp\u2019s"
                                      << "lampp's" << true;
}

void TestSpeller::ownWordsInOtherForms()
{
    QFETCH(QString, own);
    QFETCH(QString, word);
    load({dictionary("en", "1\nbrass\n")});
    QVERIFY(!m_speller->isRight(word));
    m_speller->addOwnWord(own);
    QTEST(m_speller->isRight(word), "right");
}

/// None takes away what the other one has added.
void TestSpeller::ownWordsOfTwoPrograms()
{
    Speller other(m_folder->filePath("own.txt"));
    m_speller->addOwnWord("one");
    other.addOwnWord("two");
    m_speller->addOwnWord("three");
    QFile file(m_folder->filePath("own.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("one\nthree\ntwo\n"));
}

void TestSpeller::ownWordsThatCannotBeWritten()
{
    m_speller = std::make_unique<Speller>(m_folder->filePath("none/own.txt"));
    load({dictionary("en", "1\nlamp\n")});
    QVERIFY_THROWS_EXCEPTION(std::exception, m_speller->addOwnWord("Aladdin"));
    QVERIFY(m_speller->isRight("Aladdin")); // until the end
}

void TestSpeller::changeOfLanguages()
{
    load({dictionary("en", "1\nlamp\n")});
    QVERIFY(!m_speller->isRight("Lampe"));
    load({dictionary("de", "1\nLampe\n")});
    QVERIFY(m_speller->isRight("Lampe"));
    QVERIFY(!m_speller->isRight("lamp"));
    // A change while the one before is still read.
    m_speller->setDictionaries({dictionary("en", "1\nlamp\n")});
    load({});
    QVERIFY(m_speller->isRight("Lampe") && m_speller->isRight("lamp"));
}

/// The dictionary that the system's package brings.
void TestSpeller::installedEnglish()
{
    qunsetenv("DICPATH");
    qputenv("XDG_DATA_DIRS", "/usr/share");
    const std::vector<Dictionary> installed = installedDictionaries();
    const auto english = std::ranges::find(installed, QStringLiteral("en_US"), &Dictionary::language);
    QVERIFY(english != installed.end());
    load({*english});
    for (const char* right : {"lamp", "Ohio", "don't", "auction", "1920s"})
        QVERIFY2(m_speller->isRight(QString::fromLatin1(right)), right);
    QVERIFY(m_speller->isRight("don\u2019t"));
    QVERIFY(!m_speller->isRight("lampp"));
    QVERIFY(m_speller->suggestions("recieve").contains("receive"));
}

QTEST_GUILESS_MAIN(TestSpeller)
#include "tst_speller.moc"
