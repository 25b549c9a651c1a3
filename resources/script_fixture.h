// The program's own resource scripts, read once for the tests.
#pragma once

#include "resources/resource_script.h"

inline const ResourceScript& Script() {
    static const ResourceScript script = [] {
        const std::string folder = VERSEWELL_SOURCE_DIR "/resources";
        const IdTable ids = ReadIds(folder + "/ids.h");
        ResourceScript read;
        for (const char* name : {"menu.rc", "accelerators.rc", "dialogs.rc"})
            ReadScript(folder + "/" + name, VERSEWELL_MADE_RESOURCES, ids, read);
        return read;
    }();
    return script;
}
