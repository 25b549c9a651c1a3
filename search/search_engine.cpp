#include "search/search_engine.h"

#include <algorithm>
#include <utility>

#include "scripture/letters.h"
#include "search/key_word_marks.h"
#include "search/near_search.h"
#include "search/verse_sweep.h"

namespace {

// The state of a running search.
struct SearchPass {
    const Scripture& scripture;
    const WordIndex& index;
    const Query& query;
    int first, last;  // the range clamped to existing verses; empty if `last` < `first`
    HitCounters& hits;
};

using Verses = std::vector<std::int32_t>;

}  // namespace

static int WordCount(const SearchPass& pass) {
    return static_cast<int>(pass.query.words.size());
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

// ---- Counting the words of the query in the verses ------------------------------------------------------------------

namespace {
enum Answer : unsigned char { kNotAsked, kNo, kYes };
}

// Counts the entries whose verses are in the range and contain `word` with the same case. `answers` caches the result
// for each verse, because in a substring search many entries refer to the same verses.
static void AddEntriesAsTyped(SearchPass& pass, VerseEntries entries, std::string_view word, bool substring,
                              std::vector<Answer>& answers) {
    for (std::size_t i = 0; i < EntryCount(entries); ++i) {
        const int verse = EntryAt(entries, i);
        if (verse < pass.first || verse > pass.last) continue;
        Answer& answer = answers[static_cast<std::size_t>(verse)];
        if (answer == kNotAsked) answer = HoldsAsTyped(VerseText(pass.scripture, verse), word, substring) ? kYes : kNo;
        if (answer == kYes) ++pass.hits[static_cast<std::size_t>(verse)];
    }
}

static std::vector<int> MatchingWords(const WordIndex& index, std::string_view word, bool substring) {
    const std::string lowerCased = LowerCased(word);
    if (substring) return WordsWith(index, lowerCased);
    const int match = FindWord(index, lowerCased);
    return match >= 0 ? std::vector<int>{match} : std::vector<int>{};
}

static void AddHits(SearchPass& pass, std::string_view word, bool substring) {
    std::vector<Answer> answers(pass.query.caseSensitive ? kVerseCount : 0, kNotAsked);
    for (const int match : MatchingWords(pass.index, word, substring)) {
        const VerseEntries entries = EntriesOf(pass.index, match);
        if (pass.query.caseSensitive)
            AddEntriesAsTyped(pass, entries, word, substring, answers);
        else
            AddEntries(entries, pass.hits);
    }
}

static void CountHits(SearchPass& pass, bool substring) {
    ClearCounters(pass.hits);
    for (const std::string& word : pass.query.words) AddHits(pass, word, substring);
}

static int HitsOf(const SearchPass& pass, std::int32_t verse) {
    return pass.hits[static_cast<std::size_t>(verse)];
}

// ---- Verses with all words ------------------------------------------------------------------------------------------

static Verses VersesWithAllByCounters(SearchPass& pass) {
    CountHits(pass, false);
    Verses verses = CountedVerses(pass.hits, pass.first, pass.last);
    std::erase_if(verses, [&](std::int32_t verse) { return HitsOf(pass, verse) != WordCount(pass); });
    return verses;
}

// The lists of the words within the range; none if one of them is not in ascending order.
static std::vector<VerseEntries> ListsOf(const SearchPass& pass) {
    std::vector<VerseEntries> lists;
    lists.reserve(pass.query.words.size());
    for (const std::string& word : pass.query.words) {
        const int match = FindWord(pass.index, pass.query.caseSensitive ? LowerCased(word) : word);
        if (!DoesListAscend(pass.index, match)) return {};
        lists.push_back(EntriesWithin(EntriesOf(pass.index, match), pass.first, pass.last));
    }
    return lists;
}

static bool IsShorter(VerseEntries one, VerseEntries other) {
    return one.size() < other.size();
}

static void KeepAsTyped(const SearchPass& pass, Verses& verses) {
    std::erase_if(verses, [&](std::int32_t verse) {
        const std::string_view text = VerseText(pass.scripture, verse);
        return !std::all_of(pass.query.words.begin(), pass.query.words.end(),
                            [&](const std::string& word) { return HoldsAsTyped(text, word, false); });
    });
}

// The verses of the range that have every word of the query as a whole word. A list of a damaged index may have a verse
// twice, which then counts as two words.
static Verses VersesWithAll(SearchPass& pass) {
    std::vector<VerseEntries> lists = ListsOf(pass);
    if (lists.empty()) return VersesWithAllByCounters(pass);
    std::sort(lists.begin(), lists.end(), IsShorter);
    Verses verses = VersesOf(lists.front());
    for (std::size_t i = 1; i < lists.size() && !verses.empty(); ++i) KeepVersesIn(lists[i], verses, pass.hits);
    if (pass.query.caseSensitive) KeepAsTyped(pass, verses);
    return verses;
}

// ---- Words ----------------------------------------------------------------------------------------------------------

// In a substring search a verse's counter is the number of index words in the verse that contain a word of the query.
// One query word can match several of them, so above 1 the query words that the text contains are counted instead.
static int HitsBySubstrings(const SearchPass& pass, std::int32_t verse) {
    const Query& query = pass.query;
    const int hits = HitsOf(pass, verse);
    if (hits <= 1) return hits;
    const std::string_view text = VerseText(pass.scripture, verse);
    return static_cast<int>(std::count_if(query.words.begin(), query.words.end(), [&](const std::string& word) {
        return FindInText(text, word, !query.caseSensitive, 0) != kNoPlace;
    }));
}

static bool Qualifies(int hits, int wordCount, int booleanType) {
    switch (booleanType) {
        case kAllWords: return hits == wordCount;
        case kAnyWord: return hits != 0;
        default: return hits == 1;
    }
}

static Verses QualifyingVerses(SearchPass& pass) {
    const Query& query = pass.query;
    CountHits(pass, query.substring);
    Verses verses = CountedVerses(pass.hits, pass.first, pass.last);
    std::erase_if(verses, [&](std::int32_t verse) {
        const int hits = query.substring ? HitsBySubstrings(pass, verse) : HitsOf(pass, verse);
        return !Qualifies(hits, WordCount(pass), query.booleanType);
    });
    return verses;
}

// For one word in any case: a verse of the index with it contains it.
static Verses VersesWithPart(SearchPass& pass) {
    ClearCounters(pass.hits);
    for (const int match : WordsWith(pass.index, pass.query.words.front()))
        MarkEntries(EntriesOf(pass.index, match), pass.hits);
    return CountedVerses(pass.hits, pass.first, pass.last);
}

static Verses VersesWithWords(SearchPass& pass) {
    const Query& query = pass.query;
    const bool isOne = query.words.size() == 1;
    if (!query.substring && (isOne || query.booleanType == kAllWords)) return VersesWithAll(pass);
    return query.substring && isOne && !query.caseSensitive ? VersesWithPart(pass) : QualifyingVerses(pass);
}

static SearchResult SearchForWords(SearchPass& pass) {
    SearchResult result{VersesWithWords(pass)};
    result.occurrences = CountWordsInVerses(pass.scripture, pass.query, result.verses);
    return result;
}

// ---- Phrases --------------------------------------------------------------------------------------------------------

// Lists in which each verse would have to be looked up are left until few verses are left. Whether a verse has the
// phrase does not depend on them, so that what was counted stays right if all of the verses stay.
static PhraseFinds FindMarkedPhrase(SearchPass& pass) {
    const auto findIn = [&pass](const Verses& verses, std::size_t rarestWord) {
        return FindPhraseInVerses(pass.scripture, pass.query, verses, rarestWord);
    };
    std::vector<VerseEntries> lists = ListsOf(pass);
    if (lists.empty()) return findIn(VersesWithAllByCounters(pass), 0);
    const auto rarest =
        static_cast<std::size_t>(std::min_element(lists.begin(), lists.end(), IsShorter) - lists.begin());
    std::sort(lists.begin(), lists.end(), IsShorter);
    Verses verses = VersesOf(lists.front());
    std::size_t used = 1;
    for (; used < lists.size() && !IsMuchLonger(lists[used], verses.size()); ++used)
        KeepVersesIn(lists[used], verses, pass.hits);
    PhraseFinds finds = findIn(verses, rarest);
    if (used == lists.size() && !pass.query.caseSensitive) return finds;
    verses = finds.verses;
    for (; used < lists.size(); ++used) KeepVersesIn(lists[used], verses, pass.hits);
    if (pass.query.caseSensitive) KeepAsTyped(pass, verses);
    return verses.size() == finds.verses.size() ? finds : findIn(verses, rarest);
}

// A phrase of a single word is marked as in a word search.
static SearchResult SearchForPhrase(SearchPass& pass) {
    if (MarksPhrase(pass.query)) {
        PhraseFinds finds = FindMarkedPhrase(pass);
        return {std::move(finds.verses), finds.occurrences};
    }
    Verses verses = VersesWithAll(pass);
    std::erase_if(verses, [&](std::int32_t verse) {
        return !ContainsPhrase(pass.query, VerseText(pass.scripture, verse));  // only with a damaged index
    });
    const int occurrences = CountWordsInVerses(pass.scripture, pass.query, verses);
    return {std::move(verses), occurrences};
}

// ---- The search -----------------------------------------------------------------------------------------------------

SearchResult Search(const Scripture& scripture, const WordIndex& index, const Query& query, const SearchRange& range,
                    HitCounters& hits) {
    SearchPass pass{scripture, index, query, std::max(range.StartVerse, 0), std::min(range.EndVerse, kLastVerse), hits};
    if (query.kind == QueryKind::kNear) return SearchNear(scripture, index, query.nearQuery);
    if (query.words.empty()) return {};
    return query.kind == QueryKind::kPhrase ? SearchForPhrase(pass) : SearchForWords(pass);
}

std::string SearchSummary(const SearchResult& result) {
    const char* verses = result.verses.size() == 1 ? " verse, " : " verses, ";
    const char* occurrences = result.occurrences == 1 ? " occurance" : " occurrences";  // (sic)
    return std::to_string(result.verses.size()) + verses + std::to_string(result.occurrences) + occurrences;
}
