#include "history/note_merge.h"

#include <algorithm>
#include <optional>

#include "notes/joined_texts.h"
#include "notes/note_saving.h"

using Records = std::vector<const EarlierNote*>;  // of one verse in one history, oldest first

namespace {

// What is known of one verse.
struct VerseStates {
    std::vector<Records> histories;
    std::vector<const std::string*> backups;
    bool isConflictCopy = false, isAfterBackups = false;
};

}  // namespace

static bool IsState(const EarlierNote& note) {
    return WasInSet(note.reason);
}

// ---- The text that both sets had ------------------------------------------------------------------------------------

static bool Has(const Records& records, const EarlierNote& sought) {
    return std::ranges::any_of(records, [&](const EarlierNote* record) { return *record == sought; });
}

// The first record that is not in all histories.
static const EarlierNote* FirstOfItsOwn(const Records& records, const std::vector<Records>& histories) {
    for (const EarlierNote* record : records) {
        const auto hasIt = [record](const Records& history) { return Has(history, *record); };
        if (!std::ranges::all_of(histories, hasIt)) return record;
    }
    return nullptr;
}

// Null if the histories do not tell or contradict each other.
static const std::string* TextBefore(const std::vector<Records>& histories) {
    const std::string* before = nullptr;
    for (const Records& records : histories) {
        const EarlierNote* const first = FirstOfItsOwn(records, histories);
        if (!first) continue;
        if (before && *before != first->text) return nullptr;
        before = &first->text;
    }
    return before;
}

// ---- Who has changed the note ---------------------------------------------------------------------------------------

static bool IsIn(const Records& records, const std::string& text) {
    return std::ranges::any_of(records, [&](const EarlierNote* record) { return record->text == text; });
}

static bool WasReplaced(const VerseStates& states, const std::string& text) {
    return std::ranges::any_of(states.histories, [&](const Records& records) { return IsIn(records, text); });
}

// Does another history than that of the set tell that the text was replaced?
static bool WasReplacedElsewhere(const VerseStates& states, const std::string& text) {
    if (states.histories.empty()) return false;
    return std::any_of(states.histories.begin() + 1, states.histories.end(),
                       [&](const Records& records) { return IsIn(records, text); });
}

// Did a backup have the copy's text, and none before it the set's? Then the set left that text behind.
static bool WasLeftSince(const VerseStates& states, const std::string& mine, const std::string& other) {
    const auto isOther = [&](const std::string* backup) { return *backup == other; };
    const auto last = std::find_if(states.backups.rbegin(), states.backups.rend(), isOther);
    return last != states.backups.rend() &&
           std::none_of(last, states.backups.rend(), [&](const std::string* backup) { return *backup == mine; });
}

// Has the set had this text through all that is known? Only then a backup with it tells that the copy began with it.
static bool HasAlwaysBeen(const VerseStates& states, const std::string& text) {
    return !states.backups.empty() && std::ranges::all_of(states.histories, &Records::empty) &&
           std::ranges::all_of(states.backups, [&](const std::string* backup) { return *backup == text; });
}

namespace {

enum class ChangedIn { kSet, kCopy, kBoth };

}  // namespace

// Do the histories tell that the copy replaced the set's text?
static bool IsReplacedInCopy(const VerseStates& states, const std::string& mine, const std::string& other) {
    if (WasReplacedElsewhere(states, mine)) return true;
    return !other.empty() && states.isConflictCopy && WasReplaced(states, mine);
}

// Is the set's text the one that both had? Its own history alone cannot tell if it has gone on and come back.
static bool BeganWith(const VerseStates& states, const std::string& mine, const std::string& other) {
    return WasReplacedElsewhere(states, mine) || (!other.empty() && states.histories.front().size() == 1);
}

static ChangedIn WhoChanged(const std::string& mine, const std::string& other, const VerseStates& states) {
    const std::string* const before = TextBefore(states.histories);
    if (before && *before == mine) return BeganWith(states, mine, other) ? ChangedIn::kCopy : ChangedIn::kBoth;
    if (before) return *before == other ? ChangedIn::kSet : ChangedIn::kBoth;
    const bool isFromBackup = states.isAfterBackups && !other.empty() && HasAlwaysBeen(states, mine);
    const bool isMineEarlier = IsReplacedInCopy(states, mine, other) || isFromBackup;
    const bool isOtherEarlier = WasReplaced(states, other) || WasLeftSince(states, mine, other);
    if (isMineEarlier == isOtherEarlier) return ChangedIn::kBoth;
    return isMineEarlier ? ChangedIn::kCopy : ChangedIn::kSet;
}

// ---- The plan -------------------------------------------------------------------------------------------------------

static MergedNote Joined(const CodePage& page, int verse, const std::string& mine, const std::string& other) {
    std::optional<std::string> joined = JoinedNotes(page, mine, other);
    if (!joined || joined->size() > kNoteTextLimit) return {verse, MergeKind::kTooLong, mine, other, mine};
    const MergeKind kind = *joined == mine    ? MergeKind::kStays
                           : *joined == other ? MergeKind::kFromCopy
                                              : MergeKind::kBoth;
    return {verse, kind, mine, other, std::move(*joined)};
}

static MergedNote Merged(const CodePage& page, int verse, const std::string& mine, const std::string& other,
                         const VerseStates& states) {
    switch (WhoChanged(mine, other, states)) {
        case ChangedIn::kSet: return {verse, MergeKind::kStays, mine, other, mine};
        case ChangedIn::kCopy: return {verse, MergeKind::kFromCopy, mine, other, other};
        case ChangedIn::kBoth: break;
    }
    return Joined(page, verse, mine, other);
}

// A merge that was stopped may have kept the set's text without replacing it.
static void LeaveOutStoppedMerge(Records& own, const std::string& mine) {
    if (!own.empty() && own.back()->reason == KeptReason::kMerged && own.back()->text == mine) own.pop_back();
}

static VerseStates StatesOf(std::size_t verse, const EarlierStates& states,
                            const std::vector<std::vector<Records>>& records, const std::string& mine) {
    VerseStates found;
    for (const std::vector<Records>& history : records) found.histories.push_back(history[verse]);
    if (!found.histories.empty()) LeaveOutStoppedMerge(found.histories.front(), mine);
    for (const std::vector<std::string>& backup : states.backups) found.backups.push_back(&backup[verse]);
    found.isConflictCopy = states.isConflictCopy;
    found.isAfterBackups = states.isConflictCopy && states.isAfterBackups;
    return found;
}

std::vector<MergedNote> PlanMerge(const CodePage& page, std::span<const std::string> mine,
                                  std::span<const std::string> other, const EarlierStates& states) {
    std::vector<std::vector<Records>> records;  // by history and verse
    for (const std::vector<EarlierNote>& history : states.histories) {
        records.emplace_back(mine.size());
        for (const EarlierNote& note : history)
            if (IsState(note)) records.back()[static_cast<std::size_t>(note.verse)].push_back(&note);
    }
    std::vector<MergedNote> notes;
    for (std::size_t verse = 0; verse < mine.size(); ++verse)
        if (mine[verse] != other[verse])
            notes.push_back(Merged(page, static_cast<int>(verse), mine[verse], other[verse],
                                   StatesOf(verse, states, records, mine[verse])));
    return notes;
}
