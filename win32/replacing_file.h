// A file that is written beside an existing one and takes its place when it is complete.
#pragma once

#include <string>

#include "win32/handles.h"

struct ReplacingFile {
    OwnedFile file;            // to write to; null if it cannot be created
    std::wstring path{};       // of the file to replace
    std::wstring temporary{};  // path of `file`; empty if `path` itself is written to
};

// Begins to write the file at `path`, which may exist. The file is null if it could not be replaced: it is read-only,
// hidden or open, or no file can be created in its folder. What is not a file on a disk, such as a printer or NUL,
// is opened itself.
ReplacingFile BeginReplacing(const std::wstring& path);

// Ends writing. If `isWhole`, the file takes its place, with the attributes and the access rights of the one that it
// replaces; otherwise it is deleted. False if the file at `path` is not the new one; then it is still the old one.
bool EndReplacing(ReplacingFile& replacing, bool isWhole);
