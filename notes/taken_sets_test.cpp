#include "notes/taken_sets.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "notes/note_recovery.h"
#include "notes/note_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/real_note_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Contents = std::map<std::string, std::vector<unsigned char>>;

static const std::vector<std::string> kOthers = {"Versewell.more.ini", "Versewell.INI"};

// A folder of an older copy with everything that belongs to notes, and some files that do not.
static FakeNoteFiles OlderFolder() {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "Mine", {{0, "in the beginning"}, {31101, "amen"}});
    AddFakeSet(fakes, "Readings", {{57, "a reading"}});
    fakes.contents["Readings.dti"] = {1, 0, 0, 0};
    fakes.contents["Mine.nmd.temp"] = {'x'};
    fakes.contents["Lost.nmd.temp"] = FakeSetOf({{3, "only in the temporary file"}}).data;
    fakes.contents["backup/Mine 2024-12-31.nmd"] = FakeSetOf({}).data;
    fakes.contents["backup/Mine 2024-12-31.nmi"] = FakeSetOf({}).index;
    fakes.contents["backup/Deleted 2024-12-31 235959.nmd"] = FakeSetOf({}).data;
    fakes.contents["backup/Mine.nmh"] = {'h'};
    fakes.contents["Versewell.INI"] = {'i'};
    fakes.contents["Versewell.more.ini"] = {'m'};
    fakes.contents["Versewell.session"] = {'s'};
    fakes.contents["versewell.exe"] = {'e'};
    fakes.contents["_avtext.dat"] = {'t'};
    return fakes;
}

static Contents WhatBelongsToNotes(Contents contents) {
    for (const char* other : {"Versewell.session", "versewell.exe", "_avtext.dat"}) contents.erase(other);
    return contents;
}

static SetTaking TakeAll(FakeNoteFiles& from, FakeNoteFiles& to) {
    const NoteFiles source = DeviceOver(from), target = DeviceOver(to);
    return TakeSets(source, target, FindSetsToTake(source, target, kOthers));
}

static std::string Told(const SetsToTake& found) {
    return Utf8Of(TextOfSetsToTake({}, found));
}

static bool HasStaged(const FakeNoteFiles& fakes) {
    return std::ranges::any_of(fakes.contents, [](const auto& file) { return file.first.starts_with(kTakenList); });
}

TEST(SetsToTake, AreTheSetsWithNotesAndTheirFiles) {
    FakeNoteFiles from = OlderFolder(), to;
    from.contents["Index only.nmi"] = FakeSetOf({}).index;
    const SetsToTake found = FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers);
    EXPECT_THAT(found.sets, ElementsAre("Lost", "Mine", "Readings"));
    EXPECT_THAT(found.present, IsEmpty());
    EXPECT_EQ(found.files.back(), "Versewell.INI");
    EXPECT_EQ(Told(found), "Note sets that can be taken over:\n    Lost\n    Mine\n    Readings");
    EXPECT_EQ(Utf8Of(TextOfTakenSets(found)), "3 note sets taken over");
}

TEST(SetsToTake, AreNoneInAFolderWithoutNotes) {
    FakeNoteFiles from, to;
    for (const char* name : {"Versewell.INI", "_avtext.dat", "a.txt", "backup/a.nmh"}) from.contents[name] = {'x'};
    const SetsToTake found = FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers);
    EXPECT_THAT(found.sets, IsEmpty());
    EXPECT_THAT(found.files, IsEmpty());
    EXPECT_EQ(Told(found), "");
}

// Whichever file of a set is there.
TEST(SetsToTake, LeaveOutThoseThatArePresent) {
    for (const char* name : {"Mine.nmd", "Mine.nmi", "Mine.dti", "Mine.nmd.temp"}) {
        FakeNoteFiles from = OlderFolder(), to;
        to.contents[name] = {'x'};
        const Contents before = to.contents;
        const SetsToTake found = FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers);
        EXPECT_THAT(found.sets, ElementsAre("Lost", "Readings"));
        EXPECT_THAT(found.present, ElementsAre("Mine"));
        EXPECT_THAT(found.files, Not(testing::Contains(HasSubstr("Mine")))) << name;
        EXPECT_THAT(Told(found), HasSubstr("of these names already:\n    Mine\nTo take one over, first rename"));
    }
}

