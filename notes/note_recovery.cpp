#include "notes/note_recovery.h"

#include <algorithm>
#include <optional>

#include "notes/conflict_copies.h"
#include "notes/note_backup.h"
#include "notes/note_keeping.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"
#include "scripture/letters.h"

static void Report(OpenedSets& opened, const std::string& line) {
    if (!opened.report.empty()) opened.report += "\n\n";
    opened.report += line;
}

// The lock for whatever has to be mended, which is rare: most starts do without it. What looks broken may be what
// another program is just writing. False if that one does not end: then it may come to its end later.
static bool IsLeftAlone(const NoteFiles& files, std::optional<NoteLock>& lock) {
    if (!lock) lock = LockNoteFiles(files);
    return lock->state != NoteLocking::kBusy;
}

static std::string Quoted(const std::string& name) {
    return '"' + name + '"';
}

// ---- Names ----------------------------------------------------------------------------------------------------------

// Names of the files that end in exactly `ending`, without the ending.
static std::vector<std::string> NamesBefore(const NoteFiles& files, std::string_view ending) {
    std::vector<std::string> names;
    for (const std::string& file : files.list(files.device, "*" + std::string(ending))) {
        if (file.size() < ending.size()) continue;
        const std::size_t end = file.size() - ending.size();
        if (EqualIgnoringCase(std::string_view(file).substr(end), ending)) names.push_back(file.substr(0, end));
    }
    return names;
}

// ---- Leftovers of earlier runs --------------------------------------------------------------------------------------

// Texts that were to be saved when the save failed or was stopped.
static void KeepUnsaved(const NoteFiles& files, const std::string& name, const NoteTime& now, OpenedSets& opened) {
    const LeftOverNotes notes = KeepLeftOver(files, name, now.seconds);
    if (notes.kept == 0) return;
    const bool isOne = notes.kept == 1;
    const std::string count = std::to_string(notes.kept) + (isOne ? " note that is" : " notes that are");
    const std::string done = isOne ? "It is now among the earlier notes of its verse"
                                   : "They are now among the earlier notes of their verses";
    const std::string failed = std::string(isOne ? "It" : "They") + " could not be put among the earlier notes";
    Report(opened, "A save of the note set " + Quoted(name) + " was not completed. Its temporary file " +
                       (notes.isFailed ? "has " : "had ") + count + " not in the set. " +
                       (notes.isFailed ? failed + ": this will be tried at the next start."
                                       : done + ": see Notes, Earlier Notes for this Verse."));
}

static void LookAtTwins(const NoteFiles& files, const NoteTime& now, std::optional<NoteLock>& lock,
                        OpenedSets& opened) {
    for (const std::string& name : NamesBefore(files, std::string(kDataEnding) + kTempEnding)) {
        if (!IsLeftAlone(files, lock)) return;
        if (PutTwinInPlace(files, name + kDataEnding))
            Report(opened, "The data file of the note set " + Quoted(name) +
                               " was missing. Its temporary file is whole and has taken its place.");
        else
            KeepUnsaved(files, name, now, opened);
    }
}

static constexpr char kIndexWasMissing[] = " was missing.";

static void MakeIndexAgain(const NoteFiles& files, NoteSet& set, const char* fault, OpenedSets& opened) {
    const bool written = WriteIndex(files, IndexFileName(set), set.offsets);
    StampFiles(files, set);
    Report(opened, "The index file of the note set " + Quoted(NoteSetName(set)) + fault +
                       " It has been made again from the notes, which are all there." +
                       (written ? "" : " It could not be written to the disk: this will be tried at the next start."));
}

// A copy without an index is merged, but does not become a set.
static bool IsLeftByConflict(const NoteFiles& files, const std::string& name) {
    const std::optional<ConflictName> conflict = ConflictCopyOf(files, name);
    return conflict && conflict->isCertain;
}

