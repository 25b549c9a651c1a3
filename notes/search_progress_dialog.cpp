#include "notes/search_progress_dialog.h"

#include <algorithm>

#include "resources/ids.h"
#include "win32/screen.h"

static constexpr int kBarSteps = 200;         // about the bar's width in pixels
static constexpr ULONGLONG kUnseenFor = 150;  // milliseconds: avoids flicker when a search ends quickly

static INT_PTR CALLBACK ProgressProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrA(dialog, GWLP_USERDATA, lParam);
    if (message != WM_COMMAND) return FALSE;
    auto* box = reinterpret_cast<SearchProgressBox*>(GetWindowLongPtrA(dialog, GWLP_USERDATA));
    const int control = LOWORD(wParam);
    if (box != nullptr && (control == IDOK || control == IDCANCEL)) box->isStopped = true;
    return TRUE;
}

void CreateSearchProgress(SearchProgressBox& box, HWND owner) {
    if (box.dialog != nullptr) return;
    const char* name = box.canStop ? "LISTPROGRESS" : "SEARCHPROGRESS";
    box.dialog =
        CreateDialogParamA(GetModuleHandleA(nullptr), name, owner, ProgressProcedure, reinterpret_cast<LPARAM>(&box));
    if (box.title != nullptr) SetWindowTextA(box.dialog, box.title);
    box.bar = GetDlgItem(box.dialog, IDC_SEARCH_PROGRESS);
}

void BeginSearchProgress(SearchProgressBox& box, HWND owner, const SearchRange& range) {
    CreateSearchProgress(box, owner);
    PlaceDialog(box.dialog);
    box.isStopped = false;
    box.barStep = std::max(1, (range.EndVerse - range.StartVerse) / kBarSteps);
    box.shownVerse = range.StartVerse;
    box.startedAt = GetTickCount64();
    SendMessageA(box.bar, PBM_SETRANGE32, static_cast<WPARAM>(range.StartVerse), range.EndVerse);
    SendMessageA(box.bar, PBM_SETPOS, static_cast<WPARAM>(range.StartVerse), 0);
}

static void Show(const SearchProgressBox& box) {
    if (!IsWindowVisible(box.dialog)) ShowWindow(box.dialog, box.canStop ? SW_SHOW : SW_SHOWNA);
    UpdateWindow(box.dialog);
    UpdateWindow(box.bar);
}

static void MoveBar(SearchProgressBox& box, int verse) {
    box.shownVerse = verse;
    SendMessageA(box.bar, PBM_SETPOS, static_cast<WPARAM>(verse), 0);
}

static void OnReached(void* device, int verse) {
    auto& box = *static_cast<SearchProgressBox*>(device);
    if (verse - box.shownVerse < box.barStep) return;
    MoveBar(box, verse);
    if (GetTickCount64() - box.startedAt >= kUnseenFor) Show(box);
}

// The other windows wait: what they did could change the sets that are searched.
static bool GoesOn(void* device) {
    const auto& box = *static_cast<const SearchProgressBox*>(device);
    MSG message;
    while (PeekMessageA(&message, box.dialog, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageA(box.dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return !box.isStopped;
}

SearchProgress ProgressOf(SearchProgressBox& box) {
    return {&box, OnReached, box.canStop ? GoesOn : nullptr};
}

void ShowSearchEnd(SearchProgressBox& box, int verse) {
    MoveBar(box, verse);
    Show(box);
}

// The owner is activated before, because the system might activate another program.
void HideSearchProgress(const SearchProgressBox& box) {
    if (GetActiveWindow() == box.dialog) SetActiveWindow(GetWindow(box.dialog, GW_OWNER));
    ShowWindow(box.dialog, SW_HIDE);
}
