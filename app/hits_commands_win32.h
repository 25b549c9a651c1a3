// The commands of Hits by Book (verselist/hits_strip_window.h).
#pragma once

// Shows or hides the strip.
void ToggleHits(int command);

// Puts the table on the clipboard.
void CopyHits(int command);

// IDM_LIST_CHANGED: shows the hits of the new entries, if the strip is shown.
void ShowHitsOfList(int command);
