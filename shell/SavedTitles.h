// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

class ComboBox;

// Sets of settings that the user keeps under titles. A drop-down list offers the titles and stands in a list
// file; the sets themselves stand wherever the window keeps them.

/// Asks for the title of a set that is to be kept. A new title joins the list, which shows it then, and the
/// list's file is written anew. For one that is in the list, to the letter, the user is asked whether the set
/// may be replaced. Returns the title; empty when nothing is to be kept.
QString askForTitle(ComboBox& titles, const QString& listFile, const QString& prompt, const QString& caption);

} // namespace brindlemark
