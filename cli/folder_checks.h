// What hinders the window and `vw` to use the folder of the notes: rights that are missing, and folders where there
// should be files. The device of the note files tells only of files.
#pragma once

#include "cli/diagnosis.h"

// Can the folder that `diagnosis` names be read? If not, a trouble tells why.
bool CanReadFolder(const Vw& vw, Diagnosis& diagnosis);

// Looks for what cannot be changed in it, and for folders and files that stand in each other's place.
void CheckFolders(const Vw& vw, Diagnosis& diagnosis);
