// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "source/TextRange.h"

#include <QByteArrayView>
#include <vector>

namespace brindlemark {

/// The tag of HTML at a byte of it, or which ends there, and the tag that opens or closes the same element,
/// in their order; nothing where there is no tag, or it stands alone. Tags of one name are counted; where end
/// tags were left out, the nearest ones belong together.
std::vector<TextRange> tagPairAt(QByteArrayView html, qsizetype caret);

} // namespace brindlemark
