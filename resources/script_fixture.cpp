#include "resources/script_fixture.h"

static ResourceScript ReadOwnScripts() {
    const std::string folder = VERSEWELL_SOURCE_DIR "/resources";
    const IdTable ids = ReadIds(folder + "/ids.h");
    ResourceScript script;
    for (const char* name : {"menu.rc", "accelerators.rc", "dialogs.rc"})
        ReadScript(folder + "/" + name, VERSEWELL_MADE_RESOURCES, ids, script);
    return script;
}

const ResourceScript& Script() {
    static const ResourceScript script = ReadOwnScripts();
    return script;
}
