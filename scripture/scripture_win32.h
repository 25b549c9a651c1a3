// The program's scripture, mapped from its files.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"

extern Scripture theScripture;

// Maps the files of the scripture database, from the folder that was current at the start if they are there, otherwise
// from the program's folder.
DataFiles ScriptureDataFiles();

// Unmaps all files mapped by ScriptureDataFiles. The scripture and the word index must not be used afterwards.
void ReleaseDataFiles();
