// SPDX-License-Identifier: GPL-3.0-or-later

// What a seller does with a whole document, by its size, in the main window with all its handlers; beside the
// bare editing component, and beside the same work on bytes in memory or on the disk. And: a region button,
// and a letter typed into one long line.

#include "MainWindow.h"
#include "Measure.h"
#include "platform/Doors.h"
#include "platform/Files.h"
#include "services/Markers.h"
#include "shell/EarlierTexts.h"
#include "shell/Find.h"
#include "shell/Highlight.h"

#include <QKeyEvent>
#include <QMessageBox>
#include <QTimer>
#include <Qsci/qsciscintilla.h>
#include <cstring>
#include <memory>

using namespace brindlemark;

namespace {

const QByteArray Old = "price";
const QByteArray New = "reserve";
const QByteArray Needle = "<!-- the end -->";

const std::vector<Size> Sizes = {
    {"10 KB", 10'000},     {"100 KB", 100'000},     {"1 MB", 1'000'000},
    {"10 MB", 10'000'000}, {"100 MB", 100'000'000},
};

/// A page with nine tags, two quoted values and one hit of `Old` in each line of 120 bytes; `Needle` is its
/// end.
QByteArray page(qsizetype size)
{
    const QByteArray line =
        QByteArray("<TR><TD bgcolor=\"#FFFFFF\" align=center><FONT face=\"Arial\" size=2><B>a "
                   "price of 12.50</B></FONT></TD></TR>\r\n");
    return line.repeated((size - Needle.size()) / line.size()) + Needle;
}

void paint(QWidget* viewport)
{
    viewport->repaint();
}

QString scratchFile()
{
    return appFile(QStringLiteral("\\page.htm"));
}

RichTextBox& source()
{
    return *form<FrmWeb>()->RichTextBox1;
}

/// The component that the source box stands on, alone in a window. Without the word wrap that the source box
/// has on: with it the component takes seconds for 10 MB.
std::shared_ptr<QsciScintilla> bareComponent(const QByteArray& text = QByteArray())
{
    auto box = std::make_shared<QsciScintilla>();
    box->setUtf8(true);
    box->resize(source().size());
    box->show();
    box->setText(QString::fromUtf8(text));
    QApplication::processEvents();
    return box;
}

const std::string Bare = "bare QScintilla";

// ---- The operations, each with its rivals ----------------------------------------------------------------

/// From the file's name to its text on the screen.
std::vector<Rival> openText(const QByteArray& text, const std::function<QString(const QByteArray&)>& decode)
{
    const QString file = scratchFile();
    writeFile(file, text);
    const auto ours = [file] {
        emit source().FilesDropped({file}, 0);
        paint(source().viewport());
    };
    const auto box = bareComponent();
    const auto read = [file] {
        QFile input(file);
        require(input.open(QIODevice::ReadOnly), "the page can't be read");
        return input.readAll();
    };
    const auto bare = [box, read, decode] {
        box->setText(decode(read()));
        paint(box->viewport());
    };
    return {{Role::Ours, "file opened",
             timed(
                 ours, [] { form<FrmWeb>()->document().setDirty(false); },
                 [text] { return source().Text() == text; })},
            {Role::Peer, Bare, timed(bare, {}, [box, text, decode] { return box->text() == decode(text); })},
            {Role::Limit, "file read into memory", batched([read] { keep(read()); })}};
}

std::vector<Rival> open(qsizetype size)
{
    return openText(page(size), [](const QByteArray& bytes) { return QString::fromUtf8(bytes); });
}

constexpr HighlightColors Colors = {
    .tags = 0xC00000, .values = 0x1515A3, .comments = 0x1A6B00, .scripts = 0x0A8CFF, .text = 0};

/// The same ranges coloured by the component's own search and indicators.
void highlightBare(QsciScintilla& box)
{
    constexpr const char* passes[][2] = {
        {"<", ">"}, {"=\"", "\""}, {"<!--", "-->"}, {"<SCRIPT", "</SCRIPT>"}};
    const auto find = [&box](const char* text, long from) {
        box.SendScintilla(QsciScintilla::SCI_SETTARGETSTART, static_cast<unsigned long>(from));
        box.SendScintilla(QsciScintilla::SCI_SETTARGETEND, box.SendScintilla(QsciScintilla::SCI_GETLENGTH));
        return box.SendScintilla(QsciScintilla::SCI_SEARCHINTARGET, strlen(text), text);
    };
    int indicator = 8;
    for (const auto& pass : passes) {
        box.SendScintilla(QsciScintilla::SCI_SETINDICATORCURRENT, indicator++);
        for (long opening = find(pass[0], 0); opening >= 0; opening = find(pass[0], opening + 1)) {
            const long closing = find(pass[1], opening + 2);
            if (closing >= opening)
                box.SendScintilla(QsciScintilla::SCI_INDICATORFILLRANGE, static_cast<unsigned long>(opening),
                                  closing - opening + 1);
        }
    }
}

std::vector<Rival> highlightAll(qsizetype size)
{
    const QByteArray text = page(size);
    auto box = std::make_shared<std::shared_ptr<QsciScintilla>>();
    return {{Role::Ours, "highlight",
             timed([] { highlight(source(), Colors); },
                   [text] {
                       source().load(text);
                       QApplication::processEvents();
                   },
                   [] { return source().colorAt(1) == Colors.tags; })},
            {Role::Peer, Bare,
             timed([box] { highlightBare(**box); }, [box, text] { *box = bareComponent(text); })}};
}

/// The document's last words, from its beginning on.
std::vector<Rival> find(qsizetype size)
{
    const QByteArray text = page(size);
    source().load(text);
    auto* window = form<Find>();
    window->searchIn(&source());
    window->Text1->setText(QString::fromLatin1(Needle));
    const auto box = bareComponent(text);
    const QString needle = QString::fromLatin1(Needle);
    return {
        {Role::Ours, "button Find",
         timed([window] { window->Command8->click(); }, [] { source().setSelStart(0); },
               [] { return source().SelText() == Needle; })},
        {Role::Peer, Bare,
         timed([box, needle] { box->findFirst(needle, false, false, false, false, true, 0, 0); },
               [box] { box->setCursorPosition(0, 0); },
               [box, needle] { return box->selectedText() == needle; })},
        {Role::Limit, "memmem over the bytes", batched([text] {
             keep(memmem(text.constData(), size_t(text.size()), Needle.constData(), size_t(Needle.size())));
         })}};
}

/// Presses the message box's button as soon as it is up.
void answerMessage()
{
    QTimer::singleShot(0, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            box->accept();
    });
}

