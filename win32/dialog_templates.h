// Dialogs of the program's resources, as the system creates dialogs of them.
#pragma once

#include <vector>

#include "win32/windows_api.h"

// The template of an extended dialog with a font (DIALOGEX, FONT): the DLGTEMPLATEEX that Windows documents, aligned as
// it has to be. Empty if the resources do not have it.
using DialogTemplate = std::vector<DWORD>;
DialogTemplate LoadDialogTemplate(const char* name);

// The size of its font in points. The system makes dialog and controls smaller or larger with it.
WORD& FontPoints(DialogTemplate& dialog);
