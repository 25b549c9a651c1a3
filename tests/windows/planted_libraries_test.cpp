// Libraries that someone has put beside a copy of the program, or into the folder that it is started in, under the
// names of the system's: the program loads none of them.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/accessible.h"
#include "tests/windows/help_viewers.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/test_printer.h"

using testing::ElementsAre;
using testing::IsEmpty;

// All that the program, and what it opens, loads while it runs. Not uxtheme.dll and version.dll, which Wine's own
// libraries bring along before the first instruction of the program; those of Windows load them later or not at all.
static constexpr const char* kSystemLibraries[] = {
    "riched32.dll", "riched20.dll",      "msls31.dll",  "usp10.dll",    "winspool.drv", "oleacc.dll", "oleaut32.dll",
    "ole32.dll",    "comdlg32.dll",      "shell32.dll", "comctl32.dll", "dwmapi.dll",   "bcrypt.dll", "dbghelp.dll",
    "msimg32.dll",  "explorerframe.dll", "propsys.dll", "compstui.dll", "wineps.drv",
};

namespace {

// While this exists, Wine takes these libraries for a program as Windows does: from a file if it finds one, rather than
// from those that are built in.
struct FilesFirst {
    explicit FilesFirst(const std::string& program) : key("Software\\Wine\\AppDefaults\\" + program) {
        for (const std::string library : kSystemLibraries) {
            const std::string name = library.ends_with(".dll") ? library.substr(0, library.size() - 4) : library;
            RegSetKeyValueA(HKEY_CURRENT_USER, (key + "\\DllOverrides").c_str(), name.c_str(), REG_SZ, "native,builtin",
                            sizeof "native,builtin");
        }
    }
    ~FilesFirst() { RegDeleteTreeA(HKEY_CURRENT_USER, key.c_str()); }
    std::string key;
};

}  // namespace

static void PlantIn(const ScratchFolder& folder, const char* library) {
    const std::filesystem::path planted = ProgramBesideThis("planted_library.dll");
    if (!CopyFileW(planted.c_str(), (folder.path / library).c_str(), TRUE)) Fail(nullptr, "cannot plant a library");
}

static std::vector<std::string> MarksIn(const ScratchFolder& folder) {
    std::vector<std::string> marks;
    for (const std::string& name : FilesIn(folder))
        if (name.ends_with(".loaded")) marks.push_back(name);
    return marks;
}

// Otherwise the tests below would show nothing.
TEST(PlantedLibraries, AreLoadedByAProgramThatTakesAny) {
    const FilesFirst files("driver_sample.exe");
    const ScratchFolder folder = EmptyFolder();
    CopyFileW(ProgramBesideThis("driver_sample.exe").c_str(), (folder.path / "driver_sample.exe").c_str(), TRUE);
    PlantIn(folder, "riched32.dll");
    StartOptions options;
    options.programFile = folder.path / "driver_sample.exe";
    const Program program = LaunchProgram(folder, options);
    WaitUntil(program, "a planted library", [&] { return !MarksIn(folder).empty(); });
    EXPECT_THAT(MarksIn(folder), ElementsAre(testing::StrCaseEq("riched32.dll.loaded")));
}

static void ShowAndCloseDialog(const Program& program, int command, const char* title) {
    Command(program, command);
    WaitForDialog(program, title);
    CloseWithEsc(program);
}

static void Print(const Program& program) {
    Command(program, IDM_PRINT_RANGE);
    SetDlgItemTextA(WaitForDialog(program, "Print Range"), IDC_RANGE, "Ge 1:1");
    Press(program, "Enter");
    AcceptPrinter(program);
    EXPECT_EQ(PrintedPages(program).size(), 1u);
}

static void OpenHelpPage(const Program& program) {
    const WithoutViewer without;
    const ScratchFolder folder = EmptyFolder();
    const WritingBrowser browser(folder);
    Command(program, IDM_HELP_PREFACE);
    WaitUntil(program, "the page in the browser", [&] { return HasFile(folder, "pages.txt"); });
}

static void Crash(const Program& program) {
    static constexpr std::chrono::seconds kLongPatience{240};
    const auto nowhere = reinterpret_cast<LPTHREAD_START_ROUTINE>(0x10);
    const UniqueHandle thread(CreateRemoteThread(program.process.get(), nullptr, 0, nowhere, nullptr, 0, nullptr));
    WaitUntil(
        program, "the end of the crashed program", [&] { return !IsRunning(program); }, kLongPatience);
    EXPECT_TRUE(std::filesystem::exists(program.folder.path / "crash"));
}

// Beside the program and in the working folder, whatever the program is used for.
TEST(PlantedLibraries, AreNotLoaded) {
    const FilesFirst files(std::filesystem::path(Surroundings().program).filename().string());
    const ScratchFolder home = EmptyFolder(), current = FolderWithHelp();
    CopyProgramTo(home);
    const TestPrinter printer(current, PortToPages(current));
    for (const char* library : kSystemLibraries)
        for (const ScratchFolder& folder : {home, current}) PlantIn(folder, library);

    Program program = StartProgram(current, ProgramIn(home));
    EXPECT_FALSE(HasDialog(program));
    OpenNoteEditor(program);  // riched32 and what belongs to it
    Type(program, "kept");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    EXPECT_EQ(TextOf(NoteViewOf(program)), "kept");
    ShowAndCloseDialog(program, IDM_ABOUT, "About Versewell97");  // bcrypt
    ShowAndCloseDialog(program, IDM_PASSAGE_FONT, "Font");        // comdlg32
    EXPECT_EQ(Told(program, PassageOf(program))->result, S_OK);   // oleacc, ole32, oleaut32
    Command(program, IDM_DARK_ON);                                // uxtheme, dwmapi
    Print(program);                                               // winspool.drv and the printer's driver
    OpenHelpPage(program);                                        // shell32
    if (IsLongRun()) Crash(program);                              // dbghelp
    for (const ScratchFolder& folder : {home, current}) EXPECT_THAT(MarksIn(folder), IsEmpty());
}

// A page that lies in the working folder may be anyone's, too.
TEST(PlantedHelp, IsNotOpenedInPlaceOfTheProgramsOwn) {
    const ScratchFolder home = FolderWithHelp(), current = FolderWithHelp(), browserFolder = EmptyFolder();
    CopyProgramTo(home);
    Program program = StartProgram(current, ProgramIn(home));
    {
        const WithoutViewer without;
        const WritingBrowser browser(browserFolder);
        Command(program, IDM_HELP_PREFACE);
        const std::string own = (home.path / "help" / "ID_Preface.html").string();
        WaitUntil(program, "the page in the browser",
                  [&] { return ReadFile(browserFolder, "pages.txt").find(".html") != std::string::npos; });
        EXPECT_THAT(ReadFile(browserFolder, "pages.txt"), testing::HasSubstr(own));
    }
}
