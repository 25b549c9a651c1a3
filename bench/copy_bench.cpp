// Benchmarks copying and saving the whole Bible against appending the same bytes in the plainest way.
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <memory>

#include "bench/contest.h"
#include "bench/held_memory.h"
#include "bench/outcomes.h"
#include "output/copy_text.h"
#include "output/rendering.h"
#include "output/save_text.h"
#include "scripture/books.h"
#include "tests/support/native_scripture.h"

static constexpr int kRounds = 101;
static constexpr double kMostTimesFloor = 1.4;
static constexpr double kMostTimesHtmlFloor = 3;  // which looks for brackets only, not for what HTML has to escape
static constexpr double kMostHeldInBlocks = 160;  // KiB

// The default format removes brackets. The other one has full labels and brackets.
static constexpr FormatOptions kAsOpened;
static constexpr FormatOptions kInFull{0, 0, 0, 1, 1, 1};

// ---- The floors -----------------------------------------------------------------------------------------------------

namespace {

// Bytes in room for all of them: appending one is a store.
struct Bytes {
    std::unique_ptr<char[]> begin;
    char* end;
};

}  // namespace

static Bytes RoomFor(std::size_t size) {
    std::unique_ptr<char[]> begin(new char[size]);  // not std::make_unique, which clears it
    char* const end = begin.get();
    return {std::move(begin), end};
}

static std::string_view ViewOf(const Bytes& bytes) {
    return {bytes.begin.get(), bytes.end};
}

static std::size_t MostBytes() {
    return TheRealScripture().text.size() + std::size_t{kVerseCount} * kLongestPieceFrame;
}

static char* Append(std::string_view text, char* to) {
    return std::copy(text.begin(), text.end(), to);
}

static char* AppendNumber(int number, char* to) {
    return std::to_chars(to, to + 3, number).ptr;
}

// A blank and, if there is one, the paragraph mark of the words, which it is taken from.
static char* BeginWords(std::string_view& words, char* to) {
    *to++ = ' ';
    if (!BeginsParagraph(words)) return to;
    words.remove_prefix(1);
    return Append("\xB6 ", to);
}

// A verse with a full label before it and a line end after it.
static char* AppendInFull(const Scripture& scripture, int verse, char* to) {
    const VerseRecord record = RecordOf(scripture.records, verse);
    *to++ = ' ';
    to = Append(BookAbbreviation(record.book), to);
    *to++ = ' ';
    to = AppendNumber(record.chapter, to);
    *to++ = ':';
    to = AppendNumber(record.verse, to);
    std::string_view words = VerseText(scripture, verse);
    to = BeginWords(words, to);
    return Append("\r\n", Append(words, to));
}

static Bytes AppendAllInFull() {
    Bytes bytes = RoomFor(MostBytes());
    for (int verse = 0; verse < kVerseCount; ++verse) bytes.end = AppendInFull(TheRealScripture(), verse, bytes.end);
    return bytes;
}

// Every bracket is closed in its verse, so the next one is always the other kind.
static char* AppendBetweenBrackets(std::string_view words, char* to) {
    for (char next = '[';; next = next == '[' ? ']' : '[') {
        const std::size_t bracket = words.find(next);
        to = Append(words.substr(0, bracket), to);
        if (bracket == words.npos) return to;
        words.remove_prefix(bracket + 1);
    }
}

// As the program formats verses until the user changes it: in labels only what is new, and no brackets.
static Bytes AppendAllAsOpened() {
    const Scripture& scripture = TheRealScripture();
    Bytes bytes = RoomFor(MostBytes());
    char* to = bytes.end;
    VerseRecord before;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const VerseRecord record = RecordOf(scripture.records, verse);
        *to++ = ' ';
        if (record.book != before.book) {
            to = Append(BookAbbreviation(record.book), to);
            *to++ = ' ';
        }
        if (record.book != before.book || record.chapter != before.chapter) {
            to = AppendNumber(record.chapter, to);
            *to++ = ':';
        }
        to = AppendNumber(record.verse, to);
        std::string_view words = VerseText(scripture, verse);
        to = BeginWords(words, to);
        to = Append("\r\n", AppendBetweenBrackets(words, to));
        before = record;
    }
    bytes.end = to;
    return bytes;
}

static char* AppendHtmlWords(std::string_view words, char* to) {
    bool isOpen = false;
    for (;; isOpen = !isOpen) {
        const std::size_t bracket = words.find(isOpen ? ']' : '[');
        to = Append(words.substr(0, bracket), to);
        if (bracket == words.npos) return to;
        to = Append(isOpen ? "</i>" : "<i>", to);
        words.remove_prefix(bracket + 1);
    }
}

// The default format with full labels as HTML.
static Bytes AppendAllAsHtml() {
    static constexpr std::size_t kMostForVerse = 40;  // more than its text: elements, two bytes for the mark
    const Scripture& scripture = TheRealScripture();
    Bytes bytes = RoomFor(MostBytes() + std::size_t{kVerseCount} * kMostForVerse);
    char* to = bytes.end;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const VerseRecord record = RecordOf(scripture.records, verse);
        to = Append(BookAbbreviation(record.book), Append(" <b>", to));
        *to++ = ' ';
        to = AppendNumber(record.chapter, to);
        *to++ = ':';
        to = Append("</b> ", AppendNumber(record.verse, to));
        std::string_view words = VerseText(scripture, verse);
        if (BeginsParagraph(words)) {
            to = Append("\u00B6 ", to);
            words.remove_prefix(1);
        }
        to = Append("<br>", AppendHtmlWords(words, to));
    }
    bytes.end = to;
    return bytes;
}

