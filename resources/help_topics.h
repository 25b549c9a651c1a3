// The help file and its topics.
#pragma once

inline constexpr char kHelpFile[] = "quill97.hlp";

inline constexpr char kTopicSpecifyRange[] = "ID_SpecifyRange";
inline constexpr char kTopicPreface[] = "ID_Preface";
inline constexpr char kTopicWordSearch[] = "ID_Search_Word";
inline constexpr char kTopicWordListSearch[] = "ID_Search_WordList";
inline constexpr char kTopicPhraseSearch[] = "ID_Search_Phrase";
inline constexpr char kTopicNearSearch[] = "ID_Search_Near";
inline constexpr char kTopicSetRange[] = "ID_Search_SetRange";
inline constexpr char kTopicGotoVerse[] = "ID_Read_GoToVerse";
inline constexpr char kTopicNoteSets[] = "ID_Notes_Create";  // creating and renaming
inline constexpr char kTopicMergeSets[] = "ID_Notes_Merge";
inline constexpr char kTopicSearchNotes[] = "ID_Search_Notes";
inline constexpr char kTopicCopyVerse[] = "ID_Edit_CopyVerse";
inline constexpr char kTopicCopyRange[] = "ID_Edit_CopyRange";
inline constexpr char kTopicSaveRange[] = "ID_File_SaveRange";
inline constexpr char kTopicFormat[] = "ID_Edit_Format";
inline constexpr char kTopicGotoNote[] = "ID_Notes_GotoVerse";
inline constexpr char kTopicListNotes[] = "ID_Notes_List";
inline constexpr char kTopicExportNotes[] = "ID_Notes_Export";
inline constexpr char kTopicImportNotes[] = "ID_Notes_Import";
inline constexpr char kTopicNoteEditor[] = "ID_Notes_Edit";
inline constexpr char kTopicEarlierNotes[] = "ID_Notes_Earlier";
inline constexpr char kTopicEarlierStates[] = "ID_Notes_States";
inline constexpr char kTopicPrintRange[] = "ID_File_PrintRange";
