// `vw find`: verses with words, as the searches of the window find them.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/arguments.h"
#include "cli/asked_verses.h"
#include "cli/command_table.h"
#include "cli/text_folder.h"
#include "cli/utf8.h"
#include "cli/verse_output.h"
#include "notes/note_letters.h"
#include "scripture/books.h"
#include "scripture/letters.h"
#include "search/key_word_marks.h"
#include "search/near_search.h"
#include "search/near_text.h"
#include "search/search_engine.h"
#include "verselist/hits_by_book.h"

namespace {

struct FindOptions {
    std::vector<std::string> words;
    bool all = false, any = false, one = false, phrase = false;
    int near = 0;  // 0: not searched for words near each other
    bool ordered = false, inVerses = false;
    bool part = false, caseSensitive = false;
    std::string range;
    bool strict = false;
    bool refs = false, count = false, byBook = false, brackets = false;
};

// What is searched for, and what was found.
struct FoundVerses {
    Scripture scripture;
    Query query;
    SearchResult result;
};

}  // namespace

// ---- The search -----------------------------------------------------------------------------------------------------

static std::string TextOf(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + AsciiOf(word);
    return text;
}

static QueryKind KindOf(const FindOptions& options) {
    if (options.near > 0) return QueryKind::kNear;
    return options.phrase ? QueryKind::kPhrase : QueryKind::kWords;
}

static SearchState StateOf(const FindOptions& options) {
    SearchState state;
    state.searchText = TextOf(options.words);
    state.options = {
        .BooleanType = options.any   ? kAnyWord
                       : options.one ? kOneWord
                                     : kAllWords,
        .CaseSensitive = options.caseSensitive ? 1 : 0,
        .SubString = options.part ? 1 : 0,
    };
    state.nearOptions = {options.inVerses ? kNearInVerses : kNearInWords, options.near, options.ordered ? 1 : 0};
    return state;
}

// A limit of the window's field.
static void CheckWords(const SearchState& state) {
    if (state.searchText.size() > std::size_t{kSearchTextLimit})
        throw Complaint{kBadUse, "WORDS: more than " + std::to_string(kSearchTextLimit) + " letters"};
}

static void CheckNear(const SearchState& state, std::size_t words) {
    const std::u16string problemOfText = ProblemOfNearText(LettersOfUtf8(state.searchText));  // which is ASCII
    if (!problemOfText.empty()) throw Complaint{kBadUse, "WORDS: " + Utf8Of(problemOfText)};
    if (const char* problem = ProblemOfNearDistance(state.nearOptions, words))
        throw Complaint{kBadUse, "--near: " + std::string(problem)};
}

static Query CheckedQuery(const SearchState& state, QueryKind kind) {
    CheckWords(state);
    const Query query = kind == QueryKind::kNear ? NearQueryOf(state) : QueryOf(state.searchText, state.options, kind);
    if (kind == QueryKind::kNear) CheckNear(state, query.nearQuery.patterns.size());
    if (kind != QueryKind::kNear && query.words.empty()) throw Complaint{kBadUse, "WORDS: there is no word in them"};
    return query;
}

// What the window's field does not take, and who types it means something by it.
static void TellOfLeftOut(const Vw& vw, const std::string& text, const Query& query) {
    const auto isLeftOut = [](char c) { return IsDigit(c) || c == '*' || c == '?'; };
    if (query.kind == QueryKind::kNear || std::ranges::none_of(text, isLeftOut)) return;
    std::string words;
    for (const std::string& word : query.words) words += ' ' + word;
    Tell(vw, "WORDS: only letters and apostrophes count; searched for:" + words);
}

static FoundVerses Search(const Vw& vw, const FindOptions& options) {
    FoundVerses found{TextOf(vw), {}, {}};
    SearchState state = StateOf(options);
    if (!options.range.empty()) {
        const VerseSpan span = AskedVerses(vw, found.scripture.records, "--range", options.range, {options.strict});
        state.range = {span.first, span.last};
    }
    found.query = CheckedQuery(state, KindOf(options));
    TellOfLeftOut(vw, state.searchText, found.query);
    HitCounters hits;
    found.result = Search(found.scripture, IndexOf(vw), found.query, state.range, hits);
    return found;
}

// ---- What was found -------------------------------------------------------------------------------------------------

// Marks take most of the time of a long list.
static std::string ShownText(const Vw& vw, const FoundVerses& found, int verse) {
    if (!vw.options.json && !vw.printer.colors) return std::string(VerseText(found.scripture, verse));
    std::string text(VerseText(found.scripture, verse).substr(0, kMarkedTextLimit - 1));
    if (found.query.kind == QueryKind::kNear)
        MarkNearWords(found.scripture, found.query.nearQuery, verse, text);
    else
        MarkKeyWords(found.query, text);
    return text;
}

static void PrintVerses(Vw& vw, const FoundVerses& found, ShownBrackets brackets) {
    for (const int verse : found.result.verses) {
        if (HasEnded(vw.printer)) return;
        const std::string text = ShownText(vw, found, verse);
        if (vw.options.json)
            PrintObject(vw.printer, VerseObject(found.scripture, verse, text, true));
        else
            PrintMarked(vw.printer, MarkedListLine(found.scripture.records, verse, text), brackets);
    }
    if (!vw.options.json && vw.surroundings.isTerminal) Print(vw.printer, SearchSummary(found.result) + "\n");
}

static void PrintReferences(Vw& vw, const FoundVerses& found) {
    const VerseRecords& records = found.scripture.records;
    for (const int verse : found.result.verses) {
        const std::string reference = ReferenceText(records, verse, BookForm::kAbbreviation);
        if (vw.options.json)
            PrintObject(vw.printer, {{"kind", "reference"}, {"reference", reference}, {"index", verse}});
        else
            Print(vw.printer, reference + "\n");
    }
}

