#include "verselist/verse_list_flow.h"

#include <algorithm>
#include <string>

#include "search/key_word_marks.h"

namespace {

struct ListWalk : FlowWalk {
    const VerseListFlow& flow;
    std::string marked{};  // the entry's text with its key words marked
};

}  // namespace

static bool IsPastBottom(const ListWalk& walk) {
    return walk.line.y >= walk.flow.height;
}

static bool HasNote(const VerseListFlow& flow, int verse) {
    return flow.notes != nullptr && NoteExists(*flow.noteFiles, *flow.notes, verse);
}

static void PlaceEntryLabel(ListWalk& walk, int verse) {
    walk.label.size = 0;
    if (HasNote(walk.flow, verse)) AppendText(walk.label, "*");
    AppendReference(walk.label, RecordOf(walk.flow.scripture->records, verse));
    AppendText(walk.label, " ");
    walk.line.x = kLeftMargin;
    PlaceLabel(walk, BoxKind::kLabel, LabelWidth(walk));
}

static void OpenMarkedVerse(ListWalk& walk, int verse) {
    walk.marked = VerseText(*walk.flow.scripture, verse).substr(0, kMarkedTextLimit - 1);
    if (walk.flow.query != nullptr) MarkKeyWords(*walk.flow.query, walk.marked);
    OpenVerse(walk.reader, walk.marked);
}

static void PlaceEntry(ListWalk& walk, int entry) {
    const int verse = walk.flow.list->ListEntries[static_cast<std::size_t>(entry)];
    walk.point = {entry, 0};
    PlaceEntryLabel(walk, verse);
    OpenMarkedVerse(walk, verse);
    while (!walk.stopped && !IsPastBottom(walk) && ReadWord(walk.reader)) PlaceWord(walk);
    walk.line.y += walk.line.lineHeight;
}

static int WalkFrom(const VerseListFlow& flow, int top, const FlowVisitor& visit) {
    const BracketUse brackets = BracketsOf(flow.options, BracketUse::kItalicFace);
    ListWalk walk{BeginFlow(flow.measure, visit, flow.width, brackets), flow};
    walk.line.lineStart = walk.line.lineHeight;  // the indent under the label
    int lastEntry = top;
    for (int entry = top; entry < ListCount(*flow.list) && !walk.stopped && !IsPastBottom(walk); ++entry) {
        lastEntry = entry;
        PlaceEntry(walk, entry);
    }
    return lastEntry;
}

int WalkVerseList(const VerseListFlow& flow, const FlowVisitor& visit) {
    return WalkFrom(flow, ClampEntry(*flow.list, flow.list->ListTop), visit);
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

int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb) {
    const int last = ListCount(list) - 1;
    const auto lastVisibleFrom = [&flow, last](int top) {
        return CorrectedLastVisible({top, WalkFrom(flow, top, nullptr), last});
    };
    return ScrolledTo({list.ListTop, list.ListLastVisible, last}, code, thumb, lastVisibleFrom);
}
