// Writes a set of files completely or not at all.
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

// Appends the lowest `byteCount` bytes of `number`, little-endian.
void AppendNumber(std::string& bytes, std::uint64_t number, int byteCount);

// Writes the files to `folder`, which is created if it is missing. All files are written under temporary names first
// and renamed at the end, so a failure leaves the old set unchanged and no temporary files.
Complaint WriteDataFiles(const std::filesystem::path& folder, const std::vector<DataFile>& files);

// The same, but never replaces a file: if one of the files exists, the folder stays unchanged. The files are put in
// place in the given order.
Complaint WriteNewFiles(const std::filesystem::path& folder, const std::vector<DataFile>& files);
