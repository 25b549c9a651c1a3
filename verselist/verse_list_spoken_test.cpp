// What a screen reader is told of the entries of the Verse List.
#include <gtest/gtest.h>

#include "pane/spoken_items.h"
#include "tests/support/even_letters.h"
#include "tests/support/hand_made_scripture.h"
#include "verselist/verse_list_flow.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6One two three four."},
    {1, 1, 2, "And ([is] the [light]: so."},
    {43, 11, 35, "Jesus wept."},
};

namespace {

struct ListFixture {
    HandMadeFiles files = MakeFiles(kVerses);
    Scripture scripture = ScriptureOf(files);
    Query query{};
    VerseList list{};
    VerseListFlow flow{};
};

}  // namespace

static void Open(ListFixture& fixture, int height) {
    fixture.list.ListEntries = {2, 1, 0, 1};
    fixture.query.words = {"light", "the"};
    fixture.flow.scripture = &fixture.scripture;
    fixture.flow.measure = EvenLetters();
    fixture.flow.query = &fixture.query;
    fixture.flow.list = &fixture.list;
    fixture.flow.width = 200;
    fixture.flow.height = height;
}

TEST(VerseListSpoken, ListTellsItsLength) {
    VerseList list;
    EXPECT_EQ(SpokenListName(list), "Verse List, no verses");
    FillVerseList(list, {8});
    EXPECT_EQ(SpokenListName(list), "Verse List, 1 verse");
    FillVerseList(list, std::vector<std::int32_t>(159));
    EXPECT_EQ(SpokenListName(list), "Verse List, 159 verses");
}

TEST(VerseListSpoken, EntriesHaveTheirPlaces) {
    ListFixture fixture;
    Open(fixture, 110);
    fixture.list.ListTop = 1;
    SpokenItems shown{200, 110, 20, {}};
    WalkVerseList(fixture.flow, ItemsVisitor(shown));
    ASSERT_EQ(shown.items.size(), 3u);
    EXPECT_EQ(shown.items[0].item, 1);
    EXPECT_EQ(shown.items[0].lines, (std::vector<SpokenPlace>{{1, 0, 191, 20}, {20, 20, 130, 40}}));
    EXPECT_EQ(PlaceOf(shown, shown.items[1]), (SpokenPlace{1, 40, 171, 80}));
    EXPECT_EQ(PlaceOf(shown, shown.items[2]), (SpokenPlace{1, 80, 191, 110})) << "cut off by the pane";
    EXPECT_EQ(ItemAt(shown, 3, 65), 2) << "the indent";
    for (const SpokenItem& item : shown.items) {
        const SpokenPlace place = PlaceOf(shown, item);
        EXPECT_EQ(ItemAt(shown, (place.left + place.right) / 2, (place.top + place.bottom) / 2), item.item);
    }
}

TEST(VerseListSpoken, EntryTellsWhatWasFound) {
    ListFixture fixture;
    Open(fixture, kEndlessHeight);
    fixture.list.ListTop = 1;
    fixture.flow.options.Italics = kBracketed;
    SpokenWords words;
    WalkVerseList(fixture.flow, WordsVisitor(words));
    EXPECT_EQ(SpokenName("Genesis 1:2", words), "Genesis 1:2 And ([is] the [light]: so.");
    EXPECT_EQ(SpokenDescription(words), "Found: the, light.");
}
