// Properties of the Passage that are checked for every verse of the real text.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "passage/passage_flow.h"
#include "tests/support/even_letters.h"
#include "tests/support/native_scripture.h"
#include "tests/support/tries.h"

static PassageFlow RealFlow(int italics, bool paragraphs) {
    PassageFlow flow;
    flow.scripture = &TheRealScripture();
    flow.measure = EvenLetters();
    flow.options.Italics = static_cast<std::int8_t>(italics);
    flow.options.ParagraphFormat = paragraphs;
    flow.width = 700;
    flow.height = 420;
    return flow;
}

struct LaidOutVerse {
    int lastWord = 0;
    std::string text;  // of all its words
};

// The whole Bible in one pane.
static std::vector<LaidOutVerse> LayOutAll(PassageFlow flow) {
    flow.height = 1 << 30;
    std::vector<LaidOutVerse> verses(kVerseCount);
    WalkPassage(flow, [&verses](const FlowBox& box) {
        if (box.kind != BoxKind::kWord) return true;
        LaidOutVerse& verse = verses[static_cast<std::size_t>(box.point.place)];
        EXPECT_TRUE(box.point.word == verse.lastWord || box.point.word == verse.lastWord + 1);
        verse.lastWord = box.point.word;
        verse.text += box.text;
        return true;
    });
    return verses;
}

// The words of a verse as shown in an italics mode.
static std::string ExpectedText(int verse, int italics, bool paragraphs) {
    std::string text(VerseText(TheRealScripture(), verse));
    if (italics != kBracketed) std::erase_if(text, [](char byte) { return byte == '[' || byte == ']'; });
    if (BeginsParagraph(text)) text.replace(0, 1, paragraphs ? "" : "\xB6 ");
    return text + ' ';
}

static int WordsIn(const std::string& text) {
    return static_cast<int>(std::ranges::count(text, ' '));
}

TEST(RealPassage, ShowsEveryVerseAndCountsWordsConsistently) {
    for (const int italics : {0, 1, 2}) {
        for (const bool paragraphs : {false, true}) {
            const PassageFlow flow = RealFlow(italics, paragraphs);
            const std::vector<LaidOutVerse> painted = LayOutAll(flow);
            for (int verse = 0; verse < kVerseCount; ++verse) {
                const auto at = static_cast<std::size_t>(verse);
                ASSERT_EQ(painted[at].text, ExpectedText(verse, italics, paragraphs)) << "verse " << verse;
                ASSERT_EQ(painted[at].lastWord, WordsIn(painted[at].text)) << "verse " << verse;
            }
        }
    }
}

// Top verses throughout the Bible, including both ends.
static std::vector<int> SomeTops() {
    std::vector<int> tops = {0, 1, 2, 30, 31, 31080, 31099, 31100, 31101};
    for (int top = 40; top < kVerseCount; top += 613) tops.push_back(top);
    return tops;
}

static std::vector<FlowBox> PaintedBoxes(const PassageFlow& flow) {
    std::vector<FlowBox> boxes;
    WalkPassage(flow, [&boxes](const FlowBox& box) {
        if (box.kind != BoxKind::kHeading && box.y < 420) boxes.push_back(box);
        return true;
    });
    return boxes;
}

TEST(RealPassage, EveryBoxIsHitAtItsPosition) {
    for (const bool paragraphs : {false, true}) {
        PassageFlow flow = RealFlow(kItalicType, paragraphs);
        for (const int top : SomeTops()) {
            flow.topVerse = top;
            for (const FlowBox& box : PaintedBoxes(flow)) {
                for (const int x : {box.x + 1, box.x + box.width / 2, box.x + box.width}) {
                    const int y = std::min(box.y + 1 + x % 18, flow.height - 1);
                    ASSERT_EQ(HitTestPassage(flow, x, y), box.point) << "top " << top << " at " << x << ", " << y;
                }
            }
        }
    }
}

TEST(RealPassage, EveryPointOfAFullPaneHitsABox) {
    for (const bool paragraphs : {false, true}) {
        PassageFlow flow = RealFlow(kItalicType, paragraphs);
        for (const int top : {0, 29, 1000, 20000}) {
            flow.topVerse = top;
            for (int y = 0; y < flow.height; y += 19)
                for (int x = 0; x < flow.width; x += 13)
                    ASSERT_GE(HitTestPassage(flow, x, y).place, top) << "at " << x << ", " << y;
        }
    }
}

// ---- Lines ----------------------------------------------------------------------------------------------------------

struct LineEnds {
    SelectionPoint first, last;
    bool operator==(const LineEnds&) const = default;
};

// The words at both ends of each line of the pane, as the mouse should find them: an empty line and a heading belong to
// the label below, and in paragraphs so does the rest of a line before a label.
static std::vector<LineEnds> EndsOfPaintedLines(const PassageFlow& flow) {
    std::vector<FlowBox> boxes;
    WalkPassage(flow, [&boxes](const FlowBox& box) {
        if (box.kind != BoxKind::kHeading) boxes.push_back(box);
        return true;
    });
    const bool inParagraphs = flow.options.ParagraphFormat != 0;
    std::vector<LineEnds> lines;
    auto box = boxes.begin();
    for (int y = 0; y < flow.height; y += 20) {
        const auto next = std::ranges::find_if(box, boxes.end(), [y](const FlowBox& later) { return later.y > y; });
        const SelectionPoint below = next != boxes.end() ? next->point : SelectionPoint{};
        const bool endsHere = next == boxes.end() || next->kind == BoxKind::kLabel;
        const bool isEmpty = box == next;
        lines.push_back(
            {isEmpty ? below : box->point, isEmpty || (inParagraphs && endsHere) ? below : std::prev(next)->point});
        box = next;
    }
    return lines;
}

