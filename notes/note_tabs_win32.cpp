#include "notes/note_tabs_win32.h"

#include "notes/note_recovery.h"
#include "notes/notes_window.h"
#include "win32/controls.h"

static constexpr char kMendedCaption[] = "Note Sets";

static TCITEMA TabItem(const std::string& label) {
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>(label.c_str());
    return item;
}

static void InsertTab(const NoteSet& set) {
    std::vector<std::string>& labels = theNotes.tabLabels;
    labels.push_back(NoteSetName(set));
    const TCITEMA item = TabItem(labels.back());
    SendMessageA(theNotes.tabs, TCM_INSERTITEMA, labels.size() - 1, reinterpret_cast<LPARAM>(&item));
}

void ShowNoteTabs() {
    TabCtrl_DeleteAllItems(theNotes.tabs);
    theNotes.tabLabels.clear();
    for (const NoteSet& set : theNotes.sets.sets) InsertTab(set);
    TabCtrl_SetCurSel(theNotes.tabs, theNotes.sets.currentSet);
}

void LoadNoteSets() {
    const OpenedSets opened = OpenNoteSets(TheNoteFiles(), theNotes.sets);
    ShowNoteTabs();
    const HWND frame = FrameOf(theNotes.tabs);
    if (!opened.created) Complain(frame, kCannotCreateNotes);
    if (!opened.report.empty()) {
        const UINT icon = opened.hasDamaged ? MB_ICONWARNING : MB_ICONINFORMATION;
        MessageBoxA(frame, opened.report.c_str(), kMendedCaption, MB_OK | icon | MB_SYSTEMMODAL);  // before the splash
    }
}

void AddLastNoteTab() {
    InsertTab(theNotes.sets.sets.back());
}

// A tab that is given the text that it has would be drawn again all the same.
static bool Label(std::size_t tab, const std::string& label) {
    if (theNotes.tabLabels[tab] == label) return false;
    theNotes.tabLabels[tab] = label;
    const TCITEMA item = TabItem(label);
    SendMessageA(theNotes.tabs, TCM_SETITEMA, tab, reinterpret_cast<LPARAM>(&item));
    return true;
}

bool MarkNoteTabs(const MarkedPlace& place) {
    if (!NeedsNewMarks(theNotes.marked, place)) return false;
    theNotes.marked = place;
    const int rowsBefore = TabCtrl_GetRowCount(theNotes.tabs);
    bool changed = false;
    for (std::size_t tab = 0; tab < theNotes.tabLabels.size(); ++tab) {
        changed |= Label(tab, MarkedLabel(TheNoteFiles(), theNotes.sets.sets[tab], place));
    }
    if (changed) InvalidateRect(theNotes.tabs, nullptr, FALSE);
    return TabCtrl_GetRowCount(theNotes.tabs) != rowsBefore;
}
