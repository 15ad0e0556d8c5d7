// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "web/WrittenPage.h"

class QMimeData;
class QPageLayout;

namespace brindlemark {

/// How often a text was found, and which of the places is selected, counted from 1; 0 when it wasn't found.
struct FindResult
{
    int matches = 0;
    int current = 0;
};

/// What comes of HTML that is pasted or dropped.
enum class PasteWay {
    Clean,     ///< its structure where its looks are litter (structure.js) and no surface's, else as it is
    WithLooks, ///< all that is safe
    AsText,    ///< its text
};

/// The letters of a page, as a reader sees them: U+2029 where a line ends.
struct SurfaceLetters
{
    QString text;
    qsizetype ahead = 0; ///< of the caret or of the selection's end: how many stand in front of it
};

/// A place in the text of a page, which its source has too: blanks, of which they have more or less, don't
/// count.
struct LetterPlace
{
    qsizetype letters = 0; ///< in front of it, in UTF-16 units
    bool isBehind = false; ///< right behind the last of them; else where the next one is

    bool operator==(const LetterPlace&) const = default;
};

/// What undo and redo would do: by the command, in lower case, "typing", "paste", "letters", "link", the
/// engine's name for a kind of input, or "edit" where that isn't known; empty where there is nothing.
struct SurfaceSteps
{
    bool canUndo = false;
    QString undo;
    bool canRedo = false;
    QString redo;
};

/// What a menu over a design surface is wanted for.
struct SurfaceMenu
{
    QPoint place;            ///< on the screen
    QString misspelt;        ///< the word there that the engine finds misspelt; empty where there is none
    QStringList suggestions; ///< for that
    SurfaceSteps steps;
};

/// The surface of a document: it is written, edited by hand and by commands, and read back. Its operations
/// are synchronous: they return when they are done.
class DocumentSurface : public WrittenPage
{
    Q_OBJECT

public:
    explicit DocumentSurface(QWidget* parent = nullptr);
    ~DocumentSurface() override;

    /// Off at first. A change keeps the document. Throws SurfaceLost.
    void setDesignMode(DesignMode mode);

    /// Starts the engine, unless it runs, so that the first page comes sooner. Takes some 50 ms.
    void warmUp();

    // ---- The document

    /// Replaces the whole document. False: the renderer ended, or a script of the page did not within the
    /// limit of 5 seconds and 5 more for each million characters; then there is no document. Also false while
    /// a message of the page stands before the user; then it stays.
    [[nodiscard]] bool write(const QString& html);

    /// The inner HTML of the root element, with the comments around it, as serialise.js prints it. Throws
    /// SurfaceLost when the page doesn't answer: an empty answer is always an empty document.
    QString innerHtml();

    /// Calls `heard` with what `innerHtml` would return if the user has edited the design surface since it
    /// was last written, `forgetEdits` was called or the last edit was heard of. Returns at once; the page
    /// goes on meanwhile as if nothing were asked. When the page can't answer, `heard` is not called.
    void readEdits(const std::function<void(const QString& html)>& heard);
    /// Takes the document as unedited from here on.
    void forgetEdits();
    /// Has the operation of which `waitsLong` tells give up: the renderer is ended, and what was edited since
    /// the last reading is lost.
    void stopWaiting() { stopAsking(); }

    /// False: the renderer has ended and the caller has been told; there is no document until the next
    /// `write`.
    bool hasDocument() const { return renderer() != Renderer::Missed; }

    /// Shows a page that a file or an address holds, in the document's place, as soon as it comes: one that
    /// can't be reached, is a download or is refused leaves the document as it is. What a person types for
    /// an address will do; an empty text or "about:blank" gives the empty document. What is no address is
    /// told in the status text. `write` and a change of design mode give the address up.
    void Navigate(const QString& address);

    // ---- On paper

    /// What is up, as a PDF on such paper: the page with its backgrounds, without caret, selection and the
    /// marks of the spelling. Throws SurfaceLost when the page doesn't answer, RuntimeError(PathFileAccess)
    /// when it can't be laid out so.
    QByteArray pdf(const QPageLayout& paper);

    /// Text size in five steps, 0 smallest to 4 largest; 2 at first. Beyond: the nearest.
    using WrittenPage::setZoom;
    using WrittenPage::setZoomLevel;
    using WrittenPage::zoomLevel;

    // ---- Editing

    /// Runs an editing command on the selection: "Bold", "FontName", "Undo" ... in any case. "Cut", "Copy"
    /// and "Paste" use the program's clipboard. HTML that is pasted or dropped is cleaned (see clean.js).
    /// False: it could not be run, or nobody answered.
    [[nodiscard]] bool execCommand(const QString& id, const QString& value = QString());

