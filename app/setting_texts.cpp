#include "app/setting_texts.h"

#include <algorithm>
#include <cstdint>

static SettingTexts& TextsOf(void* device) {
    return *static_cast<SettingTexts*>(device);
}

static SettingText* Find(SettingTexts& texts, const char* section, const char* key) {
    const auto found = std::find_if(texts.begin(), texts.end(), [&](const SettingText& setting) {
        return setting.section == section && setting.key == key;
    });
    return found == texts.end() ? nullptr : &*found;
}

static std::string WithoutBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

static std::string WithoutQuotes(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == text.back() && (text[0] == '"' || text[0] == '\'');
    return quoted ? text.substr(1, text.size() - 2) : text;
}

static std::string ReadText(void* device, const char* section, const char* key, const char* missing, int limit) {
    const SettingText* found = Find(TextsOf(device), section, key);
    const std::string text = WithoutBlanks(found == nullptr ? missing : found->text);
    return WithoutQuotes(text).substr(0, static_cast<std::size_t>(limit));
}

static int NumberIn(const std::string& text) {
    const bool negative = text.starts_with('-');
    std::uint32_t number = 0;
    for (std::size_t i = negative ? 1 : 0; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        number = 10 * number + static_cast<std::uint32_t>(text[i] - '0');
    return static_cast<int>(negative ? 0 - number : number);
}

static int ReadInteger(void* device, const char* section, const char* key, int missing) {
    const SettingText* found = Find(TextsOf(device), section, key);
    return found == nullptr || found->text.empty() ? missing : NumberIn(found->text);
}

static void WriteText(void* device, const char* section, const char* key, const char* text) {
    SettingText* found = Find(TextsOf(device), section, key);
    if (found != nullptr)
        found->text = text;
    else
        TextsOf(device).push_back({section, key, text});
}

static void RemoveKey(void* device, const char* section, const char* key) {
    std::erase_if(TextsOf(device),
                  [&](const SettingText& setting) { return setting.section == section && setting.key == key; });
}

ProfileFile ProfileOver(SettingTexts& texts) {
    return {&texts, ReadInteger, ReadText, WriteText, RemoveKey};
}
