#include "win32/file_dialogs.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "win32/windows_api.h"

#include <cderr.h>

#include "win32/controls.h"
#include "win32/files.h"

static const FileKind kTextFiles{L"Text Files (*.TXT)", L"*.txt"};
static const FileKind kAllFiles{L"All Files (*.*)", L"*.*"};
static constexpr std::size_t kNameLimit = 256;  // characters of the suggested name
static constexpr std::size_t kPathLimit = 32767;

namespace {

struct FileQuestion {
    BOOL(WINAPI* run)(OPENFILENAMEW* dialog) = nullptr;
    std::wstring filter{};  // labels and patterns, each with a zero behind it
    const wchar_t* extension = nullptr;
    DWORD flags = 0;
    std::vector<wchar_t> path = std::vector<wchar_t>(kPathLimit + 1, L'\0');  // suggested, then chosen
};

}  // namespace

static std::wstring FilterOf(std::span<const FileKind> kinds) {
    std::wstring filter;
    for (const FileKind& kind : kinds) filter += kind.label + L'\0' + kind.patterns + L'\0';
    return filter + kAllFiles.label + L'\0' + kAllFiles.patterns + L'\0';
}

// Returns 0 for a chosen file or Cancel, otherwise the error from CommDlgExtendedError.
static DWORD Run(HWND owner, FileQuestion& question) {
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = question.filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = question.path.data();
    dialog.nMaxFile = static_cast<DWORD>(question.path.size());
    dialog.lpstrDefExt = question.extension;
    dialog.Flags = question.flags | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (question.run(&dialog)) return 0;
    question.path[0] = L'\0';
    return CommDlgExtendedError();
}

static std::wstring Answer(HWND owner, FileQuestion& question, const char* caption) {
    if (Run(owner, question) == FNERR_BUFFERTOOSMALL) Complain(owner, "The file name is too long", caption);
    return question.path[0] == L'\0' ? L"" : FullPath(question.path.data());
}

static bool IsBarredFromFileNames(wchar_t character) {
    return character < L' ' || std::wstring_view(L"\\/:*?\"<>|").find(character) != std::wstring_view::npos;
}

static std::wstring AskToSave(HWND owner, const FileKind& kind, const std::string& name, const wchar_t* extension) {
    FileQuestion question{
        .run = GetSaveFileNameW, .filter = FilterOf({&kind, 1}), .extension = extension, .flags = OFN_OVERWRITEPROMPT};
    std::wstring suggested = Wide(name);
    std::ranges::replace_if(suggested, IsBarredFromFileNames, L'.');
    suggested.copy(question.path.data(), kNameLimit);
    return Answer(owner, question, kSaveErrorCaption);
}

std::wstring AskTextFileToSave(HWND owner, const std::string& name) {
    return AskToSave(owner, kTextFiles, name, nullptr);
}

std::wstring AskFileToSave(HWND owner, const FileKind& kind, const std::string& name, const std::wstring& extension) {
    return AskToSave(owner, kind, name, extension.c_str());
}

std::wstring AskFileToOpen(HWND owner, std::span<const FileKind> kinds) {
    FileQuestion question{.run = GetOpenFileNameW, .filter = FilterOf(kinds), .flags = OFN_FILEMUSTEXIST};
    return Answer(owner, question, kErrorCaption);
}
