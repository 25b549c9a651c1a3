// Taking over the notes of another copy, with a kill at each file operation in turn and on a disk that becomes full:
// all is taken or nothing, and the other copy's folder stays as it is.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/session_steps.h"
#include "tests/windows/taking_steps.h"

using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

using Contents = std::map<std::string, std::string>;  // by the names of the files

static ScratchFolder FolderOfOlderCopy() {
    ScratchFolder folder = EmptyFolder();
    WriteNoteSet(folder, "Letters", {{0, "a letter"}, {31101, "the last"}});
    WriteNoteSet(folder, "Sermons", {{7, "a sermon"}});
    fs::create_directory(folder.path / "backup");
    WriteFile(folder, "backup/Sermons 2024-12-31.nmd", ReadFile(folder, "Sermons.nmd"));
    WriteFile(folder, "backup/Sermons 2024-12-31.nmi", ReadFile(folder, "Sermons.nmi"));
    return folder;
}

static ScratchFolder FolderOfProgram() {
    ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{3, "mine"}});
    return folder;
}

static Contents ContentsOf(const ScratchFolder& folder) {
    Contents contents;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path)) {
        const std::string name = fs::relative(entry.path(), folder.path).generic_string();
        if (entry.is_regular_file()) contents[name] = ReadFile(folder, name);
    }
    return contents;
}

static void ExpectNoCopiesLeft(const ScratchFolder& folder) {
    for (const auto& file : ContentsOf(folder)) EXPECT_THAT(file.first, Not(HasSubstr("Versewell.taken")));
}

// How many of the files are in the folder, each as it was.
static std::size_t CountTaken(const ScratchFolder& folder, const Contents& files) {
    return static_cast<std::size_t>(std::ranges::count_if(files, [&](const auto& file) {
        const bool isThere = HasFile(folder, file.first);
        EXPECT_TRUE(!isThere || ReadFile(folder, file.first) == file.second) << file.first;
        return isThere;
    }));
}

// Chooses the folder, and returns the question that asks for a confirmation.
static HWND BeginTaking(const Program& program, const ScratchFolder& older) {
    Command(program, IDM_TAKE_OVER_SETS);
    ChooseFolder(program, older);
    return WaitForDialog(program, kTakeOver);
}

static bool HasTaken(const Program& program) {
    return StatusPart(program, 0) == "2 note sets taken over";
}

TEST(KilledTaking, HasTakenAllOrNothing) {
    const ScratchFolder older = FolderOfOlderCopy();
    const Contents files = ContentsOf(older);
    int none = 0, all = 0;
    bool isKilled = true;
    for (unsigned operation = 1; isKilled && !HasFailure(); operation += StepOfFileOperations()) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        const ScratchFolder folder = FolderOfProgram();
        Program program = StartProgram(folder);
        const HWND question = BeginTaking(program, older);
        EndAtFileOperation(program, operation);
        PostMessageA(question, WM_COMMAND, IDOK, 0);
        WaitUntil(program, "the end of it", [&] { return !IsRunning(program) || !IsWindow(question); });
        Settle(program);
        isKilled = !IsRunning(program);
        EXPECT_EQ(ContentsOf(older), files);
        Kill(program);
        program = StartOnWhatWasLeft(folder);
        const std::size_t taken = CountTaken(folder, files);
        EXPECT_TRUE(taken == 0 || taken == files.size()) << taken;
        ++(taken == 0 ? none : all);
        ExpectNoCopiesLeft(folder);
        EXPECT_TRUE(HasFile(folder, "Mine.nmd"));
    }
    EXPECT_GE(none, 5);
    EXPECT_GE(all, 2);
}

TEST(TakingOnAFullDisk, TakesNothing) {
    const ScratchFolder older = FolderOfOlderCopy(), folder = FolderOfProgram();
    const Contents files = ContentsOf(older);
    Program program = StartProgram(folder);
    int refused = 0;
    for (unsigned operation = 1; !HasTaken(program) && !HasFailure(); operation += StepOfFileOperations()) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        const HWND question = BeginTaking(program, older);
        FillDiskAtFileOperation(program, operation);
        PostMessageA(question, WM_COMMAND, IDOK, 0);
        WaitUntil(program, "the question to be closed", [&] { return !IsWindow(question); });
        WaitUntil(program, "the end of it", [&] { return HasTaken(program) || HasDialog(program); });
        FillDiskAtFileOperation(program, 0);
        EXPECT_EQ(ContentsOf(older), files);
        EXPECT_EQ(CountTaken(folder, files), HasTaken(program) ? files.size() : 0);
        ExpectNoCopiesLeft(folder);
        if (HasTaken(program)) break;
        EXPECT_THAT(AnswerQuestion(program, IDOK), HasSubstr("could not be written. The disk may be full."));
        ++refused;
    }
    EXPECT_GE(refused, 5);
}
