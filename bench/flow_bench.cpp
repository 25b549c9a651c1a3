// Benchmarks the layout of a pane without drawing: the walk of a paint, a hit test, a page up. Widths come from a table
// of character widths, as in the program.
//
// The floor is one pass over the texts of the same verses that adds up the widths of their characters.
#include <benchmark/benchmark.h>

#include <array>
#include <vector>

#include "passage/passage_flow.h"
#include "tests/support/native_scripture.h"
#include "verselist/verse_list_flow.h"

static constexpr int kTop = 14000;  // in the Psalms, where many short verses fit in the pane

// Widths of a proportional face of about sixteen pixels.
static constexpr std::array<int, 256> kWidths = [] {
    std::array<int, 256> widths{};
    for (std::size_t letter = 0; letter < widths.size(); ++letter) widths[letter] = 5 + static_cast<int>(letter % 5);
    widths[' '] = 4;
    return widths;
}();

static int SumOfWidths(void*, Face, std::string_view text) {
    int sum = 0;
    for (const char letter : text) sum += kWidths[static_cast<unsigned char>(letter)];
    return sum;
}

static TextMeasure TableMeasure() {
    return {nullptr, SumOfWidths, [](void*) { return 18; }};
}

static PassageFlow FlowOfPane() {
    PassageFlow flow;
    flow.scripture = &TheRealScripture();
    flow.measure = TableMeasure();
    flow.topVerse = kTop;
    flow.width = 1200;
    flow.height = 700;
    return flow;
}

// Lays out as a paint does, with a visitor that only counts, and brings the view up to date. Gives the number of boxes.
static int WalkAsPaint(const PassageFlow& flow, PassageView& view) {
    int boxes = 0;
    view.TopVerse = flow.topVerse;
    view.LastVisibleVerse = WalkPassage(flow, [&boxes](const FlowBox&) { return ++boxes > 0; });
    CorrectLastVisible(view);
    return boxes;
}

static void WidthFloor(benchmark::State& state) {
    const PassageFlow flow = FlowOfPane();
    const int last = WalkPassage(flow, nullptr);
    for (auto _ : state) {
        int sum = 0;
        for (int verse = flow.topVerse; verse <= last; ++verse)
            sum += SumOfWidths(nullptr, Face::kRegular, VerseText(*flow.scripture, verse));
        benchmark::DoNotOptimize(sum);
    }
    state.counters["verses"] = last - flow.topVerse + 1;
}
BENCHMARK(WidthFloor)->Unit(benchmark::kMicrosecond);

static void PassageWalk(benchmark::State& state) {
    const PassageFlow flow = FlowOfPane();
    PassageView view;
    int boxes = 0;
    for (auto _ : state) benchmark::DoNotOptimize(boxes = WalkAsPaint(flow, view));
    state.counters["boxes"] = boxes;
}
BENCHMARK(PassageWalk)->Unit(benchmark::kMicrosecond);

static void PassageHitAtBottom(benchmark::State& state) {
    const PassageFlow flow = FlowOfPane();
    for (auto _ : state) benchmark::DoNotOptimize(HitTestPassage(flow, 600, 699));
}
BENCHMARK(PassageHitAtBottom)->Unit(benchmark::kMicrosecond);

static void PassagePageUp(benchmark::State& state) {
    const PassageFlow flow = FlowOfPane();
    PassageView view;
    WalkAsPaint(flow, view);
    int top = view.TopVerse;
    for (auto _ : state) benchmark::DoNotOptimize(top = ScrolledTop(flow, view, ScrollCode::kPageUp, 0));
    state.counters["passes"] = view.TopVerse - top + 1;
}
BENCHMARK(PassagePageUp)->Unit(benchmark::kMicrosecond);

namespace {

// A list of every seventh verse, with a common word marked.
struct ListPane {
    VerseList list;
    Query query;
    VerseListFlow flow;
};

}  // namespace

static void OpenListPane(ListPane& pane) {
    for (int verse = 0; verse < kVerseCount; verse += 7) pane.list.ListEntries.push_back(verse);
    pane.list.ListTop = 2000;
    pane.query = QueryOf("the", {}, QueryKind::kWords);
    pane.flow.scripture = &TheRealScripture();
    pane.flow.query = &pane.query;
    pane.flow.measure = TableMeasure();
    pane.flow.list = &pane.list;
    pane.flow.width = 1200;
    pane.flow.height = 700;
}

static int WalkAsPaint(ListPane& pane) {
    int boxes = 0;
    pane.list.ListLastVisible = WalkVerseList(pane.flow, [&boxes](const FlowBox&) { return ++boxes > 0; });
    CorrectLastVisible(pane.list);
    return boxes;
}

static void VerseListWalk(benchmark::State& state) {
    ListPane pane;
    OpenListPane(pane);
    int boxes = 0;
    for (auto _ : state) benchmark::DoNotOptimize(boxes = WalkAsPaint(pane));
    state.counters["boxes"] = boxes;
    state.counters["entries"] = pane.list.ListLastVisible - pane.list.ListTop + 1;
}
BENCHMARK(VerseListWalk)->Unit(benchmark::kMicrosecond);

static void VerseListPageUp(benchmark::State& state) {
    ListPane pane;
    OpenListPane(pane);
    WalkAsPaint(pane);
    int top = pane.list.ListTop;
    for (auto _ : state) benchmark::DoNotOptimize(top = ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageUp, 0));
    state.counters["passes"] = pane.list.ListTop - top + 1;
}
BENCHMARK(VerseListPageUp)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
