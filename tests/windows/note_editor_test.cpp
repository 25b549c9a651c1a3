// The note editor: opening and closing, layout, disabled commands, keys, clipboard.

#include <windows.h>

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/remote_memory.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

using testing::Contains;
using testing::ElementsAre;

static const std::string kNote = "The first line.\r\nA second one.\r\n";

// ---- Opening and closing --------------------------------------------------------------------------------------------

TEST(NoteEditor, ShowsTheNoteExactlyAsStored) {
    const struct {
        std::string note;
        const char* why;
    } kRows[] = {
        {kNote, "lines"},
        {"{\\rtf1 \\b no bold}", "what looks like rich text"},
        {"\xB6 \xE9 \x80", "characters beyond ASCII"},
        {"", "none"},
    };
    for (const auto& [note, why] : kRows) {
        SCOPED_TRACE(why);
        Program program = StartProgram(FolderToEdit(note));
        EXPECT_FALSE(IsShown(NoteEditorOf(program)));
        OpenNoteEditor(program);
        EXPECT_EQ(TextInEditor(program), note);
        EXPECT_EQ(FocusOf(program), NoteEditOf(program));
        EXPECT_FALSE(IsShown(NoteViewOf(program)));
        const TextSelection selection = RichSelection(program, NoteEditOf(program));
        EXPECT_EQ(selection.start, 0);
        EXPECT_EQ(selection.end, 0);
        Press(program, "Ctrl+z");
        EXPECT_EQ(TextInEditor(program), note) << "nothing to undo yet";
    }
}

TEST(NoteEditor, CancelDiscardsTheText) {
    Program program = ProgramInEditor(kNote);
    Type(program, "Typed in vain");
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(TextInEditor(program), "");
    EXPECT_TRUE(IsShown(NoteViewOf(program)));
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    EXPECT_EQ(TextOf(NoteViewOf(program)), kNote);
    OpenNoteEditor(program);
    EXPECT_EQ(TextInEditor(program), kNote);
}

TEST(NoteEditor, ShowsHiddenNotes) {
    Program program = StartProgram(FolderToEdit(kNote));
    Press(program, "F4");
    OpenNoteEditor(program);
    EXPECT_TRUE(IsTicked(program, IDM_VIEW_NOTES));
    Type(program, "Kept. ");
    Press(program, "F4");
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_NE(FocusOf(program), NoteEditOf(program)) << "a hidden editor must not have the focus";
    Press(program, "F4");
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    EXPECT_EQ(TextInEditor(program), "Kept. " + kNote);
}

TEST(NoteEditor, DoesNotOpenWhenTheNoteCannotBeRead) {
    Program program = StartProgram(FolderToEdit(kNote));
    std::filesystem::rename(program.folder.path / "Mine.nmd", program.folder.path / "away.nmd");
    Press(program, "Alt+e");
    EXPECT_EQ(MessageText(WaitForDialog(program, "Error")), "Error reading note file");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_FALSE(IsShown(NoteEditorOf(program)));
    EXPECT_TRUE(IsShown(NoteViewOf(program)));
    EXPECT_FALSE(IsGreyed(program, IDM_EDIT_NOTE));
}

// ---- Looks ----------------------------------------------------------------------------------------------------------

static RECT PlaceOf(const Program& program, int control) {
    return RectIn(Child(NoteEditorOf(program), {control}), NoteEditorOf(program));
}

