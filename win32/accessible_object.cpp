// The interfaces are the system's, so these are the program's only types with virtual procedures. Parameters that
// return something are set even on failure, because clients may use them nevertheless.
#include "win32/accessible_object.h"

#include <algorithm>
#include <new>

#include "win32/system_library.h"

namespace {

struct AccessibilityProcedures {
    decltype(&AccessibleObjectFromWindow) fromWindow = nullptr;
    decltype(&LresultFromObject) answerWith = nullptr;
};

}  // namespace

// Looked up when a screen reader asks, because the program should start without them.
static const AccessibilityProcedures& Accessibility() {
    static const AccessibilityProcedures procedures = [] {
        AccessibilityProcedures found;
        const HMODULE library = SystemLibrary(L"oleacc.dll");
        FindProcedure(library, "AccessibleObjectFromWindow", found.fromWindow);
        FindProcedure(library, "LresultFromObject", found.answerWith);
        return found;
    }();
    return procedures;
}

static VARIANT Nothing() {
    VARIANT nothing{};
    nothing.vt = VT_EMPTY;
    return nothing;
}

static VARIANT NumberVariant(LONG number) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

static HRESULT Return(BSTR* text, const std::wstring& value) {
    *text = value.empty() ? nullptr : SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
    if (value.empty()) return S_FALSE;
    return *text != nullptr ? S_OK : E_OUTOFMEMORY;
}

// ---- Lists of children ----------------------------------------------------------------------------------------------

namespace {

using ChildrenOfWindow = std::vector<int> (*)(const void* device);

struct ChildList final : IEnumVARIANT {
    IUnknown* const owner;  // whose interface this is; null for a list that is an object of its own
    const HWND window;
    const AccessibleWindow about;
    const ChildrenOfWindow children;
    std::vector<int> ids{};
    std::size_t next = 0;
    LONG uses = 1;

    ChildList(IUnknown* theOwner, HWND theWindow, const AccessibleWindow& telling, ChildrenOfWindow whichChildren)
        : owner(theOwner), window(theWindow), about(telling), children(whichChildren) {
        if (owner) owner->AddRef();
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (object == nullptr) return E_POINTER;
        if (!IsEqualIID(id, __uuidof(IEnumVARIANT)) && !(owner == nullptr && IsEqualIID(id, __uuidof(IUnknown)))) {
            *object = nullptr;
            return owner ? owner->QueryInterface(id, object) : E_NOINTERFACE;
        }
        *object = static_cast<IEnumVARIANT*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&uses)); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&uses);
        if (left > 0) return static_cast<ULONG>(left);
        if (owner) owner->Release();
        delete this;
        return 0;
    }

    HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* fetched) override {
        if (items == nullptr || (fetched == nullptr && wanted != 1)) return E_INVALIDARG;
        ULONG count = 0;
        while (count < wanted && next < ids.size()) items[count++] = NumberVariant(ids[next++]);
        if (fetched) *fetched = count;
        return count == wanted ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const std::size_t left = ids.size() - next;
        next += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        next = 0;
        if (!IsWindow(window)) return ids.clear(), CO_E_OBJNOTCONNECTED;
        ids = children(about.device);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        if (copy == nullptr) return E_POINTER;
        auto* const list = new (std::nothrow) ChildList(owner, window, about, children);
        *copy = list;
        if (list == nullptr) return E_OUTOFMEMORY;
        list->ids = ids;
        list->next = next;
        return S_OK;
    }
};

// ---- The window -----------------------------------------------------------------------------------------------------

struct AccessibleObject final : IAccessible {
    const HWND window;
    const AccessibleWindow about;
    LONG uses = 1;

    AccessibleObject(HWND theWindow, const AccessibleWindow& telling) : window(theWindow), about(telling) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(InterlockedIncrement(&uses)); }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&uses);
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    // Clients of this interface call the methods below, not names of methods.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override { return count ? (*count = 0, S_OK) : E_POINTER; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
        if (info) *info = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* description) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override { return HasNone(child, help); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        if (topic) *topic = 0;
        return HasNone(child, file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* key) override { return HasNone(child, key); }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* children) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

    HRESULT Prepare(VARIANT* answer) const;
    HRESULT Find(const VARIANT& child, AccessibleItem& item) const;
    HRESULT HasNone(const VARIANT& child, BSTR* text) const;
    HRESULT ReturnText(const VARIANT& child, BSTR* text, std::wstring AccessibleItem::*member) const;
    HRESULT ReturnNumber(const VARIANT& child, VARIANT* number, LONG AccessibleItem::*member) const;
    HRESULT ListOf(IUnknown* owner, ChildrenOfWindow children, IEnumVARIANT** list) const;
};

}  // namespace

