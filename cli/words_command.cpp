// `vw words`: words of the text, and how often each is there.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/command_table.h"
#include "cli/text_folder.h"
#include "cli/utf8.h"
#include "search/search_engine.h"

namespace {

struct WordsOptions {
    std::vector<std::string> patterns;
    bool part = false;
    bool byCount = false;
};

struct CountedWord {
    std::string word;
    int verses = 0;
    int occurrences = 0;
};

}  // namespace

// Numbers of the words that any of the patterns means, ascending.
static std::vector<int> WordsAsked(const WordIndex& index, const WordsOptions& options) {
    std::string text;
    for (const std::string& pattern : options.patterns) text += AsciiOf(pattern) + ' ';
    const std::vector<std::string> patterns = NearPatternsOf(text, false, options.part);
    if (patterns.empty()) throw Complaint{kBadUse, "PATTERN: there is no word in it"};
    std::vector<int> words;
    for (const std::string& pattern : patterns)
        std::ranges::copy(WordsMeant(index, pattern), std::back_inserter(words));
    std::ranges::sort(words);
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

// As `vw find` counts it.
static CountedWord Counted(const Scripture& scripture, const WordIndex& index, int word, HitCounters& hits) {
    const std::string text(index.words[static_cast<std::size_t>(word)]);
    const SearchResult result = Search(scripture, index, QueryOf(text, {}, QueryKind::kWords), {}, hits);
    return {text, static_cast<int>(result.verses.size()), result.occurrences};
}

static void Print(Vw& vw, const CountedWord& word) {
    if (vw.options.json)
        return PrintObject(
            vw.printer,
            {{"kind", "word"}, {"word", word.word}, {"verses", word.verses}, {"occurrences", word.occurrences}});
    const SearchResult counts{std::vector<std::int32_t>(static_cast<std::size_t>(word.verses)), word.occurrences};
    Print(vw.printer, word.word + ": " + SearchSummary(counts) + "\n");
}

static ExitCode ListWords(Vw& vw, const WordsOptions& options) {
    const Scripture scripture = TextOf(vw);
    const WordIndex index = IndexOf(vw);
    HitCounters hits;
    std::vector<CountedWord> words;
    for (const int word : WordsAsked(index, options)) words.push_back(Counted(scripture, index, word, hits));
    if (options.byCount) std::ranges::stable_sort(words, std::ranges::greater(), &CountedWord::occurrences);
    for (const CountedWord& word : words) Print(vw, word);
    return words.empty() ? kNothingFound : kFound;
}

static RunCommand PrepareWords(CLI::App& app) {
    const auto options = std::make_shared<WordsOptions>();
    app.add_option("PATTERN", options->patterns, "words; * stands for any letters, ? for one: \"lov*\"")
        ->required()
        ->type_name("");
    app.add_flag("--part", options->part, "parts of words, too");
    app.add_flag("--by-count", options->byCount, "the most frequent word first, otherwise by alphabet");
    return [options](Vw& vw) { return ListWords(vw, *options); };
}

const Command kWordsCommand = {
    .name = "words",
    .help = "list words of the text with their counts",
    .prepare = PrepareWords,
    .details = "The words are listed in lower case. A pattern needs quotes where the shell would replace its stars.",
};
