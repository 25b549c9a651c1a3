#include "notes/set_texts.h"

#include <algorithm>
#include <cassert>
#include <limits>

#include "notes/note_backup.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "notes/whole_files.h"

static constexpr std::size_t kDataLimit = std::numeric_limits<std::uint32_t>::max();  // of what offsets can address

static NotePlaces PlacesIn(const std::vector<unsigned char>& data) {
    NotePlaces places;
    AddPlaces(places, data);
    return places;
}

bool ReadSetTexts(const NoteFiles& files, const std::string& dataFileName, std::vector<std::string>& texts) {
    std::vector<unsigned char> data;
    if (!ReadWholeFile(files, dataFileName, kDataLimit, data)) return false;
    const NotePlaces places = PlacesIn(data);
    if (!IsWhole(places)) return false;
    texts.clear();
    texts.reserve(kVerseCount);
    for (const std::uint32_t offset : places.offsets)
        texts.emplace_back(reinterpret_cast<const char*>(data.data()) + offset);  // up to its NUL
    return true;
}

static std::vector<unsigned char> DataOf(std::span<const std::string> texts) {
    std::vector<unsigned char> data;
    for (const std::string& text : texts) {
        data.insert(data.end(), text.begin(), text.end());
        data.push_back(0);
    }
    return data;
}

static bool HasChangedOnDisk(const NoteFiles& files, const NoteSet& set) {
    return files.stamp(files.device, set.dataFileName) != set.dataStamp ||
           files.stamp(files.device, IndexFileName(set)) != set.indexStamp;
}

// An empty text says nothing that could be lost.
static bool KeepReplaced(const NoteFiles& files, const NoteSet& set, std::span<const std::string> before,
                         std::span<const std::string> after, KeptReason reason, std::int64_t now) {
    std::vector<EarlierNote> replaced;
    for (std::size_t verse = 0; verse < before.size(); ++verse)
        if (before[verse] != after[verse] && !before[verse].empty())
            replaced.push_back({now, static_cast<int>(verse), reason, before[verse]});
    return replaced.empty() || KeepEarlierNotes(files, NoteSetName(set), replaced);
}

SetReplacing ReplaceSetTexts(const NoteFiles& files, NoteSet& set, std::span<const std::string> texts,
                             KeptReason reason, const NoteTime& now) {
    assert(texts.size() == kVerseCount);
    const NoteLock lock = LockNoteFiles(files, set.dataStamp.size);
    if (set.readOnly) return SetReplacing::kNotWhole;
    if (HasChangedOnDisk(files, set)) return SetReplacing::kChangedOnDisk;
    std::vector<std::string> before;
    if (!ReadSetTexts(files, set.dataFileName, before)) return SetReplacing::kNotWhole;
    const std::vector<unsigned char> data = DataOf(texts);
    if (std::ranges::equal(texts, before)) {
        set.offsets = PlacesIn(data).offsets;
        return SetReplacing::kReplaced;
    }
    if (data.size() > kDataLimit) return SetReplacing::kCannotWrite;
    KeepBackup(files, set, now.day);
    if (!KeepReplaced(files, set, before, texts, reason, now.seconds)) return SetReplacing::kCannotWrite;
    if (HasChangedOnDisk(files, set)) return SetReplacing::kChangedOnDisk;  // while the earlier states were written
    if (!WriteWholeFile(files, set.dataFileName, data)) return SetReplacing::kCannotWrite;
    set.offsets = PlacesIn(data).offsets;
    WriteIndex(files, IndexFileName(set), set.offsets);
    StampFiles(files, set);
    return SetReplacing::kReplaced;
}
