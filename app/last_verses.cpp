#include "app/last_verses.h"

#include <algorithm>
#include <charconv>

#include "scripture/verse_records.h"

static void KeepLast(std::vector<int>& verses) {
    if (verses.size() > kLastVerseCount) verses.resize(kLastVerseCount);
}

void AddLastVerse(std::vector<int>& verses, int verse) {
    std::erase(verses, verse);
    verses.insert(verses.begin(), verse);
    KeepLast(verses);
}

std::string TextOfLastVerses(const std::vector<int>& verses) {
    std::string text;
    for (const int verse : verses) {
        if (!text.empty()) text += ' ';
        text += std::to_string(verse);
    }
    return text;
}

static bool IsVerseIndex(int number) {
    return number >= 0 && number < kVerseCount;
}

// Adds the number that is all of `word`.
static void TakeVerse(std::vector<int>& verses, std::string_view word) {
    const char* const end = word.data() + word.size();
    int number = -1;
    const auto [behind, error] = std::from_chars(word.data(), end, number);
    if (error != std::errc() || behind != end || !IsVerseIndex(number)) return;
    if (std::find(verses.begin(), verses.end(), number) == verses.end()) verses.push_back(number);
}

std::vector<int> LastVersesOf(std::string_view text) {
    std::vector<int> verses;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        TakeVerse(verses, text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    KeepLast(verses);
    return verses;
}
