#include "app/toolbar_win32.h"

#include <string>

#include "app/frame_window.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "verselist/verselist_window.h"
#include "win32/panes.h"
#include "win32/screen.h"

enum class Button { kSeparator, kEnabled, kGreyed, kPressed };

struct ToolbarEntry {
    Button button = Button::kSeparator;
    int picture = 0;
    int command = 0;
};

static constexpr ToolbarEntry kSeparator{};
static constexpr ToolbarEntry kEntries[] = {
    kSeparator,
    {Button::kGreyed, 0, IDM_CUT},
    {Button::kGreyed, 1, IDM_COPY},
    {Button::kGreyed, 2, IDM_PASTE},
    kSeparator,
    {Button::kEnabled, 6, IDM_COPY_VERSE},
    {Button::kEnabled, 7, IDM_COPY_RANGE},
    {Button::kGreyed, 8, IDM_COPY_VERSE_LIST},
    {Button::kGreyed, 9, IDM_COPY_REFERENCES},
    kSeparator,
    {Button::kEnabled, 3, IDM_WORD_SEARCH},
    {Button::kEnabled, 4, IDM_PHRASE_SEARCH},
    {Button::kEnabled, 5, IDM_WORD_LIST_SEARCH},
    {Button::kEnabled, 18, IDM_SEARCH_NOTES},
    kSeparator,
    {Button::kEnabled, 12, IDM_GOTO_VERSE},
    {Button::kEnabled, 19, IDM_GOTO_NOTE},
    kSeparator,
    {Button::kGreyed, 13, IDM_CONTEXT},
    {Button::kGreyed, 21, IDM_NOTE_FOR_LIST},
    {Button::kEnabled, 22, IDM_NOTE_FOR_PASSAGE},
    {Button::kEnabled, 23, IDM_VERSE_FOR_NOTE},
    kSeparator,
    {Button::kEnabled, 20, IDM_EDIT_NOTE},
    kSeparator,
    {Button::kPressed, 14, IDM_VIEW_LIST},
    {Button::kPressed, 15, IDM_VIEW_PASSAGE},
    {Button::kPressed, 16, IDM_VIEW_NOTES},
    kSeparator,
    {Button::kEnabled, 17, IDM_HELP_TOPICS},
};
static_assert(std::size(kEntries) == 30);

static TBBUTTON ButtonOf(const ToolbarEntry& entry) {
    TBBUTTON button{};
    button.iBitmap = entry.picture;
    button.idCommand = entry.command;
    switch (entry.button) {
        case Button::kSeparator: button.fsStyle = TBSTYLE_SEP; break;
        case Button::kEnabled: button.fsState = TBSTATE_ENABLED; break;
        case Button::kGreyed: button.fsState = TBSTATE_ENABLED | TBSTATE_INDETERMINATE; break;
        case Button::kPressed:
            button.fsState = TBSTATE_ENABLED | TBSTATE_CHECKED;
            button.fsStyle = TBSTYLE_CHECK;
            break;
    }
    return button;
}

// The strip drawn for this screen: 16, 24 or 32 pixels a picture.
static HIMAGELIST LoadPictures() {
    const int wanted = Scaled(16);
    const int size = wanted < 24 ? 16 : wanted < 32 ? 24 : 32;
    const int strip = IDB_TOOLBAR + (size - 16) / 8;
    const OwnedBitmap bitmap(static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(strip), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    static constexpr int kPictures = 24;
    const HIMAGELIST pictures = ImageList_Create(size, size, ILC_COLOR32, kPictures, 0);
    ImageList_Add(pictures, bitmap.get(), nullptr);
    return pictures;
}

HWND CreateToolbar(HWND frame) {
    const HWND toolbar = CreateChild(frame, TOOLBARCLASSNAMEA, "",
                                     WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_TOOLTIPS | TBSTYLE_FLAT, 0, IDC_TOOLBAR);
    if (!toolbar) return nullptr;
    theFrame.toolbarPictures.reset(LoadPictures());
    TBBUTTON buttons[std::size(kEntries)];
    for (std::size_t entry = 0; entry < std::size(kEntries); ++entry) buttons[entry] = ButtonOf(kEntries[entry]);
    SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(theFrame.toolbarPictures.get()));
    SendMessageA(toolbar, TB_ADDBUTTONSA, std::size(kEntries), reinterpret_cast<LPARAM>(buttons));
    SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
    return toolbar;
}

struct ToolTip {
    int command;
    const char* text;
};

static constexpr ToolTip kToolTips[] = {
    {IDM_HELP_TOPICS, "Help (F1)"},
    {IDM_WORD_SEARCH, "Word(s) Search (Alt+W)"},
    {IDM_PHRASE_SEARCH, "Phrase Search (Alt+P)"},
    {IDM_GOTO_VERSE, "Go to a Verse (Alt+G)"},
    {IDM_WORD_LIST_SEARCH, "Word(s) Search with word list (Alt+L)"},
    {IDM_VIEW_LIST, "Show/Hide Verse List Window (F2)"},
    {IDM_VIEW_PASSAGE, "Show/Hide Passage Window (F3)"},
    {IDM_VIEW_NOTES, "Show/Hide Notes Window (F4)"},
    {IDM_COPY_VERSE, "Copy a Verse (F5)"},
    {IDM_COPY_RANGE, "Copy a Range of Verses (F6)"},
    {IDM_COPY_VERSE_LIST, "Copy the Verse List (F7)"},
    {IDM_COPY_REFERENCES, "Copy the Reference List (F8)"},
    {IDM_SAVE_RANGE, "Save a Range of verses"},
    {IDM_SAVE_VERSE_LIST, "Save the Verse List"},
    {IDM_CUT, "Cut (Ctrl+X)"},
    {IDM_COPY, "Copy (Ctrl+C)"},
    {IDM_PASTE, "Paste (Ctrl+V)"},
    {IDM_GOTO_NOTE, "Go to a Note (Alt+N)"},
    {IDM_EDIT_NOTE, "Edit Current Note (Alt+E)"},
    {IDM_SEARCH_NOTES, "Search Notes (Alt+T)"},
    {IDM_VERSE_FOR_NOTE, "Read Verse for Current Note (F11)"},
};

static std::string WithVerse(const char* before, int verse, const char* noVerse, const char* key) {
    if (verse == kNoVerse) return std::string(noVerse) + key;
    return before + ReferenceText(theScripture.records, verse, BookForm::kAbbreviation) + key;
}

static std::string ToolTipOf(int command) {
    switch (command) {
        case IDM_CONTEXT:
            return WithVerse("Read Context of ", VerseListTargetVerse(), "Read Context of Verse in Verse List",
                             " (F12)");
        case IDM_NOTE_FOR_LIST:
            return WithVerse("Note for ", VerseListTargetVerse(), "Note for Verse in Verse List", " (F9)");
        case IDM_NOTE_FOR_PASSAGE: return WithVerse("Note for ", PassageTargetVerse(), "", " (F10)");
    }
    for (const ToolTip& tip : kToolTips) {
        if (tip.command == command) return tip.text;
    }
    return "";
}

void AnswerToolTip(NMTTDISPINFOA* tip) {
    lstrcpynA(tip->szText, ToolTipOf(static_cast<int>(tip->hdr.idFrom)).c_str(), sizeof tip->szText);
    tip->lpszText = tip->szText;
}
