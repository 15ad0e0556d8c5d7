// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaderTool.h"
#include "OrdinaryUser.h"
#include "WebTestMain.h"
#include "colour/ColorSample.h"

#include <QDir>
#include <functional>

using namespace brindlemark;

namespace {

/// The keys of the fader's presets in the order of writing, and the samples that they keep.
struct Key
{
    const char* key;
    const char* sample;
};

constexpr Key Keys[] = {
    {"color1", "Color1"},     {"color2", "color2"},     {"color3", "color3"},   {"color4", "color4"},
    {"color5", "Color5"},     {"Hcolor1", "Hcolor1"},   {"Fcolor1", "FColor1"}, {"Bcolor1", "BColor1"},
    {"Tbcolor1", "TbColor1"}, {"Tbcolor2", "TbColor2"},
};

const QList<int> Blacks(10, 0);
const QList<int> Mixed = {255, 65280, 16711680, 16777215, 1, 4227327, 16744512, 8388736, 65793, 658188};
const QList<int> Others = {11, 12, 13, 14, 15, 16, 17, 18, 19, 20};

constexpr char SaveQuestion[] = "Save||1color|FPC Files (*.fpc)|*.fpc|";
constexpr char OpenQuestion[] = "Open|||FPC Files (*.fpc)|*.fpc|";

QByteArray presetOf(const QList<int>& colors, const QByteArray& lineEnd = "\r\n")
{
    QByteArray file = "[Fader5]" + lineEnd;
    for (qsizetype i = 0; i < colors.size(); ++i)
        file += QByteArray(Keys[i].key) + '=' + QByteArray::number(colors.at(i)) + lineEnd;
    return file;
}

/// The fader, with presets in the program's folder.
class PresetTool : public FaderTool
{
public:
    PresetTool() { show(QStringLiteral("abcd")); }

    QList<int> colors() const
    {
        QList<int> colors;
        for (const Key& key : Keys)
            colors << sampleOf(key)->BackColor();
        return colors;
    }
    ColorSample* sampleOf(const Key& key) const
    {
        return control<ColorSample>(QString::fromLatin1(key.sample));
    }
    /// Chooses each colour in the colour dialog.
    void pick(const QList<int>& colors)
    {
        click({"Opt3", "Check1", "Check7", "ChkNoB"});
        for (qsizetype i = 0; i < colors.size(); ++i) {
            if (Keys[i].sample == QByteArray("FColor1"))
                click({"Opt1"});
            doors.answerColor(colors.at(i));
            click(sampleOf(Keys[i]));
        }
        doors.takeAsked();
    }
    using FaderTool::click;

    void save(const QString& path)
    {
        doors.answerSave(path);
        click(tool->Command4);
    }
    void load(const QString& path)
    {
        doors.answerOpen(path);
        click(tool->Command5);
    }
    void load(const QByteArray& preset)
    {
        folder.write(QStringLiteral("preset.fpc"), preset);
        load(folder.path(QStringLiteral("preset.fpc")));
    }
    QStringList texts() const
    {
        return {tool->highlightColor, tool->textColor, tool->borderColor, tool->tableColor, tool->cellColor};
    }
};

} // namespace

class TestPresets : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void saveOfTheDefaults();
    void saveOfMixedColors();
    void saveTakesTheSamplesNotTheBars();
    void saveKeepsOtherSections();
    void saveOverAnOldPreset();
    void saveCancelled();
    void saveWhereNobodyCanWrite();
    void saveInAReadOnlyFolder();
    void load();
    void loadedColorsWaitForTheNextRefresh_data();
    void loadedColorsWaitForTheNextRefresh();
    void barsKeepTheirPosition();
    void readableFiles_data();
    void readableFiles();
    void systemColor();
    void loadCancelled();
    void filesThatHoldNothing_data();
    void filesThatHoldNothing();
    void missingKeyEndsTheLoad_data();
    void missingKeyEndsTheLoad();
    void badValueEndsTheLoad_data();
    void badValueEndsTheLoad();
    void thereAndBack();
};

