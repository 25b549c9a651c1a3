#include "app/taken_sets_win32.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/frame_win32.h"
#include "app/note_commands_win32.h"
#include "app/note_set_commands_win32.h"
#include "app/profile_file_win32.h"
#include "app/session.h"
#include "app/set_checks_win32.h"
#include "app/settings.h"
#include "app/single_instance_win32.h"
#include "notes/file_names.h"
#include "notes/note_files_win32.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "notes/taken_sets.h"
#include "pane/status_bar_win32.h"
#include "win32/code_page.h"
#include "win32/files.h"
#include "win32/folder_dialog.h"

static constexpr wchar_t kCaption[] = L"Take Over Notes";
static constexpr char kDeliveredFolder[] = "Morning and Evening";  // beside the program

static int Ask(HWND owner, const std::wstring& text, UINT style) {
    return MessageBoxW(owner, text.c_str(), kCaption, style);
}

// ---- Taking ---------------------------------------------------------------------------------------------------------

static std::wstring Problem(SetTaking result) {
    switch (result) {
        case SetTaking::kTaken: return L"";
        case SetTaking::kCannotRead:
            return L"Nothing was taken over, because a file could not be read. Close the other copy of Versewell, "
                   L"if it is running, and any program that keeps its folder in step.";
        case SetTaking::kCannotWrite:
            return L"Nothing was taken over, because the files could not be written. The disk may be full.";
        case SetTaking::kNotFinished: break;
    }
    return L"Not everything could be put in place. The next start of Versewell tries again.";
}

static bool Take(HWND owner, const NoteFiles& from, const SetsToTake& found) {
    const std::wstring problem = Problem(TakeSets(from, TheNoteFiles(), found));
    if (!problem.empty()) Ask(owner, problem, MB_OK | MB_ICONEXCLAMATION);
    return problem.empty();
}

static std::wstring WithFolder(const std::wstring& folder, const std::wstring& text) {
    static constexpr std::size_t kMostLetters = 100;  // a box grows with its longest word
    return Wide(WithoutMiddle(LettersOf(WithoutLongPrefix(folder)), kMostLetters)) + L"\n\n" + text;
}

static bool HasNoName(const std::wstring& file) {
    const auto name = InCodePage(file);
    return !name || !IsFileName(*name);
}

// Data files of which NoteFiles has no name. The system also finds those with a longer extension.
static std::vector<std::u16string> UnnamedSets(const std::wstring& folder) {
    const std::wstring ending = Wide(kDataEnding);
    std::vector<std::u16string> names;
    for (const std::wstring& file : FilesIn(folder, ("*" + std::string(kDataEnding)).c_str())) {
        const std::size_t start = file.size() - std::min(file.size(), ending.size());
        if (HasNoName(file) && lstrcmpiW(file.c_str() + start, ending.c_str()) == 0) names.push_back(LettersOf(file));
    }
    return names;
}

// What was typed last and the latest settings are only in the session file, which belongs to its program and stays. The
// notes in that of a program that was ended are offered here too: its folder may be removed as soon as it is copied.
static std::wstring TextOfOpenSession(const NoteFiles& from, const std::wstring& folder) {
    if (!from.stamp(from.device, kSessionFile).exists) return L"";
    if (IsFolderClaimed(folder))
        return L"\n\nThat copy is running. Close it first, so that a note that is being written there is stored and "
               L"its "
               L"settings are up to date.";
    const std::wstring text =
        L"\n\nThat copy has not been closed. Start it and close it first, so that its settings are "
        L"up to date.";
    return DraftsIn(from).empty() ? text : text + L" The note that was being written there is offered here, too.";
}

namespace {

struct Taken {
    SetsToTake sets;
    std::vector<NoteDraft> drafts;  // that were being written there
};

}  // namespace

