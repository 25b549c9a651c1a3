// The status bar: its parts and what can be read in them.

#include <chrono>

#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"

static constexpr RECT kUsualPlace{20, 20, 1020, 720};

TEST(StatusBar, PartsScaleWithTheWidth) {
    const Program program = StartProgram(FolderWithScripture());
    for (const LONG width : {1000, 777, 640, 401}) {
        PlaceFrame(program, {20, 20, 20 + width, 620});
        const double w = ClientRectOf(Child(program.frame, {IDC_STATUS_BAR})).right;
        const std::vector<int> edges = StatusEdges(program);
        ASSERT_EQ(edges.size(), 5u);
        const double expected[] = {(0.4 * w - 1) * 0.57, 0.45 * w - 1, 0.55 * w, 0.4 * w * 0.43 + 0.6 * w};
        for (std::size_t part = 0; part < 4; ++part) EXPECT_NEAR(edges[part], static_cast<int>(expected[part]), 1) << w;
        EXPECT_EQ(edges[4], -1);
    }
}

TEST(StatusBar, KeepsItsTextsWhenResized) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "SEARCH", "StartVerse", "5");
    WriteSetting(folder, "SEARCH", "EndVerse", "31101");
    Program program = StartProgram(folder);
    SearchFor(program, {"unsearchable"});
    const auto texts = [&] {
        std::vector<std::string> parts;
        for (int part = 0; part < 5; ++part) parts.push_back(StatusPart(program, part));
        return parts;
    };
    const std::vector<std::string> before = texts();
    EXPECT_EQ(before[1], "Job 5:9");
    EXPECT_EQ(before[4], "Ge 1:6 - Re 22:21");
    PlaceFrame(program, {20, 20, 220, 220});
    PlaceFrame(program, kUsualPlace);
    EXPECT_EQ(texts(), before);
}

static HWND StatusBar(const Program& program) {
    return Child(program.frame, {IDC_STATUS_BAR});
}

static RECT RectOfPart(const Program& program, int part) {
    RECT place{};
    AskAbout(program, StatusBar(program), SB_GETRECT, static_cast<WPARAM>(part), place);
    return place;
}

