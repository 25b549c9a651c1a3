// Tests that the page about the notes that name a verse is true: its examples are looked for as in a note.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "help/made_help.h"
#include "notes/references_in_text.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

using testing::HasSubstr;

static std::string MeaningsInNote(std::string_view text) {
    const VerseRecords& records = TheRealScripture().records;
    const int verse = ParseReference(records, "Isa 40:1").verse;
    std::vector<TextReference> references;
    FindReferences(ChaptersOf(records), RecordOf(records, verse), text, references);
    std::string meanings;
    for (const TextReference& one : references)
        meanings += (meanings.empty() ? "" : ", ") + RangeText(records, one.first, one.last);
    return meanings;
}

TEST(HelpOnNotesAboutAVerse, HasTrueExamples) {
    const std::string page = HelpPages().at("ID_Notes_About").text;
    static constexpr struct {
        const char* example;
        const char* meanings;
    } kRows[] = {
        {"see Rom 8:28-30; 1 Cor. xiii. 4", "Ro 8:28 - Ro 8:30, 1Co 13:4 - 1Co 13:4"},
        {"Ps. 1, 2; 119:11", "Ps 1:1 - Ps 1:6, Ps 2:1 - Ps 2:12, Ps 119:11 - Ps 119:11"},
        {"v. 12, verses 3 and 4, ch. 5",
         "Isa 40:12 - Isa 40:12, Isa 40:3 - Isa 40:3, Isa 40:4 - Isa 40:4, Isa 5:1 - Isa 5:30"},
    };
    for (const auto& [example, meanings] : kRows) {
        EXPECT_THAT(page, HasSubstr(example));
        EXPECT_EQ(MeaningsInNote(example), meanings);
    }
    EXPECT_THAT(page, HasSubstr("A number alone is no reference."));
    EXPECT_EQ(MeaningsInNote("the 12 and 70"), "");
}