// As the start makes it if there is no other set.
static void AddFirstSet(FakeNoteFiles& fakes) {
    AddFakeSet(fakes, kFirstSetName, {});
}

static const std::string kFirstData = "My Notes.nmd", kFirstIndex = "My Notes.nmi";

static FakeNoteFiles OlderFolderWithFirstSet() {
    FakeNoteFiles fakes = OlderFolder();
    AddFakeSet(fakes, kFirstSetName, {{42, "of years"}});
    fakes.contents["My Notes.nmd.temp"] = {'x'};
    fakes.contents["backup/My Notes.nmh"] = {'h'};
    fakes.contents["backup/My Notes 2024-12-31.nmd"] = FakeSetOf({}).data;
    return fakes;
}

TEST(SetsToTake, HaveTheFirstSetIfTheOneThatIsHereIsEmpty) {
    FakeNoteFiles from = OlderFolderWithFirstSet(), to;
    AddFirstSet(to);
    const SetsToTake found = FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers);
    EXPECT_THAT(found.sets, ElementsAre("Lost", "Mine", "My Notes", "Readings"));
    EXPECT_THAT(found.present, IsEmpty());
    EXPECT_EQ(found.here, 0u);
    EXPECT_THAT(Told(found), HasSubstr("\n    Readings\n\nThe empty set \"My Notes\" that is here is replaced."));
    EXPECT_EQ(TakeAll(from, to), SetTaking::kTaken);
    EXPECT_EQ(to.contents, WhatBelongsToNotes(from.contents));
}

// Whatever the user may have done with it.
TEST(SetsToTake, LeaveTheFirstSetAsItIsIfItIsNotNew) {
    const FakeSet written = FakeSetOf({{31101, "a"}});  // its index is that of an empty set
    for (const auto& [name, bytes] : Contents{{kFirstData, written.data},
                                              {kFirstData, std::vector<unsigned char>(31102, ' ')},
                                              {kFirstData, std::vector<unsigned char>(31103, 0)},
                                              {kFirstIndex, FakeSetOf({{0, "a"}}).index},
                                              {"My Notes.dti", {1}},
                                              {"My Notes.nmd.temp", {1}},
                                              {"backup/My Notes.nmh", {1}},
                                              {"backup/My Notes 2025-01-01.nmd", {1}},
                                              {"backup/My Notes 2025-01-01 120000.nmd", {1}}}) {
        SCOPED_TRACE(name);
        FakeNoteFiles from = OlderFolderWithFirstSet(), to;
        AddFirstSet(to);
        to.contents[name] = bytes;
        const Contents before = to.contents;
        const SetsToTake found = FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers);
        EXPECT_THAT(found.present, ElementsAre("My Notes"));
        EXPECT_THAT(found.sets, ElementsAre("Lost", "Mine", "Readings"));
        EXPECT_EQ(found.here, 1u);
        EXPECT_THAT(Told(found), Not(HasSubstr("is replaced")));
        EXPECT_EQ(TakeAll(from, to), SetTaking::kTaken);
        for (const auto& [other, kept] : before) EXPECT_EQ(to.contents[other], kept) << other;
    }
}

// An empty set that the user has made has a name of its own, which she may want to keep.
TEST(SetsToTake, LeaveEmptySetsOfOtherNamesAsTheyAre) {
    FakeNoteFiles from = OlderFolder(), to;
    AddFakeSet(to, "Mine", {});
    EXPECT_THAT(FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers).present, ElementsAre("Mine"));
}

TEST(SetsToTake, TellIfThereWouldBeTooMany) {
    SetsToTake found;
    found.here = 2;
    for (int set = 0; set < 29; ++set) found.sets.push_back("Many " + std::to_string(set));
    EXPECT_THAT(Told(found), Not(HasSubstr("would not be shown")));
    found.sets.push_back("One more");
    EXPECT_THAT(Told(found), HasSubstr("\n\nVersewell shows 31 note sets. There would be 32, and the last ones"));
    FakeNoteFiles from = OlderFolder(), to;
    AddFakeSet(to, "Here", {});
    EXPECT_EQ(FindSetsToTake(DeviceOver(from), DeviceOver(to), kOthers).here, 1u);
}

