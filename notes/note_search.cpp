#include "notes/note_search.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <span>

#include "notes/letter_search.h"
#include "notes/note_refresh.h"
#include "search/text_scan.h"

static constexpr std::size_t kWindowSize = std::size_t{1} << 20;  // stays in the processor's cache while it is searched

static_assert(kWindowSize >= kNoteBufferSize);

namespace {

// Notes that are behind one another in the data file, so that they can be searched as one text.
struct Stretch {
    int first = 0, last = 0;
    std::uint64_t offset = 0;  // in the data file
    std::uint64_t size = 0;    // in bytes; for the last verse of all only an upper limit
};

// For notes in UTF-8.
struct LetterSweep {
    LetterTarget target;
    FoldedText note{};
};

struct NoteSweep {
    const NoteFiles& files;
    NoteSet& set;
    const NoteQuery& query;
    const LetterTable& letters;
    LetterSweep& inUtf8;
    std::optional<SweepTarget> target{};  // in notes of the code page; nullopt if that lacks a letter of it
    std::size_t from = 0;                 // offset in the first note that is searched
    OwnedNoteFile file{};                 // open during the whole search
    std::string_view window{};            // the bytes of a stretch
    bool isCut = false;                   // fewer bytes than asked for could be read
    std::unique_ptr<unsigned char[]> memory = std::make_unique_for_overwrite<unsigned char[]>(kWindowSize);
};

// Places in the window.
struct NoteInWindow {
    int verse = 0;
    std::size_t begin = 0, end = 0;  // of its text; the two are equal if it has none
    std::size_t next = 0;            // where the next note begins
};

}  // namespace

// ---- Stretches ------------------------------------------------------------------------------------------------------

// A damaged index may have offsets that are not in order, or a note that is longer than notes can be. Where the note of
// the last verse ends is not known before it is read. Each of these is a stretch of its own.
static Stretch StretchFrom(const NoteSet& set, int first, int last) {
    const StoredNote start = StoredNoteOf(set, first);
    if (start.length > kWindowSize) return {first, first, start.offset, kNoteBufferSize};
    Stretch stretch{first, first, start.offset, start.length};
    while (stretch.last < std::min(last, kLastVerse - 1)) {
        const StoredNote next = StoredNoteOf(set, stretch.last + 1);
        if (next.offset != stretch.offset + stretch.size || stretch.size + next.length > kWindowSize) break;
        ++stretch.last;
        stretch.size += next.length;
    }
    return stretch;
}

static std::uint64_t EndOf(const StoredNote& note) {
    return note.offset + note.length;
}

// If not all bytes can be read, the stretch becomes shorter. Its first note then has those that there are.
static void ReadWindow(NoteSweep& sweep, Stretch& stretch) {
    const std::span bytes(sweep.memory.get(), static_cast<std::size_t>(stretch.size));
    const std::size_t read = sweep.files.readAt(sweep.files.device, sweep.file.get(), stretch.offset, bytes);
    sweep.window = {reinterpret_cast<const char*>(bytes.data()), read};
    sweep.isCut = read < bytes.size();
    if (!sweep.isCut) return;
    int last = stretch.first;
    while (last < stretch.last && EndOf(StoredNoteOf(sweep.set, last + 1)) <= stretch.offset + read) ++last;
    stretch.last = last;
}

// ---- The notes of a stretch -----------------------------------------------------------------------------------------

static NoteInWindow NoteOf(const NoteSweep& sweep, const Stretch& stretch, int verse) {
    const StoredNote stored = StoredNoteOf(sweep.set, verse);
    const auto begin = static_cast<std::size_t>(stored.offset - stretch.offset);
    const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(stored.length, kWindowSize));
    const std::size_t shown = std::min(length, kNoteBufferSize - 1);  // as much as the view shows
    const std::string_view text = sweep.window.substr(begin, shown);
    const bool exists = length > 1;
    return {verse, begin, begin + (exists ? std::min(text.find('\0'), text.size()) : 0), begin + length};
}

