// The five files of the scripture database, made and put in their place. Their formats: scripture/scripture_files.h and
// search/word_index.h.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "data/verses.h"
#include "data/word_lists.h"

struct DataFile {
    std::string name;
    std::string bytes;
};

// The five files as bytes.
std::vector<DataFile> EncodeScripture(const Verses& verses, const WordLists& words);

// Writes the files into `folder`, which is made when it is missing. All are written beside their places first and put
// there at the end, so a failure leaves the folder's own set as it was, and nothing else behind.
Complaint WriteDataFiles(const std::filesystem::path& folder, const std::vector<DataFile>& files);
