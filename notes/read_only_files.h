// Note files where nothing can be written: the files of another device are read and never changed. What is created is
// kept in memory until the program ends, so that a program without any notes still has a set to show.
//
// As a trial, all other changes are kept in memory, too, and succeed. So one can see what would become of the files.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "notes/note_files.h"

struct ReadOnlyFiles {
    NoteFiles files;                                                 // the files that are read
    std::map<std::string, std::vector<unsigned char>> created = {};  // by name
    bool isTrial = false;
    std::set<std::string> removed = {};  // names of files of the other device
};

// The device for `readOnly`, which must outlive it.
NoteFiles DeviceOver(ReadOnlyFiles& readOnly);
