// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/WrittenPage.h"

namespace brindlemark {

/// A page that follows the hand: it shows what a tool makes, as it is being made. No script in it runs.
class Sample : public WrittenPage
{
    Q_OBJECT

public:
    explicit Sample(QWidget* parent = nullptr);
    ~Sample() override;

    /// Off at first. With design mode the user may type into it; the next page takes that away.
    void setDesignMode(DesignMode mode);

    /// Replaces the whole page when the engine is ready for it, and returns at once. Of pages given faster
    /// than the engine takes them only the last is shown, so a sample follows the hand without holding it up.
    /// When its renderer ends, the page is shown again.
    void writeSoon(const QString& html);

protected:
    void showDocument() override;
    void rendererEnded() override;
    /// The page that was given last is in the view.
    virtual void pageShown() {}
    bool actOnKey(const QKeyEvent& key) override;
    bool actOnMouse(const QMouseEvent& mouse, QPoint place) override;

private:
    friend class WebProbe; // tests wait until a page is shown

    /// Who has the page that was given last.
    enum class Writing {
        Nobody,  ///< it is shown, or waits for its turn
        Control, ///< the control, which waits for an empty page to put it into
        Engine,  ///< the engine, which has not yet said that it is shown
    };

    void writeNext();
    void pageIsThere(bool taken);
    void showAgain();
    void writeAndWait(const QString& html);

    QString m_sample;              // what was given last
    std::optional<QString> m_next; // the same, as long as it waits to be shown
    int m_tries = 0;               // how often it may still be shown again
    Writing m_writing = Writing::Nobody;
    QTimer m_writeTimer;
};

} // namespace brindlemark
