#include "print/print_setup.h"

#include <cstdlib>

static int WholeInches(int margin) {
    return margin / 1000;
}

PageBox PageBoxFor(const PrinterResolution& printer, const PageMargins& margins) {
    return {printer.dotsPerInchX * WholeInches(margins.left), printer.dotsPerInchY * WholeInches(margins.top),
            printer.width - printer.dotsPerInchX * WholeInches(margins.right),
            printer.height - printer.dotsPerInchY * WholeInches(margins.bottom)};
}

int PrinterFontHeight(int screenHeight, int screenDotsPerInch, int printerDotsPerInch) {
    static constexpr int kPointsPerInch = 72;
    const int points = std::abs(screenHeight) * kPointsPerInch / screenDotsPerInch;
    return -(points * printerDotsPerInch / kPointsPerInch);
}
