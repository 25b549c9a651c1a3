// Tests that the pages about copying, saving and printing are true: each sentence is compared with what the program
// writes and prints.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <set>

#include "help/made_help.h"
#include "output/copy_text.h"
#include "output/save_text.h"
#include "passage/passage_copy.h"
#include "print/print_flow.h"
#include "tests/support/hand_made_scripture.h"
#include "verselist/verse_list_copy.h"

using testing::HasSubstr;

// Verses with everything that a setting can change: a new chapter and a new book, pilcrows and supplied words.
static const HandMadeFiles& Files() {
    static const HandMadeVerse kVerses[] = {{1, 49, 33,
                                             "\xB6"
                                             "And [he was] dead"},
                                            {1, 50, 1,
                                             "\xB6"
                                             "And"},
                                            {1, 50, 2, "so"},
                                            {2, 1, 1, "Now"}};
    static const HandMadeFiles files = MakeFiles(kVerses);
    return files;
}

static const std::vector<std::int32_t> kAll = {0, 1, 2, 3};

// The text of a page with one blank between words.
static std::string Sentences(const std::string& page) {
    const std::string text = std::regex_replace(HelpPages().at(page).text, std::regex("\\s+"), " ");
    return std::regex_replace(text, std::regex("\xE2\x80[\x9C\x9D]"), "\"");
}

// ---- What the format changes ----------------------------------------------------------------------------------------

namespace {

struct Note {
    int verse;
    const char* text;
};

}  // namespace

static NoteFound NoteOf(void* device, int verse, std::string& text) {
    const Note& note = *static_cast<const Note*>(device);
    if (verse != note.verse) return NoteFound::kNone;
    text = note.text;
    return NoteFound::kNote;
}

static bool Append(void* device, std::string_view bytes) {
    static_cast<std::string*>(device)->append(bytes);
    return true;
}

static std::string CopiedRange(const FormatOptions& format) {
    return CopyRangeText(ScriptureOf(Files()), format, 0, 3, RangeCopyBudget(0, 3)).text;
}

static std::string CopiedList(const FormatOptions& format) {
    return CopyListText(ScriptureOf(Files()), format, kAll, ListCopyBudget(ScriptureOf(Files()), kAll)).text;
}

static std::string CopiedSelection(const FormatOptions& format) {
    const Selection selection{kPassageOwns, {0, 0}, {3, 1}};
    VerseList list;
    FillVerseList(list, kAll);
    return PassageCopyText(ScriptureOf(Files()), {}, format.Brackets != 0, selection) +
           VerseListCopyText(ScriptureOf(Files()), list, format.Brackets != 0, selection);
}

static std::string SavedRange(const FormatOptions& format, Note note = {-1, ""}) {
    std::string saved;
    const NoteSource notes{&note, NoteOf};
    SaveRangeText(ScriptureOf(Files()), format, 0, 3, &notes, {&saved, Append});
    return saved;
}

static std::string SavedList(const FormatOptions&) {
    std::string saved;
    SaveListText(ScriptureOf(Files()), kAll, {&saved, Append});
    return saved;
}

// A printer that writes down each text with its face and place.
static std::string Printed(const PrintOptions& options) {
    std::string paper;
    const PrinterPage page{
        &paper,
        [](void*, PrintFace, std::string_view text) { return 10 * static_cast<int>(text.size()); },
        [](void*, PrintFace) { return 20; },
        [](void* device, PrintFace face, int x, int y, int, std::string_view text) {
            std::string& tape = *static_cast<std::string*>(device);
            tape += "rbin"[static_cast<int>(face)];
            tape += std::to_string(x) + ',' + std::to_string(y) + ':' + std::string(text) + '|';
        },
        [](void*) { return true; },
        [](void*) { return true; },
        [](void*) { return true; },
    };
    EXPECT_EQ(PrintVerses(ScriptureOf(Files()), kAll, options, page), PrintResult::kPrinted);
    return paper;
}

static constexpr PageBox kBox{0, 0, 5000, 5000};

static std::string PrintedRange(const FormatOptions& format) {
    return Printed(RangePrinting(kBox, format, {}, nullptr));
}

static std::string PrintedList(const FormatOptions&) {
    return Printed(ListPrinting(kBox, {}));
}

using Settings = std::set<std::string>;

// The settings that change the output in at least one combination with the others.
static Settings FollowedBy(const std::function<std::string(const FormatOptions&)>& output) {
    static const struct {
        const char* name;
        void (*change)(FormatOptions& format);
    } kChanges[] = {
        {"labels", [](FormatOptions& format) { format.FirstVerseStyle = 1; }},
        {"labels", [](FormatOptions& format) { format.SubsequentVerseStyle = 2; }},
        {"place", [](FormatOptions& format) { format.Location = kLabelAfter; }},
        {"breaks", [](FormatOptions& format) { format.LineBreaks = 0; }},
        {"marks", [](FormatOptions& format) { format.ParagraphMarks = 0; }},
        {"brackets", [](FormatOptions& format) { format.Brackets = 1; }},
    };
    Settings followed;
    for (const auto& [name, change] : kChanges) {
        FormatOptions changed;
        change(changed);
        if (output(changed) != output({})) followed.insert(name);
    }
    return followed;
}

