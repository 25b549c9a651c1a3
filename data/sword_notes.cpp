#include "data/sword_notes.h"

#include <listkey.h>
#include <swmgr.h>
#include <swmodule.h>
#include <versekey.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <optional>
#include <regex>

#include "data/muted_errors.h"

namespace fs = std::filesystem;

namespace {

constexpr int kOldTestamentBooks = 39;
constexpr char kVersification[] = "KJV";

// Number of records of an index: one for each verse, chapter and book, the testament and the module.
struct Testament {
    const char* name;
    std::uintmax_t records;
};
constexpr Testament kTestaments[] = {{"ot", 23145 + 929 + 39 + 2}, {"nt", 7957 + 260 + 27 + 2}};

struct DriverRow {
    const char* name;
    std::uintmax_t recordSize;  // bytes
    const char* indexEnding;    // extension of the file, without the letter for the blocks of compressed text
};
constexpr DriverRow kDrivers[] = {
    {"RawCom", 6, "vss"},
    {"RawCom4", 8, "vss"},
    {"zCom", 10, "zv"},
    {"zCom4", 12, "zv"},
};

}  // namespace

// ---- The library ----------------------------------------------------------------------------------------------------

static std::string Entry(const sword::ConfigEntMap& section, const char* key) {
    const auto found = section.find(key);
    return found == section.end() ? std::string() : std::string(found->second.c_str());
}

static const DriverRow* DriverOf(const std::string& name) {
    const auto* found = std::find_if(std::begin(kDrivers), std::end(kDrivers),
                                     [&name](const DriverRow& row) { return name == row.name; });
    return found == std::end(kDrivers) ? nullptr : found;
}

// Size of a testament's index in `folder`; 0 if there is none.
static std::uintmax_t IndexSize(const fs::path& folder, const Testament& testament, const DriverRow& driver) {
    std::uintmax_t size = 0;
    std::error_code error;
    for (const fs::directory_entry& file : fs::directory_iterator(folder, error)) {
        const std::string name = file.path().filename().string();
        if (name.starts_with(std::string(testament.name) + ".") && name.ends_with(driver.indexEnding))
            size = std::max(size, file.file_size(error));
    }
    return error ? 0 : size;
}

static bool HasWholeIndexes(const fs::path& folder, const DriverRow& driver) {
    return std::all_of(std::begin(kTestaments), std::end(kTestaments), [&](const Testament& testament) {
        const std::uintmax_t size = IndexSize(folder, testament, driver);
        return size == 0 || size == testament.records * driver.recordSize;
    });
}

// Corrects the driver of one commentary: its configuration says zCom4, but its index has the shorter records of zCom
// and would be read as nonsense. The library calls createModule for each module.
struct Library : sword::SWMgr {
    explicit Library(const std::string& folder)
        : sword::SWMgr(folder.empty() ? nullptr : folder.c_str(), false, nullptr, false, folder.empty()) {
        load();
    }

    fs::path FolderOf(const sword::ConfigEntMap& section) const {
        const std::string path = Entry(section, "DataPath");
        return fs::path(prefixPath) / (path.starts_with("./") ? path.substr(2) : path);
    }

    sword::SWModule* createModule(const char* name, const char* driver, sword::ConfigEntMap& section) override {
        const bool isShorter = std::strcmp(driver, "zCom4") == 0 && !HasWholeIndexes(FolderOf(section), kDrivers[3]) &&
                               HasWholeIndexes(FolderOf(section), kDrivers[2]);
        if (isShorter) section["ModDrv"] = kDrivers[2].name;
        return sword::SWMgr::createModule(name, isShorter ? kDrivers[2].name : driver, section);
    }
};

// ---- Verses ---------------------------------------------------------------------------------------------------------

static int BookOf(const sword::VerseKey& key) {
    return key.getBook() + (key.getTestament() == 2 ? kOldTestamentBooks : 0);
}

static sword::VerseKey FirstVerse() {
    sword::VerseKey key;
    key.setVersificationSystem(kVersification);
    key.setIntros(false);
    key.setPersist(true);  // the module uses this key instead of a copy
    key.setPosition(sword::TOP);
    return key;
}

