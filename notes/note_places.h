// Where the notes of a data file lie: read off its NULs, and kept in the index file.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "notes/note_files.h"

// Where the notes of a data file begin, by their ends.
struct NotePlaces {
    std::vector<std::uint32_t> offsets;  // of the first notes, one a verse: fewer where there are fewer NULs
    std::uint64_t ends = 0;              // NULs in the file
    std::uint64_t size = 0;              // bytes in the file
    bool endsWithNul = false;
};

// Takes the next bytes of a file that is read piece by piece.
void AddPlaces(NotePlaces& places, std::span<const unsigned char> bytes);

// Reads an open data file through, from first to last byte. One that cannot be read to its end gives what was read.
NotePlaces ScanNotes(const NoteFiles& files, void* file);

// A data file is whole when it holds one note for each verse, the last one's NUL at its end, none beyond 4 GB.
bool IsWhole(const NotePlaces& places);

// Does the index give every note of a whole data file its place? What an index holds beyond the last verse is nobody's
// business.
bool FitsPlaces(std::span<const std::uint32_t> offsets, const NotePlaces& places);

// The offsets as an index file holds them, and back; bytes behind the last whole integer are left out.
std::vector<unsigned char> IndexBytes(std::span<const std::uint32_t> offsets);
std::vector<std::uint32_t> OffsetsOf(std::span<const unsigned char> bytes);

// Writes the index file anew; false unless all of it is on the disk.
bool WriteIndex(const NoteFiles& files, const std::string& indexFileName, std::span<const std::uint32_t> offsets);

// Where the data file is missing but its temporary twin is a whole one, the twin gets its name: it was flushed before
// the data file was deleted. True when it did.
bool PutTwinInPlace(const NoteFiles& files, const std::string& dataFileName);
