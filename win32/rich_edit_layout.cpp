#include "win32/rich_edit_layout.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <usp10.h>

#include "win32/long_lines.h"
#include "win32/wine.h"

// Wine's control asks the system for the items of a line before each layout, and no setting, format or message changes
// what it does with them. So its import of that procedure is replaced by one that asks the system and answers with the
// items for a fast layout.

namespace {

using ItemizeProcedure = HRESULT(WINAPI*)(const WCHAR* text, int length, int most, const SCRIPT_CONTROL* control,
                                          const SCRIPT_STATE* state, SCRIPT_ITEM* items, int* count);

// The items of the line that was asked for last. The control asks again with more room until there is enough of it.
struct LongLine {
    std::wstring text;
    std::vector<LineItem> items;
};

}  // namespace

static_assert(sizeof(SCRIPT_ANALYSIS) == sizeof(LineItem::kind));

static ItemizeProcedure theItemize;  // the system's
static LongLine theLongLine;

// ---- Items ----------------------------------------------------------------------------------------------------------

static LineItem ItemOf(const SCRIPT_ITEM& item) {
    LineItem result{static_cast<std::size_t>(item.iCharPos)};
    std::memcpy(&result.kind, &item.a, sizeof result.kind);
    return result;
}

static SCRIPT_ITEM ScriptItemOf(const LineItem& item) {
    SCRIPT_ITEM result{static_cast<int>(item.begin), {}};
    std::memcpy(&result.a, &item.kind, sizeof result.a);
    return result;
}

// With `control` and `state` the system searches the line for a letter before each digit, to learn its direction, which
// in a line of digits takes a time that grows with the square of its length. Without them it does not, and the items
// are the same if all characters are written from left to right.
static std::vector<LineItem> ItemsOfSystem(std::wstring_view text, const SCRIPT_CONTROL* control,
                                           const SCRIPT_STATE* state) {
    std::vector<SCRIPT_ITEM> items(text.size() + 1);  // one for each character, and one that tells the end
    const auto length = static_cast<int>(text.size()), most = static_cast<int>(items.size());
    int count = 0;
    const HRESULT result = theItemize(text.data(), length, most, control, state, items.data(), &count);
    if (FAILED(result)) return {};
    std::vector<LineItem> all;
    std::transform(items.begin(), items.begin() + count, std::back_inserter(all), ItemOf);
    return all;
}

static std::uint32_t KindOfLetters() {
    static const std::vector<LineItem> letter = ItemsOfSystem(L"x", nullptr, nullptr);
    return letter.empty() ? 0 : letter.front().kind;
}

static void Itemize(std::wstring_view text, const SCRIPT_CONTROL* control, const SCRIPT_STATE* state) {
    if (theLongLine.text == text) return;
    const bool isPlain = IsLeftToRight(text) && state != nullptr && state->uBidiLevel == 0;
    const std::vector<LineItem> items =
        isPlain ? ItemsOfSystem(text, nullptr, nullptr) : ItemsOfSystem(text, control, state);
    theLongLine = {std::wstring(text), ItemsForLayout(text, items, isPlain, KindOfLetters())};
}

static HRESULT WINAPI ItemizeInPieces(const WCHAR* text, int length, int most, const SCRIPT_CONTROL* control,
                                      const SCRIPT_STATE* state, SCRIPT_ITEM* items, int* count) {
    if (text == nullptr || length <= static_cast<int>(kLongLine))
        return theItemize(text, length, most, control, state, items, count);
    Itemize({text, static_cast<std::size_t>(length)}, control, state);
    const auto needed = static_cast<int>(theLongLine.items.size());
    if (needed == 0) return theItemize(text, length, most, control, state, items, count);
    if (needed >= most) return E_OUTOFMEMORY;
    std::transform(theLongLine.items.begin(), theLongLine.items.end(), items, ScriptItemOf);
    items[needed] = {length, {}};
    *count = needed;
    return S_OK;
}

// ---- The import -----------------------------------------------------------------------------------------------------

template <typename Part>
static Part* PartAt(HMODULE library, DWORD offset) {
    return reinterpret_cast<Part*>(reinterpret_cast<char*>(library) + offset);
}

static const IMAGE_IMPORT_DESCRIPTOR* ImportsOf(HMODULE library) {
    const auto* start = PartAt<IMAGE_DOS_HEADER>(library, 0);
    const auto* headers = PartAt<IMAGE_NT_HEADERS>(library, static_cast<DWORD>(start->e_lfanew));
    const IMAGE_DATA_DIRECTORY& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return place.Size == 0 ? nullptr : PartAt<IMAGE_IMPORT_DESCRIPTOR>(library, place.VirtualAddress);
}

// Where `library` keeps the address of the procedure that it imports by that name; null if it does not import it.
static ULONG_PTR* ImportIn(HMODULE library, const IMAGE_IMPORT_DESCRIPTOR& from, std::string_view procedure) {
    const auto* name = PartAt<IMAGE_THUNK_DATA>(library, from.OriginalFirstThunk);
    auto* address = PartAt<IMAGE_THUNK_DATA>(library, from.FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
        if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
        const auto* imported = PartAt<IMAGE_IMPORT_BY_NAME>(library, static_cast<DWORD>(name->u1.AddressOfData));
        if (procedure == reinterpret_cast<const char*>(imported->Name))
            return reinterpret_cast<ULONG_PTR*>(&address->u1.Function);
    }
    return nullptr;
}

static ULONG_PTR* ImportOf(HMODULE library, const char* from, std::string_view procedure) {
    const IMAGE_IMPORT_DESCRIPTOR* each = ImportsOf(library);
    for (; each != nullptr && each->Name != 0 && each->OriginalFirstThunk != 0; ++each)
        if (lstrcmpiA(PartAt<char>(library, each->Name), from) == 0) return ImportIn(library, *each, procedure);
    return nullptr;
}

static void Replace(ULONG_PTR& import, ItemizeProcedure by) {
    DWORD access = 0;
    if (!VirtualProtect(&import, sizeof import, PAGE_READWRITE, &access)) return;
    theItemize = reinterpret_cast<ItemizeProcedure>(import);
    import = reinterpret_cast<ULONG_PTR>(by);
    VirtualProtect(&import, sizeof import, access, &access);
}

void LayOutLongLinesInPieces() {
    const HMODULE library = IsWine() ? GetModuleHandleA("riched20.dll") : nullptr;
    ULONG_PTR* const import = library == nullptr ? nullptr : ImportOf(library, "usp10.dll", "ScriptItemize");
    if (import != nullptr) Replace(*import, ItemizeInPieces);
}
