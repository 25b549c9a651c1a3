#include "notes/note_tabs_win32.h"

#include <algorithm>
#include <utility>

#include "notes/note_files_win32.h"
#include "notes/note_recovery.h"
#include "pane/status_bar_win32.h"
#include "win32/controls.h"
#include "win32/files.h"
#include "win32/thread_stack.h"

NoteTabs theNoteTabs;

namespace {

// The sets while a thread opens them. The window may already get messages that need the program's sets.
struct SetsInOpening {
    HANDLE thread = nullptr;
    NoteSets sets;
    std::vector<std::string> knownDamaged;
    OpenedSets opened;
};

}  // namespace

static SetsInOpening theOpening;

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

static void InsertTab(const std::string& label) {
    std::vector<std::string>& labels = theNoteTabs.labels;
    labels.push_back(label);
    const TCITEMA item = TabItem(labels.back());
    SendMessageA(theNoteTabs.window, TCM_INSERTITEMA, labels.size() - 1, reinterpret_cast<LPARAM>(&item));
}

void SelectNoteTab(int set) {
    TabCtrl_SetCurSel(theNoteTabs.window, set);
}

void ShowNoteTabs(const MarkedBefore& place) {
    if (place) theNoteTabs.marked = place;
    TabCtrl_DeleteAllItems(theNoteTabs.window);
    theNoteTabs.labels.clear();
    for (const NoteSet& set : theNoteSets.sets)
        InsertTab(place ? MarkedLabel(TheNoteFiles(), set, *place) : TabName(TheNoteFiles(), set));
    SelectNoteTab(theNoteSets.currentSet);
}

static std::string DamagedSetWithCopy(const OpenedSets& opened, bool (*hasWholeCopy)(const NoteSet& set)) {
    const std::vector<NoteSet>& sets = theNoteSets.sets;
    for (auto set = static_cast<std::size_t>(std::max(opened.damagedSet, 0)); set < sets.size(); ++set)
        if (sets[set].readOnly && hasWholeCopy(sets[set])) return NoteSetName(sets[set]);
    return "";
}

static std::string WithParagraph(const std::string& text, const std::string& paragraph) {
    return text.empty() || paragraph.empty() ? text + paragraph : text + "\n\n" + paragraph;
}

// The name of a damaged set whose earlier states the user wants to see.
static std::string Tell(const OpenedSets& opened, bool (*hasWholeCopy)(const NoteSet& set), bool isReadOnly) {
    const std::string report = WithParagraph(isReadOnly ? kNothingCanBeKept : "", opened.report);
    if (report.empty()) return "";
    const bool isOffered = opened.hasDamaged && CanWriteWorkingFolder();
    const std::string setName = isOffered ? DamagedSetWithCopy(opened, hasWholeCopy) : "";
    const std::string question =
        setName.empty() ? "" : "Do you want to look at the earlier states of the note set \"" + setName + "\" now?";
    const UINT icon = isReadOnly || opened.hasDamaged ? MB_ICONWARNING : MB_ICONINFORMATION;
    const UINT buttons = setName.empty() ? MB_OK : MB_YESNO;
    const int answer = MessageBoxA(FrameOf(theNoteTabs.window), WithParagraph(report, question).c_str(), kMendedCaption,
                                   buttons | icon | MB_SYSTEMMODAL);  // above the splash
    return answer == IDYES ? setName : "";
}

static void OpenSets() {
    theOpening.opened = OpenNoteSets(TheNoteFiles(), theOpening.sets, NoteTimeNow(), theOpening.knownDamaged);
}

// Wine keeps the stack of the thread that ended last.
static DWORD WINAPI OpenSetsInThread(void*) {
    OpenSets();
    GiveBackUnusedStack();
    return 0;
}

void EndOpening::operator()(void* thread) const {
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
}

static std::vector<std::string> DamagedSets(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets)
        if (set.readOnly) names.push_back(NoteSetName(set));
    return names;
}

OpeningSets BeginToLoadNoteSets() {
    theOpening.knownDamaged = DamagedSets(theNoteSets);  // none at the start
    theOpening.thread = CreateThread(nullptr, 0, OpenSetsInThread, nullptr, 0, nullptr);
    if (theOpening.thread == nullptr) OpenSets();
    return OpeningSets(theOpening.thread);
}

static OpenedSets TakeOpenedSets() {
    if (theOpening.thread != nullptr) WaitForSingleObject(theOpening.thread, INFINITE);
    theOpening.thread = nullptr;
    theNoteSets = std::exchange(theOpening.sets, {});
    return std::exchange(theOpening.opened, {});
}

std::string LoadNoteSets(bool (*hasWholeCopy)(const NoteSet& set)) {
    const OpenedSets opened = TakeOpenedSets();
    if (!opened.created) Complain(FrameOf(theNoteTabs.window), kCannotCreateNotes);
    return Tell(opened, hasWholeCopy, !CanWriteWorkingFolder());
}

std::string TellRepairedSets(bool (*hasWholeCopy)(const NoteSet& set)) {
    const OpenedSets opened = RepairCheckedSets(TheNoteFiles(), theNoteSets);
    if (!opened.unread.empty()) ShowStatus(StatusPart::kSearchSummary, opened.unread);
    return Tell(opened, hasWholeCopy, false);
}

void AddLastNoteTab() {
    InsertTab(TabName(TheNoteFiles(), theNoteSets.sets.back()));
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
