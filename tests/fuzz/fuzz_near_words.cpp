// A search for any words near each other in a small Bible of any words, beside one that tries all ways to choose them.
// The first line of an input holds the options (unit, distance, order, case, parts of words, first and last verse), the
// second one the words; each line behind them is a verse.
#include <algorithm>
#include <cstdlib>
#include <string>

#include "scripture/letters.h"
#include "search/near_search.h"
#include "search/near_text.h"
#include "search/query.h"
#include "search/text_kinds.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/searched_bible.h"

static SearchState SearchOf(std::string_view& input) {
    SearchState search;
    std::string_view options = TakeLine(input);
    search.nearOptions.Unit = TakeNumber(options, -1, 3);
    search.nearOptions.Distance = TakeNumber(options, -1, 60);
    search.nearOptions.InOrder = TakeNumber(options, 0, 1);
    TakeSearch(options, input, search);
    return search;
}

// ---- By trying ------------------------------------------------------------------------------------------------------

struct TriedWord {
    int verse, chapter, number;
    std::string text;
    bool isInMatch = false;
};

// With more, trying takes too long.
static constexpr std::size_t kMostWordsTried = 60, kMostPatternsTried = 3;
static constexpr int kVersesOfChapter = 4;

static std::vector<TriedWord> WordsIn(const SearchedBible& bible, const NearQuery& query) {
    std::vector<TriedWord> words;
    for (std::size_t verse = 0; verse < bible.texts.size(); ++verse) {
        const int at = static_cast<int>(verse);
        std::string word;
        for (const char c : bible.texts[verse] + " ") {
            if (IsWordCharacter(c)) {
                word += query.caseSensitive ? c : LowerCased(c);
            } else if (!word.empty()) {
                if (at >= query.firstVerse && at <= query.lastVerse)
                    words.push_back({at, at / kVersesOfChapter, static_cast<int>(words.size()), word});
                word.clear();
            }
        }
    }
    return words;
}

static bool Means(std::string_view pattern, std::string_view word) {
    if (pattern.empty()) return word.empty();
    if (pattern.front() == '*')
        return Means(pattern.substr(1), word) || (!word.empty() && Means(pattern, word.substr(1)));
    return !word.empty() && (pattern.front() == '?' || pattern.front() == word.front()) &&
           Means(pattern.substr(1), word.substr(1));
}

static bool AreNear(const NearQuery& query, const TriedWord& one, const TriedWord& other) {
    if (&one == &other || one.chapter != other.chapter) return false;
    if (query.unit == kNearInVerses) return std::abs(one.verse - other.verse) <= query.distance;
    return one.verse == other.verse &&
           (query.unit == kNearInVerse || std::abs(one.number - other.number) <= query.distance);
}

static void Try(const NearQuery& query, std::vector<TriedWord>& words, std::vector<TriedWord*>& chosen) {
    if (chosen.size() == query.patterns.size()) {
        for (TriedWord* word : chosen) word->isInMatch = true;
        return;
    }
    for (TriedWord& word : words) {
        if (!Means(query.patterns[chosen.size()], word.text)) continue;
        if (query.inOrder && !chosen.empty() && word.number < chosen.back()->number) continue;
        if (!std::ranges::all_of(chosen, [&](const TriedWord* other) { return AreNear(query, *other, word); }))
            continue;
        chosen.push_back(&word);
        Try(query, words, chosen);
        chosen.pop_back();
    }
}

static void CheckByTrying(const SearchedBible& bible, const NearQuery& query, const SearchResult& result) {
    std::vector<TriedWord> words = WordsIn(bible, query);
    if (words.size() > kMostWordsTried || query.patterns.size() > kMostPatternsTried || query.patterns.empty()) return;
    if (std::ranges::any_of(words, [](const TriedWord& word) { return word.text.size() > 40; })) return;
    std::vector<TriedWord*> chosen;
    Try(query, words, chosen);
    SearchResult tried;
    for (const TriedWord& word : words) {
        if (!word.isInMatch) continue;
        ++tried.occurrences;
        if (tried.verses.empty() || tried.verses.back() != word.verse) tried.verses.push_back(word.verse);
    }
    Expect(result.verses == tried.verses, "the verses are those found by trying");
    Expect(result.occurrences == tried.occurrences, "the words are those found by trying");
}

// ---- The search -----------------------------------------------------------------------------------------------------

static void CheckMarks(const SearchedBible& bible, const NearQuery& query, const SearchResult& result) {
    int marks = 0;
    bool areAllMarked = true;
    for (std::size_t verse = 0; verse < bible.texts.size(); ++verse) {
        const int at = static_cast<int>(verse);
        const std::string& text = bible.texts[verse];
        std::string marked = text;
        const int here = MarkNearWords(bible.scripture, query, at, marked);
        Expect(marked.size() == text.size() + 2 * static_cast<std::size_t>(here), "each mark has two braces");
        Expect(here == 0 || std::ranges::find(result.verses, at) != result.verses.end(),
               "only found verses are marked");
        std::erase_if(marked, [](char c) { return c == '{' || c == '}'; });
        Expect(marked == text, "a text without its marks is the text");
        marks += here;
        areAllMarked = areAllMarked && text.size() < 1000;
    }
    Expect(!areAllMarked || marks == result.occurrences, "what is counted is marked");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = TextOfInput(data, size);
    const SearchState search = SearchOf(input);
    SearchedBible bible;
    OpenBible(bible, input, kVersesOfChapter);
    const NearQuery query = NearQueryOf(search).nearQuery;
    std::u16string typed;
    for (const char c : search.searchText) typed += static_cast<unsigned char>(c);
    ProblemOfNearText(typed);
    NearCounts({bible.index}, typed, search.options.SubString != 0);
    const SearchResult result = SearchNear(bible.scripture, bible.index, query);
    Scripture withKinds = bible.scripture;
    withKinds.textKinds = FindTextKinds(withKinds);
    const SearchResult again = SearchNear(withKinds, bible.index, query);
    Expect(again.verses == result.verses && again.occurrences == result.occurrences,
           "what is known of the texts changes no result");
    if (query.patterns.size() <= kMostNearWords) CheckMarks(bible, query, result);
    CheckByTrying(bible, query, result);
    return 0;
}
