// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <functional>

class QAbstractButton;
class QPushButton;

namespace brindlemark {

/// A window of the program. Each form has one instance, made when first asked for (`form<FrmHR>()`) and
/// forgotten when unloaded. The constructor is the load step: what it throws leaves no instance behind.
class Form : public QWidget
{
    Q_OBJECT

public:
    explicit Form(QWidget* parent = nullptr);

    /// Shows the window in front of the others and gives it the keyboard, unless it is shown without being
    /// activated; the first time over the middle of the window that is in front.
    void Show();
    /// From here on all other forms stay over this one, on desktops where no window can raise itself.
    void standBelow();
    /// Hides the window; its state stays. Under Wayland the window that was shown in its place has the
    /// keyboard first, or 200 ms have passed.
    void Hide();
    /// Closes the form unless `queryUnload` refuses. The window goes as by `Hide` and the instance is
    /// forgotten at once; the object itself lives until all running handlers have returned.
    void Unload();

    /// True from `Unload` on: a handler that unloaded its own form asks before it goes on.
    bool isUnloaded() const { return m_unloaded; }

protected:
    /// The button that Enter presses wherever the control in hand has no use for the key and is no button
    /// itself.
    void setDefaultButton(QPushButton* button);
    /// What the window's own close button does.
    enum class CloseButton {
        Unloads,
        Cancels, ///< presses the cancel button, which may ask first
    };
    /// What Escape does wherever the keyboard is. An open list, menu or completer takes the key first.
    void setEscape(std::function<void()> act);
    /// The button that Escape presses, and the window's own close button if wanted.
    void setCancelButton(QPushButton* button, CloseButton closeButton = CloseButton::Unloads);

    /// Places the window itself, in pixels of the screen, instead of over the middle of the one in front.
    void placeAt(QPoint corner);
    /// Keeps the window over the main one on every desktop, for a window that is watched while the user works
    /// there.
    void stayOverMain();
    /// Takes height from `sample`, down to `least` pixels, where a large font makes the window higher than
    /// the screen.
    void giveWay(QWidget* sample, int least);

    /// Asked before the form goes, whatever closes it; false keeps it. The default is true.
    [[nodiscard]] virtual bool queryUnload();

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void leave();
    void go();
    static void letLeavingFormGo();
    void placeOverFrontWindow();
    void standOverMain();
    void activateAgain();
    QAbstractButton* enterButton() const;

    QPushButton* m_default = nullptr;
    QPushButton* m_closesBy = nullptr; // what the close button presses in place of `Unload`
    QTimer m_activation;
    bool m_askedAgain = false;
    bool m_placed = false;
    bool m_staysOverMain = false;
    bool m_unloaded = false;
    bool m_asking = false;
};

/// Sets what F1 does in every form, wherever its keyboard is; at first it does nothing. `show` gets the form
/// that wants help.
void showHelpBy(std::function<void(const Form& form)> show);

namespace detail {

template <typename F>
QPointer<F>& instance()
{
    static QPointer<F> only;
    return only;
}

} // namespace detail

/// The form's one instance, shown or hidden; null when there is none. For what must not make a window.
template <typename F>
F* loaded()
{
    F* only = detail::instance<F>();
    return only && !only->isUnloaded() ? only : nullptr;
}

/// True while the form has an instance, shown or hidden.
template <typename F>
bool isLoaded()
{
    return loaded<F>() != nullptr;
}

/// The form's one instance; loads it when there is none. Throws what its load step throws.
template <typename F>
F* form()
{
    if (!isLoaded<F>())
        detail::instance<F>() = new F;
    return detail::instance<F>();
}

/// The form's one instance, for a caller that listens to it: `listen` runs for an instance that isn't
/// `heard` yet.
template <typename F, typename Listen>
F* heardForm(QPointer<F>& heard, Listen listen)
{
    if (heard != form<F>()) {
        heard = form<F>();
        listen(heard.data());
    }
    return heard;
}

} // namespace brindlemark
