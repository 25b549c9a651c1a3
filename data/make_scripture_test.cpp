// Runs the tool on copies of the installed module: what it reports and leaves in its folder when the module is missing,
// of another version or damaged.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "data/scratch_folder.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static const char* const kInstalled = "/usr/share/sword";  // the modules of Debian's packages
static const char* const kConf = "mods.d/engKJV2006eb.conf";
static const std::string kTexts = "modules/texts/ztext/engKJV2006eb/";

namespace {

struct ToolRun {
    int exitCode = -1;
    std::string errors;
};

struct MakeScripture : ScratchFolder {
    fs::path modules;
    fs::path data;

    void SetUp() override {
        ScratchFolder::SetUp();
        modules = folder / "modules";
        data = folder / "data";
        CopyModule();
    }

    void CopyModule() const {
        fs::remove_all(modules);
        fs::create_directories(modules / "mods.d");
        fs::create_directories(modules / kTexts);
        fs::copy(fs::path(kInstalled) / kConf, modules / kConf);
        fs::copy(fs::path(kInstalled) / kTexts, modules / kTexts);
    }

    ToolRun RunTool(const std::string& arguments) const {
        const fs::path errors = folder / "errors";
        const int status = std::system((VERSEWELL_MAKE_SCRIPTURE " " + arguments + " 2> " + errors.string()).c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBytes(errors)};
    }
    ToolRun MakeFromCopy() const { return RunTool("--modules " + modules.string() + " " + data.string()); }
};

}  // namespace

TEST_F(MakeScripture, WritesTheSameFilesAsTheBuild) {
    const ToolRun run = MakeFromCopy();
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(NamesIn(data), ElementsAre("_avtext.dat", "_avvidx.dat", "_avwidx.dat", "_avwptr.dat", "_avwrds.dat"));
    for (const std::string& name : NamesIn(data))
        EXPECT_EQ(ReadBytes(data / name), ReadBytes(fs::path(VERSEWELL_DATA_DIR) / name)) << name;
}

static void ReplaceOnce(const fs::path& path, const std::string& from, const std::string& to) {
    std::string bytes = ReadBytes(path);
    ASSERT_NE(bytes.find(from), std::string::npos) << path;
    WriteBytes(path, bytes.replace(bytes.find(from), from.size(), to));
}

// Swaps two neighbouring verses in the index, which has ten bytes for each verse.
static void SwapVerses(const fs::path& index) {
    constexpr std::size_t kRecord = 10, kSomeVerse = 200;
    std::string bytes = ReadBytes(index);
    const auto first = bytes.begin() + kSomeVerse * kRecord;
    std::swap_ranges(first, first + kRecord, first + kRecord);
    WriteBytes(index, bytes);
}

namespace {

struct DamageRow {
    const char* what;
    void (*damage)(const fs::path& modules);
    const char* complaint;
};

}  // namespace

static constexpr DamageRow kDamages[] = {
    {"no folder", [](const fs::path& modules) { fs::remove_all(modules); }, "there is no SWORD module engKJV2006eb"},
    {"an empty folder",
     [](const fs::path& modules) {
         fs::remove_all(modules / "mods.d");
         fs::remove_all(modules / "modules");
     },
     "there is no SWORD module engKJV2006eb"},
    {"another module", [](const fs::path& modules) { ReplaceOnce(modules / kConf, "[engKJV2006eb]", "[Other]"); },
     "there is no SWORD module engKJV2006eb"},
    {"another version",
     [](const fs::path& modules) { ReplaceOnce(modules / kConf, "\nVersion=14.3\n", "\nVersion=15.0\n"); },
     "is version 15.0, but version 14.3 is needed"},
    {"no version", [](const fs::path& modules) { ReplaceOnce(modules / kConf, "\nVersion=14.3\n", "\n"); },
     "is version (unknown), but version 14.3 is needed"},
    {"no texts", [](const fs::path& modules) { fs::remove_all(modules / "modules"); },
     "is damaged: Ge 1:1 cannot be read"},
    {"no New Testament", [](const fs::path& modules) { fs::remove(modules / kTexts / "nt.bzz"); },
     "is damaged: Mt 1:1 cannot be read"},
    {"a truncated text", [](const fs::path& modules) { fs::resize_file(modules / kTexts / "ot.bzz", 500000); },
     "is damaged: "},
    {"a truncated index of verses", [](const fs::path& modules) { fs::resize_file(modules / kTexts / "nt.bzv", 5000); },
     "is damaged: "},
    {"a truncated index of blocks", [](const fs::path& modules) { fs::resize_file(modules / kTexts / "ot.bzs", 100); },
     "is damaged: "},
    {"verses in each other's place", [](const fs::path& modules) { SwapVerses(modules / kTexts / "ot.bzv"); },
     "is damaged: the texts are not those of the edition"},
};