void TestPresets::cleanup()
{
    unloadAll();
}

// ---- Save ------------------------------------------------------------------------------------------------

void TestPresets::saveOfTheDefaults()
{
    PresetTool f;
    const QString path = f.folder.path(QStringLiteral("black.fpc"));
    f.save(path);
    QCOMPARE(f.doors.takeAsked(), QStringList(QString::fromLatin1(SaveQuestion)));
    QCOMPARE(f.folder.read(QStringLiteral("black.fpc")),
             QByteArray("[Fader5]\r\ncolor1=0\r\ncolor2=0\r\ncolor3=0\r\ncolor4=0\r\ncolor5=0\r\n"
                        "Hcolor1=0\r\nFcolor1=0\r\nBcolor1=0\r\nTbcolor1=0\r\nTbcolor2=0\r\n"));
    QVERIFY(isLoaded<Fader5>());
}

void TestPresets::saveOfMixedColors()
{
    PresetTool f;
    f.pick(Mixed);
    // The two-colour mode has no preset.
    f.click({"Opt2"});
    f.doors.answerColor(7);
    f.click(f.tool->ColorX);
    f.save(f.folder.path(QStringLiteral("mixed.fpc")));
    QCOMPARE(f.folder.read(QStringLiteral("mixed.fpc")),
             QByteArray("[Fader5]\r\ncolor1=255\r\ncolor2=65280\r\ncolor3=16711680\r\ncolor4=16777215\r\n"
                        "color5=1\r\nHcolor1=4227327\r\nFcolor1=16744512\r\nBcolor1=8388736\r\n"
                        "Tbcolor1=65793\r\nTbcolor2=658188\r\n"));
    QCOMPARE(f.colors(), Mixed);
}

void TestPresets::saveTakesTheSamplesNotTheBars()
{
    PresetTool f;
    f.load(presetOf(Mixed)); // the bars are at 0
    f.save(f.folder.path(QStringLiteral("again.fpc")));
    QCOMPARE(f.folder.read(QStringLiteral("again.fpc")), presetOf(Mixed));
}

void TestPresets::saveKeepsOtherSections()
{
    PresetTool f;
    f.folder.write(QStringLiteral("shared.fpc"), "[HR]\r\nFcolor1=5\r\n");
    f.pick(Mixed);
    f.save(f.folder.path(QStringLiteral("shared.fpc")));
    const QByteArray file = f.folder.read(QStringLiteral("shared.fpc"));
    QVERIFY2(file.startsWith("[HR]\r\nFcolor1=5\r\n"), file.constData());
    QVERIFY2(file.endsWith(presetOf(Mixed)), file.constData());
}

void TestPresets::saveOverAnOldPreset()
{
    PresetTool f;
    f.folder.write(QStringLiteral("old.fpc"), presetOf(Others));
    f.save(f.folder.path(QStringLiteral("old.fpc")));
    QCOMPARE(f.folder.read(QStringLiteral("old.fpc")), presetOf(Blacks));
}

void TestPresets::saveCancelled()
{
    PresetTool f;
    const QStringList before = QDir(f.folder.path(QString())).entryList();
    f.doors.cancelSave();
    f.click(f.tool->Command4);
    QCOMPARE(f.doors.asked.size(), 1);
    QCOMPARE(QDir(f.folder.path(QString())).entryList(), before);
    QVERIFY(isLoaded<Fader5>());
}

void TestPresets::saveWhereNobodyCanWrite()
{
    PresetTool f;
    QVERIFY(QDir().mkdir(f.folder.path(QStringLiteral("folder.fpc"))));
    for (const char* name : {"no/such/folder.fpc", "folder.fpc"}) {
        f.save(f.folder.path(QString::fromLatin1(name)));
        QCOMPARE(f.doors.takeAsked(), QStringList(QString::fromLatin1(SaveQuestion))); // nobody is told
    }
    QVERIFY(QFileInfo(f.folder.path(QStringLiteral("folder.fpc"))).isDir());
    QVERIFY(!f.folder.has(QStringLiteral("no")));
    QVERIFY(isLoaded<Fader5>());
    QVERIFY(!f.doors.ended);
}