// In blocks of 64 KiB, and with the zero byte at the end of a saved text.
static bool AppendInBlocks(const TextFile& file) {
    static constexpr std::size_t kBlock = 65536;
    Bytes bytes = RoomFor(2 * kBlock);
    for (int verse = 0; verse < kVerseCount; ++verse) {
        bytes.end = AppendInFull(TheRealScripture(), verse, bytes.end);
        if (ViewOf(bytes).size() < kBlock) continue;
        if (!file.write(file.device, ViewOf(bytes))) return false;
        bytes.end = bytes.begin.get();
    }
    *bytes.end++ = '\0';
    return file.write(file.device, ViewOf(bytes));
}

// ---- The program ----------------------------------------------------------------------------------------------------

static CopyText CopyWholeBible(const FormatOptions& format) {
    return CopyRangeText(TheRealScripture(), format, 0, kLastVerse, RangeCopyBudget(0, kLastVerse));
}

static std::string HtmlOfWholeBible() {
    static constexpr FormatOptions kFullLabels{0, 0, 0, 1, 1, 0};
    return RangeHtml(TheRealScripture(), kFullLabels, 0, kVerseCount);
}

static bool SaveWholeBible(const TextFile& file) {
    return SaveRangeText(TheRealScripture(), kInFull, 0, kLastVerse, nullptr, file) == TextSaveResult::kSaved;
}

// ---- Files ----------------------------------------------------------------------------------------------------------

static bool KeepBytes(void* device, std::string_view bytes) {
    static_cast<std::string*>(device)->append(bytes);
    return true;
}

// Takes a block without looking at it, so that forming the text is all that is timed.
static bool PassBytes(void* device, std::string_view bytes) {
    *static_cast<std::size_t*>(device) += bytes.size();
    return true;
}

static bool WriteToFile(void* device, std::string_view bytes) {
    return write(*static_cast<int*>(device), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

using Save = bool (*)(const TextFile& file);

static std::string BytesOf(Save save) {
    std::string bytes;
    return save({&bytes, KeepBytes}) ? bytes : "not saved";
}

static bool FormAlone(Save save) {
    std::size_t size = 0;
    return save({&size, PassBytes});
}

// Writes over the same file each time, so that the file system does not make and delete files meanwhile.
static bool SaveToFile(Save save) {
    static std::FILE* const scratch = std::tmpfile();
    if (!scratch) return false;
    int file = fileno(scratch);
    return lseek(file, 0, SEEK_SET) == 0 && save({&file, WriteToFile});
}

// ---- The rows -------------------------------------------------------------------------------------------------------

static bool isSaved = true;  // every file of a row was written

static void PrintRow(const char* what, const std::function<void()>& program, const std::function<void()>& floor,
                     bool sameAnswer, double mostTimesFloor = kMostTimesFloor) {
    isSaved = true;
    const std::vector<double> times = MediansInTurns(kRounds, {program, floor});
    Print({.what = what,
           .time = times[0],
           .floor = times[1],
           .mostTimesFloor = mostTimesFloor,
           .sameAnswer = sameAnswer && isSaved});
}

static void PrintCopies() {
    const bool sameInFull = CopyWholeBible(kInFull).text == ViewOf(AppendAllInFull());
    const bool sameAsOpened = CopyWholeBible(kAsOpened).text == ViewOf(AppendAllAsOpened());
    PrintRow(
        "copy of the whole Bible: plain appends", [] { CopyWholeBible(kInFull); }, [] { AppendAllInFull(); },
        sameInFull);
    PrintRow(
        "copy without brackets: plain appends between them", [] { CopyWholeBible(kAsOpened); },
        [] { AppendAllAsOpened(); }, sameAsOpened);
    PrintRow(
        "the whole Bible as HTML: plain appends", [] { HtmlOfWholeBible(); }, [] { AppendAllAsHtml(); },
        HtmlOfWholeBible() == ViewOf(AppendAllAsHtml()), kMostTimesHtmlFloor);
}

static void PrintSaves() {
    const bool same = BytesOf(SaveWholeBible) == BytesOf(AppendInBlocks);
    const auto save = [](auto way, Save with) { return [=] { isSaved = way(with) && isSaved; }; };
    PrintRow("saving the whole Bible, forming alone: plain appends in blocks", save(FormAlone, SaveWholeBible),
             save(FormAlone, AppendInBlocks), same);
    PrintRow("saving the whole Bible to a file: the same", save(SaveToFile, SaveWholeBible),
             save(SaveToFile, AppendInBlocks), same);
}

static double MostHeldBy(const std::function<void()>& procedure) {
    ForgetMostHeld();
    procedure();
    return static_cast<double>(MostBytesHeld()) / 1024;
}

static void PrintMemory() {
    const double budget = static_cast<double>(RangeCopyBudget(0, kLastVerse)) / 1024;
    PrintLimited("most memory of a copy: its budget", MostHeldBy([] { CopyWholeBible(kInFull); }), budget, "KiB");
    PrintLimited("most memory of a copy without brackets: its budget", MostHeldBy([] { CopyWholeBible(kAsOpened); }),
                 budget, "KiB");
    PrintLimited("most memory of saving", MostHeldBy([] { FormAlone(SaveWholeBible); }), kMostHeldInBlocks, "KiB");
}

int main() {
    TheRealScripture();
    PrintCopies();
    PrintSaves();
    PrintMemory();
    return ExitCode();
}
