// Encodes note sets. The format is described in notes/note_sets.h.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "data/file_writer.h"

inline constexpr char kRestIsMissing[] = "[The rest of this text was too long for a note and is missing here.]";

// Notes by verse index, as they are stored (notes/note_letters.h), with lines separated by CR LF; other verses have an
// empty note.
using NoteTexts = std::map<int, std::string>;

// Verse indexes by ReadingSlot.
using DevotionalTable = std::array<int, 12 * 31 * 2>;

// Index of a reading in the table: `month` 1..12, `day` 1..31.
std::size_t ReadingSlot(int month, int day, bool isEvening);

// "January 1".
std::string DayName(int month, int day);

// NAME.nmd, then NAME.dti if `readings` is not null, then NAME.nmi. The index comes last, because the program finds a
// set by its index.
std::vector<DataFile> EncodeNoteSet(const std::string& name, const NoteTexts& notes, const DevotionalTable* readings);

// Shortens a note that is longer than one can be (kNoteTextLimit) and adds the line kRestIsMissing. Cuts after a
// paragraph if possible, otherwise after a word or at least a whole letter. Paragraphs are separated by an empty line.
// False when the note fits unchanged.
bool CutToNote(std::string& note);
