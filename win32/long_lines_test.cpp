#include "win32/long_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr std::size_t kPiece = kPieceOfLongLine;
static constexpr std::uint32_t kLetters = 99;

static void PrintTo(const LineItem& item, std::ostream* out) {
    *out << item.begin << " of kind " << item.kind;
}

static bool operator==(const LineItem& a, const LineItem& b) {
    return a.begin == b.begin && a.kind == b.kind;
}

namespace {

using Items = std::vector<LineItem>;

}  // namespace

static Items ForLayout(const std::wstring& line, const Items& items, bool mayJoin = true) {
    return ItemsForLayout(line, items, mayJoin, kLetters);
}

static std::uint32_t KindOf(std::size_t place) {
    return place % 2 == 0 ? 1 : 2;
}

// An item for each character.
static Items ManyItems(std::size_t count) {
    Items items;
    for (std::size_t place = 0; place < count; ++place) items.push_back({place, KindOf(place)});
    return items;
}

TEST(LongLines, AreThoseOfThousandsOfLetters) {
    const std::wstring line(kLongLine, L'x');
    EXPECT_THAT(ForLayout(L"", {}), IsEmpty());
    EXPECT_EQ(ForLayout(line, {{0, 5}}), (Items{{0, 5}}));
    EXPECT_EQ(ForLayout(line, ManyItems(kLongLine)), ManyItems(kLongLine));
    EXPECT_EQ(ForLayout(line + L"x", {{0, 5}}).size(), kLongLine / kPiece + 1);
}

TEST(LongLines, HaveLongItemsInPieces) {
    const std::size_t length = 6 * kPiece + 1;
    EXPECT_EQ(
        ForLayout(std::wstring(length, L'x'), {{0, 5}}),
        (Items{
            {0, 5}, {kPiece, 5}, {2 * kPiece, 5}, {3 * kPiece, 5}, {4 * kPiece, 5}, {5 * kPiece, 5}, {6 * kPiece, 5}}));
    const std::size_t second = 10, third = second + kLongItem, fourth = third + kLongItem + 1;
    EXPECT_EQ(
        ForLayout(std::wstring(length + kPiece, L' '), {{0, 5}, {second, 6}, {third, 7}, {fourth, 8}, {fourth + 1, 9}}),
        (Items{{0, 5},
               {second, 6},
               {third, 7},
               {3 * kPiece, 7},
               {4 * kPiece, 7},
               {fourth, 8},
               {fourth + 1, 9},
               {5 * kPiece, 9},
               {6 * kPiece, 9},
               {7 * kPiece, 9}}))
        << "the item from 10 is as long as one may be";
}

TEST(LongLines, HavePiecesOfManyItemsJoined) {
    const std::wstring line(7 * kPiece, L'x');
    EXPECT_EQ(ForLayout(line, ManyItems(line.size())), (Items{{0, kLetters},
                                                              {kPiece, kLetters},
                                                              {2 * kPiece, kLetters},
                                                              {3 * kPiece, kLetters},
                                                              {4 * kPiece, kLetters},
                                                              {5 * kPiece, kLetters},
                                                              {6 * kPiece, kLetters}}));
    EXPECT_EQ(ForLayout(line, ManyItems(line.size()), false), ManyItems(line.size())) << "it may not";
}

TEST(LongLines, KeepTheItemsOfPiecesLikeProse) {
    std::wstring line(7 * kPiece, L'x');
    const Items items{{0, 1}, {kPiece + 3, 2}, {kPiece + 9, 3}};
    EXPECT_EQ(ForLayout(line, items)[1].kind, kLetters) << "no blank";
    line[kPiece + 5] = L' ';
    EXPECT_EQ(ForLayout(line, items), (Items{{0, 1},
                                             {kPiece + 3, 2},
                                             {kPiece + 9, 3},
                                             {2 * kPiece, 3},
                                             {3 * kPiece, 3},
                                             {4 * kPiece, 3},
                                             {5 * kPiece, 3},
                                             {6 * kPiece, 3}}));
    Items dense{{0, 1}};
    for (std::size_t place = kPiece; place < 2 * kPiece; place += 3) dense.push_back({place, 2});
    EXPECT_EQ(ForLayout(line, dense)[1].kind, kLetters) << "with a blank, but very many items";
}

