// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace brindlemark {

class FrmWeb;

/// Has the engine start before the first change to Preview: as soon as there is a text to be looked at and
/// the hands rest. Until then it costs neither time nor memory.
void warmUpBeforePreview(FrmWeb* main);

} // namespace brindlemark
