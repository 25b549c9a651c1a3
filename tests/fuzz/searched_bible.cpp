#include "tests/fuzz/searched_bible.h"

#include "search/text_kinds.h"
#include "tests/fuzz/fuzz.h"

void TakeSearch(std::string_view options, std::string_view& input, SearchState& search) {
    search.options.CaseSensitive = TakeNumber(options, 0, 1);
    search.options.SubString = TakeNumber(options, 0, 1);
    search.range.StartVerse = TakeNumber(options, -5, kVerseCount + 5);
    search.range.EndVerse = TakeNumber(options, -5, kVerseCount + 5);
    search.searchText = TakeLine(input);
}

// Without what no text has: zeros, which end a verse, and braces, which the marks put in.
static std::string PlainText(std::string_view line) {
    std::string text(line);
    std::erase_if(text, [](char c) { return c == '\0' || c == '{' || c == '}'; });
    return text;
}

void OpenBible(SearchedBible& bible, std::string_view lines, int versesOfChapter) {
    const std::string longWord(kAround, 'x');  // texts near the ends of the file are searched in another way
    bible.texts.push_back(longWord);
    while (!lines.empty()) bible.texts.push_back(PlainText(TakeLine(lines)));
    bible.texts.push_back(longWord);
    std::vector<HandMadeVerse> verses;
    for (const std::string& text : bible.texts) {
        const int number = static_cast<int>(verses.size());
        const int chapter = number / versesOfChapter;
        verses.push_back({1 + chapter / 100 % 66, 1 + chapter % 100, 1 + number % versesOfChapter, text});
    }
    bible.files = MakeFiles(verses);
    bible.scripture = ScriptureOf(bible.files);
    bible.indexFiles = MakeIndexFiles(verses);
    bible.index = IndexOf(bible.indexFiles);
}
