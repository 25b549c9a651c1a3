#include "bench/note_listing.h"

#include <emmintrin.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "bench/contest.h"
#include "bench/large_set.h"
#include "bench/outcomes.h"
#include "notes/listed_notes.h"
#include "notes/text_sweep.h"
#include "tests/support/checked_sets.h"
#include "tests/support/real_note_files.h"

static constexpr int kRounds = 7;
static constexpr int kSets = 31;
static constexpr std::size_t kNoteSize = 160;  // with 31,102 of them 5 MB
static constexpr std::array<const char*, 2> kWords = {"GRACE", "TRUTH"};
static constexpr double kMostTimesFloor = 3;  // the program reads a set again for each word

// ---- The sets -------------------------------------------------------------------------------------------------------

// Some notes have one of the words, some both, and others longer words that begin like them.
static std::string TextOfNote(int verse) {
    std::string text = "Note of verse " + std::to_string(verse) + ".\r\n";
    if (verse % 7 == 0) text += "Of Grace\r\n";
    if (verse % 11 == 0) text += "and truth.\r\n";
    if (verse % 5 == 0) text += "graceful, truthful\r\n";
    return FilledNote(std::move(text), kNoteSize);
}

// All sets are one file under several names.
static void WriteSets(const std::string& folder) {
    WriteLargeSet(folder + "Set 0", TextOfNote);
    for (int set = 1; set < kSets; ++set)
        for (const char* ending : {".nmd", ".nmi"})
            std::filesystem::create_hard_link(folder + "Set 0" + ending,
                                              folder + "Set " + std::to_string(set) + ending);
}

// ---- The floor ------------------------------------------------------------------------------------------------------

namespace {

// The contents of a set's data file, and a bit for each of the words that a verse's note has.
struct FloorSet {
    std::vector<unsigned char> bytes = std::vector<unsigned char>(kNoteSize * kVerseCount + sizeof(__m128i));
    std::vector<unsigned char> wordsOfVerse = std::vector<unsigned char>(kVerseCount);
};

}  // namespace

static void ReadSet(const std::string& folder, int set, FloorSet& floor) {
    const int file = open((folder + "Set " + std::to_string(set) + ".nmd").c_str(), O_RDONLY);
    if (read(file, floor.bytes.data(), kNoteSize * kVerseCount) < 0) std::abort();
    close(file);
}

static bool IsWholeWordAt(std::string_view word, const unsigned char* place) {
    for (std::size_t i = 0; i < word.size(); ++i)
        if (std::toupper(place[i]) != word[i]) return false;
    return std::isalnum(place[-1]) == 0 && std::isalnum(place[word.size()]) == 0;
}

// Looks for the first and the last letter of the word at sixteen places at once.
static void FindWord(std::string_view word, unsigned char bit, FloorSet& set) {
    const __m128i first = _mm_set1_epi8(word.front()), last = _mm_set1_epi8(word.back());
    const __m128i capitals = _mm_set1_epi8('\xDF');
    const auto at = [&](const unsigned char* place) {
        return _mm_and_si128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(place)), capitals);
    };
    for (std::size_t offset = 0; offset < kNoteSize * kVerseCount; offset += sizeof(__m128i)) {
        const unsigned char* place = set.bytes.data() + offset;
        const __m128i both =
            _mm_and_si128(_mm_cmpeq_epi8(at(place), first), _mm_cmpeq_epi8(at(place + word.size() - 1), last));
        for (auto bits = static_cast<unsigned>(_mm_movemask_epi8(both)); bits != 0; bits &= bits - 1) {
            const auto behind = static_cast<std::size_t>(std::countr_zero(bits));
            if (IsWholeWordAt(word, place + behind)) set.wordsOfVerse[(offset + behind) / kNoteSize] |= bit;
        }
    }
}

static std::vector<std::int32_t> ListByFloor(const std::string& folder) {
    static FloorSet floor;
    std::vector<bool> isListed(kVerseCount);
    for (int set = 0; set < kSets; ++set) {
        ReadSet(folder, set, floor);
        std::ranges::fill(floor.wordsOfVerse, 0);
        for (std::size_t word = 0; word < kWords.size(); ++word)
            FindWord(kWords[word], static_cast<unsigned char>(1U << word), floor);
        for (std::size_t verse = 0; verse < kVerseCount; ++verse)
            if (floor.wordsOfVerse[verse] == (1U << kWords.size()) - 1) isListed[verse] = true;
    }
    std::vector<std::int32_t> verses;
    for (int verse = 0; verse < kVerseCount; ++verse)
        if (isListed[static_cast<std::size_t>(verse)]) verses.push_back(verse);
    return verses;
}

// ---- Measuring ------------------------------------------------------------------------------------------------------

static void Measure(const std::string& folder) {
    RealNoteFiles real{folder};
    const NoteFiles files = DeviceOver(real);
    WriteSets(folder);
    NoteSets notes;
    if (!OpenAndCheckSets(files, notes).report.empty()) std::abort();
    const ListedNotesQuery query{{kWords.begin(), kWords.end()}, false, {}};
    const SearchProgress unseen{nullptr, [](void*, int) {}};
    ListedNotes listed;
    std::vector<std::int32_t> verses;
    const std::vector<double> times =
        BestTimesInTurns(kRounds, {[&] { listed = ListNotes(files, notes.sets, AsciiLetters(), query, unseen); },
                                   [&] { verses = ListByFloor(folder); }});
    Print({.what = "listing the notes with 2 words in 31 sets of 5 MB",
           .time = times[0],
           .floor = times[1],
           .mostTimesFloor = kMostTimesFloor,
           .sameAnswer = listed.verses == verses && listed.sets == kSets && !verses.empty()});
}

void MeasureListing() {
    const std::string folder = MakeScratchFolder();
    if (folder.empty()) std::abort();
    Measure(folder);
    RemoveScratchFolder(folder);
}