/// With its notifications off: with them on, each replacement costs as much as its position in the text, and
/// the loop takes hours.
void replaceBare(QsciScintilla& box)
{
    const QString old = QString::fromLatin1(Old);
    const QString with = QString::fromLatin1(New);
    for (bool found = box.findFirst(old, false, true, false, false, true, 0, 0, false); found;
         found = box.findNext())
        box.replace(with);
}

/// One hit in each line. Ours is the button with its message box, up to the new text on the screen.
std::vector<Rival> replaceAll(qsizetype size)
{
    const QByteArray text = page(size);
    const QByteArray replaced = QByteArray(text).replace(Old, New);
    auto* window = form<Find>();
    window->searchIn(&source());
    window->Text1->setText(QString::fromLatin1(Old));
    window->Text2->setText(QString::fromLatin1(New));
    const auto prepareOurs = [text] {
        source().load(text);
        answerMessage();
    };
    const auto ours = [window] {
        window->Command6->click();
        paint(source().viewport());
    };
    auto box = std::make_shared<std::shared_ptr<QsciScintilla>>();
    const auto prepareBare = [box, text] {
        *box = bareComponent(text);
        (*box)->SendScintilla(QsciScintilla::SCI_SETMODEVENTMASK, 0UL);
    };
    return {{Role::Ours, "button Replace All",
             timed(ours, prepareOurs, [replaced] { return source().Text() == replaced; })},
            {Role::Peer, Bare,
             timed([box] { replaceBare(**box); }, prepareBare,
                   [box, replaced] { return (*box)->length() == replaced.size(); })},
            {Role::Limit, "QByteArray::replace on the bytes",
             batched([text] { keep(QByteArray(text).replace(Old, New)); })}};
}

/// Menu Save, up to the bytes on the disk. The bare component's file may still be in memory.
std::vector<Rival> save(qsizetype size)
{
    const QByteArray text = page(size);
    const QByteArray saved = text + "\r\n";
    const QString file = scratchFile();
    source().load(text);
    form<FrmWeb>()->document().setName(file);
    const auto box = bareComponent(text);
    return {{Role::Ours, "menu Save",
             timed([] { form<FrmWeb>()->mnsave->trigger(); }, {},
                   [file, saved] { return readFile(file) == saved; })},
            {Role::Peer, Bare + ", no fsync", timed([box, file] {
                 QFile output(file);
                 require(output.open(QIODevice::WriteOnly), "the page can't be written");
                 output.write(box->text().toUtf8());
             })},
            {Role::Limit, "write and fsync", timed([file, saved] { writeAndSync(file, saved); })}};
}

