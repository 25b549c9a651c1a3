// Benchmarks the time from OK in the Word Search dialog to the painted list, measured from outside the program, against
// filling a bare list box with the same strings in this process.

#include <windows.h>

#include <commctrl.h>

#include <cstdio>

#include "bench/contest.h"
#include "bench/outcomes.h"
#include "bench/windows/outside.h"
#include "resources/ids.h"
#include "tests/driver/remote_memory.h"

static constexpr int kRounds = 15;
static constexpr double kMostTimesBareList = 1.5;
static constexpr int kSummaryPart = 0;  // of the status bar
static constexpr int kEntryPart = 1;

namespace {

struct ListedSearch {
    const char* words;
    double mostTimesFloor;  // 0: no limit, only information
    // Results of the first search, which is not timed:
    LRESULT lines = 0;
    std::string summary{};
    std::string firstEntry{};
    std::vector<std::string> strings{};
    std::vector<double> times{}, fullTimes{}, floors{};
};

}  // namespace

static HWND OpenWordSearch(const Program& program, const char* words) {
    PostMessageA(program.frame, WM_COMMAND, IDM_WORD_SEARCH, 0);
    const HWND dialog = WaitForDialog(program, "Word Search");
    SendMessageA(GetDlgItem(dialog, IDC_SEARCH_TEXT), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(words));
    return dialog;
}

static LRESULT LinesOf(const Program& program, HWND references) {
    return Ask(program, references, LB_GETCOUNT);
}

// Painting the list puts the top entry, which differs for each query, into the status bar, and the program does not
// answer messages before it has finished. The Reference List is filled only when its lines are requested, so that is
// included in the time.
static void TimeSearch(const Program& program, HWND references, ListedSearch& query, const RemoteMemory& room) {
    const HWND dialog = OpenWordSearch(program, query.words);
    const double start = Now();
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    AskUntil(program, 0, [&] { return StatusTextNow(program, kEntryPart, room) == query.firstEntry; });
    query.times.push_back(Now() - start);
    if (LinesOf(program, references) != query.lines) Fail(&program, "the Reference List is not full");
    query.fullTimes.push_back(Now() - start);
    if (StatusTextNow(program, kSummaryPart, room) != query.summary) Fail(&program, "the summary came after the paint");
}

static void LearnAnswers(const Program& program, HWND references, ListedSearch& query, const RemoteMemory& room) {
    const std::string before = StatusTextNow(program, kSummaryPart, room);
    PostMessageA(OpenWordSearch(program, query.words), WM_COMMAND, IDOK, 0);
    AskUntil(program, 0, [&] { return StatusTextNow(program, kSummaryPart, room) != before; });
    Sleep(500);
    query.lines = LinesOf(program, references);
    query.summary = StatusTextNow(program, kSummaryPart, room);
    query.firstEntry = StatusTextNow(program, kEntryPart, room);
    query.strings = ListStrings(references);
}

static double TimeOfBareList(HWND list, const std::vector<std::string>& strings) {
    const double start = Now();
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const std::string& line : strings) SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    return Now() - start;
}

static HWND BareList() {
    return CreateWindowExA(0, "LISTBOX", "", WS_POPUP | WS_VSCROLL | LBS_NOINTEGRALHEIGHT, 0, 0, 400, 400, nullptr,
                           nullptr, nullptr, nullptr);
}

int main() {
    ListedSearch queries[] = {{"lord", 0}, {"the", kMostTimesBareList}, {"grace", 0}};
    Program program = LaunchProgram(FolderWithScripture());
    WaitForFirstVerse(program, "Versewell97");
    const HWND references = Child(program.frame, {IDC_LIST_TABS, IDC_REFERENCE_LIST});
    const HWND list = BareList();
    const RemoteMemory room(program, kStatusRoom);
    for (ListedSearch& query : queries) LearnAnswers(program, references, query, room);
    for (int round = 0; round < kRounds; ++round) {
        for (ListedSearch& query : queries) {
            TimeSearch(program, references, query, room);
            query.floors.push_back(TimeOfBareList(list, query.strings));
        }
    }
    for (const ListedSearch& query : queries) {
        const std::string what = std::string(query.words) + " (" + std::to_string(query.lines) + " verses)";
        Print({"OK to painted list, " + what + " / bare list box", MedianOf(query.times), MedianOf(query.floors),
               query.mostTimesFloor});
        Print({"OK to both lists, " + what + " / bare list box", MedianOf(query.fullTimes), MedianOf(query.floors), 0});
    }
    CloseProgram(program);
    return ExitCode();
}
