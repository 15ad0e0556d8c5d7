// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Markers.h"
#include "shell/NoticeBar.h"
#include "source/TextEdit.h"

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

class QObject;

namespace brindlemark {

class EarlierTexts;

/// What a window beside the document hears of it, as long as `window` lives. What it does then is done while
/// the user types: it only notes it.
struct Follower
{
    QObject* window = nullptr;
    std::function<void()> textChanged{}; ///< the source has another text
    std::function<void()> caretMoved{};  ///< in the source, or its selection
    std::function<void()> scrolled{};    ///< the source
    std::function<void()> tabChanged{};  ///< another page of the main window is up
};

/// What tools want of the main window, which has the document: they take what is selected there, and give
/// what they have made.
class ListingEditor
{
public:
    /// The pages of the main window.
    enum Tab { EditorTab, PreviewTab, InternetTab };

    /// The page that is up.
    virtual Tab tab() const = 0;
    /// What is selected in the source; no value without a selection.
    virtual std::optional<QString> selected() const = 0;

    // What is put in is one step of undo, which has the name `what` for the user, such as "Table".

    /// Puts a fragment into the source at the caret, in place of what is selected there.
    virtual void insert(const QString& fragment, const QString& what) = 0;
    /// Puts a fragment in front of the source; what was selected stays in the text.
    virtual void insertAtStart(const QString& fragment, const QString& what) = 0;
    /// Puts a fragment in place of each description of the listing, and shows the document on the surfaces.
    virtual void replaceDescriptions(const QString& fragment) = 0;
    /// Selects a part of the listing in the source (see `selectRegion`).
    virtual void selectPart(Region part) = 0;

    /// Makes a new listing, UTF-8, the document and shows its source, coloured while the source is
    /// highlighted. With the tab Internet up the document stays as it is. Throws RuntimeError(TypeMismatch)
    /// when a colour is missing from the settings.
    virtual void editListing(const QByteArray& page) = 0;
    /// Makes a new listing the document and shows it as a page. With the tab Internet up nothing happens.
    virtual void previewListing(const QByteArray& page) = 0;

    /// The document's text in the source; the surfaces may hold a newer one.
    virtual QByteArray text() const = 0;
    /// How many bytes it has; much cheaper than asking `text`.
    virtual qsizetype textLength() const = 0;
    /// Makes an earlier text the document's, in one step of undo, in all views. Name and file stay.
    virtual void bringBackText(const QByteArray& text) = 0;
    /// What was replaced or dropped.
    virtual EarlierTexts& earlierTexts() = 0;

    // What windows beside the document need; places are bytes of the source.

    virtual void follow(const Follower& follower) = 0;
    /// Brings the tab Editor up, as a click on it does: the source then has what was edited on the surface.
    virtual void turnToSource() = 0;
    /// What is selected in the source, or where the caret is.
    virtual TextRange selection() const = 0;
    /// Selects a stretch of the source and brings it into view.
    virtual void select(const TextRange& range) = 0;
    /// Gives the main window and its source the keyboard.
    virtual void giveKeyboardToSource() = 0;
    /// Makes edits, in the order of the text, one step of undo, which is named likewise.
    virtual void edit(const std::vector<TextEdit>& edits, const QString& what) = 0;
    /// Where the uppermost line begins that is seen of the source, and what brings a place up there.
    virtual qsizetype topOfView() const = 0;
    virtual void bringToTop(qsizetype place) = 0;
    /// All that the tab which is up holds, the source on the tab Internet. Nothing when a page doesn't
    /// answer; the user has been told.
    virtual std::optional<QString> pageThatIsUp() = 0;
    /// Shows a notice over what the user looks at.
    virtual void tell(const QString& sentence, const QList<NoticeBar::Action>& actions) = 0;
    /// What the page that is up in Preview holds, when nothing else waits for it. `heard` is called later;
    /// not at all when the page can't answer.
    virtual void readPage(const std::function<void(const QString& html)>& heard) = 0;

protected:
    ListingEditor() = default;
    ~ListingEditor() = default;
    Q_DISABLE_COPY_MOVE(ListingEditor)
};

/// The main window; null before it is there, and once it has gone.
ListingEditor* loadedEditor();

} // namespace brindlemark
