// `vw notes sets`, `list`, `show` and `search`, which change nothing.
#include <algorithm>
#include <map>

#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/note_objects.h"
#include "cli/notes_commands.h"
#include "cli/opened_notes.h"
#include "cli/shown_notes.h"
#include "cli/text_folder.h"
#include "notes/listed_notes.h"
#include "notes/note_source.h"

static constexpr SearchProgress kNoProgress{nullptr, [](void*, int) {}, nullptr};

static VerseSpan RangeOf(const Vw& vw, const VerseRecords& records, const NoteReadingOptions& options) {
    if (options.range.empty()) return {0, kLastVerse};
    return AskedVerses(vw, records, "--range", options.range, {options.strict});
}

// ---- Sets -----------------------------------------------------------------------------------------------------------

static void PrintSet(Vw& vw, const OpenedNotes& notes, const NoteSet& set, int count) {
    if (vw.options.json) return PrintSetObject(vw, notes, set, count);
    const std::string notesText = std::to_string(count) + (count == 1 ? " note" : " notes");
    Print(vw.printer,
          Utf8Name(notes, set) + ": " + notesText + (set.readOnly ? ", damaged: can only be read" : "") + "\n");
}

ExitCode ListNoteSets(Vw& vw) {
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    for (NoteSet& set : notes.notes.sets) {
        CheckReadable(notes, set);
        const int count = CountNotes(notes, set);
        PrintSet(vw, notes, set, count);
    }
    if (const std::string more = NotShownText(notes.notes); !more.empty())
        Tell(vw, Utf8OfNote(notes.files.codePage, more));
    return notes.notes.sets.empty() ? kNothingFound : kFound;
}

// ---- Show -----------------------------------------------------------------------------------------------------------

static bool ShowNoteOf(Vw& vw, OpenedNotes& notes, NoteSet& set, const VerseRecords& records, int verse) {
    const std::string note = NoteOf(notes, set, verse);
    if (!note.empty()) PrintWholeNote(vw, notes, set, records, verse, ShownNote(notes, note, {}));
    return !note.empty();
}

ExitCode ShowNotes(Vw& vw, const NoteReadingOptions& options) {
    const Scripture scripture = TextOf(vw);
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    const std::vector<NoteSet*> sets = SetsNamed(notes, options.set);
    const std::vector<VerseSpan> spans = SpansOfWords(vw, scripture.records, options.words, {options.strict});
    for (NoteSet* set : sets) CheckReadable(notes, *set);
    StartPager(vw);
    bool isFound = false;
    for (const VerseSpan& span : spans)
        for (int verse = span.first; verse <= span.last && !HasEnded(vw.printer); ++verse)
            for (NoteSet* set : sets)
                if (NoteExists(notes.files, *set, verse))
                    isFound = ShowNoteOf(vw, notes, *set, scripture.records, verse) || isFound;
    return isFound ? kFound : kNothingFound;
}

// ---- What is found --------------------------------------------------------------------------------------------------

namespace {

// Sets by verse, in the order of the window.
using SetsByVerse = std::map<int, std::vector<NoteSet*>>;

struct Listing {
    Vw& vw;
    OpenedNotes& notes;
    const VerseRecords& records;
    const NoteReadingOptions& options;
    const LetterTable& letters;
    const NoteQuery* query = nullptr;  // what is marked in the notes; null: nothing
};

}  // namespace

// The places of the note where the text is that was looked for.
static std::vector<NoteMatch> MatchesIn(const Listing& listing, NoteSet& set, int verse) {
    std::vector<NoteMatch> matches;
    if (listing.query == nullptr) return matches;
    NoteQuery query = *listing.query;
    query.range = {verse, verse};
    ResumePoint from{verse, 0};
    for (;;) {
        const NoteMatch match = FindInNotes(listing.notes.files, set, listing.letters, query, from, kNoProgress);
        if (match.end != NoteSearchEnd::kFound) return matches;
        matches.push_back(match);
        from.offset = match.offset + std::max<std::size_t>(match.size, 1);
    }
}

