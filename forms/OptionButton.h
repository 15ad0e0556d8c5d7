// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRadioButton>

namespace brindlemark {

/// One of several options, of which at most one is set. A group is what shares a parent, or a QButtonGroup.
class OptionButton : public QRadioButton
{
    Q_OBJECT
    Q_PROPERTY(bool graphical READ isGraphical WRITE setGraphical)

public:
    /// Makes an option that isn't set.
    explicit OptionButton(QWidget* parent = nullptr);

    /// True while the option is set.
    bool Value() const { return isChecked(); }
    /// Sets the option, which clears the others of its group; or clears it, so that none may be set.
    void setValue(bool value);

    /// Whether the option looks like a push button that stays pressed in; its picture is its icon.
    bool isGraphical() const { return m_graphical; }
    void setGraphical(bool graphical);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// The option has become set, by hand or by code; the others are cleared by then. A click on an option
    /// that is set already changes nothing and raises nothing.
    void Click();
    /// The hand has let go of the option: the left button over it, the space bar, its access key, or an arrow
    /// key of its group. Comes behind `Click`, and never from code.
    void MouseUp();

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void clear();

    bool m_graphical = false;
};

} // namespace brindlemark
