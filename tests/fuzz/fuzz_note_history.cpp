// Earlier notes in a file of any bytes: what is read is a note, and a text that is kept does not change the others.
#include <algorithm>

#include "notes/note_history.h"
#include "scripture/verse_records.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/fake_note_files.h"

static constexpr char kFile[] = "backup/a.nmh";

static void ExpectNotes(const std::vector<EarlierNote>& notes) {
    Expect(std::ranges::is_sorted(notes, {}, &EarlierNote::time), "notes are in the order of their times");
    for (const EarlierNote& note : notes) {
        Expect(ClampVerse(note.verse) == note.verse, "a note has a verse");
        Expect(note.text.find('\0') == std::string::npos, "a text has no NUL");
    }
}

static void ExpectVersesToAgree(const NoteFiles& files, const std::vector<EarlierNote>& all) {
    for (const EarlierNote& note : all) {
        std::vector<EarlierNote> ofVerse = EarlierNotesOf(files, "a", note.verse);
        std::ranges::reverse(ofVerse);
        std::vector<EarlierNote> expected;
        std::ranges::copy_if(all, std::back_inserter(expected),
                             [&](const EarlierNote& other) { return other.verse == note.verse; });
        Expect(ofVerse == expected, "the notes of a verse are those of its verse");
        if (all.size() > 50) return;
    }
}

static bool IsNewer(const std::vector<unsigned char>& bytes) {
    static constexpr unsigned char kMagic[] = {'V', 'W', 'N', 'H'};
    if (bytes.size() < 8 || !std::equal(std::begin(kMagic), std::end(kMagic), bytes.begin())) return false;
    return bytes[4] > 1 || std::any_of(bytes.begin() + 5, bytes.begin() + 8, [](unsigned char b) { return b != 0; });
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FakeNoteFiles fake;
    fake.contents[kFile].assign(data, data + size);
    const std::vector<unsigned char> input = fake.contents[kFile];
    const NoteFiles files = DeviceOver(fake);
    std::vector<EarlierNote> notes = AllEarlierNotes(files, "a");
    ExpectNotes(notes);
    ExpectVersesToAgree(files, notes);
    const EarlierNote kept = {notes.empty() ? 0 : notes.back().time, 7, KeptReason::kReplaced, "kept"};
    const bool isKept = KeepEarlierNotes(files, "a", {&kept, 1});
    Expect(isKept != IsNewer(input), "a text is kept unless the file is of a newer version");
    if (isKept) notes.push_back(kept);
    Expect(AllEarlierNotes(files, "a") == notes, "a text is kept beside the others");
    Expect(isKept || fake.contents[kFile] == input, "a file of a newer version stays as it is");
    const bool isThere = std::ranges::any_of(fake.contents, [&](const auto& file) {
        return file.second.size() >= size && std::equal(input.begin(), input.end(), file.second.begin());
    });
    Expect(isThere, "no byte is destroyed");
    return 0;
}
