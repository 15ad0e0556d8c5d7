// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QToolButton>
#include <optional>

namespace brindlemark {

class DocumentSurface;

// What the button bars of all design surfaces have in common.

/// A button of the bar. `Bar` is the class whose members the buttons are.
template <typename Bar>
struct SurfaceButton
{
    QToolButton* Bar::*button;
    const char* icon;
    /// The editing command that the button runs; null where a dialog comes first.
    const char* identifier;
};

template <typename Bar>
inline constexpr SurfaceButton<Bar> SurfaceButtons[] = {
    {&Bar::Command1, "format-text-bold", "Bold"},
    {&Bar::Command2, "format-text-italic", "Italic"},
    {&Bar::Command3, "format-text-underline", "Underline"},
    {&Bar::Command4, "insert-horizontal-rule", "InsertHorizontalRule"},
    {&Bar::Command5, "format-text-color", nullptr},
    {&Bar::Command6, "format-indent-more", "Indent"},
    {&Bar::Command7, "format-indent-less", "Outdent"},
    {&Bar::Command8, "format-justify-left", "JustifyLeft"},
    {&Bar::Command9, "format-justify-center", "JustifyCenter"},
    {&Bar::Command10, "format-justify-right", "JustifyRight"},
    {&Bar::Command11, "format-fill-color", nullptr},
    {&Bar::Command12, "edit-undo", "Undo"},
    {&Bar::Command13, "edit-redo", "Redo"},
    {&Bar::Command16, "insert-link", nullptr},
};

/// The point sizes that the bar's `Combo2` offers.
inline constexpr const char* PointSizes[] = {"8", "10", "12", "14", "18", "24", "36"};

/// The HTML font size, "1" to "7", of a text in `Combo2`: "Normal" or a point size. Null for any other text.
const char* htmlFontSize(const QString& text);

/// The text of an HTML font size, the first that has it: "Normal" for "3". Null for any other.
const char* fontSizeText(const QString& htmlSize);

/// Asks for a colour with the colour dialog; its colour text, or no value when the user cancels.
[[nodiscard]] std::optional<QString> askForColor();

/// Asks for the address of the link at the surface's caret and sets it; an empty one removes the link.
void askForLink(DocumentSurface& surface);

/// What a user calls a step that `SurfaceSteps` tells of; "Edit" for one that has no name, empty for none.
QString stepName(const QString& step);

/// Runs an editing command for the user, who sees on the page what came of it. Where the page is lost, its
/// owner hears of it by `rendererDied`.
void runCommand(DocumentSurface& surface, const QString& id, const QString& value = QString());

} // namespace brindlemark
