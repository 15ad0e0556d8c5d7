// SPDX-License-Identifier: GPL-3.0-or-later

// What hostile pages and files can do: see docs/SECURITY.md.

#include "MainWindow.h"
#include "Traps.h"
#include "WebProbe.h"
#include "WebTestMain.h"
#include "Widgets.h"
#include "app/Openings.h"
#include "builders/FrmTable.h"
#include "builders/Pics.h"
#include "check/FrmCheck.h"
#include "check/FrmLive.h"
#include "colour/Fader5.h"
#include "colour/FrmBody.h"
#include "colour/FrmHR.h"
#include "shell/FrmWord.h"
#include "web/SurfaceScript.h"
#include "web/WebEngine.h"
#include "wizard/FrmBuild1.h"
#include "wizard/FrmBuild2.h"
#include "wizard/FrmTerms.h"

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMimeData>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTimer>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <memory>
#include <vector>

using namespace brindlemark;

namespace {

/// A way to get out of a page; its name and its words are those of `Traps`.
struct Vector
{
    const char* page; ///< vectors with the same are tried in one page; they leave each other alone
    const char* name;
    const char* html;
    const char* stopped = "";    ///< what the engine refuses in any page, as `prepareWebEngine` sets it up
    const char* preview = "ran"; ///< what of its effects happens in the preview, where scripts run
};

constexpr Vector Vectors[] = {
    // What markup loads.
    {"frames", "iframe", "<iframe src='{file}.htm'></iframe><iframe src='{web}'></iframe>"},
    {"frames", "folder", "<iframe src='{folder}'></iframe>", "file"},
    {"frames", "srcdoc",
     "<iframe srcdoc='<iframe src={file}.htm></iframe><iframe src={web}></iframe>'></iframe>"},
    {"frames", "object", "<object data='{file}.htm'></object><object data='{web}'></object>"},
    {"frames", "embed", "<embed src='{file}.htm'><embed src='{web}'>"},
    {"frames", "schemeframe", "<iframe src='{scheme}'></iframe>"},
    {"frames", "mailframe", "<iframe src='{mail}'></iframe>"},
    {"frameset", "frameset", "<frameset cols='1,1'><frame src='{file}.htm'><frame src='{web}'></frameset>"},
    {"links", "script", "<script src='{file}.js'></script><script src='{web}'></script>"},
    {"links", "module", "<script type=module src='{web}'></script>"},
    {"links", "svgscript", "<svg><script href='{file}.js'></script><script href='{web}'></script></svg>"},
    {"links", "stylesheet", "<link rel=stylesheet href='{file}.css'>"},
    {"links", "import", "<style>@import url('{file}.css');</style>"},
    {"links", "font",
     "<style>@font-face { font-family: trap; src: url('{file}.woff'), url('{web}') }</style>"
     "<p style='font-family: trap'>text</p>"},
    {"links", "preload",
     "<link rel=preload as=script href='{file}.js'><link rel=preload as=font "
     "href='{web}' crossorigin>"},
    {"links", "preloadfetch", "<link rel=preload as=fetch href='{web}' crossorigin>"},
    {"links", "modulepreload", "<link rel=modulepreload href='{web}'>"},
    {"links", "prefetch", "<link rel=prefetch href='{web}'>"},
    {"links", "preconnect",
     "<link rel=preconnect href='http://{socket}'><link rel='pre&#99;onnect' href='http://{socket}'>"
     "<link title='>' rel=preconnect href='http://{socket}'>",
     "connection"},
    {"media", "video", "<video src='{file}.mp4' autoplay></video><video src='{web}' autoplay></video>"},
    {"media", "audio", "<audio src='{file}.ogg' autoplay></audio><audio src='{web}' autoplay></audio>"},
    {"media", "source", "<video autoplay><source src='{file}.mp4'><source src='{web}'></video>"},
    {"media", "svguse", "<svg><use href='{file}.svg#x'></use></svg>"},
    {"media", "filter", "<p style=\"filter: url('{file}.svg#x')\">text</p>"},
    {"base", "base", "<base href='{folder}/'><script src='base.js'></script><!-- {file}.js -->"},

    // What leaves the page by itself.
    {"refreshfile", "refreshfile", "<meta http-equiv=refresh content='0; url={file}.htm'>"},
    {"refreshweb", "refreshweb", "<meta http-equiv=refresh content='0; url={web}'>"},
    {"refreshscheme", "refreshscheme", "<meta http-equiv=refresh content='0; url={scheme}'>"},

    // What runs without being called a script.
    {"handlers", "inline", "<script>{run}</script>"},
    {"handlers", "onerror", "<img src='x:' onerror='{run}'>"},
    {"handlers", "onload", "<img src='{picture}' onload='{run}'>"},
    {"handlers", "svgonload", "<svg onload='{run}'></svg>"},
    {"handlers", "svgscriptinline", "<svg><script>{run}</script></svg>"},
    {"handlers", "mathhandler", "<math><mtext><img src='x:' onerror='{run}'></mtext></math>"},
    {"handlers", "ontoggle", "<details open ontoggle='{run}'>text</details>"},
    {"handlers", "styleonload", "<style onload='{run}'>b { color: red }</style>"},
    {"handlers", "onanimation",
     "<style>@keyframes k { from { left: 0 } }</style>"
     "<p style='animation: k 1s' onanimationstart='{run}'>text</p>"},
    {"handlers", "videoerror", "<video><source src='x:' onerror='{run}'></video>"},
    {"handlers", "scriptframe", "<iframe src='javascript:parent.eval(\"{run}\")'></iframe>"},
    {"handlers", "srcdocscript", "<iframe srcdoc='<script>{run}</script>'></iframe>"},
    {"handlers", "srcdochandler", "<iframe srcdoc='<img src=x: onerror=\"{run}\">'></iframe>"},
    {"handlers", "shadow",
     "<div><template shadowroot=open shadowrootmode=open><img src='x:' onerror='{run}'></template></div>", "",
     ""},
    {"handlers", "dataframe", "<iframe src='data:text/html,<script>{run}</script>'></iframe>", "", ""},
    {"body", "bodyonload", "<body onload='{run}'>text"},
    {"body", "pageshow", "<body onpageshow='{run}'>text"},

    // What scripts ask for.
    {"calls", "fetch",
     "<script>for (const u of ['{file}.txt', '{web}']) fetch(u, { mode: 'no-cors' })"
     ".then(() => {leak}, () => 0)</script>",
     "file leak"},
    {"calls", "request",
     "<script>for (const u of ['{file}.txt', '{web}']) { try { const r = new XMLHttpRequest();"
     " r.open('GET', u); r.send() } catch {} }</script>"},
    {"calls", "beacon", "<script>navigator.sendBeacon('{web}', 'x')</script>"},
    {"calls", "eventsource", "<script>new EventSource('{web}')</script>"},
    {"calls", "websocket", "<script>new WebSocket('ws://{socket}/')</script>"},
    {"calls", "worker", "<script>try { new Worker('{file}.js') } catch {}</script>"},
    {"calls", "blobworker",
     "<script>new Worker(URL.createObjectURL(new Blob([\"try { importScripts('{file}.js') }"
     " catch {} ; importScripts('{web}')\"])))</script>"},
    {"calls", "dynamicimport", "<script>import('{web}').catch(() => 0)</script>"},
    {"calls", "turn",
     "<script>{ const c = new RTCPeerConnection({ iceServers: [{ urls: "
     "'turn:{socket}?transport=tcp', username: 'u', credential: 'c' }] });"
     " c.createDataChannel('x'); c.createOffer().then(o => c.setLocalDescription(o)) }</script>",
     "", "connection"},
    {"calls", "stun",
     "<script>{ const c = new RTCPeerConnection({ iceServers: [{ urls: 'stun:{udp}' }] });"
     " c.createDataChannel('x'); c.createOffer().then(o => c.setLocalDescription(o)) }</script>",
     "packet"},
    {"calls", "frameturn",
     "<script>{ const f = document.createElement('iframe'); document.documentElement.append(f); const c = "
     "new f.contentWindow.RTCPeerConnection({ iceServers: [{ urls: 'turn:{socket}?transport=tcp', username: "
     "'u', credential: 'c' }] }); c.createDataChannel('x'); c.createOffer().then(o => "
     "c.setLocalDescription(o)) }</script>",
     "", "connection"},
    {"calls", "pixels",
     "<script>{ const i = new Image(); i.onload = () => { const c = document.createElement("
     "'canvas'); c.width = c.height = 2; const x = c.getContext('2d'); x.drawImage(i, 0, 0);"
     " try { c.toDataURL(); {leak} } catch {} }; i.src = '{picture}' }</script>",
     "leak"},
    {"calls", "where", "<script>navigator.geolocation.getCurrentPosition(() => {leak}, () => 0)</script>",
     "leak"},
    {"calls", "camera",
     "<script>try { navigator.mediaDevices.getUserMedia({ video: true }).then(() => {leak},"
     " () => 0) } catch {}</script>",
     "leak"},
    {"calls", "notify",
     "<script>Notification.requestPermission(s => { if (s == 'granted') {leak} })</script>", "leak"},
    {"calls", "clipboard",
     "<script>if (document.execCommand('paste')) {leak};"
     " navigator.clipboard?.readText().then(() => {leak}, () => 0)</script>",
     "leak"},

    // What scripts open.
    {"opens", "window", "<script>window.open('{web}'); window.open('{file}.htm')</script>"},
    {"opens", "blanklink", "<a id=bl target=_blank href='{web}'>x</a><script>bl.click()</script>"},
    {"opens", "schemewindow", "<script>window.open('{scheme}')</script>"},
    {"opens", "scriptedframe",
     "<script>document.body.append(Object.assign(document.createElement('iframe'),"
     " { src: '{web}' }))</script>"},
    {"opens", "blobframe",
     "<script>document.body.append(Object.assign(document.createElement('iframe'), { src: "
     "URL.createObjectURL(new Blob([`<iframe src='{web}'></iframe>`], { type: 'text/html' "
     "})) }))</script>"},
    {"opens", "frameform",
     "<iframe name=ff></iframe><form id=f1 target=ff method=post action='{web}'><input name=a>"
     "</form><script>f1.submit()</script>"},
    {"download", "download",
     "<a id=d1 download=x.exe href='data:application/octet-stream,MZ'>x</a>"
     "<script>d1.click()</script>"},
    {"gofile", "gofile", "<script>location = '{file}.htm'</script>"},
    {"goweb", "goweb", "<script>location = '{web}'</script>"},
    {"goscheme", "goscheme", "<script>location = '{scheme}'</script>"},
    {"goform", "goform", "<form id=f2 method=post action='{web}'></form><script>f2.submit()</script>"},
    {"ping", "ping", "<a id=a1 ping='{web}' href='#x'>x</a><script>a1.click()</script>"},
};

/// What each word of a vector leads to.
struct Effect
{
    QLatin1StringView word;
    QLatin1StringView name;
};

constexpr Effect Effects[] = {
    {QLatin1StringView("{file}"), QLatin1StringView("file")},
    {QLatin1StringView("{folder}"), QLatin1StringView("file")},
    {QLatin1StringView("{web}"), QLatin1StringView("request")},
    {QLatin1StringView("{run}"), QLatin1StringView("ran")},
    {QLatin1StringView("{leak}"), QLatin1StringView("leak")},
    {QLatin1StringView("{udp}"), QLatin1StringView("packet")},
    {QLatin1StringView("{socket}"), QLatin1StringView("connection")},
    {QLatin1StringView("{scheme}"), QLatin1StringView("program")},
    {QLatin1StringView("{mail}"), QLatin1StringView("program")},
};

/// The page of the vectors of one name.
QString pageOf(const QString& name, Traps& traps)
{
    QString html;
    for (const Vector& vector : Vectors) {
        if (name == QLatin1String(vector.page))
            html += traps.arm(vector.name, vector.html) + u'\n';
    }
    return html;
}

/// So that a failure shows it all.
QString lines(const QStringList& list)
{
    return list.join(QStringLiteral("; "));
}

/// The effects of the vectors of a page, out of those that `of` names for each.
template <typename Names>
QStringList effectsOf(const QString& page, Names of)
{
    QStringList all;
    for (const Vector& vector : Vectors) {
        const QString html = QString::fromLatin1(vector.html);
        for (const Effect& effect : Effects) {
            if (page == QLatin1String(vector.page) && html.contains(effect.word) && of(vector, effect.name))
                all << QLatin1String(vector.name) + QStringLiteral(": ") + effect.name;
        }
    }
    all.sort();
    all.removeDuplicates();
    return all;
}

/// What happens where nobody guards the page.
QStringList unguarded(const QString& page)
{
    return effectsOf(page, [](const Vector& vector, QLatin1StringView effect) {
        return !QLatin1StringView(vector.stopped).contains(effect);
    });
}

/// What happens in the preview.
QStringList previewed(const QString& page)
{
    return effectsOf(page, [](const Vector& vector, QLatin1StringView effect) {
        return QLatin1StringView(vector.preview).contains(effect);
    });
}

void addPages()
{
    QTest::addColumn<QString>("page");
    QStringList known;
    for (const Vector& vector : Vectors) {
        const QString page = QString::fromLatin1(vector.page);
        if (!known.contains(page)) {
            known << page;
            QTest::newRow(vector.page) << page;
        }
    }
}

/// Waits until a surface has loaded all that its page names, and a little for what comes later.
void settle(WebControl* surface, Traps& traps)
{
    static int number = 0;
    for (int round = 0; round < 2; ++round) {
        const QString mark = QStringLiteral("mark%1").arg(++number);
        probe(surface).evaluate(
            QStringLiteral("new Image().src = '%1'").arg(traps.arm(mark, QStringLiteral("{seen}"))));
        if (!QTest::qWaitFor([&] { return traps.wasSeen(mark); }, 10000))
            QTest::qFail("the page loads no pictures", __FILE__, __LINE__);
    }
    QTest::qWait(300);
}

/// A fragment that tries much at once, on one line and shorter than a setting may be. `before` gets it out of
/// where it is put.
QString fragment(Traps& traps, const QString& part, const QString& before)
{
    return traps.arm(part, before + QStringLiteral("<script>{run}</script><img src=x: onerror=\"{run}\">"
                                                   "<iframe src='{file}.htm'></iframe>"));
}

/// HTML that is pasted or dropped, its word {run} a script, and which runs when nobody cleans it. It always
/// holds the word "kept", which is harmless.
struct Fragment
{
    const char* name;
    const char* html;
};

constexpr Fragment Fragments[] = {
    {"script", "<script>{run}</script><i>kept</i>"},
    {"handler", "<img src='x:' onerror='{run}'><i>kept</i>"},
    {"svghandler", "<svg onload='{run}'></svg><i>kept</i>"},
    {"svganimation", "<svg><animate onbegin='{run}' attributeName=x dur=1s></svg><i>kept</i>"},
    {"toggle", "<details open ontoggle='{run}'>x</details><i>kept</i>"},
    {"source", "<video><source src='x:' onerror='{run}'></video><i>kept</i>"},
    {"srcdoc", "<iframe srcdoc='<script>parent.eval(\"{run}\")</script>'></iframe><i>kept</i>"},
    {"scriptframe", "<iframe src='javascript:parent.eval(\"{run}\")'></iframe><i>kept</i>"},
    {"row", "<tr><td><img src='x:' onerror='{run}'></td></tr><i>kept</i>"},
    {"entry", "<li><img src='x:' onerror='{run}'></li><i>kept</i>"},
    // A form that hides its own functions behind its fields.
    {"fields", "<form id=f></form><input form=f name=attributes><input form=f name=removeAttribute>"
               "<form><img src='x:' onerror='{run}'></form><i>kept</i>"},
    // Comments that end where one doesn't see it.
    {"comment", "<!--><img src='x:' onerror='{run}'>--><i>kept</i>"},
    {"commentdash", "<!--- --!><img src='x:' onerror='{run}'>--><i>kept</i>"},
    {"instruction", "<?x ><img src='x:' onerror='{run}'><i>kept</i>"},
    // Text that is tags for the next parser: one that runs scripts, or one that finds it outside a drawing.
    {"noscript", "<b>x</b><noscript><p title=\"</noscript><img src='x:' onerror='{run}'>\"></p></noscript>"
                 "<i>kept</i>"},
    {"noscriptcomment", "<noscript><!--</noscript><img src='x:' onerror='{run}'>--></noscript><i>kept</i>"},
    {"noembed", "<noembed><p title=\"</noembed><img src='x:' onerror='{run}'>\"></noembed><i>kept</i>"},
    {"svgnoembed", "<svg><desc><noembed><p title=\"</noembed><img src='x:' onerror='{run}'>\"></noembed>"
                   "</desc></svg><i>kept</i>"},
    {"svgtextarea", "<svg><desc><textarea><p title=\"</textarea><img src='x:' onerror='{run}'>\"></svg>"
                    "</textarea><i>kept</i>"},
    {"svgstyle",
     "<svg></p><style><a id=\"</style><img src='x:' onerror='{run}'>\"></style></svg><i>kept</i>"},
    {"svgcell", "<table><svg><desc><td><img src='x:' onerror='{run}'></td></desc></svg></table><i>kept</i>"},
    {"mathstyle", "<b>x</b><form><math><mtext></form><form><mglyph><style></math><img src='x:' "
                  "onerror='{run}'></style></mglyph></form></mtext></math><i>kept</i>"},
    {"mathtextarea", "<b>x</b><form><math><mtext></form><form><mglyph><svg><mtext><textarea><path "
                     "id=\"</textarea><img src='x:' onerror='{run}'>\"></textarea></mtext></svg></mglyph>"
                     "</form></mtext></math></form><i>kept</i>"},
    {"mathxmp", "<b>x</b><form><math><mtext></form><form><mglyph><svg><mtext><xmp><path id=\"</xmp><img "
                "src='x:' onerror='{run}'>\"></mtext></svg></mglyph></form></mtext></math></form>"
                "<i>kept</i>"},
    {"mathnoembed", "<b>x</b><form><math><mtext></form><form><mglyph><svg><mtext><noembed><path "
                    "id=\"</noembed><img src='x:' onerror='{run}'>\"></mtext></svg></mglyph></form></mtext>"
                    "</math></form><i>kept</i>"},
    {"mathtable", "<b>x</b><math><mtext><table><mglyph><style><math>x</math></style><mglyph><style><img "
                  "src='x:' onerror='{run}'></style></mglyph></table></mtext></math><i>kept</i>"},
    // Trees beside the tree, built by the parser that shows a page and by no other.
    {"shadow", "<b>x</b><div><template shadowroot=open shadowrootmode=open><img src='x:' onerror='{run}'>"
               "</template></div><i>kept</i>"},
    {"svgshadow", "<svg><foreignObject><div><template shadowroot=open shadowrootmode=open><img src='x:' "
                  "onerror='{run}'></template></div></foreignObject></svg><i>kept</i>"},
    {"noscriptshadow", "<b>x</b><noscript><div><template shadowroot=open shadowrootmode=open><img src='x:' "
                       "onerror='{run}'></template></div></noscript><i>kept</i>"},
};

QString sprungName(const Fragment& fragment)
{
    return QLatin1String(fragment.name) + QStringLiteral(": ran");
}

/// Where a fragment is put: in a page of its own, on the selection `s`.
struct Place
{
    const char* name;
    const char* page;
    const char* select;
};

// The engine takes the first element at the caret apart, and each place in its own way.
constexpr Place Places[] = {
    {"behind a word", "<p>word</p><p>next</p>", "s.collapse($('p').firstChild, 4)"},
    {"in a cell", "<table border=1><tr><td>one<td>two</table>", "s.collapse($('td + td').firstChild, 3)"},
    {"in a list", "<ul><li>one<li>two</ul>", "s.collapse($('li').firstChild, 3)"},
    {"over a selection", "<p>a <b>bold</b> word <i>here</i></p><p>next</p>",
     "s.setBaseAndExtent($('b').firstChild, 1, $('i').firstChild, 2)"},
    {"in the empty page", "", "s.collapse(document.body, 0)"},
};

enum class Way { Paste, Drop, MiddleButton };

/// Whether a design surface's page holds what acts by itself.
bool activeIn(const QString& page)
{
    static const QRegularExpression Values(QStringLiteral("=\"[^\"]*\"")); // a tag in one is just a text
    static const QRegularExpression Bad(
        QStringLiteral(
            "<(BASE|EMBED|FRAME|IFRAME|LINK|MATH|META|NOSCRIPT|OBJECT|SCRIPT|STYLE|SVG|TEMPLATE|TITLE)"
            "\\b|<[^>]*\\son\\w|javascript:"),
        QRegularExpression::CaseInsensitiveOption);
    return page.mid(page.indexOf(QStringLiteral("<BODY"))).remove(Values).contains(Bad);
}

/// Drops something at a place of a surface.
void dropOn(QWidget* input, QPointF place, const QMimeData& dragged)
{
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDragMoveEvent move(place.toPoint(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QDropEvent dropped(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(input, &enter);
    for (QEvent* event : std::initializer_list<QEvent*>{&move, &dropped})
        QApplication::sendEvent(input->parentWidget(), event);
}

/// The main window with the way to all tools.
class Program : public MainWindow
{
public:
    Program()
    {
        connectOpenings(web);
        traps.watch(documentProfile());
        traps.watch(internetProfile());
    }

    Traps traps;

    /// Presses a button of the toolbar and waits for its window.
    template <typename F>
    F* tool(Tool wanted)
    {
        press(wanted);
        return shown<F>();
    }
    template <typename F>
    F* shown()
    {
        if (!QTest::qWaitFor([] { return isLoaded<F>() && form<F>()->isVisible(); }) ||
            !QTest::qWaitForWindowExposed(form<F>()))
            QTest::qFail("the window does not open", __FILE__, __LINE__);
        traps.takeSprung();
        return form<F>();
    }
    /// What a surface did since the window came up.
    QString sprungOn(WebControl* surface)
    {
        settle(surface, traps);
        return lines(traps.takeSprung());
    }

    /// What the document does on the preview.
    QString sprungOnPreview()
    {
        showTab(FrmWeb::PreviewTab);
        return sprungOn(web->WebBrowser1);
    }
    /// Gives the wizard's first page what it asks for beside a title and a description, and goes on to the
    /// second.
    FrmBuild2* secondPage(FrmBuild1* page1)
    {
        page1->SSTab1->setTab(2);
        tick(page1->ChKPay1);
        page1->SSTab1->setTab(4);
        overtype(page1->TxSH1, QStringLiteral("5"));
        click(page1->Command1);
        return shown<FrmBuild2>();
    }

    /// Lets all through that is pasted on the design surface, read and printed once, as a cleaner does.
    void leaveUncleaned() const
    {
        web->WebBrowser1->write(QStringLiteral("x"));
        const QString cleaner =
            QStringLiteral("html => new DOMParser().parseFromString('<body>' + html, 'text/html').body");
        if (probe(web->WebBrowser1).evaluate(surfaceCall(QStringLiteral("cleanWith(%1)").arg(cleaner))) !=
            true)
            QTest::qFail("the surface can't be opened to all", __FILE__, __LINE__);
    }

    /// A fragment as another program gives it.
    std::unique_ptr<QMimeData> armed(const Fragment& fragment)
    {
        auto given = std::make_unique<QMimeData>();
        given->setHtml(traps.arm(fragment.name, fragment.html));
        given->setText(QStringLiteral("text")); // inserted when nothing is left of the HTML
        return given;
    }

    /// The text of the design surface after a fragment was put into it.
    QString pageWith(const Fragment& fragment, const Place& place, Way way)
    {
        DocumentSurface* surface = web->WebBrowser1;
        surface->write(QLatin1String(place.page));
        const QVariantList point =
            probe(surface)
                .evaluate(QStringLiteral(
                              "(() => { document.adoptedStyleSheets = [];"
                              "const $ = selector => document.querySelector(selector), s = getSelection();"
                              "%1; const box = s.getRangeAt(0).getBoundingClientRect();"
                              "return [box.x || 20, (box.y || 10) + 5] })()")
                              .arg(QLatin1String(place.select)))
                .value_or(QVariant())
                .toList();
        QWidget* input = surface->inputWidget();
        const QPointF there(point.at(0).toReal(), point.at(1).toReal());
        switch (way) {
        case Way::Paste:
            doors.setClipboard(armed(fragment));
            QTest::keyClick(input, Qt::Key_V, Qt::ControlModifier);
            break;
        case Way::Drop:
            dropOn(input, there, *armed(fragment));
            break;
        case Way::MiddleButton:
            doors.select(armed(fragment));
            QTest::mouseClick(input, Qt::MiddleButton, {}, there.toPoint());
            break;
        }
        if (!QTest::qWaitFor([&] { return surface->innerHtml().contains(QStringLiteral("kept")); }))
            QTest::qFail("nothing is inserted", __FILE__, __LINE__);
        return surface->innerHtml();
    }

    /// What happens when pages are shown in the preview, side by side.
    QStringList sprungInPreview(const QStringList& pages)
    {
        click(web->Option2);
        QString frames;
        for (const QString& page : pages)
            frames += QStringLiteral("<iframe srcdoc=\"%1\"></iframe>").arg(page.toHtmlEscaped());
        web->WebBrowser3->write(frames);
        if (!QTest::qWaitFor(
                [this] {
                    return probe(web->WebBrowser3).evaluate(QStringLiteral("document.readyState")) ==
                           QVariant(QStringLiteral("complete"));
                },
                Patience))
            QTest::qFail("the pages don't come up", __FILE__, __LINE__);
        settle(web->WebBrowser3, traps);
        return traps.takeSprung();
    }
    void backToDesign() const { click(web->Option1); }
};

} // namespace

class TestSecurity : public QObject
{
    Q_OBJECT

private slots:
    void vectorsBite_data() { addPages(); }
    void vectorsBite();
    void documents_data() { addPages(); }
    void documents();
    void documentsShareNothing();
    void recoveredText();
    void terms();
    void pictureAddresses();
    void pictureTool();
    void colourFiles();
    void savedTitles();
    void lists();
    void links_data();
    void links();
    void fragmentsBite();
    void fragments_data();
    void fragments();
    void fragmentsInTerms();
    void addresses_data();
    void addresses();
    void pagesOfTheInternet_data() { addPages(); }
    void pagesOfTheInternet();
    void framesOfTheInternet();
    void prompts_data();
    void prompts();
};

/// Proves that the traps notice each vector: a page that nobody guards springs them all.
void TestSecurity::vectorsBite()
{
    QFETCH(QString, page);
    Traps traps;
    QWebEngineProfile profile;
    QObject::connect(&profile, &QWebEngineProfile::downloadRequested, &profile,
                     [](QWebEngineDownloadRequest* download) {
                         download->setDownloadDirectory(QDir::tempPath());
                         download->accept();
                         download->cancel();
                     });
    QWebEnginePage open(&profile);
    for (const auto attribute :
         {QWebEngineSettings::LocalContentCanAccessFileUrls,
          QWebEngineSettings::LocalContentCanAccessRemoteUrls, QWebEngineSettings::JavascriptCanOpenWindows,
          QWebEngineSettings::HyperlinkAuditingEnabled})
        profile.settings()->setAttribute(attribute, true);
    profile.settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, false);
    profile.settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::AllowAllUnknownUrlSchemes);
    std::vector<std::unique_ptr<QWebEnginePage>> others;
    QObject::connect(&open, &QWebEnginePage::newWindowRequested, &open,
                     [&](QWebEngineNewWindowRequest& request) {
                         others.push_back(std::make_unique<QWebEnginePage>(&profile));
                         request.openIn(others.back().get());
                     });
    QMainWindow window; // what moves must be seen
    window.setCentralWidget(new QWebEngineView(&open));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QFile file(traps.folder() + QStringLiteral(".htm"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray html = pageOf(page, traps).toUtf8();
    QCOMPARE(file.write(html), html.size());
    file.close();
    traps.takeSprung();
    open.load(QUrl::fromLocalFile(file.fileName()));
    QStringList missing = unguarded(page);
    const bool bites = QTest::qWaitFor(
        [&] {
            for (const QString& sprung : traps.takeSprung())
                missing.removeAll(sprung);
            return missing.isEmpty();
        },
        60000); // each frame has a process of its own
    QFile::remove(file.fileName());
    QVERIFY2(bites, qPrintable(missing.join(QStringLiteral(", "))));
}

/// A file that somebody sent: opened, and shown on both views.
void TestSecurity::documents()
{
    QFETCH(QString, page);
    Traps traps;
    MainWindow main;
    traps.watch(documentProfile());
    main.folder.write(QStringLiteral("sent.htm"), pageOf(page, traps).toUtf8());
    connectOpenings(main.web);
    main.web->munliveview->trigger();
    main.web->munchecklisting->trigger();
    traps.takeSprung(); // the two windows
    main.open(main.folder.path(QStringLiteral("sent.htm")));
    main.doors.takeAsked();

    // The live view, and the page out of sight that the check measures.
    for (LivePage* live : {form<FrmLive>()->Page1, form<FrmCheck>()->findChild<LivePage*>()}) {
        QTRY_VERIFY_WITH_TIMEOUT(
            probe(live)
                .evaluate(QStringLiteral("document.querySelector('[data-place]') !== null"))
                .value_or(false)
                .toBool(),
            Patience);
        settle(live, traps);
        QCOMPARE(lines(traps.takeSprung()), QString());
    }
    form<FrmLive>()->Unload();
    form<FrmCheck>()->Unload();

    main.showTab(FrmWeb::PreviewTab);
    settle(main.web->WebBrowser1, traps);
    QCOMPARE(lines(traps.takeSprung()), QString());

    click(main.web->Option2);
    settle(main.web->WebBrowser3, traps);
    QCOMPARE(lines(traps.takeSprung()), lines(previewed(page)));
    QCOMPARE(main.doors.takeAsked(), QStringList());
}

/// A page's script leaves nothing behind for the next document's.
void TestSecurity::documentsShareNothing()
{
    Program main;
    main.folder.write(QStringLiteral("one.htm"),
                      main.traps
                          .arm("one", "<script>window.name = 'left'; document.cookie = 'a=b';"
                                      "try { localStorage.a = sessionStorage.a = 'left' } catch {}"
                                      "try { indexedDB.open('left') } catch {}"
                                      "history.replaceState('left', '')</script>")
                          .toUtf8());
    main.folder.write(
        QStringLiteral("two.htm"),
        (main.traps.arm("name", "<script>if (window.name) {leak}</script>") +
         main.traps.arm("cookie", "<script>if (document.cookie) {leak}</script>") +
         main.traps.arm("local", "<script>try { if (localStorage.a) {leak} } catch {}</script>") +
         main.traps.arm("session", "<script>try { if (sessionStorage.a) {leak} } catch {}</script>") +
         main.traps.arm("database", "<script>try { indexedDB.databases().then(d => { if (d.length) {leak} }, "
                                    "() => 0) } catch {}</script>") +
         main.traps.arm("history", "<script>if (history.state) {leak}</script>"))
            .toUtf8());
    main.showTab(FrmWeb::PreviewTab);
    click(main.web->Option2);
    for (const char* name : {"one.htm", "two.htm"}) {
        main.showTab(FrmWeb::EditorTab);
        if (main.web->Dirty())
            main.doors.answerMsgBox(MsgAnswer::No);
        main.open(main.folder.path(QString::fromLatin1(name)));
        main.showTab(FrmWeb::PreviewTab);
        QCOMPARE(main.sprungOn(main.web->WebBrowser3), QString());
    }
}

/// Text that an ended program is said to have left, in a file that somebody put in its place.
void TestSecurity::recoveredText()
{
    Program main;
    main.showTab(FrmWeb::PreviewTab);
    main.showTab(FrmWeb::EditorTab);
    main.folder.write(QStringLiteral("Brindlemark-unsaved-1.htm"),
                      (fragment(main.traps, QStringLiteral("recovered"), QString()) +
                       pageOf(QStringLiteral("frames"), main.traps))
                          .toUtf8());
    main.doors.answerMsgBox(MsgAnswer::Yes);
    main.web->offerUnsavedText();
    QVERIFY(main.source().contains("<iframe"));
    QCOMPARE(lines(main.traps.takeSprung()), QString());
    QCOMPARE(main.sprungOnPreview(), QString());
}

/// Terms are HTML: in their editor, in the page that the wizard makes, and in the views of that page.
void TestSecurity::terms()
{
    Program main;
    QString html = fragment(main.traps, QStringLiteral("terms"), QString());
    for (const char* page : {"frames", "links", "media", "handlers", "calls"})
        html += pageOf(QString::fromLatin1(page), main.traps);
    for (const char* name : {"weblst.ini", "weblst2.ini", "weblst3.ini"})
        main.folder.write(QString::fromLatin1(name), html.toUtf8());

    auto* page1 = main.tool<FrmBuild1>(Tool::Create);
    overtype(page1->Text1, QStringLiteral("Lamp"));
    overtype(page1->Text2, QStringLiteral("fine"));
    page1->SSTab1->setTab(2);
    click(page1->Command3);
    auto* editor = main.shown<FrmTerms>();
    QVERIFY(editor->WebBrowser1->innerHtml().contains(QStringLiteral("<IFRAME")));
    QCOMPARE(main.sprungOn(editor->WebBrowser1), QString());
    click(editor->Command14);

    auto* page2 = main.secondPage(page1);
    click(page2->Command23);
    QTRY_VERIFY(main.source().contains("<IFRAME"));
    QCOMPARE(lines(main.traps.takeSprung()), QString());
    QCOMPARE(main.sprungOnPreview(), QString());
    QCOMPARE(main.doors.takeAsked(), QStringList());
}

/// Addresses of pictures that close the tag, and the other texts of the wizard's first page.
void TestSecurity::pictureAddresses()
{
    Program main;
    auto* page1 = main.tool<FrmBuild1>(Tool::Create);
    overtype(page1->Text1, fragment(main.traps, QStringLiteral("title"), QString()));
    overtype(page1->Text2, fragment(main.traps, QStringLiteral("description"), QString()));
    page1->SSTab1->setTab(1);
    tick(page1->OptP2);
    overtype(page1->TxP1, fragment(main.traps, QStringLiteral("address"), QStringLiteral("x\">")));
    overtype(page1->TxP2, main.traps.arm("address2", "{scheme}"));
    overtype(page1->TxP3, main.traps.arm("address3", "javascript:{run}"));
    auto* page2 = main.secondPage(page1);
    click(page2->Command23);
    QTRY_VERIFY(main.source().contains("<IFRAME"));
    QCOMPARE(main.sprungOnPreview(), QString());
}

void TestSecurity::pictureTool()
{
    Program main;
    auto* tool = main.tool<Pics>(Tool::Picture);
    overtype(tool->Text1, fragment(main.traps, QStringLiteral("pics"), QStringLiteral("x\">")));
    QTest::keyClick(tool->Text1, Qt::Key_Return);
    QTRY_VERIFY(pageBody(tool->WebBrowser1).contains(QStringLiteral("<iframe")));
    QCOMPARE(main.sprungOn(tool->WebBrowser1), QString());
    click(tool->Command4);
    QVERIFY(main.source().contains("<iframe"));
    QCOMPARE(main.sprungOnPreview(), QString());
}

/// A file of colours that somebody sent, with HTML in place of each.
void TestSecurity::colourFiles()
{
    Program main;
    const QString html = fragment(main.traps, QStringLiteral("colours"), QStringLiteral("#000000>"));
    QVERIFY(html.size() < 254);
    QByteArray file;
    for (const char* section : {"Fader5", "HR", "body"}) {
        file += QByteArray("[") + section + "]\r\n";
        const bool body = section == QByteArray("body"); // its texts come after its colours
        for (const char* key : {"color1", "color2", "color3", "color4", "color5", "Hcolor1", "Fcolor1",
                                "Bcolor1", "Tbcolor1", "Tbcolor2"})
            file += QByteArray(key) + '=' + (body ? QByteArray("255") : html.toUtf8()) + "\r\n";
        for (const char* key : {"text1", "text2", "text3", "text4"})
            file += QByteArray(key) + '=' + html.toUtf8() + "\r\n";
    }
    main.folder.write(QStringLiteral("sent.fpc"), file);
    const QString path = main.folder.path(QStringLiteral("sent.fpc"));

    auto* fader = main.tool<Fader5>(Tool::Font);
    QTest::keyClicks(fader->Text1, QStringLiteral("word"));
    main.doors.answerOpen(path);
    click(fader->Command5);
    QCOMPARE(main.sprungOn(fader->WebBrowser1), QString());
    click(fader->Command2);

    auto* rule = main.tool<FrmHR>(Tool::Rule);
    main.doors.answerOpen(path);
    click(rule->Command10);
    QCOMPARE(main.sprungOn(rule->WebBrowser1), QString());
    click(rule->Command6);

    auto* body = main.tool<FrmBody>(Tool::Body);
    main.doors.answerOpen(path);
    click(body->Command5);
    click(body->Command1);
    QVERIFY(main.source().contains("<iframe")); // the texts are taken as they are
    QCOMPARE(main.sprungOnPreview(), QString());
}

/// Saved looks of a table and of a page, with HTML in place of each value.
void TestSecurity::savedTitles()
{
    Program main;
    const QString html = fragment(main.traps, QStringLiteral("titles"), QStringLiteral("\">"));
    QByteArray set = "[set]\r\n";
    for (const char* key : {"1", "2", "3", "4", "5", "6", "7", "8", "9"})
        set += QByteArray(key) + '=' + html.toUtf8() + "\r\n";
    main.folder.write(QStringLiteral("webstyle.ini"), set);
    main.folder.write(QStringLiteral("webstyle2.ini"), "set\r\n");

    auto* page1 = main.tool<FrmBuild1>(Tool::Create);
    overtype(page1->Text1, QStringLiteral("Lamp"));
    overtype(page1->Text2, QStringLiteral("fine"));
    auto* page2 = main.secondPage(page1);
    choose(page2->Combo4, 0);
    click(page2->Command23);
    QTRY_VERIFY(main.source().contains("Lamp"));
    QVERIFY(main.source().contains("<IFRAME"));
    QCOMPARE(main.sprungOnPreview(), QString());
}

/// Lists of addresses, quick words and titles show HTML as the text that it is.
void TestSecurity::lists()
{
    Traps traps;
    const QString html = traps.arm("list", "<img src='{file}.png'><b>{run}</b>");
    const ProgramFolder folder; // lists are read when a window is made
    Program main;
    for (const char* name : {"Ils.ini", "Quick.ini", "Table2.ini", "list2.ini", "webstyle2.ini"})
        main.folder.write(QString::fromLatin1(name), '"' + html.toUtf8() + "\"\r\n");
    main.web->muQW->trigger();
    auto* words = main.shown<FrmWord>();
    QCOMPARE(words->List1->List(0), html);
    words->List1->setListIndex(0);
    auto* table = main.tool<FrmTable>(Tool::Table);
    QCOMPARE(table->Combo1->List(0), html);
    table->Combo1->showPopup();
    QTest::qWait(100);
    table->Combo1->hidePopup();
    choose(table->Combo1, 0);
    QCOMPARE(lines(traps.takeSprung()).remove(QStringLiteral("window")), QString());
}

void TestSecurity::links_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address : {"{scheme}", "{mail}", "{file}.htm", "{web}", "javascript:void {run}",
                                "data:text/html,<script>{run}</script>"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

/// A click on a link leads nowhere, in the preview not even to a ping.
void TestSecurity::links()
{
    QFETCH(QString, address);
    Program main;
    const QString html = main.traps.arm(QStringLiteral("link"),
                                        QStringLiteral("<body style='margin: 0'><a href=\"%1\" ping='{web}' "
                                                       "style='display: block; height: 2000px'>x</a>")
                                            .arg(address));
    main.folder.write(QStringLiteral("sent.htm"), html.toUtf8());
    main.open(main.folder.path(QStringLiteral("sent.htm")));
    main.showTab(FrmWeb::PreviewTab);
    for (DocumentSurface* surface : {main.web->WebBrowser1, main.web->WebBrowser3}) {
        if (surface == main.web->WebBrowser3)
            click(main.web->Option2);
        settle(surface, main.traps);
        main.traps.takeSprung();
        for (const auto button : {Qt::LeftButton, Qt::MiddleButton}) {
            for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier})
                QTest::mouseClick(surface->inputWidget(), button, keys, QPoint(50, 50));
        }
        const bool runs =
            surface == main.web->WebBrowser3 && address.startsWith(QStringLiteral("javascript"));
        QCOMPARE(main.sprungOn(surface), runs ? QStringLiteral("link: ran") : QString());
    }
}

/// Proves that each fragment runs in one place at least when nobody cleans it. But for two, which the way of
/// printing has made harmless already: in drawings and formulas it takes these elements for none that hold
/// raw text.
void TestSecurity::fragmentsBite()
{
    Program main;
    main.showTab(FrmWeb::PreviewTab);
    main.leaveUncleaned();
    QStringList ran;
    for (const Place& place : Places) {
        QStringList pages;
        for (const Fragment& fragment : Fragments) {
            if (!ran.contains(sprungName(fragment)))
                pages << main.pageWith(fragment, place, Way::Paste);
        }
        ran += main.sprungInPreview(pages);
        main.backToDesign();
    }
    QStringList blunt;
    for (const Fragment& fragment : Fragments) {
        if (!ran.contains(sprungName(fragment)))
            blunt << QString::fromLatin1(fragment.name);
    }
    QCOMPARE(lines(blunt), QStringLiteral("mathxmp; mathnoembed"));
}

void TestSecurity::fragments_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<size_t>("place");
    for (size_t i = 0; i < std::size(Places); ++i) {
        QTest::addRow("paste %s", Places[i].name) << Way::Paste << i;
        QTest::addRow("drop %s", Places[i].name) << Way::Drop << i;
    }
    QTest::newRow("middle button") << Way::MiddleButton << size_t(0);
}

/// What a page put on the clipboard, or what is dragged out of it, does not run in the preview either.
void TestSecurity::fragments()
{
    QFETCH(Way, way);
    QFETCH(size_t, place);
    Program main;
    main.showTab(FrmWeb::PreviewTab);
    QStringList pages;
    for (const Fragment& fragment : Fragments)
        pages << main.pageWith(fragment, Places[place], way);
    QCOMPARE(lines(main.traps.takeSprung()), QString());
    QCOMPARE(lines(main.sprungInPreview(pages)), QString());
    for (const QString& page : pages)
        QVERIFY2(!activeIn(page), qPrintable(page));
}

/// The editor of the terms has a design surface of its own.
void TestSecurity::fragmentsInTerms()
{
    Program main;
    auto* page1 = main.tool<FrmBuild1>(Tool::Create);
    page1->SSTab1->setTab(2);
    click(page1->Command3);
    DocumentSurface* surface = main.shown<FrmTerms>()->WebBrowser1;
    QTRY_VERIFY(surface->inputWidget());
    for (const Fragment& fragment : Fragments) {
        main.doors.setClipboard(main.armed(fragment));
        surface->write(QString());
        QTest::keyClick(surface->inputWidget(), Qt::Key_V, Qt::ControlModifier);
        QTRY_VERIFY(surface->innerHtml().contains(QStringLiteral("kept"))); // keys wait for the caret
        const QString text = surface->innerHtml();
        QVERIFY2(!activeIn(text), qPrintable(text));
    }
}

void TestSecurity::addresses_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address :
         {"{scheme}", "{mail}", "{file}.htm", "view-source:{web}", "javascript:void {run}",
          "data:text/html,<script>{run}</script>", "surface:blank", "qrc:/web/surface.js", "chrome://crash",
          "blob:{web}", "filesystem:{web}", "about:srcdoc", " \tjavascript:{run}", "JaVaScRiPt:{run}"})
        QTest::newRow(address) << QString::fromLatin1(address);
}

