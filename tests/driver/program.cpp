// Starting, ending and waiting for the program.

#include <stdexcept>
#include <thread>

#include <windows.h>

#include <tlhelp32.h>

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

void KillProcessDeleter::operator()(HANDLE process) const {
    if (WaitForSingleObject(process, 0) == WAIT_TIMEOUT) {
        TerminateProcess(process, 99);
        WaitForSingleObject(process, static_cast<DWORD>(kPatience.count()));
    }
    CloseHandle(process);
}

// Name of a picture for the running test: "failed-FirstStart.CreatesMyNotes".
static std::string FailurePictureName() {
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    if (test == nullptr) return "failed";
    std::string name = std::string("failed-") + test->test_suite_name() + "." + test->name();
    for (char& letter : name)
        if (letter == '/') letter = '-';
    return name;
}

std::string PictureOfFailure() {
    const std::string name = FailurePictureName();
    SavePicture(PictureOfScreen({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}), name);
    return name + ".png";
}

void Fail(const Program* program, const std::string& text) {
    std::string whole = text + "\npicture: " + PictureOfFailure();
    if (program != nullptr) whole += "\n" + DescribeWindows(*program);
    throw std::runtime_error(whole);
}

// Short at first, because most things happen at once, then longer: each look asks Wine's server many questions, which
// take the program's time too.
static std::chrono::milliseconds PauseAfter(std::chrono::steady_clock::duration waited) {
    return std::chrono::milliseconds(waited < std::chrono::milliseconds(50) ? 5 : 20);
}

void WaitUntil(const Program& program, std::string_view what, const std::function<bool()>& isSo,
               std::chrono::milliseconds patience) {
    const auto start = std::chrono::steady_clock::now();
    while (!isSo()) {
        const auto waited = std::chrono::steady_clock::now() - start;
        if (waited > patience) Fail(&program, "waited in vain for " + std::string(what));
        std::this_thread::sleep_for(PauseAfter(waited));
    }
}

// ---- Starting -------------------------------------------------------------------------------------------------------

static DWORD FindProcess(const std::string& file) {
    const UniqueHandle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(all.get(), &entry); more; more = Process32Next(all.get(), &entry))
        if (file == entry.szExeFile) return entry.th32ProcessID;
    return 0;
}

// A program with a date or a locale is started by a process of Wine's host, so it has to be found by its file name.
static void AdoptProgram(Program& program, const std::filesystem::path& file) {
    const std::string name = file.filename().string();
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while ((program.processId = FindProcess(name)) == 0) {
        if (std::chrono::steady_clock::now() > deadline) Fail(nullptr, "no process " + name + " appears");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    program.process.reset(OpenProcess(PROCESS_ALL_ACCESS, FALSE, program.processId));
}

// Only for ASCII.
static std::wstring Widened(const std::string& text) {
    return {text.begin(), text.end()};
}

// `file` is null if the command line begins with it; a long path has to be given separately. On a busy machine,
// starting a process under Wine occasionally fails with an internal error, so try again.
static PROCESS_INFORMATION StartProcess(const wchar_t* file, const std::wstring& commandLine,
                                        const std::filesystem::path& folder, int showState) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(showState);
    PROCESS_INFORMATION started{};
    DWORD error = ERROR_INTERNAL_ERROR;
    for (int tries = 0; tries < 3 && error == ERROR_INTERNAL_ERROR; ++tries) {
        std::wstring line = commandLine;  // a copy, because CreateProcess may modify it
        if (CreateProcessW(file, line.data(), nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &startup, &started))
            return started;
        error = GetLastError();
    }
    Fail(nullptr, "cannot start " + std::filesystem::path(commandLine).string() + ", error " + std::to_string(error));
}

// For a process of the host, the handles that Wine returns are undefined; closing them could close any other handle.
void StartOnHost(const ScratchFolder& folder, const std::string& commandLine) {
    StartProcess(nullptr, Widened(commandLine), folder.path, SW_SHOWNORMAL);
}

void RunOnHost(const ScratchFolder& folder, const std::string& command) {
    StartOnHost(folder, "\"Z:\\bin\\sh\" -c \"" + command + " && touch done\"");
    Program none;
    none.folder = folder;
    WaitUntil(none, command, [&] { return HasFile(folder, "done"); });
    std::filesystem::remove(folder.path / "done");
}

std::filesystem::path ProgramBesideThis(const char* name) {
    char file[MAX_PATH];
    GetModuleFileNameA(nullptr, file, sizeof file);
    return std::filesystem::path(file).parent_path() / name;
}

Program LaunchProgram(const ScratchFolder& folder, const StartOptions& options) {
    const std::filesystem::path file = options.programFile.empty() ? Surroundings().program : options.programFile;
    const std::wstring commandLine = L"\"" + file.wstring() + L"\" " + Widened(options.arguments);
    Program program;
    program.folder = folder;
    std::string onHost;
    if (!options.date.empty()) onHost = "\"" + Surroundings().dater + "\" \"" + options.date + "\" ";
    if (!options.locale.empty()) onHost = "\"" + Surroundings().localizer + "\" \"" + options.locale + "\" ";
    if (!onHost.empty()) {
        StartOnHost(folder, onHost + "\"" + file.string() + "\" " + options.arguments);
        AdoptProgram(program, file);
        return program;
    }
    const PROCESS_INFORMATION started = StartProcess(file.c_str(), commandLine, folder.path, options.showState);
    CloseHandle(started.hThread);
    program.process.reset(started.hProcess);
    program.processId = started.dwProcessId;
    return program;
}

void WaitForFrame(Program& program, const StartOptions& options) {
    WaitForInputIdle(program.process.get(), static_cast<DWORD>(kPatience.count()));
    WaitUntil(program, "the program's frame", [&] {
        if (!IsRunning(program)) Fail(&program, "the program ended before its frame was shown");
        for (const HWND window : TopLevelWindows(program))
            if (ClassOf(window) == options.frameClass) program.frame = window;
        return program.frame != nullptr;
    });
    HookProbe(program);
    Settle(program);
}

Program StartProgram(const ScratchFolder& folder, const StartOptions& options) {
    SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
    Program program = LaunchProgram(folder, options);
    WaitForFrame(program, options);
    return program;
}

// ---- Ending ---------------------------------------------------------------------------------------------------------

bool IsRunning(const Program& program) {
    return WaitForSingleObject(program.process.get(), 0) == WAIT_TIMEOUT;
}

int WaitForExit(const Program& program) {
    WaitUntil(program, "the program's end", [&] { return !IsRunning(program); });
    DWORD code = 0;
    GetExitCodeProcess(program.process.get(), &code);
    return static_cast<int>(code);
}

int CloseProgram(Program& program) {
    PostMessageA(program.frame, WM_CLOSE, 0, 0);
    return WaitForExit(program);
}
