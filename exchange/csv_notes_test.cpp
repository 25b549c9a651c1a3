#include "exchange/csv_notes.h"

#include <gmock/gmock.h>

#include "exchange/csv_table.h"
#include "tests/support/exchange_samples.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

static const int kCsvVerse = VerseAt("Romans", 8, 28);

static ExchangedNotes ReadCsv(std::string_view file) {
    return ReadCsvNotes(TestContext(), file);
}

TEST(CsvNotes, AreWrittenAsATable) {
    ExchangedNotes notes{"My, Notes", {{kCsvVerse, "=1+1\r\n\"x\"", DigestOf("x")}}};
    EXPECT_EQ(WriteCsvNotes(TestContext(), notes, {}),
              "\xEF\xBB\xBFSet,Book,Chapter,Verse,Reference,Note,Mark\r\n"
              "\"My, Notes\",Romans,8,28,Romans 8:28,\"'=1+1\n\"\"x\"\"\",imnmbgid guarded\r\n");
}

static std::string RowOf(const std::string& set, const std::string& note) {
    const std::string file = WriteCsvNotes(TestContext(), {set, {{kCsvVerse, note, {}}}}, {});
    return file.substr(file.find("\r\n") + 2);
}

// Spreadsheets begin a formula with each of these signs, or behind a tab.
TEST(CsvNotes, HaveNoFormulas) {
    for (const std::string note : {"=1+1", "+1", "-1", "- an item", "@sum(1)", "\t=1+1", "'=1+1", "''-"}) {
        EXPECT_EQ(RowOf("Mine", note), "Mine,Romans,8,28,Romans 8:28,\"'" + note + "\",guarded\r\n");
        EXPECT_EQ(ReadCsv(WriteCsvNotes(TestContext(), {"Mine", {{kCsvVerse, note, {}}}}, {})).notes.at(0).note, note);
    }
    for (const std::string note : {"1=1", "'tis", "'", " =1"})
        EXPECT_EQ(RowOf("Mine", note), "Mine,Romans,8,28,Romans 8:28,\"" + note + "\",\r\n");
    EXPECT_EQ(RowOf("=1", "x"), "'=1,Romans,8,28,Romans 8:28,\"x\",guarded\r\n");
}

TEST(CsvNotes, LoseTheirApostropheOnlyIfTheMarkSaysSo) {
    const ExchangedNotes notes = ReadCsv(
        "Reference,Note,Mark\nRomans 8:28,'=1,imnmbgid\nRomans 8:29,'tis,guarded\nRomans 8:30,=1,guarded\n"
        "Romans 8:31,''=1,Guarded escaped\n");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kCsvVerse, "'=1"), Pair(kCsvVerse + 1, "'tis"),
                                             Pair(kCsvVerse + 2, "=1"), Pair(kCsvVerse + 3, "'=1")));
}

TEST(CsvNotes, MayHaveOtherColumnsAndSeparators) {
    for (const char* file : {
             "note,verse,BOOK,chapter,extra\n\"a, b\",28,Romans,8,x\n",
             "Ref;Notes\r\nRomans 8:28;a, b\r\n",
             "Notes\tPassage\tx\r\"a, b\"\tRo 8.28\r\r",
             "sep=|\nNote|Reference\na, b|45 Romans 8:28\n",
             "\xEF\xBB\xBF Reference , Note\nRomans 8:28, \"a, b\"",
             "Book,Chapter,Note,Verse\n45,8,\"a, b\",28",
         }) {
        const ExchangedNotes notes = ReadCsv(file);
        EXPECT_EQ(notes.error, "") << file;
        EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kCsvVerse, "a, b"))) << file;
        EXPECT_THAT(notes.unplaced, IsEmpty()) << file;
    }
}

TEST(CsvNotes, NeedTheirHeadings) {
    EXPECT_EQ(ReadCsv("").error, "The file is empty.");
    EXPECT_EQ(ReadCsv("\n\nRomans 8:28,text\n").error, "Line 3: no column has the heading \"Note\".");
    EXPECT_EQ(ReadCsv("Book,Note\nRomans,text\n").error,
              "Line 1: no column has the heading \"Reference\", nor are there \"Book\" and \"Chapter\".");
    EXPECT_EQ(ReadCsv("Reference,Note\n").error, "There are no notes in this file.");
}

static std::vector<std::string> UnplacedIn(const ExchangedNotes& notes) {
    std::vector<std::string> lines;
    for (const UnplacedText& text : notes.unplaced)
        lines.push_back(std::to_string(text.line) + '|' + text.where + '|' + text.reason + '|' + text.text);
    return lines;
}

TEST(CsvNotes, SayWhatTheyCannotPlace) {
    const ExchangedNotes notes = ReadCsv(
        "Set,Book,Chapter,Verse,Reference,Note\n"
        "a,Romans,8,28,Romans 8:28,\"first\nlines\"\n"
        "a,Romans,8,29,Romans 8:30,two\n"
        "b,Romans,8,31,,other\n"
        "a,,,,,nowhere\n"
        "a,Romans,8,99,,none\n"
        "a,Romans,8,32,Romans 8:32,unquoted, text\n"
        "a,Romans,8,33,Romans 8:33,\"open, \"\"text\nmore");
    EXPECT_THAT(PlacedIn(notes), ElementsAre(Pair(kCsvVerse, "first\r\nlines")));
    EXPECT_EQ(notes.setName, "a");
    EXPECT_THAT(
        UnplacedIn(notes),
        ElementsAre("4|Romans 8:30|The columns name two different verses.|two",
                    "5|Romans 8:31|This is a note of another set.|b, Romans, 8, 31, , other",
                    "6||This names no verse.|nowhere", "7|Romans 8:99|There is no such verse.|none",
                    "8|Romans 8:32|There are more cells than headings; a text with separators needs quotation marks.|"
                    "a, Romans, 8, 32, Romans 8:32, unquoted,  text",
                    "9|Romans 8:33|The quotation mark that opens here is not closed.|"
                    "a, Romans, 8, 33, Romans 8:33, open, \"text\r\nmore"));
}

// ---- Tables ---------------------------------------------------------------------------------------------------------

static std::vector<std::vector<std::string>> CellsOf(std::string_view text) {
    std::vector<std::vector<std::string>> cells;
    for (const CsvRow& row : CsvRowsOf(text)) cells.push_back(row.cells);
    return cells;
}

TEST(CsvTable, HasCells) {
    using Row = std::vector<std::string>;
    EXPECT_THAT(CellsOf(""), IsEmpty());
    EXPECT_THAT(CellsOf("\n\n,,\n"), IsEmpty());
    EXPECT_THAT(CellsOf("a,b\nc"), ElementsAre(Row{"a", "b"}, Row{"c"}));
    EXPECT_THAT(CellsOf("a,,\n,b"), ElementsAre(Row{"a", "", ""}, Row{"", "b"}));
    EXPECT_THAT(CellsOf("\"a\"\"b\",\"\"\"\",\"\n\""), ElementsAre(Row{"a\"b", "\"", "\n"}));
    EXPECT_THAT(CellsOf("a\"b\",\"c\"d"), ElementsAre(Row{"a\"b\"", "cd"}));
    EXPECT_THAT(CellsOf("sep=\nx"), ElementsAre(Row{"sep="}, Row{"x"}));
    EXPECT_THAT(CellsOf("sep=|"), IsEmpty());
    EXPECT_THAT(CellsOf("sep=|\na|b,c"), ElementsAre(Row{"a", "b,c"}));
    EXPECT_THAT(CellsOf("sep="), ElementsAre(Row{"sep="}));
}
