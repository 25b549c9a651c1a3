#include "app/command_table_win32.h"

#include <algorithm>

#include "app/about_dialog.h"
#include "app/command_facts.h"
#include "app/font_commands_win32.h"
#include "app/frame_commands_win32.h"
#include "app/frame_look_win32.h"
#include "app/frame_win32.h"
#include "app/hits_commands_win32.h"
#include "app/note_commands_win32.h"
#include "app/note_set_commands_win32.h"
#include "app/output_commands_win32.h"
#include "app/passage_commands_win32.h"
#include "app/place_commands_win32.h"
#include "app/print_commands_win32.h"
#include "app/search_commands_win32.h"
#include "app/taken_sets_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "pane/pane_look_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/books.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"
#include "win32/files.h"

static void ShowCommandStates(int command);

static constexpr Command kCommands[] = {
    // Editing text
    {IDM_CUT, CutSelection, kCanCut, 0, {ButtonGroup::kClipboard, 0}, {"Cut"}},
    {IDM_COPY, CopySelection, kHasSelection, 0, {ButtonGroup::kClipboard, 1}, {"Copy"}},
    {IDM_PASTE, PasteText, kCanPaste, 0, {ButtonGroup::kClipboard, 2}, {"Paste"}},
    {IDM_UNDO, UndoEdit, kCanUndo},
    {IDM_REDO, RedoEdit, kCanRedo},
    {IDM_SELECT_ALL, SelectAll, kCanSelectAll},

    // Copying, saving and printing
    {IDM_COPY_VERSE, CopyVerse, kAlways, 0, {ButtonGroup::kCopy, 6}, {"Copy a Verse"}},
    {IDM_COPY_RANGE, CopyRange, kAlways, 0, {ButtonGroup::kCopy, 7}, {"Copy a Range of Verses"}},
    {IDM_COPY_VERSE_LIST, CopyVerseList, kListHasVerses, 0, {ButtonGroup::kCopy, 8}, {"Copy the Verse List"}},
    {IDM_COPY_REFERENCES, CopyReferences, kListHasVerses, 0, {ButtonGroup::kCopy, 9}, {"Copy the Reference List"}},
    {IDM_COPY_HITS, CopyHits, kListHasVerses},
    {IDM_FORMAT, ChooseFormat},
    {IDM_SAVE_RANGE, SaveRange, kAlways, 0, {}, {"Save a Range of verses"}},
    {IDM_SAVE_VERSE_LIST, SaveVerseList, kListCanBeSaved, 0, {}, {"Save the Verse List"}},
    {IDM_EXPORT_NOTES, ExportNoteSet, kNotEditing},
    {IDM_IMPORT_NOTES, ImportIntoNoteSet, kNotEditing | kNotesCanChange},
    {IDM_PAGE_SETUP, ChoosePageSetup},
    {IDM_PRINT_RANGE, PrintRange},
    {IDM_PRINT_VERSE_LIST, PrintVerseList, kListHasVerses},

    // Searching
    {IDM_WORD_SEARCH, SearchWords, kAlways, 0, {ButtonGroup::kSearch, 3}, {"Word(s) Search"}},
    {IDM_PHRASE_SEARCH, SearchPhrase, kAlways, 0, {ButtonGroup::kSearch, 4}, {"Phrase Search"}},
    {IDM_WORD_LIST_SEARCH, SearchWordList, kAlways, 0, {ButtonGroup::kSearch, 5}, {"Word(s) Search with word list"}},
    {IDM_NEAR_SEARCH, SearchNearWords},
    {IDM_SEARCH_NOTES, SearchNotes, kNotEditing, 0, {ButtonGroup::kSearch, 18}, {"Search Notes"}},
    {IDM_LIST_NOTES, ShowNotesAsList, kNotEditing},
    {IDM_NOTES_ABOUT, ShowNotesAbout, kNotEditing},
    {IDM_FOLLOW_LIST, FollowListedNotes},
    {IDM_SET_RANGE, SetRange},
    {IDM_SHOW_RANGE, ShowRange},
    {IDM_NOTE_WORD_SEARCH, SearchNoteSelection},
    {IDM_NOTE_PHRASE_SEARCH, SearchNoteSelection},
    {IDM_NOTE_NOTE_SEARCH, SearchNotesForSelection, kNotEditing},

    // Going to a verse or a note
    {IDM_GOTO_VERSE, GoToVerse, kAlways, 0, {ButtonGroup::kGoTo, 12}, {"Go to a Verse"}},
    {IDM_GOTO_NOTE, GoToNote, kNotEditing, 0, {ButtonGroup::kGoTo, 19}, {"Go to a Note"}},
    {IDM_CONTEXT,
     ReadListContext,
     kListHasVerses,
     0,
     {ButtonGroup::kVerse, 13},
     {"Read Context of Verse in Verse List", "Read Context of ", VerseListTargetVerse}},
    {IDM_NOTE_FOR_LIST,
     ShowNoteForList,
     kListHasVerses | kNotEditing,
     0,
     {ButtonGroup::kVerse, 21},
     {"Note for Verse in Verse List", "Note for ", VerseListTargetVerse}},
    {IDM_NOTE_FOR_PASSAGE,
     ShowNoteForPassage,
     kNotEditing,
     0,
     {ButtonGroup::kVerse, 22},
     {"Note for Verse in Passage", "Note for ", PassageTargetVerse}},
    {IDM_VERSE_FOR_NOTE, ShowVerseForNote, kAlways, 0, {ButtonGroup::kVerse, 23}, {"Read Verse for Current Note"}},
    {IDM_READ_ENTRY, ReadCurrentEntry},
    {IDM_PREVIOUS_VERSE, GoToNeighbour},
    {IDM_NEXT_VERSE, GoToNeighbour},
    {IDM_PREVIOUS_CHAPTER, GoToNeighbour, kPassageFocused},
    {IDM_NEXT_CHAPTER, GoToNeighbour, kPassageFocused},
    {IDM_PREVIOUS_BOOK, GoToNeighbour, kPassageFocused},
    {IDM_NEXT_BOOK, GoToNeighbour, kPassageFocused},
    {IDM_BACK, GoThroughPlaces, kCanGoBack | kNotEditing},
    {IDM_FORWARD, GoThroughPlaces, kCanGoForward | kNotEditing},
    {IDM_BEGIN_THUMB_DRAG, BeginThumbDrag},
    {IDM_END_THUMB_DRAG, EndThumbDrag},
    {IDM_TODAYS_PROVERB, OpenTodaysProverb},
    {IDM_THIS_MORNING, OpenTodaysDevotional, kNotEditing},
    {IDM_THIS_EVENING, OpenTodaysDevotional, kNotEditing},

    // Notes and note sets
    {IDM_EDIT_NOTE, EditNote, kNotEditing | kNotesCanChange, 0, {ButtonGroup::kEditNote, 20}, {"Edit Current Note"}},
    {IDM_SHOW_SAVED_NOTE, ShowSavedNote},
    {IDM_END_EDITING, EndEditingNote},
    {IDM_PREVIOUS_NOTE, GoToNeighbouringNote, kNotEditing},
    {IDM_NEXT_NOTE, GoToNeighbouringNote, kNotEditing},
    {IDM_PREVIOUS_NOTE_SET, GoToNeighbouringSet, kNotEditing},
    {IDM_NEXT_NOTE_SET, GoToNeighbouringSet, kNotEditing},
    {IDM_SHOW_REFERENCES, ShowNoteReferences},
    {IDM_OPEN_REFERENCE, OpenNoteReference},
    {IDM_BIND_NOTES, ToggleBindNotes, kAlways, kNotesBound},
    {IDM_EARLIER_NOTES, ShowEarlierNotes, kNotEditing | kNotesCanChange},
    {IDM_EARLIER_STATES, ShowEarlierStates, kNotEditing | kNotesCanChange},
    {IDM_CREATE_NOTE_SET, CreateSet, kNotEditing | kNotesCanChange},
    {IDM_DELETE_NOTE_SET, DeleteSet, kNotEditing | kNotesCanChange},
    {IDM_RENAME_NOTE_SET, RenameSet, kNotEditing | kNotesCanChange},
    {IDM_MERGE_SETS, MergeNoteSets, kNotEditing | kNotesCanChange},
    {IDM_TAKE_OVER_SETS, TakeOverSets, kNotEditing | kNotesCanChange},
    {IDM_OFFER_MERGE, OfferMerge, kNotEditing | kNotesCanChange},
    {IDM_MARK_NOTE_SETS, MarkSets},
    {IDM_NOTES_CHANGED, UpdateNoteMarks},

    // View and focus
    {IDM_VIEW_LIST, TogglePane, kAlways, kListShown, {ButtonGroup::kView, 14}, {"Show/Hide Verse List Window"}},
    {IDM_VIEW_PASSAGE, TogglePane, kAlways, kPassageShown, {ButtonGroup::kView, 15}, {"Show/Hide Passage Window"}},
    {IDM_VIEW_NOTES, TogglePane, kAlways, kNotesShown, {ButtonGroup::kView, 16}, {"Show/Hide Notes Window"}},
    {IDM_VIEW_HITS, ToggleHits, kListShown, kHitsShown},
    {IDM_LIST_CHANGED, ShowHitsOfList},
    {IDM_VIEW_TOOLBAR, ToggleToolbar, kAlways, kToolbarShown},
    {IDM_PARAGRAPH_FORMAT, ToggleParagraphFormat, kAlways, kParagraphs},
    {IDM_ITALIC_TEXT, SetItalics, kAlways, kItalicShown},
    {IDM_ITALIC_BRACKETS, SetItalics, kAlways, kBracketsShown},
    {IDM_ITALIC_NORMAL, SetItalics, kAlways, kNormalShown},
    {IDM_LIST_FONT, ChooseListFont},
    {IDM_PASSAGE_FONT, ChoosePassageFont},
    {IDM_NOTES_FONT, ChooseNotesFont, kNotEditing},
    {IDM_ZOOM_IN, ZoomFocusedPane},
    {IDM_ZOOM_OUT, ZoomFocusedPane},
    {IDM_HIGHLIGHT_COLOR, ChooseHighlightColor},
    {IDM_DARK_OFF, ChooseDarkPanes, kAlways, kPanesLight},
    {IDM_DARK_ON, ChooseDarkPanes, kAlways, kPanesDark},
    {IDM_DARK_AS_SYSTEM, ChooseDarkPanes, kAlways, kPanesAsSystem},
    {IDM_FOCUS_LIST, FocusList},
    {IDM_FOCUS_PASSAGE, FocusPassage},
    {IDM_FOCUS_NOTES, FocusNotesPane},
    {IDM_CONTEXT_MENU, OpenContextMenu},

    // The program
    {IDM_HELP_TOPICS, ShowHelp, kAlways, 0, {ButtonGroup::kHelp, 17}, {"Help"}},
    {IDM_HELP_RANGE, ShowHelp},
    {IDM_HELP_PREFACE, ShowHelp},
    {IDM_ABOUT, ShowAbout},
    {IDM_EXIT, CloseFrame},
    {IDM_REFRESH, ShowCommandStates},
};

