// An index file of any bytes beside a whole data file, and beside one that is not; and the index that fits, changed by
// a short input here and there.
#include "tests/fuzz/note_exercise.h"

// Each four bytes of the input shift one offset: the verse's, and by how much.
static FuzzBytes ChangedIndex(FuzzBytes index, const FuzzBytes& changes) {
    for (std::size_t at = 0; at + 4 <= changes.size(); at += 4) {
        const std::size_t verse = (changes[at] | std::size_t{changes[at + 1]} << 8) % (index.size() / 4);
        unsigned carry = changes[at + 2] | static_cast<unsigned>(changes[at + 3]) << 8;
        for (std::size_t byte = 4 * verse; byte < 4 * verse + 4; ++byte) {
            carry += index[byte];
            index[byte] = static_cast<unsigned char>(carry & 0xFF);
            carry >>= 8;
        }
    }
    return index;
}

static void ReadBeside(const FuzzBytes& index, const FuzzBytes& data) {
    FakeNoteFiles files;
    files.contents = {{"a.nmi", index}, {"a.nmd", data}};
    ReadAsFound(files);
    OpenReadAndSave(files);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzBytes whole = SeedOf("notes 0=first 5=fifth 9=#Ge_1:1 15000=middle 31101=end;");
    static const FuzzBytes index = SeedOf("index 0=first 5=fifth 9=#Ge_1:1 15000=middle 31101=end;");
    static const FuzzBytes torn(whole.begin(), whole.begin() + 16000);
    const FuzzBytes input(data, data + size);
    ReadBeside(input, whole);
    ReadBeside(input, torn);
    if (size <= 40) ReadBeside(ChangedIndex(index, input), whole);
    return 0;
}
