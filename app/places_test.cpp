#include "app/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

using testing::ElementsAre;

static Place At(int verse, int list = 0) {
    return {.topVerse = verse, .noteVerse = verse, .noteSet = "Mine", .list = list};
}

static bool HasSet(const std::string& name) {
    return name != "Deleted";
}

static ShownPlace Now(int verse, int list = 0) {
    return {At(verse, list), false, HasSet};
}

static KeptList ListNumbered(int number) {
    return Kept({.number = number, .verses = {number, number + 1}}, std::to_string(number) + " verses");
}

static Deletion DeletionOf(std::size_t entries, const char* summary) {
    return {std::vector<DeletedEntry>(entries), true, summary};
}

static std::vector<int> NumbersOf(const Places& places) {
    std::vector<int> numbers;
    for (const KeptList& list : places.lists) numbers.push_back(list.content.number);
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
    other.listTop = other.caretLine = other.topLine = other.noteTop = 7;
    EXPECT_TRUE(IsSamePlace(place, other));
    for (const Place& differing :
         {Place{6, 5, "Mine", 3}, Place{5, 6, "Mine", 3}, Place{5, 5, "Yours", 3}, Place{5, 5, "Mine", 4}})
        EXPECT_FALSE(IsSamePlace(place, differing));
}

TEST(Places, LeadBackAndForward) {
    Places places;
    EXPECT_FALSE(CanGoBack(places, Now(1)) || CanGoForward(places, Now(1)));
    KeepJump(places, At(1));
    KeepJump(places, At(2));
    EXPECT_TRUE(CanGoBack(places, Now(3)));
    EXPECT_FALSE(CanGoForward(places, Now(3)));
    EXPECT_EQ(GoBack(places, Now(3)).topVerse, 2);
    EXPECT_TRUE(CanGoBack(places, Now(2)) && CanGoForward(places, Now(2)));
    EXPECT_EQ(GoBack(places, Now(2)).topVerse, 1);
    EXPECT_FALSE(CanGoBack(places, Now(1)));
    EXPECT_EQ(GoForward(places, Now(1)).topVerse, 2);
    EXPECT_EQ(GoForward(places, Now(2)).topVerse, 3);
    EXPECT_FALSE(CanGoForward(places, Now(3)));
}

TEST(Places, AreKeptAsTheyWereLeft) {
    Places places;
    KeepJump(places, At(1));
    EXPECT_EQ(GoBack(places, Now(20)).topVerse, 1);  // scrolled from 2 to 20
    EXPECT_EQ(GoForward(places, Now(10)).topVerse, 20);
    EXPECT_EQ(GoBack(places, Now(21)).topVerse, 10);
    EXPECT_EQ(GoForward(places, Now(10)).topVerse, 21);
}

TEST(Places, ForwardOfAJumpAreDropped) {
    Places places;
    for (const int verse : {1, 2, 3}) KeepJump(places, At(verse));
    GoBack(places, Now(4));
    GoBack(places, Now(3));
    KeepJump(places, At(2));
    EXPECT_FALSE(CanGoForward(places, Now(9)));
    EXPECT_EQ(GoBack(places, Now(9)).topVerse, 2);
    EXPECT_EQ(GoBack(places, Now(2)).topVerse, 1);
    EXPECT_FALSE(CanGoBack(places, Now(1)));
}

TEST(Places, ArePassedOverIfTheyShowTheSame) {
    Places places;
    for (const int verse : {1, 2, 3}) KeepJump(places, At(verse));
    EXPECT_EQ(GoBack(places, Now(3)).topVerse, 2) << "scrolled back to where the last jump began";
    EXPECT_TRUE(CanGoBack(places, Now(2)));
    EXPECT_FALSE(CanGoBack(places, Now(1)));
    EXPECT_EQ(GoForward(places, Now(1)).topVerse, 3);
}

