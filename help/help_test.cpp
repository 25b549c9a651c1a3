// Tests of the built help in all its formats: every topic has a page, every page can be reached, and examples, keys and
// menu commands in the text match the program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "help/made_help.h"
#include "help/winhelp_file.h"
#include "notes/cross_references.h"
#include "resources/help_topics.h"
#include "resources/script_fixture.h"
#include "scripture/books.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static const HelpPageText& Page(const std::string& name) {
    return HelpPages().at(name);
}

// Every topic that the program's sources name.
static std::vector<std::string> TopicsOfProgram() {
    const std::string source = FileBytes(VERSEWELL_SOURCE_DIR "/resources/help_topics.h");
    static const std::regex kTopic("\"(ID_\\w+)\"");
    std::vector<std::string> topics;
    for (std::sregex_iterator hit(source.begin(), source.end(), kTopic), end; hit != end; ++hit)
        topics.push_back((*hit)[1]);
    return topics;
}

static std::vector<std::string> TopicPages() {
    std::vector<std::string> names;
    for (const auto& [name, page] : HelpPages())
        if (name.starts_with("ID_")) names.push_back(name);
    return names;
}

TEST(HelpTopics, EveryTopicInTheProgramHasAPage) {
    const std::vector<std::string> topics = TopicsOfProgram();
    EXPECT_THAT(topics, Contains(kTopicSpecifyRange));
    EXPECT_THAT(topics, Contains(kTopicPreface));
    for (const std::string& topic : topics) EXPECT_TRUE(HelpPages().contains(topic)) << topic;
}

TEST(HelpTopics, HaveTheNamesThatDialogsUse) {
    for (const char* topic :
         {"ID_SpecifyRange", "ID_Preface",         "ID_Search_Word",     "ID_Search_WordList", "ID_Search_Phrase",
          "ID_Search_Near",  "ID_Search_SetRange", "ID_Read_GoToVerse",  "ID_Edit_CopyVerse",  "ID_Edit_CopyRange",
          "ID_Edit_Format",  "ID_File_SaveRange",  "ID_File_PrintRange", "ID_Notes_GotoVerse", "ID_Notes_Edit",
          "ID_Notes_Create", "ID_Search_Notes",    "ID_Notes_List",      "ID_Notes_Export",    "ID_Notes_Import"})
        EXPECT_THAT(TopicPages(), Contains(topic));
}

TEST(HelpFiles, HaveTheNamesThatTheProgramUses) {
    EXPECT_STREQ(kHelpFile, "quill97.hlp");
    for (const char* name : {"quill97.hlp", "quill97.cnt", "help/index.html", "help/help.css"})
        EXPECT_TRUE(std::filesystem::exists(std::string(VERSEWELL_HELP_DIR "/") + name)) << name;
}

// Nothing would open another one.
TEST(HelpFiles, AreOnlyThoseThatTheProgramOpens) {
    std::vector<std::string> endings;
    for (const auto& entry : std::filesystem::directory_iterator(VERSEWELL_HELP_DIR))
        if (entry.path().stem() == "quill97") endings.push_back(entry.path().extension().string());
    EXPECT_THAT(endings, testing::UnorderedElementsAre(".hlp", ".cnt"));
}

TEST(WinHelpFile, OpensEveryTopicAtItsPage) {
    const WinHelpFile file = ReadWinHelpFile(FileBytes(VERSEWELL_HELP_DIR "/quill97.hlp"));
    for (const std::string& topic : TopicPages()) {
        const std::string title = TopicTitle(file, topic);
        EXPECT_TRUE(title.starts_with(Page(topic).title + ", ")) << topic << " opens \"" << title << "\"";
    }
    EXPECT_EQ(TopicTitle(file, "ID_Nothing"), "");
}

// Otherwise a viewer, which halves the list to find a topic, does not find some of them.
TEST(WinHelpFile, HasItsTopicsInTheOrderOfSignedNumbers) {
    const WinHelpFile file = ReadWinHelpFile(FileBytes(VERSEWELL_HELP_DIR "/quill97.hlp"));
    EXPECT_GE(file.hashes.size(), TopicPages().size());
    EXPECT_TRUE(
        std::ranges::is_sorted(file.hashes, {}, [](std::uint32_t hash) { return static_cast<std::int32_t>(hash); }));
}

