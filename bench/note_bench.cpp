// Benchmarks opening, reading and saving a note set of 60 MB against plain reads and writes of the same bytes. Both run
// alternately in the same run, and the shortest times are compared.
//
// Argument: a folder on the disk to be measured; default: the system's temporary folder.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>

#include "notes/note_history.h"
#include "notes/note_recovery.h"
#include "notes/note_saving.h"
#include "notes/note_search.h"
#include "tests/support/native_scripture.h"
#include "tests/support/real_note_files.h"

static constexpr int kRounds = 9;
static constexpr std::size_t kNoteSize = 2000;  // with 31,102 of them 62 MB

static std::string TextOfNote(int verse) {
    std::string text = "Note of verse " + std::to_string(verse) + ".\r\n";
    while (text.size() < kNoteSize - 1) text += "a line of this note\r\n";
    return text.substr(0, kNoteSize - 1);
}

static void WriteLargeSet(const std::string& folder) {
    std::vector<unsigned char> data, index;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        for (unsigned shift = 0; shift < 32; shift += 8)
            index.push_back(static_cast<unsigned char>(data.size() >> shift & 0xFF));
        const std::string text = TextOfNote(verse);
        data.insert(data.end(), text.begin(), text.end());
        data.push_back(0);
    }
    WriteWholeFile(folder + "Large.nmd", data);
    WriteWholeFile(folder + "Large.nmi", index);
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

static void Print(const char* what, const Pair& pair, const char* aim) {
    std::printf("%-34s %10.3f ms %10.3f ms   ratio %5.2f   %s\n", what, pair.ours, pair.floor, pair.ours / pair.floor,
                aim);
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

static void SeekAndRead(const std::string& folder, int verse) {
    static unsigned char bytes[kNoteSize];
    const int file = open((folder + "Large.nmd").c_str(), O_RDONLY);
    lseek(file, static_cast<off_t>(kNoteSize) * verse, SEEK_SET);
    if (read(file, bytes, sizeof bytes) < 0) std::abort();
    close(file);
}

// ---- The program's procedures ---------------------------------------------------------------------------------------

static void OpenSets(const NoteFiles& files, NoteSets& notes) {
    if (!OpenNoteSets(files, notes).report.empty()) std::abort();
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

static void SearchInVain(const NoteFiles& files, NoteSets& notes) {
    const SearchProgress unseen{nullptr, [](void*, int) {}};
    const NoteQuery query{"NOT IN ANY NOTE", false, false, {}};
    const NoteMatch match = FindInNotes(files, notes.sets.front(), AsciiLetters(), query, {}, unseen);
    if (match.end != NoteSearchEnd::kNotFound) std::abort();
}

static void Measure(const std::string& folder) {
    RealNoteFiles real{folder};
    const NoteFiles files = DeviceOver(real);
    WriteLargeSet(folder);
    std::printf("%-34s %13s %13s\n", "a set of 62 MB", "the program", "the disk");
    NoteSets notes;
    Print("open, and count every note's end", Compare([&] { OpenSets(files, notes); }, [&] { ReadBothFiles(folder); }),
          "once a start");
    const VerseRecords& records = TheRealScripture().records;
    Print("move to 2000 notes, a seek and read",
          Compare([&] { MoveAround([&](int verse) { ReadNoteText(files, records, notes, verse); }); },
                  [&] { MoveAround([&](int verse) { SeekAndRead(folder, verse); }); }),
          "");
    Print("search all notes, in any case", Compare([&] { SearchInVain(files, notes); }, [&] { ReadBothFiles(folder); }),
          "");
    std::filesystem::copy_file(folder + "Large.nmd", folder + "Copy.nmd");
    std::string text = TextOfNote(kVerseCount / 2);
    SaveMiddle(files, notes, text);  // the first save makes the backup of the day
    Print("save a note in the middle", Compare([&] { SaveMiddle(files, notes, text); }, [&] { CopyBothFiles(folder); }),
          "aim: at most 1.5, with the text that it replaces kept");
    const EarlierNote note = {1735603200, kVerseCount / 2, KeptReason::kReplaced, text};
    Print("of that, keep the replaced text",
          Compare(
              [&] {
                  KeepEarlierNotes(files, "Large", {&note, 1});
              },
              [&] { AppendAndFlush(folder + "Copy.nmh", text.size() + 24); }),
          "the same however many are kept");
}

int main(int argc, char** argv) {
    if (argc > 1) setenv("TMPDIR", argv[1], 1);
    const std::string folder = MakeScratchFolder();
    if (folder.empty()) return 1;
    Measure(folder);
    RemoveScratchFolder(folder);
}