static std::vector<LONG> Sides(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

TEST(NoteEditor, HasButtonsInARowAboveTheText) {
    Program program = ProgramInEditor(kNote);
    for (const auto& [width, height] : {std::pair{1200, 900}, {640, 480}, {300, 260}, {200, 150}}) {
        PlaceFrame(program, {20, 20, 20 + width, 20 + height});
        SCOPED_TRACE(width);
        const RECT room = ClientRectOf(NoteEditorOf(program));
        EXPECT_THAT(Sides(PlaceOf(program, IDC_NOTE_SAVE)), ElementsAre(0, 0, 60, 21));
        EXPECT_THAT(Sides(PlaceOf(program, IDC_NOTE_CANCEL)), ElementsAre(60, 0, 120, 21));
        EXPECT_THAT(Sides(PlaceOf(program, IDC_NOTE_HELP)), ElementsAre(120, 0, 180, 21));
        EXPECT_THAT(Sides(PlaceOf(program, IDC_NOTE_EDIT)), ElementsAre(0, 21, room.right, std::max(room.bottom, 21L)));
        EXPECT_EQ(RectIn(NoteEditorOf(program), program.frame).right, ClientRectOf(program.frame).right);
        SavePicture(PictureOfWindow(program.frame), "note-editor-" + std::to_string(width));
    }
    for (const auto& [control, text] :
         {std::pair{IDC_NOTE_SAVE, "Save"}, {IDC_NOTE_CANCEL, "Cancel"}, {IDC_NOTE_HELP, "Help"}})
        EXPECT_EQ(TextOf(NoteEditorOf(program), control), text);
    PlaceFrame(program, {20, 20, 660, 500});
    const LONG below = ClientRectOf(NoteEditorOf(program)).bottom;
    Press(program, "F2");
    Press(program, "F3");
    EXPECT_GT(ClientRectOf(NoteEditorOf(program)).bottom, 2 * below) << "the only pane, it fills the frame";
}

// The text of the line cannot be read from outside, so compare pictures: it must differ for different verses.
TEST(NoteEditor, ShowsWhichNoteIsEdited) {
    Program program = ProgramInEditor(kNote);
    const Picture first = PictureOfWindow(NoteEditorOf(program));
    const RECT line{180, 0, 500, 21};
    EXPECT_GT(CountColors(first, line), 1);
    EXPECT_GT(CountPixels(first, line, GetSysColor(COLOR_BTNFACE)), 3000)
        << "the line has the editor's background colour";
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    Press(program, "Alt+Down");
    OpenNoteEditor(program);
    const RECT changed = DifferingArea(first, PictureOfWindow(NoteEditorOf(program)));
    EXPECT_LT(changed.top, line.bottom);
    SavePicture(PictureOfWindow(NoteEditorOf(program)), "note-editor-line");
}

// ---- What waits -----------------------------------------------------------------------------------------------------

static constexpr int kWaiting[] = {IDM_NOTES_FONT,        IDM_GOTO_NOTE,     IDM_PREVIOUS_NOTE,    IDM_NEXT_NOTE,
                                   IDM_PREVIOUS_NOTE_SET, IDM_NEXT_NOTE_SET, IDM_NOTE_FOR_PASSAGE, IDM_NOTE_FOR_LIST,
                                   IDM_EDIT_NOTE,         IDM_SEARCH_NOTES,  IDM_CREATE_NOTE_SET,  IDM_DELETE_NOTE_SET,
                                   IDM_RENAME_NOTE_SET};

// Those greyed in the menu; the toolbar always agrees with it.
static std::vector<int> Greyed(const Program& program) {
    std::vector<int> greyed;
    std::ranges::copy_if(kWaiting, std::back_inserter(greyed), [&](int command) { return IsGreyed(program, command); });
    for (const ToolButton& button : ToolButtons(program)) {
        if (button.command == 0) continue;
        EXPECT_EQ((button.state & TBSTATE_INDETERMINATE) != 0, IsGreyed(program, button.command)) << button.command;
    }
    return greyed;
}

TEST(NoteEditor, GreysCommandsThatWouldChangeTheNote) {
    Program program = StartProgram(FolderToEdit(kNote));
    const std::vector<int> before = Greyed(program);
    EXPECT_THAT(before, Contains(IDM_NOTE_FOR_LIST));
    OpenNoteEditor(program);
    EXPECT_THAT(Greyed(program), testing::ElementsAreArray(kWaiting));
    for (const int command : {IDM_VERSE_FOR_NOTE, IDM_BIND_NOTES, IDM_GOTO_VERSE, IDM_WORD_SEARCH, IDM_VIEW_NOTES})
        EXPECT_FALSE(IsGreyed(program, command)) << command;
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(Greyed(program), before);

    SearchFor(program, {"grace"});
    OpenNoteEditor(program);
    EXPECT_THAT(Greyed(program), Contains(IDM_NOTE_FOR_LIST));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_FALSE(IsGreyed(program, IDM_NOTE_FOR_LIST)) << "the list has verses now";
}

// Commands may arrive even while they are greyed, and the Passage may move while the notes are bound to it.
TEST(NoteEditor, KeepsItsVerseDespiteOtherCommands) {
    Program program = ProgramInEditor(kNote);
    Type(program, "Mine. ");
    for (const int command : kWaiting) {
        Command(program, command);
        ASSERT_FALSE(HasDialog(program)) << command;
    }
    for (const char* keys : {"Alt+Down", "Alt+Up", "Alt+Right", "F10", "F9", "Alt+e", "Alt+n", "F11"}) {
        Press(program, keys);
        ASSERT_FALSE(HasDialog(program)) << keys;
    }
    ASSERT_TRUE(IsTicked(program, IDM_BIND_NOTES));
    GoTo(program, "Ge 5:10");
    EXPECT_EQ(Top(program), "Genesis 5:10");
    Command(program, IDM_GOTO_BOOK + 40);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 3:2");
    EXPECT_EQ(TextInEditor(program), "Mine. " + kNote);
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(StatusPart(program, 2), "Genesis 3:2") << "the note must not change until the next move";
    EXPECT_EQ(TextOf(NoteViewOf(program)), kNote);
}

// ---- Keys -----------------------------------------------------------------------------------------------------------

TEST(NoteEditor, HandlesTheKeysOfAPlainTextEditor) {
    static constexpr struct {
        const char* keys;
        const char* typed;
        const char* expected;
    } kSteps[] = {
        {"Ctrl+End", "x", "one\r\ntwox"},
        {"Ctrl+Home", "a", "aone\r\ntwox"},
        {"Tab", "b", "a\tbone\r\ntwox"},
        {"Enter", "c", "a\tb\r\ncone\r\ntwox"},
        {"Back", "", "a\tb\r\none\r\ntwox"},
        {"Shift+Enter", "", "a\tb\r\n\r\none\r\ntwox"},
        {"Ctrl+Enter", "", "a\tb\r\n\r\n\r\none\r\ntwox"},
    };
    Program program = ProgramInEditor("one\r\ntwo");
    for (const auto& [keys, typed, expected] : kSteps) {
        Press(program, keys);
        if (*typed) Type(program, typed);
        EXPECT_EQ(TextInEditor(program), expected) << keys;
    }
    Press(program, "Ctrl+a");
    Press(program, "Delete");
    EXPECT_EQ(TextInEditor(program), "");
    Press(program, "Ctrl+z");
    EXPECT_EQ(TextInEditor(program), kSteps[std::size(kSteps) - 1].expected);
    EXPECT_EQ(Top(program), "Genesis 3:2") << "no key has moved the Passage";
}

// The CFE_ bits that differ from plain text anywhere in the text.
static DWORD Effects(const Program& program) {
    CHARFORMATA format{};
    format.cbSize = sizeof format;
    SelectRich(program, NoteEditOf(program), {0, -1});
    AskAbout(program, NoteEditOf(program), EM_GETCHARFORMAT, TRUE, format);
    static constexpr DWORD kLooks = CFM_BOLD | CFM_ITALIC | CFM_UNDERLINE;
    return (format.dwEffects & kLooks) | (~format.dwMask & kLooks);  // the mask omits effects that vary in the text
}

// Formats the text by message, as an accessibility tool might.
static void AskForBoldText(const Program& program) {
    CHARFORMATA bold{};
    bold.cbSize = sizeof bold;
    bold.dwMask = CFM_BOLD;
    bold.dwEffects = CFE_BOLD;
    SelectRich(program, NoteEditOf(program), {0, 3});
    AskAbout(program, NoteEditOf(program), EM_SETCHARFORMAT, SCF_SELECTION, bold);
}

TEST(NoteEditor, RefusesFormatting) {
    Program program = ProgramInEditor("plain");
    AskForBoldText(program);
    EXPECT_EQ(Effects(program), 0u);
    for (const char* keys : {"Ctrl+b", "Ctrl+i", "Ctrl+u", "Ctrl+e", "Ctrl+Shift+a"}) {
        SelectRich(program, NoteEditOf(program), {0, 5});
        Press(program, keys);
        EXPECT_EQ(Effects(program), 0u) << keys;
        EXPECT_EQ(TextInEditor(program), "plain") << keys;
    }
}

// Puts text with formatting on the clipboard, as other programs do.
static void OfferBoldText(const std::string& text) {
    const auto put = [](UINT format, const std::string& bytes) {
        const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size() + 1);
        std::memcpy(GlobalLock(block), bytes.c_str(), bytes.size() + 1);
        GlobalUnlock(block);
        SetClipboardData(format, block);
    };
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    put(RegisterClipboardFormatA("Rich Text Format"), "{\\rtf1 {\\b " + text + "}}");
    put(CF_TEXT, text);
    CloseClipboard();
}

