#include "tests/driver/import_table.h"

#include <windows.h>

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

static void ReplaceImportsOf(const IMAGE_IMPORT_DESCRIPTOR& library,
                             const std::function<void*(const char* name)>& replacementFor) {
    const auto* name = InImage<IMAGE_THUNK_DATA>(library.OriginalFirstThunk);
    auto* slot = InImage<void*>(library.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        void* replacement = replacementFor(InImage<IMAGE_IMPORT_BY_NAME>(name->u1.AddressOfData)->Name);
        if (replacement != nullptr) Replace(slot, replacement);
    }
}

bool StayLoaded() {
    HMODULE library = nullptr;
    return GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                              reinterpret_cast<LPCSTR>(&StayLoaded), &library) != 0;
}

bool ReplaceImports(const std::function<void*(const char* name)>& replacementFor) {
    if (!StayLoaded()) return false;
    const auto* header = InImage<IMAGE_NT_HEADERS>(static_cast<std::size_t>(InImage<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& imports = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* library = InImage<IMAGE_IMPORT_DESCRIPTOR>(imports.VirtualAddress); library->Name != 0; ++library)
        ReplaceImportsOf(*library, replacementFor);
    return true;
}
