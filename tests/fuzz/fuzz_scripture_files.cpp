// The five scripture files of any bytes: loaded, looked up, searched, laid out, copied and printed. In an input the
// files stand one behind the other, kFileEnd between two; one that is missing cannot be opened.
#include <algorithm>
#include <limits>
#include <string>

#include "app/navigation.h"
#include "output/copy_text.h"
#include "output/save_text.h"
#include "passage/passage_copy.h"
#include "passage/passage_flow.h"
#include "print/print_flow.h"
#include "scripture/scripture.h"
#include "search/search_engine.h"
#include "search/text_kinds.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/seeds.h"
#include "tests/support/even_letters.h"
#include "tests/support/hand_made_index.h"
#include "verselist/verse_list_copy.h"
#include "verselist/verse_list_flow.h"

using FoundVerses = std::vector<std::int32_t>;

static bool IsVerse(int verse) {
    return verse >= 0 && verse < kVerseCount;
}

static FilesInMemory FilesOf(std::string_view input) {
    FilesInMemory files;
    for (const char* const name : {kVerseIndexFile, kVerseTextFile, kWordsFile, kWordPointersFile, kVerseListsFile}) {
        const std::size_t end = input.find(kFileEnd);
        const std::string_view bytes = input.substr(0, end);
        files[name].assign(bytes.begin(), bytes.end());
        if (end == std::string_view::npos) break;
        input.remove_prefix(end + std::size(kFileEnd) - 1);
    }
    return files;
}

// Verses to look at: the first ones, the last that there is and those round it, and what is none.
static FoundVerses SomeVerses(const Scripture& scripture) {
    FoundVerses verses = {-1, kLastVerse, kVerseCount, std::numeric_limits<int>::max()};
    const int count = static_cast<int>(scripture.records.bytes.size() / kVerseRecordSize);
    for (int verse = 0; verse <= count && verse < 40; ++verse) verses.push_back(verse);
    for (int verse = count - 1; verse <= count + 1; ++verse) verses.push_back(verse);
    return verses;
}

// ---- Lookup ---------------------------------------------------------------------------------------------------------

static void CheckText(const Scripture& scripture, int verse) {
    const std::string_view text = VerseText(scripture, verse);
    const std::string_view all(scripture.text.data(), scripture.text.size());
    const bool isWithin = text.data() >= all.data() && text.data() + text.size() <= all.data() + all.size();
    Expect(text.empty() || isWithin, "a verse lies in the text");
    Expect(RecordOf(scripture.records, verse).book != 0 || text.empty(), "a verse without a record has no text");
}

static void CheckPlaces(const VerseRecords& records, int verse) {
    const VerseRecord record = RecordOf(records, verse);
    for (const int chapter : {0, record.chapter, kLast})
        for (const int number : {0, record.verse, kLast}) {
            const int found = VerseLookup(records, record.book, chapter, number);
            Expect(found == kNoVerse || RecordOf(records, found).book == record.book, "a verse is one of its book");
            Expect(found <= kLastVerse, "a verse is one of the Bible");
        }
    ReferenceText(records, verse, BookForm::kName);
    for (const auto step : {PreviousChapter, NextChapter, PreviousBook, NextBook})
        Expect(!IsVerse(verse) || IsVerse(step(records, verse)), "a step leads to a verse");
}

static void CheckIndex(const WordIndex& index) {
    for (int word = -1; word <= std::min(WordCount(index), 60); ++word) {
        const std::span<const unsigned char> entries = EntriesOf(index, word);
        Expect(entries.size() % 2 == 0, "entries are whole");
        const unsigned char* const begin = index.verseLists.data();
        Expect(entries.empty() ||
                   (entries.data() >= begin && entries.data() + entries.size() <= begin + index.verseLists.size()),
               "the verses of a word lie in the lists");
        if (word < 0 || word >= WordCount(index)) continue;
        const std::string_view text = index.words[static_cast<std::size_t>(word)];
        const int found = FindWord(index, text);
        Expect(found < 0 || index.words[static_cast<std::size_t>(found)] == text, "a word that is found is the word");
    }
}

// ---- Searches -------------------------------------------------------------------------------------------------------

// Two words of the first verses, and two of the index, which need not agree.
static std::vector<std::string> QueriesFor(const Scripture& scripture, const WordIndex& index) {
    std::vector<std::string> queries = {"the lamp", "a"};
    for (const int verse : {0, 2}) {
        const std::string_view text = VerseText(scripture, verse).substr(0, 200);
        const std::vector<std::string> words = QueryOf(text, {.CaseSensitive = 1}, QueryKind::kWords).words;
        if (words.size() > 1) queries.push_back(words[0] + ' ' + words[1]);
        if (!words.empty()) queries.emplace_back(words.back());
    }
    if (WordCount(index) > 1)
        queries.push_back(std::string(index.words[0].substr(0, 99)) + ' ' + std::string(index.words[1].substr(0, 99)));
    return queries;
}

