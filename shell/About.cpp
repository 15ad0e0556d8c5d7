// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/About.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "web/WebEngine.h"

#include <QDialogButtonBox>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace brindlemark {

About::About()
{
    setWindowTitle(QStringLiteral("About ") + ProgramName);
    setWindowFlag(Qt::WindowMinMaxButtonsHint, false);

    auto* icon = new QLabel(this);
    // One icon for all instances of the window: the toolkit never forgets the names of an icon's pictures, so
    // new icons would cost ever more memory. It is not deleted, as the library that draws it may be unloaded
    // first.
    static const auto* picture = new QIcon(QStringLiteral(":/brindlemark.svg"));
    icon->setPixmap(picture->pixmap(64, 64));
    auto* name = new QLabel(ProgramName, this);
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    name->setFont(large);
    auto* purpose =
        new QLabel(QStringLiteral("Composes the HTML page of an online auction listing.\n"
                                  "Free software under the GNU General Public License, version 3 or later."),
                   this);
    auto* versions = new QLabel(engineVersions(), this); // what a report wants to know
    versions->setAlignment(Qt::AlignCenter);
    versions->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->button(QDialogButtonBox::Close)->setIcon(QIcon()); // no button with words has one

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 24, 28, 20);
    layout->setSpacing(12);
    for (QWidget* line : std::initializer_list<QWidget*>{icon, name, purpose, versions})
        layout->addWidget(line, 0, Qt::AlignHCenter);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    on(buttons, &QDialogButtonBox::rejected, this, &About::Unload);
    setEscape([this] { Unload(); });
}

} // namespace brindlemark
