#include "tests/support/real_note_files.h"

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

// What the program does with the folder.
static NoteFiles OnDisk(void* device) {
    FilesOf(device).disk.folder = FilesOf(device).folder;
    return DeviceOver(FilesOf(device).disk);
}

static void TakeStep(void* device) {
    std::int64_t& steps = FilesOf(device).steps;
    if (steps == 0) std::raise(SIGKILL);
    if (steps > 0) --steps;
}

static bool CountsSteps(void* device) {
    return FilesOf(device).steps >= 0;
}

// ---- Reading --------------------------------------------------------------------------------------------------------

static std::vector<std::string> List(void* device, const std::string& pattern) {
    const NoteFiles disk = OnDisk(device);
    return disk.list(disk.device, pattern);
}

static std::size_t CountUnnamed(void* device, const std::string& pattern) {
    const NoteFiles disk = OnDisk(device);
    return disk.countUnnamed(disk.device, pattern);
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    const NoteFiles disk = OnDisk(device);
    return disk.read(disk.device, name, offset, limit, bytes);
}

static std::uint64_t Size(void* device, const std::string& name) {
    const NoteFiles disk = OnDisk(device);
    return disk.size(disk.device, name);
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    const NoteFiles disk = OnDisk(device);
    return disk.stamp(disk.device, name);
}

static void* Open(void* device, const std::string& name) {
    const NoteFiles disk = OnDisk(device);
    return disk.open(disk.device, name);
}

static std::size_t ReadAt(void* device, void* file, std::uint64_t offset, std::span<unsigned char> bytes) {
    const NoteFiles disk = OnDisk(device);
    return disk.readAt(disk.device, file, offset, bytes);
}

static void Close(void* device, void* file) {
    const NoteFiles disk = OnDisk(device);
    disk.close(disk.device, file);
}

// ---- Changing -------------------------------------------------------------------------------------------------------

static void* CreateAnew(void* device, const std::string& name) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.createAnew(disk.device, name);
}

// The process may be killed before the first byte, half-way and after the last byte.
static bool Write(void* device, void* file, std::span<const unsigned char> bytes) {
    const NoteFiles disk = OnDisk(device);
    if (!CountsSteps(device)) return disk.write(disk.device, file, bytes);
    const std::size_t half = bytes.size() / 2;
    TakeStep(device);
    if (!disk.write(disk.device, file, bytes.first(half))) return false;
    TakeStep(device);
    if (!disk.write(disk.device, file, bytes.subspan(half))) return false;
    TakeStep(device);
    return true;
}

static bool Flush(void* device, void* file) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.flush(disk.device, file);
}

// With the steps of its parts.
static bool Create(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    const NoteFiles disk = OnDisk(device);
    if (!CountsSteps(device)) return disk.create(disk.device, name, bytes);
    if (!disk.create(disk.device, name, {})) return false;
    void* const file = disk.createAnew(disk.device, name);
    if (file == nullptr) return false;
    const bool isWritten = Write(device, file, bytes) && Flush(device, file);
    disk.close(disk.device, file);
    return isWritten;
}

static bool Append(void* device, const std::string& name, std::span<const unsigned char> bytes) {
    const NoteFiles disk = OnDisk(device);
    if (!CountsSteps(device)) return disk.append(disk.device, name, bytes);
    const std::size_t half = bytes.size() / 2;
    TakeStep(device);
    if (!disk.append(disk.device, name, bytes.first(half))) return false;
    TakeStep(device);
    if (!disk.append(disk.device, name, bytes.subspan(half))) return false;
    TakeStep(device);
    return true;
}

static bool Remove(void* device, const std::string& name) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.remove(disk.device, name);
}

static bool Rename(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.rename(disk.device, from, to);
}

static bool Replace(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.replace(disk.device, from, to);
}

static bool Link(void* device, const std::string& from, const std::string& to) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.link(disk.device, from, to);
}

static bool MakeFolder(void* device, const std::string& name) {
    TakeStep(device);
    const NoteFiles disk = OnDisk(device);
    return disk.makeFolder(disk.device, name);
}

static NoteLocking Lock(void* device, int milliseconds) {
    const NoteFiles disk = OnDisk(device);
    return disk.lock(disk.device, milliseconds);
}

static void Unlock(void* device) {
    const NoteFiles disk = OnDisk(device);
    disk.unlock(disk.device);
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
            .close = Close,
            .lock = Lock,
            .unlock = Unlock};
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

Child StartChild(const std::function<bool()>& work) {
    Child child;
    child.process = fork();
    if (child.process == 0) _exit(work() ? 0 : 1);
    return child;
}

void KillChild(Child& child) {
    if (child.process > 0) kill(child.process, SIGKILL);
    WaitFor(child);
}

Child::~Child() {
    KillChild(*this);
}

ChildEnd WaitFor(Child& child) {
    const int process = std::exchange(child.process, -1);
    int status = -1;
    if (process < 0 || waitpid(process, &status, 0) != process) return ChildEnd::kFailed;
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) return ChildEnd::kKilled;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? ChildEnd::kDone : ChildEnd::kFailed;
}

ChildEnd RunInChild(const std::function<bool()>& work) {
    Child child = StartChild(work);
    return WaitFor(child);
}
