#include "history/text_difference.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "notes/note_saving.h"

// The runs as text: "[-removed-]" and "{+added+}".
static std::string Marked(const std::vector<TextRun>& runs) {
    std::string marked;
    for (const TextRun& run : runs) {
        const std::string text(run.text);
        if (run.kind == RunKind::kKept) marked += text;
        if (run.kind == RunKind::kRemoved) marked += "[-" + text + "-]";
        if (run.kind == RunKind::kAdded) marked += "{+" + text + "+}";
    }
    return marked;
}

static std::string Joined(const std::vector<TextRun>& runs, RunKind left) {
    std::string text;
    for (const TextRun& run : runs)
        if (run.kind != left) text += run.text;
    return text;
}

static std::size_t KeptBytes(const std::vector<TextRun>& runs) {
    std::size_t kept = 0;
    for (const TextRun& run : runs) kept += run.kind == RunKind::kKept ? run.text.size() : 0;
    return kept;
}

// What holds for the runs of any two texts.
static void ExpectInOrder(const std::vector<TextRun>& runs, std::string_view before, std::string_view after) {
    EXPECT_TRUE(Joined(runs, RunKind::kAdded) == before);
    EXPECT_TRUE(Joined(runs, RunKind::kRemoved) == after);
    for (std::size_t i = 0; i < runs.size(); ++i) {
        EXPECT_FALSE(runs[i].text.empty());
        if (i == 0) continue;
        const RunKind last = runs[i - 1].kind;
        EXPECT_NE(last, runs[i].kind);
        EXPECT_FALSE(last == RunKind::kAdded && runs[i].kind == RunKind::kRemoved);
    }
}

TEST(TextDifference, MarksChangedWords) {
    const struct {
        const char* before;
        const char* after;
        const char* marked;
    } kRows[] = {
        {"", "", ""},
        {"", "new", "{+new+}"},
        {"old", "", "[-old-]"},
        {"the same", "the same", "the same"},
        {"old", "new", "[-old-]{+new+}"},
        {"a note", "a long note", "a {+long +}note"},
        {"a long note", "a note", "a [-long -]note"},
        {"in the house", "in this house", "in [-the-]{+this+} house"},
        {"the whole word", "the wholesome word", "the [-whole-]{+wholesome+} word"},
        {"God's", "God", "[-God's-]{+God+}"},
        {"first, second", "first; second", "first[-,-]{+;+} second"},
        {"# Ge 1:1", "# Ge 1:2", "# Ge 1:[-1-]{+2+}"},
        {"one\r\ntwo\r\nthree", "one\r\nthree", "one\r\n[-two\r\n-]three"},
        {"one", "one\r\n", "one{+\r\n+}"},
        {"one\ntwo", "one\r\ntwo", "one[-\n-]{+\r\n+}two"},
        {"a\r\r\nb", "a\r\nb", "a[-\r-]\r\nb"},
        // Bytes above ASCII are letters.
        {"caf\xE9 noir", "cafe noir", "[-caf\xE9-]{+cafe+} noir"},
        // Spaces between changed words would tear the changes into pieces.
        {"x in the beginning y", "x at a start y", "x [-in the beginning-]{+at a start+} y"},
        {"x y", "u v", "[-x y-]{+u v+}"},
        {" x", " y", " [-x-]{+y+}"},
        {"x ", "y ", "[-x-]{+y+} "},
        // Line ends do not: a changed line is seen as one.
        {"x\r\ny", "u\r\nv", "[-x-]{+u+}\r\n[-y-]{+v+}"},
    };
    for (const auto& row : kRows) {
        const auto runs = TextDifference(row.before, row.after);
        EXPECT_EQ(Marked(runs), row.marked);
        ExpectInOrder(runs, row.before, row.after);
    }
}

TEST(TextDifference, IsInOrderForAnyTexts) {
    std::mt19937 random(7);
    const auto text = [&] {
        static constexpr const char* kPieces[] = {"a",    "b",  "word", " ", " ",    "  ",
                                                  "\r\n", "\n", "\r",   ",", "\xE9", "1"};
        std::string made;
        for (auto left = random() % 30; left > 0; --left) made += kPieces[random() % std::size(kPieces)];
        return made;
    };
    for (int i = 0; i < 5000; ++i) {
        const std::string before = text(), after = text();
        ExpectInOrder(TextDifference(before, after), before, after);
    }
}

// The kept words of the fewest edits, counted by the table of common subsequences.
TEST(TextDifference, KeepsAsManyWordsAsCanBeKept) {
    std::mt19937 random(3);
    for (int i = 0; i < 500; ++i) {
        std::string before(random() % 12, ','), after(random() % 12, ',');
        for (char& c : before) c = ",;:"[random() % 3];
        for (char& c : after) c = ",;:"[random() % 3];
        std::vector<std::vector<std::size_t>> most(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
        for (std::size_t x = 1; x <= before.size(); ++x)
            for (std::size_t y = 1; y <= after.size(); ++y)
                most[x][y] =
                    before[x - 1] == after[y - 1] ? most[x - 1][y - 1] + 1 : std::max(most[x - 1][y], most[x][y - 1]);
        EXPECT_EQ(KeptBytes(TextDifference(before, after)), most[before.size()][after.size()])
            << before << " " << after;
    }
}

static std::string Words(unsigned seed, std::size_t size, unsigned wordsInLine) {
    std::mt19937 random(seed);
    std::string text;
    for (unsigned words = 1; text.size() + 12 < size; ++words) {
        text += std::to_string(random());
        text += words % wordsInLine == 0 ? "\r\n" : " ";
    }
    return text + std::string(size - text.size(), '.');
}

TEST(TextDifference, FindsOneWordInTheLongestNote) {
    const std::string before = Words(1, kNoteTextLimit, 10);
    std::string after = before;
    after.replace(30000, 1, "changed");
    const auto runs = TextDifference(before, after);
    ExpectInOrder(runs, before, after);
    EXPECT_EQ(runs.size(), 4u);
    EXPECT_GT(KeptBytes(runs), before.size() - 30);
}

TEST(TextDifference, EndsForTheLongestNotesWithNothingInCommon) {
    const std::string before = Words(1, kNoteTextLimit, 10), after = Words(2, kNoteTextLimit, 10);
    ExpectInOrder(TextDifference(before, after), before, after);
    const std::string points(kNoteTextLimit, ','), semicolons(kNoteTextLimit, ';');
    EXPECT_EQ(TextDifference(points, semicolons).size(), 2u);
}

// Two thousand new words are in lines of their own; unchanged lines are found, and words in changed lines.
TEST(TextDifference, FindsUnchangedLinesBetweenManyChanges) {
    const std::string kept = Words(3, 30000, 10) + "\r\n", head = "head old tail\r\n", newHead = "head new tail\r\n";
    const std::string before = Words(1, 16000, 10) + "\r\n" + kept + head;
    const std::string after = Words(2, 16000, 10) + "\r\n" + kept + newHead;
    const auto runs = TextDifference(before, after);
    ExpectInOrder(runs, before, after);
    EXPECT_GE(KeptBytes(runs), kept.size() + std::string("head  tail\r\n").size());
    EXPECT_TRUE(Marked(runs).ends_with("head [-old-]{+new+} tail\r\n"));
}