// A message box grows with its longest word, beyond the screen.
TEST(SetsToTake, HaveTheirLongNamesShortened) {
    SetsToTake found;
    found.sets = {std::string(60, 'a'), std::string(30, 'b') + std::string(100, 'c') + std::string(30, 'd')};
    found.unnamed = {std::u16string(200, u'\u03B1')};
    const std::string told = Told(found);
    EXPECT_THAT(told, HasSubstr("\n    " + std::string(60, 'a') + "\n    " + std::string(29, 'b') + "..." +
                                std::string(28, 'd')));
    EXPECT_EQ(TextOfSetsToTake({}, found).find(std::u16string(31, u'\u03B1')), std::u16string::npos);
}

TEST(WithoutMiddle, HasTheBeginningAndTheEnd) {
    EXPECT_EQ(WithoutMiddle(u"0123456789", 10), u"0123456789");
    EXPECT_EQ(WithoutMiddle(u"0123456789a", 10), u"0123...89a");
    EXPECT_EQ(WithoutMiddle(u"", 10), u"");
}

TEST(SetsToTake, NameTheFilesThatHaveNoNameForTheProgram) {
    SetsToTake found;
    found.unnamed = {u"con.nmd"};
    static constexpr char kReason[] = "Left out, because the names are those of devices, or have letters";
    EXPECT_TRUE(Told(found).starts_with(kReason));
    found.sets = {"\xC9tude"};
    found.unnamed.push_back(u"\u03B1.nmd");
    EXPECT_THAT(Told(found), HasSubstr("over:\n    \u00C9tude\n\nLeft out"));
    EXPECT_TRUE(Told(found).ends_with(":\n    con.nmd\n    \u03B1.nmd"));
    EXPECT_EQ(Utf8Of(TextOfTakenSets(found)), "1 note set taken over. Left out for the name: con.nmd, \u03B1.nmd");
    found.unnamed.assign(33, u"nul.nmd");
    EXPECT_TRUE(Told(found).ends_with("\n    nul.nmd\n    and 2 more"));
}

TEST(TakenSets, AreCopiedWithEverythingThatBelongsToThem) {
    FakeNoteFiles from = OlderFolder(), to;
    const Contents before = from.contents;
    EXPECT_EQ(TakeAll(from, to), SetTaking::kTaken);
    EXPECT_EQ(from.contents, before);
    EXPECT_EQ(to.contents, WhatBelongsToNotes(before));
    EXPECT_EQ(from.openFiles + to.openFiles, 0);

    NoteSets notes;
    const OpenedSets opened = OpenNoteSets(DeviceOver(to), notes);
    EXPECT_TRUE(opened.created);
    EXPECT_FALSE(opened.hasDamaged);
    EXPECT_EQ(notes.sets.size(), 3u);
    EXPECT_EQ(NoteSetName(notes.sets[static_cast<std::size_t>(notes.devotionalSet)]), "Readings");
}

TEST(TakenSets, NeverReplaceAFile) {
    FakeNoteFiles from = OlderFolder(), to;
    for (const char* name : {"Versewell.INI", "backup/Deleted 2024-12-31 235959.nmd"})
        to.contents[name] = {'k', 'e', 'p', 't'};
    AddFakeSet(to, "Mine", {{0, "another"}});
    const Contents before = to.contents;
    EXPECT_EQ(TakeAll(from, to), SetTaking::kTaken);
    for (const auto& [name, bytes] : before) EXPECT_EQ(to.contents[name], bytes) << name;
    EXPECT_TRUE(to.contents.contains("Readings.nmd"));
    EXPECT_FALSE(to.contents.contains("backup/Mine.nmh"));
    EXPECT_FALSE(HasStaged(to));
}

// The same files with some bytes each: what is in them does not matter, and a test goes through them very often.
static FakeNoteFiles ShortOlderFolder() {
    FakeNoteFiles fakes = OlderFolder();
    for (auto& [name, bytes] : fakes.contents) bytes.assign(name.begin(), name.end());
    return fakes;
}

