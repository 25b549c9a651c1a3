// What a reference field stands for: the verses that OK takes, and a line that says so while the user types.
#pragma once

#include <string>

#include "scripture/reference_parser.h"

enum class Asked { kVerse, kRange };

// Parses the text of a field that asks for a verse or a range; a single verse is a range of one. `typed` must not be
// empty.
ParsedRange ParseAsked(const VerseRecords& records, const std::string& typed, Asked asked);

// "Genesis 1:9" for a verse; "Romans 8:1 to 8:39, 39 verses", "Genesis 50:26 to Exodus 1:1, 2 verses" or "Genesis 1:9,
// 1 verse" for a range; if only a part of the text tells of the range, "Ge 1:1 - Ge 3:1 (not used: "; Ex 2")". "not
// understood" if ParseAsked fails; empty for an empty text, for which OK does nothing.
std::string ReferenceMeaning(const VerseRecords& records, const std::string& typed, Asked asked);
