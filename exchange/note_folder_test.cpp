#include "exchange/note_folder.h"

#include <gmock/gmock.h>

#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static ExchangedNotes ReadFolder(const std::vector<NamedText>& files) {
    return ReadNoteFolder(TestContext(), files);
}

TEST(NoteFolder, HasANoteInEachFile) {
    const int verse = VerseAt("Romans", 8, 28);
    const ExchangedNotes notes = ReadFolder({
        {"Romans 8.29 - foreknown.md", "\xEF\xBB\xBFsecond\r\n\r\n"},
        {"45-Rom-008-028.txt", "first\nlines\n"},
        {"1 John 3_16.TXT", "caf\xE9"},
        {"Ps 119.105", "without an ending"},
        {"Romans 9-1.text", ""},
    });
    EXPECT_EQ(notes.error, "");
    EXPECT_THAT(PlacedIn(notes),
                ElementsAre(Pair(VerseAt("Psalms", 119, 105), "without an ending"), Pair(verse, "first\r\nlines"),
                            Pair(verse + 1, "second\r\n"), Pair(VerseAt("1 John", 3, 16), "caf\xE9")));
    EXPECT_THAT(notes.unplaced, IsEmpty());
}

TEST(NoteFolder, SaysWhatItCannotPlace) {
    const ExchangedNotes notes = ReadFolder(
        {{"Rom 8.28.txt", "a"}, {"Romans 8-28.txt", "b"}, {"Rom 8.99.txt", "c"}, {"shopping.txt", "d"}, {"x.txt", ""}});
    EXPECT_EQ(notes.notes.size(), 1u);
    std::vector<std::string> lines;
    for (const UnplacedText& text : notes.unplaced) lines.push_back(text.where + '|' + text.reason + '|' + text.text);
    EXPECT_THAT(lines, ElementsAre("Rom 8.99.txt|There is no such verse.|c", "shopping.txt|This names no verse.|d",
                                   "Romans 8:28|The file has another note for this verse.|b"));
    EXPECT_EQ(notes.unplaced[0].line, 0u);
}

TEST(NoteFolder, MayHaveNoNotes) {
    EXPECT_EQ(ReadFolder({}).error, "There are no text files with notes in this folder.");
    EXPECT_EQ(ReadFolder({{"x.txt", ""}}).error, "There are no text files with notes in this folder.");
}