/// An address that came with the list of addresses or stands for the home page.
void TestSecurity::addresses()
{
    QFETCH(QString, address);
    Program main;
    const QString armed = main.traps.arm(QStringLiteral("go"), address);
    main.showTab(FrmWeb::InternetTab);
    main.web->Combo3->AddItem(armed);
    choose(main.web->Combo3, main.web->Combo3->ListCount() - 1);
    main.folder.write(QStringLiteral("web.ini"), "[internet]\r\nhome=" + armed.toUtf8() + "\r\n");
    click(main.web->Command15);
    QTest::qWait(300);
    QCOMPARE(lines(main.traps.takeSprung()), QString());
    QCOMPARE(pageBody(main.web->WebBrowser2), QString());
    // On a busy machine the empty page itself may come later.
    QTRY_COMPARE_WITH_TIMEOUT(
        probe(main.web->WebBrowser2).evaluate(QStringLiteral("document.URL")).value_or(QVariant()).toString(),
        QStringLiteral("surface:blank"), Patience);
}

/// A page of the internet may load what it likes from there, but nothing of this computer.
void TestSecurity::pagesOfTheInternet()
{
    QFETCH(QString, page);
    Program main;
    main.traps.server.page(QStringLiteral("/seen/page"), pageOf(page, main.traps).toUtf8());
    QStringList sprung;
    main.showTab(FrmWeb::InternetTab);
    main.traps.takeSprung();
    main.web->WebBrowser2->Navigate(main.traps.arm("page", "{seen}"));
    QTRY_VERIFY(main.traps.wasSeen(QStringLiteral("page")));
    QTest::qWait(500);
    for (const QString& one : main.traps.takeSprung()) {
        const QString effect = one.section(QStringLiteral(": "), -1);
        if (effect != QLatin1String("request") && effect != QLatin1String("ran") &&
            effect != QLatin1String("connection") && one != QLatin1String("fetch: leak"))
            sprung << one;
    }
    QCOMPARE(lines(sprung), QString());
    QCOMPARE(main.doors.takeAsked(), QStringList());
}

