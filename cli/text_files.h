// The scripture files of a folder beside those that the program was built with.
#pragma once

#include <string>
#include <vector>

#include "app/about_text.h"
#include "cli/command.h"

// The files that the build has made.
std::vector<FileDigest> BuiltFiles();

// The same files in the folder; the digest of one that cannot be read is empty.
std::vector<FileDigest> TextFilesIn(const Vw& vw, const std::string& folder);

// "as built", "missing", or "differs" for a file that is there and another one.
const char* StateOf(const FileDigest& file, const FileDigest& built);

// The object "file" of the schema.
void PrintFileObject(Vw& vw, const FileDigest& file, const FileDigest& built);