// Nothing can be half there: after the next start it is as before or complete.
static void ExpectAllOrNone(const FakeNoteFiles& older, const FakeNoteFiles& here) {
    const Contents whole = WhatBelongsToNotes(older.contents);
    bool isEnded = false;
    int none = 0, all = 0;
    for (std::int64_t step = 0; !isEnded; ++step) {
        FakeNoteFiles from = older, stopped = here;
        stopped.steps = step;
        try {
            isEnded = TakeAll(from, stopped) == SetTaking::kTaken;
        } catch (const ProgramStopped&) {
        }
        for (const PowerCut cut : PowerCutsAfter(step)) {
            FakeNoteFiles to = stopped;
            CutPower(to, cut);
            to.steps = -1;
            EXPECT_TRUE(FinishTaking(DeviceOver(to))) << step;
            const bool isAsBefore = to.contents == here.contents;
            EXPECT_TRUE(isAsBefore || to.contents == whole) << step;
            ++(isAsBefore ? none : all);
        }
        ASSERT_LT(step, 500);
    }
    EXPECT_GT(none, 10);
    EXPECT_GT(all, 10);
}

TEST(TakenSets, AreAllOrNoneWhereverTakingStops) {
    ExpectAllOrNone(ShortOlderFolder(), {});
}

TEST(TakenSets, AreAllOrNoneInPlaceOfTheEmptyFirstSet) {
    FakeNoteFiles older = ShortOlderFolder(), here;
    for (const std::string& name : {kFirstData, kFirstIndex}) older.contents[name].assign(name.begin(), name.end());
    AddFirstSet(here);
    ExpectAllOrNone(older, here);
}

// A note that was saved before the start that finishes it, in a copy of the program that knows of no such sets.
TEST(TakenSets, NeverReplaceANoteOfTheFirstSet) {
    FakeNoteFiles from = OlderFolderWithFirstSet(), to;
    AddFirstSet(to);
    for (int number = 1; number < 20; ++number)
        to.unrenamable.insert("Versewell.taken-0" + std::to_string(number / 10) + std::to_string(number % 10) +
                              ".temp");
    EXPECT_EQ(TakeAll(from, to), SetTaking::kNotFinished);
    EXPECT_TRUE(HasStaged(to));
    to.unrenamable.clear();
    const FakeSet written = FakeSetOf({{0, "new"}});
    to.contents[kFirstData] = written.data;
    to.contents[kFirstIndex] = written.index;
    EXPECT_TRUE(FinishTaking(DeviceOver(to)));
    EXPECT_EQ(to.contents[kFirstData], written.data);
    EXPECT_EQ(to.contents[kFirstIndex], written.index);
    EXPECT_FALSE(HasStaged(to));
}

// Also if the start that finishes it is stopped, again and again.
TEST(TakenSets, AreFinishedHoweverOftenThatStops) {
    FakeNoteFiles from = OlderFolder(), to;
    to.unrenamable = {"Versewell.taken-004.temp"};
    EXPECT_EQ(TakeAll(from, to), SetTaking::kNotFinished);
    EXPECT_FALSE(FinishTaking(DeviceOver(to)));
    EXPECT_EQ(TakeAll(from, to), SetTaking::kNotFinished);
    to.unrenamable.clear();
    bool isEnded = false;
    for (int tries = 0; !isEnded; ++tries) {
        to.steps = 2;
        try {
            isEnded = FinishTaking(DeviceOver(to));
        } catch (const ProgramStopped&) {
        }
        ASSERT_LT(tries, 100);
    }
    EXPECT_EQ(to.contents, WhatBelongsToNotes(OlderFolder().contents));
}

TEST(TakenSets, AreNoneOnAFullDisk) {
    const Contents whole = WhatBelongsToNotes(OlderFolder().contents);
    std::size_t size = 0;
    for (const auto& file : whole) size += file.second.size();
    for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{40000}, size / 2, size - 1, size + 1}) {
        FakeNoteFiles from = OlderFolder(), to;
        to.room = static_cast<std::int64_t>(room);
        EXPECT_EQ(TakeAll(from, to), SetTaking::kCannotWrite) << room;
        EXPECT_THAT(to.contents, IsEmpty()) << room;
        EXPECT_EQ(from.openFiles + to.openFiles, 0);
    }
}

TEST(TakenSets, AreNoneIfAFileCannotBeRead) {
    for (const char* name : {"Mine.nmd", "Readings.dti", "backup/Mine.nmh", "Versewell.INI"}) {
        FakeNoteFiles from = OlderFolder(), to;
        from.unreadable = {name};
        EXPECT_EQ(TakeAll(from, to), SetTaking::kCannotRead) << name;
        EXPECT_THAT(to.contents, IsEmpty()) << name;
    }
}

