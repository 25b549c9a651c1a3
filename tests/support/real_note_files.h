// Note-set files in a folder of the host's file system.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "notes/note_files.h"

struct RealNoteFiles {
    std::string folder;       // with its closing slash
    std::int64_t steps = -1;  // changes of the files before the process kills itself; -1: never
};

// The device over `files`, which must stay. Nothing in the folder is unshared: the host knows no such thing.
NoteFiles DeviceOver(RealNoteFiles& files);

// A new folder for files of a test, with its closing slash. It goes with RemoveScratchFolder.
std::string MakeScratchFolder();
void RemoveScratchFolder(const std::string& folder);

// Writes a file whole.
void WriteWholeFile(const std::string& path, const std::vector<unsigned char>& bytes);
std::vector<unsigned char> ReadWholeFile(const std::string& path);

// Does `work` in a process of its own: kDone when it gives true.
enum class ChildEnd { kDone, kFailed, kKilled };
ChildEnd RunInChild(const std::function<bool()>& work);