// S_OK if the window exists and `answer`, which is nothing until then, can be given.
HRESULT AccessibleObject::Prepare(VARIANT* answer) const {
    if (answer == nullptr) return E_POINTER;
    *answer = Nothing();
    return IsWindow(window) ? S_OK : CO_E_OBJNOTCONNECTED;
}

// S_OK if the window and this child exist; `item` then describes it.
HRESULT AccessibleObject::Find(const VARIANT& child, AccessibleItem& item) const {
    if (!IsWindow(window)) return CO_E_OBJNOTCONNECTED;
    if (child.vt != VT_I4 || child.lVal < CHILDID_SELF) return E_INVALIDARG;
    return about.describe(about.device, child.lVal, item) ? S_OK : E_INVALIDARG;
}

HRESULT AccessibleObject::ReturnText(const VARIANT& child, BSTR* text, std::wstring AccessibleItem::*member) const {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    return found == S_OK ? Return(text, item.*member) : found;
}

HRESULT AccessibleObject::HasNone(const VARIANT& child, BSTR* text) const {
    if (text == nullptr) return E_POINTER;
    *text = nullptr;
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    return found == S_OK ? DISP_E_MEMBERNOTFOUND : found;
}

HRESULT AccessibleObject::ReturnNumber(const VARIANT& child, VARIANT* number, LONG AccessibleItem::*member) const {
    if (number == nullptr) return E_POINTER;
    *number = Nothing();
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    if (found == S_OK) *number = NumberVariant(item.*member);
    return found;
}

HRESULT AccessibleObject::ListOf(IUnknown* owner, ChildrenOfWindow children, IEnumVARIANT** list) const {
    auto* const made = new (std::nothrow) ChildList(owner, window, about, children);
    *list = made;
    if (made == nullptr) return E_OUTOFMEMORY;
    made->Reset();
    return S_OK;
}

HRESULT AccessibleObject::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(id, __uuidof(IEnumVARIANT))) {
        IEnumVARIANT* list = nullptr;
        const HRESULT made = ListOf(this, about.shown, &list);
        *object = list;
        return made;
    }
    if (!IsEqualIID(id, __uuidof(IUnknown)) && !IsEqualIID(id, __uuidof(IDispatch)) &&
        !IsEqualIID(id, __uuidof(IAccessible))) {
        return E_NOINTERFACE;
    }
    *object = static_cast<IAccessible*>(this);
    AddRef();
    return S_OK;
}

HRESULT AccessibleObject::get_accParent(IDispatch** parent) {
    if (parent == nullptr) return E_POINTER;
    *parent = nullptr;
    if (!IsWindow(window)) return CO_E_OBJNOTCONNECTED;
    const auto wanted = static_cast<DWORD>(OBJID_WINDOW);
    const auto fromWindow = Accessibility().fromWindow;
    if (fromWindow == nullptr) return E_FAIL;
    return fromWindow(window, wanted, __uuidof(IDispatch), reinterpret_cast<void**>(parent));
}

HRESULT AccessibleObject::get_accChildCount(LONG* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    if (!IsWindow(window)) return CO_E_OBJNOTCONNECTED;
    *count = static_cast<LONG>(about.shown(about.device).size());
    return S_OK;
}

// Children are no objects of their own: S_FALSE.
HRESULT AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    if (found != S_OK) return found;
    if (child.lVal != CHILDID_SELF) return S_FALSE;
    *object = this;
    AddRef();
    return S_OK;
}

HRESULT AccessibleObject::get_accName(VARIANT child, BSTR* name) {
    return ReturnText(child, name, &AccessibleItem::name);
}

HRESULT AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
    return ReturnText(child, value, &AccessibleItem::value);
}

HRESULT AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
    return ReturnText(child, description, &AccessibleItem::description);
}

HRESULT AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    return ReturnText(child, action, &AccessibleItem::action);
}

HRESULT AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    return ReturnNumber(child, role, &AccessibleItem::role);
}

HRESULT AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    return ReturnNumber(child, state, &AccessibleItem::state);
}

HRESULT AccessibleObject::get_accFocus(VARIANT* child) {
    if (const HRESULT prepared = Prepare(child); prepared != S_OK) return prepared;
    const int focused = about.focused(about.device);
    if (focused < CHILDID_SELF) return S_FALSE;
    *child = NumberVariant(focused);
    return S_OK;
}

