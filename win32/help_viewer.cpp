#include "win32/help_viewer.h"

#include <string>

#include "win32/controls.h"
#include "win32/program_files.h"

static bool IsThere(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

static void Open(HWND owner, const char* name, UINT command, const char* macro) {
    const std::string path = ProgramFilePath(name);
    if (IsThere(path)) {
        WinHelpA(FrameOf(owner), path.c_str(), command, reinterpret_cast<ULONG_PTR>(macro));
        return;
    }
    const std::string text = std::string("The help file \"") + name + "\" cannot be found.";
    MessageBoxA(owner, text.c_str(), "Help", MB_OK | MB_ICONINFORMATION);
}

void OpenHelpContents(HWND owner, const char* name) {
    Open(owner, name, HELP_CONTENTS, nullptr);
}

void OpenHelpTopic(HWND owner, const char* name, const char* topic) {
    const std::string macro = std::string("JumpID(\"") + name + "\",\"" + topic + "\")";
    Open(owner, name, HELP_COMMAND, macro.c_str());
}

void CloseHelp(HWND frame, const char* name) {
    const std::string path = ProgramFilePath(name);
    if (IsThere(path)) WinHelpA(frame, path.c_str(), HELP_QUIT, 0);
}
