// Compares searches of the real text with a simple, independent search that does not use the index and examines one
// verse and one word after the other. For a thousand queries of all kinds, the verses, counts and marked texts must be
// the same.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <unordered_map>

#include "search/key_word_marks.h"
#include "search/search_engine.h"
#include "tests/support/native_scripture.h"
#include "tests/support/tries.h"

static bool IsSmall(char c) {
    return c >= 'a' && c <= 'z';
}
static bool IsCapitalLetter(char c) {
    return c >= 'A' && c <= 'Z';
}
static bool IsAnyLetter(char c) {
    return IsSmall(c) || IsCapitalLetter(c);
}
static bool CountsAsLetter(char c) {
    return IsAnyLetter(c) || (c & 0x80) != 0;
}

static std::string InSmallLetters(std::string text) {
    for (char& c : text)
        if (IsCapitalLetter(c)) c = static_cast<char>(c - 'A' + 'a');
    return text;
}

static std::vector<std::string> WordsByHand(const std::string& text) {
    std::vector<std::string> words(1);
    for (const char c : text) {
        if (IsAnyLetter(c) || c == '\'')
            words.back() += c;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty()) words.pop_back();
    return words;
}

// The words of the text by number, and for each verse the numbers of its words, each once.
struct Concordance {
    std::vector<std::string> texts;
    std::vector<std::string> words;
    std::vector<std::vector<int>> verses;
};

static const Concordance& TheConcordance() {
    static const Concordance concordance = [] {
        Concordance made;
        std::unordered_map<std::string, int> numbers;
        for (int verse = 0; verse < kVerseCount; ++verse) {
            made.texts.emplace_back(VerseText(TheRealScripture(), verse));
            std::map<int, bool> once;
            for (const std::string& word : WordsByHand(InSmallLetters(made.texts.back()))) {
                const auto [place, isNew] = numbers.try_emplace(word, static_cast<int>(made.words.size()));
                if (isNew) made.words.push_back(word);
                once[place->second] = true;
            }
            made.verses.emplace_back();
            for (const auto& [number, there] : once) made.verses.back().push_back(number);
        }
        return made;
    }();
    return concordance;
}

static bool HoldsTyped(const std::string& text, const std::string& word, bool parts) {
    const std::size_t at = text.find(word);
    if (at == std::string::npos || parts) return at != std::string::npos;
    const char before = at == 0 ? ' ' : text[at - 1];
    const char after = at + word.size() == text.size() ? ' ' : text[at + word.size()];
    return !CountsAsLetter(before) && !CountsAsLetter(after);
}

// For each verse of the range, the total number of hits of all words of the query.
static std::vector<int> HitsByHand(const std::vector<std::string>& query, bool caseMatters, bool parts,
                                   const SearchRange& range) {
    const Concordance& concordance = TheConcordance();
    std::vector<int> hits(kVerseCount, 0);
    for (const std::string& typed : query) {
        const std::string small = InSmallLetters(typed);
        std::vector<char> matches;
        for (const std::string& word : concordance.words)
            matches.push_back(parts ? word.find(small) != std::string::npos : word == small);
        for (auto verse = static_cast<std::size_t>(range.StartVerse); verse <= static_cast<std::size_t>(range.EndVerse);
             ++verse) {
            int here = 0;
            for (const int number : concordance.verses[verse]) here += matches[static_cast<std::size_t>(number)];
            if (here > 0 && caseMatters && !HoldsTyped(concordance.texts[verse], typed, parts)) here = 0;
            hits[verse] += here;
        }
    }
    return hits;
}

static int WordsWithin(const std::vector<std::string>& query, const std::string& text, bool caseMatters) {
    const std::string small = InSmallLetters(text);
    int count = 0;
    for (const std::string& word : query)
        count += (caseMatters ? text.find(word) : small.find(InSmallLetters(word))) != std::string::npos ? 1 : 0;
    return count;
}

struct Squeezed {
    std::string text;
    std::vector<std::size_t> places;
};

static Squeezed SqueezedByHand(const std::string& text, bool caseMatters) {
    Squeezed squeezed;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!IsAnyLetter(text[at]) && text[at] != ' ' && text[at] != '\'') continue;
        squeezed.text += text[at];
        squeezed.places.push_back(at);
    }
    if (!caseMatters) squeezed.text = InSmallLetters(squeezed.text);
    return squeezed;
}

static constexpr std::size_t kLongestMarked = 3999;