// Recreates missing index files before the sets are searched for. Returns the sets that still have none: the data file
// cannot be opened or is not whole, so that an index could not be trusted, or the index could not be written.
static std::vector<NoteSet> MakeLostIndexes(const NoteFiles& files, std::optional<NoteLock>& lock, OpenedSets& opened) {
    const std::vector<std::string> indexes = files.list(files.device, std::string("*") + kIndexEnding);
    std::vector<NoteSet> withoutIndex;
    for (const std::string& name : NamesBefore(files, kDataEnding)) {
        NoteSet set{name + kDataEnding};
        const bool isListed = std::any_of(indexes.begin(), indexes.end(), [&](const std::string& index) {
            return EqualIgnoringCase(std::string_view(index).substr(0, index.rfind('.')), name);
        });
        const auto hasIndex = [&] { return files.stamp(files.device, IndexFileName(set)).exists; };
        if (isListed || hasIndex() || IsLeftByConflict(files, name)) continue;
        if (IsLeftAlone(files, lock) && hasIndex()) continue;
        std::optional<NotePlaces> places = PlacesOf(files, set.dataFileName);
        if (!places && !files.stamp(files.device, set.dataFileName).exists) continue;
        if (places) {
            const bool isWhole = IsWhole(*places);
            set.offsets = std::move(places->offsets);
            if (isWhole) MakeIndexAgain(files, set, kIndexWasMissing, opened);
        }
        if (!set.indexStamp.exists) withoutIndex.push_back(std::move(set));
    }
    return withoutIndex;
}

// ---- The sets that were found ---------------------------------------------------------------------------------------

static std::string LatestWholeBackup(const NoteFiles& files, const NoteSet& set) {
    for (const SetBackup& backup : BackupsOf(files, NoteSetName(set)))
        if (OpenBackup(files, backup))
            return " The latest whole backup is of " + backup.day + ": " + Quoted(BackupName(backup) + kDataEnding) +
                   ".";
    return "";
}

static void ReportDamage(const NoteFiles& files, const NoteSet& set, const NotePlaces& places, OpenedSets& opened) {
    const std::string twin = set.dataFileName + kTempEnding;
    const bool hasTwin =
        files.stamp(files.device, twin).exists && IsWhole(PlacesOf(files, twin).value_or(NotePlaces{}));
    opened.hasDamaged = true;
    Report(opened, "The data file " + Quoted(set.dataFileName) + " is damaged: it should hold " +
                       std::to_string(kVerseCount) + " notes, but it has " + std::to_string(places.ends) +
                       ". It is left as it is, so that you can rescue what it holds: the set can be read, but no note "
                       "can be saved in it." +
                       (hasTwin ? " A whole copy of the set is in " + Quoted(twin) + "." : "") +
                       LatestWholeBackup(files, set));
}

// False if the data file cannot be opened.
static bool Examine(const NoteFiles& files, NoteSet& set, bool isReported, OpenedSets& opened) {
    std::optional<NotePlaces> places = PlacesOf(files, set.dataFileName);
    if (!places) set.dataStamp = {};  // the first read examines it
    if (!places || FitsPlaces(set.offsets, *places)) return places.has_value();
    set.readOnly = !IsWhole(*places);
    if (set.readOnly) {
        if (isReported) ReportDamage(files, set, *places, opened);
        set.offsets = ReadableOffsets(std::move(set.offsets), std::move(*places));
        return true;
    }
    set.offsets = std::move(places->offsets);
    const bool hasIndex = files.stamp(files.device, IndexFileName(set)).exists;
    MakeIndexAgain(files, set, hasIndex ? " did not match its notes." : kIndexWasMissing, opened);
    return true;
}

// Has the file one note after the offset of the last one, as the index says, and a NUL before it?
static bool EndsAsIndexed(const NoteFiles& files, const NoteSet& set) {
    const std::vector<std::uint32_t>& offsets = set.offsets;
    if (offsets.size() != kVerseCount || offsets.front() != 0 || !std::is_sorted(offsets.begin(), offsets.end()))
        return false;
    const std::uint64_t size = set.dataStamp.size, last = offsets.back();
    if (last == 0 || size <= last || size - last > kNoteBufferSize) return false;
    std::vector<unsigned char> end;
    return files.read(files.device, set.dataFileName, last - 1, static_cast<std::size_t>(size - last) + 2, end) &&
           end.size() == size - last + 1 && end.front() == 0 && std::count(end.begin(), end.end(), 0) == 2 &&
           end.back() == 0;
}

static void ReadIndexAgain(const NoteFiles& files, NoteSet& set) {
    StampFiles(files, set);
    if (!ReadIndex(files, IndexFileName(set), set.offsets)) set.offsets.clear();
}

