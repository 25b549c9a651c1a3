// Compares searches for words near each other in the real text with a simple, independent search, which tries every way
// to choose a word of the text for each word of the query. Verses, counts and marks must be the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <unordered_map>

#include "search/near_search.h"
#include "search/query.h"
#include "tests/support/native_scripture.h"
#include "tests/support/tries.h"

// ---- The text as words ----------------------------------------------------------------------------------------------

namespace {

struct WordOfText {
    int verse;
    int number;  // in the chapter
    std::size_t begin, size;
    int spelling;
};

struct WordsOfText {
    std::vector<std::string> spellings;
    std::vector<std::vector<WordOfText>> chapters;
};

}  // namespace

static bool CanBeInWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '\'';
}

static std::string InSmallLetters(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return text;
}

static const WordsOfText& TheWords() {
    static const WordsOfText words = [] {
        WordsOfText made;
        std::unordered_map<std::string, int> numbers;
        for (int verse = 0; verse < kVerseCount; ++verse) {
            const VerseRecord record = RecordOf(TheRealScripture().records, verse);
            if (record.verse == 1) made.chapters.emplace_back();
            std::vector<WordOfText>& chapter = made.chapters.back();
            const std::string text(VerseText(TheRealScripture(), verse));
            for (std::size_t at = 0; at < text.size();) {
                std::size_t end = at;
                while (end < text.size() && CanBeInWord(text[end])) ++end;
                if (end > at) {
                    const std::string word = text.substr(at, end - at);
                    const auto [place, isNew] = numbers.try_emplace(word, static_cast<int>(made.spellings.size()));
                    if (isNew) made.spellings.push_back(word);
                    chapter.push_back({verse, static_cast<int>(chapter.size()), at, end - at, place->second});
                }
                at = end + 1;
            }
        }
        return made;
    }();
    return words;
}

// ---- By hand --------------------------------------------------------------------------------------------------------

static bool MeansByHand(const std::string& pattern, const std::string& word, std::size_t at = 0,
                        std::size_t letter = 0) {
    if (at == pattern.size()) return letter == word.size();
    if (pattern[at] == '*') {
        for (std::size_t next = letter; next <= word.size(); ++next)
            if (MeansByHand(pattern, word, at + 1, next)) return true;
        return false;
    }
    return letter < word.size() && (pattern[at] == '?' || pattern[at] == word[letter]) &&
           MeansByHand(pattern, word, at + 1, letter + 1);
}

namespace {

struct NearRequest {
    std::string text;
    NearOptions nearOptions;
    SearchOptions options;
    SearchRange range;
};

// The words of a chapter that stand for each word of the query, and those chosen so far.
struct Choosing {
    const NearRequest* request;
    std::vector<std::vector<const WordOfText*>> candidates;
    std::vector<const WordOfText*> chosen;
    std::vector<bool> inMatch;  // by the word's number in the chapter
};

struct Found {
    std::vector<std::int32_t> verses;
    std::vector<std::string> marked;
    int occurrences = 0;
};

}  // namespace

static bool AreNearByHand(const NearRequest& request, const WordOfText& one, const WordOfText& other) {
    if (request.nearOptions.Unit != 2 && one.verse != other.verse) return false;
    if (request.nearOptions.Unit == 1) return true;
    const int apart = request.nearOptions.Unit == 2 ? one.verse - other.verse : one.number - other.number;
    return std::abs(apart) <= request.nearOptions.Distance;
}

static bool MayFollow(const Choosing& choosing, const WordOfText& word) {
    for (const WordOfText* before : choosing.chosen)
        if (before == &word || !AreNearByHand(*choosing.request, *before, word)) return false;
    return choosing.request->nearOptions.InOrder == 0 || choosing.chosen.empty() ||
           choosing.chosen.back()->number < word.number;
}

