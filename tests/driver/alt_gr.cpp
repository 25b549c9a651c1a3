#include "tests/driver/alt_gr.h"

#include <cstring>

#include "tests/driver/import_table.h"

static UINT altGrKey;
static wchar_t altGrCharacter;

static bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

static BOOL WINAPI Translate(const MSG* message) {
    const bool isKey = message->message == WM_KEYDOWN || message->message == WM_SYSKEYDOWN;
    if (!isKey || message->wParam != altGrKey || !IsDown(VK_CONTROL) || !IsDown(VK_MENU))
        return TranslateMessage(message);
    return PostMessageW(message->hwnd, WM_CHAR, altGrCharacter, message->lParam);
}

void TypeWithAltGr(UINT key, wchar_t character) {
    static const bool isReplaced = ReplaceImports([](const char* name) {
        return std::strcmp(name, "TranslateMessage") == 0 ? reinterpret_cast<void*>(&Translate) : nullptr;
    });
    altGrKey = isReplaced ? key : 0;
    altGrCharacter = character;
}
