// Apart from `vw text`, because `vw doctor` looks at the files, too.
#include "cli/text_files.h"

#include <nlohmann/json.hpp>

#include "cli/sha256.h"
#include "cli/text_folder.h"

// The digests of the files that the build has made: lines of "digest  name".
static constexpr char kBuiltFiles[] =
#include "cli/built_files.inc"
    ;

std::vector<FileDigest> BuiltFiles() {
    return ReadDigests(kBuiltFiles);
}

std::vector<FileDigest> TextFilesIn(const Vw& vw, const std::string& folder) {
    std::vector<FileDigest> files;
    for (const FileDigest& file : BuiltFiles()) {
        std::span<const unsigned char> bytes;
        const bool isRead = vw.surroundings.map(vw.surroundings.device, PathIn(folder, file.name), bytes);
        files.push_back({file.name, isRead ? Sha256Digits(bytes) : ""});
    }
    return files;
}

const char* StateOf(const FileDigest& file, const FileDigest& built) {
    return file.digest.empty() ? "missing" : file == built ? "as built" : "differs";
}

void PrintFileObject(Vw& vw, const FileDigest& file, const FileDigest& built) {
    PrintObject(vw.printer, {{"kind", "file"},
                             {"file", file.name},
                             {"sha256", file.digest},
                             {"built", built.digest},
                             {"state", StateOf(file, built)}});
}