static void PrintListed(const Listing& listing, NoteSet& set, int verse) {
    auto& [vw, notes, records, options, letters, query] = listing;
    const StyledText text = ShownNote(notes, NoteOf(notes, set, verse), MatchesIn(listing, set, verse));
    if (vw.options.json || options.full) return PrintWholeNote(vw, notes, set, records, verse, text);
    PrintLinesOfNote(vw, notes, set, records, verse, text, HeadOfLine::kVerseFirst);
}

static void PrintListedReference(Vw& vw, const VerseRecords& records, int verse) {
    if (vw.options.json) return PrintReferenceObject(vw, records, verse);
    Print(vw.printer, ReferenceText(records, verse, BookForm::kAbbreviation) + "\n");
}

static ExitCode PrintFound(const Listing& listing, const SetsByVerse& found) {
    StartPager(listing.vw);
    for (const auto& [verse, sets] : found) {
        if (HasEnded(listing.vw.printer)) break;
        if (listing.options.refs) {
            PrintListedReference(listing.vw, listing.records, verse);
            continue;
        }
        for (NoteSet* set : sets) PrintListed(listing, *set, verse);
    }
    return found.empty() ? kNothingFound : kFound;
}

// ---- List and search ------------------------------------------------------------------------------------------------

static std::string Wanted(const OpenedNotes& notes, const LetterTable& letters, const std::string& typed,
                          const char* argument, bool caseSensitive) {
    const std::string text = AsNote(notes, typed);
    if (text.size() > std::size_t{kNoteSearchTextLimit})
        throw Complaint{kBadUse,
                        std::string(argument) + ": longer than " + std::to_string(kNoteSearchTextLimit) + " letters"};
    return caseSensitive || IsInUtf8(text) ? text : InCapitals(letters, text);
}

ExitCode ListNotes(Vw& vw, const NoteReadingOptions& options) {
    const Scripture scripture = TextOf(vw);
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    const LetterTable letters = LettersOfPage(notes.files.codePage);
    const VerseSpan range = RangeOf(vw, scripture.records, options);
    ListedNotesQuery query{{}, options.part, {range.first, range.last}};
    for (const std::string& words : options.words)
        for (const std::u16string& word : WordsTyped(LettersOfNote(notes.files.codePage, AsNote(notes, words))))
            query.words.push_back(Wanted(notes, letters, Utf8Of(word), "--words", false));
    if (query.words.empty() && !options.words.empty()) throw Complaint{kBadUse, "--words: there is no word in them"};
    SetsByVerse found;
    for (NoteSet* set : SetsNamed(notes, options.set)) {
        const ListedNotes listed = ListNotes(notes.files, {set, 1}, letters, query, kNoProgress);
        if (listed.unreadableSets > 0) ComplainOfReading(notes, *set);
        for (const int verse : listed.verses) found[verse].push_back(set);
    }
    return PrintFound({vw, notes, scripture.records, options, letters}, found);
}

ExitCode SearchNotes(Vw& vw, const NoteReadingOptions& options) {
    const Scripture scripture = TextOf(vw);
    OpenedNotes notes = OpenNotes(vw, NoteAccess::kRead);
    const LetterTable letters = LettersOfPage(notes.files.codePage);
    const VerseSpan range = RangeOf(vw, scripture.records, options);
    std::string typed;
    for (const std::string& word : options.words) typed += (typed.empty() ? "" : " ") + word;
    const NoteQuery query{Wanted(notes, letters, typed, "TEXT", options.caseSensitive),
                          options.caseSensitive,
                          options.part,
                          {range.first, range.last}};
    if (query.text.empty()) throw Complaint{kBadUse, "TEXT: there is nothing to look for"};
    SetsByVerse found;
    for (NoteSet* set : SetsNamed(notes, options.set)) {
        std::vector<std::int32_t> verses;
        if (FindAllNotes(notes.files, *set, letters, query, kNoProgress, verses) == NoteSearchEnd::kUnreadable)
            ComplainOfReading(notes, *set);
        for (const int verse : verses) found[verse].push_back(set);
    }
    return PrintFound({vw, notes, scripture.records, options, letters, &query}, found);
}
