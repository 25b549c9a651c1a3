// Settings files in the working directory, read and written with the private-profile functions of Windows.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "app/settings.h"

// The file at `path`, which must outlive the result.
ProfileFile ProfileAt(std::wstring& path);

// A file whose sections are read once, each when a value of it is first asked for: the system opens the file anew for
// every value, and the start asks for some sixty.
struct ReadProfile {
    std::wstring path;
    std::map<std::string, std::optional<std::wstring>> sections{};  // nullopt: could not be read as a whole
};

// For reading only; `profile` must outlive the result. The values are those that ProfileAt reads, but for changes of
// the file since its section was read.
ProfileFile ProfileOver(ReadProfile& profile);
