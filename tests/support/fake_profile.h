// A settings file in memory, with the manners of the private-profile functions: text loses the blanks round it, then
// one pair of quotes; a number is a minus sign and digits, up to what is neither.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/settings.h"

struct FakeProfile {
    std::map<std::string, std::string> values;  // "SECTION/Key" -> text
    std::vector<std::string> reads;             // "SECTION/Key"
    std::vector<std::string> writes;            // "SECTION/Key=text"
};

// The device over `profile`, which must stay.
ProfileFile DeviceOver(FakeProfile& profile);