/// What the window pays before another text takes the place of the source's; the file is written meanwhile.
std::vector<Rival> keepEarlier(qsizetype size)
{
    source().load(page(size));
    const auto kept = std::make_shared<EarlierTexts>(QStringList{QFileInfo(scratchFile()).path()});
    return {{Role::Ours, "text kept", timed([kept] {
                 const QByteArray text = source().Text();
                 kept->keep(QStringLiteral("/page.htm"), Dropped::Replaced, [text] { return text; });
             })},
            {Role::Limit, "a copy of the text", timed([] { keep(source().Text()); })}};
}

struct Operation
{
    const char* name;
    std::vector<Rival> (*rivals)(qsizetype size);
    Target target;
};

const Operation Operations[] = {
    {"Open", open, {.timesPeer = 1}},
    {"Highlight", highlightAll, {.timesPeer = 1}},
    {"Find the last words", find, {.timesPeer = 1}},
    {"Replace All, one hit a line", replaceAll, {.timesPeer = 1}},
    {"Save", save, {.timesLimit = 1.5}},
    {"Keep what is replaced", keepEarlier, {.timesLimit = 2}},
};

// ---- Single figures --------------------------------------------------------------------------------------

QByteArray listing()
{
    const MarkerPair& title = markers(Region::Title);
    return StyleMarkers.at(0).toByteArray() + "\r\n" + title.opening.toByteArray() + "<B>Old wall clock</B>" +
           title.closing.toByteArray() + "\r\n";
}

/// A page with one byte a character, which the component holds as UTF-8.
void measureWestern()
{
    measure({"Document",
             "Open 10 MB of Western text",
             {.timesPeer = 1},
             openText(page(10'000'000).replace("price", "pre\xE7o"),
                      [](const QByteArray& bytes) { return QString::fromLatin1(bytes); })});
}

/// A region button on a document of 10 MB, from the click to the selection.
void measureRegions()
{
    const QByteArray filler = page(10'000'000);
    const QByteArray thousand = (listing() + page(10'000) + "\r\n").repeated(1000);
    const std::pair<const char*, QByteArray> documents[] = {
        {"Region button, 10 MB, listing in front", "\r\n" + listing() + filler},
        {"Region button, 10 MB, listing at the end", filler + "\r\n" + listing()},
        {"Region button, 10 MB of 1,000 listings", thousand},
    };
    for (const auto& [name, document] : documents) {
        source().load(document);
        QPushButton* button = form<FrmWeb>()->CmdTitle;
        button->setEnabled(true);
        QApplication::processEvents();
        const QByteArray bytes = document;
        measure({"Document",
                 name,
                 {.most = 100},
                 {{Role::Ours, "button",
                   timed([button] { button->click(); }, [] { source().setSelStart(0); },
                         [] { return source().SelText() == "<B>Old wall clock</B>"; })},
                  {Role::Limit, "memory read once",
                   batched([bytes] { keep(std::memchr(bytes.constData(), '\0', size_t(bytes.size()))); })}}});
    }
}

void typeLetter(QWidget* box, QWidget* viewport)
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(box, &event);
    paint(viewport);
}

/// A letter typed into the middle of a text and painted.
void measureTyping()
{
    const QByteArray lines = page(10'000'000);
    const std::pair<const char*, QByteArray> documents[] = {
        {"A letter, in 10 MB", lines},
        {"A letter, in one line of 10 KB", page(10'000).replace("\r\n", "  ")},
        {"A letter, in one line of 100 KB", page(100'000).replace("\r\n", "  ")},
    };
    for (const auto& [name, document] : documents) {
        source().load(document);
        source().setSelStart(static_cast<int>(document.size() / 2));
        const auto box = bareComponent(document);
        box->SendScintilla(QsciScintilla::SCI_GOTOPOS, static_cast<unsigned long>(document.size() / 2));
        QApplication::processEvents();
        measure({"Document",
                 name,
                 {.most = 16},
                 {{Role::Ours, "source box", timed([] { typeLetter(&source(), source().viewport()); })},
                  {Role::Peer, Bare, timed([box] { typeLetter(box.get(), box->viewport()); })}}});
    }
}

void run()
{
    for (const Operation& operation : Operations)
        measureGrowth(operation.name, operation.target, Sizes, operation.rivals);
    measureWestern();
    measureRegions();
    measureTyping();
    source().load(QByteArray());
    QFile::remove(scratchFile());
}

} // namespace

int main(int argc, char* argv[])
{
    return withMainWindow(argc, argv, run);
}
