// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QMimeData>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

class QPrinter;

namespace brindlemark {

/// The program's title, as message boxes without a title of their own show it.
inline constexpr QStringView OwnTitle = u"Brindlemark";
inline const QString ProgramTitle = OwnTitle.toString();
/// The product's name and number, as captions hold it.
inline const QString ProgramName = QStringLiteral("Brindlemark " PROGRAM_VERSION);

enum class MsgIcon { None, Stop, Question, Exclamation, Information };
/// The first button is the default one; of `NoYes`, which shows Yes in front like the others, it is No.
enum class MsgButtons { Ok, YesNo, NoYes, YesNoCancel, YesNoLater };
enum class MsgAnswer { Ok, Cancel, Yes, No };

/// The common dialogs of the desktop. Fields are read when a dialog opens and written when the user takes it.
class CommonDialog
{
public:
    QString DialogTitle;
    /// In: the name to propose, or a pattern such as "*.htm". Out: the chosen file's full path. The suffix of
    /// the filter is added to a name that was typed without one, unless there is a file of just that name.
    QString FileName;
    /// Out: the chosen file's bare name.
    QString FileTitle;
    /// Pairs of caption and pattern, all parted by "|".
    QString Filter;

    /// A colour number, 0x00BBGGRR.
    int Color = 0;

    /// Size in points; only screen fonts are offered. Out: face, size, bold and italic as far as the user
    /// changed them.
    QFont Font;

    /// Each opens its dialog and waits. False: the user cancelled it, and the fields are as they were.
    [[nodiscard]] bool ShowOpen();
    [[nodiscard]] bool ShowSave();
    [[nodiscard]] bool ShowColor();
    [[nodiscard]] bool ShowFont();
};

/// Everything through which a handler waits for the user or reaches the desktop. Tests put a script of
/// answers here.
class Doors
{
public:
    virtual ~Doors() = default;

    virtual MsgAnswer msgBox(const QString& prompt, const QString& title, MsgIcon icon,
                             MsgButtons buttons) = 0;
    /// No value: the user pressed Cancel.
    [[nodiscard]] virtual std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                                          const QString& initial) = 0;
    /// False: the user pressed Cancel.
    [[nodiscard]] virtual bool openDialog(CommonDialog& dialog) = 0;
    [[nodiscard]] virtual bool saveDialog(CommonDialog& dialog) = 0;
    [[nodiscard]] virtual bool colorDialog(CommonDialog& dialog) = 0;
    [[nodiscard]] virtual bool fontDialog(CommonDialog& dialog) = 0;

    /// Which pages can be chosen in the print dialog.
    enum class PageChoice { AllPages, AnyPages };
    /// Asks for a printer, its paper and the like. False: the user pressed Cancel.
    [[nodiscard]] virtual bool printDialog(QPrinter& printer, PageChoice choice) = 0;
    /// Shows what `paint` paints on a printer, anew whenever the user changes the paper, and lets it be
    /// printed from there. Goes when `paint` says that it could not.
    virtual void printPreview(QPrinter& printer, const std::function<bool()>& paint) = 0;

    virtual void setClipboard(std::unique_ptr<QMimeData> data) = 0;
    /// What the clipboard holds; null when it can't be read. Valid until events are served.
    virtual const QMimeData* clipboard() = 0;
    /// What is selected in some window, for the mouse's middle button; null where the desktop has no such
    /// thing. Valid until events are served.
    virtual const QMimeData* selection() = 0;

    virtual void beep() = 0;
    /// A clock for measuring spans, in milliseconds from a moment of its own.
    virtual qint64 clock() = 0;

    /// Ends the program in good order: the event loop returns, windows and helpers are taken down.
    virtual void end(int exitCode) = 0;
    /// Ends the program without running another line of it; only a test's door returns.
    virtual void endNow(int exitCode) = 0;
};

/// The doors in use: the desktop's, unless a test has put others in their place.
Doors& doors();
/// Replaces the doors; null brings the desktop's back. The caller keeps the object alive meanwhile.
void setDoors(Doors* replacement);

/// A modal message box.
MsgAnswer MsgBox(const QString& prompt, const QString& title, MsgIcon icon = MsgIcon::None,
                 MsgButtons buttons = MsgButtons::Ok);

/// A modal question for one line of text; empty when the user cancels.
QString InputBox(const QString& prompt, const QString& title, const QString& initial = QString());

void Beep();

namespace Clipboard {

void Clear();
void SetText(const QString& text);
/// Empty when the clipboard holds no text.
QString GetText();

} // namespace Clipboard

} // namespace brindlemark
