// A devotional table of any bytes.
#include "tests/fuzz/note_exercise.h"

static void Run(const FuzzBytes& input) {
    static const FuzzBytes index = SeedOf("index 0=first 31101=end;");
    static const FuzzBytes data = SeedOf("notes 0=first 31101=end;");
    FakeNoteFiles files;
    files.contents = {{"a.nmi", index}, {"a.nmd", data}, {"a.dti", input}};
    ReadAsFound(files);
    OpenReadAndSave(files);
}

int main(int argc, char** argv) {
    return FuzzMain(argc, argv, Run);
}
