#include "search/search_state.h"

#include <algorithm>

#include "search/letters.h"

void PushHistory(SearchState& search, const std::string& text) {
    std::shift_right(search.history.begin(), search.history.end(), 1);
    search.history.front() = text;
}

std::vector<std::string_view> QueryWords(std::string_view query) {
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < query.size(); ++at) {
        const std::size_t start = at;
        while (at < query.size() && IsWordCharacter(query[at])) ++at;
        if (at > start) words.push_back(query.substr(start, at - start));
    }
    return words;
}
