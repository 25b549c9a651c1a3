// Note-set files that live in memory, keep a log of what was asked of them, and fail, fill up or stop where a test
// wants it.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "notes/note_files.h"

struct FakeNoteFiles {
    std::map<std::string, std::vector<unsigned char>> contents;
    std::vector<std::string> listed;   // the `.nmi` files that come first, in listing order; the others follow by name
    std::set<std::string> unreadable;  // cannot be opened, though they are there
    std::set<std::string> uncreatable;
    std::set<std::string> undeletable;
    std::set<std::string> unrenamable;
    bool knowsLinks = true;
    bool isFlushable = true;
    bool hasMemory = true;    // false: reading an open file throws std::bad_alloc
    std::int64_t room = -1;   // bytes that can still be written before the disk is full; -1: all that come
    std::int64_t steps = -1;  // steps that can still be done before the program stops; -1: all

    std::vector<std::string> log;  // "read NAME", "size NAME", "create NAME", "open NAME", "write NAME 12"...; stamps
                                   // and listings are not in it

    std::set<std::string> unflushed;  // written, but not on the disk yet
    int openFiles = 0;
    std::set<std::string> handles;
    std::map<std::string, std::uint64_t> times;
    std::uint64_t now = 0;
};

// Thrown where the program stops: at each change of the files, and within each write at several bytes.
struct ProgramStopped {};

// The device over `files`, which must stay.
NoteFiles DeviceOver(FakeNoteFiles& files);

// What a power cut makes of files that were not flushed: their names are on the disk, their bytes are not.
enum class PowerCut { kNone, kLosesAll, kLeavesZeros, kLeavesHalf };
void CutPower(FakeNoteFiles& files, PowerCut cut);

// Changes a file as another program would.
void ChangeFile(FakeNoteFiles& files, const std::string& name, std::vector<unsigned char> bytes);

// 32-bit integers as the files hold them.
std::vector<unsigned char> LittleEndianBytes(const std::vector<std::uint32_t>& numbers);

// The data file of a set with these notes (verse index -> text) and all others empty, and its index file.
struct FakeSet {
    std::vector<unsigned char> data;
    std::vector<unsigned char> index;
};
FakeSet FakeSetOf(const std::map<int, std::string>& notes);

// Puts such a set into `files`, and lists it.
void AddFakeSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes);
