#include "notes/file_names.h"

#include <algorithm>
#include <array>

#include "notes/note_files.h"
#include "scripture/letters.h"

static bool CanStandInName(char c) {
    static constexpr std::string_view kForbidden = "\\/:*?\"<>|";
    return static_cast<unsigned char>(c) >= ' ' && kForbidden.find(c) == std::string_view::npos;
}

bool HasFileCharacters(std::string_view name) {
    return std::ranges::all_of(name, CanStandInName);
}

// Windows also takes the raised digits 1, 2 and 3: one byte in the code pages that have them, the second of two in
// UTF-8. In other code pages a name is refused that could be allowed.
static bool IsPortNumber(std::string_view text) {
    static constexpr std::string_view kRaised = "\xB9\xB2\xB3";
    if (text.size() == 2 && text.front() == '\xC2') text.remove_prefix(1);
    if (text.size() != 1) return false;
    return (text.front() >= '1' && text.front() <= '9') || kRaised.find(text.front()) != std::string_view::npos;
}

bool IsDeviceName(std::string_view name) {
    static constexpr std::array<std::string_view, 4> kDevices = {"con", "prn", "aux", "nul"};
    std::string first = LowerCased(std::string(name.substr(0, name.find('.'))));
    first.erase(first.find_last_not_of(' ') + 1);
    if (std::ranges::find(kDevices, first) != kDevices.end()) return true;
    return (first.starts_with("com") || first.starts_with("lpt")) && IsPortNumber(std::string_view(first).substr(3));
}

// Windows drops points and blanks at the end, which turns three points into two.
bool IsFileName(std::string_view name) {
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    return HasFileCharacters(name) && !IsDeviceName(name);
}

bool IsSetName(std::string_view name) {
    return IsFileName(std::string(name) + kDataEnding);
}

bool StaysInFolder(std::string_view path) {
    static constexpr std::string_view kFolder = kBackupFolder;
    if (path.starts_with(kFolder) && path.substr(kFolder.size()).starts_with('/'))
        path.remove_prefix(kFolder.size() + 1);
    return IsFileName(path);
}
