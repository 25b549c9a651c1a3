// Kills the program while a note is being written: at random moments, and at each file operation of a write of the
// session file. With VERSEWELL_LONG in the environment there are 200 random moments instead of 10.

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/session_steps.h"

using Clock = std::chrono::steady_clock;

static bool IsToolbarShown(const Program& program) {
    return IsShown(Child(program.frame, {IDC_TOOLBAR}));
}

// ---- At random moments ----------------------------------------------------------------------------------------------

namespace {

struct TypedLetter {
    char letter;
    Clock::time_point processed;  // by the program, at the latest
};

// A stretch of typing that ends with a kill.
struct Typing {
    std::string before;  // the text in the editor at its start
    std::vector<TypedLetter> letters;
    Clock::duration longestStep{};  // from one letter to the next: the longest write, or delay by the machine
    Clock::time_point killed;
};

}  // namespace

static Typing TypeAndKill(const Program& program, Clock::duration length) {
    Typing typing{TextOf(NoteEditOf(program)), {}, {}, {}};
    const auto start = Clock::now();
    auto last = start;
    do {
        const char letter = static_cast<char>('a' + typing.letters.size() % 26);
        Type(program, std::string_view(&letter, 1));
        const auto now = Clock::now();
        typing.longestStep = std::max(typing.longestStep, now - last);
        typing.letters.push_back({letter, last = now});
    } while (Clock::now() - start < length);
    typing.killed = Clock::now();
    TerminateProcess(program.process.get(), 9);
    WaitForExit(program);
    return typing;
}

// What must be there: all but the letters of the last second. On a slow disk it may be longer: the longest write of the
// stretch holds up one letter, and the program writes within four times as long and 0.6 seconds.
static Clock::duration MostLost(const Typing& typing) {
    return std::chrono::seconds(1) + 4 * typing.longestStep;
}

static std::string LeastText(const Typing& typing) {
    std::string text = typing.before;
    for (const auto& [letter, processed] : typing.letters)
        if (typing.killed - processed > MostLost(typing)) text += letter;
    return text;
}

static std::string WholeText(const Typing& typing) {
    std::string text = typing.before;
    for (const TypedLetter& typed : typing.letters) text += typed.letter;
    return text;
}

static bool Begins(const std::string& text, const std::string& beginning) {
    return text.starts_with(beginning);
}

TEST(KilledSession, LosesAtMostASecondOfTyping) {
    const int kills = IsLongRun() ? 200 : 10;
    std::mt19937 random(3);
    std::uniform_int_distribution<int> milliseconds(0, 3000);
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "Text: ");
    WaitForSession(program, "Text: ");
    for (int kill = 0; kill < kills && !HasFailure(); ++kill) {
        SCOPED_TRACE(kill);
        const bool shown = !IsToolbarShown(program);
        Command(program, IDM_VIEW_TOOLBAR);
        const auto toggled = Clock::now();
        Press(program, "Ctrl+End");
        const Typing typing = TypeAndKill(program, std::chrono::milliseconds(milliseconds(random)));
        program = StartAfterKill(folder, "y");
        const std::string text = TextOf(NoteEditOf(program));
        EXPECT_TRUE(Begins(WholeText(typing), text)) << text;
        EXPECT_TRUE(Begins(text, LeastText(typing))) << text << " lacks some of " << LeastText(typing);
        const bool isOldEnough = typing.killed - toggled > MostLost(typing);
        EXPECT_TRUE(!isOldEnough || IsToolbarShown(program) == shown);
        if (text.size() > 500) {  // begin anew, so that letters stay quick
            Press(program, "Ctrl+a");
            Press(program, "Delete");
            Type(program, "Text: ");
            WaitUntil(program, "the short text", [&] { return !HoldsSession(folder, text); });
        }
    }
}

// ---- At each file operation -----------------------------------------------------------------------------------------

// The letter is posted, because a write that the start has put off may end the program before the letter is there.
TEST(KilledSession, IsOldOrNewAfterEachFileOperation) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "a");
    WaitForSession(program, "a");
    std::string before = "a";
    int kills = 0;
    bool isKilled = true;
    for (unsigned operation = 1; isKilled && !HasFailure(); ++operation) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        const std::string after = before + "b";
        WaitForSession(program, before);
        Press(program, "Ctrl+End");
        const HWND editor = NoteEditOf(program);
        EndAtFileOperation(program, operation);
        PostMessageA(editor, WM_CHAR, 'b', 0);
        WaitUntil(program, "the write", [&] { return !IsRunning(program) || HoldsSession(folder, after); });
        isKilled = !IsRunning(program);
        Kill(program);
        program = StartAfterKill(folder, "y");
        const std::string text = TextOf(NoteEditOf(program));
        EXPECT_TRUE(text == after || (isKilled && text == before)) << text;
        kills += isKilled;
        before = text;
    }
    EXPECT_GE(kills, 6) << "creating, twice writing, flushing, closing, renaming";
}
