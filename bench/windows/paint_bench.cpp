// Benchmarks one paint of the Passage (1200 x 700) with the program's layout, faces and canvas against two floors, and
// one of the Verse List on a large screen against the Passage's, and the drawing of Hits by Book. Must be started in
// the folder of the scripture files.

#include <algorithm>
#include <cstdio>
#include <utility>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/paint_floors.h"
#include "notes/note_files_win32.h"
#include "notes/note_refresh.h"
#include "passage/passage_flow.h"
#include "scripture/scripture.h"
#include "scripture/scripture_win32.h"
#include "search/key_word_marks.h"
#include "verselist/hits_painting_win32.h"
#include "verselist/verse_list_flow.h"

static constexpr RECT kClient{0, 0, 1200, 700};
static constexpr RECT kLargeClient{0, 0, 3840, 2160};
static constexpr int kRounds = 61;
static constexpr double kMostTimesWordByWord = 1.0;
static constexpr double kMostTimesFaceByFace = 1.5;
static constexpr double kMostAboveOnePaint = 2.0;  // limit for page up, milliseconds
static constexpr double kMostTimesPassage = 1.5;
static constexpr double kMostForHits = 0.2;     // limit for the strip of Hits by Book, milliseconds
static constexpr double kMostForStamps = 0.02;  // limit for comparing the files of sets, of one paint

namespace {

struct PaintPlace {
    const char* name;
    int book, chapter, verse;
};

}  // namespace

static constexpr PaintPlace kPlaces[] = {
    {"Ge 1:1", 1, 1, 1},  {"1Ch 1:1", 13, 1, 1},     {"Ps 119:1", 19, 119, 1},
    {"Es 8:9", 17, 8, 9}, {"Joh 11:30", 43, 11, 30}, {"Re 20:1", 66, 20, 1},
};

namespace {

struct Mode {
    const char* name;
    std::int8_t italics, paragraphs;
};

}  // namespace

static constexpr Mode kModes[] = {
    {"italic type", kItalicType, 0}, {"italic type, paragraphs", kItalicType, 1},
    {"brackets", kBracketed, 0},     {"brackets, paragraphs", kBracketed, 1},
    {"plain type", kPlainType, 0},   {"plain type, paragraphs", kPlainType, 1},
};

namespace {

// The program's state for the Passage.
struct Bench {
    Scripture scripture;
    NoteFiles noteFiles;
    NoteSets notes;
    Faces faces;
    Canvas canvas;
    TextRuns runs;
    HDC screen = nullptr;
    HDC floorCanvas = nullptr;
    FaceFonts fonts;
};

}  // namespace

static std::uint64_t NoSize(void*, const std::string&) {
    return 0;
}

// A set with a note for every second verse, so that labels with and without a mark are painted.
static NoteSets HalfTheNotes() {
    NoteSet set{"Notes.nmd", std::vector<std::uint32_t>(kVerseCount)};
    for (std::uint32_t verse = 0; verse < kVerseCount; ++verse) set.offsets[verse] = verse + verse / 2;
    NoteSets notes;
    notes.sets.push_back(std::move(set));
    return notes;
}

static PassageFlow FlowAt(Bench& bench, const PaintPlace& place, const Mode& mode) {
    return {
        .scripture = &bench.scripture,
        .noteFiles = &bench.noteFiles,
        .notes = &bench.notes,
        .options = {.ParagraphFormat = mode.paragraphs, .Italics = mode.italics},
        .measure = MeasureOf(bench.faces),
        .topVerse = VerseLookup(bench.scripture.records, place.book, place.chapter, place.verse),
        .width = kClient.right,
        .height = kClient.bottom,
    };
}

static void LayOut(Bench& bench, const PassageFlow& flow) {
    WalkPassage(flow, [&bench](const FlowBox& box) {
        AddText(bench.runs, bench.faces, box.face, TextColor::kNormal, box.x, box.y, box.width, box.text);
        return true;
    });
}

static void DrawLaidOut(Bench& bench, const RECT& client) {
    const PaneColors colors{.paper = GetSysColor(COLOR_WINDOW), .text = GetSysColor(COLOR_WINDOWTEXT)};
    PaintText(bench.screen, bench.canvas, bench.faces, bench.runs, client, colors);
    Clear(bench.runs);
}

