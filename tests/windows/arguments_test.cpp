// The arguments of the program: help, version and a reference, also for a copy that is running already.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"

using testing::HasSubstr;

static StartOptions Argument(const std::string& arguments) {
    StartOptions options;
    options.arguments = arguments;
    return options;
}

// Starts another copy in the folder, and expects it to exit by itself.
static void StartAgain(const ScratchFolder& folder, const std::string& arguments) {
    const Program second = LaunchProgram(folder, Argument(arguments));
    EXPECT_EQ(WaitForExit(second), 0) << arguments;
}

// ---- Answers --------------------------------------------------------------------------------------------------------

// Starts the program with this file as its output; null for none.
static Program StartWithOutput(const ScratchFolder& folder, const std::wstring& arguments, HANDLE output) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    std::wstring line = L"\"" + std::filesystem::path(Surroundings().program).wstring() + L"\" " + arguments;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.path.c_str(), &startup,
                        &started)) {
        Fail(nullptr, "cannot start the program");
    }
    CloseHandle(started.hThread);
    Program program;
    program.folder = folder;
    program.process.reset(started.hProcess);
    program.processId = started.dwProcessId;
    return program;
}

static std::string OutputWith(const std::wstring& arguments) {
    const ScratchFolder folder = EmptyFolder();
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE output = CreateFileW((folder.path / "output.txt").c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                      CREATE_ALWAYS, 0, nullptr);
    const Program program = StartWithOutput(folder, arguments, output);
    CloseHandle(output);
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(FilesIn(folder).size(), 1u) << "no settings are written";
    return ReadFile(folder, "output.txt");
}

TEST(Arguments, AreExplained) {
    for (const wchar_t* asked : {L"--help", L"-h", L"/?", L"John 3:16 --help"}) {
        const std::string help = OutputWith(asked);
        EXPECT_THAT(help, HasSubstr("versewell.exe [REFERENCE] [/folder \"PATH\"]\r\n"));
        EXPECT_THAT(help, HasSubstr("Versewell " VERSEWELL_VERSION "\r\n"));
    }
    EXPECT_EQ(OutputWith(L"--version"), "Versewell " VERSEWELL_VERSION "\r\n");
}

TEST(Arguments, RemoveTheListWithoutAWindow) {
    const ScratchFolder folder = FolderWithScripture();
    const std::vector<std::string> files = FilesIn(folder);
    const Program program = LaunchProgram(folder, Argument("--remove-list"));
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(FilesIn(folder), files) << "nothing is written";
}

// There is neither an output nor a console: the tests' own output is a file.
TEST(Arguments, AreExplainedInABox) {
    const ScratchFolder folder = FolderWithScripture();
    const Program program = StartWithOutput(folder, L"--help", nullptr);
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_THAT(MessageText(box), HasSubstr("versewell.exe [REFERENCE] [/folder \"PATH\"]"));
    EXPECT_EQ(IconOf(box), "information");
    SavePicture(PictureOfWindow(box), "help-on-arguments");
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(FilesIn(folder).size(), 5u) << "nothing is written";
}

// ---- At the start ---------------------------------------------------------------------------------------------------

TEST(ReferenceArgument, IsShownAtTheStart) {
    for (const char* arguments : {"\"John 3:16\"", "John 3:16", "joh 3:16", "'John 3:16'", "\" 'John 3:16'\""}) {
        Program program = StartProgram(FolderWithScripture(), Argument(arguments));
        WaitUntil(program, arguments, [&] { return Top(program) == "John 3:16"; });
        EXPECT_EQ(StatusPart(program, 0), "") << arguments;
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(Setting(program.folder, "MISC", "ReadVerse"), "26136");
    }
}

TEST(ReferenceArgument, IsShownInAHiddenPassage) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "VIEW", "PassageWindow", "0");
    Program program = StartProgram(folder, Argument("Ro 8:1"));
    WaitUntil(program, "the Passage", [&] { return IsShown(PassageOf(program)); });
    EXPECT_EQ(Top(program), "Romans 8:1");
}

TEST(ReferenceArgument, GoesTogetherWithAFolder) {
    const ScratchFolder folder = FolderWithScripture(), elsewhere = EmptyFolder();
    const std::string path = "/folder \"" + folder.path.string() + "\"";
    for (const std::string& arguments : {path + " John 3:16", "\"John 3:16\" " + path}) {
        Program program = StartProgram(elsewhere, Argument(arguments));
        WaitUntil(program, arguments, [&] { return Top(program) == "John 3:16"; });
        EXPECT_EQ(CloseProgram(program), 0);
        EXPECT_EQ(Setting(folder, "MISC", "ReadVerse"), "26136");
        WriteSetting(folder, "MISC", "ReadVerse", "0");
    }
}

