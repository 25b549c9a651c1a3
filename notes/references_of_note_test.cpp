#include "notes/references_of_note.h"

#include <gtest/gtest.h>

#include <string>

#include "notes/note_letters.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& NoteRecords() {
    return TheRealScripture().records;
}

static const Chapters& NoteChapters() {
    static const Chapters chapters = ChaptersOf(NoteRecords());
    return chapters;
}

static int VerseNamed(const std::string& text) {
    return ParseReference(NoteRecords(), text).verse;
}

// "Rom 8:28: Ro 8:28 - Ro 8:30"
static std::string Told(std::string_view note, const std::optional<TextReference>& reference) {
    if (!reference) return "none";
    return std::string(note.substr(reference->begin, reference->size)) + ": " +
           RangeText(NoteRecords(), reference->first, reference->last);
}

static std::string At(std::string_view note, std::size_t place) {
    const NoteOfVerse isaiah{note, VerseNamed("Isa 40:1")};
    return Told(note, ReferenceInNote(NoteRecords(), NoteChapters(), isaiah, place));
}

static std::string Naming(std::string_view note, const char* verse) {
    const NoteOfVerse isaiah{note, VerseNamed("Isa 40:1")};
    return Told(note, ReferenceThatNames(NoteRecords(), NoteChapters(), isaiah, VerseNamed(verse)));
}

TEST(ReferencesOfNote, AreFoundAtTheirPlaces) {
    static constexpr std::string_view kNote =
        "See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4, 6-8 # Joh 3:16 \r\nGe 1:1";
    static constexpr struct {
        std::string_view before;  // the place is behind it
        const char* reference;
    } kRows[] = {
        {"", "none"},
        {"See", "none"},
        {"See ", "Rom 8:28-30: Ro 8:28 - Ro 8:30"},
        {"See Rom 8:28-3", "Rom 8:28-30: Ro 8:28 - Ro 8:30"},
        {"See Rom 8:28-30", "none"},
        {"See Rom 8:28-30, and v.", "v. 12: Isa 40:12 - Isa 40:12"},
        {"See Rom 8:28-30, and v. 12.\r\nx #", "none"},
        {"See Rom 8:28-30, and v. 12.\r\nx # G", "Ge 1:1: Ge 1:1 - Ge 1:1"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1", "none"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4", "none"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4, ", "6: Ex 2:6 - Ex 2:8"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4, 6-", "8: Ex 2:8 - Ex 2:8"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4, 6-8 # Joh", "Joh 3:16: Joh 3:16 - Joh 3:16"},
        {"See Rom 8:28-30, and v. 12.\r\nx # Ge 1:1; Ex 2:4, 6-8 # Joh 3:16 \r\n", "Ge 1:1: Ge 1:1 - Ge 1:1"},
        {kNote, "none"},
    };
    for (const auto& [before, reference] : kRows) EXPECT_EQ(At(kNote, before.size()), reference) << before;
}

TEST(ReferencesOfNote, AreWithoutTheBlanksAroundThem) {
    EXPECT_EQ(At("# Jude  ; 3", 2), "Jude: Jude 1:25 - Jude 1:25");
    EXPECT_EQ(At("# Jude  ; 3", 7), "none");
}

TEST(ReferencesOfNote, NameAVerse) {
    EXPECT_EQ(Naming("Psalm 23; # Ps 22:1; Ps 23:1-3", "Ps 23:2"), "Psalm 23: Ps 23:1 - Ps 23:6");
    EXPECT_EQ(Naming("# Ps 22:1; 23:1-3\r\nPsalm 23", "Ps 23:2"), "23:1: Ps 23:1 - Ps 23:3");
    EXPECT_EQ(Naming("# Ps 22:1 # Ps 23:6 and", "Ps 23:6"), "Ps 23:6: Ps 23:6 - Ps 23:6");
    EXPECT_EQ(Naming("# Ps 22:1\r\nPsalm 24", "Ps 23:6"), "none");
    EXPECT_EQ(Naming("", "Ps 23:6"), "none");
}

// The places are bytes, of which a Greek letter has two.
TEST(ReferencesOfNote, StandBehindGreekLetters) {
    const std::string note = std::string(kUtf8Mark) + "\xCE\xB1\xCE\xB3 Ge 1:1 \xCE\xB1 # Ex 2:4";
    EXPECT_EQ(Naming(note, "Ge 1:1"), "Ge 1:1: Ge 1:1 - Ge 1:1");
    EXPECT_EQ(At(note, PlaceBehind({}, note, 3)), "Ge 1:1: Ge 1:1 - Ge 1:1");
    EXPECT_EQ(At(note, PlaceBehind({}, note, 2)), "none");
    EXPECT_EQ(At(note, note.size() - 1), "Ex 2:4: Ex 2:4 - Ex 2:4");
}

static std::string Shown(const char* first, const char* last) {
    return TextOfReference(TheRealScripture(), {0, 0, VerseNamed(first), VerseNamed(last)});
}

TEST(TextOfReference, HasTheVerses) {
    EXPECT_EQ(Shown("Joh 11:35", "Joh 11:35"), "John 11:35\r\nJesus wept.");
    EXPECT_EQ(Shown("1Th 5:16", "1Th 5:17"),
              "1 Thessalonians 5:16-17\r\n16 Rejoice evermore.\r\n17 Pray without ceasing.");
    EXPECT_EQ(Shown("Ps 117:2", "Ps 118:1").substr(0, 22), "Psalms 117:2 - 118:1\r\n");
    EXPECT_EQ(Shown("Mal 4:6", "Mt 1:1").substr(0, 29), "Malachi 4:6 - Matthew 1:1\r\n6 ");
}

TEST(TextOfReference, HasNoMarkUp) {
    const std::string text = Shown("Ge 1:1", "Ge 1:12");
    EXPECT_EQ(text.find_first_of("[]{}\xB6"), std::string::npos) << text;
    EXPECT_NE(text.find("there was light"), std::string::npos);
}

TEST(TextOfReference, EndsAfterSomeVerses) {
    const std::string text = Shown("Ps 119:1", "Ps 119:176");
    EXPECT_TRUE(text.ends_with(".\r\n...")) << text;
    EXPECT_LT(text.size(), 800U);
    EXPECT_GT(text.size(), 600U);
}
