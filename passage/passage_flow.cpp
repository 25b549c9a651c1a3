#include "passage/passage_flow.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "typeset/word_reader.h"

// ---- Position -------------------------------------------------------------------------------------------------------

void CorrectLastVisible(PassageView& view) {
    view.LastVisibleVerse = CorrectedLastVisible({view.TopVerse, view.LastVisibleVerse, kLastVerse});
}

int TargetVerse(const PassageView& view, const Selection& selection, bool passageHasFocus) {
    if (!passageHasFocus) return view.TopVerse;
    return FirstSelectedPlace(selection, kPassageOwns, view.TopVerse, view.LastVisibleVerse);
}

// ---- The walk -------------------------------------------------------------------------------------------------------

static constexpr std::string_view kParagraphIndent = "    ";

namespace {

// Widths of the words of each verse measured so far, by the address of its words in the text. With damaged records two
// verses can start at the same address and end at different ones, so the size tells which of them was measured.
struct KnownWords {
    std::size_t size = 0;
    std::vector<int> widths{};
};
using KnownWidths = std::unordered_map<const char*, KnownWords>;

struct PassageWalk : FlowWalk {
    const PassageFlow& flow;
    KnownWidths* known = nullptr;  // null: every word is measured; otherwise no box is visited
    WordReader reader{};
    std::string_view words{};  // of the current verse
    VerseRecord labelled{};    // verse of the last label
};

}  // namespace

static bool IsPastBottom(const PassageWalk& walk) {
    return walk.line.y >= walk.flow.height;
}

// Placed two lines below the last word, so that an empty line is above it.
static void PlaceHeading(PassageWalk& walk, const VerseRecord& record) {
    walk.label.size = 0;
    AppendHeading(walk.label, record);
    BreakLine(walk.line);
    BreakLine(walk.line);
    PlaceLabel(walk, BoxKind::kHeading, LabelWidth(walk));
    BreakLine(walk.line);
}

static bool HasNote(const PassageFlow& flow, int verse) {
    return flow.notes != nullptr && NoteExists(*flow.noteFiles, *flow.notes, verse);
}

static void FormLabel(PassageWalk& walk, const VerseRecord& record, bool indented) {
    const bool isTop = walk.point.place == walk.flow.topVerse;
    walk.label.size = 0;
    if (walk.flow.options.ParagraphFormat == 0) AppendText(walk.label, " ");
    if (indented) AppendText(walk.label, kParagraphIndent);
    if (HasNote(walk.flow, walk.point.place)) AppendText(walk.label, "*");
    if (isTop) {
        AppendReference(walk.label, record);
    } else {
        AppendNumber(walk.label, record.verse);
    }
    AppendText(walk.label, " ");
}

static void PlaceVerseLabel(PassageWalk& walk, const VerseRecord& record, bool indented) {
    FormLabel(walk, record, indented);
    const int width = LabelWidth(walk);
    if (walk.point.place != walk.flow.topVerse) WrapBefore(walk.line, width);
    PlaceLabel(walk, BoxKind::kLabel, width);
}

// Places heading, line break and label. The top verse gets only its label, so that it begins on the first line.
static void BeginVerse(PassageWalk& walk, int verse, const VerseRecord& record, std::string_view text) {
    const bool isTop = verse == walk.flow.topVerse;
    const bool inParagraphs = walk.flow.options.ParagraphFormat != 0;
    const bool indented = inParagraphs && BeginsParagraph(text);
    const bool newChapter = record.book != walk.labelled.book || record.chapter != walk.labelled.chapter;
    walk.point = {verse, 0};
    walk.labelled = record;
    if (!isTop && newChapter) PlaceHeading(walk, record);
    if (!isTop && (!inParagraphs || indented)) BreakLine(walk.line);
    PlaceVerseLabel(walk, record, indented);
    walk.words = indented ? text.substr(1) : text;  // the indent replaces the paragraph mark
}

// A new verse starts where the verse number changes; a record with the same number continues without a label.
static void PlaceVerseStart(PassageWalk& walk, int verse, const VerseRecord& record) {
    const std::string_view text = VerseText(*walk.flow.scripture, verse);
    if (verse == walk.flow.topVerse || record.verse != walk.labelled.verse) {
        BeginVerse(walk, verse, record, text);
    } else {
        walk.point.place = verse;
        walk.words = text;
    }
}

static void VisitWord(PassageWalk& walk) {
    const bool endsItem = HasVerseEnded(walk.reader);
    int x = walk.line.x;
    for (const WordPiece& piece : walk.reader.pieces) {
        const bool isLast = endsItem && &piece == &walk.reader.pieces.back();
        VisitBox(walk, {BoxKind::kWord, piece.face, piece.keyWord, walk.point, x, walk.line.y, piece.width, isLast,
                        piece.text});
        x += piece.width;
    }
}

// Places the word that was read last as the next ordinal, on a new line if it does not fit.
static void PlaceWord(PassageWalk& walk) {
    const int width = MeasureWord(walk.reader, walk.measure);
    WrapBefore(walk.line, width);
    ++walk.point.word;
    if (walk.visit) VisitWord(walk);
    walk.line.x += width;
}

static bool ReadAndPlaceWords(PassageWalk& walk) {
    OpenVerse(walk.reader, walk.words);
    while (!walk.stopped && !IsPastBottom(walk) && ReadWord(walk.reader)) PlaceWord(walk);
    return !walk.stopped && HasVerseEnded(walk.reader);
}

