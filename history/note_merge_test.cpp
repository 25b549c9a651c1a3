#include "history/note_merge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "notes/joined_texts.h"
#include "notes/note_saving.h"
#include "scripture/verse_records.h"

using testing::ElementsAre;
using testing::IsEmpty;

static constexpr int kVerse = 5;

static std::vector<std::string> SetWith(const std::string& text) {
    std::vector<std::string> texts(kVerseCount);
    texts[3] = "the same in all";
    texts[kVerse] = text;
    return texts;
}

// What saves replaced, one a second.
static std::vector<EarlierNote> Replaced(const std::vector<std::string>& texts, std::int64_t from = 100) {
    std::vector<EarlierNote> notes;
    for (const std::string& text : texts) notes.push_back({from++, kVerse, KeptReason::kReplaced, text});
    return notes;
}

static MergedNote MergeOf(const std::string& mine, const std::string& other, const EarlierStates& states) {
    const std::vector<MergedNote> plan = PlanMerge({}, SetWith(mine), SetWith(other), states);
    EXPECT_EQ(plan.size(), 1u);
    EXPECT_EQ(plan.at(0).verse, kVerse);
    EXPECT_EQ(plan[0].mine, mine);
    EXPECT_EQ(plan[0].other, other);
    return plan[0];
}

namespace {

struct MergeRow {
    const char* what;
    std::string mine, other;
    std::vector<std::string> past;                   // replaced before there was a copy
    std::vector<std::string> inSet;                  // replaced in the set since
    std::optional<std::vector<std::string>> inCopy;  // replaced in the copy; nullopt if it has no history
    std::vector<std::string> backups;
    MergeKind kind;
};

}  // namespace

static EarlierStates StatesOf(const MergeRow& row) {
    EarlierStates states;
    const auto add = [&](const std::vector<std::string>& own, std::int64_t from) {
        std::vector<EarlierNote> history = Replaced(row.past, 100);
        std::ranges::copy(Replaced(own, from), std::back_inserter(history));
        states.histories.push_back(std::move(history));
    };
    add(row.inSet, 1000);
    if (row.inCopy) add(*row.inCopy, 2000);
    for (const std::string& text : row.backups) states.backups.push_back(SetWith(text));
    states.isConflictCopy = states.isAfterBackups = true;
    return states;
}

static std::string ResultOf(const MergeRow& row) {
    switch (row.kind) {
        case MergeKind::kStays:
        case MergeKind::kTooLong: return row.mine;
        case MergeKind::kFromCopy: return row.other;
        case MergeKind::kBoth: return JoinedTexts(row.mine, row.other);
    }
    return "";
}

