#include "app/note_commands_win32.h"

#include <optional>
#include <utility>

#include "app/frame_win32.h"
#include "app/reference_index_win32.h"
#include "history/earlier_notes_dialog.h"
#include "notes/list_notes_dialog.h"
#include "notes/note_capitals_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_links_win32.h"
#include "notes/notes_window.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_dialog.h"
#include "scripture/scripture_win32.h"
#include "verselist/list_content_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"

static void ShowNotes() {
    RunIfEnabled(theFrame.window, IDM_VIEW_NOTES);
}

void FocusNotes() {
    ShowNotes();
    SetFocus(theNotes.view);
}

void GoToNote(int) {
    const std::string start = ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName);
    AskVerse(theFrame.window, {"GOTONOTE", kTopicGotoNote, start, ReadNote});
    FocusNotes();
}

void GoToNeighbouringNote(int command) {
    ShowNotes();
    const bool next = command == IDM_NEXT_NOTE;
    ReadNote(next ? NextNote(TheNoteFiles(), theNoteSets) : PreviousNote(TheNoteFiles(), theNoteSets));
}

void GoToNeighbouringSet(int command) {
    ShowNotes();
    const int count = static_cast<int>(theNoteSets.sets.size());
    if (count == 0) return;
    const int step = command == IDM_NEXT_NOTE_SET ? 1 : count - 1;
    ShowNoteOfSet((theNoteSets.currentSet + step) % count, theNoteSets.currentVerse);
    RepaintNoteMarks();
}

void ShowNoteForPassage(int) {
    ShowNotes();
    ReadNote(PassageTargetVerse());
}

void ShowNoteForList(int) {
    ShowNotes();
    const int verse = VerseListTargetVerse();
    if (verse != kNoVerse) ReadNote(verse);
}

void ShowVerseForNote(int) {
    ScrollToVerse(theNoteSets.currentVerse);
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
}

void ToggleBindNotes(int command) {
    theNotes.BindNotes = !theNotes.BindNotes;
    RefreshCommands();
    if (theNotes.BindNotes) ShowNoteForPassage(command);
}

void EditNote(int command) {
    if (!theFrame.startUpComplete) return;  // without the scripture there are no verses for notes
    ShowNotes();
    PlaceHiddenEditor();
    SendCommand(theNoteEditor.window, command);
    LayOut();
}

// The text that is brought back is edited, so that it can be changed and is saved like any other.
void ShowEarlierNotes(int) {
    const NoteSet* set = CurrentSet(theNoteSets);
    if (!theFrame.startUpComplete || set == nullptr) return;
    NoteDraft draft{NoteSetName(*set), theNoteSets.currentVerse, "", ""};
    if (!ReadStoredNote(TheNoteFiles(), theNoteSets, draft.openedOn)) return Complain(theFrame.window, kCannotReadNote);
    const std::string verse = ReferenceText(theScripture.records, draft.verse, BookForm::kName);
    const auto text =
        AskEarlierNote(theFrame.window, {"Earlier Notes for " + verse + " in \"" + draft.setName + '"', draft.openedOn,
                                         EarlierNotesOf(TheNoteFiles(), draft.setName, draft.verse)});
    if (!text) return FocusNotes();
    draft.text = *text;
    ShowNotes();
    EditDraft(draft);
}

void ShowSavedNote(int) {
    ShowNoteText();
    IndexShownNote();
    TellChangedNotes();
}

void ShowChangedNotes() {
    RefreshNotes();
    ReadNote(theNoteSets.currentVerse);
    SendCommand(theFrame.window, IDM_NOTES_CHANGED);
}

void EndEditingNote(int) {
    if (IsChild(theNoteEditor.window, GetFocus())) SetFocus(theNotes.view);
    RefreshCommands();
    LayOut();
    RefreshNotes();
}

