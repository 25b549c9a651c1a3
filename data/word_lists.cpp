#include "data/word_lists.h"

#include <string_view>

static char LowerCased(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
}

static bool IsWordCharacter(char lowerCased) {
    return (lowerCased >= 'a' && lowerCased <= 'z') || lowerCased == '\'';
}

static void AddWord(WordLists& lists, std::string& word, std::uint16_t verseIndex) {
    if (word.empty()) return;
    std::vector<std::uint16_t>& list = lists[word];
    if (list.empty() || list.back() != verseIndex) list.push_back(verseIndex);
    word.clear();
}

static void AddVerse(WordLists& lists, std::string_view text, std::uint16_t verseIndex) {
    std::string word;
    for (const char letter : text) {
        if (IsWordCharacter(LowerCased(letter)))
            word += LowerCased(letter);
        else
            AddWord(lists, word, verseIndex);
    }
    AddWord(lists, word, verseIndex);
}

WordLists ListWords(const Verses& verses) {
    WordLists lists;
    for (std::size_t i = 0; i < verses.size(); ++i) AddVerse(lists, verses[i].text, static_cast<std::uint16_t>(i));
    return lists;
}
