// Temporary folders of tests and their files.

#include <algorithm>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "tests/driver/driver.h"

static constexpr const char* kScriptureFiles[] = {"_avwrds.dat", "_avwptr.dat", "_avwidx.dat", "_avvidx.dat",
                                                  "_avtext.dat"};

static std::string Variable(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0' ? value : otherwise;
}

const TestSurroundings& Surroundings() {
    static const TestSurroundings surroundings{
        Variable("VERSEWELL_PROGRAM", "versewell.exe"),
        Variable("VERSEWELL_DATA", "."),
        Variable("VERSEWELL_HELP", "."),
        Variable("VERSEWELL_PICTURES", "."),
        Variable("VERSEWELL_AT_DATE", "at_date"),
        Variable("VERSEWELL_IN_LOCALE", "in_locale"),
        Variable("VERSEWELL_PAGE_TEXT", "page_text"),
        Variable("VERSEWELL_FULL_DISK", "full.txt"),
    };
    return surroundings;
}

bool IsLongRun() {
    return !Variable("VERSEWELL_LONG", "").empty();
}

unsigned StepOfFileOperations() {
    return IsLongRun() ? 1 : 7;
}

// Not by remove_all, which in libstdc++ for Windows never returns if a file that it has listed is gone: a program that
// is still running may have deleted it.
static void RemoveFolder(const std::filesystem::path& path) {
    std::error_code ignored;
    std::vector<std::filesystem::path> places{path};
    std::filesystem::recursive_directory_iterator place(path, ignored);
    for (; place != std::filesystem::recursive_directory_iterator(); place.increment(ignored))
        places.push_back(place->path());
    std::reverse(places.begin(), places.end());  // what is in a folder before the folder
    for (const std::filesystem::path& each : places) std::filesystem::remove(each, ignored);
}

// The folder of a failed test is kept for inspection.
static void LeaveFolder(const std::filesystem::path& path) {
    if (!testing::Test::HasFailure()) RemoveFolder(path);
}

ScratchFolder EmptyFolder() {
    static int count = 0;
    const std::string name = "versewell-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
    const std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::filesystem::create_directories(path);
    return {path, std::shared_ptr<void>(nullptr, [path](void*) { LeaveFolder(path); })};
}

ScratchFolder FolderWithScripture() {
    ScratchFolder folder = EmptyFolder();
    for (const char* name : kScriptureFiles)
        std::filesystem::copy_file(std::filesystem::path(Surroundings().data) / name, folder.path / name);
    return folder;
}

// A long path has no slashes.
static std::filesystem::path PathIn(const ScratchFolder& folder, std::string_view name) {
    return (folder.path / name).make_preferred();
}

std::string ReadFile(const ScratchFolder& folder, std::string_view name) {
    std::ifstream file(PathIn(folder, name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const ScratchFolder& folder, std::string_view name, std::string_view content) {
    std::ofstream file(PathIn(folder, name), std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
}

bool HasFile(const ScratchFolder& folder, std::string_view name) {
    return std::filesystem::exists(PathIn(folder, name));
}

std::vector<std::string> FilesIn(const ScratchFolder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

static std::wstring Wide(std::string_view text) {
    std::wstring wide(text.size(), L'\0');
    const int size = static_cast<int>(text.size());
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

std::string Setting(const ScratchFolder& folder, std::string_view section, std::string_view key) {
    wchar_t value[512];
    GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), L"(none)", value, 512,
                             (folder.path / "Versewell.INI").c_str());
    char narrow[512];
    WideCharToMultiByte(CP_ACP, 0, value, -1, narrow, sizeof narrow, nullptr, nullptr);
    return narrow;
}

void WriteSetting(const ScratchFolder& folder, std::string_view section, std::string_view key, std::string_view value) {
    WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(value).c_str(),
                               (folder.path / "Versewell.INI").c_str());
}
