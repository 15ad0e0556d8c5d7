// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

class QLabel;
class QLineEdit;

namespace brindlemark {

class DocumentSurface;

/// A bar over a surface's upper edge that looks for text in the page: what is typed is found at once, Enter
/// and Shift+Enter go on and back, Escape closes it.
class FindBar : public QFrame
{
    Q_OBJECT

public:
    /// A hidden bar for `surface`, whose parent it shares; Ctrl+F on the surface opens it.
    explicit FindBar(DocumentSurface* surface);

    /// Shows the bar with its text selected, ready to type.
    void open();
    /// Goes on or back with the text that was looked for last; opens the bar where there is none.
    void findAgain(bool backwards);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void dismiss();
    void enterPressed();
    void find(bool backwards);
    void findNext();
    void findPrevious();
    void place();

    DocumentSurface* m_surface;
    QLineEdit* m_text;
    QLabel* m_count;
    int m_current = 0; // which place was found last, from 1
};

} // namespace brindlemark
