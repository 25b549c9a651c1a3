#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>

void Expect(bool isSo, const char* what) {
    if (isSo) return;
    std::fprintf(stderr, "wrong: %s\n", what);
    std::abort();
}

std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

// A number beyond 64 bits is the greatest there is, whatever its sign.
int TakeNumber(std::string_view& line, int least, int most) {
    line.remove_prefix(std::min(line.find_first_of("-0123456789"), line.size()));
    long long number = least;
    const auto taken = std::from_chars(line.data(), line.data() + line.size(), number);
    if (taken.ec == std::errc::result_out_of_range) number = most;
    const bool isSignAlone = taken.ec == std::errc::invalid_argument && !line.empty();
    line.remove_prefix(isSignAlone ? 1 : static_cast<std::size_t>(taken.ptr - line.data()));
    return static_cast<int>(std::clamp<long long>(number, least, most));
}
