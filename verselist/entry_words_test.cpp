// The layout with kept words is compared with a plain one that marks, reads and measures each entry anew.
#include "verselist/entry_words.h"

#include <gtest/gtest.h>

#include <random>

#include "search/key_word_marks.h"
#include "tests/support/even_letters.h"
#include "tests/support/native_scripture.h"
#include "verselist/verse_list_flow.h"

namespace {

struct PlainBox {
    SelectionPoint point;
    int x = 0, y = 0, width = 0;
    Face face = Face::kBold;
    bool keyWord = false, endsItem = false;
    std::string text;
    bool operator==(const PlainBox&) const = default;
};

void PrintTo(const PlainBox& box, std::ostream* out) {
    *out << box.point.place << "." << box.point.word << " at " << box.x << "," << box.y << " '" << box.text << "'";
}

struct PlainLayout {
    std::vector<PlainBox> boxes;
    int lastEntry = 0;
};

struct Rng {
    std::mt19937 engine;
    int Below(int end) { return static_cast<int>(engine() % static_cast<unsigned>(end)); }
};

struct Pane {
    NoteFiles noteFiles{};
    NoteSets notes{};
    Query query{};
    VerseList list{};
    KnownEntries known{};
    VerseListFlow flow{};
};

}  // namespace

static std::string PlainLabel(const VerseListFlow& flow, int verse) {
    const bool hasNote = NoteExists(*flow.noteFiles, *flow.notes, verse);
    return (hasNote ? "*" : "") + ReferenceText(flow.scripture->records, verse, BookForm::kAbbreviation) + " ";
}

static PlainLayout LayOutPlainly(const VerseListFlow& flow, int top) {
    const int lineHeight = LineHeightOf(flow.measure);
    LineWalk line{1, 0, lineHeight, flow.width, lineHeight};
    PlainLayout layout{{}, top};
    for (int entry = top; entry < ListCount(*flow.list) && line.y < flow.height; ++entry, line.y += lineHeight) {
        const int verse = flow.list->ListEntries[static_cast<std::size_t>(entry)];
        const std::string label = PlainLabel(flow, verse);
        const int labelWidth = flow.measure.width(flow.measure.device, Face::kBold, label);
        layout.lastEntry = entry;
        layout.boxes.push_back({{entry, 0}, 1, line.y, labelWidth, Face::kBold, false, false, label});
        line.x = 1 + labelWidth;
        std::string marked(VerseText(*flow.scripture, verse));
        MarkKeyWords(*flow.query, marked);
        WordReader reader;
        reader.brackets = BracketsOf(flow.options, BracketUse::kItalicFace);
        OpenVerse(reader, marked);
        for (int word = 1; line.y < flow.height && ReadWord(reader); ++word) {
            WrapBefore(line, MeasureWord(reader, flow.measure));
            for (const WordPiece& piece : reader.pieces) {
                const bool ends = HasVerseEnded(reader) && &piece == &reader.pieces.back();
                layout.boxes.push_back({{entry, word},
                                        line.x,
                                        line.y,
                                        piece.width,
                                        piece.face,
                                        piece.keyWord,
                                        ends,
                                        std::string(piece.text)});
                line.x += piece.width;
            }
        }
    }
    return layout;
}

static PlainLayout LayOut(const VerseListFlow& flow) {
    PlainLayout layout;
    layout.lastEntry = WalkVerseList(flow, [&layout](const FlowBox& box) {
        layout.boxes.push_back(
            {box.point, box.x, box.y, box.width, box.face, box.keyWord, box.endsItem, std::string(box.text)});
        return true;
    });
    return layout;
}

static int PlainPageUp(const VerseListFlow& flow) {
    const int last = ListCount(*flow.list) - 1;
    const VerseList& list = *flow.list;
    return ScrolledTo({list.ListTop, list.ListLastVisible, last}, ScrollCode::kPageUp, 0, [&flow, last](int top) {
        return CorrectedLastVisible({top, LayOutPlainly(flow, top).lastEntry, last});
    });
}

static void TakeSomeQuery(Pane& pane, Rng& rng) {
    static constexpr const char* kTexts[] = {"the", "lord god", "e th", "in the beginning", ""};
    const QueryKind kind = rng.Below(2) == 0 ? QueryKind::kWords : QueryKind::kPhrase;
    pane.query = QueryOf(kTexts[rng.Below(5)], {kAnyWord, 0, rng.Below(2), 0}, kind);
    pane.known = {};
}

static void TakeSomeList(Pane& pane, Rng& rng) {
    std::vector<std::int32_t> verses;
    for (int verse = rng.Below(kVerseCount), count = 1 + rng.Below(400); count > 0; --count) {
        verses.push_back(verse);
        verse = (verse + 1 + rng.Below(9)) % kVerseCount;
    }
    FillVerseList(pane.list, verses);
}

