#include "app/output_commands_win32.h"

#include "app/frame_win32.h"
#include "app/spare_memory_win32.h"
#include "notes/note_files_win32.h"
#include "notes/note_source.h"
#include "output/copy_text.h"
#include "output/format_dialog.h"
#include "output/range_dialog.h"
#include "output/save_text.h"
#include "output/saved_file_win32.h"
#include "passage/passage_window.h"
#include "scripture/scripture_win32.h"
#include "typeset/html_text.h"
#include "verselist/verse_list_window.h"
#include "win32/clipboard.h"
#include "win32/controls.h"
#include "win32/file_dialogs.h"
#include "win32/replacing_file.h"

static constexpr char kNoMemoryForText[] = "Could not allocate memory for text";
static constexpr char kNoMemoryForCopyText[] = "Could not allocate memory for copy text";
static constexpr char kCannotCreateText[] = "Could not open file for writing";
static constexpr char kVerseListFile[] = "Verse List.txt";

static const std::vector<std::int32_t>& ListedVerses() {
    return theVerseList.list.ListEntries;
}

// ---- Copying --------------------------------------------------------------------------------------------------------

// Errors are reported after the clipboard is closed, so that a message box does not block other programs.
template <typename MakeText, typename MakeHtml>
static void Copy(const char* noMemory, MakeText makeText, MakeHtml makeHtml) {
    HeldClipboard clipboard = OpenEmptyClipboard(theFrame.window);
    if (!clipboard) return;
    const HCURSOR before = BeginWait(theFrame.window);
    const CopyText copy = makeText();
    const bool put = copy.allocated && PutText(clipboard, copy.text);
    if (put && !copy.text.empty()) PutHtml(clipboard, [&] { return ClipboardHtml(makeHtml(copy)); });
    clipboard.reset();
    NoteTextsRead();
    EndWait(before);
    if (!put) return Complain(theFrame.window, noMemory, kCopyErrorCaption);
    for (int said = 0; said < copy.complaints; ++said) Complain(theFrame.window, kCopyIncomplete, kCopyErrorCaption);
}

static void CopyVerses(const RangeDialog& kind) {
    const auto asked = AskRange(theFrame.window, kind, thePassage.view.TopVerse);
    if (!asked) return;
    const auto [first, last] = std::pair(asked->range.first, asked->range.last);
    Copy(
        kNoMemoryForText,
        [=] { return CopyRangeText(theScripture, theFormat, first, last, RangeCopyBudget(first, last)); },
        [=](const CopyText& copy) { return RangeHtml(theScripture, theFormat, first, copy.count); });
}

void CopyVerse(int) {
    CopyVerses(kCopyVerse);
}

void CopyRange(int) {
    CopyVerses(kCopyRange);
}

static void CopyListed(const std::vector<std::int32_t>& verses) {
    if (verses.empty()) return;
    const auto fitted = [&](const CopyText& copy) {
        return std::span(verses).first(static_cast<std::size_t>(copy.count));
    };
    Copy(
        kNoMemoryForCopyText,
        [&] { return CopyListText(theScripture, theFormat, verses, ListCopyBudget(theScripture, verses)); },
        [&](const CopyText& copy) { return ListHtml(theScripture, theFormat, fitted(copy)); });
}

void CopyVerseList(int) {
    CopyListed(ListedVerses());
}

void CopyMarkedVerses() {
    CopyListed(MarkedVerses());
}

void CopyReferences(int) {
    Copy(
        kNoMemoryForCopyText, [] { return CopyReferencesText(theScripture.records, ListedVerses()); },
        [](const CopyText& copy) { return ReferencesHtml(copy.text); });
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

static bool Write(void* file, std::string_view bytes) {
    DWORD written = 0;
    return file && WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// If `file` is null, every write fails.
static TextFile TextFileOf(const OwnedFile& file) {
    return {file.get(), Write};
}

static const char* ProblemOf(TextSaveResult result) {
    return result == TextSaveResult::kCannotWrite       ? kCannotWriteText
           : result == TextSaveResult::kCannotReadNotes ? kCannotOpenNotes
                                                        : nullptr;
}

// Runs `write`, which returns an error message or null.
template <typename WriteFile>
static void Save(WriteFile write) {
    const HCURSOR before = BeginWait(theFrame.window);
    const char* problem = write();
    NoteTextsRead();
    EndWait(before);
    if (problem) Complain(theFrame.window, problem, kSaveErrorCaption);
}

static TextSaveResult WriteRange(const AskedRange& asked, const NoteSource* notes, const OwnedFile& file) {
    return SaveRangeText(theScripture, theFormat, asked.range.first, asked.range.last, notes, TextFileOf(file));
}

static TextSaveResult WriteRange(const AskedRange& asked, const OwnedFile& file) {
    if (asked.noteSet == kWithoutNotes) return WriteRange(asked, nullptr, file);
    NoteSet& set = theNoteSets.sets[static_cast<std::size_t>(asked.noteSet)];
    if (!CanReadNotes(TheNoteFiles(), set)) return TextSaveResult::kCannotReadNotes;
    NoteReader notes{TheNoteFiles(), set};
    const NoteSource source = SourceOf(notes);
    return WriteRange(asked, &source, file);
}

// An error message, or null if the file has taken its place.
static const char* EndSaving(ReplacingFile& replacing, TextSaveResult result) {
    const bool inPlace = EndReplacing(replacing, result == TextSaveResult::kSaved);
    return result == TextSaveResult::kSaved && !inPlace ? kCannotWriteText : ProblemOf(result);
}

static const char* WriteRange(const AskedRange& asked) {
    if (IsOwnFile(asked.path)) return kCannotCreateText;
    ReplacingFile replacing = BeginReplacing(asked.path);
    if (!replacing.file) return kCannotCreateText;
    return EndSaving(replacing, WriteRange(asked, replacing.file));
}

// Deliberate: a file that cannot be created is reported as one that cannot be written.
static const char* WriteVerseList(const std::wstring& path) {
    if (IsOwnFile(path)) return kCannotCreateText;
    ReplacingFile replacing = BeginReplacing(path);
    return EndSaving(replacing, SaveListText(theScripture, ListedVerses(), TextFileOf(replacing.file)));
}

void SaveRange(int) {
    const auto asked = AskRange(theFrame.window, kSaveRange, thePassage.view.TopVerse);
    if (asked) Save([&] { return WriteRange(*asked); });
}

void SaveVerseList(int) {
    if (ListedVerses().empty()) return;
    const std::wstring path = AskTextFileToSave(theFrame.window, kVerseListFile);
    if (!path.empty()) Save([&] { return WriteVerseList(path); });
}

void ChooseFormat(int) {
    AskFormat(theFrame.window);
}
