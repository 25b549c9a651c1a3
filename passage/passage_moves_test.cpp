// Scrolling moves lines that are on the screen and paints the others. Here a screen is a list of lines, and what is on
// each of them is the text of the line and of both lines next to it, because letters may reach into it. After each
// scroll it must be the same as if the whole pane had been painted.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "passage/passage_flow.h"
#include "tests/support/even_letters.h"
#include "tests/support/native_scripture.h"
#include "typeset/text_runs.h"

using Screen = std::vector<std::string>;

static TextRuns LaidOut(const PassageFlow& flow) {
    TextRuns text;
    WalkPassage(flow, [&text](const FlowBox& box) {
        AddPiece(text, true, box.face, TextColor::kNormal, box.x, box.y, box.width, box.text);
        return true;
    });
    return text;
}

static std::string TextBetween(const TextRuns& text, int top, int bottom) {
    const RunSpan span = RunsBetween(text, top, bottom);
    std::string all;
    for (std::size_t at = span.first; at < span.end; ++at) {
        const PlacedRun& run = text.runs[at];
        all += std::to_string(run.x) + "," + std::to_string(run.y - top) + " " +
               "rbiz"[static_cast<std::size_t>(run.face)] + ":";
        all.append(TextOf(text, run)) += '\n';
    }
    return all;
}

static std::string PaintedLine(const TextRuns& text, int line, int lineHeight) {
    return TextBetween(text, (line - 1) * lineHeight, (line + 2) * lineHeight);
}

static Screen Painted(const TextRuns& text, int lineHeight, int height) {
    Screen screen;
    for (int line = 0; line * lineHeight < height; ++line) screen.push_back(PaintedLine(text, line, lineHeight));
    return screen;
}

static Screen Scrolled(const Screen& before, const MovedLines& moved, const TextRuns& text, int lineHeight) {
    Screen screen;
    for (int line = 0; line < static_cast<int>(before.size()); ++line) {
        const bool isMoved = line >= moved.to && line < moved.to + moved.count;
        screen.push_back(isMoved ? before[static_cast<std::size_t>(line + moved.from - moved.to)]
                                 : PaintedLine(text, line, lineHeight));
    }
    return screen;
}

struct MoveRow {
    int italics;
    bool paragraphs;
    int width, height;
};

TEST(PassageMoves, GiveTheScreenOfAWholePaint) {
    std::mt19937 random(3);
    const MoveRow rows[] = {{0, false, 700, 420}, {0, true, 700, 420}, {1, true, 333, 1090}, {2, false, 1908, 1109}};
    for (const MoveRow& row : rows) {
        PassageFlow flow;
        flow.scripture = &TheRealScripture();
        flow.measure = ItalicLetters<7>();
        flow.options.Italics = static_cast<std::int8_t>(row.italics);
        flow.options.ParagraphFormat = row.paragraphs;
        flow.width = row.width;
        flow.height = row.height;
        const int lineHeight = LineHeightOf(flow.measure);
        TextRuns before = LaidOut(flow);
        Screen screen = Painted(before, lineHeight, row.height);
        int moves = 0;
        static constexpr int kScrolls = 700;
        for (int scroll = 0; scroll < kScrolls; ++scroll) {
            const bool jumps = scroll % 50 == 0;
            const int by = static_cast<int>(random() % 7) - 2;
            flow.topVerse = ClampVerse(jumps ? static_cast<int>(random() % kVerseCount) : flow.topVerse + by);
            TextRuns after = LaidOut(flow);
            const MovedLines moved = LinesMoved(before, after, lineHeight, row.height);
            ASSERT_LE((moved.from + moved.count) * lineHeight, row.height) << "a line that was not whole";
            screen = Scrolled(screen, moved, after, lineHeight);
            ASSERT_EQ(screen, Painted(after, lineHeight, row.height)) << "top " << flow.topVerse;
            moves += moved.count > 0 ? 1 : 0;
            before = std::move(after);
        }
        EXPECT_GT(moves, kScrolls / 3) << "width " << row.width;
    }
}
