#include "win32/folder_dialog.h"

#include <memory>

// After windows.h, which it needs.
#include <shobjidl.h>

#include "win32/files.h"

namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Object>
using OwnedObject = std::unique_ptr<Object, ReleaseObject>;

}  // namespace

static OwnedObject<IFileOpenDialog> NewDialog() {
    // COM ends with the program; it may have been begun before, for a screen reader.
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    void* dialog = nullptr;
    CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOpenDialog, &dialog);
    return OwnedObject<IFileOpenDialog>(static_cast<IFileOpenDialog*>(dialog));
}

static std::wstring PathOf(IShellItem& item) {
    wchar_t* text = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &text))) return L"";
    const std::wstring path = text;
    CoTaskMemFree(text);
    return FullPath(path);
}

std::wstring AskFolder(HWND owner, const wchar_t* title) {
    const OwnedObject<IFileOpenDialog> dialog = NewDialog();
    if (!dialog) return L"";
    if (FAILED(dialog->SetOptions(FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR)))
        return L"";
    dialog->SetTitle(title);
    IShellItem* chosen = nullptr;
    if (FAILED(dialog->Show(owner)) || FAILED(dialog->GetResult(&chosen))) return L"";
    const OwnedObject<IShellItem> item(chosen);
    return PathOf(*item);
}
