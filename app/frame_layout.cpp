#include "app/frame_layout.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

// The share that a user has not changed, and the factor by which it is taken.
struct UsualShare {
    int share;
    double factor;
};

}  // namespace

static constexpr UsualShare kListShare{PaneShares{}.ListShare, 0.5};
static constexpr UsualShare kUpperShare{PaneShares{}.UpperShare, 0.55};

// `share` of `whole`, with at least `least` on each side unless it is the usual share or there is no room.
static int Divided(int whole, int share, const UsualShare& usual, int least) {
    if (share == usual.share || whole < 2 * least) return static_cast<int>(whole * usual.factor);
    const long long part = static_cast<long long>(whole) * std::clamp(share, 0, kWholeShare) / kWholeShare;
    return std::clamp(static_cast<int>(part), least, whole - least);
}

namespace {

// What the panes have of the frame.
struct Room {
    int top = 0, width = 0, height = 0;
};

}  // namespace

static Room RoomOf(const FrameSize& size, const ShownPanes& shown) {
    const int top = shown.ToolBar != 0 ? size.toolbarHeight + size.gapBelowToolbar : 0;
    return {top, std::max(size.width, 0), std::max(size.height - size.statusHeight - top, 0)};  // 0 if minimized
}

static int WidthOfList(int width, const FrameSize& size, const PaneShares& shares) {
    return Divided(width, shares.ListShare, kListShare, size.leastPaneWidth);
}

static int HeightAboveNotes(int height, const FrameSize& size, const PaneShares& shares) {
    return Divided(height, shares.UpperShare, kUpperShare, size.leastPaneHeight);
}

static PanePlace ShownAt(int x, int y, int width, int height) {
    return {true, {x, y, width, height}};
}

FrameLayout LayOutFrame(const FrameSize& size, const ShownPanes& shown, bool editingNote, const PaneShares& shares) {
    const bool list = shown.VerseListWindow != 0;
    const bool passage = shown.ReadWindow != 0;
    const bool notes = shown.NotesWindow != 0;
    const auto [top, width, height] = RoomOf(size, shown);
    const int upperHeight = notes ? HeightAboveNotes(height, size, shares) : height;
    const int passageLeft = !list ? 0 : passage ? WidthOfList(width, size, shares) : width;

    FrameLayout layout;
    if (list) layout.list = ShownAt(0, top, passageLeft, upperHeight);
    if (passage) layout.passage = ShownAt(passageLeft, top, width - passageLeft, upperHeight);
    if (!notes) return layout;
    const int notesTop = list || passage ? upperHeight : 0;
    (editingNote ? layout.editor : layout.notes) = ShownAt(0, top + notesTop, width, height - notesTop);
    return layout;
}

ListPlaces DivideListRoom(const PanePlace& room, int stripWidth) {
    const auto& [x, y, width, height] = room.place;
    const int strip = std::min(stripWidth, width / 3);
    if (!room.shown || strip <= 0) return {room, {}};
    return {ShownAt(x, y, width - strip, height), ShownAt(x + width - strip, y, strip, height)};
}

// ---- Dividers -------------------------------------------------------------------------------------------------------

static bool IsWithin(int value, int from, int size) {
    return value >= from && value < from + size;
}

DividerPlace DividerNear(const FrameLayout& layout, int x, int y, int reach) {
    const Area& upper = layout.list.shown ? layout.list.place : layout.passage.place;
    const bool hasUpper = layout.list.shown || layout.passage.shown;
    const bool hasNotes = layout.notes.shown || layout.editor.shown;
    const int bottom = upper.y + upper.height, right = upper.x + upper.width;
    if (hasUpper && hasNotes && std::abs(y - bottom) <= reach) return {Divider::kAboveNotes, bottom};
    const bool hasBoth = layout.list.shown && layout.passage.shown;
    if (hasBoth && std::abs(x - right) <= reach && IsWithin(y, upper.y, upper.height))
        return {Divider::kBesideList, right};
    return {};
}

// The share that gives `at` of `whole`: the usual one if it does, and `share` if there is no room.
static int ShareThatGives(int at, int whole, int share, const UsualShare& usual, int least) {
    if (whole < 2 * least) return share;
    const int part = std::clamp(at, least, whole - least);
    if (Divided(whole, usual.share, usual, least) == part) return usual.share;
    return static_cast<int>((static_cast<long long>(part) * kWholeShare + whole - 1) / whole);
}

PaneShares SharesWithDividerAt(const PaneShares& shares, Divider divider, int at, const FrameSize& size,
                               const ShownPanes& shown) {
    const Room room = RoomOf(size, shown);
    PaneShares changed = shares;
    if (divider == Divider::kBesideList)
        changed.ListShare = ShareThatGives(at, room.width, shares.ListShare, kListShare, size.leastPaneWidth);
    if (divider == Divider::kAboveNotes)
        changed.UpperShare =
            ShareThatGives(at - room.top, room.height, shares.UpperShare, kUpperShare, size.leastPaneHeight);
    return changed;
}

PaneShares SharesWithDividerReset(const PaneShares& shares, Divider divider) {
    const PaneShares usual;
    return {divider == Divider::kBesideList ? usual.ListShare : shares.ListShare,
            divider == Divider::kAboveNotes ? usual.UpperShare : shares.UpperShare};
}

// ---- The status bar -------------------------------------------------------------------------------------------------

void StatusPartEdges(int width, int (&edges)[kStatusPartCount]) {
    const double w = width;
    const double products[] = {(0.4 * w - 1) * 0.57, 0.45 * w - 1, 0.55 * w, 0.4 * w * 0.43 + 0.6 * w};
    // The control takes -1 as the right end of the bar.
    std::transform(std::begin(products), std::end(products), edges,
                   [](double product) { return std::max(static_cast<int>(product), 0); });
    edges[kStatusPartCount - 1] = -1;
}
