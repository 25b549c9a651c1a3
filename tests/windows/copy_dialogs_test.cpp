// Copying verses to the clipboard: Copy Verse, Copy Range, Copy Verse List and Copy Verse References.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"
#include "tests/windows/search_steps.h"

static constexpr char kUntouched[] = "what was there before";

// ---- The dialogs ----------------------------------------------------------------------------------------------------

namespace {

struct CopyDialogRow {
    const char* name;
    int command;
    const char* key;
    const char* title;
    const char* label;
    const char* labelKey;
    const char* behindVerse;  // follows the verse in the field when the dialog opens
    const char* meaning;      // of that text
};

void PrintTo(const CopyDialogRow& row, std::ostream* out) {
    *out << row.name;
}

}  // namespace

static const CopyDialogRow kCopyDialogs[] = {
    {"Verse", IDM_COPY_VERSE, "F5", "Copy Verse", "&Verse:", "Alt+v", "", "2 Samuel 3:4"},
    {"Range", IDM_COPY_RANGE, "F6", "Copy Range", "&Range:", "Alt+r", " - ", "2 Samuel 3:4, 1 verse"},
};

namespace {

struct CopyDialog : testing::TestWithParam<CopyDialogRow> {};

}  // namespace
INSTANTIATE_TEST_SUITE_P(Copies, CopyDialog, testing::ValuesIn(kCopyDialogs),
                         [](const auto& row) { return std::string(row.param.name); });

static HWND OpenByKey(const Program& program, const CopyDialogRow& row) {
    Press(program, row.key);
    return WaitForDialog(program, row.title);
}

static void CloseBy(const Program& program, const char* key) {
    Press(program, key);
    WaitForNoDialog(program);
}

TEST_P(CopyDialog, HasTheExpectedControls) {
    const CopyDialogRow& row = GetParam();
    Program program = StartProgram(FolderWithScripture());
    GoTo(program, "2 Samuel 3:4");
    const HWND dialog = OpenByKey(program, row);
    const DialogLook look = {row.title,
                             {{IDC_RANGE, "Edit", std::string("2Sa 3:4") + row.behindVerse},
                              {IDC_REFERENCE_MEANING, "Static", row.meaning},
                              {IDOK, "Button", "OK"},
                              {IDCANCEL, "Button", "Cancel"},
                              {IDC_FORMAT_BUTTON, "Button", "&Format..."},
                              {IDC_HELP_BUTTON, "Button", "&Help"}},
                             {row.label},
                             {IDC_RANGE, IDOK, IDCANCEL, IDC_FORMAT_BUTTON, IDC_HELP_BUTTON},
                             {}};
    ExpectLook(program, dialog, look, std::string("dialog-copy-") + row.name);
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_RANGE, EM_GETLIMITTEXT, 0, 0), 99);
    ExpectMissingHelp(program, dialog);
    ExpectAccessKeys(program, dialog, {{row.labelKey, IDC_RANGE}});
    CloseBy(program, "Esc");
    EXPECT_EQ(FocusOf(program), PassageOf(program));
    EXPECT_EQ(Top(program), "2 Samuel 3:4");
}

TEST_P(CopyDialog, CopiesNothingWhenEmptyCancelledOrInvalid) {
    const CopyDialogRow& row = GetParam();
    Program program = StartProgram(FolderWithScripture());
    SetClipboardText(kUntouched);
    OpenByKey(program, row);
    CloseBy(program, "Esc");
    const HWND emptied = OpenByKey(program, row);
    SetDlgItemTextA(emptied, IDC_RANGE, "");
    CloseBy(program, "Enter");

    const HWND dialog = OpenByKey(program, row);
    for (const char* typed : {"Xyz 3", "Ge 0:1", "Ge 1:0"}) {
        SetDlgItemTextA(dialog, IDC_RANGE, typed);
        Press(program, "Enter");
        ExpectComplaint(program, "Error", "Unrecognized Refrence");  // (sic)
        ASSERT_TRUE(IsWindow(dialog));
        EXPECT_EQ(TextOf(dialog, IDC_RANGE), typed);
        EXPECT_EQ(FocusOf(program), Child(dialog, {IDC_RANGE}));
    }
    EXPECT_EQ(ClipboardText(), kUntouched);
    Type(program, "Jude 1:25");  // replaces the invalid text
    CloseBy(program, "Enter");
    EXPECT_EQ(ClipboardText(), " Jude 1:25 " + WithoutBrackets(TextAt("Jude 1:25")) + "\r\n");
}

