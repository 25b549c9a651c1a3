#include "tests/driver/file_operations.h"

#include <cstring>

static UINT count;
static UINT end;  // 0: never

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
    if (count + 1 == end) WriteFile(file, bytes, size / 2, written, place);
    CountOperation();
    return WriteFile(file, bytes, size, written, place);
}

static const Watched* FindWatched(const char* name) {
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
        if (std::strcmp(watched.name, name) == 0) return &watched;
    return nullptr;
}

// ---- The program's table of imports ---------------------------------------------------------------------------------

// The structure at `offset` of the program's image.
template <typename T>
static T* InImage(std::size_t offset) {
    static char* const image = reinterpret_cast<char*>(GetModuleHandleA(nullptr));
    return reinterpret_cast<T*>(image + offset);
}

static void Replace(void** slot, void* procedure) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = procedure;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

static void WatchImportsOf(const IMAGE_IMPORT_DESCRIPTOR& library) {
    const auto* name = InImage<IMAGE_THUNK_DATA>(library.OriginalFirstThunk);
    auto* slot = InImage<void*>(library.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        const Watched* watched = FindWatched(InImage<IMAGE_IMPORT_BY_NAME>(name->u1.AddressOfData)->Name);
        if (watched != nullptr) Replace(slot, watched->watching);
    }
}

static void WatchImports() {
    const auto* header = InImage<IMAGE_NT_HEADERS>(static_cast<std::size_t>(InImage<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = InImage<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress); library->Name != 0; ++library)
        WatchImportsOf(*library);
}

static bool StartWatching() {
    HMODULE library = nullptr;  // must stay loaded from here on
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                            reinterpret_cast<LPCSTR>(&WatchWrite), &library))
        return false;
    WatchImports();
    return true;
}

void EndAtFileOperation(UINT last) {
    static const bool isWatching = StartWatching();
    count = 0;
    end = isWatching ? last : 0;
}
