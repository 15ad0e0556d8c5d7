// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace brindlemark {

/// Anything that holds a list of texts in order: list boxes and combo boxes.
class ListObject
{
public:
    virtual ~ListObject() = default;
    /// How many entries there are.
    virtual int ListCount() const = 0;
    /// Entry `index`, from 0; empty outside the list.
    virtual QString List(int index) const = 0;
    /// Appends an entry.
    virtual void AddItem(const QString& text) = 0;
};

} // namespace brindlemark
