// Help buttons and commands: each must open its page, in every kind of help viewer that a system may have.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/held_keys.h"
#include "tests/windows/help_viewers.h"
#include "tests/windows/helped_dialogs.h"
#include "tests/windows/note_steps.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

static HelpRequest Contents() {
    return {HELP_CONTENTS, "quill97.hlp", ""};
}

static HelpRequest Topic(const std::string& topic) {
    return {HELP_COMMAND, "quill97.hlp", "JumpID(\"quill97.hlp\",\"" + topic + "\")"};
}

static HelpRequest Quit() {
    return {HELP_QUIT, "quill97.hlp", ""};
}

static void AskIn(const Program& program, const HelpedDialog& row, std::initializer_list<const char*> keys) {
    Command(program, row.command);
    const HWND dialog = WaitForDialog(program, row.title);
    for (const char* key : keys) Press(program, key);
    EXPECT_TRUE(IsWindow(dialog)) << row.topic;
    Press(program, "Esc");
    WaitForNoDialog(program);
}

TEST(HelpRequests, AreSentByEveryHelpButtonAndCommand) {
    Program program = StartProgram(FolderWithHelp());
    const UniqueListeningViewer viewer = ListenAsViewer();
    Press(program, "F1");
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Contents()));
    Command(program, IDM_HELP_RANGE);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic("ID_SpecifyRange")));
    Command(program, IDM_HELP_PREFACE);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic("ID_Preface")));
    for (const HelpedDialog& row : HelpedDialogs()) {
        AskIn(program, row, {"Alt+h", "F1"});
        EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic(row.topic), Topic(row.topic)));
    }
    OpenNoteEditor(program);
    ClickEditorButton(program, IDC_NOTE_HELP);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic("ID_Notes_Edit")));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Quit()));
}

static void CloseWithViewer(Program& program, ListeningViewer& viewer) {
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_THAT(TakeRequests(viewer), ElementsAre(Quit()));
}

// A key that is held down presses again and again by itself.
TEST(HelpRequests, AreSentOnceWhileAKeyIsHeld) {
    static constexpr int kRepetitions = 8;
    Program program = StartProgram(FolderWithHelp());
    const UniqueListeningViewer viewer = ListenAsViewer();
    HoldKeys(program, "F1", kRepetitions);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Contents()));
    Press(program, "F1");
    Press(program, "F1");
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Contents(), Contents()));
    const HelpedDialog& row = HelpedDialogs()[0];
    Command(program, row.command);
    const HWND dialog = WaitForDialog(program, row.title);
    HoldKeys(program, "F1", kRepetitions);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic(row.topic)));
    HoldKeys(program, "Alt+h", kRepetitions);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic(row.topic)));
    const HWND button = Child(dialog, {IDC_HELP_BUTTON});
    SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
    HoldKeys(program, "Enter", kRepetitions);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic(row.topic)));
    HoldKeys(program, "a", kRepetitions);
    Click(program, button);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic(row.topic)));
    Press(program, "Esc");
    WaitForNoDialog(program);
    CloseWithViewer(program, *viewer);
}

// The program must not rely on the viewer's file in the system folder alone.
TEST(HelpRequests, GoToARunningViewerEvenIfNoneIsInstalled) {
    const WithoutViewer without;
    Program program = StartProgram(FolderWithHelp());
    const UniqueListeningViewer viewer = ListenAsViewer();
    Command(program, IDM_HELP_RANGE);
    EXPECT_THAT(TakeRequests(*viewer), ElementsAre(Topic("ID_SpecifyRange")));
}

static void WaitForNoViewer(const Program& program) {
    WaitUntil(program, "the viewer's end", [] { return ViewerWindow() == nullptr; });
}

TEST(HelpFile, OpensAtTheTopicInTheSystemViewer) {
    Program program = StartProgram(FolderWithHelp());
    Command(program, IDM_HELP_RANGE);
    EXPECT_THAT(ShownInViewer(program), HasSubstr("Specifying a range of verses"));
    SavePicture(PictureOfScreen({0, 0, 1280, 1024}), "help-in-viewer");
    Command(program, IDM_HELP_PREFACE);
    WaitUntil(program, "the other topic", [&] { return ShownInViewer(program).find("Preface") != std::string::npos; });
    Command(program, IDM_HELP_TOPICS);
    WaitUntil(program, "the contents", [&] { return ShownInViewer(program).find("Chapter 1") != std::string::npos; });
    EXPECT_EQ(CloseProgram(program), 0);
    WaitForNoViewer(program);
}

static void WaitForTopic(const Program& program, const std::string& text) {
    WaitUntil(program, text, [&] { return ShownInViewer(program).find(text) != std::string::npos; });
}

// As the page of the topic has it.
static std::string TitleOf(const Program& program, const std::string& topic) {
    const std::string page = ReadFile(program.folder, "help/" + topic + ".html");
    const std::size_t start = page.find("<title>") + 7;
    return page.substr(start, page.find("</title>") - start);
}

