// Separate from the window, so that a benchmark can draw it.
#include "verselist/hits_painting_win32.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "win32/handles.h"

static RECT BarOf(const HitsBar& bar) {
    return {0, bar.top, bar.length, bar.barBottom};
}

// Leads from the bar to the right edge: in some schemes bars have the colour of the text.
static RECT LineBehind(const HitsBar& bar, LONG right) {
    const int height = bar.barBottom - bar.top, thickness = std::max(1, height / 4);
    const int top = bar.top + (height - thickness) / 2;
    return {bar.length, top, right, top + thickness};
}

// In one call for all of them: joining them one by one takes longer.
static OwnedRegion RegionOf(std::span<const RECT> areas) {
    if (areas.empty()) return OwnedRegion(CreateRectRgn(0, 0, 0, 0));
    struct {
        RGNDATAHEADER header;
        RECT areas[kBookCount];
    } data{};
    data.header = {sizeof data.header, RDH_RECTANGLES, static_cast<DWORD>(areas.size()), 0, {}};
    std::ranges::copy(areas, data.areas);
    return OwnedRegion(ExtCreateRegion(nullptr, sizeof data, reinterpret_cast<const RGNDATA*>(&data)));
}

static OwnedRegion RegionOfBars(const PerBook<HitsBar>& bars) {
    std::array<RECT, std::size_t{kBookCount}> areas{};
    const auto end = std::ranges::transform(bars, areas.begin(), BarOf).out;
    const auto shown = std::remove_if(areas.begin(), end, [](const RECT& area) { return IsRectEmpty(&area); });
    return RegionOf(std::span(areas.begin(), shown));
}

static OwnedRegion RegionOfHovered(const HitsPicture& picture, const RECT& client) {
    if (picture.hovered == 0) return RegionOf({});
    const HitsBar& bar = picture.bars[static_cast<std::size_t>(picture.hovered - 1)];
    const RECT areas[] = {LineBehind(bar, client.right), BarOf(bar)};
    return RegionOf(std::span(areas).first(bar.length > 0 ? 2 : 1));
}

static void TakeAway(const OwnedRegion& from, const OwnedRegion& region) {
    CombineRgn(from.get(), from.get(), region.get(), RGN_DIFF);
}

static void Fill(HDC target, const OwnedRegion& region, COLORREF color) {
    SetDCBrushColor(target, color);
    FillRgn(target, region.get(), static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void DrawHits(HDC target, const RECT& client, const HitsPicture& picture, const PaneColors& colors) {
    const OwnedRegion bars = RegionOfBars(picture.bars), hovered = RegionOfHovered(picture, client);
    const OwnedRegion paper = RegionOf(std::span(&client, 1));
    TakeAway(paper, bars);
    TakeAway(paper, hovered);
    TakeAway(bars, hovered);
    Fill(target, bars, BarColorOf(colors));
    Fill(target, hovered, colors.text);
    Fill(target, paper, colors.paper);
}
