// SPDX-License-Identifier: GPL-3.0-or-later

// The Internet tab: a small browser that shares nothing with the document, and its list of addresses.

#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/FrmWeb.h"

#include <array>

namespace brindlemark {

namespace {

using U = Ui::FrmWeb;

const QString Section = QStringLiteral("internet");
const QString HomeKey = QStringLiteral("home");

/// The five entries of the text size, from the smallest; their places are the levels.
constexpr std::array<QAction * U::*, 5> TextSizes = {&U::musmallest, &U::musmaller, &U::mumedium,
                                                     &U::mularger, &U::mulargest};

QString homePage()
{
    return ReadProfile(Section, HomeKey, webIni());
}

QString addressFile()
{
    return appFile(DataFile::Addresses);
}

/// A button of the tab, the menu entry that does the same while the tab is up, and what they do. Where there
/// is no page to go to, the user stays on this one.
struct Command
{
    QToolButton* U::*button;
    QAction* U::*entry;
    void (*run)(InternetBrowser&);
};

constexpr std::array<Command, 4> Commands = {{
    {&U::Command17, &U::munback, [](InternetBrowser& browser) { static_cast<void>(browser.GoBack()); }},
    {&U::Command18, &U::munforward, [](InternetBrowser& browser) { static_cast<void>(browser.GoForward()); }},
    {&U::Command19, &U::munstop, [](InternetBrowser& browser) { browser.Stop(); }},
    {&U::Command20, &U::munrefresh, [](InternetBrowser& browser) { browser.Refresh(); }},
}};

} // namespace

void FrmWeb::connectInternet()
{
    for (const Command& command : Commands) {
        on(this->*command.button, &QToolButton::clicked, this,
           [this, command] { command.run(*WebBrowser2); });
        on(this->*command.entry, &QAction::triggered, this, [this, command] {
            if (SSTab1->Tab() == InternetTab)
                command.run(*WebBrowser2);
        });
    }
    for (size_t level = 0; level < TextSizes.size(); ++level) {
        on(this->*TextSizes.at(level), &QAction::triggered, this, [this, level] {
            WebBrowser1->setZoomLevel(int(level));
            WebBrowser2->setZoomLevel(int(level));
        });
    }
    on(Combo3, &ComboBox::EnterPressed, this, &FrmWeb::Command14_Click);
    on(Combo3, &ComboBox::Click, this, &FrmWeb::Combo3_Click);
    on(Command14, &QToolButton::clicked, this, &FrmWeb::Command14_Click);
    on(Command15, &QToolButton::clicked, this, &FrmWeb::Command15_Click);
    on(muoptions, &QAction::triggered, this, &FrmWeb::muoptions_Click);
    on(muaddressclear, &QAction::triggered, this, &FrmWeb::muaddressclear_Click);
    on(WebBrowser2, &InternetBrowser::progressChanged, this, &FrmWeb::WebBrowser2_ProgressChange);
    on(WebBrowser2, &InternetBrowser::statusTextChanged, this, &FrmWeb::WebBrowser2_StatusTextChange);
    on(WebBrowser2, &InternetBrowser::rendererDied, this, &FrmWeb::WebBrowser2_RendererDied);
}

/// Goes to the address in the box, and keeps a new one in the list at once, before anybody knows that it is
/// right. One that is in the list, but was not the last to be chosen, is asked for twice, which is meant: the
/// second request takes the place of the first, and the user sees one page.
void FrmWeb::Command14_Click()
{
    const QString address = Combo3->Text();
    for (int i = 0; i < Combo3->ListCount(); ++i) {
        if (Combo3->List(i) == address) {
            Combo3->setListIndex(i);
            WebBrowser2->Navigate(address);
            return;
        }
    }
    Combo3->AddItem(address);
    Combo3->setListIndex(Combo3->ListCount() - 1); // a click, which opens the page
    SaveList(addressFile(), *Combo3);
}

void FrmWeb::Combo3_Click()
{
    WebBrowser2->Navigate(Combo3->Text());
}

void FrmWeb::Command15_Click()
{
    Combo3->setText(homePage());
    WebBrowser2->Navigate(Combo3->Text());
}

void FrmWeb::muoptions_Click()
{
    const QString answer = InputBox(QStringLiteral("Enter the Internet Address for home page."),
                                    QStringLiteral("Home Page"), homePage());
    if (!answer.isEmpty() && answer != QLatin1String("http://"))
        WriteProfile(Section, HomeKey, answer, webIni());
}

void FrmWeb::muaddressclear_Click()
{
    if (!confirmed(Messages::ClearAddresses))
        return;
    Combo3->Clear();
    Combo3->setText(QString());
    SaveList(addressFile(), *Combo3);
}

void FrmWeb::WebBrowser2_ProgressChange(int progress, int maximum)
{
    if (maximum < 1) {
        ProgressBar1->setValue(0);
        return;
    }
    ProgressBar1->setMaximum(maximum);
    ProgressBar1->setValue(progress);
}

void FrmWeb::WebBrowser2_StatusTextChange(const QString& text)
{
    Label1->setText(text.trimmed());
}

void FrmWeb::WebBrowser2_RendererDied()
{
    ProgressBar1->setValue(0);
    Label1->setText(QStringLiteral("The page has stopped working. Refresh opens it again."));
}

} // namespace brindlemark