    /// Inserts the clipboard's content at the caret, one step of undo. False: there is none, or nobody
    /// answered.
    [[nodiscard]] bool paste(PasteWay way);
    /// Puts a word in place of the misspelt one for which the last menu was wanted.
    void replaceMisspelt(const QString& word);
    /// What is selected, as text.
    QString selectedText();
    /// Changes the letters of the selection and leaves its formats and the selection, one step of undo.
    /// `change` is given them with U+2060, which parts no word, where a format begins or ends, and must leave
    /// it there. False: nothing is selected, or nobody answered.
    [[nodiscard]] bool changeSelection(const std::function<QString(const QString&)>& change);
    /// What a reader sees, and where the caret is.
    SurfaceLetters letters();
    /// Selects letters by their places in what `letters` told last, and brings them into view. False: nobody
    /// answered.
    [[nodiscard]] bool selectLetters(qsizetype start, qsizetype end);
    /// Where the caret is, or the selection begins; the page's beginning when nobody answers.
    LetterPlace caret();
    /// Puts the caret there and brings it into view, as soon as the page is laid out. Returns at once.
    void setCaretSoon(const LetterPlace& place);
    /// What undo and redo would do; nothing when nobody answers.
    SurfaceSteps steps();
    /// Calls `heard` with what `steps` would return. Returns at once. When the page can't answer, `heard` is
    /// not called.
    void readSteps(const std::function<void(const SurfaceSteps& steps)>& heard);
    /// The HTML that a paste of `clip` would insert; empty where it would insert the text.
    QString cleaned(const QMimeData& clip);
    QString cleaned(const QString& text, const QString& html, PasteWay way = PasteWay::Clean);

    /// The address of the link at the caret; empty when there is none.
    QString currentLink();
    /// Changes the link at the caret, or removes it when `address` is empty. Where there is none, makes the
    /// selection a link, or inserts one with the address as its text.
    [[nodiscard]] bool setLink(const QString& address);

    /// Selects the next place of a text, or the one before, going round at the end. An empty text drops the
    /// marks of the last search.
    [[nodiscard]] FindResult find(const QString& text, bool backwards = false, bool matchCase = false);

    /// Gives the surface the focus and lets it act on a key as if it were pressed: "^k" link, "^f" find.
    /// Throws RuntimeError(InvalidProcedureCall) for any other.
    void sendKeys(const QString& keys);

signals:
    /// Ctrl+K on a design surface.
    void linkRequested();
    /// Ctrl+F.
    void findRequested();
    /// A right click on a design surface, or its Menu key.
    void menuWanted(const SurfaceMenu& menu);
    /// An operation on a design surface begins to take long, 5 seconds, or has ended. No script runs there,
    /// so that it will end: where somebody listens, and can call `stopWaiting`, it goes on without a limit.
    /// Meanwhile input reaches nothing but what was marked by `InputGate::letThrough`. Who hears it must not
    /// ask a surface for anything.
    void waitsLong(bool waits);
    /// What `readEdits` would hand on, before a command that may take long: over many elements, or a long
    /// paste.
    void editsRead(const QString& html);

protected:
    bool offersMenu() const override { return true; }
    void menuAsked(const QWebEngineContextMenuRequest& request, QPoint place) override;
    void showDocument() override;
    void arrived() override;
    bool isPatient() const override;
    void waitsForLong(bool waits) override { emit waitsLong(waits); }
    bool takesKey(const QKeyEvent& key) const override;
    bool actOnKey(const QKeyEvent& key) override;
    bool actOnMouse(const QMouseEvent& mouse, QPoint place) override;
    bool actOnDrop(QDropEvent& event, QPoint place) override;

private:
    /// A page that is loaded beside the document, which is not given up before the page has come.
    struct Coming
    {
        WebPage* page = nullptr; // null: nowhere is gone to
        QUrl address;
        bool isThere = false;   // so that it is shown next
        bool isDone = false;    // complete
        bool isRefused = false; // and the user was told why
        bool isStopped = false; // nothing will come but, perhaps, the engine's word why
    };

    void fetch(const QUrl& address);
    void comingChanged(const QWebEngineLoadingInfo& info);
    void seeWhatCame();
    void takeComing();
    void comesNot();
    void tellFailure(const QUrl& address);
    void dropComing();
    Coming releaseComing();
    void makeDocument();
    [[nodiscard]] bool succeeds(const QString& function);
    void layOutForPaper();
    void readEditsAhead(qsizetype pasted = 0);
    [[nodiscard]] bool copySelection();
    [[nodiscard]] bool canClean();
    [[nodiscard]] bool insert(const QString& text, const QString& html, PasteWay way,
                              std::optional<QPoint> place = std::nullopt);
    void insertSoon(const QMimeData& dropped, QPoint place);
    bool takesDrop(const QDropEvent& event) const;
    bool isLinkKey(const QKeyEvent& key) const;

    Coming m_coming;
    QTimer m_comingTimer;
};

} // namespace brindlemark
