#include "search/near_search.h"

#include <gtest/gtest.h>

#include "search/query.h"
#include "search/text_kinds.h"
#include "tests/support/hand_made_index.h"

static const std::string kAroundText(kAround, 'x');

// Long texts at the ends, because those between are swept.
static const HandMadeVerse kVerses[] = {
    {1, 1, 1, kAroundText},  // 0
    {1, 1, 2,
     "\xB6"
     "Faith and hope, and faith."},                                                  // 1
    {1, 1, 3, "Hope is Faith's [own] hope"},                                         // 2
    {1, 1, 4, "Jesus wept."},                                                        // 3
    {1, 1, 5, "The faithful loved; and loving is lovely. Beth-el is far, my hope"},  // 4
    {1, 2, 1, "Faith comes first"},                                                  // 5
    {1, 2, 2, "of all. LORD, Lord; lord! The Lord's end"},                           // 6
    {1, 2, 3, "a b a c a b"},                                                        // 7
    {1, 2, 4, "-- ; --"},                                                            // 8
    {1, 2, 5, "c b"},                                                                // 9
    {1, 3, 1, kAroundText},                                                          // 10
};

namespace {

struct SmallBible {
    HandMadeFiles files = MakeFiles(kVerses);
    FilesInMemory indexFiles = MakeIndexFiles(kVerses);
    Scripture scripture = ScriptureOf(files);
    WordIndex index = IndexOf(indexFiles);
};

enum Flags { kPlain = 0, kCase = 1, kParts = 2, kOrder = 4 };

struct NearRow {
    const char* text;
    NearUnit unit;
    int distance;
    int flags;
    std::vector<std::string> marked;  // the verses that are found
    int occurrences;
    SearchRange range = {};
};

}  // namespace

static NearQuery QueryOf(const NearRow& row) {
    SearchState search;
    search.searchText = row.text;
    search.options.CaseSensitive = (row.flags & kCase) != 0;
    search.options.SubString = (row.flags & kParts) != 0;
    search.nearOptions = {row.unit, row.distance, (row.flags & kOrder) != 0};
    search.range = row.range;
    return NearQueryOf(search).nearQuery;
}

static void ExpectRow(const Scripture& scripture, const WordIndex& index, const NearRow& row) {
    SCOPED_TRACE(std::string(row.text) + ", unit " + std::to_string(row.unit) + ", distance " +
                 std::to_string(row.distance) + ", flags " + std::to_string(row.flags));
    const NearQuery query = QueryOf(row);
    const SearchResult result = SearchNear(scripture, index, query);
    std::vector<std::string> marked;
    int marks = 0;
    for (const std::int32_t verse : result.verses) {
        std::string& text = marked.emplace_back(VerseText(scripture, verse));
        marks += MarkNearWords(scripture, query, verse, text);
    }
    EXPECT_EQ(marked, row.marked);
    EXPECT_EQ(result.occurrences, row.occurrences);
    EXPECT_EQ(marks, row.occurrences);
}

static void ExpectRows(std::span<const NearRow> rows) {
    const SmallBible bible;
    Scripture withKinds = bible.scripture;
    withKinds.textKinds = FindTextKinds(withKinds);
    for (const NearRow& row : rows) {
        ExpectRow(bible.scripture, bible.index, row);
        ExpectRow(withKinds, bible.index, row);
    }
}

TEST(NearSearch, CountsTheWordsBetween) {
    static const NearRow kRows[] = {
        {"faith hope", kNearInWords, 1, kPlain, {}, 0},
        {"faith hope", kNearInWords, 2, kPlain, {"\xB6{Faith} and {hope}, and {faith}."}, 3},
        {"faith and", kNearInWords, 1, kPlain, {"\xB6{Faith} {and} hope, {and} {faith}."}, 4},
        {"hope faith and", kNearInWords, 2, kPlain, {"\xB6{Faith} {and} {hope}, {and} {faith}."}, 5},
        {"Faith hope", kNearInWords, 2, kCase, {"\xB6{Faith} and {hope}, and faith."}, 2},
        {"hope own", kNearInWords, 1, kPlain, {"Hope is Faith's [{own}] {hope}"}, 2},
        {"hope own", kNearInWords, 3, kPlain, {"{Hope} is Faith's [{own}] {hope}"}, 3},
        {"the my",
         kNearInWords,
         11,
         kPlain,
         {"{The} faithful loved; and loving is lovely. Beth-el is far, {my} hope"},
         2},
        {"the my", kNearInWords, 10, kPlain, {}, 0},
        {"own jesus", kNearInWords, 50, kPlain, {}, 0},  // in the next verse
    };
    ExpectRows(kRows);
}

TEST(NearSearch, StaysInOneVerse) {
    static const NearRow kRows[] = {
        {"faith hope", kNearInVerse, 50, kPlain, {"\xB6{Faith} and {hope}, and {faith}."}, 3},
        {"hope faith",
         kNearInVerse,
         0,
         kOrder,
         {"\xB6"
          "Faith and {hope}, and {faith}."},
         2},
        {"faith's hope", kNearInVerse, 0, kOrder, {"Hope is {Faith's} [own] {hope}"}, 2},
        {"faith wept", kNearInVerse, 50, kPlain, {}, 0},
    };
    ExpectRows(kRows);
}

