// A data file of any bytes with an index and without, and as the temporary file of one that is missing; and a whole
// data file with an index that fits, into which a note of any text is saved.
#include <algorithm>

#include "notes/note_places.h"
#include "notes/note_saving.h"
#include "tests/fuzz/note_exercise.h"

static void ReadDamaged(const FuzzBytes& input) {
    static const FuzzBytes index = SeedOf("index 0=first 5=fifth 9=#Ge_1:1 15000=middle 31101=end;");
    FakeNoteFiles withIndex;
    withIndex.contents = {{"a.nmi", index}, {"a.nmd", input}};
    ReadAsFound(withIndex);
    OpenReadAndSave(withIndex);
    FakeNoteFiles alone;
    alone.contents = {{"a.nmd", input}};
    OpenReadAndSave(alone);
    FakeNoteFiles twin;
    twin.contents = {{"a.nmi", index}, {"a.nmd.temp", input}};
    OpenReadAndSave(twin);
}

// The input's notes are the first ones; those that are missing are empty.
static void ReadWhole(FuzzBytes input) {
    const auto ends = static_cast<std::size_t>(std::ranges::count(input, 0));
    if (ends >= std::size_t{kVerseCount}) return;
    const std::string note = TextForNote(TextOfInput(input.data(), input.size()), kNoteTextLimit);
    input.insert(input.end(), std::size_t{kVerseCount} - ends, 0);
    NotePlaces layout;
    AddPlaces(layout, input);
    FakeNoteFiles files;
    files.contents = {{"a.nmi", IndexBytes(layout.offsets)}, {"a.nmd", input}};
    OpenReadAndSave(files, note);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzBytes input(data, data + size);
    ReadDamaged(input);
    ReadWhole(input);
    return 0;
}
