#include "output/text_file_win32.h"

OwnedFile CreateTextFile(const std::string& path) {
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return OwnedFile(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

static bool Write(void* file, std::string_view bytes) {
    DWORD written = 0;
    return file && WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

TextFile TextFileOf(const OwnedFile& file) {
    return {file.get(), Write};
}
