#include "cli/asked_verses.h"

#include <algorithm>

#include "cli/meant_spans.h"
#include "cli/utf8.h"
#include "scripture/letters.h"
#include "scripture/reference_parser.h"

// A text that begins with neither letter nor digit would be a verse of Genesis.
static ParsedRange ParseStrictly(const VerseRecords& records, const std::string& typed) {
    if (typed.empty() || !IsLetterOrDigit(typed.front())) return {};
    return ParseRange(records, typed);
}

static void TellOfWindow(const Vw& vw, const VerseRecords& records, const std::string& typed,
                         const std::vector<VerseSpan>& meant, const ParsedRange& strict) {
    const VerseSpan understood{strict.first, strict.last};
    if (strict.ok && (meant.size() > 1 || !(understood == meant.front())))
        Tell(vw, "\"" + typed + "\" is taken as " + SpanNames(records, meant) + "; the window understands " +
                     SpanName(records, understood) + " (--strict)");
}

static VerseSpan TakenAsWindow(const Vw& vw, const VerseRecords& records, const std::string& typed,
                               const ParsedRange& strict) {
    const VerseSpan understood{strict.first, strict.last};
    if (!strict.unused.empty())
        Tell(vw, "\"" + typed + "\" is taken as " + SpanName(records, understood) + " (not used: \"" + strict.unused +
                     "\")");
    return understood;
}

// To take what the window does would be to guess: it takes "Rom 8:99" for Romans 8:39, and "8:28" for Genesis 8:22.
static Complaint NoReference(const VerseRecords& records, const std::string& argument, const std::string& typed,
                             const ParsedRange& strict, ReferenceReading reading) {
    std::string text = argument + ": \"" + typed + "\" is no reference";
    if (strict.ok && !reading.isStrict)
        text += "; the window understands " + SpanName(records, {strict.first, strict.last}) + " (--strict)";
    return {kBadUse, text};
}

namespace {

enum class MayBeList { kNo, kYes };

}  // namespace

static std::vector<VerseSpan> Asked(const Vw& vw, const VerseRecords& records, const std::string& argument,
                                    const std::string& typed, ReferenceReading reading, MayBeList mayBeList) {
    std::string ascii = AsciiOf(typed);
    ascii.erase(0, std::min(ascii.find_first_not_of(' '), ascii.size()));
    const ParsedRange strict = ParseStrictly(records, ascii);
    if (reading.isStrict && strict.ok) return {TakenAsWindow(vw, records, typed, strict)};
    const auto meant = reading.isStrict ? std::vector<VerseSpan>() : MeantSpans(records, ascii);
    if (meant.empty()) throw NoReference(records, argument, typed, strict, reading);
    if (meant.size() > 1 && mayBeList == MayBeList::kNo)
        throw Complaint{kBadUse, argument + ": \"" + typed + "\" is more than one reference"};
    TellOfWindow(vw, records, typed, meant, strict);
    return meant;
}

VerseSpan AskedVerses(const Vw& vw, const VerseRecords& records, const std::string& argument, const std::string& typed,
                      ReferenceReading reading) {
    return Asked(vw, records, argument, typed, reading, MayBeList::kNo).front();
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

std::vector<VerseSpan> SpansOfWords(const Vw& vw, const VerseRecords& records, const std::vector<std::string>& words,
                                    ReferenceReading reading) {
    std::vector<VerseSpan> all;
    for (const std::string& reference : ReferencesIn(words)) {
        const std::vector<VerseSpan> spans = Asked(vw, records, "REF", reference, reading, MayBeList::kYes);
        all.insert(all.end(), spans.begin(), spans.end());
    }
    return all;
}

int OneAskedVerse(const Vw& vw, const VerseRecords& records, const std::vector<std::string>& words,
                  ReferenceReading reading) {
    const std::vector<std::string> references = ReferencesIn(words);
    if (references.size() != 1) throw Complaint{kBadUse, "REF: more than one reference"};
    const VerseSpan span = AskedVerses(vw, records, "REF", references.front(), reading);
    if (span.first != span.last) throw Complaint{kBadUse, "REF: \"" + references.front() + "\" is more than one verse"};
    return span.first;
}
