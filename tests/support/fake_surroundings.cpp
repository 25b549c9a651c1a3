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
    static const Surroundings native = NativeSurroundings();  // for files, which need nothing of its device
    return {
        .device = &fake,
        .variable = Variable,
        .list = native.list,
        .readFile = native.readFile,
        .map = Map,
        .today = Today,
        .write = Write,
        .startPager = StartPager,
        .isTerminal = fake.isTerminal,
        .showsColors = fake.showsColors,
        .columns = fake.columns,
        .textFolders = fake.textFolders.empty() ? std::vector<std::string>{VERSEWELL_DATA_DIR} : fake.textFolders,
        .workingFolder = "/nowhere",
    };
}
