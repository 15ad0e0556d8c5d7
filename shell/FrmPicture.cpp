// SPDX-License-Identifier: GPL-3.0-or-later

#include "shell/FrmPicture.h"

#include "platform/Doors.h"
#include "platform/Events.h"
#include "platform/RuntimeError.h"
#include "platform/WaitCursor.h"
#include "services/Messages.h"

#include <QFileInfo>
#include <QLineEdit>
#include <QLocale>

namespace brindlemark {

namespace {

constexpr QSize MostThumbnail(320, 240); // pixels

} // namespace

FrmPicture::FrmPicture()
{
    setupUi(this);
    Thumbnail->setMinimumSize(MostThumbnail);
    on(Another, &QPushButton::clicked, this, &FrmPicture::Another_Click);
    on(Smaller, &QPushButton::clicked, this, &FrmPicture::Smaller_Click);
    on(Use, &QPushButton::clicked, this, &FrmPicture::Use_Click);
    on(CloseWindow, &QPushButton::clicked, this, &FrmPicture::Unload);
    setDefaultButton(Use);
    setCancelButton(CloseWindow);
    Use->setFocus();
}

void FrmPicture::chooseFor(QLineEdit* field)
{
    CommonDialog dialog;
    dialog.DialogTitle = QStringLiteral("Picture From This Computer");
    dialog.Filter = QStringLiteral(
        "Pictures (*.jpg;*.jpeg;*.png;*.gif;*.webp;*.bmp)|*.jpg;*.jpeg;*.png;*.gif;*.webp;*.bmp|"
        "All files (*.*)|*.*");
    if (!dialog.ShowOpen() || dialog.FileName.isEmpty())
        return;
    if (const std::optional<PictureFile> picture = pictureFile(dialog.FileName)) {
        offer(*picture, field);
    } else {
        showMessage(Messages::NoPicture, dialog.FileTitle);
    }
}

void FrmPicture::offer(const PictureFile& picture, QLineEdit* field)
{
    auto* window = form<FrmPicture>();
    window->m_field = field;
    window->show(picture, QString());
    window->Show();
}

/// Shows a picture; the sentence about it begins with `first`.
void FrmPicture::show(const PictureFile& picture, const QString& first)
{
    const WaitCursor hourglass;
    m_picture = picture;
    Thumbnail->setPixmap(QPixmap::fromImage(thumbnail(picture.path, MostThumbnail)));
    const QLocale locale;
    const QString name = QFileInfo(picture.path).fileName();
    Thumbnail->setAccessibleName(name);
    Facts->setText(first + QStringLiteral("%1: %2 x %3 pixels, %4")
                               .arg(name, locale.toString(picture.size.width()),
                                    locale.toString(picture.size.height()),
                                    locale.formattedDataSize(picture.bytes)));
    Use->setEnabled(!m_field.isNull());
    Smaller->setEnabled(true);
}

void FrmPicture::Another_Click()
{
    chooseFor(m_field);
}

void FrmPicture::Smaller_Click()
{
    try {
        const WaitCursor hourglass;
        if (const std::optional<PictureFile> copy = pictureFile(copyForTheWeb(m_picture.path)))
            show(*copy, QStringLiteral("The copy, beside the picture: "));
        Smaller->setEnabled(false); // a copy of the copy would only be worse
        Use->setFocus();
    } catch (const RuntimeError& error) {
        showMessage(Messages::CannotWrite, error.description());
    }
}

void FrmPicture::Use_Click()
{
    if (QLineEdit* field = m_field) {
        field->setText(fileAddress(m_picture.path));
        emit taken(field);
    }
    Unload();
}

} // namespace brindlemark
