#include "notes/note_set_changes.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_backup.h"
#include "notes/note_history.h"
#include "notes/note_recovery.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/native_scripture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::StartsWith;
using testing::UnorderedElementsAre;

static const NoteTime kNow = {"2024-12-31", 1735603200, 3723};

// Sets that have been loaded; each has a note for Genesis 1:1 that names the set.
struct SetsOnDisk {
    FakeNoteFiles fakes;
    NoteFiles files;
    NoteSets notes;
};

static void Open(SetsOnDisk& disk, const std::vector<std::string>& names, const std::string& devotional = "(none)") {
    for (const std::string& name : names) AddFakeSet(disk.fakes, name, {{0, "in " + name}});
    if (devotional != "(none)") disk.fakes.contents[devotional + ".dti"] = {1, 0, 0, 0};
    disk.files = DeviceOver(disk.fakes);
    ASSERT_TRUE(FindNoteSets(disk.files, disk.notes));
    disk.fakes.log.clear();
}

static std::vector<std::string> NamesOf(const NoteSets& notes) {
    std::vector<std::string> names;
    for (const NoteSet& set : notes.sets) names.push_back(NoteSetName(set));
    return names;
}

static std::vector<std::string> FilesOf(const SetsOnDisk& disk) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : disk.fakes.contents) names.push_back(name);
    return names;
}

static std::string FirstNote(SetsOnDisk& disk, int set) {
    disk.notes.currentSet = set;
    if (!ReadNoteText(disk.files, TheRealScripture().records, disk.notes, 0)) return "(unreadable)";
    return disk.notes.noteText;
}

// The sets that the next start finds.
static std::vector<std::string> NamesAfterRestart(const SetsOnDisk& disk) {
    NoteSets notes;
    EXPECT_TRUE(FindNoteSets(disk.files, notes));
    return NamesOf(notes);
}

// ---- Names ----------------------------------------------------------------------------------------------------------

// The reason why a name is refused; empty when it is not.
static std::string ReasonAgainstName(const std::string& name) {
    static const std::string failed = "Error creating note files\n\n";
    SetsOnDisk disk;
    Open(disk, {"other"});
    const std::string told = CreateNoteSet(disk.files, disk.notes, name);
    return told.starts_with(failed) ? told.substr(failed.size()) : told;
}

TEST(NoteSetNames, AcceptEveryNameAllowedOnWindows) {
    for (const std::string name : {"", "a.b", ".", "a.", " a ", "M\xFCller \xB6", "CONsole", "COM", "COM0", "LPT10",
                                   "my con", "a+b [c] {d} (e) & 'f' #1, 100%~"})
        EXPECT_EQ(ReasonAgainstName(name), "") << name;
}

// Its tab would show nothing.
TEST(NoteSetNames, RejectBlanksOnly) {
    for (const char* name : {" ", "   ", "\xA0", " \xA0 "})
        EXPECT_EQ(ReasonAgainstName(name), "The name of a note set cannot have blanks only.") << name;
    SetsOnDisk disk;
    Open(disk, {"Mine"});
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, std::string("  ")),
              "Rename failed. The name of a note set cannot have blanks only.");
    EXPECT_THAT(NamesOf(disk.notes), ElementsAre("Mine"));
}

// The messages say nothing of it.
TEST(NoteSetNames, AreToldIfTheyAreInUse) {
    SetsOnDisk disk;
    Open(disk, {"Mine"});
    disk.fakes.contents["Index.nmi"] = disk.fakes.contents["Data.nmd"] = {};
    const auto told = [&](std::u16string_view name) { return NameInUse(disk.files, name); };
    for (const char16_t* name : {u"Mine", u"Index", u"Data"}) {
        const std::string narrow(name, name + std::u16string_view(name).size());
        EXPECT_EQ(told(name), '"' + narrow + "\" is already the name of a note set");
    }
    for (const char16_t* name : {u"Other", u"", u"\u039B", u"what?"}) EXPECT_EQ(told(name), "");
}

