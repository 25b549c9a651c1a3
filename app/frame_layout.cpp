#include "app/frame_layout.h"

#include <algorithm>
#include <iterator>

static constexpr double kListShareOfWidth = 0.5;
static constexpr double kUpperShareOfHeight = 0.55;

static int Share(int whole, double share) {
    return static_cast<int>(whole * share);
}

static PanePlace ShownAt(int x, int y, int width, int height) {
    return {true, {x, y, width, height}};
}

FrameLayout LayOutFrame(const FrameSize& size, const ShownPanes& shown, bool editingNote) {
    const bool list = shown.VerseListWindow != 0;
    const bool passage = shown.ReadWindow != 0;
    const bool notes = shown.NotesWindow != 0;
    const int top = shown.ToolBar != 0 ? size.toolbarHeight + size.gapBelowToolbar : 0;
    const int width = std::max(size.width, 0);
    const int height = std::max(size.height - size.statusHeight - top, 0);  // 0 if the frame is minimized
    const int upperHeight = notes ? Share(height, kUpperShareOfHeight) : height;
    const int passageLeft = !list ? 0 : passage ? Share(width, kListShareOfWidth) : width;

    FrameLayout layout;
    if (list) layout.list = ShownAt(0, top, passageLeft, upperHeight);
    if (passage) layout.passage = ShownAt(passageLeft, top, width - passageLeft, upperHeight);
    if (!notes) return layout;
    const int notesTop = list || passage ? upperHeight : 0;
    (editingNote ? layout.editor : layout.notes) = ShownAt(0, top + notesTop, width, height - notesTop);
    return layout;
}

void StatusPartEdges(int width, int (&edges)[kStatusPartCount]) {
    const double w = width;
    const double products[] = {(0.4 * w - 1) * 0.57, 0.45 * w - 1, 0.55 * w, 0.4 * w * 0.43 + 0.6 * w};
    // The control takes -1 as the right end of the bar.
    std::transform(std::begin(products), std::end(products), edges,
                   [](double product) { return std::max(static_cast<int>(product), 0); });
    edges[kStatusPartCount - 1] = -1;
}
