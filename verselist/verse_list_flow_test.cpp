#include "verselist/verse_list_flow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/support/even_letters.h"
#include "tests/support/hand_made_scripture.h"
#include "tests/support/native_scripture.h"
#include "tests/support/tries.h"

static constexpr HandMadeVerse kVerses[] = {
    {1, 1, 1, "\xB6One two three four."},
    {1, 1, 2, "And ([is] the [light]: so."},
    {43, 11, 35, "Jesus wept."},
};

// A flow and the data it refers to: 200 by 1000 pixels, all verses, italics in the italic face, no key words.
struct Pane {
    HandMadeFiles files;
    Scripture scripture;
    NoteFiles noteFiles{};
    NoteSets notes{};
    Query query{};
    VerseList list{};
    VerseListFlow flow{};
};

static void OpenPane(Pane& pane, std::span<const HandMadeVerse> verses) {
    pane.files = MakeFiles(verses);
    pane.scripture = ScriptureOf(pane.files);
    for (int verse = 0; verse < static_cast<int>(verses.size()); ++verse) pane.list.ListEntries.push_back(verse);
    pane.flow.scripture = &pane.scripture;
    pane.flow.measure = EvenLetters();
    pane.flow.list = &pane.list;
    pane.flow.width = 200;
    pane.flow.height = 1000;
}

static void MarkWords(Pane& pane, std::vector<std::string> words, bool substring = false) {
    pane.query.words = std::move(words);
    pane.query.substring = substring;
    pane.flow.query = &pane.query;
}

// As the window does for each paint.
static void LayOut(const VerseListFlow& flow, VerseList& list) {
    list.ListLastVisible = WalkVerseList(flow, nullptr);
    CorrectLastVisible(list);
}

struct VerseListFlowTest : testing::Test {
    Pane pane;
    VerseListFlow& flow = pane.flow;
    VerseList& list = pane.list;
    void SetUp() override { OpenPane(pane, kVerses); }
};

using Strings = std::vector<std::string>;

// "x,y r:text", where the letter is the face: r, b, i or z (bold italic), in upper case for a key word.
static Strings Pieces(const VerseListFlow& flow) {
    Strings pieces;
    WalkVerseList(flow, [&pieces](const FlowBox& piece) {
        const char face = (piece.keyWord ? "RBIZ" : "rbiz")[static_cast<std::size_t>(piece.face)];
        std::string text = std::to_string(piece.x) + "," + std::to_string(piece.y) + " " + face + ":";
        pieces.push_back(text.append(piece.text));
        return true;
    });
    return pieces;
}

TEST_F(VerseListFlowTest, ContinuationLinesAreIndented) {
    EXPECT_EQ(Pieces(flow), (Strings{"1,0 b:Ge 1:1 ", "71,0 r:\xB6 ", "91,0 r:One ", "131,0 r:two ",
                                     "20,20 r:three ",  // indented by a line height
                                     "80,20 r:four. ", "1,40 b:Ge 1:2 ", "71,40 r:And ",
                                     "111,40 r:(",  // punctuation before a bracket is upright
                                     "121,40 i:is", "141,40 r: ", "151,40 r:the ", "20,60 i:light", "70,60 r:: ",
                                     "90,60 r:so. ", "1,80 b:Joh 11:35 ", "101,80 r:Jesus ", "20,100 r:wept. "}));
}

TEST_F(VerseListFlowTest, WrapsAWordThatReachesTheRightEdge) {
    list.ListTop = 2;
    struct Row {
        int width;
        const char* second;
    };
    const Row rows[] = {{222, "161,0 r:wept. "}, {221, "20,20 r:wept. "}, {220, "20,20 r:wept. "}};  // it ends at 221
    for (const Row& row : rows) {
        flow.width = row.width;
        EXPECT_EQ(Pieces(flow)[2], row.second) << row.width;
    }
}

struct ItalicsRow {
    int italics;
    Strings words;
};

