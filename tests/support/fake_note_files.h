// Note-set files that live in memory, keep a log of what was asked of them, and fail where a test wants it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "notes/note_files.h"

struct FakeNoteFiles {
    std::map<std::string, std::vector<unsigned char>> contents;
    std::vector<std::string> listed;   // the `.nmi` files, in listing order
    std::set<std::string> unreadable;  // cannot be opened, though they are there
    std::set<std::string> uncreatable;
    std::vector<std::string> log;  // "read NAME", "size NAME", "create NAME"
};

// The device over `files`, which must stay.
NoteFiles DeviceOver(FakeNoteFiles& files);

// 32-bit integers as the files hold them.
std::vector<unsigned char> LittleEndianBytes(const std::vector<std::uint32_t>& numbers);

// Puts a set with these notes (verse index -> text) and all others empty into `files`, and lists it.
void AddFakeSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes);
