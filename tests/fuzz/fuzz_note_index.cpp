// An index file of any bytes beside a whole data file, and beside one that is not.
#include "tests/fuzz/note_exercise.h"

static void Run(const FuzzBytes& input) {
    static const FuzzBytes whole = SeedOf("notes 0=first 5=fifth 9=#Ge_1:1 15000=middle 31101=end;");
    static const FuzzBytes torn(whole.begin(), whole.begin() + 16000);
    for (const FuzzBytes& data : {whole, torn}) {
        FakeNoteFiles files;
        files.contents = {{"a.nmi", input}, {"a.nmd", data}};
        ReadAsFound(files);
        OpenReadAndSave(files);
    }
}

int main(int argc, char** argv) {
    return FuzzMain(argc, argv, Run);
}