TEST(NoteEditor, PastesOnlyPlainText) {
    Program program = ProgramInEditor("plain ");
    for (const char* keys : {"Ctrl+v", "Shift+Insert"}) {
        OfferBoldText("bold");
        SelectRich(program, NoteEditOf(program), {6, -1});
        Press(program, keys);
        EXPECT_EQ(TextInEditor(program), "plain bold") << keys;
        EXPECT_EQ(Effects(program), 0u) << keys;
    }
    SetClipboardText("{\\rtf1 one}\ntwo\r\nthree");
    Press(program, "Ctrl+a");
    Press(program, "Ctrl+v");
    EXPECT_EQ(TextInEditor(program), "{\\rtf1 one}\r\ntwo\r\nthree") << "with line ends as in notes";
}

TEST(NoteEditor, TabKeysMoveBetweenControls) {
    Program program = ProgramInEditor(kNote);
    const HWND editor = NoteEditorOf(program);
    for (const int control : {IDC_NOTE_SAVE, IDC_NOTE_CANCEL, IDC_NOTE_HELP, IDC_NOTE_EDIT}) {
        Press(program, FocusOf(program) == NoteEditOf(program) ? "Ctrl+Tab" : "Tab");
        EXPECT_EQ(FocusOf(program), Child(editor, {control})) << control;
    }
    for (const int control : {IDC_NOTE_HELP, IDC_NOTE_CANCEL}) {
        Press(program, "Shift+Tab");
        EXPECT_EQ(FocusOf(program), Child(editor, {control})) << control;
    }
    EXPECT_EQ(TextInEditor(program), kNote) << "a Tab was typed";
    Press(program, "Enter");
    EXPECT_FALSE(IsShown(editor));
    OpenNoteEditor(program);
    Press(program, "Esc");
    EXPECT_FALSE(IsShown(editor)) << "the text is not lost";
    OpenNoteEditor(program);
    Type(program, "Not lost by Esc. ");
    Press(program, "Esc");
    EXPECT_EQ(MessageText(WaitForDialog(program, "Versewell97")), "Do you want to save the note for Genesis 3:2?");
    Press(program, "Esc");
    WaitForNoDialog(program);
    EXPECT_EQ(TextInEditor(program), "Not lost by Esc. " + kNote);
}

