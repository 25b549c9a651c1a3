// Letters in notes that the system's code page lacks: typed, pasted, shown, searched, copied and stored, under several
// code pages.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"
#include "tests/windows/system_scaling.h"
#include "tests/windows/test_printer.h"

static const std::string kMark = "\xEF\xBB\xBF";

static std::string Utf8(std::wstring_view text) {
    const auto length = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                              static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

static std::string Marked(std::wstring_view text) {
    return kMark + Utf8(text);
}

static constexpr wchar_t kGreek[] =
    L"\u1F10\u03BD \u1F00\u03C1\u03C7\u1FC7 \u1F26\u03BD \u1F41 \u03BB\u03CC\u03B3\u03BF\u03C2";
static constexpr wchar_t kHebrew[] =
    L"\u05D1\u05BC\u05B0\u05E8\u05B5\u05D0\u05E9\u05C1\u05B4\u05D9\u05EA \u05D1\u05BC\u05B8\u05E8\u05B8\u05D0";
static constexpr wchar_t kRussian[] = L"\u0412 \u043D\u0430\u0447\u0430\u043B\u0435";
static constexpr wchar_t kPolish[] = L"\u0142\u00F3\u017C\u0119";
static constexpr wchar_t kChinese[] = L"\u592A\u521D\u6709\u9053";
static constexpr wchar_t kPunctuation[] = L"\u2014 \u201C\u2019\u201D \u2026";

static constexpr char kFontWithHebrew[] = "DejaVu Sans";

static std::wstring AllLetters() {
    std::wstring all;
    for (const wchar_t* text : {kGreek, kHebrew, kRussian, kPolish, kChinese, kPunctuation})
        all += std::wstring(text) + L"\r\n";
    return all + L"caf\u00E9 \xD83D\xDE00 end";
}

// Selects and copies all of the text that has the focus.
static std::wstring CopiedWhole(const Program& program) {
    SetClipboardText("nothing yet");
    Press(program, "Ctrl+a");
    Command(program, IDM_COPY);
    return LettersOnClipboard();
}

static std::wstring TextInView(const Program& program) {
    Click(program, NoteViewOf(program), {5, 5});
    return CopiedWhole(program);
}

static void Save(const Program& program) {
    Press(program, "Ctrl+s");
    WaitUntil(program, "the note to be saved", [&] { return !IsShown(NoteEditorOf(program)); });
}

static Program ProgramIn(const ScratchFolder& folder, const std::string& locale) {
    StartOptions options;
    options.locale = locale;
    return StartProgram(folder, options);
}

// ---- Typing and pasting ---------------------------------------------------------------------------------------------

TEST(NoteLetters, AreTypedAndStored) {
    static const struct {
        std::wstring letters;
        std::string stored;
    } kRows[] = {
        {L"a\u00E9\u20AC\u2019", "a\xE9\x80\x92"},  // all in the code page
        {L"a\u03B1\u05D0\u0101", Marked(L"a\u03B1\u05D0\u0101")},
        {L"\xD83D\xDE00!", Marked(L"\xD83D\xDE00!")},
        {kGreek, Marked(kGreek)},
    };
    for (const auto& [letters, stored] : kRows) {
        Program program = ProgramInEditor("");
        TypeWide(program, letters);
        EXPECT_EQ(StatusPart(program, 0), "");
        EXPECT_EQ(CopiedWhole(program), letters);
        Save(program);
        EXPECT_EQ(StoredEdit(program), stored);
        EXPECT_EQ(TextInView(program), letters);
    }
}

TEST(NoteLetters, ArePastedAndStored) {
    Program program = ProgramInEditor("");
    SetClipboardText(AllLetters());
    WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
    Press(program, "Ctrl+v");
    EXPECT_EQ(CopiedWhole(program), AllLetters());
    SavePicture(PictureOfWindow(program.frame), "letters-in-editor");
    Save(program);
    EXPECT_EQ(StoredEdit(program), Marked(AllLetters()));
    SavePicture(PictureOfWindow(program.frame), "letters-in-view");
    EXPECT_EQ(TextInView(program), AllLetters());
    CloseProgram(program);
    Program again = StartProgram(program.folder);
    EXPECT_EQ(TextInView(again), AllLetters());
}

// A word is one step of Undo, in whatever letters.
TEST(NoteLetters, AreUndoneByWords) {
    Program program = ProgramInEditor("");
    TypeWide(program, L"\u03BB\u03CC\u03B3\u03BF\u03C2 \u1F26\u03BD");
    Press(program, "Ctrl+z");
    EXPECT_EQ(CopiedWhole(program), L"\u03BB\u03CC\u03B3\u03BF\u03C2 ");
    Press(program, "Ctrl+y");
    EXPECT_EQ(CopiedWhole(program), L"\u03BB\u03CC\u03B3\u03BF\u03C2 \u1F26\u03BD");
    Press(program, "Ctrl+z");
    SetClipboardText(std::wstring(kHebrew));
    Press(program, "Ctrl+End");
    Press(program, "Ctrl+v");
    EXPECT_EQ(CopiedWhole(program), std::wstring(L"\u03BB\u03CC\u03B3\u03BF\u03C2 ") + kHebrew);
    Press(program, "Ctrl+z");
    EXPECT_EQ(CopiedWhole(program), L"\u03BB\u03CC\u03B3\u03BF\u03C2 ");
}

TEST(NoteLetters, OfTwoUnitsStayWhole) {
    static const struct {
        std::vector<std::string> keys;
        std::wstring expected;
    } kRows[] = {
        {{"Right", "Right", "x"}, L"a\xD83D\xDE00x\xD83D\xDE01z"},
        {{"End", "Left", "Left", "x"}, L"a\xD83D\xDE00x\xD83D\xDE01z"},
        {{"End", "Left", "Back"}, L"a\xD83D\xDE00z"},
        {{"Right", "Delete"}, L"a\xD83D\xDE01z"},
        {{"Right", "Shift+Right", "x"}, L"ax\xD83D\xDE01z"},
        {{"Right", "Delete", "Ctrl+z"}, L"a\xD83D\xDE00\xD83D\xDE01z"},
    };
    for (const auto& [keys, expected] : kRows) {
        SCOPED_TRACE(testing::PrintToString(keys));
        Program program = ProgramInEditor(Marked(L"a\xD83D\xDE00\xD83D\xDE01z"));
        for (const std::string& key : keys) Press(program, key);
        EXPECT_EQ(CopiedWhole(program), expected);
    }
}

TEST(NoteLetters, EndAtTheLongestNote) {
    static constexpr std::size_t kMost = 65533;
    Program program = ProgramInEditor("");
    std::wstring line(30, L'\u03B1');
    std::wstring lines;
    while (lines.size() < 40000) lines += line + L"\r\n";
    SetClipboardText(lines);
    WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
    Press(program, "Ctrl+v");
    EXPECT_EQ(StatusPart(program, 0), "The note is full: text was left out");
    TypeWide(program, L"\u03B1\u03B1");
    Press(program, "Enter");
    EXPECT_EQ(StatusPart(program, 0), "The note is full: text was left out");
    Save(program);
    const std::string stored = StoredEdit(program);
    EXPECT_LE(stored.size(), kMost);
    EXPECT_GE(stored.size(), kMost - 2);
    EXPECT_TRUE(Marked(lines).starts_with(stored));
}

// ---- Bytes ----------------------------------------------------------------------------------------------------------

// Notes that begin like one in UTF-8 and are none, and one in UTF-8 that need not be: nothing of a note changes that is
// not edited, and each is shown with its letters.
TEST(NoteLetters, LeaveOtherNotesAlone) {
    const ScratchFolder folder = FolderToEdit("plain");
    const std::map<int, std::string> notes = {{kEditedVerse, "plain"},
                                              {60, kMark + "caf\xE9"},
                                              {61, kMark + "plain"},
                                              {62, Marked(kGreek)},
                                              {63, "caf\xE9 \x93quoted\x94"}};
    WriteNoteSet(folder, "Mine", notes);
    const std::string before = ReadFile(folder, "Mine.nmd");
    Program program = StartProgram(folder);
    const std::pair<const char*, std::wstring> kShown[] = {{"60", L"\u00EF\u00BB\u00BFcaf\u00E9"},
                                                           {"61", L"plain"},
                                                           {"62", kGreek},
                                                           {"63", L"caf\u00E9 \u201Cquoted\u201D"}};
    for (const auto& [verse, text] : kShown) {
        Command(program, IDM_NEXT_NOTE);
        EXPECT_EQ(TextInView(program), text) << verse;
        OpenNoteEditor(program);
        EXPECT_EQ(CopiedWhole(program), text) << verse;
        Press(program, "Esc");
        EXPECT_FALSE(HasDialog(program)) << "nothing was changed";
    }
    EXPECT_TRUE(ReadFile(folder, "Mine.nmd") == before);
    OpenNoteEditor(program);
    Press(program, "Ctrl+End");
    TypeWide(program, L"\u05D0");
    Save(program);
    const std::string data = ReadFile(folder, "Mine.nmd");
    for (const int verse : {60, 61, 62, kEditedVerse})
        EXPECT_NE(data.find(notes.at(verse) + '\0'), std::string::npos) << verse;
    EXPECT_NE(data.find(Marked(L"caf\u00E9 \u201Cquoted\u201D\u05D0") + '\0'), std::string::npos);
    ASSERT_EQ(KeptNotes(folder, "Mine").size(), 1u);
    EXPECT_EQ(KeptNotes(folder, "Mine")[0].text, "caf\xE9 \x93quoted\x94") << "byte for byte";
}

TEST(NoteLetters, AreKeptUnderEachCodePage) {
    static const struct {
        std::string locale;
        std::wstring known;  // letters of its code page
        std::string stored;
    } kRows[] = {
        {"pl_PL.UTF-8", kPolish, "\xB3\xF3\xBF\xEA"},                // 1250
        {"ru_RU.UTF-8", kRussian, "\xC2 \xED\xE0\xF7\xE0\xEB\xE5"},  // 1251
        {"ja_JP.UTF-8", L"\u592A\u3042", "\x91\xBE\x82\xA0"},        // 932
    };
    for (const auto& [locale, known, stored] : kRows) {
        SCOPED_TRACE(locale);
        const ScratchFolder folder = FolderToEdit(stored);
        Program program = ProgramIn(folder, locale);
        const std::string before = ReadFile(folder, "Mine.nmd");
        EXPECT_EQ(TextInView(program), known);
        OpenNoteEditor(program);
        Press(program, "Ctrl+End");
        TypeWide(program, known);
        Save(program);
        EXPECT_EQ(StoredEdit(program), stored + stored);
        OpenNoteEditor(program);
        SetClipboardText(AllLetters());
        WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
        Press(program, "Ctrl+End");
        Press(program, "Ctrl+v");
        Save(program);
        EXPECT_EQ(StoredEdit(program), Marked(known + known + AllLetters()));
        EXPECT_EQ(TextInView(program), known + known + AllLetters());
        const std::string after = ReadFile(folder, "Mine.nmd");
        EXPECT_TRUE(after.starts_with(before.substr(0, kEditedVerse)));
        EXPECT_TRUE(after.ends_with(before.substr(kEditedVerse + stored.size())));
    }
}

// ---- Searching, following and looking back --------------------------------------------------------------------------

static std::wstring Selected(const Program& program) {
    SetClipboardText("nothing yet");
    Command(program, IDM_COPY);
    return LettersOnClipboard();
}

static std::wstring Found(const Program& program, const std::wstring& text) {
    Press(program, "Alt+t");
    WaitForDialog(program, "Search Note Set Mine");
    Press(program, "Ctrl+a");
    TypeWide(program, text);
    Press(program, "Enter");
    Settle(program);
    Press(program, "Esc");
    WaitForNoDialog(program);
    return Selected(program);
}

TEST(NoteLetters, AreFound) {
    const ScratchFolder folder = FolderToEdit("plain");
    WriteNoteSet(folder, "Mine", {{kEditedVerse, "plain"}, {60, "caf\xE9"}, {70, Marked(AllLetters())}});
    Program program = StartProgram(folder);
    EXPECT_EQ(Found(program, L"\u039B\u038C\u0393\u039F\u03A3"), L"\u03BB\u03CC\u03B3\u03BF\u03C2");
    EXPECT_EQ(Found(program, L"\u05D1\u05E8\u05D0"), L"\u05D1\u05BC\u05B8\u05E8\u05B8\u05D0") << "without points";
    EXPECT_EQ(Found(program, L"\u05D1\u05BC\u05B8\u05E8\u05B8\u05D0"), L"\u05D1\u05BC\u05B8\u05E8\u05B8\u05D0");
    SavePicture(PictureOfWindow(program.frame), "letters-found");
    EXPECT_EQ(Found(program, L"\u041D\u0410\u0427\u0410\u041B\u0415"), L"\u043D\u0430\u0447\u0430\u043B\u0435");
    EXPECT_EQ(Found(program, L"END"), L"end");
}

TEST(NoteLetters, FollowCrossReferences) {
    const ScratchFolder folder =
        FolderToEdit(Marked(std::wstring(kGreek) + L"\r\n\u2014 # Ge 1:1; Ex 2:4\r\n" + kHebrew));
    Program program = StartProgram(folder);
    const std::size_t place = (std::wstring(kGreek) + L"\r\n\u2014 # Ge ").size();
    DoubleClick(program, NoteViewOf(program), PointOfCharacter(program, NoteViewOf(program), place));
    EXPECT_EQ(ListStrings(ReferenceListOf(program)), (std::vector<std::string>{"Ge 1:1", "Ex 2:4"}));
}

TEST(NoteLetters, ComeBackFromTheEarlierNotes) {
    Program program = ProgramInEditor(Marked(kGreek));
    Press(program, "Ctrl+End");
    Type(program, " x");
    Save(program);
    OpenNoteEditor(program);
    Press(program, "Ctrl+a");
    Type(program, "plain");
    Save(program);
    EXPECT_EQ(StoredEdit(program), "plain");
    Command(program, IDM_EARLIER_NOTES);
    const HWND dialog = WaitForDialog(program, "Earlier Notes for Genesis 3:2 in \"Mine\"");
    SavePicture(PictureOfWindow(dialog), "letters-earlier");
    Press(program, "Down");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(CopiedWhole(program), kGreek);
    Save(program);
    EXPECT_EQ(StoredEdit(program), Marked(kGreek));
}

// The note was stored in the code page, and the other copy of the program, on a stick, has stored it in UTF-8.
TEST(NoteLetters, AreJoinedWithThoseOfAnotherCopy) {
    Program program = ProgramInEditor("caf\xE9");
    Press(program, "Ctrl+End");
    Type(program, " here");
    WriteNoteSet(program.folder, "Mine", {{kEditedVerse, Marked(std::wstring(kGreek) + L" " + kHebrew)}});
    Press(program, "Ctrl+s");
    while (HasDialog(program)) Press(program, "Enter");
    const std::wstring both = std::wstring(
                                  L"caf\u00E9 here\r\n----------------------------------------\r\n"
                                  L"Also written elsewhere:\r\n") +
                              kGreek + L" " + kHebrew;
    EXPECT_EQ(CopiedWhole(program), both);
    Press(program, "Ctrl+s");
    while (HasDialog(program)) Press(program, "Enter");
    EXPECT_EQ(StoredEdit(program), Marked(both));
    EXPECT_EQ(TextInView(program), both);
}

// Both notes in UTF-8; the texts of the dialog are checked by its picture.
TEST(NoteLetters, AreMergedFromACopy) {
    const ScratchFolder folder = FolderToEdit(Marked(kGreek));
    WriteNoteSet(folder, "Mine.sync-conflict-20240501-120000-ABCDEFG",
                 {{kEditedVerse, Marked(kHebrew)}, {70, Marked(kChinese)}});
    Program program = LaunchProgram(folder);
    WaitForDialog(program, "Copy of a Note Set");
    Press(program, "y");
    const HWND dialog = WaitForDialog(program, "Merge Sets");
    SavePicture(PictureOfWindow(dialog), "letters-merged");
    Press(program, "Enter");
    WaitForFrame(program);
    WaitForNoDialog(program);
    const std::string data = ReadFile(folder, "Mine.nmd");
    EXPECT_NE(data.find(Marked(kChinese) + '\0'), std::string::npos);
    EXPECT_NE(data.find(Marked(std::wstring(kGreek) +
                               L"\r\n----------------------------------------\r\n"
                               L"Also written elsewhere:\r\n" +
                               kHebrew) +
                        '\0'),
              std::string::npos);
}

// ---- Files and paper ------------------------------------------------------------------------------------------------

// It is counted as a note, so it must not look like none.
TEST(NoteLetters, AreShownOfANoteThatIsOnlyTheMark) {
    Program program = StartProgram(FolderToEdit(kMark));
    EXPECT_EQ(TextInView(program), L"\u00EF\u00BB\u00BF");
    OpenNoteEditor(program);
    Press(program, "Ctrl+a");
    Press(program, "Delete");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(StoredEdit(program), "");
}

TEST(NoteLetters, AreSavedWithARange) {
    const ScratchFolder folder = FolderToEdit(Marked(AllLetters()));
    Program program = StartProgram(folder);
    SaveRangeWithNotes(program, "Ge 3:1-3", (folder.path / "saved.txt").wstring());
    const std::string saved = ReadFile(folder, "saved.txt");
    EXPECT_TRUE(saved.starts_with(kMark));
    EXPECT_NE(saved.find("\r\n\r\n" + Utf8(AllLetters()) + "\r\n\r\n"), std::string::npos);
    EXPECT_TRUE(saved.ends_with('\0'));
}

// Without blanks, and without the marks of direction that the reader of pages adds.
static std::string LettersAlone(std::string text) {
    for (const std::string& other : {Utf8(L"\u202A"), Utf8(L"\u202B"), Utf8(L"\u202C"), std::string(" ")})
        for (std::size_t at = text.find(other); at != std::string::npos; at = text.find(other))
            text.erase(at, other.size());
    return text;
}

// Prints Genesis 3:2 and the note on it, in a font that has all letters: Wine's printer takes none from other fonts.
static void PrintNote(const Program& program) {
    Command(program, IDM_PRINT_RANGE);
    const HWND dialog = WaitForDialog(program, "Print Range");
    SetDlgItemTextA(dialog, IDC_RANGE, "Ge 3:2");
    CheckDlgButton(dialog, IDC_INCLUDE_NOTES, BST_CHECKED);
    Press(program, "Enter");
    AcceptPrinter(program);
}

// Each line in the order in which it is read: Hebrew words from right to left.
TEST(NoteLetters, AreOnThePrintedPage) {
    const std::wstring greek = std::wstring(kGreek) + L" " + kPunctuation;
    const std::wstring mixed = std::wstring(L"so ") + kHebrew + L" it is";
    const ScratchFolder folder = FolderToEdit(Marked(greek + L"\r\n" + kHebrew + L"\r\n" + mixed));
    WriteSetting(folder, "OPTIONS", "NoteFontName", kFontWithHebrew);
    const TestPrinter printer(folder, PortToPages(folder));
    Program program = StartProgram(folder);
    PrintNote(program);
    const std::vector<std::string> pages = PrintedPagesInUtf8(program);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_THAT(LettersAlone(pages[0]), testing::EndsWith(LettersAlone("garden:" + Utf8(greek + kHebrew + mixed))));

    const std::vector<PrintedWord> words = PrintedWords(program);
    ASSERT_GT(words.size(), 5u);
    const PrintedWord* const last = &words.back() - 4;
    EXPECT_EQ(last[0].text, "so");
    EXPECT_EQ(last[3].text, "it");
    EXPECT_LT(last[0].right, last[1].left);
    EXPECT_LT(last[1].right, last[2].left);
    EXPECT_LT(last[2].right, last[3].left);
    EXPECT_LT(last[1].right - last[1].left, last[2].right - last[2].left)
        << "the second word, which is shorter, is left";
}

// The printer is found again by its name after the first page. The code page has none of the letters.
TEST(PrinterNames, MayHaveAnyLetters) {
    static constexpr wchar_t kName[] = L"\u03B1\u05D0\u592A";
    const ScratchFolder folder = FolderToEdit("of the note");
    auto printer = std::make_unique<TestPrinter>(folder, PortToPages(folder), kName);
    Program program = StartProgram(folder);
    for (int times = 0; times < 2; ++times) {
        PrintNote(program);
        EXPECT_THAT(PrintedPages(program), testing::ElementsAre(testing::EndsWith("garden: of the note")));
        std::filesystem::remove(folder.path / "pages.txt");
        Command(program, IDM_PAGE_SETUP);
        WaitForDialog(program, "Setup Page");
        Press(program, "Enter");
        WaitForNoDialog(program);
    }
    printer.reset();
    const TestPrinter other(folder, PortToPages(folder), L"\u03B2");
    Command(program, IDM_PAGE_SETUP);
    const HWND box = WaitForDialog(program, "Print Error");
    EXPECT_NE(WideMessageText(box).find(kName), std::wstring::npos);
    Press(program, "Enter");
    WaitForDialog(program, "Setup Page");
    Press(program, "Esc");
    WaitForNoDialog(program);
}

// Where the letter is seen, in pixels from the left.
static LONG LeftOf(const Program& program, HWND richEdit, const wchar_t* letters, std::size_t number) {
    return PointOfCharacter(program, richEdit, AllLetters().find(letters) + number).x;
}

// Greek runs to the right, Hebrew to the left.
static void ExpectReadingOrders(const Program& program, HWND richEdit, const std::string& name) {
    EXPECT_LT(LeftOf(program, richEdit, kGreek, 0), LeftOf(program, richEdit, kGreek, 3)) << name;
    EXPECT_GT(LeftOf(program, richEdit, kHebrew, 0), LeftOf(program, richEdit, kHebrew, 13)) << name;
}

TEST(NoteLetters, AreShownOnEachScreen) {
    for (const bool isDark : {false, true}) {
        for (const int percent : {100, 200}) {
            const SystemScaling scaling(96 * percent / 100);
            const ScratchFolder folder = FolderToEdit(Marked(AllLetters()));
            WriteSetting(folder, "OPTIONS", "NoteFontName", kFontWithHebrew);
            if (isDark) WriteFile(folder, "Versewell.more.ini", "[OPTIONS]\r\nDarkPanes=1\r\n");
            Program program = StartProgram(folder);
            const std::string name = std::string(isDark ? "dark-" : "") + std::to_string(percent);
            EXPECT_EQ(TextInView(program), AllLetters()) << name;
            Press(program, "Ctrl+Home");
            SavePicture(PictureOfWindow(program.frame), "letters-in-view-" + name);
            ExpectReadingOrders(program, NoteViewOf(program), name);
            OpenNoteEditor(program);
            EXPECT_EQ(CopiedWhole(program), AllLetters()) << name;
            Press(program, "Ctrl+Home");
            SavePicture(PictureOfWindow(program.frame), "letters-in-editor-" + name);
            ExpectReadingOrders(program, NoteEditOf(program), name);
        }
    }
}
