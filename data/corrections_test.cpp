#include "data/corrections.h"

#include <gtest/gtest.h>

#include <set>

static const Verses kVerses = {{40, 11, 6, "And he, who soever."}, {9, 6, 9, "smote us; it was"}};

TEST(Corrections, ReplaceTextInTheirVerse) {
    Verses verses = kVerses;
    const Correction rows[] = {{"Mt 11:6", "who soever", "whosoever"}, {"1Sa 6:9", "us; it", "us: it"}};
    EXPECT_EQ(ApplyCorrections(rows, verses), "");
    EXPECT_EQ(verses[0].text, "And he, whosoever.");
    EXPECT_EQ(verses[1].text, "smote us: it was");
}

namespace {

struct MisfitRow {
    Correction correction;
    const char* complaint;
};

}  // namespace

static constexpr MisfitRow kMisfits[] = {
    {{"Mt 11:6", "whom soever", "whomsoever"}, "Mt 11:6 should hold \"whom soever\" exactly once"},
    {{"Mt 11:6", "e", "x"}, "Mt 11:6 should hold \"e\" exactly once"},
    {{"Mt 11:7", "who soever", "whosoever"}, "Mt 11:7 is missing"},
    {{"Sa 6:9", "us; it", "us: it"}, "Sa 6:9 is missing"},
};

TEST(Corrections, ComplainWhenTheyDoNotFit) {
    for (const MisfitRow& row : kMisfits) {
        Verses verses = kVerses;
        EXPECT_EQ(ApplyCorrections({&row.correction, 1}, verses), row.complaint);
    }
}

TEST(Corrections, AreSixtySixInDifferentVerses) {
    std::set<std::string> references;
    for (const Correction& correction : ModuleCorrections()) {
        EXPECT_TRUE(references.insert(correction.reference).second) << correction.reference;
        EXPECT_STRNE(correction.from, correction.to) << correction.reference;
    }
    EXPECT_EQ(references.size(), 66u);
}
