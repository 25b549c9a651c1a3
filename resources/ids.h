// Ids of commands, windows and controls, shared by menus, accelerators, toolbar, dialogs and code.
#pragma once

// Commands
#define IDM_ABOUT 101
#define IDM_EXIT 102
#define IDM_HELP_TOPICS 103
#define IDM_WORD_SEARCH 105
#define IDM_PHRASE_SEARCH 106
#define IDM_CONTEXT 108
#define IDM_PARAGRAPH_FORMAT 109
#define IDM_ITALIC_TEXT 110
#define IDM_ITALIC_BRACKETS 111
#define IDM_ITALIC_NORMAL 112
#define IDM_FOCUS_LIST 113
#define IDM_FOCUS_PASSAGE 114
#define IDM_GOTO_VERSE 116
#define IDM_PREVIOUS_VERSE 117
#define IDM_NEXT_VERSE 118
#define IDM_PREVIOUS_CHAPTER 119
#define IDM_NEXT_CHAPTER 120
#define IDM_PREVIOUS_BOOK 121
#define IDM_NEXT_BOOK 122
#define IDM_WORD_LIST_SEARCH 123
#define IDM_VIEW_LIST 125
#define IDM_VIEW_PASSAGE 126
#define IDM_VIEW_NOTES 127
#define IDM_VIEW_TOOLBAR 128
#define IDM_COPY_VERSE 129
#define IDM_COPY_RANGE 130
#define IDM_COPY_VERSE_LIST 131
#define IDM_COPY_REFERENCES 132
#define IDM_SAVE_RANGE 133
#define IDM_SAVE_VERSE_LIST 134
#define IDM_LIST_FONT 135
#define IDM_PASSAGE_FONT 137
#define IDM_NOTES_FONT 138
#define IDM_GOTO_BOOKMARK 139  // to 148, ten
#define IDM_SET_BOOKMARK 149   // to 158, ten
#define IDM_FORMAT 159
#define IDM_HIGHLIGHT_COLOR 160
#define IDM_CUT 161
#define IDM_COPY 162
#define IDM_PASTE 163
#define IDM_CONTEXT_MENU 164
#define IDM_SET_RANGE 165
#define IDM_HELP_RANGE 166
#define IDM_HELP_PREFACE 167
#define IDM_GOTO_NOTE 169
#define IDM_PREVIOUS_NOTE 170
#define IDM_NEXT_NOTE 171
#define IDM_PREVIOUS_NOTE_SET 172
#define IDM_NEXT_NOTE_SET 173
#define IDM_NOTE_FOR_PASSAGE 174
#define IDM_NOTE_FOR_LIST 175
#define IDM_EDIT_NOTE 176
#define IDM_SEARCH_NOTES 177
#define IDM_CREATE_NOTE_SET 178
#define IDM_DELETE_NOTE_SET 179
#define IDM_RENAME_NOTE_SET 180
#define IDM_VERSE_FOR_NOTE 181
#define IDM_TODAYS_PROVERB 182
#define IDM_BIND_NOTES 183
#define IDM_PAGE_SETUP 184
#define IDM_PRINT_RANGE 185
#define IDM_PRINT_VERSE_LIST 186
#define IDM_DELETE_ENTRY 187
#define IDM_NOTE_WORD_SEARCH 188
#define IDM_NOTE_PHRASE_SEARCH 189
#define IDM_NOTE_NOTE_SEARCH 190
#define IDM_THIS_MORNING 191
#define IDM_THIS_EVENING 192
#define IDM_EARLIER_NOTES 300
#define IDM_EARLIER_STATES 301
#define IDM_MERGE_SETS 302
#define IDM_UNDO 303
#define IDM_REDO 304
#define IDM_SELECT_ALL 305
#define IDM_FOCUS_NOTES 306
#define IDM_TAKE_OVER_SETS 307
#define IDM_DARK_OFF 320  // these three in the order of DarkPanesChoice
#define IDM_DARK_ON 321
#define IDM_DARK_AS_SYSTEM 322
#define IDM_BACK 330
#define IDM_FORWARD 331
#define IDM_ZOOM_IN 332
#define IDM_ZOOM_OUT 333
#define IDM_VIEW_HITS 340
#define IDM_COPY_HITS 341
#define IDM_LIST_NOTES 350
#define IDM_NOTES_ABOUT 351
#define IDM_NEAR_SEARCH 360
#define IDM_EXPORT_NOTES 370
#define IDM_IMPORT_NOTES 371
#define IDM_REFRESH 900           // sent by a pane to its frame: the state of commands may have changed
#define IDM_SHOW_REFERENCES 901   // sent by the Notes window: show the verses of the double-clicked line
#define IDM_END_EDITING 902       // sent by the note editor when it has closed
#define IDM_MARK_NOTE_SETS 903    // sent by the Passage and the Verse List when they have painted
#define IDM_SHOW_RANGE 904        // sent by a dialog when the range of the searches has changed
#define IDM_READ_ENTRY 905        // sent by the Verse List: read the context of the current entry
#define IDM_SHOW_SAVED_NOTE 907   // sent by the note editor when it has saved the note
#define IDM_NOTES_CHANGED 908     // sent by the Notes window: notes have come or gone since the stars were shown
#define IDM_BEGIN_THUMB_DRAG 930  // sent by a pane when the thumb of its scroll bar is taken, and when it is let go
#define IDM_END_THUMB_DRAG 931
#define IDM_OFFER_MERGE 917     // sent at the end of the start: offer to merge what conflicts have left
#define IDM_FOLLOW_LIST 940     // sent by the Verse List at rest: the note of its current entry is to be shown
#define IDM_LIST_CHANGED 941    // sent by the Verse List: it has other entries
#define IDM_OPEN_REFERENCE 945  // sent by the Notes window: read the verse of the reference that was clicked
#define IDM_GOTO_BOOK 1000      // plus the number of the book, 1 to 66
#define IDM_DEVOTIONAL 2000     // plus a verse index

