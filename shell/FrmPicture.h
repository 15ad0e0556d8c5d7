// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "services/PictureFile.h"
#include "shell/ui_FrmPicture.h"

#include <QPointer>

class QLineEdit;

namespace brindlemark {

/// The window Picture From This Computer: shows a picture file with its size and weight, makes a copy of it
/// that is fit for the web, and puts its address into a field of another window.
class FrmPicture : public Form, public Ui::FrmPicture
{
    Q_OBJECT

public:
    FrmPicture();

    /// Asks for a picture whose address is to go into a field, and shows it. Nothing is shown when the user
    /// cancels.
    static void chooseFor(QLineEdit* field);
    /// Shows a picture whose address may go into a field.
    static void offer(const PictureFile& picture, QLineEdit* field);

signals:
    /// The picture's address has been put into the field.
    void taken(QLineEdit* field);

private:
    void Another_Click();
    void Smaller_Click();
    void Use_Click();

    void show(const PictureFile& picture, const QString& first);

    QPointer<QLineEdit> m_field;
    PictureFile m_picture;
};

} // namespace brindlemark
