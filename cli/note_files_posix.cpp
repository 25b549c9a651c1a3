#include "cli/note_files_posix.h"

#include <fcntl.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <optional>
#include <utility>

#include "notes/file_names.h"
#include "notes/windows_1252.h"

namespace fs = std::filesystem;

// ---- Names ----------------------------------------------------------------------------------------------------------

// The name in the code page; nullopt if that lacks letters of it, or if it is no UTF-8.
static std::optional<std::string> NameOf(std::string_view utf8) {
    for (std::string_view rest = utf8; !rest.empty();)
        if (!TakeLetter(rest)) return std::nullopt;
    std::string name;
    if (!kWindows1252.bytesOf(nullptr, LettersOfUtf8(utf8), name)) return std::nullopt;
    return name;
}

static std::string Utf8OfName(std::string_view name) {
    return Utf8Of(kWindows1252.lettersOf(nullptr, name));
}

static bool IsSameName(const std::string& one, const std::string& other) {
    return strcasecmp(one.c_str(), other.c_str()) == 0;
}

// What there is instead of `path` with other capitals; otherwise `path`.
static std::string WithCapitalsOnDisk(const std::string& path) {
    struct stat facts = {};
    if (lstat(path.c_str(), &facts) == 0) return path;
    const fs::path wanted(path);
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(wanted.parent_path(), error))
        if (IsSameName(entry.path().filename().string(), wanted.filename().string())) return entry.path().string();
    return path;
}

// Empty, which no file can be reached by, for a name that leads elsewhere, whatever text it came from.
static std::string PathOf(void* device, const std::string& name) {
    if (!StaysInFolder(name)) return "";
    return WithCapitalsOnDisk(static_cast<const PosixNoteFiles*>(device)->folder + Utf8OfName(name));
}

static bool EndsWithIgnoringCase(const std::string& name, const std::string& ending) {
    return name.size() >= ending.size() && IsSameName(name.substr(name.size() - ending.size()), ending);
}

// The files, not the folders, that match "backup/*.nmd", in UTF-8.
static std::vector<std::string> Matching(void* device, const std::string& pattern) {
    const std::size_t star = pattern.find('*');
    const std::string folder = static_cast<const PosixNoteFiles*>(device)->folder + pattern.substr(0, star);
    const std::string ending = pattern.substr(star + 1);
    std::vector<std::string> names;
    std::error_code error, unknown;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        std::string name = entry.path().filename().string();
        if (EndsWithIgnoringCase(name, ending) && entry.is_regular_file(unknown)) names.push_back(std::move(name));
    }
    std::ranges::sort(names, [](const std::string& one, const std::string& other) {
        return strcasecmp(one.c_str(), other.c_str()) < 0;  // as Wine lists them, so that the sets have the same order
    });
    return names;
}

static std::vector<std::string> List(void* device, const std::string& pattern) {
    std::vector<std::string> names;
    for (const std::string& found : Matching(device, pattern))
        if (auto name = NameOf(found); name && IsFileName(*name)) names.push_back(std::move(*name));
    return names;
}

static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    const std::vector<std::string> found = Matching(device, pattern);
    return static_cast<std::size_t>(
        std::ranges::count_if(found, [](const std::string& name) { return !NameOf(name); }));
}

// ---- Open files: the handle is the file descriptor plus one ---------------------------------------------------------

static void* HandleOf(int file) {
    return file < 0 ? nullptr : reinterpret_cast<void*>(static_cast<std::intptr_t>(file) + 1);
}

static int FileOf(void* handle) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1);
}

static void* OpenWith(void* device, const std::string& name, int flags) {
    return HandleOf(open(PathOf(device, name).c_str(), flags | O_CLOEXEC, 0644));
}

static void* Open(void* device, const std::string& name) {
    return OpenWith(device, name, O_RDONLY);
}

// Notes that only their user may read stay so: a temporary file gets the rights of the one that it will replace.
static void TakeRights(int file, const std::string& temporary) {
    struct stat replaced = {};
    if (!temporary.ends_with(kTempEnding)) return;
    const std::string path = temporary.substr(0, temporary.size() - std::strlen(kTempEnding));
    if (stat(path.c_str(), &replaced) == 0) fchmod(file, replaced.st_mode & 07777);
}

// Another file of that name, which may have other names too, gives way in one step, so that nobody ever finds none. One
// that cannot be removed is written over.
static int OpenAnew(const std::string& path) {
    static constexpr int kNew = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    if (const int file = open(path.c_str(), kNew, 0644); file >= 0 || errno != EEXIST) return file;
    const std::string made = path + ".made-" + std::to_string(getpid());
    unlink(made.c_str());
    const int file = open(made.c_str(), kNew, 0644);
    if (file >= 0 && rename(made.c_str(), path.c_str()) == 0) return file;
    if (file >= 0) close(file);
    unlink(made.c_str());
    return open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
}

static void* CreateAnew(void* device, const std::string& name) {
    const std::string path = PathOf(device, name);
    const int file = OpenAnew(path);
    if (file >= 0) TakeRights(file, path);
    return HandleOf(file);
}