void TestPresets::saveInAReadOnlyFolder()
{
    PresetTool f;
    const QTemporaryDir folder;
    const QString fresh = folder.filePath(QStringLiteral("fresh.fpc"));
    const QString old = folder.filePath(QStringLiteral("old.fpc"));
    QFile file(old);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(presetOf(Others)) > 0);
    file.close();
    QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    QVERIFY(QFile::setPermissions(old, QFile::ReadOwner | QFile::ReadOther));
    {
        const OrdinaryUser user(folder.path());
        if (!user.ordinary())
            QSKIP("the superuser can't become anybody else here");
        f.save(fresh);
        f.save(old);
    }
    QCOMPARE(f.doors.asked.size(), 2);
    QVERIFY(!QFile::exists(fresh));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), presetOf(Others));
    QVERIFY(isLoaded<Fader5>());
    QVERIFY(!f.doors.ended);
    QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

// ---- Load ------------------------------------------------------------------------------------------------

void TestPresets::load()
{
    PresetTool f;
    f.load(presetOf({0x000001, 0x000203, 0x040506, 0x070809, 0x0A0B0C, 0xFF8040, 0x112233, 0x445566, 0x778899,
                     0xAABBCC}));
    QCOMPARE(f.doors.takeAsked(), QStringList(QString::fromLatin1(OpenQuestion)));
    QCOMPARE(f.colors(), QList<int>({0x000001, 0x000203, 0x040506, 0x070809, 0x0A0B0C, 0xFF8040, 0x112233,
                                     0x445566, 0x778899, 0xAABBCC}));
    QCOMPARE(f.texts(), QStringList({"#4080FF", "#332211", "#665544", "#998877", "#CCBBAA"}));
    QCOMPARE(f.tool->fadedText,
             QStringLiteral("<Font Color=\"#030200\">a</Font><Font Color=\"#060504\">b</Font>"
                            "<Font Color=\"#090807\">c</Font><Font Color=\"#0C0B0A\">d</Font>"));
    QCOMPARE(f.tool->ColorX->BackColor(), 0);
    QCOMPARE(f.tool->ColorZ->BackColor(), 0);
    QVERIFY(isLoaded<Fader5>());
}

void TestPresets::loadedColorsWaitForTheNextRefresh_data()
{
    QTest::addColumn<QString>("mode"); // its option
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("one color") << "Opt1"
                               << "<Font face=Arial size=3 color=#000000>abcd</FONT>"
                               << "<Font face=Arial size=3 color=#4080FF>abcd</FONT>"; // 16744512
    QTest::newRow("five colors")
        << "Opt3"
        << "<Font face=Arial size=3><Font Color=\"#000000\">a</Font><Font Color=\"#000000\">b</Font>"
           "<Font Color=\"#000000\">c</Font><Font Color=\"#000000\">d</Font></FONT>"
        << "<Font face=Arial size=3><Font Color=\"#00FF00\">a</Font><Font Color=\"#0000FF\">b</Font>"
           "<Font Color=\"#FFFFFF\">c</Font><Font Color=\"#010000\">d</Font></FONT>";
}

void TestPresets::loadedColorsWaitForTheNextRefresh()
{
    QFETCH(QString, mode);
    QFETCH(QString, before);
    QFETCH(QString, after);
    PresetTool f;
    f.click({mode});
    QTRY_COMPARE(f.sample(), f.rendered(before));
    f.load(presetOf(Mixed));
    QCOMPARE(f.settledSample(), f.rendered(before));
    QCOMPARE(f.copied(), after + QStringLiteral("\r\n"));
    QCOMPARE(f.settledSample(), f.rendered(before)); // Copy leaves it, too
    f.click({"chkBold"});
    f.click({"chkBold"});
    QTRY_COMPARE(f.sample(), f.rendered(after));
}

