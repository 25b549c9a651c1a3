#include "verselist/verse_list.h"

#include <array>
#include <random>

#include <gtest/gtest.h>

static VerseList ListOf(std::vector<std::int32_t> verses, int top = 0, int lastVisible = 0) {
    VerseList list;
    FillVerseList(list, std::move(verses));
    list.ListTop = top;
    list.ListLastVisible = lastVisible;
    return list;
}

TEST(VerseList, FillingResetsTheTop) {
    VerseList list = ListOf({5, 6, 7}, 2, 2);
    FillVerseList(list, {10, 20});
    EXPECT_EQ(ListCount(list), 2);
    EXPECT_EQ(list.ListTop, 0);
    EXPECT_EQ(list.ListLastVisible, 1);
    ClearVerseList(list);
    EXPECT_EQ(ListCount(list), 0);
    EXPECT_EQ(list.ListTop, 0);
    EXPECT_EQ(list.ListLastVisible, -1);
}

TEST(VerseList, DeletingAnEntryKeepsTheOthers) {
    using Entries = std::vector<std::int32_t>;
    struct Row {
        Entries before;
        int top, entry;
        Entries after;
        int newTop;
    };
    const Row rows[] = {
        {{10, 20, 30}, 0, 0, {20, 30}, 0},
        {{10, 20, 30}, 1, 1, {10, 30}, 1},
        {{10, 20, 30}, 2, 2, {10, 20}, 1},  // the last entry, at the top
        {{10, 20, 30}, 2, 0, {20, 30}, 1},
        {{10, 20, 30}, 0, 2, {10, 20}, 0},
        {{10}, 0, 0, {}, 0},  // the only entry
        {{}, 0, 0, {}, 0},    // an empty list
        {{}, 0, -1, {}, 0},
        {{10, 20}, 0, 2, {10, 20}, 0},
    };
    for (const Row& row : rows) {
        VerseList list = ListOf(row.before, row.top, static_cast<int>(row.before.size()) - 1);
        DeleteEntries(list, std::array{row.entry});
        EXPECT_EQ(list.ListEntries, row.after);
        EXPECT_EQ(list.ListTop, row.newTop);
        EXPECT_LT(list.ListLastVisible, std::max(1, ListCount(list)));
    }
}

TEST(VerseList, DeletingManyEntriesKeepsTheTopEntry) {
    using Entries = std::vector<std::int32_t>;
    struct Row {
        std::vector<int> places;
        Entries after;
        int top;
    };
    const Row rows[] = {
        {{0, 1}, {30, 40, 50}, 0},          // the top was 30
        {{3, 4}, {10, 20, 30}, 2},          // below it
        {{1, 2, 4}, {10, 40}, 1},           // the top itself: the next entry
        {{0, 2, 3, 4}, {20}, 0},            // nothing is left below the top
        {{0, 1, 2, 3, 4}, {}, 0},           // all
        {{-1, 1, 5}, {10, 30, 40, 50}, 1},  // places without an entry
        {{}, {10, 20, 30, 40, 50}, 2},
    };
    for (const Row& row : rows) {
        VerseList list = ListOf({10, 20, 30, 40, 50}, 2, 4);
        DeleteEntries(list, row.places);
        EXPECT_EQ(list.ListEntries, row.after);
        EXPECT_EQ(list.ListTop, row.top) << row.places.size();
        EXPECT_EQ(list.canBeSaved, !row.after.empty());
    }
}

TEST(VerseList, DeletionsAreTakenBackOneByOne) {
    VerseList list = ListOf({10, 20, 30, 40}, 0, 3);
    DeleteEntries(list, std::array{1}, "the search");
    DeleteEntries(list, std::array{0, 2});
    DeleteEntries(list, std::array{0});
    EXPECT_TRUE(list.ListEntries.empty());
    EXPECT_FALSE(list.canBeSaved);

    EXPECT_EQ(RestoreEntries(list).entries, (std::vector<DeletedEntry>{{0, 30}}));
    EXPECT_TRUE(list.canBeSaved);
    const Deletion second = RestoreEntries(list);
    EXPECT_EQ(second.entries, (std::vector<DeletedEntry>{{0, 10}, {2, 40}}));
    EXPECT_EQ(second.summary, "");
    EXPECT_EQ(list.ListEntries, (std::vector<std::int32_t>{10, 30, 40}));
    EXPECT_EQ(RestoreEntries(list).summary, "the search");
    EXPECT_EQ(list.ListEntries, (std::vector<std::int32_t>{10, 20, 30, 40}));
    EXPECT_TRUE(RestoreEntries(list).entries.empty());
    EXPECT_EQ(ListCount(list), 4);
}

