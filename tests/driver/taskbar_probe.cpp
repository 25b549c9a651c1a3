#include "tests/driver/taskbar_probe.h"

#include <windows.h>

#include <fstream>
#include <string>
#include <vector>

#include <objbase.h>
#include <shobjidl.h>

#include <propsys.h>

#include "tests/driver/import_table.h"

static std::string recordFile;
static std::vector<std::wstring> removedArguments;

static std::string InUtf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                     bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

static void Record(const std::string& line) {
    std::ofstream(recordFile, std::ios::binary | std::ios::app) << line << '\n';
}

// ---- Items ----------------------------------------------------------------------------------------------------------

namespace {

// All objects stay until the end of the program, which may keep them for as long as it likes.
struct LastingObject {
    static HRESULT Give(IUnknown* object, void** given) {
        *given = object;
        return S_OK;
    }
    static HRESULT Refuse(void** given) {
        *given = nullptr;
        return E_NOINTERFACE;
    }
};

// Keeps what is set, except what an item of the list has no use for.
struct Link : IShellLinkW, IPropertyStore, LastingObject {
    std::wstring path, arguments, icon, title;

    HRESULT WINAPI QueryInterface(REFIID id, void** given) override {
        if (id == __uuidof(IUnknown) || id == __uuidof(IShellLinkW))
            return *given = static_cast<IShellLinkW*>(this), S_OK;
        if (id == __uuidof(IPropertyStore)) return *given = static_cast<IPropertyStore*>(this), S_OK;
        return Refuse(given);
    }
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }

    HRESULT WINAPI SetPath(LPCWSTR text) override { return path = text, S_OK; }
    HRESULT WINAPI SetArguments(LPCWSTR text) override { return arguments = text, S_OK; }
    HRESULT WINAPI SetIconLocation(LPCWSTR text, int number) override {
        icon = text + (L"," + std::to_wstring(number));
        return S_OK;
    }
    HRESULT WINAPI GetArguments(LPWSTR text, int room) override {
        return lstrcpynW(text, arguments.c_str(), room) != nullptr ? S_OK : E_INVALIDARG;
    }
    HRESULT WINAPI SetValue(REFPROPERTYKEY key, REFPROPVARIANT value) override {
        static constexpr GUID kSummary = {0xF29F85E0, 0x4FF9, 0x1068, {0xAB, 0x91, 8, 0, 0x2B, 0x27, 0xB3, 0xD9}};
        if (key.fmtid != kSummary || key.pid != 2 || value.vt != VT_LPWSTR) return E_INVALIDARG;
        setTitle = value.pwszVal;
        return S_OK;
    }
    HRESULT WINAPI Commit() override { return title = setTitle, S_OK; }