static void Paint(Bench& bench, const PassageFlow& flow) {
    LayOut(bench, flow);
    DrawLaidOut(bench, {0, 0, flow.width, flow.height});
}

static std::vector<PlacedWord> WordsOf(const PassageFlow& flow) {
    std::vector<PlacedWord> words;
    WalkPassage(flow, [&words](const FlowBox& box) {
        words.push_back({box.face, box.x, box.y, std::string(box.text)});
        return true;
    });
    return words;
}

static TextRuns RunsOf(Bench& bench, const PassageFlow& flow) {
    LayOut(bench, flow);
    return std::exchange(bench.runs, {});
}

namespace {

// The place with the worst ratio to one of the floors.
struct Worst {
    const char* place = "";
    double time = 0, floor = 1;
};

}  // namespace

static void Keep(Worst& worst, const char* place, double time, double floor) {
    if (time / floor > worst.time / worst.floor) worst = {place, time, floor};
}

static void ComparePaints(Bench& bench, const Mode& mode) {
    Worst wordByWord, faceByFace;
    for (const PaintPlace& place : kPlaces) {
        const PassageFlow flow = FlowAt(bench, place, mode);
        const std::vector<PlacedWord> words = WordsOf(flow);
        const TextRuns runs = RunsOf(bench, flow);
        const int lineHeight = flow.measure.lineHeight(flow.measure.device);
        const std::vector<double> times = MediansInTurns(
            kRounds, {
                         [&] { Paint(bench, flow); },
                         [&] { DrawWordByWord(bench.screen, bench.fonts, words, kClient.right, lineHeight); },
                         [&] { DrawFaceByFace(bench.screen, bench.floorCanvas, bench.fonts, runs, kClient); },
                     });
        Keep(wordByWord, place.name, times[0], times[1]);
        Keep(faceByFace, place.name, times[0], times[2]);
    }
    const std::string what = std::string("paint, ") + mode.name;
    Print(
        {what + " (" + wordByWord.place + ") / word by word", wordByWord.time, wordByWord.floor, kMostTimesWordByWord});
    Print(
        {what + " (" + faceByFace.place + ") / face by face", faceByFace.time, faceByFace.floor, kMostTimesFaceByFace});
}

// The walk of a paint with a visitor that only counts, and the view that a paint leaves.
static PassageView WalkAsPaint(const PassageFlow& flow) {
    int boxes = 0;
    PassageView view{flow.topVerse, WalkPassage(flow, [&boxes](const FlowBox&) { return ++boxes > 0; })};
    CorrectLastVisible(view);
    return view;
}

static void MeasureScrolling(Bench& bench, const Mode& mode) {
    double mostWalking = 0, mostAbove = -1000;
    for (const PaintPlace& place : kPlaces) {
        PassageFlow flow = FlowAt(bench, place, mode);
        PassageView view = WalkAsPaint(flow);
        const auto pageUp = [&] {
            flow.topVerse = view.TopVerse;
            flow.topVerse = ScrolledTop(flow, view, ScrollCode::kPageUp, 0);
            Paint(bench, flow);
        };
        const std::vector<double> times = MediansInTurns(kRounds, {
                                                                      [&] { view = WalkAsPaint(flow); },
                                                                      [&] { Paint(bench, flow); },
                                                                      pageUp,
                                                                  });
        mostWalking = std::max(mostWalking, times[0]);
        mostAbove = std::max(mostAbove, times[2] - times[1]);
    }
    const std::string at = std::string(", ") + mode.name;
    PrintAmount("the walk of one paint" + at, mostWalking, "ms");
    PrintLimited("page up above one paint" + at, mostAbove, kMostAboveOnePaint, "ms");
}

// The list of a search for a common word, whose marks are on nearly every line.
static VerseList ListOfCommonWord(const Scripture& scripture, const Query& query) {
    VerseList list;
    for (int verse = 0; verse < kVerseCount; ++verse)
        if (CountKeyWords(query, VerseText(scripture, verse)) > 0) list.ListEntries.push_back(verse);
    return list;
}

static void PaintList(Bench& bench, const VerseListFlow& flow) {
    WalkVerseList(flow, [&bench](const FlowBox& box) {
        AddText(bench.runs, bench.faces, box.face, box.keyWord ? TextColor::kKeyWord : TextColor::kNormal, box.x, box.y,
                box.width, box.text);
        return true;
    });
    DrawLaidOut(bench, {0, 0, flow.width, flow.height});
}

