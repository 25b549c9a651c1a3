#include "notes/note_set_changes.h"

#include <cassert>
#include <utility>

#include "notes/file_names.h"
#include "notes/note_backup.h"
#include "notes/note_history.h"
#include "notes/note_keeping.h"
#include "notes/note_lock.h"
#include "notes/note_places.h"

// ---- Names ----------------------------------------------------------------------------------------------------------

std::optional<std::string> SetNameOf(const NoteFiles& files, std::u16string_view typed) {
    std::string name;
    if (!files.codePage.bytesOf(files.codePage.device, typed, name)) return std::nullopt;
    return name;
}

// Why no set can be named `name`, as a sentence: Windows cannot store such files, or its tab would show nothing. Empty
// for a valid name. An empty name is valid: its files are ".nmd" and ".nmi".
static std::string ReasonAgainstName(const std::string& name) {
    if (!name.empty() && name.find_first_not_of(" \xA0") == name.npos)
        return "The name of a note set cannot have blanks only.";
    if (!HasFileCharacters(name)) {
        return "The name of a note set cannot have any of the characters \\ / : * ? \" < > | or a control character.";
    }
    if (IsDeviceName(name)) return "Windows keeps the name \"" + name + "\" for itself. Choose another one.";
    return "";
}

static bool HasFiles(const NoteFiles& files, const std::string& name) {
    return files.stamp(files.device, name + kDataEnding).exists ||
           files.stamp(files.device, name + kIndexEnding).exists;
}

std::string NameInUse(const NoteFiles& files, std::u16string_view typed) {
    const std::optional<std::string> name = SetNameOf(files, typed);
    if (!name || !ReasonAgainstName(*name).empty() || !HasFiles(files, *name)) return "";
    return '"' + *name + "\" is already the name of a note set";
}

// ---- Create ---------------------------------------------------------------------------------------------------------

static std::string TooManySets() {
    return "There are " + std::to_string(kNoteSetLimit) +
           " note sets, and no more can be open. Delete one before you create another.";
}

static std::string CannotCreateBecause(const std::string& reason) {
    return std::string(kCannotCreateNotes) + "\n\n" + reason;
}

static std::string ReasonAgainstAdding(const NoteSets& notes, const std::string& name) {
    if (notes.sets.size() >= kNoteSetLimit) return TooManySets();
    const std::string reason = ReasonAgainstName(name);
    return reason.empty() ? "" : CannotCreateBecause(reason);
}

std::string ReasonAgainstNewSet(const NoteFiles& files, const NoteSets& notes, const std::string& name) {
    const std::string reason = ReasonAgainstAdding(notes, name);
    if (!reason.empty()) return reason;
    return HasFiles(files, name) ? kCannotCreateNotes : "";
}

std::string CreateNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name) {
    const std::string reason = ReasonAgainstAdding(notes, name);
    if (!reason.empty()) return reason;
    const NoteLock lock = LockNoteFiles(files);
    NoteSet set = EmptyNoteSet(name);
    const int created = CreateNoteFiles(files, set);
    if (created == 1) files.remove(files.device, set.dataFileName);  // contains only empty notes
    if (created != 2) return kCannotCreateNotes;
    notes.sets.push_back(std::move(set));
    return "";
}

std::string CreateNoteSet(const NoteFiles& files, NoteSets& notes, std::u16string_view typed) {
    const std::optional<std::string> name = SetNameOf(files, typed);
    return name ? CreateNoteSet(files, notes, *name) : CannotCreateBecause(kNameNotInCodePage);
}

// ---- Rename ---------------------------------------------------------------------------------------------------------

static bool IsDevotional(const NoteSets& notes) {
    return notes.currentSet == notes.devotionalSet;
}

// After a rename that failed at the index file.
static bool IsOutOfUse(const NoteSet& set) {
    return set.dataFileName == IndexFileName(set);
}

static bool RenameIndex(const NoteFiles& files, NoteSet& set, const std::string& name) {
    if (files.rename(files.device, IndexFileName(set), name + kIndexEnding)) return true;
    set.dataFileName = IndexFileName(set);
    set.readOnly = true;
    return false;
}

static std::string CannotRenameBecause(const std::string& reason) {
    return "Rename failed. " + reason;
}

