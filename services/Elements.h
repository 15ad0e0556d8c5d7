// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <string_view>
#include <vector>

namespace brindlemark {

/// Whether an element needs an end tag.
enum class EndTagNeed {
    Required,
    Optional, ///< browsers know where it ends
    Never,
};

/// What a check must know of an element of HTML, those that are no longer in use included.
struct ElementKind
{
    std::string_view name; ///< in lower case
    EndTagNeed end;
    bool isInline; ///< stands within a line of text
};

/// The element of that name, which is in lower case; null for one that is unknown.
const ElementKind* elementKind(QByteArrayView name);

/// The names of a list in which blanks part them.
std::vector<std::string_view> partedNames(std::string_view list);

/// Whether a site that takes a few tags takes this one: b, i, u, em, strong, sub, sup, p, br, ul, ol, li.
bool isFewTag(QByteArrayView name);

/// The parts of a table.
bool isTableSection(QByteArrayView name);
bool isTableCell(QByteArrayView name);
/// These, rows, columns and captions.
bool isTablePart(QByteArrayView name);
/// Whether no end tag within such an element reaches beyond it, but those of a table's own parts.
bool isFence(QByteArrayView name);

} // namespace brindlemark
