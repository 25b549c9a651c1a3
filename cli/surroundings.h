// What `vw` asks of the system. The program implements it for Linux and for Windows, a test with what it likes. All
// texts and paths are in UTF-8; a folder and a name are joined with a slash.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "notes/note_files.h"
#include "notes/note_time.h"
#include "scripture/data_files.h"

enum class Stream { kOutput, kErrors };

// What became of written bytes. kClosed: nobody reads them any more, as after `| head`.
enum class Written { kAll, kClosed, kFailed };

enum class FileKind { kNone, kFile, kFolder };

// What the user may do with a folder: see and open what is in it, also make and replace files.
enum class FolderUse { kNothing, kRead, kChange };

struct Day {
    int year = 2000;
    int month = 1;  // 1..12
    int day = 1;    // 1..31
};

struct Surroundings {
    void* device = nullptr;  // passed to all procedures

    // A variable of the environment.
    std::optional<std::string> (*variable)(void* device, const char* name) = nullptr;

    // Names of the files in `folder` that end with `ending`, sorted.
    std::vector<std::string> (*list)(void* device, const std::string& folder, std::string_view ending) = nullptr;

    // The whole file; nullopt if it cannot be read.
    std::optional<std::string> (*readFile)(void* device, const std::string& path) = nullptr;

    // What is there; whatever is no folder is a file.
    FileKind (*kindOf)(void* device, const std::string& path) = nullptr;

    // Nothing is written to find out.
    FolderUse (*useOf)(void* device, const std::string& folder) = nullptr;

    // Maps the whole file, read-only until the program ends. False if it cannot be.
    bool (*map)(void* device, const std::string& path, std::span<const unsigned char>& bytes) = nullptr;

    // Makes `bytes` the contents of the file in one step, whether or not it exists, and keeps its rights. False if it
    // is as it was. A pipe or a device just gets the bytes.
    bool (*writeFile)(void* device, const std::string& path, std::string_view bytes) = nullptr;

    // The note sets of a folder, as the window has them; null if there is no such folder. They stay until the end.
    const NoteFiles* (*noteFiles)(void* device, const std::string& folder) = nullptr;

    // The time of what is saved.
    NoteTime (*now)(void* device) = nullptr;

    // Makes a file with these bytes that nobody else may read, and gives its path; empty if that is not possible.
    std::string (*makeDraft)(void* device, std::string_view bytes) = nullptr;

    // Shows the file to the user in an editor and waits until it ends. False if there is no editor or it failed.
    bool (*edit)(void* device, const std::string& path) = nullptr;

    // Deletes what makeDraft has made.
    void (*removeDraft)(void* device, const std::string& path) = nullptr;

    // Today's date, local.
    Day (*today)(void* device) = nullptr;

    Written (*write)(void* device, Stream stream, std::string_view bytes) = nullptr;

    // From now on the output goes through the program that the user reads long texts with. Nothing happens if there is
    // none.
    void (*startPager)(void* device) = nullptr;

    bool isTerminal = false;   // the output is one
    bool showsColors = false;  // and it understands the sequences for colours
    int columns = 80;          // its width

    bool draftsAreOfWindows = false;  // their lines end in CR LF, and they begin with the mark of UTF-8

    int codePage = 1252;  // number of the one that notes without letters from elsewhere are in

    std::vector<std::string> textFolders = {};  // where the scripture files are looked for
    std::string workingFolder = {};             // of the window's settings and notes, if the user names no other one
};