std::string RenameNoteSet(const NoteFiles& files, NoteSets& notes, const std::string& name) {
    NoteSet& set = *CurrentSet(notes);
    const std::string nameBefore = NoteSetName(set);
    if (name == nameBefore) return "";
    const std::string reason = ReasonAgainstName(name);
    if (!reason.empty()) return CannotRenameBecause(reason);
    const NoteLock lock = LockNoteFiles(files);
    const auto rename = [&](const std::string& ending) {
        return files.rename(files.device, nameBefore + ending, name + ending);
    };
    if (IsOutOfUse(set) || !rename(kDataEnding)) return kRenameFailed;
    const bool isRenamed = RenameIndex(files, set, name);
    if (isRenamed) {
        if (IsDevotional(notes)) rename(kTableEnding);
        set.dataFileName = name + kDataEnding;
        rename(std::string(kDataEnding) + kTempEnding);  // otherwise it would come back as a set of the old name
    }
    MoveEarlierNotes(files, nameBefore, name);  // with the data file, whatever became of the index file
    MoveBackups(files, nameBefore, name);
    return isRenamed ? "" : kRenameFailed;
}

std::string RenameNoteSet(const NoteFiles& files, NoteSets& notes, std::u16string_view typed) {
    const std::optional<std::string> name = SetNameOf(files, typed);
    return name ? RenameNoteSet(files, notes, *name) : CannotRenameBecause(kNameNotInCodePage);
}

// ---- Delete ---------------------------------------------------------------------------------------------------------

std::string QuestionBeforeDeleting(const NoteSets& notes) {
    const NoteSet& set = *CurrentSet(notes);
    const char* ending = IsDevotional(notes) ? "? Deleting this set will remove the Devotional function!" : "?";
    return "Are you SURE you want to delete the note set " + NoteSetName(set) + ending;
}

// Copies the set and deletes its index file.
static bool CopyAndRemoveIndex(const NoteFiles& files, const NoteSet& set, const NoteTime& now) {
    const bool hasNotes = files.stamp(files.device, set.dataFileName).exists;
    const std::optional<SetBackup> backup = hasNotes ? KeepBackupWithTime(files, set, now) : std::nullopt;
    if (hasNotes && !backup) return false;
    if (files.remove(files.device, IndexFileName(set))) return true;
    if (backup) RemoveBackup(files, *backup);
    return false;
}

// Puts the set's notes among the earlier ones, as they are on the disk: the offsets in memory may be those of a save
// that failed. A temporary file that is still there then is that of a damaged set.
static void KeepNotes(const NoteFiles& files, const NoteSet& set, const NoteTime& now) {
    const std::string name = NoteSetName(set);
    KeepLeftOver(files, name, now.seconds);
    NoteSet onDisk = ReadWholeSet(files, set.dataFileName).value_or(set);
    StampFiles(files, onDisk);  // its index file is no longer there, and need not be read again for that
    KeepAllNotes(files, name, std::move(onDisk), KeptReason::kDeleted, now.seconds);
    if (std::optional<NoteSet> twin = ReadWholeSet(files, set.dataFileName + kTempEnding))
        KeepAllNotes(files, name, std::move(*twin), KeptReason::kLeftOver, now.seconds);
}

bool DeleteNoteSet(const NoteFiles& files, NoteSets& notes, const NoteTime& now) {
    assert(CurrentSet(notes) != nullptr && notes.sets.size() > 1);
    const NoteSet& set = *CurrentSet(notes);
    const NoteLock lock = LockNoteFiles(files, set.dataStamp.size);
    if (!CopyAndRemoveIndex(files, set, now)) return false;
    KeepNotes(files, set, now);
    files.remove(files.device, set.dataFileName);
    files.remove(files.device, set.dataFileName + kTempEnding);
    if (IsDevotional(notes)) {
        files.remove(files.device, NoteSetName(set) + kTableEnding);
        notes.devotionalSet = kNoDevotionalSet;
    } else if (notes.devotionalSet > notes.currentSet) {
        --notes.devotionalSet;
    }
    notes.sets.erase(notes.sets.begin() + notes.currentSet);
    SelectSet(notes, 0);
    return true;
}
