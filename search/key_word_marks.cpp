#include "search/key_word_marks.h"

#include <algorithm>

#include "search/letters.h"

// Whole words of letters alone have no letter beside them, so no two of them touch. Anything else can be cut by an
// earlier mark, or overlap itself, except one word whose beginning is not also its end.
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

KeyWords KeyWordsOf(const SearchState& search) {
    KeyWords keyWords;
    keyWords.phraseMode = search.result.phraseMode;
    keyWords.caseSensitive = search.options.CaseSensitive != 0;
    keyWords.substring = search.options.SubString != 0;
    for (const std::string_view word : QueryWords(search.searchText))
        keyWords.words.push_back(keyWords.caseSensitive ? std::string(word) : LowerCased(word));
    keyWords.phrase = PatternOf(search.result.phraseText, !keyWords.caseSensitive);
    keyWords.marksStayApart = DoMarksStayApart(keyWords.words, keyWords.substring);
    return keyWords;
}

// Bytes that marks may still add to a text of `size` bytes.
static std::size_t RoomForMarks(std::size_t size) {
    return size < kMarkedTextLimit - 1 ? kMarkedTextLimit - 1 - size : 0;
}

static std::size_t NextMark(const KeyWords& keyWords, std::string_view text, std::string_view word, std::size_t from) {
    const bool anyCase = !keyWords.caseSensitive;
    std::size_t place = FindInText(text, word, anyCase, from);
    while (place != kNotFound && !keyWords.substring && !IsWholeWord(text, place, word.size()))
        place = FindInText(text, word, anyCase, place + word.size());
    return place;
}

static int MarkWord(const KeyWords& keyWords, std::string_view word, std::string& text) {
    std::string marked;
    std::size_t done = 0;
    int count = 0;
    for (std::size_t room = RoomForMarks(text.size()); room >= 2; room -= 2, ++count) {
        const std::size_t place = NextMark(keyWords, text, word, done);
        if (place == kNotFound) break;
        marked.append(text, done, place - done).append("{").append(text, place, word.size()).append("}");
        done = place + word.size();
    }
    if (count == 0) return 0;
    marked.append(text, done);
    text.swap(marked);
    return count;
}

static int MarkWords(const KeyWords& keyWords, std::string& text) {
    int count = 0;
    for (const std::string& word : keyWords.words) count += MarkWord(keyWords, word, text);
    return count;
}

// The beginning of `text` in which a phrase is marked.
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

// Appends `stretch`, which begins and ends with the phrase, with a pair of marks round each of its words.
static void AppendMarkedPhrase(std::string_view phrase, std::string_view stretch, std::string& marked) {
    std::size_t reached = 0;  // in the phrase
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

static int MarkPhrase(const KeyWords& keyWords, std::string& text) {
    const std::string& phrase = keyWords.phrase.phrase;
    const std::size_t bytes = BytesOfPhraseMarks(phrase);
    std::string marked;
    std::size_t done = 0;
    std::size_t room = RoomForMarks(text.size());
    int count = 0;
    for (const PhrasePlace& place : PhrasesInText(WithinReach(text), keyWords.phrase)) {
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

int MarkKeyWords(const KeyWords& keyWords, std::string& text) {
    return keyWords.phraseMode ? MarkPhrase(keyWords, text) : MarkWords(keyWords, text);
}

static int CountPhrase(const KeyWords& keyWords, std::string_view text) {
    const int count = CountPhrasesInText(WithinReach(text), keyWords.phrase);
    // Usually there is room enough, even if every letter were a word.
    if (static_cast<std::size_t>(count) * 2 * keyWords.phrase.phrase.size() <= RoomForMarks(text.size())) return count;
    return std::min(count, static_cast<int>(RoomForMarks(text.size()) / BytesOfPhraseMarks(keyWords.phrase.phrase)));
}

static int CountWords(const KeyWords& keyWords, std::string_view text) {
    const bool anyCase = !keyWords.caseSensitive;
    int count = 0;
    if (keyWords.substring && !keyWords.words.empty())  // one word, once or several times
        count = CountInText(text, keyWords.words.front(), anyCase, false) * static_cast<int>(keyWords.words.size());
    else
        for (const std::string& word : keyWords.words) count += CountInText(text, word, anyCase, true);
    return std::min(count, static_cast<int>(RoomForMarks(text.size()) / 2));
}

int CountKeyWords(const KeyWords& keyWords, std::string_view text) {
    if (keyWords.phraseMode) return CountPhrase(keyWords, text);
    if (keyWords.marksStayApart) return CountWords(keyWords, text);
    std::string copy(text);
    return MarkWords(keyWords, copy);
}

bool ContainsPhrase(const KeyWords& keyWords, std::string_view text) {
    return CountPhrasesInText(text, keyWords.phrase) > 0;
}