static std::size_t ReadAt(void*, void* file, std::uint64_t offset, std::span<unsigned char> bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count =
            pread(FileOf(file), bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return 0;
        if (count == 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

static bool Write(void*, void* file, std::span<const unsigned char> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(FileOf(file), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

static bool Flush(void*, void* file) {
    return fsync(FileOf(file)) == 0;
}

static void Close(void*, void* file) {
    close(FileOf(file));
}

// ---- Whole files ----------------------------------------------------------------------------------------------------

// Puts the names in the folder of `path` on the disk. A file system that cannot, for example of a network, goes on.
static void FlushFolderOf(const std::string& path) {
    const int folder = open(fs::path(path).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return;
    fsync(folder);
    close(folder);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    void* const file = Open(device, name);
    if (file == nullptr) return false;
    bytes.resize(limit);
    bytes.resize(ReadAt(device, file, offset, bytes));
    Close(device, file);
    return true;
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    struct stat file = {};
    if (stat(PathOf(device, name).c_str(), &file) != 0 || S_ISDIR(file.st_mode)) return {};
    const auto seconds = static_cast<std::uint64_t>(file.st_mtim.tv_sec);
    return {true, static_cast<std::uint64_t>(file.st_size),
            seconds * 1'000'000'000u + static_cast<std::uint64_t>(file.st_mtim.tv_nsec)};
}

static std::uint64_t Size(void* device, const std::string& name) {
    return Stamp(device, name).size;
}

// Deletes the new file if it could not be written completely.
static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    const std::string path = PathOf(device, name);
    void* const file = HandleOf(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (file == nullptr) return false;
    const bool isWhole = Write(device, file, bytes) && Flush(device, file);
    Close(device, file);
    if (!isWhole) unlink(path.c_str());
    FlushFolderOf(path);
    return isWhole;
}

static bool Remove(void* device, const std::string& name) {
    return unlink(PathOf(device, name).c_str()) == 0;
}

static bool RenameIfFree(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    struct stat facts = {};
    if (errno != EINVAL && errno != ENOSYS) return false;
    return lstat(to.c_str(), &facts) != 0 && rename(from.c_str(), to.c_str()) == 0;  // of file systems without that
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    const std::string path = PathOf(device, to);
    const bool isDone = RenameIfFree(PathOf(device, from), path);
    FlushFolderOf(path);
    return isDone;
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    const std::string path = PathOf(device, to);
    const bool isDone = rename(PathOf(device, from).c_str(), path.c_str()) == 0;
    FlushFolderOf(path);
    return isDone;
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    void* const file = OpenWith(device, name, O_WRONLY | O_CREAT | O_APPEND);
    if (file == nullptr) return false;
    const bool isWhole = Write(device, file, bytes) && Flush(device, file);
    Close(device, file);
    FlushFolderOf(PathOf(device, name));
    return isWhole;
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    const std::string path = PathOf(device, to);
    const bool isDone = link(PathOf(device, from).c_str(), path.c_str()) == 0;
    FlushFolderOf(path);
    return isDone;
}

static bool MakeFolder(void* device, const std::string& name) {
    std::error_code error;
    const std::string path = PathOf(device, name);
    if (fs::create_directory(path, error)) FlushFolderOf(path);
    return fs::is_directory(path, error);
}

// ---- The lock -------------------------------------------------------------------------------------------------------

static int OpenLock(void* device) {
    const std::string path = PathOf(device, kLockFile);
    const int flags = O_RDWR | O_CREAT | O_CLOEXEC;
    const int file = open(path.c_str(), flags, 0644);
    if (file >= 0 || errno != ENOENT || !MakeFolder(device, kBackupFolder)) return file;
    return open(path.c_str(), flags, 0644);
}

// The lock belongs to the open file, so that closing another one of the same name does not unlock it.
static NoteLocking TryToLock(int file) {
    struct flock firstByte = {};
    firstByte.l_type = F_WRLCK;
    firstByte.l_whence = SEEK_SET;
    firstByte.l_len = 1;
    if (fcntl(file, F_OFD_SETLK, &firstByte) == 0) return NoteLocking::kLocked;
    return errno == EAGAIN || errno == EACCES ? NoteLocking::kBusy : NoteLocking::kImpossible;
}

// Tries often, because one who saves many notes leaves the lock alone for short moments only.
static NoteLocking LockWithPatience(int file, int milliseconds) {
    static constexpr int kPause = 1;
    NoteLocking state = TryToLock(file);
    for (int waited = 0; state == NoteLocking::kBusy && waited < milliseconds; waited += kPause) {
        usleep(kPause * 1000);
        state = TryToLock(file);
    }
    return state;
}

static NoteLocking LockAnew(void* device, int milliseconds) {
    const int file = OpenLock(device);
    if (file < 0) return NoteLocking::kImpossible;
    const NoteLocking state = LockWithPatience(file, milliseconds);
    if (state == NoteLocking::kLocked)
        static_cast<PosixNoteFiles*>(device)->lock = file;
    else
        close(file);
    return state;
}

static NoteLocking Lock(void* device, int milliseconds) {
    auto& files = *static_cast<PosixNoteFiles*>(device);
    if (files.locks++ == 0) files.locking = LockAnew(device, milliseconds);
    return files.locking;
}

static void Unlock(void* device) {
    auto& files = *static_cast<PosixNoteFiles*>(device);
    if (--files.locks == 0 && files.lock >= 0) close(std::exchange(files.lock, -1));
}

// ---- The device -----------------------------------------------------------------------------------------------------

NoteFiles DeviceOver(PosixNoteFiles& files) {
    return {.device = &files,
            .list = List,
            .countUnnamed = CountUnnamed,
            .read = Read,
            .size = Size,
            .stamp = Stamp,
            .create = Create,
            .remove = Remove,
            .rename = Rename,
            .replace = Replace,
            .append = Append,
            .link = Link,
            .makeFolder = MakeFolder,
            .open = Open,
            .openShared = Open,
            .createAnew = CreateAnew,
            .readAt = ReadAt,
            .write = Write,
            .flush = Flush,
            .close = Close,
            .lock = Lock,
            .unlock = Unlock,
            .codePage = kWindows1252};
}

NoteTime PosixNoteTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char day[16] = "";
    std::strftime(day, sizeof day, "%Y-%m-%d", &local);
    return {day, now, (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec};
}