TEST(Merge, TakesTheNoteThatWasChanged) {
    using enum MergeKind;
    static constexpr std::nullopt_t kNone = std::nullopt;
    using Texts = std::vector<std::string>;
    static const MergeRow kRows[] = {
        {"nothing is known", "a", "b", {}, {}, kNone, {}, kBoth},
        {"nothing is known of an empty note", "", "b", {}, {}, kNone, {}, kFromCopy},
        {"nothing is known of an empty note of the copy", "a", "", {}, {}, kNone, {}, kStays},
        {"no history has anything", "a", "b", {}, {}, Texts{}, {}, kBoth},

        {"changed in the set", "a", "b", {}, {"b"}, Texts{}, {}, kStays},
        {"changed in the set, twice", "a", "b", {"x"}, {"b", "c"}, Texts{}, {}, kStays},
        {"changed in the copy", "a", "b", {"x"}, {}, Texts{"a"}, {}, kFromCopy},
        {"written in the copy", "", "b", {}, {}, Texts{""}, {}, kFromCopy},
        {"emptied in the set", "", "b", {}, {"b"}, Texts{}, {}, kStays},
        {"emptied in the copy", "a", "", {}, {}, Texts{"a"}, {}, kFromCopy},
        {"changed in the copy, twice", "a", "b", {}, {}, Texts{"a", "c"}, {}, kFromCopy},
        // The first text of a note leaves no trace.
        {"begun in both, and the set went back to its own", "a", "b", {}, {"a", "c"}, Texts{}, {}, kBoth},
        {"written, emptied and restored in the set", "a", "", {}, {"a"}, Texts{}, {}, kStays},
        {"written, emptied and restored in the set, as far as is known", "a", "", {"a"}, {}, kNone, {}, kStays},
        {"changed in both", "a", "b", {}, {"c"}, Texts{"c"}, {}, kBoth},
        {"changed in both after a common past", "a", "b", {"x"}, {"c"}, Texts{"c", "d"}, {}, kBoth},
        {"the set went back to the common text", "c", "b", {}, {"c", "d"}, Texts{"c"}, {}, kFromCopy},
        {"the copy went back to the common text", "a", "c", {"x"}, {"c"}, Texts{"c", "d"}, {}, kStays},
        {"the copy went back to one of its own texts", "a", "b", {}, {"c"}, Texts{"c", "b", "d"}, {}, kBoth},
        {"the set went back to a text of the common past", "x", "b", {"x"}, {"c"}, Texts{"c"}, {}, kBoth},
        {"the copy went back to a text of the common past", "c", "x", {"x"}, {}, Texts{"c"}, {}, kFromCopy},
        {"changed in the copy, once without its history", "a", "b", {"x"}, {}, Texts{"d"}, {}, kBoth},
        {"each history tells something else", "a", "b", {}, {"c"}, Texts{"d"}, {}, kBoth},
        {"each history tells something else, but one text is old", "a", "b", {}, {"b"}, Texts{"d"}, {}, kStays},

        {"one history, with the copy's text", "a", "b", {"b", "c"}, {}, kNone, {}, kStays},
        {"one history, with the set's text", "a", "b", {"a"}, {}, kNone, {}, kFromCopy},
        {"one history, with both", "a", "b", {"a", "b"}, {}, kNone, {}, kBoth},

        {"a backup with the copy's text", "a", "b", {}, {}, kNone, {"b"}, kStays},
        {"a backup with the set's text", "a", "b", {}, {}, kNone, {"a"}, kFromCopy},
        {"a backup with an emptied note", "", "b", {}, {}, kNone, {"b"}, kStays},
        {"a backup without the note that the copy has", "", "b", {}, {}, kNone, {""}, kFromCopy},
        {"a backup with the note that the copy does not have", "a", "", {}, {}, kNone, {"a"}, kStays},
        {"a backup without the note that the set has", "a", "", {}, {}, kNone, {""}, kStays},
        {"a backup with neither", "a", "b", {}, {}, kNone, {"c"}, kBoth},
        {"backups with the copy's text and then the set's", "a", "b", {}, {}, kNone, {"b", "a"}, kStays},
        {"backups with the set's text and then the copy's", "a", "b", {}, {}, kNone, {"a", "b"}, kBoth},
        {"backups with the set's text again", "a", "b", {}, {}, kNone, {"a", "b", "a"}, kBoth},
        {"replaced in the set before the backup", "a", "b", {}, {"b"}, kNone, {"a"}, kStays},
        // The copy may be older than the backups.
        {"backups with the set's text and an earlier one", "a", "b", {}, {}, kNone, {"c", "a"}, kBoth},
        {"a backup with the set's text, which replaced another one", "a", "b", {"c"}, {}, kNone, {"a"}, kBoth},
        {"a backup with the copy's text, and the set's is older", "a", "b", {"a"}, {}, kNone, {"b"}, kBoth},
    };
    for (const MergeRow& row : kRows) {
        SCOPED_TRACE(row.what);
        const MergedNote merged = MergeOf(row.mine, row.other, StatesOf(row));
        EXPECT_EQ(merged.kind, row.kind);
        EXPECT_EQ(merged.result, ResultOf(row));
    }
}

// Only a copy that a conflict has left, and that was written since, is known to have begun with the set's notes.
TEST(Merge, DoesNotTakeTheOlderTextOfAnotherSet) {
    const EarlierStates backup = {{}, {SetWith("a")}};
    const EarlierStates history = {{Replaced({"a"})}, {}};
    for (const EarlierStates& known : {backup, history}) {
        for (const bool isConflictCopy : {false, true}) {
            for (const bool isAfterBackups : {false, true}) {
                EarlierStates states = known;
                states.isConflictCopy = isConflictCopy;
                states.isAfterBackups = isAfterBackups;
                const bool isTaken = isConflictCopy && (isAfterBackups || known.backups.empty());
                EXPECT_EQ(MergeOf("a", "b", states).kind, isTaken ? MergeKind::kFromCopy : MergeKind::kBoth);
                EXPECT_EQ(MergeOf("a", "", states).kind, MergeKind::kStays);
                EXPECT_EQ(MergeOf("", "b", states).kind, MergeKind::kFromCopy);
            }
        }
    }
}

