// Settings in memory, as the texts that the settings file would hold.
#pragma once

#include <string>
#include <vector>

#include "app/settings.h"

struct SettingText {
    std::string section;
    std::string key;
    std::string text;
    bool operator==(const SettingText&) const = default;
};
using SettingTexts = std::vector<SettingText>;

// A settings file that reads from `texts` and writes to it; `texts` must outlive it. As in a real file, a text is read
// without the blanks around it and without one pair of quotes, a number is the digits behind an optional minus sign up
// to the first other character, cut to 32 bits, and a key is written in the place where it was before.
ProfileFile ProfileOver(SettingTexts& texts);
