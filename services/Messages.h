// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Doors.h"

#include <QString>
#include <QStringView>

namespace brindlemark {

/// A message box of the program. "%1" in its text stands for what it tells of.
struct Message
{
    QStringView text;
    QStringView title;
    MsgIcon icon;
    MsgButtons buttons = MsgButtons::Ok;
};

/// Shows a message, with `value` in the place of "%1", and waits for the answer.
MsgAnswer showMessage(const Message& message, const QString& value = QString());

/// Asks with a message that has the buttons Yes and No; whether the answer was Yes.
[[nodiscard]] bool confirmed(const Message& question, const QString& value = QString());

/// All messages of the program but those of errors, which `fatal` and RuntimeError word, and of pages, which
/// word their own.
namespace Messages {

// ---- The document

inline constexpr Message SaveChanges = {u"%1 - File has changed. Do you wish to save changes ?", OwnTitle,
                                        MsgIcon::Information, MsgButtons::YesNoCancel};
inline constexpr Message CannotSave = {u"There has been a (25)error, Cannot save file.", u"Error",
                                       MsgIcon::Stop};
inline constexpr Message CannotWrite = {u"%1", OwnTitle, MsgIcon::Exclamation}; ///< with the error's text
inline constexpr Message MayReplace = {u"[ %1 ] - already exists.\r\nDo you want to replace it ?",
                                       u"Information", MsgIcon::Information,
                                       MsgButtons::YesNo}; ///< also of titles in lists
inline constexpr Message TakeBack = {
    u"%1\n\nDo you want it back? No moves it to the earlier texts, Later asks again at the next start.",
    OwnTitle, MsgIcon::Question, MsgButtons::YesNoLater};
inline constexpr Message TakeListingBack = {
    u"Brindlemark ended while a listing was being made. What was filled in was kept.\n\nDo you want it back? "
    u"No deletes it, Later asks again at the next start.",
    OwnTitle, MsgIcon::Question, MsgButtons::YesNoLater};
inline constexpr Message TakeTermsBack = {
    u"Brindlemark ended before the terms were saved. Their text was kept.\n\nDo you want it back? No moves "
    u"it to the earlier texts, Later asks again at the next start.",
    OwnTitle, MsgIcon::Question, MsgButtons::YesNoLater};
inline constexpr QStringView KeptWhole =
    u"Brindlemark ended before %1 was saved. Its text was kept."; ///< what of, in TakeBack
inline constexpr QStringView KeptInPart =
    u"Brindlemark was not closed properly the last time. Only a part of its unsaved text could be kept.";

// ---- Views

inline constexpr Message NoPicture = {u"%1 is no picture that can be read.", OwnTitle, MsgIcon::Exclamation};
inline constexpr Message PageEnded = {u"The page cannot be shown: a script in it does not end, or its "
                                      u"process has ended.\nYour text is safe in the editor.",
                                      OwnTitle, MsgIcon::Exclamation};
inline constexpr Message SurfaceEnded = {
    u"The process that showed the page has ended. What was edited on the page in the last seconds may be "
    u"lost; your text in the editor is as it was, and nothing was saved.",
    OwnTitle, MsgIcon::Exclamation};
inline constexpr Message UnhighlightFirst = {u"Please select Editor Unhighlight first.", u"Infor",
                                             MsgIcon::Information};
inline constexpr Message ClearAddresses = {u"Are you sure you wish clear the address list ?", u"Information",
                                           MsgIcon::Information, MsgButtons::YesNo};

// ---- Find and quick words

inline constexpr Message NotFound = {u"'%1' cannot be found.", u"Not found", MsgIcon::Exclamation};
inline constexpr Message Replaced = {u"''%1'' - Done replacing.", u"Search", MsgIcon::None};
inline constexpr Message NoneSelected = {u"No items selected.", u"Error: No items selected.", MsgIcon::Stop};
inline constexpr Message DeleteWord = {u"Are you sure you wish delete it ?", u"Information",
                                       MsgIcon::Information, MsgButtons::YesNo};
inline constexpr Message DeleteAllWords = {u"Are you sure you wish delete all ?", u"Information",
                                           MsgIcon::Information, MsgButtons::YesNo};

// ---- All tools

inline constexpr Message NoMemory = {u"There is not enough memory for this.", OwnTitle, MsgIcon::Exclamation};
inline constexpr Message CancelTool = {u"Are you sure you wish cancel it ?", u"Information",
                                       MsgIcon::Information, MsgButtons::YesNo};
inline constexpr Message NoWordToAdd = {u"Cannot add to editor because no word.", u"Error",
                                        MsgIcon::Information};

// ---- Settings

inline constexpr Message ShippedSettings = {u"Put the settings that come with the program in the place of "
                                            u"web.ini? The damaged file is kept beside it, as "
                                            u"web-damaged-1.ini or with the next free number.",
                                            OwnTitle, MsgIcon::Question, MsgButtons::YesNo};

// ---- Tables, lists and pictures

inline constexpr Message NoWholeNumber = {u"Please enter a whole number.", u"Information",
                                          MsgIcon::Information};
inline constexpr Message TableTooLarge = {u"The table is too large. It can have up to %1 cells.",
                                          u"Information", MsgIcon::Information};
inline constexpr Message NoTableWord = {u"Cannot add without word.", u"Information", MsgIcon::Information};
inline constexpr Message FirstBoxFirst = {u"Have to use in first box.", u"Information", MsgIcon::Information};
inline constexpr Message ClearTable = {u"Are you sure you wish list clear ?", u"List Clear?",
                                       MsgIcon::Information, MsgButtons::NoYes};
inline constexpr Message NoWord = {u"No word ?", u"Error", MsgIcon::Information};
inline constexpr Message NoLists = {u"There no lists.", u"Error", MsgIcon::Information};
inline constexpr Message ClearList = {u"Do you wish to clear the list ?", u"Clear list", MsgIcon::Question,
                                      MsgButtons::NoYes};
inline constexpr Message CancelList = {u"You fill out lists, Are you sure you wish cancel it ?",
                                       u"Information", MsgIcon::Information, MsgButtons::YesNo};
inline constexpr Message ClearCharacterList = {u"Do you sure you wish clear list ?", u"Clear list",
                                               MsgIcon::Question, MsgButtons::NoYes};
inline constexpr Message NoPictureAddress = {u"Cannot add to editor because no URL address.", u"Error",
                                             MsgIcon::Information};

// ---- Colours

inline constexpr Message FadeCut = {u"The text is too long. Its first %1 characters were taken.",
                                    u"Information", MsgIcon::Information};
inline constexpr Message PreviewIsOpen = {
    u"Cannot add to editor because preview is open, please click tag ''Editor'' to open first.", u"Error",
    MsgIcon::Information};
inline constexpr Message NoBoxTicked = {u"There none check in box, cannot add to editor.", u"Error",
                                        MsgIcon::Information};

// ---- The wizard

inline constexpr Message NoTitle = {u"Please enter what item you sell ?", u"Build Wizard",
                                    MsgIcon::Information};
inline constexpr Message NoDescription = {u"Please enter Description:", u"Build Wizard",
                                          MsgIcon::Information};
inline constexpr Message NoPayment = {u"Please enter What methods of payment do you accept ?",
                                      u"Build Wizard", MsgIcon::Information};
inline constexpr Message NoRegion = {
    u"Please check ship to the United States and the following regions: (Check all that apply)",
    u"Build Wizard", MsgIcon::Information};
inline constexpr Message NoCosts = {u"Please enter Shipping and Handling costs:", u"Build Wizard",
                                    MsgIcon::Information};
inline constexpr Message CancelWizard = {u"Are you sure you wish cancel it ?", u"Information", MsgIcon::None,
                                         MsgButtons::YesNo};
inline constexpr Message ListingEnded = {
    u"The page cannot be made: the process that lays it out has ended.\nNothing is lost; please try again.",
    OwnTitle, MsgIcon::Exclamation};
inline constexpr Message TermsUnshown = {
    u"The terms cannot be shown: the process that shows them has ended. Their file is as it was.", OwnTitle,
    MsgIcon::Exclamation};
inline constexpr Message TermsEnded = {u"The process that showed the terms has ended. What was changed in "
                                       u"the last seconds may be lost; their file is as it was.",
                                       OwnTitle, MsgIcon::Exclamation};
inline constexpr Message CannotSaveTerms = {u"There has been a (28)error, Cannot save file.", u"Error",
                                            MsgIcon::Stop};

} // namespace Messages

} // namespace brindlemark
