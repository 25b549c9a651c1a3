// Verses as the commands show them.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "scripture/meant_reference.h"
#include "scripture/scripture.h"

// The object of a verse: its place and its text. `marked` is the text, or a copy of it with marks around key words;
// their places are only told if `hasMarks`.
nlohmann::ordered_json VerseObject(const Scripture& scripture, int verse, std::string_view marked, bool hasMarks);

// The fields of a range: `first` and `last` as verse indexes, and its `name`.
nlohmann::ordered_json SpanObject(const VerseRecords& records, const VerseSpan& span);

// "Ge 1:1" and the text, with marks, as a line of the Verse List.
std::string MarkedListLine(const VerseRecords& records, int verse, std::string_view marked);