TEST(NoteSetNames, RejectNamesNotAllowedOnWindows) {
    for (const char forbidden : std::string("\\/:*?\"<>|\t\n\x01\x1F")) {
        EXPECT_THAT(ReasonAgainstName(std::string("a") + forbidden + "b"), HasSubstr("\\ / : * ? \" < > |"));
    }
    for (const char* name : {"..\\up", "C:\\a", "a:stream", "dir/a"}) EXPECT_NE(ReasonAgainstName(name), "") << name;
    for (const char* name : {"CON", "nul", "Prn", "aux", "com1", "LPT9", "nul.old", "con .a.b", "COM\xB9"})
        EXPECT_EQ(ReasonAgainstName(name),
                  std::string("Windows keeps the name \"") + name + "\" for itself. Choose another one.");
}

TEST(NoteSetNames, AreRefusedIfTheCodePageLacksTheirLetters) {
    for (const std::u16string_view typed : {u"\u039B\u03CC\u03B3\u03BF\u03C2", u"\u03A6asa", u"\uFF21\uFF44",
                                            u"a\u0101", u"\xD83D\xDE00", u"what? \u05E9"}) {
        SetsOnDisk disk;
        Open(disk, {"Mine"});
        const auto before = disk.fakes.contents;
        EXPECT_EQ(SetNameOf(disk.files, typed), std::nullopt);
        EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, typed),
                  "Error creating note files\n\nThe name has letters that this system's code page lacks. Choose a name "
                  "without them.");
        EXPECT_EQ(
            RenameNoteSet(disk.files, disk.notes, typed),
            "Rename failed. The name has letters that this system's code page lacks. Choose a name without them.");
        EXPECT_THAT(NamesOf(disk.notes), ElementsAre("Mine"));
        EXPECT_EQ(disk.fakes.contents, before);
    }
}

TEST(NoteSetNames, AreStoredInTheCodePageAsTheyAreTyped) {
    SetsOnDisk disk;
    Open(disk, {"Mine"});
    EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, u"M\u00FCller \u00B6"), "");
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, u"caf\u00E9"), "");
    EXPECT_THAT(NamesOf(disk.notes), ElementsAre("caf\xE9", "M\xFCller \xB6"));
    EXPECT_THAT(CreateNoteSet(disk.files, disk.notes, u"a?"), HasSubstr("\\ / : * ? \" < > |"));
}

// ---- Create ---------------------------------------------------------------------------------------------------------

TEST(CreateNoteSet, AddsAnEmptySetAndKeepsTheCurrentOne) {
    for (const std::string name : {"New", "a.b", "", "two words", "M\xFCller"}) {
        SetsOnDisk disk;
        Open(disk, {"Old", "Older"}, "Older");
        disk.notes.currentSet = 1;
        EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, name), "");
        EXPECT_THAT(NamesOf(disk.notes), ElementsAre("Old", "Older", name));
        EXPECT_EQ(disk.notes.currentSet, 1);
        EXPECT_EQ(disk.notes.devotionalSet, 1);
        EXPECT_EQ(disk.fakes.contents[name + ".nmd"], std::vector<unsigned char>(31102, 0));
        EXPECT_EQ(disk.fakes.contents[name + ".nmi"], FakeSetOf({}).index);
        EXPECT_EQ(disk.notes.sets[2].dataStamp.size, 31102u);
        EXPECT_EQ(disk.notes.sets[2].indexStamp.size, 124408u);
        EXPECT_EQ(FirstNote(disk, 2), "No note for Genesis 1:1.");
        EXPECT_THAT(disk.fakes.log, testing::Contains("create " + name + ".nmi"));
        EXPECT_THAT(NamesAfterRestart(disk), UnorderedElementsAre("Old", "Older", name));
    }
}

TEST(CreateNoteSet, ChangesNothingOnFailure) {
    static constexpr struct {
        const char* name;
        const char* uncreatable;
        const char* lastStep;
    } kRows[] = {
        {"Old", "", "create Old.nmd"},  // the name is in use
        {"New", "New.nmd", "create New.nmd"},
        {"New", "New.nmi", "remove New.nmd"},  // an incomplete set is removed
    };
    for (const auto& row : kRows) {
        SetsOnDisk disk;
        Open(disk, {"Old", "Older"});
        disk.fakes.uncreatable = {row.uncreatable};
        const auto before = disk.fakes.contents;
        EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, row.name), "Error creating note files");
        EXPECT_EQ(disk.fakes.contents, before);
        EXPECT_THAT(NamesOf(disk.notes), ElementsAre("Old", "Older"));
        EXPECT_EQ(disk.fakes.log.back(), row.lastStep);
    }
}

