#include "app/profile_text.h"

#include <algorithm>
#include <string_view>

#include "scripture/letters.h"

static constexpr std::string_view kBlanks = " \t\r";

static std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == text.npos ? "" : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

static std::string_view WithoutQuotes(std::string_view text) {
    const bool isQuoted = text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

static std::string_view TakeLine(std::string_view& rest) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = WithoutBlanks(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return line;
}

static bool IsHeading(std::string_view line) {
    return line.starts_with('[');
}

static std::string_view NameInHeading(std::string_view line) {
    return WithoutBlanks(line.substr(1, line.find(']') - 1));
}

// What is behind the first "=" of the first line with the key, in the first section of that name.
static std::optional<std::string_view> ValueOf(std::string_view rest, std::string_view section, std::string_view key) {
    bool isInSection = false;
    while (!rest.empty()) {
        const std::string_view line = TakeLine(rest);
        if (IsHeading(line)) {
            if (isInSection) return std::nullopt;
            isInSection = EqualIgnoringCase(NameInHeading(line), section);
            continue;
        }
        const std::size_t equals = line.find('=');
        if (isInSection && equals != line.npos && EqualIgnoringCase(WithoutBlanks(line.substr(0, equals)), key))
            return WithoutQuotes(WithoutBlanks(line.substr(equals + 1)));
    }
    return std::nullopt;
}

static std::string_view TextOf(void* device) {
    return static_cast<const ProfileText*>(device)->text;
}

// Stops at the first character that is no digit; a number that is too long has any value, as on Windows.
static int NumberOf(std::string_view text) {
    const bool isNegative = text.starts_with('-');
    std::uint32_t number = 0;
    for (std::size_t i = isNegative ? 1 : 0; i < text.size() && IsDigit(text[i]); ++i)
        number = 10 * number + static_cast<std::uint32_t>(text[i] - '0');
    return static_cast<int>(isNegative ? 0 - number : number);
}

static int ReadInteger(void* device, const char* section, const char* key, int missing) {
    const auto value = ValueOf(TextOf(device), section, key);
    return value && !value->empty() ? NumberOf(*value) : missing;
}

static std::string ReadText(void* device, const char* section, const char* key, const char* missing, int limit) {
    const auto value = ValueOf(TextOf(device), section, key);
    return std::string(value.value_or(WithoutBlanks(missing)).substr(0, static_cast<std::size_t>(limit)));
}

ProfileFile DeviceOver(ProfileText& text) {
    return {&text, ReadInteger, ReadText, nullptr, nullptr};
}
