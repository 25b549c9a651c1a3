// The dialog that sets how copied, saved and printed verses are labelled.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/real_scripture.h"

static const DialogLook kFormatLook = {
    "Copy/Save Format",
    {{IDC_FIRST_FULL, "Button", "&Full (Eph 6:17 And take the helmet...)"},
     {IDC_FIRST_PARTIAL, "Button", "&Partial (6:17 And take the helmet...)"},
     {IDC_FIRST_NONE, "Button", "&None (And take the helmet...)"},
     {IDC_SUBSEQUENT_FULL, "Button", "F&ull (Eph 6:17 And take the helmet...)"},
     {IDC_SUBSEQUENT_PARTIAL, "Button", "Par&tial (17 And take the helmet...)"},
     {IDC_SUBSEQUENT_NONE, "Button", "Non&e (And take the helmet...)"},
     {IDC_LABEL_BEFORE, "Button", "&Before Verse"},
     {IDC_LABEL_AFTER, "Button", "&After Verse"},
     {IDC_LINE_BREAKS, "Button", "&Linebreaks between verses"},
     {IDC_PARAGRAPH_MARKS, "Button", "Include paragraph &marks (\xB6)"},
     {IDC_BRACKETS, "Button", "Include brac&kets ([])"},
     {IDC_COPIED_VERSES, "Static",
      " Joh 14:14 If ye shall ask any thing in my name, I will do it.\r\n"
      " 15 \xB6 If ye love me, keep my commandments.\r\n"},
     {IDOK, "Button", "OK"},
     {IDCANCEL, "Button", "Cancel"},
     {IDC_HELP_BUTTON, "Button", "&Help"}},
    {"Verse Labels", "First verse", "Subsequent verses", "Location", "Two verses as they are copied:", ""},
    {IDC_FIRST_FULL, IDC_SUBSEQUENT_PARTIAL, IDC_LABEL_BEFORE, IDC_LINE_BREAKS, IDC_PARAGRAPH_MARKS, IDC_BRACKETS, IDOK,
     IDCANCEL, IDC_HELP_BUTTON},
    {{"Alt+p", IDC_FIRST_PARTIAL},
     {"Alt+n", IDC_FIRST_NONE},
     {"Alt+f", IDC_FIRST_FULL},
     {"Alt+u", IDC_SUBSEQUENT_FULL},
     {"Alt+e", IDC_SUBSEQUENT_NONE},
     {"Alt+t", IDC_SUBSEQUENT_PARTIAL},
     {"Alt+a", IDC_LABEL_AFTER},
     {"Alt+b", IDC_LABEL_BEFORE},
     {"Alt+l", IDC_LINE_BREAKS},
     {"Alt+m", IDC_PARAGRAPH_MARKS},
     {"Alt+k", IDC_BRACKETS}}};

static HWND OpenFormat(const Program& program) {
    Command(program, IDM_FORMAT);
    return WaitForDialog(program, "Copy/Save Format");
}

static void CloseBy(const Program& program, const char* key) {
    Press(program, key);
    WaitForNoDialog(program);
}

// Ids of the checked controls, in order.
static std::vector<int> CheckedIn(HWND dialog) {
    std::vector<int> checked;
    for (const ShownControl& control : kFormatLook.controls)
        if (IsChecked(dialog, control.id)) checked.push_back(control.id);
    return checked;
}

static std::vector<int> CheckedAtOpening(const Program& program) {
    const std::vector<int> checked = CheckedIn(OpenFormat(program));
    CloseBy(program, "Esc");
    return checked;
}

static const std::vector<int> kDefaults = {IDC_FIRST_FULL, IDC_SUBSEQUENT_PARTIAL, IDC_LABEL_BEFORE, IDC_LINE_BREAKS,
                                           IDC_PARAGRAPH_MARKS};

TEST(FormatDialog, HasTheExpectedControls) {
    Program program = StartProgram(FolderWithScripture());
    const HWND before = FocusOf(program);
    const HWND dialog = OpenFormat(program);
    EXPECT_EQ(CheckedIn(dialog), kDefaults);
    ExpectLook(program, dialog, kFormatLook, "dialog-format");
    EXPECT_EQ(CheckedIn(dialog), kDefaults) << "Tab must not change the choice";
    ExpectMissingHelp(program, dialog);
    ExpectAccessKeys(program, dialog, kFormatLook.accessKeys);
    CloseBy(program, "Esc");
    EXPECT_EQ(FocusOf(program), before);
    EXPECT_EQ(CheckedAtOpening(program), kDefaults) << "cancelled";
}

static const char* const kKeys[] = {"FirstVerseStyle", "SubsequentVerseStyle", "Location",
                                    "LineBreaks",      "ParagraphMarks",       "Brackets"};

namespace {

struct Choosing {
    const char* settings[6];  // before
    std::vector<const char*> keys;
    std::vector<int> checked;  // after
    const char* stored[6];
};

}  // namespace

