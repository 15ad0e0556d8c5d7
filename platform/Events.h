#pragma once

#include <QObject>
#include <QString>
#include <functional>

class RuntimeError;

/// Ends the program after an error that nobody trapped: first keeps what must not be lost (see
/// `keepOnFatal`), then shows one message box with the error and ends with exit code 1.
void fatal(const RuntimeError& error);

/// Sets what a fatal error keeps before it ends the program. `keep` returns a sentence for the message box
/// that says where the copy lies, or an empty string when there was nothing to keep. It must not throw.
void keepOnFatal(std::function<QString()> keep);

/// Runs `action` once the outermost handler has returned; at once when none is running. What a handler has
/// put out of use lives until then, also where a handler further out still waits in an event loop of its own.
void whenHandlersReturn(std::function<void()> action);

/// True while a handler runs, also while it waits in an event loop of its own.
bool handlersRun();

/// Runs a handler's body. The only place that catches what leaves a handler: an exception must not travel
/// through the toolkit's own frames.
void guarded(const std::function<void()>& body);

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