HRESULT AccessibleObject::get_accSelection(VARIANT* children) {
    if (const HRESULT prepared = Prepare(children); prepared != S_OK) return prepared;
    const std::vector<int> selected = about.selected(about.device);
    if (selected.empty()) return S_FALSE;
    if (selected.size() == 1) {
        *children = NumberVariant(selected.front());
        return S_OK;
    }
    IEnumVARIANT* list = nullptr;
    const HRESULT made = ListOf(nullptr, about.selected, &list);
    if (made != S_OK) return made;
    children->vt = VT_UNKNOWN;
    children->punkVal = list;
    return S_OK;
}

HRESULT AccessibleObject::accSelect(LONG flags, VARIANT child) {
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    if (found != S_OK) return found;
    if (flags != SELFLAG_TAKEFOCUS) return DISP_E_MEMBERNOTFOUND;
    about.takeFocus(about.device, child.lVal);
    return S_OK;
}

HRESULT AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (!left || !top || !width || !height) return E_POINTER;
    *left = *top = *width = *height = 0;
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    if (found != S_OK) return found;
    if (IsRectEmpty(&item.place)) return S_FALSE;
    *width = item.place.right - item.place.left;
    *height = item.place.bottom - item.place.top;
    POINT corner{item.place.left, item.place.top};
    ClientToScreen(window, &corner);
    *left = corner.x;
    *top = corner.y;
    return S_OK;
}

// The place of the child that is reached among `shown`; their count if there is none.
static std::size_t PlaceReached(const std::vector<int>& shown, LONG direction, LONG start) {
    const auto count = shown.size();
    if (direction == NAVDIR_FIRSTCHILD) return 0;
    if (direction == NAVDIR_LASTCHILD) return count - 1;  // of none: beyond all
    const auto from = static_cast<std::size_t>(std::ranges::find(shown, start) - shown.begin());
    if (from == count) return count;
    if (direction == NAVDIR_NEXT || direction == NAVDIR_DOWN) return from + 1;
    const bool isBack = direction == NAVDIR_PREVIOUS || direction == NAVDIR_UP;
    return isBack && from > 0 ? from - 1 : count;
}

HRESULT AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (end == nullptr) return E_POINTER;
    *end = Nothing();
    AccessibleItem item;
    const HRESULT found = Find(start, item);
    if (found != S_OK) return found;
    const bool isInward = direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD;
    const bool isFromSelf = start.lVal == CHILDID_SELF;
    if (direction <= NAVDIR_MIN || direction >= NAVDIR_MAX || (isInward && !isFromSelf)) return E_INVALIDARG;
    if (isFromSelf && !isInward) return S_FALSE;  // what is beside the window is the parent's matter
    const std::vector<int> shown = about.shown(about.device);
    const std::size_t reached = PlaceReached(shown, direction, start.lVal);
    if (reached >= shown.size()) return S_FALSE;
    *end = NumberVariant(shown[reached]);
    return S_OK;
}

HRESULT AccessibleObject::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (const HRESULT prepared = Prepare(child); prepared != S_OK) return prepared;
    POINT point{left, top};
    RECT client{};
    GetClientRect(window, &client);
    ScreenToClient(window, &point);
    if (!PtInRect(&client, point)) return S_FALSE;
    *child = NumberVariant(about.childAt(about.device, static_cast<int>(point.x), static_cast<int>(point.y)));
    return S_OK;
}

HRESULT AccessibleObject::accDoDefaultAction(VARIANT child) {
    AccessibleItem item;
    const HRESULT found = Find(child, item);
    if (found != S_OK) return found;
    if (item.action.empty()) return DISP_E_MEMBERNOTFOUND;
    about.act(about.device, child.lVal);
    return S_OK;
}

// COM is begun when a screen reader asks, because the program should start without it. It ends with the program.
static bool HasCom() {
    static const HRESULT begun = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    return SUCCEEDED(begun) || begun == RPC_E_CHANGED_MODE;
}

void NameForScreenReaders(HWND control, const wchar_t* name) {
    IAccPropServices* services = nullptr;
    if (!HasCom() || FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                             reinterpret_cast<void**>(&services)))) {
        return;
    }
    services->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME, name);
    services->Release();
}

LRESULT AnswerGetObject(HWND window, const AccessibleWindow& about, WPARAM wParam, LPARAM lParam) {
    if (static_cast<LONG>(lParam) != OBJID_CLIENT) return DefWindowProcA(window, WM_GETOBJECT, wParam, lParam);
    const auto answerWith = Accessibility().answerWith;
    auto* const object =
        answerWith != nullptr && HasCom() ? new (std::nothrow) AccessibleObject(window, about) : nullptr;
    if (object == nullptr) return 0;
    const LRESULT answer = answerWith(__uuidof(IAccessible), wParam, object);
    object->Release();
    return answer;
}
