#include "history/set_merging.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <tuple>

#include "notes/conflict_copies.h"
#include "notes/note_backup.h"
#include "notes/note_lock.h"
#include "notes/set_texts.h"
#include "scripture/letters.h"

static const std::string kInBackups = std::string(kBackupFolder) + '/';

// ---- Planning -------------------------------------------------------------------------------------------------------

// Those of the days before the first saves: the others may be of a set of that name that was deleted.
static void ReadBackups(const NoteFiles& files, const std::string& set, EarlierStates& states) {
    std::vector<std::string> texts;
    std::vector<SetBackup> backups = BackupsOf(files, set);
    std::ranges::reverse(backups);
    for (const SetBackup& backup : backups)
        if (backup.clock.empty() && ReadSetTexts(files, BackupName(backup) + kDataEnding, texts))
            states.backups.push_back(std::move(texts));
}

// A backup's data file has the time at which the set was written last, unless the file had to be copied: then a later
// one. Neither tells too much.
static bool IsAfterBackups(const NoteFiles& files, const std::string& copy, const std::string& set) {
    const auto timeOf = [&](const std::string& name) { return files.stamp(files.device, name + kDataEnding).time; };
    std::vector<SetBackup> backups = BackupsOf(files, set);
    std::erase_if(backups, [](const SetBackup& backup) { return !backup.clock.empty(); });
    return !backups.empty() && timeOf(copy) > timeOf(BackupName(backups.back()));
}

// The copy's own history, and those that belong to a copy whatever its name is.
static std::set<std::string> HistoriesOfCopies(const NoteFiles& files, const std::string& copy,
                                               const std::string& set) {
    const std::vector<std::string> found = HistoryCopiesOf(FindHalfCopies(files), set);
    std::set<std::string> names(found.begin(), found.end());
    if (files.stamp(files.device, HistoryFileName(copy)).exists) names.insert(copy);
    return names;
}

static EarlierStates StatesOf(const NoteFiles& files, const std::string& copy, const std::string& set) {
    EarlierStates states;
    states.histories.push_back(AllEarlierNotes(files, set));
    for (const std::string& name : HistoriesOfCopies(files, copy, set))
        states.histories.push_back(AllEarlierNotes(files, name));
    ReadBackups(files, set, states);
    const std::string sets[] = {set};
    states.isConflictCopy = ConflictNameOf(copy, sets).has_value();
    states.isAfterBackups = IsAfterBackups(files, copy, set);
    return states;
}

std::optional<SetMerge> PlanSetMerge(const NoteFiles& files, const std::string& copy, const std::string& set) {
    const auto stamp = [&](const std::string& name) { return files.stamp(files.device, name); };
    SetMerge merge;
    merge.copy = copy;
    merge.set = set;
    merge.copyStamp = stamp(copy + kDataEnding);
    merge.dataStamp = stamp(set + kDataEnding);
    merge.indexStamp = stamp(set + kIndexEnding);
    std::vector<std::string> mine, other;
    if (!ReadSetTexts(files, set + kDataEnding, mine) || !ReadSetTexts(files, copy + kDataEnding, other))
        return std::nullopt;
    merge.notes = PlanMerge(files.codePage, mine, other, StatesOf(files, copy, set));
    for (std::size_t verse = 0; verse < mine.size(); ++verse)
        if (!mine[verse].empty() && mine[verse] == other[verse]) ++merge.equalNotes;
    return merge;
}

// ---- Histories ------------------------------------------------------------------------------------------------------

namespace {

struct NoteOrder {
    bool operator()(const EarlierNote& a, const EarlierNote& b) const {
        return std::tie(a.time, a.verse, a.reason, a.text) < std::tie(b.time, b.verse, b.reason, b.text);
    }
};

using NoteTable = std::set<EarlierNote, NoteOrder>;

}  // namespace

static NoteTable TableOf(std::vector<EarlierNote> notes) {
    return {std::move_iterator(notes.begin()), std::move_iterator(notes.end())};
}

