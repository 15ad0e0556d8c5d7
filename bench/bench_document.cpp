// SPDX-License-Identifier: GPL-3.0-or-later

// What a seller does with a whole document, by its size, in the main window with all its handlers; beside the
// bare editing component, and beside the same work on bytes in memory or on the disk. And: a region button,
// and a letter typed into one long line.

#include "MainWindow.h"
#include "Measure.h"
#include "QuietDoors.h"
#include "platform/Doors.h"
#include "platform/Files.h"
#include "services/Markers.h"
#include "shell/EarlierTexts.h"
#include "shell/Find.h"
#include "shell/Highlight.h"

#include <QAccessible>
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

/// A page with one byte a character, which the component holds as UTF-8.
std::vector<Rival> openWestern(qsizetype size)
{
    return openText(page(size).replace("price", "pre\xE7o"),
                    [](const QByteArray& bytes) { return QString::fromLatin1(bytes); });
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
         })},
        {Role::Limit, "the press of a button that does nothing", timed([window] {
             const QSignalBlocker blocker(window->Command8);
             window->Command8->click();
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

/// The button of the window Find, where there is one hit in each line. `ready` comes before each time.
Rival pressReplaceAll(const char* name, const QByteArray& text, const std::function<void()>& ready,
                      const std::function<void()>& press)
{
    auto* window = form<Find>();
    window->searchIn(&source());
    window->Text1->setText(QString::fromLatin1(Old));
    window->Text2->setText(QString::fromLatin1(New));
    return {Role::Ours, name,
            timed(
                press,
                [text, ready] {
                    source().load(text);
                    ready();
                },
                [replaced = QByteArray(text).replace(Old, New)] { return source().Text() == replaced; })};
}

/// Up to the message that tells of it.
std::vector<Rival> replaceAll(qsizetype size)
{
    const QByteArray text = page(size);
    auto box = std::make_shared<std::shared_ptr<QsciScintilla>>();
    const auto prepareBare = [box, text] {
        *box = bareComponent(text);
        (*box)->SendScintilla(QsciScintilla::SCI_SETMODEVENTMASK, 0UL);
    };
    const auto press = [] {
        const QuietDoors doors;
        form<Find>()->Command6->click();
    };
    return {pressReplaceAll(
                "button Replace All", text, [] {}, press),
            {Role::Peer, Bare,
             timed([box] { replaceBare(**box); }, prepareBare,
                   [box, length = QByteArray(text).replace(Old, New).size()] {
                       return (*box)->length() == length;
                   })},
            {Role::Limit, "QByteArray::replace on the bytes",
             batched([text] { keep(QByteArray(text).replace(Old, New)); })}};
}

/// With the message, and its button pressed at once, up to the new text on the screen.
std::vector<Rival> replaceAllToTheEnd(qsizetype size)
{
    return {pressReplaceAll("button Replace All", page(size), answerMessage, [] {
        form<Find>()->Command6->click();
        paint(source().viewport());
    })};
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
    std::map<std::string, Target> targets{};
};

const Operation Operations[] = {
    {"Open", open, {.timesPeer = 1}},
    {"Open, Western text", openWestern, {.timesPeer = 1}},
    {"Highlight",
     highlightAll,
     {.timesPeer = 0.1},
     {{"100 KB", {.most = 1, .timesPeer = 0.1}},
      {"10 MB", {.most = 150, .timesPeer = 0.1}},
      {"100 MB", {.most = 1600, .timesPeer = 0.1}}}},
    {"Find the last words", find, {.timesPeer = 0.05, .timesLimit = 1.5}},
    {"Replace All, one hit a line", replaceAll, {.timesPeer = 0.05}},
    {"Replace All, one hit a line, with its message", replaceAllToTheEnd, {}},
    {"Save", save, {.timesLimit = 1.5}, {{"100 MB", {.timesLimit = 1.2}}}},
    {"Keep what is replaced", keepEarlier, {.timesLimit = 2}},
};

// ---- Single figures --------------------------------------------------------------------------------------

QByteArray listing()
{
    const MarkerPair& title = markers(Region::Title);
    return StyleMarkers.at(0).toByteArray() + "\r\n" + title.opening.toByteArray() + "<B>Old wall clock</B>" +
           title.closing.toByteArray() + "\r\n";
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

/// Asks what a screen reader asks when it is told of something: where the caret is, and what its line says.
void readAloud(QAccessibleEvent* event)
{
    QAccessibleInterface* object = event->accessibleInterface();
    QAccessibleTextInterface* text = object ? object->textInterface() : nullptr;
    if (!text)
        return;
    int start = 0;
    int end = 0;
    keep(text->textAtOffset(text->cursorPosition(), QAccessible::WordBoundary, &start, &end));
}

/// What is typed in its lifetime is read aloud.
class Reader
{
public:
    Reader() : m_before(QAccessible::installUpdateHandler(readAloud)) { QAccessible::setActive(true); }
    ~Reader()
    {
        QAccessible::setActive(false);
        QAccessible::installUpdateHandler(m_before);
    }
    Q_DISABLE_COPY_MOVE(Reader)

private:
    QAccessible::UpdateHandler m_before;
};

QByteArray inOneLine(qsizetype size)
{
    return page(size).replace("\r\n", "  ");
}

/// A letter typed into the middle of a text and painted.
void measureTyping()
{
    struct Place
    {
        const char* name;
        QByteArray (*text)(qsizetype size);
        qsizetype size;
        double most;
    };
    const Place places[] = {
        {"A letter, in 10 MB", page, 10'000'000, 3},
        {"A letter, in 100 MB", page, 100'000'000, 5},
        {"A letter, in one line of 10 KB", inOneLine, 10'000, 5},
        {"A letter, in one line of 100 KB", inOneLine, 100'000, 5},
        {"A letter, in one line of 1 MB", inOneLine, 1'000'000, 50},
    };
    for (const Place& place : places) {
        const QByteArray document = place.text(place.size);
        source().load(document);
        source().setSelStart(static_cast<int>(document.size() / 2));
        const auto box = bareComponent(document);
        box->SendScintilla(QsciScintilla::SCI_GOTOPOS, static_cast<unsigned long>(document.size() / 2));
        QApplication::processEvents();
        const Repetition ours = timed([] { typeLetter(&source(), source().viewport()); });
        const Repetition bare = timed([box] { typeLetter(box.get(), box->viewport()); });
        const Repetition screen = timed([] { paint(source().viewport()); });
        const auto rivals = [&]() -> std::vector<Rival> {
            return {{Role::Ours, "source box", ours},
                    {Role::Peer, Bare, bare},
                    {Role::Limit, "its screen painted, nothing typed", screen}};
        };
        measure({"Document", place.name, {.most = place.most}, rivals()});
        const Reader reader;
        measure({"Document", place.name + std::string(", read aloud"), {.most = place.most}, rivals()});
    }
}

/// A letter, and the highlight, in a text of tags that have no end.
void measureOpenTags()
{
    const QByteArray text = QByteArray("<font color=\"red\" ").repeated(100'000);
    source().load(text);
    source().setSelStart(int(text.size() / 2));
    QApplication::processEvents();
    measure({"Hostile pages",
             "A letter, in 100,000 tags without an end",
             {.most = 100},
             {{Role::Ours, "source box", timed([] { typeLetter(&source(), source().viewport()); })}}});
    measure({"Hostile pages",
             "Highlight, 100,000 tags without an end",
             {.most = 100},
             {{Role::Ours, "highlight", timed([] { highlight(source(), Colors); })}}});
}

void run()
{
    for (const Operation& operation : Operations)
        measureGrowth(operation.name, operation.target, Sizes, operation.rivals, operation.targets);
    measureRegions();
    measureTyping();
    measureOpenTags();
    source().load(QByteArray());
    QFile::remove(scratchFile());
}

} // namespace

int main(int argc, char* argv[])
{
    return withMainWindow(argc, argv, run);
}