// The note of the stretch that has `place` in it, given one that begins before or there.
static NoteInWindow NoteAt(const NoteSweep& sweep, const Stretch& stretch, const NoteInWindow& before,
                           std::size_t place) {
    if (place < before.next || before.verse == stretch.last) return before;
    int verse = before.verse + 1;
    while (verse < stretch.last && EndOf(StoredNoteOf(sweep.set, verse)) - stretch.offset <= place) ++verse;
    return NoteOf(sweep, stretch, verse);
}

static bool StandsAlone(const NoteSweep& sweep, const NoteInWindow& note, std::size_t place) {
    const auto isInWord = [&](std::size_t at) {
        return sweep.letters.inWords[static_cast<unsigned char>(sweep.window[at])];
    };
    const std::size_t end = place + sweep.query.text.size();
    return !(place > note.begin && isInWord(place - 1)) && !(end < note.end && isInWord(end));
}

// Where the search in the stretch's note begins.
static std::size_t StartIn(const NoteSweep& sweep, const Stretch& stretch, const NoteInWindow& note) {
    return note.verse == stretch.first ? std::min(note.begin + sweep.from, note.end) : note.begin;
}

// In the notes of the code page from `first` on, which end at `end` in the window. After a match inside a longer word
// the search continues after the whole match.
static NoteMatch FindInCodePage(const NoteSweep& sweep, const Stretch& stretch, int first, std::size_t end) {
    if (!sweep.target) return {};
    const std::size_t size = sweep.query.text.size();
    NoteInWindow note = NoteOf(sweep, stretch, first);
    std::size_t place = StartIn(sweep, stretch, note);
    while ((place = FindTarget(*sweep.target, sweep.window.substr(0, end), place)) != kNoPlace) {
        note = NoteAt(sweep, stretch, note, place);
        const bool isInNote = place + size <= note.end;
        if (isInNote && (sweep.query.substrings || StandsAlone(sweep, note, place)))
            return {NoteSearchEnd::kFound, note.verse, place - note.begin, size};
        place += isInNote ? size : 1;
    }
    return {};
}

// The text behind the mark is searched.
static NoteMatch FindInUtf8(NoteSweep& sweep, const Stretch& stretch, const NoteInWindow& note) {
    const std::size_t begin = note.begin + kUtf8Mark.size();
    const std::size_t start = StartIn(sweep, stretch, note);
    const auto found = FindLetters(sweep.inUtf8.target, sweep.window.substr(begin, note.end - begin),
                                   start - std::min(start, begin), sweep.inUtf8.note);
    if (!found) return {};
    return {NoteSearchEnd::kFound, note.verse, found->place + kUtf8Mark.size(), found->size};
}

// The first note in UTF-8 from `verse` on; nullopt if there is none. Only the beginning of each note is looked at.
static std::optional<NoteInWindow> NextInUtf8(const NoteSweep& sweep, const Stretch& stretch, int verse) {
    for (; verse <= stretch.last; ++verse) {
        const auto begin = static_cast<std::size_t>(StoredNoteOf(sweep.set, verse).offset - stretch.offset);
        if (begin >= sweep.window.size() || sweep.window[begin] != kUtf8Mark.front()) continue;
        const NoteInWindow note = NoteOf(sweep, stretch, verse);
        if (IsInUtf8(sweep.window.substr(note.begin, note.end - note.begin))) return note;
    }
    return std::nullopt;
}

static NoteMatch FindInStretch(NoteSweep& sweep, const Stretch& stretch) {
    for (int verse = stretch.first; verse <= stretch.last;) {
        const auto next = NextInUtf8(sweep, stretch, verse);
        NoteMatch match;
        if (!next || next->verse > verse)
            match = FindInCodePage(sweep, stretch, verse, next ? next->begin : sweep.window.size());
        if (match.end != NoteSearchEnd::kFound && next) match = FindInUtf8(sweep, stretch, *next);
        if (match.end == NoteSearchEnd::kFound || !next) return match;
        verse = next->verse + 1;
    }
    return {};
}

