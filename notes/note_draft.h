// The unsaved text of the note editor, which can be kept elsewhere and edited on.
#pragma once

#include <string>

struct NoteDraft {
    std::string setName;
    int verse = 0;
    std::string openedOn;  // the note as it was stored when the editor was opened, up to its first NUL
    std::string text;
};