TEST(CopyDialogs, AreCentredOverTheUpperPartOfTheFrame) {
    Program program = StartProgram(FolderWithScripture());
    PlaceFrame(program, {100, 50, 1100, 850});
    for (const int command : {IDM_COPY_VERSE, IDM_COPY_RANGE, IDM_SAVE_RANGE, IDM_FORMAT}) {
        Command(program, command);
        const RECT dialog = RectOnScreen(ActiveWindowOf(program));
        EXPECT_EQ(dialog.left - 100, (1000 - (dialog.right - dialog.left)) / 2) << command;
        EXPECT_EQ(dialog.top - 50, (720 - (dialog.bottom - dialog.top)) / 2) << command;
        CloseBy(program, "Esc");
    }
}

// ---- What is copied -------------------------------------------------------------------------------------------------

// What the dialog of `command` copies when `typed` is entered.
static std::string Copied(const Program& program, int command, const char* typed) {
    SetClipboardText(kUntouched);
    Command(program, command);
    const HWND dialog = WaitForDialog(program, command == IDM_COPY_VERSE ? "Copy Verse" : "Copy Range");
    SetDlgItemTextA(dialog, IDC_RANGE, typed);
    CloseBy(program, "Enter");
    return ClipboardText();
}

static std::string Piece(const std::string& label, std::string_view reference) {
    return " " + label + " " + WithoutBrackets(WithBlankAfterMark(TextAt(reference))) + "\r\n";
}

static DWORD ClipboardLocale() {
    OpenClipboard(nullptr);
    const HANDLE block = GetClipboardData(CF_LOCALE);
    const auto* locale = static_cast<const DWORD*>(block ? GlobalLock(block) : nullptr);
    const DWORD result = locale ? *locale : 0;
    if (locale) GlobalUnlock(block);
    CloseClipboard();
    return result;
}

static std::wstring WideClipboardText() {
    OpenClipboard(nullptr);
    const HANDLE block = GetClipboardData(CF_UNICODETEXT);
    const auto* text = static_cast<const wchar_t*>(block ? GlobalLock(block) : nullptr);
    const std::wstring result = text ? text : L"";
    if (text) GlobalUnlock(block);
    CloseClipboard();
    return result;
}

// On a Japanese system the byte of the paragraph mark is a kana.
TEST(CopyVerse, CopiesTheSameLettersOnAnySystem) {
    for (const char* locale : {"", "ja_JP.UTF-8"}) {
        StartOptions options;
        options.locale = locale;
        Program program = StartProgram(FolderWithScripture(), options);
        EXPECT_TRUE(Copied(program, IDM_COPY_VERSE, "Ge 1:6").find('\xB6') != std::string::npos) << locale;
        EXPECT_TRUE(WideClipboardText().find(L'\u00B6') != std::wstring::npos) << locale;
        EXPECT_EQ(ClipboardLocale(), 0x0409u) << locale;
    }
}

TEST(CopyVerse, CopiesOneVerse) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(Copied(program, IDM_COPY_VERSE, "Joh 3:16"), Piece("Joh 3:16", "Joh 3:16"));
    EXPECT_EQ(Copied(program, IDM_COPY_VERSE, "genesis 1:1"), Piece("Ge 1:1", "Ge 1:1"));
    EXPECT_EQ(Copied(program, IDM_COPY_VERSE, "Ps 23"), Piece("Ps 23:1", "Ps 23:1")) << "only one verse";
    EXPECT_EQ(Copied(program, IDM_COPY_VERSE, "Re 22:21"), Piece("Re 22:21", "Re 22:21"));
}

TEST(CopyRange, PartialLabelsShowOnlyWhatChanged) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(Copied(program, IDM_COPY_RANGE, "Ge 1:30 - Ge 2:2"),
              Piece("Ge 1:30", "Ge 1:30") + Piece("31", "Ge 1:31") + Piece("2:1", "Ge 2:1") + Piece("2", "Ge 2:2"));
    EXPECT_EQ(Copied(program, IDM_COPY_RANGE, "Mt 1:1 - Mal 4:6"),
              Piece("Mal 4:6", "Mal 4:6") + Piece("Mt 1:1", "Mt 1:1"))
        << "first and last verse swapped";
}

TEST(CopyRange, FollowsTheFormatForBracketsAndParagraphMarks) {
    const ScratchFolder folder = FolderWithScripture();
    for (const auto& [key, value] : {std::pair{"FirstVerseStyle", "1"},
                                     {"SubsequentVerseStyle", "0"},
                                     {"LineBreaks", "0"},
                                     {"ParagraphMarks", "0"},
                                     {"Brackets", "1"}})
        WriteSetting(folder, "FORMAT", key, value);
    Program program = StartProgram(folder);
    ASSERT_NE(TextAt("Ge 1:2").find('['), std::string::npos);
    EXPECT_EQ(Copied(program, IDM_COPY_RANGE, "Ge 1:1 - Ge 1:2"),
              " 1:1 " + TextAt("Ge 1:1").substr(1) + " Ge 1:2 " + TextAt("Ge 1:2"));
}

