// Commands that move among notes and note sets.
#pragma once

// Shows the Notes window if it is hidden and sets the focus to it.
void FocusNotes();

// Shows the notes as they are now in the files: the current note, the stars before verses and the marks on the tabs.
// For commands that change the files of a set by themselves.
void ShowChangedNotes();

void GoToNote(int command);
void GoToNeighbouringNote(int command);  // previous or next verse with a note
void GoToNeighbouringSet(int command);   // previous or next set, wrapping around at the ends
void ShowNoteForPassage(int command);
void ShowNoteForList(int command);
void ShowVerseForNote(int command);
void ToggleBindNotes(int command);
void EditNote(int command);
void ShowEarlierNotes(int command);    // opens the one that is chosen in the editor
void ShowSavedNote(int command);       // sent when the editor has saved
void EndEditingNote(int command);      // sent when the editor has closed
void ShowNotesAsList(int command);     // asks which notes' verses the Verse List shall show
void ShowNotesAbout(int command);      // lists the notes that name a verse
void FollowListedNotes(int command);   // sent by a list of notes: shows the note of its current entry
void OpenNoteReference(int command);   // sent by the Notes window: reads the verse of the reference that was clicked
void ShowNoteReferences(int command);  // lists the verses of the cross-reference line that was followed
