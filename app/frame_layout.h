// Where the frame's panes lie: rectangles from sizes.
#pragma once

struct Area {
    int x = 0, y = 0, width = 0, height = 0;
    bool operator==(const Area&) const = default;
};

// Which panes the user shows; kept in the settings.
struct ShownPanes {
    int VerseListWindow = 1;
    int ReadWindow = 1;
    int NotesWindow = 1;
    int ToolBar = 1;
};

struct FrameSize {
    int width = 0, height = 0;  // of the client area
    int toolbarHeight = 0;      // of the control; the room it takes is two more
    int statusHeight = 0;
};

// A hidden pane has `shown` false and its rectangle unset. Sizes are never negative, however small the frame.
struct PanePlace {
    bool shown = false;
    Area place;
};

struct FrameLayout {
    PanePlace list, passage, notes;  // the tab controls
    PanePlace editor;                // takes the notes' place while a note is edited
};

FrameLayout LayOutFrame(const FrameSize& size, const ShownPanes& shown, bool editingNote);

inline constexpr int kStatusPartCount = 5;

// Right edges of the status bar's parts for a bar `width` wide; the last is -1, the right end, no other is negative.
void StatusPartEdges(int width, int (&edges)[kStatusPartCount]);
