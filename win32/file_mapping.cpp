#include "win32/file_mapping.h"

bool MapWholeFile(const char* path, DWORD accessFlag, MappedFile& file) {
    const HANDLE opened = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, accessFlag, nullptr);
    if (opened == INVALID_HANDLE_VALUE) return false;
    const OwnedFile owner(opened);

    LARGE_INTEGER size{};
    if (!GetFileSizeEx(opened, &size)) return false;
    if (size.QuadPart == 0) return true;  // there is no mapping of nothing

    const OwnedFile mapping(CreateFileMappingA(opened, nullptr, PAGE_READONLY, 0, 0, nullptr));
    if (!mapping) return false;
    file.view.reset(MapViewOfFile(mapping.get(), FILE_MAP_READ, 0, 0, 0));
    if (!file.view) return false;
    file.bytes = {static_cast<const unsigned char*>(file.view.get()), static_cast<std::size_t>(size.QuadPart)};
    return true;
}
