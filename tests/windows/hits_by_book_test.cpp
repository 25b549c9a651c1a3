// Hits by Book: the strip beside the Verse List. Its counts, texts and bars are tested natively
// (verselist/hits_by_book_test.cpp).

#include <windows.h>

#include <commctrl.h>

#include <oleacc.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "scripture/books.h"
#include "tests/driver/accessible.h"
#include "tests/windows/menu_steps.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_look.h"
#include "tests/windows/system_scaling.h"

using testing::ElementsAre;
using testing::Gt;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

static constexpr int kSummary = 0, kEntry = 1;  // parts of the status bar
static constexpr int kExodus = 2, kRomans = 45, kPhilemon = 57, kRevelation = 66;

static HWND StripOf(const Program& program) {
    return Child(program.frame, {IDC_LIST_TABS, IDC_HITS_STRIP});
}

static int HeightOf(HWND strip) {
    return static_cast<int>(ClientRectOf(strip).bottom);
}

static int WidthOfLongest(HWND strip) {
    return static_cast<int>(ClientRectOf(strip).right) - 4;
}

// The first line of the book's slot, and a point in it.
static int TopOfSlot(HWND strip, int book) {
    return (book - 1) * HeightOf(strip) / kBookCount;
}

static POINT InSlot(HWND strip, int book) {
    return {10, TopOfSlot(strip, book)};
}

// Hits of each book, by the references that are listed.
static std::vector<int> ListedHits(const Program& program) {
    std::vector<int> hits(kBookCount);
    for (const std::string& reference : ListStrings(ReferenceListOf(program))) {
        const std::string book = reference.substr(0, reference.rfind(' '));
        for (int number = 1; number <= kBookCount; ++number)
            if (book == BookName(number)) ++hits[static_cast<std::size_t>(number - 1)];
    }
    return hits;
}

static std::vector<int> WordsOfBooks() {
    std::vector<int> words(kBookCount);
    for (int verse = 0; verse < kVerseCount; ++verse) {
        const std::string_view text = VerseText(RealScripture(), verse);
        const int book = RecordOf(RealScripture().records, verse).book;
        words[static_cast<std::size_t>(book - 1)] += static_cast<int>(std::ranges::count(text, ' ')) + 1;
    }
    return words;
}

// The lengths of the bars that are painted.
static std::vector<int> PaintedLengths(HWND strip) {
    const Picture picture = PictureOfClient(strip);
    const std::uint32_t paper = ColorAt(picture, picture.width - 1, picture.height - 1);
    std::vector<int> lengths;
    for (int book = 1; book <= kBookCount; ++book) {
        int length = 0;
        while (length < picture.width && ColorAt(picture, length, TopOfSlot(strip, book)) != paper) ++length;
        lengths.push_back(length);
    }
    return lengths;
}

static std::vector<int> ExpectedLengths(const std::vector<int>& hits, int width) {
    const std::vector<int> words = WordsOfBooks();
    std::vector<double> rates;
    for (std::size_t book = 0; book < hits.size(); ++book) rates.push_back(1.0 * hits[book] / words[book]);
    const double highest = *std::ranges::max_element(rates);
    std::vector<int> lengths;
    for (const double rate : rates)
        lengths.push_back(rate > 0 ? std::max(2, static_cast<int>(std::lround(rate / highest * width))) : 0);
    return lengths;
}

static HWND TipWindow(const Program& program) {
    for (const HWND window : TopLevelWindows(program))
        if (ClassOf(window) == TOOLTIPS_CLASSA) return window;
    return nullptr;
}

static std::string TipShown(const Program& program) {
    const HWND tip = TipWindow(program);
    return tip != nullptr ? TextOf(tip) : "";
}

// Points at the book and waits for the tip to say something else than `before`.
static std::string TipOver(const Program& program, int book, const std::string& before) {
    const HWND strip = StripOf(program);
    MoveMouse(program, strip, InSlot(strip, book));
    WaitUntil(program, "a tip", [&] { return TipShown(program) != before; });
    return TipShown(program);
}

// Wine tells a window only after a while that the mouse has left it.
static void LeaveStrip(const Program& program) {
    ReleaseMouse(program);
    WaitUntil(program, "the tip to go", [&] { return TipShown(program).empty(); });
}

static void ClickBook(const Program& program, int book) {
    Click(program, StripOf(program), InSlot(StripOf(program), book));
}

