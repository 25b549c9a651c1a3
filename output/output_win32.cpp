#include "output/output_win32.h"

Selection theSelection;
ReadingOptions theReading;
FormatOptions theFormat;

void DropSelection() {
    theSelection.SelectionOwner = kNobody;
    theSelection.dragging = false;
}
