#include "passage/passage_window.h"

#include <algorithm>

#include "notes/note_editor_window.h"
#include "notes/notes_window.h"
#include "output/format_dialog.h"
#include "pane/status_bar_win32.h"
#include "passage/passage_copy.h"
#include "resources/ids.h"
#include "scripture/books.h"
#include "scripture/scripture_win32.h"
#include "typeset/html_text.h"
#include "win32/controls.h"
#include "win32/popup_menu.h"

static constexpr char kPassageClass[] = "READWINDOW";

PassagePane thePassage;

static PassageFlow FlowOf(const RECT& client) {
    return {
        .scripture = &theScripture,
        .noteFiles = &TheNoteFiles(),
        .notes = &theNoteSets,
        .options = theReading,
        .measure = MeasureOf(thePassage.faces),
        .topVerse = thePassage.view.TopVerse,
        .width = client.right,
        .height = client.bottom,
        .leftMargin = thePassage.leftMargin,
    };
}

static PassageFlow CurrentFlow() {
    return FlowOf(ClientAreaOf(thePassage));
}

// False until start-up is complete, and always if start-up stopped half-way.
static bool HasText() {
    return !theScripture.records.bytes.empty() && HasFaces(thePassage.faces);
}

void RedisplayPassage() {
    RedisplayPane(thePassage);
}

static void BringNote() {
    thePassage.awaitsNote = false;
    if (theNotes.BindNotes) ReadNote(thePassage.view.TopVerse);
}

void ScrollToVerse(int verse) {
    thePassage.view.TopVerse = ClampVerse(verse);
    RedisplayPassage();
    BringNote();
}

void SetPassageFont(const FontChoice& choice) {
    SetPaneFont(thePassage, choice);
}

int PassageTargetVerse() {
    return TargetVerse(thePassage.view, theSelection, GetFocus() == thePassage.window);
}

static void ShowPosition() {
    ShowStatus(StatusPart::kPassage, ReferenceText(theScripture.records, thePassage.view.TopVerse, BookForm::kName));
    MoveScrollBox(thePassage, thePassage.view.TopVerse);
    if (thePassage.awaitsNote) BringNote();
}

static void LayOutText(const RECT& client) {
    thePassage.view.LastVisibleVerse = WalkPassage(FlowOf(client), RunsVisitor(thePassage, kPassageOwns));
    CorrectLastVisible(thePassage.view);
}

static int Top() {
    return thePassage.view.TopVerse;
}

static void SetTop(int verse) {
    thePassage.view.TopVerse = verse;
    thePassage.awaitsNote = true;
}

static int ScrolledTop(ScrollCode code, int thumb) {
    return ScrolledTop(CurrentFlow(), thePassage.view, code, thumb);
}

static SelectionPoint PointAt(int x, int y) {
    return HitTestPassage(CurrentFlow(), x, y);
}

static std::string TextOfSelection() {
    return PassageCopyText(theScripture, theReading, theFormat.Brackets != 0, theSelection);
}

static std::string HtmlOfSelection() {
    const bool keepBrackets = theFormat.Brackets != 0;
    return HtmlOfVerses(PassageCopyText(theScripture, theReading, keepBrackets, theSelection, CopyMarks::kMarked),
                        keepBrackets ? HtmlBrackets::kShown : HtmlBrackets::kAsItalics);
}

// ---- Screen readers -------------------------------------------------------------------------------------------------

static std::string NameOfPane() {
    return "Passage";
}

static int CountOfVerses() {
    return HasText() ? kVerseCount : 0;
}

static int VerseWithFocus() {
    return TargetVerse(thePassage.view, theSelection, true);
}

static int VerseItself(int verse) {
    return verse;
}

static SpokenItems ShownVerses() {
    const PassageFlow flow = CurrentFlow();
    SpokenItems shown{flow.width, flow.height, LineHeightOf(flow.measure), {}};
    WalkPassage(flow, ItemsVisitor(shown));
    return shown;
}

static SpokenWords WordsOf(int verse) {
    PassageFlow flow = CurrentFlow();
    flow.topVerse = verse;
    flow.height = kEndlessHeight;
    SpokenWords words;
    WalkPassage(flow, WordsVisitor(words));
    return words;
}

// ---- The context menu -----------------------------------------------------------------------------------------------

static constexpr int kBookmarks = IDM_SET_BOOKMARK - IDM_GOTO_BOOKMARK;

// Splits the books into four columns, so that the menu fits on a small screen.
static bool StartsColumn(int book) {
    static constexpr int kEcclesiastes = 21, kMatthew = 40, kJames = 59;
    return book == kEcclesiastes || book == kMatthew || book == kJames;
}

static std::vector<MenuRow> BookRows() {
    std::vector<MenuRow> rows;
    for (int book = 1; book <= kBookCount; ++book) {
        rows.push_back({.command = IDM_GOTO_BOOK + book, .text = BookName(book), .startsColumn = StartsColumn(book)});
    }
    return rows;
}

