#include "app/place_commands_win32.h"

#include <optional>
#include <utility>

#include "app/frame_win32.h"
#include "app/places.h"
#include "notes/note_capitals_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "notes/notes_window.h"
#include "pane/selection_win32.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/list_content_win32.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/plain_text.h"

static Places thePlaces;

// ---- Leaving a place ------------------------------------------------------------------------------------------------

static Place CurrentPlace() {
    const NoteSet* set = CurrentSet(theNoteSets);
    const ReferenceLines lines = ShownReferenceLines();
    return {
        .topVerse = thePassage.view.TopVerse,
        .noteVerse = theNoteSets.currentVerse,
        .noteSet = set != nullptr ? NoteSetName(*set) : "",
        .list = theVerseList.content,
        .listTop = theVerseList.list.ListTop,
        .caretLine = lines.caret,
        .topLine = lines.top,
    };
}

// Where the note is read is only asked for when it is left: a note that has just come would be laid out for that.
static Place PlaceToLeave() {
    Place place = CurrentPlace();
    place.noteTop = FirstVisibleCharacter(theNotes.view);
    return place;
}

static bool HasSet(const std::string& name) {
    return SetNamed(theNoteSets, name) != kNoSet;
}

static ShownPlace Shown(Place place) {
    return {std::move(place), ListCount(theVerseList.list) == 0, HasSet};
}

static void Leave(const Place& place, const std::string& summary) {
    KeepJump(thePlaces, place);
    if (theVerseList.replaced.number == place.list)
        KeepList(thePlaces, Kept(std::exchange(theVerseList.replaced, {}), summary));
    RefreshCommands();
}

// A dialog in which a search runs has its own messages, some of which are commands.
void Jump(const std::function<void()>& move) {
    static bool isMoving = false;
    if (isMoving || !theFrame.startUpComplete) return move();
    const Place before = PlaceToLeave();
    const std::string summary = StatusText(StatusPart::kSearchSummary);
    isMoving = true;
    move();
    isMoving = false;
    if (!IsSamePlace(before, CurrentPlace())) Leave(before, summary);
}

bool MayJump(int command) {
    static constexpr int kFirstMessage = 900, kLastMessage = 999;
    switch (command) {
        case IDM_PREVIOUS_VERSE:
        case IDM_NEXT_VERSE:
        case IDM_BACK:
        case IDM_FORWARD:
        case IDM_EXIT: return false;
        case IDM_SHOW_REFERENCES:
        case IDM_READ_ENTRY:
        case IDM_OPEN_REFERENCE: return true;
    }
    return command < kFirstMessage || command > kLastMessage;
}

static std::optional<Place> theStartOfDrag;

void BeginThumbDrag(int) {
    theStartOfDrag = PlaceToLeave();
}

void EndThumbDrag(int) {
    const std::optional<Place> start = std::exchange(theStartOfDrag, std::nullopt);
    if (!start) return;
    const Place end = CurrentPlace();
    if (!IsSamePlace(*start, end) || start->listTop != end.listTop) Leave(*start, "");
}

// ---- Coming to a place ----------------------------------------------------------------------------------------------

static void ShowKept(KeptList list) {
    const std::string summary = StatusText(StatusPart::kSearchSummary);
    const bool isSelected =
        theSelection.SelectionOwner == kVerseListOwns || theSelection.SelectionOwner == kReferenceListOwns;
    if (isSelected) DropSelection();
    const std::string summaryOfList = std::move(list.summary);
    ListContent before = ShowContent(ContentOf(std::move(list)));
    KeepList(thePlaces, Kept(std::move(before), summary));
    ShowStatus(StatusPart::kSearchSummary, summaryOfList);
    if (ListCount(theVerseList.list) == 0) ShowStatus(StatusPart::kListEntry, "");
}

// Returns whether the list is another one now. Of a list that was dropped nothing is shown.
static bool ShowListOf(const Place& place) {
    const bool isOther = place.list != theVerseList.content;
    if (isOther) {
        std::optional<KeptList> list = TakeList(thePlaces, place.list);
        if (!list) return false;
        ShowKept(std::move(*list));
    }
    ShowListPlace(place.listTop, {place.caretLine, place.topLine});
    theVerseList.followed = VerseListPosition();  // the place has a note of its own
    return isOther;
}