void ShowNoteReferences(int) {
    if (theNotes.references.empty()) return;
    ShowReferences(theNotes.references);
    ShowStatus(StatusPart::kSearchSummary,
               "x-refs for " + ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName));
    RunIfEnabled(theFrame.window, IDM_VIEW_LIST);
    RefreshCommands();
}

void OpenNoteReference(int) {
    if (OpenedReference() == kNoVerse) return;
    ScrollToVerse(OpenedReference());
    RunIfEnabled(theFrame.window, IDM_VIEW_PASSAGE);
}

// ---- Notes as a list ------------------------------------------------------------------------------------------------

void ShowNotesAsList(int) {
    if (!theFrame.startUpComplete) return;  // without the scripture there are no verses
    std::optional<NotesToList> listed = AskNotesToList(theFrame.window);
    if (!listed) return;
    RunIfEnabled(theFrame.window, IDM_VIEW_LIST);
    ShowStatus(StatusPart::kSearchSummary, ListedNotesSummary(listed->notes));
    DropSelection();
    ShowVersesWithNotes(std::move(listed->notes.verses), std::move(listed->question));
    RefreshCommands();
    ShowVerseListAtOnce();
}

// What "this verse" is depends on the pane with the focus.
static int VerseInFocus() {
    const HWND focus = GetFocus();
    if (focus == theNotes.view) return theNoteSets.currentVerse;
    const int listed = focus == ShownListView() ? VerseListTargetVerse() : kNoVerse;
    return listed != kNoVerse ? listed : PassageTargetVerse();
}

static EntrySets SetsOf(const std::vector<NamingNote>& naming, int about) {
    EntrySets listed{.about = about};
    for (const NoteSet& set : theNoteSets.sets) listed.sets.push_back(AsEntrySet(set));
    for (const NamingNote& note : naming) listed.ofEntries.push_back(static_cast<std::uint8_t>(note.set));
    return listed;
}

static std::vector<std::int32_t> VersesOf(const std::vector<NamingNote>& naming) {
    std::vector<std::int32_t> verses;
    for (const NamingNote& note : naming) verses.push_back(note.verse);
    return verses;
}

void ShowNotesAbout(int) {
    if (!theFrame.startUpComplete) return;
    const int verse = VerseInFocus();
    if (!FinishReferenceIndex()) return;
    const std::vector<NamingNote> naming = NotesThatName(TheReferences(), theNoteSets, verse);
    const std::string named = ReferenceText(theScripture.records, verse, BookForm::kName);
    ShowStatus(StatusPart::kSearchSummary,
               NamingNotesSummary(naming.size(), UnindexedSets(TheReferences(), theNoteSets), named));
    if (naming.empty()) return;
    RunIfEnabled(theFrame.window, IDM_VIEW_LIST);
    DropSelection();
    ShowNotesOfSets(VersesOf(naming), SetsOf(naming, verse));
    RefreshCommands();
    ShowVerseListAtOnce();
}

// kNoSet if it has gone.
static int SetOf(const ListPosition& entry) {
    if (!entry.set.empty()) return SetNamed(theNoteSets, entry.set);
    return SetWithListedNote(TheNoteFiles(), theNoteSets, SystemLetters(), theVerseList.question, entry.verse);
}

// Once for each entry, so that another note can be read meanwhile.
void FollowListedNotes(int) {
    if (!theVerseList.isOfNotes || IsEditingNote()) return;
    if (!FollowEntry(theVerseList.followed, VerseListPosition())) return;
    const ListPosition& entry = theVerseList.followed;
    const int before = theNoteSets.currentSet, set = SetOf(entry);
    if (set == kNoSet) return;  // the note of another set is not that of the entry
    if (set != before || entry.verse != theNoteSets.currentVerse) ShowNoteOfSet(set, entry.verse);
    if (set != before) RepaintNoteMarks();
    if (!entry.set.empty()) ScrollToReferenceThatNames(theNotes.view, theVerseList.list.sets.about);
}