TEST(CreateNoteSet, DoesNotReplaceAnIndexWithoutDataFile) {
    SetsOnDisk disk;
    Open(disk, {"Old"});
    disk.fakes.contents["New.nmi"] = {1, 2, 3};
    EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, "New"), "Error creating note files");
    EXPECT_THAT(FilesOf(disk), ElementsAre("New.nmi", "Old.nmd", "Old.nmi"));
    EXPECT_EQ(disk.fakes.contents["New.nmi"], (std::vector<unsigned char>{1, 2, 3}));
}

TEST(CreateNoteSet, ReportsAnInvalidName) {
    SetsOnDisk disk;
    Open(disk, {"Old"});
    for (const char* name : {"a?b", "..\\a", "CON"}) {
        const std::string told = CreateNoteSet(disk.files, disk.notes, name);
        EXPECT_THAT(told, StartsWith("Error creating note files\n\n"));
        EXPECT_THAT(told, HasSubstr(ReasonAgainstName(name)));
    }
    EXPECT_THAT(disk.fakes.log, IsEmpty());
    EXPECT_EQ(disk.notes.sets.size(), 1u);
}

TEST(CreateNoteSet, RejectsTheThirtySecondSet) {
    SetsOnDisk disk;
    std::vector<std::string> names;
    for (int set = 1; set <= 30; ++set) names.push_back("set " + std::to_string(set));
    Open(disk, names);
    EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, "the 31st"), "");
    EXPECT_THAT(CreateNoteSet(disk.files, disk.notes, "the 32nd"), StartsWith("There are 31 note sets"));
    EXPECT_EQ(disk.notes.sets.size(), 31u);
    EXPECT_FALSE(disk.fakes.contents.contains("the 32nd.nmd"));
}

// ---- Rename ---------------------------------------------------------------------------------------------------------

TEST(RenameNoteSet, RenamesAllFiles) {
    for (const std::string name : {"New", "a.b", "", "b "}) {
        SetsOnDisk disk;
        Open(disk, {"c", "a.old", "d"}, "a.old");
        disk.notes.currentSet = 1;
        disk.fakes.contents["a.old.nmd.temp"] = {1};
        EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, name), "");
        EXPECT_THAT(NamesOf(disk.notes), ElementsAre("c", name, "d"));
        EXPECT_EQ(disk.notes.currentSet, 1);
        EXPECT_EQ(disk.notes.devotionalSet, 1);
        EXPECT_THAT(
            disk.fakes.log,
            ElementsAre("rename a.old.nmd to " + name + ".nmd", "rename a.old.nmi to " + name + ".nmi",
                        "rename a.old.dti to " + name + ".dti", "rename a.old.nmd.temp to " + name + ".nmd.temp"));
        EXPECT_EQ(FirstNote(disk, 1), "in a.old");
        EXPECT_THAT(NamesAfterRestart(disk), UnorderedElementsAre("c", name, "d"));
    }
}

TEST(RenameNoteSet, DoesNotRenameTheTableOfAnotherSet) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"}, "b");
    disk.fakes.contents["a.dti"] = {9};
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "c"), "");
    EXPECT_TRUE(disk.fakes.contents.contains("a.dti"));
    EXPECT_TRUE(disk.fakes.contents.contains("b.dti"));
}

TEST(RenameNoteSet, IgnoresATableThatCannotBeRenamed) {
    SetsOnDisk disk;
    Open(disk, {"a"}, "a");
    disk.fakes.unrenamable = {"a.dti"};
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "b"), "");
    EXPECT_EQ(disk.notes.devotionalSet, 0);
    EXPECT_THAT(FilesOf(disk), ElementsAre("a.dti", "b.nmd", "b.nmi"));
}

