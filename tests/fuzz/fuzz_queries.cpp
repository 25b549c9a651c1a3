// A search of any query in a small Bible of any words, beside a search by rules alone. The first line of an input holds
// the options (boolean type, case, parts of words, first and last verse), the second one the query; each line behind
// them is a verse.
#include <algorithm>
#include <string>

#include "scripture/letters.h"
#include "search/key_word_marks.h"
#include "search/search_engine.h"
#include "search/text_kinds.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/searched_bible.h"

// ---- The input ------------------------------------------------------------------------------------------------------

static SearchState SearchOf(std::string_view& input) {
    SearchState search;
    std::string_view options = TakeLine(input);
    search.options.BooleanType = TakeNumber(options, -1, 3);
    TakeSearch(options, input, search);
    return search;
}

// ---- By rules alone -------------------------------------------------------------------------------------------------

static std::string Folded(std::string_view text, bool caseSensitive) {
    return caseSensitive ? std::string(text) : LowerCased(text);
}

static bool CountsAsLetter(std::string_view text, std::size_t at) {
    return at < text.size() && (IsLetter(text[at]) || (text[at] & 0x80) != 0);
}

// The first place alone counts for a whole word as it was typed.
static bool BeginsAsTyped(std::string_view text, std::string_view word) {
    const std::size_t place = text.find(word);
    return place != std::string_view::npos && !CountsAsLetter(text, place + word.size()) &&
           (place == 0 || !CountsAsLetter(text, place - 1));
}

static std::vector<std::string> WordsIn(std::string_view text) {
    return QueryOf(text, {.CaseSensitive = 1}, QueryKind::kWords).words;
}

static bool HasWord(std::string_view text, std::string_view word, bool caseSensitive) {
    const std::vector<std::string> words = WordsIn(text);
    const bool stands =
        std::ranges::any_of(words, [&](std::string_view other) { return LowerCased(other) == LowerCased(word); });
    return stands && (!caseSensitive || BeginsAsTyped(text, word));
}

static bool HasPart(std::string_view text, std::string_view word, bool caseSensitive) {
    return Folded(text, caseSensitive).find(Folded(word, caseSensitive)) != std::string::npos;
}

static int WordsHeld(const SearchState& search, std::string_view text, bool asParts) {
    const bool caseSensitive = search.options.CaseSensitive != 0;
    const std::vector<std::string> words = WordsIn(search.searchText);
    return static_cast<int>(std::ranges::count_if(words, [&](std::string_view word) {
        return asParts ? HasPart(text, word, caseSensitive) : HasWord(text, word, caseSensitive);
    }));
}

static std::string Squeezed(std::string_view text) {
    std::string kept(text);
    std::erase_if(kept, [](char c) { return !IsLetter(c) && c != ' ' && c != '\''; });
    return kept;
}

static bool IsHitByWords(const SearchState& search, std::string_view text) {
    const int held = WordsHeld(search, text, search.options.SubString != 0);
    if (search.options.BooleanType == kAllWords)
        return held > 0 && held == static_cast<int>(WordsIn(search.searchText).size());
    return search.options.BooleanType == kAnyWord ? held > 0 : held == 1;
}

static bool IsHitByPhrase(const SearchState& search, std::string_view text) {
    const bool caseSensitive = search.options.CaseSensitive != 0;
    const std::vector<std::string> words = WordsIn(search.searchText);
    std::string phrase;
    for (const std::string& word : words) phrase.append(phrase.empty() ? "" : " ").append(word);
    return !words.empty() && WordsHeld(search, text, false) == static_cast<int>(words.size()) &&
           HasPart(Squeezed(text), phrase, caseSensitive);
}

using IsHit = bool (*)(const SearchState& search, std::string_view text);

static std::vector<std::int32_t> HitsByHand(const SearchState& search, const SearchedBible& bible, IsHit isHit) {
    std::vector<std::int32_t> verses;
    for (std::size_t verse = 0; verse < bible.texts.size(); ++verse) {
        const int number = static_cast<int>(verse);
        if (number < search.range.StartVerse || number > search.range.EndVerse) continue;
        if (isHit(search, bible.texts[verse])) verses.push_back(number);
    }
    return verses;
}

// ---- Marks ----------------------------------------------------------------------------------------------------------

