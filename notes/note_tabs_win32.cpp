#include "notes/note_tabs_win32.h"

#include "notes/note_files_win32.h"
#include "notes/note_recovery.h"
#include "win32/controls.h"
#include "win32/files.h"

NoteTabs theNoteTabs;

static constexpr char kMendedCaption[] = "Note Sets";
static constexpr char kNothingCanBeKept[] =
    "No files can be created in this folder, in the folder of the program, or in your folder for application data. You "
    "can read, but notes and settings cannot be kept.";

static TCITEMA TabItem(const std::string& label) {
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>(label.c_str());
    return item;
}

static void InsertTab(const NoteSet& set) {
    std::vector<std::string>& labels = theNoteTabs.labels;
    labels.push_back(NoteSetName(set));
    const TCITEMA item = TabItem(labels.back());
    SendMessageA(theNoteTabs.window, TCM_INSERTITEMA, labels.size() - 1, reinterpret_cast<LPARAM>(&item));
}

void SelectNoteTab(int set) {
    TabCtrl_SetCurSel(theNoteTabs.window, set);
}

void ShowNoteTabs() {
    TabCtrl_DeleteAllItems(theNoteTabs.window);
    theNoteTabs.labels.clear();
    for (const NoteSet& set : theNoteSets.sets) InsertTab(set);
    SelectNoteTab(theNoteSets.currentSet);
}

void LoadNoteSets() {
    const OpenedSets opened = OpenNoteSets(TheNoteFiles(), theNoteSets, NoteTimeNow());
    ShowNoteTabs();
    const HWND frame = FrameOf(theNoteTabs.window);
    if (!opened.created) Complain(frame, kCannotCreateNotes);
    const bool isReadOnly = !CanWriteWorkingFolder();
    std::string report = opened.report;
    if (isReadOnly) report.insert(0, report.empty() ? kNothingCanBeKept : kNothingCanBeKept + std::string("\n\n"));
    if (!report.empty()) {
        const UINT icon = isReadOnly || opened.hasDamaged ? MB_ICONWARNING : MB_ICONINFORMATION;
        MessageBoxA(frame, report.c_str(), kMendedCaption, MB_OK | icon | MB_SYSTEMMODAL);  // above the splash
    }
}

void AddLastNoteTab() {
    InsertTab(theNoteSets.sets.back());
}

// Skips unchanged labels, because setting the same text would still redraw the tab.
static bool Label(std::size_t tab, const std::string& label) {
    if (theNoteTabs.labels[tab] == label) return false;
    theNoteTabs.labels[tab] = label;
    const TCITEMA item = TabItem(label);
    SendMessageA(theNoteTabs.window, TCM_SETITEMA, tab, reinterpret_cast<LPARAM>(&item));
    return true;
}

bool MarkNoteTabs(const MarkedPlace& place) {
    if (!NeedsNewMarks(theNoteTabs.marked, place)) return false;
    theNoteTabs.marked = place;
    const int rowsBefore = TabCtrl_GetRowCount(theNoteTabs.window);
    bool changed = false;
    for (std::size_t tab = 0; tab < theNoteTabs.labels.size(); ++tab) {
        changed |= Label(tab, MarkedLabel(TheNoteFiles(), theNoteSets.sets[tab], place));
    }
    if (changed) InvalidateRect(theNoteTabs.window, nullptr, FALSE);
    return TabCtrl_GetRowCount(theNoteTabs.window) != rowsBefore;
}
