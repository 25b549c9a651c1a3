// Files of the program and of its user: where they lie, and whole ones as read-only memory.
#pragma once

#include <initializer_list>
#include <span>
#include <string>

#include "win32/handles.h"

// Path of `name`: in the current directory when it is there, else in the program's folder, whether it is there or not.
std::string ProgramFilePath(const std::string& name);

// Full path of `name` in the current directory.
std::string WorkingFilePath(const std::string& name);

// Makes one folder current for the whole run: the current one if it holds a file that matches one of `markers` (names
// or patterns such as "*.txt"); else the program's own, if files can be made in it; else `folderName` in the user's
// application data, which is made if it is missing. Where that fails too, the current folder stays.
void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName);

struct MappedFile {
    MappedView view;
    std::span<const unsigned char> bytes;
};

// Maps the file at `path`, shared for reading; `accessFlag` is FILE_FLAG_SEQUENTIAL_SCAN or FILE_FLAG_RANDOM_ACCESS.
// False when it cannot be opened or mapped. An empty file gives true and no bytes.
bool MapWholeFile(const char* path, DWORD accessFlag, MappedFile& file);
