// SPDX-License-Identifier: GPL-3.0-or-later

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QTest>

/// Reads the sources. Which folder includes which: a folder may include only from those that stand below it.
/// Which licence each names. And how the toolkit calls our code: never so that an exception could travel
/// through its frames.
class TestLayers : public QObject
{
    Q_OBJECT

private slots:
    void noArrowRunsUp();
    void toolsKnowNoControls();
    void placesAreThere();
    void versionsAreOneRoomsMatter();
    void sourcesNameTheirLicence();
    void connectionsAreGuarded();
    void overridesAreGuarded();
};

static const QMap<QString, QStringList> Below = {
    {"platform", {}},
    {"forms", {"platform"}},
    {"source", {"platform", "forms"}},
    {"web", {"platform", "forms"}},
    {"services", {"platform", "forms", "source"}},
    {"words", {"platform", "forms", "source", "services"}},
    {"shell", {"platform", "forms", "source", "web", "services", "words"}},
    {"colour", {"platform", "forms", "source", "web", "services", "words", "shell"}},
    {"builders", {"platform", "forms", "source", "web", "services", "words", "shell", "colour"}},
    {"check", {"platform", "forms", "source", "web", "services", "words", "shell"}},
    {"wizard", {"platform", "forms", "source", "web", "services", "words", "shell"}},
    {"app",
     {"platform", "forms", "source", "web", "services", "words", "shell", "colour", "builders", "wizard",
      "check"}},
};

void TestLayers::noArrowRunsUp()
{
    static const QRegularExpression include(R"(^#include "(\w+)/(\w+)\.h")",
                                            QRegularExpression::MultilineOption);
    QStringList wrong;
    int seen = 0;
    for (auto folder = Below.cbegin(); folder != Below.cend(); ++folder) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder.key(), {"*.h", "*.cpp"}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            for (auto match = include.globalMatch(text); match.hasNext();) {
                const QString from = match.next().captured(1);
                ++seen;
                if (from != folder.key() && !folder.value().contains(from))
                    wrong << QStringLiteral("%1 includes from %2").arg(file.fileName(), from);
            }
        }
    }
    QVERIFY(seen > 50);
    QCOMPARE(wrong, QStringList());
}

/// Whom the main window's own header may tell of it: its parts, and who makes it. All others know what it
/// offers (shell/ListingEditor.h), and none of its controls.
void TestLayers::toolsKnowNoControls()
{
    static const QRegularExpression its(QStringLiteral(R"(^(app/\w+|shell/FrmWeb\w*)\.(h|cpp)$)"));
    static const QStringList others = {
        QStringLiteral("shell/FrmSplash.cpp"), // makes it
        QStringLiteral("shell/Regions.cpp"),   // its buttons follow the document's parts
    };
    QStringList seen;
    for (auto folder = Below.cbegin(); folder != Below.cend(); ++folder) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder.key(), {"*.h", "*.cpp"}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            const QString name = folder.key() + u'/' + files.fileName();
            QVERIFY(file.open(QIODevice::ReadOnly));
            if (file.readAll().contains("#include \"shell/FrmWeb.h\"") && !its.match(name).hasMatch())
                seen << name;
        }
    }
    seen.sort();
    QCOMPARE(seen.join(u'\n'), others.join(u'\n'));
}

/// What the table "Where is ...?" names is where it says.
void TestLayers::placesAreThere()
{
    QFile page(QStringLiteral(SOURCE_DIR "/docs/ARCHITECTURE.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(page.readAll());
    const qsizetype start = text.indexOf(QStringLiteral("## Where is ...?"));
    QVERIFY(start >= 0);
    const QString table = text.mid(start, text.indexOf(QStringLiteral("\n## "), start + 1) - start);
    static const QRegularExpression row(QStringLiteral("^\\| ([^|]+) \\| ([^|]+) \\|$"),
                                        QRegularExpression::MultilineOption);
    static const QRegularExpression path(QStringLiteral("`([A-Za-z0-9_/.]+)`"));
    int rows = 0;
    for (auto rowMatch = row.globalMatch(table); rowMatch.hasNext();) {
        const QRegularExpressionMatch cells = rowMatch.next();
        if (cells.captured(2).startsWith(QStringLiteral("Where")))
            continue;
        ++rows;
        QVERIFY2(path.match(cells.captured(2)).hasMatch(), qPrintable(cells.captured(1)));
        for (auto match = path.globalMatch(cells.captured(2)); match.hasNext();) {
            const QString name = match.next().captured(1);
            QVERIFY2(QFile::exists(QStringLiteral(SOURCE_DIR "/") + name), qPrintable(name));
        }
    }
    QVERIFY2(rows >= 20, qPrintable(QString::number(rows)));
}

/// The sources by their names, without comments.
static QMap<QString, QString> sources()
{
    static const QRegularExpression comment(QStringLiteral(R"((?<=^|\s)//[^\n]*)"),
                                            QRegularExpression::MultilineOption);
    QMap<QString, QString> texts;
    for (auto folder = Below.cbegin(); folder != Below.cend(); ++folder) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder.key(), {"*.h", "*.cpp"}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            texts.insert(folder.key() + u'/' + files.fileName(),
                         QString::fromUtf8(file.readAll()).remove(comment));
        }
    }
    return texts;
}

