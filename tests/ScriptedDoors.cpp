// SPDX-License-Identifier: GPL-3.0-or-later

#include "ScriptedDoors.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QTest>

namespace brindlemark {

namespace {

QString iconName(MsgIcon icon)
{
    switch (icon) {
    case MsgIcon::Stop:
        return QStringLiteral("Stop");
    case MsgIcon::Question:
        return QStringLiteral("Question");
    case MsgIcon::Exclamation:
        return QStringLiteral("Exclamation");
    case MsgIcon::Information:
        return QStringLiteral("Information");
    case MsgIcon::None:
        break;
    }
    return QStringLiteral("None");
}

QString buttonsName(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::YesNo:
        return QStringLiteral("YesNo");
    case MsgButtons::NoYes:
        return QStringLiteral("NoYes");
    case MsgButtons::YesNoCancel:
        return QStringLiteral("YesNoCancel");
    case MsgButtons::YesNoLater:
        return QStringLiteral("YesNoLater");
    case MsgButtons::Ok:
        break;
    }
    return QStringLiteral("Ok");
}

} // namespace

ScriptedDoors::ScriptedDoors()
{
    setDoors(this);
}

ScriptedDoors::~ScriptedDoors()
{
    setDoors(nullptr);
    if (!m_script.isEmpty()) {
        QTest::qFail(qPrintable(QStringLiteral("%1 was never asked").arg(m_script.constFirst().dialog)),
                     __FILE__, __LINE__);
    }
}

void ScriptedDoors::expect(Answer answer)
{
    answer.during = std::exchange(m_during, nullptr);
    m_script << answer;
}

void ScriptedDoors::answerMsgBox(MsgAnswer answer)
{
    expect({.dialog = QStringLiteral("MsgBox"), .button = answer});
}

void ScriptedDoors::answerInputBox(const QString& text)
{
    expect({.dialog = QStringLiteral("InputBox"), .text = text});
}

void ScriptedDoors::cancelInputBox()
{
    expect({.dialog = QStringLiteral("InputBox"), .cancelled = true});
}

void ScriptedDoors::answerOpen(const QString& path)
{
    expect({.dialog = QStringLiteral("Open"), .text = path});
}

void ScriptedDoors::cancelOpen()
{
    expect({.dialog = QStringLiteral("Open"), .cancelled = true});
}

void ScriptedDoors::answerSave(const QString& path)
{
    expect({.dialog = QStringLiteral("Save"), .text = path});
}

void ScriptedDoors::cancelSave()
{
    expect({.dialog = QStringLiteral("Save"), .cancelled = true});
}

void ScriptedDoors::answerColor(int number)
{
    expect({.dialog = QStringLiteral("Color"), .number = number});
}

void ScriptedDoors::cancelColor()
{
    expect({.dialog = QStringLiteral("Color"), .cancelled = true});
}

void ScriptedDoors::answerFont(const QFont& font)
{
    expect({.dialog = QStringLiteral("Font"), .font = font});
}

void ScriptedDoors::cancelFont()
{
    expect({.dialog = QStringLiteral("Font"), .cancelled = true});
}

void ScriptedDoors::answerPrint(const QString& path, int fromPage, int toPage)
{
    expect({.dialog = QStringLiteral("Print"), .text = path, .fromPage = fromPage, .toPage = toPage});
}

void ScriptedDoors::cancelPrint()
{
    expect({.dialog = QStringLiteral("Print"), .cancelled = true});
}

void ScriptedDoors::closePreview()
{
    expect({.dialog = QStringLiteral("Preview")});
}

void ScriptedDoors::during(std::function<void()> during)
{
    m_during = std::move(during);
}

QStringList ScriptedDoors::takeAsked()
{
    return std::exchange(asked, QStringList());
}

ScriptedDoors::Answer ScriptedDoors::next(const QString& dialog, const QString& record)
{
    asked << record;
    if (QGuiApplication::overrideCursor())
        QTest::qFail(qPrintable(QStringLiteral("the hourglass stands over ") + record), __FILE__, __LINE__);
    if (m_script.isEmpty() || m_script.constFirst().dialog != dialog) {
        QTest::qFail(qPrintable(QStringLiteral("nobody expected ") + record), __FILE__, __LINE__);
        return {.dialog = dialog, .cancelled = true, .button = MsgAnswer::Cancel};
    }
    Answer answer = m_script.takeFirst();
    if (answer.during)
        answer.during();
    return answer;
}

