// Note-set files in a folder of the real file system.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "notes/note_files.h"

struct RealNoteFiles {
    std::string folder;       // with its closing slash
    std::int64_t steps = -1;  // changes of the files before the process kills itself; -1: never
};

// The device for `files`, which must outlive it: the program's own (cli/note_files_posix.h), but with Latin 1.
NoteFiles DeviceOver(RealNoteFiles& files);

// Creates a folder for files of a test and returns its path with a closing slash; RemoveScratchFolder deletes it.
std::string MakeScratchFolder();
void RemoveScratchFolder(const std::string& folder);

// Writes a complete file.
void WriteWholeFile(const std::string& path, const std::vector<unsigned char>& bytes);
std::vector<unsigned char> ReadWholeFile(const std::string& path);

// Runs `work` in a child process: kDone if it returns true.
enum class ChildEnd { kDone, kFailed, kKilled };
ChildEnd RunInChild(const std::function<bool()>& work);
