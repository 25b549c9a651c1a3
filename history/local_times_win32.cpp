// Separate from the dialogs, which share it.
#include "history/local_times_win32.h"

// With the rules for daylight saving of that day, not of today.
static SYSTEMTIME LocalTime(std::int64_t seconds) {
    static constexpr std::int64_t kFrom1601To1970 = 11'644'473'600;
    static constexpr std::int64_t kSecond = 10'000'000;  // in tenths of a microsecond
    const auto time = static_cast<std::uint64_t>((seconds + kFrom1601To1970) * kSecond);
    const FILETIME file{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
    SYSTEMTIME utc{}, local{};
    FileTimeToSystemTime(&file, &utc);
    SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local);
    return local;
}

std::string LocalDate(const SYSTEMTIME& time) {
    char text[80] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, text, sizeof text);
    return text;
}

std::string LocalClock(const SYSTEMTIME& time) {
    char text[80] = "";
    GetTimeFormatA(LOCALE_USER_DEFAULT, 0, &time, nullptr, text, sizeof text);
    return text;
}

std::string LocalDateAndTime(std::int64_t seconds) {
    const SYSTEMTIME local = LocalTime(seconds);
    return LocalDate(local) + ' ' + LocalClock(local);
}
