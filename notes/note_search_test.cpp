#include "notes/note_search.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/fake_note_files.h"

using testing::ElementsAre;

// A note set in memory and the search in it.
struct SearchedSet {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
    std::vector<int> reached;
};

static void Open(SearchedSet& set, const std::map<int, std::string>& notes) {
    AddFakeSet(set.fakes, "Mine", notes);
    set.files = DeviceOver(set.fakes);
    ASSERT_TRUE(FindNoteSets(set.files, set.notes));
    set.fakes.log.clear();
}

static NoteMatch Find(SearchedSet& set, const NoteQuery& query, ResumePoint resume = {}) {
    const SearchProgress progress{
        &set.reached, [](void* device, int verse) { static_cast<std::vector<int>*>(device)->push_back(verse); }};
    set.reached.clear();
    return FindInNotes(set.files, set.notes.sets[0], AsciiLetters(), query, resume, progress);
}

// "verse:offset", "not found" or "unreadable".
static std::string Told(const NoteMatch& match) {
    switch (match.end) {
        case NoteSearchEnd::kFound: return std::to_string(match.verse) + ":" + std::to_string(match.offset);
        case NoteSearchEnd::kNotFound: return "not found";
        case NoteSearchEnd::kUnreadable: break;
    }
    return "unreadable";
}

static NoteQuery Capitals(const std::string& text, bool substrings = false) {
    return {InCapitals(AsciiLetters(), text), false, substrings, {}};
}

TEST(AsciiLetters, GiveCapitalsToTheLettersAlone) {
    std::string bytes, expected;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
        expected.push_back(static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 32 : byte));
    }
    EXPECT_EQ(InCapitals(AsciiLetters(), bytes), expected);
}

TEST(NoteSearch, DistinguishesWordsFromSubstrings) {
    static constexpr struct {
        const char* note;
        const char* text;
        const char* asWord;
        const char* anywhere;
    } kRows[] = {
        {"beloved", "love", "not found", "7:2"},
        {"love", "love", "7:0", "7:0"},
        {"Beloved, let us love.", "love", "7:16", "7:2"},
        {"love2 2love love_", "love", "7:12", "7:0"},  // digits count as letters, an underscore does not
        {"glove love's", "love", "7:6", "7:1"},
        {"\xE9love\xE9", "love", "7:1", "7:1"},
        {"aaaa aa", "aa", "7:5", "7:0"},
        {"aaa", "aa", "not found", "7:0"},
        {"one\r\nlove\r\n", "love", "7:5", "7:5"},
        {"so (love) it", "(love)", "7:3", "7:3"},
        {"so(love)it", "(love)", "not found", "7:2"},
        {"let us love one", "us love", "7:4", "7:4"},
        {"let us\r\nlove", "us love", "not found", "not found"},
        {"", "love", "not found", "not found"},
        {"lov", "love", "not found", "not found"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.note);
        SearchedSet set;
        Open(set, {{7, row.note}});
        EXPECT_EQ(Told(Find(set, Capitals(row.text))), row.asWord);
        EXPECT_EQ(Told(Find(set, Capitals(row.text, true))), row.anywhere);
    }
}

// Deliberate: after a match that is not a whole word, the search skips the length of the text, so it does not find a
// match that begins inside it.
TEST(NoteSearch, SkipsTheWholeTextAfterAMismatch) {
    SearchedSet set;
    Open(set, {{7, "xa a a"}});
    EXPECT_EQ(Told(Find(set, Capitals("a a"))), "not found");
    EXPECT_EQ(Told(Find(set, Capitals("a"))), "7:3");
}

TEST(NoteSearch, IgnoresCaseUnlessCaseSensitive) {
    static constexpr struct {
        const char* text;
        bool caseSensitive;
        const char* found;
    } kRows[] = {{"LOVE", false, "3:0"}, {"love", true, "3:6"}, {"LOVE", true, "not found"}, {"Love", true, "3:0"}};
    SearchedSet set;
    Open(set, {{3, "Love, love."}});
    for (const auto& row : kRows) EXPECT_EQ(Told(Find(set, {row.text, row.caseSensitive, false, {}})), row.found);
}