static std::string WithoutBraces(std::string_view marked) {
    std::string text(marked);
    std::erase_if(text, [](char c) { return c == '{' || c == '}'; });
    return text;
}

static bool IsQueryWord(const Query& query, std::string_view marked) {
    const std::string plain = WithoutBraces(marked);
    const std::string word = Folded(MarksPhrase(query) ? Squeezed(plain) : plain, query.caseSensitive);
    return std::ranges::find(query.words, word) != query.words.end();
}

// Each brace has its partner, and a word of the query stands between the two. Gives the number of pairs.
static std::size_t CheckPairs(const Query& query, std::string_view marked) {
    std::vector<std::size_t> open;
    std::size_t pairs = 0;
    for (std::size_t at = 0; at < marked.size(); ++at) {
        if (marked[at] == '{') open.push_back(at + 1);
        if (marked[at] != '}') continue;
        Expect(!open.empty(), "a mark that ends began before");
        Expect(IsQueryWord(query, marked.substr(open.back(), at - open.back())), "a word of the query is marked");
        open.pop_back();
        ++pairs;
    }
    Expect(open.empty(), "a mark that begins ends");
    return pairs;
}

static int PhrasesByHand(const Query& query, std::string_view text) {
    const std::string squeezed = Folded(Squeezed(text).substr(0, kPhraseReach), query.caseSensitive);
    const std::string& phrase = query.phrase.phrase;
    const auto bytesOfMarks = static_cast<int>(2 * query.words.size());
    int room = std::max(0, static_cast<int>(kMarkedTextLimit) - 1 - static_cast<int>(text.size()));
    int count = 0;
    for (std::size_t at = squeezed.find(phrase); at != std::string::npos && room >= bytesOfMarks; ++count) {
        room -= bytesOfMarks;
        at = squeezed.find(phrase, at + phrase.size());
    }
    return count;
}

static void CheckMarks(const Query& query, const std::string& text) {
    std::string marked = text;
    const int count = MarkKeyWords(query, marked);
    const std::vector<char> exact(text.begin(), text.end());  // no zero behind it: a step beyond its end is seen
    Expect(count == CountKeyWords(query, {exact.data(), exact.size()}), "what is marked is what is counted");
    Expect(WithoutBraces(marked) == text, "a text without its marks is the text");
    Expect(marked.size() == text.size() || marked.size() < kMarkedTextLimit, "marks stay within their limit");
    const std::size_t pairs = CheckPairs(query, marked);
    const std::size_t pairsOfOne = MarksPhrase(query) ? query.words.size() : 1;
    Expect(pairs == static_cast<std::size_t>(count) * pairsOfOne, "each word of what is counted has its pair");
    if (MarksPhrase(query)) Expect(count == PhrasesByHand(query, text), "every phrase within reach is marked");
}

// ---- Searches -------------------------------------------------------------------------------------------------------

static void CheckSearch(const SearchState& search, QueryKind kind, const SearchedBible& bible, IsHit isHit) {
    static HitCounters hits;
    const Query query = QueryOf(search.searchText, search.options, kind);
    const SearchResult result = Search(bible.scripture, bible.index, query, search.range, hits);
    Scripture withKinds = bible.scripture;
    withKinds.textKinds = FindTextKinds(withKinds);
    const SearchResult again = Search(withKinds, bible.index, query, search.range, hits);
    Expect(again.verses == result.verses && again.occurrences == result.occurrences,
           "what is known of the texts changes no result");
    Expect(result.verses == HitsByHand(search, bible, isHit), "a search lists the verses that a search by hand lists");
    if (result.verses.empty()) return;
    int occurrences = 0;
    for (const int verse : result.verses)
        occurrences += CountKeyWords(query, bible.texts[static_cast<std::size_t>(verse)]);
    Expect(result.occurrences == occurrences, "the occurrences are those of the listed verses");
    for (const std::string& text : bible.texts) CheckMarks(query, text);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input = TextOfInput(data, size);
    const SearchState search = SearchOf(input);
    SearchedBible bible;
    OpenBible(bible, input, 100);
    CheckSearch(search, QueryKind::kWords, bible, IsHitByWords);
    CheckSearch(search, QueryKind::kPhrase, bible, IsHitByPhrase);
    return 0;
}
