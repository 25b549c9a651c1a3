// Surroundings of `vw` for tests: what it writes is kept, and the files of folders that exist are the real ones.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/surroundings.h"

struct FakeSurroundings {
    std::map<std::string, std::string> variables;  // of the environment
    std::vector<std::string> textFolders;          // without one, the folder of the build
    Day today{2026, 11, 23};
    NoteTime now{"2026-11-23", 1795435200, 43200};
    bool hasNotes = false;                 // note sets are opened and files written; otherwise there is no such folder
    const NoteFiles* noteFiles = nullptr;  // instead of those of a folder
    std::map<std::string, std::string> drafts;     // by path
    std::function<bool(std::string& bytes)> edit;  // the user's editor; false if it fails
    bool canWriteDrafts = true, draftsAreOfWindows = false;
    std::map<std::string, FileKind> kinds;  // of paths that are not as on the disk
    FolderUse use = FolderUse::kChange;     // of all folders
    bool isTerminal = false, showsColors = false;
    int columns = 80;
    Written written = Written::kAll;  // the answer to each write of the output
    std::string output, errors;
    int writes = 0;  // of the output
    int pagers = 0;  // how often one was started
};

// `fake` must outlive them; its columns and flags are those of this moment.
Surroundings SurroundingsOver(FakeSurroundings& fake);
