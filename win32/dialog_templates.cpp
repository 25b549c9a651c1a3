// Separate from the dialogs, because it knows how the system stores them and nothing of how they behave.
#include "win32/dialog_templates.h"

#include <cstring>

#include "win32/code_page.h"

DialogTemplate LoadDialogTemplate(const char* name) {
    const HMODULE program = GetModuleHandleA(nullptr);
    const HRSRC resource = FindResourceW(program, WideOfCodePage(name).c_str(), reinterpret_cast<LPCWSTR>(RT_DIALOG));
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(program, resource);
    if (loaded == nullptr) return {};
    const std::size_t size = SizeofResource(program, resource);
    DialogTemplate dialog((size + sizeof(DWORD) - 1) / sizeof(DWORD));
    std::memcpy(dialog.data(), LockResource(loaded), size);
    return dialog;
}

// The menu, the class or the title: nothing (0), a number behind 0xFFFF, or a text that ends with 0.
static const WORD* Behind(const WORD* field) {
    if (*field == 0xFFFF) return field + 2;
    while (*field != 0) ++field;
    return field + 1;
}

WORD& FontPoints(DialogTemplate& dialog) {
    static constexpr int kHeaderWords = 13;  // up to the height of the dialog
    const WORD* field = reinterpret_cast<const WORD*>(dialog.data()) + kHeaderWords;
    for (int text = 0; text < 3; ++text) field = Behind(field);
    return *const_cast<WORD*>(field);
}
