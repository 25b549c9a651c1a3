// A library that a test puts under the name of one of the system's: it leaves a mark beside itself when it is loaded.
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*);

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH) return TRUE;
    wchar_t mark[1024] = L"";
    GetModuleFileNameW(library, mark, 1000);
    lstrcatW(mark, L".loaded");
    const HANDLE file = CreateFileW(mark, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    return TRUE;
}
