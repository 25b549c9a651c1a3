// The frame's state and layout: toolbar, status bar and up to three panes in their tab controls.
#pragma once

#include <array>

#include "app/frame_layout.h"
#include "app/settings.h"
#include "win32/handles.h"

struct Frame {
    HWND window = nullptr;
    HWND toolbar = nullptr;
    HWND statusBar = nullptr;
    HWND listTabs = nullptr;
    HWND passageTabs = nullptr;
    HWND splash = nullptr;               // only during start-up
    HWND focusWhenInactive = nullptr;    // the window that had the focus when another program took it
    WNDPROC listTabProcedure = nullptr;  // the list tab control's own
    HMENU menu = nullptr;
    HACCEL accelerators = nullptr;
    HMODULE richEdit = nullptr;
    OwnedImageList toolbarPictures;
    ShownPanes shown;
    Bookmarks bookmarks;
    Fonts fonts;
    std::array<COLORREF, 16> customColors{};
    PAGESETUPDLGA pageSetup{};
    bool startUpComplete = false;
};
extern Frame theFrame;

// Creates status bar and tab controls; the toolbar has its own file.
void CreateBars(HWND frame);

// Places everything for a client area of this size; `sizeType` is that of the size message.
void LayOut(WPARAM sizeType, int width, int height);

// The same for the frame's present size, with the focus kept on a window that is shown.
void LayOut();

// Takes the Devotional menu out of the menu bar: there is no set of readings, or none any more.
void RemoveDevotionalMenu();

// Brings menu and toolbar into the state that the program is in.
void RefreshCommands();

// Repaints the panes that mark verses with notes.
void RepaintNoteMarks();
