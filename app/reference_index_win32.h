// The index of the verses that notes name (notes/reference_index.h), as the program keeps it.
#pragma once

#include "notes/reference_index.h"
#include "win32/windows_api.h"

const ReferenceIndex& TheReferences();

// To be called for each message of the user: the index is made when there has been none for some seconds.
void PutOffIndexing();

// Milliseconds until something may have to be indexed; INFINITE if there is nothing.
DWORD TimeToIndex();

// Indexes some notes, which takes some milliseconds. Called while no input waits and all sets are checked. Does nothing
// soon after input and while a note is edited. False if there is nothing left to do.
bool IndexInIdleTime();

// Indexes all notes now, with a window that shows how far it is if it takes long. False if the user has cancelled.
bool FinishReferenceIndex();

// To be called when the note that is shown has been saved.
void IndexShownNote();
