#include "tests/windows/helped_dialogs.h"

#include "resources/ids.h"

static constexpr HelpedDialog kDialogs[] = {
    {IDM_WORD_SEARCH, "Word Search", "ID_Search_Word"},
    {IDM_WORD_LIST_SEARCH, "Word Search", "ID_Search_WordList"},
    {IDM_PHRASE_SEARCH, "Phrase Search", "ID_Search_Phrase"},
    {IDM_NEAR_SEARCH, "Words Near Each Other", "ID_Search_Near"},
    {IDM_SET_RANGE, "Set Search Range", "ID_Search_SetRange"},
    {IDM_GOTO_VERSE, "Go To Verse", "ID_Read_GoToVerse"},
    {IDM_COPY_VERSE, "Copy Verse", "ID_Edit_CopyVerse"},
    {IDM_COPY_RANGE, "Copy Range", "ID_Edit_CopyRange"},
    {IDM_SAVE_RANGE, "Save Range", "ID_File_SaveRange"},
    {IDM_PRINT_RANGE, "Print Range", "ID_File_PrintRange"},
    {IDM_EXPORT_NOTES, "Export Notes", "ID_Notes_Export"},
    {IDM_IMPORT_NOTES, "Import Notes", "ID_Notes_Import"},
    {IDM_FORMAT, "Copy/Save Format", "ID_Edit_Format"},
    {IDM_GOTO_NOTE, "Go to Note for Verse", "ID_Notes_GotoVerse"},
    {IDM_LIST_NOTES, "List Notes", "ID_Notes_List"},
    {IDM_SEARCH_NOTES, "Search Note Set My Notes", "ID_Search_Notes"},
    {IDM_CREATE_NOTE_SET, "Create New Note Set", "ID_Notes_Create"},
    {IDM_EARLIER_NOTES, "Earlier Notes for Genesis 1:1 in \"My Notes\"", "ID_Notes_Earlier"},
    {IDM_EARLIER_STATES, "Earlier States of Note Sets", "ID_Notes_States"},
    {IDM_RENAME_NOTE_SET, "Change name of note set My Notes", "ID_Notes_Create"},
    {IDM_MERGE_SETS, "Merge Sets", "ID_Notes_Merge"},
};

std::span<const HelpedDialog> HelpedDialogs() {
    return kDialogs;
}
