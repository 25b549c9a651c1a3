// Scripture files for native tests and benchmarks: mapped with mmap, including the real ones.
#pragma once

#include "scripture/data_files.h"
#include "scripture/scripture.h"
#include "search/word_index.h"

// The files of `folder`, a path that must stay valid as long as the result is used. Files stay mapped until the program
// ends.
DataFiles FilesOfFolder(const char* folder);

// The Authorized Version and its word index from the build, loaded at the first call. They throw if the build has not
// made the files yet, so that the test fails with a clear message.
const Scripture& TheRealScripture();
const WordIndex& TheRealWordIndex();

// The same with the kinds of its texts, as the program knows it soon after the start.
const Scripture& TheScriptureWithKinds();
