// What About says of the text and its files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// A file and its SHA-256 digest in hexadecimal digits; empty if the file could not be read.
struct FileDigest {
    std::string name;
    std::string digest;
    bool operator==(const FileDigest&) const = default;
};

// Reads a list of lines "digest  name", as sha256sum writes them. Lines of another form are left out.
std::vector<FileDigest> ReadDigests(std::string_view list);

// The lines below the name of the program.
struct AboutText {
    std::string edition;
    std::string counts;
    std::string files;
};

// `known` are the files that the program was built with, `found` those that it reads now, in the same order. The name
// of the edition is only told of the known files.
AboutText AboutTextOf(int verses, int words, const std::vector<FileDigest>& known,
                      const std::vector<FileDigest>& found);
