#include "notes/references_in_text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>
#include <string>

#include "scripture/books.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& TextRecords() {
    return TheRealScripture().records;
}

static const Chapters& TextChapters() {
    static const Chapters chapters = ChaptersOf(TextRecords());
    return chapters;
}

static std::vector<TextReference> ReferencesOf(std::string_view text, const std::string& noteVerse = "Isa 40:1") {
    std::vector<TextReference> references;
    const int verse = ParseReference(TextRecords(), noteVerse).verse;
    FindReferences(TextChapters(), RecordOf(TextRecords(), verse), text, references);
    return references;
}

static std::string MeaningOf(const TextReference& reference) {
    if (reference.first == reference.last)
        return ReferenceText(TextRecords(), reference.first, BookForm::kAbbreviation);
    return RangeText(TextRecords(), reference.first, reference.last);
}

// "Ge 1:1, Ex 2:4 - Ex 2:6"
static std::string MeaningsIn(std::string_view text, const std::string& noteVerse = "Isa 40:1") {
    std::string meanings;
    for (const TextReference& reference : ReferencesOf(text, noteVerse))
        meanings += (meanings.empty() ? "" : ", ") + MeaningOf(reference);
    return meanings;
}

// Each reference between brackets.
static std::string Bracketed(std::string_view text) {
    std::string marked(text);
    const std::vector<TextReference> references = ReferencesOf(text);
    for (auto one = references.rbegin(); one != references.rend(); ++one) {
        marked.insert(one->begin + one->size, "]");
        marked.insert(one->begin, "[");
    }
    return marked;
}

namespace {

struct TextCase {
    const char* text;
    const char* meanings;
};

}  // namespace

template <std::size_t kCount>
static void ExpectMeanings(const TextCase (&rows)[kCount]) {
    for (const TextCase& row : rows) EXPECT_EQ(MeaningsIn(row.text), row.meanings) << row.text;
}

// The phrases are from commentaries; what they mean was checked by reading them.
TEST(ReferencesInText, OfCommentaries) {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/data/reference_examples.tsv");
    int count = 0;
    for (std::string line; std::getline(file, line); ++count) {
        std::istringstream fields(line);
        std::string verse, text, meanings;
        std::getline(fields, verse, '\t');
        std::getline(fields, text, '\t');
        std::getline(fields, meanings, '\t');
        EXPECT_EQ(MeaningsIn(text, verse), meanings) << verse << ": " << text;
    }
    EXPECT_EQ(count, 300);
}

TEST(ReferencesInText, OfBooksToday) {
    static constexpr TextCase kRows[] = {
        {"see Rom 8:28-30", "Ro 8:28 - Ro 8:30"},
        {"Ps. 1, 2; 119:11", "Ps 1:1 - Ps 1:6, Ps 2:1 - Ps 2:12, Ps 119:11"},
        {"1 John 1:9", "1Jo 1:9"},
        {"1 Sam 2:1,4-6; 3:2", "1Sa 2:1, 1Sa 2:4 - 1Sa 2:6, 1Sa 3:2"},
        {"Jn 3:16,18", "Joh 3:16, Joh 3:18"},
        {"Mt 5:3f.", "Mt 5:3 - Mt 5:4"},
        {"Mt 5:3ff.", "Mt 5:3 - Mt 5:48"},
        {"Mt 5:47ff", "Mt 5:47 - Mt 5:48"},
        {"Rom 8:38-9:3", "Ro 8:38 - Ro 9:3"},
        {"Gen 1:1 - 2:3", "Ge 1:1 - Ge 2:3"},
        {"Matt 5-7", "Mt 5:1 - Mt 7:29"},
        {"Gen 1-2:3", "Ge 1:1 - Ge 2:3"},
        {"Ps 119:121-2", "Ps 119:121 - Ps 119:122"},
        {"Ps 78:35-7", "Ps 78:35 - Ps 78:37"},
        {"Luke 1:5a, 6b-7a", "Lu 1:5, Lu 1:6 - Lu 1:7"},
        {"1Cor13:4", "1Co 13:4"},
        {"2nd Kings 4:5", "2Ki 4:5"},
        {"Second Timothy 3:16", "2Ti 3:16"},
        {"rom 8:28 and ps 23:1", "Ro 8:28, Ps 23:1"},
        {"psalm 23", "Ps 23:1 - Ps 23:6"},
        {"Jude 5", "Jude 1:5"},
        {"Jude 5-7, 9", "Jude 1:5 - Jude 1:7, Jude 1:9"},
        {"Jude 1:5; Obad. 3; Philem. 7f.", "Jude 1:5, Ob 1:3, Phm 1:7 - Phm 1:8"},
        {"Song of Solomon 2:4; Song of Songs 1:2; Song 2:1", "So 2:4, So 1:2, So 2:1"},
        {"Acts of the Apostles 2:4", "Ac 2:4"},
        {"Gen. 1:1, 2 Kings 3:4", "Ge 1:1, 2Ki 3:4"},
        {"to James 1 Corinthians 15:7", "1Co 15:7"},
        {"Rom 8:28; cf. 9:1 and see 10:1", "Ro 8:28, Ro 9:1, Ro 10:1"},
        {"Rom 8.28", "Ro 8:28"},
        {"Rom 8:28.", "Ro 8:28"},
        {"Romans chapter 8 verse 28", "Ro 8:28"},
        {"Romans, ch. 8, vv. 28-30", "Ro 8:28 - Ro 8:30"},
        {"chapter 8 of Romans", "Ro 8:1 - Ro 8:39"},
        {"ver. 3 of Ps. 40", "Ps 40:3"},
        {"Phil. 4:13", "Php 4:13"},
        {"(Mar. 3:5)", "Mr 3:5"},
        {"Isa 53 and 61", "Isa 53:1 - Isa 53:12, Isa 61:1 - Isa 61:11"},
    };
    ExpectMeanings(kRows);
}

