#include "search/key_word_marks.h"

#include <algorithm>

// Bytes of marks that can still be added to a text of `size` bytes.
static std::size_t RoomForMarks(std::size_t size) {
    return size < kMarkedTextLimit - 1 ? kMarkedTextLimit - 1 - size : 0;
}

static std::size_t NextMark(const Query& query, std::string_view text, std::string_view word, std::size_t from) {
    const bool anyCase = !query.caseSensitive;
    std::size_t place = FindInText(text, word, anyCase, from);
    while (place != kNoPlace && !query.substring && !IsWholeWord(text, place, word.size()))
        place = FindInText(text, word, anyCase, place + word.size());
    return place;
}

static int MarkWord(const Query& query, std::string_view word, std::string& text) {
    std::string marked;
    std::size_t done = 0;
    int count = 0;
    for (std::size_t room = RoomForMarks(text.size()); room >= 2; room -= 2, ++count) {
        const std::size_t place = NextMark(query, text, word, done);
        if (place == kNoPlace) break;
        marked.append(text, done, place - done).append("{").append(text, place, word.size()).append("}");
        done = place + word.size();
    }
    if (count == 0) return 0;
    marked.append(text, done);
    text.swap(marked);
    return count;
}

static int MarkWords(const Query& query, std::string& text) {
    int count = 0;
    for (const std::string& word : query.words) count += MarkWord(query, word, text);
    return count;
}

// The part of `text` in which a phrase is marked.
static std::string_view WithinReach(std::string_view text) {
    if (text.size() <= kPhraseReach) return text;
    std::size_t kept = 0;
    std::size_t end = 0;
    for (; end < text.size() && kept < kPhraseReach; ++end) kept += IsKeptInPhrase(text[end]) ? 1 : 0;
    return text.substr(0, end);
}

static std::size_t BytesOfPhraseMarks(std::string_view phrase) {
    return 2 * static_cast<std::size_t>(1 + std::count(phrase.begin(), phrase.end(), ' '));
}

// Appends `stretch`, which begins and ends with the phrase, with a pair of marks around each of its words.
static void AppendMarkedPhrase(std::string_view phrase, std::string_view stretch, std::string& marked) {
    std::size_t reached = 0;  // position in the phrase
    for (const char c : stretch) {
        if (!IsKeptInPhrase(c)) {
            marked += c;
            continue;
        }
        const bool startsWord = c != ' ' && (reached == 0 || phrase[reached - 1] == ' ');
        const bool endsWord = c != ' ' && (reached + 1 == phrase.size() || phrase[reached + 1] == ' ');
        if (startsWord) marked += '{';
        marked += c;
        if (endsWord) marked += '}';
        ++reached;
    }
}

static int MarkPhrase(const Query& query, std::string& text) {
    const std::string& phrase = query.phrase.phrase;
    const std::size_t bytes = BytesOfPhraseMarks(phrase);
    std::string marked;
    std::size_t done = 0;
    std::size_t room = RoomForMarks(text.size());
    int count = 0;
    for (const PhrasePlace& place : PhrasesInText(WithinReach(text), query.phrase)) {
        if (room < bytes) break;
        room -= bytes;
        marked.append(text, done, place.first - done);
        done = place.last + 1;
        AppendMarkedPhrase(phrase, std::string_view(text).substr(place.first, done - place.first), marked);
        ++count;
    }
    marked.append(text, done);
    text.swap(marked);
    return count;
}

int MarkKeyWords(const Query& query, std::string& text) {
    return MarksPhrase(query) ? MarkPhrase(query, text) : MarkWords(query, text);
}

static int CountPhrase(const Query& query, std::string_view text) {
    const int count = CountPhrasesInText(WithinReach(text), query.phrase);
    // Usually there is enough room, even if every letter were a word.
    if (static_cast<std::size_t>(count) * 2 * query.phrase.phrase.size() <= RoomForMarks(text.size())) return count;
    return std::min(count, static_cast<int>(RoomForMarks(text.size()) / BytesOfPhraseMarks(query.phrase.phrase)));
}

static int CountWords(const Query& query, std::string_view text) {
    const bool anyCase = !query.caseSensitive;
    int count = 0;
    if (query.substring && !query.words.empty())  // all words are the same one, see DoMarksStayApart
        count = CountInText(text, query.words.front(), anyCase, false) * static_cast<int>(query.words.size());
    else
        for (const std::string& word : query.words) count += CountInText(text, word, anyCase, true);
    return std::min(count, static_cast<int>(RoomForMarks(text.size()) / 2));
}

int CountKeyWords(const Query& query, std::string_view text) {
    if (MarksPhrase(query)) return CountPhrase(query, text);
    if (query.marksStayApart) return CountWords(query, text);
    std::string copy(text);
    return MarkWords(query, copy);
}

bool ContainsPhrase(const Query& query, std::string_view text) {
    return CountPhrasesInText(text, query.phrase) > 0;
}