std::vector<unsigned char> VerseRecordsOfLibrary() {
    std::vector<unsigned char> records;
    for (sword::VerseKey key = FirstVerse(); !key.popError(); key.increment())
        for (const int part : {BookOf(key), key.getChapter(), key.getVerse(), 0, 0, 0, 0})
            records.push_back(static_cast<unsigned char>(part));
    return records;
}

struct ReferenceDevice {
    const VerseRecords& records;
    sword::VerseKey key;
};

static int VerseIndexOf(const VerseRecords& records, const sword::VerseKey& key) {
    return VerseLookup(records, BookOf(key), key.getChapter(), key.getVerse());
}

static std::optional<VerseRange> RangeOf(const VerseRecords& records, const sword::SWKey* element) {
    const auto* key = dynamic_cast<const sword::VerseKey*>(element);
    if (key == nullptr) return std::nullopt;
    const bool isRange = key->isBoundSet();
    VerseRange range{VerseIndexOf(records, isRange ? key->getLowerBound() : *key),
                     VerseIndexOf(records, isRange ? key->getUpperBound() : *key)};
    if (range.first == kNoVerse || range.last < range.first) return std::nullopt;
    // The library reads an end that does not exist ("isa 11:10-isa 1214:1") as the end of the Bible.
    if (RecordOf(records, range.first).book != RecordOf(records, range.last).book) range.last = range.first;
    return range;
}

// Inserts semicolons into "lu 17:26-29 lu 17:32", because the library would read it as a range to the end of the Bible.
static std::string WithStops(const std::string& text) {
    static const std::regex kVerseAndBlank("([:.][0-9]+(?:-[0-9]+(?:[:.][0-9]+)?)?) +(?=[0-9A-Za-z])");
    return std::regex_replace(text, kVerseAndBlank, "$1; ");
}

static std::vector<VerseRange> ReadReferences(void* device, const std::string& text, int verse) {
    auto& [records, key] = *static_cast<ReferenceDevice*>(device);
    const VerseRecord here = RecordOf(records, verse);
    const std::string place = here.book == 0 ? "" : ReferenceText(records, verse, BookForm::kName);
    const sword::ListKey list = key.parseVerseList(WithStops(text).c_str(), place.c_str(), true);
    std::vector<VerseRange> ranges;
    for (int i = 0; i < list.getCount(); ++i)
        if (const auto range = RangeOf(records, list.getElement(i))) ranges.push_back(*range);
    return ranges;
}

void ReferenceDeviceDeleter::operator()(ReferenceDevice* device) const {
    delete device;
}

UniqueReferenceDevice MakeReferenceDevice(const VerseRecords& records) {
    UniqueReferenceDevice device(new ReferenceDevice{records, {}});
    device->key.setLocale("en");
    device->key.setVersificationSystem(kVersification);
    return device;
}

ReferenceReader ReaderOf(ReferenceDevice& device) {
    return {&device, ReadReferences};
}

// ---- Entries --------------------------------------------------------------------------------------------------------

static Complaint Damaged(const sword::SWModule& module, const std::string& place) {
    return std::string("the SWORD module ") + module.getName() + " is damaged: " + place + " cannot be read";
}

// Verses with a shared text follow one another. The entry of a chapter or a book is an introduction to its first verse.
static Complaint ReadCommentary(sword::SWModule& module, const VerseRecords& records,
                                std::vector<CommentaryEntry>& entries) {
    sword::VerseKey key = FirstVerse();
    key.setIntros(true);
    key.setPosition(sword::TOP);
    sword::VerseKey before = key;
    for (; !key.popError(); key.increment()) {
        const bool isIntroduction = key.getVerse() == 0;
        if (key.getBook() == 0 || !module.hasEntry(&key)) continue;
        const int verse = VerseIndexOf(records, key);
        const bool goesOn = !isIntroduction && !entries.empty() && !entries.back().isIntroduction &&
                            entries.back().verses.last == verse - 1 && module.isLinked(&before, &key);
        if (!isIntroduction) before = key;
        if (goesOn) {
            entries.back().verses.last = verse;
            continue;
        }
        module.setKey(key);
        entries.push_back({{verse, verse}, module.getRawEntry(), isIntroduction});
        if (entries.back().text.empty()) return Damaged(module, ReferenceText(records, verse, BookForm::kName));
    }
    return {};
}

