#include "scripture/scripture.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

static const HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6In the beginning"}, {1, 1, 2, "And [was]"}, {1, 1, 3, ""}, {1, 1, 4, "last"}};

TEST(VerseText, EndsBeforeTheZeroByte) {
    const HandMadeFiles files = MakeFiles(kVerses);
    const Scripture scripture = ScriptureOf(files);
    for (int verse = 0; verse < 4; ++verse) EXPECT_EQ(VerseText(scripture, verse), kVerses[verse].text) << verse;
}

TEST(VerseText, IsEmptyForAnInvalidVerse) {
    const HandMadeFiles files = MakeFiles(kVerses);
    for (const int verse : {-1, 4, 5, kLastVerse, kVerseCount, 2147483647, -2147483647 - 1})
        EXPECT_EQ(VerseText(ScriptureOf(files), verse), "") << verse;
    EXPECT_EQ(VerseText({}, 0), "");
}

// Offsets are not checked when the files are loaded, but with any offsets only bytes of the text may be read.
TEST(VerseText, StaysInsideTheTextForAnyOffsets) {
    static constexpr struct {
        const char* why;
        std::uint32_t offset, nextOffset;
        const char* text;
    } kRows[] = {
        {"in order", 0, 4, "abc"},
        {"next before it", 4, 0, "defg"},
        {"next the same", 4, 4, "defg"},
        {"next inside the verse", 4, 6, "defg"},
        {"next past the end", 9, 14, "hij"},
        {"next far out", 9, 0xFFFFFFFF, "hij"},
        {"begins on a zero", 3, 4, ""},
        {"begins at the end", 12, 0, ""},
        {"begins past the end", 13, 14, ""},
        {"begins far out", 0xFFFFFFFF, 0xFFFFFFFF, ""},
        {"text without a closing zero", 9, 12, "hij"},
    };
    for (const auto& row : kRows) {
        HandMadeFiles files;
        AddRecord(files, 1, 1, 1, row.offset);
        AddRecord(files, 1, 1, 2, row.nextOffset);
        static constexpr std::string_view kText{"abc\0defg\0hij", 12};
        files.text.assign(kText.begin(), kText.end());
        EXPECT_EQ(VerseText(ScriptureOf(files), 0), row.text) << row.why;
    }
}

TEST(VerseText, DoesNotNeedTheNextRecord) {
    HandMadeFiles files = MakeFiles(kVerses);
    files.records.resize(7 + 3);  // cut inside the second record
    EXPECT_EQ(VerseText(ScriptureOf(files), 0), kVerses[0].text);
    EXPECT_EQ(VerseText(ScriptureOf(files), 1), "");
}

TEST(BeginsParagraph, DependsOnTheFirstByte) {
    static constexpr struct {
        std::string_view text;
        bool begins;
    } kRows[] = {{"\xB6In", true}, {"\xB6", true},        {"In", false},
                 {"", false},      {"In \xB6the", false}, {"[\xB6In", false}};
    for (const auto& row : kRows) EXPECT_EQ(BeginsParagraph(row.text), row.begins) << row.text;
}

TEST(TheText, IsCompleteAndInOrder) {
    const Scripture& scripture = TheRealScripture();
    EXPECT_EQ(scripture.records.bytes.size(), 217714u);
    std::size_t next = 0;
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const std::string_view text = VerseText(scripture, verse);
        // The Passage relies on each verse starting directly after the zero byte of the previous one.
        ASSERT_EQ(RecordOf(scripture.records, verse).textOffset, next) << verse;
        ASSERT_FALSE(text.empty()) << verse;
        ASSERT_EQ(text.find('\0'), std::string_view::npos) << verse;
        ASSERT_EQ(text.data()[text.size()], '\0') << verse;
        next += text.size() + 1;
    }
    EXPECT_EQ(next, scripture.text.size());
}

TEST(TheText, HasParagraphMarksDirectlyBeforeWords) {
    const std::string_view first = VerseText(TheRealScripture(), 0);
    EXPECT_TRUE(BeginsParagraph(first));
    EXPECT_EQ(first.substr(1, 16), "In the beginning");
    EXPECT_FALSE(BeginsParagraph(VerseText(TheRealScripture(), 1)));
}

struct FakeFiles {
    std::map<std::string, std::string> contents;
    std::vector<std::string> asked;
};

static bool MapFake(void* device, const char* name, AccessPattern pattern, std::span<const unsigned char>& bytes) {
    auto& files = *static_cast<FakeFiles*>(device);
    files.asked.push_back(name + std::string(pattern == AccessPattern::kRandom ? " random" : " sequential"));
    const auto found = files.contents.find(name);
    if (found == files.contents.end()) return false;
    bytes = {reinterpret_cast<const unsigned char*>(found->second.data()), found->second.size()};
    return true;
}

TEST(LoadScripture, LoadsRecordsThenText) {
    FakeFiles files{{{"_avvidx.dat", std::string("\1\1\1\0\0\0\0", 7)}, {"_avtext.dat", std::string("word\0", 5)}}, {}};
    Scripture scripture;
    EXPECT_TRUE(LoadScripture({&files, MapFake}, scripture));
    EXPECT_EQ(files.asked, (std::vector<std::string>{"_avvidx.dat sequential", "_avtext.dat random"}));
    EXPECT_EQ(VerseText(scripture, 0), "word");
}

TEST(LoadScripture, FailsAtTheFirstMissingFile) {
    static const struct {
        std::map<std::string, std::string> contents;
        std::size_t asked;
    } kRows[] = {{{}, 1}, {{{"_avtext.dat", "word"}}, 1}, {{{"_avvidx.dat", "1234567"}}, 2}};
    for (const auto& row : kRows) {
        FakeFiles files{row.contents, {}};
        Scripture scripture;
        EXPECT_FALSE(LoadScripture({&files, MapFake}, scripture));
        EXPECT_EQ(files.asked.size(), row.asked);
        EXPECT_EQ(VerseText(scripture, 0), "");
    }
}

TEST(LoadScripture, AcceptsEmptyRecordsButNotEmptyText) {
    Scripture scripture;
    FakeFiles noRecords{{{"_avvidx.dat", ""}, {"_avtext.dat", "word"}}, {}};
    EXPECT_TRUE(LoadScripture({&noRecords, MapFake}, scripture));
    EXPECT_EQ(VerseText(scripture, 0), "");
    FakeFiles noText{{{"_avvidx.dat", "1234567"}, {"_avtext.dat", ""}}, {}};
    EXPECT_FALSE(LoadScripture({&noText, MapFake}, scripture));
}
