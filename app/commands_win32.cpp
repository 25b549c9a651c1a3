#include "app/commands_win32.h"

#include <iterator>

#include "app/command_facts.h"
#include "app/devotional_commands_win32.h"
#include "app/font_commands_win32.h"
#include "app/frame_commands_win32.h"
#include "app/frame_window.h"
#include "app/note_commands_win32.h"
#include "app/note_set_commands_win32.h"
#include "app/output_commands_win32.h"
#include "app/print_commands_win32.h"
#include "app/reading_commands_win32.h"
#include "app/search_commands_win32.h"
#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/books.h"
#include "verselist/verselist_window.h"

struct Command {
    int id;
    void (*action)(int command);  // none yet: the command stays greyed
    unsigned needs = kAlways;     // facts that enable it
    unsigned checkedBy = 0;       // the fact that checks it; 0: it is never checked
};

static constexpr Command kCommands[] = {
    {IDM_ABOUT, ShowAbout},
    {IDM_EXIT, CloseFrame},
    {IDM_HELP_TOPICS, ShowHelp},
    {IDM_HELP_RANGE, ShowHelp},
    {IDM_HELP_PREFACE, ShowHelp},

    {IDM_WORD_SEARCH, SearchWords},
    {IDM_WORD_LIST_SEARCH, SearchWordList},
    {IDM_PHRASE_SEARCH, SearchPhrase},
    {IDM_SET_RANGE, SetRange},
    {IDM_NOTE_WORD_SEARCH, SearchNoteSelection},
    {IDM_NOTE_PHRASE_SEARCH, SearchNoteSelection},
    {IDM_NOTE_NOTE_SEARCH, SearchNotesForSelection, kNotEditing},
    {IDM_SEARCH_NOTES, SearchNotes, kNotEditing},

    {IDM_CONTEXT, ReadListContext, kListHasVerses},
    {IDM_GOTO_VERSE, GoToVerse},
    {IDM_PREVIOUS_VERSE, GoToNeighbour},
    {IDM_NEXT_VERSE, GoToNeighbour},
    {IDM_PREVIOUS_CHAPTER, GoToNeighbour, kPassageFocused},
    {IDM_NEXT_CHAPTER, GoToNeighbour, kPassageFocused},
    {IDM_PREVIOUS_BOOK, GoToNeighbour, kPassageFocused},
    {IDM_NEXT_BOOK, GoToNeighbour, kPassageFocused},
    {IDM_TODAYS_PROVERB, OpenTodaysProverb},
    {IDM_THIS_MORNING, OpenDaysReading},
    {IDM_THIS_EVENING, OpenDaysReading},

    {IDM_PARAGRAPH_FORMAT, ToggleParagraphFormat, kAlways, kParagraphs},
    {IDM_ITALIC_TEXT, SetItalics, kAlways, kItalicShown},
    {IDM_ITALIC_BRACKETS, SetItalics, kAlways, kBracketsShown},
    {IDM_ITALIC_NORMAL, SetItalics, kAlways, kNormalShown},
    {IDM_LIST_FONT, ChooseListFont},
    {IDM_PASSAGE_FONT, ChoosePassageFont},
    {IDM_NOTES_FONT, ChooseNotesFont, kNotEditing},
    {IDM_HIGHLIGHT_COLOR, ChooseHighlightColor},

    {IDM_FOCUS_LIST, FocusList},
    {IDM_FOCUS_PASSAGE, FocusPassage},
    {IDM_VIEW_LIST, TogglePane, kAlways, kListShown},
    {IDM_VIEW_PASSAGE, TogglePane, kAlways, kPassageShown},
    {IDM_VIEW_NOTES, TogglePane, kAlways, kNotesShown},
    {IDM_VIEW_TOOLBAR, ToggleToolbar, kAlways, kToolbarShown},
    {IDM_CONTEXT_MENU, OpenContextMenu},

    {IDM_GOTO_NOTE, GoToNote, kNotEditing},
    {IDM_PREVIOUS_NOTE, GoToNeighbouringNote, kNotEditing},
    {IDM_NEXT_NOTE, GoToNeighbouringNote, kNotEditing},
    {IDM_PREVIOUS_NOTE_SET, GoToNeighbouringSet, kNotEditing},
    {IDM_NEXT_NOTE_SET, GoToNeighbouringSet, kNotEditing},
    {IDM_NOTE_FOR_PASSAGE, ShowNoteForPassage, kNotEditing},
    {IDM_NOTE_FOR_LIST, ShowNoteForList, kListHasVerses | kNotEditing},
    {IDM_EDIT_NOTE, EditNote, kNotEditing},
    {IDM_VERSE_FOR_NOTE, ShowVerseForNote},
    {IDM_SHOW_REFERENCES, ShowNoteReferences},
    {IDM_END_EDITING, EndEditingNote},
    {IDM_BIND_NOTES, ToggleBindNotes, kAlways, kNotesBound},
    {IDM_CREATE_NOTE_SET, CreateSet, kNotEditing},
    {IDM_DELETE_NOTE_SET, DeleteSet, kNotEditing},
    {IDM_RENAME_NOTE_SET, RenameSet, kNotEditing},
    {IDM_MARK_NOTE_SETS, MarkSets},

    {IDM_CUT, CutSelection, kCanCut},
    {IDM_COPY, CopySelection, kHasSelection},
    {IDM_PASTE, PasteText, kCanPaste},
    {IDM_COPY_VERSE, CopyVerse},
    {IDM_COPY_RANGE, CopyRange},
    {IDM_COPY_VERSE_LIST, CopyVerseList, kListHasVerses},
    {IDM_COPY_REFERENCES, CopyReferences, kListHasVerses},
    {IDM_FORMAT, ChooseFormat},
    {IDM_SAVE_RANGE, SaveRange},
    {IDM_SAVE_VERSE_LIST, SaveVerseList, kListCanBeSaved},
    {IDM_PAGE_SETUP, ChoosePageSetup},
    {IDM_PRINT_RANGE, PrintRange},
    {IDM_PRINT_VERSE_LIST, PrintVerseList, kListHasVerses},
};

