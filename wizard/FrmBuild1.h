// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "wizard/Listing.h"
#include "wizard/Unfinished.h"
#include "wizard/ui_FrmBuild1.h"

#include <QStringList>
#include <optional>

namespace brindlemark {

/// Page 1 of the listing wizard: five tabs that hold the record of one listing. Payments, regions and who
/// pays come back from web.ini; title, description and pictures begin anew. The page is only hidden while
/// page 2 is shown, and writes the settings when it is unloaded.
class FrmBuild1 : public Form, public Ui::FrmBuild1
{
    Q_OBJECT

public:
    /// Reads the settings. A missing key blanks its cost or tax field, and leaves the other controls as they
    /// are.
    FrmBuild1();

    /// The record as it is filled in so far. Line ends of the description are CR LF.
    Listing listing() const;

    /// Fills in what an ended program has kept of a listing, and shows page 2 if that was up.
    void takeUnfinished(const QByteArray& kept);

    QStringList payments;      ///< lines of the payment list, in the order of the clicks
    QStringList regions;       ///< lines of the region list, in the order of the clicks
    QStringList pictures;      ///< addresses, as they were at the last OK with the option Pictures
    bool reachedPage2 = false; ///< OK has led to page 2

protected:
    bool queryUnload() override;

private:
    void connectHandlers();
    void restore();
    void save() const;
    void enableAddresses(bool on);
    void enableRegions(bool on);
    void enableTax(bool on);
    struct Missing;
    std::optional<Missing> firstMissing() const;
    void collectAddresses();
    QByteArray state() const;
    void keepUnfinished();
    void CmdLines_Click();
    void OptP_Click();
    void OptLS_Click();
    void OptPS1_Click();
    void OptPS2_Click();
    void ChkZC_Click();
    void ChkTR1_Click();
    void ChkSlist_Click();
    void Command1_Click();
    void Command2_Click();

    Unfinished m_unfinished{Unfinished::Kind::Listing, this, [this] { keepUnfinished(); }};
};

} // namespace brindlemark
