// Runs the tool that makes note sets from installed texts: on Debian's commentaries, on damaged copies of them, and on
// a daily devotional that the test makes with libsword's tools.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "data/scratch_folder.h"
#include "notes/cross_references.h"
#include "notes/note_letters.h"
#include "notes/note_saving.h"
#include "scripture/reference_parser.h"
#include "tests/support/native_scripture.h"

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

static const fs::path kInstalled = "/usr/share/sword";  // the modules of Debian's packages
static const std::string kScofield = "modules/comments/zcom/scofield/";

namespace {

struct ImportRun {
    int exitCode = -1;
    std::string output;
    std::string errors;
};

}  // namespace

static ImportRun RunShell(const fs::path& scratch, const std::string& command) {
    const std::string streams = " > " + (scratch / "output").string() + " 2> " + (scratch / "errors").string();
    const int status = std::system((command + streams).c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBytes(scratch / "output"), ReadBytes(scratch / "errors")};
}

namespace {

struct ImportNotes : ScratchFolder {
    fs::path sets;

    void SetUp() override {
        ScratchFolder::SetUp();
        sets = folder / "sets";
    }

    ImportRun RunTool(const std::string& arguments) const {
        return RunShell(folder, VERSEWELL_IMPORT_NOTES " " + arguments);
    }
};

}  // namespace

// The notes of a set on the disk by verse, without the empty ones.
using ReadNotes = std::map<int, std::string>;

static ReadNotes NotesOfSet(const fs::path& sets, const std::string& name) {
    std::istringstream data(ReadBytes(sets / (name + ".nmd")));
    const std::string index = ReadBytes(sets / (name + ".nmi"));
    ReadNotes notes;
    std::size_t offset = 0;
    int verse = 0;
    for (std::string note; std::getline(data, note, '\0'); ++verse) {
        const std::string entry = index.substr(static_cast<std::size_t>(verse) * 4, 4);
        EXPECT_EQ(LittleEndian32(reinterpret_cast<const unsigned char*>(entry.data())), offset) << name << ' ' << verse;
        offset += note.size() + 1;
        if (!note.empty()) notes[verse] = note;
    }
    EXPECT_EQ(verse, kVerseCount) << name;
    EXPECT_EQ(index.size(), 124408u) << name;
    return notes;
}

static const VerseRecords& Records() {
    return TheRealScripture().records;
}

static int VerseOf(const std::string& reference) {
    return ParseReference(Records(), reference).verse;
}

static std::size_t Longest(const ReadNotes& notes) {
    std::size_t longest = 0;
    for (const auto& [verse, note] : notes) longest = std::max(longest, note.size());
    return longest;
}

// Complete lines, no control codes, no invalid characters.
static bool IsCleanText(const std::string& note) {
    const bool isInUtf8 = IsInUtf8(note);
    for (std::size_t i = 0; i < note.size(); ++i) {
        const auto byte = static_cast<unsigned char>(note[i]);
        const bool isLineEnd =
            (byte == '\r' && note.substr(i, 2) == "\r\n") || (byte == '\n' && i > 0 && note[i - 1] == '\r');
        const bool isMissing =
            !isInUtf8 && (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D);
        if (isMissing || byte == 0x7F || (byte < ' ' && !isLineEnd)) return false;
    }
    return true;
}

// The verses of each cross-reference line of a note.
static std::vector<std::vector<std::int32_t>> LinkedVerses(const std::string& note, int verse) {
    std::vector<std::vector<std::int32_t>> lines;
    for (std::size_t at = note.find("\n# "); at != std::string::npos; at = note.find("\n# ", at + 1))
        lines.push_back(CrossReferences(Records(), note, at + 1, verse));
    return lines;
}

static bool IsOnlyAReference(const std::string& note) {
    return note.starts_with("# ") && note.find('\n') == std::string::npos;
}

static ReadNotes WithTexts(ReadNotes notes) {
    std::erase_if(notes, [](const auto& entry) { return IsOnlyAReference(entry.second); });
    return notes;
}

