#include "ScriptedDoors.h"
#include "WebTestMain.h"
#include "platform/WebBrowser.h"

#include <QAction>
#include <QMainWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

namespace {

/// What the surface reads when its body holds `body`.
QString page(const QString& body)
{
    return QStringLiteral(
               "<HEAD>\r\n<META content=\"Brindlemark surface\" name=GENERATOR></HEAD>\r\n<BODY>") +
           body + QStringLiteral("</BODY>");
}

/// A design surface, not shown.
class Surface : public WebBrowser
{
public:
    Surface() { setDesignMode(DesignMode::On); }
    explicit Surface(const QString& html) : Surface() { write(html); }
};

} // namespace

class TestWebBrowser : public QObject
{
    Q_OBJECT

private slots:
    void blankSurface();
    void writeAndReadInOneBreath();
    void commands_data();
    void commands();
    void undoDoesNotReachTheLastDocument();
};

void TestWebBrowser::blankSurface()
{
    Surface surface;
    QCOMPARE(surface.innerHtml(), page(QString()));
    surface.write(QString());
    QCOMPARE(surface.innerHtml(), page(QString()));
}

void TestWebBrowser::writeAndReadInOneBreath()
{
    Surface design;
    WebBrowser preview;
    for (int i = 0; i < 30; ++i) {
        const QString text = QStringLiteral("number %1").arg(i);
        QVERIFY(design.write(text));
        QCOMPARE(design.innerHtml(), page(text));
        QVERIFY(preview.write(text));
        QCOMPARE(preview.innerHtml(), page(text));
    }
}

void TestWebBrowser::commands_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("body");
    const auto row = [](const char* id, const char* value, const char* body) {
        QTest::newRow(id) << QString::fromLatin1(id) << QString::fromLatin1(value)
                          << QString::fromLatin1(body);
    };
    row("Bold", "", "\r\n<P><B>word</B></P>");
    row("Italic", "", "\r\n<P><I>word</I></P>");
    row("Underline", "", "\r\n<P><U>word</U></P>");
    row("ForeColor", "#FF0000", "\r\n<P><FONT color=#ff0000>word</FONT></P>");
    row("FontName", "Arial", "\r\n<P><FONT face=Arial>word</FONT></P>");
    row("FontSize", "5", "\r\n<P><FONT size=5>word</FONT></P>");
    row("JustifyCenter", "", "\r\n<P style=\"text-align: center;\">word</P>");
    row("JustifyRight", "", "\r\n<P style=\"text-align: right;\">word</P>");
    row("BackColor", "#FFFF00", "\r\n<P><SPAN style=\"background-color: rgb(255, 255, 0);\">word</SPAN></P>");
    row("InsertHorizontalRule", "", "\r\n<HR>");
}

void TestWebBrowser::commands()
{
    QFETCH(QString, id);
    QFETCH(QString, value);
    QFETCH(QString, body);
    Surface surface(QStringLiteral("<p>word"));
    QVERIFY(surface.execCommand(QStringLiteral("SelectAll")));
    QVERIFY(surface.execCommand(id, value));
    QCOMPARE(surface.innerHtml(), page(body));
    QVERIFY(surface.execCommand(QStringLiteral("Undo")));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>word</P>")));
    QVERIFY(surface.execCommand(QStringLiteral("Redo")));
    QCOMPARE(surface.innerHtml(), page(body));
}

void TestWebBrowser::undoDoesNotReachTheLastDocument()
{
    Surface surface(QStringLiteral("<p>word"));
    surface.execCommand(QStringLiteral("SelectAll"));
    QVERIFY(surface.execCommand(QStringLiteral("Bold")));
    surface.write(QStringLiteral("<p>next"));
    surface.execCommand(QStringLiteral("Undo"));
    QCOMPARE(surface.innerHtml(), page(QStringLiteral("\r\n<P>next</P>")));
}

WEB_TEST_MAIN(TestWebBrowser)
#include "tst_webbrowser.moc"
