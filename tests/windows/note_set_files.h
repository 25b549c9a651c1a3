// Writes note sets into the folder of a test before the program starts.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "scripture/verse_records.h"
#include "tests/driver/driver.h"

// Content of an index file: `offsets` as little-endian unsigned 32-bit integers.
std::string IndexBytes(const std::vector<unsigned>& offsets);

// Writes NAME.nmi and NAME.nmd with these notes by verse; all other verses have an empty note.
void WriteNoteSet(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes = {});

// A text among the earlier notes of a set, as in its file "backup/NAME.nmh" (notes/note_history.h).
struct KeptNote {
    int verse = 0;
    int reason = 0;
    std::string text;
    bool operator==(const KeptNote&) const = default;
};
// The whole ones, in the order of the file; empty if there is no such file.
std::vector<KeptNote> KeptNotes(const ScratchFolder& folder, const std::string& setName);

// Names of the sets in the order of their tabs, without the marks before them.
std::vector<std::string> NoteSetNames(const Program& program);
