#include "tests/support/fake_surroundings.h"

#include <filesystem>

#include "cli/native_surroundings.h"
#include "tests/support/native_scripture.h"

static FakeSurroundings& FakeOf(void* device) {
    return *static_cast<FakeSurroundings*>(device);
}

static std::optional<std::string> Variable(void* device, const char* name) {
    const auto found = FakeOf(device).variables.find(name);
    return found != FakeOf(device).variables.end() ? std::optional(found->second) : std::nullopt;
}

// Maps each file once, however many runs there are.
static bool Map(void*, const std::string& path, std::span<const unsigned char>& bytes) {
    static std::map<std::string, std::span<const unsigned char>> mapped;
    if (const auto found = mapped.find(path); found != mapped.end()) {
        bytes = found->second;
        return true;
    }
    const std::filesystem::path file(path);
    const std::string folder = file.parent_path().string();
    const DataFiles files = FilesOfFolder(folder.c_str());
    if (!files.map(files.device, file.filename().c_str(), AccessPattern::kSequential, bytes)) return false;
    mapped[path] = bytes;
    return true;
}

static const Surroundings& Native() {
    static const Surroundings native = NativeSurroundings();  // for files, which need nothing of a test's device
    return native;
}

static std::optional<std::string> ReadFile(void* device, const std::string& path) {
    const auto draft = FakeOf(device).drafts.find(path);
    if (draft != FakeOf(device).drafts.end()) return draft->second;
    return Native().readFile(Native().device, path);
}

static FileKind KindOf(void* device, const std::string& path) {
    const auto known = FakeOf(device).kinds.find(path);
    return known != FakeOf(device).kinds.end() ? known->second : Native().kindOf(Native().device, path);
}

static FolderUse UseOf(void* device, const std::string&) {
    return FakeOf(device).use;
}

static bool WriteFile(void* device, const std::string& path, std::string_view bytes) {
    FakeSurroundings& fake = FakeOf(device);
    if (const auto draft = fake.drafts.find(path); draft != fake.drafts.end()) {
        if (fake.canWriteDrafts) draft->second = bytes;
        return fake.canWriteDrafts;
    }
    return fake.hasNotes && Native().writeFile(Native().device, path, bytes);
}

static const NoteFiles* NoteFilesOf(void* device, const std::string& folder) {
    FakeSurroundings& fake = FakeOf(device);
    if (fake.noteFiles != nullptr) return fake.noteFiles;
    return fake.hasNotes ? Native().noteFiles(Native().device, folder) : nullptr;
}

static NoteTime Now(void* device) {
    return FakeOf(device).now;
}

static std::string MakeDraft(void* device, std::string_view bytes) {
    auto& drafts = FakeOf(device).drafts;
    std::string path = "/draft" + std::to_string(drafts.size()) + ".txt";
    drafts[path] = bytes;
    return path;
}

static bool Edit(void* device, const std::string& path) {
    FakeSurroundings& fake = FakeOf(device);
    return fake.edit && fake.edit(fake.drafts[path]);
}

static void RemoveDraft(void* device, const std::string& path) {
    FakeOf(device).drafts.erase(path);
}

static Day Today(void* device) {
    return FakeOf(device).today;
}

static Written Write(void* device, Stream stream, std::string_view bytes) {
    FakeSurroundings& fake = FakeOf(device);
    (stream == Stream::kErrors ? fake.errors : fake.output) += bytes;
    if (stream == Stream::kErrors) return Written::kAll;
    ++fake.writes;
    return fake.written;
}

static void StartPager(void* device) {
    ++FakeOf(device).pagers;
}

Surroundings SurroundingsOver(FakeSurroundings& fake) {
    return {
        .device = &fake,
        .variable = Variable,
        .list = Native().list,
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
        .isTerminal = fake.isTerminal,
        .showsColors = fake.showsColors,
        .columns = fake.columns,
        .draftsAreOfWindows = fake.draftsAreOfWindows,
        .textFolders = fake.textFolders.empty() ? std::vector<std::string>{VERSEWELL_DATA_DIR} : fake.textFolders,
        .workingFolder = "/nowhere",
    };
}