namespace {

// Commands whose id contains a number: of a book, a bookmark or a verse.
struct CommandRange {
    int first, last;
    void (*action)(int number);  // id - first
    unsigned needs = kAlways;    // as in Command
};

}  // namespace

static constexpr CommandRange kRanges[] = {
    {IDM_GOTO_BOOK + 1, IDM_GOTO_BOOK + kBookCount, GoToBook},
    {IDM_GOTO_BOOKMARK, IDM_GOTO_BOOKMARK + kBookmarkCount - 1, GoToBookmark},
    {IDM_SET_BOOKMARK, IDM_SET_BOOKMARK + kBookmarkCount - 1, SetBookmark},
    {IDM_DEVOTIONAL, 0xFFFF, OpenDevotional, kNotEditing},
};

std::span<const Command> Commands() {
    return kCommands;
}

const Command* FindCommand(int command) {
    const auto found = std::ranges::find(kCommands, command, &Command::id);
    return found != std::end(kCommands) ? found : nullptr;
}

static bool MayRun(unsigned needs) {
    const bool waitsForEditor = (needs & kNotEditing) && IsEditingNote();
    const bool changesInVain = (needs & kNotesCanChange) && !CanWriteWorkingFolder();
    return !waitsForEditor && !changesInVain;
}

static void Run(int id) {
    for (const CommandRange& range : kRanges) {
        if (id < range.first || id > range.last) continue;
        if (MayRun(range.needs)) range.action(id - range.first);
        return;
    }
    const Command* command = FindCommand(id);
    if (command && MayRun(command->needs)) command->action(id);
}

