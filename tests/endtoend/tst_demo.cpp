// SPDX-License-Identifier: GPL-3.0-or-later

#include "Hand.h"
#include "WebServer.h"
#include "services/Markers.h"
#include "web/WebEngine.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QWebEnginePage>

using namespace brindlemark;

// A seller makes listings: types data/demo/listing.txt into the wizard, takes the design and picture styles
// through the preview, and saves the pages. Pages and pictures of the screen go to the folder that DEMO_OUT
// names.
//
// What a page must be is told by the pages in tests/data/pages, which are spelled out by a script of their
// own: with the listing's words, colours and addresses in place of theirs, and both pages taken apart by a
// bare engine, they must be the same but for white space and the generator tag.

namespace {

const QString Page1 = QStringLiteral("Brindlemark Create 1 of 2");
const QString Page2 = QStringLiteral("Brindlemark Create 2 of 2 ");

/// The lines "name=value" of a text; with a section, only those behind its header.
QHash<QString, QString> values(const QByteArray& text, const QString& section = QString())
{
    QHash<QString, QString> found;
    bool inside = section.isEmpty();
    for (const QString& line : QString::fromUtf8(text).split(u'\n')) {
        if (line.startsWith(u'[')) {
            inside = line.trimmed() == u'[' + section + u']';
        } else if (inside && line.contains(u'=') && !line.startsWith(u'#')) {
            found.insert(line.section(u'=', 0, 0), line.section(u'=', 1).trimmed());
        }
    }
    return found;
}

/// What of a page counts, a line for each element, comment and text, in order.
constexpr char Outline[] = R"js(
(() => {
    const lines = [];
    const walk = node => {
        if (node.nodeType === Node.ELEMENT_NODE) {
            if (node.localName === 'meta' && node.name === 'GENERATOR')
                return;
            const attributes = [...node.attributes].map(a => a.name + '=' + a.value).sort();
            lines.push('<' + [node.localName, ...attributes].join(' ') + '>');
        } else if (node.nodeType === Node.COMMENT_NODE) {
            lines.push('<!--' + node.data + '-->');
        } else if (node.data.trim()) {
            lines.push(node.data.trim().replace(/\s+/g, ' '));
        }
        for (const child of node.childNodes)
            walk(child);
        if (node.nodeType === Node.ELEMENT_NODE)
            lines.push('</' + node.localName + '>');
    };
    walk(document.documentElement);
    return lines;
})()
)js";

/// The outline of a page, as an engine sees it that is none of the program's.
QStringList outline(const QByteArray& html)
{
    QWebEnginePage page;
    bool loaded = false;
    QObject::connect(&page, &QWebEnginePage::loadFinished, [&](bool) { loaded = true; });
    page.setHtml(QString::fromUtf8(html));
    if (!QTest::qWaitFor([&] { return loaded; }, Patience))
        QTest::qFail("the engine doesn't load the page", __FILE__, __LINE__);
    QStringList lines;
    page.runJavaScript(QString::fromLatin1(Outline),
                       [&](const QVariant& answer) { lines = answer.toStringList(); });
    if (!QTest::qWaitFor([&] { return !lines.isEmpty(); }, Patience))
        QTest::qFail("the engine doesn't answer", __FILE__, __LINE__);
    return lines;
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void listings_data();
    void listings();
    void cleanupTestCase();

private:
    void startWizard();
    void setOption(const QString& accessKey) const;
    void fillPage1(int pictures);
    void fillLists();
    void fillPage2(int style, int pictureStyle);
    void checkPage(const QString& name, int style, int pictureStyle, int pictures) const;
    QByteArray expectedPage(int style, int pictureStyle) const;
    void shoot(const QString& name) const;

    QHash<QString, QString> m_listing;
    QStringList m_colorSets;
    QTemporaryDir m_ownFolder;
    QString m_out;
    std::unique_ptr<WebServer> m_server;
    std::unique_ptr<Program> m_program;
    QString m_title = MainWindow;
    bool m_listsFilled = false; // the program remembers them
};