// Each of the lines that are whole notes leads to one verse: the nearest before it with a text.
static void ExpectLinesToTheNoteBefore(const ReadNotes& notes) {
    int before = kNoVerse;
    for (const auto& [verse, note] : notes) {
        if (!IsOnlyAReference(note)) {
            before = verse;
            continue;
        }
        EXPECT_THAT(CrossReferences(Records(), note, 1, verse), ElementsAre(before)) << verse;
    }
}

static std::size_t CountLines(const ReadNotes& notes) {
    std::size_t lines = 0;
    for (const auto& [verse, note] : notes) {
        EXPECT_TRUE(IsCleanText(note)) << verse;
        EXPECT_LE(note.size(), kNoteTextLimit) << verse;
        for (const std::vector<std::int32_t>& verses : LinkedVerses(note, verse)) {
            EXPECT_THAT(verses, Not(IsEmpty())) << note;
            EXPECT_LT(verses.size(), 1600u) << note;
            ++lines;
        }
    }
    return lines;
}

// The configuration of this package claims index records of twelve bytes, but they have ten.
TEST_F(ImportNotes, ReadsACommentaryWithAWrongConfiguration) {
    const ImportRun run = RunTool("MHCC " + sets.string());
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output, AllOf(StartsWith("MHCC (Matthew Henry's Concise Commentary on the Whole Bible): read 4047 "
                                             "texts; introductions: 12; wrote 4049 notes with "),
                                  HasSubstr("; verses led to the note of their section: "), EndsWith("\n"),
                                  Not(HasSubstr("cut")), Not(HasSubstr("replaced"))));
    EXPECT_THAT(NamesIn(sets), ElementsAre("MHCC.nmd", "MHCC.nmi"));
    const ReadNotes all = NotesOfSet(sets, "MHCC");
    const ReadNotes notes = WithTexts(all);
    EXPECT_EQ(notes.size(), 4049u);
    ExpectLinesToTheNoteBefore(all);
    EXPECT_GT(all.size(), 30900u) << "almost every verse belongs to a section";
    EXPECT_EQ(all.at(VerseOf("Ro 8:9")), "# Ro 8:1");
    EXPECT_EQ(all.at(VerseOf("Ge 36:43")), "# Ge 36:1");
    EXPECT_GT(CountLines(notes), 600u);
    EXPECT_GT(Longest(notes), 8000u);
    EXPECT_LT(Longest(notes), 8500u);
    EXPECT_EQ(notes.at(VerseOf("Joh 3:1")).size(), Longest(notes));
    EXPECT_THAT(notes.at(2),
                AllOf(StartsWith("Verses 3-5\r\n\r\nGod said, Let there be light;"), EndsWith("\r\n# 1Jo 5:20")));
    EXPECT_THAT(notes.at(0), HasSubstr("God creates heaven and earth. (1-2)\r\nThe creation of light. (3-5)\r\n"));
    EXPECT_EQ(all.at(3), "# Ge 1:3") << "one text on three verses is one note, to which the other verses lead";
}

TEST_F(ImportNotes, ReadsACommentaryWithUnparsedReferencesAndGreek) {
    const ImportRun run = RunTool("Scofield " + sets.string() + " 'Study notes'");
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output, AllOf(HasSubstr("read 3207 texts; introductions: 7; wrote 3214 notes"),
                                  HasSubstr("; notes in UTF-8: 80;"), HasSubstr(" to the set \"Study notes\"")));
    const ReadNotes all = NotesOfSet(sets, "Study notes");
    EXPECT_EQ(all.at(VerseOf("Le 26:46")), "# Le 26:1") << "its only note is headed with the chapter";
    const ReadNotes notes = WithTexts(all);
    EXPECT_EQ(notes.size(), 3214u);
    EXPECT_THAT(notes.at(VerseOf("Mt 1:1")), StartsWith("Book Introduction - Matthew\r\n\r\n"));
    EXPECT_GT(CountLines(notes), 3000u);
    EXPECT_THAT(
        notes.at(0),
        AllOf(HasSubstr(
                  "\r\n# Mt 19:4-6; 24:37-39; Mr 10:4-9; Lu 11:49-51; 17:26-29, 32; Joh 1:5; 7:21-23; 8:44, 56\r\n"),
              HasSubstr("form \x93God.\x94")));
    EXPECT_THAT(notes.at(1), HasSubstr("\r\n# Jer 4:23-27; Isa 24:1; 45:18\r\n"));
    EXPECT_GT(Longest(notes), 7800u);
    const auto inUtf8 =
        std::count_if(notes.begin(), notes.end(), [](const auto& note) { return IsInUtf8(note.second); });
    EXPECT_EQ(inUtf8, 80);
    EXPECT_THAT(notes.at(22339), HasSubstr(" \u1F14\u03C3\u03C7\u03B1\u03C4\u03BF\u03C2 "));
}