// The month and the day of a key such as "02.29"; nothing for any other key.
static std::optional<DayEntry> DayOfKey(const std::string& key) {
    static constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (key.size() != 5 || key[2] != '.' || key.find_first_not_of("0123456789.") != std::string::npos)
        return std::nullopt;
    const int month = std::atoi(key.c_str()), day = std::atoi(key.c_str() + 3);
    if (month < 1 || month > 12 || day < 1 || day > kDays[month - 1]) return std::nullopt;
    return DayEntry{month, day, {}};
}

static Complaint ReadDays(sword::SWModule& module, NotesModule& result) {
    for (module.setPosition(sword::TOP); !module.popError(); module.increment()) {
        const std::string key = module.getKeyText();
        std::optional<DayEntry> entry = DayOfKey(key);
        if (!entry) {
            ++result.otherEntries;
            continue;
        }
        entry->text = module.getRawEntry();
        if (entry->text.empty()) return Damaged(module, "the day " + key);
        result.days.push_back(std::move(*entry));
    }
    return {};
}

// ---- Modules --------------------------------------------------------------------------------------------------------

static Complaint CheckCommentary(const Library& library, const sword::ConfigEntMap& section, const std::string& name) {
    const std::string versification = Entry(section, "Versification");
    if (!versification.empty() && versification != kVersification)
        return "the SWORD module " + name + " divides the Bible into verses in another way (" + versification + ")";
    const DriverRow* driver = DriverOf(Entry(section, "ModDrv"));
    if (driver != nullptr && !HasWholeIndexes(library.FolderOf(section), *driver))
        return "the SWORD module " + name + " is damaged: its index is not whole";
    return {};
}

static bool IsDevotional(const sword::ConfigEntMap& section) {
    const auto [first, last] = section.equal_range("Feature");
    return Entry(section, "Category") == "Daily Devotional" ||
           std::any_of(first, last, [](const auto& entry) { return entry.second == "DailyDevotion"; });
}

static Complaint ReadEntries(const Library& library, sword::SWModule& module, NotesModule& result) {
    const sword::ConfigEntMap& section = library.config->getSection(module.getName());
    const std::vector<unsigned char> records = VerseRecordsOfLibrary();
    Complaint complaint;
    if (result.isDevotional) {
        complaint = ReadDays(module, result);
    } else {
        complaint = CheckCommentary(library, section, module.getName());
        if (complaint.empty()) complaint = ReadCommentary(module, {records}, result.commentary);
        module.setKey(sword::VerseKey());
    }
    if (complaint.empty() && result.days.empty() && result.commentary.empty())
        return std::string("the SWORD module ") + module.getName() + " has no text, or its files are missing";
    return complaint;
}

Complaint ReadNotesModule(const std::string& folder, const std::string& name, NotesModule& result) {
    const MutedErrors muted = MuteErrors();
    std::error_code error;
    // Without mods.d the library would use modules from somewhere else.
    if (!folder.empty() && !fs::is_directory(fs::path(folder) / "mods.d", error))
        return "there is no SWORD module " + name + " in " + folder;
    Library library(folder);
    sword::SWModule* module = library.getModule(name.c_str());
    if (module == nullptr) return "there is no SWORD module " + name;
    const sword::ConfigEntMap& section = library.config->getSection(name.c_str());
    if (section.contains("CipherKey") && Entry(section, "CipherKey").empty())
        return "the SWORD module " + name + " is locked: it has no key";
    result.description = module->getDescription();
    result.isDevotional = IsDevotional(section);
    if (!result.isDevotional && std::strcmp(module->getType(), "Commentaries") != 0)
        return "the SWORD module " + name +
               " is neither a commentary nor a daily devotional, but: " + module->getType();
    return ReadEntries(library, *module, result);
}
