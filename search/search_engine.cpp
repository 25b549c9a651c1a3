#include "search/search_engine.h"

#include <algorithm>
#include <cstring>

#include "search/key_word_marks.h"
#include "search/letters.h"
#include "search/text_scan.h"

using Counters = std::vector<std::uint16_t>;

// The part of the range that the text has; empty (end before start) when there is none.
static SearchRange ClampedRange(SearchRange range) {
    return {std::max(range.StartVerse, 0), std::min(range.EndVerse, kLastVerse)};
}

static int VerseOfEntry(std::span<const unsigned char> entries, std::size_t at) {
    return entries[at] | entries[at + 1] << 8;
}

static void AddEntries(std::span<const unsigned char> entries, Counters& hits) {
    for (std::size_t at = 0; at < entries.size(); at += 2) {
        const int verse = VerseOfEntry(entries, at);
        if (verse < kVerseCount) ++hits[static_cast<std::size_t>(verse)];
    }
}

// Does the verse hold the word letter for letter? Of a whole word only the first place is examined, and a paragraph
// mark before it counts as a letter: such verses are not found.
static bool HoldsAsTyped(std::string_view verseText, std::string_view word, bool substring) {
    const std::size_t place = FindInText(verseText, word, false, 0);
    if (place == kNotFound || substring) return place != kNotFound;
    const std::size_t after = place + word.size();
    return (place == 0 || !IsLetterOrHigh(verseText[place - 1])) &&
           (after == verseText.size() || !IsLetterOrHigh(verseText[after]));
}

enum Answer : unsigned char { kNotAsked, kNo, kYes };

