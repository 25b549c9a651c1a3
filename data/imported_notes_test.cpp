#include "data/imported_notes.h"

#include <gmock/gmock.h>

#include "notes/note_saving.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Key;
using testing::Not;
using testing::Pair;
using testing::StartsWith;

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

static int VerseOf(const std::string& reference) {
    return ParseReference(Records(), reference).verse;
}

// Reads one reference in the program's format; "none" is no reference, "4" a verse of the current chapter.
static std::vector<VerseRange> ReadPlainly(void*, const std::string& text, int verse) {
    if (text == "none") return {};
    const VerseRecord here = RecordOf(Records(), verse);
    const int read = text.find(' ') == std::string::npos
                         ? VerseLookup(Records(), here.book, here.chapter, std::stoi(text))
                         : VerseOf(text);
    return {{read, read}};
}

static constexpr ReferenceReader kReader{nullptr, ReadPlainly};

static CommentaryEntry On(const char* first, const char* last, const char* text) {
    return {{VerseOf(first), VerseOf(last)}, text, false};
}

static std::string Lines(std::initializer_list<const char*> lines) {
    std::string text;
    for (const char* line : lines) text.append(text.empty() ? "" : "\r\n").append(line);
    return text;
}

TEST(Commentary, BecomesNotesWithCrossReferenceLines) {
    const ImportedNotes imported = NotesOfCommentary(
        {On("Joh 3:16", "Joh 3:16",
            "<title>Love</title><p>See <reference osisRef=\"Ro 5:8\">Romans</reference>, <reference "
            "osisRef=\"4\">verse 4</reference>.</p>"
            "<p>caf\u00E9 \u2014</p><table><row>a</row><row>b</row></table><l>one</l><l>two</l><reference "
            "osisRef=\"none\"/>"),
         On("Joh 3:17", "Joh 3:17", "<p> </p>"),
         On("Joh 4:1", "Joh 4:1", "Last <reference osisRef=\"Work:Heb 1:4\">there</reference>")},
        Records(), kReader);
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(VerseOf("Joh 3:16"), Lines({"Love", "", "See Romans, verse 4.", "# Ro 5:8; Joh 3:4",
                                                             "", "caf\xE9 \x97", "", "a", "b", "", "one", "two"})),
                            Pair(VerseOf("Joh 4:1"), Lines({"Last there", "# Heb 1:4"}))));
    EXPECT_EQ(imported.referenceLines, 2);
    EXPECT_EQ(imported.notesInUtf8, 0);
    EXPECT_EQ(imported.cutNotes, 0);
}

// The headings and lines of references, too, are in the one encoding of the note.
TEST(Commentary, KeepsLettersThatTheCodePageLacks) {
    const ImportedNotes imported = NotesOfCommentary(
        {On("Joh 1:1", "Joh 1:2",
            "<p>caf\u00E9: \u1F10\u03BD \u1F00\u03C1\u03C7\u1FC7, <reference osisRef=\"Ge 1:1\"/></p>"),
         On("Joh 1:3", "Joh 1:3", "<p>caf\u00E9</p>"),
         On("Joh 1:4", "Joh 1:4", "<p>\u05D1\u05BC\u05E8\u05D0</p><p>caf\xE9\u00A0\u2014</p>")},
        Records(), kReader);
    const int verse = VerseOf("Joh 1:1");
    EXPECT_THAT(
        imported.notes,
        ElementsAre(
            Pair(verse,
                 std::string(kUtf8Mark) +
                     Lines({"Joh 1:1 - Joh 1:2", "", "caf\u00E9: \u1F10\u03BD \u1F00\u03C1\u03C7\u1FC7,", "# Ge 1:1"})),
            Pair(verse + 1, "# Joh 1:1"), Pair(verse + 2, "caf\xE9"),
            Pair(verse + 3, std::string(kUtf8Mark) + Lines({"\u05D1\u05BC\u05E8\u05D0", "", "caf\u00E9 \u2014"}))));
    EXPECT_EQ(imported.notesInUtf8, 2);
    EXPECT_EQ(imported.replaced.blanks, 1);
}

TEST(Commentary, PutsIntroductionsFirst) {
    const ImportedNotes imported =
        NotesOfCommentary({{{0, 0}, "<chapter/>", true},
                           {{0, 0}, "<p>To the book.</p>", true},
                           {{0, 0}, "<p>To the chapter.</p><p><hi type=\"bold\">Verse 2.</hi> Stays.</p>", true},
                           On("Ge 1:1", "Ge 1:1", "<p>One.</p><p><hi type=\"bold\">Verse 2.</hi> Goes.</p>"),
                           {{31, 31}, "<p>Alone.</p>", true}},
                          Records(), kReader);
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(0, Lines({"To the book.", "", "To the chapter.", "", "Verse 2. Stays.", "", "One."})),
                            Pair(1, "Verse 2. Goes."), Pair(31, "Alone.")));
    EXPECT_EQ(imported.introductions, 3);
}