// Adds to the set's history what it does not have of the histories and of `notes`.
static bool JoinHistories(const NoteFiles& files, const std::string& set, const std::set<std::string>& histories,
                          const std::vector<EarlierNote>& notes) {
    NoteTable known = TableOf(AllEarlierNotes(files, set));
    std::vector<EarlierNote> missing;
    const auto add = [&](const EarlierNote& note) {
        if (known.insert(note).second) missing.push_back(note);
    };
    for (const std::string& name : histories)
        for (const EarlierNote& note : AllEarlierNotes(files, name)) add(note);
    std::ranges::for_each(notes, add);
    return missing.empty() || KeepEarlierNotes(files, set, missing);
}

// The copy's notes for which there is no room. When a merge is repeated, they are kept already.
static std::vector<EarlierNote> TooLongNotes(const NoteFiles& files, const SetMerge& merge, std::int64_t now) {
    std::vector<EarlierNote> notes;
    for (const MergedNote& note : merge.notes) {
        if (note.kind != MergeKind::kTooLong) continue;
        const std::vector<EarlierNote> kept = EarlierNotesOf(files, merge.set, note.verse);
        if (std::ranges::find(kept, note.other, &EarlierNote::text) == kept.end())
            notes.push_back({now, note.verse, KeptReason::kMerged, note.other});
    }
    return notes;
}

// ---- Moving the copy away -------------------------------------------------------------------------------------------

// Moves a file to the folder of backups under the first of the names "NAME merged", "NAME merged 2" that is free. True
// if the file is not there any more.
static bool PutAway(const NoteFiles& files, const std::string& folder, const std::string& name,
                    const std::string& ending) {
    static constexpr int kTries = 1000;
    const std::string from = folder + name + ending;
    for (int number = 1; number < kTries && files.stamp(files.device, from).exists; ++number) {
        const std::string counted = number == 1 ? "" : ' ' + std::to_string(number);
        const std::string to = kInBackups + name + kMergedEnding + counted + ending;
        if (!files.stamp(files.device, to).exists && !files.rename(files.device, from, to)) return false;
    }
    return !files.stamp(files.device, from).exists;
}

// The devotional table of the copy goes to a set without one: its readings are now there.
static void PassTableOn(const NoteFiles& files, const SetMerge& merge) {
    files.rename(files.device, merge.copy + kTableEnding, merge.set + kTableEnding);  // fails if the set has one
    PutAway(files, "", merge.copy, kTableEnding);
}

// The temporary file goes first: without its data file it would become one. Then the index file: without one, the copy
// is not a set any more, but still a data file that the next start finds.
static bool PutAwayCopy(const NoteFiles& files, const SetMerge& merge) {
    if (!files.makeFolder(files.device, kBackupFolder)) return false;
    PutAway(files, "", merge.copy, std::string(kDataEnding) + kTempEnding);
    if (!PutAway(files, "", merge.copy, kIndexEnding) || !PutAway(files, "", merge.copy, kDataEnding)) return false;
    PassTableOn(files, merge);
    for (const std::string& name : HistoriesOfCopies(files, merge.copy, merge.set))
        PutAway(files, kInBackups, name, kHistoryEnding);
    for (const std::string& name : LoneIndexesOf(files, FindHalfCopies(files), merge.set))
        PutAway(files, "", name, kIndexEnding);
    return true;
}

void PutAwayHalfCopies(const NoteFiles& files) {
    const std::vector<std::string> sets = NamesWithEnding(files, "", kDataEnding);
    const std::vector<ConflictCopy> copies = ConflictCopiesAmong(sets);
    const HalfCopyNames halves = FindHalfCopies(files);
    for (const std::string& set : sets) {
        const auto isOfSet = [&](const ConflictCopy& copy) { return copy.of.set == set || copy.name == set; };
        if (std::ranges::any_of(copies, isOfSet)) continue;  // first the copy is merged, for which they are needed
        const std::vector<std::string> found = HistoryCopiesOf(halves, set);
        const std::set<std::string> histories(found.begin(), found.end());
        const std::vector<std::string> indexes = LoneIndexesOf(files, halves, set);
        if (histories.empty() && indexes.empty()) continue;
        const NoteLock lock = LockNoteFiles(files);
        if (!histories.empty() && JoinHistories(files, set, histories, {}))
            for (const std::string& name : histories) PutAway(files, kInBackups, name, kHistoryEnding);
        if (!indexes.empty() && files.makeFolder(files.device, kBackupFolder))
            for (const std::string& name : indexes) PutAway(files, "", name, kIndexEnding);
    }
}

