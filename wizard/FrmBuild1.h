// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "wizard/Listing.h"
#include "wizard/ui_FrmBuild1.h"

#include <QStringList>

/// Page 1 of the listing wizard: five tabs that hold the record of one listing. Payments, regions and who
/// pays come back from web.ini; title, description and pictures begin anew. The page is only hidden while
/// page 2 is up, and saves when it is unloaded.
class FrmBuild1 : public Form, public Ui::FrmBuild1
{
    Q_OBJECT

public:
    /// Reads the settings. A missing key blanks its cost or tax field, and leaves the other controls as they
    /// are.
    FrmBuild1();

    /// The record as the page holds it now. Line ends of the description are CR LF.
    Listing listing() const;

    QStringList List1; ///< payment lines, in the order of the clicks
    QStringList List2; ///< region lines, in the order of the clicks
    QStringList List3; ///< picture addresses, since the last OK with pictures
    int Check1 = 0;    ///< 1 once OK has led to page 2

protected:
    bool queryUnload() override;

private:
    void connectHandlers();
    void restore();
    void save() const;
    void enableAddresses(bool on);
    void enableRegions(bool on);
    void enableTax(bool on);
    QString firstMissing() const;
    void collectAddresses();
    void OptP_Click();
    void OptLS_Click();
    void OptPS1_Click();
    void OptPS2_Click();
    void ChkZC_Click();
    void ChkTR1_Click();
    void ChkSlist_Click();
    void Command1_Click();
    void Command2_Click();
};