TEST_F(ImportNotes, SplitsACommentaryOnWholePsalmsByVerse) {
    const ImportRun run = RunTool("TDavid " + sets.string());
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output, AllOf(HasSubstr("read 150 texts; introductions: 1; "),
                                  HasSubstr("; texts moved to their verses: "), Not(HasSubstr("cut"))));
    const ReadNotes notes = NotesOfSet(sets, "TDavid");
    EXPECT_GT(notes.size(), 2400u);
    EXPECT_LE(notes.size(), 2461u);
    EXPECT_GT(CountLines(notes), 3000u);
    EXPECT_EQ(notes.begin()->first, VerseOf("Ps 1:1"));
    EXPECT_LE(notes.rbegin()->first, VerseOf("Ps 150:6"));
    EXPECT_THAT(notes.at(VerseOf("Ps 1:2")),
                StartsWith("EXPLANATORY NOTES AND QUAINT SAYINGS\r\n\r\nVerse 2. \"But his will is"));
    EXPECT_THAT(notes.at(VerseOf("Ps 119:176")), StartsWith("EXPOSITION.\r\n\r\nVer. 176. "));
}

// ---- A daily devotional ---------------------------------------------------------------------------------------------

static const char* const kDaysConf =
    "[Days]\nDataPath=./modules/lexdict/rawld/days/days\nModDrv=RawLD4\nSourceType=ThML\nEncoding=UTF-8\nLang=en\n"
    "Category=Daily Devotional\nFeature=DailyDevotion\nDescription=A text for each day\n";

static void MakeDevotional(const fs::path& folder, const std::string& entries, const std::string& conf = kDaysConf) {
    const fs::path texts = folder / "library/modules/lexdict/rawld/days";
    fs::create_directories(texts);
    fs::create_directories(folder / "library/mods.d");
    WriteBytes(folder / "library/mods.d/days.conf", conf);
    WriteBytes(folder / "days.imp", entries);
    const ImportRun made =
        RunShell(folder, "imp2ld " + (folder / "days.imp").string() + " -4 -o " + (texts / "days").string());
    ASSERT_EQ(made.exitCode, 0) << made.errors;
}

static const char* const kThreeDays =
    "$$$01.01\n<h2>Morning</h2><p>Corn &amp; wine \u2014 <scripRef passage=\"Josh 5:12\">Jos. v. 12</scripRef></p>"
    "<h2>Evening</h2><p><scripRef passage=\"Song 1:4\">Cant. i. 4</scripRef> Love.</p>\n"
    "$$$01.02\n<p>One for the day: <scripRef>1 John 4:8</scripRef>, <scripRef>9-10</scripRef>.</p>\n"
    "$$$12.31\n<p>Nothing is named.</p>\n"
    "$$$About\n<p>Of this book.</p>\n";

static int VerseAt(const std::string& table, int month, int day, int reading) {
    const auto place = static_cast<std::size_t>(((month - 1) * 31 + day - 1) * 8 + reading * 4);
    return static_cast<int>(LittleEndian32(reinterpret_cast<const unsigned char*>(table.data() + place)));
}