// A verse may be there several times.
TEST(VerseList, KeepsTheSetsOfItsNotes) {
    VerseList list;
    const EntrySets sets{{{"Mine", "Mine: "}, {"Sermons", "Sermons: "}}, {0, 0, 1, 1}, 500};
    FillWithNotes(list, {10, 20, 10, 30}, sets);
    const auto sequence = [&list] {
        std::string names;
        for (int entry = 0; entry < ListCount(list); ++entry)
            names += SetOfEntry(list, entry)->label +
                     std::to_string(list.ListEntries[static_cast<std::size_t>(entry)]) + ' ';
        return names;
    };
    EXPECT_EQ(sequence(), "Mine: 10 Mine: 20 Sermons: 10 Sermons: 30 ");
    EXPECT_TRUE(list.canBeSaved);
    DeleteEntries(list, std::array{0, 3});
    EXPECT_EQ(sequence(), "Mine: 20 Sermons: 10 ");
    DeleteEntries(list, std::array{0, 1});
    EXPECT_EQ(sequence(), "");
    RestoreEntries(list);
    RestoreEntries(list);
    EXPECT_EQ(list.sets, sets);

    const VerseList alone = EntryAlone(list, 2);
    EXPECT_EQ(alone.ListEntries, (std::vector<std::int32_t>{10}));
    EXPECT_EQ(*SetOfEntry(alone, 0), sets.sets[1]);
    FillVerseList(list, {10, 20});
    EXPECT_EQ(SetOfEntry(list, 1), nullptr);
    EXPECT_EQ(SetOfEntry(EntryAlone(list, 1), 0), nullptr);
}

TEST(VerseList, NewListsForgetDeletions) {
    VerseList list = ListOf({10, 20, 30});
    DeleteEntries(list, std::array{1});
    FillVerseList(list, {10, 20, 30});
    EXPECT_TRUE(RestoreEntries(list).entries.empty());
    DeleteEntries(list, std::array{1});
    FillWithReferences(list, {5});
    EXPECT_TRUE(RestoreEntries(list).entries.empty());
    DeleteEntries(list, std::array{0});
    ClearVerseList(list);
    EXPECT_TRUE(RestoreEntries(list).entries.empty());
}

TEST(VerseList, RestoredEntriesAreVisible) {
    struct Row {
        std::vector<int> places;
        int top, lastVisible;  // after the deletion, when they are restored
        int newTop;
    };
    const Row rows[] = {
        {{3}, 3, 6, 3},     // was the top
        {{5}, 3, 6, 3},     // is visible below the top
        {{1}, 3, 6, 1},     // above the top
        {{8}, 3, 6, 8},     // below the last visible entry
        {{9}, 8, 8, 9},     // was the last
        {{4, 9}, 3, 6, 3},  // the first of them counts
        {{0, 4}, 3, 6, 0}, {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 0, -1, 0},
    };
    for (const Row& row : rows) {
        VerseList list = ListOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
        DeleteEntries(list, row.places);
        list.ListTop = row.top;
        list.ListLastVisible = row.lastVisible;
        RestoreEntries(list);
        EXPECT_EQ(list.ListTop, row.newTop) << row.places.front();
        EXPECT_GE(list.ListLastVisible, list.ListTop);
        EXPECT_LT(list.ListLastVisible, 10);
    }
}

TEST(VerseList, RandomDeletionsAreTakenBack) {
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        std::vector<std::int32_t> verses(random() % 40);
        for (std::int32_t& verse : verses) verse = static_cast<std::int32_t>(random() % 31102);
        VerseList list = ListOf(verses);
        std::vector<std::vector<std::int32_t>> states;
        for (int step = 0; step < 6; ++step) {
            std::vector<int> places;
            std::vector<std::int32_t> left;
            for (int place = 0; place < ListCount(list); ++place) {
                if (random() % 3 == 0) {
                    places.push_back(place);
                } else {
                    left.push_back(list.ListEntries[static_cast<std::size_t>(place)]);
                }
            }
            if (places.empty()) continue;
            states.push_back(list.ListEntries);
            DeleteEntries(list, places);
            ASSERT_EQ(list.ListEntries, left);
        }
        for (; !states.empty(); states.pop_back()) {
            RestoreEntries(list);
            ASSERT_EQ(list.ListEntries, states.back());
        }
        EXPECT_EQ(list.ListEntries, verses);
    }
}

TEST(VerseList, EntriesAreClamped) {
    const VerseList list = ListOf({10, 20, 30});
    EXPECT_EQ(ClampEntry(list, -1), 0);
    EXPECT_EQ(ClampEntry(list, 1), 1);
    EXPECT_EQ(ClampEntry(list, 3), 2);
    EXPECT_EQ(ClampEntry(VerseList{}, 3), 0);
    EXPECT_EQ(ClampEntry(VerseList{}, -1), 0);
}