// A note for a third of the verses, others each time.
static void TakeSomeNotes(Pane& pane, Rng& rng) {
    const auto rest = static_cast<std::uint32_t>(rng.Below(3));
    NoteSet set{"Mine.nmd", std::vector<std::uint32_t>(kVerseCount)};
    for (std::uint32_t verse = 0; verse < kVerseCount; ++verse) set.offsets[verse] = 2 * ((verse + rest) / 3);
    pane.notes.sets.assign(1, set);
}

static void ChangeSomething(Pane& pane, Rng& rng) {
    switch (rng.Below(6)) {
        case 0: pane.flow.width = 60 + rng.Below(900); break;
        case 1: pane.flow.height = rng.Below(900); break;
        case 2: pane.flow.options.Italics = static_cast<std::int8_t>(rng.Below(3)); break;
        case 3: TakeSomeQuery(pane, rng); break;
        case 4: TakeSomeList(pane, rng); break;
        case 5: TakeSomeNotes(pane, rng); break;
    }
}

TEST(EntryWords, GiveTheLayoutsOfAPlainWalk) {
    Rng rng{std::mt19937(7)};
    Pane pane;
    pane.noteFiles.size = [](void*, const std::string&) -> std::uint64_t { return 1u << 30; };
    TakeSomeNotes(pane, rng);
    TakeSomeList(pane, rng);
    pane.flow = {.scripture = &TheRealScripture(),
                 .noteFiles = &pane.noteFiles,
                 .notes = &pane.notes,
                 .query = &pane.query,
                 .measure = ItalicLetters<7>(),
                 .list = &pane.list,
                 .width = 500,
                 .height = 400,
                 .known = &pane.known};
    int pagesUp = 0;
    for (int round = 0; round < 600; ++round) {
        ChangeSomething(pane, rng);
        pane.list.ListTop = rng.Below(ListCount(pane.list));
        const PlainLayout plain = LayOutPlainly(pane.flow, pane.list.ListTop), laidOut = LayOut(pane.flow);
        ASSERT_EQ(laidOut.boxes, plain.boxes) << "round " << round;
        ASSERT_EQ(laidOut.lastEntry, plain.lastEntry) << "round " << round;
        pane.list.ListLastVisible = laidOut.lastEntry;
        CorrectLastVisible(pane.list);
        const int top = ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageUp, 0);
        ASSERT_EQ(top, PlainPageUp(pane.flow)) << "round " << round;
        pagesUp += top < pane.list.ListTop ? 1 : 0;
    }
    EXPECT_GT(pagesUp, 300);
}

TEST(EntryWords, AreMadeOnceAndAreNotTooMany) {
    static int measured;
    measured = 0;
    const TextMeasure counting{nullptr,
                               [](void*, Face, std::string_view text) {
                                   ++measured;
                                   return static_cast<int>(text.size());
                               },
                               nullptr};
    KnownEntries known;
    const EntryMaking making{TheRealScripture(), nullptr, counting, BracketUse::kShown};
    WordsOfEntry(known, making, 0);
    const int once = measured;
    EXPECT_EQ(once, static_cast<int>(WordsOfEntry(known, making, 0).pieces.size()));
    EXPECT_EQ(measured, once);
    WordsOfEntry(known, {making.scripture, nullptr, counting, BracketUse::kDropped}, 0);
    EXPECT_EQ(measured, 2 * once) << "with other brackets they are others";
    for (int verse = 0; verse < 3 * static_cast<int>(kMostKnownEntries); ++verse) {
        WordsOfEntry(known, making, verse);
        ASSERT_LE(known.byVerse.size(), kMostKnownEntries);
    }
}

// Of a page up, one page is measured anew.
TEST(EntryWords, OfAPageUpAreThoseOfOnePage) {
    static int words;
    Pane pane;
    pane.flow = {
        .scripture = &TheRealScripture(), .list = &pane.list, .width = 700, .height = 900, .known = &pane.known};
    pane.flow.measure = {nullptr,
                         [](void*, Face, std::string_view text) {
                             words += text.ends_with(' ') ? 1 : 0;
                             return 10 * static_cast<int>(text.size());
                         },
                         [](void*) { return 20; }};
    for (int verse = 0; verse < 2000; ++verse) pane.list.ListEntries.push_back(verse);
    pane.list.ListTop = 1000;
    words = 0;
    pane.list.ListLastVisible = WalkVerseList(pane.flow, nullptr);
    const int ofOnePage = words;
    words = 0;
    EXPECT_LT(ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageUp, 0), 999);
    EXPECT_LE(words, ofOnePage + ofOnePage / 4);
}
