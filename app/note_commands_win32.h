// Commands that move among notes and note sets.
#pragma once

// Shows the Notes window if it is hidden and gives it the focus.
void FocusNotes();

void GoToNote(int command);
void GoToNeighbouringNote(int command);  // previous or next verse with a note
void GoToNeighbouringSet(int command);   // previous or next set, round the ends
void ShowNoteForPassage(int command);
void ShowNoteForList(int command);
void ShowVerseForNote(int command);
void ToggleBindNotes(int command);
void EditNote(int command);
void ShowSavedNote(int command);       // the editor has saved
void EndEditingNote(int command);      // the editor has closed
void ShowNoteReferences(int command);  // the verses of the cross-reference line that was followed
