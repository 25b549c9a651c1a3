#include "pane/spoken_pane_win32.h"

#include <algorithm>
#include <utility>

#include "pane/selection_win32.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"

static const SpokenPane& PaneOf(const void* device) {
    return *static_cast<const SpokenPane*>(device);
}

// Children have numbers from 1 on.
static int ItemOf(int child) {
    return child - 1;
}
static int ChildOf(int item) {
    return item + 1;
}

static RECT ClientOf(const SpokenPane& pane) {
    RECT client{};
    GetClientRect(pane.window, &client);
    return client;
}

static bool HasFocus(const SpokenPane& pane) {
    return GetFocus() == pane.window;
}

// The whole text is ASCII but for the paragraph mark, whose byte is the same character in UTF-16.
static std::wstring Widened(const std::string& text) {
    std::wstring wide(text.size(), L'\0');
    std::ranges::transform(text, wide.begin(), [](char letter) { return wchar_t{static_cast<unsigned char>(letter)}; });
    return wide;
}

// ---- Answers --------------------------------------------------------------------------------------------------------

static SpokenItems ItemsOf(const SpokenPane& pane) {
    return pane.count() > 0 ? pane.shown() : SpokenItems{};
}

static bool IsSelected(const SpokenPane& pane, int item) {
    if (theSelection.SelectionOwner != pane.owner) return false;
    const OrderedSelection selected = Ordered(theSelection);
    return item >= selected.start.place && item <= selected.end.place;
}

static LONG StateOfWindow(const SpokenPane& pane) {
    const LONG focused = HasFocus(pane) ? STATE_SYSTEM_FOCUSED : 0;
    const LONG hidden = IsWindowVisible(pane.window) ? 0 : STATE_SYSTEM_INVISIBLE;
    return STATE_SYSTEM_READONLY | STATE_SYSTEM_FOCUSABLE | focused | hidden;
}

static LONG StateOfItem(const SpokenPane& pane, int item, bool isShown) {
    LONG state = STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
    if (pane.itemRole == ROLE_SYSTEM_STATICTEXT) state |= STATE_SYSTEM_READONLY;
    if (HasFocus(pane) && item == pane.current()) state |= STATE_SYSTEM_FOCUSED;
    if (IsSelected(pane, item)) state |= STATE_SYSTEM_SELECTED;
    if (!isShown) state |= STATE_SYSTEM_OFFSCREEN;
    if (!IsWindowVisible(pane.window)) state |= STATE_SYSTEM_INVISIBLE;
    return state;
}

static std::string ReferenceOf(const SpokenPane& pane, int item) {
    return ReferenceText(theScripture.records, pane.verseOf(item), BookForm::kName);
}

static void DescribeWindow(const SpokenPane& pane, AccessibleItem& item) {
    item.role = ROLE_SYSTEM_DOCUMENT;
    item.state = StateOfWindow(pane);
    item.name = Widened(pane.name());
    if (pane.count() > 0) item.value = Widened(ReferenceOf(pane, pane.top()));
    item.place = ClientOf(pane);
}

static void DescribeItem(const SpokenPane& pane, int number, AccessibleItem& item) {
    const SpokenItems shown = ItemsOf(pane);
    const SpokenItem* const found = FindItem(shown, number);
    const SpokenWords words = pane.words(number);
    item.role = pane.itemRole;
    item.state = StateOfItem(pane, number, found != nullptr);
    item.name = Widened(SpokenName(ReferenceOf(pane, number), words));
    item.description = Widened(SpokenDescription(words));
    if (pane.action) item.action = pane.action;
    if (found == nullptr) return;
    const SpokenPlace place = PlaceOf(shown, *found);
    item.place = {place.left, place.top, place.right, place.bottom};
}

static bool Describe(const void* device, int child, AccessibleItem& item) {
    const SpokenPane& pane = PaneOf(device);
    if (child == CHILDID_SELF) return DescribeWindow(pane, item), true;
    const bool exists = ItemOf(child) < pane.count();
    if (exists) DescribeItem(pane, ItemOf(child), item);
    return exists;
}