// The entries whose verses lie in the range and hold `word` as typed. `answers` remembers for each verse whether it
// does, as many entries of a substring search name the same verses.
static void AddEntriesAsTyped(const Scripture& scripture, std::span<const unsigned char> entries, std::string_view word,
                              bool substring, std::vector<Answer>& answers, SearchState& search) {
    const SearchRange range = ClampedRange(search.range);
    for (std::size_t at = 0; at < entries.size(); at += 2) {
        const int verse = VerseOfEntry(entries, at);
        if (verse < range.StartVerse || verse > range.EndVerse) continue;
        Answer& answer = answers[static_cast<std::size_t>(verse)];
        if (answer == kNotAsked) answer = HoldsAsTyped(VerseText(scripture, verse), word, substring) ? kYes : kNo;
        if (answer == kYes) ++search.hits[static_cast<std::size_t>(verse)];
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

static void AddHits(const Scripture& scripture, const WordIndex& index, std::string_view word, bool substring,
                    SearchState& search) {
    const bool caseSensitive = search.options.CaseSensitive != 0;
    std::vector<Answer> answers(caseSensitive ? kVerseCount : 0, kNotAsked);
    for (const int match : MatchingWords(index, word, substring)) {
        const std::span<const unsigned char> entries = EntriesOf(index, match);
        if (caseSensitive)
            AddEntriesAsTyped(scripture, entries, word, substring, answers, search);
        else
            AddEntries(entries, search.hits);
    }
}

// Empties the result, but for what the marks of a later paint go by, and counts the words of the search text in the
// verses. Gives the number of words.
static int CountHits(const Scripture& scripture, const WordIndex& index, bool substring, SearchState& search) {
    search.hits.assign(kVerseCount, 0);
    search.result.verses.clear();
    search.result.verseCount = 0;
    search.result.occurrenceCount = 0;
    const std::vector<std::string_view> words = QueryWords(search.searchText);
    for (const std::string_view word : words) AddHits(scripture, index, word, substring, search);
    return static_cast<int>(words.size());
}

// Most counters are passed over in a search, so they are looked at four at a time.
static std::uint64_t FourCounters(const Counters& hits, int verse) {
    std::uint64_t four = 0;
    std::memcpy(&four, hits.data() + verse, sizeof four);
    return four;
}

// The first verse from `verse` to `end` that has a hit; past `end` when none has.
static int NextHit(const Counters& hits, int verse, int end) {
    while (verse + 3 <= end && FourCounters(hits, verse) == 0) verse += 4;
    while (verse <= end && hits[static_cast<std::size_t>(verse)] == 0) ++verse;
    return verse;
}

// Is one of the four counters 0?
static bool HasZero(std::uint64_t four) {
    return ((four - 0x0001000100010001) & ~four & 0x8000800080008000) != 0;
}

// The first verse from `verse` to `end` whose counter is `count`; past `end` when there is none.
static int NextWithHits(const Counters& hits, std::uint16_t count, int verse, int end) {
    if (verse <= end && hits[static_cast<std::size_t>(verse)] == count) return verse;
    const std::uint64_t wanted = count * std::uint64_t{0x0001000100010001};
    while (verse + 3 <= end && !HasZero(FourCounters(hits, verse) ^ wanted)) verse += 4;
    while (verse <= end && hits[static_cast<std::size_t>(verse)] != count) ++verse;
    return verse;
}

// A verse's counter says how many words of the index it holds that contain a word of the query. Where that may be more
// than the words of the query, those are counted in the text.
static void RecountSubstrings(const Scripture& scripture, const KeyWords& keyWords, SearchState& search) {
    const SearchRange range = ClampedRange(search.range);
    for (int verse = NextHit(search.hits, range.StartVerse, range.EndVerse); verse <= range.EndVerse;
         verse = NextHit(search.hits, verse + 1, range.EndVerse)) {
        std::uint16_t& hits = search.hits[static_cast<std::size_t>(verse)];
        if (hits <= 1) continue;
        const std::string_view text = VerseText(scripture, verse);
        hits = static_cast<std::uint16_t>(std::count_if(
            keyWords.words.begin(), keyWords.words.end(),
            [&](const std::string& word) { return FindInText(text, word, !keyWords.caseSensitive, 0) != kNotFound; }));
    }
}

static bool Qualifies(int hits, int wordCount, int booleanType) {
    switch (booleanType) {
        case kAllWords: return hits == wordCount;
        case kAnyWord: return hits != 0;
        default: return hits == 1;
    }
}

static void ListVerse(int verse, int occurrences, SearchResult& result) {
    result.verses.push_back(verse);
    ++result.verseCount;
    result.occurrenceCount += occurrences;
}

static void ListQualifyingVerses(const Scripture& scripture, const KeyWords& keyWords, SearchState& search) {
    const SearchRange range = ClampedRange(search.range);
    const int wordCount = static_cast<int>(keyWords.words.size());
    for (int verse = NextHit(search.hits, range.StartVerse, range.EndVerse); verse <= range.EndVerse;
         verse = NextHit(search.hits, verse + 1, range.EndVerse)) {
        const int hits = search.hits[static_cast<std::size_t>(verse)];
        if (Qualifies(hits, wordCount, search.options.BooleanType))
            ListVerse(verse, CountKeyWords(keyWords, VerseText(scripture, verse)), search.result);
    }
}

// What to mark if this search succeeds.
static KeyWords KeyWordsOfSearch(SearchState& search, bool phraseMode) {
    const bool before = search.result.phraseMode;
    search.result.phraseMode = phraseMode;
    KeyWords keyWords = KeyWordsOf(search);
    search.result.phraseMode = before;
    return keyWords;
}

bool WordSearch(const Scripture& scripture, const WordIndex& index, SearchState& search) {
    const bool substring = search.options.SubString != 0;
    if (CountHits(scripture, index, substring, search) == 0) return false;
    const KeyWords keyWords = KeyWordsOfSearch(search, false);
    if (substring) RecountSubstrings(scripture, keyWords, search);
    ListQualifyingVerses(scripture, keyWords, search);
    if (search.result.verses.empty()) return false;
    search.result.phraseMode = false;
    return true;
}

static std::string PhraseOf(const SearchState& search) {
    std::string phrase;
    for (const std::string_view word : QueryWords(search.searchText)) {
        if (!phrase.empty()) phrase += ' ';
        phrase += word;
    }
    return search.options.CaseSensitive != 0 ? phrase : LowerCased(phrase);
}

// Verses one after another that have all words, and their texts, which lie end to end.
struct Run {
    int firstVerse = 0;
    int lastVerse = 0;
    std::string_view text;
};

// Is every place of a phrase in the text marked? The search may then go by the places alone.
static bool HasRoomForPhrases(std::string_view text) {
    return text.size() <= kPhraseReach;
}

// The longest run from `verse`, whose text is `text`, to `end` of verses with room for phrases.
static Run RunFrom(const Scripture& scripture, const Counters& hits, int verse, std::string_view text, int end) {
    Run run = {verse, verse, text};
    const std::uint16_t wordCount = hits[static_cast<std::size_t>(verse)];
    for (int next = verse + 1; next <= end && hits[static_cast<std::size_t>(next)] == wordCount; ++next) {
        const std::string_view nextText = VerseText(scripture, next);
        if (nextText.data() != run.text.data() + run.text.size() + 1 || !HasRoomForPhrases(nextText)) break;
        run.text = {run.text.data(), run.text.size() + 1 + nextText.size()};
        run.lastVerse = next;
    }
    return run;
}

static void AddOccurrence(int verse, SearchResult& result) {
    if (result.verses.empty() || result.verses.back() != verse) ListVerse(verse, 0, result);
    ++result.occurrenceCount;
}

// `places` holds nothing between two runs; it is handed in because a list of its own would cost each run more than the
// sweep.
static void ListVersesOfRun(const Scripture& scripture, const KeyWords& keyWords, const Run& run,
                            std::vector<PhrasePlace>& places, SearchResult& result) {
    AppendPhrases(run.text, keyWords.phrase, places);
    const std::size_t start = RecordOf(scripture.records, run.firstVerse).textOffset;
    int verse = run.firstVerse;
    for (const PhrasePlace& place : places) {
        while (verse < run.lastVerse && RecordOf(scripture.records, verse + 1).textOffset <= start + place.first)
            ++verse;
        AddOccurrence(verse, result);
    }
    places.clear();
}

// For a single word, which is marked as a word search's, and for a text longer than any in which all is marked. Marks
// are never found without the phrase.
static void ListIfWithPhrase(int verse, std::string_view text, const KeyWords& keyWords, SearchResult& result) {
    const int marks = CountKeyWords(keyWords, text);
    if (marks > 0 || ContainsPhrase(keyWords, text)) ListVerse(verse, marks, result);
}

static void ListVersesWithPhrase(const Scripture& scripture, const KeyWords& keyWords, SearchState& search) {
    const SearchRange range = ClampedRange(search.range);
    const auto wordCount = static_cast<std::uint16_t>(keyWords.words.size());
    std::vector<PhrasePlace> places;
    for (int verse = NextWithHits(search.hits, wordCount, range.StartVerse, range.EndVerse); verse <= range.EndVerse;
         verse = NextWithHits(search.hits, wordCount, verse + 1, range.EndVerse)) {
        const std::string_view text = VerseText(scripture, verse);
        if (keyWords.phraseMode && HasRoomForPhrases(text)) {
            const Run run = RunFrom(scripture, search.hits, verse, text, range.EndVerse);
            ListVersesOfRun(scripture, keyWords, run, places, search.result);
            verse = run.lastVerse;
        } else {
            ListIfWithPhrase(verse, text, keyWords, search.result);
        }
    }
}

bool PhraseSearch(const Scripture& scripture, const WordIndex& index, SearchState& search) {
    search.result.phraseText = PhraseOf(search);
    const int wordCount = CountHits(scripture, index, false, search);
    if (wordCount == 0) return false;
    const bool phraseMode = wordCount > 1;
    ListVersesWithPhrase(scripture, KeyWordsOfSearch(search, phraseMode), search);
    if (search.result.verses.empty()) return false;
    search.result.phraseMode = phraseMode;
    return true;
}

std::string SearchSummary(const SearchResult& result) {
    const char* verses = result.verseCount == 1 ? " verse, " : " verses, ";
    const char* occurrences = result.occurrenceCount == 1 ? " occurance" : " occurrences";
    return std::to_string(result.verseCount) + verses + std::to_string(result.occurrenceCount) + occurrences;
}
