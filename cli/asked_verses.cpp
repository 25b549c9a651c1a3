#include "cli/asked_verses.h"

#include <algorithm>

#include "cli/utf8.h"
#include "scripture/letters.h"
#include "scripture/reference_parser.h"

// A text that begins with neither letter nor digit would be a verse of Genesis.
static ParsedRange ParseStrictly(const VerseRecords& records, const std::string& typed) {
    if (typed.empty() || !IsLetterOrDigit(typed.front())) return {};
    return ParseRange(records, typed);
}

static VerseSpan TakenAsMeant(const Vw& vw, const VerseRecords& records, const std::string& typed,
                              const VerseSpan& meant, const ParsedRange& strict) {
    const VerseSpan understood{strict.first, strict.last};
    if (strict.ok && !(understood == meant))
        Tell(vw, "\"" + typed + "\" is taken as " + SpanName(records, meant) + "; the window understands " +
                     SpanName(records, understood) + " (--strict)");
    return meant;
}

VerseSpan AskedVerses(const Vw& vw, const VerseRecords& records, const std::string& argument, const std::string& typed,
                      ReferenceReading reading) {
    std::string ascii = AsciiOf(typed);
    ascii.erase(0, std::min(ascii.find_first_not_of(' '), ascii.size()));
    const ParsedRange strict = ParseStrictly(records, ascii);
    const auto meant = reading.isStrict ? std::nullopt : MeantVerses(records, ascii);
    if (meant) return TakenAsMeant(vw, records, typed, *meant, strict);
    if (!strict.ok) throw Complaint{kBadUse, argument + ": \"" + typed + "\" is no reference"};
    const VerseSpan understood{strict.first, strict.last};
    if (!strict.unused.empty())
        Tell(vw, "\"" + typed + "\" is taken as " + SpanName(records, understood) + " (not used: \"" + strict.unused +
                     "\")");
    return understood;
}

// ---- Words of the shell ---------------------------------------------------------------------------------------------

// Has it a book and, behind it, a number?
static bool IsComplete(const std::string& reference) {
    const auto letter = std::ranges::find_if(reference, IsLetter);
    return std::any_of(letter, reference.end(), IsDigit);
}

static bool IsWholeReference(const std::string& word) {
    return word.find(' ') != word.npos && std::ranges::any_of(word, IsLetter);
}

// Is the word a number that belongs to the book behind it: "3" in `Jude 25 3 John 14`?
static bool IsNumberOfBook(const std::string& word, const std::string& next) {
    return word.size() == 1 && word[0] >= '1' && word[0] <= '3' && !next.empty() && IsLetter(next[0]);
}

static bool BeginsReference(const std::string& before, const std::string& word, const std::string& next) {
    if (before.empty() || before.ends_with('-') || word.empty() || word[0] == '-') return before.empty();
    const bool beginsBook = IsLetter(word[0]) || IsNumberOfBook(word, next);
    return IsWholeReference(word) || (beginsBook && IsComplete(before));
}

std::vector<std::string> ReferencesIn(const std::vector<std::string>& words) {
    std::vector<std::string> references;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string next = i + 1 < words.size() ? words[i + 1] : "";
        if (references.empty() || BeginsReference(references.back(), words[i], next))
            references.push_back(words[i]);
        else
            references.back() += ' ' + words[i];
    }
    return references;
}

int OneAskedVerse(const Vw& vw, const VerseRecords& records, const std::vector<std::string>& words,
                  ReferenceReading reading) {
    const std::vector<std::string> references = ReferencesIn(words);
    if (references.size() != 1) throw Complaint{kBadUse, "REF: more than one reference"};
    const VerseSpan span = AskedVerses(vw, records, "REF", references.front(), reading);
    if (span.first != span.last) throw Complaint{kBadUse, "REF: \"" + references.front() + "\" is more than one verse"};
    return span.first;
}
