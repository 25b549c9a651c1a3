// The wide functions are used because of the file's path. The file itself stays in the system's code page: they convert
// its bytes to letters and back, as those for the code page do.
//
// They accept only paths of at most MAX_PATH letters. A file in a longer path is copied to the folder for temporary
// files, read or changed there, and put back in one step.
#include "app/profile_file_win32.h"

#include <optional>
#include <utility>

#include "app/profile_section.h"
#include "win32/files.h"

static constexpr char kUnfinishedEnding[] = ".temp";

// ---- Files in long paths --------------------------------------------------------------------------------------------

// Path of a new empty file; empty if it cannot be created.
static std::wstring NewTemporaryFile() {
    wchar_t folder[MAX_PATH + 1] = L"";
    wchar_t path[MAX_PATH] = L"";
    if (GetTempPathW(MAX_PATH + 1, folder) == 0) return L"";
    return GetTempFileNameW(folder, L"vwp", 0, path) != 0 ? path : L"";
}

static bool CopyBack(const std::wstring& copy, const std::wstring& path) {
    const std::wstring unfinished = path + Wide(kUnfinishedEnding);
    return CopyFileW(copy.c_str(), unfinished.c_str(), FALSE) &&
           MoveWithPatience(unfinished, path, MOVEFILE_REPLACE_EXISTING);
}

// Calls `use` with a path that the functions accept.
template <typename Use>
static void WithAcceptedPath(const std::wstring& path, bool isWritten, Use use) {
    if (path.size() < MAX_PATH) return use(path);
    const std::wstring copy = NewTemporaryFile();
    if (copy.empty()) return use(path);
    if (CopyFileW(path.c_str(), copy.c_str(), FALSE) || !IsThere(path)) {
        use(copy);
        if (isWritten) CopyBack(copy, path);
    }
    DeleteFileW(copy.c_str());
}

// ---- The functions --------------------------------------------------------------------------------------------------

static const std::wstring& PathOf(void* device) {
    return *static_cast<const std::wstring*>(device);
}

static int ReadInteger(void* device, const char* section, const char* key, int missing) {
    int number = missing;
    WithAcceptedPath(PathOf(device), false, [&](const std::wstring& path) {
        number =
            static_cast<int>(GetPrivateProfileIntW(Wide(section).c_str(), Wide(key).c_str(), missing, path.c_str()));
    });
    return number;
}

static std::string ReadText(void* device, const char* section, const char* key, const char* missing, int limit) {
    std::wstring text = Wide(missing);
    WithAcceptedPath(PathOf(device), false, [&](const std::wstring& path) {
        std::wstring read(static_cast<std::size_t>(limit) + 1, L'\0');
        read.resize(GetPrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), text.c_str(), read.data(),
                                             static_cast<DWORD>(read.size()), path.c_str()));
        text = std::move(read);
    });
    return Narrow(text).value_or(missing).substr(0, static_cast<std::size_t>(limit));
}

static void WriteText(void* device, const char* section, const char* key, const char* text) {
    WithAcceptedPath(PathOf(device), true, [&](const std::wstring& path) {
        WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), Wide(text).c_str(), path.c_str());
    });
}

static void RemoveKey(void* device, const char* section, const char* key) {
    WithAcceptedPath(PathOf(device), true, [&](const std::wstring& path) {
        WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(), nullptr, path.c_str());
    });
}

ProfileFile ProfileAt(std::wstring& path) {
    return {&path, ReadInteger, ReadText, WriteText, RemoveKey};
}

// ---- Whole sections -------------------------------------------------------------------------------------------------

static std::optional<std::wstring> SectionIn(const std::wstring& file, const char* section) {
    static constexpr DWORD kRoom = 32768, kCutOff = kRoom - 2;
    std::optional<std::wstring> read;
    WithAcceptedPath(file, false, [&](const std::wstring& path) {
        std::wstring texts(kRoom, L'\0');
        const DWORD size = GetPrivateProfileSectionW(Wide(section).c_str(), texts.data(), kRoom, path.c_str());
        if (size != 0 ? size < kCutOff : !IsThere(path)) read = texts.substr(0, size);
    });
    return read;
}

static const std::optional<std::wstring>& SectionOf(ReadProfile& profile, const char* section) {
    const auto found = profile.sections.find(section);
    if (found != profile.sections.end()) return found->second;
    return profile.sections.emplace(section, SectionIn(profile.path, section)).first->second;
}

// What is not plain is left to the system's procedure for single values.
static int ReadIntegerOnce(void* device, const char* section, const char* key, int missing) {
    ReadProfile& profile = *static_cast<ReadProfile*>(device);
    if (const std::optional<std::wstring>& whole = SectionOf(profile, section)) {
        const std::optional<std::wstring_view> value = ValueIn(*whole, Wide(key));
        if (!value) return missing;
        if (const std::optional<int> number = PlainNumber(*value)) return *number;
    }
    return ReadInteger(&profile.path, section, key, missing);
}

static std::string ReadTextOnce(void* device, const char* section, const char* key, const char* missing, int limit) {
    ReadProfile& profile = *static_cast<ReadProfile*>(device);
    if (const std::optional<std::wstring>& whole = SectionOf(profile, section)) {
        const std::wstring ofMissing = Wide(missing);
        const std::wstring_view text = ValueIn(*whole, Wide(key)).value_or(ofMissing);
        if (IsPlainText(text) && text.size() <= static_cast<std::size_t>(limit))
            return Narrow(std::wstring(text)).value_or(missing).substr(0, static_cast<std::size_t>(limit));
    }
    return ReadText(&profile.path, section, key, missing, limit);
}

ProfileFile ProfileOver(ReadProfile& profile) {
    return {&profile, ReadIntegerOnce, ReadTextOnce, nullptr, nullptr};
}
