// The program's scripture, mapped from its files.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"

extern Scripture theScripture;

// Maps the files of the scripture database, from the folder that was current at the start if they are there, otherwise
// from the program's folder.
DataFiles ScriptureDataFiles();

// Maps the file anew whose bytes these are, so that what has been read of them no longer takes memory. Only for bytes
// that ScriptureDataFiles has mapped and that nothing else points into.
void MapAnew(std::span<const unsigned char>& bytes);

// The same for the scripture's text and records.
void MapAnew(Scripture& scripture);

// Unmaps all files mapped by ScriptureDataFiles. The scripture and the word index must not be used afterwards.
void ReleaseDataFiles();
