// Encodes the five scripture files. The formats are described in scripture/scripture.h and search/word_index.h.
#pragma once

#include <vector>

#include "data/file_writer.h"
#include "data/verses.h"
#include "data/word_lists.h"

std::vector<DataFile> EncodeScripture(const Verses& verses, const WordLists& words);
