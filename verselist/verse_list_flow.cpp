#include "verselist/verse_list_flow.h"

#include <algorithm>
#include <string>

#include "output/label_text.h"
#include "output/word_pieces.h"

static constexpr int kLeftMargin = 1;  // pixels

using ListVisitor = std::function<bool(const ListBoxPiece&)>;

// Where a walk stands.
struct ListWalk {
    const VerseListFlow& flow;
    const ListVisitor& visit;
    WordReader reader{};
    std::string marked{};  // the entry's text with its key words marked
    LabelText label{};
    int lineHeight = 1;
    int x = kLeftMargin;
    int y = 0;
    SelectionPoint point{};  // of the piece placed last
    int occurrences = 0;
    bool stopped = false;  // by the visitor
};

static BracketUse BracketsOf(const ReadingOptions& options) {
    if (options.Italics == kItalicType) return BracketUse::kItalicFace;
    return options.Italics == kBracketed ? BracketUse::kShown : BracketUse::kDropped;
}

static bool IsPastBottom(const ListWalk& walk) {
    return walk.y >= walk.flow.height;
}

static void Visit(ListWalk& walk, const ListBoxPiece& piece) {
    if (walk.visit && !walk.stopped) walk.stopped = !walk.visit(piece);
}

static void PlaceLabel(ListWalk& walk, int verse) {
    const VerseListFlow& flow = walk.flow;
    walk.label.size = 0;
    if (flow.notes != nullptr && NoteExists(*flow.noteFiles, *flow.notes, verse)) AppendText(walk.label, "*");
    AppendReference(walk.label, RecordOf(flow.scripture->records, verse));
    AppendText(walk.label, " ");
    const std::string_view text = TextOf(walk.label);
    const int width = flow.measure.width(flow.measure.device, Face::kBold, text);
    Visit(walk, {Face::kBold, false, walk.point, kLeftMargin, walk.y, width, true, false, text});
    walk.x = kLeftMargin + width;
}

static void OpenMarkedVerse(ListWalk& walk, int verse) {
    walk.marked = VerseText(*walk.flow.scripture, verse).substr(0, kMarkedTextLimit - 1);
    if (walk.flow.keyWords != nullptr) walk.occurrences += MarkKeyWords(*walk.flow.keyWords, walk.marked);
    OpenVerse(walk.reader, walk.marked);
}

static void VisitPieces(ListWalk& walk) {
    const bool endsEntry = HasVerseEnded(walk.reader);
    int x = walk.x;
    for (const WordPiece& piece : walk.reader.pieces) {
        const bool isLast = &piece == &walk.reader.pieces.back();
        Visit(walk,
              {piece.face, piece.keyWord, walk.point, x, walk.y, piece.width, isLast, isLast && endsEntry, piece.text});
        x += piece.width;
    }
}

static void PlaceWord(ListWalk& walk) {
    const int width = MeasureWord(walk.reader, walk.flow.measure);
    if (walk.x + width >= walk.flow.width) {
        walk.y += walk.lineHeight;
        walk.x = walk.lineHeight;  // the indent under the label
    }
    ++walk.point.word;
    if (walk.visit) VisitPieces(walk);
    walk.x += width;
}

static void PlaceEntry(ListWalk& walk, int entry) {
    const int verse = walk.flow.list->ListEntries[static_cast<std::size_t>(entry)];
    walk.point = {entry, 0};
    PlaceLabel(walk, verse);
    OpenMarkedVerse(walk, verse);
    while (!walk.stopped && !IsPastBottom(walk) && ReadWord(walk.reader)) PlaceWord(walk);
    walk.y += walk.lineHeight;
}

static ListFlowEnd WalkFrom(const VerseListFlow& flow, int top, const ListVisitor& visit) {
    ListWalk walk{flow, visit};
    walk.reader.brackets = BracketsOf(flow.options);
    walk.lineHeight = LineHeightOf(flow.measure);
    ListFlowEnd end{top, walk.lineHeight};
    for (int entry = top; entry < ListCount(*flow.list) && !walk.stopped && !IsPastBottom(walk); ++entry) {
        end.lastEntry = entry;
        PlaceEntry(walk, entry);
    }
    end.occurrences = walk.occurrences;
    return end;
}

ListFlowEnd WalkVerseList(const VerseListFlow& flow, const ListVisitor& visit) {
    return WalkFrom(flow, ClampEntry(*flow.list, flow.list->ListTop), visit);
}

void MeasureVerseList(const VerseListFlow& flow, VerseList& list) {
    const ListFlowEnd end = WalkFrom(flow, ClampEntry(list, list.ListTop), nullptr);
    list.ListLastVisible = end.lastEntry;
    list.LineHeight = end.lineHeight;
    CorrectLastVisible(list);
}

// A point, and the last piece on its line that lies left of it.
struct ListTarget {
    int x = 0, y = 0;
    int lineHeight = 0;
    SelectionPoint found{};
};

// True until the point is found. Right of a line's last piece that piece has the point, so the walk may go on until it
// has left the line.
static bool ComparePiece(ListTarget& target, const ListBoxPiece& piece) {
    if (piece.y > target.y) return false;
    if (target.y >= piece.y + target.lineHeight) return true;
    target.found = piece.point;
    return target.x > piece.x + piece.width;
}

SelectionPoint HitTestVerseList(const VerseListFlow& flow, int x, int y) {
    ListTarget target{std::max(x, 0), std::clamp(y, 0, std::max(0, flow.height - 1)), LineHeightOf(flow.measure)};
    WalkVerseList(flow, [&target](const ListBoxPiece& piece) { return ComparePiece(target, piece); });
    return target.found;
}

int ScrolledListTop(const VerseListFlow& flow, const VerseList& list, ScrollCode code, int thumb) {
    const int last = ListCount(list) - 1;
    const auto lastVisibleFrom = [&flow, last](int top) {
        return CorrectedLastVisible({top, WalkFrom(flow, top, nullptr).lastEntry, last});
    };
    return ScrolledTo({list.ListTop, list.ListLastVisible, last}, code, thumb, lastVisibleFrom);
}
