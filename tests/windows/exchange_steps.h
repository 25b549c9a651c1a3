// Helpers for tests of exporting and importing notes.
#pragma once

#include <filesystem>
#include <string>

#include "tests/driver/driver.h"

inline constexpr char kExportNotes[] = "Export Notes";
inline constexpr char kImportNotes[] = "Import Notes";

// The formats in the order of the dialog, as its lines begin.
inline constexpr const char* kFormatEndings[] = {".html", ".md", ".txt", ".csv"};

// Opens one of the two dialogs with its command.
HWND OpenExport(const Program& program);
HWND OpenImport(const Program& program);

// Chooses a line of the drop-down list that `key` leads to, by keys.
void ChooseLine(const Program& program, const char* key, int line);

// Gives a path to the system's open dialog of this title, and presses Enter.
void GivePath(const Program& program, const char* title, const std::filesystem::path& path);

// Exports the current set in the format of this number, and waits until the dialogs are closed.
void ExportTo(const Program& program, int format, const std::filesystem::path& path);

// The dialog Import Notes with the notes of the file.
HWND OpenImportOf(const Program& program, const std::filesystem::path& path);

// Chooses a new set of this name in the dialog Import Notes, by keys.
void ChooseNewSet(const Program& program, HWND dialog, const std::string& name);

// Presses a button of the dialog, and waits until it is closed.
void Finish(const Program& program, HWND dialog, int button);