static const std::vector<int>& WidthsOfWords(PassageWalk& walk) {
    KnownWords& known = (*walk.known)[walk.words.data()];
    if (!known.widths.empty() && known.size == walk.words.size()) return known.widths;
    known = {walk.words.size()};
    OpenVerse(walk.reader, walk.words);
    while (ReadWord(walk.reader)) known.widths.push_back(MeasureWord(walk.reader, walk.measure));
    return known.widths;
}

static bool PlaceKnownWords(PassageWalk& walk) {
    for (const int width : WidthsOfWords(walk)) {
        if (IsPastBottom(walk)) return false;
        WrapBefore(walk.line, width);
        walk.line.x += width;
    }
    return true;
}

// True if all words of the verse were placed, false if the pane was full or the visitor stopped the walk.
static bool PlaceWords(PassageWalk& walk) {
    return walk.known != nullptr ? PlaceKnownWords(walk) : ReadAndPlaceWords(walk);
}

static int WalkFrom(PassageWalk& walk) {
    int lastVerse = walk.flow.topVerse;
    for (int verse = walk.flow.topVerse; verse <= kLastVerse; ++verse) {
        const VerseRecord record = RecordOf(walk.flow.scripture->records, verse);
        if (record.book == 0) break;
        PlaceVerseStart(walk, verse, record);
        if (walk.stopped || IsPastBottom(walk)) break;
        lastVerse = verse;
        if (!PlaceWords(walk)) break;
    }
    return lastVerse;
}

static int Walk(const PassageFlow& flow, const FlowVisitor& visit, KnownWidths* known) {
    PassageFlow clamped = flow;
    clamped.topVerse = ClampVerse(flow.topVerse);
    PassageWalk walk{BeginFlow(flow.measure, visit, flow.width, flow.leftMargin), clamped, known};
    walk.reader.brackets = BracketsOf(flow.options, BracketUse::kItalicFace);
    walk.reader.italicsFromWordStart = true;
    return WalkFrom(walk);
}

int WalkPassage(const PassageFlow& flow, const FlowVisitor& visit) {
    return Walk(flow, visit, nullptr);
}

// ---- Hit test -------------------------------------------------------------------------------------------------------

namespace {

// A point to find. It is compared with the boxes in layout order.
struct PassageTarget {
    const TextMeasure& measure;
    int x = 0, y = 0;
    int lineHeight = 0;
    bool versePerLine = false;
    SelectionPoint found{};
    SelectionPoint lastPoint{};  // of the box compared last
    int lastY = 0;
    int end = kLeftMargin;  // of that box, if all words on its line have the regular face
};

}  // namespace

static bool IsOnLine(const PassageTarget& target, int lineY) {
    return target.y >= lineY && target.y < lineY + target.lineHeight;
}

static int RegularWidth(const PassageTarget& target, const FlowBox& box) {
    if (box.face != Face::kItalic) return box.width;
    return target.measure.width(target.measure.device, Face::kRegular, box.text);
}

static int RegularEnd(const PassageTarget& target, const FlowBox& box) {
    const bool isFirst = box.y > target.lastY;
    return (isFirst ? box.x : target.end) + RegularWidth(target, box);
}

// A label also takes points above it, in the blank lines and the heading before its verse.
static bool LabelHas(const PassageTarget& target, const FlowBox& label) {
    return target.y < label.y || (IsOnLine(target, label.y) && target.x <= target.end);
}

// Points left of the word on its line need no check: earlier boxes have taken them.
static bool WordHas(const PassageTarget& target, const FlowBox& word) {
    const bool takesRest = word.endsItem && target.versePerLine;
    return IsOnLine(target, word.y) && (target.x <= target.end || takesRest);
}

// Returns true until the point is found.
static bool CompareBox(PassageTarget& target, const FlowBox& box) {
    if (box.kind == BoxKind::kHeading) return true;
    const bool isLabel = box.kind == BoxKind::kLabel;
    const bool brokeLine = !isLabel && box.y > target.lastY;
    target.end = RegularEnd(target, box);
    if (brokeLine && IsOnLine(target, target.lastY)) {
        target.found = target.lastPoint;
    } else if (isLabel ? LabelHas(target, box) : WordHas(target, box)) {
        target.found = box.point;
    }
    target.lastPoint = box.point;
    target.lastY = box.y;
    return target.found == SelectionPoint{};
}

SelectionPoint HitTestPassage(const PassageFlow& flow, int x, int y) {
    PassageTarget target{flow.measure, std::max(x, 0), std::clamp(y, 0, std::max(0, flow.height - 1)),
                         LineHeightOf(flow.measure), flow.options.ParagraphFormat == 0};
    WalkPassage(flow, [&target](const FlowBox& box) { return CompareBox(target, box); });
    return target.found;
}

// ---- Scrolling ------------------------------------------------------------------------------------------------------

// Page up lays out nearly the same verses again for each verse it steps back, so their words are measured only once.
int ScrolledTop(const PassageFlow& flow, const PassageView& view, ScrollCode code, int thumb) {
    PassageFlow trial = flow;
    KnownWidths known;
    const auto lastVisibleFrom = [&trial, &known](int top) {
        trial.topVerse = top;
        const int lastVerse = Walk(trial, nullptr, &known);
        return CorrectedLastVisible({top, lastVerse, kLastVerse});
    };
    return ScrolledTo({view.TopVerse, view.LastVisibleVerse, kLastVerse}, code, thumb, lastVisibleFrom);
}