// Adds all verses of the stretch that have a match. What is in the code page is searched from one note in UTF-8 to the
// next.
static void AddMatches(NoteSweep& sweep, const Stretch& stretch, std::vector<std::int32_t>& verses) {
    for (int verse = stretch.first; verse <= stretch.last; ++verse) {
        const auto next = NextInUtf8(sweep, stretch, verse);
        const std::size_t end = next ? next->begin : sweep.window.size();
        const int behind = next ? next->verse : stretch.last + 1;
        while (verse < behind) {
            const NoteMatch match = FindInCodePage(sweep, stretch, verse, end);
            if (match.end != NoteSearchEnd::kFound) break;
            verses.push_back(match.verse);
            verse = match.verse + 1;
        }
        if (!next) return;
        if (FindInUtf8(sweep, stretch, *next).end == NoteSearchEnd::kFound) verses.push_back(next->verse);
        verse = next->verse;
    }
}

// ---- The search -----------------------------------------------------------------------------------------------------

// The first verse from `verse` on that has a note; beyond `last` if there is none.
static int VerseWithNote(const NoteSweep& sweep, int verse, int last) {
    while (verse <= last && !NoteExists(sweep.files, sweep.set, verse)) ++verse;
    return verse;
}

// Opens the file again if the set had to be read again.
static SetRefresh OpenCurrent(NoteSweep& sweep) {
    const SetRefresh refresh = RefreshSet(sweep.files, sweep.set);
    if (refresh == SetRefresh::kReadAgain) sweep.file.reset();
    if (refresh == SetRefresh::kUnchanged && !sweep.file) {
        sweep.file = OpenSharedNoteFile(sweep.files, sweep.set.dataFileName);
        if (!sweep.file) return SetRefresh::kUnreadable;
    }
    return refresh;
}

// From `verse` on. `search` gets each stretch of notes that could be read; the sweep ends with what it finds there.
template <typename Search>
static NoteMatch SweepNotes(NoteSweep& sweep, int verse, const SearchProgress& progress, Search search) {
    const int last = sweep.query.range.EndVerse;
    for (verse = VerseWithNote(sweep, verse, last); verse <= last; verse = VerseWithNote(sweep, verse, last)) {
        progress.reached(progress.device, verse);
        if (progress.goesOn != nullptr && !progress.goesOn(progress.device)) return {};
        const SetRefresh refresh = OpenCurrent(sweep);
        if (refresh == SetRefresh::kUnreadable) return {NoteSearchEnd::kUnreadable, verse};
        if (refresh == SetRefresh::kReadAgain) continue;  // the verse may have no note any more
        Stretch stretch = StretchFrom(sweep.set, verse, sweep.isCut ? verse : last);
        ReadWindow(sweep, stretch);
        const NoteMatch match = search(stretch);
        if (match.end == NoteSearchEnd::kFound) return match;
        sweep.from = 0;
        verse = stretch.last + 1;
    }
    return {};
}

static LetterSweep LetterSweepOf(const NoteFiles& files, const NoteQuery& query) {
    return {LetterTargetOf(Utf8OfNote(files.codePage, query.text), query.caseSensitive, query.substrings)};
}

static void Aim(NoteSweep& sweep) {
    const NoteQuery& query = sweep.query;
    if (!IsInUtf8(query.text)) sweep.target = TargetOf(query.text, query.caseSensitive ? nullptr : &sweep.letters);
}

NoteMatch FindInNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                      ResumePoint resume, const SearchProgress& progress) {
    if (resume.verse < query.range.StartVerse) resume = {query.range.StartVerse, 0};
    RefreshSet(files, set);
    LetterSweep inUtf8 = LetterSweepOf(files, query);
    NoteSweep sweep{files, set, query, letters, inUtf8};
    Aim(sweep);
    sweep.from = resume.offset;
    return SweepNotes(sweep, resume.verse, progress,
                      [&](const Stretch& stretch) { return FindInStretch(sweep, stretch); });
}

NoteSearchEnd FindAllNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                           const SearchProgress& progress, std::vector<std::int32_t>& verses) {
    RefreshSet(files, set);
    LetterSweep inUtf8 = LetterSweepOf(files, query);
    NoteSweep sweep{files, set, query, letters, inUtf8};
    Aim(sweep);
    return SweepNotes(sweep, query.range.StartVerse, progress,
                      [&](const Stretch& stretch) {
                          AddMatches(sweep, stretch, verses);
                          return NoteMatch{};
                      })
        .end;
}
