#include "notes/text_sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "search/text_scan.h"

TEST(AsciiLetters, GiveCapitalsToTheLettersAlone) {
    std::string bytes, expected;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.push_back(static_cast<char>(byte));
        expected.push_back(static_cast<char>(byte >= 'a' && byte <= 'z' ? byte - 32 : byte));
    }
    EXPECT_EQ(InCapitals(AsciiLetters(), bytes), expected);
}

TEST(LetterTable, OfAsciiDoesNotChangeOtherBytes) {
    const LetterTable letters = AsciiLetters();
    EXPECT_EQ(InCapitals(letters, "Abc xyz 0-9 \xE9{}`@"), "ABC XYZ 0-9 \xE9{}`@");
    EXPECT_EQ(std::ranges::count(letters.inWords, true), 62);
}

// A table as of a code page where three bytes have the same capital, letters beyond ASCII differ from their capitals in
// more than one bit, and one byte is the capital of none.
static LetterTable OddLetters() {
    LetterTable letters = AsciiLetters();
    letters.capitals['\xFD' & 0xFF] = 'I';
    letters.capitals['\xFF' & 0xFF] = '\x9F';
    letters.capitals['\xE9' & 0xFF] = '\xC9';
    letters.capitals['Q'] = 'R';
    return letters;
}

static std::size_t FindPlainly(std::string_view text, const LetterTable* letters, std::string_view bytes,
                               std::size_t from) {
    const std::string folded = letters == nullptr ? std::string(bytes) : InCapitals(*letters, bytes);
    return folded.find(text, from);
}

static std::string RandomBytes(std::mt19937& random, std::string_view letters, std::size_t size) {
    std::string bytes(size, ' ');
    for (char& c : bytes) c = letters[random() % letters.size()];
    return bytes;
}

TEST(TextSweep, FindsWhatAPlainSearchFinds) {
    static constexpr std::string_view kLetters = "iI\xFD\xFF\x9F\xE9\xC9qQrR aA\0";
    const LetterTable odd = OddLetters();
    std::mt19937 random(1);
    int found = 0;
    for (int round = 0; round < 20000; ++round) {
        const std::string bytes = RandomBytes(random, kLetters, random() % 200);
        const LetterTable* letters = round % 3 == 0 ? nullptr : &odd;
        std::string text = RandomBytes(random, kLetters, 1 + random() % 4);
        if (letters != nullptr && round % 5 != 0) text = InCapitals(*letters, text);
        const SweepTarget target = TargetOf(text, letters);
        for (std::size_t from = 0; from <= bytes.size() + 1;) {
            const std::size_t place = FindTarget(target, bytes, from);
            ASSERT_EQ(place, FindPlainly(text, letters, bytes, from)) << round << " from " << from;
            if (place == kNoPlace) break;
            ++found;
            from = place + 1;
        }
    }
    EXPECT_GT(found, 10000);
}

// Every place of a text of several blocks, and long targets whose first bytes are near the end.
TEST(TextSweep, ReachesBothEnds) {
    const LetterTable letters = AsciiLetters();
    for (const std::size_t size : {1u, 2u, 15u, 16u, 17u, 63u, 64u, 65u, 149u}) {
        std::string text(size, 'G');
        text.back() = 'Z';
        const SweepTarget target = TargetOf(text, &letters);
        for (std::size_t place = 0; place < 150; ++place) {
            const std::string bytes = std::string(place, '-') + text;
            EXPECT_EQ(FindTarget(target, bytes, 0), place) << size;
            EXPECT_EQ(FindTarget(target, bytes, place + 1), kNoPlace) << size;
            EXPECT_EQ(FindTarget(target, std::string_view(bytes).substr(0, bytes.size() - 1), 0), kNoPlace) << size;
        }
    }
}
