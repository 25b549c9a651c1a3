// A settings file in memory that behaves like the private-profile functions: reading a text removes the blanks around
// it, then one pair of quotes; reading a number takes a minus sign and digits and stops at the first other character.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/settings.h"

struct FakeProfile {
    std::map<std::string, std::string> values;  // "SECTION/Key" -> text
    std::vector<std::string> reads;             // "SECTION/Key"
    std::vector<std::string> writes;            // "SECTION/Key=text"; "SECTION/Key" for a key that was removed
};

// The device for `profile`, which must outlive it.
ProfileFile DeviceOver(FakeProfile& profile);
