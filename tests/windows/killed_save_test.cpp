// Kills the program at each file operation of a save in turn, also in the middle of each write, and starts it again.
// The three edits take turns with every second operation; in a long run, each is stopped at all of them. All notes must
// still be there; the edited one must be complete, in its old or in its new version, and its other version must be
// among the earlier notes if it was on the disk.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/session_steps.h"

namespace {

struct NoteEdit {
    int verse;
    TextSelection selected;  // the text that is replaced
    const char* typed;       // its replacement
    const char* after;       // the whole note afterwards
    const char* shown;       // by the note view afterwards
};

}  // namespace

static constexpr char kNoteBefore[] = "as it was";

static std::map<int, std::string> NotesWith(const NoteEdit& edit, const std::string& text) {
    std::map<int, std::string> notes = {{3, "three"}, {14999, "before the middle"}, {31000, "near the end"}};
    notes[edit.verse] = text;
    return notes;
}

// ---- The files ------------------------------------------------------------------------------------------------------

static std::string IndexOf(const std::string& data) {
    std::vector<unsigned> offsets = {0};
    for (std::size_t end = data.find('\0'); end + 1 < data.size(); end = data.find('\0', end + 1))
        offsets.push_back(static_cast<unsigned>(end + 1));
    return IndexBytes(offsets);
}

namespace {

// In the order in which a save goes through them; from kNoData on, the note has its new text.
enum class SaveState { kUntouched, kTempTorn, kTempWhole, kNoData, kIndexStale, kIndexTorn, kSaved };

}  // namespace

static SaveState StateOf(const ScratchFolder& folder, const std::string& dataBefore) {
    using enum SaveState;
    if (!HasFile(folder, "Mine.nmd")) return kNoData;
    const std::string index = ReadFile(folder, "Mine.nmi");
    if (index.size() != std::size_t{kVerseCount} * 4) return kIndexTorn;
    const std::string data = ReadFile(folder, "Mine.nmd");
    if (index != IndexOf(data)) return kIndexStale;
    if (data != dataBefore) return kSaved;
    if (!HasFile(folder, "Mine.nmd.temp")) return kUntouched;
    const std::string temp = ReadFile(folder, "Mine.nmd.temp");
    return std::count(temp.begin(), temp.end(), '\0') == kVerseCount ? kTempWhole : kTempTorn;
}

static void ExpectFilesOf(const ScratchFolder& folder, const std::map<int, std::string>& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "Mine", notes);
    for (const char* file : {"Mine.nmd", "Mine.nmi"})
        EXPECT_TRUE(ReadFile(folder, file) == ReadFile(expected, file)) << file;
}

// ---- One kill -------------------------------------------------------------------------------------------------------

// Waits until the session file ends with the note that is being edited.
static void WaitForDraft(const Program& program, std::string_view text) {
    const std::string end = IndexBytes({static_cast<unsigned>(text.size())}) + std::string(text);
    WaitUntil(program, "the note in the session file",
              [&] { return ReadFile(program.folder, kSessionFileName).ends_with(end); });
}

// Kills the program at file operation number `operation` after the click on Save. False when the save has fewer
// operations.
static bool KillWhileSaving(const Program& program, const NoteEdit& edit, unsigned operation) {
    OpenNoteEditor(program);
    SelectRich(program, NoteEditOf(program), edit.selected);
    if (*edit.typed != '\0')
        Type(program, edit.typed);
    else
        Press(program, "Delete");
    WaitForDraft(program, edit.after);  // whose writing would be among the operations
    WaitUntil(program, "the session file", [&] { return HoldsSession(program.folder, kNoteBefore); });
    EndAtFileOperation(program, operation);
    const HWND editor = NoteEditorOf(program);
    PostMessageA(editor, WM_COMMAND, IDC_NOTE_SAVE, 0);
    WaitUntil(program, "the end of the save", [&] { return !IsRunning(program) || !IsWindowVisible(editor); });
    if (IsRunning(program)) return false;
    EXPECT_EQ(WaitForExit(program), 9);
    return true;
}

