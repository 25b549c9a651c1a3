#include "app/end_of_session_win32.h"

#include <array>
#include <string>

#include "app/session_win32.h"
#include "notes/note_editor_window.h"

// ---- The restart ----------------------------------------------------------------------------------------------------

// The system starts the program in a folder of its own choice. A folder's name contains no quotes.
static constexpr wchar_t kFolderArgument[] = L"/folder \"";

void AskForRestart() {
    std::array<wchar_t, 1024> folder{};
    const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    const std::wstring arguments = kFolderArgument + std::wstring(folder.data()) + L'"';
    // In a folder that does not fit, the program would start with the notes of another one.
    if (length < folder.size() && arguments.size() < RESTART_MAX_CMD_LINE)
        RegisterApplicationRestart(arguments.c_str(), 0);
}

// ---- The end --------------------------------------------------------------------------------------------------------

// The system shows the reason to the user if writing takes long.
BOOL OnQueryEndSession(HWND frame) {
    const bool isEditing = IsEditingNote();
    if (isEditing) ShutdownBlockReasonCreate(frame, L"The note that you are writing is being kept.");
    WriteSession();
    if (isEditing) ShutdownBlockReasonDestroy(frame);
    return TRUE;
}

// An installer that replaces the program waits for its end, and then starts it again. It may be in a dialog, so it does
// not return to its message loop.
void OnEndSession(BOOL isEnding, LPARAM reasons) {
    if (!isEnding) return;
    SuspendSession();
    if (reasons & ENDSESSION_CLOSEAPP) ExitProcess(0);
}
