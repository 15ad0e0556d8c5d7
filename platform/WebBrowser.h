#pragma once

#include "platform/RuntimeError.h"
#include "platform/WebPage.h"

#include <QList>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QDropEvent;
class QEventLoop;
class QKeyEvent;
class QMimeData;
class QMouseEvent;
class QWebEngineHistoryItem;
class QWebEngineLoadingInfo;
class QWebEngineView;

/// The document of a `WebBrowser` can't be read, because its renderer ended or doesn't answer. What was
/// edited in it is lost; `write` makes the surface anew.
class SurfaceLost : public RuntimeError
{
public:
    SurfaceLost();
};

/// Whether the document can be edited. On a design surface and in a sample no script of the page runs;
/// elsewhere they do.
enum class DesignMode { Off, On };

/// How often a text was found, and which of the places is selected, counted from 1; 0 when it wasn't found.
struct FindResult
{
    int matches = 0;
    int current = 0;
};

/// The rendering and editing control: shows, edits and prints HTML pages. Its operations are synchronous:
/// they return when they are done. While one waits for the engine, no input of the user is handled, and each
/// ends within a limit whatever the page does.
///
/// The engine's own view is made when the control is first shown or needed. When the control is deleted
/// while an operation waits, the operation throws SurfaceLost.
class WebBrowser : public QWidget
{
    Q_OBJECT

public:
    explicit WebBrowser(QWidget* parent = nullptr);
    ~WebBrowser() override;

    /// What pages it is for. Only before it was first shown or used; a document by default.
    void setKind(WebPage::Kind kind) { m_kind = kind; }

    /// Off at first. A change keeps the document. Throws SurfaceLost.
    void setDesignMode(DesignMode mode);
    DesignMode designMode() const { return m_designMode; }

    // ---- The document

    /// Replaces the whole document. False: the renderer ended, or a script of the page did not within the
    /// limit of 5 seconds and 5 more for each million characters; then there is no document. Also false while
    /// a message of the page stands before the user; then it stays.
    bool write(const QString& html);

    /// Replaces the whole document when the engine is ready for it, and returns at once. Of pages given
    /// faster than the engine takes them only the last is shown, so a sample follows the hand without holding
    /// it up. Operations that come later find the page there. When its renderer ends, the page is shown
    /// again.
    void writeSoon(const QString& html);

    /// The inner HTML of the root element, with the comments around it, as serialise.js prints it. Throws
    /// SurfaceLost when the page doesn't answer: an empty answer is always an empty document.
    QString innerHtml();

    /// Calls `heard` with what `innerHtml` would return if the user has edited the design surface since it
    /// was last written, `forgetEdits` was called or the last edit was heard of. Returns at once; the page
    /// goes on meanwhile as if nothing were asked. A page that can't answer is not heard of.
    void readEdits(const std::function<void(const QString& html)>& heard);
    /// Takes the document as unedited from here on.
    void forgetEdits();

    /// False: the renderer has ended and the caller has been told; there is no document until the next
    /// `write`.
    bool hasDocument() const { return !(m_lost && m_lossTold); }

    /// Runs an editing command on the selection: "Bold", "FontName", "Undo" ... in any case. "Cut", "Copy"
    /// and "Paste" use the program's clipboard. HTML that is pasted or dropped is cleaned (see clean.js). False: it could not be run, or nobody answered.
    bool execCommand(const QString& id, const QString& value = QString());

    /// The address of the link at the caret; empty when there is none.
    QString currentLink();
    /// Changes the link at the caret, or removes it when `address` is empty. Where there is none, makes the
    /// selection a link, or inserts one with the address as its text.
    bool setLink(const QString& address);

    /// Selects the next place of a text, or the one before, going round at the end. An empty text drops the
    /// marks of the last search.
    FindResult find(const QString& text, bool backwards = false, bool matchCase = false);

    /// Gives the surface the focus and lets it act on a key as if it were pressed: "^k" link, "^f" find.
    /// Throws RuntimeError(InvalidProcedureCall) for any other.
    void sendKeys(const QString& keys);

    // ---- Navigation

    /// Begins to load a page. What a person types for an address will do; on the internet, one without a
    /// scheme gets http. An empty text or "about:blank" gives the empty document. What is no address, or may
    /// not be shown, is told in the status text.
    void Navigate(const QString& address);
    /// False: there is no page before (or behind) this one.
    bool GoBack();
    bool GoForward();
    /// Stops loading. A page that hears nothing any more, because a script of it runs without end, is ended
    /// after two seconds.
    void Stop();
    void Refresh();

    /// Text size in five steps, 0 smallest to 4 largest; 2 at first. Beyond: the nearest.
    void setZoomLevel(int level);
    int zoomLevel() const { return m_zoomLevel; }

    // ---- For tests and measurements

