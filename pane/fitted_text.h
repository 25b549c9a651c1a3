// Text that is shortened to the room for it.
#pragma once

#include <string>
#include <string_view>

// Measures texts on some device.
struct TextRuler {
    void* device = nullptr;                                  // passed to the procedure
    int (*width)(void* device, std::string_view) = nullptr;  // pixels; not smaller for a longer text
};

// `text` if it is at most `room` pixels wide, otherwise the first of these that is: with abbreviations of books
// ("x-refs for 1Th 4:13"), and without the blanks around a dash ("Ge 1:1-Re 22:21") or, of a text that is a reference,
// its chapter and verse alone ("4:13"). If none fits, as many first letters of the last one as do, with "..." behind
// them, without blanks before it and without a part of a number. If not even that fits, "...".
std::string FittedText(std::string_view text, int room, const TextRuler& ruler);
