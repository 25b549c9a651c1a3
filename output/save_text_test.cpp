#include "output/save_text.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/fake_note_files.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"
#include "tests/support/notes_by_verse.h"

// A file in memory that fails at one of its writes.
struct MemoryFile {
    std::string bytes;
    std::vector<std::size_t> writes;  // bytes of each
    std::size_t failingWrite = 0;     // counted from 1; 0: no write fails
};

static TextFile DeviceOver(MemoryFile& file) {
    return {&file, [](void* device, std::string_view bytes) {
                MemoryFile& written = *static_cast<MemoryFile*>(device);
                written.writes.push_back(bytes.size());
                if (written.writes.size() == written.failingWrite) return false;
                written.bytes += bytes;
                return true;
            }};
}

static HandMadeFiles ThreeVerses() {
    const HandMadeVerse verses[] = {{1, 1, 1, "\xB6[one]"}, {1, 1, 2, "two"}, {1, 2, 1, "\xB6three"}};
    return MakeFiles(verses);
}

struct Saved {
    TextSaveResult result;
    MemoryFile file;
};

static Saved SaveRange(const HandMadeFiles& files, const FormatOptions& format, int first, int last,
                       const NotesByVerse& notes = {}, std::size_t failingWrite = 0) {
    Saved saved;
    saved.file.failingWrite = failingWrite;
    const NoteSource source = SourceOf(notes);
    saved.result = SaveRangeText(ScriptureOf(files), format, first, last, notes.empty() ? nullptr : &source,
                                 DeviceOver(saved.file));
    return saved;
}

static std::string WithZero(std::string text) {
    text.push_back('\0');
    return text;
}

TEST(SaveRangeText, AlwaysHasBracketsAndAZeroByte) {
    for (const int brackets : {0, 1}) {
        const Saved saved = SaveRange(ThreeVerses(), {0, 1, 0, 1, 1, brackets}, 0, 2);
        EXPECT_EQ(saved.result, TextSaveResult::kSaved);
        EXPECT_EQ(saved.file.bytes, WithZero(" Ge 1:1 \xB6 [one]\r\n 2 two\r\n 2:1 \xB6 three\r\n"));
    }
}

TEST(SaveRangeText, FollowsTheFormat) {
    EXPECT_EQ(SaveRange(ThreeVerses(), {2, 0, 1, 0, 0, 0}, 0, 2).file.bytes,
              WithZero(" [one] two Ge 1:2 three Ge 2:1"));
    EXPECT_EQ(SaveRange(ThreeVerses(), {}, 2, 2).file.bytes, WithZero(" Ge 2:1 \xB6 three\r\n"));
}

TEST(SaveRangeText, PutsEachNoteAfterItsVerseBetweenEmptyLines) {
    const NotesByVerse notes{{0, "first\r\nnote"}, {2, ""}};
    EXPECT_EQ(
        SaveRange(ThreeVerses(), {}, 0, 2, notes).file.bytes,
        WithZero(" Ge 1:1 \xB6 [one]\r\n\r\n\r\nfirst\r\nnote\r\n\r\n 2 two\r\n 2:1 \xB6 three\r\n\r\n\r\n\r\n\r\n"));
    EXPECT_EQ(SaveRange(ThreeVerses(), {0, 1, 0, 0, 1, 0}, 0, 1, notes).file.bytes,
              WithZero(" Ge 1:1 \xB6 [one]\r\n\r\nfirst\r\nnote\r\n\r\n 2 two"));
}

TEST(SaveRangeText, StopsAtANoteThatCannotBeRead) {
    const Saved saved = SaveRange(ThreeVerses(), {}, 0, 2, {{1, kUnreadableNote}});
    EXPECT_EQ(saved.result, TextSaveResult::kCannotReadNotes);
    EXPECT_EQ(saved.file.bytes.find('\0'), std::string::npos);
}

static HandMadeFiles LongChapter() {
    HandMadeFiles files;
    const std::string text(600, 'a');
    for (int verse = 1; verse <= 250; ++verse) AddVerse(files, {1, 1, verse, text});
    return files;
}

TEST(SaveRangeText, StopsAtTheFirstFailedWrite) {
    const HandMadeFiles files = LongChapter();
    const MemoryFile whole = SaveRange(files, {}, 0, 249).file;
    ASSERT_EQ(whole.writes.size(), 3u);
    for (std::size_t failing = 1; failing <= whole.writes.size(); ++failing) {
        const Saved saved = SaveRange(files, {}, 0, 249, {}, failing);
        EXPECT_EQ(saved.result, TextSaveResult::kCannotWrite) << failing;
        EXPECT_EQ(saved.file.writes.size(), failing) << "no write after the failed one";
        EXPECT_EQ(saved.file.bytes, whole.bytes.substr(0, saved.file.bytes.size())) << failing;
    }
}

TEST(SaveRangeText, WritesTheWholeBibleInEqualBlocks) {
    MemoryFile file;
    const FormatOptions format{0, 0, 0, 1, 1, 0};
    ASSERT_EQ(SaveRangeText(TheRealScripture(), format, 0, kLastVerse, nullptr, DeviceOver(file)),
              TextSaveResult::kSaved);
    EXPECT_EQ(std::count(file.bytes.begin(), file.bytes.end(), '\n'), kVerseCount);
    EXPECT_EQ(file.bytes.find('\0'), file.bytes.size() - 1);
    EXPECT_NE(file.bytes.find('['), std::string::npos);
    file.writes.pop_back();
    for (const std::size_t size : file.writes) EXPECT_TRUE(size >= 65536 && size < 65536 + 900) << size;
}