// Every radio button is chosen once.
TEST(FormatDialog, SavesTheChoicesForTheNextStart) {
    static const Choosing kRows[] = {
        {{"0", "1", "0", "1", "1", "0"},
         {"Alt+p", "Alt+u", "Alt+a", "Alt+l", "Alt+m", "Alt+k"},
         {IDC_FIRST_PARTIAL, IDC_SUBSEQUENT_FULL, IDC_LABEL_AFTER, IDC_BRACKETS},
         {"1", "0", "1", "0", "0", "1"}},
        {{"1", "0", "1", "0", "0", "1"},
         {"Alt+n", "Alt+e", "Alt+b", "Alt+l"},
         {IDC_FIRST_NONE, IDC_SUBSEQUENT_NONE, IDC_LABEL_BEFORE, IDC_LINE_BREAKS, IDC_BRACKETS},
         {"2", "2", "0", "1", "0", "1"}},
        {{"2", "2", "1", "1", "0", "1"},
         {"Alt+f", "Alt+t", "Alt+m", "Alt+k"},
         {IDC_FIRST_FULL, IDC_SUBSEQUENT_PARTIAL, IDC_LABEL_AFTER, IDC_LINE_BREAKS, IDC_PARAGRAPH_MARKS},
         {"0", "1", "1", "1", "1", "0"}},
        // Invalid settings: an unknown style means None, an unknown location After Verse, a nonzero switch is on.
        {{"7", "-1", "5", "12", "-1", "0"},
         {},
         {IDC_FIRST_NONE, IDC_SUBSEQUENT_NONE, IDC_LABEL_AFTER, IDC_LINE_BREAKS, IDC_PARAGRAPH_MARKS},
         {"2", "2", "1", "1", "1", "0"}},
    };
    for (const Choosing& row : kRows) {
        const ScratchFolder folder = FolderWithScripture();
        for (std::size_t i = 0; i < std::size(kKeys); ++i) WriteSetting(folder, "FORMAT", kKeys[i], row.settings[i]);
        Program program = StartProgram(folder);
        OpenFormat(program);
        for (const char* key : row.keys) Press(program, key);
        CloseBy(program, "Enter");
        EXPECT_EQ(CheckedAtOpening(program), row.checked);
        CloseProgram(program);
        for (std::size_t i = 0; i < std::size(kKeys); ++i)
            EXPECT_EQ(Setting(folder, "FORMAT", kKeys[i]), row.stored[i]) << kKeys[i];
    }
}

TEST(FormatDialog, ChangesNothingWhenCancelled) {
    Program program = StartProgram(FolderWithScripture());
    for (const bool byKey : {true, false}) {
        const HWND dialog = OpenFormat(program);
        for (const char* key : {"Alt+n", "Alt+e", "Alt+a", "Alt+l", "Alt+m", "Alt+k"}) Press(program, key);
        if (byKey)
            CloseBy(program, "Esc");
        else {
            Click(program, Child(dialog, {IDCANCEL}));
            WaitForNoDialog(program);
        }
        EXPECT_EQ(CheckedAtOpening(program), kDefaults);
    }
}

// A format changed from within a dialog applies to that dialog and to those opened later.
TEST(FormatDialog, OpensFromTheCopyAndSaveDialogs) {
    Program program = StartProgram(FolderWithScripture());
    for (const auto& [command, title] :
         {std::pair{IDM_COPY_VERSE, "Copy Verse"}, {IDM_COPY_RANGE, "Copy Range"}, {IDM_SAVE_RANGE, "Save Range"}}) {
        Command(program, command);
        const HWND owner = WaitForDialog(program, title);
        Press(program, "Alt+f");
        const HWND format = WaitForDialog(program, "Copy/Save Format");
        EXPECT_FALSE(IsWindowEnabled(owner)) << title;
        Press(program, "Esc");
        WaitUntil(program, "the format to be closed", [&] { return !IsWindow(format); });
        EXPECT_TRUE(IsWindowEnabled(owner)) << title;
        CloseBy(program, "Esc");
    }
    SetClipboardText("");
    GoTo(program, "Joh 3:16");
    Press(program, "F5");
    WaitForDialog(program, "Copy Verse");
    Press(program, "Alt+f");
    const HWND format = WaitForDialog(program, "Copy/Save Format");
    for (const char* key : {"Alt+n", "Alt+a"}) Press(program, key);
    Press(program, "Enter");
    WaitUntil(program, "the format to be closed", [&] { return !IsWindow(format); });
    CloseBy(program, "Enter");
    EXPECT_EQ(ClipboardText(), " " + WithBlankAfterMark(TextAt("Joh 3:16")) + "\r\n");
}

// What the dialog shows while choices are made is what is copied after OK.
TEST(FormatDialog, ShowsVersesAsTheyAreCopied) {
    Program program = StartProgram(FolderWithScripture());
    for (const std::vector<const char*>& keys : {std::vector{"Alt+p", "Alt+u", "Alt+k"},
                                                 {"Alt+n", "Alt+t", "Alt+a"},
                                                 {"Alt+f", "Alt+e", "Alt+l"},
                                                 {"Alt+m", "Alt+b", "Alt+n"}}) {
        const HWND format = OpenFormat(program);
        std::string shown = TextOf(format, IDC_COPIED_VERSES);
        for (const char* key : keys) {
            Press(program, key);
            const std::string before = std::exchange(shown, TextOf(format, IDC_COPIED_VERSES));
            EXPECT_NE(shown, before) << key;
        }
        SavePicture(PictureOfWindow(format), std::string("format-") + keys.front());
        CloseBy(program, "Enter");
        SetClipboardText("");
        Press(program, "F6");
        WaitForDialog(program, "Copy Range");
        Press(program, "Shift+Home");
        Type(program, "Joh 14:14 - 14:15");
        CloseBy(program, "Enter");
        EXPECT_EQ(ClipboardText(), shown);
    }
    const HWND format = OpenFormat(program);
    const std::string shown = TextOf(format, IDC_COPIED_VERSES);
    Press(program, "Alt+k");
    EXPECT_NE(TextOf(format, IDC_COPIED_VERSES), shown);
    CloseBy(program, "Esc");
    EXPECT_EQ(TextOf(OpenFormat(program), IDC_COPIED_VERSES), shown) << "cancelled";
}