TEST(RenameNoteSet, ToItsOwnNameDoesNothing) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "a"), "");
    EXPECT_THAT(disk.fakes.log, IsEmpty());
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "A"), "");
    EXPECT_THAT(NamesOf(disk.notes), ElementsAre("A", "b"));
}

TEST(RenameNoteSet, ChangesNothingWhenTheDataFileCannotBeRenamed) {
    for (const char* name : {"b", "c"}) {  // first the name is in use, then the file
        SetsOnDisk disk;
        Open(disk, {"a", "b"}, "a");
        if (*name == 'c') disk.fakes.unrenamable = {"a.nmd"};
        const auto before = disk.fakes.contents;
        EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, name), kRenameFailed);
        EXPECT_EQ(disk.fakes.contents, before);
        EXPECT_THAT(NamesOf(disk.notes), ElementsAre("a", "b"));
        EXPECT_EQ(disk.fakes.log.size(), 1u);
        EXPECT_EQ(FirstNote(disk, 0), "in a");
    }
}

TEST(RenameNoteSet, DisablesTheSetWhenTheIndexCannotBeRenamed) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"}, "a");
    disk.fakes.unrenamable = {"a.nmi"};
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "c"), kRenameFailed);
    EXPECT_THAT(FilesOf(disk), ElementsAre("a.dti", "a.nmi", "b.nmd", "b.nmi", "c.nmd"));
    EXPECT_EQ(disk.notes.sets[0].dataFileName, "a.nmi");
    EXPECT_THAT(NamesOf(disk.notes), ElementsAre("a", "b"));
    EXPECT_TRUE(disk.notes.sets[0].readOnly) << "a save would overwrite the index";
    EXPECT_NE(FirstNote(disk, 0), "in a");

    // The next start finds the notes under their new name.
    SetsOnDisk next{disk.fakes, {}, {}};
    next.files = DeviceOver(next.fakes);
    OpenAndCheckSets(next.files, next.notes);
    const std::vector<std::string> names = NamesOf(next.notes);
    const auto place = std::ranges::find(names, "c");
    ASSERT_NE(place, names.end());
    EXPECT_EQ(FirstNote(next, static_cast<int>(place - names.begin())), "in a");

    // Another rename would treat the index as the data file.
    disk.fakes.unrenamable = {};
    const auto before = disk.fakes.contents;
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "d"), kRenameFailed);
    EXPECT_EQ(disk.fakes.contents, before);
}

TEST(RenameNoteSet, ReportsAnInvalidName) {
    SetsOnDisk disk;
    Open(disk, {"a"});
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "a|b"), "Rename failed. " + ReasonAgainstName("a|b"));
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "lpt1"), "Rename failed. " + ReasonAgainstName("lpt1"));
    EXPECT_THAT(disk.fakes.log, IsEmpty());
}

TEST(RenameNoteSet, TakesEarlierNotesAndBackupsWithIt) {
    for (const bool isIndexStuck : {false, true}) {
        SetsOnDisk disk;
        Open(disk, {"a", "b"});
        const EarlierNote note = {kNow.seconds, 5, KeptReason::kReplaced, "earlier"};
        KeepEarlierNotes(disk.files, "a", {&note, 1});
        KeepBackup(disk.files, disk.notes.sets[0], "2024-12-30");
        if (isIndexStuck) disk.fakes.unrenamable = {"a.nmi"};
        EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "c"), isIndexStuck ? kRenameFailed : "");
        EXPECT_THAT(AllEarlierNotes(disk.files, "c"), ElementsAre(note));
        EXPECT_THAT(AllEarlierNotes(disk.files, "a"), IsEmpty());
        EXPECT_THAT(AllBackups(disk.files), ElementsAre(SetBackup{"c", "2024-12-30", ""}));
    }
}

TEST(RenameNoteSet, LeavesEarlierNotesWhenItFails) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    const EarlierNote note = {kNow.seconds, 5, KeptReason::kReplaced, "earlier"};
    KeepEarlierNotes(disk.files, "a", {&note, 1});
    EXPECT_EQ(RenameNoteSet(disk.files, disk.notes, "b"), kRenameFailed);
    EXPECT_THAT(AllEarlierNotes(disk.files, "a"), ElementsAre(note));
}

