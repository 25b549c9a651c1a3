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
