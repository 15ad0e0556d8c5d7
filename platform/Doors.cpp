// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Doors.h"

#include "platform/ColorNumber.h"
#include "platform/Events.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QFontInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QStandardPaths>
#include <QToolBar>
#include <algorithm>
#include <cstdlib>
#include <limits>

namespace brindlemark {

namespace {

QWidget* frontWindow()
{
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    // Some desktops tell late which window is active; a dialog of none can be lost behind it.
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto visible = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowType() == Qt::Window;
    });
    return visible == windows.end() ? nullptr : *visible;
}

/// Runs a dialog. Where a window stays on top of all others, the dialog does so too: it must not come up
/// behind that window, which waits for its answer.
int runInFront(QDialog& dialog)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const bool covered = std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowFlags().testFlag(Qt::WindowStaysOnTopHint);
    });
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint, covered);
    return dialog.exec();
}

/// A text as a message box can show it: of a very long one the middle is left out.
QString boxText(const QString& text)
{
    constexpr qsizetype most = 1000;
    if (text.size() <= most)
        return text;
    return text.first(most / 2) + QStringLiteral(" \u2026 ") + text.last(most / 2);
}

QMessageBox::Icon boxIcon(MsgIcon icon)
{
    switch (icon) {
    case MsgIcon::Stop:
        return QMessageBox::Critical;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Exclamation:
        return QMessageBox::Warning;
    case MsgIcon::Information:
        return QMessageBox::Information;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons boxButtons(MsgButtons buttons)
{
    switch (buttons) {
    case MsgButtons::YesNo:
    case MsgButtons::NoYes:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgButtons::YesNoCancel:
    case MsgButtons::YesNoLater:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MsgButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

/// "HTML Files (*.htm)|*.htm|..." as the file dialog takes it, one caption a filter: the captions name the
/// patterns.
QStringList nameFilters(const QString& filter)
{
    QStringList captions;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        const qsizetype bracket = parts[i].lastIndexOf(QLatin1String(" ("));
        captions << QStringLiteral("%1 (%2)").arg(bracket < 0 ? parts[i] : parts[i].left(bracket), pattern);
    }
    return captions;
}

/// "htm" of "HTML Files (*.htm)", nothing of "All files (*)".
QString suffixOf(const QString& nameFilter)
{
    const qsizetype dot = nameFilter.lastIndexOf(QLatin1String("*."));
    return dot < 0 ? QString() : nameFilter.mid(dot + 2).chopped(1);
}

/// A dialog for one file. A name means the file of just that name; the suffix of the chosen filter is added
/// where there is none.
class FileDialog : public QFileDialog
{
public:
    /// Opens in `folder` and proposes `dialog`'s name, which may be a pattern such as "*.htm".
    FileDialog(const CommonDialog& dialog, AcceptMode mode, const QString& folder)
        : QFileDialog(frontWindow(), dialog.DialogTitle, folder, QString())
    {
        setAcceptMode(mode);
        setFileMode(mode == AcceptOpen ? ExistingFile : AnyFile);
        setOption(DontConfirmOverwrite); // the program asks in its own words
        setNameFilters(brindlemark::nameFilters(dialog.Filter));
        m_name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); // not in the desktop's own dialogs
        if (!isPattern(dialog.FileName)) {
            selectFile(dialog.FileName);
        } else if (m_name) {
            m_name->setText(dialog.FileName);
            m_name->selectAll();
        }
        suitSuffix();
        onInner(this, &QFileDialog::filterSelected, this, &FileDialog::suitSuffix);
        if (m_name) {
            // `textEdited` comes before `textChanged`, at which the toolkit looks for the file.
            onInner(m_name, &QLineEdit::textEdited, this, &FileDialog::suitSuffix);
            onInner(m_name, &QLineEdit::textChanged, this, &FileDialog::enableTaker);
        }
    }

protected:
    /// A pattern chooses its filter, and is no name.
    void accept() override
    {
        guardedCall([&] {
            suitSuffix(); // the folder may be another than when the name was typed
            if (!m_name || !isPattern(m_name->text()) || namesFile()) {
                QFileDialog::accept();
                return;
            }
            const QStringList meant = nameFilters().filter(u'(' + m_name->text() + u')', Qt::CaseInsensitive);
            if (!meant.isEmpty())
                selectNameFilter(meant.first());
            m_name->selectAll();
        });
    }

private:
    static bool isPattern(const QString& name) { return name.startsWith(QLatin1String("*.")); }

    /// Whether the field holds the name of a file, or of a folder to look into.
    bool namesFile() const
    {
        const QFileInfo named(directory().filePath(m_name->text()));
        return !m_name->text().isEmpty() && (acceptMode() == AcceptOpen ? named.exists() : named.isFile());
    }

    void suitSuffix()
    {
        const bool asItStands = m_name ? namesFile() : acceptMode() == AcceptOpen;
        setDefaultSuffix(asItStands ? QString() : suffixOf(selectedNameFilter()));
    }

    /// The toolkit leaves its button off for the name of a file that the filter hides.
    void enableTaker()
    {
        const auto* buttons = findChild<QDialogButtonBox*>();
        if (buttons && namesFile()) {
            buttons->button(acceptMode() == AcceptOpen ? QDialogButtonBox::Open : QDialogButtonBox::Save)
                ->setEnabled(true);
        }
    }

    QLineEdit* m_name = nullptr;
};

/// The user's documents, or the home folder where there is no such place.
QString startFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

/// The doors to the real desktop.
class DesktopDoors final : public Doors
{
public:
    DesktopDoors() { m_clock.start(); }

    MsgAnswer msgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons) override
    {
        QMessageBox box(boxIcon(icon), title, boxText(prompt), boxButtons(buttons), frontWindow());
        if (buttons == MsgButtons::NoYes)
            box.setDefaultButton(QMessageBox::No);
        if (buttons == MsgButtons::YesNoLater)
            box.button(QMessageBox::Cancel)->setText(QStringLiteral("&Later"));
        box.setTextFormat(Qt::PlainText); // file names and user text may hold tags
        switch (runInFront(box)) {
        case QMessageBox::Yes:
            return MsgAnswer::Yes;
        case QMessageBox::No:
            return MsgAnswer::No;
        case QMessageBox::Cancel:
            return MsgAnswer::Cancel;
        default:
            return MsgAnswer::Ok;
        }
    }

    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& initial) override
    {
        QInputDialog box(frontWindow());
        box.setWindowTitle(title);
        box.setLabelText(boxText(prompt));
        for (auto* label : box.findChildren<QLabel*>())
            label->setTextFormat(Qt::PlainText);   // a page's script may ask
        box.setInputMode(QInputDialog::TextInput); // brings the field
        for (auto* field : box.findChildren<QLineEdit*>())
            field->setMaxLength(std::numeric_limits<int>::max());
        box.setTextValue(initial);
        box.resize(420, box.sizeHint().height());
        if (runInFront(box) != QDialog::Accepted)
            return std::nullopt;
        return box.textValue();
    }

    bool openDialog(CommonDialog& dialog) override { return runFileDialog(dialog, QFileDialog::AcceptOpen); }

    bool saveDialog(CommonDialog& dialog) override { return runFileDialog(dialog, QFileDialog::AcceptSave); }

    bool colorDialog(CommonDialog& dialog) override
    {
        QColorDialog box(colorOf(dialog.Color), frontWindow());
        if (runInFront(box) != QDialog::Accepted)
            return false;
        dialog.Color = colorNumber(box.selectedColor());
        return true;
    }

    bool fontDialog(CommonDialog& dialog) override
    {
        // The dialog knows only installed faces and whole sizes: it opens at the face that stands in for a
        // missing one, and what the user leaves unchanged in it stays what it was before.
        QFont offered = dialog.Font;
        if (!QFontDatabase::hasFamily(offered.family()))
            offered.setFamily(QFontInfo(offered).family());
        QFontDialog box(offered, frontWindow());
        const QFont shown = box.currentFont();
        if (runInFront(box) != QDialog::Accepted)
            return false;
        const QFont taken = box.selectedFont();
        if (taken.family() != shown.family())
            dialog.Font.setFamily(taken.family());
        if (taken.pointSizeF() != shown.pointSizeF())
            dialog.Font.setPointSizeF(taken.pointSizeF());
        if (taken.bold() != shown.bold())
            dialog.Font.setBold(taken.bold());
        if (taken.italic() != shown.italic())
            dialog.Font.setItalic(taken.italic());
        return true;
    }

    bool printDialog(QPrinter& printer, PageChoice choice) override
    {
        proposeFile(printer);
        QPrintDialog box(&printer, frontWindow());
        box.setOption(QAbstractPrintDialog::PrintPageRange, choice == PageChoice::AnyPages);
        return runInFront(box) == QDialog::Accepted;
    }

    void printPreview(QPrinter& printer, const std::function<bool()>& paint) override
    {
        QPrintPreviewDialog box(&printer, frontWindow());
        if (auto* bar = box.findChild<QToolBar*>())
            bar->setPalette(QPalette(QColor(0xEF, 0xEF, 0xEF))); // its symbols are dark on any desktop
        on(&box, &QPrintPreviewDialog::paintRequested, &box, [&box, &paint] {
            if (!paint())
                soon(&box, [&box] { box.reject(); }); // it may not be up yet
        });
        runInFront(box);
    }

    void setClipboard(std::unique_ptr<QMimeData> data) override
    {
        QApplication::clipboard()->setMimeData(data.release());
    }

    const QMimeData* clipboard() override { return QApplication::clipboard()->mimeData(); }

    const QMimeData* selection() override
    {
        const QClipboard* clipboard = QApplication::clipboard();
        return clipboard->supportsSelection() ? clipboard->mimeData(QClipboard::Selection) : nullptr;
    }

    void beep() override { QApplication::beep(); }
    qint64 clock() override { return m_clock.elapsed(); }

    void end(int exitCode) override { QCoreApplication::exit(exitCode); }
    void endNow(int exitCode) override { std::_Exit(exitCode); }

private:
    bool runFileDialog(CommonDialog& dialog, QFileDialog::AcceptMode mode)
    {
        FileDialog box(dialog, mode, m_folder);
        if (runInFront(box) != QDialog::Accepted || box.selectedFiles().isEmpty())
            return false;
        const QFileInfo chosen(box.selectedFiles().constFirst());
        m_folder = chosen.absolutePath();
        dialog.FileName = chosen.absoluteFilePath();
        dialog.FileTitle = chosen.fileName();
        return true;
    }

    /// Where there is no printer, a print goes to a file.
    void proposeFile(QPrinter& printer) const
    {
        if (printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty())
            printer.setOutputFileName(QDir(m_folder).filePath(printer.docName() + QStringLiteral(".pdf")));
    }

    QElapsedTimer m_clock;
    /// Where the last file was chosen; dialogs open there again.
    QString m_folder = startFolder();
};