TEST(HitsByBook, AreShownBesideTheListAndLeadToIt) {
    const ScratchFolder folder = FolderWithScripture();
    Program program = StartProgram(folder);
    const HWND strip = StripOf(program), list = VerseListOf(program);
    EXPECT_FALSE(IsShown(strip));
    EXPECT_FALSE(IsTicked(program, IDM_VIEW_HITS));
    EXPECT_TRUE(IsGreyed(program, IDM_COPY_HITS));
    const LONG right = RectOnScreen(list).right;
    Press(program, "Alt+2");
    Press(program, "Shift+F2");
    EXPECT_TRUE(IsShown(strip));
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_HITS));
    EXPECT_EQ(RectOnScreen(strip).right, right);
    EXPECT_EQ(RectOnScreen(strip).left, RectOnScreen(list).right);
    EXPECT_EQ(CountColors(PictureOfClient(strip), ClientRectOf(strip)), 1) << "of an empty list";

    SearchFor(program, {"grace"});
    ReleaseMouse(program);
    const std::vector<int> hits = ListedHits(program);
    EXPECT_EQ(PaintedLengths(strip), ExpectedLengths(hits, WidthOfLongest(strip)));
    SavePicture(PictureOfWindow(program.frame), "hits-by-book");

    // The mouse
    EXPECT_EQ(TipOver(program, kRomans, ""), "Romans: 20 hits, 2.1 per 1000 words");
    const Picture hovered = PictureOfClient(strip);
    const int end = hovered.width - 1;
    EXPECT_EQ(ColorAt(hovered, end, TopOfSlot(strip, kRomans) + 1), InPicture(GetSysColor(COLOR_WINDOWTEXT)));
    EXPECT_EQ(ColorAt(hovered, end, TopOfSlot(strip, kExodus) + 1), InPicture(GetSysColor(COLOR_WINDOW)));
    SavePicture(PictureOfScreen(RectOnScreen(program.frame)), "hits-by-book-tip");
    EXPECT_EQ(TipOver(program, 3, TipShown(program)), "Leviticus: no hits");
    Press(program, "Alt+2");
    const HWND focus = FocusOf(program);
    ClickBook(program, 3);
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 6:8");
    ClickBook(program, kRomans);
    EXPECT_EQ(StatusPart(program, kEntry), "Romans 1:5");
    EXPECT_EQ(FocusOf(program), focus);
    Wheel(program, strip, -1);
    EXPECT_NE(StatusPart(program, kEntry), "Romans 1:5");
    ClickBook(program, kRevelation);
    EXPECT_EQ(StatusPart(program, kEntry), "Revelation 1:4");
    Press(program, "Back");
    Press(program, "Back");
    EXPECT_EQ(StatusPart(program, kEntry), "Genesis 6:8");
    Press(program, "Shift+Back");
    EXPECT_THAT(StatusPart(program, kEntry), HasSubstr("Romans"));
    LeaveStrip(program);

    // Other entries
    ClickBook(program, kPhilemon);
    EXPECT_EQ(StatusPart(program, kEntry), "Philemon 1:3");
    Press(program, "Alt+1");
    for (int deleted = 0; deleted < hits[kPhilemon - 1]; ++deleted) Press(program, "Delete");
    LeaveStrip(program);
    EXPECT_EQ(PaintedLengths(strip), ExpectedLengths(ListedHits(program), WidthOfLongest(strip)));
    EXPECT_EQ(PaintedLengths(strip)[kPhilemon - 1], 0);
    for (int restored = 0; restored < hits[kPhilemon - 1]; ++restored) Press(program, "Ctrl+z");
    EXPECT_EQ(PaintedLengths(strip)[kPhilemon - 1], WidthOfLongest(strip));

    // The Reference List
    ClickTab(program, Child(program.frame, {IDC_LIST_TABS}), 1);
    EXPECT_TRUE(IsShown(strip));
    ClickBook(program, kRomans);
    const std::vector<std::string> references = ListStrings(ReferenceListOf(program));
    const auto caret = static_cast<std::size_t>(SendMessageA(ReferenceListOf(program), LB_GETCARETINDEX, 0, 0));
    EXPECT_EQ(references[caret], "Romans 1:5");
    Press(program, "Shift+F2");
    EXPECT_FALSE(IsShown(strip));
    EXPECT_EQ(RectOnScreen(ReferenceListOf(program)).right, right);
    Press(program, "Shift+F2");
    Press(program, "F2");
    EXPECT_TRUE(IsGreyed(program, IDM_VIEW_HITS)) << "the list is hidden";
    Press(program, "F2");
    CloseProgram(program);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), HasSubstr("HitsByBook=1"));

    Program again = StartProgram(folder);
    EXPECT_TRUE(IsShown(StripOf(again)));
    SearchInVain(again, {"xyz"});
    Press(again, "Enter");
    EXPECT_EQ(CountColors(PictureOfClient(StripOf(again)), ClientRectOf(StripOf(again))), 1);
    Command(again, IDM_VIEW_HITS);
    CloseProgram(again);
    EXPECT_THAT(ReadFile(folder, "Versewell.more.ini"), Not(HasSubstr("HitsByBook")));
}

