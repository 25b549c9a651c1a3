#include "app/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

using testing::ElementsAre;

static Place At(int verse, int list = 0) {
    return {.topVerse = verse, .noteVerse = verse, .noteSet = "Mine", .list = list};
}

static KeptList ListNumbered(int number) {
    KeptList list;
    list.number = number;
    list.verses = Packed(std::vector<std::int32_t>{number, number + 1});
    list.summary = std::to_string(number) + " verses";
    return list;
}

static std::vector<int> NumbersOf(const Places& places) {
    std::vector<int> numbers;
    for (const KeptList& list : places.lists) numbers.push_back(list.number);
    return numbers;
}

// A search replaces the list `number` by the next one.
static void Search(Places& places, int number, int verse = 0) {
    KeepJump(places, At(verse, number));
    KeepList(places, ListNumbered(number));
}

TEST(Places, AreTheSameHoweverTheListIsScrolled) {
    const Place place = At(5, 3);
    Place other = place;
    other.listTop = other.caretLine = other.topLine = 7;
    EXPECT_TRUE(IsSamePlace(place, other));
    for (const Place& differing :
         {Place{6, 5, "Mine", 3}, Place{5, 6, "Mine", 3}, Place{5, 5, "Yours", 3}, Place{5, 5, "Mine", 4}})
        EXPECT_FALSE(IsSamePlace(place, differing));
}

TEST(Places, LeadBackAndForward) {
    Places places;
    EXPECT_FALSE(CanGoBack(places) || CanGoForward(places));
    KeepJump(places, At(1));
    KeepJump(places, At(2));
    EXPECT_TRUE(CanGoBack(places));
    EXPECT_FALSE(CanGoForward(places));
    EXPECT_EQ(GoBack(places, At(3)).topVerse, 2);
    EXPECT_TRUE(CanGoBack(places) && CanGoForward(places));
    EXPECT_EQ(GoBack(places, At(2)).topVerse, 1);
    EXPECT_FALSE(CanGoBack(places));
    EXPECT_EQ(GoForward(places, At(1)).topVerse, 2);
    EXPECT_EQ(GoForward(places, At(2)).topVerse, 3);
    EXPECT_FALSE(CanGoForward(places));
}

TEST(Places, AreKeptAsTheyWereLeft) {
    Places places;
    KeepJump(places, At(1));
    EXPECT_EQ(GoBack(places, At(20)).topVerse, 1);  // scrolled from 2 to 20
    EXPECT_EQ(GoForward(places, At(10)).topVerse, 20);
    EXPECT_EQ(GoBack(places, At(21)).topVerse, 10);
    EXPECT_EQ(GoForward(places, At(10)).topVerse, 21);
}

TEST(Places, ForwardOfAJumpAreDropped) {
    Places places;
    for (const int verse : {1, 2, 3}) KeepJump(places, At(verse));
    GoBack(places, At(4));
    GoBack(places, At(3));
    KeepJump(places, At(2));
    EXPECT_FALSE(CanGoForward(places));
    EXPECT_EQ(GoBack(places, At(9)).topVerse, 2);
    EXPECT_EQ(GoBack(places, At(2)).topVerse, 1);
    EXPECT_FALSE(CanGoBack(places));
}

TEST(Places, AreTwoHundred) {
    Places places;
    for (int verse = 0; verse < 1000; ++verse) KeepJump(places, At(verse));
    EXPECT_EQ(places.visited.size(), 200u);
    int steps = 0, verse = 1000;
    for (; CanGoBack(places); ++steps) verse = GoBack(places, At(verse)).topVerse;
    EXPECT_EQ(steps, 199);
    EXPECT_EQ(verse, 801);
    for (; CanGoForward(places); --steps) verse = GoForward(places, At(verse)).topVerse;
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(verse, 1000);
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

TEST(PlacesLists, AreShownAgainOnTheWayBackAndForward) {
    Places places;
    Search(places, 0);
    Search(places, 1);
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1));
    const Place back = GoBack(places, At(0, 2));
    EXPECT_EQ(back.list, 1);
    const auto list = TakeList(places, back.list);
    ASSERT_TRUE(list.has_value());
    EXPECT_EQ(list->summary, "1 verses");
    EXPECT_THAT(Unpacked(list->verses), ElementsAre(1, 2));
    KeepList(places, ListNumbered(2));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 2));
    EXPECT_FALSE(TakeList(places, 1).has_value()) << "it is shown now";
    EXPECT_EQ(GoForward(places, At(0, 1)).list, 2);
    EXPECT_TRUE(TakeList(places, 2).has_value());
}

TEST(PlacesLists, AreFiveWithTheOneShown) {
    Places places;
    for (int number = 0; number < 9; ++number) Search(places, number, number);
    EXPECT_THAT(NumbersOf(places), ElementsAre(5, 6, 7, 8));  // the list 9 is shown
    for (int number = 8; number >= 0; --number) {
        const Place back = GoBack(places, At(number + 1, number + 1));
        EXPECT_EQ(back.topVerse, number) << "Passage and note remain";
        const auto list = TakeList(places, back.list);
        EXPECT_EQ(list.has_value(), number >= 5) << number;
        if (list) KeepList(places, ListNumbered(number + 1));
    }
}

TEST(PlacesLists, AreDroppedWithTheirLastPlace) {
    Places places;
    for (int number = 0; number < 3; ++number) Search(places, number);
    GoBack(places, At(0, 3));
    TakeList(places, 2);
    KeepList(places, ListNumbered(3));
    KeepJump(places, At(7, 2));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1)) << "nothing leads to the list 3 any more";
    KeepList(places, ListNumbered(3));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1));
    for (int verse = 0; verse < 300; ++verse) KeepJump(places, At(verse, 2));
    EXPECT_THAT(NumbersOf(places), ElementsAre());
}

// ---- Verses ---------------------------------------------------------------------------------------------------------

TEST(PackedVerses, AreTheSameVerses) {
    std::vector<std::int32_t> all(kVerseCount);
    std::iota(all.begin(), all.end(), 0);
    std::vector<std::int32_t> backward(all.rbegin(), all.rend()), twice(all), some, odd;
    twice.insert(twice.begin() + 9, 8);
    for (int verse = 1; verse < kVerseCount; verse += 2) odd.push_back(verse);
    for (int verse = 5; verse < kVerseCount; verse += 17) some.push_back(verse);
    const std::vector<std::int32_t> none, one{kLastVerse}, unordered{7, 3, 7, 31101, 0};
    for (const auto& verses : {all, backward, twice, some, odd, none, one, unordered})
        EXPECT_EQ(Unpacked(Packed(verses)), verses) << verses.size();
}

TEST(PackedVerses, TakeLittleMemory) {
    std::vector<std::int32_t> all(kVerseCount);
    std::iota(all.begin(), all.end(), 0);
    EXPECT_LE(Packed(all).words.size() * 2, 4000u);
    EXPECT_LE(Packed(std::vector<std::int32_t>{1, 2, 3}).words.size() * 2, 6u);
}
