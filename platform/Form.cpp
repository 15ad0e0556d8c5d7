#include "platform/Form.h"

#include "platform/Events.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

Form::Form(QWidget* parent) : QWidget(parent, Qt::Window) {}

void Form::Show()
{
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

void Form::Hide()
{
    hide();
}

void Form::Unload()
{
    // The question of `queryUnload` runs an event loop, in which the user can press the close button again.
    if (m_unloaded || m_asking)
        return;
    {
        const QScopedValueRollback<bool> asking(m_asking, true);
        if (!queryUnload())
            return;
    }
    m_unloaded = true;
    hide();
    whenHandlersReturn([form = QPointer<Form>(this)] {
        if (form)
            form->deleteLater();
    });
}

bool Form::queryUnload()
{
    return true;
}

void Form::closeEvent(QCloseEvent* event)
{
    event->ignore(); // the close button asks the same way as the program does
    guarded([this] { Unload(); });
}
