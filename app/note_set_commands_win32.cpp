#include "app/note_set_commands_win32.h"

#include <set>
#include <utility>

#include "app/frame_win32.h"
#include "app/note_commands_win32.h"
#include "app/place_commands_win32.h"
#include "exchange/export_notes_dialog.h"
#include "exchange/import_notes_dialog.h"
#include "history/earlier_states_dialog.h"
#include "history/merge_sets_dialog.h"
#include "history/set_merging.h"
#include "notes/conflict_copies.h"
#include "notes/note_editor_window.h"
#include "notes/note_set_changes.h"
#include "notes/note_set_dialog.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/list_content_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"

static constexpr char kDeleteCaption[] = "Delete Note Set";

// Includes a new layout, because the number of tab rows may have changed.
static void ShowNewTabs() {
    ShowNoteTabs({});
    LayOut();
}

// The messages do not say that a name is in use; the status bar does, up to the next name.
static void TellNameInUse(const std::string& text) {
    static std::string told;
    const bool isShown = !told.empty() && StatusText(StatusPart::kSearchSummary) == told;
    if (!text.empty() || isShown) ShowStatus(StatusPart::kSearchSummary, text);
    told = text;
}

static void CreateSetNamed(std::u16string_view name) {
    const std::string inUse = NameInUse(TheNoteFiles(), name);
    const std::string problem = CreateNoteSet(TheNoteFiles(), theNoteSets, name);
    TellNameInUse(problem.empty() ? "" : inUse);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    AddLastNoteTab();
    LayOut();
}

void CreateSet(int) {
    const auto name = AskNewSetName(theFrame.window);
    if (name) CreateSetNamed(*name);
    FocusNotes();
}

static void RenameSetTo(std::u16string_view name) {
    const std::string before = NoteSetName(*CurrentSet(theNoteSets)), inUse = NameInUse(TheNoteFiles(), name);
    const std::string problem = RenameNoteSet(TheNoteFiles(), theNoteSets, name);
    TellNameInUse(problem.empty() ? "" : inUse);
    if (!problem.empty()) return Complain(theFrame.window, problem.c_str());
    ShowNewTabs();
    FollowRenamedSet(before, AsEntrySet(*CurrentSet(theNoteSets)));
}

void RenameSet(int) {
    const NoteSet* set = CurrentSet(theNoteSets);
    if (!set) return;
    const auto name = AskChangedSetName(theFrame.window, NoteSetName(*set));
    if (name) RenameSetTo(*name);
    FocusNotes();
}