TEST(Commentary, AddsTheRangeOfVersesAsAHeading) {
    ImportedNotes imported = NotesOfCommentary(
        {On("Ge 1:3", "Ge 1:5", "<p>On the light.</p>"),
         On("Ge 1:6", "Ge 1:13", "<hi type=\"bold\">Verses 6-13</hi><p>Waters.</p>"), On("Ge 1:14", "Ge 1:15", " ")},
        Records(), kReader);
    EXPECT_THAT(imported.notes,
                AllOf(Contains(Pair(2, Lines({"Ge 1:3 - Ge 1:5", "", "On the light."}))),
                      Contains(Pair(5, Lines({"Verses 6-13", "", "Waters."}))), Not(Contains(Key(13)))));
}

TEST(Commentary, LeadsFromTheVersesOfASectionToItsNote) {
    const ImportedNotes imported =
        NotesOfCommentary({{{VerseOf("Ro 8:1"), VerseOf("Ro 8:1")}, "<p>To the chapter.</p>", true},
                           On("Ro 8:1", "Ro 8:4", "<p>No condemnation.</p>"),
                           {{VerseOf("Ro 8:3"), VerseOf("Ro 8:3")}, "<p>Its own.</p>", true},
                           On("Ro 8:5", "Ro 8:7", "<p> </p>"),
                           On("Ro 8:38", "Ro 9:1", "<p>Across chapters.</p>")},
                          Records(), kReader);
    const int eight = VerseOf("Ro 8:1");
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(eight, Lines({"To the chapter.", "", "Ro 8:1 - Ro 8:4", "", "No condemnation."})),
                            Pair(eight + 1, "# Ro 8:1"), Pair(eight + 2, "Its own."), Pair(eight + 3, "# Ro 8:1"),
                            Pair(eight + 37, Lines({"Ro 8:38 - Ro 9:1", "", "Across chapters."})),
                            Pair(eight + 38, "# Ro 8:38"), Pair(VerseOf("Ro 9:1"), "# Ro 8:38")))
        << "verses with an own note keep it, and an empty section has none to lead to";
    EXPECT_EQ(imported.sectionLines, 4);
    EXPECT_EQ(imported.referenceLines, 0);
}

TEST(Commentary, LeadsToTheOnlyTextOfAChapter) {
    const CommentaryEntry headed = On("Ps 117:1", "Ps 117:1", "<title>Chapter 117</title><p>All.</p>");
    const int psalm = headed.verses.first;
    EXPECT_THAT(NotesOfCommentary({headed}, Records(), kReader).notes,
                ElementsAre(Pair(psalm, Lines({"Chapter 117", "", "All."})), Pair(psalm + 1, "# Ps 117:1")));
    EXPECT_THAT(NotesOfCommentary({headed, On("Ps 117:2", "Ps 117:2", "Two.")}, Records(), kReader).notes,
                ElementsAre(Key(psalm), Pair(psalm + 1, "Two.")));
    for (const char* text : {"<p>On the verse.</p>", "<title>Chapter 11</title><p>Of another chapter.</p>"})
        EXPECT_THAT(NotesOfCommentary({On("Ps 117:1", "Ps 117:1", text)}, Records(), kReader).notes,
                    ElementsAre(Key(psalm)))
            << text;
}

TEST(Commentary, TextOnAChapterIsSplitByVerse) {
    const char* const chapter =
        "<title>OVERVIEW</title><p>All.</p>"
        "<title>EXPOSITION</title><p><hi type=\"bold\">Verse 1.</hi> One.</p><p>More.</p><p><hi type=\"bold\">Verse "
        "2.</hi> Two.</p>"
        "<p>More of two.</p><p><hi type=\"bold\">Verses 3-4.</hi> Three.</p><p><hi type=\"bold\">Verse 99.</hi> "
        "None.</p>"
        "<title>NOTES</title><p>Whole psalm.</p><p><hi type=\"bold\">Ver. 2.</hi> Again.</p><p><hi type=\"bold\">Verse "
        "2.</hi> Still.</p>";
    const ImportedNotes imported = NotesOfCommentary({On("Ps 1:1", "Ps 1:1", chapter)}, Records(), kReader);
    const int psalm = VerseOf("Ps 1:1");
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(psalm, Lines({"OVERVIEW", "", "All.", "", "EXPOSITION", "", "Verse 1. One.", "",
                                               "More.", "", "NOTES", "", "Whole psalm."})),
                            Pair(psalm + 1, Lines({"EXPOSITION", "", "Verse 2. Two.", "", "More of two.", "", "NOTES",
                                                   "", "Ver. 2. Again.", "", "Verse 2. Still."})),
                            Pair(psalm + 2, Lines({"EXPOSITION", "", "Verses 3-4. Three.", "", "Verse 99. None."})),
                            Pair(psalm + 3, "# Ps 1:3")));
    EXPECT_EQ(imported.movedTexts, 3);
    EXPECT_EQ(imported.sectionLines, 1);

    const ImportedNotes parted =
        NotesOfCommentary({On("Ps 1:1", "Ps 1:1", chapter), On("Ps 1:6", "Ps 1:6", "Six.")}, Records(), kReader);
    EXPECT_THAT(parted.notes, ElementsAre(Key(psalm), Key(psalm + 5))) << "a text among others is on its own verse";
}

