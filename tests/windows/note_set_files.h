// Note sets laid into a test's folder before the program starts.
#pragma once

#include <map>
#include <string>

#include "tests/driver/driver.h"

constexpr int kVerses = 31102;

// Content of an index file: `offsets` as unsigned 32-bit integers, lowest byte first.
std::string IndexBytes(const std::vector<unsigned>& offsets);

// Writes NAME.nmi and NAME.nmd: each verse of `notes` has its text, every other an empty note.
void WriteNoteSet(const ScratchFolder& folder, const std::string& name, const std::map<int, std::string>& notes = {});

// Names of the sets in the order of their tabs, without the marks before them.
std::vector<std::string> NoteSetNames(const Program& program);