void TestDemo::initTestCase()
{
    QVERIFY2(displayAnswers(), "needs a display, a window manager and xdotool");
    m_listing = values(fileBytes(QStringLiteral(SOURCE_DIR "/data/demo/listing.txt")));
    m_colorSets = QString::fromUtf8(fileBytes(QStringLiteral(SOURCE_DIR "/data/webstyle2.ini")))
                      .split(QRegularExpression(QStringLiteral("[\r\n]+")), Qt::SkipEmptyParts);
    QVERIFY(m_colorSets.size() >= 4);
    m_out = qEnvironmentVariable("DEMO_OUT", m_ownFolder.path());
    QVERIFY(QDir().mkpath(m_out));

    m_server = std::make_unique<WebServer>();
    for (const char* key : {"picture1", "picture2", "picture3"}) {
        const QString name = m_listing.value(QString::fromLatin1(key));
        const QByteArray picture = fileBytes(QStringLiteral(SOURCE_DIR "/data/demo/") + name);
        m_server->answer(u'/' + name,
                         "HTTP/1.1 200 OK\r\nContent-Type: image/svg+xml\r\nConnection: close\r\n"
                         "Content-Length: " +
                             QByteArray::number(picture.size()) + "\r\n\r\n" + picture);
    }
    m_program = std::make_unique<Program>();
    m_program->start();
}

void TestDemo::cleanupTestCase()
{
    m_program.reset();
    m_server.reset();
}

void TestDemo::shoot(const QString& name) const
{
    QTest::qWait(300); // for the screen to show what the program has drawn
    QVERIFY(
        QGuiApplication::primaryScreen()->grabWindow(0).save(m_out + u'/' + name + QStringLiteral(".png")));
}

/// Presses the toolbar's button, and gives the last page up.
void TestDemo::startWizard()
{
    QVERIFY(m_program->activate(m_title));
    m_program->click(m_title, 380, 40);
    QVERIFY(QTest::qWaitFor(
        [&] { return !m_program->window(Page1).isEmpty() || !m_program->window(Box).isEmpty(); }, Patience));
    if (m_program->window(Page1).isEmpty())
        m_program->press(Box, QStringLiteral("alt+n"));
    QVERIFY(m_program->activate(Page1));
    m_title = MainWindow;
}

/// Sets an option by its access key, which only takes effect after a moment, and by the space bar at once.
void TestDemo::setOption(const QString& accessKey) const
{
    m_program->key(accessKey);
    m_program->key(QStringLiteral("space"));
}

void TestDemo::fillPage1(int pictures)
{
    Program& hand = *m_program;
    hand.key(QStringLiteral("alt+w"));
    hand.type(m_listing.value(QStringLiteral("title")));
    hand.key(QStringLiteral("alt+d"));
    hand.type(m_listing.value(QStringLiteral("description")));
    if (!m_listsFilled)
        shoot(QStringLiteral("page1-item"));
    hand.key(QStringLiteral("alt+t"));
    setOption(QStringLiteral("alt+p"));
    for (int i = 1; i <= pictures; ++i) {
        hand.key(QStringLiteral("alt+%1").arg(i));
        hand.key(QStringLiteral("ctrl+a"));
        hand.type(m_server->url(u'/' + m_listing.value(QStringLiteral("picture%1").arg(i))));
    }
    if (!m_listsFilled) {
        shoot(QStringLiteral("page1-pictures"));
        fillLists();
        m_listsFilled = true;
    }
    hand.key(QStringLiteral("alt+o"));
    QVERIFY(hand.waitGone(Page1));
}

