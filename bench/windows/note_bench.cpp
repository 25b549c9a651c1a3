// Benchmarks the notes in the window, measured from outside the program: how long a search of a large set takes from
// Find to its answer, how much later the first verse is painted when there are 31 large sets, and how long it takes to
// show a long note.

#include <windows.h>

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
static constexpr double kMostLongNoteTime = 6;     // milliseconds
static constexpr double kMostLongLineTime = 1500;  // a tenth of what the control takes by itself
static constexpr double kMostKeyTime = 250;

static std::string TextOfNote(int verse) {
    std::string text = "Note of verse " + std::to_string(verse) + ".\r\n";
    while (text.size() < kNoteSize - 1) text += "a line of this note\r\n";
    return text.substr(0, kNoteSize - 1);
}

static void WriteLargeSet(const ScratchFolder& folder) {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kVerses; ++verse) notes[verse] = TextOfNote(verse);
    WriteNoteSet(folder, "Large", notes);
}

// The other sets have the same contents and, to spare the disk, the same files under other names.
static void LinkOtherSets(const ScratchFolder& folder) {
    for (int set = 1; set < kSets; ++set)
        for (const char* ending : {".nmi", ".nmd"})
            std::filesystem::create_hard_link(folder.path / (std::string("Large") + ending),
                                              folder.path / ("Large " + std::to_string(set) + ending));
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
    for (int round = 0; round < kRounds; ++round) times.push_back(TimeOfSearch(program, dialog));
    PrintLimited("Find to the answer, notes of 62 MB in vain", MedianOf(times), kMostSearchTime, "ms");
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    AskUntil(program, "the dialog's end", 1, [&] { return !IsWindow(dialog); });
    CloseProgram(program);
}

// ---- The start ------------------------------------------------------------------------------------------------------

static double TimeOfStart(const ScratchFolder& folder) {
    const double start = Now();
    Program program = Started(folder);
    const double time = Now() - start;
    CloseProgram(program);
    return time;
}

static void MeasureStart(const ScratchFolder& large, const ScratchFolder& none) {
    std::vector<double> withSets, without;
    TimeOfStart(none);
    TimeOfStart(large);
    for (int round = 0; round < 2 * kRounds; ++round) {  // a closing program delays the next start, so alternate
        const bool isFirst = round % 2 == 0;
        if (isFirst) withSets.push_back(TimeOfStart(large));
        without.push_back(TimeOfStart(none));
        if (!isFirst) withSets.push_back(TimeOfStart(large));
    }
    Print({"start with 31 note sets of 62 MB / without", MedianOf(withSets), MedianOf(without), kMostTimesWithout});
}

// ---- Long notes -----------------------------------------------------------------------------------------------------

static std::string Lines(std::size_t size) {
    std::string text;
    while (text.size() < size) text += "a line of this note that has about sixty letters in it\r\n";
    return text;
}

// From the command to the painted text.
static double TimeOfNextNote(const Program& program, HWND view, const std::string& note) {
    const double start = Now();
    Ask(program, program.frame, WM_COMMAND, IDM_NEXT_NOTE);
    UpdateWindow(view);
    const double time = Now() - start;
    if (TextOf(view) != note) Fail(&program, "another note is shown");
    return time;
}

static double TimeOfKeys(const Program& program, HWND edit) {
    static constexpr int kKeys = 5;
    const double start = Now();
    for (int key = 0; key < kKeys; ++key) {
        Ask(program, edit, WM_CHAR, 'x', 1);
        UpdateWindow(edit);
    }
    return (Now() - start) / kKeys;
}

static void MeasureLongNotes() {
    const ScratchFolder folder = FolderWithScripture();
    const std::string lines = Lines(30000), line(65000, 'x'), brief = "brief";
    WriteNoteSet(folder, "Long", {{0, brief}, {1, lines}, {2, line}});
    Program program = Started(folder);
    const HWND view = Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW});
    std::vector<double> ofLines, ofLine, ofBrief, ofKeys;
    for (int round = 0; round < kRounds; ++round) {
        ofLines.push_back(TimeOfNextNote(program, view, lines));
        ofLine.push_back(TimeOfNextNote(program, view, line));
        ofBrief.push_back(TimeOfNextNote(program, view, brief));
    }
    PrintAmount("a note of five letters shown", MedianOf(ofBrief), "ms");
    PrintLimited("a note of 30 kB shown", MedianOf(ofLines), kMostLongNoteTime, "ms");
    PrintLimited("a line of 65,000 letters shown", MedianOf(ofLine), kMostLongLineTime, "ms");
    TimeOfNextNote(program, view, lines);
    TimeOfNextNote(program, view, line);
    Ask(program, program.frame, WM_COMMAND, IDM_EDIT_NOTE);
    const HWND edit =
        FindWindowExA(FindWindowExA(program.frame, nullptr, "NOTEEDIT", nullptr), nullptr, "RICHEDIT", nullptr);
    for (int round = 0; round < kRounds; ++round) ofKeys.push_back(TimeOfKeys(program, edit));
    PrintLimited("a key in a line of 65,000 letters", MedianOf(ofKeys), kMostKeyTime, "ms");
    TerminateProcess(program.process.get(), 0);
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