void Dispatch(int id) {
    if (!MayJump(id)) return Run(id);
    Jump([id] { Run(id); });
}

// ---- States ---------------------------------------------------------------------------------------------------------

unsigned CurrentFacts() {
    return FactsOf({
        .list = theVerseList.list,
        .selection = theSelection,
        .reading = theReading,
        .shown = theFrame.shown,
        .passageFocused = GetFocus() == thePassage.window,
        .notesBound = theNotes.BindNotes != 0,
        .editingNote = IsEditingNote(),
        .canPaste = theNoteEdit.canPaste,
        .notesCanChange = CanWriteWorkingFolder(),
        .canUndo = CanUndoInEditor() || CanRestoreEntries(),
        .canRedo = CanRedoInEditor(),
        .canSelectAll = CanSelectAllInEditor() || CanSelectAllInNote(),
        .darkPanes = thePaneLook.DarkPanes,
        .canGoBack = CanGoBack(),
        .canGoForward = CanGoForward(),
        .hitsShown = theHitsStrip.HitsByBook != 0,
    });
}

static bool IsTicked(const Command& command, unsigned facts) {
    return command.tickedBy && HasFacts(facts, command.tickedBy);
}

BYTE ButtonState(const Command& command, unsigned facts) {
    return static_cast<BYTE>(TBSTATE_ENABLED | (HasFacts(facts, command.needs) ? 0 : TBSTATE_INDETERMINATE) |
                             (IsTicked(command, facts) ? TBSTATE_CHECKED : 0));
}