TEST(WinHelpFile, ListsEveryTopicInItsContents) {
    const std::string contents = FileBytes(VERSEWELL_HELP_DIR "/quill97.cnt");
    for (const std::string& topic : TopicPages())
        EXPECT_THAT(contents, HasSubstr(Page(topic).title + "=" + topic + "\n"));
}

TEST(HelpPages, HaveNoBrokenLinks) {
    for (const auto& [name, page] : HelpPages()) {
        for (const std::string& link : page.links) {
            const size_t hash = link.find('#');
            const std::string file = link.substr(0, hash);
            ASSERT_TRUE(file.ends_with(".html")) << name << " leads to " << link;
            const auto target = HelpPages().find(file.substr(0, file.size() - 5));
            ASSERT_NE(target, HelpPages().end()) << name << " leads to " << link;
            if (hash == std::string::npos) continue;
            EXPECT_THAT(target->second.anchors, Contains(link.substr(hash + 1))) << name;
        }
    }
}

static bool LeadsTo(const HelpPageText& page, const std::string& topic) {
    return std::any_of(page.links.begin(), page.links.end(), [&](const std::string& link) {
        return link == topic + ".html" || link.starts_with(topic + ".html#");
    });
}

TEST(HelpPages, AreAllListedInTheContents) {
    for (const std::string& topic : TopicPages()) EXPECT_TRUE(LeadsTo(Page("index"), topic)) << topic;
}

TEST(HelpPages, AreNamedInLinksByTheirTitles) {
    int named = 0;
    for (const auto& [name, page] : HelpPages()) {
        ASSERT_EQ(page.links.size(), page.linkTexts.size()) << name;
        for (size_t i = 0; i < page.links.size(); ++i) {
            const std::string target = page.links[i].substr(0, page.links[i].find('.'));
            if (!target.starts_with("ID_") || page.linkTexts[i] == "Previous" || page.linkTexts[i] == "Next") continue;
            EXPECT_EQ(page.linkTexts[i], Page(target).title) << name;
            ++named;
        }
    }
    EXPECT_GT(named, 200);
}

// The fixed font of the WinHelp viewer is wide, and browsers show a narrow column.
TEST(HelpPages, HaveNoExamplesWiderThanAPage) {
    for (const auto& [name, page] : HelpPages()) {
        for (const std::string& example : page.examples) {
            std::istringstream lines(example);
            for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 64u) << name << ": " << line;
        }
    }
    for (const std::string& example : Page("ID_Keys").examples) {
        std::istringstream lines(example);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 50u) << line;
    }
}

// The opening pages of chapters only lead to other pages, so they have no index entries.
TEST(HelpPages, AreInTheIndexExceptChapterOpenings) {
    const std::set<std::string> openings = {"ID_Reading", "ID_Searching", "ID_Output", "ID_Notes", "ID_More"};
    for (const std::string& topic : TopicPages())
        EXPECT_NE(LeadsTo(Page("IndexPage"), topic), openings.contains(topic)) << topic;
}

TEST(HelpPages, PassTheSpellingCheck) {
    const std::string text = testing::TempDir() + "help-text.txt";
    std::ofstream out(text);
    for (const auto& [name, page] : HelpPages()) {
        const std::string prose = std::regex_replace(page.html, std::regex("<(head|code)>[^]*?</(head|code)>"), " ");
        out << std::regex_replace(std::regex_replace(prose, std::regex("<[^>]*>"), " "), std::regex("\xE2\x80\x99"),
                                  "'");
    }
    out.close();
    const std::string command = HUNSPELL " -i UTF-8 -d en_GB -p " VERSEWELL_SOURCE_DIR "/help/words.txt -l ";
    EXPECT_EQ(OutputOf(command + text + " | sort -u"), "");
}

// ---- Content of the pages -------------------------------------------------------------------------------------------

static std::string Plain(std::string text) {
    std::erase(text, '&');
    text.erase(std::find(text.begin(), text.end(), '\t'), text.end());
    if (text.ends_with("...")) text.resize(text.size() - 3);
    return text;
}

