#include "data/verse_ranges.h"

#include <gtest/gtest.h>

#include "notes/cross_references.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

static int VerseOf(const char* reference) {
    return ParseReference(Records(), reference).verse;
}

namespace {

struct LineRow {
    std::vector<std::pair<const char*, const char*>> ranges;
    const char* line;
};

}  // namespace

static std::vector<VerseRange> RangesOf(const LineRow& row) {
    std::vector<VerseRange> ranges;
    for (const auto& [first, last] : row.ranges) ranges.push_back({VerseOf(first), VerseOf(last)});
    return ranges;
}

// The program must read the same verses from a line, no matter which verse its note is for.
TEST(CrossReferenceLines, AreReadBackAsTheSameVerses) {
    const LineRow rows[] = {
        {{}, ""},
        {{{"Ge 1:1", "Ge 1:1"}}, "# Ge 1:1"},
        {{{"Mt 19:4", "Mt 19:6"},
          {"Mt 24:37", "Mt 24:39"},
          {"Mr 10:4", "Mr 10:9"},
          {"Lu 17:26", "Lu 17:29"},
          {"Lu 17:32", "Lu 17:32"}},
         "# Mt 19:4-6; 24:37-39; Mr 10:4-9; Lu 17:26-29, 32"},
        {{{"1Jo 4:8", "1Jo 4:8"}, {"3Jo 1:2", "3Jo 1:3"}, {"Jude 1:1", "Jude 1:1"}}, "# 1Jo 4:8; 3Jo 1:2-3; Jude 1:1"},
        {{{"Ge 1:30", "Ge 2:3"}, {"Ge 2:5", "Ge 2:5"}, {"Ge 1:1", "Ge 1:1"}}, "# Ge 1:30-2:3, 5; 1:1"},
        {{{"So 1:4", "So 1:4"}, {"So 1:4", "So 1:4"}, {"So 1:5", "So 1:5"}, {"So 1:4", "So 1:4"}}, "# So 1:4, 5"},
        {{{"Mal 4:5", "Mt 1:2"}, {"Mt 1:3", "Mt 1:3"}}, "# Mal 4:5-6; Mt 1:1-2, 3"},
        {{{"Re 22:20", "Re 22:21"}}, "# Re 22:20-21"},
    };
    for (const LineRow& row : rows) {
        const std::string line = CrossReferenceLine(Records(), RangesOf(row));
        EXPECT_EQ(line, row.line);
        std::vector<std::int32_t> expected;
        std::vector<VerseRange> seen;
        for (const VerseRange& range : RangesOf(row)) {
            if (std::find(seen.begin(), seen.end(), range) != seen.end()) continue;
            seen.push_back(range);
            for (int verse = range.first; verse <= range.last; ++verse) expected.push_back(verse);
        }
        EXPECT_EQ(CrossReferences(Records(), line, 0, VerseOf("Ps 119:105")), expected) << line;
    }
}

TEST(CrossReferenceLines, CanNameEveryBook) {
    for (int book = 1; book <= 66; ++book) {
        const int first = VerseLookup(Records(), book, 1, 1), last = VerseLookup(Records(), book, kLast, kLast);
        const std::string line = CrossReferenceLine(Records(), {{first, first}, {last, last}});
        EXPECT_EQ(CrossReferences(Records(), line, 0, 0), (std::vector<std::int32_t>{first, last})) << line;
    }
}
