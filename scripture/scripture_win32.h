// The program's scripture, mapped from its files.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"

extern Scripture theScripture;

// Maps the files of the scripture database, from the current directory when they are there, else from the program's
// folder.
DataFiles ScriptureDataFiles();

// Lets go of all files mapped by ScriptureDataFiles. Nothing of the scripture or of the word index may be used after.
void ReleaseDataFiles();