// Path of every item and popup of the menus: "Notes, Note Sets, Create New Note Set".
static std::set<std::string> WaysThroughMenus() {
    std::set<std::string> ways;
    for (const MenuItem& item : Script().menu) {
        std::string way;
        for (const std::string& popup : item.popups) {
            way += way.empty() ? Plain(popup) : ", " + Plain(popup);
            ways.insert(way);
        }
        ways.insert(way + ", " + Plain(item.text));
    }
    return ways;
}

TEST(HelpText, NamesCommandsAsTheMenusDo) {
    const std::set<std::string> ways = WaysThroughMenus();
    EXPECT_THAT(ways, Contains("Search, Word(s)"));
    int named = 0;
    for (const auto& [name, page] : HelpPages()) {
        for (const std::string& emphasized : page.emphasized) {
            std::string way = std::regex_replace(emphasized, std::regex("\\s+"), " ");
            way = std::regex_replace(way, std::regex("\xE2\x80\x99"), "'");
            const bool isWay = way.find(", ") != std::string::npos && ways.contains(way.substr(0, way.find(", ")));
            if (!isWay) continue;
            ++named;
            EXPECT_TRUE(ways.contains(way)) << name << ": " << way;
        }
    }
    EXPECT_GT(named, 15);
}

// The index has each command under its name, except those that are named after a book, a bookmark or a day.
TEST(HelpIndex, HasEveryCommandOfTheMenus) {
    std::string index = Page("IndexPage").text;
    std::transform(index.begin(), index.end(), index.begin(), [](unsigned char c) { return std::tolower(c); });
    int commands = 0;
    for (const MenuItem& item : Script().menu) {
        const std::string text = Plain(item.text);
        const bool hasOwnName = item.text.find("...") != std::string::npos || item.popups.size() == 1;
        const bool isBookmark = item.popups.front() == "&Bookmarks";
        if (text.empty() || !hasOwnName || isBookmark) continue;
        std::string entry = text;
        std::transform(entry.begin(), entry.end(), entry.begin(), [](unsigned char c) { return std::tolower(c); });
        EXPECT_THAT(index, HasSubstr("\n" + entry + ": ")) << text;
        ++commands;
    }
    EXPECT_GT(commands, 55);
}

TEST(HelpText, ListsEveryKeyOfTheMenus) {
    std::set<std::string> listed;
    for (const std::string& table : Page("ID_Keys").examples) {
        std::istringstream lines(table);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream keys(line.substr(0, line.find("  ")));
            for (std::string key; std::getline(keys >> std::ws, key, ',');) listed.insert(key);
        }
    }
    EXPECT_THAT(listed, Contains("Ctrl+1 to 0"));
    EXPECT_THAT(listed, Contains("Ctrl+Alt+1 to 0"));
    std::set<int> explained;  // commands; further keys of a command need no line
    for (const Accelerator& accelerator : Script().accelerators)
        if (listed.contains(accelerator.key)) explained.insert(accelerator.command);
    for (const Accelerator& accelerator : Script().accelerators) {
        const bool isBookmark = accelerator.key.starts_with("Ctrl+") && std::isdigit(accelerator.key.back());
        EXPECT_TRUE(isBookmark || explained.contains(accelerator.command)) << accelerator.key;
    }
    for (const MenuItem& item : Script().menu) {
        const std::size_t tab = item.text.find('\t');
        const std::string key = tab == std::string::npos ? "" : item.text.substr(tab + 1);
        const bool isBookmark = key.starts_with("Ctrl+") && std::isdigit(key.back());
        EXPECT_TRUE(key.empty() || isBookmark || listed.contains(key)) << item.text;
    }
}