static HWND MouseCaptureOf(const Program& program) {
    GUITHREADINFO facts{};
    facts.cbSize = sizeof facts;
    GetGUIThreadInfo(program.threadId, &facts);
    return facts.hwndCapture;
}

TEST(CopyRange, CopiesTheWholeBible) {
    Program program = StartProgram(FolderWithScripture());
    const std::string all = Copied(program, IDM_COPY_RANGE, "Ge - Re");
    EXPECT_GT(all.size(), 4000000u);
    const std::string start = Piece("Ge 1:1", "Ge 1:1") + Piece("2", "Ge 1:2");
    EXPECT_EQ(all.substr(0, start.size()), start);
    const std::string end = Piece("20", "Re 22:20") + Piece("21", "Re 22:21");
    EXPECT_EQ(all.substr(all.size() - end.size()), end);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(MouseCaptureOf(program), nullptr) << "the mouse is no longer captured";
}

// ---- The Verse List -------------------------------------------------------------------------------------------------

static std::string CopiedByKey(const Program& program, const char* key) {
    SetClipboardText(kUntouched);
    Press(program, key);
    return ClipboardText();
}

TEST(CopyVerseList, GivesEveryVerseAFullLabel) {
    for (const bool brackets : {false, true}) {
        const ScratchFolder folder = FolderWithScripture();
        // Only the setting for brackets applies to a list.
        for (const auto& [key, value] : {std::pair{"FirstVerseStyle", "2"},
                                         {"Location", "1"},
                                         {"LineBreaks", "0"},
                                         {"ParagraphMarks", "0"},
                                         {"Brackets", brackets ? "1" : "0"}})
            WriteSetting(folder, "FORMAT", key, value);
        Program program = StartProgram(folder);
        SetSearchRange(program, "Ge 1:1 - Ge 1:6");
        SearchFor(program, {"god"});
        std::string expected;
        for (int verse = 1; verse <= 6; ++verse) {
            const std::string reference = "Ge 1:" + std::to_string(verse);
            const std::string text = WithBlankAfterMark(TextAt(reference));
            expected += " " + reference + " " + (brackets ? text : WithoutBrackets(text)) + "\r\n";
        }
        ASSERT_NE(expected.find('\xB6'), std::string::npos);
        EXPECT_EQ(CopiedByKey(program, "F7"), expected);
        EXPECT_EQ(CopiedByKey(program, "F8"), "# Ge 1:1,2,3,4,5,6");
    }
}

TEST(CopyReferences, RepeatsBookAndChapterOnlyWhenTheyChange) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_EQ(CopiedByKey(program, "F8"), "# Joh 11:35");
    EXPECT_EQ(CopiedByKey(program, "F7"), " Joh 11:35 " + TextAt("Joh 11:35") + "\r\n");
    SearchFor(program, {"firmament", IDM_WORD_SEARCH, IDC_ALL_WORDS, false, false});
    EXPECT_EQ(CopiedByKey(program, "F8"), "# Ge 1:6,7,8,14,15,17,20 Ps 19:1 150:1 Eze 1:22,23,25,26 10:1 Da 12:3");
}

TEST(CopyReferences, OfAnEmptyListAreOnlyANumberSign) {
    Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(CopiedByKey(program, "F7"), kUntouched);
    EXPECT_EQ(CopiedByKey(program, "F8"), kUntouched) << "its menu item is greyed";
    Command(program, IDM_COPY_VERSE_LIST);
    EXPECT_EQ(ClipboardText(), kUntouched);
    Command(program, IDM_COPY_REFERENCES);
    EXPECT_EQ(ClipboardText(), "#");
}

// ---- Failures -------------------------------------------------------------------------------------------------------

TEST(CopyCommands, ReportAClipboardHeldByAnotherProgram) {
    Program program = StartProgram(FolderWithScripture());
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    SetClipboardText(kUntouched);
    ASSERT_TRUE(OpenClipboard(nullptr));
    for (const int command : {IDM_COPY_VERSE, IDM_COPY_RANGE, IDM_COPY_VERSE_LIST, IDM_COPY_REFERENCES}) {
        Command(program, command);
        if (command == IDM_COPY_VERSE || command == IDM_COPY_RANGE) Press(program, "Enter");
        ExpectComplaint(program, "Copy Error", "Could not open Clipboard");
        EXPECT_FALSE(HasDialog(program)) << command;
    }
    CloseClipboard();
    EXPECT_EQ(ClipboardText(), kUntouched);
    EXPECT_EQ(CopiedByKey(program, "F8"), "# Joh 11:35") << "the next copy works";
}
