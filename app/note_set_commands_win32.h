// Commands that create, rename, delete, merge, export and import note sets and mark their tabs.
#pragma once

void CreateSet(int command);
void RenameSet(int command);
void DeleteSet(int command);
void ShowEarlierStates(int command);  // dated copies of sets; a note that is brought back is edited
void ShowStatesOfDamagedSet();        // if the user said yes to it at the start, and is not editing a note on
void ShowFirstTabs();                 // at the start, with their marks, once the positions of the panes are known
void MarkSets(int command);           // sent by panes after painting
void UpdateNoteMarks(int command);    // sent when notes have come or gone: also repaints the stars before verses
void MergeNoteSets(int command);
void ExportNoteSet(int command);
void ImportIntoNoteSet(int command);
void OfferMerge(int command);  // at the end of the start, for what conflicts between machines have left
