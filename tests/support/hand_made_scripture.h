// A few verses of a test's own making, laid out as the scripture files are.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "scripture/scripture.h"

struct HandMadeVerse {
    int book = 1, chapter = 1, verse = 1;
    std::string_view text;
};

// The bytes of the two files. Both are vectors, so that a sanitizer sees every step beyond them.
struct HandMadeFiles {
    std::vector<unsigned char> records;
    std::vector<char> text;
};

// Adds a record with an offset of the caller's choice.
void AddRecord(HandMadeFiles& files, int book, int chapter, int verse, std::uint32_t textOffset);

// Adds a verse with its text behind those already there.
void AddVerse(HandMadeFiles& files, const HandMadeVerse& verse);

HandMadeFiles MakeFiles(std::span<const HandMadeVerse> verses);

// A view of `files`, which must stay.
Scripture ScriptureOf(const HandMadeFiles& files);
