#include "search/search_engine.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "scripture/letters.h"
#include "scripture/little_endian.h"
#include "search/key_word_marks.h"

namespace {

// The state of a running search.
struct SearchPass {
    const Scripture& scripture;
    const WordIndex& index;
    const Query& query;
    int first, last;  // the range clamped to existing verses; empty if `last` < `first`
    HitCounters& hits;
    SearchResult result{};
};

}  // namespace

static std::uint16_t WordCount(const SearchPass& pass) {
    return static_cast<std::uint16_t>(pass.query.words.size());
}

// ---- Counting the words of the query in the verses ------------------------------------------------------------------

static int VerseOfEntry(std::span<const unsigned char> entries, std::size_t at) {
    return LittleEndian16(entries.data() + at);
}

static void AddEntries(std::span<const unsigned char> entries, HitCounters& hits) {
    for (std::size_t at = 0; at < entries.size(); at += 2) {
        const int verse = VerseOfEntry(entries, at);
        if (verse < kVerseCount) ++hits[static_cast<std::size_t>(verse)];
    }
}

// Does the verse contain the word with the same case? For whole words only the first occurrence is examined, and a
// paragraph mark before it counts as a letter, so such verses are not found.
static bool HoldsAsTyped(std::string_view verseText, std::string_view word, bool substring) {
    const std::size_t place = FindInText(verseText, word, false, 0);
    if (place == kNoPlace || substring) return place != kNoPlace;
    const std::size_t after = place + word.size();
    return (place == 0 || !IsLetterOrHigh(verseText[place - 1])) &&
           (after == verseText.size() || !IsLetterOrHigh(verseText[after]));
}

namespace {
enum Answer : unsigned char { kNotAsked, kNo, kYes };
}

// Counts the entries whose verses are in the range and contain `word` with the same case. `answers` caches the result
// for each verse, because in a substring search many entries refer to the same verses.
static void AddEntriesAsTyped(SearchPass& pass, std::span<const unsigned char> entries, std::string_view word,
                              bool substring, std::vector<Answer>& answers) {
    for (std::size_t at = 0; at < entries.size(); at += 2) {
        const int verse = VerseOfEntry(entries, at);
        if (verse < pass.first || verse > pass.last) continue;
        Answer& answer = answers[static_cast<std::size_t>(verse)];
        if (answer == kNotAsked) answer = HoldsAsTyped(VerseText(pass.scripture, verse), word, substring) ? kYes : kNo;
        if (answer == kYes) ++pass.hits[static_cast<std::size_t>(verse)];
    }
}

static std::vector<int> MatchingWords(const WordIndex& index, std::string_view word, bool substring) {
    const std::string lowerCased = LowerCased(word);
    std::vector<int> matches;
    if (!substring) {
        const int match = FindWord(index, lowerCased);
        if (match >= 0) matches.push_back(match);
        return matches;
    }
    for (int i = 0; i < WordCount(index); ++i)
        if (index.words[static_cast<std::size_t>(i)].find(lowerCased) != std::string_view::npos) matches.push_back(i);
    return matches;
}

static void AddHits(SearchPass& pass, std::string_view word, bool substring) {
    std::vector<Answer> answers(pass.query.caseSensitive ? kVerseCount : 0, kNotAsked);
    for (const int match : MatchingWords(pass.index, word, substring)) {
        const std::span<const unsigned char> entries = EntriesOf(pass.index, match);
        if (pass.query.caseSensitive)
            AddEntriesAsTyped(pass, entries, word, substring, answers);
        else
            AddEntries(entries, pass.hits);
    }
}

static void CountHits(SearchPass& pass, bool substring) {
    pass.hits.assign(kVerseCount, 0);
    for (const std::string& word : pass.query.words) AddHits(pass, word, substring);
}

// ---- Going through the counters -------------------------------------------------------------------------------------

// Most counters are skipped in a search, so they are examined four at a time.
static std::uint64_t FourCounters(const HitCounters& hits, int verse) {
    std::uint64_t four = 0;
    std::memcpy(&four, hits.data() + verse, sizeof four);
    return four;
}

// The first verse from `verse` to `end` that has a hit; greater than `end` if there is none.
static int NextHit(const HitCounters& hits, int verse, int end) {
    while (verse + 3 <= end && FourCounters(hits, verse) == 0) verse += 4;
    while (verse <= end && hits[static_cast<std::size_t>(verse)] == 0) ++verse;
    return verse;
}

// Is one of the four counters 0?
static bool HasZero(std::uint64_t four) {
    return ((four - 0x0001000100010001) & ~four & 0x8000800080008000) != 0;
}

// The first verse from `verse` to `end` whose counter is `count`; greater than `end` if there is none.
static int NextWithHits(const HitCounters& hits, std::uint16_t count, int verse, int end) {
    if (verse <= end && hits[static_cast<std::size_t>(verse)] == count) return verse;
    const std::uint64_t wanted = count * std::uint64_t{0x0001000100010001};
    while (verse + 3 <= end && !HasZero(FourCounters(hits, verse) ^ wanted)) verse += 4;
    while (verse <= end && hits[static_cast<std::size_t>(verse)] != count) ++verse;
    return verse;
}

