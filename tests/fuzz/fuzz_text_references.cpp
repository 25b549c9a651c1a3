// The references in the running text of a note of any bytes. The first line of an input holds the note's verse; the
// note is all behind it.
#include <algorithm>

#include "notes/references_in_text.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/native_scripture.h"

static const Chapters& TheChapters() {
    static const Chapters chapters = ChaptersOf(TheRealScripture().records);
    return chapters;
}

static std::vector<TextReference> ReferencesIn(std::string_view note, int noteVerse) {
    std::vector<TextReference> references;
    FindReferences(TheChapters(), RecordOf(TheRealScripture().records, noteVerse), note, references);
    return references;
}

static void CheckOrder(const std::vector<TextReference>& references, std::string_view note) {
    std::size_t end = 0;
    for (const TextReference& one : references) {
        Expect(one.begin >= end && one.size > 0, "references are in order and do not overlap");
        end = std::size_t{one.begin} + one.size;
        Expect(end <= note.size(), "a reference is in the note");
        Expect(one.first >= 0 && one.first <= one.last && one.last < kVerseCount, "a reference names verses");
        const std::string_view text = note.substr(one.begin, one.size);
        Expect(text.find_first_of("#\n") == std::string_view::npos, "a reference is in one line, before any list");
        Expect(ReferenceAt(references, one.begin) == &one && ReferenceAt(references, end - 1) == &one,
               "a reference is found by its places");
    }
}

// Lines do not influence each other, but that an outline begins a line.
static void CheckLines(const std::vector<TextReference>& references, std::string_view note, int noteVerse) {
    std::size_t count = 0;
    while (!note.empty()) {
        const std::size_t end = std::min(note.find('\n'), note.size() - 1) + 1;
        count += ReferencesIn(note.substr(0, end), noteVerse).size();
        note.remove_prefix(end);
    }
    Expect(count == references.size(), "the lines of a note have its references");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view note = TextOfInput(data, size);
    std::string_view place = TakeLine(note);
    const int noteVerse = TakeNumber(place, 0, kLastVerse);
    const std::vector<TextReference> references = ReferencesIn(note, noteVerse);
    CheckOrder(references, note);
    CheckLines(references, note, noteVerse);
    return 0;
}