static auto IsOneLineWith(const char* complaint) {
    return AllOf(
        StartsWith("make_scripture: "), HasSubstr(complaint), EndsWith("\n"),
        testing::ResultOf([](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }, 1));
}

TEST_F(MakeScripture, ReportsDamagedModules) {
    for (const DamageRow& row : kDamages) {
        CopyModule();
        row.damage(modules);
        const ToolRun run = MakeFromCopy();
        EXPECT_EQ(run.exitCode, 1) << row.what;
        EXPECT_THAT(run.errors, IsOneLineWith(row.complaint)) << row.what;
        EXPECT_THAT(NamesIn(data), IsEmpty()) << row.what;
    }
}

TEST_F(MakeScripture, KeepsAnOlderSetOnFailure) {
    fs::create_directories(data);
    WriteBytes(data / "_avtext.dat", "older text");
    WriteBytes(data / "_avwrds.dat", "older words");
    for (const DamageRow& row : kDamages) {
        CopyModule();
        row.damage(modules);
        EXPECT_EQ(MakeFromCopy().exitCode, 1) << row.what;
        EXPECT_THAT(NamesIn(data), ElementsAre("_avtext.dat", "_avwrds.dat")) << row.what;
        EXPECT_EQ(ReadBytes(data / "_avtext.dat"), "older text") << row.what;
        EXPECT_EQ(ReadBytes(data / "_avwrds.dat"), "older words") << row.what;
    }
}

TEST_F(MakeScripture, KeepsAnOlderSetWhenAFileCannotBeWritten) {
    fs::create_directories(data / "_avwidx.dat");  // a folder with the name of the last file
    WriteBytes(data / "_avtext.dat", "older text");
    const ToolRun run = MakeFromCopy();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, IsOneLineWith("_avwidx.dat is in the way"));
    EXPECT_THAT(NamesIn(data), ElementsAre("_avtext.dat", "_avwidx.dat"));
    EXPECT_EQ(ReadBytes(data / "_avtext.dat"), "older text");
}

// A limit on file sizes simulates a full disk: the first file fits, the text does not.
TEST_F(MakeScripture, KeepsAnOlderSetWhenTheDiskIsFull) {
    fs::create_directories(data);
    WriteBytes(data / "_avvidx.dat", "older verses");
    const std::string command = "bash -c 'trap \"\" XFSZ; ulimit -f 1000; exec " VERSEWELL_MAKE_SCRIPTURE
                                " --modules " +
                                modules.string() + " " + data.string() + "' 2> " + (folder / "errors").string();
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_THAT(ReadBytes(folder / "errors"), IsOneLineWith("cannot write "));
    EXPECT_THAT(NamesIn(data), ElementsAre("_avvidx.dat"));
    EXPECT_EQ(ReadBytes(data / "_avvidx.dat"), "older verses");
}

TEST_F(MakeScripture, ShowsUsageForWrongArguments) {
    const char* const wrong[] = {"", "--modules", "--modules x", "--other x y", "a b", "--help"};
    for (const char* arguments : wrong) {
        const ToolRun run = RunTool(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments;
        EXPECT_THAT(run.errors, StartsWith("usage: make_scripture ")) << arguments;
    }
}
