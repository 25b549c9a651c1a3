// The About dialog: icon, version, and which text the program has.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"

using testing::ElementsAre;

static constexpr char kTitle[] = "About Versewell97";
static constexpr char kVersionLine[] = "Version " VERSEWELL_VERSION;
static constexpr char kCounts[] = "31,102 verses, 12,729 different words";
static constexpr char kOther[] = "Other scripture files than this program was built with: ";

static std::vector<std::string> LinesOf(HWND dialog) {
    std::vector<std::string> lines;
    for (const HWND child : ChildrenOf(dialog))
        if (ClassOf(child) == "Static" && (GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
            lines.push_back(TextOf(child));
    return lines;
}

static bool HasIcon(HWND dialog) {
    for (const HWND child : ChildrenOf(dialog))
        if (ClassOf(child) == "Static" && (GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            return SendMessageA(child, STM_GETICON, 0, 0) != 0;
    return false;
}

static HWND OpenAbout(const Program& program) {
    Command(program, IDM_ABOUT);
    return WaitForDialog(program, kTitle);
}

// Height of the control, and of its text when it is broken at its width, in the font of the dialogs.
static std::pair<LONG, LONG> HeightsOf(HWND control) {
    const RECT room = ClientRectOf(control);
    RECT needed = room;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HFONT font = CreateFontA(-MulDiv(8, GetDeviceCaps(dc, LOGPIXELSY), 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                   FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, "MS Shell Dlg");
    const HGDIOBJ before = SelectObject(dc, font);
    DrawTextA(dc, TextOf(control).c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, before);
    DeleteObject(font);
    DeleteDC(dc);
    return {room.bottom, needed.bottom};
}

TEST(About, ShowsIconVersionAndTextUntilItIsClosed) {
    const Program program = StartProgram(FolderWithScripture());
    for (const char* key : {"Enter", "Esc"}) {
        const HWND dialog = OpenAbout(program);
        EXPECT_THAT(ButtonsOf(dialog), ElementsAre("OK"));
        EXPECT_TRUE(HasIcon(dialog));
        EXPECT_THAT(LinesOf(dialog),
                    ElementsAre("Versewell97 v3.2", kVersionLine, "Authorized Version, Pure Cambridge Edition", kCounts,
                                "Its five files are those that this program was built with."));
        const RECT frame = RectOnScreen(program.frame);
        const RECT place = RectOnScreen(dialog);
        const LONG height = static_cast<LONG>((frame.bottom - frame.top) * 0.9);
        EXPECT_EQ(place.left, frame.left + (frame.right - frame.left - (place.right - place.left)) / 2);
        EXPECT_EQ(place.top, frame.top + (height - (place.bottom - place.top)) / 2);
        SavePicture(PictureOfWindow(dialog), "about");
        Press(program, key);
        WaitForNoDialog(program);
    }
}

static void ChangeOneByte(const ScratchFolder& folder, const std::string& name, std::size_t at, char byte) {
    std::string bytes = ReadFile(folder, name);
    ASSERT_LT(at, bytes.size());
    ASSERT_NE(bytes[at], byte);
    bytes[at] = byte;
    WriteFile(folder, name, bytes);
}

// No box at the start, and About does not name the edition.
TEST(About, TellsThatAByteOfTheTextHasChanged) {
    const ScratchFolder folder = FolderWithScripture();
    ChangeOneByte(folder, "_avtext.dat", 2000000, '~');
    const Program program = StartProgram(folder);
    EXPECT_THAT(LinesOf(OpenAbout(program)),
                ElementsAre("Versewell97 v3.2", kVersionLine, "Authorized Version, edition unknown", kCounts,
                            std::string(kOther) + "_avtext.dat"));
}

TEST(About, CountsWhatOtherFilesHave) {
    const ScratchFolder folder = FolderWithScripture();
    const std::string words = ReadFile(folder, "_avwrds.dat");
    WriteFile(folder, "_avwrds.dat", words + std::string("zzz\0", 4));
    WriteFile(folder, "_avwptr.dat", ReadFile(folder, "_avwptr.dat") + std::string("\0\0\0\0", 4));
    const Program program = StartProgram(folder);
    EXPECT_THAT(LinesOf(OpenAbout(program)),
                ElementsAre("Versewell97 v3.2", kVersionLine, "Authorized Version, edition unknown",
                            "31,102 verses, 12,730 different words", std::string(kOther) + "_avwrds.dat, _avwptr.dat"));
}

TEST(About, HasRoomForTheNamesOfAllFiles) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* name : {"_avvidx.dat", "_avtext.dat", "_avwrds.dat", "_avwptr.dat", "_avwidx.dat"})
        WriteFile(folder, name, ReadFile(folder, name) + std::string(1, '\0'));
    const Program program = StartProgram(folder);
    const HWND dialog = OpenAbout(program);
    EXPECT_EQ(LinesOf(dialog).back(),
              std::string(kOther) + "_avvidx.dat, _avtext.dat, _avwrds.dat, _avwptr.dat, _avwidx.dat");
    for (const int id : {IDC_EDITION, IDC_TEXT_COUNTS, IDC_TEXT_FILES}) {
        const auto [room, needed] = HeightsOf(Child(dialog, {id}));
        EXPECT_GE(room, needed) << id;
        EXPECT_GT(needed, 0) << id;
    }
    SavePicture(PictureOfWindow(dialog), "about-other-files");
}