TEST(NoteEditor, HelpButtonAsksForHelp) {
    Program program = ProgramInEditor(kNote);
    ClickEditorButton(program, IDC_NOTE_HELP);
    WaitForDialog(program, "Help");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(FocusOf(program), Child(NoteEditorOf(program), {IDC_NOTE_HELP}));
    EXPECT_TRUE(IsShown(NoteEditorOf(program)));
}

// ---- Clipboard ------------------------------------------------------------------------------------------------------

static std::string EditStates(const Program& program) {
    std::string states;
    for (const auto& [command, name] : {std::pair{IDM_CUT, "Cut "}, {IDM_COPY, "Copy "}, {IDM_PASTE, "Paste "}}) {
        const bool greyed = IsGreyed(program, command);
        EXPECT_EQ(greyed, (ToolState(program, command) & TBSTATE_INDETERMINATE) != 0) << name;
        if (!greyed) states += name;
    }
    return states;
}

static void EmptyTheClipboard() {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
}

static void WaitForStates(const Program& program, const std::string& states) {
    WaitUntil(program, "the commands \"" + states + "\" alone", [&] { return EditStates(program) == states; });
}

TEST(NoteEditor, EnablesCutCopyAndPasteWhenPossible) {
    EmptyTheClipboard();
    Program program = ProgramInEditor(kNote);
    const HWND edit = NoteEditOf(program);
    EXPECT_EQ(EditStates(program), "");
    SelectRich(program, edit, {4, 9});
    EXPECT_EQ(EditStates(program), "Cut Copy ");
    SetClipboardText("from another program");
    WaitForStates(program, "Cut Copy Paste ");
    SelectRich(program, edit, {4, 4});
    EXPECT_EQ(EditStates(program), "Paste ");
    EmptyTheClipboard();
    WaitForStates(program, "");
    SelectRich(program, edit, {4, 9});
    SetClipboardText("from another program");
    WaitForStates(program, "Cut Copy Paste ");
    Command(program, IDM_FOCUS_PASSAGE);
    EXPECT_EQ(EditStates(program), "") << "the focus is elsewhere";
    SetClipboardText("once more");
    Settle(program);
    EXPECT_EQ(EditStates(program), "");
    Click(program, edit);
    EXPECT_EQ(EditStates(program), "Paste ");
    Press(program, "Ctrl+Tab");
    EXPECT_EQ(EditStates(program), "") << "the focus is on a button";
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(EditStates(program), "");
}

