// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "check/CheckedPage.h"

namespace brindlemark {

// What is found in one tag alone.

/// Attributes that are given twice, or whose quote takes in what follows.
void seeAttributes(CheckedPage& page, const Tag& tag);
/// Handlers, forms, frames, objects and pages that go elsewhere; scripts but their ends.
void seeActiveContent(CheckedPage& page, const Tag& tag);
/// Where addresses lead, and what comes from them.
void seeAddresses(CheckedPage& page, const Tag& tag);
/// A picture's words and width.
void seePicture(CheckedPage& page, const Tag& tag);
/// A width beyond that of a phone.
void seeTable(CheckedPage& page, const Tag& tag);

} // namespace brindlemark
