// Notes in memory, as a source for what saves or prints them.
#pragma once

#include <map>
#include <string>

#include "notes/note_source.h"

using NotesByVerse = std::map<int, std::string>;

// A verse whose note is this text has a note that cannot be read.
inline constexpr char kUnreadableNote[] = "cannot be read";

// The source that reads from `notes`, which must outlive it.
NoteSource SourceOf(const NotesByVerse& notes);
