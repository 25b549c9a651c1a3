// The text of a note as it stands in exchanged files: in UTF-8, with lines that end in LF.
//
// Nearly every note is stored as text with lines that end in CR LF, and stands there as it is. A note that cannot be
// told from such a text is escaped, which its mark says:
//     escaped = [ "\8" ], { "\\" | "\r" | "\x", hex, hex | "\", line end | line end | other letter } ;
// "\8" means stored in UTF-8 whatever its letters are, "\\" a backslash, "\r" a lone CR, "\x9D" the stored byte 9D (a
// control character, or no letter at all), and a backslash at the end of a line that the line ends in a lone LF. Any
// other backslash stands for itself.
//
// A mark is what a file tells of a note beside its text: the digest at the time of the export, as eight letters from a
// to p, which no spreadsheet takes for a number, and the words "escaped" and, in tables, "guarded"
// (exchange/csv_notes.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "notes/note_letters.h"

struct PortableText {
    std::string text;
    bool isEscaped = false;
    bool operator==(const PortableText&) const = default;
};

PortableText PortableTextOf(const CodePage& page, std::string_view note);

// The note as it is stored. The text must be valid UTF-8 with lines that end in LF. It may have NULs; they become
// U+FFFD.
std::string StoredNoteOf(const CodePage& page, const PortableText& text);

struct NoteMark {
    std::optional<std::uint32_t> digest;
    bool isEscaped = false;
    bool isGuarded = false;
    bool operator==(const NoteMark&) const = default;
};

// "ldmkapoc", "ldmkapoc escaped", "ldmkapoc guarded"
std::string MarkText(const NoteMark& mark);

// Reads the words of a mark in any order, in capitals or not. Other words are passed over.
NoteMark MarkOf(std::string_view text);
