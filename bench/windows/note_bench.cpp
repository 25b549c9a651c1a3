// Benchmarks the notes in the window, measured from outside the program: how long a search of a large set takes from
// Find to its answer, how much later the first verse is painted when there are 31 large sets, and how long it takes to
// show a long note.

#include <windows.h>

#include <algorithm>
#include <array>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"
#include "tests/windows/note_set_files.h"

static constexpr int kRounds = 15;
static constexpr int kSets = 31;
static constexpr std::size_t kNoteSize = 2000;  // with 31,102 of them 62 MB
static constexpr double kMostSearchTime = 45;   // milliseconds
static constexpr double kMostTimesWithout = 1.05;
static constexpr double kMostLongNoteTime = 6;  // milliseconds
static constexpr double kMostLongLineTime = 1000;
static constexpr double kMostKeyTime = 100;
static constexpr double kMostKeyTimeInRuns = 150;  // Wine makes a run of each tab and walks through all of them

static std::string TextOfNote(int verse) {
    std::string text = "Note of verse " + std::to_string(verse) + ".\r\n";
    while (text.size() < kNoteSize - 1) text += "a line of this note\r\n";
    return text.substr(0, kNoteSize - 1);
}

static void WriteLargeSet(const ScratchFolder& folder) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kVerseCount; ++verse) notes[verse] = TextOfNote(verse);
    WriteNoteSet(folder, "Large", notes);
}

// The other sets have the same contents and, to spare the disk, the same files under other names.
static void LinkOtherSets(const ScratchFolder& folder) {
    for (int set = 1; set < kSets; ++set)
        for (const char* ending : {".nmi", ".nmd"})
            std::filesystem::create_hard_link(folder.path / (std::string("Large") + ending),
                                              folder.path / ("Large " + std::to_string(set) + ending));
}

// Of the best times of three runs each, because a run that is preempted takes ten times as long.
static double MedianOfRounds(const std::vector<double>& times) {
    static constexpr std::size_t kRuns = 3;
    std::vector<double> best;
    for (std::size_t run = 0; run + kRuns <= times.size(); run += kRuns)
        best.push_back(std::min({times[run], times[run + 1], times[run + 2]}));
    return MedianOf(best);
}

static Program Started(const ScratchFolder& folder) {
    Program program = LaunchProgram(folder);
    WaitForFirstVerse(program, "Versewell97");
    return program;
}

// ---- The search -----------------------------------------------------------------------------------------------------

static double TimeOfSearch(const Program& program, HWND dialog) {
    const double start = Now();
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    HWND answer = nullptr;
    AskUntil(program, "an answer", 0,
             [&] { return (answer = FindWindowA("#32770", "Search Notes")) && IsWindowVisible(answer); });
    const double time = Now() - start;
    PostMessageA(answer, WM_COMMAND, IDOK, 0);
    AskUntil(program, "the dialog again", 1, [&] { return !IsWindow(answer) && IsWindowEnabled(dialog); });
    return time;
}