TEST(VerseListItalics, FollowTheirMode) {
    const HandMadeVerse verses[] = {{1, 1, 1, "([is] [of light]: so"}};
    Pane pane;
    OpenPane(pane, verses);
    pane.flow.width = 1000;
    MarkWords(pane, {"is", "light"});
    const Strings dropped = {"71,0 r:(",      "81,0 B:is",  "101,0 r: ",  "111,0 r:of ",
                             "141,0 B:light", "191,0 r:: ", "211,0 r:so "};
    const ItalicsRow rows[] = {
        {0, {"71,0 r:(", "81,0 Z:is", "101,0 r: ", "111,0 i:of ", "141,0 Z:light", "191,0 r:: ", "211,0 r:so "}},
        {1, {"71,0 r:([", "91,0 B:is", "111,0 r:] ", "131,0 r:[of ", "171,0 B:light", "221,0 r:]: ", "251,0 r:so "}},
        {2, dropped},
        {3, dropped},  // invalid settings
        {-1, dropped},
    };
    for (const ItalicsRow& row : rows) {
        pane.flow.options.Italics = static_cast<std::int8_t>(row.italics);
        Strings words = Pieces(pane.flow);
        words.erase(words.begin());  // the label
        EXPECT_EQ(words, row.words) << "italics " << row.italics;
    }
}

TEST(VerseListKeyWords, AreMarkedWithoutTheirBraces) {
    struct Row {
        const char* text;
        Strings words;
        bool substring;
        Strings pieces;
    };
    const Row rows[] = {
        {"the end of", {"end"}, false, {"71,0 r:the ", "111,0 B:end", "141,0 r: ", "151,0 r:of "}},
        {"the end, of", {"end", "end"}, false, {"71,0 r:the ", "111,0 B:end", "141,0 r:, ", "161,0 r:of "}},
        {"Jehovah", {"h"}, true, {"71,0 r:Je", "91,0 B:h", "101,0 r:ova", "131,0 B:h", "141,0 r: "}},
        {"the end", {}, false, {"71,0 r:the ", "111,0 r:end "}},
    };
    for (const Row& row : rows) {
        const HandMadeVerse verses[] = {{1, 1, 1, row.text}};
        Pane pane;
        OpenPane(pane, verses);
        pane.flow.width = 1000;
        MarkWords(pane, row.words, row.substring);
        Strings pieces = Pieces(pane.flow);
        pieces.erase(pieces.begin());
        EXPECT_EQ(pieces, row.pieces) << row.text;
    }
}

TEST(VerseListKeyWords, StayWithinTheLimitOfMarkedText) {
    const std::string manyLetters(3900, 'e');
    const std::string tooLong(5000, 'x');
    const HandMadeVerse verses[] = {{1, 1, 1, manyLetters}, {1, 1, 2, tooLong}};
    Pane pane;
    OpenPane(pane, verses);
    MarkWords(pane, {"e"}, true);
    std::vector<std::string> texts(2);
    int marked = 0;
    WalkVerseList(pane.flow, [&](const FlowBox& piece) {
        if (piece.point.word > 0) texts[static_cast<std::size_t>(piece.point.place)] += piece.text;
        marked += piece.keyWord ? 1 : 0;
        return true;
    });
    EXPECT_EQ(marked, 49);  // two bytes each of the 99 that are left
    EXPECT_EQ(texts[0], manyLetters + " ");
    EXPECT_EQ(texts[1], std::string(3999, 'x') + " ");
}

TEST(VerseListLabels, HaveAStarForANote) {
    Pane pane;
    OpenPane(pane, kVerses);
    pane.notes.sets = {{"My Notes.nmd", {0, 1, 9, 10}}};  // the second verse has one
    pane.flow.notes = &pane.notes;
    pane.flow.noteFiles = &pane.noteFiles;
    Strings labels;
    WalkVerseList(pane.flow, [&labels](const FlowBox& piece) {
        if (piece.point.word == 0) labels.emplace_back(piece.text);
        return true;
    });
    EXPECT_EQ(labels, (Strings{"Ge 1:1 ", "*Ge 1:2 ", "Joh 11:35 "}));
}

TEST_F(VerseListFlowTest, LabelsOfNotesHaveTheirSetsInFront) {
    list.sets = {{{"Mine", "Mine: "}, {"Sermons", "Sermons: "}}, {1, 0, 1}, 0};
    Strings labels;
    WalkVerseList(flow, [&labels](const FlowBox& box) {
        if (box.point.word == 0) labels.emplace_back(box.text);
        return true;
    });
    EXPECT_EQ(labels, (Strings{"Sermons: Ge 1:1 ", "Mine: Ge 1:2 ", "Sermons: Joh 11:35 "}));
}

TEST_F(VerseListFlowTest, BoxesTellWhereEntriesEnd) {
    Strings entries;
    WalkVerseList(flow, [&](const FlowBox& box) {
        if (box.endsItem) entries.emplace_back(box.text);
        return true;
    });
    EXPECT_EQ(entries, (Strings{"four. ", "so. ", "wept. "}));
}

