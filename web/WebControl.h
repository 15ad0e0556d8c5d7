// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/RuntimeError.h"
#include "platform/WheelSteps.h"
#include "web/KeyQueue.h"
#include "web/RendererLife.h"
#include "web/WebPage.h"

#include <QPointer>
#include <QTimer>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <optional>

class QDropEvent;
class QEventLoop;
class QKeyEvent;
class QMouseEvent;
class QWebEngineContextMenuRequest;
class QWebEngineLoadingInfo;
class QWebEngineView;

namespace brindlemark {

/// The page of a control can't be read, because its renderer ended or doesn't answer. What was edited in it
/// is lost; writing it makes it anew.
class SurfaceLost : public RuntimeError
{
public:
    SurfaceLost();
};

/// What the controls that show pages have in common: the engine's view, the life of the renderer behind it,
/// and the one conversation with its page.
///
/// The conversation is synchronous: a question returns with the answer. While one waits for the engine, no
/// input of the user is handled, and each ends within a limit whatever the page does; then the renderer is
/// ended. The engine's own view is made when the control is first shown or needed. When the control is
/// deleted while a question waits, the question throws SurfaceLost.
class WebControl : public QWidget
{
    Q_OBJECT

public:
    ~WebControl() override;

    /// The widget that takes keys and mouse; null before the view was made.
    QWidget* inputWidget() const;

signals:
    /// The renderer ended by itself, or by an operation that has no way to say so. There is no page until the
    /// next one is written or loaded. Never emitted while a question waits.
    void rendererDied();
    /// What a status bar shows: the address under the mouse, the state of a load, a refusal.
    void statusTextChanged(const QString& text);
    /// A page that was loaded from an address is complete, or could not be loaded.
    void navigationFinished(bool ok);
    /// Ctrl and the wheel over a document: larger by so many steps, or smaller.
    void zoomWanted(int steps);

protected:
    using Renderer = RendererLife::State;

    /// What the view shows.
    enum class Content {
        Nothing, ///< no page yet
        Written, ///< what the program wrote
        Loaded   ///< what was loaded from an address
    };

    /// What came of a question to a page.
    struct Answer
    {
        std::optional<QVariant> value; ///< none: nobody answered
        bool gaveUp = false;           ///< for want of time, so that the renderer was ended

        bool isTrue() const { return value && value->toBool(); }
    };

    WebControl(WebPage::Kind kind, QWidget* parent);

    // ---- The view

    /// Makes the view where there is none yet.
    void makeView();
    /// Takes the view down. The destructor of each class of which controls are made calls it: the page's last
    /// signals and answers must still find a whole control.
    void endView();
    /// The view has just been made.
    virtual void viewMade() {}
    /// The page in the view; null before the view was made.
    WebPage* page() const { return m_page; }
    /// Shows a page that was loaded outside the view, in place of the one that is there.
    void takePage(WebPage* page);
    WebPage::Kind kind() const { return m_kind; }

    /// Whether a right click and the Menu key ask `menuAsked` for a menu; else the view has none.
    virtual bool offersMenu() const { return false; }
    /// Somebody wants a menu at a place of the screen.
    virtual void menuAsked(const QWebEngineContextMenuRequest&, QPoint) {}

    // ---- The renderer's life

    Renderer renderer() const { return m_life.state(); }
    bool isLost() const { return m_life.isLost(); }
    /// The system's number of the process that renders the page; 0 when there is none.
    qint64 rendererPid() const;
    /// The owner is about to learn of the loss by what an operation returns or throws.
    void lossIsTold() { m_life.advance(RendererLife::Event::Told); }
    /// Ends a renderer that answers to nothing; an endless script does not even hear a request to stop.
    void endRenderer();
    /// The renderer has ended.
    virtual void rendererEnded();

    // ---- The conversation

    /// Hands the engine something to do and, with it, what to call with the answer.
    using Question = std::function<void(std::function<void(const QVariant&)> answer)>;