static void MeasureSearch(const ScratchFolder& folder) {
    Program program = Started(folder);
    PostMessageA(program.frame, WM_COMMAND, IDM_SEARCH_NOTES, 0);
    const HWND dialog = WaitForDialog(program, "Search Note Set Large");
    Ask(program, GetDlgItem(dialog, IDC_NOTE_TEXT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("in any note"));
    std::vector<double> times;
    for (int round = 0; round < 3 * kRounds; ++round) times.push_back(TimeOfSearch(program, dialog));
    PrintLimited("Find to the answer, notes of 62 MB in vain", MedianOfRounds(times), kMostSearchTime, "ms");
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    AskUntil(program, "the dialog's end", 1, [&] { return !IsWindow(dialog); });
    CloseProgram(program);
}

// ---- The start ------------------------------------------------------------------------------------------------------

static double TimeOfStart(const ScratchFolder& folder) {
    const double start = Now();
    Program program = Started(folder);
    const double time = Now() - start;
    CloseBeforeNextStart(program);
    return time;
}

static void MeasureStart(const ScratchFolder& large, const ScratchFolder& none) {
    std::vector<double> withSets, without;
    TimeOfStart(none);
    TimeOfStart(large);
    for (int round = 0; round < 4 * kRounds; ++round) {  // each after itself and after the other as often
        const bool isFirst = round % 2 == 0;
        if (isFirst) withSets.push_back(TimeOfStart(large));
        without.push_back(TimeOfStart(none));
        if (!isFirst) withSets.push_back(TimeOfStart(large));
    }
    Print({"start with 31 note sets of 62 MB / without", MedianOfRounds(withSets), MedianOfRounds(without),
           kMostTimesWithout});
}

// ---- Long notes -----------------------------------------------------------------------------------------------------

static std::string Repeated(std::string_view part, std::size_t size) {
    std::string text;
    while (text.size() < size) text += part;
    return text.substr(0, size);
}

static std::string BytesFrom(int first, int last) {
    std::string bytes;
    for (int byte = first; byte <= last; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

// The same characters in lines that a rich-edit control lays out soon.
static std::string InLines(const std::string& line) {
    static constexpr std::size_t kLength = 500;
    std::string text;
    for (std::size_t begin = 0; begin < line.size(); begin += kLength) text += line.substr(begin, kLength) + "\r\n";
    return text;
}

namespace {

struct ShownNote {
    std::string text;
    std::vector<double> times{};
};

// A note of one line and, as its floor, one of the same characters in short lines. A brief note is shown before each,
// because the control takes some time to forget a long note.
struct LongLine {
    std::string what;
    ShownNote line;
    ShownNote floor;
    ShownNote briefAfterLine{"brief"};
    ShownNote briefAfterFloor{"brief"};
    double mostKeyTime = kMostKeyTime;
    std::vector<double> keyTimes{};
};

}  // namespace

static LongLine LineOf(const char* what, std::string_view part, double mostKeyTime = kMostKeyTime) {
    static constexpr std::size_t kLength = 65000;
    const std::string line = Repeated(part, kLength);
    return {.what = std::string("a line of 65,000 ") + what,
            .line = {line},
            .floor = {InLines(line)},
            .mostKeyTime = mostKeyTime};
}

static std::vector<LongLine> LongLines() {
    return {LineOf("letters", "x"),
            LineOf("digits", "0123456789"),
            LineOf("numbers and marks", "1,2;3:4"),
            LineOf("percent signs", "%"),
            LineOf("digits and blanks", "1 "),
            LineOf("blanks", " "),
            LineOf("tabs", "\t", kMostKeyTimeInRuns),
            LineOf("all marks", BytesFrom('!', '~')),
            LineOf("bytes 80 to 9F", BytesFrom(0x80, 0x9F)),
            LineOf("bytes A0 to FF", BytesFrom(0xA0, 0xFF)),
            LineOf("words", "and some words of the text, as in John 3:16, ")};
}

// A new one after a note of very many tabs.
static HWND NoteViewOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW});
}

// From the command to the painted text of the next note.
static void ShowNext(const Program& program, ShownNote& note) {
    const double start = Now();
    Ask(program, program.frame, WM_COMMAND, IDM_NEXT_NOTE);
    UpdateWindow(NoteViewOf(program));
    note.times.push_back(Now() - start);
    if (TextOf(NoteViewOf(program)) != note.text) Fail(&program, "another note is shown");
}

static double TimeOfKey(const Program& program, HWND edit) {
    const double start = Now();
    Ask(program, edit, WM_CHAR, 'x', 1);
    UpdateWindow(edit);
    return Now() - start;
}

namespace {

struct NoteContestant {
    Contestant shown;
    HWND view = nullptr;
    std::vector<double> longTimes{};
    std::vector<double> briefTimes{};
};

}  // namespace

static NoteContestant StartedWithNotes(const ScratchFolder& folder, const StartOptions& options) {
    NoteContestant contestant{Started(folder, options)};
    contestant.view = Child(contestant.shown.program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW});
    return contestant;
}

