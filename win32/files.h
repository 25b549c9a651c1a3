// Locations of the program's and the user's files, and files mapped as read-only memory.
//
// Paths are wide, so that folders may have any letters and any length; names of files are in the system's code page.
// A path that is too long for the ordinary procedures of Windows is given in the form that has no limit ("\\?\C:\...").
#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "win32/handles.h"

// ---- Text -----------------------------------------------------------------------------------------------------------

// Text in the system's code page as wide text.
std::wstring Wide(std::string_view text);

// The opposite; none if the code page lacks one of the letters.
std::optional<std::string> Narrow(std::wstring_view text);

// ---- Paths ----------------------------------------------------------------------------------------------------------

// Path of `name` in `folder`, which is a full path. The name may begin with a folder and a slash ("backup/a.nmd").
std::wstring PathIn(const std::wstring& folder, const std::wstring& name);
std::wstring PathIn(const std::wstring& folder, const std::string& name);

// `path`, a full path, without the prefix for long paths.
std::wstring WithoutLongPrefix(const std::wstring& path);

// The folder of a file, with a trailing backslash.
std::wstring FolderOfPath(const std::wstring& path);

// `path`, which may be relative, as a full path without "." and "..".
std::wstring FullPath(const std::wstring& path);

// True if `path` is an existing file or folder.
bool IsThere(const std::wstring& path);

// True if there is certainly no file or folder at `path`, and not only none that can be reached.
bool IsMissing(const std::wstring& path);

// The path of an open file or folder, no matter whether it was opened by a short name, a mapped drive or a link; `path`
// if the system cannot tell.
std::wstring FinalPath(HANDLE opened, const std::wstring& path);

// What is the same for all paths to a file or folder, including hard links.
struct FileIdentity {
    DWORD volume = 0;
    std::uint64_t number = 0;
    bool operator==(const FileIdentity&) const = default;
};

// None if there is no such file or folder, or if it is not on a disk.
std::optional<FileIdentity> IdentityOf(const std::wstring& path);

// Names of the files in `folder` that match `pattern`, in directory order, without folders.
std::vector<std::wstring> FilesIn(const std::wstring& folder, const char* pattern);

// A path to the same file that can be given to procedures that accept at most MAX_PATH letters of the system's code
// page: `path` itself if possible, otherwise with the system's short names of folders. None if there are none.
std::optional<std::string> PathInCodePage(const std::wstring& path);

// ---- Folders --------------------------------------------------------------------------------------------------------

// The folder of the program's file, with a trailing backslash.
const std::wstring& ProgramFolder();

// The folders where the program's files are read from, in the order of search.
std::vector<std::wstring> ReadFolders();

// Path of `name` in the folder that was current at the start if it exists there, otherwise in the program's folder,
// whether or not it exists.
std::wstring ProgramFilePath(const std::string& name);

// Path of `name` in the working folder, which is the current one unless SettleWorkingFolder chose another one.
std::wstring WorkingFilePath(const std::string& name);

// Chooses the working folder for the whole run, and makes it the current one as far as the system allows: the folder
// that is current, if it has a file that matches one of `markers` (names or patterns such as "*.txt") and files can be
// created there; otherwise the program's folder if files can be created there; otherwise `folderName` in the user's
// application data, which is created if necessary. If no files can be created there either, the working folder is the
// current one if it has such a file, otherwise the program's, and is only read. A folder that was current and has none
// of these files is not used for ProgramFilePath. If the program's folder has the file `installedMark`, only the folder
// in the user's application data is tried: an installed copy keeps nothing in folders that are removed with it.
void SettleWorkingFolder(std::initializer_list<const char*> markers, const char* folderName, const char* installedMark);

// True if SettleWorkingFolder found `installedMark`.
bool IsInstalledCopy();

// The folder that was current at the start, with a trailing backslash. False if SettleWorkingFolder chose another one.
const std::wstring& StartFolder();
bool IsStartFolderUsed();

// The folder that was current at the start if SettleWorkingFolder would have chosen it but no files can be created
// there; otherwise empty.
std::wstring PassedOverFolder();

// False if SettleWorkingFolder found no folder where files can be created.
bool CanWriteWorkingFolder();

// ---- Changing files -------------------------------------------------------------------------------------------------

// MoveFileEx, tried again for a moment if another program, such as an indexer or a virus scanner, has a file open.
bool MoveWithPatience(const std::wstring& from, const std::wstring& to, DWORD flags);

// ---- Mapping --------------------------------------------------------------------------------------------------------

struct MappedFile {
    OwnedFile mapping;
    MappedView view;
    std::span<const unsigned char> bytes;
};

// Maps the file at `path`, shared for reading; `accessFlag` is FILE_FLAG_SEQUENTIAL_SCAN or FILE_FLAG_RANDOM_ACCESS.
// False when it cannot be opened or mapped. An empty file returns true and no bytes.
bool MapWholeFile(const std::wstring& path, DWORD accessFlag, MappedFile& file);

// Maps the file at another address and gives the view of before back to the system, with all that has been read there.
// Nothing may point into it. The view stays if the system has none.
void MapAnew(MappedFile& file);
