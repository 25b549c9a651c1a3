#include "app/toolbar_rows.h"

#include <optional>

namespace {

struct Row {
    std::size_t first = 0;
    int width = 0;  // of its items so far
    bool hasButton = false;
    std::optional<std::size_t> groupEnd{};  // the last button before a separator
};

}  // namespace

static void Add(Row& row, std::span<const ToolbarItem> items, std::size_t at) {
    const bool isAfterButton = at > row.first && !items[at - 1].isSeparator;
    if (items[at].isSeparator && isAfterButton) row.groupEnd = at - 1;
    if (!items[at].isSeparator) row.hasButton = true;
    row.width += items[at].width;
}

// The row behind the one that ends with `end`, with its items before `next`.
static Row RowBehind(std::span<const ToolbarItem> items, std::size_t end, std::size_t next) {
    Row row{.first = end + 1};
    for (std::size_t at = row.first; at < next; ++at) Add(row, items, at);
    return row;
}

std::vector<std::size_t> RowEnds(std::span<const ToolbarItem> items, int room) {
    std::vector<std::size_t> ends;
    Row row;
    for (std::size_t at = 0; at < items.size(); ++at) {
        while (!items[at].isSeparator && row.hasButton && row.width + items[at].width > room) {
            ends.push_back(row.groupEnd.value_or(at - 1));
            row = RowBehind(items, ends.back(), at);
        }
        Add(row, items, at);
    }
    return ends;
}
