// A data file of any bytes with an index and without, and as the temporary file of one that is missing.
#include "tests/fuzz/note_exercise.h"

static void Run(const FuzzBytes& input) {
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

int main(int argc, char** argv) {
    return FuzzMain(argc, argv, Run);
}
