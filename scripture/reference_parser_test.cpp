#include "scripture/reference_parser.h"

#include <gtest/gtest.h>

#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"

static std::string Abbreviated(int verse) {
    return ReferenceText(TheRealScripture().records, verse, BookForm::kAbbreviation);
}

struct ReferenceRow {
    std::string text;
    const char* verse;  // null: not recognized
};

static void ExpectReferences(std::span<const ReferenceRow> rows) {
    for (const ReferenceRow& row : rows) {
        const ParsedReference typed = ParseReference(TheRealScripture().records, row.text);
        EXPECT_EQ(typed.ok, row.verse != nullptr) << row.text;
        EXPECT_EQ(Abbreviated(typed.verse), row.verse == nullptr ? "" : row.verse) << row.text;
    }
}

TEST(ParseReference, ReadsBookChapterAndVerse) {
    static const ReferenceRow kRows[] = {
        {"Joh 3:16", "Joh 3:16"},
        {"john 3.16", "Joh 3:16"},
        {"JOHN 3:16", "Joh 3:16"},
        {"acts 2:1", "Ac 2:1"},  // the first letter of the alphabet, and the last
        {"ZEPHANIAH 2:1", "Zep 2:1"},
        {"John 3 : 16", "Joh 3:16"},
        {"John3:16", "Joh 3:16"},
        {"Joh,3:16", "Joh 3:16"},
        {"Ge", "Ge 1:1"},
        {"Ps 23", "Ps 23:1"},
        {"Ps 119:500", "Ps 119:176"},
        {"Ge 51:1", "Ge 50:26"},
        {"Jude 2:3", "Jude 1:25"},
        {"Re 22:21", "Re 22:21"},
        {"Ge 0:1", nullptr},
        {"Ge 1:0", nullptr},
        {"Ge 00", nullptr},
        {"Xyz 1:1", nullptr},
        {"Joh 3:x", nullptr},
        {"Joh 3:16:99", "Joh 3:16"},
        {"Ge 1:+5", "Ge 1:5"},
        {"Ge 1:-5", "Ge 1:1"},
        {"Ge - 5", "Ge 1:1"},
    };
    ExpectReferences(kRows);
}

TEST(ParseRange, TellsWhatItHasNotUsed) {
    static constexpr std::pair<const char*, const char*> kRows[] = {
        {"Ge", ""},
        {"Ge 1:1", ""},
        {"Ge 1:1-5", ""},
        {"Ge 1 - 3", ""},
        {"Ge - Re", ""},
        {"1 John 1:9 - 2:1", ""},
        {"1 Samuel 2:3 - 2 Kings 3:4", ""},
        {"Ge 1:1-2:3", ""},
        {"Ge 1:1 -- 2 : 3", ""},
        {"Ge 1:+5", ""},
        {"Ge 1:1 ;,.", ""},
        {"Ge 1:1; Ex 2:3", ""},  // a range
        {"Ge 1:1-3; Ex 2:1", "; Ex 2"},
        {"Ge 1:1-2:3; Ex 2:1", "; Ex 2:1"},
        {"Ge 1:1-2:3, 7", ", 7"},
        {"Ge 1:1-4 5", "5"},
        {"Ge 1:1 - Ex 2:1-3", "-3"},
        {"Ge 1:1 - Ex 2:1 and more", "and more"},
        {"Ge 1 - Ex 2:3", "- Ex 2"},
        {"Ge 1; Ex 2:3; Le 4; Nu 5:6", "; Ex 2 ... ; Nu 5"},
        {"5 Ex 6", ""},
        {"1 Samuel 2 - 2 Kings 3:4", "- 2Kings 3"},
        {"1 Jn 1:9", "Jn 1"},
    };
    for (const auto& [text, unused] : kRows)
        EXPECT_EQ(ParseRange(TheRealScripture().records, text).unused, unused) << text;
}

TEST(ParseReference, UsesTheFirstBookThatMatches) {
    static const ReferenceRow kRows[] = {
        {"Jo 1:1", "Jos 1:1"},
        {"Phil 1:1", "Php 1:1"},
        {"Philemon 1:1", "Phm 1:1"},
        {"Jude 1:2", "Jude 1:2"},
        {"Jud 1:2", "Jg 1:2"},
        {"Ma 1:2", "Mal 1:2"},
        {"Is 1:2", "Isa 1:2"},
        {"J 1:2", "Jos 1:2"},
        {"Job 1:2", "Job 1:2"},
        {"Genesisx 2:3", "Ge 2:3"},
        {"Judgesx 2:3", "Jg 2:3"},
        {"Judgex 2:3", nullptr},
        {"I John 1:9", "Isa 1:1"},  // "I" is Isaiah, and the text after the blank is not a number
        {"Song of Solomon 2:1", "So 1:1"},
        {"So 2:1", "So 2:1"},
    };
    ExpectReferences(kRows);
}

