// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmPop.h"

#include "platform/Events.h"
#include "shell/ListingEditor.h"

#include <array>

namespace brindlemark {

namespace {

struct Entry
{
    QMenu FrmPop::*menu;
    const char* name;
    const char* caption;
    Region region;
};

// The captions are spelt as users know them: a misspelt one is meant to stay.
constexpr std::array<Entry, 10> Entries = {{
    {&FrmPop::mucell, "muDesc", "Description:", Region::DescriptionCell},
    {&FrmPop::mucell, "mupayment", "For payment I do accept:", Region::PaymentCell},
    {&FrmPop::mucell, "muloc", "For locations of shipping I do accpet:", Region::LocationCell},
    {&FrmPop::mucell, "mushipping", "Who pays for shipping?", Region::WhoPaysCell},
    {&FrmPop::mulistpopup, "mulistpayment", "For payment I do accept:", Region::PaymentList},
    {&FrmPop::mulistpopup, "mulistlocation", "For locations of shipping I do accpet:", Region::LocationList},
    {&FrmPop::mulistpopup, "mulistwhoshipping", "Who pays for shipping?", Region::WhoPaysList},
    {&FrmPop::mubody, "mubodypayment", "For payment I do accept:", Region::PaymentTerms},
    {&FrmPop::mubody, "mubodyloca", "For locations of shipping I do accpet:", Region::LocationTerms},
    {&FrmPop::mubody, "mubodywho", "Who pays for shipping?", Region::WhoPaysTerms},
}};

} // namespace

FrmPop::FrmPop()
{
    for (const Entry& entry : Entries) {
        QAction* action = (this->*entry.menu).addAction(QString::fromLatin1(entry.caption));
        action->setObjectName(QString::fromLatin1(entry.name));
        on(action, &QAction::triggered, this, [entry] {
            if (ListingEditor* editor = loadedEditor())
                editor->selectPart(entry.region);
        });
    }
    muDesc = mucell.actions().constFirst();
}

} // namespace brindlemark
