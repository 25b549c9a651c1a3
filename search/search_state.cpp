#include "search/search_state.h"

#include <algorithm>

void PushHistory(SearchState& search, const std::string& text) {
    std::shift_right(search.history.begin(), search.history.end(), 1);
    search.history.front() = text;
}