TEST_F(VerseListFlowTest, VisitorCanStopTheWalk) {
    for (const char* where : {"Ge 1:1 ", "One ", "is", "Joh 11:35 "}) {
        Strings seen;
        WalkVerseList(flow, [&](const FlowBox& piece) {
            seen.emplace_back(piece.text);
            return piece.text != where;
        });
        EXPECT_EQ(seen.back(), where);
    }
}

TEST_F(VerseListFlowTest, LastVisibleEntryBeginsInThePane) {
    struct Row {
        int top, height, last;
    };
    const Row rows[] = {{0, 0, 0},   {0, 40, 0}, {0, 41, 1}, {0, 80, 1}, {0, 81, 2},
                        {0, 900, 2}, {1, 40, 1}, {2, 40, 2}, {2, 0, 2}};
    for (const Row& row : rows) {
        list.ListTop = row.top;
        flow.height = row.height;
        EXPECT_EQ(WalkVerseList(flow, nullptr), row.last) << row.top << ", " << row.height;
    }
}

TEST_F(VerseListFlowTest, MeasuringUpdatesTheList) {
    flow.height = 41;
    LayOut(flow, list);
    EXPECT_EQ(list.ListLastVisible, 1);
    flow.height = 20;  // one entry fills the pane
    LayOut(flow, list);
    EXPECT_EQ(list.ListLastVisible, 1);
    list.ListTop = 2;
    LayOut(flow, list);
    EXPECT_EQ(list.ListLastVisible, 2);
}

TEST_F(VerseListFlowTest, HitTestFindsLabelsAndWords) {
    struct Row {
        int x, y;
        SelectionPoint point;
    };
    const Row rows[] = {
        {0, 0, {0, 0}},                          //
        {71, 19, {0, 0}},                        // the right edge belongs to the box
        {72, 0, {0, 1}},                         // the paragraph mark is a word
        {171, 0, {0, 3}},                        //
        {172, 0, {0, 3}},                        // after the last box of a wrapped line
        {0, 20, {0, 4}},                         // the indent belongs to the first word of the line
        {80, 39, {0, 4}},                        //
        {81, 39, {0, 5}},                        //
        {199, 39, {0, 5}},                       // right of the entry's last word
        {71, 40, {1, 0}},                        //
        {112, 40, {1, 2}},                       // every piece of a word belongs to the word
        {130, 40, {1, 2}},                       //
        {151, 40, {1, 2}},                       //
        {152, 40, {1, 3}},                       //
        {199, 59, {1, 3}},                       //
        {30, 60, {1, 4}},                        //
        {91, 60, {1, 5}},                        //
        {199, 80, {2, 1}},                       //
        {199, 119, {2, 2}},                      //
        {0, 120, {-1, -1}},                      // below the last entry
        {199, 900, {-1, -1}}, {-9, -9, {0, 0}},  // outside: the nearest box at the edge
        {5000, 30, {0, 5}},   {5, 5000, {-1, -1}},
    };
    for (const Row& row : rows) {
        const SelectionPoint point = HitTestVerseList(flow, row.x, row.y);
        EXPECT_EQ(point.place, row.point.place) << row.x << ", " << row.y;
        EXPECT_EQ(point.word, row.point.word) << row.x << ", " << row.y;
    }
}

TEST_F(VerseListFlowTest, LabelCanBeTheLastBoxOfALine) {
    flow.width = 90;
    EXPECT_EQ(HitTestVerseList(flow, 89, 5), (SelectionPoint{0, 0}));
}

TEST_F(VerseListFlowTest, EmptyListHasNoPieces) {
    ClearVerseList(list);
    EXPECT_TRUE(Pieces(flow).empty());
    EXPECT_EQ(HitTestVerseList(flow, 5, 5), SelectionPoint{});
    LayOut(flow, list);
    EXPECT_EQ(list.ListLastVisible, -1);
    for (const ScrollCode code :
         {ScrollCode::kLineUp, ScrollCode::kLineDown, ScrollCode::kPageUp, ScrollCode::kPageDown, ScrollCode::kThumb})
        EXPECT_EQ(ScrolledListTop(flow, list, code, 3), 0);
}

