#include "data/scripture_writer.h"

#include <cstdint>

#include "scripture/scripture.h"
#include "search/word_index.h"

static void AppendZeroTerminated(std::string& bytes, const std::string& text) {
    bytes.append(text.c_str(), text.size() + 1);
}

static void EncodeVerses(const Verses& verses, std::string& index, std::string& text) {
    for (const Verse& verse : verses) {
        for (const int number : {verse.book, verse.chapter, verse.verse})
            AppendNumber(index, static_cast<unsigned>(number), 1);
        AppendNumber(index, text.size(), 4);
        AppendZeroTerminated(text, verse.text);
    }
}

static void EncodeWords(const WordLists& words, std::string& names, std::string& pointers, std::string& lists) {
    for (const auto& [word, verseIndexes] : words) {
        AppendZeroTerminated(names, word);
        AppendNumber(pointers, lists.size() / 2, 4);
        for (const std::uint16_t verseIndex : verseIndexes) AppendNumber(lists, verseIndex, 2);
    }
}

std::vector<DataFile> EncodeScripture(const Verses& verses, const WordLists& words) {
    DataFile index{kVerseIndexFile, {}}, text{kVerseTextFile, {}};
    DataFile names{kWordsFile, {}}, pointers{kWordPointersFile, {}}, lists{kVerseListsFile, {}};
    EncodeVerses(verses, index.bytes, text.bytes);
    EncodeWords(words, names.bytes, pointers.bytes, lists.bytes);
    return {index, text, names, pointers, lists};
}