static bool ShowPassageOf(const Place& place) {
    if (place.topVerse == thePassage.view.TopVerse) return false;
    ScrollToVerse(place.topVerse);
    return true;
}

// After the Passage, which brings its own note if the notes are bound to it. A set that has gone stays out of sight.
static void ShowNoteOf(const Place& place) {
    const int named = SetNamed(theNoteSets, place.noteSet);
    const int before = theNoteSets.currentSet, set = named == kNoSet ? before : named;
    if (set != before || place.noteVerse != theNoteSets.currentVerse) ShowNoteOfSet(set, place.noteVerse);
    if (set != before) RepaintNoteMarks();
    if (named == set) ScrollToTop(theNotes.view, place.noteTop);
}

static void Show(const Place& place) {
    const int noteBefore = theNoteSets.currentVerse, setBefore = theNoteSets.currentSet;
    const bool isOtherList = ShowListOf(place), isOtherPassage = ShowPassageOf(place);
    ShowNoteOf(place);
    const bool isOtherNote = theNoteSets.currentVerse != noteBefore || theNoteSets.currentSet != setBefore;
    const bool isOnlyScrolled = !isOtherPassage && !isOtherNote;  // it is another place, so the list must be
    const struct {
        bool isOther;
        HWND window;
        int view;
    } kPanes[] = {
        {isOtherPassage, thePassage.window, IDM_VIEW_PASSAGE},
        {isOtherNote, theNotes.view, IDM_VIEW_NOTES},
        {isOtherList || isOnlyScrolled, ShownListView(), IDM_VIEW_LIST},
    };
    for (const auto& pane : kPanes)
        if (pane.isOther && IsWindowVisible(pane.window)) return;
    for (const auto& pane : kPanes)
        if (pane.isOther) return RunIfEnabled(theFrame.window, pane.view);
}

bool CanGoBack() {
    return CanGoBack(thePlaces, Shown(CurrentPlace()));
}

bool CanGoForward() {
    return CanGoForward(thePlaces, Shown(CurrentPlace()));
}

void GoThroughPlaces(int command) {
    const bool back = command == IDM_BACK;
    if (!(back ? CanGoBack() : CanGoForward())) return;
    Show((back ? GoBack : GoForward)(thePlaces, Shown(PlaceToLeave())));
    RefreshCommands();
}

void FollowRenamedSet(const std::string& before, const EntrySets::Set& now) {
    RenameSet(thePlaces, before, now);
    ShowRenamedSet(before, now);
}

void ForgetGoneSets() {
    const RemainingNotes remaining = {
        HasSet, [](const ListedQuestion& question, const std::vector<std::int32_t>& verses) {
            return StillListed(TheNoteFiles(), theNoteSets.sets, SystemLetters(), question, verses);
        }};
    DropGoneEntries(thePlaces, remaining);
    DropGoneEntriesShown(remaining);
    RefreshCommands();
}

// ---- Keys and buttons -----------------------------------------------------------------------------------------------

static bool IsInFrame(const MSG& message) {
    return GetAncestor(message.hwnd, GA_ROOT) == theFrame.window;
}

static bool Go(bool forward) {
    SendCommand(theFrame.window, forward ? IDM_FORWARD : IDM_BACK);
    return true;
}

// The release of a button would become WM_APPCOMMAND.
bool StepsThroughPlaces(const MSG& message) {
    switch (message.message) {
        case WM_KEYDOWN:
            if (message.wParam != VK_BACK || IsKeyDown(VK_CONTROL) || !IsInFrame(message)) return false;
            return !IsChild(theNoteEditor.window, message.hwnd) && Go(IsKeyDown(VK_SHIFT));
        case WM_XBUTTONDOWN:
        case WM_XBUTTONDBLCLK:
        case WM_NCXBUTTONDOWN:
        case WM_NCXBUTTONDBLCLK: return IsInFrame(message) && Go(GET_XBUTTON_WPARAM(message.wParam) == XBUTTON2);
        case WM_XBUTTONUP:
        case WM_NCXBUTTONUP: return IsInFrame(message);
    }
    return false;
}

bool OnAppCommand(int appCommand) {
    if (appCommand != APPCOMMAND_BROWSER_BACKWARD && appCommand != APPCOMMAND_BROWSER_FORWARD) return false;
    return Go(appCommand == APPCOMMAND_BROWSER_FORWARD);
}