static void ListVerse(int verse, int occurrences, SearchResult& result) {
    result.verses.push_back(verse);
    result.occurrences += occurrences;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

// In a substring search a verse's counter is the number of index words in the verse that contain a word of the query.
// One query word can match several of them, so above 1 the query words that the text contains are counted instead.
static void RecountSubstrings(SearchPass& pass) {
    const Query& query = pass.query;
    for (int verse = NextHit(pass.hits, pass.first, pass.last); verse <= pass.last;
         verse = NextHit(pass.hits, verse + 1, pass.last)) {
        std::uint16_t& hits = pass.hits[static_cast<std::size_t>(verse)];
        if (hits <= 1) continue;
        const std::string_view text = VerseText(pass.scripture, verse);
        hits = static_cast<std::uint16_t>(std::count_if(
            query.words.begin(), query.words.end(),
            [&](const std::string& word) { return FindInText(text, word, !query.caseSensitive, 0) != kNoPlace; }));
    }
}

static bool Qualifies(int hits, int wordCount, int booleanType) {
    switch (booleanType) {
        case kAllWords: return hits == wordCount;
        case kAnyWord: return hits != 0;
        default: return hits == 1;
    }
}

static void ListQualifyingVerses(SearchPass& pass) {
    for (int verse = NextHit(pass.hits, pass.first, pass.last); verse <= pass.last;
         verse = NextHit(pass.hits, verse + 1, pass.last)) {
        if (Qualifies(pass.hits[static_cast<std::size_t>(verse)], WordCount(pass), pass.query.booleanType))
            ListVerse(verse, CountKeyWords(pass.query, VerseText(pass.scripture, verse)), pass.result);
    }
}

static void SearchForWords(SearchPass& pass) {
    CountHits(pass, pass.query.substring);
    if (pass.query.substring) RecountSubstrings(pass);
    ListQualifyingVerses(pass);
}

// ---- Phrases --------------------------------------------------------------------------------------------------------

namespace {

// Consecutive verses that contain all words, and their texts, which are adjacent in memory.
struct Run {
    int firstVerse = 0;
    int lastVerse = 0;
    std::string_view text;
};

}  // namespace

// Are all occurrences of a phrase in the text marked? If so, the search does not need to count the marks separately.
static bool HasRoomForPhrases(std::string_view text) {
    return text.size() <= kPhraseReach;
}

// The longest run of verses with room for phrases that starts at `verse`, whose text is `text`.
static Run RunFrom(const SearchPass& pass, int verse, std::string_view text) {
    Run run = {verse, verse, text};
    for (int next = verse + 1; next <= pass.last && pass.hits[static_cast<std::size_t>(next)] == WordCount(pass);
         ++next) {
        const std::string_view nextText = VerseText(pass.scripture, next);
        if (nextText.data() != run.text.data() + run.text.size() + 1 || !HasRoomForPhrases(nextText)) break;
        run.text = {run.text.data(), run.text.size() + 1 + nextText.size()};
        run.lastVerse = next;
    }
    return run;
}

static void AddOccurrence(int verse, SearchResult& result) {
    if (result.verses.empty() || result.verses.back() != verse) ListVerse(verse, 0, result);
    ++result.occurrences;
}

// `places` is empty between two runs; the caller passes it in because allocating a new list for each run would cost
// more than the scan.
static void ListVersesOfRun(SearchPass& pass, const Run& run, std::vector<PhrasePlace>& places) {
    AppendPhrases(run.text, pass.query.phrase, places);
    const VerseRecords& records = pass.scripture.records;
    const std::size_t start = RecordOf(records, run.firstVerse).textOffset;
    int verse = run.firstVerse;
    for (const PhrasePlace& place : places) {
        while (verse < run.lastVerse && RecordOf(records, verse + 1).textOffset <= start + place.first) ++verse;
        AddOccurrence(verse, pass.result);
    }
    places.clear();
}

// For a single word, which is marked as in a word search, and for texts that are too long to be marked completely. A
// text with marks always contains the phrase.
static void ListIfWithPhrase(SearchPass& pass, int verse, std::string_view text) {
    const int marks = CountKeyWords(pass.query, text);
    if (marks > 0 || ContainsPhrase(pass.query, text)) ListVerse(verse, marks, pass.result);
}

static void SearchForPhrase(SearchPass& pass) {
    CountHits(pass, false);
    std::vector<PhrasePlace> places;
    for (int verse = NextWithHits(pass.hits, WordCount(pass), pass.first, pass.last); verse <= pass.last;
         verse = NextWithHits(pass.hits, WordCount(pass), verse + 1, pass.last)) {
        const std::string_view text = VerseText(pass.scripture, verse);
        if (text.empty()) continue;  // only a damaged index leads here
        if (MarksPhrase(pass.query) && HasRoomForPhrases(text)) {
            const Run run = RunFrom(pass, verse, text);
            ListVersesOfRun(pass, run, places);
            verse = run.lastVerse;
        } else {
            ListIfWithPhrase(pass, verse, text);
        }
    }
}

// ---- The search -----------------------------------------------------------------------------------------------------

SearchResult Search(const Scripture& scripture, const WordIndex& index, const Query& query, const SearchRange& range,
                    HitCounters& hits) {
    SearchPass pass{scripture, index, query, std::max(range.StartVerse, 0), std::min(range.EndVerse, kLastVerse), hits};
    if (query.words.empty()) return {};
    if (query.kind == QueryKind::kPhrase) {
        SearchForPhrase(pass);
    } else {
        SearchForWords(pass);
    }
    return std::move(pass.result);
}

std::string SearchSummary(const SearchResult& result) {
    const char* verses = result.verses.size() == 1 ? " verse, " : " verses, ";
    const char* occurrences = result.occurrences == 1 ? " occurance" : " occurrences";  // (sic)
    return std::to_string(result.verses.size()) + verses + std::to_string(result.occurrences) + occurrences;
}
