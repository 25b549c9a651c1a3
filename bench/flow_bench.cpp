// Benchmarks the layout of a pane without drawing: the walk of a paint, a hit test, a page up. Widths come from a table
// of character widths, as in the program.
//
// The floor of a walk adds up the widths of the same characters in one pass over the texts of the same verses. Other
// procedures are compared with one walk: "one measure" of a page.

#include <array>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "passage/passage_flow.h"
#include "tests/support/native_scripture.h"
#include "verselist/verse_list_flow.h"

static constexpr int kTop = 14000;  // in the Psalms, where many short verses fit in the pane
static constexpr int kRounds = 41;
static constexpr int kTimes = 20;  // of what takes some microseconds, in one run
static constexpr double kMostMeasures = 2.0;

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

static volatile int kept;  // so that nothing is left out whose result nobody uses

static std::function<void()> Repeated(std::function<int()> procedure) {
    return [procedure = std::move(procedure)] {
        for (int time = 0; time < kTimes; ++time) kept = procedure();
    };
}

// Microseconds of one call.
static std::vector<double> TimesInTurns(const std::vector<std::function<int()>>& contestants) {
    std::vector<std::function<void()>> repeated;
    for (const auto& contestant : contestants) repeated.push_back(Repeated(contestant));
    std::vector<double> times = MediansInTurns(kRounds, repeated);
    for (double& time : times) time *= 1000.0 / kTimes;
    return times;
}

static int WidthOfVerses(int first, int last) {
    int sum = 0;
    for (int verse = first; verse <= last; ++verse)
        sum += SumOfWidths(nullptr, Face::kRegular, VerseText(TheRealScripture(), verse));
    return sum;
}

// ---- The Passage ----------------------------------------------------------------------------------------------------

static PassageFlow FlowOfPane() {
    PassageFlow flow;
    flow.scripture = &TheRealScripture();
    flow.measure = TableMeasure();
    flow.topVerse = kTop;
    flow.width = 1200;
    flow.height = 700;
    return flow;
}

// With a visitor that only counts.
static int WalkAsPaint(const PassageFlow& flow) {
    int boxes = 0;
    return WalkPassage(flow, [&boxes](const FlowBox&) { return ++boxes > 0; });
}

static double MeasurePassage() {
    const PassageFlow flow = FlowOfPane();
    PassageView view{kTop, WalkAsPaint(flow)};
    const int last = view.LastVisibleVerse;
    CorrectLastVisible(view);
    const std::vector<double> times = TimesInTurns({
        [&] { return WalkAsPaint(flow); },
        [&] { return WidthOfVerses(kTop, last); },
        [&] { return HitTestPassage(flow, 600, 699).place; },
        [&] { return ScrolledTop(flow, view, ScrollCode::kPageUp, 0); },
    });
    Print({"Passage, the walk of a paint / sums of widths", times[0], times[1], 0, 0, "us"});
    Print({"Passage, hit test at the bottom / one measure", times[2], times[0], 0, 0, "us"});
    Print({"Passage, page up / one measure", times[3], times[0], 0, 0, "us"});
    return times[0];
}

// ---- The Verse List -------------------------------------------------------------------------------------------------

namespace {

// A list of every seventh verse, with a common word marked.
struct ListPane {
    VerseList list;
    Query query;
    KnownEntries known;
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
    pane.flow.known = &pane.known;
}

static int WalkAsPaint(const ListPane& pane) {
    int boxes = 0;
    return WalkVerseList(pane.flow, [&boxes](const FlowBox&) { return ++boxes > 0; });
}

// As after a new search: nothing is known of the entries.
static int MeasureAnew(ListPane& pane) {
    pane.known.byVerse.clear();
    return WalkVerseList(pane.flow, nullptr);
}

static int PageUp(const ListPane& pane) {
    return ScrolledListTop(pane.flow, pane.list, ScrollCode::kPageUp, 0);
}

// The entries above the page are not known.
static int PageUpAnew(ListPane& pane) {
    pane.known.byVerse.clear();
    return PageUp(pane);
}

static void MeasureVerseList(double walkOfPassage) {
    ListPane pane;
    OpenListPane(pane);
    pane.list.ListLastVisible = WalkAsPaint(pane);
    CorrectLastVisible(pane.list);
    const std::vector<double> times = TimesInTurns({
        [&] { return WalkAsPaint(pane); },
        [&] { return WalkVerseList(pane.flow, nullptr); },
        [&] { return PageUp(pane); },
        [&] { return MeasureAnew(pane); },
        [&] { return PageUpAnew(pane); },
    });
    Print({"Verse List, the walk of a paint / of the Passage", times[0], walkOfPassage, 0, 0, "us"});
    Print({"Verse List, page up / one measure", times[2], times[1], kMostMeasures, 0, "us"});
    Print({"Verse List, page up to new entries / one measure of new ones", times[4], times[3], kMostMeasures, 0, "us"});
}

int main() {
    MeasureVerseList(MeasurePassage());
    return ExitCode();
}
