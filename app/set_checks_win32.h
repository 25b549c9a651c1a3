// Opening the note sets, checking them once the program has started, and telling what was found. How the work is
// divided is explained in notes/note_recovery.h.
#pragma once

// Opens the sets and reports what was repaired. If the user wants to see the earlier states of a damaged set, its name
// is then in the frame's `damagedSet`.
void OpenSets();

// Names the sets that are not shown in the status bar, where the result of the first search takes the place.
void TellSetsNotShown();

// Reads the note that the start shows, unless its set is large and not checked yet: then CheckSetsInIdleTime does it.
void ReadFirstNote();

// Goes on with the checks by a step that takes a few milliseconds at most, and reports what they find. Called while no
// input waits. Does nothing while a note is edited or the mouse selects. False if there is nothing left to do.
bool CheckSetsInIdleTime();
