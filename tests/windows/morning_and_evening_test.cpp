// The note set of readings that the build generates, in the program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::StartsWith;

static constexpr int kOldCorn = 5946;         // Joshua 5:12
static constexpr int kHarvestIsPast = 19173;  // Jeremiah 8:20
static constexpr int kDevotionalMenu = 6;

static ScratchFolder FolderWithReadings() {
    ScratchFolder folder = FolderWithScripture();
    for (const char* ending : {".nmi", ".nmd", ".dti"}) {
        const std::string name = std::string("Morning and Evening") + ending;
        std::filesystem::copy_file(std::filesystem::path(Surroundings().data) / name, folder.path / name);
    }
    return folder;
}

static std::string Note(const Program& program) {
    return TextOf(NoteViewOf(program));
}

static auto IsTheFirstReading() {
    return AllOf(StartsWith("January 1, Morning\r\n\r\nAnd the manna ceased on the morrow"),
                 EndsWith("\r\nJoshua 5:12\r\n\r\nThe evening's reading:\r\n# So 1:4"));
}

TEST(MorningAndEvening, OpensReadingsByMenuAndByDate) {
    StartOptions options;
    options.date = "2026-12-31 20:00:00";
    const Program program = StartProgram(FolderWithReadings(), options);
    EXPECT_EQ(MenuBar(program).at(kDevotionalMenu), "&Devotional");
    EXPECT_THAT(TabLabels(program, Child(program.frame, {IDC_NOTE_TABS})), ElementsAre("Morning and Evening"));

    EXPECT_EQ(MenuText(program, IDM_DEVOTIONAL + kOldCorn), "Morning");
    Command(program, IDM_DEVOTIONAL + kOldCorn);
    EXPECT_EQ(Top(program), "Joshua 5:12");
    EXPECT_EQ(StatusPart(program, 2), "Joshua 5:12");
    EXPECT_THAT(Note(program), IsTheFirstReading());
    SavePicture(PictureOfWindow(program.frame), "morning-reading");
    DoubleClickNote(program, "So 1:4");
    EXPECT_THAT(ListStrings(ReferenceListOf(program)), ElementsAre("So 1:4"));

    Command(program, IDM_THIS_EVENING);
    EXPECT_EQ(Top(program), "Jeremiah 8:20");
    EXPECT_THAT(Note(program), StartsWith("December 31, Evening\r\n\r\nThe harvest is past,"));
    EXPECT_EQ(MenuText(program, IDM_DEVOTIONAL + kHarvestIsPast), "Evening");
}
