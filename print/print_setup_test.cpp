#include "print/print_setup.h"

#include <gtest/gtest.h>

#include <ostream>

static void PrintTo(const PageBox& box, std::ostream* out) {
    *out << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom;
}

TEST(PageBox, RoundsMarginsDownToWholeInches) {
    const PrinterResolution printer{4800, 6000, 600, 300};
    const struct {
        PageMargins margins;
        PageBox box;
    } rows[] = {
        {{1000, 1000, 1000, 1000}, {600, 300, 4200, 5700}},
        {{500, 500, 500, 500}, {0, 0, 4800, 6000}},
        {{750, 999, 750, 999}, {0, 0, 4800, 6000}},
        {{1900, 1900, 1900, 1900}, {600, 300, 4200, 5700}},
        {{1500, 2000, 0, 3999}, {600, 600, 4800, 5100}},
        // 2.54 cm in a metric locale; the unit differs, but is divided in the same way
        {{2540, 2540, 2540, 2540}, {1200, 600, 3600, 5400}},
        {{1000, 2000, 3000, 4000}, {600, 600, 3000, 4800}},
    };
    for (const auto& [margins, box] : rows) EXPECT_EQ(PageBoxFor(printer, margins), box) << margins.left;
}

TEST(PrinterFontHeight, RoundsPointsAndThenPixels) {
    const struct {
        int screen, screenDots, printerDots, height;
    } rows[] = {
        {-16, 96, 600, -100},                         // 12 points
        {16, 96, 600, -100},   {-17, 96, 600, -100},  // 12.75 points are rounded to 12
        {-15, 96, 600, -91},                          // 11 points, 91.67 pixels
        {-13, 96, 300, -37},                          // 9 points, 37.5 pixels
        {-24, 144, 600, -100}, {-1, 96, 600, 0},     {-32767, 96, 2400, -819166},
    };
    for (const auto& [screen, screenDots, printerDots, height] : rows)
        EXPECT_EQ(PrinterFontHeight(screen, screenDots, printerDots), height) << screen;
}
