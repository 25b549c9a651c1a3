// Shared by the two flows, which are in folders that do not include each other.
#include "pane/flow.h"

FlowWalk BeginFlow(const TextMeasure& measure, const FlowVisitor& visit, int width, int leftMargin) {
    FlowWalk walk{measure, visit};
    walk.line = {leftMargin, 0, leftMargin, width, LineHeightOf(measure)};
    return walk;
}

int LabelWidth(const FlowWalk& walk) {
    return walk.measure.width(walk.measure.device, Face::kBold, TextOf(walk.label));
}

void PlaceLabel(FlowWalk& walk, BoxKind kind, int width) {
    VisitBox(walk, {kind, Face::kBold, false, walk.point, walk.line.x, walk.line.y, width, false, TextOf(walk.label)});
    walk.line.x += width;
}
