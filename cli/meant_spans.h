// What is meant by a reference on the command line, which may be a list: "Rom 8:1, 3-5; 9:1".
//
// Apart from AskedVerses, so that `vw what` tells by the same rule what the other commands take.
#pragma once

#include <string>
#include <vector>

#include "scripture/meant_reference.h"

// The verses in the order that they were typed in, of a text in ASCII; empty if a part of it is not understood, or
// names verses that are not there. One reference is taken as MeantVerses takes it; a list, or one in an old form as
// "1 Cor. xiii. 4", as in the running text of a note, if nothing but separators is left of it.
std::vector<VerseSpan> MeantSpans(const VerseRecords& records, const std::string& typed);

// "Romans 8:1; Romans 8:3 to 8:5".
std::string SpanNames(const VerseRecords& records, const std::vector<VerseSpan>& spans);
