// A word index for the verses of a test, and data files in memory.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "search/word_index.h"
#include "tests/support/hand_made_scripture.h"

// Contents by file name. Vectors, so that a sanitizer detects every access out of bounds.
using FilesInMemory = std::map<std::string, std::vector<unsigned char>>;

// The device for `files`, which must outlive it. Missing files cannot be mapped.
DataFiles DeviceOver(FilesInMemory& files);

// The three index files of the words of `verses`: runs of letters and apostrophes, in lower case.
FilesInMemory MakeIndexFiles(std::span<const HandMadeVerse> verses);

// A view of `files`, which must outlive it.
WordIndex IndexOf(FilesInMemory& files);
