#include "cli/readings.h"

#include <algorithm>
#include <vector>

#include "cli/command.h"
#include "cli/text_folder.h"
#include "notes/note_places.h"

namespace {

struct ReadFolder {
    const Surroundings& surroundings;
    std::string folder;
};

}  // namespace

static std::optional<std::string> BytesOf(void* device, const std::string& name) {
    const auto& [surroundings, folder] = *static_cast<const ReadFolder*>(device);
    return surroundings.readFile(surroundings.device, PathIn(folder, name));
}

static bool Read(void* device, const std::string& name, std::uint64_t offset, std::size_t limit,
                 std::vector<unsigned char>& bytes) {
    const auto file = BytesOf(device, name);
    if (!file) return false;
    const std::size_t begin = static_cast<std::size_t>(std::min<std::uint64_t>(offset, file->size()));
    const std::string part = file->substr(begin, limit);
    bytes.assign(part.begin(), part.end());
    return true;
}

static NoteFileStamp Stamp(void* device, const std::string& name) {
    const auto file = BytesOf(device, name);
    return file ? NoteFileStamp{true, file->size(), 0} : NoteFileStamp{};
}

// A damaged table would give false readings.
[[noreturn]] static void ComplainOfTable(const ReadFolder& folder, const std::string& name) {
    throw Complaint{kFileTrouble, "--folder: the table of readings " + PathIn(folder.folder, name) + " is damaged"};
}

static bool HasOnlyVerses(const NoteSets& notes) {
    return std::ranges::all_of(notes.devotionalTable,
                               [](std::uint32_t verse) { return verse <= std::uint32_t{kLastVerse}; });
}

static Reading ReadingOf(const NoteFiles& files, NoteSets& notes, Date date, TimeOfDay time) {
    Reading reading{VerseOfDevotional(notes, date, time), {}};
    notes.currentVerse = reading.verse;
    std::string stored;
    if (ReadStoredNote(files, notes, stored)) reading.note = Utf8OfNote(files.codePage, stored);
    return reading;
}

static std::optional<DayReadings> ReadingsIn(const Surroundings& surroundings, const std::string& folder, Date date) {
    const std::vector<std::string> tables = surroundings.list(surroundings.device, folder, kTableEnding);
    if (tables.empty()) return std::nullopt;
    ReadFolder device{surroundings, folder};
    if (Stamp(&device, tables.back()).size != kDevotionalFileSize) ComplainOfTable(device, tables.back());
    NoteFiles files;
    files.device = &device;
    files.read = Read;
    files.stamp = Stamp;
    NoteSets notes;
    const std::string name = tables.back().substr(0, tables.back().rfind('.'));
    notes.sets.push_back({name + kDataEnding});
    NoteSet& set = notes.sets.back();
    StampFiles(files, set);
    if (!ReadIndex(files, IndexFileName(set), set.offsets)) return std::nullopt;
    ReadDevotionalTable(files, notes, 0);
    if (!HasOnlyVerses(notes)) ComplainOfTable(device, tables.back());
    return DayReadings{name, ReadingOf(files, notes, date, TimeOfDay::kMorning),
                       ReadingOf(files, notes, date, TimeOfDay::kEvening)};
}

std::optional<DayReadings> ReadingsOf(const Surroundings& surroundings, std::span<const std::string> folders,
                                      Date date) {
    for (const std::string& folder : folders)
        if (const auto readings = ReadingsIn(surroundings, folder, date)) return readings;
    return std::nullopt;
}
