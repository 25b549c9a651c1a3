#include "data/note_set_writer.h"

#include <gmock/gmock.h>

#include "notes/note_letters.h"
#include "notes/note_saving.h"
#include "scripture/verse_records.h"

using testing::ElementsAre;
using testing::EndsWith;
using testing::Field;

static auto HasName(const char* name) {
    return Field(&DataFile::name, name);
}

static std::string Number(const std::string& bytes, std::size_t place) {
    return bytes.substr(place * 4, 4);
}

static std::string FourBytes(int a, int b, int c, int d) {
    return {static_cast<char>(a), static_cast<char>(b), static_cast<char>(c), static_cast<char>(d)};
}

TEST(NoteSetWriter, WritesAnEmptySetAsOneZeroBytePerVerse) {
    const std::vector<DataFile> files = EncodeNoteSet("My Notes", {}, nullptr);
    ASSERT_THAT(files, ElementsAre(HasName("My Notes.nmd"), HasName("My Notes.nmi")));
    EXPECT_EQ(files[0].bytes, std::string(kVerseCount, '\0'));
    ASSERT_EQ(files[1].bytes.size(), 124408u);
    EXPECT_EQ(Number(files[1].bytes, 0), FourBytes(0, 0, 0, 0));
    EXPECT_EQ(Number(files[1].bytes, 258), FourBytes(2, 1, 0, 0));
    EXPECT_EQ(Number(files[1].bytes, kLastVerse), FourBytes(0x7D, 0x79, 0, 0));
}

TEST(NoteSetWriter, WritesFirstAndLastNotes) {
    const std::vector<DataFile> files =
        EncodeNoteSet("a.b", {{0, "first"}, {1, "second"}, {kLastVerse, "last"}}, nullptr);
    const std::string nul(1, '\0');
    EXPECT_EQ(files[0].bytes, "first" + nul + "second" + nul + std::string(kVerseCount - 3, '\0') + "last" + nul);
    EXPECT_EQ(Number(files[1].bytes, 1), FourBytes(6, 0, 0, 0));
    EXPECT_EQ(Number(files[1].bytes, 2), FourBytes(13, 0, 0, 0));
}

TEST(NoteSetWriter, WritesTheTableBeforeTheIndex) {
    DevotionalTable readings{};
    readings[ReadingSlot(1, 1, false)] = 5946;
    readings[ReadingSlot(1, 1, true)] = 17541;
    readings[ReadingSlot(2, 29, false)] = 1;
    readings[ReadingSlot(12, 31, true)] = 19173;
    const std::vector<DataFile> files = EncodeNoteSet("Days", {}, &readings);
    ASSERT_THAT(files, ElementsAre(HasName("Days.nmd"), HasName("Days.dti"), HasName("Days.nmi")));
    const std::string& table = files[1].bytes;
    ASSERT_EQ(table.size(), 2976u);
    EXPECT_EQ(table.substr(0, 8), FourBytes(0x3A, 0x17, 0, 0) + FourBytes(0x85, 0x44, 0, 0));
    EXPECT_EQ(table.substr((31 + 28) * 8, 4), FourBytes(1, 0, 0, 0));
    EXPECT_EQ(table.substr(2972), FourBytes(0xE5, 0x4A, 0, 0));
}

TEST(NoteSetWriter, FormatsDayNames) {
    EXPECT_EQ(DayName(1, 1), "January 1");
    EXPECT_EQ(DayName(2, 29), "February 29");
    EXPECT_EQ(DayName(12, 31), "December 31");
}

namespace {

struct CutRow {
    const char* what;
    std::string text;
    std::string kept;
};

}  // namespace

static const std::string kMark = "\r\n\r\n" + std::string(kRestIsMissing);

TEST(NoteSetWriter, CutsALongTextAtAParagraphOrWord) {
    const std::string paragraph(30000, 'a');
    const std::string gap = "\r\n\r\n";
    const CutRow rows[] = {
        {"three paragraphs", paragraph + gap + paragraph + gap + paragraph, paragraph + gap + paragraph},
        {"words alone", std::string(40000, 'a') + " " + std::string(40000, 'b'), std::string(40000, 'a')},
        {"a single word", std::string(70000, 'a'), std::string(kNoteTextLimit - kMark.size(), 'a')},
        {"one character too many", std::string(kNoteTextLimit - 4, 'a') + gap + "b",
         std::string(kNoteTextLimit - kMark.size(), 'a')},
        {"just room for the mark", std::string(kNoteTextLimit - kMark.size(), 'a') + gap + paragraph,
         std::string(kNoteTextLimit - kMark.size(), 'a')},
    };
    for (const CutRow& row : rows) {
        std::string text = row.text;
        EXPECT_TRUE(CutToNote(text)) << row.what;
        EXPECT_TRUE(text == row.kept + kMark) << row.what << ": " << text.size();
        EXPECT_LE(text.size(), kNoteTextLimit) << row.what;
    }
}

TEST(NoteSetWriter, CutsNoLetterOfUtf8) {
    const std::string mark(kUtf8Mark), letter = "\U0001F600";
    for (std::size_t shift = 0; shift < letter.size(); ++shift) {
        std::string note = mark + std::string(shift, 'a');
        while (note.size() <= kNoteTextLimit) note += letter;
        const std::string whole = note;
        EXPECT_TRUE(CutToNote(note));
        EXPECT_TRUE(IsInUtf8(note)) << shift;
        EXPECT_LE(note.size(), kNoteTextLimit);
        EXPECT_GT(note.size(), kNoteTextLimit - letter.size());
        EXPECT_THAT(note, EndsWith(kMark));
        EXPECT_EQ(whole.compare(0, note.size() - kMark.size(), note, 0, note.size() - kMark.size()), 0);
    }
}

TEST(NoteSetWriter, KeepsATextThatFits) {
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, kNoteTextLimit}) {
        std::string text(length, 'a');
        EXPECT_FALSE(CutToNote(text));
        EXPECT_EQ(text.size(), length);
    }
}
