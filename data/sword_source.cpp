#include "data/sword_source.h"

#include <swmgr.h>
#include <swmodule.h>
#include <versekey.h>

#include <memory>

#include "data/muted_errors.h"

constexpr int kOldTestamentBooks = 39;

static std::unique_ptr<sword::SWMgr> OpenLibrary(const std::string& folder) {
    if (folder.empty()) return std::make_unique<sword::SWMgr>();
    return std::make_unique<sword::SWMgr>(folder.c_str(), true, nullptr, false, false);
}

static sword::VerseKey FirstVerseKey() {
    sword::VerseKey key;
    key.setVersificationSystem("KJV");
    key.setIntros(false);
    key.setPersist(true);  // the module uses this key instead of a copy
    key.setPosition(sword::TOP);
    return key;
}

static Complaint CheckModule(const sword::SWModule* module, const std::string& name, const std::string& version) {
    if (module == nullptr) return "there is no SWORD module " + name + " (install the package sword-text-kjv)";
    const char* found = module->getConfigEntry("Version");
    if (found != nullptr && found == version) return {};
    return "the SWORD module " + name + " is version " + (found != nullptr ? found : "(unknown)") + ", but version " +
           version + " is needed";
}

static Complaint ReadEntries(sword::SWModule& module, sword::VerseKey& key, Verses& verses) {
    for (; !key.popError(); key.increment()) {
        const int book = key.getBook() + (key.getTestament() == 2 ? kOldTestamentBooks : 0);
        verses.push_back({book, key.getChapter(), key.getVerse(), module.getRawEntry()});
        if (verses.back().text.empty())
            return std::string("the SWORD module ") + module.getName() + " is damaged: " + ReferenceOf(verses.back()) +
                   " cannot be read";
    }
    return {};
}

Complaint ReadSwordModule(const std::string& folder, const char* name, const char* version, Verses& verses) {
    const MutedErrors muted = MuteErrors();
    const std::unique_ptr<sword::SWMgr> library = OpenLibrary(folder);
    sword::SWModule* module = library->getModule(name);
    Complaint complaint = CheckModule(module, name, version);
    if (!complaint.empty()) return complaint;

    sword::VerseKey key = FirstVerseKey();
    module->setKey(key);
    complaint = ReadEntries(*module, key, verses);
    module->setKey(sword::VerseKey());  // the module outlives our key
    return complaint;
}