static void CheckResult(const SearchResult& result) {
    const FoundVerses& verses = result.verses;
    Expect(std::ranges::all_of(verses, IsVerse), "a search finds verses");
    Expect(std::ranges::adjacent_find(verses, std::greater_equal()) == verses.end(), "what is found is in order");
    Expect(!SearchSummary(result).empty(), "a search has a summary");
}

struct LastSearch {
    Query query;
    SearchResult result;
};

// Gives the last search, for the list.
static LastSearch CheckSearches(const Scripture& scripture, const WordIndex& index) {
    LastSearch last;
    HitCounters hits;
    Scripture withKinds = scripture;
    withKinds.textKinds = FindTextKinds(scripture);
    for (const std::string& text : QueriesFor(scripture, index))
        for (const int options : {0, 1, 2, 3})
            for (const QueryKind kind : {QueryKind::kPhrase, QueryKind::kWords}) {
                last.query = QueryOf(text, {options % 3, options & 1, options >> 1, 0}, kind);
                last.result = Search(scripture, index, last.query, {}, hits);
                CheckResult(last.result);
                const SearchResult again = Search(withKinds, index, last.query, {}, hits);
                Expect(again.verses == last.result.verses && again.occurrences == last.result.occurrences,
                       "what is known of the texts changes no result");
            }
    return last;
}

// ---- Panes ----------------------------------------------------------------------------------------------------------

// Page up as its rule says, each top measured by itself.
static int PagedUpByHand(PassageFlow flow, const PassageView& view) {
    const auto lastVisibleFrom = [&flow](int top) {
        flow.topVerse = top;
        PassageView measured;
        measured = {top, WalkPassage(flow, nullptr)};
        CorrectLastVisible(measured);
        return measured.LastVisibleVerse;
    };
    return ScrolledTo({view.TopVerse, view.LastVisibleVerse, kLastVerse}, ScrollCode::kPageUp, 0, lastVisibleFrom);
}

static void CheckScrolling(const PassageFlow& flow, const PassageView& view) {
    for (const ScrollCode code : {ScrollCode::kLineUp, ScrollCode::kLineDown, ScrollCode::kPageDown})
        Expect(IsVerse(ScrolledTop(flow, view, code, 0)), "scrolling leads to a verse");
    Expect(ScrolledTop(flow, view, ScrollCode::kPageUp, 0) == PagedUpByHand(flow, view), "a page up is as measured");
    for (const int thumb : {-1, 7, 65535})
        Expect(IsVerse(ScrolledTop(flow, view, ScrollCode::kThumb, thumb)), "the thumb leads to a verse");
}

static void CheckPassage(const PassageFlow& flow) {
    int lastY = 0;
    const int lastVerse = WalkPassage(flow, [&](const FlowBox& box) {
        Expect(IsVerse(box.point.place) && box.point.place >= flow.topVerse, "a box is of a verse from the top on");
        Expect(box.y >= lastY && box.width >= 0, "boxes stand under each other");
        lastY = box.y;
        return true;
    });
    PassageView view = {flow.topVerse, lastVerse};
    CorrectLastVisible(view);
    Expect(IsVerse(view.LastVisibleVerse), "a pane shows verses");
    for (const int x : {0, flow.width / 2})
        for (const int y : {0, 30, flow.height}) {
            const SelectionPoint point = HitTestPassage(flow, x, y);
            Expect(
                point == SelectionPoint{} || (point.place >= flow.topVerse && point.place <= view.LastVisibleVerse + 1),
                "a point lies in a verse that is shown");
        }
    CheckScrolling(flow, view);
}

static void CheckPassages(const Scripture& scripture) {
    const int last = static_cast<int>(scripture.records.bytes.size() / kVerseRecordSize) - 1;
    for (const std::int8_t options : {std::int8_t{0}, std::int8_t{1}}) {
        PassageFlow flow{.scripture = &scripture, .measure = EvenLetters(), .width = 160, .height = 100};
        flow.options.ParagraphFormat = options;
        flow.options.Italics = static_cast<std::int8_t>(2 * options);
        for (const int top : {0, last / 2, last}) {
            flow.topVerse = ClampVerse(top);
            CheckPassage(flow);
        }
    }
}

