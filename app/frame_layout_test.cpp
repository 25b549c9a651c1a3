#include "app/frame_layout.h"

#include <gtest/gtest.h>

#include <vector>

static constexpr Area kHidden{-1, -1, -1, -1};

static Area PlaceOf(const PanePlace& pane) {
    return pane.shown ? pane.place : kHidden;
}

TEST(LayOutFrame, DividesTheFrameAmongTheShownPanes) {
    // 800 x 600 with a toolbar of 26 and a status bar of 22 leaves 550 pixels from y = 28, of which 302 are above the
    // notes.
    static constexpr FrameSize kSize{800, 600, 26, 22};
    static constexpr struct {
        ShownPanes shown;
        Area list, passage, notes;
    } kRows[] = {
        {{1, 1, 1, 1}, {0, 28, 400, 302}, {400, 28, 400, 302}, {0, 330, 800, 248}},
        {{0, 1, 1, 1}, kHidden, {0, 28, 800, 302}, {0, 330, 800, 248}},
        {{1, 0, 1, 1}, {0, 28, 800, 302}, kHidden, {0, 330, 800, 248}},
        {{1, 1, 0, 1}, {0, 28, 400, 550}, {400, 28, 400, 550}, kHidden},
        {{0, 0, 1, 1}, kHidden, kHidden, {0, 28, 800, 550}},
        {{0, 1, 0, 1}, kHidden, {0, 28, 800, 550}, kHidden},
        {{1, 0, 0, 1}, {0, 28, 800, 550}, kHidden, kHidden},
        {{0, 0, 0, 1}, kHidden, kHidden, kHidden},
        // Without the toolbar the panes begin at 0: 578 pixels, of which 317 are above the notes.
        {{1, 1, 1, 0}, {0, 0, 400, 317}, {400, 0, 400, 317}, {0, 317, 800, 261}},
        {{0, 0, 1, 0}, kHidden, kHidden, {0, 0, 800, 578}},
        {{-1, 2, 256, -7},
         {0, 28, 400, 302},
         {400, 28, 400, 302},
         {0, 330, 800, 248}},  // any nonzero value shows a pane
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.shown.VerseListWindow << row.shown.ReadWindow << row.shown.NotesWindow
                                        << row.shown.ToolBar);
        const FrameLayout layout = LayOutFrame(kSize, row.shown, false);
        EXPECT_EQ(PlaceOf(layout.list), row.list);
        EXPECT_EQ(PlaceOf(layout.passage), row.passage);
        EXPECT_EQ(PlaceOf(layout.notes), row.notes);
        EXPECT_FALSE(layout.editor.shown);
        // The editor takes the place of the notes, and is hidden with them.
        const FrameLayout editing = LayOutFrame(kSize, row.shown, true);
        EXPECT_EQ(PlaceOf(editing.list), row.list);
        EXPECT_EQ(PlaceOf(editing.passage), row.passage);
        EXPECT_EQ(PlaceOf(editing.editor), row.notes);
        EXPECT_FALSE(editing.notes.shown);
    }
}

TEST(DivideListRoom, GivesTheStripTheRightEdge) {
    const PanePlace room{true, {4, 30, 400, 270}};
    const ListPlaces both = DivideListRoom(room, 48);
    EXPECT_EQ(PlaceOf(both.list), (Area{4, 30, 352, 270}));
    EXPECT_EQ(PlaceOf(both.strip), (Area{356, 30, 48, 270}));
    const ListPlaces narrow = DivideListRoom({true, {0, 0, 100, 50}}, 48);
    EXPECT_EQ(PlaceOf(narrow.list), (Area{0, 0, 67, 50}));
    EXPECT_EQ(PlaceOf(narrow.strip), (Area{67, 0, 33, 50}));
    for (const auto& [place, width] : {std::pair{room, 0}, {PanePlace{true, {0, 0, 2, 50}}, 48}}) {
        EXPECT_EQ(PlaceOf(DivideListRoom(place, width).list), place.place);
        EXPECT_EQ(PlaceOf(DivideListRoom(place, width).strip), kHidden);
    }
    EXPECT_EQ(PlaceOf(DivideListRoom({}, 48).list), kHidden);
    EXPECT_EQ(PlaceOf(DivideListRoom({}, 48).strip), kHidden);
}

TEST(LayOutFrame, RoundsDownWithoutGaps) {
    const FrameLayout layout = LayOutFrame({801, 603, 26, 22}, {}, false);
    EXPECT_EQ(layout.list.place, (Area{0, 28, 400, 304}));
    EXPECT_EQ(layout.passage.place, (Area{400, 28, 401, 304}));
    EXPECT_EQ(layout.notes.place, (Area{0, 332, 801, 249}));
}

