// Saving notes: what Save writes, what it reports when it fails, and what the program asks when it is closed.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

using testing::ElementsAre;

using Notes = std::map<int, std::string>;

static constexpr int kMiddle = 15000;

static const Notes kNotes = {
    {0, "The first."},        {1, "And the second."},       {kMiddle - 1, "Before."},
    {kMiddle, "four"},        {kMiddle + 1, "Behind.\r\n"}, {kLastVerse - 1, "The last but one."},
    {kLastVerse, "The last."}};

static ScratchFolder FolderWithNotes(int noteVerse) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kNotes);
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(noteVerse));
    WriteSetting(folder, "MISC", "ReadVerse", std::to_string(noteVerse));
    return folder;
}

// Compares both files byte for byte.
static void ExpectNotes(const ScratchFolder& folder, const Notes& notes, const std::string& why) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "Mine", notes);
    for (const char* file : {"Mine.nmd", "Mine.nmi"})
        EXPECT_TRUE(ReadFile(folder, file) == ReadFile(expected, file)) << file << ": " << why;
}

static Program ProgramInEditorOf(int verse) {
    Program program = StartProgram(FolderWithNotes(verse));
    OpenNoteEditor(program);
    return program;
}

static void Retype(const Program& program, const std::string& text) {
    Press(program, "Ctrl+a");
    Press(program, "Delete");
    if (text.empty()) return;
    SetClipboardText(text);
    WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
    Press(program, "Ctrl+v");
}

static bool IsEditing(const Program& program) {
    return IsShown(NoteEditorOf(program));
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

// A longer or shorter note moves all later ones; their texts and the offsets in the index must stay right.
TEST(SavedNote, LeavesAllOtherNotesUnchanged) {
    static const std::string kTexts[] = {"ten chars.", "", "in\r\ntwo lines\r\n", "{\\rtf1 \xB6 \xE9}"};
    for (const int verse : {0, kMiddle, kLastVerse}) {
        Program program = StartProgram(FolderWithNotes(verse));
        Notes notes = kNotes;
        for (const std::string& text : kTexts) {
            OpenNoteEditor(program);
            Retype(program, text);
            ClickEditorButton(program, IDC_NOTE_SAVE);
            ASSERT_FALSE(IsEditing(program)) << text;
            notes[verse] = text;
            ExpectNotes(program.folder, notes, std::to_string(verse) + " " + text);
            EXPECT_EQ(TextOf(NoteViewOf(program)), text) << "the display shows what was saved";
        }
        EXPECT_FALSE(HasFile(program.folder, "Mine.nmd.temp"));
    }
}

TEST(SavedNote, MayBeUnchanged) {
    Program program = ProgramInEditorOf(kMiddle);
    Press(program, "Ctrl+s");
    EXPECT_FALSE(IsEditing(program));
    EXPECT_EQ(FocusOf(program), NoteViewOf(program));
    ExpectNotes(program.folder, kNotes, "saved by its key");
}

TEST(SavedNote, CountsAsNoNoteWhenEmpty) {
    Program program = ProgramInEditorOf(kMiddle);
    Retype(program, "");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "") << "until the note is read again";
    Press(program, "Alt+Up");
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Before.");
    Press(program, "Alt+Down");
    EXPECT_EQ(TextOf(NoteViewOf(program)), "Behind.\r\n") << "the empty note is skipped";
    Press(program, "F10");
    EXPECT_THAT(TextOf(NoteViewOf(program)), testing::StartsWith("No note for "));
}

TEST(SavedNote, CanBeTheFirstOfItsVerse) {
    Program program = ProgramInEditorOf(kMiddle + 20);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "") << "the text \"No note for ...\" must not be edited";
    Type(program, "New # Joh 3:16");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    Notes notes = kNotes;
    notes[kMiddle + 20] = "New # Joh 3:16";
    ExpectNotes(program.folder, notes, "a new note");
    DoubleClickNote(program, "3:16");
    EXPECT_EQ(StatusPart(program, 1), "John 3:16") << "the saved references can be opened";
    CloseProgram(program);
    Program again = StartProgram(program.folder);
    EXPECT_EQ(TextOf(NoteViewOf(again)), "New # Joh 3:16");
}

