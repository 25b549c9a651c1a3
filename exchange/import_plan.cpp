#include "exchange/import_plan.h"

#include <algorithm>
#include <utility>

#include "notes/joined_texts.h"
#include "notes/note_history.h"
#include "notes/set_texts.h"

static ImportChoice UsualChoice(ImportKind kind) {
    switch (kind) {
        case ImportKind::kNew:
        case ImportKind::kChanged: return ImportChoice::kTake;
        case ImportKind::kConflict: return ImportChoice::kBoth;
        case ImportKind::kOlder: return ImportChoice::kKeep;
    }
    return ImportChoice::kKeep;
}

// Does the set's note say all that the imported one says?
static bool HasAll(const CodePage& page, std::string_view mine, std::string_view imported) {
    if (mine == imported) return true;
    if (mine.empty() || imported.empty()) return false;
    return JoinedNotes(page, mine, imported) == mine;
}

static std::vector<EarlierNote> EarlierNotesByVerse(const NoteFiles& files, const std::string& setName) {
    std::vector<EarlierNote> notes = AllEarlierNotes(files, setName);
    std::ranges::stable_sort(notes, {}, &EarlierNote::verse);
    return notes;
}

static bool IsAny(KeptReason) {
    return true;
}

static bool IsAmong(const std::vector<EarlierNote>& earlier, const ExchangedNote& note, bool (*counts)(KeptReason)) {
    auto found = std::ranges::lower_bound(earlier, note.verse, {}, &EarlierNote::verse);
    for (; found != earlier.end() && found->verse == note.verse; ++found)
        if (found->text == note.note && counts(found->reason)) return true;
    return false;
}

static ImportKind KindOf(const std::vector<EarlierNote>& earlier, const std::string& mine, const ExchangedNote& note) {
    const bool wasEmptied = mine.empty() && IsAmong(earlier, note, WasInSet);
    if (mine.empty()) return wasEmptied ? ImportKind::kOlder : ImportKind::kNew;
    if (note.digest == DigestOf(mine)) return ImportKind::kChanged;
    if (note.digest == DigestOf(note.note) || IsAmong(earlier, note, IsAny)) return ImportKind::kOlder;
    return ImportKind::kConflict;
}

std::optional<ImportPlan> PlanImport(const NoteFiles& files, const NoteSet& set, const ExchangedNotes& notes) {
    ImportPlan plan{NoteSetName(set), {}};
    plan.dataStamp = files.stamp(files.device, set.dataFileName);
    plan.indexStamp = files.stamp(files.device, IndexFileName(set));
    std::vector<std::string> texts;
    if (set.readOnly || !ReadSetTexts(files, set.dataFileName, texts)) return std::nullopt;
    const std::vector<EarlierNote> earlier = EarlierNotesByVerse(files, plan.setName);
    for (const ExchangedNote& note : notes.notes) {
        std::string& mine = texts[static_cast<std::size_t>(note.verse)];
        if (HasAll(files.codePage, mine, note.note)) {
            plan.sameNotes += !mine.empty();
            continue;
        }
        const ImportKind kind = KindOf(earlier, mine, note);
        plan.notes.push_back({note.verse, kind, std::move(mine), note.note, UsualChoice(kind)});
    }
    plan.unplaced = notes.unplaced;
    return plan;
}

void ChooseForAll(ImportPlan& plan, ImportKind kind, ImportChoice choice) {
    for (PlannedNote& note : plan.notes)
        if (note.kind == kind) note.choice = choice;
}

int CountOf(const ImportPlan& plan, ImportKind kind) {
    return static_cast<int>(std::ranges::count(plan.notes, kind, &PlannedNote::kind));
}

int ChangesOf(const ImportPlan& plan) {
    return static_cast<int>(
        std::ranges::count_if(plan.notes, [](const PlannedNote& note) { return note.choice != ImportChoice::kKeep; }));
}