TEST(VerseList, LastVisibleEntryIsCorrected) {
    struct Row {
        int count, top, last, corrected;
    };
    const Row rows[] = {{5, 1, 3, 3}, {5, 1, 1, 2}, {5, 4, 4, 4}, {1, 0, 0, 0}, {0, 0, 0, -1}};
    for (const Row& row : rows) {
        VerseList list = ListOf(std::vector<std::int32_t>(static_cast<std::size_t>(row.count)), row.top, row.last);
        CorrectLastVisible(list);
        EXPECT_EQ(list.ListLastVisible, row.corrected) << row.count << " entries from " << row.top;
    }
}

// The list shows entries 2 to 6 of ten. Read Context and Delete use the entry of the anchor. The frame's commands use
// the first selected entry, if the list has the focus.
TEST(VerseList, CurrentAndTargetEntryFollowDifferentRules) {
    struct Row {
        SelectionPoint anchor, end;
        int current, target;
    };
    const Row rows[] = {
        {{3, 1}, {5, 1}, 3, 3},  {{5, 1}, {3, 1}, 5, 3},  // dragged upward
        {{1, 1}, {4, 1}, 2, 2},                           // begins above the pane
        {{4, 1}, {1, 1}, 4, 2},                           // ends above the pane
        {{4, 1}, {8, 1}, 2, 2},                           // ends below the pane
        {{8, 1}, {4, 1}, 8, 2},                           // begins below the pane
        {{9, 1}, {9, 2}, 2, 2},                           // scrolled out of view
        {{4, 1}, {-1, -1}, 4, 2}                          // the mouse is not over text
    };
    const VerseList list = ListOf(std::vector<std::int32_t>(10), 2, 6);
    for (const Row& row : rows) {
        Selection selection = {kVerseListOwns, row.anchor, row.end};
        EXPECT_EQ(CurrentEntry(list, selection), row.current) << row.anchor.place;
        EXPECT_EQ(TargetEntry(list, selection, true), row.target) << row.anchor.place;
        EXPECT_EQ(TargetEntry(list, selection, false), 2) << "without the focus";
        selection.SelectionOwner = kPassageOwns;
        EXPECT_EQ(CurrentEntry(list, selection), 2) << "another pane's selection";
        EXPECT_EQ(TargetEntry(list, selection, true), 2) << "another pane's selection";
    }
}

static ListPosition PositionAt(int verse, int top, bool isChosen = false) {
    return {.content = 1, .count = 10, .top = top, .verse = verse, .isChosen = isChosen};
}

TEST(VerseList, IsFollowedWhereTheUserMoves) {
    ListPosition position;
    EXPECT_TRUE(FollowEntry(position, PositionAt(100, 0))) << "a new list";
    EXPECT_FALSE(FollowEntry(position, PositionAt(100, 0)));
    EXPECT_TRUE(FollowEntry(position, PositionAt(103, 0, true))) << "clicked";
    EXPECT_FALSE(FollowEntry(position, PositionAt(100, 0))) << "the focus went to another pane";
    EXPECT_FALSE(FollowEntry(position, PositionAt(103, 0, true))) << "clicked again";
    EXPECT_TRUE(FollowEntry(position, PositionAt(104, 0, true)));
    EXPECT_TRUE(FollowEntry(position, PositionAt(105, 5))) << "scrolled";
    EXPECT_FALSE(FollowEntry(position, PositionAt(105, 5, true)));
    ListPosition fewer = PositionAt(106, 5);
    fewer.count = 9;
    EXPECT_TRUE(FollowEntry(position, fewer)) << "deleted";
    ListPosition ofSet = fewer;
    ofSet.top = 6;
    ofSet.set = "Mine";
    EXPECT_TRUE(FollowEntry(position, ofSet)) << "the same verse, of another set";
    ListPosition other = ofSet;
    other.content = 2;
    EXPECT_TRUE(FollowEntry(position, other)) << "another list that begins as the one before";
    other.verse = kNoVerse;
    other.top = 0;
    EXPECT_FALSE(FollowEntry(position, other)) << "an empty list";
}

// The selection goes when its entry is scrolled to the top, and later the focus.
TEST(VerseList, IsFollowedFromItsTopAfterAScroll) {
    ListPosition position = PositionAt(103, 0, true);
    EXPECT_FALSE(FollowEntry(position, PositionAt(103, 3)));
    EXPECT_TRUE(FollowEntry(position, PositionAt(100, 0)));
}

TEST(VerseList, EmptyListHasNoCurrentEntry) {
    const Selection selection = {kVerseListOwns, {0, 1}, {0, 2}};
    EXPECT_EQ(CurrentEntry({}, selection), -1);
    EXPECT_EQ(TargetEntry({}, selection, true), -1);
    EXPECT_EQ(TargetEntry({}, selection, false), -1);
}

TEST(VerseList, SelectionBeyondTheEndIsClamped) {
    const VerseList list = ListOf({10, 20, 30}, 0, 2);
    EXPECT_EQ(CurrentEntry(list, {kVerseListOwns, {9, 1}, {1, 1}}), 2);
}
