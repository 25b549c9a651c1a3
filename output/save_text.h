// The texts that the save commands write, piece by piece: the memory stays the same however much is saved. A saved text
// keeps its brackets and ends with one zero byte.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "notes/note_source.h"
#include "output/format_options.h"
#include "scripture/scripture.h"

inline constexpr char kCannotWriteText[] = "Error in writing to file";

// The file that is written.
struct TextFile {
    void* device = nullptr;  // handed back
    // Writes `bytes`, some ten thousand at a time, behind those before them. False when not all were written.
    bool (*write)(void* device, std::string_view bytes) = nullptr;
};

enum class TextSaveResult {
    kSaved,
    kCannotWrite,      // say kCannotWriteText
    kCannotReadNotes,  // say kCannotOpenNotes
};

// Writes the verses `first` to `last` as the format has them; with `notes`, which may be null, each verse's note behind
// it, an empty line before and after. Stops at the first failure.
TextSaveResult SaveRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                             const NoteSource* notes, const TextFile& file);

// Writes the Verse List's lines, those that are copied.
TextSaveResult SaveListText(const Scripture& scripture, std::span<const std::int32_t> verses, const TextFile& file);
