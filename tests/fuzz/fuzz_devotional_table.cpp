// A devotional table of any bytes.
#include "tests/fuzz/note_exercise.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FuzzBytes index = SeedOf("index 0=first 31101=end;");
    static const FuzzBytes notes = SeedOf("notes 0=first 31101=end;");
    FakeNoteFiles files;
    files.contents = {{"a.nmi", index}, {"a.nmd", notes}, {"a.dti", FuzzBytes(data, data + size)}};
    ReadAsFound(files);
    OpenReadAndSave(files);
    return 0;
}
