#include "tests/windows/taking_steps.h"

std::string AnswerQuestion(const Program& program, int button) {
    const HWND box = WaitForDialog(program, kTakeOver);
    const std::string text = MessageText(box);
    PostMessageA(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    WaitUntil(program, "the end of a question", [&] { return !IsWindow(box); });
    return text;
}

static BOOL CALLBACK FindField(HWND window, LPARAM field) {
    if (ClassOf(window) != "Edit") return TRUE;
    *reinterpret_cast<HWND*>(field) = window;
    return FALSE;
}

void ChooseFolder(const Program& program, const ScratchFolder& folder) {
    const HWND dialog = WaitForDialog(program, kFolderDialog);
    HWND field = nullptr;
    EnumChildWindows(dialog, FindField, reinterpret_cast<LPARAM>(&field));
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(folder.path.c_str()));
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitUntil(program, "the end of the dialog", [&] { return !IsWindow(dialog); });
}
