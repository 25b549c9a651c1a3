// The verses that an argument names.
#pragma once

#include <string>
#include <vector>

#include "cli/command.h"
#include "scripture/meant_reference.h"
#include "scripture/scripture.h"

// How references are read.
struct ReferenceReading {
    bool isStrict = false;  // only by the rule of the window's fields, otherwise as they are meant
};

// The verses of one reference or range in UTF-8. What is meant goes before the rule of the window's fields, which would
// take "1 Jn 1:9" for Genesis 1:9; if the two differ, a line on the stream of errors says what was taken. Complains of
// `argument` if the text is a list, or if it is not known what is meant; what the window would take instead is only
// taken with isStrict.
VerseSpan AskedVerses(const Vw& vw, const VerseRecords& records, const std::string& argument, const std::string& typed,
                      ReferenceReading reading);

// The verses of all references that these words name, in their order; each may be a list, too. Complains of REF.
std::vector<VerseSpan> SpansOfWords(const Vw& vw, const VerseRecords& records, const std::vector<std::string>& words,
                                    ReferenceReading reading);

// References from words as a shell gives them: `Ro 8:1 - 9 Jude` are two, with or without quotes.
std::vector<std::string> ReferencesIn(const std::vector<std::string>& words);

// The only verse that these words name. Complains of REF if they name several.
int OneAskedVerse(const Vw& vw, const VerseRecords& records, const std::vector<std::string>& words,
                  ReferenceReading reading);
