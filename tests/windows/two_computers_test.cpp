// The program runs on two computers with copies of one folder. The files of a set arrive from the other computer one at
// a time, at every step of an edit.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::HasSubstr;

static constexpr int kVerse = 5;
static constexpr std::size_t kEndings = 2;
static constexpr const char* kEnding[kEndings] = {".nmd", ".nmi"};

namespace {

// The two files of the set "Mine".
struct SetBytes {
    std::string file[kEndings];
};

enum Moment { kBeforeOpening, kWhileOpen, kAfterTyping, kAfterTheFirstSave };

}  // namespace

static SetBytes FilesOf(const ScratchFolder& folder) {
    SetBytes set;
    for (std::size_t i = 0; i < kEndings; ++i) set.file[i] = ReadFile(folder, std::string("Mine") + kEnding[i]);
    return set;
}

static ScratchFolder FolderInStep() {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "First."}, {kVerse, "Old."}, {kLastVerse, "Last."}});
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(kVerse));
    return folder;
}

// As programs that synchronize folders do it: a file is replaced if it is as both computers had it; otherwise the one
// that arrives gets another name.
static void Arrive(const ScratchFolder& folder, const SetBytes& inStep, const SetBytes& other, std::size_t which) {
    const std::string name = std::string("Mine") + kEnding[which];
    const bool isChangedHere = ReadFile(folder, name) != inStep.file[which];
    WriteFile(folder, "~coming", other.file[which]);
    const std::string target = isChangedHere ? "Mine (conflict)" + std::string(kEnding[which]) : name;
    std::filesystem::rename(folder.path / "~coming", folder.path / target);
}

static void BringToFront(const Program& program) {
    SetForegroundWindow(program.frame);
    WaitUntil(program, "the program to be in front", [&] { return GetForegroundWindow() == program.frame; });
    Settle(program);
}

// Saves and answers all boxes with Enter.
static void SaveInEditor(const Program& program) {
    Press(program, "Ctrl+s");
    while (HasDialog(program)) {
        Press(program, "Enter");
        Settle(program);
    }
}

static bool IsEditing(const Program& program) {
    return IsShown(NoteEditorOf(program));
}

static std::string NoteIn(const ScratchFolder& folder) {
    std::string data = ReadFile(folder, "Mine.nmd");
    for (int verse = 0; verse < kVerse; ++verse) data.erase(0, data.find('\0') + 1);
    return data.substr(0, data.find('\0'));
}

// Everything in which a text can be found again.
static std::string AllTexts(const ScratchFolder& folder) {
    std::string texts;
    for (const char* name : {"Mine.nmd", "Mine (conflict).nmd", "backup/Mine.nmh"}) texts += ReadFile(folder, name);
    return texts;
}

// Edits and saves in `home` while the files come in at the two moments.
static void EditMeanwhile(const Program& home, const SetBytes& office, std::size_t first, Moment firstAt,
                          Moment secondAt) {
    const SetBytes inStep = FilesOf(home.folder);
    const auto reach = [&](Moment moment) {
        if (moment == firstAt) Arrive(home.folder, inStep, office, first);
        if (moment == secondAt) Arrive(home.folder, inStep, office, 1 - first);
    };
    reach(kBeforeOpening);
    OpenNoteEditor(home);
    reach(kWhileOpen);
    Type(home, "Home. ");
    reach(kAfterTyping);
    SaveInEditor(home);
    reach(kAfterTheFirstSave);
    for (int tries = 0; tries < 3 && IsEditing(home); ++tries) SaveInEditor(home);
    EXPECT_FALSE(IsEditing(home));
}

TEST(TwoComputers, LoseNoTextAtAnyStepOfAnEdit) {
    static constexpr Moment kMoments[] = {kBeforeOpening, kWhileOpen, kAfterTyping, kAfterTheFirstSave};
    Program office = StartProgram(FolderInStep());
    OpenNoteEditor(office);
    Type(office, "Office. ");
    SaveInEditor(office);
    const SetBytes fromOffice = FilesOf(office.folder);
    ASSERT_EQ(NoteIn(office.folder), "Office. Old.");
    for (const std::size_t first : {std::size_t{0}, std::size_t{1}}) {
        for (const Moment firstAt : kMoments) {
            for (const Moment secondAt : {firstAt, static_cast<Moment>(firstAt + 1)}) {
                if (secondAt > kAfterTheFirstSave) continue;
                SCOPED_TRACE(testing::Message()
                             << kEnding[first] << " at " << firstAt << ", the other at " << secondAt);
                Program home = StartProgram(FolderInStep());
                EditMeanwhile(home, fromOffice, first, firstAt, secondAt);
                EXPECT_THAT(AllTexts(home.folder), HasSubstr("Home. "));
                EXPECT_THAT(AllTexts(home.folder), HasSubstr("Office. "));
                EXPECT_EQ(std::ranges::count(ReadFile(home.folder, "Mine.nmd"), '\0'), kVerseCount);

                const SetBytes fromHome = FilesOf(home.folder);
                for (std::size_t i = 0; i < kEndings; ++i) Arrive(office.folder, FilesOf(office.folder), fromHome, i);
                BringToFront(home);
                BringToFront(office);
                WaitUntil(office, "the note to be shown",
                          [&] { return TextOf(NoteViewOf(office)) == NoteIn(home.folder); });
                CloseProgram(home);
            }
        }
    }
}
