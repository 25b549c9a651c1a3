// Benchmarks the index of the references in 31 note sets of 5 MB against a floor that reads the same files and counts
// their digits. The notes are verses of the text with references between them, as many as commentaries have: one in 300
// bytes.
//
// Argument: a folder on the disk to be measured; default: the system's temporary folder.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "bench/outcomes.h"
#include "notes/note_places.h"
#include "notes/reference_index.h"
#include "tests/support/checked_sets.h"
#include "tests/support/native_scripture.h"
#include "tests/support/real_note_files.h"

static constexpr int kSets = kNoteSetLimit;
static constexpr std::size_t kSetSize = 5'000'000;
static constexpr int kRounds = 5;
static constexpr double kMostIndexing = 2000;  // milliseconds
static constexpr double kMostPiece = 10;
static constexpr double kMostQuestion = 5;

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

// A reference in one of several spellings, and sometimes a list of them.
static std::string SpeltReference(unsigned number) {
    const int verse = static_cast<int>(number * 7919u % kVerseCount);
    const std::string name = ReferenceText(Records(), verse, BookForm::kName);
    const std::string shortName = ReferenceText(Records(), verse, BookForm::kAbbreviation);
    switch (number % 5) {
        case 0: return " (see " + name + ")";
        case 1: return " " + shortName + ", 2; 3:1.";
        case 2: return ", ver. 1,";
        case 3: return " (Ps. cxix. 11, Rom. viii. 28-30).";
        default: return " In 1872 he said: " + shortName + ".";
    }
}

static std::string TextOfNote(unsigned number, std::size_t size) {
    std::string text = "On Rom. viii. 28-30. ";
    while (text.size() < size) {
        for (int verse = 0; verse < 2; ++verse)
            text += VerseText(TheRealScripture(), static_cast<int>(number++ * 31u % kVerseCount));
        text += SpeltReference(number / 2);
        text += number % 16 == 0 ? "\r\n# Ge 1:1; Ex 2:4, 6-8\r\n" : " ";
    }
    std::ranges::replace(text, '\0', ' ');
    return text;
}

// Notes on every tenth verse.
static void WriteSet(const std::string& folder, unsigned set) {
    static constexpr int kStep = 10;
    static constexpr std::size_t kNoteSize = kSetSize / (kVerseCount / kStep) - 250;
    std::vector<unsigned char> data;
    std::vector<std::uint32_t> offsets;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        offsets.push_back(static_cast<std::uint32_t>(data.size()));
        if (verse % kStep == 0) {
            const std::string text = TextOfNote(set * 100003u + static_cast<unsigned>(verse), kNoteSize);
            data.insert(data.end(), text.begin(), text.end());
        }
        data.push_back(0);
    }
    const std::string name = folder + "Set " + std::to_string(set + 10);
    WriteWholeFile(name + ".nmd", data);
    WriteWholeFile(name + ".nmi", IndexBytes(offsets));
}

static double Now() {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// ---- The floor ------------------------------------------------------------------------------------------------------

static std::size_t ReadAndCountDigits(const std::string& folder) {
    static std::vector<unsigned char> piece(std::size_t{1} << 20);
    std::size_t digits = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() != ".nmd") continue;
        const int file = open(entry.path().c_str(), O_RDONLY);
        for (ssize_t count; (count = read(file, piece.data(), piece.size())) > 0;)
            digits += static_cast<std::size_t>(std::count_if(piece.begin(), piece.begin() + count,
                                                             [](unsigned char c) { return c >= '0' && c <= '9'; }));
        close(file);
    }
    return digits;
}

// ---- The program's procedures ---------------------------------------------------------------------------------------

namespace {

struct Least {
    double total = 1e9;
    std::vector<double> pieces{};  // the least time of each, over all rounds
};

}  // namespace

static void IndexAll(const NoteFiles& files, NoteSets& notes, ReferenceIndex& index, Least& least) {
    double total = 0;
    bool goesOn = true;
    for (std::size_t piece = 0; goesOn; ++piece) {
        const double start = Now();
        goesOn = IndexSome(files, Records(), notes, index, kIndexedAtOnce);
        const double time = Now() - start;
        if (piece == least.pieces.size()) least.pieces.push_back(time);
        least.pieces[piece] = std::min(least.pieces[piece], time);
        total += time;
    }
    least.total = std::min(least.total, total);
}

// All notes name Romans 8:29.
static bool HasFoundAll(const ReferenceIndex& index, const NoteSets& notes) {
    const int verse = VerseLookup(Records(), 45, 8, 29);
    return IsWhole(index, notes) && NotesThatName(index, notes, verse).size() == std::size_t{kSets} * 3111;
}

static double LeastQuestion(const ReferenceIndex& index, const NoteSets& notes) {
    double least = 1e9;
    for (int verse = 0; verse < kVerseCount; verse += 3000) {
        const double start = Now();
        NotesThatName(index, notes, verse);
        least = std::min(least, Now() - start);
    }
    return least;
}

static void Measure(const std::string& folder) {
    for (unsigned set = 0; set < kSets; ++set) WriteSet(folder, set);
    RealNoteFiles real{folder};
    const NoteFiles files = DeviceOver(real);
    NoteSets notes;
    OpenAndCheckSets(files, notes);
    Least least;
    double floor = 1e9;
    std::size_t digits = 0;
    ReferenceIndex index;
    for (int round = 0; round < kRounds; ++round) {
        const double start = Now();
        digits = ReadAndCountDigits(folder);
        floor = std::min(floor, Now() - start);
        index = ReferenceIndexFor(Records());
        IndexAll(files, notes, index, least);
    }
    std::size_t ranges = 0;
    for (const SetReferences& set : index.sets) ranges += set.named.size();
    const bool isRight = digits > 0 && notes.sets.size() == std::size_t{kSets} && HasFoundAll(index, notes);
    Print({"index of references in 31 sets of 5 MB / reading and counting digits", least.total, floor, 0, 0, "ms",
           isRight});
    PrintLimited("index of references in 31 sets of 5 MB", least.total, kMostIndexing, "ms");
    PrintLimited("  its longest piece", *std::ranges::max_element(least.pieces), kMostPiece, "ms");
    PrintLimited("  the notes that name a verse", LeastQuestion(index, notes), kMostQuestion, "ms");
    PrintAmount("  its size", static_cast<double>(ranges * sizeof(NamedVerses)) / 1024, "KiB");
}

int main(int argc, char** argv) {
    if (argc > 1) setenv("TMPDIR", argv[1], 1);
    const std::string folder = MakeScratchFolder();
    if (folder.empty()) return 1;
    Measure(folder);
    RemoveScratchFolder(folder);
    return ExitCode();
}
