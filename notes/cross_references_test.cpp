#include "notes/cross_references.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <span>
#include <string>

#include "scripture/books.h"
#include "tests/support/native_scripture.h"

static constexpr int kGenesis3_2 = 57;

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

// "Ge 1:1, Ex 2:4"
static std::string Named(const std::vector<std::int32_t>& verses) {
    std::string names;
    for (const int verse : verses)
        names += (names.empty() ? "" : ", ") + ReferenceText(Records(), verse, BookForm::kAbbreviation);
    return names;
}

static std::string Followed(std::string_view note, std::size_t caret, int noteVerse = kGenesis3_2) {
    return Named(CrossReferences(Records(), note, caret, noteVerse));
}

struct ListCase {
    const char* list;
    const char* verses;
};

static void ExpectLists(std::span<const ListCase> rows, int noteVerse = kGenesis3_2) {
    for (const auto& [list, verses] : rows) {
        const std::string line = std::string("#") + list;
        EXPECT_EQ(Followed(line, 0, noteVerse), verses) << line;
    }
}

TEST(CrossReferences, AreReadInOrder) {
    static constexpr ListCase kRows[] = {
        {" Ge 1:1; Ex 2:4, 6-8", "Ge 1:1, Ex 2:4, Ex 2:6, Ex 2:7, Ex 2:8"},
        {"Ge 1:1", "Ge 1:1"},
        {"Ge 1:1;Ex 2:4", "Ge 1:1, Ex 2:4"},
        {"Ge 1:1 Ex 2:4", "Ge 1:1, Ex 2:4"},
        {"Ge 1:1 ; Ex 2:4 ,6", "Ge 1:1, Ex 2:4, Ex 2:6"},
        {"\tGe\t1:1;\tEx 2:4", "Ge 1:1, Ex 2:4"},
        {"Ge1:1", "Ge 1:1"},
        {"Ge   1:1", "Ge 1:1"},
        {"Re 1:1; Ge 1:1; Ge 1:1", "Re 1:1, Ge 1:1, Ge 1:1"},
        {"-- see Ge 1:1", ""},
        {" ... (Ge 1:1)", "Ge 1:1"},
        {"Ge 1:1/Ex 2:4", "Ge 1:1, Ex 2:4"},
        {"Ge 1:1.", "Ge 1:1"},
        {"", ""},
        {" ;:-", ""},
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, AcceptNamesAndAbbreviationsOfBooks) {
    static constexpr ListCase kRows[] = {
        {"Genesis 1:1", "Ge 1:1"},
        {"gen 1:1", "Ge 1:1"},
        {"GE 1:1", "Ge 1:1"},
        {"J 1:1", "Jos 1:1"},      // the beginnings of full names are tried first
        {"Jud 1:1", "Jg 1:1"},     // Judges precedes Jude
        {"Jude 1:1", "Jude 1:1"},  // but does not begin with "Jude"
        {"Joh 1:1", "Joh 1:1"},
        {"Phil 1:1", "Php 1:1"},
        {"Mr 1:1", "Mr 1:1"},
        {"Mt 1:1", "Mt 1:1"},
        {"Jas 1:1", "Jas 1:1"},
        {"1John 4:8", "1Jo 4:8"},
        {"1jo 4:8", "1Jo 4:8"},
        {"1J 4:8", "1Jo 4:8"},
        {"2Corinthians 5:17", "2Co 5:17"},
        {"3Jo 1:1", "3Jo 1:1"},
        {"Song 2:1", "So 2:1"},
        {"Song of Solomon 2:1", "So 2:1"},
        {"song of solomon 2:1, 3", "So 2:1, So 2:3"},
        {"Ex. 2:4", "Ex 2:4"},
        {"Ex.2:4", "Ex 2:4"},
    };
    ExpectLists(kRows);
    for (int book = 1; book <= kBookCount; ++book)
        EXPECT_EQ(Followed("#" + std::string(BookAbbreviation(book)) + " 1:1", 0),
                  std::string(BookAbbreviation(book)) + " 1:1");
}

// Deliberate: in a cross-reference line, a number that is separated from a name by a blank is a verse.
TEST(CrossReferences, DoNotJoinANumberWithTheNameAfterABlank) {
    static constexpr ListCase kRows[] = {
        {"1 John 4:8", "Ge 3:1, Joh 4:8"},
        {"Ge 1:1; 1 John 4:8", "Ge 1:1, Ge 1:1, Joh 4:8"},
        {"2 Kings 5:1", "Ge 3:2"},  // no book is named "Kings", so reading stops
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, ReadANumberWithoutAColonAsAVerse) {
    static constexpr ListCase kRows[] = {
        {"5", "Ge 3:5"},
        {"5, 7", "Ge 3:5, Ge 3:7"},
        {"Ex 5", "Ex 3:5"},
        {"Ex 5:1, 3", "Ex 5:1, Ex 5:3"},
        {"Ex 5:1; Le 3", "Ex 5:1, Le 5:3"},
        {"4:2", "Ge 4:2"},
        {"4.2", "Ge 4:2"},
        {"4:2; 3.1", "Ge 4:2, Ge 3:1"},
        {"Ex 5.", "Ex 3:5"},
        {"Ex 5:", "Ex 3:5"},
        {"Ex", "Ex 3:2"},  // the missing chapter and verse are taken from the note's verse
        {"Ex; 7", "Ex 3:2, Ex 3:7"},
        {"1:2:3", "Ge 1:2"},
        {"3 16", "Ge 3:3, Ge 3:16"},
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, StartAtTheNotesVerse) {
    const int last = kLastVerse;
    static constexpr ListCase kRows[] = {{"1", "Re 22:1"}, {"Joh 3", "Joh 21:25"}};  // John has no chapter 22
    ExpectLists(kRows, last);
    static constexpr ListCase kNone[] = {{"1", ""}, {"Joh 3:16; 17", "Joh 3:16, Joh 3:17"}};
    ExpectLists(kNone, kNoVerse);
    ExpectLists(kNone, kVerseCount + 5);
}

TEST(CrossReferences, ExpandRanges) {
    static constexpr ListCase kRows[] = {
        {"Ge 1:1-3", "Ge 1:1, Ge 1:2, Ge 1:3"},
        {"Ge 1:1-2", "Ge 1:1, Ge 1:2"},
        {"Ge 1:1 - 3", "Ge 1:1, Ge 1:2, Ge 1:3"},
        {"Ge 1:1- 3", "Ge 1:1, Ge 1:2, Ge 1:3"},
        {"Ge 1:1-1", "Ge 1:1, Ge 1:1"},
        {"Ge 1:5-3", "Ge 1:5, Ge 1:3"},
        {"Ge 1:1-3-5, 7", "Ge 1:1, Ge 1:2, Ge 1:3, Ge 1:4, Ge 1:5, Ge 1:7"},
        {"6-8", "Ge 3:6, Ge 3:7, Ge 3:8"},
        {"Ge 1:30-2:2", "Ge 1:30, Ge 1:31, Ge 2:1, Ge 2:2"},
        {"Ge 1:31-40", "Ge 1:31, Ge 1:31"},  // an end beyond the chapter is its last verse
        {"Ge 1:29-40", "Ge 1:29, Ge 1:30, Ge 1:31"},
        {"Ge 1:1-", "Ge 1:1"},
        {"Ge 1:1-Ex 2:4", "Ge 1:1, Ex 2:4"},
        {"Ge 1:1-3Jo 1:4", "Ge 1:1, 3Jo 1:4"},
        {"Ge 1:1--3", "Ge 1:1"},
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, ClampNumbersToTheBook) {
    static constexpr ListCase kRows[] = {
        {"Ge 0:0", "Ge 1:1"},
        {"Ge 1:99", "Ge 1:31"},
        {"Ge 99:1", "Ge 50:26"},
        {"Ge 1:99999999999999999999", "Ge 1:31"},
        {"99999999999999999999", "Ge 3:24"},
        {"Jude 25; Re 22:21", "Jude 1:25, Re 22:21"},
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, StopAtTextThatIsNotAReference) {
    static constexpr ListCase kRows[] = {
        {"Xyz 1:1", ""},
        {"Ge 1:1; Xyz 2:2; Ex 2:4", "Ge 1:1"},
        {"Ge 1:1 and 2:4", "Ge 1:1"},
        {"Ge 1:1; 1Xyz 2:2; Ex 2:4", "Ge 1:1, Ge 1:1"},  // the number at its beginning is a verse
        {"Ge 1:1;; Ex 2:4", "Ge 1:1"},
        {"12John 1:1", "Ge 3:12"},
        {"Ge 1:1\xB6 2", "Ge 1:1, Ge 1:2"},
        {"Ge 1:1; \xC9x 2:4", "Ge 1:1"},
    };
    ExpectLists(kRows);
}

TEST(CrossReferences, AreReadFromTheLineOfTheCaret) {
    const std::string note = "First Ex 9:9\r\n# Ge 1:1; 2\r\nplain\r\nsee # Ex 2:4 # Le 1:1\r\n#\r\nLe 5:5";
    const auto at = [&](const char* text) { return note.find(text); };
    const struct {
        std::size_t caret;
        const char* verses;
        const char* where;
    } kRows[] = {
        {0, "", "a line without #"},
        {at("# Ge") - 1, "", "the line feed before a # line"},
        {at("# Ge"), "Ge 1:1, Ge 1:2", "on the #"},
        {at("1:1"), "Ge 1:1, Ge 1:2", "in the list"},
        {at("\r\nplain"), "Ge 1:1, Ge 1:2", "at the line's end"},
        {at("plain"), "", "the next line's start"},
        {at("see"), "", "before a # in the line"},
        {at("# Ex"), "Ex 2:4, Le 1:1", "on the first # of two"},
        {at("# Le") - 1, "Ex 2:4, Le 1:1", "before the second"},
        {at("# Le"), "Le 1:1", "on the second"},
        {at("\r\n#\r\n"), "Le 1:1", "at the end of the line with two"},
        {at("#\r\n"), "", "a # alone"},
        {at("Le 5:5"), "", "a line below"},
        {note.size(), "", "the note's end"},
        {note.size() + 1000, "", "beyond it"},
        {std::string::npos, "", "far beyond it"},
    };
    for (const auto& [caret, verses, where] : kRows) EXPECT_EQ(Followed(note, caret), verses) << where;
    EXPECT_EQ(Followed("", 0), "");
    EXPECT_EQ(Followed("#Ge 1:1", 7), "Ge 1:1");
    EXPECT_EQ(Followed("#Ge 1:1", std::string::npos), "Ge 1:1");
    EXPECT_EQ(Followed("#Ge 1:1\n2", 3), "Ge 1:1") << "a line feed alone ends a line too";
}

TEST(CrossReferences, StopWhenTheListIsFull) {
    const auto count = [](const std::string& note) { return CrossReferences(Records(), note, 0, 0).size(); };
    std::string whole = "#";
    for (int book = 1; book <= kBookCount; ++book)
        whole += std::string(BookAbbreviation(book)) + " 1:1-500:500; ";  // an end beyond the book is its last verse
    EXPECT_EQ(count(whole), std::size_t{kVerseCount}) << "every verse once";
    EXPECT_EQ(count(whole + "Ge 1:1"), std::size_t{kVerseCount});
    std::string repeats = "#Ps 119:1";
    while (repeats.size() < 65000) repeats += "-176,1";
    EXPECT_EQ(count(repeats), std::size_t{kVerseCount});
    std::string single = "#Re 1";
    while (single.size() < 65000) single += ",1";
    EXPECT_EQ(count(single), std::size_t{kVerseCount});
}

// Random text must give only valid verses, or none.
TEST(CrossReferences, AreValidForRandomText) {
    std::minstd_rand random(1611);
    static constexpr std::array kPieces = {"Ge ",  "1John", "3:16", "-", "#",  "\n", "\r",   ", ",   "999999999999",
                                           "\xFF", "0",     ".",    ":", "Re", "Z",  "Song", " of ", "Song of Solomon"};
    for (int round = 0; round < 20000; ++round) {
        std::string note;
        for (int piece = 0; piece < 12; ++piece) note += kPieces[random() % kPieces.size()];
        if (round % 3 == 0) note[random() % note.size()] = static_cast<char>(random() % 256);
        const int noteVerse = static_cast<int>(random() % (kVerseCount + 2)) - 1;
        for (const int verse : CrossReferences(Records(), note, random() % (note.size() + 2), noteVerse)) {
            ASSERT_EQ(verse, ClampVerse(verse)) << note;
        }
    }
}

TEST(CrossReferences, AreEmptyWithoutRecords) {
    EXPECT_TRUE(CrossReferences({}, "# Ge 1:1-5; 3", 0, 0).empty());
}

// "Ge 1:1=Ge 1:1, 6=Ex 2:6": each item and its verse.
static std::string Listed(std::string_view note) {
    std::string items;
    for (const TextReference& item : ListedReferences(Records(), note, kGenesis3_2))
        items += (items.empty() ? "" : ", ") + std::string(note.substr(item.begin, item.size)) + '=' +
                 ReferenceText(Records(), item.first, BookForm::kAbbreviation);
    return items;
}

TEST(ListedReferences, AreItemsInTheirPlaces) {
    EXPECT_EQ(Listed("see\r\n# Ge 1:1; Ex 2:4 , 6-8.\r\nGe 4:1"), "Ge 1:1=Ge 1:1, Ex 2:4=Ex 2:4, 6=Ex 2:6, 8.=Ex 2:8");
    EXPECT_EQ(Listed("a # Ge 1:1 # 5 # x\n#Ru"), "Ge 1:1=Ge 1:1, 5=Ge 3:5, Ru=Ru 3:2");
    EXPECT_EQ(Listed("no list\n#\n# \n#"), "");
}

TEST(ListedReferences, AreTheVersesThatAreFollowed) {
    for (const char* list : {"# Ge 1:1; Ex 2:4, 6", "# Song of Solomon 2:1 3", "# 1John 3:16/Re 99:99. Ps"}) {
        std::vector<std::int32_t> verses;
        for (const TextReference& item : ListedReferences(Records(), list, kGenesis3_2)) verses.push_back(item.first);
        EXPECT_EQ(verses, CrossReferences(Records(), list, 0, kGenesis3_2)) << list;
    }
}