void TestPresets::barsKeepTheirPosition()
{
    PresetTool f;
    FaderTool::step(f.tool->GreenG, Qt::Key_Right);
    FaderTool::step(f.tool->GreenG, Qt::Key_Right);
    QCOMPARE(f.tool->textColor, QStringLiteral("#000200"));
    f.load(presetOf(Mixed));
    for (const char* row : {"A", "B", "C", "D", "E", "F", "H", "I", "J"}) {
        for (const char* channel : {"Red", "Green", "Blue"})
            QCOMPARE(f.control<ScrollBar>(QString::fromLatin1(channel) + QLatin1String(row))->Value(), 0);
    }
    QCOMPARE(f.tool->RedG->Value(), 0);
    QCOMPARE(f.tool->GreenG->Value(), 2);
    QCOMPARE(f.tool->FColor1->BackColor(), 16744512);
    // The first step of a bar takes its sample, and no other, back to the bars.
    FaderTool::step(f.tool->RedG, Qt::Key_Right);
    QCOMPARE(f.tool->FColor1->BackColor(), 0x000201);
    QCOMPARE(f.tool->textColor, QStringLiteral("#010200"));
    QList<int> colors = Mixed;
    colors[6] = 0x000201;
    QCOMPARE(f.colors(), colors);
}

void TestPresets::readableFiles_data()
{
    QTest::addColumn<QByteArray>("preset");
    QTest::newRow("as saved") << presetOf(Mixed);
    QTest::newRow("LF") << presetOf(Mixed, "\n");
    QTest::newRow("CR") << presetOf(Mixed, "\r");
    QTest::newRow("other case") << presetOf(Mixed).toUpper();
    QTest::newRow("no line end at the end") << presetOf(Mixed).chopped(2);
    QTest::newRow("behind another section") << "[HR]\r\nFcolor1=5\r\n" + presetOf(Mixed);
    QTest::newRow("before another section") << presetOf(Mixed) + "[body]\r\ncolor1=5\r\n";
    QTest::newRow("blanks") << presetOf(Mixed).replace("=", " = ");
    QTest::newRow("the first counts") << presetOf(Mixed) + "color1=abc\r\n";
    QByteArray backwards = "[Fader5]\r\n";
    for (qsizetype i = 9; i >= 0; --i)
        backwards += QByteArray(Keys[i].key) + '=' + QByteArray::number(Mixed.at(i)) + "\r\n";
    QTest::newRow("any order") << backwards;
}

void TestPresets::readableFiles()
{
    QFETCH(QByteArray, preset);
    PresetTool f;
    f.load(preset);
    QCOMPARE(f.colors(), Mixed);
    QCOMPARE(f.tool->textColor, QStringLiteral("#4080FF"));
}

/// Any 32-bit number is a colour. Its text is made of the digits 8000000F: the last two, the third and
/// fourth, and the first two.
void TestPresets::systemColor()
{
    PresetTool f;
    f.load(presetOf(QList<int>(10, -2147483633)));
    QCOMPARE(f.colors(), QList<int>(10, -2147483633));
    QCOMPARE(f.texts(), QStringList(5, QStringLiteral("#0F0080")));
    f.save(f.folder.path(QStringLiteral("system.fpc")));
    QVERIFY(f.folder.read(QStringLiteral("system.fpc")).startsWith("[Fader5]\r\ncolor1=-2147483633\r\n"));
}

void TestPresets::loadCancelled()
{
    PresetTool f;
    f.load(presetOf(Mixed));
    const QStringList texts = f.texts();
    f.doors.cancelOpen();
    f.click(f.tool->Command5);
    QCOMPARE(f.colors(), Mixed);
    QCOMPARE(f.texts(), texts);
}

