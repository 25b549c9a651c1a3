// From the page set-up to places and sizes in the pixels of a printer.
#pragma once

// Margins as the page set-up gives them: thousandths of an inch, in metric locales hundredths of a millimetre.
struct PageMargins {
    int left = 1000, top = 1000, right = 1000, bottom = 1000;
};

struct PrinterResolution {
    int width = 0, height = 0;  // of what can be printed on, pixels
    int dotsPerInchX = 0, dotsPerInchY = 0;
};

// Where words may stand: from `left` up to `right`, from `top` down to `bottom`.
struct PageBox {
    int left = 0, top = 0, right = 0, bottom = 0;
    bool operator==(const PageBox&) const = default;
};

// Each margin is divided by 1000 in integers whatever its unit, so that it counts in whole inches: 900 are none, 1500
// are one. Pages are known to come out this way.
PageBox PageBoxFor(const PrinterResolution& printer, const PageMargins& margins);

// Font height for a printer, negative: a character height. `screenHeight` is the one on the screen, of either sign.
// Points and pixels are whole numbers on the way, points first. Dots per inch are not 0.
int PrinterFontHeight(int screenHeight, int screenDotsPerInch, int printerDotsPerInch);