static Saved SaveList(const HandMadeFiles& files, const std::vector<std::int32_t>& verses, std::size_t failingWrite) {
    Saved saved;
    saved.file.failingWrite = failingWrite;
    saved.result = SaveListText(ScriptureOf(files), verses, DeviceOver(saved.file));
    return saved;
}

TEST(SaveListText, WritesTheSameTextAsCopyWithBracketsAndAZeroByte) {
    const Saved saved = SaveList(ThreeVerses(), {2, 0, 1}, 0);
    EXPECT_EQ(saved.result, TextSaveResult::kSaved);
    EXPECT_EQ(saved.file.bytes, WithZero(" Ge 2:1 \xB6 three\r\n Ge 1:1 \xB6 [one]\r\n Ge 1:2 two\r\n"));
}

// A file that could not be created also fails at the first write.
TEST(SaveListText, StopsAtTheFirstFailedWrite) {
    std::vector<std::int32_t> verses;
    for (int verse = 249; verse >= 0; --verse) verses.push_back(verse);
    for (std::size_t failing = 1; failing <= 3; ++failing) {
        const Saved saved = SaveList(LongChapter(), verses, failing);
        EXPECT_EQ(saved.result, TextSaveResult::kCannotWrite) << failing;
        EXPECT_EQ(saved.file.writes.size(), failing);
    }
    EXPECT_EQ(SaveList(LongChapter(), verses, 4).result, TextSaveResult::kSaved) << "three writes in all";
    EXPECT_EQ(SaveList(ThreeVerses(), {0}, 1).result, TextSaveResult::kCannotWrite);
}

// ---- With the notes of a set ----------------------------------------------------------------------------------------

TEST(SaveRangeText, PutsTheNotesOfASetBehindTheirVerses) {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "saved", {{1, "second"}, {kLastVerse, "end"}});
    const NoteFiles files = DeviceOver(fakes);
    NoteSets notes;
    ASSERT_TRUE(FindNoteSets(files, notes));
    NoteReader reader{files, notes.sets[0]};
    const NoteSource source = SourceOf(reader);
    std::string saved;
    const TextFile file{&saved, [](void* device, std::string_view bytes) {
                            static_cast<std::string*>(device)->append(bytes);
                            return true;
                        }};
    const Scripture& scripture = TheRealScripture();
    ASSERT_EQ(SaveRangeText(scripture, {}, 0, kLastVerse, &source, file), TextSaveResult::kSaved);
    const std::string second(VerseText(scripture, 1)), last(VerseText(scripture, kLastVerse));
    EXPECT_NE(saved.find("\r\n 2 " + second + "\r\n\r\n\r\nsecond\r\n\r\n 3 "), std::string::npos);
    EXPECT_TRUE(saved.ends_with(" 21 " + last + "\r\n\r\n\r\nend\r\n\r\n" + '\0'));
}

// ---- Notes in UTF-8 -------------------------------------------------------------------------------------------------

static const std::string kGreek = std::string(kUtf8Mark) + "\xCE\xB1";

TEST(SaveRangeText, IsInUtf8IfANoteIs) {
    const Saved saved = SaveRange(ThreeVerses(), {0, 1, 0, 1, 1, 1}, 0, 2, {{0, "caf\xE9"}, {1, kGreek}});
    EXPECT_EQ(saved.result, TextSaveResult::kSaved);
    EXPECT_EQ(saved.file.bytes,
              WithZero(std::string(kUtf8Mark) +
                       " Ge 1:1 \xC2\xB6 [one]\r\n\r\n\r\ncaf\xC3\xA9\r\n\r\n 2 two\r\n\r\n\r\n\xCE\xB1"
                       "\r\n\r\n 2:1 \xC2\xB6 three\r\n"));
}

TEST(SaveRangeText, HasItsBytesIfNoNoteOfTheRangeIsInUtf8) {
    const NotesByVerse notes = {{0, "caf\xE9"}, {1, std::string(kUtf8Mark) + "\xE9"}, {2, kGreek}};
    const Saved saved = SaveRange(ThreeVerses(), {0, 1, 0, 1, 1, 1}, 0, 1, notes);
    EXPECT_EQ(saved.file.bytes,
              WithZero(" Ge 1:1 \xB6 [one]\r\n\r\n\r\ncaf\xE9\r\n\r\n 2 two\r\n\r\n\r\n" + notes.at(1) + "\r\n\r\n"));
}

// Another program may have saved it since.
TEST(SaveRangeText, IsNotSavedIfANoteBecomesOneInUtf8) {
    int reads = 0;
    const NoteSource source{&reads, [](void* device, int, std::string& note) {
                                note = ++*static_cast<int*>(device) > 1 ? kGreek : "plain";
                                return NoteFound::kNote;
                            }};
    MemoryFile file;
    const HandMadeFiles files = ThreeVerses();
    EXPECT_EQ(SaveRangeText(ScriptureOf(files), {}, 0, 0, &source, DeviceOver(file)), TextSaveResult::kCannotReadNotes);
}