// ---- Edits that are not saved ---------------------------------------------------------------------------------------

// Why a text is among the earlier notes.
static constexpr int kNotSaved = 2;
static constexpr int kCancelled = 3;

TEST(CancelledNote, IsKeptAmongTheEarlierNotes) {
    Program program = ProgramInEditorOf(kMiddle);
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_TRUE(KeptNotes(program.folder, "Mine").empty()) << "nothing was typed";
    std::vector<KeptNote> expected;
    OpenNoteEditor(program);
    Type(program, "By button: ");
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    expected.push_back({kMiddle, kCancelled, "By button: four"});
    EXPECT_EQ(KeptNotes(program.folder, "Mine"), expected);
    OpenNoteEditor(program);
    Type(program, "By Esc: ");
    Press(program, "Esc");
    WaitForDialog(program, "Versewell97");
    Press(program, "n");
    WaitForNoDialog(program);
    EXPECT_FALSE(IsEditing(program));
    expected.push_back({kMiddle, kCancelled, "By Esc: four"});
    EXPECT_EQ(KeptNotes(program.folder, "Mine"), expected);
    OpenNoteEditor(program);
    Type(program, "By closing: ");
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    WaitForDialog(program, "Versewell97");
    Press(program, "n");
    EXPECT_EQ(WaitForExit(program), 0);
    expected.push_back({kMiddle, kCancelled, "By closing: four"});
    EXPECT_EQ(KeptNotes(program.folder, "Mine"), expected);
    ExpectNotes(program.folder, kNotes, "nothing was saved");
}

// ---- Failures -------------------------------------------------------------------------------------------------------

