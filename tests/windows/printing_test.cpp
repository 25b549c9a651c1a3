// Printing: Page Setup, Print Range, Print Verse List, cancelling and failures.

#include <windows.h>

#include <psapi.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/test_printer.h"

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Prints a range and returns the words of each page.
static std::vector<std::string> PagesOfRange(const Program& program, const char* range) {
    std::filesystem::remove(program.folder.path / "pages.txt");
    AskForRange(program, range);
    AcceptPrinter(program);
    return PrintedPages(program);
}

// A verse as it is printed, with brackets.
static std::string Verse(const std::string& label, std::string_view reference) {
    return label + " " + WithBlankAfterMark(TextAt(reference));
}

static bool IsReady(const Program& program) {
    return IsWindowEnabled(program.frame) && !HasDialog(program);
}

// ---- The dialogs ----------------------------------------------------------------------------------------------------

TEST(PrintRange, HasTheExpectedControls) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Sermons.old");
    WriteNoteSet(folder, "Study");
    WriteSetting(folder, "MISC", "Note", "1");
    Program program = StartProgram(folder);
    EXPECT_EQ(SelectedTab(Child(program.frame, {IDC_NOTE_TABS})), 1);
    GoTo(program, "Joh 3:16");
    const HWND dialog = OpenPrintRange(program);
    ExpectRangeWithNotesLook(program, dialog, "Print Range", "John 3:16 - ", "John 3:16, 1 verse",
                             "dialog-print-range");
    ExpectMissingHelp(program, dialog);
    Press(program, "Alt+f");
    WaitForDialog(program, "Copy/Save Format");
    Press(program, "Esc");
    SetDlgItemTextA(dialog, IDC_RANGE, "Xyz 3");
    Press(program, "Enter");
    ExpectComplaint(program, "Error", "Unrecognized Refrence");  // (sic)
    EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_RANGE}));
    Press(program, "Esc");
    WaitForNoDialog(program);
}

TEST(Printing, WithoutAPrinterShowsTheSystemsMessage) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_FALSE(HasDialog(program));
    SearchFor(program, {.text = "Melchizedek"});
    for (const int command : {IDM_PAGE_SETUP, IDM_PRINT_RANGE, IDM_PRINT_VERSE_LIST}) {
        EXPECT_FALSE(IsGreyed(program, command));
        if (command == IDM_PRINT_RANGE) {
            AskForRange(program, "Jude");
        } else {
            Command(program, command);
        }
        WaitUntil(program, "the system to say something", [&] { return HasDialog(program); });
        EXPECT_THAT(MessageText(ActiveWindowOf(program)), HasSubstr("printer")) << command;
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_TRUE(IsReady(program));
    }
}

TEST(Printing, CancelInThePrintDialogPrintsNothing) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    const HWND before = FocusOf(program);
    AskForRange(program, "Jude");
    const HWND dialog = WaitForDialog(program, "Print");
    SavePicture(PictureOfWindow(dialog), "dialog-print");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsReady(program));
    EXPECT_EQ(FocusOf(program), before);
    EXPECT_FALSE(HasFile(folder, "pages.txt"));
}

// The program remembers the printer that was the default one at its start.
TEST(Printing, TakesTheDefaultPrinterIfTheRememberedOneIsGone) {
    static constexpr char kLost[] =
        "The printer \"Old Printer\" is not available any more. The default printer is used instead.";
    const ScratchFolder folder = FolderWithScripture();
    auto old = std::make_unique<TestPrinter>(folder, kFailingPort, L"Old Printer");
    Program program = StartProgram(folder);
    old.reset();
    const TestPrinter printer(folder, PortToPages(folder), L"New Printer");
    AskForRange(program, "Ge 1:1");
    ExpectComplaint(program, "Print Error", kLost);
    AcceptPrinter(program);
    EXPECT_THAT(PrintedPages(program), ElementsAre(Verse("Genesis 1:1", "Ge 1:1")));
    EXPECT_THAT(PagesOfRange(program, "Ge 1:2"), ElementsAre(Verse("Genesis 1:2", "Ge 1:2"))) << "said once";
    EXPECT_TRUE(IsReady(program));
}

TEST(Printing, BeginsWithThePrinterThatWasTheDefaultAtTheStart) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter old(folder, PortToPages(folder), L"Old Printer");
    Program program = StartProgram(folder);
    const TestPrinter printer(folder, kFailingPort, L"New Printer");
    EXPECT_THAT(PagesOfRange(program, "Ge 1:1"), ElementsAre(Verse("Genesis 1:1", "Ge 1:1")));
    EXPECT_TRUE(IsReady(program));
}

