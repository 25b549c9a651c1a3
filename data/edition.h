// The edition that the program ships: which module it comes from, and the way from the module's entries to its text.
#pragma once

#include <cstdint>

#include "data/verses.h"

inline constexpr char kModuleName[] = "engKJV2006eb";
inline constexpr char kModuleVersion[] = "14.3";
inline constexpr std::uint64_t kTextFingerprint = 0x7519f9f0af8f6752;  // of the finished text of that version

// Turns entries as the module has them into texts as the program has them: mark-up converted, corrected, checked, each
// chapter beginning a paragraph as in print, where only its first verse lacks the mark.
Complaint ConvertEdition(Verses& verses);

// FNV-1a, 64 bits, of all texts with the zero byte that ends each.
std::uint64_t FingerprintOf(const Verses& verses);

// Are these the very texts of the edition? Finds what is wrong in a way that no rule foresees.
Complaint CheckFingerprint(const Verses& verses);