TEST(LayOutFrame, NeverGivesNegativeSizes) {
    static constexpr FrameSize kSizes[] = {{0, 0, 26, 22},    {0, 0, 0, 0},     {1, 1, 26, 22},     {100, 50, 26, 22},
                                           {100, 51, 26, 22}, {-5, -5, 26, 22}, {32767, 49, 26, 22}};
    for (const FrameSize& size : kSizes) {
        for (int panes = 0; panes < 16; ++panes) {
            const ShownPanes shown{panes & 1, panes & 2, panes & 4, panes & 8};
            const FrameLayout layout = LayOutFrame(size, shown, false);
            for (const PanePlace& pane : {layout.list, layout.passage, layout.notes, layout.editor}) {
                EXPECT_GE(pane.place.width, 0);
                EXPECT_GE(pane.place.height, 0);
                EXPECT_GE(pane.place.x, 0);
                EXPECT_GE(pane.place.y, 0);
                EXPECT_TRUE(pane.shown || pane.place == (Area{0, 0, 0, 0}));
            }
        }
    }
}

// ---- Dividers -------------------------------------------------------------------------------------------------------

static constexpr FrameSize kUsualSize{800, 600, 26, 22};  // its panes have 550 pixels from y = 28

TEST(PaneShares, DivideTheFrame) {
    const FrameLayout layout = LayOutFrame(kUsualSize, {}, false, {25'000, 80'000});
    EXPECT_EQ(layout.list.place, (Area{0, 28, 200, 440}));
    EXPECT_EQ(layout.passage.place, (Area{200, 28, 600, 440}));
    EXPECT_EQ(layout.notes.place, (Area{0, 468, 800, 110}));
    const FrameLayout editing = LayOutFrame(kUsualSize, {}, true, {25'000, 80'000});
    EXPECT_EQ(editing.editor.place, layout.notes.place);
    const FrameLayout alone = LayOutFrame(kUsualSize, {0, 1, 0, 1}, false, {25'000, 80'000});
    EXPECT_EQ(alone.passage.place, (Area{0, 28, 800, 550}));
}

