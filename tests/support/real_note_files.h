// Note-set files in a folder of the real file system.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

#include "cli/note_files_posix.h"
#include "notes/note_files.h"

struct RealNoteFiles {
    std::string folder;       // with its closing slash
    std::int64_t steps = -1;  // changes of the files before the process kills itself; -1: never
    PosixNoteFiles disk{};    // does the work
};

// The device for `files`, which must outlive it: the program's own (cli/note_files_posix.h), but with Latin 1.
NoteFiles DeviceOver(RealNoteFiles& files);

// Creates a folder for files of a test and returns its path with a closing slash; RemoveScratchFolder deletes it.
std::string MakeScratchFolder();
void RemoveScratchFolder(const std::string& folder);

// Writes a complete file.
void WriteWholeFile(const std::string& path, const std::vector<unsigned char>& bytes);
std::vector<unsigned char> ReadWholeFile(const std::string& path);

// A child process that runs meanwhile. It is killed on destruction if nobody has waited for it.
struct Child {
    int process = -1;
    Child() = default;
    Child(Child&& other) noexcept : process(std::exchange(other.process, -1)) {}
    Child& operator=(Child&&) = delete;
    ~Child();
};
Child StartChild(const std::function<bool()>& work);

// Waits for the end of the child: kDone if its work returns true.
enum class ChildEnd { kDone, kFailed, kKilled };
ChildEnd WaitFor(Child& child);
void KillChild(Child& child);

// Both in one.
ChildEnd RunInChild(const std::function<bool()>& work);
