// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>

namespace brindlemark {

/// A check box with two signals: one for a changed value, one for the hand that lets go of it.
class CheckBox : public QCheckBox
{
    Q_OBJECT
    Q_PROPERTY(bool graphical READ isGraphical WRITE setGraphical)

public:
    /// Makes a box that is not checked.
    explicit CheckBox(QWidget* parent = nullptr);

    /// 1 while the box is checked, otherwise 0.
    int Value() const { return isChecked() ? 1 : 0; }
    /// Checks the box with 1, unchecks it with 0. Raises InvalidPropertyValue for any other number.
    void setValue(int value);

    /// Whether the box looks like a push button that stays pressed in; its picture is its icon.
    bool isGraphical() const { return m_graphical; }
    void setGraphical(bool graphical);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The value has changed, by hand or by code.
    void Click();
    /// The hand has let go of the box: the left button over it, the space bar, or its access key. Comes
    /// behind `Click`, and never from code.
    void MouseUp();

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool m_graphical = false;
};

} // namespace brindlemark
