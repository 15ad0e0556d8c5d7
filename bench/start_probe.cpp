// Started by bench_start: comes up without the splash, types one letter into the source box once the window
// has been painted, and ends. With the argument "bare" it does the same with a window that holds nothing but
// the bare editing component.

#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/WebEngine.h"
#include "shell/FrmWeb.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <Qsci/qsciscintilla.h>

namespace {

void serveUntil(const std::function<bool()>& done)
{
    while (!done())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
}

/// Counts the paints of a widget.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

void typeLetter(QWidget* target)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"));
    QApplication::sendEvent(target, &press);
}

int runBare()
{
    QsciScintilla editor;
    editor.resize(1000, 700);
    const PaintWatch watch(editor.viewport());
    editor.show();
    serveUntil([&] { return watch.paints > 0; });
    typeLetter(&editor);
    return editor.length() == 1 ? 0 : 1;
}

int runProgram()
{
    auto* main = form<FrmWeb>();
    const PaintWatch watch(main->RichTextBox1->viewport());
    main->Show();
    serveUntil([&] { return watch.paints > 0; });
    typeLetter(main->RichTextBox1);
    return main->RichTextBox1->Text().size() == 1 ? 0 : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    prepareWebEngine();
    QApplication app(argc, argv);
    setAppPath(QStringLiteral(SHIPPED_DATA));
    const bool bare = argc > 1 && QByteArray(argv[1]) == "bare";
    doors().endNow(bare ? runBare() : runProgram());
}
