// Takes the pictures for the help from the real program. Run by help/take_pictures.

#include <windows.h>

#include <gtest/gtest.h>

#include <set>

#include "resources/ids.h"
#include "tests/windows/exchange_steps.h"
#include "tests/windows/helped_dialogs.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static constexpr RECT kFramePlace = {0, 0, 1120, 760};

static const char kNote[] =
    "\"The Word was made flesh\": he that was \"with God\" and \"was God\" (1:1) came among men.\r\n"
    "\r\n"
    "Grace and truth belong together:\r\n"
    "# Ex 34:6; Ps 85:10; Joh 1:17\r\n";

static Program StartForPictures() {
    static constexpr int kJohn1 = 26045;
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "My Notes", {{kJohn1 + 13, kNote}});
    WriteNoteSet(folder, "Sermons");
    Program program = StartProgram(folder);
    PlaceFrame(program, kFramePlace);
    return program;
}

TEST(Pictures, OfTheWindowAfterASearch) {
    Program program = StartForPictures();
    SearchFor(program, {.text = "grace truth"});
    Command(program, IDM_CONTEXT);
    ReleaseMouse(program);
    EXPECT_EQ(Top(program), "John 1:14");
    SavePicture(PictureOfWindow(program.frame), "ID_FirstSteps");
    OpenNoteEditor(program);
    SavePicture(PictureOfWindow(program.frame), "ID_Notes_Edit");
    ClickEditorButton(program, IDC_NOTE_CANCEL);
}

// With the tip of one book, which is beside the list.
TEST(Pictures, OfHitsByBook) {
    Program program = StartForPictures();
    SearchFor(program, {.text = "grace"});
    Command(program, IDM_VIEW_HITS);
    const HWND strip = Child(program.frame, {IDC_LIST_TABS, IDC_HITS_STRIP});
    static constexpr int kRomans = 45, kBooks = 66, kRoomForTip = 230;
    const int height = static_cast<int>(ClientRectOf(strip).bottom);
    MoveMouse(program, strip, {10, (2 * kRomans - 1) * height / (2 * kBooks)});
    RECT place = RectOnScreen(Child(program.frame, {IDC_LIST_TABS}));
    place.right += kRoomForTip;
    EXPECT_TRUE(SavePicture(PictureOfScreen(place), "ID_Search_Hits"));
}

// If two dialogs share a help topic, the first one is the topic's picture. Those about earlier notes and other sets
// would be empty here.
TEST(Pictures, OfTheDialogs) {
    Program program = StartForPictures();
    GoTo(program, "John 1:14");
    std::set<std::string> shown = {"ID_Notes_Earlier", "ID_Notes_States", "ID_Notes_Merge", "ID_Notes_Import"};
    for (const HelpedDialog& row : HelpedDialogs()) {
        if (!shown.insert(row.topic).second) continue;
        Command(program, row.command);
        const HWND dialog = WaitForDialog(program, row.title);
        EXPECT_TRUE(SavePicture(PictureOfWindow(dialog), row.topic));
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

TEST(Pictures, OfAnImport) {
    Program program = StartForPictures();
    WriteFile(program.folder, "Notes from the laptop.csv",
              "Reference,Note\r\n"
              "Genesis 1:1,\"Compare the beginning of John's Gospel.\"\r\n"
              "John 1:14,\"\"\"The Word was made flesh\"\": he that was \"\"with God\"\" came among men, and dwelt "
              "there.\"\r\n"
              "Romans 8:99,\"More than conquerors\"\r\n");
    const HWND dialog = OpenImportOf(program, program.folder.path / "Notes from the laptop.csv");
    PressInOneGo(program, {"Down", "Down"});
    SetDlgItemTextA(dialog, IDC_IMPORT_FROM, "C:\\Notes from the laptop.csv");
    SavePicture(PictureOfWindow(dialog), "ID_Notes_Import");
}
