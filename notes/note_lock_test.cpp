// Programs that save into the same set at the same time: real processes and real files.
#include "notes/note_lock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <thread>

#include "notes/note_history.h"
#include "notes/note_refresh.h"
#include "notes/note_saving.h"
#include "notes/note_set_changes.h"
#include "tests/support/checked_sets.h"
#include "tests/support/fake_note_files.h"
#include "tests/support/real_note_files.h"
#include "tests/support/tries.h"

using testing::Each;
using testing::ElementsAre;
using testing::Ge;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static const NoteTime kNow = {"2024-12-31", 1735603200};
static constexpr SaveVoice kAgrees = {nullptr, [](void*, SaveNotice, const std::string&) { return true; }};

namespace {

struct SharedFolder : testing::Test {
    std::string folder = MakeScratchFolder();
    RealNoteFiles files{folder};

    SharedFolder() {
        const FakeSet empty = FakeSetOf({});
        WriteWholeFile(folder + "a.nmd", empty.data);
        WriteWholeFile(folder + "a.nmi", empty.index);
    }
    ~SharedFolder() override { RemoveScratchFolder(folder); }
};

}  // namespace

// ---- Saves ----------------------------------------------------------------------------------------------------------

static void Rest() {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// As long as the note was changed elsewhere, both texts are saved, as by a user who leaves them as they are.
static bool SaveText(const NoteFiles& files, NoteSets& notes, int verse, const std::string& text) {
    static constexpr int kTries = 100;
    SelectStoredNote(notes, 0, verse);
    NoteEdit edit;
    if (!ReadStoredNote(files, notes, edit.openedOn)) return false;  // the other program may just have the file
    edit.text = text;
    for (int i = 0; i < kTries; ++i) {
        const NoteSaveResult result = SaveNote(files, kAgrees, notes, edit, kNow);
        if (result != NoteSaveResult::kMerged) return result == NoteSaveResult::kSaved;
    }
    return false;
}

static bool SaveOne(RealNoteFiles& folder, const std::string& text) {
    const NoteFiles files = DeviceOver(folder);
    NoteSets notes;
    FindNoteSets(files, notes);
    return SaveText(files, notes, 7, text);
}

// All texts of the set and among its earlier notes.
static std::string AllTexts(RealNoteFiles& folder) {
    const std::vector<unsigned char> data = ReadWholeFile(folder.folder + "a.nmd");
    std::string texts(data.begin(), data.end());
    std::erase(texts, '\0');
    for (const EarlierNote& note : AllEarlierNotes(DeviceOver(folder), "a")) texts += note.text + '\n';
    return texts;
}

// ---- Two programs ---------------------------------------------------------------------------------------------------

static std::string TextOf(int writer, int save) {
    return "writer " + std::to_string(writer) + " save " + std::to_string(save) + '.';
}

// Of every four saves, one is into the verse into which the others save, too.
static int VerseOf(int writer, int save) {
    return save % 4 == 3 ? kVerseCount - 1 : 1000 * writer + save;
}

static bool SaveMany(const std::string& folder, int writer, int saves) {
    RealNoteFiles own{folder};
    const NoteFiles files = DeviceOver(own);
    NoteSets notes;
    FindNoteSets(files, notes);
    for (int save = 0; save < saves; ++save)
        if (!SaveText(files, notes, VerseOf(writer, save), TextOf(writer, save))) return false;
    return true;
}

TEST_F(SharedFolder, LosesNoNoteThatTwoProgramsSave) {
    const int saves = Tried(500, 100);
    Child other = StartChild([&] { return SaveMany(folder, 2, saves); });
    EXPECT_TRUE(SaveMany(folder, 1, saves));
    EXPECT_EQ(WaitFor(other), ChildEnd::kDone);
    NoteSets notes;
    EXPECT_EQ(OpenAndCheckSets(DeviceOver(files), notes).report, "");
    const std::string texts = AllTexts(files);
    for (const int writer : {1, 2})
        for (int save = 0; save < saves; ++save) ASSERT_THAT(texts, HasSubstr(TextOf(writer, save)));
}

// What a start takes for the rest of a save that was stopped would be what the other program is just saving.
TEST_F(SharedFolder, IsNotMendedWhileAnotherProgramSaves) {
    const int saves = Tried(300, 60);
    Child other = StartChild([&] { return SaveMany(folder, 2, saves); });
    std::string mended;
    for (int start = 0; start < saves; ++start) {
        NoteSets notes;
        mended += OpenNoteSets(DeviceOver(files), notes, kNow).report;
    }
    EXPECT_EQ(WaitFor(other), ChildEnd::kDone);
    EXPECT_EQ(mended, "");
    const std::string texts = AllTexts(files);
    for (int save = 0; save < saves; ++save) ASSERT_THAT(texts, HasSubstr(TextOf(2, save)));
}

// ---- One that has the lock ------------------------------------------------------------------------------------------

// A program that has locked the folder and does not go on.
static Child StartHolder(const std::string& folder) {
    Child holder = StartChild([&] {
        RealNoteFiles own{folder};
        const NoteFiles ownFiles = DeviceOver(own);
        const NoteLock lock = LockNoteFiles(ownFiles);
        WriteWholeFile(folder + "begun", {});
        for (;;) Rest();
        return false;
    });
    while (!std::filesystem::exists(folder + "begun")) Rest();
    return holder;
}

static double SecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST_F(SharedFolder, IsWaitedForOnceIfTheOtherProgramHangs) {
    EXPECT_TRUE(SaveOne(files, "first"));
    const Child holder = StartHolder(folder);
    const double seconds = SecondsOf([&] { EXPECT_TRUE(SaveOne(files, "saved")); });  // and "first" is kept
    EXPECT_GE(seconds, 2);
    EXPECT_LT(seconds, 4);
    EXPECT_THAT(AllTexts(files), AllOf(HasSubstr("saved"), HasSubstr("first")));
}

TEST_F(SharedFolder, IsFreeWhenTheOtherProgramIsKilled) {
    Child holder = StartHolder(folder);
    EXPECT_EQ(DeviceOver(files).lock(&files, 0), NoteLocking::kBusy);
    DeviceOver(files).unlock(&files);
    KillChild(holder);
    EXPECT_EQ(DeviceOver(files).lock(&files, 0), NoteLocking::kLocked);
    DeviceOver(files).unlock(&files);
    EXPECT_LT(SecondsOf([&] { EXPECT_TRUE(SaveOne(files, "saved")); }), 1.5);
}

TEST_F(SharedFolder, IsLockedUntilTheLastLockIsUnlocked) {
    const NoteFiles own = DeviceOver(files);
    RealNoteFiles others{folder};
    const NoteFiles other = DeviceOver(others);
    const auto stateForOther = [&] { return NoteLock{other.lock(other.device, 0), {&other, {}}}.state; };
    {
        const NoteLock outer = LockNoteFiles(own);
        { const NoteLock inner = LockNoteFiles(own); }
        EXPECT_EQ(stateForOther(), NoteLocking::kBusy);
    }
    EXPECT_EQ(stateForOther(), NoteLocking::kLocked);
}

// As where files cannot be created, or a file system has no locks.
TEST_F(SharedFolder, IsSavedIntoWithoutALock) {
    std::filesystem::create_directories(folder + kLockFile);
    EXPECT_LT(SecondsOf([&] { EXPECT_TRUE(SaveOne(files, "saved")); }), 1.5);
    EXPECT_THAT(AllTexts(files), HasSubstr("saved"));
}

// ---- What is locked -------------------------------------------------------------------------------------------------

namespace {

struct LockedWork {
    const char* name;
    std::function<void(const NoteFiles&, NoteSets&)> work;
};

// Locks of the folder while notices were told.
struct Listener {
    FakeNoteFiles fakes;
    std::vector<int> locks;
};

}  // namespace

static void SaveInFakes(const NoteFiles& files, NoteSets& notes, const SaveVoice& voice) {
    NoteEdit edit{"new", "old"};
    SelectStoredNote(notes, 0, 7);
    SaveNote(files, voice, notes, edit, kNow);
}

TEST(LockedFolder, IsWhereFilesOfSetsChange) {
    const EarlierNote note{kNow.seconds, 7, KeptReason::kCancelled, "a draft"};
    const std::vector<LockedWork> works = {
        {"save", [](auto& files, auto& notes) { SaveInFakes(files, notes, kAgrees); }},
        {"create", [](auto& files, auto& notes) { CreateNoteSet(files, notes, std::string("c")); }},
        {"rename", [](auto& files, auto& notes) { RenameNoteSet(files, notes, std::string("c")); }},
        {"delete", [](auto& files, auto& notes) { DeleteNoteSet(files, notes, kNow); }},
        {"keep",
         [&](auto& files, auto&) {
             KeepEarlierNotes(files, "a", {&note, 1});
         }},
        {"mend", [](auto& files, auto& notes) { OpenNoteSets(files, notes, kNow); }},
    };
    for (const LockedWork& work : works) {
        FakeNoteFiles fakes;
        AddFakeSet(fakes, "a", {{3, "three"}, {7, "old"}});
        AddFakeSet(fakes, "b", {});
        const NoteFiles files = DeviceOver(fakes);
        NoteSets notes;
        FindNoteSets(files, notes);
        SelectSet(notes, 0);
        if (std::string(work.name) == "mend") fakes.contents.erase("b.nmi");
        fakes.log.clear();
        work.work(files, notes);
        EXPECT_THAT(fakes.log, Not(IsEmpty())) << work.name;
        EXPECT_THAT(fakes.unlockedChanges, IsEmpty()) << work.name;
        EXPECT_EQ(fakes.locks, 0) << work.name;
    }
}

// A box may be open for a long time.
TEST(LockedFolder, IsFreeWhileTheUserIsAsked) {
    for (const char* unreadable : {"", "a.nmd"}) {
        Listener listener;
        AddFakeSet(listener.fakes, "a", {{7, "old"}});
        const NoteFiles files = DeviceOver(listener.fakes);
        NoteSets notes;
        FindNoteSets(files, notes);
        const FakeSet changed = FakeSetOf({{3, "from elsewhere"}, {7, "old"}});
        ChangeFile(listener.fakes, "a.nmd", changed.data);
        ChangeFile(listener.fakes, "a.nmi", changed.index);
        listener.fakes.unreadable = {unreadable};
        SaveInFakes(files, notes, {&listener, [](void* device, SaveNotice, const std::string&) {
                                       auto& told = *static_cast<Listener*>(device);
                                       told.locks.push_back(told.fakes.locks);
                                       return true;
                                   }});
        EXPECT_THAT(listener.locks, Not(IsEmpty()));
        EXPECT_THAT(listener.locks, Each(0));
    }
}

TEST(LockedFolder, IsWaitedForLongerIfMuchIsWritten) {
    FakeNoteFiles fakes;
    for (const std::uint64_t size : {std::uint64_t{0}, std::uint64_t{62} << 20, std::uint64_t{1} << 30})
        LockNoteFiles(DeviceOver(fakes), size);
    EXPECT_THAT(fakes.patience, ElementsAre(2000, 17872, 30000));
}

TEST(LockedFolder, IsNotLockedByAStartThatMendsNothing) {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "a", {{7, "old"}});
    NoteSets notes;
    OpenAndCheckSets(DeviceOver(fakes), notes);
    EXPECT_THAT(fakes.patience, IsEmpty());
}

