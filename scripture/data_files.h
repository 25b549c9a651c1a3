// File access for the scripture database. The program maps the files; a test can supply its own bytes.
#pragma once

#include <span>

enum class AccessPattern { kSequential, kRandom };

struct DataFiles {
    void* device = nullptr;  // passed to `map`
    // Maps the whole file `name` into `bytes`, read-only and valid until the device is released. Returns false when the
    // file cannot be opened or mapped. For an empty file it returns true and no bytes.
    bool (*map)(void* device, const char* name, AccessPattern pattern, std::span<const unsigned char>& bytes) = nullptr;
};
