// The taskbar's list of the last verses, as an installed copy writes it. Wine has no such lists, so the probe records
// what the system is asked for; see tests/driver/taskbar_probe.h.

#include <sstream>

#include <windows.h>

#include <psapi.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/probe.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/odd_folders.h"
#include "tests/windows/passage_pane.h"

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

static constexpr char kRecord[] = "taskbar.txt";

namespace {

struct Copy {
    ScratchFolder home = FolderWithScripture();
    ScratchFolder data = EmptyFolder();
    WithApplicationData applicationData{data.path};

    explicit Copy(bool isInstalled) {
        CopyProgramTo(home);
        if (!isInstalled) return;
        WriteFile(home, "installed.txt", "");
        std::filesystem::create_directory(data.path / "Versewell");
        WriteNoteSet({data.path / "Versewell", nullptr}, "My Notes");  // or the first start would ask for others
    }
};

struct Item {
    std::string title, arguments, path, icon;
};

}  // namespace

static void AskRecorder(const Program& program, ProbeQuestion question, const std::string& text) {
    Probe probe;
    probe.question = question;
    lstrcpynA(probe.text, text.c_str(), sizeof probe.text);
    if (AskProbe(program, probe).result == 0) Fail(&program, "the taskbar's list cannot be recorded");
}

static Program StartRecorded(const Copy& copy, const std::string& arguments = "") {
    StartOptions options = ProgramIn(copy.home);
    options.arguments = arguments;
    Program program = StartProgram(copy.home, options);
    AskRecorder(program, ProbeQuestion::RecordTaskbarList, (copy.data.path / kRecord).string());
    return program;
}

// What was recorded since this was called last.
static std::string TakeRecord(const Copy& copy) {
    const std::string record = ReadFile(copy.data, kRecord);
    std::filesystem::remove(copy.data.path / kRecord);
    return record;
}

// Goes to the verses and closes the program.
static std::string RecordOf(const Copy& copy, const std::vector<const char*>& verses, const char* removed = nullptr) {
    Program program = StartRecorded(copy);
    for (const char* verse : verses) GoTo(program, verse);
    if (removed != nullptr) AskRecorder(program, ProbeQuestion::RemoveFromTaskbarList, removed);
    EXPECT_EQ(TakeRecord(copy), "") << "the list is written at the exit";
    EXPECT_EQ(CloseProgram(program), 0);
    return TakeRecord(copy);
}

// The items of a list that was written completely, and nothing else.
static std::vector<Item> ItemsIn(const std::string& record) {
    std::istringstream lines(record);
    std::vector<Item> items;
    std::string line, last;
    std::getline(lines, line);
    EXPECT_EQ(line, "category\tLast Verses") << record;
    while (std::getline(lines, line)) {
        last = line;
        if (line == "commit") continue;
        std::istringstream parts(line);
        std::string kind;
        Item item;
        for (std::string* part : {&kind, &item.title, &item.arguments, &item.path, &item.icon})
            std::getline(parts, *part, '\t');
        EXPECT_EQ(kind, "item") << record;
        items.push_back(item);
    }
    EXPECT_EQ(last, "commit") << record;
    return items;
}

static std::vector<std::string> TitlesIn(const std::string& record) {
    std::vector<std::string> titles;
    for (const Item& item : ItemsIn(record)) titles.push_back(item.title);
    return titles;
}

// In small letters.
static std::vector<std::string> LibrariesOf(const Program& program) {
    HMODULE modules[200];
    DWORD size = 0;
    EnumProcessModules(program.process.get(), modules, sizeof modules, &size);
    std::vector<std::string> names;
    for (std::size_t at = 0; at < size / sizeof(HMODULE); ++at) {
        char name[MAX_PATH] = "";
        GetModuleBaseNameA(program.process.get(), modules[at], name, sizeof name);
        names.emplace_back(CharLowerA(name));
    }
    return names;
}

TEST(TaskbarList, HasTheLastVersesOfAnInstalledCopy) {
    const Copy copy(true);
    const std::vector<Item> items = ItemsIn(RecordOf(copy, {"Ps 119:176", "John 3:16", "Song 1:1"}));
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[0].title, "Song of Solomon 1:1");
    EXPECT_EQ(items[1].title, "John 3:16");
    EXPECT_EQ(items[2].title, "Psalms 119:176");
    const std::string program = (copy.home.path / "versewell.exe").string();
    for (const Item& item : items) {
        EXPECT_STRCASEEQ(item.path.c_str(), program.c_str());
        EXPECT_STRCASEEQ(item.icon.c_str(), (program + ",0").c_str());
    }
    EXPECT_THAT(TitlesIn(RecordOf(copy, {"Ge 2:1", "John 3:16"})),
                ElementsAre("John 3:16", "Genesis 2:1", "Song of Solomon 1:1", "Psalms 119:176"));
}

// What the system starts when the user chooses one of them, also while the program runs.
TEST(TaskbarList, OpensTheProgramAtItsVerses) {
    const Copy copy(true);
    for (const Item& item : ItemsIn(RecordOf(copy, {"1 John 1:9", "Song 1:1", "Re 22:21"}))) {
        Program started = StartRecorded(copy, item.arguments);
        WaitUntil(started, item.title, [&] { return Top(started) == item.title; });
        GoTo(started, "Jude");
        StartOptions options = ProgramIn(copy.home);
        options.arguments = item.arguments;
        EXPECT_EQ(WaitForExit(LaunchProgram(copy.home, options)), 0);
        WaitUntil(started, item.title, [&] { return Top(started) == item.title; });
        EXPECT_EQ(CloseProgram(started), 0);
    }
}

TEST(TaskbarList, LacksWhatTheUserHasRemoved) {
    const Copy copy(true);
    const std::string first = RecordOf(copy, {"Ge 1:1", "Ex 1:1", "Le 1:1"});
    const std::string removed = ItemsIn(first).at(1).arguments;
    EXPECT_THAT(TitlesIn(RecordOf(copy, {"Nu 1:1"}, removed.c_str())),
                ElementsAre("Numbers 1:1", "Leviticus 1:1", "Genesis 1:1"));
    EXPECT_THAT(TitlesIn(RecordOf(copy, {"De 1:1"})),
                ElementsAre("Deuteronomy 1:1", "Numbers 1:1", "Leviticus 1:1", "Genesis 1:1"));
}

TEST(TaskbarList, IsOnlyWrittenIfItHasChanged) {
    const Copy copy(true);
    EXPECT_EQ(RecordOf(copy, {}), "");
    EXPECT_NE(RecordOf(copy, {"Ge 2:1"}), "");
    EXPECT_EQ(RecordOf(copy, {}), "");
}

TEST(TaskbarList, IsNotWrittenByAPortableCopy) {
    EXPECT_EQ(RecordOf(Copy(false), {"Ge 2:1", "John 3:16"}), "");
}

// Its libraries are large; the list is written when nobody waits for them.
TEST(TaskbarList, CostsNothingAtTheStart) {
    const Copy copy(true);
    const Program program = StartProgram(copy.home, ProgramIn(copy.home));
    EXPECT_THAT(LibrariesOf(program), Not(Contains("shell32.dll")));
    EXPECT_THAT(LibrariesOf(program), Contains("user32.dll"));
}