TEST(NoteEditor, CutsCopiesAndPastes) {
    EmptyTheClipboard();
    Program program = ProgramInEditor("one two three");
    const HWND edit = NoteEditOf(program);
    SelectRich(program, edit, {0, 4});
    Press(program, "Ctrl+x");
    EXPECT_EQ(TextInEditor(program), "two three");
    EXPECT_EQ(ClipboardText(), "one ");
    EXPECT_EQ(EditStates(program), "Paste ");
    Press(program, "Ctrl+End");
    Press(program, "Ctrl+v");
    EXPECT_EQ(TextInEditor(program), "two threeone ");
    SelectRich(program, edit, {4, 9});
    Press(program, "Ctrl+c");
    EXPECT_EQ(ClipboardText(), "three");
    EXPECT_EQ(TextInEditor(program), "two threeone ");
    Press(program, "Ctrl+a");
    Press(program, "Ctrl+c");
    EXPECT_EQ(ClipboardText(), "two threeone ") << "without an extra line end";
    SelectRich(program, edit, {0, 4});
    Press(program, "Shift+Delete");
    EXPECT_EQ(ClipboardText(), "two ");
    Press(program, "Shift+Insert");
    EXPECT_EQ(TextInEditor(program), "two threeone ");
    SelectRich(program, edit, {4, 9});
    Press(program, "Ctrl+Insert");
    EXPECT_EQ(ClipboardText(), "three");
    for (const int command : {IDM_COPY, IDM_CUT, IDM_PASTE}) Command(program, command);
    EXPECT_EQ(TextInEditor(program), "two threeone ");
    EXPECT_EQ(EditStates(program), "Paste ");
}

// ---- The chain of those that watch the clipboard --------------------------------------------------------------------

static int changesSeen = 0;

static LRESULT CALLBACK WatcherProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DRAWCLIPBOARD) ++changesSeen;
    return DefWindowProcA(window, message, wParam, lParam);
}

namespace {

struct DestroyWatcher {
    void operator()(HWND window) const { DestroyWindow(window); }
};

}  // namespace
using Watcher = std::unique_ptr<HWND__, DestroyWatcher>;

static Watcher WatchClipboard() {
    WNDCLASSA description{};
    description.lpfnWndProc = WatcherProcedure;
    description.lpszClassName = "ClipboardWatcher";
    description.hInstance = GetModuleHandleA(nullptr);
    RegisterClassA(&description);
    return Watcher(
        CreateWindowA("ClipboardWatcher", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, description.hInstance, nullptr));
}

static bool HearsOfAChange() {
    changesSeen = 0;
    SetClipboardText("changed");
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (changesSeen == 0 && std::chrono::steady_clock::now() < deadline) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return changesSeen > 0;
}

TEST(NoteEditor, KeepsTheClipboardViewerChainIntact) {
    const Watcher watcher = WatchClipboard();
    SetClipboardViewer(watcher.get());
    {
        Program program = StartProgram(FolderWithScripture());
        EXPECT_TRUE(HearsOfAChange()) << "the editor must pass it on";
        EXPECT_EQ(GetClipboardViewer(), NoteEditorOf(program));
        CloseProgram(program);
    }
    EXPECT_EQ(GetClipboardViewer(), watcher.get());
    EXPECT_TRUE(HearsOfAChange()) << "after the program has exited";
    ChangeClipboardChain(watcher.get(), nullptr);
}
