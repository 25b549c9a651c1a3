// The scripture files for native tests and benchmarks: mapped without Windows, and the real ones at hand.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"
#include "search/word_index.h"

// The files of `folder`, a zero-terminated path that must stay as long as the result is used. What was mapped stays
// mapped until the program ends.
DataFiles FilesOfFolder(const char* folder);

// The Authorized Version and its word index as the build made them, loaded at the first call. They throw, so that the
// test fails by name, when the build has not made them yet.
const Scripture& TheRealScripture();
const WordIndex& TheRealWordIndex();