// A file that ends early, or that another program writes meanwhile.
TEST(TakenSets, AreNoneIfAFileIsNotReadWhole) {
    static bool (*write)(void*, void*, std::span<const unsigned char>);
    static std::size_t (*read)(void*, void*, std::uint64_t, std::span<unsigned char>);
    static FakeNoteFiles* changing;
    for (const bool isChanged : {false, true}) {
        FakeNoteFiles from = OlderFolder(), to;
        NoteFiles source = DeviceOver(from), target = DeviceOver(to);
        read = source.readAt;
        write = target.write;
        changing = &from;
        if (isChanged) {
            target.write = [](void* device, void* file, std::span<const unsigned char> bytes) {
                changing->times["Mine.nmd"] = ++changing->now + 100;
                return write(device, file, bytes);
            };
        } else {
            source.readAt = [](void* device, void* file, std::uint64_t place, std::span<unsigned char> bytes) {
                return std::min<std::size_t>(read(device, file, place, bytes), 30000);
            };
        }
        EXPECT_EQ(TakeSets(source, target, FindSetsToTake(source, target, kOthers)), SetTaking::kCannotRead);
        EXPECT_THAT(to.contents, IsEmpty());
    }
}

// The list is a file, which someone else may have written.
TEST(TakenSets, GetNoNamesElsewhere) {
    for (const char* name : {"../up.nmd", "..\\up.nmd", "C:\\up.nmd", "/up.nmd", "other/a.nmd", "con.nmd", "a.nmd:b",
                             "", ".", "versewell.exe", "riched32.dll", "backup/a.exe", "nmd"}) {
        FakeNoteFiles fakes;
        const std::string list = name + std::string("\nGood.nmd\n");
        fakes.contents[kTakenList] = {list.begin(), list.end()};
        fakes.contents["Versewell.taken-001.temp"] = {'1'};
        fakes.contents["Versewell.taken-002.temp"] = {'2'};
        EXPECT_TRUE(FinishTaking(DeviceOver(fakes))) << name;
        EXPECT_EQ(fakes.contents, Contents({{"Good.nmd", {'2'}}})) << name;
    }
}

TEST(FinishTaking, LeavesEverythingElse) {
    FakeNoteFiles fakes = OlderFolder();
    for (const char* name : {"Versewell.session.temp", "Versewell.taken-a.txt", "a.temp"}) fakes.contents[name] = {'x'};
    const Contents before = fakes.contents;
    EXPECT_TRUE(FinishTaking(DeviceOver(fakes)));
    EXPECT_EQ(fakes.contents, before);
}

TEST(HasNoSets, IsSoOnlyWithoutAnyFileOfOne) {
    FakeNoteFiles fakes;
    EXPECT_TRUE(HasNoSets(DeviceOver(fakes)));
    for (const char* name : {"Versewell.INI", "a.txt", "backup/a.nmd", "a.dti"}) fakes.contents[name] = {'x'};
    EXPECT_TRUE(HasNoSets(DeviceOver(fakes)));
    for (const char* name : {"a.nmd", "a.nmi", "a.nmd.temp"}) {
        FakeNoteFiles some = fakes;
        some.contents[name] = {'x'};
        EXPECT_FALSE(HasNoSets(DeviceOver(some))) << name;
    }
}

TEST(TakenSets, AreTakenOnARealDisk) {
    RealNoteFiles older{MakeScratchFolder()}, mine{MakeScratchFolder()};
    const NoteFiles from = DeviceOver(older), to = DeviceOver(mine);
    from.makeFolder(from.device, "backup");
    const Contents all = OlderFolder().contents;
    for (const auto& [name, bytes] : all) ASSERT_TRUE(from.create(from.device, name, bytes)) << name;
    EXPECT_EQ(TakeSets(from, to, FindSetsToTake(from, to, kOthers)), SetTaking::kTaken);
    for (const auto& [name, bytes] : WhatBelongsToNotes(all))
        EXPECT_EQ(ReadWholeFile(mine.folder + name), bytes) << name;
    EXPECT_FALSE(to.stamp(to.device, "versewell.exe").exists);
    EXPECT_THAT(FindSetsToTake(from, to, kOthers).sets, IsEmpty());
    EXPECT_THAT(to.list(to.device, std::string("*") + ".temp"),
                testing::UnorderedElementsAre("Mine.nmd.temp", "Lost.nmd.temp"));
    for (const RealNoteFiles& folder : {older, mine}) RemoveScratchFolder(folder.folder);
}
