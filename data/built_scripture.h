// Reads the scripture files from the build for the tests. The code is independent of the program's reader and the
// tool's writer, because a mistake that both share would not be found otherwise.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/verses.h"

struct BuiltScripture {
    Verses verses;
    std::vector<std::uint32_t> offsets;        // of the verses' texts
    std::vector<std::string> words;            // in file order
    std::vector<std::uint32_t> pointers;       // one for each word
    std::vector<std::uint16_t> entries;        // the lists of all words
    std::vector<std::string> verseReferences;  // "Ge 1:1"
};

// Bytes of the file `name` from the build. Throws when it cannot be read.
std::string BytesOfBuiltFile(const std::string& name);

// Read at the first call. Throws when a file is missing or a text is not terminated.
const BuiltScripture& TheBuiltScripture();

// Verse index of "Joh 3:16" according to the records. Throws when no verse has that reference.
int IndexOf(const std::string& reference);

const std::string& TextOf(const std::string& reference);

// The text without paragraph mark and brackets.
std::string PlainText(const std::string& text);

// The runs of letters and apostrophes, with capitals as printed.
std::vector<std::string> PrintedWords(const std::string& text);

// The verses that contain word number `word`, according to the lists.
std::vector<int> VersesOfWord(std::size_t word);
