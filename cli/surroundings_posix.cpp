// What `vw` asks of Linux and its like.
#include "cli/native_surroundings.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <list>

#include "cli/note_files_posix.h"
#include "scripture/letters.h"

namespace fs = std::filesystem;

namespace {

struct NativeDevice {
    std::FILE* pager = nullptr;  // takes the output if there is one
    std::list<PosixNoteFiles> folders;
    std::list<NoteFiles> noteFiles;
};

}  // namespace

static std::optional<std::string> Variable(void*, const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

// ---- Files ----------------------------------------------------------------------------------------------------------

static std::vector<std::string> List(void*, const std::string& folder, std::string_view ending) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        std::string name = entry.path().filename().string();
        if (name.ends_with(ending)) names.push_back(std::move(name));
    }
    std::ranges::sort(names);
    return names;
}

static std::optional<std::string> ReadOpened(int file) {
    static constexpr std::size_t kPiece = 65536;
    std::string bytes;
    while (true) {
        const std::size_t size = bytes.size();
        bytes.resize(size + kPiece);
        const ssize_t count = read(file, bytes.data() + size, kPiece);
        bytes.resize(size + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (count == 0) return bytes;
        if (count < 0 && errno != EINTR) return std::nullopt;  // as for a folder
    }
}

// Pipes and devices are files, too.
static std::optional<std::string> ReadFile(void*, const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return std::nullopt;
    std::optional<std::string> bytes = ReadOpened(file);
    close(file);
    return bytes;
}

static FileKind KindOf(void*, const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return FileKind::kNone;
    return fs::is_directory(status) ? FileKind::kFolder : FileKind::kFile;
}

static FolderUse UseOf(void*, const std::string& folder) {
    if (access(folder.c_str(), R_OK | X_OK) != 0) return FolderUse::kNothing;
    return access(folder.c_str(), W_OK) == 0 ? FolderUse::kChange : FolderUse::kRead;
}

static bool MapOpened(int file, std::span<const unsigned char>& bytes) {
    struct stat facts = {};
    if (fstat(file, &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    bytes = {};
    if (facts.st_size == 0) return true;  // an empty file cannot be mapped
    const auto size = static_cast<std::size_t>(facts.st_size);
    void* const view = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (view == MAP_FAILED) return false;
    bytes = {static_cast<const unsigned char*>(view), size};
    return true;
}

static bool Map(void*, const std::string& path, std::span<const unsigned char>& bytes) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool isMapped = MapOpened(file, bytes);
    close(file);  // the mapping keeps the bytes
    return isMapped;
}

// ---- The output -----------------------------------------------------------------------------------------------------

static Written WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno == EPIPE ? Written::kClosed : Written::kFailed;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return Written::kAll;
}

static Written Write(void* device, Stream stream, std::string_view bytes) {
    std::FILE* const pager = static_cast<NativeDevice*>(device)->pager;
    if (stream == Stream::kErrors) return WriteAll(STDERR_FILENO, bytes);
    return WriteAll(pager != nullptr ? fileno(pager) : STDOUT_FILENO, bytes);
}

static bool HasProgram(const std::string& name) {
    if (name.find('/') != std::string::npos) return access(name.c_str(), X_OK) == 0;
    const char* const path = std::getenv("PATH");
    std::string_view rest = path != nullptr ? path : "/usr/bin:/bin";
    while (!rest.empty()) {
        const std::string folder(rest.substr(0, rest.find(':')));
        if (access((folder + '/' + name).c_str(), X_OK) == 0) return true;
        rest.remove_prefix(std::min(folder.size() + 1, rest.size()));
    }
    return false;
}

// False only for a name of which it is certain; anything that a shell has to read may be one.
static bool MayBeCommand(const std::string& command) {
    const std::string name = command.substr(0, command.find(' '));
    const bool isPlain = std::ranges::all_of(
        name, [](char c) { return IsLetterOrDigit(c) || std::string_view("/._+-").find(c) != std::string_view::npos; });
    return !isPlain || HasProgram(name);
}

// Empty if there is none: it was not wanted, does not exist and would lose the text, or the terminal is too simple.
static std::string PagerOf(void* device) {
    if (Variable(device, "TERM").value_or("dumb") == "dumb") return "";
    const std::string pager = Variable(device, "PAGER").value_or("less -R");
    return pager == "cat" || !MayBeCommand(pager) ? "" : pager;
}

// A pager that was left before the end closes its pipe, which would otherwise end this program before the pager has
// put the terminal in order.
static void StartPager(void* device) {
    auto& native = *static_cast<NativeDevice*>(device);
    const std::string pager = PagerOf(device);
    if (native.pager != nullptr || pager.empty()) return;
    setenv("LESS", "FRX", 0);  // short texts stay on the screen
    std::signal(SIGPIPE, SIG_IGN);
    native.pager = popen(pager.c_str(), "w");
}

// ---- Notes and files to write ---------------------------------------------------------------------------------------

// What is no file of its own, such as a pipe or a device, gets the bytes and is not replaced.
static bool WriteInto(const std::string& path, std::string_view bytes) {
    const int file = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file < 0) return false;
    const bool isWhole = WriteAll(file, bytes) == Written::kAll;
    return close(file) == 0 && isWhole;
}

