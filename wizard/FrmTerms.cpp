// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/FrmTerms.h"

#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "shell/EarlierTexts.h"
#include "shell/Icons.h"
#include "shell/ListingEditor.h"
#include "shell/ScreenFonts.h"
#include "shell/Spelling.h"
#include "shell/SpellingMenu.h"
#include "shell/SurfaceCommands.h"
#include "wizard/Terms.h"

#include <QMenu>
#include <chrono>

namespace brindlemark {

using namespace std::chrono_literals;

namespace {

/// What a terms file ends with.
constexpr QLatin1StringView lineEnd("\r\n");

/// How often the edited text is kept: what is newer is lost with a page that is lost.
constexpr auto KeepEvery = 10s;

} // namespace

FrmTerms::FrmTerms()
{
    setupUi(this);
    for (const auto& entry : SurfaceButtons<Ui::FrmTerms>) {
        QToolButton* button = this->*entry.button;
        button->setIcon(namedIcon(entry.icon, this));
        button->setAccessibleName(button->toolTip());
        if (entry.identifier) {
            on(button, &QToolButton::clicked, this,
               [this, entry] { runCommand(*WebBrowser1, QString::fromLatin1(entry.identifier)); });
        }
    }
    for (const char* size : PointSizes)
        Combo2->AddItem(QString::fromLatin1(size));
    Combo2->setText(QStringLiteral("Normal"));

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    WebBrowser1->setDesignMode(DesignMode::On);
    edit(QString());
    addScreenFonts(*Combo1, 0);
    Combo1->setText(QStringLiteral("Arial"));

    for (ComboBox* combo : {Combo1, Combo2})
        combo->setChoiceActs();
    on(Combo1, &ComboBox::Click, this, &FrmTerms::Combo1_Click);
    on(Combo2, &ComboBox::Click, this, &FrmTerms::Combo2_Click);
    on(Command5, &QToolButton::clicked, this, &FrmTerms::Command5_Click);
    on(Command11, &QToolButton::clicked, this, &FrmTerms::Command11_Click);
    on(Command16, &QToolButton::clicked, this, &FrmTerms::Command16_Click);
    on(Command14, &QPushButton::clicked, this, &FrmTerms::Command14_Click);
    on(Command15, &QPushButton::clicked, this, &FrmTerms::Unload);
    setDefaultButton(Command14);
    setCancelButton(Command15);
    on(WebBrowser1, &DocumentSurface::linkRequested, this, &FrmTerms::WebBrowser1_LinkRequested);
    on(WebBrowser1, &DocumentSurface::menuWanted, this, &FrmTerms::WebBrowser1_MenuWanted);
    on(WebBrowser1, &DocumentSurface::rendererDied, this, &FrmTerms::WebBrowser1_RendererDied);
    KeepTimer.setObjectName(QStringLiteral("KeepTimer"));
    KeepTimer.setSingleShot(true);
    on(&KeepTimer, &QTimer::timeout, this, &FrmTerms::KeepTimer_Timer);
    KeepTimer.start(KeepEvery);
}

void FrmTerms::edit(const QString& html)
{
    m_lastShown = html;
    if (!WebBrowser1->write(html)) {
        showMessage(Messages::TermsUnshown);
    }
}

void FrmTerms::Combo1_Click()
{
    runCommand(*WebBrowser1, QStringLiteral("FontName"), Combo1->Text());
}

void FrmTerms::Combo2_Click()
{
    const char* size = htmlFontSize(Combo2->Text());
    runCommand(*WebBrowser1, QStringLiteral("FontSize"), QString::fromLatin1(size ? size : "3"));
}

void FrmTerms::pickColorFor(const QString& command)
{
    if (const std::optional<QString> color = askForColor())
        runCommand(*WebBrowser1, command, *color);
}

void FrmTerms::Command5_Click()
{
    pickColorFor(QStringLiteral("ForeColor"));
}

void FrmTerms::Command11_Click()
{
    pickColorFor(QStringLiteral("BackColor"));
}

void FrmTerms::Command16_Click()
{
    WebBrowser1->sendKeys(QStringLiteral("^k"));
}

void FrmTerms::WebBrowser1_LinkRequested()
{
    askForLink(*WebBrowser1);
}

void FrmTerms::WebBrowser1_MenuWanted(const SurfaceMenu& wanted)
{
    menuOf(*WebBrowser1, wanted, this)->popup(wanted.place);
}

void FrmTerms::KeepTimer_Timer()
{
    KeepTimer.start(KeepEvery);
    WebBrowser1->readEdits([this](const QString& html) {
        m_lastShown = html;
        m_unfinished.keepNow(appFile(m_terms ? m_terms->file : QStringView()), html.toUtf8());
    });
}

void FrmTerms::WebBrowser1_RendererDied()
{
    bringBack();
}

/// After the loss of the page, tells the user and shows the text that was kept last.
void FrmTerms::bringBack()
{
    showMessage(Messages::TermsEnded);
    edit(m_lastShown);
}

/// Saves and hides the form. When saving fails, the form stays and the user is told.
void FrmTerms::Command14_Click()
{
    try {
        save();
        Hide();
    } catch (const SurfaceLost&) {
        bringBack();
    } catch (const RuntimeError&) {
        showMessage(Messages::CannotSaveTerms);
    }
}

/// Writes the document without its head, and a line end, to the file that was opened. The head goes to the
/// clipboard. That is meant: sellers paste it into pages of their own. Throws SurfaceLost, and
/// RuntimeError(PathFileAccess) when the file can't be written.
void FrmTerms::save()
{
    const WaitCursor hourglass;
    QByteArray text = WebBrowser1->innerHtml().toUtf8();
    const QByteArray head = cutHeads(text);
    if (!head.isEmpty())
        Clipboard::SetText(QString::fromUtf8(head));
    if (m_terms) {
        const QString path = appFile(m_terms->file);
        if (ListingEditor* editor = loadedEditor()) // terms are never so long that they can't be kept
            static_cast<void>(editor->earlierTexts().keepFile(path, text + lineEnd.data()));
        writeFile(path, text + lineEnd.data());
    }
    m_unfinished.passOver({});
}

void FrmTerms::open(const TermsFile& terms)
{
    m_terms = &terms;
    setWindowTitle(QString::fromLatin1(terms.caption));
    Show();
    if (Spelling* spelling = loadedSpelling())
        spelling->startOnSurfaces();
    QString text = GetTermsList(terms.file);
    if (text.endsWith(lineEnd)) // or each saving would add one more
        text.chop(lineEnd.size());
    edit(text);
    m_unfinished.passOver({});
    WebBrowser1->setFocus();
}

void FrmTerms::takeUnfinished(const QString& html)
{
    edit(html);
    m_unfinished.keepNow(appFile(m_terms->file), html.toUtf8());
    m_unfinished.finish();
}

void openTerms(int index)
{
    if (index < 0 || index >= int(TermsFiles.size()))
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    form<FrmTerms>()->open(TermsFiles[size_t(index)]);
}

} // namespace brindlemark
