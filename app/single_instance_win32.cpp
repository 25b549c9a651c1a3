#include "app/single_instance_win32.h"

#include <cstdint>
#include <cstdio>
#include <string>

#include "win32/controls.h"
#include "win32/files.h"
#include "win32/handles.h"

static constexpr char kFolderProperty[] = "VersewellFolder";
static constexpr ULONGLONG kPatience = 5000;  // milliseconds to wait for another copy that is starting or ending
static constexpr DWORD kPause = 50;
static constexpr char kOpenElsewhere[] =
    "Versewell is already open with the notes of this folder, perhaps by another user of this computer. Close it there "
    "first.";

// The same path for a folder no matter whether it was opened by a short name, a mapped drive or a link. `folder` itself
// if the system cannot tell.
static std::wstring CanonicalFolder(const std::wstring& folder) {
    const HANDLE opened = CreateFileW(folder.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return folder;
    const OwnedFile owned(opened);
    return FinalPath(opened, folder);
}

// A hash of a working folder's path. The name of a mutex is limited in length and must not contain backslashes, and
// a window property is a number. 32 bits in every build, so that 32-bit and 64-bit copies find each other. The upper
// half of a letter only counts if it is not 0, so that for most paths the number is that of earlier versions, which
// took the path in the code page.
static std::uint32_t FolderNumber(std::wstring folder) {
    folder = CanonicalFolder(folder);
    CharLowerBuffW(folder.data(), static_cast<DWORD>(folder.size()));
    while (folder.ends_with(L'\\')) folder.pop_back();
    std::uint32_t number = 2166136261u;  // FNV-1a
    const auto add = [&number](unsigned part) { number = (number ^ part) * 16777619u; };
    for (const wchar_t letter : folder) {
        add(letter & 0xFFu);
        if (letter > 0xFF) add(static_cast<unsigned>(letter) >> 8);
    }
    return number | 1;  // 0 means that a window lacks the property
}

static std::string ClaimName(const std::wstring& folder) {
    char name[48];
    std::snprintf(name, sizeof name, "Global\\Versewell-%08lX", static_cast<unsigned long>(FolderNumber(folder)));
    return name;
}

// The system removes the mutex when the process ends, even after a crash. If another user's copy holds it, it cannot be
// opened.
static bool TakeMutex(const std::string& name) {
    const HANDLE mutex = CreateMutexA(nullptr, FALSE, name.c_str());
    if (mutex != nullptr && GetLastError() != ERROR_ALREADY_EXISTS) return true;
    if (mutex != nullptr) CloseHandle(mutex);
    return false;
}

// That of another user's copy cannot be opened.
bool IsFolderClaimed(const std::wstring& folder) {
    const OwnedFile mutex(OpenMutexA(SYNCHRONIZE, FALSE, ClaimName(PathIn(folder, std::wstring())).c_str()));
    return mutex || GetLastError() == ERROR_ACCESS_DENIED;
}

namespace {

struct FrameSearch {
    const char* windowClass;
    HANDLE mark;
    HWND found = nullptr;
};

}  // namespace

static BOOL CALLBACK CompareWindow(HWND window, LPARAM parameter) {
    FrameSearch& search = *reinterpret_cast<FrameSearch*>(parameter);
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    if (std::string(name) == search.windowClass && GetPropA(window, kFolderProperty) == search.mark)
        search.found = window;
    return search.found == nullptr;
}

static HANDLE FolderMark() {
    return reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(FolderNumber(WorkingFilePath(""))));
}

static HWND FrameOfOther(const char* windowClass) {
    FrameSearch search{windowClass, FolderMark()};
    EnumWindows(CompareWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

static void BringToFront(HWND frame) {
    if (IsIconic(frame)) ShowWindowAsync(frame, SW_RESTORE);
    SetForegroundWindow(GetLastActivePopup(frame));
}

// ---- A copy without a frame -----------------------------------------------------------------------------------------

// An invisible window, by which other copies find the thread that asks something before there is a frame. It lives as
// long as the thread.
static void MarkClaimingThread(const std::string& name) {
    CreateWindowExA(0, "STATIC", name.c_str(), 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
}

static DWORD ThreadOfOther(const std::string& name) {
    const HWND mark = FindWindowExA(HWND_MESSAGE, nullptr, "STATIC", name.c_str());
    return mark ? GetWindowThreadProcessId(mark, nullptr) : 0;
}

// A box that asks or tells something has a button; what is shown while the program starts has none.
static BOOL CALLBACK CompareBox(HWND window, LPARAM parameter) {
    HWND& found = *reinterpret_cast<HWND*>(parameter);
    if (IsWindowVisible(window) && IsWindowEnabled(window) && FindWindowExA(window, nullptr, "Button", nullptr))
        found = window;
    return found == nullptr;
}

static HWND QuestionOfOther(const std::string& name) {
    HWND found = nullptr;
    if (const DWORD thread = ThreadOfOther(name))
        EnumThreadWindows(thread, CompareBox, reinterpret_cast<LPARAM>(&found));
    return found;
}

bool ClaimWorkingFolder(const char* windowClass, const std::function<void(HWND)>& tell) {
    const std::string name = ClaimName(WorkingFilePath(""));
    const ULONGLONG start = GetTickCount64();
    while (!TakeMutex(name)) {
        HWND window = FrameOfOther(windowClass);
        if (!window) window = QuestionOfOther(name);
        if (window) {
            tell(window);
            BringToFront(window);
            return false;
        }
        if (GetTickCount64() - start > kPatience) {
            Complain(nullptr, kOpenElsewhere);
            return false;
        }
        Sleep(kPause);
    }
    MarkClaimingThread(name);
    return true;
}

void MarkClaimingFrame(HWND frame) {
    SetPropA(frame, kFolderProperty, FolderMark());
}