static std::vector<MenuRow> Rows() {
    const HWND frame = FrameOf(thePassage.window);
    const std::string verse = ReferenceText(theScripture.records, PassageTargetVerse(), BookForm::kAbbreviation);
    const bool noSelection = theSelection.SelectionOwner != kPassageOwns;
    const bool editing = IsEditingNote();
    return {
        {IDM_COPY, "Copy Selected Text\t", noSelection},
        {IDM_COPY_RANGE, "Copy Range...\t"},
        {IDM_SAVE_RANGE, "Save Range..."},
        {IDM_PRINT_RANGE, "Print Range..."},
        {},
        {IDM_GOTO_VERSE, "Go to Verse...\t"},
        {.text = "Go to Book", .submenu = BookRows()},
        {IDM_PREVIOUS_CHAPTER, "Previous Chapter\t"},
        {IDM_NEXT_CHAPTER, "Next Chapter\t"},
        {IDM_PREVIOUS_BOOK, "Previous Book\t"},
        {IDM_NEXT_BOOK, "Next Book\t"},
        {},
        {IDM_TODAYS_PROVERB, "Today's Proverb"},
        {.text = "Go to Bookmark", .submenu = RowsOfFrameMenu(frame, IDM_GOTO_BOOKMARK, kBookmarks)},
        {.text = "Set a Bookmark to " + verse, .submenu = RowsOfFrameMenu(frame, IDM_SET_BOOKMARK, kBookmarks)},
        {},
        {IDM_NOTE_FOR_PASSAGE, "Go to Note for " + verse + "\t", editing},
        {IDM_NOTES_ABOUT, "Notes About " + verse + "\t", editing},
        {},
        {IDM_WORD_SEARCH, "Word Search with Selected Text...", noSelection},
        {IDM_PHRASE_SEARCH, "Phrase Search with Selected Text...", noSelection},
        {IDM_SEARCH_NOTES, "Search Notes with Selected Text...", noSelection},
    };
}

static void OpenMenu(POINT onScreen) {
    OpenPopupMenu(thePassage.window, onScreen, Rows());
}

// Commands that the pane forwards to its frame.
static bool IsForFrame(int command) {
    static constexpr struct {
        int first, last;
    } kForwarded[] = {
        {IDM_GOTO_VERSE, IDM_GOTO_VERSE},
        {IDM_PREVIOUS_CHAPTER, IDM_NEXT_BOOK},
        {IDM_COPY_RANGE, IDM_COPY_RANGE},
        {IDM_SAVE_RANGE, IDM_SAVE_RANGE},
        {IDM_GOTO_BOOKMARK, IDM_SET_BOOKMARK + kBookmarks - 1},
        {IDM_NOTE_FOR_PASSAGE, IDM_NOTE_FOR_PASSAGE},
        {IDM_NOTES_ABOUT, IDM_NOTES_ABOUT},
        {IDM_TODAYS_PROVERB, IDM_TODAYS_PROVERB},
        {IDM_PRINT_RANGE, IDM_PRINT_RANGE},
        {IDM_GOTO_BOOK + 1, IDM_GOTO_BOOK + kBookCount + 1},  // one more than there are books
    };
    return std::ranges::any_of(kForwarded,
                               [command](const auto& row) { return command >= row.first && command <= row.last; });
}

// ---- The window -----------------------------------------------------------------------------------------------------

static void OnCreate(HWND window) {
    SetScrollRange(window, SB_VERT, 0, kLastVerse, FALSE);
}

static void OnKey(const PaneKind&, UINT key) {
    if (key == VK_LEFT) SendCommand(FrameOf(thePassage.window), IDM_FOCUS_LIST);
}

static void OnCommand(int command) {
    if (IsForFrame(command)) SendCommand(FrameOf(thePassage.window), command);
}

static const PaneKind kPassage = {
    .pane = thePassage,
    .selected = {kPassageOwns, TextOfSelection, HtmlOfSelection, "ReadWndCopyError -- Please notify the author!!"},
    .hasText = HasText,
    .layOut = LayOutText,
    .top = Top,
    .scrolledTop = ScrolledTop,
    .clampItem = ClampVerse,
    .pointAt = PointAt,
    .setTop = SetTop,
    .showPosition = ShowPosition,
    .onCreate = OnCreate,
    .onKey = OnKey,
    .onDoubleClick = nullptr,  // its class has no double clicks
    .onCommand = OnCommand,
    .openMenu = OpenMenu,
    .spoken =
        {
            .window = thePassage.window,
            .told = thePassage.told,
            .owner = kPassageOwns,
            .itemRole = ROLE_SYSTEM_STATICTEXT,
            .name = NameOfPane,
            .count = CountOfVerses,
            .top = Top,
            .current = VerseWithFocus,
            .verseOf = VerseItself,
            .shown = ShownVerses,
            .words = WordsOf,
            .bringUp = ScrollToVerse,
        },
};

static LRESULT CALLBACK PassageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ReadingPaneProcedure(kPassage, window, message, wParam, lParam);
}

bool RegisterPassageClass() {
    return RegisterPaneClass(kPassageClass, PassageProcedure, COLOR_WINDOW);
}

void CreatePassage(HWND tabs) {
    CreateChild(tabs, kPassageClass, "Passage", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE, IDC_PASSAGE);
}
