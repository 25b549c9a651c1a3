// Note-set files in memory, with a log of all operations. A test can make operations fail, fill up the disk or stop the
// program.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "notes/note_files.h"

struct FakeNoteFiles {
    std::map<std::string, std::vector<unsigned char>> contents;
    std::vector<std::string>
        listed;  // the `.nmi` files that are listed first, in this order; the others follow by name
    std::map<std::string, std::size_t> unnamed;  // how many files of a pattern are not listed for their names' letters
    std::set<std::string> unreadable;            // exist but cannot be opened
    std::set<std::string> uncreatable;
    std::set<std::string> undeletable;
    std::set<std::string> unrenamable;
    bool knowsLinks = true;
    bool isFlushable = true;
    bool hasMemory = true;    // false: reading an open file throws std::bad_alloc
    std::int64_t room = -1;   // bytes that can still be written before the disk is full; -1: all that come
    std::int64_t steps = -1;  // steps that can still be done before the program stops; -1: all

    std::vector<std::string> log;  // "read NAME", "size NAME", "create NAME", "open NAME", "write NAME 12"...; without
                                   // stamps and listings
    std::size_t listings = 0;      // how many were made

    NoteLocking locking = NoteLocking::kLocked;  // what becomes of every lock
    int locks = 0;                               // how many there are
    std::vector<int> patience;                   // milliseconds, of each lock
    std::vector<std::string> unlockedChanges;    // of files and without a lock, as in the log

    std::map<std::string, std::size_t> unflushed;  // files with bytes that are not yet on the disk: how many are
    int openFiles = 0;
    std::set<std::string> handles;
    std::map<std::string, std::uint64_t> times;
    std::uint64_t now = 0;
};

// Thrown where the program stops. Each change of a file is a step; a write has several steps.
struct ProgramStopped {};

// The device for `files`, which must outlive it.
NoteFiles DeviceOver(FakeNoteFiles& files);

// What a power cut does to files that were not flushed: their names are on the disk, but not all the bytes that were
// written since the last flush.
enum class PowerCut { kNone, kLosesAll, kLeavesZeros, kLeavesHalf };
void CutPower(FakeNoteFiles& files, PowerCut cut);

// What a test tries after a program was stopped at `step`: all power cuts, or one of them in turn (TriesAll).
std::span<const PowerCut> PowerCutsAfter(std::int64_t step);

// Changes a file as another program would.
void ChangeFile(FakeNoteFiles& files, const std::string& name, std::vector<unsigned char> bytes);

// 32-bit integers in the files' format.
std::vector<unsigned char> LittleEndianBytes(const std::vector<std::uint32_t>& numbers);

// The data and index files of a set with these notes (verse index -> text); all other notes are empty.
struct FakeSet {
    std::vector<unsigned char> data;
    std::vector<unsigned char> index;
};
FakeSet FakeSetOf(const std::map<int, std::string>& notes);

// Adds such a set to `files` and to its listing.
void AddFakeSet(FakeNoteFiles& files, const std::string& name, const std::map<int, std::string>& notes);
