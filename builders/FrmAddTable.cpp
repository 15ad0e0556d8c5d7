// SPDX-License-Identifier: GPL-3.0-or-later

#include "builders/FrmAddTable.h"

#include "builders/TableHtml.h"
#include "colour/ColorRow.h"
#include "forms/LeadTo.h"
#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"

#include <limits>
#include <optional>
#include <utility>

namespace brindlemark {

namespace {

/// More cells than a page can show, or the source box can hold in good time.
constexpr qint64 MostCells = 1'000'000;

/// The whole number in a box, 0 to 32767; no value when it holds none.
std::optional<int> wholeNumber(const QLineEdit* box)
{
    bool isNumber = false;
    const int number = box->text().toInt(&isNumber);
    if (isNumber && number >= 0 && number <= std::numeric_limits<qint16>::max())
        return number;
    return std::nullopt;
}

/// Tells the user that there is no whole number in a box, and puts them there.
void refuse(QLineEdit* box)
{
    showMessage(Messages::NoWholeNumber);
    leadTo(box);
}

} // namespace

FrmAddTable::FrmAddTable()
{
    setupUi(this);
    setDefaultButton(Command1);
    setCancelButton(Command2);
    for (const auto& [row, text] : {std::pair(new ColorRow(RedA, GreenA, BlueA, BColor1), &borderColor),
                                    std::pair(new ColorRow(RedH, GreenH, BlueH, TbColor1), &tableColor)}) {
        row->keepText(text);
        row->RowHexRefresh();
    }
    HScroll1->writeInto(Combo2);
    HScroll2->writeInto(Combo3);
    HScroll3->writeInto(Combo4);
    on(Grid, &SizeGrid::picked, this, &FrmAddTable::Frame1_picked);
    on(Command1, &QPushButton::clicked, this, &FrmAddTable::Command1_Click);
    on(Command2, &QPushButton::clicked, this, &FrmAddTable::Unload);
}

void FrmAddTable::CleanUp()
{
    Grid->CleanUp();
}

void FrmAddTable::Frame1_picked(int rows, int columns)
{
    txtRows->setText(QString::number(rows));
    txtColls->setText(QString::number(columns));
}

QString FrmAddTable::align() const
{
    if (Option1->Value())
        return QStringLiteral("left");
    return Option2->Value() ? QStringLiteral("center") : QStringLiteral("right");
}

void FrmAddTable::Command1_Click()
{
    const std::optional<int> rows = wholeNumber(txtRows);
    const std::optional<int> columns = wholeNumber(txtColls);
    if (!rows || !columns) {
        refuse(rows ? txtColls : txtRows);
        return;
    }
    if (qint64(*rows) * qMax(1, *columns) > MostCells) {
        showMessage(Messages::TableTooLarge, QString::number(MostCells));
        txtRows->setFocus();
        return;
    }
    tellingWantOfMemory([&] {
        const WaitCursor wait;
        addToEditor(skeletonText({.align = align(),
                                  .border = Combo2->text(),
                                  .cellPadding = Combo3->text(),
                                  .cellSpacing = Combo4->text(),
                                  .borderColor = borderColor,
                                  .background = tableColor,
                                  .rows = *rows,
                                  .columns = *columns}),
                    QStringLiteral("Table"));
        Unload();
    });
}

} // namespace brindlemark
