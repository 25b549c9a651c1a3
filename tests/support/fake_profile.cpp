#include "tests/support/fake_profile.h"

static FakeProfile& ProfileOf(void* device) {
    return *static_cast<FakeProfile*>(device);
}

static std::string PathOf(const char* section, const char* key) {
    return std::string(section) + '/' + key;
}

static std::string WithoutBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

static std::string WithoutQuotes(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

static std::string ReadText(void* device, const char* section, const char* key, const char* missing, int limit) {
    FakeProfile& profile = ProfileOf(device);
    const std::string path = PathOf(section, key);
    profile.reads.push_back(path);
    const auto found = profile.values.find(path);
    const std::string text =
        found == profile.values.end() ? WithoutBlanks(missing) : WithoutQuotes(WithoutBlanks(found->second));
    return text.substr(0, static_cast<std::size_t>(limit));
}

static int ReadInteger(void* device, const char* section, const char* key, int missing) {
    const std::string text = ReadText(device, section, key, "", 99);
    if (text.empty()) return missing;
    const bool negative = text[0] == '-';
    std::uint32_t number = 0;
    for (std::size_t i = negative ? 1 : 0; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        number = 10 * number + static_cast<std::uint32_t>(text[i] - '0');
    return static_cast<int>(negative ? 0 - number : number);
}

static void WriteText(void* device, const char* section, const char* key, const char* text) {
    const std::string path = PathOf(section, key);
    ProfileOf(device).writes.push_back(path + '=' + text);
    ProfileOf(device).values[path] = text;
}

static void RemoveKey(void* device, const char* section, const char* key) {
    ProfileOf(device).writes.push_back(PathOf(section, key));
    ProfileOf(device).values.erase(PathOf(section, key));
}

ProfileFile DeviceOver(FakeProfile& profile) {
    return {&profile, ReadInteger, ReadText, WriteText, RemoveKey};
}
