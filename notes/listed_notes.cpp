#include "notes/listed_notes.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "notes/note_refresh.h"

namespace {

// Of the whole listing. The sweep for one word in one set tells its verses, which become steps.
struct Listing {
    const NoteFiles& files;
    const LetterTable& letters;
    const ListedNotesQuery& query;
    const SearchProgress& progress;
    int firstStep = 0;  // of this sweep
    bool isStopped = false;
};

}  // namespace

std::vector<std::u16string> WordsTyped(std::u16string_view text) {
    static constexpr std::u16string_view kBlanks = u" \t\u00A0";
    std::vector<std::u16string> words;
    std::size_t place = 0;
    while ((place = text.find_first_not_of(kBlanks, place)) != text.npos) {
        const std::size_t end = std::min(text.find_first_of(kBlanks, place), text.size());
        words.emplace_back(text.substr(place, end - place));
        place = end;
    }
    return words;
}

// ---- Progress -------------------------------------------------------------------------------------------------------

static int SweepsOfSet(const ListedNotesQuery& query) {
    return std::max(static_cast<int>(query.words.size()), 1);
}

int ListingSteps(std::span<const NoteSet> sets, const ListedNotesQuery& query) {
    return static_cast<int>(sets.size()) * SweepsOfSet(query) * kVerseCount;
}

static void OnReached(void* device, int verse) {
    const auto& listing = *static_cast<Listing*>(device);
    listing.progress.reached(listing.progress.device, listing.firstStep + verse);
}

static bool GoesOn(void* device) {
    auto& listing = *static_cast<Listing*>(device);
    const SearchProgress& progress = listing.progress;
    listing.isStopped = listing.isStopped || (progress.goesOn != nullptr && !progress.goesOn(progress.device));
    return !listing.isStopped;
}

// ---- A set ----------------------------------------------------------------------------------------------------------

// A set that is used for the first time is read now, which for a large one takes long enough to be stopped.
static SetRefresh Refresh(Listing& listing, NoteSet& set) {
    if (!set.isUnchecked || HasNoDataFile(set)) return RefreshSet(listing.files, set);
    SetScan scan = BeginScan(listing.files, set.dataFileName);
    ScanStep step = ScanStep::kGoesOn;
    while (step == ScanStep::kGoesOn && GoesOn(&listing)) step = ScanNextPiece(listing.files, scan);
    if (step == ScanStep::kGoesOn) return SetRefresh::kUnchanged;
    return step == ScanStep::kDone ? TakeScan(listing.files, set, scan) : RefreshSet(listing.files, set);
}

static std::vector<std::int32_t> VersesWithNote(const Listing& listing, const NoteSet& set) {
    std::vector<std::int32_t> verses;
    for (int verse = listing.query.range.StartVerse; verse <= listing.query.range.EndVerse; ++verse)
        if (NoteExists(listing.files, set, verse)) verses.push_back(verse);
    return verses;
}

// A note has all of the words if each word's sweep finds its verse.
static NoteSearchEnd FindWords(Listing& listing, NoteSet& set, std::vector<std::int32_t>& verses) {
    const SearchProgress progress{&listing, OnReached, GoesOn};
    bool isFirst = true;
    for (const std::string& word : listing.query.words) {
        const NoteQuery query{word, false, listing.query.substrings, listing.query.range};
        std::vector<std::int32_t> found, both;
        const NoteSearchEnd end = FindAllNotes(listing.files, set, listing.letters, query, progress, found);
        if (end == NoteSearchEnd::kUnreadable) return end;
        std::ranges::set_intersection(verses, found, std::back_inserter(both));
        verses = std::exchange(isFirst, false) ? found : both;
        if (verses.empty() || listing.isStopped) break;
        listing.firstStep += kVerseCount;
    }
    return NoteSearchEnd::kNotFound;
}

// False if the set cannot be read.
static bool FindInSet(Listing& listing, NoteSet& set, std::vector<std::int32_t>& verses) {
    if (Refresh(listing, set) == SetRefresh::kUnreadable) return false;
    if (listing.isStopped) return true;
    if (!listing.query.words.empty()) return FindWords(listing, set, verses) != NoteSearchEnd::kUnreadable;
    verses = VersesWithNote(listing, set);
    return true;
}

