#include "tests/support/real_note_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

static RealNoteFiles& FilesOf(void* device) {
    return *static_cast<RealNoteFiles*>(device);
}

static std::string PathOf(void* device, const std::string& name) {
    return FilesOf(device).folder + name;
}

static void TakeStep(void* device) {
    std::int64_t& steps = FilesOf(device).steps;
    if (steps == 0) std::raise(SIGKILL);
    if (steps > 0) --steps;
}

// ---- Open files: the handle is the file descriptor plus one ---------------------------------------------------------

static void* HandleOf(int file) {
    return file < 0 ? nullptr : reinterpret_cast<void*>(static_cast<std::intptr_t>(file) + 1);
}

static int FileOf(void* handle) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(handle) - 1);
}

static void* Open(void* device, const std::string& name) {
    return HandleOf(open(PathOf(device, name).c_str(), O_RDONLY));
}

static void* CreateAnew(void* device, const std::string& name) {
    TakeStep(device);
    return HandleOf(open(PathOf(device, name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644));
}

static std::size_t ReadAt(void*, void* file, std::uint64_t offset, std::span<unsigned char> bytes) {
    const ssize_t count = pread(FileOf(file), bytes.data(), bytes.size(), static_cast<off_t>(offset));
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

static bool WritePart(void* file, std::span<const unsigned char> bytes) {
    return write(FileOf(file), bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
}

// The process may be killed before the first byte, half-way and after the last byte.
static bool Write(void* device, void* file, std::span<const unsigned char> bytes) {
    if (FilesOf(device).steps < 0) return WritePart(file, bytes);
    const std::size_t half = bytes.size() / 2;
    TakeStep(device);
    if (!WritePart(file, bytes.first(half))) return false;
    TakeStep(device);
    if (!WritePart(file, bytes.subspan(half))) return false;
    TakeStep(device);
    return true;
}

static bool Flush(void* device, void* file) {
    TakeStep(device);
    return fsync(FileOf(file)) == 0;
}

static void Close(void*, void* file) {
    close(FileOf(file));
}

// ---- Whole files ----------------------------------------------------------------------------------------------------

static std::vector<std::string> List(void* device, const std::string& pattern) {
    const std::size_t star = pattern.find('*');
    const std::string ending = pattern.substr(star + 1);
    std::vector<std::string> names;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(PathOf(device, pattern.substr(0, star)), none)) {
        const std::string name = entry.path().filename().string();
        if (entry.is_regular_file() && name.ends_with(ending)) names.push_back(name);
    }
    return names;
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
    struct stat file {};
    if (stat(PathOf(device, name).c_str(), &file) != 0) return {};
    const auto seconds = static_cast<std::uint64_t>(file.st_mtim.tv_sec);
    return {true, static_cast<std::uint64_t>(file.st_size),
            seconds * 1000000000u + static_cast<std::uint64_t>(file.st_mtim.tv_nsec)};
}

static std::uint64_t Size(void* device, const std::string& name) {
    return Stamp(device, name).size;
}

static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    void* const file = HandleOf(open(PathOf(device, name).c_str(), O_WRONLY | O_CREAT | O_EXCL, 0644));
    if (file == nullptr) return false;
    const bool written = Write(device, file, bytes) && Flush(device, file);
    Close(device, file);
    return written;
}

static bool Remove(void* device, const std::string& name) {
    TakeStep(device);
    return unlink(PathOf(device, name).c_str()) == 0;
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    return !Stamp(device, to).exists && rename(PathOf(device, from).c_str(), PathOf(device, to).c_str()) == 0;
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    return rename(PathOf(device, from).c_str(), PathOf(device, to).c_str()) == 0;
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    void* const file = HandleOf(open(PathOf(device, name).c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644));
    if (file == nullptr) return false;
    const bool written = Write(device, file, bytes) && Flush(device, file);
    Close(device, file);
    return written;
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    return link(PathOf(device, from).c_str(), PathOf(device, to).c_str()) == 0;
}

static bool MakeFolder(void* device, const std::string& name) {
    TakeStep(device);
    std::error_code error;
    std::filesystem::create_directory(PathOf(device, name), error);
    return !error;
}

// Names are bytes here, so each can be listed.
static std::size_t CountUnnamed(void*, const std::string&) {
    return 0;
}

NoteFiles DeviceOver(RealNoteFiles& files) {
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
            .close = Close};
}

// ---- Files of a test ------------------------------------------------------------------------------------------------

std::string MakeScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "note-files-XXXXXX").string();
    return mkdtemp(name.data()) == nullptr ? "" : name + '/';
}

void RemoveScratchFolder(const std::string& folder) {
    std::error_code none;
    std::filesystem::remove_all(folder, none);
}

void WriteWholeFile(const std::string& path, const std::vector<unsigned char>& bytes) {
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::vector<unsigned char> ReadWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

ChildEnd RunInChild(const std::function<bool()>& work) {
    const pid_t child = fork();
    if (child == 0) _exit(work() ? 0 : 1);
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child) return ChildEnd::kFailed;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return ChildEnd::kKilled;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? ChildEnd::kDone : ChildEnd::kFailed;
}
