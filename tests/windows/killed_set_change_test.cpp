// Kills the program at each file operation of renaming and of deleting a note set in turn, and starts it again. All
// notes must be in a whole data file or in a whole copy of it, and the earlier notes readable.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_history_files.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/session_steps.h"

using testing::Contains;

using Notes = std::map<int, std::string>;

static const Notes kNotes = {{0, "first"}, {7, "seven"}, {31101, "the last"}};
static const Notes kOther = {{3, "three"}};
static const KeptNote kEarlier = {7, 1, "seven before"};

// The set "Mine", which is the current one, with an earlier note, and another set.
static ScratchFolder FolderWithSets() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kNotes);
    WriteNoteSet(folder, "Other", kOther);
    WriteNoteHistory(folder, "Mine", {{1735603200, kEarlier.verse, KeptReason::kReplaced, kEarlier.text}});
    return folder;
}

// Is there a file with exactly these notes, of a set or in the folder of backups?
static bool HasNotes(const ScratchFolder& folder, const Notes& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "set", notes);
    const std::string data = ReadFile(expected, "set.nmd");
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path)) {
        const std::string name = std::filesystem::relative(entry.path(), folder.path).string();
        if (entry.is_regular_file() && name.ends_with(".nmd") && ReadFile(folder, name) == data) return true;
    }
    return false;
}

// Answers the dialog or question `title` of the command with `button` and kills the program at file operation number
// `operation` after that. False when there are fewer operations.
static bool KillDuring(const Program& program, int command, const char* title, WPARAM button, unsigned operation) {
    Command(program, command);
    const HWND box = WaitForDialog(program, title);
    if (command == IDM_RENAME_NOTE_SET) Type(program, "Renamed");
    EndAtFileOperation(program, operation);
    PostMessageA(box, WM_COMMAND, button, 0);
    WaitUntil(program, "the end of it", [&] { return !IsRunning(program) || !HasDialog(program); });
    Settle(program);
    if (IsRunning(program)) return false;
    EXPECT_EQ(WaitForExit(program), 9);
    return true;
}

// How often the set still had its name after the kill, and how often not.
struct Ends {
    int before = 0, after = 0;
};

static Ends KillAtEachOperation(int command, const char* title, WPARAM button) {
    Ends ends;
    bool isKilled = true;
    for (unsigned operation = 1; isKilled && !testing::Test::HasFailure(); operation += StepOfFileOperations()) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        const ScratchFolder folder = FolderWithSets();
        Program program = StartProgram(folder);
        isKilled = KillDuring(program, command, title, button, operation);
        program = {};
        program = StartOnWhatWasLeft(folder);
        EXPECT_TRUE(HasNotes(folder, kNotes));
        EXPECT_TRUE(HasNotes(folder, kOther));
        std::vector<KeptNote> kept = KeptNotes(folder, "Mine");
        for (const KeptNote& note : KeptNotes(folder, "Renamed")) kept.push_back(note);
        EXPECT_THAT(kept, Contains(kEarlier));
        ++(HasFile(folder, "Mine.nmd") ? ends.before : ends.after);
        EXPECT_EQ(CloseProgram(program), 0);
    }
    return ends;
}

TEST(KilledSetChange, LosesNothingWhenASetIsRenamed) {
    const Ends ends = KillAtEachOperation(IDM_RENAME_NOTE_SET, "Change name of note set Mine", IDOK);
    EXPECT_GE(ends.before, 1);
    EXPECT_GE(ends.after, 1);
}

TEST(KilledSetChange, LosesNothingWhenASetIsDeleted) {
    const Ends ends = KillAtEachOperation(IDM_DELETE_NOTE_SET, "Delete Note Set", IDYES);
    EXPECT_GE(ends.before, 5);
    EXPECT_GE(ends.after, 1);
}
