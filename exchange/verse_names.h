// Names of verses as they stand in exchanged files and in names of files: "Romans 8:28", "1 John 3.16", "Ro 8-28",
// "45-Rom-008-028", "Rom.8.28", "Jude 5".
//
//     name   = [ order ], book, [ chapter word ], number, [ [ verse word ], number, [ last ] ], [ title ] ;
//     order  = 1 to 99; before John, which has namesakes, 43 or 04, its number in the Bible or the New Testament ;
//     book   = [ "1" | "2" | "3" | "I" | "II" | "III" ], a name, the beginning of one with two letters or an
//              abbreviation ;
//     last   = the last verse of a range, greater than the first ;
//     title  = anything that does not begin with figures ;
//
// Anything but letters and figures may stand between two parts, or nothing between letters and figures. In a book of
// one chapter a number alone is a verse, in others a chapter, whose first verse it means. Nothing is rounded: there is
// no Romans 8:40.
#pragma once

#include <string>
#include <string_view>

#include "scripture/verse_records.h"

struct VerseName {
    int verse = kNoVerse;
    const char* problem = nullptr;  // if there is no verse: a sentence that says why
};

inline constexpr char kNoVerseNamed[] = "This names no verse.";
inline constexpr char kNoSuchVerse[] = "There is no such verse.";

enum class NameEnd : bool { kExact, kMayHaveTitle };

VerseName VerseNamed(const VerseRecords& records, std::string_view name, NameEnd end = NameEnd::kExact);

// The verse of a book's name, a chapter and a verse that stand apart, as in the columns of a table.
VerseName VerseNamed(const VerseRecords& records, std::string_view book, std::string_view chapter,
                     std::string_view verse);

// "Rom.8.28", which can be the name of an anchor in a page; "Rom" for the book alone.
std::string VerseAnchor(const VerseRecords& records, int verse);
std::string BookAnchor(int book);
