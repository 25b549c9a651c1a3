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

// What the list has of the width and the upper panes of the height, in parts of kWholeShare, also kept in the settings.
// Any value is allowed: it is used as far as the panes keep their least sizes.
struct PaneShares {
    int ListShare = 50'000;
    int UpperShare = 55'000;
    bool operator==(const PaneShares&) const = default;
};
inline constexpr int kWholeShare = 100'000;

inline constexpr int kGapBelowToolbar = 2;  // between the toolbar and the panes, pixels at 96 dpi

inline constexpr int kLeastPaneWidth = 120, kLeastPaneHeight = 80;  // that the user can give a pane, at 96 dpi

struct FrameSize {
    int width = 0, height = 0;  // of the client area
    int toolbarHeight = 0;      // of the control
    int statusHeight = 0;
    int gapBelowToolbar = kGapBelowToolbar;
    int leastPaneWidth = kLeastPaneWidth, leastPaneHeight = kLeastPaneHeight;
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

// With the default shares panes have any size; so they do with others in a frame without room for two least sizes.
FrameLayout LayOutFrame(const FrameSize& size, const ShownPanes& shown, bool editingNote,
                        const PaneShares& shares = {});

// What the list and the strip at its right edge have of the room of both. The strip has `stripWidth`, but at most a
// third of the room, and is hidden if that is 0.
struct ListPlaces {
    PanePlace list, strip;
};
ListPlaces DivideListRoom(const PanePlace& room, int stripWidth);

// The line between list and Passage, and the one above the notes. Each is there if there are panes on both sides.
enum class Divider { kNone, kBesideList, kAboveNotes };

// The divider that is at most `reach` pixels from this point of the frame's client area, and where it is: its x or y.
struct DividerPlace {
    Divider divider = Divider::kNone;
    int at = 0;
};
DividerPlace DividerNear(const FrameLayout& layout, int x, int y, int reach);

// The shares with which the divider comes to the x or y `at`, or as near as the least sizes let it.
PaneShares SharesWithDividerAt(const PaneShares& shares, Divider divider, int at, const FrameSize& size,
                               const ShownPanes& shown);

// The shares with this divider where it is at first.
PaneShares SharesWithDividerReset(const PaneShares& shares, Divider divider);

inline constexpr int kStatusPartCount = 5;

// Right edges of the parts of a status bar `width` wide. The last is -1, the right end of the bar; others are >= 0.
void StatusPartEdges(int width, int (&edges)[kStatusPartCount]);
