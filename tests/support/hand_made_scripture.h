// Scripture files with a few verses made by a test.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"

struct HandMadeVerse {
    int book = 1, chapter = 1, verse = 1;
    std::string_view text;
};

// The bytes of the two files. Vectors, so that a sanitizer detects every access out of bounds.
struct HandMadeFiles {
    std::vector<unsigned char> records;
    std::vector<char> text;
};

// Adds a record with any text offset.
void AddRecord(HandMadeFiles& files, int book, int chapter, int verse, std::uint32_t textOffset);

// Adds a verse and appends its text.
void AddVerse(HandMadeFiles& files, const HandMadeVerse& verse);

HandMadeFiles MakeFiles(std::span<const HandMadeVerse> verses);

// A view of `files`, which must outlive it.
Scripture ScriptureOf(const HandMadeFiles& files);
