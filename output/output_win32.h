// What the panes share: the selection, how scripture is shown, and how verses are labelled outside the program.
#pragma once

#include "output/format_options.h"
#include "output/reading_options.h"
#include "output/selection.h"

extern Selection theSelection;
extern ReadingOptions theReading;
extern FormatOptions theFormat;

// Lets go of the selection, wherever it is, and of the mouse's hold on it.
void DropSelection();
