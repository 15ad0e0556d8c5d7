// SPDX-License-Identifier: GPL-3.0-or-later

#include "wizard/FrmBuild2.h"

#include "platform/AppPath.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"
#include "services/PerStyle.h"
#include "services/Profile.h"
#include "shell/GeneratorTag.h"
#include "shell/Icons.h"
#include "shell/ListingEditor.h"
#include "shell/SavedTitles.h"
#include "shell/ToolForm.h"
#include "web/DocumentSurface.h"
#include "wizard/FrmBuild1.h"
#include "wizard/Generators.h"
#include "wizard/Terms.h"

#include <algorithm>
#include <new>

namespace brindlemark {

namespace {

constexpr int LastStyle = int(StyleCount) - 1;

// What is kept of an unfinished listing; the colours are counted in the order of `ColorFields`.
constexpr QLatin1StringView StyleKey("style");
constexpr QLatin1StringView PictureStyleKey("pictureStyle");
const QString ColorKey = QStringLiteral("color%1");

QString setNamesFile()
{
    return appFile(DataFile::PageColorTitles);
}

TermsTexts readTerms()
{
    TermsTexts texts;
    for (size_t i = 0; i < texts.size(); ++i)
        texts[i] = GetTermsList(TermsFiles[i].file);
    return texts;
}

/// Unloads a form unless it is gone: the user can close windows while the source box is being coloured.
template <typename F>
void unload()
{
    if (F* open = loaded<F>())
        open->Unload();
}

} // namespace

FrmBuild2::FrmBuild2() : WebBrowser1(new DocumentSurface(this))
{
    setupUi(this);
    Chk = {Chk0, Chk1, Chk2, Chk3};
    Image = {Image0, Image1, Image2, Image3};
    WebBrowser1->hide();
    Command1->setIcon(namedIcon("go-previous", this));
    Command2->setIcon(namedIcon("go-next", this));
    for (ComboBox* combo : {Combo3, Combo4}) {
        combo->showPlaceholderClearly();
        combo->setChoiceActs();
    }
    for (const char* entry : ColorEntries)
        Combo3->AddItem(QString::fromLatin1(entry));
    LoadList(setNamesFile(), *Combo4);
    repaintDrawing();

    on(Command1, &QToolButton::clicked, this, &FrmBuild2::Command1_Click);
    on(Command2, &QToolButton::clicked, this, &FrmBuild2::Command2_Click);
    on(Command4, &QPushButton::clicked, this, &FrmBuild2::Command4_Click);
    on(Command6, &QPushButton::clicked, this, &FrmBuild2::Command6_Click);
    on(Command19, &QPushButton::clicked, this, &FrmBuild2::Command19_Click);
    on(Command23, &QPushButton::clicked, this, &FrmBuild2::Command23_Click);
    on(Command24, &QPushButton::clicked, this, &FrmBuild2::Command24_Click);
    on(Combo3, &ComboBox::Click, this, &FrmBuild2::Combo3_Click);
    on(Combo4, &ComboBox::Click, this, &FrmBuild2::Combo4_Click);
    // `clicked` comes from the mouse, the keyboard and screen readers alike.
    for (size_t i = 0; i < Chk.size(); ++i) {
        on(Chk[i], &CheckBox::clicked, this, [this, i] { Chk_MouseUp(int(i)); });
        on(Image[i], &PictureStyleDrawing::clicked, this, [this, i] { Image_Click(*Chk[i]); });
        Image[i]->offerClick(true);
    }
    setDefaultButton(Command23);
    setCancelButton(Command4, CloseButton::Cancels);

    WebBrowser1->Navigate(QStringLiteral("about:blank"));
    WebBrowser1->setDesignMode(DesignMode::On);
    m_warmUp.setSingleShot(true);
    on(&m_warmUp, &QTimer::timeout, this, &FrmBuild2::warmEngine);
    m_warmUp.start();
}

void FrmBuild2::prepare(int pictures, bool withPictures)
{
    Frame7->setVisible(withPictures);
    for (const size_t onePicture : {size_t(0), size_t(2)}) {
        const bool usable = !withPictures || pictures <= 1;
        Chk.at(onePicture)->setEnabled(usable);
        Image.at(onePicture)->offerClick(usable);
    }
}

PageLook FrmBuild2::look() const
{
    PageLook look = m_look;
    const auto* checked =
        std::find_if(Chk.begin(), Chk.end(), [](CheckBox* box) { return box->Value() == 1; });
    look.pictureStyle = int(checked - Chk.begin());
    return look;
}

QJsonObject FrmBuild2::choices() const
{
    const PageLook now = look();
    QJsonObject choices{{StyleKey, now.style}, {PictureStyleKey, now.pictureStyle}};
    for (size_t i = 0; i < ColorFields.size(); ++i)
        choices.insert(ColorKey.arg(i), now.*ColorFields.at(i).field);
    return choices;
}

void FrmBuild2::choose(const QJsonObject& choices)
{
    for (size_t i = 0; i < ColorFields.size(); ++i) {
        m_look.*ColorFields.at(i).field =
            choices.value(ColorKey.arg(i)).toString(m_look.*ColorFields.at(i).field);
    }
    Chk_MouseUp(qBound(0, choices.value(PictureStyleKey).toInt(look().pictureStyle), int(Chk.size()) - 1));
    stepStyle(choices.value(StyleKey).toInt() - m_look.style);
}

void FrmBuild2::Command1_Click()
{
    stepStyle(-1);
}

void FrmBuild2::Command2_Click()
{
    stepStyle(1);
}

void FrmBuild2::stepStyle(int by)
{
    m_look.style = qBound(0, m_look.style + by, LastStyle);
    Label11->setText(QString::number(m_look.style));
    const QString told = QStringLiteral("Design style %1").arg(Label11->text());
    Label11->setAccessibleName(told);
    for (QToolButton* button : {Command1, Command2}) // which has the keyboard, while the label never has
        button->setAccessibleDescription(told);
    repaintDrawing();
}

/// Checks the clicked box alone. A box that was checked stays checked.
void FrmBuild2::Chk_MouseUp(int index)
{
    for (CheckBox* box : Chk)
        box->setValue(0);
    Chk.at(size_t(index))->setValue(1);
}

void FrmBuild2::Image_Click(CheckBox& box)
{
    box.setFocus();
    box.click();
}

void FrmBuild2::Combo3_Click()
{
    CommonDialog dialog;
    if (!dialog.ShowColor())
        return;
    PageLook picked = look();
    pickColor(picked, m_drawing, Combo3->Text(), dialog.Color);
    m_look = picked;
    showDrawing();
}

void FrmBuild2::Combo4_Click()
{
    loadColorSet(m_look, Combo4->Text());
    repaintDrawing();
}

void FrmBuild2::Command19_Click()
{
    const QString name = askForTitle(*Combo4, setNamesFile(), QStringLiteral("Enter the name of all colors."),
                                     QStringLiteral("Save all colors"));
    if (!name.isEmpty())
        saveColorSet(m_look, name);
}

void FrmBuild2::repaintDrawing()
{
    paintDrawing(look(), m_drawing);
    showDrawing();
}

void FrmBuild2::showDrawing()
{
    Drawing->setLook(m_look.style, m_drawing);
    for (size_t i = 0; i < Image.size(); ++i)
        Image[i]->setLook(int(i), m_drawing);
}

/// Makes the page once for nothing, so that the engine runs when the user leaves this form. A timer runs it,
/// so that the form needn't wait for the engine before it appears.
void FrmBuild2::warmEngine()
{
    if (isUnloaded() || !isLoaded<FrmBuild1>())
        return;
    try {
        makePage();
    } catch (const SurfaceLost&) {
        // Nobody has asked for the page yet. When the user does and it fails again, generate() tells them.
    } catch (const std::bad_alloc&) {
        // As above.
    }
}

/// Makes the page of the listing as the engine prints it, in `m_page`. Throws SurfaceLost when the engine
/// gave no answer.
void FrmBuild2::makePage()
{
    const WaitCursor hourglass;
    if (!WebBrowser1->write(listingPage(form<FrmBuild1>()->listing(), look(), readTerms())))
        throw SurfaceLost();
    m_page = WebBrowser1->innerHtml().toUtf8();
}

/// Makes the page and stamps its generator tag; tells the user when that fails.
FrmBuild2::PageResult FrmBuild2::generate()
{
    m_warmUp.stop();
    PageResult result = PageResult::NotMade;
    try {
        tellingWantOfMemory([&] {
            makePage();
            m_page = stamped(m_page);
            result = PageResult::Made;
        });
    } catch (const SurfaceLost&) {
        showMessage(Messages::ListingEnded);
    }
    return result;
}

/// "Open with Editor". So meant: while the tab Internet is shown, the wizard closes and the editor keeps its
/// text.
void FrmBuild2::Command23_Click()
{
    if (generate() != PageResult::Made)
        return;
    setEnabled(false); // events are served meanwhile, and the user must not press a second time
    if (ListingEditor* editor = loadedEditor())
        editor->editListing(m_page);
    finish();
}

/// "Open with Preview".
void FrmBuild2::Command24_Click()
{
    if (generate() != PageResult::Made)
        return;
    if (ListingEditor* editor = loadedEditor())
        editor->previewListing(m_page);
    finish();
}

void FrmBuild2::Command6_Click()
{
    form<FrmBuild1>()->Show(); // before this one goes, or else another window has the keyboard meanwhile
    Unload();
}

void FrmBuild2::Command4_Click()
{
    if (confirmed(Messages::CancelWizard))
        finish();
}

/// Closes both pages of the wizard. Page 1 writes its settings as it closes.
void FrmBuild2::finish()
{
    unload<FrmBuild1>();
    unload<FrmBuild2>();
}

} // namespace brindlemark
