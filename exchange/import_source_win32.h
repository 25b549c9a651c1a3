// Reading files of notes, or folders of them, that a user has chosen.
#pragma once

#include <string>

#include "exchange/exchanged_notes.h"

// The notes of a file in one of the formats (exchange/note_formats.h), by the ending of its name. If it cannot be read,
// `error` says why. If `progress` ends it, what is returned is of no use.
ExchangedNotes ReadNoteFile(const std::wstring& path, const SearchProgress& progress);

// The same for the text files of a folder, which are named by verses (exchange/note_folder.h). `folder` is a full path.
ExchangedNotes ReadNoteFilesIn(const std::wstring& folder, const SearchProgress& progress);