TEST(ParseReference, JoinsNumbersSeparatedByBlanks) {
    static const ReferenceRow kRows[] =
        {
            {"1 John 1:9", "1Jo 1:9"}, {"1John 1:9", "1Jo 1:9"},  {"1   John 1:9", "1Jo 1:9"},
            {"2 Samuel 7", "2Sa 7:1"}, {"3 John 1:4", "3Jo 1:4"}, {"1 th 5:17", "1Th 5:17"},
            {"1 J 1:9", "Ge 1:9"},  // "1J" matches no book, so it is read as chapter 1 of Genesis
            {"2 C 3", "Ge 2:1"},       {"Ge 1 3", "Ge 13:1"},     {"Ps 1 1", "Ps 11:1"},
            {"Ps 2 3 : 4", "Ps 23:4"}, {"Ps 4 1", "Ps 4:1"},
        };
    ExpectReferences(kRows);
}

TEST(ParseReference, UsesGenesisWithoutABook) {
    static const ReferenceRow kRows[] = {
        {"3:16", "Ge 3:16"}, {" ", "Ge 1:1"}, {"-", "Ge 1:1"},    {":", "Ge 1:1"},
        {"  ", "Ge 1:1"},    {"5", "Ge 5:1"}, {" 5:2", "Ge 5:2"}, {" Joh 3:16", "Ge 1:1"},
    };
    ExpectReferences(kRows);
}

TEST(ParseReference, SeparatesWordsAtOtherCharacters) {
    static const ReferenceRow kRows[] = {
        {"Joh\xA0"
         "3:16",
         "Joh 3:16"},
        {"Joh\xB6"
         "3:16",
         "Joh 3:16"},
        {"Joh\xE9 3:16", "Joh 3:16"},
        {"Joh 3:16\xE9", "Joh 3:16"},
        {"\xC9x 3:16", "Ge 1:1"},
        {std::string("Joh 3:16\0 :0", 12), "Joh 3:16"},
    };
    ExpectReferences(kRows);
}

TEST(ParseReference, ReadsAtMost99Characters) {
    const std::string padded = "Ps" + std::string(93, ' ') + "119:5";
    static const ReferenceRow kRows[] = {
        {padded.substr(0, 99), "Ps 119:1"},  // ends with "119:", whose colon is removed
        {padded, "Ps 119:1"},
        {padded.substr(0, 10) + padded.substr(11), "Ps 119:5"},
    };
    ExpectReferences(kRows);
}

TEST(ParseReference, ClampsLongNumbers) {
    static const ReferenceRow kRows[] = {
        {"Ge 99999999999999999999", "Ge 50:26"},
        {"Ge 1:99999999999999999999", "Ge 1:31"},
        {"Ge 1:-99999999999999999999", "Ge 1:1"},
    };
    ExpectReferences(kRows);
}

TEST(ParseReference, FailsWithoutRecords) {
    EXPECT_FALSE(ParseReference({}, "Ge 1:1").ok);
}

struct RangeRow {
    std::string text;
    const char* first;  // null: not recognized
    const char* last;
    const char* normalised;
};

static void ExpectRanges(std::span<const RangeRow> rows) {
    for (const RangeRow& row : rows) {
        SCOPED_TRACE(row.text);
        const ParsedRange typed = ParseRange(TheRealScripture().records, row.text);
        EXPECT_EQ(typed.text, row.normalised);
        EXPECT_EQ(typed.ok, row.first != nullptr);
        if (row.first == nullptr) continue;
        EXPECT_EQ(Abbreviated(typed.first), row.first);
        EXPECT_EQ(Abbreviated(typed.last), row.last);
    }
}

TEST(ParseRange, OfOneReferenceIsTheWholeUnit) {
    static const RangeRow kRows[] = {
        {"Ge", "Ge 1:1", "Ge 50:26", "Ge"},
        {"Ps 23", "Ps 23:1", "Ps 23:6", "Ps 23"},
        {"Joh 3:16", "Joh 3:16", "Joh 3:16", "Joh 3:16"},
        {"Ge 1:1 - ", "Ge 1:1", "Ge 1:1", "Ge 1:1"},
        {" ", "Ge 1:1", "Ge 50:26", " "},
        {"Ge ; ", "Ge 1:1", "Ge 50:26", "Ge"},
    };
    ExpectRanges(kRows);
}

