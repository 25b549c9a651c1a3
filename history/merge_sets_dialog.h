// Merge Sets: which two note sets to merge, and a list of what that changes before anything is written.
#pragma once

#include <string>

#include "win32/windows_api.h"

// Runs the dialog. `copy` and `set` are the names that are chosen at first, if they are there; otherwise those of the
// first conflict copy (notes/conflict_copies.h), or the current set and another one. True if sets were merged: then the
// table of sets and the files have changed.
bool AskMergeSets(HWND frame, const std::string& copy = "", const std::string& set = "");
