// The line below the fields for verses, which says what is typed while it is typed, compared with what OK then does.

#include <windows.h>

#include <algorithm>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "scripture/books.h"
#include "scripture/reference_parser.h"
#include "tests/support/typed_references.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/test_printer.h"

static constexpr char kNotUnderstood[] = "not understood";

namespace {

struct FieldRow {
    const char* name;
    int command;
    const char* title;
    int field;
    bool isRange;
    int units;  // width of the line in dialog units
    int count;  // texts to try
    int longCount;
};

void PrintTo(const FieldRow& row, std::ostream* out) {
    *out << row.name;
}

}  // namespace

static constexpr FieldRow kFields[] = {
    {"GotoVerse", IDM_GOTO_VERSE, "Go To Verse", IDC_REFERENCE, false, 158, 20, 2000},
    {"GotoNote", IDM_GOTO_NOTE, "Go to Note for Verse", IDC_REFERENCE, false, 158, 5, 200},
    {"CopyVerse", IDM_COPY_VERSE, "Copy Verse", IDC_RANGE, false, 212, 5, 200},
    {"CopyRange", IDM_COPY_RANGE, "Copy Range", IDC_RANGE, true, 212, 5, 200},
    {"SaveRange", IDM_SAVE_RANGE, "Save Range", IDC_RANGE, true, 212, 5, 100},
    {"SetRange", IDM_SET_RANGE, "Set Search Range", IDC_RANGE, true, 206, 20, 2000},
    {"PrintRange", IDM_PRINT_RANGE, "Print Range", IDC_RANGE, true, 212, 5, 50},
};

namespace {

struct MeaningLineAndOk : testing::TestWithParam<FieldRow> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Of, MeaningLineAndOk, testing::ValuesIn(kFields),
                         [](const auto& row) { return std::string(row.param.name); });

static Program ProgramWithNotes(const ScratchFolder& folder = FolderWithScripture()) {
    WriteNoteSet(folder, "Mine");
    for (const char* key : {"FirstVerseStyle", "SubsequentVerseStyle"}) WriteSetting(folder, "FORMAT", key, "0");
    return StartProgram(folder);
}

static HWND Open(const Program& program, const FieldRow& row) {
    PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(row.command), 0);
    return WaitForDialog(program, row.title);
}

static std::string LineIn(HWND dialog) {
    return TextOf(dialog, IDC_REFERENCE_MEANING);
}

// The line while a dialog asks for a verse or a range.
static std::string LineFor(const FieldRow& row, int first, int last) {
    const VerseRecords& records = RealScripture().records;
    return row.isRange ? LineOfRange(records, first, last) : LineOfVerse(records, first);
}

static std::string LineOfSearchRange(const FieldRow& row, const std::string& shown);

// The line as it were if all that is typed had been used.
static std::string LineWithoutRest(const FieldRow& row, const std::string& line) {
    const std::size_t rest = line.find(" (not used: \"");
    return rest == line.npos ? line : LineOfSearchRange(row, line.substr(0, rest));
}

static int VerseAt(std::string_view reference) {
    const ParsedReference verse = ParseReference(RealScripture().records, std::string(reference));
    EXPECT_TRUE(verse.ok) << reference;
    return verse.verse;
}

// ---- The line -------------------------------------------------------------------------------------------------------

