// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/Form.h"
#include "shell/Document.h"
#include "shell/EarlierTexts.h"
#include "shell/ListingEditor.h"
#include "shell/NoticeBar.h"
#include "shell/RecentFiles.h"
#include "shell/Tool.h"
#include "shell/Zoom.h"
#include "shell/ui_FrmWeb.h"

#include <QByteArray>
#include <QTimer>
#include <array>
#include <memory>
#include <optional>

class QPageLayout;
class QPageRanges;
class QPagedPaintDevice;
class QPrinter;

namespace brindlemark {

class SourceOffers;
class SourceSpelling;
class Spelling;
class StatusLine;
struct LetterPlace;
enum class LetterCase;
struct MisspeltWord;

/// The main window: owner of the document, its views and the settings of the source box.
///
/// The document is bytes: the source box's text while tab 0 is up, the design surface's content while tab 1
/// is up. Handlers are named after control and event; the declarations tell the file of each.
class FrmWeb : public Form, public Ui::FrmWeb, public ListingEditor
{
    Q_OBJECT

public:
    /// Reads the settings. Throws RuntimeError(TypeMismatch) when a number of section `Font` is missing or is
    /// none.
    FrmWeb();
    ~FrmWeb() override;

    /// The document, which knows its name and whether it is saved.
    Document& document() const { return *m_document; }
    bool Dirty() const { return m_document->isDirty(); }
    /// The full path of its file, or "Untitled".
    QString documentName() const { return m_document->name(); }
    /// The user answered Cancel to the last save question; only the next `Checksafe` clears it.
    bool SaveCancelled() const { return m_refusal == Refusal::Cancelled; }
    /// The user answered No to the last save question; only the next `Checksafe` clears it.
    bool SaveDeclined() const { return m_refusal == Refusal::Declined; }
    /// True while the source is highlighted.
    bool highlighted = false;

    /// Asks whether to save, and saves on Yes; the answer stands in `SaveCancelled` and `SaveDeclined`.
    /// False: the document must stay, as the user cancelled, or as it could not be read to be saved.
    [[nodiscard]] bool Checksafe();
    /// Asks for a file to save to, proposing `initial`; empty when the user cancels.
    QString GetFileName(const QString& initial);
    /// Writes the source box's text, with a line end behind it, to `path` and names the window after it. The
    /// document keeps its own name and stays as unsaved as it was. A failure is shown in a message box.
    void SaveFileAs(const QString& path);
    /// The colour text of a colour number. Consumes its argument: what is left in it is the part above red
    /// and green.
    QString GetHexColor(int& color) const;
    /// The text as it goes out, which is the text itself: nothing is encoded.
    QString etxt(const QString& text) const;

    /// Makes the file at a path the document, as Open in the menu does with one that was chosen there.
    void openHandedOver(const QString& path);

    // FrmWebKeys.cpp
    /// Gives the view that is up the keyboard.
    void giveKeyboardToView();
    /// Goes on with the last search of the view that is up, or asks what to look for.
    void findAgain(bool backwards);
    /// Opens the search with its second field, on the editor.
    void openReplace();
    /// Opens the first menu.
    void openMenuBar();
    /// Makes the view that is up larger or smaller by some steps; 0: as it was at first.
    void zoomBy(int steps);

    /// Asks whether unsaved text that an earlier run of the program left shall come back, and makes it the
    /// document on Yes. For the start only.
    void offerUnsavedText();

    // FrmWebTools.cpp
    Tab tab() const override;
    std::optional<QString> selected() const override;
    void insert(const QString& fragment, const QString& what) override;
    void insertAtStart(const QString& fragment, const QString& what) override;
    void replaceDescriptions(const QString& fragment) override;
    void selectPart(Region part) override;
    void editListing(const QByteArray& page) override;
    void previewListing(const QByteArray& page) override;
    void follow(const Follower& follower) override;
    void turnToSource() override;
    TextRange selection() const override;
    void select(const TextRange& range) override;
    void giveKeyboardToSource() override;
    void edit(const std::vector<TextEdit>& edits, const QString& what) override;
    qsizetype topOfView() const override;
    void bringToTop(qsizetype place) override;
    void readPage(const std::function<void(const QString& html)>& heard) override;
    std::optional<QString> pageThatIsUp() override;
    // FrmWebEarlier.cpp
    QByteArray text() const override;
    qsizetype textLength() const override { return RichTextBox1->TextLength(); }
    void bringBackText(const QByteArray& text) override;
    EarlierTexts& earlierTexts() override;
    void tell(const QString& sentence, const QList<NoticeBar::Action>& actions = {}) override;