static void PrintCount(Vw& vw, const SearchResult& result) {
    if (vw.options.json)
        PrintObject(vw.printer,
                    {{"kind", "count"}, {"verses", result.verses.size()}, {"occurrences", result.occurrences}});
    else
        Print(vw.printer, SearchSummary(result) + "\n");
}

// ---- By book --------------------------------------------------------------------------------------------------------

static std::string Padding(std::string_view text, int columns) {
    return std::string(static_cast<std::size_t>(std::max(columns - static_cast<int>(text.size()), 0)), ' ');
}

// "Genesis          12 ######": the longest bar takes what the line leaves. A narrow one has "Ge 12 ######".
static void PrintBar(Vw& vw, int book, int count, int most) {
    static constexpr int kUsualWidth = 80, kNarrow = 36, kLeast = 1;
    const int width = vw.printer.width > 0 ? vw.printer.width : kUsualWidth;
    const bool isNarrow = width < kNarrow;
    const int nameColumns = isNarrow ? 3 : 16, countColumns = isNarrow ? 5 : 6;
    const int room = std::max(width - nameColumns - countColumns - 1, kLeast);
    const int length = std::max(1, count * room / most);
    const std::string name = isNarrow ? BookAbbreviation(book) : BookName(book), number = std::to_string(count);
    std::string line = name + Padding(name, nameColumns) + Padding(number, countColumns) + number + ' ';
    for (int i = 0; i < length; ++i) line += "\xE2\x96\x88";  // a full block
    Print(vw.printer, line + "\n");
}

static void PrintByBook(Vw& vw, const FoundVerses& found) {
    const PerBook<HitsOfBook> books =
        HitsOfEntries(found.scripture.records, found.result.verses, CountWordsOfBooks(found.scripture));
    const int most = std::ranges::max(books, {}, &HitsOfBook::hits).hits;
    for (int book = 1; book <= kBookCount; ++book) {
        const HitsOfBook& of = books[static_cast<std::size_t>(book) - 1];
        if (of.hits == 0) continue;
        if (vw.options.json)
            PrintObject(
                vw.printer,
                {{"kind", "book"}, {"book", book}, {"name", BookName(book)}, {"verses", of.hits}, {"words", of.words}});
        else
            PrintBar(vw, book, of.hits, most);
    }
    if (!vw.options.json && vw.surroundings.isTerminal) Print(vw.printer, SearchSummary(found.result) + "\n");
}

// ---- The command ----------------------------------------------------------------------------------------------------

static ExitCode Find(Vw& vw, const FindOptions& options) {
    const FoundVerses found = Search(vw, options);
    if (options.count)
        PrintCount(vw, found.result);
    else if (options.byBook)
        PrintByBook(vw, found);
    else if (options.refs)
        PrintReferences(vw, found);
    else {
        StartPager(vw);
        PrintVerses(vw, found, options.brackets ? ShownBrackets::kYes : ShownBrackets::kNo);
    }
    return found.result.verses.empty() ? kNothingFound : kFound;
}

static void AddKinds(CLI::App& app, FindOptions& options) {
    app.add_flag("--all", options.all, "verses with all of the words (default)");
    app.add_flag("--any", options.any, "verses with any of the words");
    app.add_flag("--one", options.one, "verses with exactly one of the words");
    app.add_flag("--phrase", options.phrase, "verses with the words in sequence");
    app.add_option("--near", options.near,
                   "verses with the words at most N words apart; * stands for any letters, ? for one")
        ->type_name("N")
        ->check(CLI::Range(1, kMostWordsApart).description(""));
    app.add_flag("--ordered", options.ordered, "near: in the order of WORDS");
    app.add_flag("--verses", options.inVerses, "near: N verses apart, in a chapter");
    app.add_flag("--part", options.part, "parts of words, too");
    app.add_flag("--case", options.caseSensitive, "capitals matter");
}

static void AddOutputs(CLI::App& app, FindOptions& options) {
    app.add_flag("--refs", options.refs, "only the references");
    app.add_flag("--count", options.count, "only the numbers of verses and occurrences");
    app.add_flag("--by-book", options.byBook, "a bar for each book: how many verses");
    app.add_flag("--brackets", options.brackets, "brackets round the words that the translators supplied");
}

static void CheckTogether(const CLI::App& app) {
    AllowOnlyOne(app, {"--all", "--any", "--one", "--phrase", "--near"});
    AllowOnlyOne(app, {"--phrase", "--part"});
    AllowOnlyWith(app, "--ordered", "--near");
    AllowOnlyWith(app, "--verses", "--near");
    AllowOnlyOne(app, {"--refs", "--count", "--by-book"});
}

static RunCommand PrepareFind(CLI::App& app) {
    const auto options = std::make_shared<FindOptions>();
    app.add_option("WORDS", options->words, "words of letters and apostrophes")->required()->type_name("");
    AddKinds(app, *options);
    AddText(app, "--range", options->range, "only in these verses: \"Ge - Mal\", Ro, \"Mt 5 - 7\"")
        ->type_name("REF-REF");
    app.add_flag("--strict", options->strict, "understand --range only as the window does");
    AddOutputs(app, *options);
    return [options, &app](Vw& vw) {
        CheckTogether(app);
        return Find(vw, *options);
    };
}

const Command kFindCommand = {
    .name = "find",
    .help = "show the verses with given words",
    .prepare = PrepareFind,
    .details =
        "The searches are those of the window, and so are their counts, which are the last line on a terminal. "
        "Key words are marked in colour.",
};