TEST(PageSetup, TakesTheDefaultPrinterIfTheRememberedOneIsGone) {
    const ScratchFolder folder = FolderWithScripture();
    auto old = std::make_unique<TestPrinter>(folder, kFailingPort, L"Old Printer");
    Program program = StartProgram(folder);
    old.reset();
    const TestPrinter printer(folder, PortToPages(folder), L"New Printer");
    Command(program, IDM_PAGE_SETUP);
    ExpectComplaint(program, "Print Error",
                    "The printer \"Old Printer\" is not available any more. The default printer is used instead.");
    WaitForDialog(program, "Setup Page");
    Press(program, "Esc");
    WaitForNoDialog(program);
    PagesOfRange(program, "Ge 1:1");
    EXPECT_TRUE(IsReady(program));
}

// The system says that there is no printer; nothing else is said.
TEST(Printing, LeavesTheLossOfTheOnlyPrinterToTheSystem) {
    const ScratchFolder folder = FolderWithScripture();
    auto old = std::make_unique<TestPrinter>(folder, kFailingPort, L"Old Printer");
    Program program = StartProgram(folder);
    old.reset();
    for (const int command : {IDM_PRINT_RANGE, IDM_PAGE_SETUP}) {
        if (command == IDM_PRINT_RANGE)
            AskForRange(program, "Jude");
        else
            Command(program, command);
        WaitUntil(program, "the system to say something", [&] { return HasDialog(program); });
        EXPECT_THAT(MessageText(ActiveWindowOf(program)), Not(HasSubstr("Old Printer")));
        Press(program, "Enter");
        WaitForNoDialog(program);
        EXPECT_TRUE(IsReady(program));
    }
}

// ---- What is printed ------------------------------------------------------------------------------------------------

TEST(PrintRange, PrintsLabelsAndWordsInOrder) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const std::string first = Verse("Genesis 50:25", "Ge 50:25"), second = Verse("50:26", "Ge 50:26");
    const std::string third = Verse("Exodus 1:1", "Ex 1:1"), last = Verse("1:2", "Ex 1:2");
    const std::string all = first + " " + second + " " + third + " " + last;
    EXPECT_THAT(PagesOfRange(program, "Ge 50:25 - Ex 1:2"), ElementsAre(all));
    EXPECT_EQ(PagesOfRange(program, "Ge 1:2"), std::vector{Verse("Genesis 1:2", "Ge 1:2")})
        << "brackets around italics";
    Command(program, IDM_ITALIC_NORMAL);
    EXPECT_EQ(PagesOfRange(program, "Ge 1:2"), std::vector{WithoutBrackets(Verse("Genesis 1:2", "Ge 1:2"))});
    EXPECT_TRUE(IsReady(program));
}

TEST(PrintRange, ContinuesAcrossPages) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const std::vector<std::string> pages = PagesOfRange(program, "Jude - Re 3");
    ASSERT_GT(pages.size(), 2u);
    EXPECT_THAT(pages.front(), testing::StartsWith(Verse("Jude 1:1", "Jude 1:1")));
    EXPECT_THAT(pages.back(), testing::EndsWith(Verse("3:22", "Re 3:22")));
    std::string all;
    for (const std::string& page : pages) all += (all.empty() ? "" : " ") + page;
    EXPECT_THAT(all, HasSubstr(Verse("1:25", "Jude 1:25") + " " + Verse("Revelation 1:1", "Re 1:1")));
    for (const PrintedWord& word : PrintedWords(program)) {
        // One inch inside the printable area of a page of 612 by 792 points.
        EXPECT_TRUE(word.left > 89.5 && word.right < 522.5 && word.top > 107.5 && word.bottom < 684.5) << word.text;
    }
}