// Commands whose number says what they mean.
struct CommandRange {
    int first, last;
    void (*action)(int number);  // counted from `first`
};

static constexpr CommandRange kRanges[] = {
    {IDM_GOTO_BOOK + 1, IDM_GOTO_BOOK + kBookCount, GoToBook},
    {IDM_GOTO_BOOKMARK, IDM_GOTO_BOOKMARK + kBookmarkCount - 1, GoToBookmark},
    {IDM_SET_BOOKMARK, IDM_SET_BOOKMARK + kBookmarkCount - 1, SetBookmark},
    {IDM_DEVOTIONAL, 0xFFFF, OpenReading},
};

void Dispatch(int id) {
    if (id == IDM_REFRESH) return RefreshCommands();
    for (const CommandRange& range : kRanges) {
        if (id < range.first || id > range.last) continue;
        return range.action(id - range.first);
    }
    for (const Command& command : kCommands) {
        if (command.id != id) continue;
        const bool waits = (command.needs & kNotEditing) && theNotes.editing;
        if (command.action && !waits) command.action(id);
        return;
    }
}

static unsigned CurrentFacts() {
    return FactsOf({
        .list = theVerseList.list,
        .selection = theSelection,
        .reading = theReading,
        .shown = theFrame.shown,
        .passageFocused = GetFocus() == thePassage.window,
        .notesBound = theNotes.BindNotes != 0,
        .editingNote = theNotes.editing != 0,
        .canPaste = theNoteEditor.canPaste,
    });
}

static BYTE ButtonState(bool enabled, bool checked) {
    return static_cast<BYTE>(TBSTATE_ENABLED | (enabled ? 0 : TBSTATE_INDETERMINATE) | (checked ? TBSTATE_CHECKED : 0));
}

static void ShowState(const Command& command, bool enabled, bool checked) {
    const auto id = static_cast<UINT>(command.id);
    EnableMenuItem(theFrame.menu, id, MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
    if (command.checkedBy) CheckMenuItem(theFrame.menu, id, MF_BYCOMMAND | (checked ? MF_CHECKED : MF_UNCHECKED));
    const BYTE state = ButtonState(enabled, checked);
    const auto before = SendMessageA(theFrame.toolbar, TB_GETSTATE, id, 0);  // -1 where there is no button
    if (before != -1 && before != state) SendMessageA(theFrame.toolbar, TB_SETSTATE, id, MAKELPARAM(state, 0));
}

void RefreshCommands() {
    if (!theFrame.startUpComplete) return;  // start-up sets the first states at its end
    static unsigned shownFacts;
    static bool shown = false;
    const unsigned facts = CurrentFacts();
    for (const Command& command : kCommands) {
        const bool changed = (facts ^ shownFacts) & (command.needs | command.checkedBy);
        if (shown && !changed) continue;
        ShowState(command, command.action && HasFacts(facts, command.needs),
                  command.checkedBy && HasFacts(facts, command.checkedBy));
    }
    shownFacts = facts;
    shown = true;
}