// Each line of the page has what is typed and what it means; "the same" repeats the meaning of the line before.
TEST(HelpText, ExplainsVersesAsTheProgramReadsThem) {
    const std::regex line("(.*\\S) {2,}(.*)");
    const VerseRecords& records = TheRealScripture().records;
    std::string meaning;
    int lines = 0;
    for (const std::string& example : Page(kTopicGotoVerse).examples) {
        std::istringstream text(example);
        std::smatch parts;
        for (std::string row; std::getline(text, row);) {
            if (!std::regex_match(row, parts, line)) continue;
            if (parts[2] != "the same") meaning = parts[2];
            const ParsedReference typed = ParseReference(records, parts[1]);
            ASSERT_TRUE(typed.ok) << row;
            EXPECT_EQ(ReferenceText(records, typed.verse, BookForm::kName), meaning) << row;
            ++lines;
        }
    }
    EXPECT_EQ(lines, 5);
}

TEST(HelpText, ListsEveryBookWithItsAbbreviation) {
    const std::string lines = Page("ID_Books").text;
    for (int book = 1; book <= kBookCount; ++book) {
        const std::regex entry("(^|\\s)" + std::string(BookAbbreviation(book)) + " +" + BookName(book) +
                               "(\\s\\s|\\n)");
        EXPECT_TRUE(std::regex_search(lines, entry)) << BookName(book);
    }
    const VerseRecords& records = TheRealScripture().records;
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "Is 53").verse, BookForm::kName), "Isaiah 53:1");
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "J 3").verse, BookForm::kName), "Joshua 3:1");
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "1 S 3:5").verse, BookForm::kName), "Genesis 1:5");
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "Ps 23:99").verse, BookForm::kName), "Psalms 23:6");
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "Ps 151:2").verse, BookForm::kName), "Psalms 150:6");
}

// The book that a reference leads to; "" if it is not understood.
static std::string BookOf(const std::string& typed) {
    const VerseRecords& records = TheRealScripture().records;
    const ParsedReference reference = ParseReference(records, typed + " 1:1");
    return reference.ok ? BookName(RecordOf(records, reference.verse).book) : "";
}

// The first book whose abbreviation is what was typed, or else whose name begins so.
static std::string BookByThePage(const std::string& typed) {
    for (int book = 1; book <= kBookCount; ++book)
        if (typed.starts_with(BookAbbreviation(book))) return BookName(book);
    for (int book = 1; book <= kBookCount; ++book)
        if (std::string_view(BookName(book)).starts_with(typed)) return BookName(book);
    return "";
}

TEST(HelpText, ExplainsBeginningsOfNamesAsTheProgramReadsThem) {
    int beginnings = 0;
    for (int book = 1; book <= kBookCount; ++book) {
        const std::string name = BookName(book);
        const size_t shortest = std::isdigit(static_cast<unsigned char>(name[0])) ? 4 : 1;  // "1 Sa"
        for (size_t length = shortest; length <= name.substr(0, name.find(" of ")).size(); ++length, ++beginnings) {
            const std::string typed = name.substr(0, length);
            const std::string wanted = shortest == 1 ? BookByThePage(typed) : name;
            EXPECT_EQ(BookOf(typed), wanted) << typed;
        }
        if (shortest == 4) {
            EXPECT_EQ(BookOf(name.substr(0, 3)), "Genesis") << name;  // "1 S"
        }
    }
    EXPECT_GT(beginnings, 300);
}

TEST(HelpText, NamesBooksThatAreReadAsOthersOrNotAtAll) {
    const std::string books = Page("ID_Books").html;
    for (const char* unknown : {"Mk", "Lk", "Jn", "Jdg"}) {
        EXPECT_EQ(BookOf(unknown), "");
        EXPECT_THAT(books, HasSubstr("<code>" + std::string(unknown) + "</code>"));
    }
    const std::vector<std::string>& examples = Page(kTopicSpecifyRange).examples;
    const VerseRecords& records = TheRealScripture().records;
    EXPECT_THAT(examples, Contains("1 Jn 1:9"));
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "1 Jn 1:9").verse, BookForm::kName), "Genesis 1:9");
    EXPECT_THAT(examples, Contains("Song of Solomon 2:1"));
    EXPECT_EQ(ReferenceText(records, ParseReference(records, "Song of Solomon 2:1").verse, BookForm::kName),
              "Song of Solomon 1:1");
    EXPECT_FALSE(ParseRange(records, "Song of Solomon 2:1").ok);
}

