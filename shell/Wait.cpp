#include "shell/Wait.h"

#include "services/Desktop.h"

#include <QLabel>
#include <QVBoxLayout>

Wait::Wait()
{
    setWindowTitle(QStringLiteral("loading..."));
    setWindowFlags(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    setAttribute(Qt::WA_ShowWithoutActivating); // the source box keeps the keyboard

    auto* message = new QLabel(QStringLiteral("Please wait. . ."), this);
    message->setFont(QFont(QStringLiteral("Comic Sans MS"), 12));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 20, 32, 20);
    layout->addWidget(message);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    StayOnTop(this);
}
