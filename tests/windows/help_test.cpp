// Help buttons and commands: each must open its page, in every kind of help viewer that a system may have.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
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
