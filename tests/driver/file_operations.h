// What the program does with files, seen from within its process: part of the probe library.
#pragma once

#include <windows.h>

// From now on the program's calls of the system's file procedures are counted, and with call number `last` it ends at
// once, as if killed (exit code 9); 0: never. A write counts as two, since it may end before it and when half of its
// bytes are written.
void EndAtFileOperation(UINT last);

// Calls since then.
UINT FileOperationCount();
