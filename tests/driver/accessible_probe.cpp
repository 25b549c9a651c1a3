#include "tests/driver/accessible_probe.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include <oleacc.h>

namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};
template <typename Interface>
using Owned = std::unique_ptr<Interface, ReleaseObject>;

}  // namespace

static Owned<IAccessible> ObjectOf(HWND window, HRESULT& result) {
    IAccessible* object = nullptr;
    result = AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                        reinterpret_cast<void**>(&object));
    return Owned<IAccessible>(object);
}

static VARIANT Number(LONG number) {
    VARIANT variant{};
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

static int NumberIn(const VARIANT& variant) {
    return variant.vt == VT_I4 ? static_cast<int>(variant.lVal) : -1;
}

template <std::size_t kSize>
static void TakeText(BSTR from, char (&to)[kSize]) {
    if (from == nullptr) return;
    WideCharToMultiByte(CP_ACP, 0, from, -1, to, kSize, nullptr, nullptr);
    to[kSize - 1] = '\0';
    SysFreeString(from);
}

static HRESULT Tell(IAccessible& object, int number, ToldChild& told) {
    const VARIANT child = Number(number);
    BSTR name = nullptr, description = nullptr, value = nullptr, action = nullptr;
    VARIANT role{}, state{}, hit{}, next{};
    told.child = number;
    const HRESULT result = object.get_accName(child, &name);
    object.get_accDescription(child, &description);
    object.get_accValue(child, &value);
    object.get_accDefaultAction(child, &action);
    TakeText(name, told.name);
    TakeText(description, told.description);
    TakeText(value, told.value);
    TakeText(action, told.action);
    if (object.get_accRole(child, &role) == S_OK) told.role = NumberIn(role);
    if (object.get_accState(child, &state) == S_OK) told.state = static_cast<unsigned>(NumberIn(state));
    LONG left = 0, top = 0, width = 0, height = 0;
    told.placed = object.accLocation(&left, &top, &width, &height, child);
    told.place = {left, top, left + width, top + height};
    if (told.placed == S_OK && object.accHitTest(left + width / 2, top + height / 2, &hit) == S_OK)
        told.hit = NumberIn(hit);
    if (object.accNavigate(NAVDIR_NEXT, child, &next) == S_OK) told.next = NumberIn(next);
    return result;
}

// Copies the numbers that a list gives, and returns how many.
static int ListedIn(IUnknown* source, int (&numbers)[kMostToldChildren]) {
    IEnumVARIANT* list = nullptr;
    if (FAILED(source->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(&list)))) return -1;
    const Owned<IEnumVARIANT> owned(list);
    VARIANT items[kMostToldChildren];
    ULONG count = 0;
    list->Reset();
    if (FAILED(list->Next(kMostToldChildren, items, &count))) return -1;
    std::transform(items, items + count, numbers, NumberIn);
    return static_cast<int>(count);
}

static void TellSelection(IAccessible& object, ToldWindow& told) {
    VARIANT selected{};
    if (FAILED(object.get_accSelection(&selected))) return;
    told.selectedCount = selected.vt == VT_I4 ? 1 : 0;
    told.selected[0] = NumberIn(selected);
    if (selected.vt != VT_UNKNOWN) return;
    told.selectedCount = ListedIn(selected.punkVal, told.selected);
    selected.punkVal->Release();
}

void AskWindow(HWND window, ToldWindow& told) {
    const Owned<IAccessible> object = ObjectOf(window, told.result);
    if (!object) return;
    Tell(*object, CHILDID_SELF, told.self);
    LONG count = 0;
    if (object->get_accChildCount(&count) == S_OK) told.count = static_cast<int>(count);
    int numbers[kMostToldChildren] = {};
    told.listed = ListedIn(object.get(), numbers);
    for (int at = 0; at < told.listed; ++at) Tell(*object, numbers[at], told.children[at]);
    VARIANT focused{};
    if (object->get_accFocus(&focused) == S_OK) told.focused = NumberIn(focused);
    TellSelection(*object, told);
}

HRESULT AskChild(HWND window, int child, ToldChild& told) {
    HRESULT result = S_OK;
    const Owned<IAccessible> object = ObjectOf(window, result);
    return object ? Tell(*object, child, told) : result;
}

HRESULT ActOn(HWND window, int child) {
    HRESULT result = S_OK;
    const Owned<IAccessible> object = ObjectOf(window, result);
    return object ? object->accDoDefaultAction(Number(child)) : result;
}

HRESULT GiveFocusTo(HWND window, int child) {
    HRESULT result = S_OK;
    const Owned<IAccessible> object = ObjectOf(window, result);
    return object ? object->accSelect(SELFLAG_TAKEFOCUS, Number(child)) : result;
}

static ToldEvents heard;

static void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
    if (object != OBJID_CLIENT || heard.count == kMostToldEvents) return;
    heard.events[heard.count++] = {event, window, object, child};
}

void HearEvents() {
    HMODULE library = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<const char*>(&heard), &library);
    static const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_REORDER, EVENT_OBJECT_CONTENTSCROLLED, library, Hear,
                                                      GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    heard.count = hook != nullptr ? 0 : -1;
}

void TakeEvents(ToldEvents& told) {
    std::memcpy(&told, &heard, sizeof told);
    heard.count = 0;
}
