#include "verselist/list_content_win32.h"

#include <utility>

#include "notes/note_files_win32.h"

// Gives the pane another query, whose entries follow, and returns what it is filled with.
static ListContent Exchange(int number, Query query, bool isOfNotes) {
    VerseListPane& pane = theVerseList;
    ListContent before{
        .number = pane.content,
        .verses = std::move(pane.list.ListEntries),
        .query = std::move(pane.query),
        .form = pane.references.form,
        .canBeSaved = pane.list.canBeSaved,
        .isOfNotes = pane.isOfNotes,
        .sets = std::move(pane.list.sets),
        .question = std::exchange(pane.question, {}),
        .deletions = std::move(pane.list.deletions),
    };
    pane.content = number;
    pane.query = std::move(query);
    pane.isOfNotes = isOfNotes;
    pane.known = {};
    return before;
}

static void BeginFilling(Query query, bool isOfNotes = false) {
    theVerseList.replaced = Exchange(++theVerseList.contents, std::move(query), isOfNotes);
}

void ShowSearchResult(Query query, std::vector<std::int32_t> verses) {
    BeginFilling(std::move(query));
    FillVerseList(theVerseList.list, std::move(verses));
    ShowNewEntries(BookForm::kName);
    FocusVerseList();
}

void ShowVersesWithNotes(std::vector<std::int32_t> verses, ListedQuestion question) {
    ShowNotesOfSets(std::move(verses), {});
    theVerseList.question = std::move(question);
}

void ShowNotesOfSets(std::vector<std::int32_t> verses, EntrySets sets) {
    BeginFilling({}, true);
    FillWithNotes(theVerseList.list, std::move(verses), std::move(sets));
    ShowNewEntries(BookForm::kName);
    FocusVerseList();
}

EntrySets::Set AsEntrySet(const NoteSet& set) {
    return {NoteSetName(set), TabName(TheNoteFiles(), set) + ": "};
}

void ShowRenamedSet(const std::string& before, const EntrySets::Set& now) {
    if (theVerseList.question.set == before) theVerseList.question.set = now.name;
    if (theVerseList.followed.set == before) theVerseList.followed.set = now.name;
    if (theVerseList.list.sets.sets.empty()) return;
    const ReferenceLines lines = ShownReferenceLines();
    RenameSet(theVerseList.list.sets, before, now);
    theVerseList.known = {};
    theVerseList.told.isStale = true;
    theVerseList.references.awaitsLines = true;
    SendMessageA(theVerseList.references.window, WM_NULL, 0, 0);  // gets its lines
    ShowListPlace(theVerseList.list.ListTop, lines);
}

void DropGoneEntriesShown(const RemainingNotes& remaining) {
    const VerseList& list = theVerseList.list;
    if (!theVerseList.isOfNotes) return;
    DropEntries(GoneEntries(list.ListEntries, list.sets, theVerseList.question, remaining));
    theVerseList.followed = VerseListPosition();
}

void ShowReferences(const std::vector<std::int32_t>& verses) {
    BeginFilling({});
    FillWithReferences(theVerseList.list, verses);
    ShowNewEntries(BookForm::kAbbreviation);
}

// One empty list is as good as another.
void EmptyVerseList() {
    if (ListCount(theVerseList.list) > 0) BeginFilling({});
    ClearVerseList(theVerseList.list);
    ShowNewEntries(BookForm::kName);
}

ListContent ShowContent(ListContent content) {
    ListContent before = Exchange(content.number, std::move(content.query), content.isOfNotes);
    theVerseList.question = std::move(content.question);
    FillWithReferences(theVerseList.list, std::move(content.verses));
    theVerseList.list.sets = std::move(content.sets);
    theVerseList.list.canBeSaved = content.canBeSaved;
    theVerseList.list.deletions = std::move(content.deletions);
    ShowNewEntries(content.form);
    return before;
}

ListPosition VerseListPosition() {
    const VerseList& list = theVerseList.list;
    const bool isSelected =
        theSelection.SelectionOwner == kVerseListOwns && theSelection.anchor.place == CurrentEntry(list, theSelection);
    const EntrySets::Set* set = VerseListCurrentSet();
    return {
        .content = theVerseList.content,
        .count = ListCount(list),
        .top = list.ListTop,
        .verse = VerseListCurrentVerse(),
        .isChosen = ShownListView() == theVerseList.references.window || isSelected,
        .set = set != nullptr ? set->name : "",
    };
}

ReferenceLines ShownReferenceLines() {
    if (ShownListView() != theVerseList.references.window) return {};
    return {CaretLine(theVerseList.references), TopLine(theVerseList.references)};
}

void ShowListPlace(int top, const ReferenceLines& lines) {
    theVerseList.list.ListTop = ClampEntry(theVerseList.list, top);
    CorrectLastVisible(theVerseList.list);
    RedisplayVerseList();
    if (ShownListView() != theVerseList.references.window || lines.caret < 0) return;
    ShowLine(theVerseList.references, lines.caret, lines.top);
}
