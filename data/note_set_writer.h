// Note sets as bytes. Their format: notes/note_sets.h.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "data/file_writer.h"

inline constexpr char kRestIsMissing[] = "[The rest of this text was too long for a note and is missing here.]";

// Texts by verse index, in the program's code page, with lines ended by CR LF; a verse without one has an empty note.
using NoteTexts = std::map<int, std::string>;

// Verse indexes by ReadingSlot.
using DevotionalTable = std::array<int, 12 * 31 * 2>;

// Place of a reading in the table: `month` 1..12, `day` 1..31.
std::size_t ReadingSlot(int month, int day, bool isEvening);

// "January 1".
std::string DayName(int month, int day);

// NAME.nmd, NAME.dti where `readings` is not null, NAME.nmi: the index, by which the program finds a set, comes last.
std::vector<DataFile> EncodeNoteSet(const std::string& name, const NoteTexts& notes, const DevotionalTable* readings);

// Cuts a text that is longer than a note may be (kNoteTextLimit) behind its last paragraph that leaves room for the
// line kRestIsMissing, which is added; a paragraph that is too long by itself behind its last word. Paragraphs are
// parted by an empty line. False when the text fits as it is.
bool CutToNote(std::string& text);
