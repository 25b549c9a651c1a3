#include "data/sword_source.h"

#include <swlog.h>
#include <swmgr.h>
#include <swmodule.h>
#include <versekey.h>

#include <memory>

constexpr int kOldTestamentBooks = 39;

static std::unique_ptr<sword::SWMgr> OpenLibrary(const std::string& folder) {
    sword::SWLog::getSystemLog()->setLogLevel(-1);  // whatever goes wrong is said once, by us
    if (folder.empty()) return std::make_unique<sword::SWMgr>();
    return std::make_unique<sword::SWMgr>(folder.c_str(), true, nullptr, false, false);
}

static sword::VerseKey FirstVerseKey() {
    sword::VerseKey key;
    key.setVersificationSystem("KJV");
    key.setIntros(false);
    key.setPersist(true);  // the module follows the key as it moves
    key.setPosition(sword::TOP);
    return key;
}

Complaint ReadSwordModule(const std::string& folder, const char* name, const char* version, Verses& verses) {
    const std::unique_ptr<sword::SWMgr> library = OpenLibrary(folder);
    sword::SWModule* module = library->getModule(name);
    if (module == nullptr)
        return "there is no SWORD module " + std::string(name) + " (install the package sword-text-kjv)";
    const char* found = module->getConfigEntry("Version");
    if (found == nullptr || std::string(found) != version)
        return "the SWORD module " + std::string(name) + " is version " + (found ? found : "(unknown)") +
               ", but version " + version + " is needed";

    sword::VerseKey key = FirstVerseKey();
    module->setKey(key);
    for (; !key.popError(); key.increment()) {
        const int book = key.getBook() + (key.getTestament() == 2 ? kOldTestamentBooks : 0);
        verses.push_back({book, key.getChapter(), key.getVerse(), module->getRawEntry()});
    }
    module->setKey(sword::VerseKey());  // ours ends here
    return {};
}
