#include "app/zoom.h"

#include <cstdlib>

static constexpr int kListedPoints[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

static int Rounded(int numerator, int denominator) {
    return (numerator + denominator / 2) / denominator;
}

// The dialog has whole pixels of the system's scaling, and what is stored has whole ones at 96 dpi.
int HeightOfPoints(int points, int dpi) {
    static constexpr int kPointsAnInch = 72, kUnscaledDpi = 96;
    return Rounded(Rounded(points * dpi, kPointsAnInch) * kUnscaledDpi, dpi);
}

static int Larger(int height, int dpi) {
    for (const int points : kListedPoints)
        if (HeightOfPoints(points, dpi) > height) return HeightOfPoints(points, dpi);
    return height;
}

static int Smaller(int height, int dpi) {
    int smaller = height;
    for (const int points : kListedPoints)
        if (HeightOfPoints(points, dpi) < height) smaller = HeightOfPoints(points, dpi);
    return smaller;
}

// A height of 0 is the font's own usual one, which only the font knows; the steps begin at that of the panes.
int ZoomedHeight(const FontChoice& font, int steps, int dpi) {
    const int shown = ShownHeight(font) != 0 ? std::abs(ShownHeight(font)) : FontChoice{}.height;
    int height = shown;
    for (int step = 0; step < std::abs(steps); ++step) {
        const int before = height;
        height = steps > 0 ? Larger(height, dpi) : Smaller(height, dpi);
        if (height == before) break;
    }
    return height == shown ? font.height : height;
}
