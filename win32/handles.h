// Owning handles, released with their unique_ptr.
#pragma once

#include <memory>
#include <type_traits>

#include "win32/windows_api.h"

struct DeleteGdiObject {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
using OwnedFont = std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteGdiObject>;
using OwnedRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, DeleteGdiObject>;
using OwnedBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, DeleteGdiObject>;

struct DeleteDeviceContext {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
using OwnedDc = std::unique_ptr<std::remove_pointer_t<HDC>, DeleteDeviceContext>;

struct DestroyImages {
    void operator()(HIMAGELIST images) const { ImageList_Destroy(images); }
};
using OwnedImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImages>;

struct DestroyMenuHandle {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using OwnedMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuHandle>;

struct CloseFile {
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using OwnedFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, CloseFile>;
using OwnedProcess = OwnedFile;

struct UnmapView {
    void operator()(const void* view) const { UnmapViewOfFile(view); }
};
using MappedView = std::unique_ptr<const void, UnmapView>;
