// Where a program keeps its user's files.
#pragma once

#include <initializer_list>

// Makes one folder current for the whole run: the current one if it holds a file that fits one of `markers` (names or
// patterns such as "*.txt"); else the program's own, if files can be made in it; else `folderName` in the user's
// application data, which is made if it is missing. Where that fails too, the current folder stays.
void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName);
