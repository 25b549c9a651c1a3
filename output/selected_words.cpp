#include "output/selected_words.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "search/letters.h"
#include "search/search_state.h"

WordSpan SelectedWords(const OrderedSelection& selection, int place) {
    return {place == selection.start.place ? selection.start.word : 0,
            place == selection.end.place ? selection.end.word : std::numeric_limits<int>::max()};
}

WordReader CopyingReader(bool keepBrackets) {
    WordReader reader;
    reader.brackets = keepBrackets ? BracketUse::kShown : BracketUse::kDropped;
    return reader;
}

bool AppendWords(std::string& text, WordReader& reader, std::string_view verse, const WordSpan& span) {
    OpenVerse(reader, verse);
    for (int word = 1; word <= span.last && ReadWord(reader); ++word) {
        if (word < span.first) continue;
        for (const WordPiece& piece : reader.pieces) text += piece.text;
    }
    return HasVerseEnded(reader);
}

static bool IsBlankOrLetter(char c) {
    return c == ' ' || IsLetter(c);
}

// One character more is looked at than a search can hold: where all of them are letters the last is lost.
std::string SearchTextOf(std::string_view copy, int limit) {
    std::string text;
    std::ranges::copy_if(copy.substr(0, static_cast<std::size_t>(limit)), std::back_inserter(text), IsBlankOrLetter);
    if (text.size() > kSearchTextLimit) text.resize(kSearchTextLimit);
    return text;
}