/// A click on a link in a frame starts no program either.
void TestSecurity::framesOfTheInternet()
{
    Program main;
    main.traps.server.page(
        QStringLiteral("/seen/outer"),
        main.traps
            .arm("inframe", "<body style='margin: 0'><iframe style='border: 0; width: 100%; height: 400px' "
                            "srcdoc=\"<body style='margin: 0'><a href='{scheme}' style='display: block; "
                            "height: 400px'>x</a>\"></iframe>")
            .toUtf8());
    main.showTab(FrmWeb::InternetTab);
    main.traps.takeSprung();
    main.web->WebBrowser2->Navigate(main.traps.arm("outer", "{seen}"));
    QTRY_VERIFY(main.traps.wasSeen(QStringLiteral("outer")));
    const QSignalSpy status(main.web->WebBrowser2, &InternetBrowser::statusTextChanged);
    // The frame comes up later than its page.
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            QTest::mouseClick(main.web->WebBrowser2->inputWidget(), Qt::LeftButton, {}, QPoint(50, 50));
            QTest::qWait(100);
            return status.contains(QVariantList{QStringLiteral("Not opened here: trap:inframe")});
        }(),
        30000);
    QCOMPARE(lines(main.traps.takeSprung()), QString());
}

/// What a script asks with is shown as text. The real dialog, as no script of answers shows anything.
void TestSecurity::prompts_data()
{
    QTest::addColumn<bool>("box");
    QTest::newRow("question") << false;
    QTest::newRow("message") << true;
}

void TestSecurity::prompts()
{
    QFETCH(bool, box);
    Traps traps;
    const QString question = traps.arm("prompt", "<img src='{file}.png'><h1>Your password</h1>");
    bool seen = false;
    QTimer look;
    look.setSingleShot(true);
    connect(&look, &QTimer::timeout, qApp, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        QVERIFY(dialog);
        for (const QLabel* label : dialog->findChildren<QLabel*>())
            seen = seen || (label->text() == question && label->textFormat() == Qt::PlainText);
        traps.takeSprung(); // the dialog itself
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    look.start(200);
    const QString title = QStringLiteral("Message of the page");
    if (box) {
        doors().msgBox(question, title, MsgIcon::None, MsgButtons::Ok);
    } else {
        QVERIFY(!doors().inputBox(question, title, QString()));
    }
    QVERIFY(seen);
    QCOMPARE(lines(traps.takeSprung()), QString());
}

RENDERER_TEST_MAIN(TestSecurity)
#include "tst_security.moc"