// The tool tip over a part; "" if none is shown for a second.
static std::string TipOfPart(const Program& program, int part) {
    ReleaseMouse(program);
    const auto tip = [&] {
        for (const HWND window : TopLevelWindows(program))
            if (ClassOf(window) == TOOLTIPS_CLASSA) return TextOf(window);
        return std::string();
    };
    WaitUntil(program, "the last tool tip to go", [&] { return tip().empty(); });
    const RECT place = RectOfPart(program, part);
    PointAt(StatusBar(program), {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    WaitUntil(program, "a tool tip", [&] { return !tip().empty() || std::chrono::steady_clock::now() > end; });
    return tip();
}

// Has the part's picture nothing but dots at its end, where a cut text has letters?
static bool EndsWithDots(const Program& program, int part) {
    static constexpr int kDots = 5;  // pixels at the end; three dots are wider in every font
    RECT place = RectOfPart(program, part);
    MapWindowPoints(StatusBar(program), nullptr, reinterpret_cast<POINT*>(&place), 2);
    InflateRect(&place, -2, -2);
    const Picture picture = PictureOfScreen(place);
    const int middle = picture.height / 2, last = picture.width;
    const std::uint32_t background = ColorAt(picture, last - 1, 0);
    const auto inked = [&](int left, int top, int right, int bottom) {
        const int all = (right - left) * (bottom - top);
        return CountPixels(picture, {left, top, right, bottom}, background) < all;
    };
    int end = last;
    while (end > kDots && !inked(end - 1, 0, end, picture.height)) --end;
    return inked(0, 0, last, middle) && !inked(end - kDots, 0, end, middle) &&
           inked(end - kDots, middle, end, picture.height);
}

static Picture PictureOfPart(const Program& program, int part) {
    RECT place = RectOfPart(program, part);
    MapWindowPoints(StatusBar(program), nullptr, reinterpret_cast<POINT*>(&place), 2);
    return PictureOfScreen(place);
}

// Is `text` what can be read in the part? Compared with the part when it has nothing else to show.
static bool Reads(const Program& program, int part, const std::string& text) {
    const auto setText = [&](const std::string& set) {
        const RemoteMemory room(program, set.size() + 1);
        WriteRemote(room, set.c_str(), set.size() + 1);
        Ask(program, StatusBar(program), SB_SETTEXTA, static_cast<WPARAM>(part),
            reinterpret_cast<LPARAM>(room.address));
        Settle(program);
    };
    const std::string whole = StatusPart(program, part);
    const Picture picture = PictureOfPart(program, part);
    setText(text);
    const RECT differing = DifferingArea(picture, PictureOfPart(program, part));
    setText(whole);
    return IsRectEmpty(&differing) != 0;
}

// The longest references in a frame that is too narrow for them.
TEST(StatusBar, ShortensTextsThatAreTooLongAndShowsThemInToolTips) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "SEARCH", "StartVerse", "29616");
    WriteSetting(folder, "MISC", "ReadVerse", "29616");
    Program program = StartProgram(folder);
    EXPECT_NE(GetWindowLongA(StatusBar(program), GWL_STYLE) & SBARS_TOOLTIPS, 0);
    PlaceFrame(program, {20, 20, 440, 420});
    SavePicture(PictureOfWindow(StatusBar(program)), "status-bar-cut");
    const std::string passage = StatusPart(program, 3);
    EXPECT_EQ(passage, "1 Thessalonians 4:13") << "others can read the whole text";
    EXPECT_EQ(TipOfPart(program, 3), passage);
    EXPECT_TRUE(Reads(program, 3, "1Th 4:13"));
    EXPECT_EQ(TipOfPart(program, 4), StatusPart(program, 4));
    EXPECT_TRUE(EndsWithDots(program, 4));
    Command(program, IDM_GOTO_BOOK + 1);
    EXPECT_EQ(StatusPart(program, 3), "Genesis 1:1");
    EXPECT_EQ(TipOfPart(program, 3), "") << "it is shown whole";
    EXPECT_FALSE(Reads(program, 3, "Ge 1:1"));
    Command(program, IDM_GOTO_BOOK + 52);
    EXPECT_EQ(TipOfPart(program, 3), StatusPart(program, 3));
    PlaceFrame(program, kUsualPlace);
    EXPECT_EQ(TipOfPart(program, 3), "") << "there is room now";
    EXPECT_FALSE(Reads(program, 3, "1Th 1:1"));
    PlaceFrame(program, {20, 20, 220, 220});
    EXPECT_EQ(TipOfPart(program, 3), StatusPart(program, 3));
    EXPECT_TRUE(Reads(program, 3, "1:1"));
    SavePicture(PictureOfWindow(StatusBar(program)), "status-bar-narrow");
}

// The note's part is the narrowest, and letters grow with the scaling while the frame does not.
TEST(StatusBar, TellsTheVersesOnALargeScaling) {
    const SystemScaling scaling(288);
    const ScratchFolder folder = FolderWithScripture();
    for (const char* key : {"ReadVerse", "NoteVerse"}) WriteSetting(folder, "MISC", key, "29616");
    Program program = StartProgram(folder);
    SearchFor(program, {"grace"});
    PlaceFrame(program, {0, 0, 1200, 900});
    SavePicture(PictureOfWindow(StatusBar(program)), "status-bar-288");
    EXPECT_EQ(StatusPart(program, 1), "Genesis 6:8");
    EXPECT_EQ(StatusPart(program, 2), "1 Thessalonians 4:13");
    EXPECT_TRUE(Reads(program, 0, "159 verses, 170..."));
    EXPECT_TRUE(Reads(program, 1, "Genesis 6:8"));
    EXPECT_TRUE(Reads(program, 2, "4:13"));
    EXPECT_TRUE(Reads(program, 3, "1Th 4:13"));
    EXPECT_TRUE(Reads(program, 4, "Ge 1:1 - Re 22:21"));
    PlaceFrame(program, {0, 0, 1100, 900});
    EXPECT_TRUE(Reads(program, 0, "159 verses,..."));
    EXPECT_TRUE(Reads(program, 4, "Ge 1:1-Re 22:21"));
}
