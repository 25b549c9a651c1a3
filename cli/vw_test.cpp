// The program with surroundings of the test's own: what its golden files, which run the real one, cannot show.
#include "cli/vw.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "cli/described.h"
#include "cli/manual.h"
#include "output/copy_text.h"
#include "search/search_engine.h"
#include "tests/support/checked_objects.h"
#include "tests/support/fake_surroundings.h"
#include "tests/support/native_scripture.h"
#include "tests/support/real_note_files.h"

using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct VwTest : testing::Test {
    FakeSurroundings fake;

    int Run(const std::vector<std::string>& words) {
        fake.output.clear();
        fake.errors.clear();
        return RunVw(words, SurroundingsOver(fake));
    }
};

}  // namespace

// Copies have "\r\n" and a blank before each verse; none of these verses has letters outside of ASCII but the mark.
static std::string AsRead(std::string copied) {
    std::string read;
    for (std::size_t at = 0; at < copied.size(); ++at) {
        if (copied[at] == '\r' || (copied[at] == ' ' && (at == 0 || copied[at - 1] == '\n'))) continue;
        read += copied[at] == '\xB6' ? "\xC2\xB6" : std::string(1, copied[at]);
    }
    return read;
}

TEST_F(VwTest, ReadsWhatTheWindowCopies) {
    const Scripture& scripture = TheRealScripture();
    const char* const labels[] = {"full", "partial", "none"};
    for (int i = 0; i < 36; ++i) {
        const FormatOptions format{.FirstVerseStyle = static_cast<std::int8_t>(i % 3),
                                   .SubsequentVerseStyle = static_cast<std::int8_t>(i / 3 % 3),
                                   .Location = i % 2 == 0 ? std::int8_t{kLabelBefore} : std::int8_t{kLabelAfter},
                                   .LineBreaks = 1,
                                   .ParagraphMarks = i % 4 < 2 ? 1 : 0,
                                   .Brackets = i % 5 < 2 ? 1 : 0};
        std::vector<std::string> words = {"read", "Ge 50:1 - Ex 2:3", "--labels",
                                          std::string(labels[i % 3]) + "," + labels[i / 3 % 3]};
        if (format.Location == kLabelAfter) words.push_back("--labels-after");
        if (format.ParagraphMarks == 0) words.push_back("--no-paragraphs");
        if (format.Brackets != 0) words.push_back("--brackets");
        ASSERT_EQ(Run(words), 0) << fake.errors;
        const int first = VerseLookup(scripture.records, 1, 50, 1), last = VerseLookup(scripture.records, 2, 2, 3);
        const CopyText copy = CopyRangeText(scripture, format, first, last, RangeCopyBudget(first, last));
        EXPECT_EQ(fake.output, AsRead(copy.text)) << i;
    }
}

TEST_F(VwTest, FindsWhatTheWindowFinds) {
    HitCounters hits;
    for (const char* text : {"grace", "the", "lord", "faith hope", "xyzzy"}) {
        const Query query = QueryOf(text, {}, QueryKind::kWords);
        const SearchResult result = Search(TheRealScripture(), TheRealWordIndex(), query, {}, hits);
        EXPECT_EQ(Run({"find", text}), result.verses.empty() ? 1 : 0);
        const CopyText copy =
            CopyListText(TheRealScripture(), {}, result.verses, ListCopyBudget(TheRealScripture(), result.verses));
        EXPECT_EQ(fake.output, AsRead(copy.text)) << text;
        Run({"find", text, "--count"});
        EXPECT_EQ(fake.output, SearchSummary(result) + "\n");
    }
}

// A terminal has the count as its last line, colours, its own width, and the pager.
TEST_F(VwTest, KnowsATerminal) {
    Run({"find", "grace", "--range", "Ge 6"});
    EXPECT_EQ(fake.output, "Ge 6:8 But Noah found grace in the eyes of the LORD.\n");
    EXPECT_EQ(fake.pagers, 0);
    fake.isTerminal = fake.showsColors = true;
    fake.columns = 30;
    Run({"find", "grace", "--range", "Ge 6"});
    EXPECT_EQ(fake.output,
              "\x1b[1mGe 6:8\x1b[0m But Noah found \x1b[1;31mgrace\x1b[0m in\nthe eyes of the LORD.\n1 verse, 1 "
              "occurance\n");
    EXPECT_EQ(fake.pagers, 1);
    fake.variables["NO_COLOR"] = "1";
    Run({"find", "grace", "--range", "Ge 6"});
    EXPECT_EQ(fake.output, "Ge 6:8 But Noah found grace in\nthe eyes of the LORD.\n1 verse, 1 occurance\n");
    Run({"find", "grace", "--range", "Ge 6", "--color", "always"});
    EXPECT_THAT(fake.output, HasSubstr("\x1b[1;31mgrace"));
    Run({"find", "grace", "--range", "Ge 6", "--json", "--color", "always"});
    EXPECT_EQ(fake.output.find('\x1b'), std::string::npos);
    EXPECT_EQ(fake.pagers, 3);
}