TEST(LockedFolder, KeepsWhatAnotherProgramIsWriting) {
    FakeNoteFiles fakes;
    AddFakeSet(fakes, "a", {{7, "old"}});
    fakes.contents["a.nmd.temp"] = FakeSetOf({{7, "new"}}).data;
    fakes.locking = NoteLocking::kBusy;
    NoteSets notes;
    EXPECT_EQ(OpenNoteSets(DeviceOver(fakes), notes).report, "");
    EXPECT_TRUE(fakes.contents.contains("a.nmd.temp"));
}

// While another program saves, there is no data file for a moment.
TEST(LockedFolder, IsWaitedForByWhoCannotReadOnlyIfItWasLockedBefore) {
    for (const bool wasLocked : {false, true}) {
        FakeNoteFiles fakes;
        AddFakeSet(fakes, "a", {{7, "old"}});
        if (wasLocked) fakes.contents[kLockFile] = {};
        const NoteFiles files = DeviceOver(fakes);
        NoteSets notes;
        FindNoteSets(files, notes);
        SelectStoredNote(notes, 0, 7);
        fakes.unreadable = {"a.nmd"};
        std::string text;
        EXPECT_FALSE(ReadStoredNote(files, notes, text));
        EXPECT_EQ(fakes.patience.empty(), !wasLocked);
        EXPECT_EQ(fakes.locks, 0);
    }
}