static int MarkWordByHand(std::string word, bool caseMatters, bool parts, std::string& text) {
    if (!caseMatters) word = InSmallLetters(word);
    std::string shadow = caseMatters ? text : InSmallLetters(text);
    int count = 0;
    for (std::size_t at = shadow.find(word); at != std::string::npos; at = shadow.find(word, at)) {
        if (text.size() + 2 > kLongestMarked) break;
        const std::size_t end = at + word.size();
        const bool letterBefore = at > 0 && CountsAsLetter(text[at - 1]) && text[at - 1] != '\xB6';
        at = end;
        if (!parts && (letterBefore || (end < text.size() && CountsAsLetter(text[end])))) continue;
        for (std::string* copy : {&text, &shadow}) copy->insert(end, "}").insert(end - word.size(), "{");
        at = end + 2;
        ++count;
    }
    return count;
}

static int MarkPhraseByHand(const std::string& phrase, bool caseMatters, std::string& text) {
    const Squeezed squeezed = SqueezedByHand(text, caseMatters);
    std::map<std::size_t, std::pair<bool, bool>> ends;  // by position: whether a word begins, and whether one ends
    int count = 0;
    for (std::size_t at = squeezed.text.find(phrase); at != std::string::npos;
         at = squeezed.text.find(phrase, at + phrase.size())) {
        ++count;
        for (std::size_t i = 0; i < phrase.size(); ++i) {
            if (phrase[i] == ' ') continue;
            if (i == 0 || phrase[i - 1] == ' ') ends[squeezed.places[at + i]].first = true;
            if (i + 1 == phrase.size() || phrase[i + 1] == ' ') ends[squeezed.places[at + i]].second = true;
        }
    }
    for (auto end = ends.rbegin(); end != ends.rend(); ++end) {
        if (end->second.second) text.insert(end->first + 1, "}");
        if (end->second.first) text.insert(end->first, "{");
    }
    return count;
}

struct Request {
    std::string text;
    bool phrase = false;
    SearchOptions options;
    SearchRange range;
};

struct Found {
    std::vector<std::int32_t> verses;
    std::vector<std::string> marked;
    int occurrences = 0;
};

static std::string JoinedByHand(const std::vector<std::string>& words, bool caseMatters) {
    std::string phrase;
    for (const std::string& word : words) phrase += (phrase.empty() ? "" : " ") + word;
    return caseMatters ? phrase : InSmallLetters(phrase);
}

static bool QualifiesByHand(int hits, int words, int booleanType) {
    if (booleanType == 0) return hits == words;
    return booleanType == 1 ? hits != 0 : hits == 1;
}

static Found SearchByHand(const Request& request) {
    const bool caseMatters = request.options.CaseSensitive != 0;
    const bool parts = request.options.SubString != 0;
    const std::vector<std::string> words = WordsByHand(request.text);
    const int wordCount = static_cast<int>(words.size());
    const std::string phrase = JoinedByHand(words, caseMatters);
    Found found;
    if (words.empty()) return found;
    const std::vector<int> hits = HitsByHand(words, caseMatters, parts && !request.phrase, request.range);
    for (int verse = request.range.StartVerse; verse <= request.range.EndVerse; ++verse) {
        const std::string& text = TheConcordance().texts[static_cast<std::size_t>(verse)];
        int here = hits[static_cast<std::size_t>(verse)];
        if (request.phrase) {
            if (here != wordCount) continue;
            if (SqueezedByHand(text, caseMatters).text.find(phrase) == std::string::npos) continue;
        } else {
            if (parts && here > 1) here = WordsWithin(words, text, caseMatters);
            if (!QualifiesByHand(here, wordCount, request.options.BooleanType)) continue;
        }
        found.verses.push_back(verse);
        std::string& marked = found.marked.emplace_back(text);
        if (request.phrase && wordCount > 1)
            found.occurrences += MarkPhraseByHand(phrase, caseMatters, marked);
        else
            for (const std::string& word : words) found.occurrences += MarkWordByHand(word, caseMatters, parts, marked);
    }
    return found;
}

// Makes requests of words, of parts of words and of stretches of the text, in capitals now and then, with stops
// between.
struct RequestMaker {
    std::mt19937 random{1769};

    int Below(std::size_t count) { return static_cast<int>(random() % count); }
    bool OneIn(int times) { return Below(static_cast<std::size_t>(times)) == 0; }

    template <typename T>
    const T& Pick(const std::vector<T>& from) {
        return from[random() % from.size()];
    }

    std::string Capitals(std::string word) {
        const bool all = OneIn(2);
        for (std::size_t i = 0; i < word.size() && (all || i == 0); ++i)
            if (IsSmall(word[i])) word[i] = static_cast<char>(word[i] - 'a' + 'A');
        return word;
    }

    std::string Word() {
        if (OneIn(12)) return "nosuchword";
        std::string word = OneIn(3) ? Pick(WordsByHand(Pick(TheConcordance().texts))) : Pick(TheConcordance().words);
        if (OneIn(4)) {
            const std::size_t start = random() % word.size();
            word = word.substr(start, 1 + random() % (word.size() - start));
        }
        return OneIn(4) ? Capitals(word) : word;
    }