TEST(Places, DifferIfTheListIsScrolled) {
    Places places;
    Place scrolled = At(1);
    scrolled.listTop = 7;
    KeepJump(places, scrolled);
    EXPECT_TRUE(CanGoBack(places, Now(1)));
    scrolled.caretLine = 3;
    EXPECT_FALSE(CanGoBack(places, {scrolled, false, HasSet})) << "lines were hidden";
    KeepJump(places, scrolled);
    scrolled.caretLine = 4;
    EXPECT_TRUE(CanGoBack(places, {scrolled, false, HasSet}));
}

TEST(Places, ArePassedOverWithoutTheirSet) {
    Places places;
    Place other = At(1);
    for (const char* set : {"Yours", "Deleted"}) {
        other.noteSet = set;
        KeepJump(places, other);
    }
    EXPECT_EQ(GoBack(places, Now(1)).noteSet, "Yours");
    EXPECT_FALSE(CanGoForward(places, {other, false, [](const std::string&) { return false; }}));
}

TEST(Places, GoOnWithARenamedSet) {
    Places places;
    Place other = At(1);
    other.noteSet = "Old";
    KeepJump(places, other);
    KeptList list;
    list.content.sets = {{{"Mine", "Mine: "}, {"Old", "Old: "}}, {1}};
    list.content.question.set = "Old";
    places.lists.push_back(list);
    RenameSet(places, "Old", {"Yours", "Yours: "});
    EXPECT_EQ(places.lists[0].content.sets.sets[0].name, "Mine");
    EXPECT_EQ(places.lists[0].content.sets.sets[1].label, "Yours: ");
    EXPECT_EQ(places.lists[0].content.question.set, "Yours");
    EXPECT_EQ(GoBack(places, Now(2)).noteSet, "Yours");
}

TEST(Places, LoseTheNotesOfASetThatHasGone) {
    static const RemainingNotes kRemaining = {
        HasSet, [](const ListedQuestion&, const std::vector<std::int32_t>&) { return std::vector<std::int32_t>{6}; }};
    Places places;
    const EntrySets sets{{{"Mine", "Mine: "}, {"Deleted", "Deleted: "}}, {0, 1, 0, 1}, 3};
    const auto list = [&](int number, bool isOfNotes) {
        ListContent content{.number = number, .verses = {5, 5, 6, 7}, .isOfNotes = isOfNotes};
        content.deletions = {DeletionOf(1, "")};
        return content;
    };
    ListContent withSets = list(1, true), mine = list(4, true);
    withSets.sets = mine.sets = sets;
    mine.sets.ofEntries = {0, 0, 0, 0};
    for (const ListContent& each : {withSets, list(2, true), list(3, false), mine})
        places.lists.push_back(Kept(each, "said"));
    DropGoneEntries(places, kRemaining);
    EXPECT_THAT(ContentOf(places.lists[0]).verses, ElementsAre(5, 6));
    EXPECT_THAT(places.lists[0].content.sets.ofEntries, ElementsAre(0, 0));
    EXPECT_THAT(ContentOf(places.lists[1]).verses, ElementsAre(6));
    for (const std::size_t changed : {0U, 1U}) {
        EXPECT_EQ(places.lists[changed].summary, "");
        EXPECT_TRUE(places.lists[changed].content.deletions.empty());
    }
    for (const std::size_t same : {2U, 3U}) {
        EXPECT_THAT(ContentOf(places.lists[same]).verses, ElementsAre(5, 5, 6, 7));
        EXPECT_EQ(places.lists[same].summary, "said");
        EXPECT_EQ(places.lists[same].content.deletions.size(), 1U);
    }
}

TEST(Places, AreTwoHundred) {
    Places places;
    for (int verse = 0; verse < 1000; ++verse) KeepJump(places, At(verse));
    EXPECT_EQ(places.visited.size(), 200u);
    int steps = 0, verse = 1000;
    for (; CanGoBack(places, Now(verse)); ++steps) verse = GoBack(places, Now(verse)).topVerse;
    EXPECT_EQ(steps, 199);
    EXPECT_EQ(verse, 801);
    for (; CanGoForward(places, Now(verse)); --steps) verse = GoForward(places, Now(verse)).topVerse;
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(verse, 1000);
}

// ---- Lists ----------------------------------------------------------------------------------------------------------