TEST(ReferencesInText, OfEarlierCenturies) {
    static constexpr TextCase kRows[] = {
        {"Gen. i. 1", "Ge 1:1"},
        {"I Cor. xiii. 4", "1Co 13:4"},
        {"II. Kings iv. 5", "2Ki 4:5"},
        {"Matt. v. 3, 4", "Mt 5:3, Mt 5:4"},
        {"Gen. i. 1--ii. 3", "Ge 1:1 - Ge 2:3"},
        {"Rom. viii. 28, and xii. 1", "Ro 8:28, Ro 12:1"},
        {"Ps. cxix. 11, cxxxix. 23", "Ps 119:11, Ps 139:23"},
        {"Ps. xlii. xliii.", "Ps 42:1 - Ps 42:11, Ps 43:1 - Ps 43:5"},
        {"Psalms II. and XVI.", "Ps 2:1 - Ps 2:12, Ps 16:1 - Ps 16:11"},
        {"Psal. 119. 11. and Joh. 3. 16.", "Ps 119:11, Joh 3:16"},
        {"Rom. chap. viii. ver. 28", "Ro 8:28"},
        {"Heb. xi. 4, &c.; xii. 1", "Heb 11:4, Heb 12:1"},
        {"Esay 53:4; Jerem. 31. 33.", "Isa 53:4, Jer 31:33"},
        {"Canticles ii. 4; Cant. 2:4; Apoc. i. 8", "So 2:4, So 2:4, Re 1:8"},
        {"Exod. xx. 3; Levit. xix. 18; Deut. vi. 5", "Ex 20:3, Le 19:18, De 6:5"},
        {"Zach. ix. 9; Mal. iii. 1; Habac. ii. 4", "Zec 9:9, Mal 3:1, Hab 2:4"},
        {"Ephes. ii. 8; Colos. i. 16; 1 Thes. iv. 16", "Eph 2:8, Col 1:16, 1Th 4:16"},
        {"Luke xv.; Heb. xi", "Lu 15:1 - Lu 15:32, Heb 11:1 - Heb 11:40"},
        {"Gen. c. iii. v. 15", "Ge 3:15"},
        {"Is. xl. 6; Am. v. 4", "Isa 40:6, Am 5:4"},
        {"Matt. V. 3", "Mt 5:3"},
        {"Ps. xxxiiii. 8", "Ps 34:8"},
        {"St. John, chapter iii. verse 16", "Joh 3:16"},
    };
    ExpectMeanings(kRows);
}