TEST(NearSearch, ReachesOverVerses) {
    static const NearRow kRows[] = {
        {"wept hope",
         kNearInVerses,
         1,
         kPlain,
         {"{Hope} is Faith's [own] {hope}", "Jesus {wept}.",
          "The faithful loved; and loving is lovely. Beth-el is far, my {hope}"},
         4},
        {"wept hope",
         kNearInVerses,
         1,
         kOrder,
         {"Jesus {wept}.", "The faithful loved; and loving is lovely. Beth-el is far, my {hope}"},
         2},
        {"faith wept", kNearInVerses, 1, kPlain, {}, 0},
        {"faith wept", kNearInVerses, 2, kPlain, {"\xB6{Faith} and hope, and {faith}.", "Jesus {wept}."}, 3},
        {"far comes", kNearInVerses, 10, kPlain, {}, 0},  // another chapter
        {"wept hope",
         kNearInVerses,
         1,
         kPlain,
         {"Jesus {wept}.", "The faithful loved; and loving is lovely. Beth-el is far, my {hope}"},
         2,
         {3, 10}},
    };
    ExpectRows(kRows);
}

TEST(NearSearch, KeepsTheOrderTyped) {
    static const NearRow kRows[] = {
        {"a b c", kNearInWords, 3, kOrder, {"{a} {b} a {c} a b"}, 3},
        {"c a b", kNearInWords, 2, kOrder, {"a b a {c} {a} {b}"}, 3},
        {"b a", kNearInWords, 1, kOrder, {"a {b} {a} c a b"}, 2},
        {"b b", kNearInVerse, 0, kOrder, {"a {b} a c a {b}"}, 2},
        {"a b a", kNearInVerse, 0, kOrder, {"{a} {b} {a} c {a} b"}, 4},
    };
    ExpectRows(kRows);
}

TEST(NearSearch, NeedsAWordForEachThatIsTyped) {
    static const NearRow kRows[] = {
        {"b b", kNearInVerse, 0, kPlain, {"a {b} a c a {b}"}, 2},
        {"b b b", kNearInVerse, 0, kPlain, {}, 0},
        {"a a", kNearInWords, 2, kPlain, {"{a} b {a} c {a} b"}, 3},
        // One of the two means both words, the other one only "loved": either finds its own.
        {"lov* loved",
         kNearInVerse,
         0,
         kPlain,
         {"The faithful {loved}; and {loving} is {lovely}. Beth-el is far, my hope"},
         3},
        {"loved lov* loved", kNearInVerse, 0, kPlain, {}, 0},
        {"?aith faith*", kNearInWords, 4, kPlain, {"\xB6{Faith} and hope, and {faith}."}, 2},
        {"?aith faith*",
         kNearInVerses,
         1,
         kPlain,
         {"\xB6{Faith} and hope, and {faith}.", "Hope is {Faith's} [own] hope"},
         3},
    };
    ExpectRows(kRows);
}

TEST(NearSearch, FindsWholeWordsOrParts) {
    static const NearRow kRows[] = {
        {"lord", kNearInVerse, 0, kPlain, {"of all. {LORD}, {Lord}; {lord}! The Lord's end"}, 3},
        {"Lord", kNearInVerse, 0, kCase, {"of all. LORD, {Lord}; lord! The Lord's end"}, 1},
        {"Lord", kNearInVerse, 0, kCase | kParts, {"of all. LORD, {Lord}; lord! The {Lord's} end"}, 2},
        {"lord*", kNearInVerse, 0, kPlain, {"of all. {LORD}, {Lord}; {lord}! The {Lord's} end"}, 4},
        {"beth el",
         kNearInWords,
         1,
         kOrder,
         {"The faithful loved; and loving is lovely. {Beth}-{el} is far, my hope"},
         2},
        {"ov ful",
         kNearInWords,
         1,
         kParts,
         {"The {faithful} {loved}; and loving is lovely. Beth-el is far, my hope"},
         2},
        {"faith?*",
         kNearInVerse,
         0,
         kPlain,
         {"Hope is {Faith's} [own] hope", "The {faithful} loved; and loving is lovely. Beth-el is far, my hope"},
         2},
        {"nosuchword", kNearInVerse, 0, kPlain, {}, 0},
        {"faith nosuchword", kNearInVerses, 10, kPlain, {}, 0},
        {"", kNearInWords, 5, kPlain, {}, 0},
        {"a a a a a a a a a a a", kNearInVerses, 10, kPlain, {}, 0},  // too many
    };
    ExpectRows(kRows);
}

TEST(NearSearch, MarksNoMoreThanFits) {
    std::string text;
    while (text.size() < 3990) text += "ab ";
    const HandMadeVerse verses[] = {{1, 1, 1, text}};
    const HandMadeFiles files = MakeFiles(verses);
    FilesInMemory indexFiles = MakeIndexFiles(verses);
    const Scripture scripture = ScriptureOf(files);
    const WordIndex index = IndexOf(indexFiles);
    const NearQuery query = QueryOf({"ab", kNearInVerse, 0, kPlain, {}, 0});
    EXPECT_EQ(SearchNear(scripture, index, query).occurrences, 1330);
    std::string marked = text;
    EXPECT_EQ(MarkNearWords(scripture, query, 0, marked), 4);
    EXPECT_EQ(marked.substr(0, 22), "{ab} {ab} {ab} {ab} ab");
    EXPECT_EQ(marked.size(), text.size() + 8);
}
