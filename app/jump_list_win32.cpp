#include "app/jump_list_win32.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/frame_win32.h"
#include "app/last_verses.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/files.h"
#include "win32/windows_api.h"

#include <objbase.h>
#include <shobjidl.h>

#include <propsys.h>

static constexpr PROPERTYKEY kTitle = {{0xF29F85E0, 0x4FF9, 0x1068, {0xAB, 0x91, 0x08, 0x00, 0x2B, 0x27, 0xB3, 0xD9}},
                                       2};

namespace {

struct ReleaseDeleter {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Interface>
using OwnedObject = std::unique_ptr<Interface, ReleaseDeleter>;

}  // namespace

template <typename Interface>
static OwnedObject<Interface> Created(const CLSID& kind) {
    void* object = nullptr;
    const HRESULT result = CoCreateInstance(kind, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface), &object);
    return OwnedObject<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(object) : nullptr);
}

template <typename Interface>
static OwnedObject<Interface> Asked(IUnknown& of) {
    void* object = nullptr;
    const HRESULT result = of.QueryInterface(__uuidof(Interface), &object);
    return OwnedObject<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(object) : nullptr);
}

void RememberVerse(int verse) {
    if (!IsInstalledCopy()) return;
    AddLastVerse(theFrame.lastVerses, verse);
    theFrame.hasNewLastVerse = true;
}

// ---- The items ------------------------------------------------------------------------------------------------------

static std::wstring ReferenceTo(int verse) {
    return WideOfCodePage(ReferenceText(theScripture.records, verse, BookForm::kName));
}

static std::wstring ArgumentFor(const std::wstring& reference) {
    return L'"' + reference + L'"';
}

static bool SetTitle(IShellLinkW& link, std::wstring title) {
    const auto properties = Asked<IPropertyStore>(link);
    PROPVARIANT value{};
    value.vt = VT_LPWSTR;
    value.pwszVal = title.data();
    return properties && SUCCEEDED(properties->SetValue(kTitle, value)) && SUCCEEDED(properties->Commit());
}

static OwnedObject<IShellLinkW> LinkTo(const std::wstring& reference) {
    static const std::wstring program = ProgramFolder() + L"versewell.exe";
    OwnedObject<IShellLinkW> link = Created<IShellLinkW>(CLSID_ShellLink);
    const bool isMade = link && SUCCEEDED(link->SetPath(program.c_str())) &&
                        SUCCEEDED(link->SetArguments(ArgumentFor(reference).c_str())) &&
                        SUCCEEDED(link->SetIconLocation(program.c_str(), 0)) && SetTitle(*link, reference);
    return isMade ? std::move(link) : nullptr;
}

// The arguments of the items that the user has removed from the list. The system refuses one that has them again.
static std::vector<std::wstring> ArgumentsIn(IObjectArray& removed) {
    std::vector<std::wstring> arguments;
    UINT count = 0;
    if (FAILED(removed.GetCount(&count))) return arguments;
    for (UINT i = 0; i < count; ++i) {
        void* object = nullptr;
        if (FAILED(removed.GetAt(i, __uuidof(IShellLinkW), &object))) continue;
        const OwnedObject<IShellLinkW> link(static_cast<IShellLinkW*>(object));
        wchar_t text[200] = L"";
        if (SUCCEEDED(link->GetArguments(text, static_cast<int>(std::size(text))))) arguments.emplace_back(text);
    }
    return arguments;
}

// ---- The list -------------------------------------------------------------------------------------------------------

static void DropRemoved(IObjectArray& removed) {
    for (const std::wstring& argument : ArgumentsIn(removed))
        std::erase_if(theFrame.lastVerses, [&](int verse) { return ArgumentFor(ReferenceTo(verse)) == argument; });
}

static void AddItems(IObjectCollection& items) {
    for (const int verse : theFrame.lastVerses)
        if (const auto link = LinkTo(ReferenceTo(verse))) items.AddObject(link.get());
}

// The list gets no name of its own (SetAppID), because the program has none: the system knows by the program's file to
// which windows and entries of the start menu it belongs. Without a commit nothing changes.
static void Write() {
    const auto list = Created<ICustomDestinationList>(CLSID_DestinationList);
    const auto items = Created<IObjectCollection>(CLSID_EnumerableObjectCollection);
    if (!list || !items) return;
    UINT slots = 0;
    void* object = nullptr;
    if (FAILED(list->BeginList(&slots, __uuidof(IObjectArray), &object)) || object == nullptr) return;
    const OwnedObject<IObjectArray> removed(static_cast<IObjectArray*>(object));
    DropRemoved(*removed);
    AddItems(*items);
    if (SUCCEEDED(list->AppendCategory(L"Last Verses", items.get()))) list->CommitList();
}

void WriteJumpList() {
    if (theFrame.hasNewLastVerse && SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) Write();
}

void RemoveJumpList() {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return;
    if (const auto list = Created<ICustomDestinationList>(CLSID_DestinationList)) list->DeleteList(nullptr);
}
