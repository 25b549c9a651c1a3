// The pages of the help about the text, and the page about it that is put beside the program.

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <regex>
#include <sstream>

#include "help/made_help.h"
#include "tests/support/native_scripture.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static const std::string kHowSure =
    "conformed to the Pure Cambridge Edition as its editor published it: no known difference but hyphens in names, "
    "which one of the two copies does not show";

static std::string OnOneLine(const std::string& text) {
    return std::regex_replace(text, std::regex("\\s+"), " ");
}

static std::string PageBesideTheProgram() {
    return FileBytes(VERSEWELL_HELP_DIR "/Which text this is.html");
}

// What stands between these tags, each time.
static std::vector<std::string> Contents(const std::string& html, const std::string& tag) {
    std::vector<std::string> contents;
    std::size_t end = 0;
    for (std::size_t at = html.find("<" + tag + ">"); at != std::string::npos; at = html.find("<" + tag + ">", end)) {
        at += tag.size() + 2;
        end = html.find("</" + tag + ">", at);
        contents.push_back(html.substr(at, end - at));
    }
    return contents;
}

// Without links, which lead elsewhere on the page alone.
static std::vector<std::string> Paragraphs(const std::string& html) {
    std::vector<std::string> paragraphs;
    for (const std::string& text : Contents(html, "p"))
        paragraphs.push_back(OnOneLine(std::regex_replace(text, std::regex("<a [^>]*>[^<]*</a>"), "")));
    return paragraphs;
}

TEST(TextPages, LinkByTitleBesideTheProgram) {
    const std::string page = OnOneLine(PageBesideTheProgram());
    for (const char* topic : {"ID_Text_Corrected", "ID_Text_Conformed", "ID_Text_Differences"})
        EXPECT_THAT(page, testing::ContainsRegex("<a [^>]*>" + HelpPages().at(topic).title + "</a>"));
    EXPECT_THAT(page, Not(testing::ContainsRegex("(Section|page) [0-9]")));
}

TEST(TextPages, AreAllOnThePageBesideTheProgram) {
    const std::string beside = PageBesideTheProgram();
    const std::vector<std::string> paragraphs = Paragraphs(beside);
    std::vector<std::string> lists;
    for (const char* topic : {"ID_Text", "ID_Text_Corrected", "ID_Text_Conformed", "ID_Text_Differences"}) {
        const std::string& html = HelpPages().at(topic).html;
        for (const std::string& paragraph : Paragraphs(html))
            if (paragraph.find_first_not_of(" |") != std::string::npos) {  // not the line of links to other pages
                EXPECT_THAT(paragraphs, testing::Contains(paragraph));
            }
        for (const std::string& list : Contents(html, "pre")) lists.push_back(list);
    }
    EXPECT_THAT(lists, Not(IsEmpty()));
    EXPECT_EQ(Contents(beside, "pre"), lists);
}

static std::ptrdiff_t CountPlaces(const std::string& topic) {
    std::ptrdiff_t count = 0;
    for (const std::string& list : Contents(HelpPages().at(topic).html, "pre")) {
        std::istringstream lines(list);
        for (std::string line; std::getline(lines, line);) count += line.find(':') != std::string::npos;
    }
    return count;
}

TEST(TextPages, ListEveryPlace) {
    std::ifstream table(VERSEWELL_SOURCE_DIR "/data/edition_differences.tsv");
    std::ptrdiff_t rows = -1;  // the names of the columns
    for (std::string row; std::getline(table, row);) ++rows;
    EXPECT_EQ(CountPlaces("ID_Text_Corrected"), 66);
    EXPECT_EQ(CountPlaces("ID_Text_Conformed"), 176);
    EXPECT_EQ(CountPlaces("ID_Text_Differences"), rows);
}

static std::string WithComma(int number) {
    return std::to_string(number / 1000) + "," + std::to_string(number % 1000 + 1000).substr(1);
}

TEST(TextPages, TellTheCountsOfTheText) {
    const std::span<const char> text = TheRealScripture().text;
    const auto verses = static_cast<int>(TheRealScripture().records.bytes.size() / kVerseRecordSize);
    const auto italics = static_cast<int>(std::ranges::count(text, '['));
    const std::string page = HelpPages().at("ID_Text").text;
    const std::string words = WithComma(WordCount(TheRealWordIndex()));
    EXPECT_THAT(page, HasSubstr(WithComma(verses) + " verses"));
    EXPECT_THAT(page, HasSubstr(words + " different words"));
    EXPECT_THAT(page, HasSubstr(WithComma(italics) + " places in italics"));
    EXPECT_THAT(OnOneLine(HelpPages().at("ID_Search_WordList").text), HasSubstr("all " + words + " words"));
}

TEST(TextPages, AreAsSureAsTheReadme) {
    EXPECT_THAT(HelpPages().at("ID_Text").text, HasSubstr(kHowSure));
    EXPECT_THAT(OnOneLine(FileBytes(VERSEWELL_SOURCE_DIR "/README.md")), HasSubstr(kHowSure));
}

// The spellings that the page says the text has, and those that it says are gone.
TEST(TextPages, NameSpellingsOfTheText) {
    const std::string page = OnOneLine(HelpPages().at("ID_Text").text);
    const std::span<const char> all = TheRealScripture().text;
    const std::string_view text(all.data(), all.size());
    for (const char* word : {"inquire", "counseller", "rasor", "ancle", "expences", "Maranatha"}) {
        EXPECT_THAT(page, HasSubstr(word));
        EXPECT_NE(text.find(word), std::string_view::npos) << word;
    }
    for (const char* word : {"enquire", "counsellor", "razor", "ankle", "expenses"}) {
        EXPECT_THAT(page, HasSubstr(word));
        EXPECT_EQ(text.find(word), std::string_view::npos) << word;
    }
}
