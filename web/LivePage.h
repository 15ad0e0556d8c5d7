// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/Sample.h"

namespace brindlemark {

/// A page that follows its source while that is being written. Elements say where their tags begin in the
/// source, by the attribute `PlaceAttribute`: so a place of the source is found in the page, and the other
/// way round. No script of the page runs. Nothing here waits for the engine, and what it can't do now it
/// doesn't do.
class LivePage : public Sample
{
    Q_OBJECT

public:
    /// Its value is a place of the source, in whatever its owner counts.
    static constexpr char PlaceAttribute[] = "data-place";

    explicit LivePage(QWidget* parent = nullptr);
    ~LivePage() override;

    using Sample::setZoom;

    /// Whether the page has scroll bars, which take room from it; a phone's take none. It has them at first.
    void setScrollBars(bool on);

    /// Brings what stands at a place into view, unless it is, and marks it for a moment.
    void showPlace(qsizetype place);
    /// Brings what stands at a place to the view's upper edge.
    void bringToTop(qsizetype place);
    /// Calls `heard` with the place of the uppermost element that begins in view.
    void askTop(const std::function<void(qsizetype place)>& heard);

    /// How wide a page is in the view.
    struct Widths
    {
        bool complete = false; ///< all pictures are there
        int width = 0;         ///< of the page, in its pixels
        qsizetype widest = -1; ///< the place of what sticks out most; -1: nothing does
    };
    void askWidths(const std::function<void(const Widths& widths)>& heard);

signals:
    /// An element was clicked.
    void placeClicked(qsizetype place);
    /// The page was scrolled, by whomever.
    void scrolled();
    /// What was given last is in the view.
    void shown();

protected:
    void viewMade() override;
    void pageShown() override { emit shown(); }
    QString writeFunction(const QString& html) override;
    bool actOnMouse(const QMouseEvent& mouse, QPoint place) override;

private:
    void askPlace(const QString& function, const std::function<void(qsizetype place)>& heard);

    bool m_scrollBars = true;
};

} // namespace brindlemark
