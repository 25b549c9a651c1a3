// Notes on paper: their lines, tab stops and long words.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "print/print_flow.h"
#include "tests/support/paper_tape.h"

static PrintJob WithNote(const std::string& note, FormatOptions format = LabelStyles(2, 2)) {
    PrintJob job = RangeJob({{1, 1, 1, "a"}, {1, 1, 2, "b"}}, format);
    job.notes = {{0, note}};
    job.withNotes = true;
    return job;
}

TEST(PrintedNotes, FollowTheirVerseAfterAnEmptyLine) {
    EXPECT_EQ(Printed(WithNote("See also")), "(r100,1000:a|n100,1040:See|n140,1040:also|r100,1053:b|)");
    FormatOptions inOneLine = LabelStyles(2, 2);
    inOneLine.LineBreaks = 0;
    EXPECT_EQ(Printed(WithNote("See", inOneLine)), "(r100,1000:a|n100,1040:See|r100,1053:b|)");
}

TEST(PrintedNotes, BreakTheirLinesAtReturns) {
    EXPECT_EQ(Printed(WithNote("one\r\ntwo\r\n\r\n three\n four")),
              "(r100,1000:a|n100,1040:one|n100,1053:two|n110,1079:three|n170,1079:four|r100,1092:b|)");
    EXPECT_EQ(Printed(WithNote("li\nne  x \r\n")), "(r100,1000:a|n100,1040:line|n160,1040:x|r100,1066:b|)");
}

TEST(PrintedNotes, WrapWithTheirOwnLineHeight) {
    PrintJob job = WithNote("one two");
    job.box.right = 140;
    EXPECT_EQ(Printed(job), "(r100,1000:a|n100,1040:one|n100,1053:two|r100,1066:b|)");
}

TEST(PrintedNotes, AreSplitIntoPiecesOfAHundredLetters) {
    PrintJob job = WithNote(std::string(250, 'n'));
    job.box.right = 1200;
    const std::string hundred(100, 'n'), fifty(50, 'n');
    EXPECT_EQ(Printed(job),
              "(r100,1000:a|n100,1040:" + hundred + "|n100,1053:" + hundred + "|n100,1066:" + fifty + "|r100,1079:b|)");
    job.notes[0] = std::string(100, 'n') + " x";
    EXPECT_EQ(Printed(job), "(r100,1000:a|n100,1040:" + hundred + "|n1110,1040:x|r100,1053:b|)");
}

TEST(PrintedNotes, LeaveBlankUpToTheNextTabStop) {
    const struct {
        const char* note;
        const char* tape;
    } rows[] = {
        {"a\tb", "n100,1040:a|n140,1040:b|"},       {"abc\td", "n100,1040:abc|n140,1040:d|"},
        {"abcd\te", "n100,1040:abcd|n180,1040:e|"},  // at a stop: up to the next one
        {"\ta\t\tb", "n140,1040:a|n220,1040:b|"},   {"a \t b", "n100,1040:a|n150,1040:b|"},
        {"a\t\r\n\tb", "n100,1040:a|n140,1053:b|"},
    };
    for (const auto& [note, tape] : rows) {
        PrintJob job = WithNote(note);
        job.verses.pop_back();
        job.tabDistance = 40;
        EXPECT_EQ(Printed(job), "(r100,1000:a|" + std::string(tape) + ")") << note;
    }
}

TEST(PrintedNotes, WrapAfterATabThatLeavesNoRoom) {
    const struct {
        int right;
        const char* tape;
    } rows[] = {
        {160, "n100,1040:a|n140,1040:bc|"},  // ends at the right edge
        {159, "n100,1040:a|n100,1053:bc|"},  // would fit if the tab were a blank
        {130, "n100,1040:a|n100,1053:bc|"},  // the stop is beyond the right edge
    };
    for (const auto& [right, tape] : rows) {
        PrintJob job = WithNote("a\tbc");
        job.verses.pop_back();
        job.tabDistance = 40;
        job.box.right = right;
        EXPECT_EQ(Printed(job), "(r100,1000:a|" + std::string(tape) + ")") << right;
    }
}

TEST(PrintedNotes, BreakAWordThatIsWiderThanALine) {
    const struct {
        int right;
        const char* note;
        const char* tape;
    } rows[] = {
        {150, "abcde", "n100,1040:abcde|"},
        {149, "abcde", "n100,1040:abcd|n100,1053:e|"},
        {130, "abcdefgh i", "n100,1040:abc|n100,1053:def|n100,1066:gh|n100,1079:i|"},
        {150, "a bcdefgh i", "n100,1040:a|n100,1053:bcdef|n100,1066:gh|n130,1066:i|"},
        {110, "abc", "n100,1040:a|n100,1053:b|n100,1066:c|"},
        // Too narrow for a single character: one on each line, like a word that is wider than a line.
        {105, "abc", "n100,1053:a|n100,1066:b|n100,1079:c|"},
        {50, "abc", "n100,1053:a|n100,1066:b|n100,1079:c|"},
    };
    for (const auto& [right, note, tape] : rows) {
        PrintJob job = WithNote(note);
        job.verses.pop_back();
        job.verses[0].text = "";
        job.box.right = right;
        EXPECT_EQ(Printed(job), "(" + std::string(tape) + ")") << right << note;
    }
}