TEST(Commentary, LongTextIsCutAtAParagraph) {
    const std::string paragraph = "<p>" + std::string(30000, 'a') + "</p>";
    const std::string text = paragraph + paragraph + paragraph;
    const ImportedNotes imported = NotesOfCommentary({On("Ge 1:1", "Ge 1:1", text.c_str())}, Records(), kReader);
    EXPECT_EQ(imported.cutNotes, 1);
    EXPECT_EQ(imported.notes.at(0).size(), 60000 + 8 + std::string(kRestIsMissing).size());
    EXPECT_THAT(imported.notes.at(0), EndsWith("aaa\r\n\r\n" + std::string(kRestIsMissing)));
}

TEST(Commentary, LongTextInUtf8IsCutAtAParagraph) {
    std::string paragraph = "<p>";
    for (int i = 0; i < 15000; ++i) paragraph += "\u03B1";
    const std::string text = paragraph + "</p>" + paragraph + "</p>" + paragraph + "</p>";
    const ImportedNotes imported = NotesOfCommentary({On("Ge 1:1", "Ge 1:1", text.c_str())}, Records(), kReader);
    EXPECT_EQ(imported.cutNotes, 1);
    EXPECT_TRUE(IsInUtf8(imported.notes.at(0)));
    EXPECT_EQ(imported.notes.at(0).size(), 3 + 60000 + 8 + std::string(kRestIsMissing).size());
}

static int SlotOf(const ImportedNotes& imported, int month, int day, bool isEvening) {
    return imported.readings[ReadingSlot(month, day, isEvening)];
}

TEST(Days, BecomeReadingsOnTheirVerses) {
    const ImportedNotes imported =
        NotesOfDays({{1, 1,
                      "<title>Morning</title><p><scripRef>Jos 5:12</scripRef> Corn.</p><title>Evening, January "
                      "1.</title><p>Love. <scripRef>So 1:4</scripRef></p>"},
                     {1, 2, "<p>A morning of praise.</p><p>See <scripRef>So 1:4</scripRef>.</p>"},
                     {12, 31, "Nothing named."}},
                    Records(), kReader);
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(5946, Lines({"January 1, Morning", "", "Jos 5:12 Corn.", "# Jos 5:12"})),
                            Pair(VerseOf("Ps 1:1"), Lines({"December 31", "", "Nothing named."})),
                            Pair(17541, Lines({"January 1, Evening", "", "Love. So 1:4", "# So 1:4", "", "January 2",
                                               "", "A morning of praise.", "", "See So 1:4.", "# So 1:4"}))));
    EXPECT_EQ(SlotOf(imported, 1, 1, false), 5946);
    EXPECT_EQ(SlotOf(imported, 1, 1, true), 17541);
    EXPECT_EQ(SlotOf(imported, 1, 2, false), 17541);
    EXPECT_EQ(SlotOf(imported, 1, 2, true), 17541);
    EXPECT_EQ(SlotOf(imported, 2, 29, true), 17541) << "like the day before";
    EXPECT_EQ(SlotOf(imported, 12, 30, true), 17541);
    EXPECT_EQ(SlotOf(imported, 12, 31, true), VerseOf("Ps 1:1"));
    EXPECT_EQ(imported.readingsOnPsalms, 1);
    EXPECT_EQ(imported.daysWithoutText, 363);
}

// Two readings on one verse are one note, in the one encoding.
TEST(Days, KeepLettersThatTheCodePageLacks) {
    const ImportedNotes imported = NotesOfDays(
        {{1, 1, "<p>caf\u00E9 <scripRef>Ge 1:1</scripRef></p>"}, {1, 2, "<p>\u05D0 <scripRef>Ge 1:1</scripRef></p>"}},
        Records(), kReader);
    EXPECT_THAT(imported.notes,
                ElementsAre(Pair(0, std::string(kUtf8Mark) + Lines({"January 1", "", "caf\u00E9 Ge 1:1", "# Ge 1:1", "",
                                                                    "January 2", "", "\u05D0 Ge 1:1", "# Ge 1:1"}))));
    EXPECT_EQ(imported.notesInUtf8, 1);
}

TEST(Days, BeforeTheFirstEntryUseTheLastOfTheYear) {
    const ImportedNotes imported =
        NotesOfDays({{3, 1, "<scripRef>Ge 1:1</scripRef>"}, {3, 2, "<scripRef>Ge 1:2</scripRef>"}, {3, 2, "twice"}},
                    Records(), kReader);
    EXPECT_EQ(SlotOf(imported, 1, 1, false), 1);
    EXPECT_EQ(SlotOf(imported, 3, 1, false), 0);
    EXPECT_EQ(SlotOf(imported, 12, 31, false), 1);
    EXPECT_EQ(imported.daysWithoutText, 364);
    EXPECT_EQ(imported.notes.size(), 2u);
    EXPECT_EQ(NotesOfDays({}, Records(), kReader).notes.size(), 0u);
}
