// Locations of the program's and the user's files, and files mapped as read-only memory.
#pragma once

#include <initializer_list>
#include <span>
#include <string>

#include "win32/handles.h"

// Path of `name` in the current directory if it exists there, otherwise in the program's folder, whether or not it
// exists.
std::string ProgramFilePath(const std::string& name);

// Full path of `name` in the current directory.
std::string WorkingFilePath(const std::string& name);

// Sets the current directory for the whole run: it stays as it is if it has a file that matches one of `markers` (names
// or patterns such as "*.txt"); otherwise it becomes the program's folder if files can be created there; otherwise
// `folderName` in the user's application data, which is created if necessary. If that fails too, it is not changed.
void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName);

struct MappedFile {
    MappedView view;
    std::span<const unsigned char> bytes;
};

// Maps the file at `path`, shared for reading; `accessFlag` is FILE_FLAG_SEQUENTIAL_SCAN or FILE_FLAG_RANDOM_ACCESS.
// False when it cannot be opened or mapped. An empty file returns true and no bytes.
bool MapWholeFile(const char* path, DWORD accessFlag, MappedFile& file);
