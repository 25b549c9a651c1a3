// One note made of two texts that were written for the same verse in different places: by another program while the
// note was open, or on another machine.
//
// The texts stand one below the other, with two lines between them:
//   the text that was there
//   ----------------------------------------
//   Also written elsewhere:
//   the other text
// A joined text can be joined again; then it has a third part, and so on.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "notes/note_letters.h"

// `mine`, and below it each part of `other` that is not yet a part of it. So joining the same texts once more changes
// nothing. An empty text adds nothing. The result may be longer than a note can be.
std::string JoinedTexts(std::string_view mine, std::string_view other);

// The same of two notes as they are stored, of which one may be in UTF-8: the result has all letters of both. If it has
// the letters of one of them, it has its bytes. nullopt if they cannot be put into one note, because one is in UTF-8
// and a byte of the other is no letter.
std::optional<std::string> JoinedNotes(const CodePage& page, std::string_view mine, std::string_view other);