TEST(NoteSearch, StaysInTheRange) {
    static constexpr struct {
        int first, last;
        const char* found;
    } kRows[] = {
        {0, kLastVerse, "0:0"},
        {1, kLastVerse, "500:4"},
        {1, 500, "500:4"},
        {1, 499, "not found"},
        {500, 500, "500:4"},
        {501, kLastVerse, "31101:4"},
        {501, kLastVerse - 1, "not found"},
        {kLastVerse, kLastVerse, "31101:4"},
        {200, 300, "not found"},
    };
    SearchedSet set;
    Open(set, {{0, "grace"}, {250, "truth"}, {500, "the grace"}, {kLastVerse, "The grace of"}});
    for (const auto& row : kRows) {
        NoteQuery query = Capitals("grace");
        query.range = {row.first, row.last};
        EXPECT_EQ(Told(Find(set, query)), row.found) << row.first << "-" << row.last;
        EXPECT_EQ(set.reached.front(), row.first);
        EXPECT_TRUE(std::ranges::is_sorted(set.reached));
        if (std::string(row.found) == "not found") {
            EXPECT_EQ(set.reached.size(), static_cast<std::size_t>(row.last - row.first + 1));
        }
    }
}

TEST(NoteSearch, ContinuesAfterTheLastMatch) {
    static constexpr struct {
        ResumePoint resume;
        const char* found;
    } kRows[] = {
        {{4, 0}, "4:0"},
        {{4, 5}, "4:10"},  // the second match of the same note
        {{4, 10}, "4:10"},
        {{4, 11}, "9:3"},  // the next note is searched from its beginning
        {{4, 15}, "9:3"},
        {{4, 16}, "9:3"},
        {{4, 5000}, "9:3"},
        {{9, 8}, "not found"},
        {{10, 0}, "not found"},
        {{0, 0}, "4:0"},
        {{0, 3}, "4:10"},  // the offset is kept until the next verse with a
                           // note
        {{5, 5}, "not found"},
    };
    SearchedSet set;
    Open(set, {{4, "grace and grace"}, {9, "of grace"}});
    for (const auto& row : kRows) {
        EXPECT_EQ(Told(Find(set, Capitals("grace"), row.resume)), row.found)
            << row.resume.verse << ":" << row.resume.offset;
    }
}

TEST(NoteSearch, StartsAtTheRangeIfItIsLater) {
    NoteQuery query = Capitals("grace");
    query.range = {4, 20};
    SearchedSet set;
    Open(set, {{2, "grace"}, {4, "grace"}, {9, "grace"}});
    EXPECT_EQ(Told(Find(set, query, {2, 3})), "4:0");  // with offset 0
    EXPECT_EQ(Told(Find(set, query, {4, 3})), "9:0");
    EXPECT_EQ(Told(Find(set, query, {21, 0})), "not found");  // stops immediately after the end of the range
    EXPECT_THAT(set.reached, ElementsAre());
}

TEST(NoteSearch, ReadsTheFileInLargeBlocks) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kLastVerse; ++verse) notes[verse] = "a note of some twenty letters";
    notes[30000] += " found";
    SearchedSet set;
    Open(set, notes);
    EXPECT_EQ(Told(Find(set, Capitals("found"))), "30000:30");
    EXPECT_LE(set.fakes.log.size(), 5u);
}

TEST(NoteSearch, DoesNotOpenTheFileWithoutNotes) {
    SearchedSet set;
    Open(set, {});
    NoteQuery query = Capitals("grace");
    query.range.EndVerse = kLastVerse - 1;
    EXPECT_EQ(Told(Find(set, query)), "not found");
    EXPECT_TRUE(set.fakes.log.empty());
}

TEST(NoteSearch, StopsWhenTheFileCannotBeOpened) {
    SearchedSet set;
    Open(set, {{100, "grace"}});
    set.fakes.unreadable = {"Mine.nmd"};
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "unreadable");
    EXPECT_EQ(set.reached.back(), 100);
}

TEST(NoteSearch, SearchesOnlyTheShownPartOfANote) {
    SearchedSet set;
    Open(set, {{kLastVerse, std::string(65530, '-') + "grace more"}});
    EXPECT_EQ(Told(Find(set, Capitals("grace", true))), "31101:65530");
    EXPECT_EQ(Told(Find(set, Capitals("grace m", true))), "not found");
}

TEST(NoteSearch, SurvivesADamagedIndex) {
    SearchedSet set;
    Open(set, {{3, "grace"}});
    std::vector<std::uint32_t>& offsets = set.notes.sets[0].offsets;
    for (std::size_t verse = 0; verse < offsets.size(); ++verse)
        offsets[verse] = static_cast<std::uint32_t>(verse * 2654435761U);
    Find(set, Capitals("grace"));
    offsets.resize(2);
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "not found");
    offsets.clear();
    EXPECT_EQ(Told(Find(set, Capitals("grace"))), "not found");
}

TEST(LetterTable, OfAsciiDoesNotChangeOtherBytes) {
    const LetterTable letters = AsciiLetters();
    EXPECT_EQ(InCapitals(letters, "Abc xyz 0-9 \xE9{}`@"), "ABC XYZ 0-9 \xE9{}`@");
    EXPECT_EQ(std::ranges::count(letters.inWords, true), 62);
}
