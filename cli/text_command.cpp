// `vw text`: which text this is.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "app/about_text.h"
#include "cli/command_table.h"
#include "cli/sha256.h"
#include "cli/text_folder.h"
#include "scripture/books.h"

// The digests of the files that the build has made: lines of "digest  name".
static constexpr char kBuiltFiles[] =
#include "cli/built_files.inc"
    ;

static std::vector<FileDigest> FilesIn(const Vw& vw, const std::string& folder, const std::vector<FileDigest>& built) {
    std::vector<FileDigest> files;
    for (const FileDigest& file : built) {
        std::span<const unsigned char> bytes;
        const bool isRead = vw.surroundings.map(vw.surroundings.device, PathIn(folder, file.name), bytes);
        files.push_back({file.name, isRead ? Sha256Digits(bytes) : ""});
    }
    return files;
}

static void PrintText(Printer& printer, const AboutText& about, const std::string& folder) {
    for (const std::string& line : {about.edition, about.counts, about.files, "Folder: " + folder})
        Print(printer, line + "\n");
}

// "differs" is a file that is there and another one.
static const char* StateOf(const FileDigest& file, const FileDigest& built) {
    return file.digest.empty() ? "missing" : file == built ? "as built" : "differs";
}

static void PrintFile(Vw& vw, const FileDigest& file, const FileDigest& built) {
    if (vw.options.json)
        PrintObject(vw.printer, {{"kind", "file"},
                                 {"file", file.name},
                                 {"sha256", file.digest},
                                 {"built", built.digest},
                                 {"state", StateOf(file, built)}});
    else
        Print(vw.printer, (file.digest.empty() ? std::string(64, '-') : file.digest) + "  " + file.name + "  " +
                              StateOf(file, built) + "\n");
}

static void PrintSummary(Vw& vw, const std::string& folder, const std::vector<FileDigest>& files,
                         const std::vector<FileDigest>& built) {
    const Scripture scripture = TextOf(vw);
    const WordIndex index = IndexOf(vw);
    const int verses = static_cast<int>(scripture.records.bytes.size() / kVerseRecordSize);
    const AboutText about = AboutTextOf(verses, WordCount(index), built, files);
    if (!vw.options.json) return PrintText(vw.printer, about, folder);
    PrintObject(vw.printer, {{"kind", "text"},
                             {"edition", about.edition},
                             {"folder", folder},
                             {"books", kBookCount},
                             {"verses", verses},
                             {"words", WordCount(index)},
                             {"asBuilt", files == built}});
}

// Without one of its files there is no text to tell of, but which one it is.
static ExitCode TellText(Vw& vw) {
    const std::string folder = TextFolder(vw);
    const std::vector<FileDigest> built = ReadDigests(kBuiltFiles), files = FilesIn(vw, folder, built);
    const auto missing = std::ranges::find(files, std::string(), &FileDigest::digest);
    if (missing == files.end()) PrintSummary(vw, folder, files, built);
    for (std::size_t i = 0; i < files.size(); ++i) PrintFile(vw, files[i], built[i]);
    if (missing != files.end()) throw Complaint{kFileTrouble, "--data: cannot read " + PathIn(folder, missing->name)};
    return kFound;
}

static RunCommand PrepareText(CLI::App&) {
    return TellText;
}

const Command kTextCommand = {
    .name = "text",
    .help = "tell which text this is, and whether its files are those of the build",
    .prepare = PrepareText,
    .details = "Each of the five files is listed with its SHA-256 digest and \"as built\", \"differs\" or \"missing\".",
};