TEST_F(VwTest, EndsWithItsReader) {
    fake.written = Written::kClosed;
    EXPECT_EQ(Run({"read", "Ge - Re"}), 0);
    EXPECT_THAT(fake.errors, IsEmpty());
    EXPECT_EQ(fake.writes, 1);
    fake.written = Written::kFailed;
    EXPECT_EQ(Run({"read", "Jude"}), 3);
    EXPECT_EQ(fake.errors, "vw: output: cannot be written\n");
}

TEST_F(VwTest, KnowsToday) {
    fake.today = {2028, 2, 29};
    Run({"today", "--proverb"});
    EXPECT_THAT(fake.output, testing::StartsWith("February 29\n\nPr 29:1 "));
}

TEST_F(VwTest, LooksInSeveralFolders) {
    fake.textFolders = {"/nowhere", VERSEWELL_DATA_DIR};
    EXPECT_EQ(Run({"read", "John 11:35"}), 0);
    fake.textFolders = {"/nowhere", "/neither"};
    EXPECT_EQ(Run({"read", "John 11:35"}), 3);
    EXPECT_EQ(fake.errors, "vw: --data: no scripture files (_av*.dat) in /nowhere, /neither\n");
}

// Every command with --json, each object of which must be as the manual tells.
TEST_F(VwTest, PrintsObjectsAsDescribed) {
    const std::string folder = MakeScratchFolder();
    WriteWholeFile(folder + "Damaged.nmd", {});
    WriteWholeFile(folder + "Damaged.nmd.temp", {});
    fake.hasNotes = true;
    fake.edit = [](std::string& text) {
        text += "more, as in Rom 8:27-29";
        return true;
    };
    const std::vector<std::vector<std::string>> runs = {
        {"read", "Ps 117"},
        {"find", "grace", "--range", "Ro"},
        {"find", "faith", "hope", "--near", "9"},
        {"find", "grace", "--refs"},
        {"find", "grace", "--count"},
        {"find", "grace", "--by-book"},
        {"words", "lov*"},
        {"what", "1 Jn 1:9", "Jude", "Foo 3"},
        {"today", "11-23"},
        {"text"},
        {"text", "--differences"},
        {"notes", "sets", "--folder", VERSEWELL_DATA_DIR},
        {"notes", "show", "Ge 1:1-31", "--folder", VERSEWELL_DATA_DIR},
        {"notes", "list", "--range", "Ge 1 - 3", "--folder", VERSEWELL_DATA_DIR},
        {"notes", "export", folder + "a.csv", "--set", "Morning and Evening", "--folder", VERSEWELL_DATA_DIR},
        {"notes", "import", folder + "a.csv", "--new", "A", "--folder", folder, "--dry-run"},
        {"notes", "import", folder + "a.csv", "--new", "A", "--folder", folder},
        {"notes", "edit", "Ge 1:1", "--set", "A", "--folder", folder},
        {"notes", "edit", "Ge 1:1", "--set", "A", "--folder", folder},
        {"notes", "search", "more", "--set", "A", "--folder", folder},
        {"notes", "about", "Rom 8:28", "--folder", folder},
        {"notes", "history", "Ge 1:1", "--set", "A", "--folder", folder},
        {"notes", "verify", "--folder", folder},
        {"doctor", "--folder", folder},
    };
    std::set<std::string> kinds;
    for (std::vector<std::string> words : runs) {
        words.push_back("--json");
        Run(words);
        EXPECT_THAT(WrongObjects(fake.output, kinds), IsEmpty()) << words[0];
    }
    EXPECT_EQ(kinds, KindsOfSchema());
    RemoveScratchFolder(folder);
}

TEST(Manual, NamesEveryCommandAndOption) {
    const DescribedProgram program = DescribeProgram();
    const std::string manual = ManualPage(program, "1.2.3");
    EXPECT_THAT(manual, HasSubstr("vw 1.2.3"));
    EXPECT_GE(program.commands.size(), 7u);
    for (const DescribedCommand& command : RunCommandsOf(program)) {
        EXPECT_THAT(manual, HasSubstr(".SS " + command.name));
    }
    for (const DescribedCommand& command : program.commands) {
        for (const char* shell : {"bash", "zsh", "fish", "powershell"})
            EXPECT_THAT(CompletionFor(program, shell).value(), HasSubstr(command.name));
    }
    EXPECT_THAT(manual, HasSubstr("\\fB\\-\\-near\\fR \\fIN\\fR"));
    EXPECT_THAT(manual, HasSubstr("\\fB\\-\\-json\\fR"));
    EXPECT_FALSE(CompletionFor(program, "tcsh"));
}
