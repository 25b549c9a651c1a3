// Memory that only makes the next action faster: the pages of the scripture files that a search has read, about 4 MiB,
// and the bitmap that the panes are painted on, about 2 MiB. The message loop gives it back when the program has come
// to rest, so that neither the next step of a scroll nor a search soon after another one has to fetch it again.
#pragma once

#include "win32/windows_api.h"

// To be called after the texts of many verses have been read.
void NoteTextsRead();

// To be called for each message: rest begins some time after the last one.
void PutOffRest();

// Milliseconds until the memory should be given back; INFINITE if there is none to give.
DWORD TimeToRest();

// Gives it back if the program is at rest. Nothing may point into the scripture's files.
void GiveBackSpareMemory();