/// What stands between the bracket at `open` and its partner.
static QString inBrackets(const QString& text, qsizetype open)
{
    int depth = 0;
    for (qsizetype i = open; i < text.size(); ++i) {
        if (QStringLiteral("({[").contains(text.at(i)))
            ++depth;
        if (QStringLiteral(")}]").contains(text.at(i)) && --depth == 0)
            return text.mid(open + 1, i - open - 1);
    }
    return QString();
}

/// The arguments of a call whose bracket stands at `open`.
static QStringList argumentsOf(const QString& text, qsizetype open)
{
    QStringList arguments{QString()};
    int depth = 0;
    for (const QChar character : inBrackets(text, open)) {
        depth += QStringLiteral("({[").contains(character) ? 1 : 0;
        depth -= QStringLiteral(")}]").contains(character) ? 1 : 0;
        if (character == u',' && depth == 0) {
            arguments << QString();
        } else {
            arguments.last() += character;
        }
    }
    for (QString& argument : arguments)
        argument = argument.trimmed();
    return arguments;
}

/// All that a capture of an expression finds in a text.
static QStringList found(const QString& text, const char* expression)
{
    const QRegularExpression pattern(QString::fromLatin1(expression), QRegularExpression::MultilineOption);
    QStringList names;
    for (auto match = pattern.globalMatch(text); match.hasNext();)
        names << match.next().captured(1);
    return names;
}

/// Our signals, as "&Class::name".
static QStringList signalsOf(const QMap<QString, QString>& texts)
{
    static const QRegularExpression section(
        QStringLiteral(R"(^class (\w+)[^;{]*\{|^signals:\n((?:(?!^(?:public|protected|private|\};)).*\n)*))"),
        QRegularExpression::MultilineOption);
    QStringList names;
    for (const QString& text : texts) {
        QString owner;
        for (auto match = section.globalMatch(text); match.hasNext();) {
            const QRegularExpressionMatch part = match.next();
            if (!part.captured(1).isEmpty())
                owner = part.captured(1);
            for (const QString& name : found(part.captured(2), R"((\w+)\()"))
                names << u'&' + owner + QStringLiteral("::") + name;
        }
    }
    return names;
}

/// `connect` stands only where a signal passes on to a signal, or to what is the toolkit's own. All else is
/// connected, or put off, by what platform/Events.h offers.
void TestLayers::connectionsAreGuarded()
{
    static const QRegularExpression call(
        QStringLiteral(R"(\b(connect|singleShot|callOnTimeout|invokeMethod|addAction)(\())"));
    static const QRegularExpression toolkits(QStringLiteral("^&Q[A-Z]\\w*::\\w+$"));
    QMap<QString, QString> texts = sources();
    const QStringList ours = signalsOf(texts);
    QVERIFY(ours.contains(QStringLiteral("&ComboBox::Click")));
    texts.remove(QStringLiteral("platform/Events.h"));
    QStringList wrong;
    int seen = 0;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        for (auto match = call.globalMatch(*text); match.hasNext();) {
            const QRegularExpressionMatch here = match.next();
            const QStringList arguments = argumentsOf(*text, here.capturedStart(2));
            const QString& target = arguments.constLast();
            ++seen;
            if (here.captured(1) == QLatin1String("addAction") && arguments.size() < 3)
                continue; // an entry alone
            if (here.captured(1) == QLatin1String("connect") &&
                (ours.contains(target) || toolkits.match(target).hasMatch()))
                continue;
            wrong << QStringLiteral("%1: %2(... %3)").arg(text.key(), here.captured(1), target.simplified());
        }
    }
    QVERIFY2(seen > 10, qPrintable(QString::number(seen)));
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

/// Whether a file is a source: code, the build's, or a script.
static bool isSource(const QFileInfo& file, const QByteArray& content)
{
    static const QStringList suffixes = {"cpp", "h", "js", "py", "cmake"};
    static const QStringList names = {"CMakeLists.txt", "Makefile"};
    return suffixes.contains(file.suffix()) || names.contains(file.fileName()) || content.startsWith("#!");
}

