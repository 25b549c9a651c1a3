// Offsets of the notes in a data file: found by its NULs, and stored in the index file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "notes/note_files.h"

// The offsets of a data file's notes, determined from the NULs that end them.
struct NotePlaces {
    std::vector<std::uint32_t> offsets;  // one per verse, fewer if there are fewer NULs
    std::uint64_t ends = 0;              // NULs in the file
    std::uint64_t size = 0;              // bytes in the file
    bool endsWithNul = false;
};

// Processes the next bytes of a file that is read piece by piece.
void AddPlaces(NotePlaces& places, std::span<const unsigned char> bytes);

// Scans an open data file from the first byte to the last. If it cannot be read to the end, the result covers the part
// that was read.
NotePlaces ScanNotes(const NoteFiles& files, void* file);

// Opens and scans a data file. nullopt if it cannot be opened.
std::optional<NotePlaces> PlacesOf(const NoteFiles& files, const std::string& dataFileName);

// A data file is whole if it has one note for each verse, ends with the last note's NUL, and is not larger than 4 GB.
bool IsWhole(const NotePlaces& places);

// Does the index have the correct offset for every note of a whole data file? Entries beyond the last verse are
// ignored.
bool FitsPlaces(std::span<const std::uint32_t> offsets, const NotePlaces& places);

// Converts offsets to the bytes of an index file, and back; bytes after the last complete integer are ignored.
std::vector<unsigned char> IndexBytes(std::span<const std::uint32_t> offsets);
std::vector<std::uint32_t> OffsetsOf(std::span<const unsigned char> bytes);

// Reads the first 31,102 offsets of an index file, fewer if it is shorter. False if it cannot be opened.
bool ReadIndex(const NoteFiles& files, const std::string& indexFileName, std::vector<std::uint32_t>& offsets);

// The offsets for reading a data file that is not whole: those of `index` if they are in order, otherwise those of the
// NULs that are left. Text after the last NUL counts as the note after it.
std::vector<std::uint32_t> ReadableOffsets(std::vector<std::uint32_t> index, NotePlaces places);

// Rewrites the index file; false unless all of it is on the disk.
bool WriteIndex(const NoteFiles& files, const std::string& indexFileName, std::span<const std::uint32_t> offsets);

// If the data file is missing but its temporary file is whole, renames the temporary file to the data file: it was
// flushed before the data file was deleted. Returns whether it did.
bool PutTwinInPlace(const NoteFiles& files, const std::string& dataFileName);
