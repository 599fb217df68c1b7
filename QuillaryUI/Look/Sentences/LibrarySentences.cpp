#include "QuillaryUI/Look/Sentences/Sentences.h"

#include <QCoreApplication>

namespace Quillary::CoreText {

namespace {

using enum Value;

/// The library, its files and the printing.
constexpr SentencePattern patterns[] = {
    {QT_TRANSLATE_NOOP("Core",
                       "The library in “%1” can’t be changed, because its folder is read-only. Choose a folder that "
                       "you may write to.")},
    {QT_TRANSLATE_NOOP("Core", "The library in “%1” is open in another Quillary. Close it there, then try again.")},
    {QT_TRANSLATE_NOOP("Core", "The running Quillary couldn't hand the library over. Close it, then try again.")},
    {QT_TRANSLATE_NOOP("Core", "The folder “%1” can’t be made. Choose a place for the library where you may write.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” isn’t a Quillary library.")},
    {QT_TRANSLATE_NOOP("Core", "There is no library in “%1”, so there is nothing to back up.")},
    {QT_TRANSLATE_NOOP("Core", "There is no library in “%1”.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is still empty.")},
    {QT_TRANSLATE_NOOP(
        "Core",
        "“%1” was last used with an older Quillary. Open it in Quillary once, so that it is brought up to date.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” was last used with a newer Quillary (its format is %2, this Quillary knows formats up to "
                       "%3). Open it with that version, or update this one.")},
    {QT_TRANSLATE_NOOP(
        "Core", "“%1” has tables that no version of Quillary makes, so it was left alone. Restore a backup of it.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” couldn’t be brought up to date, because its disk is full; it is as it was. Make room for "
                       "about %2 MB and start again.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” was changed by another program while it was being brought up to date. Close that program "
                       "and start again.")},
    {QT_TRANSLATE_NOOP(
        "Core", "“%1” couldn’t be brought up to date: the new file didn’t pass its check. The library is as it was.")},
    // backups
    {QT_TRANSLATE_NOOP(
        "Core", "The backup couldn’t be made, because the disk that holds “%1” is full. Make room and try again.")},
    {QT_TRANSLATE_NOOP("Core", "The backup didn’t pass its check and wasn’t kept. Try again.")},
    {QT_TRANSLATE_NOOP("Core",
                       "The backup couldn’t be restored, because the disk that holds “%1” is full. The library is as "
                       "it was. Make room and try again.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is empty.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is the library itself.")},
    {QT_TRANSLATE_NOOP("Core", "There is no backup “%1” in “%2”.")},
    {QT_TRANSLATE_NOOP("Core", "The copy of “%1” came out incomplete and wasn’t kept. Try again.")},
    // what the disk says
    {QT_TRANSLATE_NOOP("Core",
                       "The disk that holds “%1” is full. Nothing was saved by this step. Make room and try again.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” can’t be written. Check that you may write to this file and its folder, and that the disk "
                       "isn’t write-protected.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” can’t be opened. Check that the folder exists and that you may read and write it.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” couldn’t be written: the disk reports a fault. Nothing was saved by this step. Check the "
                       "disk, then try again.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is being used by another program. Close that program and try again.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is damaged and can’t be read. Restore a backup of it.")},
    {QT_TRANSLATE_NOOP("Core", "A text or an image is too large to be saved. Shorten it and try again.")},
    {QT_TRANSLATE_NOOP("Core", "There isn’t enough memory. Close other programs and try again.")},
    {QT_TRANSLATE_NOOP("Core",
                       "“%1” couldn’t be read or written: the disk reports a fault. Check the disk, then try again.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” couldn’t be read or written.")},
    // files
    {QT_TRANSLATE_NOOP("Core", "Couldn't make the folder %1: %2.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't write %1: %2.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't open %1: %2.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't read %1: %2.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't look at %1: %2.")},
    {QT_TRANSLATE_NOOP("Core", "Couldn't lock %1: %2."), {own, word}},
    {QT_TRANSLATE_NOOP("Core", "%1 is a folder, not a file.")},
    {QT_TRANSLATE_NOOP("Core", "%1 is too large: at most %2."), {own, list}},
    {QT_TRANSLATE_NOOP("Core", "%1 bytes")},
    {QT_TRANSLATE_NOOP("Core", "A file couldn't be saved in the folder “%1” (%2).")},
    {QT_TRANSLATE_NOOP("Core", "There is no folder “%1”.")},
    {QT_TRANSLATE_NOOP("Core", "Files can't be saved in the folder “%1”.")},
    {QT_TRANSLATE_NOOP("Core", "The disk with the folder “%1” is full.")},
    {QT_TRANSLATE_NOOP("Core", "The folder “%1” holds too many files named “%2”.")},
    // the assistants' socket
    {QT_TRANSLATE_NOOP("Core", "Couldn't listen at %1")},
    {QT_TRANSLATE_NOOP("Core", "Quillary is already running.")},
    {QT_TRANSLATE_NOOP("Core", "The socket path is too long.")},
    // pages and pictures
    {QT_TRANSLATE_NOOP("Core", "Pages can't be printed here.")},
    {QT_TRANSLATE_NOOP("Core",
                       "Pages can't be printed because a part of Quillary is missing. Please install it again. (%1)")},
    {QT_TRANSLATE_NOOP("Core",
                       "Pages can't be printed here, because this system doesn't let the page renderer lock itself in "
                       "(user namespaces are off). Turn them on, or set QTWEBENGINE_DISABLE_SANDBOX=1.")},
    {QT_TRANSLATE_NOOP(
        "Core", "The page could not be printed, because the page renderer stopped twice while it worked on it.")},
    {QT_TRANSLATE_NOOP("Core", "The page could not be printed, because it took too long.")},
    {QT_TRANSLATE_NOOP("Core", "The page could not be printed, because the page renderer did not accept it.")},
    {QT_TRANSLATE_NOOP("Core", "The page could not be printed, because the page renderer handed back nothing.")},
    {QT_TRANSLATE_NOOP("Core", "The printed page could not be finished as a PDF file. (%1)")},
    {QT_TRANSLATE_NOOP("Core", "This is not a PDF that can be read.")},
    {QT_TRANSLATE_NOOP("Core", "There is no page %1; the document has %2.")},
    {QT_TRANSLATE_NOOP("Core", "No picture of this page could be made.")},
    {QT_TRANSLATE_NOOP("Core", "The picture is damaged and can't be read.")},
    {QT_TRANSLATE_NOOP("Core",
                       "The picture has %1 megapixels. A logo may have up to %2; please choose a smaller one.")},
    {QT_TRANSLATE_NOOP("Core", "The file is empty.")},
    {QT_TRANSLATE_NOOP("Core", "The file is larger than %1 MB. Please choose a smaller picture.")},
    {QT_TRANSLATE_NOOP("Core",
                       "This file is not a picture that can be a logo. Please choose a PNG, JPEG, WebP or SVG file.")},
    {QT_TRANSLATE_NOOP("Core", "Nothing can be seen in this picture: all of it is transparent.")},
    {QT_TRANSLATE_NOOP("Core", "This SVG file is damaged and can't be read.")},
    {QT_TRANSLATE_NOOP("Core", "This SVG drawing is too complex for a logo.")},
    // tables from other programs
    {QT_TRANSLATE_NOOP("Core", "The file has no rows.")},
    {QT_TRANSLATE_NOOP("Core",
                       "The file isn't readable text. Save it as CSV from your spreadsheet app and try again.")},
    {QT_TRANSLATE_NOOP("Core", "Column %1")},
    {QT_TRANSLATE_NOOP("Core", "There is no name; the email address stands for it.")},
    {QT_TRANSLATE_NOOP("Core", "Only the first %1 characters of the %2 are kept."), {figure, word}},
    {QT_TRANSLATE_NOOP("Core", "“%1” is what a spreadsheet program left of a longer number.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is neither a company nor a person; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is no email address; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is no known country; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” is no known currency; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "Documents can't be written in “%1”; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "“%1” doesn't have the form of a VAT ID; it is kept in the notes.")},
    {QT_TRANSLATE_NOOP("Core", "Has the same %1 as “%2” in row %3."), {word, own, own}},
    {QT_TRANSLATE_NOOP("Core", "Has the same %1 as “%2” in the library."), {word}},
    {QT_TRANSLATE_NOOP("Core", "Row %1 has the same name and another number.")},
    // titles of reports
    {QT_TRANSLATE_NOOP("Core", "Open invoices on %1")},
    {QT_TRANSLATE_NOOP("Core", "until %1")},
    {QT_TRANSLATE_NOOP("Core", "since %1")},
};

} // namespace

std::span<const SentencePattern> librarySentences()
{
    return patterns;
}

} // namespace Quillary::CoreText
