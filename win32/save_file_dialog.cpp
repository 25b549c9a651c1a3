#include "win32/save_file_dialog.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "win32/windows_api.h"

#include <cderr.h>

#include "win32/controls.h"
#include "win32/files.h"

static constexpr wchar_t kTextFiles[] = L"Text Files (*.TXT)\0*.txt\0All Files (*.*)\0*.*\0";
static constexpr std::size_t kNameLimit = 256;  // characters of the suggested name
static constexpr std::size_t kPathLimit = 32767;

using PathBuffer = std::vector<wchar_t>;

// Returns 0 for a chosen file or Cancel, otherwise the error from CommDlgExtendedError.
static DWORD RunSaveDialog(HWND owner, const std::wstring& name, PathBuffer& path) {
    path.assign(kPathLimit + 1, L'\0');
    name.copy(path.data(), kNameLimit);
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = kTextFiles;
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetSaveFileNameW(&dialog)) return 0;
    path[0] = L'\0';
    return CommDlgExtendedError();
}

static bool IsBarredFromFileNames(wchar_t character) {
    return character < L' ' || std::wstring_view(L"\\/:*?\"<>|").find(character) != std::wstring_view::npos;
}

std::wstring AskTextFileToSave(HWND owner, const std::string& name) {
    PathBuffer path;
    std::wstring suggested = Wide(name);
    std::ranges::replace_if(suggested, IsBarredFromFileNames, L'.');
    if (RunSaveDialog(owner, suggested, path) == FNERR_BUFFERTOOSMALL)
        Complain(owner, "The file name is too long", kSaveErrorCaption);
    return path[0] == L'\0' ? L"" : FullPath(path.data());
}
