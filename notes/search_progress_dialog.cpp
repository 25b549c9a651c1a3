#include "notes/search_progress_dialog.h"

#include <algorithm>

#include "resources/ids.h"
#include "win32/screen.h"

static constexpr int kBarSteps = 200;         // about the bar's width in pixels
static constexpr ULONGLONG kUnseenFor = 150;  // milliseconds: avoids flicker when a search ends quickly

static INT_PTR CALLBACK ProgressProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

void CreateSearchProgress(SearchProgressBox& box, HWND owner) {
    if (box.dialog != nullptr) return;
    box.dialog = CreateDialogParamA(GetModuleHandleA(nullptr), "SEARCHPROGRESS", owner, ProgressProcedure, 0);
    box.bar = GetDlgItem(box.dialog, IDC_SEARCH_PROGRESS);
}

void BeginSearchProgress(SearchProgressBox& box, HWND owner, const SearchRange& range) {
    CreateSearchProgress(box, owner);
    PlaceDialog(box.dialog);
    box.barStep = std::max(1, (range.EndVerse - range.StartVerse) / kBarSteps);
    box.shownVerse = range.StartVerse;
    box.startedAt = GetTickCount64();
    SendMessageA(box.bar, PBM_SETRANGE32, static_cast<WPARAM>(range.StartVerse), range.EndVerse);
    SendMessageA(box.bar, PBM_SETPOS, static_cast<WPARAM>(range.StartVerse), 0);
}

static void Show(const SearchProgressBox& box) {
    if (!IsWindowVisible(box.dialog)) ShowWindow(box.dialog, SW_SHOWNA);
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

SearchProgress ProgressOf(SearchProgressBox& box) {
    return {&box, OnReached};
}

void ShowSearchEnd(SearchProgressBox& box, int verse) {
    MoveBar(box, verse);
    Show(box);
}

void HideSearchProgress(const SearchProgressBox& box) {
    ShowWindow(box.dialog, SW_HIDE);
}
