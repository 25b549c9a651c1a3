// Checks what the table of the readings says of itself: counts, and that each row is of the kind that it claims to be.
#include "data/conformed_readings.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>

#include "scripture/books.h"
#include "scripture/letters.h"

using testing::ElementsAre;
using testing::Pair;

TEST(ConformedReadings, HaveTheKnownCounts) {
    std::map<ReadingKind, int> counts;
    for (const ConformedReading& reading : ConformedReadings()) ++counts[reading.kind];
    EXPECT_THAT(counts,
                ElementsAre(Pair(ReadingKind::kSpelling, 136), Pair(ReadingKind::kName, 2),
                            Pair(ReadingKind::kCapital, 3), Pair(ReadingKind::kStop, 3), Pair(ReadingKind::kWord, 1),
                            Pair(ReadingKind::kItalics, 28), Pair(ReadingKind::kHyphen, 3)));
}

static bool IsOfKind(ReadingKind kind, const std::string& from, const std::string& to) {
    switch (kind) {
        case ReadingKind::kSpelling:
        case ReadingKind::kName: return from.front() == to.front() || LowerCased(from).front() == 'e';
        case ReadingKind::kCapital: return LowerCased(from) == LowerCased(to);
        case ReadingKind::kStop: return Without(from, ".,?") == Without(to, ".,?");
        case ReadingKind::kWord: return to.size() > from.size() && to.find('[') != std::string::npos;
        case ReadingKind::kItalics: return Without(from, "[]") == Without(to, "[]");
        case ReadingKind::kHyphen: return LowerCased(Without(from, "-")) == LowerCased(Without(to, "-"));
    }
    return false;
}

TEST(ConformedReadings, AreOfTheirKinds) {
    for (const ConformedReading& reading : ConformedReadings()) {
        const auto& [reference, from, to] = reading.change;
        EXPECT_STRNE(from, to) << reference;
        EXPECT_TRUE(IsOfKind(reading.kind, from, to)) << reference << ": " << from;
        // What a copy cannot show is not claimed of it.
        EXPECT_EQ(reading.plainText == PlainTextProof::kSilent, reading.kind == ReadingKind::kHyphen) << reference;
        EXPECT_EQ(reading.debian == OlderText::kNoItalics, reading.kind == ReadingKind::kItalics) << reference;
    }
}

// The spellings of the table, apart from capitals: a row with another spelling would be a slip.
TEST(ConformedReadings, ChangeSixSpellings) {
    static constexpr std::pair<const char*, const char*> kSpellings[] = {
        {"enquir", "inquir"}, {"counsellor", "counseller"},   {"razor", "rasor"},
        {"ankle", "ancle"},   {"instructers", "instructors"}, {"expenses", "expences"},
    };
    for (const ConformedReading& reading : ConformedReadings()) {
        if (reading.kind != ReadingKind::kSpelling) continue;
        std::string text = LowerCased(reading.change.from);
        for (const auto& [from, to] : kSpellings)
            if (const std::size_t at = text.find(from); at != std::string::npos)
                text.replace(at, std::strlen(from), to);
        EXPECT_EQ(text, LowerCased(reading.change.to)) << reading.change.reference;
    }
}

TEST(ConformedReadings, AreInTheOrderOfTheVerses) {
    static const auto orderOf = [](const char* reference) {
        const std::string text = reference;
        const std::size_t blank = text.rfind(' '), colon = text.find(':');
        int book = 1;
        while (book < kBookCount && text.substr(0, blank) != BookAbbreviation(book)) ++book;
        return std::array{book, std::stoi(text.substr(blank)), std::stoi(text.substr(colon + 1))};
    };
    EXPECT_TRUE(std::ranges::is_sorted(
        ConformedReadings(), {}, [](const ConformedReading& reading) { return orderOf(reading.change.reference); }));
}
