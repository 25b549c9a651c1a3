// The lines in which lists show earlier states of notes and sets.
#pragma once

#include <string>
#include <string_view>

#include "notes/note_history.h"

// Why a text was kept, in plain words: "replaced by a save".
const char* ReasonText(KeptReason reason);

// The first words of a note in one line, at most `size` characters with the "..." that stands for the rest; "(empty)"
// for a note without text.
std::u16string FirstWords(std::u16string_view note, std::size_t size);

// "1 note differs from today", "12 notes differ from today"; "as today" for none.
std::string DifferenceText(std::size_t notes);
