#include "passage/passage_flow.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "output/label_text.h"
#include "output/word_pieces.h"

static constexpr int kLeftMargin = 1;  // pixels
static constexpr std::string_view kParagraphIndent = "    ";

using PassageVisitor = std::function<bool(const FlowBox&)>;

// Widths of the words of each verse measured so far, by where its words begin in the text.
using KnownWidths = std::unordered_map<const char*, std::vector<int>>;

// Where a walk stands.
struct PassageWalk {
    const PassageFlow& flow;
    const PassageVisitor& visit;
    KnownWidths* known = nullptr;  // none: every word is measured; else no box is visited
    WordReader reader{};
    std::string_view words{};  // of the verse that was begun last
    LabelText label{};         // or heading
    int lineHeight = 1;
    int x = kLeftMargin;
    int y = 0;
    SelectionPoint point{};  // of the box placed last
    VerseRecord labelled{};  // verse of the last label
    bool stopped = false;    // by the visitor
};

static BracketUse BracketsOf(const ReadingOptions& options, FlowFaces faces) {
    if (options.Italics == kBracketed) return BracketUse::kShown;
    const bool italic = options.Italics == kItalicType && faces == FlowFaces::kAsPainted;
    return italic ? BracketUse::kItalicFace : BracketUse::kDropped;
}

static bool IsPastBottom(const PassageWalk& walk) {
    return walk.y >= walk.flow.height;
}

static void Wrap(PassageWalk& walk) {
    walk.x = kLeftMargin;
    walk.y += walk.lineHeight;
}

static void WrapBefore(PassageWalk& walk, int width) {
    if (walk.x + width >= walk.flow.width) Wrap(walk);
}

static void Visit(PassageWalk& walk, const FlowBox& box) {
    if (walk.visit && !walk.stopped) walk.stopped = !walk.visit(box);
}

static int WidthInBold(const PassageWalk& walk, std::string_view text) {
    return walk.flow.measure.width(walk.flow.measure.device, Face::kBold, text);
}

