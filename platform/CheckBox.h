#pragma once

#include <QCheckBox>

/// A check box that tells a changed value from the hand that changed it.
class CheckBox : public QCheckBox
{
    Q_OBJECT

public:
    /// An unchecked box.
    explicit CheckBox(QWidget* parent = nullptr);

    /// 1 while the box is checked, otherwise 0.
    int Value() const { return isChecked() ? 1 : 0; }
    /// Checks the box with 1, unchecks it with 0. Raises InvalidPropertyValue for any other number.
    void setValue(int value);

signals:
    /// The value has changed, by hand or by code.
    void Click();
    /// The hand has let go of the box: the left button over it, or the space bar. Comes behind `Click`, and
    /// never from code.
    void MouseUp();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
};
