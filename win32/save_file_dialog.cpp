#include "win32/save_file_dialog.h"

#include <algorithm>
#include <array>

#include "win32/windows_api.h"

#include <cderr.h>

#include "win32/controls.h"

static constexpr char kTextFiles[] = "Text Files (*.TXT)\0*.txt\0All Files (*.*)\0*.*\0";
static constexpr std::size_t kPathLimit = 256;  // characters

using PathBuffer = std::array<char, kPathLimit + 1>;

// Returns 0 for a chosen file or Cancel, otherwise the error from CommDlgExtendedError.
static DWORD RunSaveDialog(HWND owner, const std::string& name, PathBuffer& path) {
    path.fill('\0');
    name.copy(path.data(), kPathLimit);
    OPENFILENAMEA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = kTextFiles;
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetSaveFileNameA(&dialog)) return 0;
    path[0] = '\0';
    return CommDlgExtendedError();
}

std::string AskTextFileToSave(HWND owner, const std::string& name) {
    PathBuffer path;
    DWORD error = RunSaveDialog(owner, name, path);
    if (error == FNERR_INVALIDFILENAME) {  // ":" is not allowed in file names
        std::string possible = name;
        std::replace(possible.begin(), possible.end(), ':', '.');
        error = RunSaveDialog(owner, possible, path);
    }
    if (error == FNERR_BUFFERTOOSMALL) Complain(owner, "The file name is too long", kSaveErrorCaption);
    return path.data();
}
