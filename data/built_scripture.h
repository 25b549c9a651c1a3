// The scripture files that the build made, read for the tests by a way of their own: neither the program's reader nor
// the tool's writer has a part in it, so that no mistake can hide in both.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/verses.h"

struct BuiltScripture {
    Verses verses;
    std::vector<std::uint32_t> offsets;        // of the verses' texts
    std::vector<std::string> words;            // in file order
    std::vector<std::uint32_t> pointers;       // one a word
    std::vector<std::uint16_t> entries;        // the lists of all words
    std::vector<std::string> verseReferences;  // "Ge 1:1"
};

// Bytes of the file `name` of the built set. Throws when it cannot be read.
std::string BytesOfBuiltFile(const std::string& name);

// Read at the first call. Throws when a file is missing or a text has no end.
const BuiltScripture& TheBuiltScripture();

// Verse index of "Joh 3:16", by the records. Throws when no verse has that reference.
int IndexOf(const std::string& reference);

const std::string& TextOf(const std::string& reference);

// Without the mark and the brackets: what is read aloud.
std::string PlainText(const std::string& text);

// The runs of letters and apostrophes, as printed.
std::vector<std::string> PrintedWords(const std::string& text);

// The verses that hold word number `word`, by the lists.
std::vector<int> VersesOfWord(std::size_t word);