TEST(LongLines, GoOnBehindJoinedPieces) {
    std::wstring line(7 * kPiece, L' ');
    line.replace(kPiece, kPiece, kPiece, L'x');
    Items items{{0, 1}, {kPiece - 2, 2}, {kPiece + 1, 3}};
    for (std::size_t place = 2 * kPiece + 7; place < line.size(); place += 200) items.push_back({place, 4});
    const Items result = ForLayout(line, items);
    ASSERT_GT(result.size(), 5u);
    EXPECT_EQ(Items(result.begin(), result.begin() + 5),
              (Items{{0, 1}, {kPiece - 2, 2}, {kPiece, kLetters}, {2 * kPiece, 3}, {2 * kPiece + 7, 4}}));
}

TEST(LongLines, KeepTheirLineEnd) {
    const std::wstring line(7 * kPiece, L'x');
    for (const wchar_t* end : {L"\r\n", L"\r", L"\n", L"\r\r\n"}) {
        Items items = ManyItems(line.size());
        items.push_back({line.size(), 7});
        const Items result = ForLayout(line + end, items);
        ASSERT_EQ(result.size(), 8u);
        EXPECT_EQ(result[7], (LineItem{line.size(), 7}));
        EXPECT_EQ(ForLayout(line + end, ManyItems(line.size())).back(), (LineItem{line.size(), 2}));
    }
    EXPECT_EQ(ForLayout(std::wstring(2 * kLongLine, L'\r'), {{0, 1}}), (Items{{0, 1}}));
}

TEST(LongLines, KnowDirections) {
    for (const wchar_t* text : {L"", L"abc 123 -+%,;", L"\u00E9\u00A0\u2019\u20AC\u2122\u0153", L"\u03B1\u0436"})
        EXPECT_TRUE(IsLeftToRight(std::wstring_view(text)));
    for (const wchar_t* text : {L"a\u05D0", L"\u0627", L"a\u200Fb", L"a\u200E", L"\u202Ea", L"\u2067", L"\u4E00"})
        EXPECT_FALSE(IsLeftToRight(std::wstring_view(text)));
}

// ---- Any lines ------------------------------------------------------------------------------------------------------

static std::uint32_t KindAt(const Items& items, std::size_t place) {
    std::uint32_t kind = 0;
    for (const LineItem& item : items)
        if (item.begin <= place) kind = item.kind;
    return kind;
}

static void ExpectInOrder(const Items& items, std::size_t length) {
    ASSERT_FALSE(items.empty());
    EXPECT_EQ(items.front().begin, 0u);
    for (std::size_t i = 1; i < items.size(); ++i) EXPECT_LT(items[i - 1].begin, items[i].begin);
    EXPECT_LT(items.back().begin, length);
}

TEST(LongLines, KeepTheKindOfAllLettersThatAreNotJoined) {
    std::mt19937 random(3);
    for (int round = 0; round < 100; ++round) {
        std::wstring line(1 + random() % 9000, L'x');
        Items items{{0, 1}};
        const std::size_t most = std::size_t{1} << random() % 12;
        while (items.back().begin + most < line.size())
            items.push_back({items.back().begin + 1 + random() % most, static_cast<std::uint32_t>(1 + random() % 5)});
        for (std::size_t blank = random() % 2000; blank < line.size(); blank += 1 + random() % 2000) line[blank] = L' ';
        const bool mayJoin = random() % 2 == 0;
        const Items result = ForLayout(line, items, mayJoin);
        ExpectInOrder(result, line.size());
        for (std::size_t place = 0; place < line.size(); place += 31) {
            const std::uint32_t kind = KindAt(result, place);
            EXPECT_TRUE(kind == KindAt(items, place) || (mayJoin && kind == kLetters)) << place;
        }
        for (std::size_t i = 1; line.size() > kLongLine && i < result.size(); ++i)
            EXPECT_LE(result[i].begin - result[i - 1].begin, kLongItem);
    }
}