// ---- Delete ---------------------------------------------------------------------------------------------------------

TEST(DeleteNoteSet, QuestionHasTheNameAndADevotionalWarning) {
    SetsOnDisk disk;
    Open(disk, {"a.b", "c"}, "c");
    EXPECT_EQ(QuestionBeforeDeleting(disk.notes), "Are you SURE you want to delete the note set a.b?");
    disk.notes.currentSet = 1;
    EXPECT_EQ(QuestionBeforeDeleting(disk.notes),
              "Are you SURE you want to delete the note set c? Deleting this set will remove the Devotional function!");
}

TEST(DeleteNoteSet, SelectsTheFirstSetAndKeepsTheDevotionalOne) {
    static const struct {
        int deleted;
        const char* devotional;
        std::vector<std::string> left;
        int devotionalAfter;
    } kRows[] = {
        {2, "(none)", {"a", "b"}, -1}, {0, "(none)", {"b", "c"}, -1}, {0, "c", {"b", "c"}, 1},  {1, "c", {"a", "c"}, 1},
        {2, "c", {"a", "b"}, -1},      {1, "a", {"a", "c"}, 0},       {0, "a", {"b", "c"}, -1},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.deleted << ", devotional " << row.devotional);
        SetsOnDisk disk;
        Open(disk, {"a", "b", "c"}, row.devotional);
        const std::string name(1, static_cast<char>('a' + row.deleted));
        disk.fakes.contents[name + ".nmd.temp"] = {1};
        disk.notes.currentSet = row.deleted;
        EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
        EXPECT_EQ(NamesOf(disk.notes), row.left);
        EXPECT_EQ(disk.notes.currentSet, 0);
        EXPECT_EQ(disk.notes.devotionalSet, row.devotionalAfter);
        const auto stepOf = [&](const std::string& step) {
            return std::ranges::find(disk.fakes.log, step) - disk.fakes.log.begin();
        };
        EXPECT_LT(stepOf("remove " + name + ".nmi"), stepOf("remove " + name + ".nmd"));
        for (const char* ending : {".nmi", ".nmd", ".nmd.temp"})
            EXPECT_FALSE(disk.fakes.contents.contains(name + ending)) << ending;
        EXPECT_EQ(disk.fakes.contents.contains(std::string(row.devotional) + ".dti"),
                  row.devotionalAfter != kNoDevotionalSet);
        EXPECT_EQ(FirstNote(disk, 0), "in " + row.left[0]);
        EXPECT_EQ(FirstNote(disk, 1), "in " + row.left[1]);
    }
}

TEST(DeleteNoteSet, ChangesNothingWhenTheIndexCannotBeDeleted) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"}, "b");
    disk.notes.currentSet = 1;
    disk.fakes.undeletable = {"b.nmi"};
    const auto before = disk.fakes.contents;
    EXPECT_FALSE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_EQ(disk.fakes.contents, before);
    EXPECT_EQ(disk.notes.currentSet, 1);
    EXPECT_EQ(disk.notes.devotionalSet, 1);
    EXPECT_EQ(FirstNote(disk, 1), "in b");
}

TEST(DeleteNoteSet, IgnoresOtherFilesThatCannotBeDeleted) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"}, "a");
    disk.fakes.undeletable = {"a.nmd", "a.dti"};
    EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_THAT(NamesOf(disk.notes), ElementsAre("b"));
    EXPECT_EQ(disk.notes.devotionalSet, kNoDevotionalSet);
    EXPECT_THAT(FilesOf(disk), IsSupersetOf({"a.dti", "a.nmd", "b.nmd", "b.nmi"}));
    EXPECT_FALSE(disk.fakes.contents.contains("a.nmi"));
}

