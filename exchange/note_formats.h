// The formats of files in which notes are exchanged with other programs. A dialog shows a row for each of them and
// needs to know nothing else.
//
// Whatever a note contains, what `write` gives is read by `read` as the same notes, byte for byte, on a system with the
// same code page. `read` also takes files made by hand or changed in another editor: in UTF-8 with or without a mark,
// in UTF-16 with one, or in the code page, with any line ends. It never fails on damaged ones, but says what it could
// not place.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "exchange/exchanged_notes.h"

struct NoteFormat {
    const char* name;        // "Web page"
    const char* ending;      // ".html"
    const char* patterns;    // "*.html;*.htm"
    bool canHaveVerseTexts;  // hasVerseTexts has a meaning

    // The bytes of a file.
    std::string (*write)(const ExchangeContext& context, const ExchangedNotes& notes, const ExportOptions& options);

    ExchangedNotes (*read)(const ExchangeContext& context, std::string_view bytes);
};

// Web page, Markdown, plain text, CSV.
std::span<const NoteFormat> NoteFormats();

// The format of a file by the ending of its name, in capitals or not; null if no format has it.
const NoteFormat* FormatNamed(std::string_view fileName);

// The largest file that is read: beyond all notes that a set can sensibly have.
inline constexpr std::size_t kExchangeLimit = std::size_t{1} << 30;