// Without labels and line breaks nothing else would keep the last word of a verse from the first of the next.
TEST(PrintRange, SeparatesVersesByOneBlank) {
    static constexpr double kBlank = 3;  // points, in letters of twelve points
    const struct {
        const char *style, *lineBreaks, *next;
    } rows[] = {{"2", "0", "Then"}, {"1", "0", "11:36"}, {"0", "0", "John"}, {"2", "1", "Then"}};
    for (const auto& [style, lineBreaks, next] : rows) {
        SCOPED_TRACE(std::string("label style ") + style + ", line breaks " + lineBreaks);
        const ScratchFolder folder = FolderWithScripture();
        WriteSetting(folder, "FORMAT", "FirstVerseStyle", "2");
        WriteSetting(folder, "FORMAT", "SubsequentVerseStyle", style);
        WriteSetting(folder, "FORMAT", "LineBreaks", lineBreaks);
        const TestPrinter printer(folder, PortToPages(folder));
        Program program = StartProgram(folder);
        PagesOfRange(program, "Joh 11:35 - 11:36");
        const std::vector<PrintedWord> words = PrintedWords(program);
        ASSERT_THAT(words, testing::SizeIs(testing::Ge(3u)));
        EXPECT_EQ(words[0].text, "Jesus");
        EXPECT_NEAR(words[0].left, 90, 0.5) << "no blank before the first verse";
        EXPECT_EQ(words[1].text, "wept.");
        EXPECT_EQ(words[2].text, next);
        if (*lineBreaks == '0') {
            EXPECT_NEAR(words[2].left - words[1].right, kBlank, 0.5);
            EXPECT_NEAR(words[2].top, words[1].top, 3);
        } else {
            EXPECT_NEAR(words[2].left, 90, 0.5);
            EXPECT_GT(words[2].top, words[1].top + 3);
        }
    }
}

TEST(PrintVerseList, PrintsEachVerseOnItsOwnLine) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "FORMAT", "SubsequentVerseStyle", "2");
    WriteSetting(folder, "FORMAT", "LineBreaks", "0");
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    SearchFor(program, {.text = "Melchizedek"});
    Command(program, IDM_PRINT_VERSE_LIST);
    AcceptPrinter(program);
    EXPECT_THAT(PrintedPages(program),
                ElementsAre(Verse("Genesis 14:18", "Ge 14:18") + " " + Verse("Psalms 110:4", "Ps 110:4")));
    std::vector<std::string> atTheMargin;
    for (const PrintedWord& word : PrintedWords(program))
        if (word.left < 90.5) atTheMargin.push_back(word.text);
    EXPECT_THAT(atTheMargin, AllOf(Contains("Genesis"), Contains("Psalms")));
}

// ---- Notes ----------------------------------------------------------------------------------------------------------

TEST(PrintRange, PrintsTheNotesOfTheChosenSet) {
    const ScratchFolder folder = FolderWithScripture();
    std::string run;
    while (run.size() < 250) run += "filthilyjust";
    run.resize(250);
    WriteSetting(folder, "OPTIONS", "NoteFontHeight", "10");  // a hundred letters fit on a line of the page
    WriteNoteSet(folder, "Mine", {{0, "my own"}, {1, "mine too"}});
    WriteNoteSet(folder, "Other", {{0, "See also\r\nJohn one"}, {1, run}});
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const HWND tabs = Child(program.frame, {IDC_NOTE_TABS});
    const std::string noteBefore = TextOf(NoteViewOf(program));
    const HWND dialog = OpenPrintRange(program);
    ASSERT_THAT(ComboStrings(Child(dialog, {IDC_NOTE_SET})), ElementsAre("Mine", "Other"));
    SetDlgItemTextA(dialog, IDC_RANGE, "Ge 1:1 - 1:2");
    SendDlgItemMessageA(dialog, IDC_INCLUDE_NOTES, BM_CLICK, 0, 0);
    SendDlgItemMessageA(dialog, IDC_NOTE_SET, CB_SETCURSEL, 1, 0);
    Press(program, "Enter");
    AcceptPrinter(program);
    EXPECT_THAT(PrintedPages(program),
                ElementsAre(Verse("Genesis 1:1", "Ge 1:1") + " See also John one " + Verse("1:2", "Ge 1:2") + " " +
                            run.substr(0, 100) + " " + run.substr(100, 100) + " " + run.substr(200)));
    EXPECT_EQ(TextOf(NoteViewOf(program)), noteBefore);
    EXPECT_EQ(SelectedTab(tabs), 0);
    EXPECT_THAT(PagesOfRange(program, "Ge 1:1"), ElementsAre(Verse("Genesis 1:1", "Ge 1:1"))) << "not wanted";
}