TEST(PlacesLists, AreShownAgainOnTheWayBackAndForward) {
    Places places;
    Search(places, 0);
    Search(places, 1);
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1));
    const Place back = GoBack(places, Now(0, 2));
    EXPECT_EQ(back.list, 1);
    const auto list = TakeList(places, back.list);
    ASSERT_TRUE(list.has_value());
    EXPECT_EQ(list->summary, "1 verses");
    EXPECT_THAT(ContentOf(*list).verses, ElementsAre(1, 2));
    KeepList(places, ListNumbered(2));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 2));
    EXPECT_FALSE(TakeList(places, 1).has_value()) << "it is shown now";
    EXPECT_EQ(GoForward(places, Now(0, 1)).list, 2);
    EXPECT_TRUE(TakeList(places, 2).has_value());
}

TEST(PlacesLists, AreFiveBesidesTheOneShown) {
    Places places;
    for (int number = 0; number < 9; ++number) Search(places, number, number);
    EXPECT_THAT(NumbersOf(places), ElementsAre(4, 5, 6, 7, 8));  // the list 9 is shown
    for (int number = 8; number >= 0; --number) {
        const Place back = GoBack(places, Now(number + 1, number + 1));
        EXPECT_EQ(back.topVerse, number) << "Passage and note remain";
        const auto list = TakeList(places, back.list);
        EXPECT_EQ(list.has_value(), number >= 4) << number;
        if (list) KeepList(places, ListNumbered(number + 1));
    }
}

// Places before the first search have the empty list of the start, which is dropped like any other.
TEST(PlacesLists, ArePassedOverWhenTheyWereDropped) {
    Places places;
    for (int number = 0; number < 7; ++number) Search(places, number);
    for (int number = 6; number >= 2; --number) {
        const Place back = GoBack(places, Now(0, number + 1));
        EXPECT_EQ(back.list, number);
        EXPECT_TRUE(TakeList(places, number).has_value());
        KeepList(places, ListNumbered(number + 1));
    }
    EXPECT_FALSE(CanGoBack(places, Now(0, 2)));
    EXPECT_EQ(GoForward(places, Now(0, 2)).list, 3);
}

TEST(PlacesLists, ArePassedOverIfBothAreEmpty) {
    Places places;
    KeepJump(places, At(1, 0));
    KeepList(places, Kept({.number = 0}, ""));
    EXPECT_FALSE(CanGoBack(places, {At(1, 1), true, HasSet}));
    EXPECT_TRUE(CanGoBack(places, Now(1, 1)));
}

TEST(PlacesLists, AreDroppedWithTheirLastPlace) {
    Places places;
    for (int number = 0; number < 3; ++number) Search(places, number);
    GoBack(places, Now(0, 3));
    TakeList(places, 2);
    KeepList(places, ListNumbered(3));
    KeepJump(places, At(7, 2));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1)) << "nothing leads to the list 3 any more";
    KeepList(places, ListNumbered(3));
    EXPECT_THAT(NumbersOf(places), ElementsAre(0, 1));
    for (int verse = 0; verse < 300; ++verse) KeepJump(places, At(verse, 2));
    EXPECT_THAT(NumbersOf(places), ElementsAre());
}

TEST(PlacesLists, KeepTheirLatestDeletions) {
    static constexpr std::size_t kMany = (kMostBytesOfList - 200) / sizeof(DeletedEntry);
    Places places;
    KeptList list = ListNumbered(0);
    list.content.deletions = {DeletionOf(1, "first"), DeletionOf(kMany, "second"), DeletionOf(2, "third")};
    KeepJump(places, At(1, 0));
    KeepList(places, list);
    ASSERT_EQ(places.lists.front().content.deletions.size(), 2u);
    EXPECT_EQ(places.lists.front().content.deletions.front().summary, "second");
    list.content.deletions = {DeletionOf(1, "first"), DeletionOf(2 * kMany, "too many")};
    TakeList(places, 0);
    KeepList(places, list);
    EXPECT_TRUE(places.lists.front().content.deletions.empty());
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