static void ChooseRest(Choosing& choosing) {
    if (choosing.chosen.size() == choosing.candidates.size()) {
        for (const WordOfText* word : choosing.chosen) choosing.inMatch[static_cast<std::size_t>(word->number)] = true;
        return;
    }
    const std::vector<const WordOfText*>& candidates = choosing.candidates[choosing.chosen.size()];
    auto candidate = candidates.begin();
    if (!choosing.chosen.empty()) {  // those long before cannot be near
        const int earliest = choosing.chosen.front()->verse - 50;
        candidate = std::ranges::lower_bound(candidates, earliest, {}, &WordOfText::verse);
    }
    for (; candidate != candidates.end(); ++candidate) {
        if (!choosing.chosen.empty() && (*candidate)->verse > choosing.chosen.front()->verse + 50) break;
        if (!MayFollow(choosing, **candidate)) continue;
        choosing.chosen.push_back(*candidate);
        ChooseRest(choosing);
        choosing.chosen.pop_back();
    }
}

static std::vector<std::string> PatternsByHand(const NearRequest& request) {
    std::vector<std::string> patterns(1);
    for (const char c : request.text) {
        if (CanBeInWord(c) || c == '*' || c == '?')
            patterns.back() += c;
        else if (!patterns.back().empty())
            patterns.emplace_back();
    }
    if (patterns.back().empty()) patterns.pop_back();
    for (std::string& pattern : patterns) {
        if (request.options.SubString != 0) pattern = "*" + pattern + "*";
        if (request.options.CaseSensitive == 0) pattern = InSmallLetters(pattern);
    }
    return patterns;
}

// For each spelling whether the pattern means it.
static std::vector<bool> SpellingsByHand(const std::string& pattern, bool caseMatters) {
    std::vector<bool> meant;
    for (const std::string& spelling : TheWords().spellings)
        meant.push_back(MeansByHand(pattern, caseMatters ? spelling : InSmallLetters(spelling)));
    return meant;
}

static void Take(Found& found, const WordOfText& word) {
    if (found.verses.empty() || found.verses.back() != word.verse) {
        found.verses.push_back(word.verse);
        found.marked.emplace_back(VerseText(TheRealScripture(), word.verse));
    }
    std::string& marked = found.marked.back();
    const std::size_t added = marked.size() - VerseText(TheRealScripture(), word.verse).size();
    marked.insert(word.begin + added + word.size, "}").insert(word.begin + added, "{");
    ++found.occurrences;
}

static Found SearchByHand(const NearRequest& request) {
    Found found;
    std::vector<std::vector<bool>> meant;
    for (const std::string& pattern : PatternsByHand(request))
        meant.push_back(SpellingsByHand(pattern, request.options.CaseSensitive != 0));
    for (const std::vector<WordOfText>& chapter : TheWords().chapters) {
        Choosing choosing{&request, {}, {}, std::vector<bool>(chapter.size())};
        choosing.candidates.resize(meant.size());
        for (const WordOfText& word : chapter) {
            if (word.verse < request.range.StartVerse || word.verse > request.range.EndVerse) continue;
            for (std::size_t i = 0; i < meant.size(); ++i)
                if (meant[i][static_cast<std::size_t>(word.spelling)]) choosing.candidates[i].push_back(&word);
        }
        if (std::ranges::any_of(choosing.candidates, [](const auto& each) { return each.empty(); })) continue;
        ChooseRest(choosing);
        for (const WordOfText& word : chapter)
            if (choosing.inMatch[static_cast<std::size_t>(word.number)]) Take(found, word);
    }
    return found;
}

// ---- Requests -------------------------------------------------------------------------------------------------------

namespace {

struct NearRequestMaker {
    std::mt19937 random{1611};

    int Below(std::size_t count) { return static_cast<int>(random() % count); }
    bool OneIn(int times) { return Below(static_cast<std::size_t>(times)) == 0; }

    // A word of the chapter, sometimes with wildcards.
    std::string Word(const std::vector<WordOfText>& chapter) {
        const WordOfText& picked = chapter[random() % chapter.size()];
        std::string word = TheWords().spellings[static_cast<std::size_t>(picked.spelling)];
        const auto size = word.size();
        switch (Below(8)) {
            case 0: return size > 2 ? word.substr(0, size - 2) + "*" : word;
            case 1: return size > 3 ? "*" + word.substr(2) : word;
            case 2: word[random() % size] = '?'; return word.find_first_not_of('?') == std::string::npos ? "a" : word;
            case 3: return size > 4 ? word.substr(0, 1) + "*" + word.substr(size - 2) : word;
            default: return word;
        }
    }