TEST(Merge, PassesEqualNotes) {
    EXPECT_THAT(PlanMerge({}, SetWith("a"), SetWith("a"), {{Replaced({"b"})}, {SetWith("c")}}), IsEmpty());
}

TEST(Merge, IsOfEachVerse) {
    std::vector<std::string> mine(kVerseCount), other(kVerseCount);
    mine[0] = "first", other[31101] = "last", mine[7] = "seven", other[7] = "sieben";
    const std::vector<MergedNote> plan = PlanMerge({}, mine, other, {});
    EXPECT_THAT(plan, ElementsAre(MergedNote{0, MergeKind::kStays, "first", "", "first"},
                                  MergedNote{7, MergeKind::kBoth, "seven", "sieben", JoinedTexts("seven", "sieben")},
                                  MergedNote{31101, MergeKind::kFromCopy, "", "last", "last"}));
}

// Drafts, and what was found in a temporary file, say nothing about the states of a set.
TEST(Merge, HeedsOnlyTextsThatANoteHad) {
    for (const auto& [reason, kind] : std::initializer_list<std::pair<KeptReason, MergeKind>>{
             {KeptReason::kReplaced, MergeKind::kStays},
             {KeptReason::kMerged, MergeKind::kStays},
             {KeptReason::kRestored, MergeKind::kStays},
             {KeptReason::kImported, MergeKind::kStays},
             {KeptReason::kNotSaved, MergeKind::kBoth},
             {KeptReason::kCancelled, MergeKind::kBoth},
             {KeptReason::kInterrupted, MergeKind::kBoth},
             {KeptReason::kLeftOver, MergeKind::kBoth},
         }) {
        EXPECT_EQ(MergeOf("a", "b", {{{{100, kVerse, reason, "b"}}}, {}}).kind, kind) << static_cast<int>(reason);
    }
}

// It has kept the text that it was about to replace.
TEST(Merge, IsTheSameAfterOneThatWasStopped) {
    const std::vector<EarlierNote> stopped = {{100, kVerse, KeptReason::kMerged, "a"}};
    EXPECT_EQ(MergeOf("a", "b", {{stopped}, {}}).kind, MergeKind::kBoth);
    EXPECT_EQ(MergeOf("a", "b", {{stopped}, {SetWith("b"), SetWith("a")}}).kind, MergeKind::kStays);
    EXPECT_EQ(MergeOf("a", "b", {{{}, stopped}, {}}).kind, MergeKind::kFromCopy);
}

TEST(Merge, DoesNotJoinWhatIsJoined) {
    const std::string joined = JoinedTexts("a", "b");
    EXPECT_EQ(MergeOf(joined, "b", {}).kind, MergeKind::kStays);
    EXPECT_EQ(MergeOf(joined, JoinedTexts("b", "a"), {}).kind, MergeKind::kStays);
    EXPECT_EQ(MergeOf("a", joined, {}).kind, MergeKind::kFromCopy);
    EXPECT_EQ(MergeOf("a", joined, {}).result, joined);
}

TEST(Merge, KeepsTheSetsNoteWhereBothAreTooLong) {
    const std::string mine(40000, 'a');
    const std::size_t room = kNoteTextLimit - JoinedTexts(mine, "b").size() + 1;
    const MergedNote fits = MergeOf(mine, std::string(room, 'b'), {});
    EXPECT_EQ(fits.kind, MergeKind::kBoth);
    EXPECT_EQ(fits.result.size(), kNoteTextLimit);
    const MergedNote tooLong = MergeOf(mine, std::string(room + 1, 'b'), {});
    EXPECT_EQ(tooLong.kind, MergeKind::kTooLong);
    EXPECT_EQ(tooLong.result, mine);
}
