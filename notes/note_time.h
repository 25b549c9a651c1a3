// The time at which notes are saved and kept.
#pragma once

#include <cstdint>
#include <string>

struct NoteTime {
    std::string day;           // "2024-12-31", local
    std::int64_t seconds = 0;  // since 1970, UTC
    int secondOfDay = 0;       // local
};