TEST(DeleteNoteSet, LeavesACopyAndTheNotes) {
    for (const bool knowsLinks : {true, false}) {
        SetsOnDisk disk;
        Open(disk, {"a", "b"}, "a");
        const FakeSet typed = FakeSetOf({{0, "in a"}, {7, "typed"}});
        disk.fakes.contents["a.nmd.temp"] = typed.data;
        disk.fakes.knowsLinks = knowsLinks;
        EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
        EXPECT_THAT(FilesOf(disk),
                    ElementsAre("b.nmd", "b.nmi", "backup/a 2024-12-31 010203.dti", "backup/a 2024-12-31 010203.nmd",
                                "backup/a 2024-12-31 010203.nmi", "backup/a.nmh"));
        const FakeSet set = FakeSetOf({{0, "in a"}});
        EXPECT_TRUE(disk.fakes.contents["backup/a 2024-12-31 010203.nmd"] == set.data);
        EXPECT_TRUE(disk.fakes.contents["backup/a 2024-12-31 010203.nmi"] == set.index);
        EXPECT_EQ(disk.fakes.contents["backup/a 2024-12-31 010203.dti"], std::vector<unsigned char>({1, 0, 0, 0}));
        EXPECT_THAT(AllEarlierNotes(disk.files, "a"),
                    ElementsAre(EarlierNote{kNow.seconds, 7, KeptReason::kLeftOver, "typed"},
                                EarlierNote{kNow.seconds, 0, KeptReason::kDeleted, "in a"}));
    }
}

// The offsets in memory are those of a save that could not delete the old data file.
TEST(DeleteNoteSet, KeepsTheNotesAsTheyAreOnTheDisk) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    for (std::size_t verse = 1; verse < disk.notes.sets[0].offsets.size(); ++verse) ++disk.notes.sets[0].offsets[verse];
    EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_THAT(AllEarlierNotes(disk.files, "a"),
                ElementsAre(EarlierNote{kNow.seconds, 0, KeptReason::kDeleted, "in a"}));
}

TEST(DeleteNoteSet, KeepsTheWholeCopyOfADamagedSet) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    disk.fakes.contents["a.nmd.temp"] = disk.fakes.contents["a.nmd"];
    disk.fakes.contents["a.nmd"].resize(3);
    EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_THAT(AllEarlierNotes(disk.files, "a"),
                testing::Contains(EarlierNote{kNow.seconds, 0, KeptReason::kLeftOver, "in a"}));
    EXPECT_EQ(disk.fakes.contents["backup/a 2024-12-31 010203.nmd"].size(), 3u);
}

TEST(DeleteNoteSet, ChangesNothingWhenTheSetCannotBeCopied) {
    for (int fault = 0; fault < 4; ++fault) {
        SCOPED_TRACE(fault);
        SetsOnDisk disk;
        Open(disk, {"a", "b"}, "a");
        disk.fakes.knowsLinks = false;
        if (fault == 0) disk.fakes.uncreatable = {"backup"};
        if (fault == 1) disk.fakes.uncreatable = {"backup/a 2024-12-31 010203.dti.temp"};
        if (fault == 2) disk.fakes.uncreatable = {"backup/a 2024-12-31 010203.nmi.temp"};
        if (fault == 3) disk.fakes.room = 140000;
        const auto before = disk.fakes.contents;
        EXPECT_FALSE(DeleteNoteSet(disk.files, disk.notes, kNow));
        EXPECT_TRUE(disk.fakes.contents == before);
        EXPECT_EQ(disk.notes.sets.size(), 2u);
    }
}

TEST(DeleteNoteSet, NeedsNoCopyOfASetWithoutData) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    disk.fakes.contents.erase("a.nmd");
    EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_THAT(FilesOf(disk), ElementsAre("b.nmd", "b.nmi"));
}

TEST(CreateNoteSet, GoesOnWithTheEarlierNotesOfItsName) {
    SetsOnDisk disk;
    Open(disk, {"a", "b"});
    EXPECT_TRUE(DeleteNoteSet(disk.files, disk.notes, kNow));
    EXPECT_EQ(CreateNoteSet(disk.files, disk.notes, "a"), "");
    EXPECT_EQ(AllEarlierNotes(disk.files, "a").size(), 1u);
    EXPECT_EQ(BackupsOf(disk.files, "a").size(), 1u);
}
