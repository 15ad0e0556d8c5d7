// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <concepts>
#include <exception>
#include <functional>
#include <type_traits>
#include <utility>

namespace brindlemark {

/// Ends the program after an error that nobody trapped: first keeps what must not be lost (see
/// `keepOnFatal`), then shows one message box with the error and ends with exit code 1.
void fatal(const std::exception& error);

/// Sets what a fatal error keeps before it ends the program. `keep` returns a sentence for the message box
/// that says where the copy lies, or an empty string when there was nothing to keep. It must not throw.
void keepOnFatal(std::function<QString()> keep);

/// What `fatal` runs, behind the error's box, when the error comes from a setting: it gets the file's path.
void mendSettingsOnFatal(std::function<void(const QString& file)> mend);

/// Runs `action` once the outermost handler has returned; at once when none is running. What a handler has
/// put out of use lives until then, also where a handler further out still waits in an event loop of its own.
void whenHandlersReturn(std::function<void()> action);

/// True while a handler runs, also while it waits in an event loop of its own.
bool handlersRun();

/// Runs what the toolkit calls of ours but is no handler: the body of an override, a timer's or the engine's
/// answer. Returns what it returns, or a value of its own kind when it threw. The only place that catches
/// what leaves our code: an exception must not travel through the toolkit's own frames.
template <typename Body>
std::invoke_result_t<Body&> guardedCall(Body&& body)
{
    try {
        return body();
    } catch (const std::exception& error) {
        fatal(error);
    }
    return std::invoke_result_t<Body&>();
}

/// A handler runs as long as one of these lives. The end of the last one does what `whenHandlersReturn` was
/// given.
class HandlerRun
{
public:
    HandlerRun();
    ~HandlerRun();
    Q_DISABLE_COPY_MOVE(HandlerRun)
};

/// Runs a handler's body.
template <typename Body>
void guarded(Body&& body)
{
    const HandlerRun running;
    guardedCall(body);
}

/// Connects a handler to an event: `on(Command6, &QPushButton::clicked, this, &FrmHR::Command6_Click)`.
/// The handler may take fewer arguments than the signal gives.
template <typename Sender, typename Signal, typename Receiver, typename Owner, typename... Args>
QMetaObject::Connection on(Sender* sender, Signal signal, Receiver* receiver, void (Owner::*handler)(Args...))
{
    return QObject::connect(sender, signal, receiver, [receiver, handler](Args... args) {
        guarded([&] { (receiver->*handler)(args...); });
    });
}

/// The same for a callable, run in `context`'s lifetime.
template <typename Sender, typename Signal, typename Handler>
QMetaObject::Connection on(Sender* sender, Signal signal, QObject* context,
                           Handler handler) requires std::is_invocable_v<Handler>
{
    return QObject::connect(sender, signal, context, [handler] { guarded([&] { handler(); }); });
}

/// Connects what a control does by itself, which is no handler: nobody waits for its return.
template <typename Sender, typename Signal, typename Receiver, typename Owner, typename... Args>
QMetaObject::Connection onInner(Sender* sender, Signal signal, Receiver* receiver,
                                void (Owner::*slot)(Args...))
{
    return QObject::connect(sender, signal, receiver, [receiver, slot](Args... args) {
        guardedCall([&] { (receiver->*slot)(std::forward<Args>(args)...); });
    });
}

/// A callable that may take fewer arguments than the signal gives.
template <typename Slot>
struct GuardedSlot
{
    Slot slot;

    template <typename... Args>
    void operator()(Args&&... args) const requires std::invocable<const Slot&, Args...>
    {
        guardedCall([&] { slot(std::forward<Args>(args)...); });
    }
};

/// The same for a callable, run in `context`'s lifetime.
template <typename Sender, typename Signal, typename Slot>
QMetaObject::Connection onInner(Sender* sender, Signal signal, QObject* context, Slot slot)
{
    return QObject::connect(sender, signal, context, GuardedSlot<Slot>{std::move(slot)});
}

/// Runs `body` from the queue of events, if `context` still lives then.
template <typename Body>
void soon(QObject* context, Body body)
{
    auto* timer = new QTimer(context); // goes with it, or when it has run
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, timer, &QObject::deleteLater);
    onInner(timer, &QTimer::timeout, timer, std::move(body));
    timer->start(0);
}

} // namespace brindlemark
