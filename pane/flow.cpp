// Shared by the two flows, which are in folders that do not include each other.
#include "pane/flow.h"

FlowWalk BeginFlow(const TextMeasure& measure, const FlowVisitor& visit, int width, BracketUse brackets) {
    FlowWalk walk{measure, visit};
    walk.line = {kLeftMargin, 0, kLeftMargin, width, LineHeightOf(measure)};
    walk.reader.brackets = brackets;
    return walk;
}

static void Visit(FlowWalk& walk, const FlowBox& box) {
    if (walk.visit && !walk.stopped) walk.stopped = !walk.visit(box);
}

int LabelWidth(const FlowWalk& walk) {
    return walk.measure.width(walk.measure.device, Face::kBold, TextOf(walk.label));
}

void PlaceLabel(FlowWalk& walk, BoxKind kind, int width) {
    Visit(walk, {kind, Face::kBold, false, walk.point, walk.line.x, walk.line.y, width, false, TextOf(walk.label)});
    walk.line.x += width;
}

void VisitWord(FlowWalk& walk) {
    const bool endsItem = HasVerseEnded(walk.reader);
    int x = walk.line.x;
    for (const WordPiece& piece : walk.reader.pieces) {
        const bool isLast = endsItem && &piece == &walk.reader.pieces.back();
        Visit(walk,
              {BoxKind::kWord, piece.face, piece.keyWord, walk.point, x, walk.line.y, piece.width, isLast, piece.text});
        x += piece.width;
    }
}