// Has another program just written the set?
static bool HasNewEnd(const NoteFiles& files, NoteSet& set) {
    const NoteFileStamp data = set.dataStamp, index = set.indexStamp;
    StampFiles(files, set);
    if (set.dataStamp == data && set.indexStamp == index) return false;
    ReadIndexAgain(files, set);
    return EndsAsIndexed(files, set);
}

// What cannot be opened is told later, if it still cannot be opened then: another program may be about to replace it.
static void ExamineOrPutOff(const NoteFiles& files, NoteSet& set, bool isReported, std::optional<NoteLock>& lock,
                            OpenedSets& opened) {
    set.isUnchecked = EndsAsIndexed(files, set) || (IsLeftAlone(files, lock) && HasNewEnd(files, set));
    if (!set.isUnchecked) set.isUntold = !Examine(files, set, isReported, opened) && isReported;
}

static void NoteDamaged(OpenedSets& opened, std::size_t set) {
    if (opened.hasDamaged && opened.damagedSet == kNoDamagedSet) opened.damagedSet = static_cast<int>(set);
}

OpenedSets OpenNoteSets(const NoteFiles& files, NoteSets& notes, const NoteTime& now,
                        std::span<const std::string> knownDamaged) {
    OpenedSets opened;
    std::optional<NoteLock> lock;
    LookAtTwins(files, now, lock, opened);
    const std::vector<NoteSet> withoutIndex = MakeLostIndexes(files, lock, opened);
    opened.created = FindNoteSets(files, notes);
    for (const NoteSet& set : withoutIndex) {
        const bool isThere = std::any_of(notes.sets.begin(), notes.sets.end(), [&](const NoteSet& found) {
            return EqualIgnoringCase(found.dataFileName, set.dataFileName);
        });
        if (isThere) continue;
        if (notes.sets.size() < kNoteSetLimit)
            notes.sets.push_back(set);
        else
            notes.notShown.push_back(NoteSetName(set));
    }
    for (std::size_t i = 0; i < notes.sets.size(); ++i) {
        // If the first set could not be created, that is already reported.
        if (std::ranges::find(knownDamaged, NoteSetName(notes.sets[i])) != knownDamaged.end())
            Examine(files, notes.sets[i], false, opened);
        else
            ExamineOrPutOff(files, notes.sets[i], opened.created || i > 0, lock, opened);
        NoteDamaged(opened, i);
    }
    return opened;
}

// The index is read again, because the offsets in memory are those of the notes by now. False if the data file cannot
// be opened.
static bool ExamineAgain(const NoteFiles& files, NoteSet& set, OpenedSets& opened) {
    set.isUntold = false;
    ReadIndexAgain(files, set);
    const bool isOpened = Examine(files, set, true, opened);
    ++set.timesChanged;
    return isOpened;
}

// Adds a sentence about data files.
static void AddToUnread(OpenedSets& opened, const std::vector<std::string>& names, const std::string& ofOne,
                        const std::string& ofMore) {
    if (names.empty()) return;
    if (!opened.unread.empty()) opened.unread += ' ';
    for (const std::string& name : names) opened.unread += (&name == &names.front() ? "" : ", ") + name;
    opened.unread += ' ' + (names.size() == 1 ? ofOne : ofMore);
}

OpenedSets RepairCheckedSets(const NoteFiles& files, NoteSets& notes) {
    OpenedSets opened;
    std::vector<std::string> missing, unreadable;
    if (std::ranges::none_of(notes.sets, &NoteSet::isUntold)) return opened;
    const NoteLock lock = LockNoteFiles(files);
    for (std::size_t i = 0; i < notes.sets.size(); ++i) {
        NoteSet& set = notes.sets[i];
        if (!set.isUntold) continue;
        if (!ExamineAgain(files, set, opened)) {
            const bool exists = files.stamp(files.device, set.dataFileName).exists;
            (exists ? unreadable : missing).push_back(set.dataFileName);
        }
        NoteDamaged(opened, i);
    }
    AddToUnread(opened, missing, "is missing.", "are missing.");
    AddToUnread(opened, unreadable, "cannot be opened.", "cannot be opened.");
    return opened;
}
