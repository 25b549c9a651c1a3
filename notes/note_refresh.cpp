#include "notes/note_refresh.h"

#include <optional>

#include "notes/note_places.h"

// An unfinished rename has left the set without a data file (notes/note_set_changes.h).
static bool HasNoDataFile(const NoteSet& set) {
    return set.dataFileName == IndexFileName(set);
}

static bool HasNewStamps(const NoteSet& set, const NoteSet& before) {
    return set.dataStamp != before.dataStamp || set.indexStamp != before.indexStamp;
}

static void TakePlaces(const NoteFiles& files, NoteSet& set, NotePlaces places) {
    set.readOnly = !IsWhole(places);
    ++set.timesChanged;
    if (!set.readOnly) {
        set.offsets = std::move(places.offsets);
        return;
    }
    std::vector<std::uint32_t> index;
    ReadIndex(files, IndexFileName(set), index);
    set.offsets = ReadableOffsets(std::move(index), std::move(places));
}

// Reads the data file piece by piece, while other programs may read it too. nullopt if it cannot be opened.
static std::optional<NotePlaces> ScanShared(const NoteFiles& files, const std::string& name) {
    static constexpr std::size_t kPiece = std::size_t{1} << 20;
    NotePlaces places;
    std::vector<unsigned char> piece;
    do {
        if (!files.read(files.device, name, places.size, kPiece, piece)) return std::nullopt;
        AddPlaces(places, piece);
    } while (piece.size() == kPiece);
    return places;
}

SetRefresh RefreshSet(const NoteFiles& files, NoteSet& set) {
    static constexpr int kTries = 3;  // the file may be replaced while it is read
    if (HasNoDataFile(set)) return SetRefresh::kUnchanged;
    NoteSet now{set.dataFileName};
    StampFiles(files, now);
    if (!HasNewStamps(now, set)) return SetRefresh::kUnchanged;
    for (int tries = 0; tries < kTries; ++tries) {
        std::optional<NotePlaces> places = ScanShared(files, set.dataFileName);
        NoteSet after{set.dataFileName};
        StampFiles(files, after);
        if (places && !HasNewStamps(after, now)) {
            set.dataStamp = now.dataStamp;
            set.indexStamp = now.indexStamp;
            TakePlaces(files, set, std::move(*places));
            return SetRefresh::kReadAgain;
        }
        now = after;
    }
    return SetRefresh::kUnreadable;
}

void ReadSetAgain(const NoteFiles& files, NoteSet& set, void* data) {
    StampFiles(files, set);
    TakePlaces(files, set, ScanNotes(files, data));
}