void TestPresets::filesThatHoldNothing_data()
{
    QTest::addColumn<QByteArray>("preset"); // null: no file
    QTest::newRow("no file") << QByteArray();
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("other tool's") << QByteArray("[HR]\r\nFcolor1=5\r\n");
    QTest::newRow("other tool's, same keys")
        << QByteArray("[body]\r\ncolor1=1\r\ncolor2=2\r\ncolor3=3\r\ncolor4=4\r\n");
    QTest::newRow("no section") << presetOf(Others).mid(10);
    QTest::newRow("no preset at all") << QByteArray("\x89PNG\r\n\x1A\n\0\0\xFF", 11);
}

void TestPresets::filesThatHoldNothing()
{
    QFETCH(QByteArray, preset);
    PresetTool f;
    f.load(presetOf(Mixed));
    const QStringList texts = f.texts();
    f.doors.takeAsked();
    if (preset.isNull()) {
        f.load(f.folder.path(QStringLiteral("missing.fpc")));
    } else {
        f.load(preset);
    }
    QCOMPARE(f.doors.takeAsked(), QStringList(QString::fromLatin1(OpenQuestion))); // no message follows
    QCOMPARE(f.colors(), Mixed);
    QCOMPARE(f.texts(), texts);
    QVERIFY(!f.folder.has(QStringLiteral("missing.fpc")));
    QVERIFY(!f.doors.ended);
}

void TestPresets::missingKeyEndsTheLoad_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("cut"); // there, or with all that follows
    for (int i = 0; i < int(std::size(Keys)); ++i) {
        QTest::addRow("without %s", Keys[i].key) << i << false;
        QTest::addRow("up to %s", Keys[i].key) << i << true;
    }
}

void TestPresets::missingKeyEndsTheLoad()
{
    QFETCH(int, index);
    QFETCH(bool, cut);
    PresetTool f;
    f.load(presetOf(Mixed));
    const QStringList texts = f.texts();
    const QString faded = f.tool->fadedText;

    QByteArray preset = presetOf(Others);
    const qsizetype from = preset.indexOf("\r\n" + QByteArray(Keys[index].key) + '=') + 2;
    preset.remove(from, cut ? preset.size() : preset.indexOf('\n', from) + 1 - from);
    f.load(preset);
    // What was read so far stays; what follows the reading is left out.
    QCOMPARE(f.colors(), Others.mid(0, index) + Mixed.mid(index));
    QCOMPARE(f.texts(), texts);
    QCOMPARE(f.tool->fadedText, faded);
    QVERIFY(isLoaded<Fader5>());
    QVERIFY(!f.doors.ended);
}

void TestPresets::badValueEndsTheLoad_data()
{
    QTest::addColumn<QByteArray>("value");
    for (const char* value : {"", "abc", "99999999999", "2147483648", "-2147483649", "#4080FF", "12x"})
        QTest::newRow(value) << QByteArray(value);
}

void TestPresets::badValueEndsTheLoad()
{
    QFETCH(QByteArray, value);
    PresetTool f;
    f.load(presetOf(Mixed));
    const QStringList texts = f.texts();
    f.doors.takeAsked();
    f.load(presetOf(Others).replace("color3=13", "color3=" + value));
    QCOMPARE(f.doors.takeAsked(), QStringList(QString::fromLatin1(OpenQuestion)));
    QCOMPARE(f.colors(), Others.mid(0, 2) + Mixed.mid(2));
    QCOMPARE(f.texts(), texts);
    QVERIFY(!f.doors.ended);
}

void TestPresets::thereAndBack()
{
    PresetTool f;
    f.pick(Mixed);
    const QString path = f.folder.path(QStringLiteral("mine.fpc"));
    f.save(path);
    FaderTool::click(f.tool->Command7);
    f.show(QStringLiteral("abcd"));
    QCOMPARE(f.colors(), Blacks);
    f.load(path);
    QCOMPARE(f.colors(), Mixed);
    f.save(f.folder.path(QStringLiteral("copy.fpc")));
    QCOMPARE(f.folder.read(QStringLiteral("copy.fpc")), f.folder.read(QStringLiteral("mine.fpc")));
}

WEB_TEST_MAIN(TestPresets)
#include "tst_presets.moc"