// They take the book and the chapter of the note, which is on Isaiah 40:1.
TEST(ReferencesInText, WithoutABook) {
    static constexpr TextCase kRows[] = {
        {"v. 12", "Isa 40:12"},
        {"ver. 7", "Isa 40:7"},
        {"vv. 3-5", "Isa 40:3 - Isa 40:5"},
        {"Verses 3, 5 and 7", "Isa 40:3, Isa 40:5, Isa 40:7"},
        {"verses 3 to 5", "Isa 40:3 - Isa 40:5"},
        {"v. 3; 5; 7", "Isa 40:3, Isa 40:5, Isa 40:7"},
        {"ch. 3:16", "Isa 3:16"},
        {"chapter 4", "Isa 4:1 - Isa 4:6"},
        {"chap. iv", "Isa 4:1 - Isa 4:6"},
        {"chap. liii. 4-6", "Isa 53:4 - Isa 53:6"},
        {"(cf. 53:4)", "Isa 53:4"},
        {"see 53:4", "Isa 53:4"},
        {"the prologue, 1:1-31.", "Isa 1:1 - Isa 1:31"},
        {"from then on. 1:1-39:8.", "Isa 1:1 - Isa 39:8"},
        {"The voice that cries. (3-5)", "Isa 40:3 - Isa 40:5"},
        {"v. 32", ""},
        {"ch. 67", ""},
        {"Chap. xii. 7", "Isa 12:1 - Isa 12:6"},
        {"Rom 8:28 and v. 3", "Ro 8:28, Isa 40:3"},
        {"Rom. 8, v. 28 and v. 30", "Ro 8:28, Ro 8:30"},
    };
    ExpectMeanings(kRows);
    EXPECT_EQ(MeaningsIn("ch. 5 and ver. 3", "Ps 40:1"), "Ps 40:3") << "no psalm is called a chapter elsewhere";
    EXPECT_EQ(MeaningsIn("Chapter 40", "Ps 40:1"), "Ps 40:1 - Ps 40:17");
}

TEST(ReferencesInText, AreNotFoundInOtherNumbersAndNames) {
    static constexpr const char* kTexts[] = {
        "at 1:30 p.m. we met",
        "on Monday, 10:30",
        "see you, 9:15",
        "Job lost his cattle",
        "Acts of mercy",
        "Mark my words",
        "Mark 3 times",
        "in 3:1 ratio",
        "in 1872 John wrote",
        "John 1872",
        "this is 40 years ago",
        "I am 5 years old",
        "Am 5 men here",
        "So 3 men came",
        "He 5 times fell",
        "De 6 Artikelen",
        "on Mar. 3 he left",
        "James I. was king, James II too",
        "John XXIII",
        "For I have, and John I saw",
        "Job is ill, Isaiah did",
        "patience of Job. 1. He waited",
        "1 Macc. 2:3; Ecclus. 3:4; Wisdom 8:1",
        "Psalm 119:180; Ps 151; Ps 150:7; Gen 51:1; Jude 26; Ge 0:1; Ge 1:0",
        "Rom 8:28:30",
        "Josephus, Wars, Book 5, ch. 7",
        "numbers 3:1",
        "version 2:3",
        "v5 and v. 2.0",
        "package (2:1.3-4)",
        "a mapping (1:1 pairing)",
        "Matt.1.0",
        "1st place, 2nd John",
        "Romans8",
        "Philip IV of France",
        "Rom",
        "Rom.",
        "Ps",
        "v.",
        "chap. ",
        "2 ",
        "",
    };
    for (const char* text : kTexts) EXPECT_EQ(MeaningsIn(text), "") << text;
}

TEST(ReferencesInText, EndWhereTheListEnds) {
    static constexpr TextCase kRows[] = {
        {"Rom 8:28 and 2 others", "Ro 8:28"},
        {"Rom 8:28, 3 men", "Ro 8:28"},
        {"Rom 8:28, 29 martyrs", "Ro 8:28, Ro 8:29"},
        {"Psalm 119, 22 sections", "Ps 119:1 - Ps 119:176"},
        {"Acts 2:4, 120 people", "Ac 2:4"},
        {"Psalm 8, 1872", "Ps 8:1 - Ps 8:9"},
        {"Rom 8:28; 9", "Ro 8:28"},
        {"Rom 8:28-99", "Ro 8:28"},
        {"Ps 3:5 - 3 men", "Ps 3:5"},
        {"Rom 8:28\r\n30", "Ro 8:28"},
        {"Rom\r\n8:28", ""},
        {"1 Cor. c\n4", ""},
        {"Rom 8:28, 30: he", "Ro 8:28, Ro 8:30"},
        {"verse 3: the voice", "Isa 40:3"},
        {"1Ki, 1 Kings; Ps 2 Samuel 3:4", "2Sa 3:4"},
        {"Rom. viii. 99 men", "Ro 8:1 - Ro 8:39"},
        {"Rom. viii. ver. 99", ""},
        {"Col. i.e. the letter", ""},
    };
    ExpectMeanings(kRows);
}