static void ExpectNotStarted(const ScratchFolder& folder, const std::string& arguments, const std::string& told) {
    const Program program = LaunchProgram(folder, Argument(arguments));
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_EQ(MessageText(box), told + ", so Versewell has not been started.");
    PostMessageA(box, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(WaitForExit(program), 0);
    EXPECT_EQ(FilesIn(folder).size(), 5u) << "nothing is written";
}

// Otherwise notes would be written in another folder than the one that was meant.
TEST(FolderArgument, IsToldIfItIsNotThere) {
    const ScratchFolder folder = FolderWithScripture();
    const std::string path = folder.path.string(), missing = path + "\\no such folder";
    const std::string isMissing = " does not exist";
    ExpectNotStarted(folder, "/folder \"" + missing + "\" \"John 3:16\"", "The folder \"" + missing + "\"" + isMissing);
    ExpectNotStarted(folder, "/folder \" \"", "The folder \" \"" + isMissing);
    ExpectNotStarted(folder, "/folder " + path + "\" John 3:16", "The folder \"" + path + " John 3:16\"" + isMissing);
    ExpectNotStarted(folder, "/folder \"" + path + "\\_avtext.dat\"",
                     "\"" + path + "\\_avtext.dat\" is a file and not a folder");
}

// As a shortcut or a script has it whose variable is empty.
TEST(FolderArgument, IsToldIfThereIsNone) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* arguments : {"/folder", "/folder \"\"", "\"John 3:16\" /folder"})
        ExpectNotStarted(folder, arguments, "There is no folder behind /folder");
}

// Starts the program with the folder, which it cannot use, and returns its question, whose answer is still to be given.
static std::string QuestionAbout(const Program& program, const std::string& folder) {
    const HWND box = WaitForDialog(program, "Versewell97");
    EXPECT_EQ(IconOf(box), "exclamation");
    EXPECT_THAT(ButtonsOf(box), testing::ElementsAre("OK", "Cancel"));
    EXPECT_THAT(MessageText(box), HasSubstr("\n\n" + folder + "\\\n\n"));
    return MessageText(box);
}

