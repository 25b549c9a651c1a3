#include "verselist/reference_list_win32.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "typeset/label_text.h"
#include "win32/code_page.h"
#include "win32/dpi.h"
#include "win32/panes.h"

// Removing or inserting one line moves all behind it. More of them take longer than a box of 30,000 lines does to fill.
static constexpr std::size_t kFewLines = 64;

LRESULT PassToBox(const ReferenceList& list, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcA(list.procedure, list.window, message, wParam, lParam);
}

static int Ask(const ReferenceList& list, UINT message) {
    return static_cast<int>(PassToBox(list, message));
}

static void SendText(const ReferenceList& list, UINT message, int line, const wchar_t* text) {
    CallWindowProcW(list.wideProcedure, list.window, message, static_cast<WPARAM>(line),
                    reinterpret_cast<LPARAM>(text));
}

// Lines are sent to the list box's own window procedure, as wide text, which is what the box stores. Going through the
// procedure of the program with a conversion takes half as long again, a noticeable delay with the 24,091 lines of
// "the". References are plain ASCII; only sets may have other letters. The procedure was obtained with
// GetWindowLongPtrW, so the system converts the text if the box expects 8-bit text.
static void SendLine(const ReferenceList& list, UINT message, const VerseList& entries, int entry) {
    LabelText text;
    const int verse = entries.ListEntries[static_cast<std::size_t>(entry)];
    AppendReference(text, RecordOf(theScripture.records, verse), list.form);
    if (const EntrySets::Set* set = SetOfEntry(entries, entry))
        return SendText(list, message, entry, (WideOfCodePage(set->label) + WideOfCodePage(TextOf(text))).c_str());
    std::array<wchar_t, std::tuple_size_v<decltype(text.bytes)> + 1> wide{};
    std::ranges::copy(TextOf(text), wide.begin());
    SendText(list, message, entry, wide.data());
}

void FillLines(ReferenceList& list, const VerseList& entries) {
    static constexpr WPARAM kBytesALine = 32;
    if (!std::exchange(list.awaitsLines, false)) return;
    PassToBox(list, WM_SETREDRAW, FALSE);
    PassToBox(list, LB_RESETCONTENT);
    const auto count = static_cast<WPARAM>(ListCount(entries));
    PassToBox(list, LB_INITSTORAGE, count, static_cast<LPARAM>(count * kBytesALine));
    for (int entry = 0; entry < ListCount(entries); ++entry) SendLine(list, LB_ADDSTRING, entries, entry);
    PassToBox(list, WM_SETREDRAW, TRUE);
    InvalidateRect(list.window, nullptr, TRUE);
}

void RemoveLines(ReferenceList& list, std::span<const int> ascending) {
    list.awaitsLines = list.awaitsLines || ascending.size() > kFewLines;
    if (list.awaitsLines) return;
    for (std::size_t left = ascending.size(); left > 0; --left)
        PassToBox(list, LB_DELETESTRING, static_cast<WPARAM>(ascending[left - 1]));
}

void InsertLines(ReferenceList& list, const VerseList& entries, std::span<const DeletedEntry> restored) {
    list.awaitsLines = list.awaitsLines || restored.size() > kFewLines;
    if (list.awaitsLines) return;
    for (const DeletedEntry& entry : restored) SendLine(list, LB_INSERTSTRING, entries, entry.place);
}

bool HasMarkedLines(const ReferenceList& list) {
    return Ask(list, LB_GETSELCOUNT) > 0;
}

std::vector<int> MarkedLines(const ReferenceList& list) {
    std::vector<int> lines(static_cast<std::size_t>(std::max(0, Ask(list, LB_GETSELCOUNT))));
    PassToBox(list, LB_GETSELITEMS, lines.size(), reinterpret_cast<LPARAM>(lines.data()));
    return lines;
}

int CaretLine(const ReferenceList& list) {
    return Ask(list, LB_GETCARETINDEX);
}

int TopLine(const ReferenceList& list) {
    return Ask(list, LB_GETTOPINDEX);
}

void ShowLine(const ReferenceList& list, int line, int top) {
    const int last = Ask(list, LB_GETCOUNT) - 1;
    if (last < 0) return;
    PassToBox(list, LB_SETTOPINDEX, static_cast<WPARAM>(std::clamp(top, 0, last)));
    PassToBox(list, LB_SETCARETINDEX, static_cast<WPARAM>(std::clamp(line, 0, last)));
}

void CreateReferenceList(ReferenceList& list, HWND tabs, WNDPROC procedure) {
    list.window =
        CreateChild(tabs, "LISTBOX", "Reference List",
                    WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_MULTIPLESEL | LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT,
                    WS_EX_CLIENTEDGE, IDC_REFERENCE_LIST);
    ScaleReferenceList(list);
    list.wideProcedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(list.window, GWLP_WNDPROC));
    list.procedure = Subclass(list.window, procedure);
}

void ScaleReferenceList(const ReferenceList& list) {
    SendMessageA(list.window, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont(list.window)), TRUE);
}
