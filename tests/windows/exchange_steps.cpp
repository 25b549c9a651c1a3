#include "tests/windows/exchange_steps.h"

#include "resources/ids.h"

HWND OpenExport(const Program& program) {
    Command(program, IDM_EXPORT_NOTES);
    return WaitForDialog(program, kExportNotes);
}

HWND OpenImport(const Program& program) {
    Command(program, IDM_IMPORT_NOTES);
    return WaitForDialog(program, kImportNotes);
}

void ChooseLine(const Program& program, const char* key, int line) {
    Press(program, key);
    Press(program, "Home");
    for (int i = 0; i < line; ++i) Press(program, "Down");
}

void GivePath(const Program& program, const char* title, const std::filesystem::path& path) {
    const HWND dialog = WaitForDialog(program, title);
    SendMessageW(FocusOf(program), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
    Press(program, "Enter");
    if (IsWindow(dialog) && ActiveWindowOf(program) != dialog) Press(program, "Alt+y");  // overwrites it
    WaitUntil(program, "the system's dialog to be closed", [&] { return !IsWindow(dialog); });
    Settle(program);
}

void ExportTo(const Program& program, int format, const std::filesystem::path& path) {
    OpenExport(program);
    ChooseLine(program, "Alt+f", format);
    Press(program, "Enter");
    GivePath(program, "Save As", path);
    WaitForNoDialog(program);
}

HWND OpenImportOf(const Program& program, const std::filesystem::path& path) {
    const HWND dialog = OpenImport(program);
    Press(program, "Alt+f");
    GivePath(program, "Open", path);
    return dialog;
}

void ChooseNewSet(const Program& program, HWND dialog, const std::string& name) {
    Press(program, "Alt+i");
    Press(program, "End");
    Press(program, "Alt+w");
    SetDlgItemTextA(dialog, IDC_NEW_SET_NAME, "");
    Type(program, name);
}

void Finish(const Program& program, HWND dialog, int button) {
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    WaitUntil(program, "the end of the dialog", [&] { return !IsWindow(dialog); });
    Settle(program);
}