// Every seventh verse of the real text, with a common word marked.
static void OpenRealPane(Pane& pane, int italics) {
    OpenPane(pane, {});
    pane.scripture = TheRealScripture();
    for (int verse = 0; verse < kVerseCount; verse += 7) pane.list.ListEntries.push_back(verse);
    pane.flow.options.Italics = static_cast<std::int8_t>(italics);
    pane.flow.width = 700;
    pane.flow.height = 420;
    MarkWords(pane, {"the", "e"}, true);
}

TEST(RealVerseList, ShowsEveryEntryWithoutBraces) {
    for (const int italics : {0, 1, 2}) {
        Pane pane;
        OpenRealPane(pane, italics);
        pane.flow.height = 1 << 30;
        std::vector<std::string> texts(pane.list.ListEntries.size());
        WalkVerseList(pane.flow, [&texts](const FlowBox& piece) {
            if (piece.point.word > 0) texts[static_cast<std::size_t>(piece.point.place)] += piece.text;
            return true;
        });
        for (std::size_t entry = 0; entry < texts.size(); ++entry) {
            std::string text(VerseText(pane.scripture, pane.list.ListEntries[entry]));
            if (italics != kBracketed) std::erase_if(text, [](char byte) { return byte == '[' || byte == ']'; });
            if (BeginsParagraph(text)) text.insert(1, " ");
            ASSERT_EQ(texts[entry], text + ' ');
        }
    }
}

static int LastVisibleFrom(Pane& pane, int top) {
    pane.list.ListTop = top;
    LayOut(pane.flow, pane.list);
    return pane.list.ListLastVisible;
}

TEST(RealVerseList, EveryBoxIsHitWhereItIsPainted) {
    Pane pane;
    OpenRealPane(pane, kItalicType);
    pane.flow.measure = ItalicLetters<7>();
    for (const int width : {700, 333}) {
        pane.flow.width = width;
        for (pane.list.ListTop = 0; pane.list.ListTop < ListCount(pane.list); pane.list.ListTop += Tried(97, 307)) {
            std::vector<FlowBox> boxes;
            WalkVerseList(pane.flow, [&boxes](const FlowBox& box) {
                if (box.y < 420) boxes.push_back(box);
                return true;
            });
            for (const FlowBox& box : boxes) {
                for (const int x : {box.x + 1, box.x + box.width})
                    ASSERT_EQ(HitTestVerseList(pane.flow, x, box.y + 10), box.point) << "top " << pane.list.ListTop;
            }
        }
    }
}

TEST(RealVerseList, PageUpShowsTheOldTopLastIfPossible) {
    Pane pane;
    OpenRealPane(pane, kItalicType);
    const int last = ListCount(pane.list) - 1;
    int shownLast = 0, tried = 0;
    for (const int step : {1, 2, 10, 11, 500, 501, 1777, 2900, last - 1, last}) {
        LastVisibleFrom(pane, step);
        const int newTop = ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageUp, 0);
        ASSERT_LT(newTop, step);
        const int lastVisible = LastVisibleFrom(pane, newTop);
        if (newTop > 0) {
            EXPECT_LE(lastVisible, step);
            EXPECT_LT(LastVisibleFrom(pane, newTop - 1), step) << "an earlier top shows it too";
            ++tried;
            shownLast += lastVisible == step ? 1 : 0;
        }
    }
    EXPECT_GT(shownLast, tried / 2);
}

TEST(RealVerseList, ScrollsByLinesPagesAndThumb) {
    Pane pane;
    OpenRealPane(pane, kItalicType);
    const int last = ListCount(pane.list) - 1;
    struct Row {
        int top;
        ScrollCode code;
        int thumb, newTop;
    };
    const Row rows[] = {
        {0, ScrollCode::kLineUp, 0, 0},         {5, ScrollCode::kLineUp, 0, 4},
        {5, ScrollCode::kLineDown, 0, 6},       {last, ScrollCode::kLineDown, 0, last},
        {last, ScrollCode::kPageDown, 0, last}, {0, ScrollCode::kPageUp, 0, 0},
        {5, ScrollCode::kThumb, 77, 77},        {5, ScrollCode::kThumb, 32000, last},
        {5, ScrollCode::kThumb, -1, 0},
    };
    for (const Row& row : rows) {
        LastVisibleFrom(pane, row.top);
        EXPECT_EQ(ScrolledListTop(pane.flow, pane.list, row.code, row.thumb), row.newTop) << row.top;
    }
    const int shown = LastVisibleFrom(pane, 5);
    EXPECT_EQ(ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageDown, 0), shown);
}