static std::string ExpectedTable(const std::vector<int>& hits) {
    const std::vector<int> words = WordsOfBooks();
    std::string table = "Book\tHits\tWords\tHits per 1000 words\r\n";
    for (int book = 1; book <= kBookCount; ++book) {
        const auto at = static_cast<std::size_t>(book - 1);
        char rate[20];
        std::snprintf(rate, sizeof rate, hits[at] > 0 && 1000.0 * hits[at] / words[at] < 0.095 ? "%.2f" : "%.1f",
                      1000.0 * hits[at] / words[at]);
        table += BookName(book) + ('\t' + std::to_string(hits[at])) + '\t' + std::to_string(words[at]) + '\t' + rate +
                 "\r\n";
    }
    return table;
}

TEST(HitsByBook, AreATableForOtherPrograms) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{5, "grace"}, {100, "Truth"}, {26045, "of the Word"}});
    Program program = StartProgram(folder);
    SearchFor(program, {"grace"});
    const std::vector<int> hits = ListedHits(program);
    Press(program, "Shift+F7");  // without the strip
    EXPECT_EQ(ClipboardText(), ExpectedTable(hits));
    SetClipboardText("");
    Click(program, VerseListOf(program), {60, 60}, MouseButton::Right);
    ChooseRow(program, "Copy Hits by Book");
    EXPECT_EQ(ClipboardText(), ExpectedTable(hits));

    // A screen reader
    Press(program, "Shift+F2");
    const HWND strip = StripOf(program), focus = FocusOf(program);
    ListenToEvents(program);
    auto told = Told(program, strip);
    EXPECT_EQ(told->self.role, ROLE_SYSTEM_TABLE);
    EXPECT_STREQ(told->self.name, "Hits by Book");
    EXPECT_STREQ(told->self.description, "Verse List, 159 verses");
    EXPECT_EQ(told->focused, -1);
    ASSERT_EQ(told->listed, kBookCount);
    const ToldChild& romans = told->children[kRomans - 1];
    EXPECT_EQ(romans.role, ROLE_SYSTEM_ROW);
    EXPECT_STREQ(romans.name, "Romans, 20 hits, 2.1 per thousand words");
    EXPECT_STREQ(romans.action, "Go to First Hit");
    EXPECT_EQ(romans.hit, kRomans);
    EXPECT_EQ(romans.next, kRomans + 1);
    EXPECT_STREQ(told->children[2].name, "Leviticus, no hits");
    EXPECT_STREQ(told->children[2].action, "");
    EXPECT_EQ(ToldOf(program, strip, kBookCount + 1).result, E_INVALIDARG);
    EXPECT_EQ(ActOnChild(program, strip, kRomans), S_OK);
    EXPECT_EQ(StatusPart(program, kEntry), "Romans 1:5");
    EXPECT_EQ(FocusOf(program), focus);

    // The strip's own menu, and lists of another kind
    Click(program, strip, InSlot(strip, kRomans), MouseButton::Right);
    EXPECT_THAT(Described(OpenMenuLines(program)),
                ElementsAre("341 Copy Hits by Book\tShift+F7", "---", "340 Hits by Book\tShift+F2 (ticked)"));
    LeaveMenu(program);
    Press(program, "Ctrl+l");
    WaitForDialog(program, "List Notes");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(StatusPart(program, kSummary), "3 verses with notes in 1 set");
    const std::vector<ToldEvent> heard = Heard(program, strip);
    EXPECT_TRUE(std::ranges::any_of(heard, [](const ToldEvent& event) { return event.event == EVENT_OBJECT_REORDER; }));
    EXPECT_STREQ(ToldOf(program, strip, 1).told.name, "Genesis, 2 hits, 0.05 per thousand words");
    ClickBook(program, 43);
    EXPECT_EQ(StatusPart(program, kEntry), "John 1:1");
    EXPECT_EQ(StatusPart(program, 2), "John 1:1") << "the note follows";
    Click(program, strip, InSlot(strip, 1), MouseButton::Right);
    ChooseRow(program, "Hits by Book");
    EXPECT_FALSE(IsShown(strip));
}

// ---- Looks ----------------------------------------------------------------------------------------------------------

static void ExpectNothingStale(const Program& program) {
    LeaveStrip(program);
    const Picture shown = PictureOfClient(StripOf(program));
    InvalidateRect(StripOf(program), nullptr, TRUE);
    Settle(program);
    const RECT stale = DifferingArea(shown, PictureOfClient(StripOf(program)));
    EXPECT_TRUE(IsRectEmpty(&stale));
}