Doors*& replacedDoors()
{
    static Doors* replacement = nullptr;
    return replacement;
}

} // namespace

Doors& doors()
{
    static DesktopDoors desktop;
    return replacedDoors() ? *replacedDoors() : desktop;
}

void setDoors(Doors* replacement)
{
    replacedDoors() = replacement;
}

MsgAnswer MsgBox(const QString& prompt, const QString& title, MsgIcon icon, MsgButtons buttons)
{
    return doors().msgBox(prompt, title, icon, buttons);
}

QString InputBox(const QString& prompt, const QString& title, const QString& initial)
{
    return doors().inputBox(prompt, title, initial).value_or(QString());
}

void Beep()
{
    doors().beep();
}

bool CommonDialog::ShowOpen()
{
    return doors().openDialog(*this);
}

bool CommonDialog::ShowSave()
{
    return doors().saveDialog(*this);
}

bool CommonDialog::ShowColor()
{
    return doors().colorDialog(*this);
}

bool CommonDialog::ShowFont()
{
    return doors().fontDialog(*this);
}

void Clipboard::Clear()
{
    SetText(QString());
}

void Clipboard::SetText(const QString& text)
{
    auto data = std::make_unique<QMimeData>();
    if (!text.isEmpty())
        data->setText(text);
    doors().setClipboard(std::move(data));
}

QString Clipboard::GetText()
{
    const QMimeData* data = doors().clipboard();
    return data ? data->text() : QString();
}

} // namespace brindlemark
