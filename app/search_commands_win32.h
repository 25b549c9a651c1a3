// Commands that search the scripture and the notes.
#pragma once

void SearchWords(int command);
void SearchWordList(int command);
void SearchPhrase(int command);
void SearchNearWords(int command);
void SetRange(int command);
void ShowRange(int command);  // in the status bar
void SearchNotes(int command);
void SearchNoteSelection(int command);      // word or phrase search for the text selected in the note view
void SearchNotesForSelection(int command);  // search of the notes for that text

// Finds out about the texts what makes searches of the scripture faster, at the first call. Called while no input
// waits. False if there is nothing left to do.
bool PrepareSearchesInIdleTime();
