// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmKeys.h"

#include "platform/Events.h"
#include "shell/Keys.h"

#include <QHeaderView>
#include <QKeySequence>
#include <QTreeWidgetItem>
#include <limits>

namespace brindlemark {

namespace {

/// As the desktop writes them: "Ctrl+Y or Ctrl+Shift+Z".
QString shown(const char* keys)
{
    QStringList names;
    for (const QKeySequence& sequence : QKeySequence::listFromString(QString::fromLatin1(keys)))
        names << sequence.toString(QKeySequence::NativeText);
    return names.join(QStringLiteral(" or "));
}

} // namespace

FrmKeys::FrmKeys()
{
    setupUi(this);
    QTreeWidgetItem* group = nullptr;
    for (const MainKey& key : mainKeys()) {
        const QString name = QString::fromLatin1(key.group);
        if (!group || group->text(0) != name) {
            group = new QTreeWidgetItem(List, {name});
            group->setFirstColumnSpanned(true);
            QFont bold = List->font();
            bold.setBold(true);
            group->setFont(0, bold);
        }
        new QTreeWidgetItem(group, {QString::fromLatin1(key.what), shown(key.keys)});
    }
    List->expandAll();
    List->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    List->header()->setStretchLastSection(false);
    List->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    constexpr int Beside = 60;            // the indentation, a bar
    const QAbstractItemView* list = List; // there the width is public
    List->setMinimumSize(list->sizeHintForColumn(0) + list->sizeHintForColumn(1) + Beside,
                         fontMetrics().lineSpacing() * 16);
    Wanted->setMaxLength(std::numeric_limits<int>::max());
    on(Wanted, &QLineEdit::textChanged, this, &FrmKeys::Wanted_TextChanged);
    on(CloseWindow, &QPushButton::clicked, this, &FrmKeys::Unload);
    setCancelButton(CloseWindow);
    Wanted->setFocus();
}

void FrmKeys::Wanted_TextChanged()
{
    const QString wanted = Wanted->text().trimmed();
    for (int i = 0; i < List->topLevelItemCount(); ++i) {
        QTreeWidgetItem* group = List->topLevelItem(i);
        bool isAnyLeft = false;
        for (int j = 0; j < group->childCount(); ++j) {
            QTreeWidgetItem* key = group->child(j);
            const bool stays = key->text(0).contains(wanted, Qt::CaseInsensitive) ||
                               key->text(1).contains(wanted, Qt::CaseInsensitive);
            key->setHidden(!stays);
            isAnyLeft = isAnyLeft || stays;
        }
        group->setHidden(!isAnyLeft);
    }
}

} // namespace brindlemark