/// Payments, regions and costs.
void TestDemo::fillLists()
{
    Program& hand = *m_program;
    const auto typeAmount = [&](const char* accessKey, const char* name) {
        const QString amount = m_listing.value(QString::fromLatin1(name));
        hand.key(QString::fromLatin1(accessKey));
        hand.key(QStringLiteral("ctrl+a"));
        hand.type(amount.section(u'.', 0, 0));
        hand.key(QStringLiteral("Tab"));
        hand.type(amount.section(u'.', 1));
    };
    hand.key(QStringLiteral("alt+m"));
    hand.key(QStringLiteral("alt+s")); // Money Order/Cashiers Check
    hand.key(QStringLiteral("alt+v")); // Visa/MasterCard
    hand.key(QStringLiteral("alt+e"));
    hand.type(m_listing.value(QStringLiteral("payment")));
    shoot(QStringLiteral("page1-payment"));

    hand.key(QStringLiteral("alt+l"));
    setOption(QStringLiteral("alt+r"));
    hand.key(QStringLiteral("alt+n")); // Canada
    hand.key(QStringLiteral("alt+p")); // Europe
    shoot(QStringLiteral("page1-location"));

    hand.key(QStringLiteral("alt+y"));
    typeAmount("alt+h", "handling");
    typeAmount("alt+n", "insurance");
    typeAmount("alt+a", "additional");
    for (const char* key : {"Tab", "Tab", "space", "Tab"}) // over the bar to the tax rate
        hand.key(QString::fromLatin1(key));
    hand.key(QStringLiteral("ctrl+a"));
    hand.type(m_listing.value(QStringLiteral("taxrate")));
    hand.key(QStringLiteral("alt+e"));
    hand.key(QStringLiteral("ctrl+a"));
    hand.type(m_listing.value(QStringLiteral("state")));
    shoot(QStringLiteral("page1-pays"));
}

void TestDemo::fillPage2(int style, int pictureStyle)
{
    Program& hand = *m_program;
    QVERIFY(hand.activate(Page2));
    hand.key(QStringLiteral("alt+g"));
    hand.key(QStringLiteral("Tab"));
    for (int i = 0; i < style; ++i)
        hand.key(QStringLiteral("space"));
    constexpr std::array<const char*, 4> pictureKeys = {"alt+f", "alt+r", "alt+h", "alt+a"};
    hand.key(QString::fromLatin1(pictureKeys.at(size_t(pictureStyle))));
    hand.key(QStringLiteral("alt+l"));
    hand.key(QStringLiteral("Tab"));
    for (int i = 0; i <= style; ++i) // each style in another set of colours; the first opens the list
        hand.key(QStringLiteral("Down"));
    hand.key(QStringLiteral("Return"));
    shoot(QStringLiteral("page2-style%1-picture%2").arg(style).arg(pictureStyle));
}

void TestDemo::listings_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("pictureStyle");
    QTest::addColumn<int>("pictures");
    for (int style = 0; style < 4; ++style) {
        for (const int pictureStyle : {style, (style + 1) % 4}) {
            QTest::addRow("style%d-picture%d", style, pictureStyle)
                << style << pictureStyle
                << (pictureStyle % 2 == 0 ? 1 : 3); // two styles show one picture only
        }
    }
}

void TestDemo::listings()
{
    QFETCH(int, style);
    QFETCH(int, pictureStyle);
    QFETCH(int, pictures);
    const QString name = QString::fromLatin1(QTest::currentDataTag()) + QStringLiteral(".htm");
    startWizard();
    fillPage1(pictures);
    fillPage2(style, pictureStyle);
    const bool inEditor = style == 0 && pictureStyle == 1; // one of them by the other button
    m_program->key(inEditor ? QStringLiteral("alt+e") : QStringLiteral("alt+p"));
    QVERIFY(m_program->waitGone(Page2));

    const QString path = m_out + u'/' + name;
    QFile::remove(path);
    m_program->file(m_title, QStringLiteral("a"));
    m_program->answerFile(QStringLiteral("Save As Files"), path);
    m_title = name + QStringLiteral(" - Brindlemark 1.0");
    QVERIFY(m_program->activate(m_title));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path), Patience);
    shoot(QStringLiteral("%1-%2").arg(inEditor ? QStringLiteral("editor") : QStringLiteral("preview"),
                                      QString::fromLatin1(QTest::currentDataTag())));
    checkPage(path, style, pictureStyle, pictures);
}

