#include "notes/note_refresh.h"

#include <utility>

#include "notes/note_lock.h"

bool HasNoDataFile(const NoteSet& set) {
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

SetScan BeginScan(const NoteFiles& files, const std::string& dataFileName) {
    SetScan scan{NoteSet{dataFileName}, {}};
    StampFiles(files, scan.before);
    return scan;
}

ScanStep ScanNextPiece(const NoteFiles& files, SetScan& scan) {
    std::vector<unsigned char> piece;
    if (!files.read(files.device, scan.before.dataFileName, scan.places.size, kScannedAtOnce, piece))
        return ScanStep::kCannotOpen;
    AddPlaces(scan.places, piece);
    if (piece.size() == kScannedAtOnce) return ScanStep::kGoesOn;
    NoteSet after{scan.before.dataFileName};
    StampFiles(files, after);
    return HasNewStamps(after, scan.before) ? ScanStep::kChanged : ScanStep::kDone;
}

SetRefresh TakeScan(const NoteFiles& files, NoteSet& set, SetScan& scan) {
    const bool isOfStart = set.isUnchecked && !HasNewStamps(scan.before, set);
    set.isUnchecked = false;
    if (isOfStart && FitsPlaces(set.offsets, scan.places)) return SetRefresh::kUnchanged;
    set.isUntold |= isOfStart;
    set.dataStamp = scan.before.dataStamp;
    set.indexStamp = scan.before.indexStamp;
    TakePlaces(files, set, std::move(scan.places));
    return SetRefresh::kReadAgain;
}

SetRefresh RefreshSet(const NoteFiles& files, NoteSet& set) {
    static constexpr int kTries = 3;  // the file may be replaced while it is read
    if (HasNoDataFile(set)) return SetRefresh::kUnchanged;
    SetScan scan = BeginScan(files, set.dataFileName);
    if (!set.isUnchecked && !HasNewStamps(scan.before, set)) return SetRefresh::kUnchanged;
    NoteLock lock;
    for (int tries = 0; tries < kTries; ++tries) {
        ScanStep step = ScanStep::kGoesOn;
        while (step == ScanStep::kGoesOn) step = ScanNextPiece(files, scan);
        if (step == ScanStep::kDone) return TakeScan(files, set, scan);
        if (tries == 0) lock = LockAgainstSaves(files);
        scan = BeginScan(files, set.dataFileName);
    }
    return SetRefresh::kUnreadable;
}

void ReadSetAgain(const NoteFiles& files, NoteSet& set, void* data) {
    StampFiles(files, set);
    set.isUnchecked = false;
    TakePlaces(files, set, ScanNotes(files, data));
}