// ---- All sets -------------------------------------------------------------------------------------------------------

ListedNotes ListNotes(const NoteFiles& files, std::span<NoteSet> sets, const LetterTable& letters,
                      const ListedNotesQuery& query, const SearchProgress& progress) {
    Listing listing{files, letters, query, progress};
    ListedNotes notes;
    int number = 0;
    for (NoteSet& set : sets) {
        if (listing.isStopped) break;
        listing.firstStep = number++ * SweepsOfSet(query) * kVerseCount;
        OnReached(&listing, 0);
        if (!GoesOn(&listing)) break;
        std::vector<std::int32_t> found, all;
        if (!FindInSet(listing, set, found)) {
            ++notes.unreadableSets;
            continue;
        }
        if (!found.empty()) ++notes.sets;
        std::ranges::set_union(notes.verses, found, std::back_inserter(all));
        notes.verses = std::move(all);
    }
    notes.isStopped = listing.isStopped;
    return notes;
}

std::vector<std::int32_t> StillListed(const NoteFiles& files, std::span<NoteSet> sets, const LetterTable& letters,
                                      const ListedQuestion& question, const std::vector<std::int32_t>& verses) {
    if (verses.empty()) return {};
    const auto named = std::ranges::find(sets, question.set, NoteSetName);
    if (!question.set.empty()) sets = {named, named == sets.end() ? 0U : 1U};
    const ListedNotesQuery query{question.words, question.substrings, {verses.front(), verses.back()}};
    const ListedNotes now = ListNotes(files, sets, letters, query, {nullptr, [](void*, int) {}});
    if (now.unreadableSets != 0) return verses;
    std::vector<std::int32_t> still;
    std::ranges::set_intersection(verses, now.verses, std::back_inserter(still));
    return still;
}

static std::string Counted(std::size_t count, const char* one, const char* several) {
    return std::to_string(count) + (count == 1 ? one : several);
}

static std::string TextOfUnreadable(int sets) {
    return sets == 0 ? "" : "; " + Counted(static_cast<std::size_t>(sets), " set", " sets") + " cannot be read";
}

std::string ListedNotesSummary(const ListedNotes& notes) {
    return Counted(notes.verses.size(), " verse with a note", " verses with notes") + " in " +
           Counted(static_cast<std::size_t>(notes.sets), " set", " sets") + TextOfUnreadable(notes.unreadableSets);
}

std::string NamingNotesSummary(std::size_t notes, int unreadableSets, const std::string& verse) {
    const std::string counted = notes == 0 ? "No notes" : Counted(notes, " note", " notes");
    return counted + " about " + verse + TextOfUnreadable(unreadableSets);
}

// ---- One verse ------------------------------------------------------------------------------------------------------

static bool HasWord(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query) {
    std::vector<std::int32_t> found;
    FindAllNotes(files, set, letters, query, {nullptr, [](void*, int) {}}, found);
    return !found.empty();
}

static bool IsAskedFor(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const ListedQuestion& question,
                       int verse) {
    if (!question.set.empty() && NoteSetName(set) != question.set) return false;
    if (!NoteExists(files, set, verse)) return false;
    return std::ranges::all_of(question.words, [&](const std::string& word) {
        return HasWord(files, set, letters, {word, false, question.substrings, {verse, verse}});
    });
}

int SetWithListedNote(const NoteFiles& files, NoteSets& notes, const LetterTable& letters,
                      const ListedQuestion& question, int verse) {
    const auto isAskedFor = [&](NoteSet& set) { return IsAskedFor(files, set, letters, question, verse); };
    if (notes.sets.empty() || isAskedFor(*CurrentSet(notes))) return notes.currentSet;
    const auto found = std::ranges::find_if(notes.sets, isAskedFor);
    return found != notes.sets.end() ? static_cast<int>(found - notes.sets.begin()) : notes.currentSet;
}