TEST_F(ImportNotes, MakesADevotionalSetFromADailyDevotional) {
    MakeDevotional(folder, kThreeDays);
    const ImportRun run = RunTool("--modules " + (folder / "library").string() + " Days " + sets.string());
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output,
                AllOf(StartsWith("Days (A text for each day): read 3 days; wrote 4 notes with 3 lines of references"),
                      HasSubstr("; readings without a verse laid on the Psalms: 1"),
                      HasSubstr("; days without a text given the day before: 363"),
                      HasSubstr("; entries on no day left out: 1")));
    EXPECT_THAT(NamesIn(sets), ElementsAre("Days.dti", "Days.nmd", "Days.nmi"));
    const std::string table = ReadBytes(sets / "Days.dti");
    ASSERT_EQ(table.size(), 2976u);
    const int love = VerseOf("1Jo 4:8");
    EXPECT_EQ(VerseAt(table, 1, 1, 0), 5946);
    EXPECT_EQ(VerseAt(table, 1, 1, 1), 17541);
    EXPECT_EQ(VerseAt(table, 1, 2, 0), love);
    EXPECT_EQ(VerseAt(table, 2, 29, 1), love);
    EXPECT_EQ(VerseAt(table, 12, 31, 1), VerseOf("Ps 1:1"));

    const ReadNotes notes = NotesOfSet(sets, "Days");
    ASSERT_EQ(notes.size(), 4u);
    EXPECT_EQ(notes.at(5946), "January 1, Morning\r\n\r\nCorn & wine \x97 Jos. v. 12\r\n# Jos 5:12");
    EXPECT_EQ(notes.at(17541), "January 1, Evening\r\n\r\nCant. i. 4 Love.\r\n# So 1:4");
    EXPECT_THAT(notes.at(love), StartsWith("January 2\r\n\r\nOne for the day: 1 John 4:8, 9-10.\r\n# 1Jo 4:8"));
    EXPECT_EQ(notes.at(VerseOf("Ps 1:1")), "December 31\r\n\r\nNothing is named.");
}

TEST_F(ImportNotes, ShortensTextsThatAreTooLong) {
    std::string text = "$$$01.01\n<scripRef>Genesis 1:1</scripRef>";
    for (int i = 0; i < 80; ++i) text += "<p>" + std::string(1000, 'a') + "</p>";
    MakeDevotional(folder, text + "\n");
    const ImportRun run = RunTool("--modules " + (folder / "library").string() + " Days " + sets.string());
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("; notes cut: 1"));
    const std::string note = NotesOfSet(sets, "Days").at(0);
    EXPECT_LE(note.size(), kNoteTextLimit);
    EXPECT_GT(note.size(), kNoteTextLimit - 1200);
    EXPECT_THAT(note, EndsWith("aaa\r\n\r\n[The rest of this text was too long for a note and is missing here.]"));
}

// ---- Failures -------------------------------------------------------------------------------------------------------

static auto IsOneLineWith(const std::string& complaint) {
    return AllOf(
        StartsWith("import_notes: "), HasSubstr(complaint), EndsWith("\n"),
        testing::ResultOf([](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }, 1));
}

TEST_F(ImportNotes, NeverChangesAnExistingSet) {
    MakeDevotional(folder, kThreeDays);
    fs::create_directories(sets);
    for (const char* file : {"Days.nmi", "Days.nmd", "Days.dti", "Days.nmd.temp"}) {
        WriteBytes(sets / file, "mine");
        const ImportRun run = RunTool("--modules " + (folder / "library").string() + " Days " + sets.string());
        EXPECT_EQ(run.exitCode, 1) << file;
        EXPECT_EQ(run.output, "") << file;
        EXPECT_THAT(run.errors, IsOneLineWith("there is a note set \"Days\" already")) << file;
        EXPECT_THAT(NamesIn(sets), ElementsAre(file));
        EXPECT_EQ(ReadBytes(sets / file), "mine");
        fs::remove(sets / file);
    }
}

namespace {

struct ModuleDamage {
    const char* what;
    void (*damage)(const fs::path& library);
    const char* complaint;
};

}  // namespace

static void Resize(const fs::path& path, std::uintmax_t size) {
    ASSERT_TRUE(fs::exists(path));
    fs::resize_file(path, size);
}

static void ReplaceInConf(const fs::path& library, const std::string& from, const std::string& to) {
    std::string bytes = ReadBytes(library / "mods.d/scofield.conf");
    ASSERT_NE(bytes.find(from), std::string::npos) << from;
    WriteBytes(library / "mods.d/scofield.conf", bytes.replace(bytes.find(from), from.size(), to));
}