    std::string Stretch() {
        const std::vector<std::string> words = WordsByHand(Pick(TheConcordance().texts));
        const std::size_t start = random() % words.size();
        std::string text = words[start];
        for (std::size_t i = start + 1; i < words.size() && i < start + 4 && !OneIn(3); ++i)
            text += Pick<std::string>({" ", " ", " ", ", ", "-", ": ["}) + words[i];
        return OneIn(2) ? InSmallLetters(text) : text;
    }

    std::string Text(bool phrase) {
        if (phrase ? !OneIn(5) : OneIn(4)) return Stretch();
        std::string text = Word();
        while (OneIn(2)) text += Pick<std::string>({" ", " ", ",", " 1-"}) + (OneIn(5) ? text : Word());
        return text.substr(0, kSearchTextLimit);
    }

    Request Next() {
        Request request;
        request.phrase = OneIn(3);
        request.text = Text(request.phrase);
        request.options = {Below(3), OneIn(3) ? 1 : 0, OneIn(3) ? 1 : 0, 0};
        const int places[] = {Below(kVerseCount), Below(kVerseCount)};
        if (!OneIn(4)) request.range = {std::min(places[0], places[1]), std::max(places[0], places[1])};
        return request;
    }
};

static std::string Described(const Request& request) {
    return "\"" + request.text + "\"" + (request.phrase ? " as a phrase" : "") + ", boolean type " +
           std::to_string(request.options.BooleanType) + (request.options.CaseSensitive != 0 ? ", case" : "") +
           (request.options.SubString != 0 ? ", parts" : "") + ", range " + std::to_string(request.range.StartVerse) +
           "-" + std::to_string(request.range.EndVerse);
}

// Gives how many verses were found.
static std::size_t ExpectSame(const Request& request, HitCounters& hits) {
    const Found wanted = SearchByHand(request);
    const Query query = QueryOf(request.text, request.options, request.phrase ? QueryKind::kPhrase : QueryKind::kWords);
    for (const Scripture* const scripture : {&TheRealScripture(), &TheScriptureWithKinds()}) {
        const SearchResult result = Search(*scripture, TheRealWordIndex(), query, request.range, hits);
        EXPECT_EQ(result.verses, wanted.verses) << Described(request);
        EXPECT_EQ(result.occurrences, wanted.occurrences) << Described(request);
    }
    for (std::size_t i = 0; i < wanted.verses.size() && !testing::Test::HasFailure(); ++i) {
        std::string text(VerseText(TheRealScripture(), wanted.verses[i]));
        MarkKeyWords(query, text);
        EXPECT_EQ(text, wanted.marked[i]) << Described(request);
    }
    return wanted.verses.size();
}

TEST(SearchByHand, AgreesOnAThousandQueries) {
    const int queries = Tried(1000, 50);
    RequestMaker maker;
    HitCounters hits;
    int successes = 0;
    for (int i = 0; i < queries; ++i) {
        successes += ExpectSame(maker.Next(), hits) == 0 ? 0 : 1;
        if (HasFailure()) return;
    }
    EXPECT_GT(successes, queries / 2);  // otherwise the queries would test very little
    EXPECT_LT(successes, queries * 95 / 100);
}

TEST(SearchByHand, AgreesOnTheLongestQueries) {
    HitCounters hits;
    std::string everyE, letters;
    while (everyE.size() < kSearchTextLimit) everyE += everyE.empty() ? "e" : " e";
    for (char c = 'a'; c <= 'z'; ++c) letters += std::string(1, c) + " ";
    for (const std::string& text : {everyE, letters, letters + "the and of lord's", std::string(199, 'e')})
        for (const int booleanType : {kAllWords, kAnyWord, kOneWord}) {
            ExpectSame({text, false, {booleanType, 0, 1, 0}, {12600, 12800}}, hits);  // the longest verse is within
            if (HasFailure()) return;
        }
}

// For frequent words, nearly all verses of a range are examined, including those at its ends.
TEST(SearchByHand, AgreesOnFrequentPhrasesToTheEndsOfTheRange) {
    static constexpr SearchRange kRanges[] = {
        {}, {0, 0}, {0, 1}, {3, 2600}, {30000, kLastVerse}, {kLastVerse - 1, kLastVerse}, {kLastVerse, kLastVerse}};
    HitCounters hits;
    int tried = 0;
    for (const std::string text : {"of the", "and the", "And the", "the LORD", "of our lord", "with you all",
                                   "all amen", "beth el of", "the el"})
        for (const SearchRange& range : kRanges)
            for (const int caseMatters : {0, 1}) {
                if (tried++ % Tried(1, 3) != 0) continue;
                ExpectSame({text, true, {kAllWords, caseMatters, 0, 0}, range}, hits);
                if (HasFailure()) return;
            }
}
