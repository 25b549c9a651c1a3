// The edition of the text: which module it comes from, and the conversion of the module's entries.
#pragma once

#include <cstdint>

#include "data/verses.h"

inline constexpr char kModuleName[] = "engKJV2006eb";
inline constexpr char kModuleVersion[] = "14.3";
inline constexpr std::uint64_t kTextFingerprint = 0xcb23ec8059f30542;  // of the converted text of that version

// Converts the module's entries to the program's texts: converts the mark-up, applies the corrections, conforms the
// result to the Pure Cambridge Edition, adds a paragraph mark to the first verse of each chapter (a chapter also begins
// a paragraph in print, but without a mark) and checks the whole.
Complaint ConvertEdition(Verses& verses);

// 64-bit FNV-1a hash of all texts, each with its terminating zero byte.
std::uint64_t FingerprintOf(const Verses& verses);

// Checks that these are exactly the texts of the edition. Detects errors that the other checks do not look for.
Complaint CheckFingerprint(const Verses& verses);
