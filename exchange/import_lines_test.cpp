#include "exchange/import_lines.h"

#include <gmock/gmock.h>

TEST(ImportLines, SummarizeAPlan) {
    ImportPlan plan{"My Notes", {}};
    EXPECT_EQ(PlanSummary(plan), "no notes");
    plan.sameNotes = 300;
    EXPECT_EQ(PlanSummary(plan), "300 the same");
    plan.notes = {{1, ImportKind::kConflict},
                  {2, ImportKind::kNew},
                  {3, ImportKind::kNew},
                  {4, ImportKind::kOlder},
                  {5, ImportKind::kChanged}};
    plan.unplaced = {{1, "Ro 99", "There is no such verse.", "x"}};
    EXPECT_EQ(PlanSummary(plan), "2 new, 1 changed, 1 in conflict, 1 older, 300 the same, 1 not placed");
}

TEST(ImportLines, SayWhatHappensToANote) {
    const auto text = [](const char* mine, const char* imported, ImportChoice choice) {
        return ChoiceText({0, ImportKind::kNew, mine, imported, choice});
    };
    EXPECT_STREQ(text("", "a", ImportChoice::kTake), "is added");
    EXPECT_STREQ(text("", "a", ImportChoice::kBoth), "is added");
    EXPECT_STREQ(text("b", "a", ImportChoice::kTake), "replaces the note");
    EXPECT_STREQ(text("b", "", ImportChoice::kTake), "is emptied");
    EXPECT_STREQ(text("b", "a", ImportChoice::kBoth), "gets both texts");
    EXPECT_STREQ(text("b", "a", ImportChoice::kKeep), "stays as it is");
    EXPECT_STREQ(KindText(ImportKind::kNew), "new");
    EXPECT_STREQ(KindText(ImportKind::kChanged), "changed");
    EXPECT_STREQ(KindText(ImportKind::kConflict), "in conflict");
    EXPECT_STREQ(KindText(ImportKind::kOlder), "older than the set's");
}

TEST(ImportLines, SayWhatIsNotPlaced) {
    EXPECT_EQ(UnplacedLine({12, "Romans 8:99", "There is no such verse.", ""}),
              "line 12: Romans 8:99. There is no such verse.");
    EXPECT_EQ(UnplacedLine({0, "x.txt", "This names no verse.", ""}), "x.txt. This names no verse.");
    EXPECT_EQ(UnplacedLine({3, "", "This stands before the first verse.", ""}),
              "line 3: This stands before the first verse.");
}

TEST(ImportLines, TellTheResult) {
    const ImportPlan plan{"My Notes", {}};
    const auto text = [&](ImportEnd end, int written, int setAside) {
        return ResultText(plan, {end, written, setAside});
    };
    EXPECT_EQ(text(ImportEnd::kImported, 1, 0), "1 note imported into My Notes.");
    EXPECT_EQ(text(ImportEnd::kImported, 2, 1),
              "2 notes imported into My Notes. 1 note did not fit and can be found under Earlier Notes.");
    EXPECT_EQ(text(ImportEnd::kChangedOnDisk, 0, 0), "No notes were imported: My Notes has changed meanwhile.");
    EXPECT_EQ(text(ImportEnd::kReadOnly, 0, 0), "No notes were imported: the files of My Notes are damaged.");
    EXPECT_EQ(text(ImportEnd::kCannotWrite, 0, 0), "No notes were imported: My Notes cannot be written.");
    EXPECT_EQ(ExportedText({"", {{}}}), "1 note exported.");
    EXPECT_EQ(ExportedText({"", {}}), "0 notes exported.");
}
