// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/WebControl.h"

#include <QPointer>

namespace brindlemark {

/// Whether a document can be edited. On a design surface and in a sample no script of the page runs;
/// elsewhere they do.
enum class DesignMode { Off, On };

/// A control into which the program writes its pages: it opens the empty page that takes them, and sees to it
/// that the caret takes letters where they can be edited.
class WrittenPage : public WebControl
{
    Q_OBJECT

public:
    DesignMode designMode() const { return m_designMode; }

protected:
    WrittenPage(WebPage::Kind kind, QWidget* parent);

    /// Sets the mode of the pages that are written from here on.
    void setPageDesign(DesignMode mode) { m_designMode = mode; }

    /// Replaces the whole document, and waits for it. False: the renderer ended, or did not answer within the
    /// limit; then there is no document. Also false while a message of the page stands before the user; then
    /// it stays.
    [[nodiscard]] bool writePage(const QString& html);
    /// The call that writes a document, in a page that takes it.
    virtual QString writeFunction(const QString& html);
    /// Whether the next document can be written into the page that is there. Scripts of the present document
    /// would live on in it, so where they run a new page is needed.
    bool takesPage() const;
    /// Whether the page's own scripts run in the present document.
    bool scriptsRun() const { return runsScripts(m_openedFor); }
    /// Whether a page's own scripts run in one of the control's modes.
    bool runsScripts(DesignMode mode) const;
    /// Whether there is a document that the user can edit.
    bool isEditable() const;
    /// Lays out what was written (see surface.js).
    void reveal();
    /// Lays out what was written, if that is still to come.
    void revealSoonest();
    /// Waits, for a while, until the page has all that was typed: what is asked of it next comes behind that.
    void waitForKeys();
    /// Waits, for a while, until the caret has been set anew (see `wakeCaret`): that drops what a command has
    /// set at it, such as bold for the next letters or the place of a search.
    void waitForCaret();
    /// Whether a key moves the focus in windows.
    static bool isTab(const QKeyEvent& key);
    /// Moves the focus on, or back with Shift.
    void leaveBy(const QKeyEvent& tab);
    /// Makes something to show and to type into where there is nothing, also after a renderer that ended
    /// while the control was hidden.
    virtual void showDocument() = 0;

    bool takesOver(const QKeyEvent& key) override;
    void focusCame() override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] bool openAndWrite(const QString& html);
    [[nodiscard]] bool openBlankPage();
    [[nodiscard]] bool startBlankPage();
    bool takesLetters() const;
    void wakeCaret();
    void renewCaret();
    void tellFocusAnew();
    void sendHeldKeys();

    DesignMode m_designMode = DesignMode::Off;
    DesignMode m_openedFor = DesignMode::Off; // of the empty page that was opened last
    QTimer m_documentTimer;
    QTimer m_revealTimer;
    QTimer m_caretTimer;
    int m_caretTries = 0;
    bool m_deaf = false;       // letters typed now would be lost: the caret is yet to be set
    bool m_caretIsOld = false; // not set anew since the page was written
    KeyQueue m_heldKeys;       // typed meanwhile
    bool m_typed = false;      // something that the page may not have yet
    QPointer<QEventLoop> m_keysAreThere;
};

} // namespace brindlemark
