#include "exchange/text_notes.h"

#include <gmock/gmock.h>

#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static const int kTextVerse = VerseAt("Romans", 8, 28);

static ExchangedNotes ReadText(std::string_view file) {
    return ReadTextNotes(TestContext(), file);
}

TEST(TextNotes, AreWrittenWithHeadings) {
    ExchangedNotes notes{"My Notes", {{kTextVerse, "two\r\n=== lines", DigestOf("x")}, {kTextVerse + 1, "\x01", {}}}};
    EXPECT_EQ(WriteTextNotes(TestContext(), notes, {}),
              "Notes: My Notes\r\nThe last line of this file is \"=== End ===\".\r\n\r\n"
              "=== Romans 8:28 === imnmbgid\r\ntwo\r\n\\=== lines\r\n\r\n"
              "=== Romans 8:29 === escaped\r\n\\x01\r\n\r\n"
              "=== End ===\r\n");
}

TEST(TextNotes, AreReadWithoutTitleAndMarks) {
    const ExchangedNotes notes =
        ReadText("=== Rom 8:28\n\nby hand\n\n\n=== Rom. 8.29 ===\nsecond\nline\n=== John 3:16===");
    EXPECT_EQ(notes.error, "");
    EXPECT_EQ(notes.setName, "");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse, "by hand"), Pair(kTextVerse + 1, "second\r\nline")));
    EXPECT_EQ(notes.notes[0].digest, std::nullopt);
    EXPECT_EQ(notes.notes[0].line, 1u);
    EXPECT_EQ(notes.notes[1].line, 6u);
}

TEST(TextNotes, HaveHeadingsWithoutBlanksIfTheyNameAVerse) {
    const ExchangedNotes notes = ReadText(
        "===Romans 8:28===\nfirst\n===========\n===\n====John 3:16====\n===so===\n===Rom 8:29\nsecond\n"
        "===Romans 8:99===\nthird\n\\===Romans 8:30===\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse,
                                                  "first\r\n===========\r\n===\r\n====John 3:16====\r\n"
                                                  "===so==="),
                                             Pair(kTextVerse + 1, "second")));
    ASSERT_EQ(notes.unplaced.size(), 1u);
    EXPECT_EQ(notes.unplaced[0].reason, "There is no such verse.");
    EXPECT_EQ(notes.unplaced[0].text, "third\r\n===Romans 8:30===");
}

// As files were before there was an end mark.
TEST(TextNotes, NeedNoEndMarkThatIsNotPromised) {
    const ExchangedNotes notes = ReadText("Notes: Mine\r\n\r\n=== Romans 8:28 === imnmbgid\r\ntext\r\n\r\n");
    EXPECT_EQ(notes.setName, "Mine");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse, "text")));
    EXPECT_THAT(notes.unplaced, IsEmpty());
}

TEST(TextNotes, MayHaveReferencesAsHeadings) {
    const ExchangedNotes notes =
        ReadText("My thoughts\n\nRomans 8:28\nFirst.\nSee John 3:16:\nJohn 3:16\n\nRom 8:29:\nSecond.\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse, "First.\r\nSee John 3:16:\r\nJohn 3:16"),
                                             Pair(kTextVerse + 1, "Second.")));
    ASSERT_EQ(notes.unplaced.size(), 1u);
    EXPECT_EQ(notes.unplaced[0].text, "My thoughts");
    EXPECT_EQ(notes.unplaced[0].line, 1u);
}

TEST(TextNotes, SayWhatTheyCannotPlace) {
    const ExchangedNotes notes = ReadText(
        "Notes: x\nloose\n=== Romans 8:99 ===\na\n=== nowhere ===\nb\n=== Romans 8:28 ===\nfirst\n=== Romans 8:28 ===\n"
        "second\n=== Romans 8:28 ===\nfirst\n=== Jude 1:99 ===\n\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse, "first")));
    std::vector<std::string> lines;
    for (const UnplacedText& text : notes.unplaced)
        lines.push_back(std::to_string(text.line) + '|' + text.where + '|' + text.reason + '|' + text.text);
    EXPECT_THAT(lines, ElementsAre("2||This stands before the first verse.|loose",
                                   "3|Romans 8:99|There is no such verse.|a", "5|nowhere|This names no verse.|b",
                                   "9|Romans 8:28|The file has another note for this verse.|second"));
}

TEST(TextNotes, AreNotLongerThanANote) {
    const ExchangedNotes notes = ReadText("=== Romans 8:28 ===\n" + std::string(65534, 'x'));
    EXPECT_THAT(notes.notes, IsEmpty());
    ASSERT_EQ(notes.unplaced.size(), 1u);
    EXPECT_EQ(notes.unplaced[0].reason, "The text is longer than a note can be.");
}

// An exported note keeps its empty lines, and may have been emptied.
TEST(TextNotes, TakeEmptyLinesOfExportedNotes) {
    const ExchangedNotes notes =
        ReadText("=== Romans 8:28 === imnmbgid\n\ntext\n\n\n=== Romans 8:29 === imnmbgid\n\n=== Romans 8:30 ===\n\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kTextVerse, "\r\ntext\r\n"), Pair(kTextVerse + 1, "")));
}
