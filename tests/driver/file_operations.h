// Counts the program's file operations from within its process. Part of the probe library.
#pragma once

#include <windows.h>

// Ends the program immediately, as if killed (exit code 9), at its call number `last` of the system's file procedures
// from now on. A write counts as two calls: the program can be ended before it and after half of its bytes.
void EndAtFileOperation(UINT last);

// From call number `first` on, every write puts half of its bytes into the file and fails, as on a full disk; 0: none
// does.
void FillDiskAtFileOperation(UINT first);
