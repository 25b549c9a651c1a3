#include "notes/note_search.h"

#include <algorithm>

#include "notes/note_refresh.h"
#include "notes/note_source.h"
#include "scripture/letters.h"
#include "search/text_scan.h"

static std::size_t PlaceOf(char c) {
    return static_cast<unsigned char>(c);
}

LetterTable AsciiLetters() {
    LetterTable letters;
    for (std::size_t byte = 0; byte < letters.capitals.size(); ++byte) {
        const char c = static_cast<char>(byte);
        letters.capitals[byte] = IsLetter(c) && !IsCapital(c) ? static_cast<char>(c - ('a' - 'A')) : c;
        letters.inWords[byte] = IsLetterOrDigit(c);
    }
    return letters;
}

static void PutInCapitals(const LetterTable& letters, std::string& text) {
    for (char& c : text) c = letters.capitals[PlaceOf(c)];
}

std::string InCapitals(const LetterTable& letters, std::string_view text) {
    std::string capitals(text);
    PutInCapitals(letters, capitals);
    return capitals;
}

static bool StandsAlone(const LetterTable& letters, std::string_view note, std::size_t place, std::size_t size) {
    const auto isInWord = [&](std::size_t at) { return at < note.size() && letters.inWords[PlaceOf(note[at])]; };
    return !(place > 0 && isInWord(place - 1)) && !isInWord(place + size);
}

// First match at `from` or later. After a match inside a longer word the search continues after the whole match.
static std::size_t FindInNote(const LetterTable& letters, const NoteQuery& query, std::string_view note,
                              std::size_t from) {
    static constexpr bool kAnyCase = false;  // both are already in capitals if case is ignored
    const std::size_t size = query.text.size();
    while (from <= note.size()) {
        const std::size_t place = FindInText(note, query.text, kAnyCase, from);
        if (place == kNoPlace || query.substrings || StandsAlone(letters, note, place, size)) return place;
        from = place + size;
    }
    return kNoPlace;
}

NoteMatch FindInNotes(const NoteFiles& files, NoteSet& set, const LetterTable& letters, const NoteQuery& query,
                      ResumePoint resume, const SearchProgress& progress) {
    if (resume.verse < query.range.StartVerse) resume = {query.range.StartVerse, 0};
    RefreshSet(files, set);
    NoteReader notes{files, set};
    const NoteSource source = SourceOf(notes);
    std::string note;
    for (int verse = resume.verse; verse <= query.range.EndVerse; ++verse) {
        progress.reached(progress.device, verse);
        const NoteFound found = source.noteOf(source.device, verse, note);
        if (found == NoteFound::kUnreadable) return {NoteSearchEnd::kUnreadable, verse};
        if (found == NoteFound::kNone) continue;
        note.resize(std::min(note.size(), kNoteBufferSize - 1));  // as much as the view shows
        if (!query.caseSensitive) PutInCapitals(letters, note);
        const std::size_t place = FindInNote(letters, query, note, resume.offset);
        if (place != kNoPlace) return {NoteSearchEnd::kFound, verse, place};
        resume.offset = 0;
    }
    return {};
}