// The viewer comes to the front, perhaps when the next dialog is already there. So a dialog may not have the keyboard.
static HWND WaitForDialogAnywhere(const Program& program, const std::string& title) {
    HWND dialog = nullptr;
    WaitUntil(program, "the dialog \"" + title + "\"",
              [&] { return (dialog = FindWindowA("#32770", title.c_str())) != nullptr && IsWindowVisible(dialog); });
    Settle(program);
    return dialog;
}

TEST(HelpFile, OpensAtTheTopicOfEveryDialog) {
    Program program = StartProgram(FolderWithHelp());
    for (const HelpedDialog& row : HelpedDialogs()) {
        PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(row.command), 0);
        const HWND dialog = WaitForDialogAnywhere(program, row.title);
        PostMessageA(dialog, WM_COMMAND, IDC_HELP_BUTTON, 0);
        WaitForTopic(program, TitleOf(program, row.topic));
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        WaitUntil(program, "the dialog to close", [&] { return !IsWindow(dialog); });
    }
    EXPECT_EQ(ViewerCount(), 1);
}

static void WaitForNoViewers(const Program& program) {
    WaitUntil(program, "the end of all viewers", [] { return ViewerCount() == 0; });
}

TEST(HelpFile, IsShownByOneViewerWhileF1IsHeld) {
    Program program = StartProgram(FolderWithHelp());
    Command(program, HelpedDialogs()[0].command);
    WaitForDialog(program, HelpedDialogs()[0].title);
    HoldKeys(program, "F1", 8);
    WaitForTopic(program, "Searching for words");
    EXPECT_EQ(ViewerCount(), 1);
    Command(program, IDCANCEL);
    EXPECT_EQ(CloseProgram(program), 0);
    WaitForNoViewers(program);
}

// Asked again before the viewer is there: the commands are sent all at once.
TEST(HelpFile, OpensAtTheTopicAskedForLast) {
    Program program = StartProgram(FolderWithHelp());
    for (const int command : {IDM_HELP_TOPICS, IDM_HELP_RANGE, IDM_HELP_TOPICS, IDM_HELP_PREFACE})
        PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
    Settle(program);
    WaitForTopic(program, "Preface");
    EXPECT_EQ(ViewerCount(), 1);
    for (const int command : {IDM_HELP_RANGE, IDM_HELP_TOPICS})
        PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
    Settle(program);
    WaitForTopic(program, "Chapter 1");
    EXPECT_EQ(ViewerCount(), 1);
    EXPECT_EQ(CloseProgram(program), 0);
    WaitForNoViewers(program);
}

TEST(HelpFile, IsClosedWithTheProgramEvenIfTheViewerIsStillStarting) {
    for (const int command : {IDM_HELP_RANGE, IDM_HELP_TOPICS}) {
        Program program = StartProgram(FolderWithHelp());
        PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(command), 0);
        EXPECT_EQ(CloseProgram(program), 0);
        WaitForNoViewers(program);
    }
}

TEST(HelpPages, OpenInTheBrowserWhenThereIsNoViewer) {
    const WithoutViewer without;
    Program program = StartProgram(FolderWithHelp());
    const WritingBrowser browser(program.folder);
    Press(program, "F1");
    EXPECT_EQ(NextPage(program, browser), "help\\index.html");
    Command(program, IDM_HELP_PREFACE);
    EXPECT_EQ(NextPage(program, browser), "help\\ID_Preface.html");
    AskIn(program, HelpedDialogs()[0], {"F1"});
    EXPECT_EQ(NextPage(program, browser), std::string("help\\") + HelpedDialogs()[0].topic + ".html");
    EXPECT_EQ(CloseProgram(program), 0);
    EXPECT_EQ(ViewerWindow(), nullptr);
}

TEST(HelpPages, OpenOnceWhileF1IsHeld) {
    const WithoutViewer without;
    Program program = StartProgram(FolderWithHelp());
    const WritingBrowser browser(program.folder);
    HoldKeys(program, "F1", 8);
    EXPECT_EQ(NextPage(program, browser), "help\\index.html");
    Command(program, IDM_HELP_PREFACE);  // no further page came before this one
    EXPECT_EQ(NextPage(program, browser), "help\\ID_Preface.html");
}

// The help must still work when the .hlp file is missing.
TEST(HelpPages, OpenInTheBrowserWhenTheHelpFileIsMissing) {
    Program program = StartProgram(FolderWithHelp());
    std::filesystem::remove(program.folder.path / "quill97.hlp");
    const WritingBrowser browser(program.folder);
    Command(program, IDM_HELP_RANGE);
    EXPECT_EQ(NextPage(program, browser), "help\\ID_SpecifyRange.html");
}

TEST(HelpPages, ShowAMessageWhenMissing) {
    const WithoutViewer without;
    Program program = StartProgram(FolderWithScripture());
    Command(program, IDM_HELP_RANGE);
    const HWND box = WaitForDialog(program, "Help");
    EXPECT_EQ(MessageText(box), "The help file \"quill97.hlp\" cannot be found.");
    Press(program, "Enter");
    WaitForNoDialog(program);
}
