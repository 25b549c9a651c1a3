#include "typeset/text_runs.h"

#include <algorithm>
#include <functional>

std::string_view TextOf(const TextRuns& text, const PlacedRun& run) {
    return std::string_view(text.text).substr(run.textStart, run.textLength);
}

void AddPiece(TextRuns& text, bool joins, Face face, TextColor color, int x, int y, int width, std::string_view piece) {
    if (joins && !text.runs.empty()) {
        PlacedRun& last = text.runs.back();
        if (last.face == face && last.color == color && last.y == y && last.end == x) {
            text.text += piece;
            last.textLength += piece.size();
            last.end += width;
            return;
        }
    }
    text.runs.push_back({face, color, x, y, x + width, text.text.size(), piece.size()});
    text.text += piece;
}

void Clear(TextRuns& text) {
    text.runs.clear();
    text.text.clear();
}

static std::size_t FirstRunFrom(const TextRuns& text, int top) {
    const auto place = std::ranges::partition_point(text.runs, [top](const PlacedRun& run) { return run.y < top; });
    return static_cast<std::size_t>(place - text.runs.begin());
}

RunSpan RunsBetween(const TextRuns& text, int top, int bottom) {
    return {FirstRunFrom(text, top), FirstRunFrom(text, bottom)};
}

// ---- Lines that move ------------------------------------------------------------------------------------------------

namespace {

struct Line {
    RunSpan runs;
    std::size_t hash = 0;  // of its text; 0 if it is empty
};

}  // namespace

// The text of a line is in one piece, because its runs follow each other.
static std::string_view TextOf(const TextRuns& text, const RunSpan& runs) {
    if (runs.first == runs.end) return {};
    const PlacedRun &first = text.runs[runs.first], &last = text.runs[runs.end - 1];
    return std::string_view(text.text).substr(first.textStart, last.textStart + last.textLength - first.textStart);
}

static std::vector<Line> LinesOf(const TextRuns& text, int lineHeight, int count) {
    std::vector<Line> lines(static_cast<std::size_t>(count));
    for (int line = 0; line < count; ++line) {
        Line& each = lines[static_cast<std::size_t>(line)];
        each.runs = RunsBetween(text, line * lineHeight, (line + 1) * lineHeight);
        const std::string_view words = TextOf(text, each.runs);
        if (!words.empty()) each.hash = std::hash<std::string_view>{}(words);
    }
    return lines;
}

static bool IsSame(const PlacedRun& run, const PlacedRun& other) {
    return run.face == other.face && run.color == other.color && run.x == other.x && run.end == other.end &&
           run.textLength == other.textLength;
}

static bool AreSame(const TextRuns& before, const Line& line, const TextRuns& after, const Line& other) {
    if (line.hash != other.hash || line.runs.end - line.runs.first != other.runs.end - other.runs.first) return false;
    const auto run = before.runs.begin(), otherRun = after.runs.begin();
    return std::equal(run + static_cast<std::ptrdiff_t>(line.runs.first),
                      run + static_cast<std::ptrdiff_t>(line.runs.end),
                      otherRun + static_cast<std::ptrdiff_t>(other.runs.first), IsSame) &&
           TextOf(before, line.runs) == TextOf(after, other.runs);
}

namespace {

// Both texts, cut into lines.
struct TwoTexts {
    const TextRuns &before, &after;
    std::vector<Line> linesBefore, linesAfter;
    int count = 0;  // of the lines in the pane; of the last one, a part may be outside
};

// Lines that are the same, and how many of them have text.
struct Stretch {
    MovedLines lines;
    int withText = 0;
};

}  // namespace

static const Line& LineAt(const std::vector<Line>& lines, int line) {
    return lines[static_cast<std::size_t>(line)];
}

// The stretch from the line `to` on that was `by` lines lower before.
static Stretch StretchFrom(const TwoTexts& texts, int to, int by) {
    Stretch stretch{{to + by, to, 0}};
    for (int line = to; line < texts.count && line + by < texts.count; ++line) {
        const Line &before = LineAt(texts.linesBefore, line + by), &after = LineAt(texts.linesAfter, line);
        if (!AreSame(texts.before, before, texts.after, after)) break;
        ++stretch.lines.count;
        stretch.withText += after.hash != 0 ? 1 : 0;
    }
    return stretch;
}

static Stretch LongestStretch(const TwoTexts& texts) {
    Stretch longest;
    for (int by = 1 - texts.count; by < texts.count; ++by) {
        if (by == 0) continue;
        for (int to = std::max(0, -by); to < texts.count && to + by < texts.count;) {
            const Stretch stretch = StretchFrom(texts, to, by);
            if (stretch.withText > longest.withText) longest = stretch;
            to += stretch.lines.count + 1;
        }
    }
    return longest;
}

MovedLines LinesMoved(const TextRuns& before, const TextRuns& after, int lineHeight, int height) {
    const int count = (height + lineHeight - 1) / lineHeight;
    if (count <= 0 || before.runs.empty()) return {};
    const TwoTexts texts{before, after, LinesOf(before, lineHeight, count), LinesOf(after, lineHeight, count), count};
    const Stretch longest = LongestStretch(texts);
    if (longest.withText * 4 < count || longest.lines.count < 3) return {};
    return {longest.lines.from + 1, longest.lines.to + 1, longest.lines.count - 2};
}
