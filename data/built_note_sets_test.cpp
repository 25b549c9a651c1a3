// Compares the note sets from the build with the table of readings and the scripture files. They are read here by
// independent code.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "data/built_scripture.h"
#include "notes/cross_references.h"
#include "tests/support/native_scripture.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

static constexpr std::size_t kVerses = 31102;

namespace {

struct CsvReading {
    int month = 0;
    int day = 0;
    bool isEvening = false;
    std::string reference;
    int verse = 0;
};

}  // namespace

static std::vector<CsvReading> TheCsvReadings() {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/resources/devotional.csv");
    std::vector<CsvReading> readings;
    std::string row;
    std::getline(file, row);
    while (std::getline(file, row)) {
        std::istringstream fields(row);
        std::string month, day, time, reference, verse;
        for (std::string* field : {&month, &day, &time, &reference, &verse}) std::getline(fields, *field, ',');
        readings.push_back({std::stoi(month), std::stoi(day), time == "evening", reference, std::stoi(verse)});
    }
    return readings;
}

static std::vector<std::uint32_t> NumbersOf(const std::string& name) {
    const std::string bytes = BytesOfBuiltFile(name);
    std::vector<std::uint32_t> numbers;
    for (std::size_t at = 0; at + 3 < bytes.size(); at += 4) {
        std::uint32_t number = 0;
        for (std::size_t i = 4; i > 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
        numbers.push_back(number);
    }
    return numbers;
}

static std::vector<std::string> NotesOfSet(const std::string& name) {
    std::istringstream bytes(BytesOfBuiltFile(name + ".nmd"));
    std::vector<std::string> notes;
    for (std::string note; std::getline(bytes, note, '\0');) notes.push_back(note);
    return notes;
}

static const std::vector<std::string>& TheNotes() {
    static const std::vector<std::string> notes = NotesOfSet("Morning and Evening");
    return notes;
}

static const std::string& NoteOn(const std::string& reference) {
    return TheNotes().at(static_cast<std::size_t>(IndexOf(reference)));
}

static std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

TEST(BuiltNoteSets, IndexMatchesTheNotes) {
    for (const std::string name : {"Morning and Evening", "My Notes"}) {
        const std::vector<std::string> notes = NotesOfSet(name);
        const std::vector<std::uint32_t> offsets = NumbersOf(name + ".nmi");
        ASSERT_EQ(notes.size(), kVerses) << name;
        ASSERT_EQ(offsets.size(), kVerses) << name;
        std::uint32_t offset = 0;
        for (std::size_t verse = 0; verse < kVerses; ++verse) {
            ASSERT_EQ(offsets[verse], offset) << name << ' ' << verse;
            offset += static_cast<std::uint32_t>(notes[verse].size() + 1);
        }
        EXPECT_EQ(BytesOfBuiltFile(name + ".nmd").size(), offset) << name;
    }
    EXPECT_EQ(BytesOfBuiltFile("My Notes.nmd"), std::string(kVerses, '\0'));
}

TEST(BuiltNoteSets, DevotionalTableMatchesTheCsv) {
    std::vector<std::uint32_t> expected(12 * 31 * 2, 0);
    for (const CsvReading& reading : TheCsvReadings())
        expected[static_cast<std::size_t>(((reading.month - 1) * 31 + reading.day - 1) * 2 + reading.isEvening)] =
            static_cast<std::uint32_t>(reading.verse);
    EXPECT_EQ(BytesOfBuiltFile("Morning and Evening.dti").size(), 2976u);
    EXPECT_EQ(NumbersOf("Morning and Evening.dti"), expected);
}

namespace {

struct SlotRow {
    int month, day;
    std::uint32_t morning, evening;
};

}  // namespace

TEST(BuiltNoteSets, ContainKnownReadings) {
    static constexpr SlotRow kRows[] = {
        {1, 1, 5946, 17541},
        {1, 2, 29544, 18452},
        {1, 5, 3, 3},
        {12, 31, 26365, 19173},
    };
    const std::vector<std::uint32_t> table = NumbersOf("Morning and Evening.dti");
    for (const SlotRow& row : kRows) {
        const auto slot = static_cast<std::size_t>(((row.month - 1) * 31 + row.day - 1) * 2);
        EXPECT_EQ(table.at(slot), row.morning) << row.month << ' ' << row.day;
        EXPECT_EQ(table.at(slot + 1), row.evening) << row.month << ' ' << row.day;
    }
}

TEST(BuiltNoteSets, NotesContainDayTextAndReference) {
    static constexpr const char* kMonths[] = {"January", "February", "March",     "April",   "May",      "June",
                                              "July",    "August",   "September", "October", "November", "December"};
    std::set<int> read;
    for (const CsvReading& reading : TheCsvReadings()) {
        const auto verse = static_cast<std::size_t>(reading.verse);
        const std::string& note = TheNotes().at(verse);
        const std::string day = kMonths[reading.month - 1] + (" " + std::to_string(reading.day)) + ", ";
        const std::string text = PlainText(TheBuiltScripture().verses.at(verse).text);
        const std::string name = ReferenceText(TheRealScripture().records, reading.verse, BookForm::kName);
        EXPECT_EQ(Count(note, day), 1u) << note;
        const std::string times = note.substr(note.find(day), note.find('\r', note.find(day)) - note.find(day));
        EXPECT_THAT(times, HasSubstr(reading.isEvening ? "Evening" : "Morning")) << note;
        EXPECT_EQ(Count(note, "\r\n\r\n" + text + "\r\n" + name + "\r\n\r\n"), 1u) << note;
        read.insert(reading.verse);
    }
    for (int verse = 0; verse < static_cast<int>(kVerses); ++verse)
        EXPECT_EQ(TheNotes()[static_cast<std::size_t>(verse)].empty(), !read.contains(verse)) << verse;
}

// The verses of all cross-reference lines of a note, in order, as the program reads them.
static std::vector<int> LinkedVerses(const std::string& note, int verse) {
    std::vector<int> verses;
    for (std::size_t at = note.find('#'); at != std::string::npos; at = note.find('#', at + 1)) {
        EXPECT_TRUE(at > 0 && note[at - 1] == '\n') << note;
        for (const int linked : CrossReferences(TheRealScripture().records, note, at, verse)) verses.push_back(linked);
    }
    return verses;
}

TEST(BuiltNoteSets, NotesLinkToTheOtherReadingOfTheDay) {
    std::map<int, std::vector<int>> expected;
    const std::vector<CsvReading> readings = TheCsvReadings();
    for (std::size_t i = 0; i < readings.size(); ++i) {
        const int other = readings[i % 2 == 0 ? i + 1 : i - 1].verse;
        if (other != readings[i].verse || i % 2 == 0) expected[readings[i].verse].push_back(other);
    }
    for (const auto& [verse, others] : expected)
        EXPECT_EQ(LinkedVerses(TheNotes().at(static_cast<std::size_t>(verse)), verse), others) << verse;
}

TEST(BuiltNoteSets, NotesAreCleanText) {
    for (const std::string& note : TheNotes()) {
        EXPECT_TRUE(std::all_of(note.begin(), note.end(), [](char c) {
            return (c >= ' ' && c <= '~') || c == '\r' || c == '\n';
        })) << note;
        EXPECT_EQ(Count(note, "\r"), Count(note, "\r\n")) << note;
        EXPECT_EQ(Count(note, "\n"), Count(note, "\r\n")) << note;
        EXPECT_EQ(Count(note, "\r\n\r\n\r\n") + Count(note, " \r\n") + Count(note, "["), 0u) << note;
    }
}

TEST(BuiltNoteSets, NotesHaveTheExpectedLayout) {
    EXPECT_THAT(NoteOn("Jos 5:12"), AllOf(StartsWith("January 1, Morning\r\n\r\nAnd the manna ceased on the morrow"),
                                          EndsWith("\r\nJoshua 5:12\r\n\r\nThe evening's reading:\r\n# So 1:4")));
    EXPECT_THAT(NoteOn("So 1:4"),
                StartsWith("January 1, Evening\r\nJanuary 23, Evening\r\nAugust 7, Morning\r\n\r\nDraw me, we will"));
    EXPECT_THAT(NoteOn("Ge 1:4"), StartsWith("January 5, Morning and Evening\r\nJuly 9, Evening\r\n\r\n"));
}