    Spelling* spelling() const { return m_spelling; }

    QAction* toolbarButton(Tool tool) const { return m_toolButtons.at(size_t(tool)); }

signals:
    /// The user wants the window of a toolbar button that stands for no menu entry.
    void toolWanted(Tool tool);

protected:
    bool queryUnload() override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // FrmWebKeys.cpp
    void connectKeys();
    bool turnsTab(const QKeyEvent& key);
    bool closesFind(const QKeyEvent& key);
    void zoomSource(int steps);
    void zoomSurfaces(int steps);
    int percentZoomed() const;

    // FrmWeb.cpp
    void takeColors();
    void sizeSymbols();
    void buildToolbar();
    void switchTools();
    void connectHandlers();
    void connectViews();
    void loadSettings();
    void arrangeFrames();
    void limitSize();
    void placeControls();
    void Toolbar1_ButtonClick(Tool tool);
    void MnExit_Click();
    void munfind_Click();
    QString keepText();

    // FrmWebRegions.cpp
    void connectRegions();
    void CmdCell_Click();
    void CmdOffLeg_Click();

    // FrmWebQuickTags.cpp
    void connectQuickTags();
    void insertTag(const QString& html);
    void munmsg_Click();

    // FrmWebDocument.cpp
    void MnNew_Click();
    [[nodiscard]] bool newDocument(const std::function<void()>& again);
    void MnOpen_Click();
    void mnsave_Click();
    void mnsaveas_Click();
    [[nodiscard]] SaveResult save();
    [[nodiscard]] SaveResult saveAs();
    [[nodiscard]] SaveResult write(const QString& path);
    void MnCut_Click();
    void MnCopy_Click();
    void MnPaste_Click();
    void MnSelect_Click();
    void mnuhtml_Click();
    void RichTextBox1_Change();
    void RichTextBox1_SelChange();
    void RichTextBox1_Click();
    void RichTextBox1_KeyUp();
    void RichTextBox1_FilesDropped(const QStringList& paths, int position);
    void insertPictures(const QStringList& paths, int position);
    void tellOfDrop(const QString& text);
    [[nodiscard]] bool mayGiveUp(const std::function<void()>& again);
    [[nodiscard]] bool giveUpDocument(const std::function<void()>& again);
    void openFile(const QString& path);
    void emptyDocument();
    void setCaption(const QString& name);
    QByteArray FetchSource();
    void StampGenerator();
    bool isBlankDocument() const;

    // FrmWebViews.cpp
    void SSTab1_Click();
    bool showEditor();
    void showPreview();
    void giveCaret(DocumentSurface* surface);
    void takeCaret(const LetterPlace& caret);
    DocumentSurface* shownSurface() const;
    void Option1_Click();
    void Option2_Click();
    void setDesignTools(bool on);
    void Combo1_Click();
    void Combo1_EnterPressed();
    void Combo2_Click();
    void Command5_Click();
    void Command11_Click();
    void Command16_Click();
    void pickColorFor(const QString& command);
    void surfaceCommand(const QString& identifier, const QString& value = QString());
    bool takeSurface();
    void showSource(DocumentSurface* surface);
    void writeSurface(DocumentSurface* surface, const QString& html);
    QString readSurface(DocumentSurface* surface);
    QString readSurfaceOrLast(DocumentSurface* surface);
    void replaceLost(DocumentSurface* surface);
    void WebBrowser1_LinkRequested();
    void WebBrowser1_RendererDied();
    void WebBrowser3_RendererDied();

    // FrmWebInternet.cpp
    void connectInternet();
    void Combo3_Click();
    void Command14_Click();
    void Command15_Click();
    void muoptions_Click();
    void muaddressclear_Click();
    void WebBrowser2_ProgressChange(int progress, int maximum);
    void WebBrowser2_StatusTextChange(const QString& text);
    void WebBrowser2_RendererDied();