// In front of the other contestant, so that all of the view is painted.
static double TimeOfNext(const NoteContestant& contestant) {
    const Program& program = contestant.shown.program;
    SetWindowPos(program.frame, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    WaitUntilStill(contestant.shown);
    const double start = Now();
    Ask(program, program.frame, WM_COMMAND, IDM_NEXT_NOTE);
    UpdateWindow(contestant.view);
    return Now() - start;
}

static Picture PictureOfNext(const NoteContestant& contestant) {
    TimeOfNext(contestant);
    RECT place{};
    GetClientRect(contestant.view, &place);
    MapWindowPoints(contestant.view, nullptr, reinterpret_cast<POINT*>(&place), 2);
    return PictureOfScreen(place);
}

// Do both show the same pixels, and the program all of the text to whoever asks for it?
static bool ShowAlike(const NoteContestant& program, const NoteContestant& bare, const std::string& text) {
    const RECT different = DifferingArea(PictureOfNext(program), PictureOfNext(bare));
    return IsRectEmpty(&different) && TextOf(program.view) == text;
}

// Whoever asks the program for the text of a long note lets it lay out the rest now, which it otherwise does while the
// other one is measured.
static void ShowNextInBoth(NoteContestant& program, NoteContestant& bare, std::vector<double> NoteContestant::*times) {
    for (NoteContestant* each : {&program, &bare}) {
        (each->*times).push_back(TimeOfNext(*each));
        TextOf(each->view);
        WaitUntilStill(each->shown);
    }
}

static void ShowInTurns(NoteContestant& program, NoteContestant& bare) {
    static constexpr int kManyRounds = 100;
    for (NoteContestant* each : {&program, &bare}) each->longTimes = each->briefTimes = {};
    for (int round = 0; round < kManyRounds; ++round) {
        ShowNextInBoth(program, bare, &NoteContestant::longTimes);
        ShowNextInBoth(program, bare, &NoteContestant::briefTimes);
    }
}

static constexpr char kAwake[] = "awake";  // a file of the folder

// Showing a note takes about sixty requests to Wine's server, and more to the display. Whenever a machine has nothing
// else to do, a processor falls asleep between a request and its answer, and waking up takes longer than answering: on
// an idle machine a note of five letters then takes longer than one of 30 kB on a busy one. That is a property of the
// machine, so each processor is given something to do that gives way at once to all other work. What sleeping
// processors add is a row of its own.
static void KeepProcessorsAwake(const ScratchFolder& folder) {
    WriteFile(folder, kAwake, "");
    StartOnHost(folder,
                "\"Z:\\bin\\sh\" -c \"for each in $(seq $(nproc)); do timeout 600 chrt --idle 0 sh -c "
                "'while [ -e awake ]; do :; done' & done\"");
}

static void LetProcessorsSleep(const ScratchFolder& folder) {
    std::filesystem::remove(folder.path / kAwake);
}

static void MeasureLongNote() {
    const ScratchFolder folder = FolderWithScripture();
    const std::string text = Repeated("a line of this note that has about sixty letters in it\r\n", 30000);
    WriteNoteSet(folder, "Long", {{0, "brief"}, {1, text}});
    WriteFile(folder, "bare note.txt", text);
    NoteContestant program = StartedWithNotes(folder, {}), bare = StartedWithNotes(folder, BareProgramOptions());
    const bool alike = ShowAlike(program, bare, text) && ShowAlike(program, bare, "brief");
    ShowInTurns(program, bare);
    const double sleepyTime = MedianOfRounds(program.longTimes);
    KeepProcessorsAwake(folder);
    ShowInTurns(program, bare);
    LetProcessorsSleep(folder);
    const double time = MedianOfRounds(program.longTimes);
    Print({.what = "a note of 30 kB shown / by a bare program",
           .time = time,
           .floor = MedianOfRounds(bare.longTimes),
           .sameAnswer = alike});
    PrintLimited("a note of 30 kB shown", time, kMostLongNoteTime, "ms");
    PrintAmount("  by processors that sleep between two messages", sleepyTime, "ms");
    PrintAmount("a note of five letters shown in its place", MedianOfRounds(program.briefTimes), "ms");
    for (const NoteContestant* each : {&program, &bare}) TerminateProcess(each->shown.program.process.get(), 0);
}

static std::array<ShownNote*, 4> NotesOf(LongLine& line) {
    return {&line.line, &line.briefAfterLine, &line.floor, &line.briefAfterFloor};
}

static void MeasureLongLines(std::vector<LongLine>& all) {
    static constexpr int kFewRounds = 5;
    const ScratchFolder folder = FolderWithScripture();
    std::map<int, std::string> notes{{0, "brief"}};
    for (LongLine& each : all)
        for (ShownNote* note : NotesOf(each)) notes[static_cast<int>(notes.size())] = note->text;
    notes.erase(std::prev(notes.end()));  // the first one is shown instead
    WriteNoteSet(folder, "Long", notes);
    Program program = Started(folder);
    for (int round = 0; round < kFewRounds; ++round)
        for (LongLine& each : all)
            for (ShownNote* note : NotesOf(each)) ShowNext(program, *note);
    TerminateProcess(program.process.get(), 0);
}

static void MeasureKeys(LongLine& line) {
    static constexpr int kKeys = 15;
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Long", {{0, line.line.text}});
    Program program = Started(folder);
    Ask(program, program.frame, WM_COMMAND, IDM_EDIT_NOTE);
    const HWND edit =
        FindWindowExA(FindWindowExA(program.frame, nullptr, "NOTEEDIT", nullptr), nullptr, "RICHEDIT", nullptr);
    for (int key = 0; key < kKeys; ++key) line.keyTimes.push_back(TimeOfKey(program, edit));
    if (TextOf(edit) != std::string(kKeys, 'x') + line.line.text) Fail(&program, "another text was typed");
    TerminateProcess(program.process.get(), 0);
}

static void MeasureLongNotes() {
    MeasureLongNote();
    std::vector<LongLine> all = LongLines();
    MeasureLongLines(all);
    for (LongLine& each : all) {
        Print({each.what + " shown / in lines of 500", MedianOf(each.line.times), MedianOf(each.floor.times)});
        PrintLimited(each.what + " shown", MedianOf(each.line.times), kMostLongLineTime, "ms");
        PrintLimited("  another note in its place", MedianOf(each.briefAfterLine.times), kMostLongLineTime, "ms");
        MeasureKeys(each);
        PrintLimited("  a key in it", MedianOf(each.keyTimes), each.mostKeyTime, "ms");
    }
}

static void Measure() {
    MeasureLongNotes();
    const ScratchFolder large = FolderWithScripture();
    WriteLargeSet(large);
    MeasureSearch(large);
    LinkOtherSets(large);
    MeasureStart(large, FolderWithScripture());
}

int main() {
    return RunBenchmark(Measure);
}
