// Crashes of the program: each is made from outside, by changing what one of its threads is about to execute.

#include <algorithm>
#include <cstring>

#include <windows.h>

#include <dbghelp.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/driver.h"
#include "tests/windows/dialog_look.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"

static constexpr DWORD64 kNoAddress = 0x10;
static constexpr DWORD kAborted = 0xE0415254;  // as in win32/crash_dump.cpp

// Continues the program's main thread at `address`, as if that had been called.
static void ContinueAt(const Program& program, DWORD64 address) {
    const DWORD threadId = GetWindowThreadProcessId(program.frame, nullptr);
    const UniqueHandle thread(OpenThread(THREAD_ALL_ACCESS, FALSE, threadId));
    ASSERT_NE(thread, nullptr);
    SuspendThread(thread.get());
    CONTEXT context{};
    context.ContextFlags = CONTEXT_FULL;
    GetThreadContext(thread.get(), &context);
    context.Rip = context.Rax = address;
    SetThreadContext(thread.get(), &context);
    ResumeThread(thread.get());
    PostMessageA(program.frame, WM_NULL, 0, 0);  // ends its wait
}

static void CrashMainThread(const Program& program) {
    ContinueAt(program, kNoAddress);
}

static void CrashAnotherThread(const Program& program) {
    const auto procedure = reinterpret_cast<LPTHREAD_START_ROUTINE>(kNoAddress);
    const UniqueHandle thread(CreateRemoteThread(program.process.get(), nullptr, 0, procedure, nullptr, 0, nullptr));
    ASSERT_NE(thread, nullptr);
}

// The library of the C runtime is at the same address in both processes.
static void Abort(const Program& program) {
    const FARPROC abort = GetProcAddress(GetModuleHandleA("msvcrt.dll"), "abort");
    ASSERT_NE(abort, nullptr);
    ContinueAt(program, reinterpret_cast<DWORD64>(abort));
}

// Wine reads the debug information of all modules for a minidump.
static void WaitForSlowExit(const Program& program) {
    static constexpr std::chrono::seconds kLongPatience{240};
    WaitUntil(
        program, "the end of the crashed program", [&] { return !IsRunning(program); }, kLongPatience);
}

static std::vector<std::string> Dumps(const ScratchFolder& folder) {
    std::vector<std::string> names;
    if (!std::filesystem::exists(folder.path / "crash")) return names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path / "crash"))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

// The exception that a minidump describes.
static DWORD ExceptionIn(const std::string& dump) {
    MINIDUMP_HEADER header{};
    if (dump.size() < sizeof header) return 0;
    std::memcpy(&header, dump.data(), sizeof header);
    EXPECT_TRUE(dump.starts_with("MDMP"));
    for (ULONG32 i = 0; i < header.NumberOfStreams; ++i) {
        MINIDUMP_DIRECTORY entry{};
        std::memcpy(&entry, dump.data() + header.StreamDirectoryRva + i * sizeof entry, sizeof entry);
        if (entry.StreamType != ExceptionStream) continue;
        MINIDUMP_EXCEPTION_STREAM stream{};
        std::memcpy(&stream, dump.data() + entry.Location.Rva, sizeof stream);
        return stream.ExceptionRecord.ExceptionCode;
    }
    return 0;
}

namespace {

struct CrashRow {
    const char* name;
    void (*crash)(const Program& program);
    DWORD exception;
};

class Crash : public testing::TestWithParam<CrashRow> {};

}  // namespace

TEST_P(Crash, LeavesTheNoteAndAMinidump) {
    const ScratchFolder folder = FolderWithForeignLetters();
    CopyScriptureTo(folder);
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "In the beginning");
    GetParam().crash(program);
    WaitForSlowExit(program);
    const std::vector<std::string> written = Dumps(folder);
    ASSERT_EQ(written.size(), 1u);
    EXPECT_EQ(ExceptionIn(ReadFile(folder, "crash/" + written[0])), GetParam().exception);

    program = LaunchProgram(folder);
    WaitForFrame(program);
    const HWND told = WaitForDialog(program, "Versewell97");
    const std::string shownName = written[0].substr(0, written[0].size() - 4);
    EXPECT_EQ(WideMessageText(told),
              L"Versewell ended because of a fault. What a developer needs to find it is in the file\n\n" +
                  (folder.path / "crash" / shownName).wstring() + L"\n\nNothing has been sent anywhere.");
    EXPECT_EQ(Dumps(folder), std::vector<std::string>{shownName});
    Press(program, "Enter");
    const HWND question = WaitForDialog(program, "Versewell97");
    EXPECT_EQ(MessageText(question),
              "Versewell ended while you were writing the note for Genesis 1:1 in \"Mine\". Continue?");
    Press(program, "y");
    WaitForNoDialog(program);
    EXPECT_EQ(TextOf(NoteEditOf(program)), "In the beginning");
}

INSTANTIATE_TEST_SUITE_P(Kinds, Crash,
                         testing::Values(CrashRow{"OfTheMainThread", CrashMainThread, EXCEPTION_ACCESS_VIOLATION},
                                         CrashRow{"ByAbort", Abort, kAborted},
                                         CrashRow{"OfAnotherThread", CrashAnotherThread, EXCEPTION_ACCESS_VIOLATION}),
                         [](const auto& row) { return row.param.name; });
