// SPDX-License-Identifier: GPL-3.0-or-later

#include "Fuzz.h"
#include "builders/TableReadBack.h"

#include <array>

using namespace brindlemark;

namespace {

/// A value as the designer's boxes hold it, without what has a meaning in a tag.
QString plain(QString value)
{
    static constexpr QStringView Signs = u"<>=\"";
    value.removeIf([](QChar c) { return Signs.contains(c); });
    return value.trimmed();
}

QString colorText(uint number)
{
    return u'#' + QString::number(number & 0xFFFFFF, 16).rightJustified(6, u'0').toUpper();
}

/// The texts of the sizes "1" to "7".
constexpr std::array<const char*, 7> SizeTexts = {"8", "10", "Normal", "14", "18", "24", "36"};

} // namespace

/// A cell that the designer makes, whatever its word: its look can be read out of it. And any other text.
void targets::readback(const QByteArray& bytes)
{
    readBack(textOf(bytes));

    Fields fields(bytes);
    const uint flags = fields.nextNumber();
    CellStyle style;
    style.align = static_cast<TableAlign>(flags % 3);
    style.bold = flags & 4;
    style.italic = flags & 8;
    style.underline = flags & 16;
    const bool spanning = flags & 32;
    const size_t size = (flags >> 6) % SizeTexts.size();
    style.size = QString::number(size + 1);
    style.fontFace = plain(fields.nextText());
    style.width = plain(fields.nextText());
    style.height = plain(fields.nextText());
    style.fontColor = colorText(fields.nextNumber());
    const QString color = colorText(fields.nextNumber());
    const QString word = textOf(fields.rest());

    const TableReadBack look = readBack(cellOpen(style, color, spanning) + word);
    hold(look.cellColor == (spanning ? color.mid(1) : color), "the cell's colour is read");
    hold(look.width == style.width, "the width is read");
    hold(look.height == (style.height.isEmpty() ? std::nullopt : std::optional(style.height)),
         "the height is read");
    hold(look.align == style.align, "the alignment is read");
    hold(look.styles == TableReadBack::Styles{style.bold, style.italic, style.underline},
         "the styles are read");
    hold(look.fontFace == (style.fontFace.isEmpty() ? std::nullopt : std::optional(style.fontFace)),
         "the face is read");
    hold(look.sizeText == QLatin1String(SizeTexts.at(size)), "the size is read");
    hold(look.fontColor == style.fontColor.mid(1), "the font's colour is read");
}
