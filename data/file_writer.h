// Files that belong together, put in their place together.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "data/verses.h"

struct DataFile {
    std::string name;
    std::string bytes;
};

// Adds the lowest `byteCount` bytes of `number`, lowest first.
void AppendNumber(std::string& bytes, std::uint64_t number, int byteCount);

// Writes the files into `folder`, which is made when it is missing. All are written beside their places first and put
// there at the end, so a failure leaves the folder's own set as it was, and nothing else behind.
Complaint WriteDataFiles(const std::filesystem::path& folder, const std::vector<DataFile>& files);

// The same, but no file that is there is replaced: one of them is enough to leave the folder as it was. They come in
// the order given.
Complaint WriteNewFiles(const std::filesystem::path& folder, const std::vector<DataFile>& files);