static bool IsDeletionMeant() {
    const std::string question = QuestionBeforeDeleting(theNoteSets);
    return MessageBoxA(theFrame.window, question.c_str(), kDeleteCaption, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

void DeleteSet(int) {
    if (theNoteSets.sets.size() <= 1) {
        MessageBoxA(theFrame.window, kOnlyOneSet, kDeleteCaption, MB_OK | MB_ICONINFORMATION);
        return;
    }
    if (!IsDeletionMeant()) return;
    if (!DeleteNoteSet(TheNoteFiles(), theNoteSets, NoteTimeNow())) return Complain(theFrame.window, kDeleteFailed);
    UpdateDevotionalMenu();
    ShowNewTabs();
    ReadNote(theNoteSets.currentVerse);
    RepaintNoteMarks();
    ForgetGoneSets();
}

// ---- Earlier states -------------------------------------------------------------------------------------------------

static void ShowRestoredSet() {
    UpdateDevotionalMenu();
    ShowNewTabs();
    ShowChangedNotes();
}

static void ShowStatesOf(const std::string& setName) {
    const StateChoice choice = AskEarlierState(theFrame.window, setName);
    if (choice.hasRestoredSet) ShowRestoredSet();
    FocusNotes();
    if (choice.note) EditDraft(*choice.note);
}

void ShowEarlierStates(int) {
    const NoteSet* set = CurrentSet(theNoteSets);
    if (theFrame.startUpComplete && set != nullptr) ShowStatesOf(NoteSetName(*set));
}

void ShowStatesOfDamagedSet() {
    const std::string setName = std::exchange(theFrame.damagedSet, "");
    if (theFrame.startUpComplete && !setName.empty() && !IsEditingNote()) ShowStatesOf(setName);
}

// ---- Merging --------------------------------------------------------------------------------------------------------

static constexpr char kOfferCaption[] = "Copy of a Note Set";

static void MergeChosenSets(const std::string& copy, const std::string& set) {
    if (!AskMergeSets(theFrame.window, copy, set)) return;
    UpdateDevotionalMenu();
    ShowNewTabs();
    ReadNote(theNoteSets.currentVerse);
    UpdateNoteMarks(IDM_NOTES_CHANGED);
    ForgetGoneSets();
}

void MergeNoteSets(int) {
    MergeChosenSets("", "");
    FocusNotes();
}

static std::string QuestionAbout(const ConflictCopy& copy) {
    const std::string names = "\n\n" + copy.name + "\n\n";
    const std::string offer = "Do you want to merge the two now? You see what would change before anything is written.";
    if (copy.of.isCertain) {
        return "Beside the note set \"" + copy.of.set + "\" there is a copy of it:" + names +
               "A program that keeps folders in step has left it, because the set was changed in two places at once. " +
               offer;
    }
    return "Beside the note set \"" + copy.of.set + "\" there is one that may be a copy of it:" + names +
           "A program that keeps folders in step gives such a name when a set was changed in two places at once. " +
           offer + " If you have made this set yourself, choose No: you will not be asked about it again.";
}

static bool IsOwnSet(const std::string& name) {
    return ('/' + theFrame.ownSets).find('/' + name + '/') != std::string::npos;
}

// Forgets the own sets that are no longer there: a copy may get the name of one.
static void KeepOwnSets() {
    if (theFrame.ownSets.empty()) return;
    std::string names;
    for (const ConflictCopy& copy : FindConflictCopies(TheNoteFiles()))
        if (IsOwnSet(copy.name)) names += copy.name + '/';
    theFrame.ownSets = names;
}

// The copies that are not own sets and whose names are not in `offered`.
static std::vector<ConflictCopy> CopiesToOffer(const std::set<std::string>& offered) {
    std::vector<ConflictCopy> copies = FindConflictCopies(TheNoteFiles());
    std::erase_if(copies, [&](const ConflictCopy& copy) {
        return offered.contains(copy.name) || (!copy.of.isCertain && IsOwnSet(copy.name));
    });
    return copies;
}

// With more than one copy, Cancel ends the offers.
void OfferMerge(int) {
    PutAwayHalfCopies(TheNoteFiles());
    KeepOwnSets();
    std::set<std::string> offered;
    for (auto copies = CopiesToOffer(offered); !copies.empty(); copies = CopiesToOffer(offered)) {
        const ConflictCopy& copy = copies.front();
        offered.insert(copy.name);
        const UINT buttons = copies.size() > 1 ? MB_YESNOCANCEL : MB_YESNO;
        const std::string question = QuestionAbout(copy);
        switch (MessageBoxA(theFrame.window, question.c_str(), kOfferCaption, buttons | MB_ICONQUESTION)) {
            case IDYES: MergeChosenSets(copy.name, copy.of.set); break;
            case IDNO:
                if (!copy.of.isCertain) theFrame.ownSets += copy.name + '/';
                break;
            default: return;
        }
    }
}

// ---- Export and import ----------------------------------------------------------------------------------------------

void ExportNoteSet(int) {
    if (!theFrame.startUpComplete) return;  // without the scripture there are no verses
    const std::optional<std::string> report = AskExport(theFrame.window, theFrame.exportChoices);
    if (report) ShowStatus(StatusPart::kSearchSummary, *report);
}

// Brings the set in front that has got the notes.
static void ShowImported(const ImportedNotes& imported) {
    if (imported.isNewSet) {
        AddLastNoteTab();
        LayOut();
    }
    ShowNoteOfSet(imported.set, theNoteSets.currentVerse);
    UpdateNoteMarks(IDM_NOTES_CHANGED);
    ShowStatus(StatusPart::kSearchSummary, imported.report);
}

void ImportIntoNoteSet(int) {
    if (!theFrame.startUpComplete) return;
    const std::optional<ImportedNotes> imported = AskImport(theFrame.window);
    if (imported) ShowImported(*imported);
    FocusNotes();
}

// ---- Marks ----------------------------------------------------------------------------------------------------------

static MarkedPlace PlaceToMark() {
    const VerseList& list = theVerseList.list;
    const bool empty = ListCount(list) == 0;
    return {
        .listPosition = empty ? kNoVerse : list.ListTop,
        .listVerse = empty ? kNoVerse : list.ListEntries[static_cast<std::size_t>(list.ListTop)],
        .passageVerse = thePassage.view.TopVerse,
    };
}

// A label that changes takes as long as a new tab, and a changed number of rows another layout.
void ShowFirstTabs() {
    ShowNoteTabs(PlaceToMark());
}

void MarkSets(int) {
    if (!theFrame.startUpComplete) return;
    RefreshNotesInPassing();
    if (MarkNoteTabs(PlaceToMark())) LayOut();
}

void UpdateNoteMarks(int command) {
    if (!theFrame.startUpComplete) return;
    RepaintNoteMarks();
    theNoteTabs.marked.reset();
    MarkSets(command);
}