static UniqueHandle Held(const ScratchFolder& folder, const char* name) {
    const HANDLE file =
        CreateFileA((folder.path / name).string().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
    return UniqueHandle(file);
}

// Checks the text, icon and buttons of the message box, then presses the key.
static void Answer(const Program& program, const std::string& text, const std::string& icon,
                   const std::vector<std::string>& buttons, const char* key) {
    const HWND box = WaitForDialog(program, "Error");
    WaitUntil(program, text, [&] { return IsWindow(box) && MessageText(box) == text; });
    EXPECT_EQ(ButtonsOf(box), buttons) << text;
    EXPECT_EQ(IconOf(box), icon) << text;
    EXPECT_EQ(ActiveWindowOf(program), box);
    Press(program, key);
    WaitUntil(program, "the box to close", [&] { return !IsWindow(box); });
}

static const std::vector<std::string> kOk = {"OK"};
static const std::vector<std::string> kRetryCancel = {"&Retry", "Cancel"};
static const std::string kCannotOpen =
    "There was an error opening the file \"Mine.nmd\". Please make sure this file is not being used by any other "
    "program.";
static const std::string kCannotCreate = "Failure saving note (file creation error)";
static const std::string kCannotWrite = "Failure writing. Disk may be full!";

static void ExpectKeptTextTold(const Program& program) {
    WaitUntil(program, "the editor to close", [&] { return !IsEditing(program); });
    EXPECT_EQ(StatusPart(program, 0), "The text is kept: see Notes, Earlier Notes for this Verse.");
}

static void ExpectUnsaved(const Program& program, const char* why) {
    WaitUntil(program, "the editor to close", [&] { return !IsEditing(program); });
    ExpectNotes(program.folder, kNotes, why);
    EXPECT_EQ(TextOf(NoteViewOf(program)), kNotes.at(kMiddle)) << why;
    EXPECT_FALSE(IsGreyed(program, IDM_EDIT_NOTE)) << why;
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST(UnsavedNote, StaysInTheEditorWhileItsFileIsInUse) {
    Program program = ProgramInEditorOf(kMiddle);
    Type(program, "Kept: ");
    {
        const UniqueHandle held = Held(program.folder, "Mine.nmd");
        ClickEditorButton(program, IDC_NOTE_SAVE);
        SavePicture(PictureOfWindow(WaitForDialog(program, "Error")), "note-file-in-use");
        Answer(program, kCannotOpen, "stop", kRetryCancel, "Esc");
        EXPECT_TRUE(IsEditing(program));
        EXPECT_EQ(TextOf(NoteEditOf(program)), "Kept: four");
    }
    ExpectNotes(program.folder, kNotes, "cancelled");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_FALSE(IsEditing(program));
    Notes notes = kNotes;
    notes[kMiddle] = "Kept: four";
    ExpectNotes(program.folder, notes, "saved once the file was free");
}

// Deliberate: Retry does not open the file again. Two more messages follow and the editor closes.
TEST(UnsavedNote, IsLostAfterRetry) {
    Program program = ProgramInEditorOf(kMiddle);
    Type(program, "Lost: ");
    {
        const UniqueHandle held = Held(program.folder, "Mine.nmd");
        ClickEditorButton(program, IDC_NOTE_SAVE);
        Answer(program, kCannotOpen, "stop", kRetryCancel, "Enter");
        Answer(program, kCannotCreate, "stop", kOk, "Enter");
        Answer(program, kCannotWrite, "stop", kOk, "Enter");
        ExpectKeptTextTold(program);
    }
    ExpectUnsaved(program, "Retry");
    EXPECT_EQ(KeptNotes(program.folder, "Mine"), (std::vector<KeptNote>{{kMiddle, kNotSaved, "Lost: four"}}));
}

TEST(UnsavedNote, IsReportedWhenTheTemporaryFileCannotBeCreated) {
    Program program = ProgramInEditorOf(kMiddle);
    std::filesystem::create_directory(program.folder.path / "Mine.nmd.temp");
    Type(program, "Lost: ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    Answer(program, kCannotCreate, "stop", kOk, "Enter");
    Answer(program, kCannotWrite, "stop", kOk, "Enter");
    ExpectKeptTextTold(program);
    ExpectUnsaved(program, "a folder has its name");
}

// The name of the temporary file is linked to the host's device that is always full.
TEST(UnsavedNote, IsReportedWhenTheDiskIsFull) {
    Program program = ProgramInEditorOf(kMiddle);
    RunOnHost(program.folder, "ln -s /dev/full Mine.nmd.temp");
    Type(program, "Lost: ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    Answer(program, kCannotWrite, "stop", kOk, "Enter");
    ExpectKeptTextTold(program);
    ExpectUnsaved(program, "the disk is full");
    RunOnHost(program.folder, "rm Mine.nmd.temp");  // a Windows program cannot remove it
}

// Neither the note nor the earlier notes can be written.
TEST(UnsavedNote, StaysInTheEditorIfItCannotBeKeptElsewhere) {
    Program program = ProgramInEditorOf(kMiddle);
    WriteFile(program.folder, "backup", "in the place of the folder");
    RunOnHost(program.folder, "ln -s /dev/full Mine.nmd.temp");
    Type(program, "Kept: ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    Answer(program, kCannotWrite, "stop", kOk, "Enter");
    Answer(program,
           "What you have typed cannot be kept among the earlier notes either, so it stays in the editor. Make room on "
           "the disk and save it again, or copy the text elsewhere.",
           "stop", kOk, "Enter");
    EXPECT_TRUE(IsEditing(program));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Kept: four");
    EXPECT_EQ(FocusOf(program), NoteEditOf(program));
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    static constexpr char kDropped[] =
        "What you have typed cannot be kept among the earlier notes. Disk may be full! Do you want to drop it?";
    EXPECT_EQ(MessageText(WaitForDialog(program, "Versewell97")), kDropped);
    Press(program, "Enter");  // nothing is lost by a key pressed once too often
    WaitForNoDialog(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Kept: four");
    RunOnHost(program.folder, "rm Mine.nmd.temp backup");  // room on the disk
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_FALSE(IsEditing(program));
    Notes notes = kNotes;
    notes[kMiddle] = "Kept: four";
    ExpectNotes(program.folder, notes, "saved once there was room");
}

TEST(UnsavedNote, IsReportedWhenTheOldFileCannotBeDeleted) {
    Program program = ProgramInEditorOf(kMiddle);
    const std::string path = (program.folder.path / "Mine.nmd").string();
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
    Type(program, "New: ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    // "Faliure" (sic)
    Answer(program, "Faliure Saving Note (delete old failure):\nYou should exit Versewell and restart.", "none", kOk,
           "Enter");
    ExpectKeptTextTold(program);
    ExpectNotes(program.folder, kNotes, "the old file stays");
    const ScratchFolder expected = EmptyFolder();
    Notes notes = kNotes;
    notes[kMiddle] = "New: four";
    WriteNoteSet(expected, "Mine", notes);
    EXPECT_TRUE(ReadFile(program.folder, "Mine.nmd.temp") == ReadFile(expected, "Mine.nmd"));

    // The next start keeps the text and says where it is; the one after it has nothing to say.
    const ScratchFolder folder = program.folder;
    EXPECT_EQ(CloseProgram(program), 0);
    Program next = LaunchProgram(folder);
    const HWND box = WaitForDialog(next, "Note Sets");
    EXPECT_EQ(
        MessageText(box),
        "A save of the note set \"Mine\" was not completed. Its temporary file had 1 note that is not in the set. It "
        "is now among the earlier notes of its verse: see Notes, Earlier Notes for this Verse.");
    SavePicture(PictureOfWindow(box), "left-over-note");
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    WaitForFrame(next);
    EXPECT_THAT(KeptNotes(folder, "Mine"), testing::Contains(KeptNote{kMiddle, 6, "New: four"}));  // left over
    EXPECT_FALSE(HasFile(folder, "Mine.nmd.temp"));
    ExpectNotes(folder, kNotes, "the old file stays");
    EXPECT_EQ(CloseProgram(next), 0);
    Program last = StartProgram(folder);
    EXPECT_EQ(CloseProgram(last), 0);
    SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

// A set with a damaged data file is read-only. The editor stays open so that the text can be copied elsewhere.
TEST(UnsavedNote, StaysInTheEditorOfADamagedSet) {
    const ScratchFolder folder = FolderWithNotes(0);
    const std::string damaged = ReadFile(folder, "Mine.nmd") + "one NUL too many" + '\0';
    WriteFile(folder, "Mine.nmd", damaged);
    Program program = LaunchProgram(folder);
    const HWND report = WaitForDialog(program, "Note Sets");
    PostMessageA(report, WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    EXPECT_EQ(StatusPart(program, 0), "");
    OpenNoteEditor(program);
    EXPECT_EQ(StatusPart(program, 0), "\"Mine.nmd\" is damaged: no note can be saved in it");
    Type(program, "Mine. ");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    const HWND box = WaitForDialog(program, "Error");
    EXPECT_THAT(MessageText(box), testing::HasSubstr("\"Mine.nmd\" is damaged"));
    EXPECT_EQ(IconOf(box), "stop");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsEditing(program));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
    EXPECT_TRUE(ReadFile(folder, "Mine.nmd") == damaged);
}

// Another computer has changed the set in the meantime: its notes are kept, and the index is read again from the disk.
TEST(SavedNote, IsMergedWithNotesChangedOnDisk) {
    Program program = ProgramInEditorOf(kMiddle);
    Notes notes = kNotes;
    notes[0] = "A longer first note, by another machine.";
    WriteNoteSet(program.folder, "Mine", notes);
    Type(program, "Mine: ");
    for (const char* key : {"Esc", "Enter"}) {
        ClickEditorButton(program, IDC_NOTE_SAVE);
        const HWND box = WaitForDialog(program, "Error");
        EXPECT_THAT(MessageText(box), testing::HasSubstr("another program"));
        EXPECT_EQ(IconOf(box), "exclamation");
        Press(program, key);
        WaitForNoDialog(program);
        const bool cancelled = key == std::string("Esc");
        ASSERT_EQ(IsEditing(program), cancelled);
        if (!cancelled) break;
        ExpectNotes(program.folder, notes, "cancelled");
        WriteNoteSet(program.folder, "Mine", kNotes);  // changed once more
        notes = kNotes;
    }
    notes[kMiddle] = "Mine: four";
    ExpectNotes(program.folder, notes, "saved");
}

// ---- Leaving the program --------------------------------------------------------------------------------------------

static HWND AskToClose(const Program& program) {
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_EQ(MessageText(box), "Do you want to save the note for Genesis 1:1?");
    EXPECT_THAT(ButtonsOf(box), ElementsAre("&Yes", "&No", "Cancel"));
    return box;
}

TEST(LeavingTheNoteEditor, AsksWhenClosingTheProgram) {
    static constexpr struct {
        const char* key;
        bool leaves;
        const char* note;
    } kRows[] = {{"Esc", false, "The first."}, {"n", true, "The first."}, {"y", true, "Mine. The first."}};
    for (const auto& [key, leaves, note] : kRows) {
        SCOPED_TRACE(key);
        Program program = ProgramInEditorOf(0);
        Type(program, "Mine. ");
        SavePicture(PictureOfWindow(AskToClose(program)), "save-the-note");
        Press(program, key);
        if (leaves) {
            EXPECT_EQ(WaitForExit(program), 0);
        } else {
            WaitForNoDialog(program);
            EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
            EXPECT_TRUE(IsEditing(program));
        }
        Notes notes = kNotes;
        notes[0] = note;
        ExpectNotes(program.folder, notes, key);
        EXPECT_EQ(HasFile(program.folder, "Versewell.INI") && Setting(program.folder, "MISC", "XPos") != "(none)",
                  leaves)
            << "settings are written only on exit";
    }
}

TEST(LeavingTheNoteEditor, AsksNothingWhenNotEditing) {
    Program program = ProgramInEditorOf(0);
    ClickEditorButton(program, IDC_NOTE_CANCEL);
    EXPECT_EQ(CloseProgram(program), 0);
}

TEST(LeavingTheNoteEditor, AsksNothingWhenNothingWasTyped) {
    Program program = ProgramInEditorOf(0);
    Press(program, "Esc");
    EXPECT_FALSE(HasDialog(program));
    EXPECT_FALSE(IsEditing(program));
    OpenNoteEditor(program);
    EXPECT_EQ(CloseProgram(program), 0);
    ExpectNotes(program.folder, kNotes, "nothing was typed");
}

TEST(LeavingTheNoteEditor, AsksNothingWhenTheTextWasPutBack) {
    Program program = ProgramInEditorOf(0);
    Type(program, "Mine.");
    for (int letter = 0; letter < 5; ++letter) Press(program, "Back");
    EXPECT_EQ(TextOf(NoteEditOf(program)), "The first.");
    EXPECT_EQ(CloseProgram(program), 0);
    ExpectNotes(program.folder, kNotes, "the text is as it was");
}

TEST(LeavingTheNoteEditor, IsCancelledWhenTheNoteCannotBeSaved) {
    Program program = ProgramInEditorOf(0);
    Type(program, "Mine. ");
    const UniqueHandle held = Held(program.folder, "Mine.nmd");
    AskToClose(program);
    PostMessageA(program.frame, WM_CLOSE, 0, 0);  // must not ask a second time
    Press(program, "y");
    Answer(program, kCannotOpen, "stop", kRetryCancel, "Esc");
    WaitForNoDialog(program);
    EXPECT_TRUE(IsRunning(program));
    EXPECT_EQ(TextOf(NoteEditOf(program)), "Mine. The first.");
}
