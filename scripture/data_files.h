// The core's way to the files of the scripture database, which the program maps and a test may read.
#pragma once

#include <span>

enum class AccessPattern { kSequential, kRandom };

struct DataFiles {
    void* device = nullptr;  // handed back to `map`
    // Gives the whole file `name` as read-only bytes that stay until the device is released. False when the file
    // cannot be opened or mapped; an empty file gives no bytes and true.
    bool (*map)(void* device, const char* name, AccessPattern pattern, std::span<const unsigned char>& bytes) = nullptr;
};
