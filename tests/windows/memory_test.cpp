// Memory that is only used for a moment is given back. Wine's host tells how much of a file is in memory.

#include <cstdlib>

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/driver.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

// Prints how many KiB of the text in this folder are in the memory of the program that has mapped it.
static constexpr char kCount[] =
    "maps=$(grep -l \"$(pwd -P)/_avtext.dat\" /proc/[0-9]*/maps 2>/dev/null | head -n 1)\n"
    "sed -n '/_avtext.dat$/,/^Rss:/ s/^Rss: *\\([0-9]*\\) kB/\\1/p' ${maps%maps}smaps >in-memory\n";

static int KilobytesOfText(const Program& program) {
    RunOnHost(program.folder, "sh ./count");
    const std::string count = ReadFile(program.folder, "in-memory");
    EXPECT_NE(count, "");
    return std::atoi(count.c_str());
}

static Program StartCounted() {
    const ScratchFolder folder = FolderWithScripture();
    WriteFile(folder, "count", kCount);
    return StartProgram(folder);
}

// The text has 4 MB; with each piece that is read, the host brings in 64 KiB.
static void WaitUntilTextIsGivenBack(const Program& program) {
    WaitUntil(program, "the text to be given back", [&] { return KilobytesOfText(program) < 1000; });
}

// Without input from outside: what is read then is only needed for searches.
TEST(Memory, OfTheTextIsGivenBackAfterTheStart) {
    Program program = StartCounted();
    WaitUntilTextIsGivenBack(program);
    CloseProgram(program);
}

// What was given back is read again: each search has the right result.
TEST(Memory, OfTheTextIsGivenBackAfterEachSearch) {
    Program program = StartCounted();
    for (int round = 0; round < 2; ++round) {
        SearchFor(program, {"the"});
        EXPECT_EQ(StatusPart(program, 0), "24091 verses, 63919 occurrences");
        WaitUntilTextIsGivenBack(program);
        SearchFor(program, {"grace"});
        EXPECT_EQ(StatusPart(program, 0), "159 verses, 170 occurrences");
        EXPECT_EQ(StatusPart(program, 1), "Genesis 6:8");
        WaitUntilTextIsGivenBack(program);
    }
    ScrollPassage(program, SB_PAGEDOWN);
    EXPECT_GT(KilobytesOfText(program), 0);  // what the Passage has read stays
    CloseProgram(program);
}
