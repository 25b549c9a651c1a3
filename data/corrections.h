// Corrections of the module where it is damaged. What makes it the Pure Cambridge Edition is in conformed_readings.h.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "data/verses.h"

struct Correction {
    const char* reference;  // "Mt 11:6"
    const char* from;       // occurs once in the verse
    const char* to;
};

// The corrections of engKJV2006eb, in canonical order.
std::span<const Correction> ModuleCorrections();

// Replaces `from` by `to` in each row's verse. Complains about a row whose verse does not exist or does not contain
// `from` exactly once, because the rows were then made for another text.
Complaint ApplyCorrections(std::span<const Correction> corrections, Verses& verses);

// `text` without the characters of `letters`: two readings that are then equal differ in nothing else.
std::string Without(std::string text, std::string_view letters);
