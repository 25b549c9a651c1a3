// The sizes through which a pane's letters are made larger and smaller: those that the system's font dialog lists.
#pragma once

#include "typeset/reading_options.h"

// The height of a FontChoice when a size is chosen in that dialog, on a system with `dpi` dots per inch.
int HeightOfPoints(int points, int dpi);

// The height of `font` made larger by `steps` sizes, or smaller if negative. From a size that is not listed the first
// step leads to the next one that is. Beyond the last listed size the height stays what it is.
int ZoomedHeight(const FontChoice& font, int steps, int dpi);