// ---- The table of sets ----------------------------------------------------------------------------------------------

static int PlaceOf(const NoteSets& notes, const std::string& name) {
    const auto found = std::ranges::find_if(
        notes.sets, [&](const NoteSet& set) { return EqualIgnoringCase(set.dataFileName, name + kDataEnding); });
    return found == notes.sets.end() ? -1 : static_cast<int>(found - notes.sets.begin());
}

static void RemoveCopy(const NoteFiles& files, NoteSets& notes, const SetMerge& merge) {
    const int copy = PlaceOf(notes, merge.copy);
    if (copy < 0) return;
    const bool wasDevotional = notes.devotionalSet == copy;
    const std::string current = notes.currentSet == copy ? merge.set : NoteSetName(*CurrentSet(notes));
    if (notes.devotionalSet > copy) --notes.devotionalSet;
    notes.sets.erase(notes.sets.begin() + copy);
    SelectSet(notes, PlaceOf(notes, current));
    if (wasDevotional) {
        notes.devotionalSet = kNoDevotionalSet;
        ReadDevotionalTable(files, notes, PlaceOf(notes, merge.set));
    }
}

// ---- Merging --------------------------------------------------------------------------------------------------------

static bool IsStale(const NoteFiles& files, const SetMerge& merge) {
    return files.stamp(files.device, merge.copy + kDataEnding) != merge.copyStamp ||
           files.stamp(files.device, merge.set + kDataEnding) != merge.dataStamp ||
           files.stamp(files.device, merge.set + kIndexEnding) != merge.indexStamp;
}

static SetMergeEnd ReplaceNotes(const NoteFiles& files, NoteSets& notes, const SetMerge& merge, const NoteTime& now) {
    std::vector<std::string> texts;
    if (!ReadSetTexts(files, merge.set + kDataEnding, texts)) return SetMergeEnd::kChangedOnDisk;
    for (const MergedNote& note : merge.notes) texts[static_cast<std::size_t>(note.verse)] = note.result;
    NoteSet set{merge.set + kDataEnding, {}, merge.dataStamp, merge.indexStamp};
    switch (ReplaceSetTexts(files, set, texts, KeptReason::kMerged, now)) {
        case SetReplacing::kReplaced: break;
        case SetReplacing::kChangedOnDisk:
        case SetReplacing::kNotWhole: return SetMergeEnd::kChangedOnDisk;
        case SetReplacing::kCannotWrite: return SetMergeEnd::kCannotWrite;
    }
    const int place = PlaceOf(notes, merge.set);
    if (place >= 0) notes.sets[static_cast<std::size_t>(place)] = std::move(set);
    return SetMergeEnd::kMerged;
}

SetMergeEnd MergeSets(const NoteFiles& files, NoteSets& notes, const SetMerge& merge, const NoteTime& now) {
    const NoteLock lock = LockNoteFiles(files, merge.dataStamp.size);
    if (IsStale(files, merge)) return SetMergeEnd::kChangedOnDisk;
    const std::set<std::string> histories = HistoriesOfCopies(files, merge.copy, merge.set);
    if (!JoinHistories(files, merge.set, histories, TooLongNotes(files, merge, now.seconds)))
        return SetMergeEnd::kCannotWrite;
    const SetMergeEnd end = ReplaceNotes(files, notes, merge, now);
    if (end != SetMergeEnd::kMerged) return end;
    if (!PutAwayCopy(files, merge)) return SetMergeEnd::kNotMovedAway;
    RemoveCopy(files, notes, merge);
    return SetMergeEnd::kMerged;
}
