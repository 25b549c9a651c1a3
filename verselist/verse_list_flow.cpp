#include "verselist/verse_list_flow.h"

#include <algorithm>
#include <optional>

namespace {

struct ListWalk : FlowWalk {
    const VerseListFlow& flow;
    KnownEntries& known;
};

}  // namespace

static bool IsPastBottom(const ListWalk& walk) {
    return walk.line.y >= walk.flow.height;
}

static bool HasNote(const VerseListFlow& flow, int verse) {
    return flow.notes != nullptr && NoteExists(*flow.noteFiles, *flow.notes, verse);
}

static int VerseOfEntry(const ListWalk& walk, int entry) {
    return walk.flow.list->ListEntries[static_cast<std::size_t>(entry)];
}

// Forms the label and returns its width.
static int FormLabel(ListWalk& walk, int entry) {
    const int verse = VerseOfEntry(walk, entry);
    walk.label.size = 0;
    if (const EntrySets::Set* set = SetOfEntry(*walk.flow.list, entry)) AppendText(walk.label, set->label);
    if (HasNote(walk.flow, verse)) AppendText(walk.label, "*");
    AppendReference(walk.label, RecordOf(walk.flow.scripture->records, verse));
    AppendText(walk.label, " ");
    return LabelWidth(walk);
}

static EntryWords& WordsOf(ListWalk& walk, int verse) {
    const BracketUse brackets = BracketsOf(walk.flow.options, BracketUse::kItalicFace);
    return WordsOfEntry(walk.known, {*walk.flow.scripture, walk.flow.query, walk.measure, brackets}, verse);
}

static void VisitWord(ListWalk& walk, const EntryWords& entry, std::size_t firstPiece, const EntryWord& word) {
    const std::string_view text = entry.text;
    int x = walk.line.x;
    for (std::size_t at = firstPiece; at < word.endPiece; ++at) {
        const EntryPiece& piece = entry.pieces[at];
        const bool endsItem = at + 1 == entry.pieces.size() && &word == &entry.words.back();
        VisitBox(walk, {BoxKind::kWord, piece.face, piece.keyWord, walk.point, x, walk.line.y, piece.width, endsItem,
                        text.substr(piece.start, piece.size)});
        x += piece.width;
    }
}

static void PlaceWords(ListWalk& walk, const EntryWords& entry) {
    std::size_t firstPiece = 0;
    for (const EntryWord& word : entry.words) {
        if (walk.stopped || IsPastBottom(walk)) return;
        WrapBefore(walk.line, word.width);
        ++walk.point.word;
        if (walk.visit) VisitWord(walk, entry, firstPiece, word);
        walk.line.x += word.width;
        firstPiece = word.endPiece;
    }
}

static void PlaceEntry(ListWalk& walk, int entry) {
    const int verse = VerseOfEntry(walk, entry);
    walk.point = {entry, 0};
    walk.line.x = walk.flow.leftMargin;
    PlaceLabel(walk, BoxKind::kLabel, FormLabel(walk, entry));
    PlaceWords(walk, WordsOf(walk, verse));
    walk.line.y += walk.line.lineHeight;
}

static ListWalk BeginWalk(const VerseListFlow& flow, const FlowVisitor& visit, KnownEntries& known) {
    ListWalk walk{BeginFlow(flow.measure, visit, flow.width, flow.leftMargin), flow, known};
    walk.line.lineStart = walk.line.lineHeight;  // the indent under the label
    return walk;
}

static int WalkFrom(ListWalk& walk, int top) {
    int lastEntry = top;
    for (int entry = top; entry < ListCount(*walk.flow.list) && !walk.stopped && !IsPastBottom(walk); ++entry) {
        lastEntry = entry;
        PlaceEntry(walk, entry);
    }
    return lastEntry;
}

int WalkVerseList(const VerseListFlow& flow, const FlowVisitor& visit) {
    KnownEntries own;
    ListWalk walk = BeginWalk(flow, visit, flow.known != nullptr ? *flow.known : own);
    return WalkFrom(walk, ClampEntry(*flow.list, flow.list->ListTop));
}

namespace {

// A point to find, and the last box on its line so far.
struct ListTarget {
    int x = 0, y = 0;
    int lineHeight = 0;
    SelectionPoint found{};
};

}  // namespace

// Returns true until the point is found. A point to the right of a line's last box belongs to that box, so the walk may
// continue until it reaches the next line.
static bool CompareBox(ListTarget& target, const FlowBox& box) {
    if (box.y > target.y) return false;
    if (target.y >= box.y + target.lineHeight) return true;
    target.found = box.point;
    return target.x > box.x + box.width;
}

SelectionPoint HitTestVerseList(const VerseListFlow& flow, int x, int y) {
    ListTarget target{std::max(x, 0), std::clamp(y, 0, std::max(0, flow.height - 1)), LineHeightOf(flow.measure)};
    WalkVerseList(flow, [&target](const FlowBox& box) { return CompareBox(target, box); });
    return target.found;
}

// ---- Scrolling ------------------------------------------------------------------------------------------------------

static int CountLines(const ListWalk& walk, const EntryWords& entry, int labelWidth) {
    LineWalk line = walk.line;
    line.x = walk.flow.leftMargin + labelWidth;
    line.y = 0;
    for (const EntryWord& word : entry.words) {
        WrapBefore(line, word.width);
        line.x += word.width;
    }
    return line.y / line.lineHeight + 1;
}

// Of the whole entry. Each entry begins a line, so this does not depend on the top.
static int HeightOfEntry(ListWalk& walk, int entry) {
    const int verse = VerseOfEntry(walk, entry);
    const int labelWidth = FormLabel(walk, entry);
    EntryWords& words = WordsOf(walk, verse);
    EntryLines& counted = words.counted;
    if (counted.paneWidth != walk.flow.width || counted.labelWidth != labelWidth)
        counted = {walk.flow.width, labelWidth, CountLines(walk, words, labelWidth)};
    return counted.lines * walk.line.lineHeight;
}

namespace {

// The entries from a top to the last one with any text in the pane.
struct Page {
    int top = 0, last = 0;
    int lastY = 0;  // where that entry begins
};

}  // namespace

// As far as the entry `most`; what is below does not matter to the caller.
static Page PageFrom(ListWalk& walk, int top, int most) {
    Page page{top, top};
    while (page.last < most) {
        const int nextY = page.lastY + HeightOfEntry(walk, page.last);
        if (nextY >= walk.flow.height) break;
        page.lastY = nextY;
        ++page.last;
    }
    return page;
}

static void MoveUpOneEntry(ListWalk& walk, Page& page) {
    page.lastY += HeightOfEntry(walk, --page.top);
    while (page.last > page.top && page.lastY >= walk.flow.height) page.lastY -= HeightOfEntry(walk, --page.last);
}

// A page up asks for one top after the other, upwards, and whether the old top is the last visible entry or above it.
// So each entry is measured once, and none but the first of the old page.
int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb) {
    KnownEntries own;
    ListWalk walk = BeginWalk(flow, nullptr, flow.known != nullptr ? *flow.known : own);
    const int last = ListCount(list) - 1;
    std::optional<Page> page;
    const auto lastVisibleFrom = [&walk, &page, &list, last](int top) {
        if (page && page->top == top + 1) {
            MoveUpOneEntry(walk, *page);
        } else if (!page || page->top != top) {
            page = PageFrom(walk, top, std::min(list.ListTop + 1, last));
        }
        return CorrectedLastVisible({top, page->last, last});
    };
    return ScrolledTo({list.ListTop, list.ListLastVisible, last}, code, thumb, lastVisibleFrom);
}
