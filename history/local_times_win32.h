// Dates and times as the user's settings write them.
#pragma once

#include <cstdint>
#include <string>

#include "win32/windows_api.h"

// A date and a time of day; empty if there is no such day or time.
std::string LocalDate(const SYSTEMTIME& time);
std::string LocalClock(const SYSTEMTIME& time);

// `seconds` since 1970 in UTC as a local date and time.
std::string LocalDateAndTime(std::int64_t seconds);