// Lets the user choose a folder until one has sets to take over, and confirms them. None if nothing was taken.
static std::optional<Taken> AskAndTake(HWND owner) {
    static const std::array<std::string, 2> kSettings = {kMoreSettingsFile, kSettingsFile};
    while (true) {
        std::wstring folder = AskFolder(owner, L"Folder of the other copy of Versewell");
        if (folder.empty()) return std::nullopt;
        const NoteFiles from = NoteFilesIn(folder);
        SetsToTake found = FindSetsToTake(from, TheNoteFiles(), kSettings);
        found.unnamed = UnnamedSets(folder);
        const std::wstring names = Wide(TextOfSetsToTake(from.codePage, found));
        if (found.sets.empty()) {
            const std::wstring none = IsMissing(folder) ? L"This folder does not exist."
                                      : names.empty()   ? L"There are no note sets in this folder."
                                                        : names;
            if (Ask(owner, WithFolder(folder, none), MB_RETRYCANCEL | MB_ICONINFORMATION) != IDRETRY)
                return std::nullopt;
            continue;
        }
        const std::wstring question =
            names + TextOfOpenSession(from, folder) + L"\n\nThey are copied, and the folder stays as it is. Continue?";
        if (Ask(owner, WithFolder(folder, question), MB_OKCANCEL | MB_ICONQUESTION) != IDOK) return std::nullopt;
        if (!Take(owner, from, found)) return std::nullopt;
        return Taken{std::move(found), IsFolderClaimed(folder) ? std::vector<NoteDraft>() : DraftsIn(from)};
    }
}

// ---- The first start ------------------------------------------------------------------------------------------------

static void OfferToTake() {
    const std::wstring text =
        L"Versewell keeps your notes in this folder, which has none yet:\n\n" + WithoutLongPrefix(WorkingFilePath("")) +
        L"\n\nIf you have used another copy of Versewell, its notes and settings can be copied to it. Do you want to "
        L"choose the folder of that copy now?\n\nNotes, Note Sets, Take Over Notes does so at any time.";
    if (Ask(nullptr, text, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) != IDYES) return;
    if (auto taken = AskAndTake(nullptr)) theFrame.takenDrafts = std::move(taken->drafts);
}

static void PutInFront(const char* setName) {
    std::wstring path = WorkingFilePath(kMoreSettingsFile);
    const ProfileFile profile = ProfileAt(path);
    MoreSettings settings = LoadMoreSettings(profile);
    settings.CurrentSet = setName;
    SaveMoreSettings(profile, settings);
}

// The user's first note should not be added to the readings, so there is another set, and it is in front.
static void AddFirstSet() {
    NoteSet set = EmptyNoteSet(kFirstSetName);
    if (CreateNoteFiles(TheNoteFiles(), set) == 2) PutInFront(kFirstSetName);
}

static void AddDeliveredSets() {
    static std::wstring folder = PathIn(ProgramFolder(), Wide(kDeliveredFolder));
    if (!IsThere(folder)) return;
    const NoteFiles from = NoteFilesIn(folder);
    const bool isFirst = HasNoSets(TheNoteFiles());
    const SetsToTake found = FindSetsToTake(from, TheNoteFiles(), {});
    if (found.sets.empty() || TakeSets(from, TheNoteFiles(), found) != SetTaking::kTaken) return;
    if (isFirst) AddFirstSet();
}

void PrepareSets() {
    if (!CanWriteWorkingFolder()) return;
    FinishTaking(TheNoteFiles());
    if (!HasNoSets(TheNoteFiles())) return;
    if (IsInstalledCopy()) OfferToTake();
    if (TheNoteFiles().list(TheNoteFiles().device, std::string("*") + kTableEnding).empty()) AddDeliveredSets();
}

// ---- The command ----------------------------------------------------------------------------------------------------

// Opens them as at a start, with all repairs, and goes on with the note that was shown.
static void OpenSetsAgain() {
    const NoteSet* set = CurrentSet(theNoteSets);
    const std::string name = set != nullptr ? NoteSetName(*set) : "";
    const int verse = theNoteSets.currentVerse;
    const OpeningSets opening = BeginToLoadNoteSets();
    OpenSets();
    SelectStoredNote(theNoteSets, SetNamed(theNoteSets, name), verse);
    UpdateDevotionalMenu();
    ShowNoteTabs({});
    LayOut();
    ReadNote(theNoteSets.currentVerse);
    UpdateNoteMarks(0);
}

void TakeOverSets(int) {
    auto taken = AskAndTake(theFrame.window);
    if (taken) {
        OpenSetsAgain();
        TellSetsNotShown();
        if (theNoteSets.notShown.empty())
            ShowStatus(StatusPart::kSearchSummary, NearestInCodePage(Wide(TextOfTakenSets(taken->sets))));
    }
    FocusNotes();
    if (taken) theFrame.takenDrafts = std::move(taken->drafts);
}