// Paper and bars, without and with a book under the mouse, in colours that can be told apart.
static void ExpectColors(const Program& program, std::uint32_t paper, std::uint32_t bars, const char* name) {
    const HWND strip = StripOf(program);
    LeaveStrip(program);
    const Picture picture = PictureOfClient(strip);
    EXPECT_EQ(ColorAt(picture, picture.width - 1, TopOfSlot(strip, 3)), paper) << name;
    EXPECT_EQ(ColorAt(picture, 0, TopOfSlot(strip, kPhilemon)), bars) << name;
    EXPECT_EQ(CountColors(picture, ClientRectOf(strip)), 2) << name;
    MoveMouse(program, strip, InSlot(strip, kPhilemon));
    const Picture hovered = PictureOfClient(strip);
    const std::uint32_t marked = ColorAt(hovered, 0, TopOfSlot(strip, kPhilemon));
    EXPECT_NE(marked, paper) << name;
    const RECT slot{hovered.width - 1, TopOfSlot(strip, kPhilemon), hovered.width, TopOfSlot(strip, kPhilemon + 1)};
    EXPECT_GE(CountPixels(hovered, slot, marked), 1) << name << ": the line to the edge";
    SavePicture(PictureOfScreen(RectOnScreen(program.frame)), std::string("hits-by-book-") + name);
    LeaveStrip(program);
}

static Program StartWithStrip() {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "Versewell.more.ini", "[VIEW]\r\nHitsByBook=1\r\n");
    return StartWithList(folder);
}

TEST(HitsByBook, HaveTheColorsOfThePanesInEverySize) {
    Program program = StartWithStrip();
    const HWND strip = StripOf(program);
    for (const LONG bottom : {900, 300, 170, 60, 700}) {
        PlaceFrame(program, {10, 10, 900, bottom});
        ExpectNothingStale(program);
        if (HeightOf(strip) >= kBookCount) {
            EXPECT_EQ(PaintedLengths(strip), ExpectedLengths(ListedHits(program), WidthOfLongest(strip))) << bottom;
        }
    }
    ExpectColors(program, InPicture(GetSysColor(COLOR_WINDOW)), InPicture(GetSysColor(COLOR_HIGHLIGHT)), "light");
    Command(program, IDM_DARK_ON);
    const Picture dark = PictureOfClient(strip);
    const std::uint32_t paper = ColorAt(dark, dark.width - 1, dark.height - 1);
    EXPECT_EQ(paper, ColorAt(PictureOfClient(PassageOf(program)), 300, 1));
    ExpectColors(program, paper, ColorAt(dark, 0, TopOfSlot(strip, kPhilemon)), "dark");
    Command(program, IDM_DARK_OFF);
    for (const ColorScheme& scheme : {kContrastBlack, kContrastWhite}) {
        const SystemColors colors(program, scheme);
        SetHighContrast(program, true);
        ExpectColors(program, InPicture(GetSysColor(COLOR_WINDOW)), InPicture(GetSysColor(COLOR_WINDOWTEXT)),
                     GetSysColor(COLOR_WINDOW) == 0 ? "contrast-black" : "contrast-white");
        SetHighContrast(program, false);
    }
    // The list fills the screen, which leaves no room at the right of the strip.
    Press(program, "F3");
    ShowWindow(program.frame, SW_MAXIMIZE);
    Settle(program);
    const RECT screen = RectOnScreen(program.frame), place = RectOnScreen(strip);
    EXPECT_LT(screen.right - place.right, 20);
    TipOver(program, kRevelation, "");
    const RECT tip = RectOnScreen(TipWindow(program));
    EXPECT_LE(tip.right, place.left + 4);
    EXPECT_GE(tip.right, place.left - 16);
    EXPECT_NEAR((tip.top + tip.bottom) / 2, place.bottom - 5, 6);
    LeaveStrip(program);
    ShowWindow(program.frame, SW_RESTORE);
    Press(program, "F3");
    PlaceFrame(program, {10, 10, 250, 400});
    EXPECT_THAT(RectOnScreen(VerseListOf(program)).right, Gt(RectOnScreen(VerseListOf(program)).left + 30))
        << "the strip leaves room in a narrow list";
}

TEST(HitsByBook, AreScaled) {
    for (const int dpi : {192, 288}) {
        const SystemScaling scaling(dpi);
        Program program = StartWithStrip();
        PlaceFrame(program, {0, 0, 900 * dpi / 96, 600 * dpi / 96});
        const HWND strip = StripOf(program);
        const RECT place = RectOnScreen(strip);
        EXPECT_EQ(place.right - place.left, 48 * dpi / 96);
        TipOver(program, kRomans, "");
        SavePicture(PictureOfScreen(RectOnScreen(program.frame)), "hits-by-book-" + std::to_string(dpi));
        LeaveStrip(program);
    }
}
