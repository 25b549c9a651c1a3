// Benchmarks opening, searching, reading and saving a note set of 62 MB against floors that do the same with plain
// reads and writes. Both run alternately in the same run, and the shortest times are compared.
//
// Argument: a folder on the disk to be measured; default: the system's temporary folder.
#include <emmintrin.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>

#include "bench/large_set.h"
#include "bench/note_listing.h"
#include "bench/outcomes.h"
#include "notes/note_history.h"
#include "notes/note_saving.h"
#include "notes/note_search.h"
#include "tests/support/checked_sets.h"
#include "tests/support/native_scripture.h"
#include "tests/support/real_note_files.h"

static constexpr int kRounds = 9;
static constexpr std::size_t kNoteSize = 2000;  // with 31,102 of them 62 MB
static constexpr double kMostSearchTime = 10;   // milliseconds
static constexpr double kMostTimesCopy = 1.5;   // for a save, which also keeps the text that it replaces

static std::string TextOfNote(int verse) {
    return FilledNote("Note of verse " + std::to_string(verse) + ".\r\n", kNoteSize);
}

template <typename Procedure>
static double MillisecondsOf(Procedure procedure) {
    const auto start = std::chrono::steady_clock::now();
    procedure();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

namespace {

struct Pair {
    double ours = 1e9, floor = 1e9;  // shortest times in milliseconds
};

}  // namespace

template <typename Ours, typename Floor>
static Pair Compare(Ours ours, Floor floor) {
    Pair least;
    for (int round = 0; round < kRounds; ++round) {
        least.floor = std::min(least.floor, MillisecondsOf(floor));
        least.ours = std::min(least.ours, MillisecondsOf(ours));
    }
    return least;
}

// ---- Floors: plain file operations ----------------------------------------------------------------------------------

// Reads `from` in pieces of a megabyte and passes each to `take`.
template <typename Take>
static void EachPiece(const std::string& from, Take take) {
    static std::vector<unsigned char> piece(std::size_t{1} << 20);
    const int source = open(from.c_str(), O_RDONLY);
    for (ssize_t count; (count = read(source, piece.data(), piece.size())) > 0;)
        take(piece.data(), static_cast<std::size_t>(count));
    close(source);
}

static void CopyAndFlush(const std::string& from, const std::string& to) {
    const int target = open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    EachPiece(from, [&](const unsigned char* bytes, std::size_t count) {
        if (write(target, bytes, count) != static_cast<ssize_t>(count)) std::abort();
    });
    fsync(target);
    close(target);
}

static void AppendAndFlush(const std::string& to, std::size_t size) {
    static const std::vector<unsigned char> bytes(2 * kNoteSize);
    const int target = open(to.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
    if (write(target, bytes.data(), std::min(size, bytes.size())) < 0) std::abort();
    fsync(target);
    close(target);
}

// Like a save: the copy replaces the old data file, and the index is overwritten.
static void CopyBothFiles(const std::string& folder) {
    CopyAndFlush(folder + "Copy.nmd", folder + "Copy.nmd.temp");
    unlink((folder + "Copy.nmd").c_str());
    rename((folder + "Copy.nmd.temp").c_str(), (folder + "Copy.nmd").c_str());
    CopyAndFlush(folder + "Large.nmi", folder + "Copy.nmi");
}

static void ReadBothFiles(const std::string& folder) {
    for (const char* name : {"Large.nmd", "Large.nmi"})
        EachPiece(folder + name, [](const unsigned char*, std::size_t) {});
}

namespace {

// One letter of a text in capitals, compared with sixteen places at once.
struct WideLetter {
    std::size_t place;  // in the text
    __m128i letter, bitsOfCapitals;
};

}  // namespace

static WideLetter LetterAt(std::string_view text, std::size_t place) {
    return {place, _mm_set1_epi8(text[place]), _mm_set1_epi8('\xDF')};
}

static __m128i IsAt(const WideLetter& wanted, const unsigned char* here) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(here + wanted.place));
    return _mm_cmpeq_epi8(_mm_and_si128(bytes, wanted.bitsOfCapitals), wanted.letter);
}

static bool IsAt(std::string_view text, const unsigned char* here) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (std::toupper(here[i]) != text[i]) return false;
    return true;
}

// Is `text`, in capitals, in the bytes, in any case? Looks for its letters "A" and "Y", which are rarer together than
// others.
static bool IsInBytes(const unsigned char* bytes, std::size_t count, std::string_view text) {
    static constexpr std::size_t kStep = 64;
    const WideLetter first = LetterAt(text, text.find('Y')), second = LetterAt(text, text.find('A'));
    const auto both = [&](const unsigned char* here) { return _mm_and_si128(IsAt(first, here), IsAt(second, here)); };
    for (std::size_t place = 0; place + text.size() + kStep <= count; place += kStep) {
        const unsigned char* here = bytes + place;
        const __m128i any =
            _mm_or_si128(_mm_or_si128(both(here), both(here + 16)), _mm_or_si128(both(here + 32), both(here + 48)));
        if (_mm_movemask_epi8(any) == 0) continue;
        for (std::size_t i = 0; i < kStep; ++i)
            if (IsAt(text, here + i)) return true;
    }
    return false;
}