    [[nodiscard]] Answer ask(const Question& question);
    /// The same without a limit, for what a page that has just answered can't hold up.
    [[nodiscard]] Answer askAtLength(const Question& question);
    /// Calls a function of surface.js, such as "reveal()", in the page and waits for what it returns.
    [[nodiscard]] Answer call(const QString& function);
    /// The same for what is most likely the first call in a page: it brings surface.js along.
    [[nodiscard]] Answer callFirst(const QString& function);
    /// Runs a script without waiting for it.
    void evaluateSoon(const QString& script, const std::function<void(const QVariant&)>& answered = {});
    /// Calls a function without waiting, in a page in which they were made.
    void callSoon(const QString& function, const std::function<void(const QVariant&)>& answered = {});
    /// Lets all events but the user's input be handled until `loop` is told to quit, the renderer ends or the
    /// time is up.
    void wait(QEventLoop& loop, int milliseconds);
    /// Runs what a timer of a control began. When the control is deleted meanwhile, the SurfaceLost of its
    /// question ends here: nobody is left to tell.
    static void untilDeleted(const std::function<void()>& body);
    /// How long a question waits, in milliseconds.
    int limit() const;
    /// Whether a question goes on waiting beyond that, until the answer or `stopAsking`.
    virtual bool isPatient() const { return false; }
    /// A patient question begins, or ceases, to go on for long.
    virtual void waitsForLong(bool) {}
    /// Has a question that goes on for long give up.
    void stopAsking();
    /// Tells how long the page's text is, in characters: longer ones get more time.
    void setLength(qsizetype length) { m_length = length; }
    qsizetype length() const { return m_length; }

    // ---- Loading

    Content content() const { return m_content; }
    void setContent(Content content) { m_content = content; }
    /// A page of the program's own is about to be loaded: a renderer that has ended gets a successor.
    void beginsToLoad() { m_life.advance(RendererLife::Event::Loads); }
    /// Leaves the page for an address; `begin` makes the engine go there.
    void load(const QUrl& address, const std::function<void()>& begin);
    /// Loads an address that was found fit; a file may show the pictures beside it.
    void open(const QUrl& address);
    /// Sets the status text, which the address under the mouse covers.
    void tellStatus(const QString& text);
    /// The page of an address is complete, or could not be loaded: tells it.
    void loadIsDone(bool ok, const QUrl& address);
    /// Tells in the status text how a load goes.
    void tellOpening(const QUrl& address);
    void tellNotOpened(const QUrl& address);
    /// Tells in the status text that what a person typed is no address.
    void tellNoAddress(const QString& text);
    /// Whether pages that come from files may show pictures that are files.
    void showLocalPictures(bool on);
    /// A page from an address is complete, or could not be loaded.
    virtual void arrived() {}
    /// A load has ended in any way.
    virtual void loadingEnded() {}

    // ---- The text size

    /// In five steps, 0 smallest to 4 largest; 2 at first. Beyond: the nearest.
    void setZoomLevel(int level);
    int zoomLevel() const { return m_zoomLevel; }
    /// Shows the page larger or smaller, in percent of that size, 25 to 300.
    void setZoom(int percent);
    /// A page in a new renderer begins at the normal size.
    void applyZoom();

    // ---- Events of the view

    /// Whether a key is for the control or its page: all are but the window's shortcuts and access keys.
    virtual bool takesKey(const QKeyEvent& key) const;
    /// What the program does on a key of the page; false leaves the key to the page.
    virtual bool actOnKey(const QKeyEvent&) { return false; }
    /// What the program does on a key or its release before the page; false leaves it to the page.
    virtual bool takesOver(const QKeyEvent& key);
    /// What the program does with the mouse at a place of the view; false leaves it to the page.
    virtual bool actOnMouse(const QMouseEvent&, QPoint) { return false; }
    /// What the program does with a drag at a place of the view; false leaves it to the page.
    virtual bool actOnDrop(QDropEvent& event, QPoint place);
    /// Has the page forget a drag, and where it would have gone.
    void endDrag();
    /// Whether a drag began in the control's own page.
    bool isOwnDrag(const QDropEvent& event) const;
    /// The keyboard has come to the page.
    virtual void focusCame() {}

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    friend class WebProbe; // tests look behind the page

    [[nodiscard]] Answer askPage(const QString& script);
    [[nodiscard]] Answer askFor(const Question& question, int milliseconds, bool patiently);
    void waitFor(QEventLoop& loop, std::optional<int> milliseconds);
    void waitOn(QEventLoop& loop);
    void listenToPage();
    void tellLoss();
    void linkHovered(const QString& address);
    QPoint placeInView(const QObject* widget, QPointF place) const;
    void loadingChanged(const QWebEngineLoadingInfo& info);

    const WebPage::Kind m_kind;
    QWebEngineView* m_view = nullptr;
    WebPage* m_page = nullptr;
    RendererLife m_life;
    Content m_content = Content::Nothing;
    QTimer m_lossTimer;
    ReturnedKeys m_returnedKeys{*this};
    QString m_status; // without the address under the mouse
    bool m_overLink = false;
    int m_zoomLevel = 2;
    int m_zoom = 100;   // percent of that
    WheelSteps m_wheel; // with Ctrl
    int m_patience = 5000;
    QPointer<QEventLoop> m_longWait;
    qsizetype m_length = 0;
};

} // namespace brindlemark
