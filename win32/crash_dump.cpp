#include "win32/crash_dump.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cwchar>
#include <exception>
#include <string_view>

#include "win32/handles.h"
#include "win32/system_library.h"
#include "win32/thread_stack.h"
#include "win32/windows_api.h"

#include <dbghelp.h>  // needs the Windows headers

static constexpr std::wstring_view kNewEnding = L".new";
static constexpr std::size_t kKeptDumps = 5;
static constexpr DWORD kPatience = 120000;          // milliseconds for the dump
static constexpr ULONG kStackForHandling = 262144;  // bytes that are left when the stack has overflowed
static constexpr DWORD kAborted = 0xE0415254;       // our own exception code, for std::terminate and abort

namespace {

struct Crash {
    std::wstring folder;
    std::wstring name;
    void (*rescue)() = nullptr;
    HANDLE begin = nullptr;  // tells the dumper to write
    HANDLE end = nullptr;    // the dump is written
    DWORD thread = 0;        // that crashed
    EXCEPTION_POINTERS* exception = nullptr;
};

}  // namespace

static Crash theCrash;

// ---- Writing the dump -----------------------------------------------------------------------------------------------

static std::wstring NewDumpPath() {
    SYSTEMTIME now{};
    GetLocalTime(&now);
    std::array<wchar_t, 32> time{};
    std::swprintf(time.data(), time.size(), L" %04u-%02u-%02u %02u-%02u-%02u", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    return theCrash.folder + L'\\' + theCrash.name + time.data() + L".dmp" + std::wstring(kNewEnding);
}

static void WriteDump() {
    const HMODULE library = SystemLibrary(L"dbghelp.dll");  // now, because the program should start without it
    decltype(&MiniDumpWriteDump) write = nullptr;
    decltype(&SymSetOptions) setOptions = nullptr;
    if (!FindProcedure(library, "MiniDumpWriteDump", write) || !FindProcedure(library, "SymSetOptions", setOptions))
        return;
    setOptions(SYMOPT_DEFERRED_LOADS);  // a dump contains no symbols, but Wine would read those of all modules
    CreateDirectoryW(theCrash.folder.c_str(), nullptr);  // may already exist
    const HANDLE opened = CreateFileW(NewDumpPath().c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return;
    const OwnedFile file(opened);
    MINIDUMP_EXCEPTION_INFORMATION about{theCrash.thread, theCrash.exception, FALSE};
    static constexpr auto kContents = static_cast<MINIDUMP_TYPE>(MiniDumpNormal | MiniDumpWithUnloadedModules);
    write(GetCurrentProcess(), GetCurrentProcessId(), file.get(), kContents, &about, nullptr, nullptr);
}

// A thread of its own, because the one that crashed may have no stack left, and its stack is part of the dump.
static DWORD WINAPI Dumper(void*) {
    GiveBackUnusedStack();
    WaitForSingleObject(theCrash.begin, INFINITE);
    WriteDump();
    SetEvent(theCrash.end);
    return 0;
}

// ---- The crash ------------------------------------------------------------------------------------------------------

static CONTEXT beforeRescue;
static volatile LONG hasFailed;
static DWORD rescuer;

static LONG CALLBACK LeaveRescue(EXCEPTION_POINTERS* exception) {
    const bool isFault = (exception->ExceptionRecord->ExceptionCode & 0xF0000000) == 0xC0000000;
    if (!isFault || GetCurrentThreadId() != rescuer) return EXCEPTION_CONTINUE_SEARCH;
    hasFailed = 1;
    *exception->ContextRecord = beforeRescue;
    return EXCEPTION_CONTINUE_EXECUTION;
}

// A fault in `rescue` continues behind RtlCaptureContext as if it had returned a second time. What `rescue` had locked
// or allocated stays so.
static void Rescue() {
    rescuer = GetCurrentThreadId();
    void* const handler = AddVectoredExceptionHandler(1, LeaveRescue);
    RtlCaptureContext(&beforeRescue);
    try {
        if (hasFailed == 0) theCrash.rescue();
    } catch (...) {  // not worth more than a fault
    }
    RemoveVectoredExceptionHandler(handler);
}

static LONG WINAPI OnCrash(EXCEPTION_POINTERS* exception) {
    static volatile LONG isHandled;
    if (InterlockedExchange(&isHandled, 1) != 0) {
        if (GetCurrentThreadId() != theCrash.thread) Sleep(kPatience);  // another thread is handling its crash
        return EXCEPTION_CONTINUE_SEARCH;
    }
    theCrash.thread = GetCurrentThreadId();
    theCrash.exception = exception;
    Rescue();
    SetEvent(theCrash.begin);
    WaitForSingleObject(theCrash.end, kPatience);
    return EXCEPTION_CONTINUE_SEARCH;
}

// These would end the program without an exception.
[[noreturn]] static void OnTerminate() {
    CONTEXT context{};
    RtlCaptureContext(&context);
    EXCEPTION_RECORD record{};
    record.ExceptionCode = kAborted;
    record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    record.ExceptionAddress = reinterpret_cast<void*>(&OnTerminate);
    EXCEPTION_POINTERS exception{&record, &context};
    OnCrash(&exception);
    TerminateProcess(GetCurrentProcess(), kAborted);
    std::_Exit(3);  // not reached, but the compiler cannot know
}

static void OnAbort(int) {
    OnTerminate();
}

void WatchForCrashes(const std::wstring& folder, const std::wstring& name, void (*rescue)()) {
    theCrash = {folder, name, rescue, CreateEventW(nullptr, TRUE, FALSE, nullptr),
                CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    const HANDLE dumper = CreateThread(nullptr, 0, Dumper, nullptr, 0, nullptr);
    if (dumper != nullptr) CloseHandle(dumper);
    ULONG stack = kStackForHandling;
    SetThreadStackGuarantee(&stack);
    SetUnhandledExceptionFilter(OnCrash);
    std::set_terminate(OnTerminate);
    std::signal(SIGABRT, OnAbort);
}

// ---- At the next start ----------------------------------------------------------------------------------------------

// Sorted, and because of the form of the names, by time.
static std::vector<std::wstring> FilesLike(const std::wstring& folder, const wchar_t* pattern) {
    std::vector<std::wstring> paths;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder + L'\\' + pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return paths;
    do {
        paths.push_back(folder + L'\\' + found.cFileName);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(paths.begin(), paths.end());
    return paths;
}

static void DropOldDumps(const std::wstring& folder) {
    const std::vector<std::wstring> all = FilesLike(folder, L"*.dmp");
    for (std::size_t i = 0; i + kKeptDumps < all.size(); ++i) DeleteFileW(all[i].c_str());
}

std::vector<std::wstring> TakeNewCrashDumps(const std::wstring& folder) {
    std::vector<std::wstring> taken;
    for (const std::wstring& path : FilesLike(folder, L"*.dmp.new")) {
        std::wstring name = path.substr(0, path.size() - kNewEnding.size());
        if (MoveFileExW(path.c_str(), name.c_str(), MOVEFILE_REPLACE_EXISTING)) taken.push_back(std::move(name));
    }
    if (!taken.empty()) DropOldDumps(folder);
    return taken;
}
