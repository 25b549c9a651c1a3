#include "win32/placement.h"

#include <algorithm>
#include <array>

static ScreenArea Common(const ScreenArea& one, const ScreenArea& other) {
    return {std::max(one.left, other.left), std::max(one.top, other.top), std::min(one.right, other.right),
            std::min(one.bottom, other.bottom)};
}

static long long Extent(int from, int to) {
    return std::max(static_cast<long long>(to) - from, 0LL);
}

static long long Pixels(const ScreenArea& area) {
    return Extent(area.left, area.right) * Extent(area.top, area.bottom);
}

// The four parts of `area` around `inner`, which lies in it. Some may be empty.
static std::array<ScreenArea, 4> Around(const ScreenArea& area, const ScreenArea& inner) {
    return {ScreenArea{area.left, area.top, area.right, inner.top},
            {area.left, inner.bottom, area.right, area.bottom},
            {area.left, inner.top, inner.left, inner.bottom},
            {inner.right, inner.top, area.right, inner.bottom}};
}

static bool IsCovered(const ScreenArea& area, std::span<const ScreenArea> by) {
    if (Pixels(area) == 0) return true;
    if (by.empty()) return false;
    const ScreenArea common = Common(area, by[0]);
    if (Pixels(common) == 0) return IsCovered(area, by.subspan(1));
    return std::ranges::all_of(Around(area, common),
                               [&](const ScreenArea& part) { return IsCovered(part, by.subspan(1)); });
}

static long long Gap(int from, int to, int low, int high) {
    return std::max({0LL, static_cast<long long>(low) - to, static_cast<long long>(from) - high});
}

// In a straight line, squared; 0 if they touch.
static long long Distance(const ScreenArea& one, const ScreenArea& other) {
    const long long across = std::min(Gap(one.left, one.right, other.left, other.right), 1LL << 30);
    const long long down = std::min(Gap(one.top, one.bottom, other.top, other.bottom), 1LL << 30);
    return across * across + down * down;
}

static const ScreenArea& Chosen(const ScreenArea& window, std::span<const ScreenArea> workAreas) {
    return *std::ranges::min_element(workAreas, [&](const ScreenArea& one, const ScreenArea& other) {
        const long long pixelsOfOne = Pixels(Common(window, one)), pixelsOfOther = Pixels(Common(window, other));
        if (pixelsOfOne != pixelsOfOther) return pixelsOfOne > pixelsOfOther;
        return Distance(window, one) < Distance(window, other);
    });
}

int KeptBetween(int place, int size, int low, int high) {
    return std::max(low, static_cast<int>(std::min<long long>(place, static_cast<long long>(high) - size)));
}

ScreenArea BroughtInside(const ScreenArea& window, int border, std::span<const ScreenArea> workAreas) {
    if (workAreas.empty()) return window;
    const ScreenArea seen{window.left + border, window.top, window.right - border, window.bottom - border};
    if (Pixels(seen) > 0 && IsCovered(seen, workAreas)) return window;
    const ScreenArea& area = Chosen(window, workAreas);
    const auto width = static_cast<int>(std::min(Extent(window.left, window.right), Extent(area.left, area.right)));
    const auto height = static_cast<int>(std::min(Extent(window.top, window.bottom), Extent(area.top, area.bottom)));
    const int left = KeptBetween(window.left, width, area.left, area.right);
    const int top = KeptBetween(window.top, height, area.top, area.bottom);
    return {left, top, left + width, top + height};
}