static std::string Named(const std::string& line, const std::string& noteVerse) {
    const VerseRecords& records = TheRealScripture().records;
    std::string named;
    for (const int verse : CrossReferences(records, line, line.size(), ParseReference(records, noteVerse).verse))
        named += (named.empty() ? "" : ", ") + ReferenceText(records, verse, BookForm::kAbbreviation);
    return named;
}

TEST(HelpText, ExplainsCrossReferencesAsTheProgramReadsThem) {
    static const struct {
        const char* example;
        const char* verses;
    } kRows[] = {{"# Ge 1:1; Ex 2:4, 6-8; Joh 3:16", "Ge 1:1, Ex 2:4, Ex 2:6, Ex 2:7, Ex 2:8, Joh 3:16"},
                 {"1John 1:9", "1Jo 1:9"},
                 {"1J 1:9", "1Jo 1:9"},
                 {"Ex 5", "Ex 3:5"},
                 {"Ex 5:1", "Ex 5:1"}};
    std::string examples;
    for (const std::string& example : Page("ID_Notes_CrossReferences").examples) examples += "\n" + example + "\n";
    for (const auto& [example, verses] : kRows) {
        EXPECT_THAT(examples, HasSubstr("\n" + std::string(example) + "\n"));
        EXPECT_EQ(Named(std::string("# ") + example, "Ge 3:2"), verses) << example;
    }
}

namespace {

struct RangeExample {
    const char* typed;
    const char* first;
    const char* last;
};

}  // namespace

// The examples of the page about ranges, with the meaning given there.
static constexpr RangeExample kRangeExamples[] = {
    {"Ge - Re", "Ge 1:1", "Re 22:21"},
    {"Mt - Re", "Mt 1:1", "Re 22:21"},
    {"Ge - Mal", "Ge 1:1", "Mal 4:6"},
    {"Ps", "Ps 1:1", "Ps 150:6"},
    {"Ps 23", "Ps 23:1", "Ps 23:6"},
    {"Joh 3:16", "Joh 3:16", "Joh 3:16"},
    {"Joh 3:16 - 3:21", "Joh 3:16", "Joh 3:21"},
    {"Ge 1 - 3", "Ge 1:1", "Ge 3:24"},
    {"Ge 1:1 - Ex 2:4", "Ge 1:1", "Ex 2:4"},
    {"2 Sam 7 - 1 Ki 2", "2Sa 7:1", "1Ki 2:46"},
    {"Re 22:21 - 22:1", "Re 22:1", "Re 22:21"},
    {"Ge 1:1-5", "Ge 1:1", "Ge 5:32"},
    {"Ge 1:1 - 1:5", "Ge 1:1", "Ge 1:5"},
    {"Ge 1 - Ex 2:3", "Ge 1:3", "Ge 1:3"},
    {"Jo", "Jos 1:1", "Jos 24:33"},
    {"Joh", "Joh 1:1", "Joh 21:25"},
    {"Phil", "Php 1:1", "Php 4:23"},
    {"Phm", "Phm 1:1", "Phm 1:25"},
    {"1 John", "1Jo 1:1", "1Jo 5:21"},
    {"1John", "1Jo 1:1", "1Jo 5:21"},
    {"Ge 1 3", "Ge 13:1", "Ge 13:18"},
    {"So", "So 1:1", "So 8:14"},
    {"Song", "So 1:1", "So 8:14"},
    {"3:16", "Ge 3:16", "Ge 3:16"},
};

TEST(HelpText, ExplainsRangesAsTheProgramReadsThem) {
    const VerseRecords& records = TheRealScripture().records;
    std::string examples;
    for (const std::string& example : Page(kTopicSpecifyRange).examples) examples += "\n" + example + "  ";
    for (const RangeExample& example : kRangeExamples) {
        EXPECT_THAT(examples, HasSubstr("\n" + std::string(example.typed) + "  "));
        const ParsedRange range = ParseRange(records, example.typed);
        ASSERT_TRUE(range.ok) << example.typed;
        EXPECT_EQ(ReferenceText(records, range.first, BookForm::kAbbreviation), example.first) << example.typed;
        EXPECT_EQ(ReferenceText(records, range.last, BookForm::kAbbreviation), example.last) << example.typed;
    }
}