MsgAnswer ScriptedDoors::msgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons)
{
    return next(QStringLiteral("MsgBox"),
                QStringList{QStringLiteral("MsgBox"), title, prompt, iconName(icon), buttonsName(buttons)}
                    .join(u'|'))
        .button;
}

std::optional<QString> ScriptedDoors::inputBox(const QString& prompt, const QString& title,
                                               const QString& initial)
{
    const Answer answer = next(QStringLiteral("InputBox"),
                               QStringList{QStringLiteral("InputBox"), title, prompt, initial}.join(u'|'));
    if (answer.cancelled)
        return std::nullopt;
    return answer.text;
}

bool ScriptedDoors::takeFile(CommonDialog& dialog, const Answer& answer)
{
    if (answer.cancelled)
        return false;
    dialog.FileName = answer.text;
    dialog.FileTitle = QFileInfo(answer.text).fileName();
    return true;
}

bool ScriptedDoors::openDialog(CommonDialog& dialog)
{
    return takeFile(
        dialog,
        next(QStringLiteral("Open"),
             QStringList{QStringLiteral("Open"), dialog.DialogTitle, dialog.FileName, dialog.Filter}.join(
                 u'|')));
}

bool ScriptedDoors::saveDialog(CommonDialog& dialog)
{
    return takeFile(
        dialog,
        next(QStringLiteral("Save"),
             QStringList{QStringLiteral("Save"), dialog.DialogTitle, dialog.FileName, dialog.Filter}.join(
                 u'|')));
}

bool ScriptedDoors::colorDialog(CommonDialog& dialog)
{
    const Answer answer = next(QStringLiteral("Color"), QStringLiteral("Color|%1").arg(dialog.Color));
    if (answer.cancelled)
        return false;
    dialog.Color = answer.number;
    return true;
}

bool ScriptedDoors::fontDialog(CommonDialog& dialog)
{
    const QFont& font = dialog.Font;
    const Answer answer =
        next(QStringLiteral("Font"), QStringLiteral("Font|%1|%2|%3|%4")
                                         .arg(font.family())
                                         .arg(font.pointSizeF())
                                         .arg(font.bold() ? QStringLiteral("bold") : QString())
                                         .arg(font.italic() ? QStringLiteral("italic") : QString()));
    if (answer.cancelled)
        return false;
    dialog.Font = answer.font;
    return true;
}

bool ScriptedDoors::printDialog(QPrinter& printer, PageChoice choice)
{
    const Answer answer =
        next(QStringLiteral("Print"),
             QStringList{QStringLiteral("Print"), printer.docName(),
                         choice == PageChoice::AnyPages ? QStringLiteral("any") : QStringLiteral("all")}
                 .join(u'|'));
    if (answer.cancelled)
        return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(answer.text);
    if (answer.fromPage > 0)
        printer.setFromTo(answer.fromPage, answer.toPage);
    return true;
}

void ScriptedDoors::printPreview(QPrinter& printer, const std::function<bool()>& paint)
{
    const int pages = previewedPages(printer, paint); // may ask something itself
    next(QStringLiteral("Preview"), QStringLiteral("Preview|%1|%2").arg(printer.docName()).arg(pages));
}

int previewedPages(QPrinter& printer, const std::function<bool()>& paint)
{
    QPrintPreviewWidget preview(&printer);
    bool good = true;
    QObject::connect(&preview, &QPrintPreviewWidget::paintRequested, &preview,
                     [&] { good = paint() && good; });
    preview.updatePreview();
    return good ? preview.pageCount() : -1;
}

void ScriptedDoors::setClipboard(std::unique_ptr<QMimeData> data)
{
    m_clipboard = std::move(data);
}

const QMimeData* ScriptedDoors::clipboard()
{
    return m_clipboard.get();
}

void ScriptedDoors::select(std::unique_ptr<QMimeData> data)
{
    m_selection = std::move(data);
}

const QMimeData* ScriptedDoors::selection()
{
    return m_selection.get();
}

void ScriptedDoors::beep()
{
    ++beeps;
}

qint64 ScriptedDoors::clock()
{
    static const QElapsedTimer timer = [] {
        QElapsedTimer started;
        started.start();
        return started;
    }();
    return timer.elapsed();
}

void ScriptedDoors::end(int exitCode)
{
    ended = exitCode;
}

void ScriptedDoors::endNow(int exitCode)
{
    ended = exitCode;
    endedAtOnce = true;
}

} // namespace brindlemark
