// How the buttons of the toolbar are divided into rows if the frame is too narrow for one.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

struct ToolbarItem {
    int width = 0;  // pixels
    bool isSeparator = false;
    bool operator==(const ToolbarItem&) const = default;
};

// The places of the buttons behind which a new row begins, so that no button is beyond `room`, in pixels. A row ends
// before a separator if it can, and never with one. Each row has at least one button, also if that has no room.
std::vector<std::size_t> RowEnds(std::span<const ToolbarItem> items, int room);