static constexpr ModuleDamage kDamages[] = {
    {"no library", [](const fs::path& library) { fs::remove_all(library); }, "there is no SWORD module Scofield"},
    {"another module", [](const fs::path& library) { ReplaceInConf(library, "[Scofield]", "[Other]"); },
     "there is no SWORD module Scofield"},
    {"a Bible", [](const fs::path& library) { ReplaceInConf(library, "ModDrv=zCom", "ModDrv=zText"); },
     "is neither a commentary nor a daily devotional, but: Biblical Texts"},
    {"other verses",
     [](const fs::path& library) { ReplaceInConf(library, "Lang=en", "Lang=en\nVersification=Synodal"); },
     "divides the Bible into verses in another way (Synodal)"},
    {"locked", [](const fs::path& library) { ReplaceInConf(library, "Lang=en", "Lang=en\nCipherKey="); }, "is locked"},
    {"no texts", [](const fs::path& library) { fs::remove_all(library / "modules"); },
     "has no text, or its files are missing"},
    {"no packed text", [](const fs::path& library) { fs::remove(library / kScofield / "nt.bzz"); },
     "is damaged: Matthew 1:1 cannot be read"},
    {"a truncated text", [](const fs::path& library) { Resize(library / kScofield / "ot.bzz", 100000); },
     "is damaged: "},
    {"a truncated index of verses", [](const fs::path& library) { Resize(library / kScofield / "nt.bzv", 5000); },
     "is damaged: its index is not whole"},
    {"a truncated index of blocks", [](const fs::path& library) { Resize(library / kScofield / "ot.bzs", 100); },
     "is damaged: "},
    {"a text overwritten",
     [](const fs::path& library) {
         std::string bytes = ReadBytes(library / kScofield / "ot.bzz");
         std::fill(bytes.begin() + 100, bytes.begin() + 2000, 'x');
         WriteBytes(library / kScofield / "ot.bzz", bytes);
     },
     "is damaged: Genesis 1:1 cannot be read"},
};

TEST_F(ImportNotes, ReportsDamagedModules) {
    const fs::path library = folder / "library";
    for (const ModuleDamage& row : kDamages) {
        fs::remove_all(library);
        fs::remove_all(sets);
        fs::create_directories(library / "mods.d");
        fs::create_directories(library / kScofield);
        fs::copy(kInstalled / "mods.d/scofield.conf", library / "mods.d/scofield.conf");
        fs::copy(kInstalled / kScofield, library / kScofield);
        row.damage(library);
        const ImportRun run = RunTool("--modules " + library.string() + " Scofield " + sets.string());
        EXPECT_EQ(run.exitCode, 1) << row.what;
        EXPECT_EQ(run.output, "") << row.what;
        EXPECT_THAT(run.errors, IsOneLineWith(row.complaint)) << row.what;
        EXPECT_THAT(NamesIn(sets), IsEmpty()) << row.what;
    }
}

// A limit on file sizes simulates a full disk: the table and the index would fit, but not the notes.
TEST_F(ImportNotes, LeavesNoFilesOnAFullDisk) {
    const ImportRun run =
        RunShell(folder, "bash -c 'trap \"\" XFSZ; ulimit -f 500; exec " VERSEWELL_IMPORT_NOTES " Scofield " +
                             sets.string() + "'");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors, IsOneLineWith("cannot write " + (sets / "Scofield.nmd").string()));
    EXPECT_THAT(NamesIn(sets), IsEmpty());
}

TEST_F(ImportNotes, RejectsInvalidNames) {
    for (const char* name : {"", "a/b", "a:b", "what?", "end.", " a", "a ", "a\tb", "..", "../a", "con", "Nul.old"}) {
        const ImportRun run = RunTool("Scofield " + sets.string() + " '" + name + "'");
        EXPECT_EQ(run.exitCode, 1) << name;
        EXPECT_THAT(run.errors, IsOneLineWith("cannot be the name of a note set")) << name;
    }
    EXPECT_THAT(NamesIn(sets), IsEmpty());
}

TEST_F(ImportNotes, ShowsUsageForWrongArguments) {
    for (const char* arguments :
         {"", "MHCC", "--modules", "--modules x", "--modules x MHCC", "--other x y z", "a b c d", "--help"}) {
        const ImportRun run = RunTool(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments;
        EXPECT_THAT(run.errors, StartsWith("usage: import_notes ")) << arguments;
    }
}
