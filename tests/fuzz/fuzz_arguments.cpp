// Arguments of `vw`, one a line: it comes back with one of its exit codes, tells what is wrong in one line, and prints
// only objects of its schema. Its note sets are in memory; the editor adds a line, so that saves are tried, too.
#include <algorithm>
#include <string>
#include <vector>

#include "cli/vw.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/checked_objects.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/fake_surroundings.h"

static std::vector<std::string> WordsOf(std::string_view text) {
    static constexpr std::size_t kMost = 12;
    std::vector<std::string> words;
    while (!text.empty() && words.size() < kMost) words.emplace_back(TakeLine(text));
    return words;
}

// As the system would give them.
static bool CanBeArguments(const std::vector<std::string>& words) {
    return std::ranges::none_of(words, [](const std::string& word) { return word.find('\0') != word.npos; });
}

static bool IsOneLine(const std::string& text) {
    return text.starts_with("vw: ") && text.ends_with('\n');
}

static void CheckObjects(const std::string& output) {
    std::set<std::string> kinds;
    Expect(WrongObjects(output, kinds).empty(), "every object is one of the schema");
}

static FakeNoteFiles DiskWithNotes() {
    FakeNoteFiles disk;
    AddFakeSet(disk, "Mine", {{0, "grace, see Rom 8:28"}, {28144, "two\r\nlines"}});
    AddFakeSet(disk, "Other", {{28144, "\xEF\xBB\xBF\xCE\xBB\xCF\x8C\xCE\xB3\xCE\xBF\xCF\x82, Ge 1:1 - 3"}});
    return disk;
}

static bool AddLine(std::string& text) {
    text += "a line\n";
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::size_t kMuch = 200000;
    const std::vector<std::string> words = WordsOf(TextOfInput(data, size));
    if (!CanBeArguments(words)) return 0;
    static const FakeNoteFiles kDisk = DiskWithNotes();
    FakeNoteFiles disk = kDisk;
    const NoteFiles files = DeviceOver(disk);
    FakeSurroundings fake;
    fake.noteFiles = &files;
    fake.edit = AddLine;
    const int code = RunVw(words, SurroundingsOver(fake));
    Expect(code >= 0 && code <= 3, "the exit code is one of four");
    Expect(code < 2 || IsOneLine(fake.errors), "what is wrong is told");
    const bool isJson = std::ranges::find(words, "--json") != words.end() && fake.output.starts_with("{");
    if (code < 2 && isJson && fake.output.size() < kMuch) CheckObjects(fake.output);
    return 0;
}
