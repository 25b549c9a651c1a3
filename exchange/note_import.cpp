#include "exchange/note_import.h"

#include <algorithm>
#include <optional>

#include "notes/joined_texts.h"
#include "notes/note_history.h"
#include "notes/note_lock.h"
#include "notes/note_saving.h"
#include "notes/set_texts.h"

// The note that the choice makes; nullopt if both texts cannot be in one note.
static std::optional<std::string> ChosenNote(const CodePage& page, const PlannedNote& note) {
    switch (note.choice) {
        case ImportChoice::kKeep: return note.mine;
        case ImportChoice::kTake: return note.imported;
        case ImportChoice::kBoth: break;
    }
    auto joined = JoinedNotes(page, note.mine, note.imported);
    return joined && joined->size() <= kNoteTextLimit ? joined : std::nullopt;
}

namespace {

struct ImportedTexts {
    std::vector<std::string> texts;       // of all notes of the set
    std::vector<EarlierNote> setAside{};  // imported notes that could not be joined
    int changes = 0;
};

}  // namespace

static void Choose(const CodePage& page, const ImportPlan& plan, std::int64_t now, ImportedTexts& imported) {
    for (const PlannedNote& note : plan.notes) {
        std::string& text = imported.texts[static_cast<std::size_t>(note.verse)];
        std::optional<std::string> chosen = ChosenNote(page, note);
        if (!chosen) {
            imported.setAside.push_back({now, note.verse, KeptReason::kNotSaved, note.imported});
        } else if (*chosen != text) {
            text = *std::move(chosen);
            ++imported.changes;
        }
    }
}

// Those that are already among the earlier notes, because the import is done once more, are not kept again.
static bool KeepSetAside(const NoteFiles& files, const std::string& setName, std::vector<EarlierNote> notes) {
    std::erase_if(notes, [&](const EarlierNote& note) {
        const std::vector<EarlierNote> kept = EarlierNotesOf(files, setName, note.verse);
        return std::ranges::find(kept, note.text, &EarlierNote::text) != kept.end();
    });
    return notes.empty() || KeepEarlierNotes(files, setName, notes);
}

static ImportEnd EndOf(SetReplacing replacing) {
    switch (replacing) {
        case SetReplacing::kReplaced: return ImportEnd::kImported;
        case SetReplacing::kChangedOnDisk: return ImportEnd::kChangedOnDisk;
        case SetReplacing::kNotWhole: return ImportEnd::kReadOnly;
        case SetReplacing::kCannotWrite: break;
    }
    return ImportEnd::kCannotWrite;
}

static bool IsStale(const NoteFiles& files, const NoteSet& set, const ImportPlan& plan) {
    return files.stamp(files.device, set.dataFileName) != plan.dataStamp ||
           files.stamp(files.device, IndexFileName(set)) != plan.indexStamp;
}

ImportResult ImportNotes(const NoteFiles& files, NoteSets& notes, const ImportPlan& plan, const NoteTime& now) {
    const int place = SetNamed(notes, plan.setName);
    if (place == kNoSet) return {ImportEnd::kChangedOnDisk};
    NoteSet& set = notes.sets[static_cast<std::size_t>(place)];
    if (set.readOnly) return {ImportEnd::kReadOnly};
    const NoteLock lock = LockNoteFiles(files, plan.dataStamp.size);
    ImportedTexts imported;
    if (IsStale(files, set, plan) || !ReadSetTexts(files, set.dataFileName, imported.texts))
        return {ImportEnd::kChangedOnDisk};
    Choose(files.codePage, plan, now.seconds, imported);
    const int setAside = static_cast<int>(imported.setAside.size());
    if (!KeepSetAside(files, plan.setName, std::move(imported.setAside))) return {ImportEnd::kCannotWrite};
    NoteSet written = set;
    written.dataStamp = plan.dataStamp;
    written.indexStamp = plan.indexStamp;
    const ImportEnd end = EndOf(ReplaceSetTexts(files, written, imported.texts, KeptReason::kImported, now));
    if (end != ImportEnd::kImported) return {end};
    ++written.timesChanged;
    written.isUnchecked = false;
    set = std::move(written);
    return {end, imported.changes, setAside};
}
