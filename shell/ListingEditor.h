// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "services/Markers.h"

#include <QByteArray>
#include <QString>
#include <optional>

namespace brindlemark {

class EarlierTexts;

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

    /// Puts a fragment into the source at the caret, in place of what is selected there.
    virtual void insert(const QString& fragment) = 0;
    /// Puts a fragment in front of the source; what was selected stays in the text.
    virtual void insertAtStart(const QString& fragment) = 0;
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
    /// Makes an earlier text the document's, in one step of undo, in all views. Name and file stay.
    virtual void bringBackText(const QByteArray& text) = 0;
    /// What was replaced or dropped.
    virtual EarlierTexts& earlierTexts() = 0;

protected:
    ListingEditor() = default;
    ~ListingEditor() = default;
    Q_DISABLE_COPY_MOVE(ListingEditor)
};

/// The main window; null before it is there, and once it has gone.
ListingEditor* loadedEditor();

} // namespace brindlemark