static void ShowState(const Command& command, unsigned facts) {
    const auto id = static_cast<UINT>(command.id);
    EnableMenuItem(theFrame.menu, id, MF_BYCOMMAND | (HasFacts(facts, command.needs) ? MF_ENABLED : MF_GRAYED));
    if (command.tickedBy)
        CheckMenuItem(theFrame.menu, id, MF_BYCOMMAND | (IsTicked(command, facts) ? MF_CHECKED : MF_UNCHECKED));
    const auto before = SendMessageA(theFrame.toolbar, TB_GETSTATE, id, 0);  // -1 if it has no button
    const LRESULT state = ButtonState(command, facts) | (before & TBSTATE_WRAP);
    if (before != -1 && before != state) SendMessageA(theFrame.toolbar, TB_SETSTATE, id, MAKELPARAM(state, 0));
}

static bool IsIn(const CommandRange& range, UINT id) {
    return id >= static_cast<UINT>(range.first) && id <= static_cast<UINT>(range.last);
}

// Goes through the menus, because not every number of a range has an item.
static void ShowState(HMENU menu, const CommandRange& range, UINT state) {
    for (int item = GetMenuItemCount(menu) - 1; item >= 0; --item) {
        const HMENU popup = GetSubMenu(menu, item);
        if (popup)
            ShowState(popup, range, state);
        else if (IsIn(range, GetMenuItemID(menu, item)))
            EnableMenuItem(menu, static_cast<UINT>(item), MF_BYPOSITION | state);
    }
}

// Updates menu and toolbar for the current facts.
static void ShowCommandStates(int) {
    if (!theFrame.startUpComplete) return;  // start-up updates the states at its end
    static unsigned shownFacts;
    static bool shown = false;
    const unsigned facts = CurrentFacts();
    for (const Command& command : kCommands) {
        const bool changed = (facts ^ shownFacts) & (command.needs | command.tickedBy);
        if (!shown || changed) ShowState(command, facts);
    }
    for (const CommandRange& range : kRanges) {
        const bool changed = shown && (facts ^ shownFacts) & range.needs;
        if (changed) ShowState(theFrame.menu, range, HasFacts(facts, range.needs) ? MF_ENABLED : MF_GRAYED);
    }
    shownFacts = facts;
    shown = true;
}
