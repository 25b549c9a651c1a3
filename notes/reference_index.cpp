#include "notes/reference_index.h"

#include <algorithm>
#include <utility>

#include "notes/cross_references.h"
#include "notes/note_refresh.h"
#include "notes/note_source.h"

ReferenceIndex ReferenceIndexFor(const VerseRecords& records) {
    return {ChaptersOf(records)};
}

// ---- One note -------------------------------------------------------------------------------------------------------

namespace {

// Memory that is used for one note after the other.
struct NoteMemory {
    std::string text{};
    std::vector<TextReference> references{};
    std::vector<NamedVerses> named{};
};

}  // namespace

static void AddRange(std::vector<NamedVerses>& named, int note, int first, int last) {
    named.push_back(
        {static_cast<std::uint16_t>(note), static_cast<std::uint16_t>(first), static_cast<std::uint16_t>(last)});
}

// The verses of the lists behind each "#". Returns how many they are.
static std::size_t AddLists(const VerseRecords& records, std::string_view text, int note,
                            std::vector<NamedVerses>& named) {
    std::size_t count = 0;
    for (std::size_t at = text.find('#'); at != std::string_view::npos; at = text.find('#', at + 1)) {
        const std::vector<std::int32_t> verses = CrossReferences(records, text, at, note);
        count += verses.size();
        for (std::size_t i = 0; i < verses.size();) {
            std::size_t end = i + 1;
            while (end < verses.size() && verses[end] == verses[end - 1] + 1) ++end;
            AddRange(named, note, verses[i], verses[end - 1]);
            i = end;
        }
    }
    return count;
}

// Sorts the ranges and joins those that touch.
static void Join(std::vector<NamedVerses>& named) {
    std::ranges::sort(named, {}, &NamedVerses::first);
    std::size_t kept = 0;
    for (const NamedVerses& range : named) {
        if (kept > 0 && range.first <= named[kept - 1].last + 1)
            named[kept - 1].last = std::max(named[kept - 1].last, range.last);
        else
            named[kept++] = range;
    }
    named.resize(kept);
}