// The pieces do not overlap and their last bytes are not looked at, so it sees a little less than the program.
static bool SweepDataFile(const std::string& folder, std::string_view text) {
    bool found = false;
    EachPiece(folder + "Large.nmd",
              [&](const unsigned char* bytes, std::size_t count) { found |= IsInBytes(bytes, count, text); });
    return found;
}

static void SeekAndRead(const std::string& folder, int verse) {
    static unsigned char bytes[kNoteSize];
    const int file = open((folder + "Large.nmd").c_str(), O_RDONLY);
    lseek(file, static_cast<off_t>(kNoteSize) * verse, SEEK_SET);
    if (read(file, bytes, sizeof bytes) < 0) std::abort();
    close(file);
}

// ---- The program's procedures ---------------------------------------------------------------------------------------

static void OpenSets(const NoteFiles& files, NoteSets& notes) {
    if (!OpenAndCheckSets(files, notes).report.empty()) std::abort();
}

static void SaveMiddle(const NoteFiles& files, NoteSets& notes, std::string& text) {
    const SaveVoice voice = {nullptr, [](void*, SaveNotice, const std::string&) { return false; }};
    SelectStoredNote(notes, 0, kVerseCount / 2);
    NoteEdit edit{text + 'x', text};
    if (SaveNote(files, voice, notes, edit, {"2024-12-31", 1735603200}) != NoteSaveResult::kSaved) std::abort();
    text = edit.text;
}

static constexpr int kMoves = 2000;

template <typename Move>
static void MoveAround(Move move) {
    for (int i = 0; i < kMoves; ++i) move(static_cast<int>((static_cast<long long>(i) * 7919) % kVerseCount));
}

static constexpr char kInNoNote[] = "IN ANY NOTE";

static bool IsInSet(const NoteFiles& files, NoteSet& set, const char* text) {
    const SearchProgress unseen{nullptr, [](void*, int) {}};
    const LetterTable letters = AsciiLetters();
    return FindInNotes(files, set, letters, {text, false, false, {}}, {}, unseen).end == NoteSearchEnd::kFound;
}

static void PrintPair(const char* what, const Pair& pair, double mostTimesFloor = 0) {
    Print({what, pair.ours, pair.floor, mostTimesFloor});
}

static void MeasureSearch(const std::string& folder, const NoteFiles& files, NoteSet& set) {
    bool found = false, foundByFloor = false;
    const Pair pair = Compare([&] { found |= IsInSet(files, set, kInNoNote); },
                              [&] { foundByFloor |= SweepDataFile(folder, kInNoNote); });
    Print({"note search of 62 MB in vain / reading and one sweep", pair.ours, pair.floor, 0, 0, "ms",
           !found && !foundByFloor});
    PrintLimited("note search of 62 MB in vain", pair.ours, kMostSearchTime, "ms");
    const Pair reading = Compare([] {}, [&] { ReadBothFiles(folder); });
    PrintAmount("  reading its bytes", reading.floor, "ms");
}

static void Measure(const std::string& folder) {
    RealNoteFiles real{folder};
    const NoteFiles files = DeviceOver(real);
    WriteLargeSet(folder + "Large", TextOfNote);
    NoteSets notes;
    PrintPair("opening and checking a set of 62 MB / reading it",
              Compare([&] { OpenSets(files, notes); }, [&] { ReadBothFiles(folder); }));
    const VerseRecords& records = TheRealScripture().records;
    PrintPair("2000 notes / a seek and a read each",
              Compare([&] { MoveAround([&](int verse) { ReadNoteText(files, records, notes, verse); }); },
                      [&] { MoveAround([&](int verse) { SeekAndRead(folder, verse); }); }));
    MeasureSearch(folder, files, notes.sets.front());
    std::filesystem::copy_file(folder + "Large.nmd", folder + "Copy.nmd");
    std::string text = TextOfNote(kVerseCount / 2);
    SaveMiddle(files, notes, text);  // the first save makes the backup of the day
    PrintPair("saving a note of 62 MB / copying its files",
              Compare([&] { SaveMiddle(files, notes, text); }, [&] { CopyBothFiles(folder); }), kMostTimesCopy);
    const EarlierNote note = {1735603200, kVerseCount / 2, KeptReason::kReplaced, text};
    PrintPair("  of that, keeping the replaced text / appending it",
              Compare(
                  [&] {
                      KeepEarlierNotes(files, "Large", {&note, 1});
                  },
                  [&] { AppendAndFlush(folder + "Copy.nmh", text.size() + 24); }));
}

int main(int argc, char** argv) {
    if (argc > 1) setenv("TMPDIR", argv[1], 1);
    const std::string folder = MakeScratchFolder();
    if (folder.empty()) return 1;
    Measure(folder);
    RemoveScratchFolder(folder);
    MeasureListing();
    return ExitCode();
}