/// The page as the script spells it, with this listing's words, colours and addresses.
QByteArray TestDemo::expectedPage(int style, int pictureStyle) const
{
    QByteArray page = fileBytes(
        QStringLiteral(TEST_DATA "/pages/listing-style%1-picture%2.htm").arg(style).arg(pictureStyle));
    const QHash<QString, QString> colors =
        values(fileBytes(QStringLiteral(SOURCE_DIR "/data/webstyle.ini")), m_colorSets.at(style));
    const auto replace = [&](const char* what, const QByteArray& by) { page.replace(what, by); };
    constexpr std::array<const char*, 9> sampleColors = {
        "#110000", "#EEEE22", "#33FF33", "#F4F4F4", "#550055", "#006666", "#000077", "#880000", "#009900"};
    for (size_t i = 0; i < sampleColors.size(); ++i)
        replace(sampleColors.at(i), colors.value(QString::number(i + 1)).toLatin1());
    replace("cellSpacing=2 ", "cellSpacing=0 ");
    replace(" border=3>", " border=1>");
    replace("Brass lamp, 1930s", m_listing.value(QStringLiteral("title")).toUtf8());
    replace("A heavy lamp with a new cord. <B>It works</B> & shines.",
            m_listing.value(QStringLiteral("description")).toUtf8());
    for (int i = 1; i <= 3; ++i) {
        replace(qPrintable(QStringLiteral("http://pictures.example/lamp%1.jpg").arg(i)),
                m_server->url(u'/' + m_listing.value(QStringLiteral("picture%1").arg(i))).toLatin1());
    }
    replace("Money order", "Money Order/Cashiers Check");
    replace("Cash, at the door", m_listing.value(QStringLiteral("payment")).toUtf8());
    replace("<BODY>\r\n<P>Payment within seven days.</P></BODY>\r\n",
            fileBytes(QStringLiteral(SOURCE_DIR "/data/weblst.ini")));
    replace("<BODY>I ship on Mondays.</BODY>\r\n", fileBytes(QStringLiteral(SOURCE_DIR "/data/weblst2.ini")));
    replace("Insurance is <I>your</I> choice.", fileBytes(QStringLiteral(SOURCE_DIR "/data/weblst3.ini")));
    return page;
}

void TestDemo::checkPage(const QString& path, int style, int pictureStyle, int pictures) const
{
    const QByteArray page = fileBytes(path);
    QCOMPARE(outline(page).join(u'\n'), outline(expectedPage(style, pictureStyle)).join(u'\n'));

    QVERIFY(page.startsWith("<HEAD>\r\n"));
    QCOMPARE(page.count("<META content=\"Brindlemark 1.0\" name=GENERATOR>"), 1);
    QVERIFY(page.contains(m_listing.value(QStringLiteral("title")).toUtf8()));
    for (size_t i = 0; i < StyleCount; ++i)
        QCOMPARE(page.count(StyleMarkers.at(i)), i == size_t(style) ? 1 : 0);
    for (const MarkerPair& pair : Markers) {
        const bool there = pair.region == Region::Line              ? style < 2
                           : pair.region == Region::DescriptionCell ? style == 3
                                                                    : true;
        QCOMPARE(page.count(pair.opening), there ? 1 : 0);
        QCOMPARE(page.count(pair.closing), there ? 1 : 0);
        QVERIFY(page.indexOf(pair.opening) <= page.indexOf(pair.closing));
    }
    for (int i = 1; i <= 3; ++i) {
        const QByteArray address =
            m_server->url(u'/' + m_listing.value(QStringLiteral("picture%1").arg(i))).toLatin1();
        QCOMPARE(page.count(address), i <= pictures ? 1 : 0);
    }
}

int main(int argc, char** argv)
{
    prepareWebEngine();
    QApplication application(argc, argv);
    TestDemo test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_demo.moc"
