// Writes note sets into the folder of a test before the program starts.
#pragma once

#include <map>
#include <string>

#include "tests/driver/driver.h"

constexpr int kVerses = 31102;

// Content of an index file: `offsets` as little-endian unsigned 32-bit integers.
std::string IndexBytes(const std::vector<unsigned>& offsets);

// Writes NAME.nmi and NAME.nmd with these notes by verse; all other verses have an empty note.
void WriteNoteSet(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes = {});

// Names of the sets in the order of their tabs, without the marks before them.
std::vector<std::string> NoteSetNames(const Program& program);