TEST(ParseRange, ReadsTheSecondHalf) {
    static const RangeRow kRows[] = {
        {"Ge - Re", "Ge 1:1", "Re 22:21", "Ge - Re"},
        {"Mt - Re", "Mt 1:1", "Re 22:21", "Mt - Re"},
        {"Ge 1 - 3", "Ge 1:1", "Ge 3:24", "Ge 1- 3"},
        {"Ge 4 - 5", "Ge 4:1", "Ge 5:32", "Ge 4 - 5"},
        {"Ge 1:1-5", "Ge 1:1", "Ge 5:32", "Ge 1:1-5"},
        {"Ge 1:1-2:3", "Ge 1:1", "Ge 2:3", "Ge 1:1-2:3"},
        {"Ge 1:1-Ex 2:3", "Ge 1:1", "Ex 2:3", "Ge 1:1-Ex 2:3"},
        {"Ge 1.1-2.3", "Ge 1:1", "Ge 2:3", "Ge 1.1-2.3"},
        {"1 John 1:1 - 2 John 1:2", "1Jo 1:1", "2Jo 1:2", "1John 1:1- 2John 1:2"},
        {"Re 22 - Ge 1", "Ge 1:31", "Re 22:1", "Re 22- Ge 1"},
        {"Joh 3:18-3:16", "Joh 3:16", "Joh 3:18", "Joh 3:18-3:16"},
        {"Ge - Ex -3", "Ge 1:1", "Ex 1:22", "Ge - Ex -3"},
        {"Ge - Ex 3", "Ge 1:1", "Ex 3:22", "Ge - Ex 3"},
        {"Ge - Ex 0", nullptr, nullptr, "Ge - Ex 0"},
        {"Ge - Ex 3:0", nullptr, nullptr, "Ge - Ex 3:0"},
        {"Ge - Xyz", nullptr, nullptr, "Ge - Xyz"},
        {"Ge 1:1 - 0", nullptr, nullptr, "Ge 1:1- 0"},
        {"Xyz - Ge", nullptr, nullptr, "Xyz - Ge"},
        {"Ex 0 - Le", nullptr, nullptr, "Ex 0 - Le"},
        {"Ex 1:0 - 2:3", nullptr, nullptr, "Ex 1:0 - 2:3"},
    };
    ExpectRanges(kRows);
}

TEST(ParseRange, HasDeliberateQuirks) {
    static const RangeRow kRows[] = {
        // The colon is searched for in the whole text, so the first half uses the colon of the second half.
        {"Ge 1 - Ex 2:3", "Ge 1:3", "Ge 1:3", "Ge 1- Ex 2:3"},
        {"Ge 1.1-2:3", "Ge 1:3", "Ge 1:3", "Ge 1.1-2:3"},
        // After a colon and a blank the number is read again, as a chapter.
        {"John 3 : 16", "Joh 3:16", "Joh 16:33", "John 3: 16"},
        {"Ge - Ex. 3", nullptr, nullptr, "Ge - Ex. 3"},
        {"Ge 1. - Ex 1.", nullptr, nullptr, "Ge 1. - Ex 1"},
        {"Ge 4:4 - 5 Ex 6", "Ge 4:4", "Ge 5:32", "Ge 4:4 - 5 Ex 6"},
        {"Song of Solomon 2:1", nullptr, nullptr, "Song of Solomon 2:1"},
        {"I John 1:9", "Isa 1:1", "Joh 1:9", "I John 1:9"},
        {"1 J 1:9", "Ge 1:9", "Ge 1:9", "1J 1:9"},
        {"Ps 1 1", "Ps 11:1", "Ps 11:7", "Ps 11"},
        {"Ge 1 3 - 1 4", "Ge 13:1", "Ge 14:24", "Ge 13- 14"},
    };
    ExpectRanges(kRows);
}

TEST(ParseRange, ReturnsTheTextAsRead) {
    static const RangeRow kRows[] = {
        {"  Ge 1 !?", "Ge 1:1", "Ge 1:31", "  Ge 1"},
        {"Xyz 1 2 3 !", nullptr, nullptr, "Xyz 123"},
        {"1 1 1 1", "Ge 50:26", "Ge 50:26", "1111"},
        {"3  2 ", "Ge 32:1", "Ge 32:32", "32"},
        {"!!", "Ge 1:1", "Ge 50:26", "!"},
    };
    ExpectRanges(kRows);
}

TEST(ParseRange, FailsWithoutRecords) {
    EXPECT_FALSE(ParseRange({}, "Ge 1:1 - 2").ok);
}

TEST(ParseRange, NeedsBothBooks) {
    static constexpr HandMadeVerse kVerses[] = {{2, 1, 1, "Exodus alone."}};
    const HandMadeFiles files = MakeFiles(kVerses);
    const VerseRecords records = ScriptureOf(files).records;
    EXPECT_TRUE(ParseRange(records, "Ex - Ex").ok);
    EXPECT_FALSE(ParseRange(records, "Ex - Le").ok);
    EXPECT_FALSE(ParseRange(records, "Ge - Ex").ok);
}
