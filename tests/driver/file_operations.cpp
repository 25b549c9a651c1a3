#include "tests/driver/file_operations.h"

#include <cstring>

#include "tests/driver/import_table.h"

static UINT count;
static UINT end;   // 0: never
static UINT full;  // 0: never

static void CountOperation() {
    if (++count == end) TerminateProcess(GetCurrentProcess(), 9);
}

// ---- Procedures that replace the system's ---------------------------------------------------------------------------

namespace {

struct Watched {
    const char* name;
    void* watching;
};

template <int kPlace, typename Result, typename... Arguments>
struct Watcher {
    static inline Result(WINAPI* system)(Arguments...);
    static Result WINAPI Watch(Arguments... arguments) {
        CountOperation();
        return system(arguments...);
    }
};

}  // namespace

// `kPlace` distinguishes procedures with the same parameter and result types.
template <int kPlace, typename Result, typename... Arguments>
static Watched Watch(const char* name, Result(WINAPI* system)(Arguments...)) {
    Watcher<kPlace, Result, Arguments...>::system = system;
    return {name, reinterpret_cast<void*>(&Watcher<kPlace, Result, Arguments...>::Watch)};
}

static BOOL WINAPI WatchWrite(HANDLE file, LPCVOID bytes, DWORD size, LPDWORD written, LPOVERLAPPED place) {
    CountOperation();
    const bool isFull = full != 0 && count >= full;
    if (count + 1 == end || isFull) WriteFile(file, bytes, size / 2, written, place);
    CountOperation();
    if (isFull) return SetLastError(ERROR_DISK_FULL), FALSE;
    return WriteFile(file, bytes, size, written, place);
}

static void* WatchingProcedure(const char* name) {
    static const Watched all[] = {
        Watch<0>("CreateFileW", CreateFileW),
        Watch<1>("ReadFile", ReadFile),
        {"WriteFile", reinterpret_cast<void*>(&WatchWrite)},
        Watch<2>("FlushFileBuffers", FlushFileBuffers),
        Watch<3>("CloseHandle", CloseHandle),
        Watch<4>("DeleteFileW", DeleteFileW),
        Watch<5>("MoveFileExW", MoveFileExW),
        Watch<6>("CreateHardLinkW", CreateHardLinkW),
        Watch<7>("CreateDirectoryW", CreateDirectoryW),
        Watch<8>("FindFirstFileW", FindFirstFileW),
        Watch<9>("GetFileAttributesW", GetFileAttributesW),
        Watch<10>("GetFileAttributesExW", GetFileAttributesExW),
    };
    for (const Watched& watched : all)
        if (std::strcmp(watched.name, name) == 0) return watched.watching;
    return nullptr;
}

// ---------------------------------------------------------------------------------------------------------------------

static bool IsWatching() {
    static const bool isWatching = ReplaceImports(WatchingProcedure);
    return isWatching;
}

void EndAtFileOperation(UINT last) {
    count = 0;
    end = IsWatching() ? last : 0;
}

void FillDiskAtFileOperation(UINT first) {
    count = 0;
    full = IsWatching() ? first : 0;
}