// Puts what the note names into `memory.named`. Returns what that has cost, in bytes of text.
static std::size_t ReadNote(const VerseRecords& records, const Chapters& chapters, int note, std::string_view text,
                            NoteMemory& memory) {
    static constexpr std::size_t kCostOfListedVerse = 100;
    memory.named.clear();
    FindReferences(chapters, RecordOf(records, note), text, memory.references);
    for (const TextReference& reference : memory.references)
        AddRange(memory.named, note, reference.first, reference.last);
    const std::size_t listed = AddLists(records, text, note, memory.named);
    Join(memory.named);
    return text.size() + listed * kCostOfListedVerse;
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

static SetReferences NothingOf(const NoteSet& set) {
    return {set.dataFileName, set.dataStamp, set.timesChanged};
}

static bool IsOf(const SetReferences& references, const NoteSet& set) {
    return references.dataFileName == set.dataFileName && references.dataStamp == set.dataStamp;
}

// Gives each set its references, or none if they are of another file.
static void FollowSets(const NoteSets& notes, ReferenceIndex& index) {
    std::vector<SetReferences> followed;
    for (const NoteSet& set : notes.sets) {
        const auto found = std::ranges::find_if(index.sets, [&](const SetReferences& one) { return IsOf(one, set); });
        followed.push_back(found == index.sets.end() ? NothingOf(set) : std::move(*found));
    }
    index.sets = std::move(followed);
}

static bool HasToBeRead(const NoteSet& set, const SetReferences& references) {
    return !set.isUnchecked && !HasNoDataFile(set) && references.next < kVerseCount;
}

// False if the first note that there is cannot be read: another program may have the file open.
static bool ReadOn(const NoteFiles& files, const VerseRecords& records, const Chapters& chapters, NoteSet& set,
                   SetReferences& references, std::size_t budget) {
    static constexpr std::size_t kCostOfVerse = 8;  // without a note, too
    NoteReader reader{files, set};
    const NoteSource source = SourceOf(reader);
    NoteMemory memory;
    for (std::size_t cost = 0; cost < budget && references.next < kVerseCount; cost += kCostOfVerse) {
        const int verse = references.next;
        const NoteFound found = source.noteOf(source.device, verse, memory.text);
        if (!IsOf(references, set)) {
            references = NothingOf(set);
            return true;
        }
        if (found == NoteFound::kUnreadable) return cost > 0;
        ++references.next;
        if (found != NoteFound::kNote) continue;
        cost += ReadNote(records, chapters, verse, memory.text, memory);
        references.named.insert(references.named.end(), memory.named.begin(), memory.named.end());
    }
    if (references.next == kVerseCount) references.named.shrink_to_fit();
    return true;
}

bool IndexSome(const NoteFiles& files, const VerseRecords& records, NoteSets& notes, ReferenceIndex& index,
               std::size_t budget) {
    FollowSets(notes, index);
    for (std::size_t i = 0; i < notes.sets.size(); ++i) {
        NoteSet& set = notes.sets[i];
        SetReferences& references = index.sets[i];
        if (!HasToBeRead(set, references)) continue;
        if (RefreshSet(files, set) == SetRefresh::kUnreadable) continue;
        if (!IsOf(references, set)) references = NothingOf(set);
        if (ReadOn(files, records, index.chapters, set, references, budget)) return true;
    }
    return false;
}

int UnindexedSets(const ReferenceIndex& index, const NoteSets& notes) {
    const auto isUnindexed = [&](const NoteSet& set) {
        const auto isWhole = [&](const SetReferences& one) { return IsOf(one, set) && one.next == kVerseCount; };
        return !HasNoDataFile(set) && std::ranges::none_of(index.sets, isWhole);
    };
    return static_cast<int>(std::ranges::count_if(notes.sets, isUnindexed));
}

bool IsWhole(const ReferenceIndex& index, const NoteSets& notes) {
    return UnindexedSets(index, notes) == 0;
}

int IndexedVerses(const ReferenceIndex& index) {
    int verses = 0;
    for (const SetReferences& set : index.sets) verses += set.next;
    return verses;
}

void IndexSavedNote(const VerseRecords& records, const NoteSets& notes, ReferenceIndex& index, int set, int verse,
                    std::string_view text) {
    const NoteSet& saved = notes.sets[static_cast<std::size_t>(set)];
    const auto found = std::ranges::find(index.sets, saved.dataFileName, &SetReferences::dataFileName);
    if (found == index.sets.end()) return;
    const bool isOnlyChange = saved.timesChanged == found->timesChanged + 1;
    if (!isOnlyChange) {
        *found = NothingOf(saved);
        return;
    }
    found->dataStamp = saved.dataStamp;
    found->timesChanged = saved.timesChanged;
    if (verse >= found->next) return;
    NoteMemory memory;
    ReadNote(records, index.chapters, verse, text, memory);
    const auto first = std::ranges::lower_bound(found->named, verse, {}, &NamedVerses::note);
    const auto last = std::ranges::upper_bound(found->named, verse, {}, &NamedVerses::note);
    const auto place = found->named.erase(first, last);
    found->named.insert(place, memory.named.begin(), memory.named.end());
}

// ---- The question ---------------------------------------------------------------------------------------------------

std::vector<NamingNote> NotesThatName(const ReferenceIndex& index, const NoteSets& notes, int verse) {
    std::vector<NamingNote> naming;
    for (std::size_t i = 0; i < notes.sets.size(); ++i) {
        const auto found = std::ranges::find(index.sets, notes.sets[i].dataFileName, &SetReferences::dataFileName);
        if (found == index.sets.end()) continue;
        for (const NamedVerses& named : found->named)
            if (named.first <= verse && verse <= named.last) naming.push_back({static_cast<int>(i), named.note});
    }
    return naming;
}
