// How the reading panes look: their colours, which follow the system and the user's choice, and what the system draws
// around them.
#pragma once

#include "typeset/pane_colors.h"
#include "win32/windows_api.h"

struct PaneLook {
    PaneColors colors;  // as of the last FollowSystemLook
    int DarkPanes = kDarkOff;
    bool isKeyColorChosen = false;
};
extern PaneLook thePaneLook;

// The colour of key words as the user sees it when choosing another one: `chosen` or, if none is chosen, the system's.
COLORREF KeyColorToShow(COLORREF chosen);

// Takes the colours from the system, from the other fields and from the chosen key-word colour. Returns whether they
// are others than before. The caller repaints.
bool FollowSystemLook(COLORREF keyHighlightColor);

// Gives a rich-edit control with plain text the colours of the panes. To be called again after WM_SETFONT.
void ColorRichEdit(HWND richEdit);

// Gives a rich-edit control that has just been created, with its font, the colours of the panes and dark edges, if they
// are dark.
void DarkenNewRichEdit(HWND richEdit);

// Answers WM_CTLCOLORLISTBOX for a list box that stands in a pane's place.
HBRUSH ColorListBox(HDC dc);

// Makes scroll bars and edges of a pane dark or not, as far as the system can.
void DarkenScrollBars(HWND pane);

// The same for the title bar of the frame.
void DarkenTitle(HWND frame);