    /// The result of a script in the control's own world; no value when nobody answered.
    std::optional<QVariant> evaluate(const QString& script);
    /// Whether a page that `writeSoon` was given is still on its way to the eye.
    bool isWriting() const { return m_next || m_writing; }
    /// How long an operation waits, in milliseconds, besides what the length of the text adds.
    void setPatience(int milliseconds) { m_patience = milliseconds; }
    /// The system's number of the process that renders the page; 0 when there is none.
    qint64 rendererPid() const;
    /// The widget that takes keys and mouse; null before the view was made.
    QWidget* inputWidget() const;

signals:
    /// The renderer ended by itself, or an operation other than `write` and `innerHtml` had to end it. There
    /// is no document until the next `write`. Never emitted while an operation runs.
    void rendererDied();
    /// Ctrl+K on a design surface.
    void linkRequested();
    /// Ctrl+F.
    void findRequested();
    /// What a status bar shows: the address under the mouse, the state of a load, a refusal.
    void statusTextChanged(const QString& text);
    /// `maximum` is below 1 when nothing is being loaded.
    void progressChanged(int progress, int maximum);
    /// A page that `Navigate` or the history brought is complete, or could not be loaded.
    void navigationFinished(bool ok);

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    /// What the view shows.
    enum class Content {
        Nothing,  // no document yet: reads as the empty one
        Document, // what was written
        Elsewhere // what was navigated to
    };

    /// Hands the engine something to do and, with it, what to call with the answer.
    using Question = std::function<void(std::function<void(const QVariant&)> answer)>;

    void makeView();
    void makeDocument();
    void showDocument();
    void reveal();
    void writeNext();
    bool scriptsRun() const;
    bool takesPage() const;
    bool isEditable() const;
    QString writeFunction(const QString& html);
    void showSampleAgain();
    bool writePage(const QString& html);
    bool openAndWrite(const QString& html);
    bool openBlankPage();
    bool startBlankPage();

    std::optional<QVariant> ask(const Question& question);
    std::optional<QVariant> call(const QString& function);
    bool succeeds(const QString& function);
    int limit() const;
    void wait(QEventLoop& loop, int milliseconds);

    void endRenderer();
    void rendererEnded();
    void tellLoss();

    void load(const QUrl& address, const std::function<void()>& begin);
    void loadingChanged(const QWebEngineLoadingInfo& info);
    bool step(const QList<QWebEngineHistoryItem>& nearestFirst);
    void applyZoom();
    void endIfDeaf();
    QUrl addressOf(const QString& text) const;

    bool copySelection();
    bool paste();
    bool insert(const QString& text, const QString& html, std::optional<QPoint> place = std::nullopt);
    void insertSoon(const QMimeData& dropped, QPoint place);
    bool takesKey(const QKeyEvent& key) const;
    bool isLinkKey(const QKeyEvent& key) const;
    bool isLeavingKey(const QKeyEvent& key) const;
    bool actOnKey(const QKeyEvent& key);
    bool actOnMouse(const QMouseEvent& mouse, QPoint place);
    bool takesDrop(const QDropEvent& event) const;
    bool actOnDrop(QDropEvent& event, QPoint place);
    bool takesLetters() const;
    void wakeCaret();
    void renewCaret();
    void sendHeldKeys();
    void passOnReturnedKeys();
    void tellStatus(const QString& text);
    void linkHovered(const QString& address);

    WebPage::Kind m_kind = WebPage::Kind::Document;
    DesignMode m_designMode = DesignMode::Off;
    Content m_content = Content::Nothing;
    QWebEngineView* m_view = nullptr;
    WebPage* m_page = nullptr;
    QTimer m_documentTimer;
    QTimer m_writeTimer;
    QTimer m_revealTimer;
    QTimer m_lossTimer;
    QTimer m_caretTimer;
    QTimer m_returnTimer;
    bool m_deaf = false; // letters typed now would be lost: the caret is yet to be set
    int m_caretTries = 0;
    std::vector<std::unique_ptr<QKeyEvent>> m_heldKeys;     // typed meanwhile
    std::vector<std::unique_ptr<QKeyEvent>> m_returnedKeys; // to be passed on to the window
    QString m_status;                                       // ... but for the link under the mouse
    bool m_overLink = false;
    bool m_lost = false;                      // the renderer has ended, and nothing was written since
    bool m_lossTold = false;                  // ... and the caller knows it
    bool m_gaveUp = false;                    // the last question was not answered within the limit
    DesignMode m_openedFor = DesignMode::Off; // of the empty page that was opened last
    std::optional<QString> m_next;            // what `writeSoon` has yet to show
    bool m_writing = false;                   // ... and the engine has not yet taken
    std::optional<QString> m_sample;          // what `writeSoon` was given last, until the next `write`
    int m_sampleTries = 0;                    // ... and how often it may still be shown again
    bool m_inWritePage = false;
    int m_zoomLevel = 2;
    int m_patience = 5000;
    qsizetype m_length = 0; // of the text last written or read, in characters
};
