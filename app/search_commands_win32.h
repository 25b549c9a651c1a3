// Commands that search the scripture.
#pragma once

void SearchWords(int command);
void SearchWordList(int command);
void SearchPhrase(int command);
void SetRange(int command);
void ShowRange(int command);  // in the status bar
void SearchNotes(int command);
void SearchNoteSelection(int command);      // for words or as a phrase, with the text selected in the note view
void SearchNotesForSelection(int command);  // for that text