TEST(MeaningLine, ShowsWhatTheTextMeansAtThisMoment) {
    struct Step {
        char letter;
        const char* verse;
        const char* range;
    };
    static constexpr Step kSteps[] = {
        {'1', "Genesis 1:1", "Genesis 1:1 to 1:31, 31 verses"},
        {'j', "Genesis 1:1", "Genesis 1:1 to Joshua 24:33, 6510 verses"},
        {'n', "Genesis 1:1", "not understood"},
        {' ', "Genesis 1:1", "not understood"},
        {'1', "Genesis 1:1", "not understood"},
        {':', "Genesis 1:1", "not understood"},
        {'9', "Genesis 1:9", "Ge 1:9 (not used: \"jn 1\")"},
    };
    Program program = ProgramWithNotes();
    for (const FieldRow& row : kFields) {
        if (row.command != IDM_GOTO_VERSE && row.command != IDM_SET_RANGE) continue;  // one of each kind
        const HWND dialog = Open(program, row);
        for (const Step& step : kSteps) {
            Type(program, std::string(1, step.letter));
            EXPECT_EQ(LineIn(dialog), row.isRange ? step.range : step.verse) << TextOf(dialog, row.field);
        }
        PressInOneGo(program, std::vector<std::string>(std::size(kSteps), "Back"));
        EXPECT_EQ(TextOf(dialog, row.field), "");
        EXPECT_EQ(LineIn(dialog), "") << "OK does nothing then";
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

TEST(MeaningLine, IsInEveryDialogThatAsksForVerses) {
    Program program = ProgramWithNotes();
    for (const FieldRow& row : kFields) {
        SCOPED_TRACE(row.name);
        const HWND dialog = Open(program, row);
        const int last = row.command == IDM_SET_RANGE ? kLastVerse : 0;
        EXPECT_EQ(LineIn(dialog), LineFor(row, 0, last)) << "for what the field starts with";
        SendDlgItemMessageA(dialog, row.field, EM_SETSEL, 0, -1);
        Type(program, "jud 2");
        EXPECT_EQ(LineIn(dialog), row.isRange ? "Judges 2:1 to 2:23, 23 verses" : "Judges 2:1");
        SavePicture(PictureOfWindow(dialog), std::string("meaning-") + row.name);
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

// The line follows the field in the order of the controls, so that screen readers read it there.
TEST(MeaningLine, IsAPlainTextDirectlyBelowTheField) {
    Program program = ProgramWithNotes();
    for (const FieldRow& row : kFields) {
        SCOPED_TRACE(row.name);
        const HWND dialog = Open(program, row);
        const HWND field = Child(dialog, {row.field}), line = Child(dialog, {IDC_REFERENCE_MEANING});
        EXPECT_EQ(GetWindow(field, GW_HWNDNEXT), line);
        EXPECT_EQ(ClassOf(line), "Static");
        EXPECT_EQ(GetWindowLongA(line, GWL_STYLE) & (SS_TYPEMASK | SS_NOPREFIX | WS_TABSTOP), SS_LEFT | SS_NOPREFIX);
        const RECT above = RectIn(field, dialog), own = RectIn(line, dialog);
        EXPECT_GE(own.top, above.bottom);
        EXPECT_LT(own.top, above.bottom + (own.bottom - own.top));
        EXPECT_EQ(own.left, above.left);
        EXPECT_EQ(own.right, above.right);
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

// As if a second range were copied, too.
TEST(MeaningLine, TellsWhatIsNotUsed) {
    Program program = ProgramWithNotes();
    for (const FieldRow& row : kFields) {
        if (!row.isRange) continue;
        SCOPED_TRACE(row.name);
        const HWND dialog = Open(program, row);
        SetDlgItemTextA(dialog, row.field, "Ge 1:1-3; Ex 2:1");
        EXPECT_EQ(LineIn(dialog), "Ge 1:1 - Ge 3:1 (not used: \"; Ex 2\")");
        SetDlgItemTextA(dialog, row.field, "2Th 3:10 - 1Ch 29:29; Ex 20:10-17, 31");
        EXPECT_EQ(LineIn(dialog), "1Ch 29:29 - 2Th 3:10 (not used: \"; Ex 20:10-17, 3...\")");
        SavePicture(PictureOfWindow(dialog), std::string("not-used-") + row.name);
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
}

TEST(MeaningLine, FollowsTheButtonsOfSetRange) {
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_SET_RANGE);
    const HWND dialog = WaitForDialog(program, "Set Search Range");
    Press(program, "Alt+o");
    EXPECT_EQ(LineIn(dialog), "Genesis 1:1 to Malachi 4:6, 23145 verses");
    Press(program, "Alt+n");
    EXPECT_EQ(LineIn(dialog), "Matthew 1:1 to Revelation 22:21, 7957 verses");
    Press(program, "Alt+e");
    EXPECT_EQ(LineIn(dialog), "Genesis 1:1 to Revelation 22:21, 31102 verses");
}

// ---- Its width ------------------------------------------------------------------------------------------------------

namespace {

// The font of the dialogs on a screen of some resolution.
struct DialogFont {
    explicit DialogFont(int dpi)
        : font(CreateFontA(-MulDiv(8, dpi, 72), 0, 0, 0, FW_DONTCARE, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                           "MS Shell Dlg")),
          before(SelectObject(dc, font)) {}
    ~DialogFont() {
        SelectObject(dc, before);
        DeleteObject(font);
        DeleteDC(dc);
    }
    DialogFont(const DialogFont&) = delete;
    DialogFont& operator=(const DialogFont&) = delete;

    HDC dc = CreateCompatibleDC(nullptr);
    HFONT font;
    HGDIOBJ before;
};

}  // namespace

static int WidthOf(const DialogFont& font, std::string_view text) {
    SIZE size{};
    GetTextExtentPoint32A(font.dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

// As the system computes them for a dialog: a horizontal unit is a quarter of the mean width of the letters.
static int PixelsOf(const DialogFont& font, int units) {
    const int letters = WidthOf(font, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    return MulDiv(units, (letters / 26 + 1) / 2, 4);
}

static int WidestReference(const DialogFont& font, int book) {
    const int first = VerseLookup(RealScripture().records, book, 1, 1);
    const int last = VerseLookup(RealScripture().records, book, kLast, kLast);
    int widest = 0;
    for (int verse = first; verse <= last; verse += verse + 7 < last ? 7 : 1)
        widest = std::max(widest, WidthOf(font, LineOfVerse(RealScripture().records, verse)));
    return widest;
}

// A range is one of the two books with the widest references, with more digits in its number than it can have.
static int WidestLine(const DialogFont& font, bool isRange) {
    std::vector<int> widths;
    for (int book = 1; book <= kBookCount; ++book) widths.push_back(WidestReference(font, book));
    std::ranges::sort(widths, std::greater());
    return isRange ? widths[0] + widths[1] + WidthOf(font, " to , 31102 verses") : widths[0];
}

static constexpr char kWidestPart[] = "2Th 119:176 - 1Th 119:176 (not used: \"- 2Th 119:100-176...\")";

TEST(MeaningLine, HasRoomForTheLongestText) {
    Program program = ProgramWithNotes();
    for (const int dpi : {96, 144, 192}) {
        const DialogFont font(dpi);
        for (const FieldRow& row : kFields) {
            EXPECT_LE(WidestLine(font, row.isRange), PixelsOf(font, row.units)) << row.name << " at " << dpi << " dpi";
            EXPECT_TRUE(!row.isRange || WidthOf(font, kWidestPart) <= PixelsOf(font, row.units)) << row.name;
            if (dpi != GetDeviceCaps(font.dc, LOGPIXELSX)) continue;  // not this screen's
            const HWND dialog = Open(program, row);
            const RECT line = RectIn(Child(dialog, {IDC_REFERENCE_MEANING}), dialog);
            EXPECT_EQ(line.right - line.left, PixelsOf(font, row.units)) << row.name;
            if (row.isRange) SetDlgItemTextA(dialog, row.field, "1Th 5:28 - 2Th 3:18");
            SavePicture(PictureOfWindow(dialog), std::string("longest-meaning-") + row.name);
            Press(program, "Esc");
            WaitForNoDialog(program);
        }
    }
}

// ---- What OK then does ----------------------------------------------------------------------------------------------

// " 1Jo 1:9 That which...": the verse of a line that is copied or saved with a full label.
static int VerseOfLabel(const std::string& line) {
    return VerseAt(line.substr(1, line.find(' ', line.find(':')) - 1));
}

// From the lines of the verses, each with a full label.
static std::string LineOfLabels(const FieldRow& row, const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0, end = 0;
    for (; (end = text.find("\r\n", start)) != std::string::npos; start = end + 2)
        lines.push_back(text.substr(start, end - start));
    if (lines.empty()) return "nothing";
    const int first = VerseOfLabel(lines.front()), last = VerseOfLabel(lines.back());
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(last - first + 1));
    return LineFor(row, first, last);
}

// "Ge 1:1 - Re 22:21", as the status bar shows the range of searches.
static std::string LineOfSearchRange(const FieldRow& row, const std::string& shown) {
    const std::size_t between = shown.find(" - ");
    const std::string last = between == shown.npos ? shown : shown.substr(between + 3);
    return LineFor(row, VerseAt(shown.substr(0, between)), VerseAt(last));
}

static std::string SavedText(const Program& program) {
    WaitForDialog(program, "Save As");
    const std::string path = (program.folder.path / "saved.txt").string();
    SendMessageA(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    Press(program, "Enter");
    WaitForNoDialog(program);
    const std::string text = ReadFile(program.folder, "saved.txt");
    std::filesystem::remove(path);
    return text;
}

// From the printed verses, each with a full label.
static std::string LineOfPages(const FieldRow& row, const std::vector<std::string>& pages) {
    std::string rest;
    for (const std::string& page : pages) rest += page + ' ';
    const int first = VerseAt(rest.substr(0, rest.find(' ', rest.find(':'))));
    int next = first;
    for (; !rest.empty() && next < kVerseCount; ++next) {
        const std::string printed = LineOfVerse(RealScripture().records, next) + ' ' +
                                    WithBlankAfterMark(std::string(VerseText(RealScripture(), next))) + ' ';
        if (!rest.starts_with(printed)) return "other words than those of the verse: " + rest.substr(0, 100);
        rest.erase(0, printed.size());
    }
    return LineFor(row, first, next - 1);
}

static std::vector<std::string> NewPages(const Program& program) {
    std::filesystem::remove(program.folder.path / "pages.txt");
    AcceptPrinter(program);
    return PrintedPages(program);
}

// The line that would be right for what OK has done with the text it understood.
static std::string Done(const Program& program, const FieldRow& row) {
    if (row.command == IDM_SAVE_RANGE) return LineOfLabels(row, SavedText(program));
    if (row.command == IDM_PRINT_RANGE) return LineOfPages(row, NewPages(program));
    WaitForNoDialog(program);
    switch (row.command) {
        case IDM_GOTO_VERSE: return Top(program);
        case IDM_GOTO_NOTE: return StatusPart(program, 2);
        case IDM_SET_RANGE: return LineOfSearchRange(row, StatusPart(program, 4));
        default: return LineOfLabels(row, ClipboardText());
    }
}

static void PressOk(const Program& program, HWND dialog) {
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitUntil(program, "OK to act", [&] { return !IsWindow(dialog) || ActiveWindowOf(program) != dialog; });
}

static void CloseComplaint(const Program& program, HWND dialog) {
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_EQ(MessageText(box), "Unrecognized Refrence");  // (sic)
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitUntil(program, "the message to be closed", [&] { return ActiveWindowOf(program) == dialog; });
}

static bool TakesLongToPrint(const std::string& typed) {
    const ParsedRange range = ParseRange(RealScripture().records, typed);
    return range.ok && range.last - range.first > 100;
}

static std::vector<std::string> TextsFor(const FieldRow& row) {
    std::vector<std::string> texts =
        TypedReferences(static_cast<unsigned>(row.command), IsLongRun() ? row.longCount : row.count);
    texts.push_back("Xyz 1:1");
    texts.push_back("1 Jn 1:9");
    if (row.command == IDM_PRINT_RANGE) std::erase_if(texts, TakesLongToPrint);
    return texts;
}

// If OK refuses a text, the next one is tried in the same dialog.
TEST_P(MeaningLineAndOk, AgreeOnEveryText) {
    const FieldRow& row = GetParam();
    const ScratchFolder folder = FolderWithScripture();
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = ProgramWithNotes(folder);
    HWND dialog = nullptr;
    for (const std::string& typed : TextsFor(row)) {
        SCOPED_TRACE(typed);
        if (!IsWindow(dialog)) dialog = Open(program, row);
        SetDlgItemTextA(dialog, row.field, typed.c_str());
        const std::string line = LineIn(dialog);
        SetClipboardText("");
        PressOk(program, dialog);
        if (line == kNotUnderstood)
            CloseComplaint(program, dialog);
        else
            ASSERT_EQ(Done(program, row), LineWithoutRest(row, line));
    }
}
