// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/ScreenFonts.h"

#include "forms/ComboBox.h"
#include "platform/Events.h"

#include <QFontDatabase>
#include <QLabel>
#include <QListView>
#include <QPainter>
#include <QSet>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>

namespace brindlemark {

namespace {

/// Fonts that every buyer has.
constexpr std::array CommonFonts = {
    "Arial",  "Arial Black",     "Comic Sans MS", "Courier New", "Georgia",
    "Impact", "Times New Roman", "Trebuchet MS",  "Verdana",
};

/// The beginnings of fonts whose letters are symbols, though they may claim otherwise.
constexpr std::array SymbolFonts = {
    "D050000L", "Marlett", "Standard Symbols", "Symbol", "Webdings", "Wingdings",
};

/// Whether a font's name can be read in the font itself.
bool hasLetters(const QString& name)
{
    const bool symbols = std::any_of(SymbolFonts.begin(), SymbolFonts.end(), [&](const char* beginning) {
        return name.startsWith(QLatin1StringView(beginning));
    });
    return !symbols && QFontDatabase::writingSystems(name).contains(QFontDatabase::Latin);
}

/// The name that a page knows a family by.
QString bareName(const QString& family)
{
    const QString name = family.trimmed();
    const qsizetype foundry = name.endsWith(u']') ? name.lastIndexOf(QLatin1StringView(" [")) : -1;
    return foundry > 0 ? name.first(foundry).trimmed() : name;
}

/// The rows of a list of fonts: each name in its own face, and a line below the common fonts. A row's size is
/// that of the list's own font, so that only what is painted loads a font.
class FontRows : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        guardedCall([&] {
            QStyleOptionViewItem row(option);
            const QString name = index.data().toString();
            if (hasLetters(name)) {
                row.font.setFamily(name);
                row.fontMetrics = QFontMetrics(row.font);
            }
            QStyledItemDelegate::paint(painter, row, index);
            if (index.row() + 1 == int(CommonFonts.size()))
                drawLineBelow(*painter, option);
        });
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return guardedCall([&] {
            return QSize(QStyledItemDelegate::sizeHint(option, index).width(),
                         option.fontMetrics.height() * 5 / 4); // some faces are taller than others
        });
    }

private:
    static void drawLineBelow(QPainter& painter, const QStyleOptionViewItem& option)
    {
        QColor color = option.palette.color(QPalette::Text);
        color.setAlphaF(0.4F);
        painter.fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)), color);
    }
};

} // namespace

QStringList fontNames(const QStringList& families, qsizetype first)
{
    QStringList names;
    QSet<QString> known;
    const auto offer = [&](const QString& name) {
        const qsizetype before = known.size();
        known.insert(name.toCaseFolded());
        if (!name.isEmpty() && known.size() > before)
            names << name;
    };
    for (const char* name : CommonFonts)
        offer(QString::fromLatin1(name));
    for (const QString& family : families.mid(first))
        offer(bareName(family));
    return names;
}

void addScreenFonts(ComboBox& list, int first)
{
    for (const QString& name : fontNames(QFontDatabase::families(), first))
        list.AddItem(name);
    list.setItemDelegate(new FontRows(&list));
    if (auto* rows = qobject_cast<QListView*>(list.view()))
        rows->setUniformItemSizes(true);
}

void tellMissingFont(QLabel* notice, const QString& family)
{
    constexpr qsizetype LongestName = 40; // a longer one would widen the window beyond the screen
    const bool missing = !family.isEmpty() && !QFontDatabase::hasFamily(family);
    const QString name = family.size() > LongestName ? family.first(LongestName) + u'\u2026' : family;
    notice->setText(missing
                        ? QStringLiteral("The font \"%1\" is not on this computer: what you see here is an "
                                         "approximation.")
                              .arg(name)
                        : QString());
    notice->setVisible(missing);
}

} // namespace brindlemark