// Windows
#define IDC_LIST_TABS 1
#define IDC_PASSAGE_TABS 2
#define IDC_VERSE_LIST 3
#define IDC_REFERENCE_LIST 5
#define IDC_TOOLBAR 6
#define IDC_NOTE_TABS 7
#define IDC_NOTES 8
#define IDC_NOTE_VIEW 9
#define IDC_PASSAGE 10      // in the Passage's tab control
#define IDC_NOTE_EDITOR 10  // in the frame
#define IDC_NOTE_EDIT 13    // in the note editor
#define IDC_STATUS_BAR 14
#define IDC_HITS_STRIP 15
#define IDC_NOTE_SAVE 211
#define IDC_NOTE_CANCEL 212
#define IDC_NOTE_HELP 213

// Controls of dialogs
#define IDC_HELP_BUTTON 9   // in every dialog with help
#define IDC_SEARCH_TEXT 10  // the search dialogs, Go To Verse
#define IDC_ALL_WORDS 11
#define IDC_ANY_WORD 12
#define IDC_ONE_WORD 13
#define IDC_CASE_SENSITIVE 14
#define IDC_SUBSTRING 15
#define IDC_ADD_WORD 18
#define IDC_WORD_LIST 19
#define IDC_RANGE 20              // the Range button of search dialogs; the field for verses, except in the next two
#define IDC_REFERENCE 10          // Go To Verse, Go to Note for Verse
#define IDC_REFERENCE_MEANING 21  // the line below the field for verses
#define IDC_SET_NAME 10           // Create New Note Set, Change name of note set
#define IDC_OLD_TESTAMENT 101
#define IDC_NEW_TESTAMENT 102
#define IDC_ENTIRE_BIBLE 103
#define IDC_FORMAT_BUTTON 10  // Copy Verse, Copy Range, Save Range, Print Range
#define IDC_INCLUDE_NOTES 11
#define IDC_NOTE_SET 12
#define IDC_FIRST_FULL 10  // Copy/Save Format
#define IDC_FIRST_PARTIAL 11
#define IDC_FIRST_NONE 12
#define IDC_SUBSEQUENT_FULL 13
#define IDC_SUBSEQUENT_PARTIAL 14
#define IDC_SUBSEQUENT_NONE 15
#define IDC_LABEL_BEFORE 16
#define IDC_LABEL_AFTER 17
#define IDC_LINE_BREAKS 18
#define IDC_PARAGRAPH_MARKS 19
#define IDC_BRACKETS 101
#define IDC_COPIED_VERSES 102
#define IDC_FIND_NEXT 101   // Search Note Set
#define IDC_NOTE_TEXT 102   // Search Note Set: Find What
#define IDC_MERGED_COPY 10  // Merge Sets
#define IDC_MERGED_SET 12
#define IDC_MERGED_NOTES 101
#define IDC_TEXT_IN_SET 102
#define IDC_TEXT_IN_COPY 103
#define IDC_MERGE_COUNTS 104
#define IDC_SEARCH_PROGRESS 101  // Searching...
#define IDC_STATES 101           // Earlier Notes, Earlier States
#define IDC_STATE_TEXT 102
#define IDC_COPY_STATE 103
#define IDC_STATE_VERSES 104
#define IDC_RESTORE_SET 105
#define IDC_EDITION 101  // About
#define IDC_TEXT_COUNTS 102
#define IDC_TEXT_FILES 103
#define IDC_NEAR_COUNTS 101  // Words Near Each Other
#define IDC_NEAR_IN_WORDS 102
#define IDC_NEAR_IN_VERSE 103
#define IDC_NEAR_IN_VERSES 104
#define IDC_NEAR_DISTANCE 105
#define IDC_NEAR_IN_ORDER 106
#define IDC_LISTED_WORDS 10  // List Notes
#define IDC_LIST_CURRENT_SET 11
#define IDC_LIST_ALL_SETS 12
#define IDC_LIST_IN_RANGE 13
#define IDC_EXPORTED_SET 10  // Export Notes
#define IDC_EXPORT_FORMAT 11
#define IDC_EXPORT_VERSES 12
#define IDC_IMPORT_FROM 10  // Import Notes
#define IDC_IMPORT_FILE 11
#define IDC_IMPORT_FOLDER 12
#define IDC_IMPORT_SET 13
#define IDC_NEW_SET_NAME 14
#define IDC_IMPORTED_NOTES 101
#define IDC_IMPORTED_TEXT 102
#define IDC_IMPORT_COUNTS 103
#define IDC_KEEP_SETS 104
#define IDC_TAKE_IMPORTED 105
#define IDC_KEEP_BOTH 106
#define IDC_FOR_ALL_ALIKE 107
#define IDC_STOP_PRINTING 110  // Printing...
#define IDC_PRINTED_PAGE 101
#define IDC_SPLASH_LINE 111

// Pictures
#define IDB_TOOLBAR 200
#define IDB_TOOLBAR_24 201  // the same pictures in other sizes
#define IDB_TOOLBAR_32 202
#define IDB_TOOLBAR_20 203
#define IDB_TOOLBAR_28 204
#define IDB_TOOLBAR_40 205
#define IDB_TOOLBAR_48 206
#define IDB_TITLE_525 207  // Title_BMP, 420 pixels wide, in other sizes
#define IDB_TITLE_630 208
#define IDB_TITLE_735 209
#define IDB_TITLE_840 210
#define IDB_TITLE_1050 211
#define IDB_TITLE_1260 212
