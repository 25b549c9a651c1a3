// The system's dialogs for choosing a file to save to or to open. The current directory does not change.
#pragma once

#include <span>
#include <string>

#include "win32/windows_api.h"

inline constexpr char kSaveErrorCaption[] = "Save Error";

// A line of the list of file types, "Text Files (*.TXT)", and what it shows, "*.txt" or "*.md;*.markdown".
struct FileKind {
    std::wstring label;
    std::wstring patterns;
};

// Asks over `owner` for a text file to write, suggesting `name` with "." for each character that no file name may have.
// An existing file has to be confirmed; the folder must exist; no extension is added to the name. Returns the path, or
// an empty string if the user cancels.
std::wstring AskTextFileToSave(HWND owner, const std::string& name);

// The same for a file of `kind`: `extension`, without the dot, is added to a name that has none.
std::wstring AskFileToSave(HWND owner, const FileKind& kind, const std::string& name, const std::wstring& extension);

// Asks for an existing file; the first of the `kinds` is chosen at first.
std::wstring AskFileToOpen(HWND owner, std::span<const FileKind> kinds);
