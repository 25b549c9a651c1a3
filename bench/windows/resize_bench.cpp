// Benchmarks resizing the frame: the time from the new size to the frame with all its panes painted, measured from
// outside, of the program against a bare program that places the same windows and repaints its panes as a whole, too
// (bare_program.cpp). With an empty list and with a full one.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"

static constexpr int kRounds = 11;
static constexpr double kMostTimesBare = 1.2;
static constexpr int kEntryPart = 1;  // of the status bar

// As while a corner of the frame is dragged: wider and higher, narrower, flatter, and back.
static constexpr SIZE kSizes[] = {{900, 650},  {910, 657}, {960, 657}, {1010, 692}, {1110, 760}, {1200, 900},
                                  {1100, 900}, {980, 900}, {980, 800}, {910, 700},  {800, 640},  {700, 560}};

static void Resize(const Contestant& contestant, const SIZE& size) {
    SetWindowPos(contestant.program.frame, HWND_TOP, 10, 10, static_cast<int>(size.cx), static_cast<int>(size.cy),
                 SWP_NOACTIVATE);
    WaitUntilStill(contestant);
}

// The first one also puts the frame in front of the other contestant's.
static void ResizeOften(const Contestant& contestant) {
    for (const SIZE& size : kSizes) Resize(contestant, size);
}

static void FillList(const Contestant& contestant) {
    const Program& program = contestant.program;
    PostMessageA(OpenWordSearch(contestant, "lord"), WM_COMMAND, IDOK, 0);
    const HWND statusBar = Child(program.frame, {IDC_STATUS_BAR});
    AskUntil(program, "a list", 1, [&] { return Ask(program, statusBar, SB_GETTEXTLENGTHA, kEntryPart) != 0; });
    WaitUntilStill(contestant);
}

static RECT PlaceOf(const Contestant& contestant, std::initializer_list<int> ids) {
    return RectIn(Child(contestant.program.frame, ids), contestant.program.frame);
}

// Have the contestants placed their windows alike?
static bool LookAlike(const Contestant& one, const Contestant& other) {
    static const std::initializer_list<int> kWindows[] = {{IDC_TOOLBAR},
                                                          {IDC_STATUS_BAR},
                                                          {IDC_LIST_TABS},
                                                          {IDC_LIST_TABS, IDC_VERSE_LIST},
                                                          {IDC_LIST_TABS, IDC_REFERENCE_LIST},
                                                          {IDC_PASSAGE_TABS},
                                                          {IDC_PASSAGE_TABS, IDC_PASSAGE},
                                                          {IDC_NOTE_TABS},
                                                          {IDC_NOTE_TABS, IDC_NOTES},
                                                          {IDC_NOTE_TABS, IDC_NOTES, IDC_NOTE_VIEW}};
    return std::ranges::all_of(kWindows, [&](const std::initializer_list<int>& ids) {
        const RECT place = PlaceOf(one, ids), otherPlace = PlaceOf(other, ids);
        return EqualRect(&place, &otherPlace) != 0;
    });
}

static bool AreAllSizesAlike(const Contestant& one, const Contestant& other) {
    return std::ranges::all_of(kSizes, [&](const SIZE& size) {
        Resize(one, size);
        Resize(other, size);
        return LookAlike(one, other);
    });
}

static void Compare(const char* list, const Contestant& program, const Contestant& bare) {
    const bool alike = AreAllSizesAlike(program, bare);
    const std::vector<double> times =
        MediansInTurns(kRounds, {[&] { ResizeOften(program); }, [&] { ResizeOften(bare); }});
    Print({.what = std::string("resize of the frame, ") + list + " list / bare program",
           .time = times[0] / static_cast<double>(std::size(kSizes)),
           .floor = times[1] / static_cast<double>(std::size(kSizes)),
           .mostTimesFloor = kMostTimesBare,
           .sameAnswer = alike});
}

static void CompareAll(const Contestant& program, const Contestant& bare) {
    Compare("empty", program, bare);
    for (const Contestant* each : {&program, &bare}) FillList(*each);
    Compare("full", program, bare);
}

int main() {
    return RunBenchmark([] { CompareWithBareProgram(CompareAll); });
}
