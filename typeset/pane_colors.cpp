#include "typeset/pane_colors.h"

#include <algorithm>
#include <array>
#include <cmath>

static constexpr int kHundredPercent = 100;

static std::array<int, 3> ChannelsOf(std::uint32_t color) {
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

static double Linear(int channel) {
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// Relative luminance: 0 for black, 1 for white.
static double LuminanceOf(std::uint32_t color) {
    const auto [red, green, blue] = ChannelsOf(color);
    return 0.2126 * Linear(red) + 0.7152 * Linear(green) + 0.0722 * Linear(blue);
}

double ContrastOf(std::uint32_t color, std::uint32_t other) {
    const double one = LuminanceOf(color) + 0.05, two = LuminanceOf(other) + 0.05;
    return std::max(one, two) / std::min(one, two);
}

// White has the same contrast with the limit as black.
bool IsDarkColor(std::uint32_t color) {
    return (LuminanceOf(color) + 0.05) * (LuminanceOf(color) + 0.05) < 1.05 * 0.05;
}

// `percent` of `other`, the rest of `color`.
static std::uint32_t Mixed(std::uint32_t color, std::uint32_t other, int percent) {
    const std::array<int, 3> from = ChannelsOf(color), to = ChannelsOf(other);
    std::uint32_t mixed = 0;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const int channel = (from[i] * (kHundredPercent - percent) + to[i] * percent) / kHundredPercent;
        mixed |= static_cast<std::uint32_t>(channel) << (8 * i);
    }
    return mixed;
}

// `color`, brought so far towards `clearest` that it has the contrast with `paper`, or `clearest` if nothing less has.
static std::uint32_t WithContrast(std::uint32_t color, std::uint32_t paper, double contrast, std::uint32_t clearest) {
    for (int percent = 0; percent < kHundredPercent; ++percent) {
        const std::uint32_t mixed = Mixed(color, clearest, percent);
        if (ContrastOf(mixed, paper) >= contrast) return mixed;
    }
    return clearest;
}

static bool WantsDark(const SystemLook& system, const ColorWishes& wishes) {
    if (system.isHighContrast) return false;
    return wishes.DarkPanes == kDarkOn || (wishes.DarkPanes == kDarkAsSystem && system.prefersDark);
}

// The system's window and its text change places, softened: white letters on black seem to glow. A window that is dark
// already stays as it is.
static PaneColors DarkColors(const SystemLook& system, std::uint32_t keyWord) {
    static constexpr int kSoftening = 12, kTextSoftening = 10;  // percent
    static constexpr double kTextContrast = 7;
    PaneColors colors{.paper = system.window, .text = system.windowText, .keyWord = keyWord, .isDark = true};
    if (!IsDarkColor(system.window)) {
        colors.paper = Mixed(system.windowText, system.window, kSoftening);
        colors.text = WithContrast(Mixed(system.window, system.windowText, kTextSoftening), colors.paper, kTextContrast,
                                   system.window);
    }
    colors.keyWord = WithContrast(keyWord, colors.paper, kReadableContrast, colors.text);
    return colors;
}

PaneColors PaneColorsFor(const SystemLook& system, const ColorWishes& wishes) {
    const std::uint32_t keyWord = wishes.isKeyColorChosen ? wishes.KeyHighlightColor : system.highlight;
    if (WantsDark(system, wishes)) return DarkColors(system, keyWord);
    return {.paper = system.window,
            .text = system.windowText,
            .keyWord = system.isHighContrast ? system.windowText : keyWord,
            .underlinesKeyWords = system.isHighContrast};
}

std::uint32_t BarColorOf(const PaneColors& colors) {
    return ContrastOf(colors.keyWord, colors.paper) >= kVisibleContrast ? colors.keyWord : colors.text;
}

// ---- The chosen colour ----------------------------------------------------------------------------------------------

static constexpr char kFromUser[] = "user";
static constexpr char kFromSystem[] = "system ";

std::string KeyColorFromOf(bool isChosen, std::uint32_t stored) {
    return isChosen ? kFromUser : kFromSystem + std::to_string(stored);
}

bool IsKeyColorChosen(std::uint32_t stored, const std::string& storedFrom, std::uint32_t systemHighlight) {
    if (storedFrom == kFromUser) return true;
    return storedFrom != KeyColorFromOf(false, stored) && stored != systemHighlight;
}
