// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/Wait.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace brindlemark {

namespace {

/// How wide a window has to be for its title, in pixels, with what a window manager puts beside it.
int titleWidth(const QString& title)
{
    constexpr int Symbols = 130;
    const QFontMetrics font(QFontDatabase::systemFont(QFontDatabase::TitleFont));
    return font.horizontalAdvance(title) + Symbols;
}

} // namespace

Wait::Wait() : m_progress(new QProgressBar(this))
{
    setWindowTitle(QStringLiteral("loading..."));
    setWindowFlags(Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint);
    setAttribute(Qt::WA_ShowWithoutActivating); // the source box keeps the keyboard

    auto* message = new QLabel(QStringLiteral("Please wait. . ."), this);
    message->setFont(QFont(QStringLiteral("Comic Sans MS"), 12));
    message->setMinimumWidth(titleWidth(windowTitle()));
    m_progress->setTextVisible(false);
    m_progress->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 20, 32, 20);
    layout->addWidget(message);
    layout->addWidget(m_progress);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void Wait::showProgress(std::optional<double> done)
{
    constexpr int Steps = 1000;
    m_progress->setRange(0, done ? Steps : 0); // an empty range is a bar that runs to and fro
    m_progress->setValue(qRound(done.value_or(0) * Steps));
    m_progress->show();
}

void Wait::hideProgress()
{
    m_progress->hide();
}

} // namespace brindlemark