TEST(PrintedNotes, BreakALongWordAcrossPages) {
    PrintJob job = WithNote("abcdefgh");
    job.verses.pop_back();
    job.box.right = 130;
    job.box.bottom = 1067;
    EXPECT_EQ(Printed(job), "(r100,1000:a|n100,1040:abc|n100,1053:def|)(n100,1000:gh|)");
    PaperTape tape;
    tape.failingPage = 2;
    EXPECT_EQ(Print(job, tape), PrintResult::kCannotStartPage);
    EXPECT_EQ(tape.tape, "(r100,1000:a|n100,1040:abc|n100,1053:def|)");
}

// On the narrowest paper, too.
TEST(PrintedNotes, LoseNothingOfLongWords) {
    const std::string word(9999, 'w');
    for (const int right : {0, 100, 105, 110, 123, 999, 1100, 1101, 5000}) {
        PrintJob job = WithNote(word);
        job.verses.pop_back();
        job.box.right = right;
        job.box.bottom = 1020;
        const std::string tape = Printed(job);
        EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(tape, 'w')), word.size()) << right;
        EXPECT_EQ(tape.find(std::string(101, 'w')), std::string::npos) << right;
    }
}

TEST(PrintedNotes, ContinueOnTheNextPage) {
    PrintJob job = WithNote("one\rtwo\rthree");
    job.box.bottom = 1067;
    EXPECT_EQ(Printed(job), "(r100,1000:a|n100,1040:one|n100,1053:two|)(n100,1000:three|r100,1013:b|)");
}

TEST(PrintedNotes, AreOptional) {
    PrintJob job = WithNote("See");
    job.withNotes = false;
    EXPECT_EQ(Printed(job), "(r100,1000:a|r100,1020:b|)");
    job.notes.clear();
    job.withNotes = true;
    EXPECT_EQ(Printed(job), "(r100,1000:a|r100,1020:b|)");
}

TEST(PrintedNotes, StopAtAPageThatCannotBeStarted) {
    for (const char* note : {"one\rtwo\rthree\rfour", "one\rtwo\rthree four", "one\rtwo\rthree"}) {
        PrintJob job = WithNote(note);
        job.box.bottom = 1067;
        PaperTape tape;
        tape.failingPage = 2;
        EXPECT_EQ(Print(job, tape), PrintResult::kCannotStartPage);
        EXPECT_EQ(tape.tape, "(r100,1000:a|n100,1040:one|n100,1053:two|)");
    }
}

TEST(PrintedNotes, StopTheJobWhenTheyCannotBeRead) {
    PaperTape tape;
    EXPECT_EQ(Print(WithNote(kUnreadableNote), tape), PrintResult::kCannotReadNotes);
    EXPECT_EQ(tape.tape, "(r100,1000:a|)");
}

// ---- Notes in UTF-8 -------------------------------------------------------------------------------------------------

static std::string Utf8Note(std::u16string_view letters) {
    return std::string(kUtf8Mark) + Utf8Of(letters);
}

TEST(PrintedNotes, KeepLettersBeyondTheCodePage) {
    EXPECT_EQ(Printed(WithNote(Utf8Note(u"\u03B1\u03B2 c\r\n\u05D0"))),
              "(r100,1000:a|u100,1040:" + Utf8Of(u"\u03B1\u03B2") +
                  "|u120,1040: |u130,1040:c|u100,1053:" + Utf8Of(u"\u05D0") + "|r100,1066:b|)");
    EXPECT_EQ(Printed(WithNote(std::string(kUtf8Mark) + "\xE9")),
              "(r100,1000:a|n100,1040:" + std::string(kUtf8Mark) + "\xE9|r100,1053:b|)")
        << "one in the code page, whatever it begins with";
}

TEST(PrintedNotes, DivideLongWordsBetweenLetters) {
    std::u16string letters(250, u'\u03B1');
    PrintJob job = WithNote(Utf8Note(letters));
    job.box.right = 1200;
    const std::string hundred = Utf8Of(letters.substr(0, 100)), fifty = Utf8Of(letters.substr(0, 50));
    EXPECT_EQ(Printed(job),
              "(r100,1000:a|u100,1040:" + hundred + "|u100,1053:" + hundred + "|u100,1066:" + fifty + "|r100,1079:b|)");
    job = WithNote(Utf8Note(u"\u05D0\u05B0\u05D1\u05B0\u05BC\u05D2"));
    job.box.right = 120;  // room for two letters, but points stay with theirs
    EXPECT_EQ(Printed(job), "(r100,1000:a|u100,1040:" + Utf8Of(u"\u05D0\u05B0") + "|u100,1053:" +
                                Utf8Of(u"\u05D1\u05B0\u05BC") + "|u100,1066:" + Utf8Of(u"\u05D2") + "|r100,1079:b|)");
}
