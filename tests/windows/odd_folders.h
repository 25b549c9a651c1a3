// Folders that are not like those of a test's own choice: with letters that the code page lacks, with a path that is
// too long for most procedures of Windows, and read-only.
#pragma once

#include "tests/driver/driver.h"

// In an empty folder a folder whose name has Latin, Greek, Hebrew and Chinese letters and one of two units.
ScratchFolder FolderWithForeignLetters();

// A folder whose path has more than 400 characters. It begins with "\\?\", because the tests use the ordinary
// procedures. No process can have it as its current directory.
ScratchFolder FolderWithLongPath();

// Copies the scripture, the help and the program into a folder.
void CopyProgramTo(const ScratchFolder& folder);
void CopyScriptureTo(const ScratchFolder& folder);
void CopyHelpTo(const ScratchFolder& folder);

// Gives everybody these rights to a file or folder, and nobody others.
void AllowAll(const std::filesystem::path& path, DWORD rights);

// While this exists, no file can be created, changed or deleted in a folder.
struct ReadOnlyFolder {
    explicit ReadOnlyFolder(const std::filesystem::path& folder);
    ~ReadOnlyFolder();
    std::filesystem::path path;
};

// While this exists, programs that are started have another folder for application data.
struct WithApplicationData {
    explicit WithApplicationData(const std::filesystem::path& folder);
    ~WithApplicationData();
    std::wstring before;
};

// Options to start the program that was copied to the folder.
StartOptions ProgramIn(const ScratchFolder& folder);