TEST(HelpOnFormat, TellsWhichOutputFollowsWhichSetting) {
    const Settings all = {"labels", "place", "breaks", "marks", "brackets"};
    const struct {
        std::string (*output)(const FormatOptions&);
        Settings follows;
        const char* line;
    } rows[] = {
        {CopiedRange, all, "Copy Verse, Copy Range    all of them"},
        {[](const FormatOptions& format) { return SavedRange(format); },
         {"labels", "place", "breaks", "marks"},
         "Save Range                all but brackets"},
        {PrintedRange, {"labels", "breaks", "marks"}, "Print Range               labels, breaks, marks"},
        {CopiedList, {"brackets"}, "Copy Verse List           brackets only"},
        {CopiedSelection, {"brackets"}, "the copy of a selection   brackets only"},
        {SavedList, {}, "Save Verse List           none"},
        {PrintedList, {}, "Print Verse List          none"},
    };
    for (const auto& [output, follows, line] : rows) {
        EXPECT_EQ(FollowedBy(output), follows) << line;
        EXPECT_THAT(HelpPages().at("ID_Edit_Format").text, HasSubstr(line));
    }
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

TEST(HelpOnSaving, TellsWhereTheEmptyLinesAreAroundANote) {
    const std::string page = Sentences("ID_File_SaveRange");
    FormatOptions format;
    EXPECT_THAT(page, HasSubstr("two empty lines before the note and one after it"));
    EXPECT_THAT(SavedRange(format, {2, "A note"}), HasSubstr(" 2 so\r\n\r\n\r\nA note\r\n\r\n Ex 1:1 "));
    format.LineBreaks = 0;
    EXPECT_THAT(page, HasSubstr("is off, there is one on each side"));
    EXPECT_THAT(SavedRange(format, {2, "A note"}), HasSubstr(" 2 so\r\n\r\nA note\r\n\r\n Ex 1:1 "));
}

TEST(HelpOnSaving, TellsHowTheListIsWritten) {
    EXPECT_THAT(Sentences("ID_File_SaveRange"),
                HasSubstr("each on a line of its own with book, chapter and verse, always with pilcrows and brackets"));
    const std::string lines = " Ge 49:33 \xB6 And [he was] dead\r\n Ge 50:1 \xB6 And\r\n Ge 50:2 so\r\n Ex 1:1 Now\r\n";
    EXPECT_EQ(SavedList({}), lines + '\0');
}

// ---- Printing -------------------------------------------------------------------------------------------------------

TEST(HelpOnPrinting, TellsWhichLabelsAreOnPaper) {
    const std::string page = Sentences("ID_File_PrintRange");
    FormatOptions format;
    format.FirstVerseStyle = 2;
    format.Location = kLabelAfter;
    EXPECT_THAT(page, HasSubstr("always stand before the verse and have the full name of the book, and the first verse "
                                "of each new book has a full label"));
    EXPECT_THAT(Sentences("ID_Edit_Format"), HasSubstr("On paper, Partial always gives chapter and verse"));
    EXPECT_THAT(PrintedRange(format), HasSubstr("b0,40: 50:2 |r60,40:so|b0,60: Exodus 1:1 |r120,60:Now|"));
    EXPECT_THAT(page, HasSubstr("In the list every verse has a full label."));
    EXPECT_THAT(PrintedList({}), HasSubstr("b0,40:Genesis 50:2 |r130,40:so|b0,60:Exodus 1:1 |r110,60:Now|"));
}

TEST(HelpOnPrinting, TellsWhatStandsBetweenVersesWithoutLabels) {
    EXPECT_THAT(Sentences("ID_File_PrintRange"), HasSubstr("a blank stands between them"));
    const FormatOptions without{2, 2, kLabelBefore, 0, 0, 0};
    EXPECT_THAT(PrintedRange(without), HasSubstr(":dead|r180,0:And|r220,0:so|"));
}

TEST(HelpOnPrinting, TellsHowSuppliedWordsArePrinted) {
    EXPECT_THAT(Sentences("ID_File_PrintRange"),
                HasSubstr("in italics with brackets, in plain type with brackets, or in plain type without brackets"));
    const auto words = [](std::int8_t italics) {
        ReadingOptions reading;
        reading.Italics = italics;
        const std::string paper = Printed(ListPrinting(kBox, reading));
        return std::regex_replace(paper.substr(0, paper.find(",20:")), std::regex("[0-9]+,[0-9]+:"), "");
    };
    EXPECT_THAT(words(kItalicType), HasSubstr("|r[|ihe |iwas|r]|"));
    EXPECT_THAT(words(kBracketed), HasSubstr("|r[he |rwas] |"));
    EXPECT_THAT(words(kPlainType), HasSubstr("|rhe |rwas|"));
}

// Margins come in thousandths of an inch or, where the system measures in millimetres, in hundredths of a millimetre.
TEST(HelpOnPrinting, TellsWhatBecomesOfMargins) {
    const std::string page = Sentences("ID_File_PrintRange");
    const auto inches = [](int margin) {
        return PageBoxFor({5000, 5000, 100, 100}, {margin, margin, margin, margin}).left / 100;
    };
    EXPECT_THAT(page, HasSubstr("half an inch becomes none, and one and a half inches become one"));
    EXPECT_EQ(inches(500), 0);
    EXPECT_EQ(inches(1500), 1);
    EXPECT_THAT(page, HasSubstr("9 mm become none, 10 mm one inch, and 25 mm two"));
    EXPECT_EQ(inches(900), 0);
    EXPECT_EQ(inches(1000), 1);
    EXPECT_EQ(inches(2500), 2);
}
