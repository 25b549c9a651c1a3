// Files that are read, written and copied as a whole. What is there after a kill or a power cut at any moment is the
// file as it was or as it should be, never a part of it; a file NAME.temp may be left beside it.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "notes/note_files.h"

// The bytes of `name`, at most `limit`. False if it cannot be opened for reading.
bool ReadWholeFile(const NoteFiles& files, const std::string& name, std::size_t limit,
                   std::vector<unsigned char>& bytes);

// Makes `bytes` the contents of `name`, whether or not it exists: they are written to NAME.temp, flushed, and renamed
// over it. False if it still is as it was.
bool WriteWholeFile(const NoteFiles& files, const std::string& name, std::span<const unsigned char> bytes);

enum class FileCopy { kCopied, kCannotRead, kCannotWrite };

// Copies the file `name` of one device to `copy` of another, in pieces of 1 MB, and flushes it; an existing `copy` is
// written over, in place. kCannotRead also if not all of it could be read or it has changed meanwhile. If it is not
// copied, there is no `copy`.
FileCopy CopyFileFrom(const NoteFiles& from, const std::string& name, const NoteFiles& to, const std::string& copy);

// Copies `from` to `to`, which must not exist, in pieces of 1 MB. False if there is no copy.
bool CopyWholeFile(const NoteFiles& files, const std::string& from, const std::string& to);