// A stick that is write-protected: the notes of another folder are not the ones that were asked for.
TEST(FolderArgument, IsToldIfItIsReadOnly) {
    const ScratchFolder home = EmptyFolder(), named = FolderWithScripture();
    CopyProgramTo(home);
    WriteNoteSet(named, "Years", {{0, "of notes"}});
    const ReadOnlyFolder readOnly(named.path);
    StartOptions options = ProgramIn(home);
    options.arguments = "/folder \"" + named.path.string() + "\"";
    {
        const Program program = LaunchProgram(home, options);
        EXPECT_THAT(QuestionAbout(program, named.path.string()),
                    testing::AllOf(HasSubstr("because no files can be created there"),
                                   HasSubstr("OK starts it with the notes in\n\n" + home.path.string())));
        SavePicture(PictureOfWindow(WaitForDialog(program, "Versewell97")), "read-only-folder");
        PostMessageA(WaitForDialog(program, "Versewell97"), WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(WaitForExit(program), 0);
        EXPECT_FALSE(HasFile(home, "My Notes.nmd"));
    }
    Program program = LaunchProgram(home, options);
    PostMessageA(WaitForDialog(program, "Versewell97"), WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    EXPECT_THAT(NoteSetNames(program), testing::ElementsAre("My Notes"));
    EXPECT_TRUE(HasFile(home, "My Notes.nmd"));
}

// One without any note set or text is no folder of notes, as of a wrong letter in a shortcut.
TEST(FolderArgument, IsToldIfItHasNoNotes) {
    const ScratchFolder home = FolderWithScripture(), empty = EmptyFolder();
    CopyProgramTo(home);
    StartOptions options = ProgramIn(home);
    options.arguments = "/folder \"" + empty.path.string() + "\"";
    {
        const Program program = LaunchProgram(home, options);
        EXPECT_THAT(QuestionAbout(program, empty.path.string()), HasSubstr("because it has neither note sets nor"));
        PostMessageA(WaitForDialog(program, "Versewell97"), WM_COMMAND, IDCANCEL, 0);
        EXPECT_EQ(WaitForExit(program), 0);
    }
    options.arguments = "/folder \"" + home.path.string() + "\\.\"";
    Program program = StartProgram(empty, options);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_TRUE(FilesIn(empty).empty());
}

TEST(ReferenceArgument, IsToldIfItIsNotUnderstood) {
    for (const auto& [arguments, told] : {std::pair{"Jxn 3:16", "\"Jxn 3:16\" is not understood"},
                                          {"\"Ge 0:1\"", "\"Ge 0:1\" is not understood"},
                                          {":", "\":\" is not understood"},
                                          {"(John 3:16)", "\"(John 3:16)\" is not understood"},
                                          {"\"''\"", "\"''\" is not understood"},
                                          {"--hepl", "\"--hepl\" is not understood"}}) {
        Program program = StartProgram(FolderWithScripture(), Argument(arguments));
        WaitUntil(program, told, [&, text = told] { return StatusPart(program, 0) == text; });
        EXPECT_EQ(Top(program), "Genesis 1:1");
        EXPECT_FALSE(HasDialog(program));
    }
}

TEST(ReferenceArgument, IsToldIfItIsReadAsAnotherOne) {
    Program program = StartProgram(FolderWithScripture(), Argument("\"1 Jn 5:7x garbage\""));
    WaitUntil(program, "the verse", [&] { return Top(program) == "Genesis 1:7"; });
    EXPECT_EQ(StatusPart(program, 0), "\"1 Jn 5:7x garbage\" was read as Genesis 1:7");
    StartAgain(program.folder, "\"Es 8:9; foo\"");
    EXPECT_EQ(StatusPart(program, 0), "\"Es 8:9; foo\" was read as Esther 8:9");
    StartAgain(program.folder, "\"es 8:9\"");
    EXPECT_EQ(StatusPart(program, 0), "");
    EXPECT_EQ(Top(program), "Esther 8:9");
}

// ---- To a running copy ----------------------------------------------------------------------------------------------

TEST(ReferenceForTheFirstCopy, IsShownThere) {
    Program first = StartProgram(FolderWithScripture());
    Program elsewhere = StartProgram(FolderWithScripture());
    StartAgain(first.folder, "\"John 3:16\"");
    EXPECT_EQ(Top(first), "John 3:16");
    EXPECT_EQ(Top(elsewhere), "Genesis 1:1");
    WaitUntil(first, "its window to be in front", [&] { return GetForegroundWindow() == first.frame; });
    ShowWindow(first.frame, SW_MINIMIZE);
    WaitUntil(first, "it to be minimized", [&] { return IsIconic(first.frame) != FALSE; });
    StartAgain(elsewhere.folder, "/folder \"" + first.folder.path.string() + "\" Ro 8:1");
    WaitUntil(first, "it to be restored", [&] { return IsIconic(first.frame) == FALSE; });
    EXPECT_EQ(Top(first), "Romans 8:1");
    StartAgain(first.folder, "");
    EXPECT_EQ(Top(first), "Romans 8:1");
    EXPECT_EQ(StatusPart(first, 0), "");
}

TEST(ReferenceForTheFirstCopy, IsToldThereIfItIsNotUnderstood) {
    Program first = StartProgram(FolderWithScripture());
    StartAgain(first.folder, "Jxn 3:16");
    EXPECT_EQ(StatusPart(first, 0), "\"Jxn 3:16\" is not understood");
    StartAgain(first.folder, "--hepl");
    EXPECT_EQ(StatusPart(first, 0), "\"--hepl\" is not understood");
    EXPECT_EQ(Top(first), "Genesis 1:1");
    StartAgain(first.folder, "Ge 1:3");
    EXPECT_EQ(StatusPart(first, 0), "");
}

TEST(ReferenceForTheFirstCopy, LeavesAnEditedNoteAsItIs) {
    Program first = ProgramInEditor("One");
    Type(first, "Mine. ");
    StartAgain(first.folder, "John 3:16");
    EXPECT_EQ(Top(first), "John 3:16");
    EXPECT_EQ(TextInEditor(first), "Mine. One");
    WaitUntil(first, "its window to be in front", [&] { return GetForegroundWindow() == first.frame; });
    Type(first, "And more. ");
    EXPECT_EQ(TextInEditor(first), "Mine. And more. One");
    EXPECT_EQ(FocusOf(first), NoteEditOf(first));
}

TEST(ReferenceForTheFirstCopy, IsNotShownBehindADialog) {
    Program first = StartProgram(FolderWithScripture());
    Command(first, IDM_GOTO_VERSE);
    const HWND dialog = WaitForDialog(first, "Go To Verse");
    StartAgain(first.folder, "John 3:16");
    EXPECT_EQ(StatusPart(first, 0), "\"John 3:16\" was not shown, because a dialog is open");
    EXPECT_EQ(Top(first), "Genesis 1:1");
    WaitUntil(first, "the dialog to be in front", [&] { return GetForegroundWindow() == dialog; });
    CloseWithEsc(first);
    StartAgain(first.folder, "John 3:16");
    EXPECT_EQ(Top(first), "John 3:16");
    EXPECT_EQ(StatusPart(first, 0), "");
}

// ---- Messages from elsewhere ----------------------------------------------------------------------------------------

static constexpr ULONG_PTR kNumberOfTheMessage = 0x56657273;

static LRESULT SendData(const Program& program, ULONG_PTR number, const void* bytes, std::size_t size,
                        HWND sender = nullptr) {
    COPYDATASTRUCT data{number, static_cast<DWORD>(size), const_cast<void*>(bytes)};
    const LRESULT result =
        SendMessageA(program.frame, WM_COPYDATA, reinterpret_cast<WPARAM>(sender), reinterpret_cast<LPARAM>(&data));
    Settle(program);
    return result;
}

TEST(DataForTheProgram, IsIgnoredUnlessItIsAReferenceFromAProgramOfTheUser) {
    Program program = StartProgram(FolderWithScripture());
    const HWND own = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    static constexpr wchar_t kGood[] = L"John 3:16";
    const std::wstring tooLong(100'000, L'a');
    const std::wstring twoLines(L"John\n3:16", 10);
    const auto expectIgnored = [&](const char* what, LRESULT answer) {
        EXPECT_EQ(answer, FALSE) << what;
        EXPECT_EQ(Top(program), "Genesis 1:1") << what;
        EXPECT_EQ(StatusPart(program, 0), "") << what;
    };
    expectIgnored("another number", SendData(program, 1, kGood, sizeof kGood, own));
    expectIgnored("no data", SendData(program, kNumberOfTheMessage, nullptr, 0, own));
    expectIgnored("no end", SendData(program, kNumberOfTheMessage, kGood, sizeof kGood - 2, own));
    expectIgnored("half a letter", SendData(program, kNumberOfTheMessage, kGood, sizeof kGood - 1, own));
    expectIgnored("too long", SendData(program, kNumberOfTheMessage, tooLong.c_str(), 200'002, own));
    expectIgnored("two lines", SendData(program, kNumberOfTheMessage, twoLines.c_str(), 20, own));
    expectIgnored("no sender", SendData(program, kNumberOfTheMessage, kGood, sizeof kGood));
    expectIgnored("a sender that is none",
                  SendData(program, kNumberOfTheMessage, kGood, sizeof kGood, program.frame + 7));
    EXPECT_EQ(SendData(program, kNumberOfTheMessage, kGood, sizeof kGood, own), TRUE);
    EXPECT_EQ(Top(program), "John 3:16");
    DestroyWindow(own);
}

// ---- The taskbar ----------------------------------------------------------------------------------------------------

// Where the system has no such list, as here, the verses are kept and nothing else happens.
TEST(LastVerses, AreKeptByAnInstalledCopyOnly) {
    for (const bool isInstalled : {true, false}) {
        const ScratchFolder home = FolderWithScripture(), data = EmptyFolder();
        CopyProgramTo(home);
        if (isInstalled) WriteFile(home, "installed.txt", "");
        const WithApplicationData applicationData(data.path);
        StartOptions options = ProgramIn(home);
        options.arguments = "Ro 8:1";
        Program program = LaunchProgram(home, options);
        if (isInstalled)
            PostMessageA(WaitForDialog(program, "Take Over Notes"), WM_COMMAND, IDNO, 0);  // there are no notes yet
        WaitForFrame(program);
        WaitUntil(program, "the verse", [&] { return Top(program) == "Romans 8:1"; });
        GoTo(program, "John 3:16");
        EXPECT_EQ(CloseProgram(program), 0);
        const std::string more = ReadFile(data, "Versewell/Versewell.more.ini");
        EXPECT_EQ(more.find("LastVerses=\"26136 28117\"") != more.npos, isInstalled) << more;
        EXPECT_EQ(ReadFile(home, "Versewell.more.ini").find("LastVerses"), std::string::npos);
        Program again = StartProgram(home, ProgramIn(home));
        EXPECT_EQ(CloseProgram(again), 0);
        EXPECT_EQ(ReadFile(data, "Versewell/Versewell.more.ini"), more);
    }
}