/// What differs between versions of the toolkit stands in `web/`, as that is the engine's.
void TestLayers::versionsAreOneRoomsMatter()
{
    QMap<QString, int> seen;
    for (const QString& folder : Below.keys()) {
        QDirIterator files(QStringLiteral(SOURCE_DIR "/") + folder, {"*.h", "*.cpp"}, QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray text = file.readAll();
            if (const auto count = text.count("QT_VERSION ") + text.count("qVersion"))
                seen[folder] += int(count);
        }
    }
    QCOMPARE(seen.keys(), QStringList{QStringLiteral("web")});
}

void TestLayers::sourcesNameTheirLicence()
{
    const QByteArray line = "SPDX-License-Identifier: GPL-3.0-or-later\n";
    QStringList wrong;
    int seen = 0;
    const QString root = QStringLiteral(SOURCE_DIR "/");
    QStringList folders =
        Below.keys() + QStringList{"bench", "cmake", "data", "fuzz", "package", "tests", ".ci"};
    QFileInfoList files = QDir(root).entryInfoList(QDir::Files);
    for (const QString& folder : folders) {
        QDirIterator walk(root + folder, QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext())
            files << QFileInfo(walk.next());
    }
    for (const QFileInfo& entry : files) {
        QFile file(entry.filePath());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray beginning = file.read(200);
        if (!isSource(entry, beginning))
            continue;
        ++seen;
        if (!beginning.contains(line))
            wrong << file.fileName();
    }
    QVERIFY2(seen > 300, qPrintable(QString::number(seen)));
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

/// The body of a function that is declared somewhere: the first of a class that is told by its name.
static QString bodyOf(const QMap<QString, QString>& texts, const QString& owner, const QString& name)
{
    const QRegularExpression definition(
        QStringLiteral(R"(^[\w:<>*& ]+\b%1::%2\([^;{}]*\)(?: const)?\s*\{)").arg(owner, name),
        QRegularExpression::MultilineOption);
    for (const QString& text : texts) {
        if (const QRegularExpressionMatch match = definition.match(text); match.hasMatch())
            return inBrackets(text, match.capturedEnd() - 1);
    }
    return QStringLiteral("?");
}

/// All of a body is one guarded call, or there is no body.
static bool isGuarded(const QString& body)
{
    static const QRegularExpression begin(QStringLiteral(R"(^(?:return )?guardedCall(\())"));
    const QString text = body.trimmed();
    const QRegularExpressionMatch match = begin.match(text);
    if (!match.hasMatch())
        return text.isEmpty();
    const qsizetype open = match.capturedStart(1);
    return text.mid(open + 1 + inBrackets(text, open).size()) == QLatin1String(");");
}

/// What the toolkit calls, every override of a function of its own, catches what leaves it. An answer of one
/// line in the class itself only looks up what is there.
void TestLayers::overridesAreGuarded()
{
    static const QRegularExpression overriding(
        QStringLiteral(
            R"(^class (\w+)[^;{]*\{|(~?\w+)\((?:[^;{}()]|\([^;{}()]*\)|\{\})*\)(?: const)?\s+override(?: final)?\s*(\{|;))"),
        QRegularExpression::MultilineOption);
    static const QRegularExpression answer(QStringLiteral(R"(^ (return [^;\n]*;) $)"));
    const QMap<QString, QString> texts = sources();
    QStringList ours;
    for (const QString& text : texts)
        ours << found(text, R"(\bvirtual\s[^;{}()]*\b(\w+)\()");
    QVERIFY(ours.contains(QStringLiteral("actOnKey")));
    QStringList wrong;
    int seen = 0;
    for (auto text = texts.cbegin(); text != texts.cend(); ++text) {
        QString owner;
        qsizetype overrides = 0;
        for (auto match = overriding.globalMatch(*text); match.hasNext();) {
            const QRegularExpressionMatch here = match.next();
            if (!here.captured(1).isEmpty()) {
                owner = here.captured(1);
                continue;
            }
            ++overrides;
            const QString name = here.captured(2);
            if (name.startsWith(u'~') || ours.contains(name))
                continue;
            ++seen;
            const bool inClass = here.captured(3) == QLatin1String("{");
            const QString body =
                inClass ? inBrackets(*text, here.capturedStart(3)) : bodyOf(texts, owner, name);
            if (!isGuarded(body) && !(inClass && answer.match(body).hasMatch()))
                wrong << QStringLiteral("%1: %2::%3").arg(text.key(), owner, name);
        }
        QCOMPARE(overrides, found(*text, R"(\b(override)\b)").size()); // none was overlooked
    }
    QVERIFY2(seen > 100, qPrintable(QString::number(seen)));
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

QTEST_APPLESS_MAIN(TestLayers)
#include "tst_layers.moc"
