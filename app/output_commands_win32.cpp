#include "app/output_commands_win32.h"

#include "app/frame_win32.h"
#include "notes/note_files_win32.h"
#include "notes/note_source.h"
#include "output/copy_text.h"
#include "output/format_dialog.h"
#include "output/range_dialog.h"
#include "output/save_text.h"
#include "passage/passage_window.h"
#include "scripture/scripture_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/clipboard.h"
#include "win32/controls.h"
#include "win32/handles.h"
#include "win32/save_file_dialog.h"

static constexpr char kNoMemoryForText[] = "Could not allocate memory for text";
static constexpr char kNoMemoryForCopyText[] = "Could not allocate memory for copy text";
static constexpr char kCannotCreateText[] = "Could not open file for writing";
static constexpr char kVerseListFile[] = "Verse List.txt";

static const std::vector<std::int32_t>& ListedVerses() {
    return theVerseList.list.ListEntries;
}

// ---- Copying --------------------------------------------------------------------------------------------------------

// Errors are reported after the clipboard is closed, so that a message box does not block other programs.
template <typename MakeText>
static void Copy(const char* noMemory, MakeText makeText) {
    HeldClipboard clipboard = OpenEmptyClipboard(theFrame.window);
    if (!clipboard) return;
    const HCURSOR before = BeginWait(theFrame.window);
    const CopyText copy = makeText();
    const bool put = copy.allocated && PutText(clipboard, copy.text);
    clipboard.reset();
    EndWait(before);
    if (!put) return Complain(theFrame.window, noMemory, kCopyErrorCaption);
    for (int said = 0; said < copy.complaints; ++said) Complain(theFrame.window, kCopyIncomplete, kCopyErrorCaption);
}

static void CopyVerses(const RangeDialog& kind) {
    const auto asked = AskRange(theFrame.window, kind, thePassage.view.TopVerse);
    if (!asked) return;
    const auto [first, last] = std::pair(asked->range.first, asked->range.last);
    Copy(kNoMemoryForText,
         [=] { return CopyRangeText(theScripture, theFormat, first, last, RangeCopyBudget(first, last)); });
}

void CopyVerse(int) {
    CopyVerses(kCopyVerse);
}

void CopyRange(int) {
    CopyVerses(kCopyRange);
}

void CopyVerseList(int) {
    if (ListedVerses().empty()) return;
    Copy(kNoMemoryForCopyText, [] {
        return CopyListText(theScripture, theFormat, ListedVerses(), ListCopyBudget(theScripture, ListedVerses()));
    });
}

void CopyReferences(int) {
    Copy(kNoMemoryForCopyText, [] { return CopyReferencesText(theScripture.records, ListedVerses()); });
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

// Creates a file at `path`, replacing an existing one. Null if that fails.
static OwnedFile CreateTextFile(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

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
    EndWait(before);
    if (problem) Complain(theFrame.window, problem, kSaveErrorCaption);
}

static const char* WriteRange(const AskedRange& asked, const NoteSource* notes, const OwnedFile& file) {
    return ProblemOf(
        SaveRangeText(theScripture, theFormat, asked.range.first, asked.range.last, notes, TextFileOf(file)));
}

static const char* WriteRange(const AskedRange& asked) {
    const OwnedFile file = CreateTextFile(asked.path);
    if (!file) return kCannotCreateText;
    if (asked.noteSet == kWithoutNotes) return WriteRange(asked, nullptr, file);
    NoteSet& set = theNoteSets.sets[static_cast<std::size_t>(asked.noteSet)];
    if (!CanReadNotes(TheNoteFiles(), set)) return kCannotOpenNotes;
    NoteReader notes{TheNoteFiles(), set};
    const NoteSource source = SourceOf(notes);
    return WriteRange(asked, &source, file);
}

void SaveRange(int) {
    const auto asked = AskRange(theFrame.window, kSaveRange, thePassage.view.TopVerse);
    if (asked) Save([&] { return WriteRange(*asked); });
}

void SaveVerseList(int) {
    if (ListedVerses().empty()) return;
    const std::wstring path = AskTextFileToSave(theFrame.window, kVerseListFile);
    if (path.empty()) return;
    Save([&] {
        const OwnedFile file = CreateTextFile(path);
        return ProblemOf(SaveListText(theScripture, ListedVerses(), TextFileOf(file)));
    });
}

void ChooseFormat(int) {
    AskFormat(theFrame.window);
}
