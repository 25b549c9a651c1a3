#include "app/profile_win32.h"

#include "win32/program_files.h"
#include "win32/windows_api.h"

static const char* PathOf(void* device) {
    return static_cast<const std::string*>(device)->c_str();
}

static int ReadInteger(void* device, const char* section, const char* key, int missing) {
    return static_cast<int>(GetPrivateProfileIntA(section, key, missing, PathOf(device)));
}

static std::string ReadText(void* device, const char* section, const char* key, const char* missing, int limit) {
    std::string text(static_cast<std::size_t>(limit) + 1, '\0');
    const DWORD length =
        GetPrivateProfileStringA(section, key, missing, text.data(), static_cast<DWORD>(text.size()), PathOf(device));
    text.resize(length);
    return text;
}

static void WriteText(void* device, const char* section, const char* key, const char* text) {
    WritePrivateProfileStringA(section, key, text, PathOf(device));
}

ProfileFile WindowsProfile() {
    static std::string path = WorkingFilePath(kSettingsFile);
    return {&path, ReadInteger, ReadText, WriteText};
}
