// The texts that the save commands write, in blocks, so that memory use does not grow with the file. A saved text keeps
// its brackets and ends with one zero byte.
//
// It has the letters of scripture (Latin 1 of Windows) and of the notes byte by byte. If a note is in UTF-8, all of it
// is in UTF-8, and begins with the same mark as the note (notes/note_letters.h).
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "notes/note_source.h"
#include "output/format_options.h"
#include "scripture/scripture.h"

inline constexpr char kCannotWriteText[] = "Error in writing to file";

// The file to write to.
struct TextFile {
    void* device = nullptr;  // passed to write
    // Appends `bytes`, at least 64 KiB except in the last call. False if not all were written.
    bool (*write)(void* device, std::string_view bytes) = nullptr;
};

enum class TextSaveResult {
    kSaved,
    kCannotWrite,      // report kCannotWriteText
    kCannotReadNotes,  // report kCannotOpenNotes
};

// Writes the verses `first` to `last` in the given format. Unless `notes` is null, each verse is followed by its note,
// with an empty line before and after it. Stops at the first failure; a note that has become one in UTF-8 since the
// beginning is one that cannot be read.
TextSaveResult SaveRangeText(const Scripture& scripture, const FormatOptions& format, int first, int last,
                             const NoteSource* notes, const TextFile& file);

// Writes the same lines of the Verse List that CopyListText copies, with brackets. Stops at the first failure.
TextSaveResult SaveListText(const Scripture& scripture, std::span<const std::int32_t> verses, const TextFile& file);