TEST(PaneShares, LeaveEachPaneItsLeastSize) {
    for (const PaneShares& low : {PaneShares{0, 0}, PaneShares{1, 1}, PaneShares{-7, -2147483647 - 1}}) {
        const FrameLayout layout = LayOutFrame(kUsualSize, {}, false, low);
        EXPECT_EQ(layout.list.place, (Area{0, 28, 120, 80}));
        EXPECT_EQ(layout.notes.place, (Area{0, 108, 800, 470}));
    }
    for (const PaneShares& high : {PaneShares{100'000, 100'000}, PaneShares{99'999, 2147483647}}) {
        const FrameLayout layout = LayOutFrame(kUsualSize, {}, false, high);
        EXPECT_EQ(layout.passage.place, (Area{680, 28, 120, 470}));
        EXPECT_EQ(layout.notes.place, (Area{0, 498, 800, 80}));
    }
}

// Too small for two least sizes, or with the usual shares, the frame is divided as it always was.
TEST(PaneShares, GiveWayInASmallFrame) {
    for (int width = 0; width < 240; ++width) {
        const FrameSize size{width, 48 + 159, 26, 20};
        const FrameLayout usual = LayOutFrame(size, {}, false), other = LayOutFrame(size, {}, false, {9'000, 9'000});
        EXPECT_EQ(other.list.place, usual.list.place);
        EXPECT_EQ(other.notes.place, usual.notes.place);
        EXPECT_EQ(usual.list.place.width, width / 2);
    }
    EXPECT_EQ(LayOutFrame({240, 600, 26, 22}, {}, false, {9'000, 55'000}).list.place.width, 120);
}

TEST(Dividers, AreFoundNearTheLinesBetweenPanes) {
    const FrameLayout all = LayOutFrame(kUsualSize, {}, false);  // 400 wide, down to 330
    static constexpr struct {
        int x, y;
        Divider divider;
    } kRows[] = {
        {400, 100, Divider::kBesideList}, {396, 100, Divider::kBesideList}, {404, 28, Divider::kBesideList},
        {395, 100, Divider::kNone},       {405, 100, Divider::kNone},       {400, 27, Divider::kNone},
        {100, 330, Divider::kAboveNotes}, {100, 326, Divider::kAboveNotes}, {700, 334, Divider::kAboveNotes},
        {400, 328, Divider::kAboveNotes}, {100, 325, Divider::kNone},       {400, 335, Divider::kNone},
    };
    for (const auto& row : kRows)
        EXPECT_EQ(DividerNear(all, row.x, row.y, 4).divider, row.divider) << row.x << ' ' << row.y;
    EXPECT_EQ(DividerNear(all, 402, 100, 4).at, 400);
    EXPECT_EQ(DividerNear(all, 100, 333, 4).at, 330);
    EXPECT_EQ(DividerNear(LayOutFrame(kUsualSize, {}, true), 9, 330, 4).divider, Divider::kAboveNotes);
    const FrameLayout noList = LayOutFrame(kUsualSize, {0, 1, 1, 1}, false);
    EXPECT_EQ(DividerNear(noList, 400, 100, 4).divider, Divider::kNone);
    EXPECT_EQ(DividerNear(noList, 800, 100, 4).divider, Divider::kNone);
    EXPECT_EQ(DividerNear(noList, 400, 330, 4).divider, Divider::kAboveNotes);
    const FrameLayout noPassage = LayOutFrame(kUsualSize, {1, 0, 1, 1}, false);
    EXPECT_EQ(DividerNear(noPassage, 800, 100, 4).divider, Divider::kNone);
    const FrameLayout noNotes = LayOutFrame(kUsualSize, {1, 1, 0, 1}, false);
    EXPECT_EQ(DividerNear(noNotes, 100, 578, 4).divider, Divider::kNone);
    const FrameLayout notesAlone = LayOutFrame(kUsualSize, {0, 0, 1, 1}, false);
    EXPECT_EQ(DividerNear(notesAlone, 100, 28, 4).divider, Divider::kNone);
    EXPECT_EQ(DividerNear(notesAlone, 0, 0, 4).divider, Divider::kNone);
}

TEST(Dividers, StandWhereTheyAreDragged) {
    for (const int width : {240, 801, 1000, 3840, 32767}) {
        const FrameSize size{width, 600, 26, 22};
        for (int x = 120; x <= width - 120; x += width > 1000 ? 97 : 1) {
            const PaneShares shares = SharesWithDividerAt({}, Divider::kBesideList, x, size, {});
            ASSERT_EQ(LayOutFrame(size, {}, false, shares).passage.place.x, x) << width;
            ASSERT_EQ(shares.UpperShare, 55'000);
        }
    }
    for (int y = 28 + 80; y <= 28 + 550 - 80; ++y) {
        const PaneShares shares = SharesWithDividerAt({}, Divider::kAboveNotes, y, kUsualSize, {});
        ASSERT_EQ(LayOutFrame(kUsualSize, {}, false, shares).notes.place.y, y);
        ASSERT_EQ(shares.ListShare, 50'000);
    }
}

TEST(Dividers, StopAtTheLeastSizes) {
    const PaneShares least = SharesWithDividerAt({}, Divider::kBesideList, -50, kUsualSize, {});
    EXPECT_EQ(LayOutFrame(kUsualSize, {}, false, least).list.place.width, 120);
    const PaneShares most = SharesWithDividerAt(least, Divider::kAboveNotes, 5000, kUsualSize, {});
    EXPECT_EQ(LayOutFrame(kUsualSize, {}, false, most).notes.place.height, 80);
    EXPECT_EQ(most.ListShare, least.ListShare);
    static constexpr PaneShares kChosen{20'000, 20'000};
    for (const Divider divider : {Divider::kBesideList, Divider::kAboveNotes})
        EXPECT_EQ(SharesWithDividerAt(kChosen, divider, 70, {239, 200, 26, 22}, {}), kChosen) << "no room";
}

TEST(Dividers, HaveTheUsualSharesWhereTheyWereAtFirst) {
    const FrameSize size{801, 603, 26, 22};
    PaneShares shares{20'000, 20'000};
    shares = SharesWithDividerAt(shares, Divider::kBesideList, 400, size, {});
    shares = SharesWithDividerAt(shares, Divider::kAboveNotes, 332, size, {});
    EXPECT_EQ(shares, PaneShares{});
    EXPECT_EQ(SharesWithDividerReset({1, 2}, Divider::kBesideList), (PaneShares{50'000, 2}));
    EXPECT_EQ(SharesWithDividerReset({1, 2}, Divider::kAboveNotes), (PaneShares{1, 55'000}));
}

TEST(StatusPartEdges, DivideTheBarIntoFiveParts) {
    static const struct {
        int width;
        std::vector<int> edges;
    } kRows[] = {
        {1000, {227, 449, 550, 772, -1}},
        {800, {181, 359, 440, 617, -1}},
        {640, {145, 287, 352, 494, -1}},
        {777, {176, 348, 427, 599, -1}},
        {2, {0, 0, 1, 1, -1}},  // only the last edge may be -1, which means the right end
        {0, {0, 0, 0, 0, -1}},
    };
    for (const auto& row : kRows) {
        int edges[kStatusPartCount];
        StatusPartEdges(row.width, edges);
        for (int part = 0; part < kStatusPartCount; ++part)
            EXPECT_NEAR(edges[part], row.edges[static_cast<std::size_t>(part)], row.width > 2 && part < 4 ? 1 : 0)
                << row.width << ' ' << part;
    }
}
