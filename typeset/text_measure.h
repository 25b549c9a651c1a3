// Faces of a pane's font, and the text measuring that layouts use.
#pragma once

#include <algorithm>
#include <string_view>

enum class Face : unsigned char { kRegular, kBold, kItalic, kBoldItalic };
inline constexpr int kFaceCount = 4;

struct TextMeasure {
    void* device = nullptr;                                             // passed to both
    int (*width)(void* device, Face face, std::string_view) = nullptr;  // pixels
    int (*lineHeight)(void* device) = nullptr;                          // pixels, of the bold face
};

// Line height of a flow, at least one pixel: with 0, for a measure without a font, a layout pass would never reach the
// bottom of its pane.
inline int LineHeightOf(const TextMeasure& measure) {
    return std::max(1, measure.lineHeight(measure.device));
}
