// The program is killed while it saves, and started again: every note is there, the edited one as it was or as it was
// typed, whole.

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"

static constexpr int kMiddle = 15000;
static constexpr int kLast = kVerses - 1;
static constexpr std::uintmax_t kMissing = static_cast<std::uintmax_t>(-1);

// A note for every verse, so that a save takes a while: six megabytes.
static std::map<int, std::string> ManyNotes() {
    std::map<int, std::string> notes;
    for (int verse = 0; verse < kVerses; ++verse) notes[verse] = std::to_string(verse) + std::string(190, '.');
    return notes;
}

// In bytes, kMissing when there is none.
static std::uintmax_t SizeOf(const ScratchFolder& folder, const char* name) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(folder.path / name, error);
    return error ? kMissing : size;
}

// ---- Moments of a save, in their order ------------------------------------------------------------------------------

static bool HasBegun(const ScratchFolder&) {
    return true;
}

static bool HasTemp(const ScratchFolder& folder) {
    return SizeOf(folder, "Mine.nmd.temp") != kMissing;
}

static bool HasHalfOfTemp(const ScratchFolder& folder) {
    return HasTemp(folder) && SizeOf(folder, "Mine.nmd.temp") > 3000000;
}

static bool HasAllOfTemp(const ScratchFolder& folder) {
    return HasTemp(folder) && SizeOf(folder, "Mine.nmd.temp") > SizeOf(folder, "Mine.nmd");
}

static bool HasBackupOfIndex(const ScratchFolder& folder) {
    std::error_code error;
    return !std::filesystem::is_empty(folder.path / "backup", error) && !error;
}

static bool HasNoDataFile(const ScratchFolder& folder) {
    return SizeOf(folder, "Mine.nmd") == kMissing;
}

static bool HasEmptyIndex(const ScratchFolder& folder) {
    return SizeOf(folder, "Mine.nmi") < std::uintmax_t{kVerses} * 4;
}

struct Moment {
    const char* what;
    int verse;
    bool (*isNow)(const ScratchFolder& folder);
};

// Some of them are over sooner than they can be seen from outside; then the kill comes behind the save.
static constexpr Moment kMoments[] = {
    {"at once", kMiddle, HasBegun},
    {"temporary file begun, first verse", 0, HasTemp},
    {"temporary file begun", kMiddle, HasTemp},
    {"temporary file half written", kMiddle, HasHalfOfTemp},
    {"temporary file half written, last verse", kLast, HasHalfOfTemp},
    {"temporary file written", kMiddle, HasAllOfTemp},
    {"backup being made", 0, HasBackupOfIndex},
    {"old file deleted", kMiddle, HasNoDataFile},
    {"old file deleted, last verse", kLast, HasNoDataFile},
    {"index being written", 0, HasEmptyIndex},
};

// ---- One round ------------------------------------------------------------------------------------------------------

static void KillWhileSaving(Program& program, const Moment& moment) {
    OpenNoteEditor(program);
    Type(program, "new ");
    const HWND editor = NoteEditorOf(program);
    PostMessageA(editor, WM_COMMAND, IDC_NOTE_SAVE, 0);
    while (!moment.isNow(program.folder) && IsWindowVisible(editor)) {
    }
    TerminateProcess(program.process.get(), 9);
    WaitForSingleObject(program.process.get(), static_cast<DWORD>(kPatience.count()));
}

static std::string IndexOf(const std::string& data) {
    std::vector<unsigned> offsets = {0};
    for (std::size_t end = data.find('\0'); end + 1 < data.size(); end = data.find('\0', end + 1))
        offsets.push_back(static_cast<unsigned>(end + 1));
    return IndexBytes(offsets);
}

// Has the next start something to mend?
static bool IsToBeMended(const ScratchFolder& folder) {
    return HasNoDataFile(folder) || ReadFile(folder, "Mine.nmi") != IndexOf(ReadFile(folder, "Mine.nmd"));
}

// Starts at the note of `verse` and closes the box that must then be there, or must not.
static Program StartAt(const ScratchFolder& folder, int verse) {
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(verse));
    const bool mends = IsToBeMended(folder);
    Program program = LaunchProgram(folder);
    if (mends) {
        const HWND box = WaitForDialog(program, "Note Sets");
        EXPECT_THAT(MessageText(box), testing::HasSubstr("\"Mine\""));
        PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
    WaitForFrame(program);
    return program;
}

static void ExpectNotes(const ScratchFolder& folder, const std::map<int, std::string>& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "Mine", notes);
    for (const char* file : {"Mine.nmd", "Mine.nmi"})
        EXPECT_TRUE(ReadFile(folder, file) == ReadFile(expected, file)) << file;
}

TEST(KilledSave, LosesNoNote) {
    const ScratchFolder folder = FolderWithScripture();
    std::map<int, std::string> notes = ManyNotes();
    WriteNoteSet(folder, "Mine", notes);
    for (const Moment& moment : kMoments) {
        SCOPED_TRACE(moment.what);
        const std::string before = ReadFile(folder, "Mine.nmd");
        Program program = StartAt(folder, moment.verse);
        EXPECT_EQ(TextOf(NoteViewOf(program)), notes[moment.verse]);
        ExpectNotes(folder, notes);
        std::filesystem::remove_all(folder.path / "backup");
        KillWhileSaving(program, moment);
        const char* const whole = HasNoDataFile(folder) ? "Mine.nmd.temp" : "Mine.nmd";
        if (ReadFile(folder, whole) != before) notes[moment.verse] = "new " + notes[moment.verse];
        if (HasFailure()) return;
    }
    Program last = StartAt(folder, kMiddle);
    ExpectNotes(folder, notes);
    EXPECT_EQ(CloseProgram(last), 0);
}
