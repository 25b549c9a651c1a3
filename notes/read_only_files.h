// Note files where nothing can be written: the files of another device are read and never changed. What is created is
// kept in memory until the program ends, so that a program without any notes still has a set to show.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "notes/note_files.h"

struct ReadOnlyFiles {
    NoteFiles files;                                            // the files that are read
    std::map<std::string, std::vector<unsigned char>> created;  // by name
};

// The device for `readOnly`, which must outlive it.
NoteFiles DeviceOver(ReadOnlyFiles& readOnly);