// With the rights of the file that is there.
static bool WriteMade(int file, const struct stat* replaced, std::string_view bytes) {
    if (replaced != nullptr && fchmod(file, replaced->st_mode & 07777) != 0) return false;
    return WriteAll(file, bytes) == Written::kAll && fsync(file) == 0;
}

// A link stays one, to the file that is written.
static bool WriteFile(void*, const std::string& path, std::string_view bytes) {
    struct stat facts = {};
    const bool exists = stat(path.c_str(), &facts) == 0;
    if (exists && !S_ISREG(facts.st_mode)) return WriteInto(path, bytes);
    std::error_code error;
    const fs::path target = exists ? fs::canonical(path, error) : fs::path(path);
    const std::string made = target.string() + ".temp-" + std::to_string(getpid());
    const int file = open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) return false;
    const bool isWhole = WriteMade(file, exists ? &facts : nullptr, bytes);
    close(file);
    if (isWhole && rename(made.c_str(), target.c_str()) == 0) return true;
    unlink(made.c_str());
    return false;
}

static const NoteFiles* NoteFilesOf(void* device, const std::string& folder) {
    auto& native = *static_cast<NativeDevice*>(device);
    std::error_code error;
    if (!fs::is_directory(folder, error)) return nullptr;
    native.folders.push_back({folder.ends_with('/') ? folder : folder + '/'});
    native.noteFiles.push_back(DeviceOver(native.folders.back()));
    return &native.noteFiles.back();
}

static NoteTime Now(void*) {
    return PosixNoteTime();
}

// ---- An editor ------------------------------------------------------------------------------------------------------

static std::string EditorOf(void* device) {
    for (const char* name : {"VISUAL", "EDITOR"})
        if (std::string editor = Variable(device, name).value_or(""); !editor.empty()) return editor;
    for (const char* name : {"editor", "nano", "vi"})
        if (HasProgram(name)) return name;
    return "";
}

// In a folder of its own, so that its name is free and nobody else can come to it.
static std::string MakeDraft(void* device, std::string_view bytes) {
    std::error_code error;
    std::string folder = (fs::temp_directory_path(error) / "vw-XXXXXX").string();
    if (error || mkdtemp(folder.data()) == nullptr) return "";
    std::string path = folder + "/note.txt";
    if (WriteFile(device, path, bytes)) return path;
    fs::remove_all(folder, error);
    return "";
}

// As one word for the shell.
static std::string Quoted(const std::string& path) {
    std::string word;
    for (const char c : path) word += c == '\'' ? "'\\''" : std::string(1, c);
    return '\'' + word + '\'';
}

// The variable may hold options, too.
static bool Edit(void* device, const std::string& path) {
    const std::string editor = EditorOf(device);
    return !editor.empty() && std::system((editor + ' ' + Quoted(path)).c_str()) == 0;
}

static void RemoveDraft(void*, const std::string& path) {
    std::error_code error;
    fs::remove_all(fs::path(path).parent_path(), error);
}

// ---- The surroundings -----------------------------------------------------------------------------------------------

static Day Today(void*) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

static std::vector<std::string> TextFolders() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    std::vector<std::string> folders;
    if (!error)
        for (const char* beside : {".", "../share/versewell", "../../data"})  // the last one is that of a build
            folders.push_back((program / beside).lexically_normal().string());
    folders.push_back("/usr/share/versewell");
    return folders;
}

// The current folder if it has note sets or a text, as the window takes it, otherwise the user's own.
static std::string UsualWorkingFolder() {
    for (const char* ending : {".nmi", "_avtext.dat"})
        if (!List(nullptr, ".", ending).empty()) return ".";
    const std::string data = Variable(nullptr, "XDG_DATA_HOME").value_or("");
    if (!data.empty()) return data + "/versewell";
    return Variable(nullptr, "HOME").value_or("") + "/.local/share/versewell";
}

static int Columns() {
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

static NativeDevice& TheDevice() {
    static NativeDevice device;
    return device;
}

Surroundings NativeSurroundings() {
    std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large for the system is a write that fails
    const bool isTerminal = isatty(STDOUT_FILENO) == 1;
    const std::string terminal = Variable(nullptr, "TERM").value_or("dumb");
    return {
        .device = &TheDevice(),
        .variable = Variable,
        .list = List,
        .readFile = ReadFile,
        .kindOf = KindOf,
        .useOf = UseOf,
        .map = Map,
        .writeFile = WriteFile,
        .noteFiles = NoteFilesOf,
        .now = Now,
        .makeDraft = MakeDraft,
        .edit = Edit,
        .removeDraft = RemoveDraft,
        .today = Today,
        .write = Write,
        .startPager = StartPager,
        .isTerminal = isTerminal,
        .showsColors = isTerminal && terminal != "dumb",
        .columns = Columns(),
        .textFolders = TextFolders(),
        .workingFolder = UsualWorkingFolder(),
    };
}

std::vector<std::string> NativeArguments(int count, char** arguments) {
    return {arguments + std::min(count, 1), arguments + count};
}

void EndSurroundings(Surroundings& surroundings) {
    auto& native = *static_cast<NativeDevice*>(surroundings.device);
    if (native.pager != nullptr) pclose(native.pager);
    native.pager = nullptr;
}
