#include "notes/note_set.h"

#include <numeric>
#include <utility>

#include "notes/note_places.h"
#include "scripture/verse_records.h"

std::string NoteSetName(const NoteSet& set) {
    return set.dataFileName.substr(0, set.dataFileName.rfind('.'));
}

std::string IndexFileName(const NoteSet& set) {
    return NoteSetName(set) + kIndexEnding;
}

void StampFiles(const NoteFiles& files, NoteSet& set) {
    set.dataStamp = files.stamp(files.device, set.dataFileName);
    set.indexStamp = files.stamp(files.device, IndexFileName(set));
}

std::optional<NoteSet> ReadWholeSet(const NoteFiles& files, const std::string& dataFileName) {
    NoteSet set{dataFileName};
    StampFiles(files, set);
    std::optional<NotePlaces> places = PlacesOf(files, dataFileName);
    if (!places || !IsWhole(*places)) return std::nullopt;
    set.offsets = std::move(places->offsets);
    return set;
}

NoteSet EmptyNoteSet(const std::string& name) {
    NoteSet set{name + kDataEnding, std::vector<std::uint32_t>(kVerseCount)};
    std::iota(set.offsets.begin(), set.offsets.end(), 0u);
    return set;
}

// An empty note is a NUL. An existing data file is not overwritten: it may have notes whose index was lost.
int CreateNoteFiles(const NoteFiles& files, NoteSet& set) {
    const std::vector<unsigned char> emptyNotes(kVerseCount, 0);
    int created = 0;
    if (files.create(files.device, set.dataFileName, emptyNotes)) {
        created = files.create(files.device, IndexFileName(set), IndexBytes(set.offsets)) ? 2 : 1;
    }
    StampFiles(files, set);
    return created;
}

// nullopt if the index file is too short.
static std::optional<std::uint32_t> OffsetOf(const NoteSet& set, int verse) {
    const bool exists = verse >= 0 && static_cast<std::size_t>(verse) < set.offsets.size();
    return exists ? std::optional(set.offsets[static_cast<std::size_t>(verse)]) : std::nullopt;
}

// Bytes from `begin` to `end`; 0 if a damaged index has them in reverse order.
static std::uint64_t LengthBetween(std::uint64_t begin, std::uint64_t end) {
    return end > begin ? end - begin : 0;
}

StoredNote StoredNoteOf(const NoteSet& set, int verse) {
    const auto offset = OffsetOf(set, verse);
    if (!offset) return {};
    if (verse == kLastVerse) return {*offset, kNoteBufferSize};
    const auto next = OffsetOf(set, verse + 1);
    return {*offset, next ? LengthBetween(*offset, *next) : 0};
}

bool NoteExists(const NoteFiles& files, const NoteSet& set, int verse) {
    if (verse != kLastVerse) return StoredNoteOf(set, verse).length > 1;
    const auto offset = OffsetOf(set, verse);
    return offset && LengthBetween(*offset, files.size(files.device, set.dataFileName)) > 1;
}