    HRESULT WINAPI GetPath(LPWSTR, int, WIN32_FIND_DATAW*, DWORD) override { return E_NOTIMPL; }
    HRESULT WINAPI GetIDList(PIDLIST_ABSOLUTE*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetIDList(PCIDLIST_ABSOLUTE) override { return E_NOTIMPL; }
    HRESULT WINAPI GetDescription(LPWSTR, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetDescription(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI GetWorkingDirectory(LPWSTR, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetWorkingDirectory(LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI GetHotkey(WORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHotkey(WORD) override { return E_NOTIMPL; }
    HRESULT WINAPI GetShowCmd(int*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetShowCmd(int) override { return E_NOTIMPL; }
    HRESULT WINAPI GetIconLocation(LPWSTR, int, int*) override { return E_NOTIMPL; }
    HRESULT WINAPI SetRelativePath(LPCWSTR, DWORD) override { return E_NOTIMPL; }
    HRESULT WINAPI Resolve(HWND, DWORD) override { return E_NOTIMPL; }
    HRESULT WINAPI GetCount(DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI GetAt(DWORD, PROPERTYKEY*) override { return E_NOTIMPL; }
    HRESULT WINAPI GetValue(REFPROPERTYKEY, PROPVARIANT*) override { return E_NOTIMPL; }

    std::wstring setTitle;  // until the commit
};

struct Collection : IObjectCollection, LastingObject {
    std::vector<Link*> links;

    HRESULT WINAPI QueryInterface(REFIID id, void** given) override {
        const bool isKnown =
            id == __uuidof(IUnknown) || id == __uuidof(IObjectArray) || id == __uuidof(IObjectCollection);
        return isKnown ? Give(this, given) : Refuse(given);
    }
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }

    HRESULT WINAPI GetCount(UINT* count) override { return *count = static_cast<UINT>(links.size()), S_OK; }
    HRESULT WINAPI GetAt(UINT place, REFIID id, void** given) override {
        return place < links.size() ? links[place]->QueryInterface(id, given) : E_INVALIDARG;
    }
    HRESULT WINAPI AddObject(IUnknown* object) override {
        void* link = nullptr;
        if (FAILED(object->QueryInterface(__uuidof(IShellLinkW), &link))) return E_INVALIDARG;
        links.push_back(static_cast<Link*>(static_cast<IShellLinkW*>(link)));
        return S_OK;
    }
    HRESULT WINAPI AddFromArray(IObjectArray*) override { return E_NOTIMPL; }
    HRESULT WINAPI RemoveObjectAt(UINT) override { return E_NOTIMPL; }
    HRESULT WINAPI Clear() override { return links.clear(), S_OK; }
};

// ---- The list -------------------------------------------------------------------------------------------------------

struct List : ICustomDestinationList, LastingObject {
    std::string lines;  // until the commit

    HRESULT WINAPI QueryInterface(REFIID id, void** given) override {
        const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(ICustomDestinationList);
        return isKnown ? Give(this, given) : Refuse(given);
    }
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }

    HRESULT WINAPI SetAppID(LPCWSTR name) override { return Record("name\t" + InUtf8(name)), S_OK; }
    HRESULT WINAPI BeginList(UINT* slots, REFIID id, void** given) override {
        *slots = 10;
        return GetRemovedDestinations(id, given);
    }
    HRESULT WINAPI GetRemovedDestinations(REFIID id, void** given) override {
        auto* removed = new Collection;
        for (const std::wstring& arguments : removedArguments) {
            removed->links.push_back(new Link);
            removed->links.back()->arguments = arguments;
        }
        return removed->QueryInterface(id, given);
    }
    HRESULT WINAPI AppendCategory(LPCWSTR title, IObjectArray* items) override {
        lines += "category\t" + InUtf8(title) + '\n';
        for (const Link* link : static_cast<Collection*>(items)->links) {
            for (const std::wstring& arguments : removedArguments)
                if (link->arguments == arguments) return E_ACCESSDENIED;
            for (const std::wstring& part : {L"item" + std::wstring(), link->title, link->arguments, link->path})
                lines += InUtf8(part) + '\t';
            lines += InUtf8(link->icon) + '\n';
        }
        return S_OK;
    }
    HRESULT WINAPI CommitList() override { return Record(lines + "commit"), S_OK; }
    HRESULT WINAPI DeleteList(LPCWSTR name) override {
        return Record("delete\t" + InUtf8(name != nullptr ? name : L"")), S_OK;
    }
    HRESULT WINAPI AbortList() override { return lines.clear(), S_OK; }
    HRESULT WINAPI AppendKnownCategory(KNOWNDESTCATEGORY) override { return E_NOTIMPL; }
    HRESULT WINAPI AddUserTasks(IObjectArray*) override { return E_NOTIMPL; }
};

// ---- COM ------------------------------------------------------------------------------------------------------------

template <typename Object>
struct Factory : IClassFactory, LastingObject {
    HRESULT WINAPI QueryInterface(REFIID id, void** given) override {
        return id == __uuidof(IUnknown) || id == __uuidof(IClassFactory) ? Give(this, given) : Refuse(given);
    }
    ULONG WINAPI AddRef() override { return 2; }
    ULONG WINAPI Release() override { return 1; }
    HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** given) override {
        return (new Object)->QueryInterface(id, given);
    }
    HRESULT WINAPI LockServer(BOOL) override { return S_OK; }
};

}  // namespace

template <typename Object>
static bool Stand(const CLSID& kind) {
    DWORD cookie = 0;
    static Factory<Object> factory;
    return SUCCEEDED(CoRegisterClassObject(kind, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie));
}

bool RecordTaskbarList(const char* file) {
    recordFile = file;
    return StayLoaded() && SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) &&
           Stand<Link>(CLSID_ShellLink) && Stand<Collection>(CLSID_EnumerableObjectCollection) &&
           Stand<List>(CLSID_DestinationList);
}

bool RemoveFromTaskbarList(const char* arguments) {
    const std::string text = arguments;
    removedArguments.emplace_back(text.begin(), text.end());
    return true;
}
