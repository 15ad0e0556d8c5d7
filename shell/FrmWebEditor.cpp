// SPDX-License-Identifier: GPL-3.0-or-later

// The look of the source box: font, background, highlight. And what it offers while one types.

#include "forms/Wait.h"
#include "platform/ColorNumber.h"
#include "platform/Conversion.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "services/Desktop.h"
#include "services/Messages.h"
#include "services/Profile.h"
#include "shell/FrmWeb.h"
#include "shell/Highlight.h"
#include "shell/SourceOffers.h"
#include "shell/ToolForm.h"

namespace brindlemark {

namespace {

const QString FontSection = QStringLiteral("Font");

QString fontSetting(const Profile& settings, const char* key)
{
    return settings.value(FontSection, QString::fromLatin1(key));
}

/// A colour of the highlight. Throws RuntimeError(TypeMismatch) when the setting is missing or isn't a
/// number.
std::optional<int> requiredColor(const char* key)
{
    return Profile(webIni()).taken(QStringLiteral("Color"), QString::fromLatin1(key), toInteger32);
}

/// A colour of the highlight; no value when the setting is missing or isn't a number.
std::optional<int> highlightColor(const char* key)
{
    try {
        return requiredColor(key);
    } catch (const RuntimeError&) {
        return std::nullopt; // what has no colour stays plain
    }
}

} // namespace

/// Throws RuntimeError(TypeMismatch) when size, bold or italic can't be read as what they are.
void FrmWeb::loadEditorFont()
{
    const Profile settings(webIni());
    QFont font = RichTextBox1->textFont();
    const QString name = fontSetting(settings, "name");
    if (!name.isEmpty()) // no face has an empty name: the present one stays
        font.setFamily(name);
    font.setPointSizeF(qBound(1.0F, settings.taken(FontSection, QStringLiteral("size"), toSingle), 500.0F));
    font.setBold(settings.taken(FontSection, QStringLiteral("bold"), toBoolean));
    font.setItalic(settings.taken(FontSection, QStringLiteral("italic"), toBoolean));
    RichTextBox1->setTextFont(font);
}

/// Throws RuntimeError(TypeMismatch) when `BG` is missing or isn't a number.
void FrmWeb::loadEditorBackground()
{
    setEditorBackground(Profile(webIni()).taken(FontSection, QStringLiteral("BG"), toInteger32));
}

void FrmWeb::setEditorBackground(int color)
{
    RichTextBox1->setBackColor(color);
    QPalette cover = Picture1->palette();
    cover.setColor(QPalette::Window, colorOf(color));
    Picture1->setPalette(cover);
}

void FrmWeb::munsetfont_Click()
{
    if (highlighted) {
        showMessage(Messages::UnhighlightFirst);
        return;
    }
    if (SSTab1->Tab() != EditorTab)
        return;
    CommonDialog dialog;
    dialog.Font = RichTextBox1->textFont();
    dialog.Font.setUnderline(false);
    dialog.Font.setStrikeOut(false);
    if (!dialog.ShowFont())
        return;
    const QFont before = RichTextBox1->textFont();
    QFont font = before; // the four below are all that is taken from the dialog
    font.setFamily(dialog.Font.family());
    font.setPointSizeF(dialog.Font.pointSizeF());
    font.setBold(dialog.Font.bold());
    font.setItalic(dialog.Font.italic());
    RichTextBox1->setTextFont(font);

    const Profile settings(webIni());
    QList<ProfileValue> values;
    const auto keep = [&](const char* key, bool changed, const QString& value) {
        // What the user has not changed stays in the settings as it is written there.
        if (changed || fontSetting(settings, key).isEmpty())
            values << ProfileValue{FontSection, QString::fromLatin1(key), value};
    };
    keep("name", font.family() != before.family(), font.family());
    keep("size", font.pointSizeF() != before.pointSizeF(), fromNumber(float(font.pointSizeF())));
    keep("bold", font.bold() != before.bold(), fromBoolean(font.bold()));
    keep("italic", font.italic() != before.italic(), fromBoolean(font.italic()));
    WriteProfile(values, webIni());
}

void FrmWeb::munEBC_Click()
{
    if (SSTab1->Tab() != EditorTab)
        return;
    CommonDialog dialog;
    dialog.Color = RichTextBox1->BackColor();
    if (!dialog.ShowColor())
        return;
    setEditorBackground(dialog.Color);
    WriteProfile(FontSection, QStringLiteral("BG"), QString::number(dialog.Color), webIni());
}

void FrmWeb::munhighlight_Click()
{
    highlightSource();
}

/// Colours the source, unless it is empty or out of sight.
void FrmWeb::highlightSource()
{
    if (RichTextBox1->isEmpty() || SSTab1->Tab() != EditorTab)
        return;
    colorSource(highlightColor);
    highlighted = true;
}

/// Colours a new listing, which needs all its colours. Throws RuntimeError(TypeMismatch) when one is missing.
void FrmWeb::colorListing()
{
    colorSource(requiredColor);
}

/// Colours the source behind its cover; `color` reads a colour of the settings.
void FrmWeb::colorSource(std::optional<int> (*color)(const char* key))
{
    Picture1->show();
    form<Wait>()->Show();
    if (const std::optional<int> back = color("back"))
        RichTextBox1->setBackColor(*back);
    Pause(0.1);
    ApplyHighlight(color);
    Pause(0.1);
    uncoverSource();
}

/// Hides the waiting window, unless the user has closed it, and the source's cover.
void FrmWeb::uncoverSource()
{
    if (Wait* wait = loaded<Wait>())
        wait->Hide();
    Picture1->hide();
}

void FrmWeb::munUNHighlight_Click()
{
    if (RichTextBox1->isEmpty() || SSTab1->Tab() != EditorTab)
        return;
    Picture1->show();
    form<Wait>()->Show();
    Pause(0.1);
    ClearHighlight();
    loadEditorBackground();
    loadEditorFont();
    Pause(0.1);
    uncoverSource();
    highlighted = false;
}

void FrmWeb::ApplyHighlight(std::optional<int> (*color)(const char* key))
{
    highlight(*RichTextBox1, {.tags = color("one"),
                              .values = color("two"),
                              .comments = color("three"),
                              .scripts = ScriptColor,
                              .text = color("four")});
}

void FrmWeb::ClearHighlight()
{
    highlight(*RichTextBox1, {.tags = 0, .values = 0, .comments = 0, .scripts = 0, .text = 0});
}

void FrmWeb::connectOffers()
{
    keepInSettings(munoffers, QStringLiteral("Tools"), QStringLiteral("offers"), true);
    m_offers = std::make_unique<SourceOffers>(*RichTextBox1);
    m_offers->setOn(munoffers->isChecked());
    on(munoffers, &QAction::triggered, this, &FrmWeb::munoffers_Click);
}

void FrmWeb::munoffers_Click()
{
    m_offers->setOn(munoffers->isChecked());
}

} // namespace brindlemark
