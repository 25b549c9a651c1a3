// Export and import of real note sets: the readings of the build, and Debian's commentaries and their like as the tool
// import_notes makes them. What comes back is the same data file, byte for byte.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "exchange/note_formats.h"
#include "exchange/note_import.h"
#include "exchange/portable_text.h"
#include "notes/note_recovery.h"
#include "scripture/latin_letters.h"
#include "tests/support/native_scripture.h"
#include "tests/support/real_note_files.h"

using testing::IsEmpty;

// ---- The code page of these sets, 1252 ------------------------------------------------------------------------------

static std::u16string LettersOf1252(void*, std::string_view bytes) {
    std::u16string letters;
    for (const char byte : bytes) letters += static_cast<char16_t>(LatinLetter(byte));
    return letters;
}

static bool BytesOf1252(void*, std::u16string_view letters, std::string& bytes) {
    static const std::vector<int> kBytes = [] {
        std::vector<int> all(0x10000, -1);
        for (int byte = 0; byte < 256; ++byte) all[LatinLetter(static_cast<char>(byte))] = byte;
        return all;
    }();
    bytes.clear();
    for (const char16_t letter : letters) {
        if (kBytes[letter] < 0) return false;
        bytes += static_cast<char>(kBytes[letter]);
    }
    return true;
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

namespace {

// A folder with the set "copy", which is empty, and another one.
struct RealSets : testing::TestWithParam<const char*> {
    RealNoteFiles device{MakeScratchFolder()};
    NoteFiles files = DeviceOver(device);
    NoteSets notes;
    std::string name;

    RealSets() { files.codePage = {nullptr, LettersOf1252, BytesOf1252}; }

    ~RealSets() override { RemoveScratchFolder(device.folder); }

    void Run(const std::string& command) const { ASSERT_EQ(std::system(command.c_str()), 0) << command; }

    void SetUp() override {
        const std::string module = GetParam();
        name = module.empty() ? "Morning and Evening" : module;
        if (module.empty())
            Run("cp '" VERSEWELL_DATA_DIR "/Morning and Evening.'nm? '" + device.folder + "'");
        else
            Run(VERSEWELL_IMPORT_NOTES " " + module + " '" + device.folder + "' " + module + " > /dev/null");
        NoteSet copy = EmptyNoteSet("copy");
        ASSERT_EQ(CreateNoteFiles(files, copy), 2);
        OpenNoteSets(files, notes);
        ASSERT_NE(SetNamed(notes, name), kNoSet);
    }

    void EmptyCopy() {
        NoteSet empty = EmptyNoteSet("copy");
        files.remove(files.device, "copy.nmd");
        files.remove(files.device, "copy.nmi");
        ASSERT_EQ(CreateNoteFiles(files, empty), 2);
        Set("copy") = empty;
    }

    NoteSet& Set(const std::string& called) { return notes.sets[static_cast<std::size_t>(SetNamed(notes, called))]; }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Sets, RealSets, testing::Values("", "MHCC", "Scofield", "TDavid"));

TEST_P(RealSets, ComeBackByteForByte) {
    const ExchangeContext context{TheRealScripture(), files.codePage};
    const auto exported = NotesToExport(files, Set(name));
    ASSERT_TRUE(exported);
    EXPECT_GT(exported->notes.size(), 300u);
    const auto before = ReadWholeFile(device.folder + name + ".nmd");
    for (const NoteFormat& format : NoteFormats()) {
        SCOPED_TRACE(format.name);
        const std::string file = format.write(context, *exported, {.hasVerseTexts = format.canHaveVerseTexts});
        const ExchangedNotes read = format.read(context, file);
        EXPECT_EQ(read.setName, name);
        auto plan = PlanImport(files, Set("copy"), read);
        ASSERT_TRUE(plan);
        EXPECT_THAT(plan->unplaced, IsEmpty());
        EXPECT_EQ(CountOf(*plan, ImportKind::kNew), static_cast<int>(exported->notes.size()));
        const ImportResult result = ImportNotes(files, notes, *plan, {"2024-12-31", 1735603200});
        EXPECT_EQ(result.end, ImportEnd::kImported);
        EXPECT_TRUE(ReadWholeFile(device.folder + "copy.nmd") == before);
        plan = PlanImport(files, Set(name), read);
        ASSERT_TRUE(plan);
        EXPECT_EQ(plan->sameNotes, static_cast<int>(exported->notes.size()));
        EXPECT_THAT(plan->notes, IsEmpty());
        EmptyCopy();
    }
    for (const ExchangedNote& note : exported->notes)  // real notes are readable in every format
        EXPECT_FALSE(PortableTextOf(files.codePage, note.note).isEscaped) << note.verse;
}