static void CheckList(const Scripture& scripture, const Query& query, const FoundVerses& verses) {
    VerseList list;
    FillVerseList(list, verses);
    const VerseListFlow flow{
        .scripture = &scripture, .query = &query, .measure = EvenLetters(), .list = &list, .width = 160, .height = 100};
    for (const int top : {0, ListCount(list) / 2, ListCount(list) - 1}) {
        list.ListTop = ClampEntry(list, top);
        WalkVerseList(flow, [&](const FlowBox& piece) {
            Expect(piece.point.place >= list.ListTop && piece.point.place < ListCount(list), "a piece is of an entry");
            Expect(piece.text.find_first_of("{}") == std::string_view::npos, "no mark is shown");
            return true;
        });
        list.ListLastVisible = WalkVerseList(flow, nullptr);
        CorrectLastVisible(list);
        for (const ScrollCode code : {ScrollCode::kPageUp, ScrollCode::kPageDown, ScrollCode::kLineUp})
            Expect(ClampEntry(list, ScrolledListTop(flow, list, code, 0)) == ScrolledListTop(flow, list, code, 0),
                   "scrolling leads to an entry");
        HitTestVerseList(flow, 70, 50);
    }
    Selection all{kVerseListOwns, {0, 0}, {ListCount(list) - 1, 3}, false};
    VerseListCopyText(scripture, list, true, all);
}

// ---- On paper -------------------------------------------------------------------------------------------------------

static constexpr PageBox kSmallPage{50, 50, 250, 200};

// Letters are ten pixels wide, lines twenty high. What is drawn begins within the page.
static PrinterPage PaperOf(int& openPages) {
    return {&openPages,
            [](void*, PrintFace, std::string_view text) { return 10 * static_cast<int>(text.size()); },
            [](void*, PrintFace) { return 20; },
            [](void* device, PrintFace, int x, int y, int, std::string_view) {
                Expect(*static_cast<int*>(device) == 1, "a text is printed on a page");
                Expect(x >= kSmallPage.left && y >= kSmallPage.top && y + 20 <= kSmallPage.bottom,
                       "a text is printed within its page");
            },
            [](void* device) { return ++*static_cast<int*>(device) == 1; },
            [](void* device) { return --*static_cast<int*>(device) == 0; },
            [](void*) { return true; }};
}

// A note on every second verse: the text of the next one.
static NoteFound NextTextAsNote(void* device, int verse, std::string& note) {
    if (verse % 2 != 0) return NoteFound::kNone;
    note = VerseText(*static_cast<const Scripture*>(device), verse + 1);
    return NoteFound::kNote;
}

static void CheckOutput(Scripture scripture, const FoundVerses& verses) {
    static const FormatOptions kFormat;
    static const ReadingOptions kReading;
    const NoteSource notes{&scripture, NextTextAsNote};
    for (const PrintOptions& options :
         {RangePrinting(kSmallPage, kFormat, kReading, &notes), ListPrinting(kSmallPage, kReading)}) {
        int openPages = 0;
        const PrintResult printed = PrintVerses(scripture, verses, options, PaperOf(openPages));
        Expect(printed == PrintResult::kPrinted && openPages == 0, "what is printed ends its last page");
    }
    const CopyText copy = CopyRangeText(scripture, kFormat, 0, kLastVerse, RangeCopyBudget(0, kLastVerse));
    Expect(copy.allocated && copy.text.size() <= RangeCopyBudget(0, kLastVerse), "a copy keeps to its budget");
    const TextFile nowhere{nullptr, [](void*, std::string_view) { return true; }};
    Expect(SaveListText(scripture, verses, nowhere) == TextSaveResult::kSaved, "a list is saved");
    CopyReferencesText(scripture.records, verses);
    const std::string words =
        PassageCopyText(scripture, kReading, true, {kPassageOwns, {0, 0}, {kLastVerse, 2}, false});
    Expect(SearchTextOf(words, kWordSearchScan).size() <= std::size_t{kSearchTextLimit}, "a search takes its text");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FilesInMemory files = FilesOf(TextOfInput(data, size));
    Scripture scripture;
    WordIndex index;
    const bool hasText = LoadScripture(DeviceOver(files), scripture);
    const IndexLoad loaded = LoadWordIndex(DeviceOver(files), index);
    CheckIndex(index);
    if (!hasText || loaded != IndexLoad::kLoaded) return 0;  // the program ends with a message then
    const FoundVerses some = SomeVerses(scripture);
    for (const int verse : some) {
        CheckText(scripture, verse);
        CheckPlaces(scripture.records, verse);
    }
    const LastSearch search = CheckSearches(scripture, index);
    FoundVerses verses;
    std::ranges::copy_if(some, std::back_inserter(verses), IsVerse);
    verses.insert(verses.end(), search.result.verses.begin(), search.result.verses.end());
    CheckPassages(scripture);
    CheckList(scripture, search.query, verses);
    CheckOutput(scripture, verses);
    return 0;
}