// The words of the note on Genesis 1:1 in the order of the page, with the verse's own left out.
static std::vector<PrintedWord> PrintedNote(const Program& program, std::string_view firstWord) {
    const HWND dialog = OpenPrintRange(program);
    SetDlgItemTextA(dialog, IDC_RANGE, "Ge 1:1");
    SendDlgItemMessageA(dialog, IDC_INCLUDE_NOTES, BM_CLICK, 0, 0);
    Press(program, "Enter");
    AcceptPrinter(program);
    std::vector<PrintedWord> words = PrintedWords(program);
    const auto first = std::ranges::find(words, firstWord, &PrintedWord::text);
    return {first, words.end()};
}

TEST(PrintRange, LeavesBlankUpToTheTabStopsOfTheEditor) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "one\ttwo\t\tthree"}});
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const std::vector<PrintedWord> words = PrintedNote(program, "one");
    ASSERT_EQ(words.size(), 3u) << "no character is printed for a tab";
    const double kMargin = 90, kHalfInch = 36;  // points
    EXPECT_NEAR(words[0].left, kMargin, 0.5);
    EXPECT_NEAR(words[1].left, kMargin + kHalfInch, 0.5);
    EXPECT_NEAR(words[2].left, kMargin + 3 * kHalfInch, 0.5);
}

TEST(PrintRange, BreaksALongWordOfANoteAtTheEdge) {
    std::string word;
    while (word.size() < 95) word += "MWabcdefgh";
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "NoteFontHeight", "40");
    WriteNoteSet(folder, "Mine", {{0, "Before " + word + " after"}});
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const std::vector<PrintedWord> words = PrintedNote(program, "Before");
    ASSERT_GT(words.size(), 4u);
    std::string all;
    for (const PrintedWord& part : words) {
        if (&part != &words.front() && &part != &words.back()) all += part.text;
        EXPECT_LT(part.right, 522.5) << part.text;  // one inch inside the printable area of a page of 612 points
    }
    EXPECT_EQ(all, word);
    EXPECT_EQ(words.back().text, "after");
    EXPECT_NEAR(words[1].left, 90, 1);
    EXPECT_GT(words[1].right, 522 - 40) << "broken only where the next letter does not fit";
}

TEST(PrintRange, ReportsNotesThatCannotBeOpened) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{0, "my own"}});
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const HWND dialog = OpenPrintRange(program);
    SetDlgItemTextA(dialog, IDC_RANGE, "Ge 1:1");
    SendDlgItemMessageA(dialog, IDC_INCLUDE_NOTES, BM_CLICK, 0, 0);
    const UniqueHandle held(
        CreateFileA((folder.path / "Mine.nmd").string().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_NE(held.get(), INVALID_HANDLE_VALUE);
    Press(program, "Enter");
    WaitForDialog(program, "Print");
    Press(program, "Enter");
    ExpectComplaint(program, "Print Error", "Could not open notes file");
}

// ---- Margins and paper ----------------------------------------------------------------------------------------------

// Sets the margins (in inches, as typed) and the paper in the Page Setup dialog.
static void SetUpPage(const Program& program, const char* margin, const char* paper, const char* picture) {
    static constexpr int kPaper = 1137, kFirstMargin = 1155, kLastMargin = 1158;
    Command(program, IDM_PAGE_SETUP);
    const HWND dialog = WaitForDialog(program, "Setup Page");
    const HWND papers = Child(dialog, {kPaper});
    SendMessageA(papers, CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(paper));
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(kPaper, CBN_SELCHANGE), reinterpret_cast<LPARAM>(papers));
    for (int field = kFirstMargin; field <= kLastMargin; ++field) SetDlgItemTextA(dialog, field, margin);
    Settle(program);
    SavePicture(PictureOfWindow(dialog), picture);
    Press(program, "Enter");
    WaitForNoDialog(program);
}

TEST(PageSetup, MarginsAreRoundedDownToWholeInches) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    const struct {
        const char* margin;
        double left, top;
    } rows[] = {{"1.9", 90, 108}, {"2", 162, 180}, {"0.5", 18, 36}};
    for (const auto& [margin, left, top] : rows) {
        SetUpPage(program, margin, "Letter", "dialog-page-setup");
        PagesOfRange(program, "Ge 1:1");
        const PrintedWord word = PrintedWords(program).at(0);
        EXPECT_EQ(word.text, "Genesis");
        // The label begins with a blank that is 3 points wide; letters start a little below the top of their line.
        EXPECT_NEAR(word.left, left + 3, 0.5) << margin;
        EXPECT_NEAR(word.top, top, 6) << margin;
    }
    SetUpPage(program, "1", "A4", "dialog-page-setup-a4");
    PagesOfRange(program, "Ge 1:1");
    EXPECT_THAT(ReadFile(folder, "pages.html"), HasSubstr("<page width=\"595"));
}

