// What `vw doctor` tells: the folders, the files in them, and what is wrong with them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/about_text.h"
#include "cli/opened_notes.h"

struct Trouble {
    std::string text{};      // what is wrong, or what would be done, in UTF-8
    std::string command{};   // that does it; empty if there is none
    bool isOfFiles = false;  // some are missing, damaged or cannot be read, and no command helps
};

struct CountedSet {
    const NoteSet* set = nullptr;
    int notes = 0;
};

// A file beside those of the sets.
struct KeptFile {
    std::string name{};  // in UTF-8
    std::uint64_t size = 0;
    std::string meaning{};  // "settings of the window"
};

struct Diagnosis {
    std::string textFolder{};             // empty if none was found
    std::vector<FileDigest> textFiles{};  // those of the build, as they are there
    std::string notesFolder{};            // also of the settings
    std::optional<OpenedNotes> notes{};   // nullopt if there is no such folder
    std::vector<CountedSet> sets{};       // of those, all that can be read
    const char* lock = "none";            // or "free", "held", "impossible"; "none": nobody has locked it yet
    std::size_t backups = 0;              // of sets
    std::uint64_t backupSize = 0;         // bytes
    std::uint64_t earlierSize = 0;        // bytes of the earlier notes
    std::vector<KeptFile> kept{};         // files of settings, and what was left
    std::vector<Trouble> troubles{};
};

// Does a trouble have this text in its own?
bool IsTold(const Diagnosis& diagnosis, const std::string& text);