    NearRequest Next() {
        const auto& chapters = TheWords().chapters;
        const std::vector<WordOfText>& chapter = chapters[random() % chapters.size()];
        NearRequest request;
        request.text = Word(chapter);
        for (int more = Below(3); more > 0; --more) request.text += " " + (OneIn(8) ? request.text : Word(chapter));
        request.nearOptions = {Below(3), 1 + Below(OneIn(3) ? 50 : 6), OneIn(3) ? 1 : 0};
        if (request.nearOptions.Unit == 2) request.nearOptions.Distance = 1 + Below(OneIn(5) ? 10 : 2);
        request.options = {0, OneIn(4) ? 1 : 0, OneIn(5) ? 1 : 0, 0};
        const int places[] = {Below(kVerseCount), Below(kVerseCount)};
        if (OneIn(2)) request.range = {std::min(places[0], places[1]), std::max(places[0], places[1])};
        return request;
    }
};

}  // namespace

static std::string Described(const NearRequest& request) {
    return "\"" + request.text + "\", unit " + std::to_string(request.nearOptions.Unit) + ", distance " +
           std::to_string(request.nearOptions.Distance) + (request.nearOptions.InOrder != 0 ? ", in order" : "") +
           (request.options.CaseSensitive != 0 ? ", case" : "") + (request.options.SubString != 0 ? ", parts" : "") +
           ", range " + std::to_string(request.range.StartVerse) + "-" + std::to_string(request.range.EndVerse);
}

// Gives how many verses were found.
static std::size_t ExpectSame(const NearRequest& request) {
    const Found wanted = SearchByHand(request);
    SearchState search;
    search.searchText = request.text;
    search.options = request.options;
    search.nearOptions = request.nearOptions;
    search.range = request.range;
    const NearQuery query = NearQueryOf(search).nearQuery;
    for (const Scripture* const scripture : {&TheRealScripture(), &TheScriptureWithKinds()}) {
        const SearchResult result = SearchNear(*scripture, TheRealWordIndex(), query);
        EXPECT_EQ(result.verses, wanted.verses) << Described(request);
        EXPECT_EQ(result.occurrences, wanted.occurrences) << Described(request);
    }
    const std::size_t step = 1 + wanted.verses.size() / 200;  // of many verses, some
    for (std::size_t i = 0; i < wanted.verses.size() && !testing::Test::HasFailure(); i += step) {
        std::string text(VerseText(TheRealScripture(), wanted.verses[i]));
        MarkNearWords(TheRealScripture(), query, wanted.verses[i], text);
        EXPECT_EQ(text, wanted.marked[i]) << Described(request);
    }
    return wanted.verses.size();
}

TEST(NearByHand, AgreesOnHundredsOfQueries) {
    const int queries = Tried(400, 20);
    NearRequestMaker maker;
    int successes = 0;
    for (int i = 0; i < queries; ++i) {
        successes += ExpectSame(maker.Next()) == 0 ? 0 : 1;
        if (HasFailure()) return;
    }
    EXPECT_GT(successes, queries / 2);  // otherwise the queries would test very little
    EXPECT_LT(successes, queries * 95 / 100);
}

// Ten words, several of which mean the same word of the text.
TEST(NearByHand, AgreesOnLongQueries) {
    static const NearRequest kRequests[] = {
        {"a* b* c* d* e* f* g* h* *i* *s", {kNearInWords, 50, 0}, {}, {26136, 26140}},
        {"and *nd the t* *he", {kNearInWords, 6, 0}, {}, {100, 160}},
        {"and *nd the t* *he", {kNearInWords, 8, 1}, {}, {100, 400}},
        {"rejoice pray thanks quench", {kNearInVerses, 3, 1}, {}, {}},
        {"jesus said behold", {kNearInWords, 12, 0}, {}, {}},
        {"and *nd the t* *he", {kNearInVerses, 1, 0}, {}, {100, 130}},
    };
    for (const NearRequest& request : kRequests) ExpectSame(request);
}
