// The word index of a test's own verses, and data files that lie in memory.
#pragma once

#include <map>
#include <span>
#include <string>
#include <vector>

#include "search/word_index.h"
#include "tests/support/hand_made_scripture.h"

// Contents by file name; vectors, so that a sanitizer sees every step beyond them.
using FilesInMemory = std::map<std::string, std::vector<unsigned char>>;

// The device over `files`, which must stay. Files that are not there cannot be mapped.
DataFiles DeviceOver(FilesInMemory& files);

// The three index files of the words of `verses`: runs of letters and apostrophes, in lower case.
FilesInMemory MakeIndexFiles(std::span<const HandMadeVerse> verses);

// A view of `files`, which must stay.
WordIndex IndexOf(FilesInMemory& files);