static std::vector<LineEnds> EndsOfLinesHit(const PassageFlow& flow) {
    static constexpr int kFarRight = 5000;
    std::vector<LineEnds> lines;
    for (int y = 0; y < flow.height; y += 20)
        lines.push_back({HitTestPassage(flow, 0, y), HitTestPassage(flow, kFarRight, y)});
    return lines;
}

struct LinesRow {
    TextMeasure measure;
    int width;
    bool paragraphs;
};

// Both ends of every line of the Bible, a page after the other, or on every fourth page.
TEST(RealPassage, EveryLineIsHitWhereItIsPainted) {
    const LinesRow rows[] = {
        {ItalicLetters<7>(), 604, false},
        {ItalicLetters<8>(), 331, true},
        {ItalicLetters<13>(), 450, false},
        {ItalicLetters<11>(), 1100, true},
    };
    for (const LinesRow& row : rows) {
        PassageFlow flow = RealFlow(kItalicType, row.paragraphs);
        flow.measure = row.measure;
        flow.width = row.width;
        flow.height = 300;
        for (int page = 0; flow.topVerse < kLastVerse; ++page) {
            if (page % Tried(1, 4) == 0) {
                ASSERT_EQ(EndsOfLinesHit(flow), EndsOfPaintedLines(flow))
                    << row.width << " wide, from " << flow.topVerse;
            }
            flow.topVerse = std::max(flow.topVerse + 1, WalkPassage(flow, nullptr));
        }
    }
}

// ---- Scrolling ------------------------------------------------------------------------------------------------------

static PassageView Measured(PassageFlow flow, int top) {
    flow.topVerse = top;
    PassageView view = {top, WalkPassage(flow, nullptr)};
    CorrectLastVisible(view);
    return view;
}

TEST(RealPassage, PageUpShowsTheOldTopLastIfPossible) {
    int shownLast = 0;
    for (const bool paragraphs : {false, true}) {
        PassageFlow flow = RealFlow(kItalicType, paragraphs);
        flow.measure = ItalicLetters<7>();
        for (const int oldTop : SomeTops()) {
            const int newTop = ScrolledTop(flow, Measured(flow, oldTop), ScrollCode::kPageUp, 0);
            if (oldTop == 0) {
                EXPECT_EQ(newTop, 0);
                continue;
            }
            ASSERT_LT(newTop, oldTop) << "page up always moves";
            const int lastVisible = Measured(flow, newTop).LastVisibleVerse;
            if (newTop > 0) {
                EXPECT_LT(Measured(flow, newTop - 1).LastVisibleVerse, oldTop) << "an earlier top shows it too";
                EXPECT_LE(lastVisible, oldTop);
            }
            if (lastVisible == oldTop) ++shownLast;
            // If no top verse shows the old one last, the next top verse must show more than the old one.
            if (lastVisible < oldTop) {
                EXPECT_GT(Measured(flow, newTop + 1).LastVisibleVerse, oldTop);
            }
        }
    }
    EXPECT_GT(shownLast, static_cast<int>(SomeTops().size()));  // more than half of all cases
}

TEST(RealPassage, ScrollsByLinesPagesAndThumb) {
    const PassageFlow flow = RealFlow(kItalicType, false);
    struct Row {
        int top;
        ScrollCode code;
        int thumb, newTop;
    };
    const Row rows[] = {
        {0, ScrollCode::kLineUp, 0, 0},           {1, ScrollCode::kLineUp, 0, 0},
        {31101, ScrollCode::kLineDown, 0, 31101}, {31100, ScrollCode::kLineDown, 0, 31101},
        {31101, ScrollCode::kPageDown, 0, 31101}, {31099, ScrollCode::kPageDown, 0, 31101},
        {7, ScrollCode::kThumb, 31101, 31101},    {7, ScrollCode::kThumb, 40000, 31101},
        {7, ScrollCode::kThumb, -5, 0},           {7, ScrollCode::kThumb, 12, 12},
    };
    for (const Row& row : rows)
        EXPECT_EQ(ScrolledTop(flow, Measured(flow, row.top), row.code, row.thumb), row.newTop) << row.top;
}

TEST(RealPassage, PageDownReachesTheEndPastTallVerses) {
    PassageFlow flow = RealFlow(kItalicType, true);
    flow.width = 160;
    flow.height = 60;  // three lines, so that nearly every verse is taller
    int top = 31000;
    for (int pages = 0; top < kLastVerse; ++pages) {
        ASSERT_LT(pages, 200);
        const int next = ScrolledTop(flow, Measured(flow, top), ScrollCode::kPageDown, 0);
        ASSERT_GT(next, top);
        top = next;
    }
}

TEST(RealPassage, ChecksForANoteOncePerVerse) {
    // Only for the note of the last verse the size of the file is needed, so these calls can be counted.
    int questions = 0;
    NoteFiles files;
    files.device = &questions;
    files.size = [](void* device, const std::string&) -> std::uint64_t {
        ++*static_cast<int*>(device);
        return 31109;
    };
    NoteSets notes;
    notes.sets = {{"My Notes.nmd", std::vector<std::uint32_t>(kVerseCount)}};
    for (std::size_t verse = 0; verse < notes.sets[0].offsets.size(); ++verse)
        notes.sets[0].offsets[verse] = static_cast<std::uint32_t>(verse);
    PassageFlow flow = RealFlow(kItalicType, false);
    flow.notes = &notes;
    flow.noteFiles = &files;
    flow.topVerse = kLastVerse;
    std::string label;
    WalkPassage(flow, [&label](const FlowBox& box) {
        if (box.kind == BoxKind::kLabel) label = box.text;
        return true;
    });
    EXPECT_EQ(label, " *Re 22:21 ");
    EXPECT_EQ(questions, 1);
}
