// Takes the pictures of the help from the real program. Run by help/take_pictures.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
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

TEST(Pictures, ShowTheWindowAfterASearch) {
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

struct DialogPicture {
    int command;
    const char* title;
    const char* topic;
};

static constexpr DialogPicture kDialogs[] = {
    {IDM_WORD_SEARCH, "Word Search", "ID_Search_Word"},
    {IDM_WORD_LIST_SEARCH, "Word Search", "ID_Search_WordList"},
    {IDM_PHRASE_SEARCH, "Phrase Search", "ID_Search_Phrase"},
    {IDM_SET_RANGE, "Set Search Range", "ID_Search_SetRange"},
    {IDM_GOTO_VERSE, "Go To Verse", "ID_Read_GoToVerse"},
    {IDM_COPY_VERSE, "Copy Verse", "ID_Edit_CopyVerse"},
    {IDM_COPY_RANGE, "Copy Range", "ID_Edit_CopyRange"},
    {IDM_SAVE_RANGE, "Save Range", "ID_File_SaveRange"},
    {IDM_PRINT_RANGE, "Print Range", "ID_File_PrintRange"},
    {IDM_FORMAT, "Copy/Save Format", "ID_Edit_Format"},
    {IDM_GOTO_NOTE, "Go to Note for Verse", "ID_Notes_GotoVerse"},
    {IDM_SEARCH_NOTES, "Search Note Set My Notes", "ID_Search_Notes"},
    {IDM_CREATE_NOTE_SET, "Create New Note Set", "ID_Notes_Create"},
};

TEST(Pictures, ShowTheDialogs) {
    Program program = StartForPictures();
    GoTo(program, "John 1:14");
    for (const DialogPicture& row : kDialogs) {
        Command(program, row.command);
        const HWND dialog = WaitForDialog(program, row.title);
        EXPECT_TRUE(SavePicture(PictureOfWindow(dialog), row.topic));
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}