    // FrmWebEditor.cpp
    void munsetfont_Click();
    void munEBC_Click();
    void munhighlight_Click();
    void highlightSource();
    void munUNHighlight_Click();
    void colorListing();
    void colorSource(std::optional<int> (*color)(const char* key));
    void ApplyHighlight(std::optional<int> (*color)(const char* key));
    void ClearHighlight();
    void uncoverSource();
    void loadEditorFont();
    void loadEditorBackground();
    void setEditorBackground(int color);
    void connectOffers();
    void munoffers_Click();

    // FrmWebRecent.cpp
    void connectRecent();
    void noteRecent();
    void munrecent_Popup();
    void openRecent(const RecentFile& file);

    // FrmWebPrint.cpp
    void connectPrinting();
    void munprint_Click();
    void munprintpreview_Click();
    void munpdf_Click();
    QString printedName() const;
    void keepEditsOfPage();
    [[nodiscard]] bool printing(const std::function<void()>& print);
    void printOn(QPrinter& printer);
    QByteArray pdfOfView(const QPageLayout& paper, const QPageRanges& ranges);
    void printSourceOn(QPagedPaintDevice& device);

    // FrmWebWords.cpp
    void connectWords();
    void switchWordTools();
    void munspelling_Popup();
    void munnextmisspelt_Click();
    bool selectNextMisspeltInSource();
    bool selectNextMisspeltOnSurface();
    void muncountwords_Click();
    void munpastetext_Click();
    void munpastelooks_Click();
    void munpastehtml_Click();
    void RichTextBox1_MenuOpens(QMenu* menu, int position);
    void WebBrowser1_MenuWanted(const SurfaceMenu& wanted);
    void replaceWord(const MisspeltWord& word, const QString& by);
    void changeCase(LetterCase letterCase);

    // FrmWebStatus.cpp
    void connectStatus();
    void showBesideText();
    void tellStatusSoon();
    void tellStatus();
    QString stateOfDocument() const;
    void markTagPair();
    void placeStatus();

    // FrmWebUndo.cpp
    void connectUndo();
    bool isEditable() const;
    void muntools_Popup();
    void takeSurfaceSteps(const SurfaceSteps& steps);
    void tellSteps(const SurfaceSteps& steps);
    void stepBy(void (RichTextBox::*ofSource)(), const char* ofSurface);

    // FrmWebJournal.cpp
    void runJournal();
    void keepUnsavedText();
    void keepEdits(const QString& html);
    void keepUnread();
    void bringBack(const Journal::Leftover& left);
    void declineUnsavedText(const Journal::Leftover& left);

    // FrmWebEarlier.cpp
    QWidget* viewThatIsUp() const;
    void tellSoon(const QString& sentence, const QList<NoticeBar::Action>& actions = {});
    void tellTooLong();
    void tellNotSaved();
    void tellEmptyRecord();
    void tellPageTaken();
    void tellRefusal(const std::function<void()>& again);
    void tellDesignIsOff();
    void WebBrowser1_WaitsLong(bool waits);
    std::optional<QByteArray> textWorthKeeping();
    bool keepIfReplaced(const std::optional<QByteArray>& former);
    void keepSource(Dropped why);
    void keepGivenUp();
    void keepOverwritten(const QString& path, const QByteArray& text);

    /// What was last written to a surface, or read from it to be kept: a lost one is made anew from it.
    QString m_lastShown;
    SurfaceSteps m_surfaceSteps; // of the design surface, as told last, with the names that users know

    std::array<QAction*, ToolCount> m_toolButtons{};

    std::unique_ptr<Document> m_document;
    std::unique_ptr<EarlierTexts> m_earlier;
    RecentFiles m_recent;
    QString m_unlisted; // the document whose name was cleared from there; until it is opened again
    NoticeBar* m_notice = nullptr;
    Spelling* m_spelling = nullptr;
    std::unique_ptr<SourceSpelling> m_sourceSpelling;
    StatusLine* m_status = nullptr;
    QTimer m_statusTimer{this};
    std::unique_ptr<SourceOffers> m_offers;
    int m_lastTab = EditorTab;
    Zoom m_sourceZoom;
    Zoom m_surfaceZoom;
    QTimer m_journalTimer{this}; // runs out when unsaved text is to be kept on the disk

    /// How the last save question ended, unless by Yes.
    enum class Refusal { None, Cancelled, Declined };
    Refusal m_refusal = Refusal::None;
};

} // namespace brindlemark