// ---- Stopping and failing -------------------------------------------------------------------------------------------

static std::size_t MemoryOf(const Program& program) {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    EXPECT_TRUE(GetProcessMemoryInfo(program.process.get(), &counters, sizeof counters));
    return counters.PagefileUsage;
}

static HWND BeginWholeBible(const Program& program) {
    return BeginPrinting(program, "Ge - Re");
}

// Memory may grow by less than the text of what is printed. The whole Bible takes a minute, because Wine's printer
// driver writes letter by letter, so it is left to long runs.
TEST(Printing, OfManyPagesTakesConstantMemory) {
    static constexpr std::chrono::seconds kLongJob{400};
    const auto [range, room, pages] =
        IsLongRun() ? std::tuple{"Ge - Re", std::size_t{1} << 20, 1000} : std::tuple{"Ps", std::size_t{1} << 18, 50};
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPageCount(folder));
    Program program = StartProgram(folder);
    BeginPrinting(program, range);
    const std::size_t atFirst = MemoryOf(program);
    std::size_t most = 0;
    WaitUntil(
        program, "the end of the job",
        [&] {
            most = std::max(most, MemoryOf(program));
            return !HasDialog(program);
        },
        kLongJob);
    EXPECT_LT(most, atFirst + room);
    EXPECT_GT(PrintedPageCount(program), pages);
}

// The job fails when its pages are complete, so the message is shown while the last page is still told.
TEST(Printing, TellsThePage) {
    const ScratchFolder folder = FolderWithScripture();
    std::size_t pages = 0;
    {
        const TestPrinter printer(folder, PortToPages(folder));
        Program program = StartProgram(folder);
        pages = PagesOfRange(program, "Jude - Re 3").size();
        ASSERT_GT(pages, 2u);
    }
    const TestPrinter printer(folder, kFailingPort);
    Program program = StartProgram(folder);
    AskForRange(program, "Jude - Re 3");
    WaitForDialog(program, "Print");
    Press(program, "Enter");
    WaitForDialog(program, "Print Error");
    const std::vector<HWND> shown = TopLevelWindows(program);
    const auto found = std::ranges::find_if(shown, [](HWND window) { return TextOf(window) == "Printing..."; });
    ASSERT_NE(found, shown.end());
    const HWND dialog = *found;
    EXPECT_EQ(TextOf(dialog, IDC_PRINTED_PAGE), "Page " + std::to_string(pages));
    SavePicture(PictureOfWindow(dialog), "dialog-printing-page");
    Press(program, "Enter");
    WaitForNoDialog(program);
}

TEST(Printing, TellsThePagesWhileItPrints) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPageCount(folder));
    Program program = StartProgram(folder);
    const HWND dialog = BeginWholeBible(program);
    const auto told = [&] {
        const std::string text = TextOf(dialog, IDC_PRINTED_PAGE);
        return text.starts_with("Page ") ? std::atoi(text.c_str() + 5) : 0;
    };
    WaitUntil(program, "the third page", [&] { return told() >= 3; });
    const int third = told();
    WaitUntil(program, "the page after it", [&] { return told() > third; });
    const int last = told();
    Click(program, Child(dialog, {IDC_STOP_PRINTING}));
    WaitForNoDialog(program);
    EXPECT_GE(PrintedPageCount(program), last);
}

TEST(Printing, StopsAtCancel) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPageCount(folder));
    Program program = StartProgram(folder);
    const HWND dialog = BeginWholeBible(program);
    SavePicture(PictureOfWindow(dialog), "dialog-printing");
    EXPECT_FALSE(IsWindowEnabled(program.frame));
    Click(program, Child(dialog, {IDC_STOP_PRINTING}));
    WaitForNoDialog(program);
    EXPECT_TRUE(IsReady(program));
    EXPECT_EQ(ActiveWindowOf(program), program.frame);
    EXPECT_LT(PrintedPageCount(program), 500);
}

TEST(Printing, ReportsFailure) {
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, kFailingPort);
    Program program = StartProgram(folder);
    AskForRange(program, "Jude");
    WaitForDialog(program, "Print");
    Press(program, "Enter");
    ExpectComplaint(program, "Print Error", "EndDoc failure");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsReady(program));
}
