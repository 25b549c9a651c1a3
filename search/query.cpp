#include "search/query.h"

#include <algorithm>

#include "scripture/letters.h"

void PushHistory(SearchState& search, const std::string& text) {
    std::shift_right(search.history.begin(), search.history.end(), 1);
    search.history.front() = text;
}

static std::vector<std::string> WordsOf(std::string_view text, bool caseSensitive) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t start = at;
        while (at < text.size() && IsWordCharacter(text[at])) ++at;
        if (at == start) continue;
        const std::string_view word = text.substr(start, at - start);
        words.push_back(caseSensitive ? std::string(word) : LowerCased(word));
    }
    return words;
}

static std::string Joined(const std::vector<std::string>& words) {
    std::string phrase;
    for (const std::string& word : words) phrase.append(phrase.empty() ? "" : " ").append(word);
    return phrase;
}

// Whole words without apostrophes have no letter beside them, so no two of them touch. Other words can be split by an
// earlier mark or overlap themselves, except a single word whose beginning is not also its end.
static bool DoMarksStayApart(const std::vector<std::string>& words, bool substring) {
    if (words.empty()) return true;
    if (!substring)
        return std::all_of(words.begin(), words.end(),
                           [](const std::string& word) { return word.find('\'') == std::string::npos; });
    const std::string& word = words.front();
    for (std::size_t size = 1; size < word.size(); ++size)
        if (word.ends_with(word.substr(0, size))) return false;
    return std::all_of(words.begin(), words.end(), [&](const std::string& other) { return other == word; });
}

Query QueryOf(std::string_view text, const SearchOptions& options, QueryKind kind) {
    Query query;
    query.kind = kind;
    query.booleanType = options.BooleanType;
    query.caseSensitive = options.CaseSensitive != 0;
    query.substring = options.SubString != 0;
    query.words = WordsOf(text, query.caseSensitive);
    if (kind == QueryKind::kPhrase) query.phrase = PatternOf(Joined(query.words), !query.caseSensitive);
    query.marksStayApart = DoMarksStayApart(query.words, query.substring);
    return query;
}

Query NearQueryOf(const SearchState& search) {
    const bool caseSensitive = search.options.CaseSensitive != 0;
    Query query;
    query.kind = QueryKind::kNear;
    query.nearQuery = {
        .patterns = NearPatternsOf(search.searchText, caseSensitive, search.options.SubString != 0),
        .unit = NearUnitOf(search.nearOptions),
        .distance = NearDistanceOf(search.nearOptions),
        .inOrder = search.nearOptions.InOrder != 0,
        .caseSensitive = caseSensitive,
        .firstVerse = search.range.StartVerse,
        .lastVerse = search.range.EndVerse,
    };
    return query;
}

bool MarksPhrase(const Query& query) {
    return query.kind == QueryKind::kPhrase && query.words.size() > 1;
}
