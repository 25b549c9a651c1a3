// Whole files as read-only memory.
#pragma once

#include <span>

#include "win32/handles.h"

struct MappedFile {
    MappedView view;
    std::span<const unsigned char> bytes;
};

// Maps the file at `path`, shared for reading; `accessFlag` is FILE_FLAG_SEQUENTIAL_SCAN or FILE_FLAG_RANDOM_ACCESS.
// False when it cannot be opened or mapped. An empty file gives true and no bytes.
bool MapWholeFile(const char* path, DWORD accessFlag, MappedFile& file);