static std::vector<int> Shown(const void* device) {
    std::vector<int> children;
    for (const SpokenItem& item : ItemsOf(PaneOf(device)).items) children.push_back(ChildOf(item.item));
    return children;
}

static std::vector<int> Selected(const void* device) {
    std::vector<int> children = Shown(device);
    std::erase_if(children, [device](int child) { return !IsSelected(PaneOf(device), ItemOf(child)); });
    return children;
}

static int Focused(const void* device) {
    const SpokenPane& pane = PaneOf(device);
    if (!HasFocus(pane)) return -1;
    return pane.count() > 0 ? ChildOf(pane.current()) : CHILDID_SELF;
}

static int ChildAt(const void* device, int x, int y) {
    const int item = ItemAt(ItemsOf(PaneOf(device)), x, y);
    return item < 0 ? CHILDID_SELF : ChildOf(item);
}

// A selection would decide which item is the current one.
static void DropOwnSelection(const SpokenPane& pane) {
    if (theSelection.SelectionOwner != pane.owner) return;
    DropSelection();
    SendCommand(FrameOf(pane.window), IDM_REFRESH);
}

static void TakeFocus(const void* device, int child) {
    const SpokenPane& pane = PaneOf(device);
    if (!HasFocus(pane)) SetFocus(pane.window);
    if (child == CHILDID_SELF) return;
    DropOwnSelection(pane);
    pane.bringUp(ItemOf(child));
}

static void Act(const void* device, int child) {
    TakeFocus(device, child);
    PaneOf(device).act();
}

LRESULT AnswerScreenReader(const SpokenPane& pane, WPARAM wParam, LPARAM lParam) {
    const AccessibleWindow about{.device = &pane,
                                 .describe = Describe,
                                 .shown = Shown,
                                 .selected = Selected,
                                 .focused = Focused,
                                 .childAt = ChildAt,
                                 .takeFocus = TakeFocus,
                                 .act = Act};
    return AnswerGetObject(pane.window, about, wParam, lParam);
}

// ---- Events ---------------------------------------------------------------------------------------------------------

static void Tell(const SpokenPane& pane, DWORD event, int child = CHILDID_SELF) {
    NotifyWinEvent(event, pane.window, OBJID_CLIENT, child);
}

static void TellItems(const SpokenPane& pane) {
    const std::string name = pane.name();
    const int top = pane.count() > 0 ? pane.top() : -1;
    const bool isReplaced = std::exchange(pane.told.isStale, false);
    const bool isScrolled = std::exchange(pane.told.top, top) != top;
    if (isReplaced || isScrolled) Tell(pane, EVENT_OBJECT_REORDER);
    if (isScrolled && !isReplaced) Tell(pane, EVENT_OBJECT_CONTENTSCROLLED);
    if (std::exchange(pane.told.name, name) != name) Tell(pane, EVENT_OBJECT_NAMECHANGE);
    if (isReplaced) pane.told.current = -1;  // the same number is another item
}

static void TellSelection(const SpokenPane& pane) {
    const bool owns = theSelection.SelectionOwner == pane.owner;
    const OrderedSelection selected = owns ? Ordered(theSelection) : OrderedSelection{};
    if (std::exchange(pane.told.selection, selected) == selected) return;
    const bool isOneItem = owns && selected.start.place == selected.end.place;
    if (isOneItem) return Tell(pane, EVENT_OBJECT_SELECTION, ChildOf(selected.start.place));
    Tell(pane, EVENT_OBJECT_SELECTIONWITHIN);
}

static void TellFocus(const SpokenPane& pane) {
    const int current = HasFocus(pane) && pane.count() > 0 ? pane.current() : -1;
    if (std::exchange(pane.told.current, current) == current || current == -1) return;
    Tell(pane, EVENT_OBJECT_FOCUS, ChildOf(current));
}

void TellChanges(const SpokenPane& pane) {
    TellItems(pane);
    TellSelection(pane);
    TellFocus(pane);
}
