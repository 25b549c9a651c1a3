// What the program does with files, seen from within its process: part of the probe library.
#pragma once

#include <windows.h>

// The program ends at once, as if killed (exit code 9), when it has called the system's file procedures `last` times
// from now on. A write counts as two, since it may end before it and when half of its bytes are written.
void EndAtFileOperation(UINT last);