// Two lines on from the last word, so that one stays empty above.
static void PlaceHeading(PassageWalk& walk, const VerseRecord& record) {
    walk.label.size = 0;
    AppendHeading(walk.label, record);
    Wrap(walk);
    Wrap(walk);
    const std::string_view text = TextOf(walk.label);
    const int width = WidthInBold(walk, text);
    Visit(walk, {BoxKind::kHeading, Face::kBold, walk.point, walk.x, walk.y, width, false, text});
    Wrap(walk);
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

static void PlaceLabel(PassageWalk& walk, const VerseRecord& record, bool indented) {
    FormLabel(walk, record, indented);
    const std::string_view text = TextOf(walk.label);
    const int width = WidthInBold(walk, text);
    if (walk.point.place != walk.flow.topVerse) WrapBefore(walk, width);
    Visit(walk, {BoxKind::kLabel, Face::kBold, walk.point, walk.x, walk.y, width, false, text});
    walk.x += width;
}

// Heading, line break and label, and the verse's text opened behind them. The top verse stands at the very top.
static void BeginVerse(PassageWalk& walk, int verse, const VerseRecord& record, std::string_view text) {
    const bool isTop = verse == walk.flow.topVerse;
    const bool inParagraphs = walk.flow.options.ParagraphFormat != 0;
    const bool indented = inParagraphs && BeginsParagraph(text);
    const bool newChapter = record.book != walk.labelled.book || record.chapter != walk.labelled.chapter;
    walk.point = {verse, 0};
    walk.labelled = record;
    if (!isTop && newChapter) PlaceHeading(walk, record);
    if (!isTop && (!inParagraphs || indented)) Wrap(walk);
    PlaceLabel(walk, record, indented);
    walk.words = indented ? text.substr(1) : text;  // the indent stands for the paragraph mark
}

static void VisitPieces(PassageWalk& walk) {
    const bool endsVerse = HasVerseEnded(walk.reader);
    int x = walk.x;
    for (const WordPiece& piece : walk.reader.pieces) {
        const bool isLast = endsVerse && &piece == &walk.reader.pieces.back();
        Visit(walk, {BoxKind::kWord, piece.face, walk.point, x, walk.y, piece.width, isLast, piece.text});
        x += piece.width;
    }
}

static void PlaceWord(PassageWalk& walk) {
    const int width = MeasureWord(walk.reader, walk.flow.measure);
    WrapBefore(walk, width);
    ++walk.point.word;
    if (walk.visit) VisitPieces(walk);
    walk.x += width;
}

// The next verse is told by a change of the verse number; one of the same number runs on without a label.
static void PlaceVerseStart(PassageWalk& walk, int verse, const VerseRecord& record) {
    const std::string_view text = VerseText(*walk.flow.scripture, verse);
    if (verse == walk.flow.topVerse || record.verse != walk.labelled.verse) {
        BeginVerse(walk, verse, record, text);
    } else {
        walk.point.place = verse;
        walk.words = text;
    }
}

static bool ReadAndPlaceWords(PassageWalk& walk) {
    OpenVerse(walk.reader, walk.words);
    while (!walk.stopped && !IsPastBottom(walk) && ReadWord(walk.reader)) PlaceWord(walk);
    return !walk.stopped && HasVerseEnded(walk.reader);
}

static const std::vector<int>& WidthsOfWords(PassageWalk& walk) {
    const auto [place, isNew] = walk.known->try_emplace(walk.words.data());
    if (!isNew) return place->second;
    OpenVerse(walk.reader, walk.words);
    while (ReadWord(walk.reader)) place->second.push_back(MeasureWord(walk.reader, walk.flow.measure));
    return place->second;
}

static bool PlaceKnownWords(PassageWalk& walk) {
    for (const int width : WidthsOfWords(walk)) {
        if (IsPastBottom(walk)) return false;
        WrapBefore(walk, width);
        walk.x += width;
    }
    return true;
}

// True when all words of the verse were placed, false when there was no room or the visitor stopped the walk.
static bool PlaceWords(PassageWalk& walk) {
    return walk.known != nullptr ? PlaceKnownWords(walk) : ReadAndPlaceWords(walk);
}

static FlowEnd WalkFrom(PassageWalk& walk) {
    FlowEnd end{walk.flow.topVerse, walk.lineHeight};
    for (int verse = walk.flow.topVerse; verse <= kLastVerse; ++verse) {
        const VerseRecord record = RecordOf(walk.flow.scripture->records, verse);
        if (record.book == 0) break;
        PlaceVerseStart(walk, verse, record);
        if (walk.stopped || IsPastBottom(walk)) break;
        end.lastVerse = verse;
        if (!PlaceWords(walk)) break;
    }
    return end;
}

static FlowEnd Walk(const PassageFlow& flow, FlowFaces faces, const PassageVisitor& visit, KnownWidths* known) {
    PassageFlow clamped = flow;
    clamped.topVerse = ClampVerse(flow.topVerse);
    PassageWalk walk{clamped, visit, known};
    walk.reader.brackets = BracketsOf(flow.options, faces);
    walk.reader.italicsFromWordStart = true;
    walk.lineHeight = LineHeightOf(flow.measure);
    return WalkFrom(walk);
}

FlowEnd WalkPassage(const PassageFlow& flow, FlowFaces faces, const PassageVisitor& visit) {
    return Walk(flow, faces, visit, nullptr);
}

void MeasurePassage(const PassageFlow& flow, PassageView& view) {
    const FlowEnd end = WalkPassage(flow, FlowFaces::kAsMeasured, nullptr);
    view = {ClampVerse(flow.topVerse), end.lastVerse, end.lineHeight};
    CorrectLastVisible(view);
}

// A point that is compared with the boxes in layout order until one has it.
struct PassageTarget {
    int x = 0, y = 0;
    int lineHeight = 0;
    bool versePerLine = false;
    SelectionPoint found{};
    SelectionPoint lastPoint{};  // of the box compared last
    int lastY = 0;
};

static bool IsOnLine(const PassageTarget& target, int lineY) {
    return target.y >= lineY && target.y < lineY + target.lineHeight;
}

// A label takes what lies above it too: the blank lines and the heading before its verse.
static bool LabelHas(const PassageTarget& target, const FlowBox& label) {
    return target.y < label.y || (IsOnLine(target, label.y) && target.x <= label.x + label.width);
}

// What lies left of the word on its line has been caught by the boxes there.
static bool WordHas(const PassageTarget& target, const FlowBox& word) {
    const bool takesRest = word.endsVerse && target.versePerLine;
    return IsOnLine(target, word.y) && (target.x <= word.x + word.width || takesRest);
}

// True until the point is found.
static bool CompareBox(PassageTarget& target, const FlowBox& box) {
    if (box.kind == BoxKind::kHeading) return true;
    const bool isLabel = box.kind == BoxKind::kLabel;
    const bool brokeLine = !isLabel && box.y > target.lastY;
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
    PassageTarget target{std::max(x, 0), std::clamp(y, 0, std::max(0, flow.height - 1)), LineHeightOf(flow.measure),
                         flow.options.ParagraphFormat == 0};
    WalkPassage(flow, FlowFaces::kAsMeasured, [&target](const FlowBox& box) { return CompareBox(target, box); });
    return target.found;
}

// A page up lays out nearly the same verses once a verse stepped over; their words are measured once.
int ScrolledTop(const PassageFlow& flow, const PassageView& view, ScrollCode code, int thumb) {
    PassageFlow trial = flow;
    KnownWidths known;
    const auto lastVisibleFrom = [&trial, &known](int top) {
        trial.topVerse = top;
        const FlowEnd end = Walk(trial, FlowFaces::kAsMeasured, nullptr, &known);
        return CorrectedLastVisible({top, end.lastVerse, kLastVerse});
    };
    return ScrolledTo({view.TopVerse, view.LastVisibleVerse, kLastVerse}, code, thumb, lastVisibleFrom);
}
