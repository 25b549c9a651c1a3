// Where the module departs from the printed text, and what stands there in print.
#pragma once

#include <span>

#include "data/verses.h"

struct Correction {
    const char* reference;  // "Mt 11:6"
    const char* from;       // stands once in the verse
    const char* to;
};

// The corrections of engKJV2006eb, in canonical order.
std::span<const Correction> ModuleCorrections();

// Replaces `from` by `to` in each row's verse. A row that names no verse, or whose `from` does not stand in it exactly
// once, is complained of: the texts are then not those that the rows were made for.
Complaint ApplyCorrections(std::span<const Correction> corrections, Verses& verses);