static void CompareLists(Bench& bench) {
    for (const char* word : {"lord", "the"}) {
        const Query query = QueryOf(word, {}, QueryKind::kWords);
        const VerseList list = ListOfCommonWord(bench.scripture, query);
        KnownEntries known;
        PassageFlow passage = FlowAt(bench, kPlaces[0], kModes[0]);
        passage.width = kLargeClient.right;
        passage.height = kLargeClient.bottom;
        const VerseListFlow flow{.scripture = &bench.scripture,
                                 .noteFiles = &bench.noteFiles,
                                 .notes = &bench.notes,
                                 .query = &query,
                                 .options = passage.options,
                                 .measure = passage.measure,
                                 .list = &list,
                                 .width = passage.width,
                                 .height = passage.height,
                                 .known = &known};
        const std::vector<double> times =
            MediansInTurns(kRounds, {[&] { PaintList(bench, flow); }, [&] { Paint(bench, passage); }});
        Print({std::string("paint at 3840 x 2160, list of \"") + word + "\" / the Passage", times[0], times[1],
               kMostTimesPassage});
    }
}

// The strip is drawn from the list: counted, laid out and painted each time.
static void MeasureHits(Bench& bench) {
    const Query query = QueryOf("the", {}, QueryKind::kWords);
    const VerseList list = ListOfCommonWord(bench.scripture, query);
    const PerBook<int> words = CountWordsOfBooks(bench.scripture);
    const PaneColors colors{.paper = GetSysColor(COLOR_WINDOW),
                            .text = GetSysColor(COLOR_WINDOWTEXT),
                            .keyWord = GetSysColor(COLOR_HIGHLIGHT)};
    for (const int height : {400, 2000}) {
        const RECT client{0, 0, 44, height};
        const auto draw = [&] {
            const PerBook<HitsOfBook> hits = HitsOfEntries(bench.scripture.records, list.ListEntries, words);
            DrawHits(bench.screen, client, {LayOutHits(hits, client.right - 4, height, 2), 45}, colors);
        };
        PrintLimited("Hits by Book from the list of \"the\", 44 x " + std::to_string(height),
                     MediansInTurns(kRounds, {draw})[0], kMostForHits, "ms");
    }
}

static NoteSet WrittenSet(const char* name) {
    NoteSet set = EmptyNoteSet(name);
    CreateNoteFiles(TheNoteFiles(), set);
    return set;
}

static void RemoveFiles(const NoteSet& set) {
    const NoteFiles& files = TheNoteFiles();
    for (const std::string& name : {set.dataFileName, IndexFileName(set)}) files.remove(files.device, name);
}

// While it scrolls, the program compares the files of the current set before it reads the note of the verse. What it
// compares after painting it does at most every 25 milliseconds, which is several steps.
static void MeasureStamps(Bench& bench) {
    const PassageFlow flow = FlowAt(bench, kPlaces[0], kModes[0]);
    NoteSet current = WrittenSet("paint_bench current");
    const std::vector<double> times =
        MediansInTurns(kRounds, {[&] { RefreshSet(TheNoteFiles(), current); }, [&] { Paint(bench, flow); }});
    RemoveFiles(current);
    Print({"comparing the files of a note set / one paint", times[0], times[1], kMostForStamps});
}

static HDC ScreenToPaintOn() {
    const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, kLargeClient.right,
                                        kLargeClient.bottom, nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(window);
    return GetDC(window);
}

int main() {
    Bench bench;
    if (!LoadScripture(ScriptureDataFiles(), bench.scripture)) {
        std::fprintf(stderr, "paint_bench: no scripture files in the current folder\n");
        return 1;
    }
    bench.noteFiles.size = NoSize;
    bench.notes = HalfTheNotes();
    bench.screen = ScreenToPaintOn();
    ChooseFaces(bench.faces, FontChoice{}, kUnscaledDpi);
    bench.fonts = FontsOf(FontChoice{});
    Canvas floorCanvas;
    bench.floorCanvas = CanvasFor(floorCanvas, bench.screen, kClient.right, kClient.bottom);
    for (const Mode& mode : kModes) ComparePaints(bench, mode);
    for (const Mode& mode : kModes) MeasureScrolling(bench, mode);
    CompareLists(bench);
    MeasureHits(bench);
    MeasureStamps(bench);
    return ExitCode();
}
