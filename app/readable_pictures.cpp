// Separate from the toolbar, which uses Windows, so that the pictures can be tested natively.
#include "app/readable_pictures.h"

#include <algorithm>

#include "typeset/pane_colors.h"

// The lightness of a colour is half the sum of its largest and smallest channel. Adding the same to all channels keeps
// hue and saturation.
static std::uint32_t WithOtherLightness(std::uint32_t pixel) {
    const auto channel = [pixel](int shift) { return static_cast<int>(pixel >> shift & 0xFF); };
    const auto [least, most] = std::minmax({channel(0), channel(8), channel(16)});
    const int added = 255 - most - least;
    std::uint32_t other = pixel & 0xFF000000;
    for (const int shift : {0, 8, 16}) other |= static_cast<std::uint32_t>(channel(shift) + added) << shift;
    return other;
}

void FitToFace(std::span<std::uint32_t> pixels, std::uint32_t face) {
    if (IsDarkColor(face)) std::ranges::transform(pixels, pixels.begin(), WithOtherLightness);
}