TEST(ReferencesInText, HaveTheirPlaces) {
    EXPECT_EQ(Bracketed("see Rom 8:28-30, 32; 9:1."), "see [Rom 8:28-30], [32]; [9:1].");
    EXPECT_EQ(Bracketed("(1 Cor. xiii. 4, 5.)"), "([1 Cor. xiii. 4], [5].)");
    EXPECT_EQ(Bracketed("as vv. 3-5, ver. 7 and ch. 3:16f."), "as [vv. 3-5], [ver. 7] and [ch. 3:16f].");
    EXPECT_EQ(Bracketed("ver. 3 of Ps. xl."), "[ver. 3 of Ps. xl].");
    EXPECT_EQ(Bracketed("Who cries. (3-5)"), "Who cries. ([3-5])");
    EXPECT_EQ(Bracketed("Jude 5f"), "[Jude 5f]");
}

// Dashes and wide blanks of the code pages and of UTF-8.
TEST(ReferencesInText, HaveDashesOfBothKinds) {
    EXPECT_EQ(Bracketed("Rom 8:28\x96"
                        "30"),
              "[Rom 8:28\x96"
              "30]");
    EXPECT_EQ(Bracketed("Gen. i. 1\x97ii. 3"), "[Gen. i. 1\x97ii. 3]");
    EXPECT_EQ(Bracketed("\xEF\xBB\xBFRom 8:28\xE2\x80\x93"
                        "30"),
              "\xEF\xBB\xBF[Rom 8:28\xE2\x80\x93"
              "30]");
    EXPECT_EQ(Bracketed("Gen 1:1\xE2\x80\x94"
                        "2:3"),
              "[Gen 1:1\xE2\x80\x94"
              "2:3]");
    EXPECT_EQ(Bracketed("Rom\xA0"
                        "8:28"),
              "[Rom\xA0"
              "8:28]");
    EXPECT_EQ(Bracketed("Rom.\xC2\xA0"
                        "8:28, \xE2\x80\xAF"
                        "30"),
              "[Rom.\xC2\xA0"
              "8:28], \xE2\x80\xAF[30]");
    EXPECT_EQ(Bracketed("\x93Rom 8:28\x94"), "\x93[Rom 8:28]\x94");
    EXPECT_EQ(Bracketed("\xC9Rom 8:28"), "\xC9Rom 8:28") << "the end of a word";
}

TEST(ReferencesInText, LeaveListsToTheirOwnKind) {
    EXPECT_EQ(MeaningsIn("Rom 8:28\r\n# Ge 1:1; Ex 5\r\nPs 1:1"), "Ro 8:28, Ps 1:1");
    EXPECT_EQ(MeaningsIn("Rom 8:28 # Ge 1:1"), "Ro 8:28");
}

TEST(ReferencesInText, AreFoundByAPlace) {
    const std::vector<TextReference> references = ReferencesOf("see Rom 8:28, 30.");
    ASSERT_EQ(references.size(), 2u);
    for (std::size_t place = 0; place < 20; ++place) {
        const TextReference* expected = nullptr;
        if (place >= 4 && place < 12) expected = &references[0];
        if (place >= 14 && place < 16) expected = &references[1];
        EXPECT_EQ(ReferenceAt(references, place), expected) << place;
    }
    EXPECT_EQ(ReferenceAt({}, 0), nullptr);
}

// Every verse, as the program and as a reader writes it.
TEST(ReferencesInText, NameEveryVerse) {
    for (int verse = 0; verse < kVerseCount; verse += 7) {
        const std::string shortName = ReferenceText(TextRecords(), verse, BookForm::kAbbreviation);
        EXPECT_EQ(MeaningsIn("see " + shortName + "."), shortName);
        EXPECT_EQ(MeaningsIn("(" + ReferenceText(TextRecords(), verse, BookForm::kName) + ")"), shortName);
    }
}

// Whatever the text is: in order, apart, in the text, and verses that exist.
TEST(ReferencesInText, AreInOrderInAnyText) {
    static constexpr std::string_view kParts[] = {"Rom",  "1",   "2 ",   "Cor", ":",  ".",    ",",    ";",        " ",
                                                  "-",    "iv",  "xiii", "v.",  "ch", "f",    "and",  "(",        ")",
                                                  "\r\n", "Ps ", "119",  "to",  "#",  "\x96", "Jude", "\xE2\x80", "&"};
    std::mt19937 random(1);
    std::vector<TextReference> references;
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (int i = 0; i < 12; ++i) text += kParts[random() % std::size(kParts)];
        FindReferences(TextChapters(), RecordOf(TextRecords(), static_cast<int>(random() % kVerseCount)), text,
                       references);
        std::size_t end = 0;
        for (const TextReference& one : references) {
            ASSERT_TRUE(one.begin >= end && one.size > 0 && one.begin + one.size <= text.size()) << text;
            ASSERT_TRUE(one.first >= 0 && one.first <= one.last && one.last < kVerseCount) << text;
            end = one.begin + one.size;
        }
    }
}
