// Layout of the frame: the rectangles of its panes, computed from sizes in pixels.
#pragma once

struct Area {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const Area&) const = default;
};

// Which panes are shown, also kept in the settings. Any value but 0 means yes.
struct ShownPanes {
    int VerseListWindow = 1;
    int ReadWindow = 1;
    int NotesWindow = 1;
    int ToolBar = 1;
};

inline constexpr int kGapBelowToolbar = 2;  // between the toolbar and the panes, pixels at 96 dpi

struct FrameSize {
    int width = 0, height = 0;  // of the client area
    int toolbarHeight = 0;      // of the control
    int statusHeight = 0;
    int gapBelowToolbar = kGapBelowToolbar;
};

// `place` is set only if `shown`. Sizes are never negative, however small the frame is.
struct PanePlace {
    bool shown = false;
    Area place;
};

struct FrameLayout {
    PanePlace list, passage, notes;  // the tab controls
    PanePlace editor;                // replaces the notes while a note is edited
};

FrameLayout LayOutFrame(const FrameSize& size, const ShownPanes& shown, bool editingNote);

inline constexpr int kStatusPartCount = 5;

// Right edges of the parts of a status bar `width` wide. The last is -1, the right end of the bar; others are >= 0.
void StatusPartEdges(int width, int (&edges)[kStatusPartCount]);
