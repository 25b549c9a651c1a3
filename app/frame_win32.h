// The frame's state and layout: toolbar, status bar and up to three panes in their tab controls.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "app/frame_layout.h"
#include "app/settings.h"
#include "notes/note_draft.h"
#include "print/printer_dialogs_win32.h"
#include "win32/handles.h"

struct Frame {
    HWND window = nullptr;
    HWND toolbar = nullptr;
    HWND statusBar = nullptr;
    HWND listTabs = nullptr;
    HWND passageTabs = nullptr;
    HWND splash = nullptr;             // only during start-up
    HWND focusWhenInactive = nullptr;  // window that had the focus when the frame was deactivated or minimized
    WNDPROC tabProcedure = nullptr;    // the tab controls' own procedure
    HMENU menu = nullptr;
    HACCEL accelerators = nullptr;
    HMODULE richEdit = nullptr;
    OwnedImageList toolbarPictures;
    std::vector<std::size_t> toolbarRows;  // RowEnds (app/toolbar_rows.h)
    ShownPanes shown;
    PaneShares shares;
    Bookmarks bookmarks;
    Fonts fonts;
    std::array<COLORREF, 16> customColors{};
    PrinterSetup printerSetup;
    std::string damagedSet;  // whose earlier states the user wants to see at the end of the start
    std::string ownSets;     // as in MoreSettings
    ExportChoices exportChoices;
    std::vector<NoteDraft> takenDrafts;  // of a copy whose notes were taken over, to be offered
    std::vector<int> lastVerses;         // app/last_verses.h
    bool hasNewLastVerse = false;        // since the start
    bool startUpComplete = false;
    bool isCreated = false;  // also without a text, which does not complete the start
    bool closesOnceCreated = false;
};
extern Frame theFrame;

// Creates status bar and tab controls. For the toolbar see app/toolbar_win32.h.
void CreateBars(HWND frame);

// Gives the tabs the font for the scaling of their screen; their height follows in LayOut.
void ScaleTabs();

// Places all children for a client area of this size in pixels. `sizeType` is the wParam of WM_SIZE.
void LayOut(WPARAM sizeType, int width, int height);

// The same for the frame's current size. Also moves the focus to a visible pane if the focused one has been hidden.
void LayOut();

// What the layout goes by now, and the layout.
FrameSize CurrentFrameSize();
FrameLayout CurrentLayout();

// Gives the hidden note editor the size at which it will be shown, if the notes are shown. To be called before a note
// is opened: a long paragraph is slow to break in an editor without a width, and again when it gets another one.
void PlaceHiddenEditor();

// The Passage or, if it is hidden, the first visible one of list, note view and note editor; null if all are hidden.
HWND FirstPane();

// Shows the Devotional menu in the menu bar if there is a devotional note set, and removes it if there is none.
void UpdateDevotionalMenu();

// Updates the enabled and ticked states of menu and toolbar.
void RefreshCommands();

// Repaints the panes that mark verses with notes.
void RepaintNoteMarks();