// Starts again on the files that were left. A message box must report a repair or a text that a temporary file has, and
// only these. If the note was not saved, its text is offered and refused.
static Program StartAgain(const ScratchFolder& folder, SaveState found, const NoteEdit& edit) {
    const bool isMended =
        found == SaveState::kNoData || found == SaveState::kIndexStale || found == SaveState::kIndexTorn;
    Program program = LaunchProgram(folder);
    if (isMended || (found == SaveState::kTempWhole && *edit.after != '\0')) {
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_THAT(MessageText(box), testing::HasSubstr("\"Mine\""));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    WaitForFrame(program);
    if (found < SaveState::kNoData) {
        EXPECT_THAT(MessageText(WaitForDialog(program, "Versewell97")), testing::HasSubstr("Continue?"));
        Press(program, "n");
        WaitForNoDialog(program);
        WaitUntil(program, "the note to leave the session file", [&] { return !HoldsSession(folder, kNoteBefore); });
    }
    EXPECT_FALSE(HasDialog(program));
    return program;
}

static void ExpectOtherVersion(const ScratchFolder& folder, SaveState found, const NoteEdit& edit) {
    static constexpr int kReplaced = 1, kLeftOver = 6;
    const std::vector<KeptNote> notes = KeptNotes(folder, "Mine");
    const auto isKept = [&](int reason, const char* text) {
        return std::ranges::find(notes, KeptNote{edit.verse, reason, text}) != notes.end();
    };
    EXPECT_TRUE(found < SaveState::kNoData || isKept(kReplaced, kNoteBefore));
    if (found != SaveState::kTempWhole) return;
    EXPECT_FALSE(HasFile(folder, "Mine.nmd.temp"));
    EXPECT_TRUE(*edit.after == '\0' || isKept(kLeftOver, edit.after));
}

// Starts with the note in its state before the edit.
static Program StartAnew(const ScratchFolder& folder, const NoteEdit& edit) {
    WriteNoteSet(folder, "Mine", NotesWith(edit, kNoteBefore));
    std::filesystem::remove(folder.path / kSessionFileName);
    return StartProgram(folder);
}

static void KillAtFileOperations(const NoteEdit& edit, unsigned turn) {
    using enum SaveState;
    static constexpr unsigned kEdits = 3;
    const unsigned step = IsLongRun() ? 1 : 2 * kEdits;
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(edit.verse));
    std::set<SaveState> seen;
    Program program = StartAnew(folder, edit);
    const std::string before = ReadFile(folder, "Mine.nmd");
    bool isKilled = true;
    for (unsigned operation = 1 + turn % step; isKilled && !testing::Test::HasFailure(); operation += step) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        std::filesystem::remove_all(folder.path / "backup");
        isKilled = KillWhileSaving(program, edit, operation);
        program = {};
        const SaveState found = StateOf(folder, before);
        seen.insert(found);
        EXPECT_TRUE(isKilled || found == kSaved);

        const bool isNew = found >= kNoData;
        program = StartAgain(folder, found, edit);
        EXPECT_EQ(TextOf(NoteViewOf(program)), isNew ? edit.shown : kNoteBefore);
        ExpectFilesOf(folder, NotesWith(edit, isNew ? edit.after : kNoteBefore));
        ExpectOtherVersion(folder, found, edit);
        if (isNew && isKilled) {
            program = {};
            program = StartAnew(folder, edit);
        }
    }
    std::set<SaveState> all = {kUntouched, kTempTorn, kTempWhole, kNoData, kIndexStale, kIndexTorn, kSaved};
    if (edit.verse == kLastVerse) all.erase(kIndexStale);     // no later note moves
    if (!IsLongRun()) all = {kUntouched, kTempTorn, kSaved};  // the others last for one or two operations
    EXPECT_THAT(seen, testing::IsSupersetOf(all));
}

TEST(KilledSave, KeepsAllNotesWhenTheFirstGrows) {
    KillAtFileOperations({0, {0, 0}, "ever ", "ever as it was", "ever as it was"}, 0);
}

TEST(KilledSave, KeepsAllNotesWhenAMiddleOneShrinks) {
    KillAtFileOperations({15000, {2, 9}, "", "as", "as"}, 1);
}

TEST(KilledSave, KeepsAllOtherNotesWhenTheLastIsEmptied) {
    KillAtFileOperations({kLastVerse, {0, -1}, "", "", "No note for Revelation 22:21."}, 2);
}
