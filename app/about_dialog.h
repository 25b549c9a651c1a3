// The About dialog.
#pragma once

// Shows the version, and which text the program reads. The digests of the scripture files are computed while the dialog
// opens, not at the start.
void ShowAbout(int command);
