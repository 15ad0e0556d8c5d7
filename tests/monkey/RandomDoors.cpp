// SPDX-License-Identifier: GPL-3.0-or-later

#include "RandomDoors.h"

#include "Monkey.h"
#include "ScriptedDoors.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPrinter>
#include <utility>

namespace brindlemark {

RandomDoors::RandomDoors(QString documents, QString presets)
    : m_documents(std::move(documents)), m_presets(std::move(presets))
{
    m_clock.start();
    setDoors(this);
}

RandomDoors::~RandomDoors()
{
    setDoors(nullptr);
}

MsgAnswer RandomDoors::msgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons)
{
    asked << QStringLiteral("MsgBox|%1|%2").arg(title, prompt.left(200));
    if (icon == MsgIcon::Stop && prompt.startsWith(QStringLiteral("Run-time error")))
        fatal = prompt;
    switch (buttons) {
    case MsgButtons::Ok:
        return MsgAnswer::Ok;
    case MsgButtons::YesNo:
    case MsgButtons::NoYes:
        return m_leaving || m_random.chance() ? MsgAnswer::Yes : MsgAnswer::No;
    case MsgButtons::YesNoCancel:
    case MsgButtons::YesNoLater:
        break;
    }
    constexpr std::array Answers = {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::Cancel};
    return m_leaving ? MsgAnswer::No : m_random.of(Answers);
}

std::optional<QString> RandomDoors::inputBox(const QString&, const QString& title, const QString& initial)
{
    asked << QStringLiteral("InputBox|%1").arg(title);
    switch (m_random.number(4)) {
    case 0:
        return std::nullopt;
    case 1:
        return initial;
    default:
        return randomTyping(m_random);
    }
}

bool RandomDoors::openDialog(CommonDialog& dialog)
{
    asked << QStringLiteral("Open|%1").arg(dialog.DialogTitle);
    QStringList files;
    for (const QString& folder : {m_documents, m_presets}) {
        for (const QString& name : QDir(folder).entryList(QDir::Files))
            files << folder + u'/' + name;
    }
    if (m_random.number(20) == 0)
        files = QStringList(m_documents + QStringLiteral("/none.htm"));
    if (m_random.number(4) == 0 || files.isEmpty())
        return false;
    dialog.FileName = m_random.of(files);
    dialog.FileTitle = QFileInfo(dialog.FileName).fileName();
    return true;
}

bool RandomDoors::saveDialog(CommonDialog& dialog)
{
    asked << QStringLiteral("Save|%1").arg(dialog.DialogTitle);
    if (m_random.number(4) == 0)
        return false;
    const bool isPage = dialog.Filter.contains(QStringLiteral("*.htm"));
    QString folder = isPage ? m_documents : m_presets;
    const QStringList names = QDir(folder).entryList(QDir::Files);
    dialog.FileTitle = m_random.chance() || names.isEmpty()
                           ? QStringLiteral("new%1.").arg(m_random.number(5)) +
                                 (isPage ? QStringLiteral("htm") : QStringLiteral("txt"))
                           : m_random.of(names);
    if (dialog.Filter.contains(QStringLiteral("*.pdf"))) {
        folder += QStringLiteral("/.."); // nobody opens it there
        dialog.FileTitle = QStringLiteral("page.pdf");
    }
    if (m_random.number(10) == 0)
        folder += QStringLiteral("/none"); // no file can be made there
    dialog.FileName = folder + u'/' + dialog.FileTitle;
    return true;
}

bool RandomDoors::colorDialog(CommonDialog& dialog)
{
    asked << QStringLiteral("Color");
    if (m_random.number(4) == 0)
        return false;
    dialog.Color = m_random.number(0x1000000);
    return true;
}

bool RandomDoors::fontDialog(CommonDialog& dialog)
{
    asked << QStringLiteral("Font");
    if (m_random.number(4) == 0)
        return false;
    dialog.Font = QFont(m_random.of(QFontDatabase::families()), 6 + m_random.number(60));
    dialog.Font.setBold(m_random.chance());
    dialog.Font.setItalic(m_random.chance());
    return true;
}

bool RandomDoors::printDialog(QPrinter& printer, PageChoice choice)
{
    asked << QStringLiteral("Print");
    if (m_random.number(4) == 0)
        return false;
    const QString folder = m_presets + QLatin1String(m_random.number(10) == 0 ? "/none" : "/..");
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder + QStringLiteral("/print.pdf"));
    if (choice == PageChoice::AnyPages && m_random.chance())
        printer.setFromTo(1 + m_random.number(3), 3);
    return true;
}

void RandomDoors::printPreview(QPrinter& printer, const std::function<bool()>& paint)
{
    asked << QStringLiteral("Preview");
    previewedPages(printer, paint);
}

} // namespace brindlemark
