// Merging note sets: the offer at the start, the dialog, and what is in the folder afterwards.

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/painted_lines.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/system_scaling.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

static constexpr char kCopy[] = "Mine.sync-conflict-20240501-120000-ABCDEFG";
static constexpr char kOffer[] = "Copy of a Note Set";
static constexpr char kDialog[] = "Merge Sets";

using Notes = std::map<int, std::string>;

static const Notes kHere = {{1, "one"}, {2, "two here"}, {3, "three here"}};
static const Notes kThere = {{1, "one"}, {2, "two there"}, {3, "three"}, {4, "four there"}};
static const Notes kMerged = {
    {1, "one"},
    {2, "two here\r\n----------------------------------------\r\nAlso written elsewhere:\r\ntwo there"},
    {3, "three here"},
    {4, "four there"}};

// Of verse 3 the backup tells that only the set's note was changed.
static ScratchFolder FolderInConflict(const std::string& copy = kCopy) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", kHere);
    WriteNoteSet(folder, copy, kThere);
    std::filesystem::create_directory(folder.path / "backup");
    WriteNoteSet(folder, "backup/Mine 2024-05-01", {{1, "one"}, {2, "two"}, {3, "three"}});
    WriteSetting(folder, "MISC", "NoteVerse", "2");
    return folder;
}

static void ExpectNotes(const ScratchFolder& folder, const std::string& set, const Notes& notes) {
    const ScratchFolder expected = EmptyFolder();
    WriteNoteSet(expected, "expected", notes);
    for (const std::string ending : {".nmd", ".nmi"})
        EXPECT_TRUE(ReadFile(folder, set + ending) == ReadFile(expected, "expected" + ending)) << set << ending;
}

static void Answer(const Program& program, HWND dialog, int button) {
    PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    WaitUntil(program, "the end of the dialog", [&] { return !IsWindow(dialog); });
    Settle(program);
}

static std::string ChosenIn(HWND dialog, int list) {
    return TextOf(dialog, list);
}

// ---- The offer at the start -----------------------------------------------------------------------------------------

TEST(MergeOffer, LeadsToTheDialogAndTheMerge) {
    const ScratchFolder folder = FolderInConflict();
    Program program = StartProgram(folder);
    const HWND offer = WaitForDialog(program, kOffer);
    EXPECT_THAT(MessageText(offer), HasSubstr("\"Mine\""));
    EXPECT_THAT(MessageText(offer), HasSubstr(kCopy));
    EXPECT_EQ(IconOf(offer), "question");
    SavePicture(PictureOfWindow(offer), "merge-offer");
    Answer(program, offer, IDYES);
    const HWND dialog = WaitForDialog(program, kDialog);
    EXPECT_EQ(ChosenIn(dialog, IDC_MERGED_COPY), kCopy);
    EXPECT_EQ(ChosenIn(dialog, IDC_MERGED_SET), "Mine");
    EXPECT_THAT(ListStrings(Child(dialog, {IDC_MERGED_NOTES})),
                ElementsAre("Genesis 1:3\tboth texts\ttwo here\ttwo there", "Genesis 1:4\tstays\tthree here\tthree",
                            "Genesis 1:5\tfrom the copy\t\tfour there"));
    EXPECT_EQ(TextOf(dialog, IDC_MERGE_COUNTS),
              "1 note is taken from the copy, 1 gets both texts, 1 stays, 1 is equal.");
    EXPECT_EQ(TextOf(dialog, IDC_TEXT_IN_SET), "two here");
    EXPECT_EQ(TextOf(dialog, IDC_TEXT_IN_COPY), "two there");
    SavePicture(PictureOfWindow(dialog), "merge-sets");
    ExpectNotes(folder, "Mine", kHere);  // nothing is written before
    Answer(program, dialog, IDOK);
    ExpectNotes(folder, "Mine", kMerged);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    EXPECT_EQ(TextOf(NoteViewOf(program)), kMerged.at(2));
    ExpectNotes(folder, "backup/" + std::string(kCopy) + " merged", kThere);
    EXPECT_FALSE(HasFile(folder, std::string(kCopy) + ".nmd"));
    EXPECT_FALSE(HasFile(folder, std::string(kCopy) + ".nmi"));
    EXPECT_THAT(ReadFile(folder, "backup/Mine.nmh"), HasSubstr("two here"));
    EXPECT_EQ(CloseProgram(program), 0);
    Program again = StartProgram(folder);
    EXPECT_FALSE(HasDialog(again));
    EXPECT_THAT(NoteSetNames(again), ElementsAre("Mine"));
}

TEST(MergeOffer, IsRepeatedAtTheNextStartOnly) {
    const ScratchFolder folder = FolderInConflict();
    for (int start = 0; start < 2; ++start) {
        Program program = StartProgram(folder);
        Answer(program, WaitForDialog(program, kOffer), IDNO);
        EXPECT_FALSE(HasDialog(program));
        EXPECT_EQ(NoteSetNames(program).size(), 2u);
        ExpectNotes(folder, "Mine", kHere);
        ExpectNotes(folder, kCopy, kThere);
        EXPECT_EQ(CloseProgram(program), 0);
    }
}

TEST(MergeOffer, IsMadeForHalfACopy) {
    const ScratchFolder folder = FolderInConflict();
    std::filesystem::remove(folder.path / (std::string(kCopy) + ".nmi"));
    Program program = StartProgram(folder);
    const HWND offer = WaitForDialog(program, kOffer);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
    Answer(program, offer, IDYES);
    Answer(program, WaitForDialog(program, kDialog), IDOK);
    ExpectNotes(folder, "Mine", kMerged);
    EXPECT_TRUE(HasFile(folder, "backup/" + std::string(kCopy) + " merged.nmd"));
}

TEST(MergeOffer, LeavesTheDecisionAboutALikelyName) {
    const ScratchFolder folder = FolderInConflict("Mine-DESKTOP1");
    Program program = StartProgram(folder);
    const HWND offer = WaitForDialog(program, kOffer);
    EXPECT_THAT(MessageText(offer), HasSubstr("may be a copy"));
    Answer(program, offer, IDYES);
    const HWND dialog = WaitForDialog(program, kDialog);
    EXPECT_EQ(ChosenIn(dialog, IDC_MERGED_COPY), "Mine-DESKTOP1");
    Answer(program, dialog, IDCANCEL);
    EXPECT_FALSE(HasDialog(program));
    ExpectNotes(folder, "Mine", kHere);
    ExpectNotes(folder, "Mine-DESKTOP1", kThere);
}

// With a damaged copy before it, and after a No.
TEST(MergeOffer, IsMadeForEachCopy) {
    const ScratchFolder folder = FolderInConflict();
    WriteNoteSet(folder, "Alpha");
    WriteFile(folder, "Alpha.sync-conflict-20240501-120000-ABCDEFG.nmd", "damaged");
    WriteNoteSet(folder, "Beta");
    WriteNoteSet(folder, "Beta (Anna's conflicted copy 2024-05-01)", {{1, "there"}});
    for (const int answer : {IDCANCEL, IDNO}) {
        Program program = StartProgram(folder);
        const HWND first = WaitForDialog(program, kOffer);
        EXPECT_THAT(MessageText(first), HasSubstr("Alpha"));
        EXPECT_THAT(ButtonsOf(first), ElementsAre("&Yes", "&No", "Cancel"));
        Answer(program, first, answer);
        if (answer == IDCANCEL) {
            EXPECT_FALSE(HasDialog(program));
            continue;
        }
        const HWND second = WaitForDialog(program, kOffer);
        EXPECT_THAT(MessageText(second), HasSubstr("Beta"));
        Answer(program, second, IDYES);
        Answer(program, WaitForDialog(program, kDialog), IDCANCEL);
        const HWND third = WaitForDialog(program, kOffer);
        EXPECT_THAT(MessageText(third), HasSubstr("Mine"));
        EXPECT_THAT(ButtonsOf(third), ElementsAre("&Yes", "&No"));
        Answer(program, third, IDYES);
        Answer(program, WaitForDialog(program, kDialog), IDOK);
        ExpectNotes(folder, "Mine", kMerged);
        EXPECT_FALSE(HasDialog(program));
    }
}

TEST(MergeOffer, IsNotRepeatedForALikelyNameAfterANo) {
    const ScratchFolder folder = FolderInConflict("Mine-DESKTOP1");
    WriteNoteSet(folder, "Mine (1)", {{7, "another"}});
    Program program = StartProgram(folder);
    const HWND first = WaitForDialog(program, kOffer);
    EXPECT_THAT(MessageText(first), HasSubstr("Mine (1)"));
    Answer(program, first, IDNO);
    const HWND second = WaitForDialog(program, kOffer);
    EXPECT_THAT(MessageText(second), HasSubstr("Mine-DESKTOP1"));
    EXPECT_THAT(MessageText(second), HasSubstr("choose No: you will not be asked about it again."));
    Answer(program, second, IDNO);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_EQ(CloseProgram(program), 0);
    program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    EXPECT_THAT(NoteSetNames(program), UnorderedElementsAre("Mine", "Mine (1)", "Mine-DESKTOP1"));
    EXPECT_EQ(CloseProgram(program), 0);
    std::filesystem::remove(folder.path / "Mine (1).nmd");  // a set of this name that comes later is another one
    std::filesystem::remove(folder.path / "Mine (1).nmi");
    program = StartProgram(folder);
    EXPECT_EQ(CloseProgram(program), 0);
    WriteNoteSet(folder, "Mine (1)", {{7, "a conflict"}});
    program = StartProgram(folder);
    EXPECT_THAT(MessageText(WaitForDialog(program, kOffer)), HasSubstr("Mine (1)"));
}

// ---- The dialog -----------------------------------------------------------------------------------------------------

static void Choose(const Program& program, HWND dialog, int list, const std::string& name) {
    const HWND box = Child(dialog, {list});
    const std::vector<std::string> names = ComboStrings(box);
    const auto found = std::ranges::find(names, name);
    ASSERT_NE(found, names.end()) << name;
    SendMessageA(box, CB_SETCURSEL, static_cast<WPARAM>(found - names.begin()), 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(list, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
    Settle(program);
}

// The backup has the notes of the set, but says nothing of another one.
TEST(MergeSets, LeavesNotesThatAnotherSetDoesNotHave) {
    const ScratchFolder folder = FolderInConflict("Another");
    WriteNoteSet(folder, "backup/Mine 2024-05-01", kHere);
    Program program = StartProgram(folder);
    Command(program, IDM_MERGE_SETS);
    const HWND dialog = WaitForDialog(program, kDialog);
    Choose(program, dialog, IDC_MERGED_SET, "Mine");
    Choose(program, dialog, IDC_MERGED_COPY, "Another");
    EXPECT_EQ(TextOf(dialog, IDC_MERGE_COUNTS), "1 note is taken from the copy, 2 get both texts, 0 stay, 1 is equal.");
}

TEST(MergeSets, MergesAnyTwoSets) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Alpha", {{1, "a"}, {5, "long\r\nlines"}});
    WriteNoteSet(folder, "Beta", {{2, "b"}});
    WriteNoteSet(folder, "Gamma", {{1, "c"}, {5, "long\r\nlines"}});
    Program program = StartProgram(folder);
    EXPECT_FALSE(HasDialog(program));
    Command(program, IDM_MERGE_SETS);
    const HWND dialog = WaitForDialog(program, kDialog);
    EXPECT_EQ(TabOrder(program, dialog),
              (std::vector<int>{IDC_MERGED_COPY, IDC_MERGED_SET, IDC_MERGED_NOTES, IDC_TEXT_IN_SET, IDC_TEXT_IN_COPY,
                                IDOK, IDCANCEL, IDC_HELP_BUTTON}));
    Choose(program, dialog, IDC_MERGED_SET, "Alpha");
    Choose(program, dialog, IDC_MERGED_COPY, "Alpha");
    EXPECT_EQ(TextOf(dialog, IDC_MERGE_COUNTS), "Choose two different sets.");
    EXPECT_FALSE(IsWindowEnabled(Child(dialog, {IDOK})));
    EXPECT_THAT(ListStrings(Child(dialog, {IDC_MERGED_NOTES})), IsEmpty());
    Choose(program, dialog, IDC_MERGED_COPY, "Gamma");
    EXPECT_TRUE(IsWindowEnabled(Child(dialog, {IDOK})));
    EXPECT_THAT(ListStrings(Child(dialog, {IDC_MERGED_NOTES})), ElementsAre("Genesis 1:2\tboth texts\ta\tc"));
    EXPECT_EQ(TextOf(dialog, IDC_MERGE_COUNTS),
              "0 notes are taken from the copy, 1 gets both texts, 0 stay, 1 is equal.");
    Answer(program, dialog, IDOK);
    EXPECT_THAT(NoteSetNames(program), testing::UnorderedElementsAre("Alpha", "Beta"));
    EXPECT_TRUE(HasFile(folder, "backup/Gamma merged.nmd"));
    EXPECT_TRUE(HasFile(folder, "backup/Gamma merged.nmi"));
}

namespace {

// The list of notes on the screen.
struct NoteLines {
    Picture picture;
    POINT origin{};  // of the first line
    int lineHeight = 0, width = 0;
};

}  // namespace

static NoteLines LinesIn(HWND dialog) {
    const HWND list = Child(dialog, {IDC_MERGED_NOTES});
    NoteLines lines{PictureOfWindow(list)};
    RECT place{};
    GetWindowRect(list, &place);
    ClientToScreen(list, &lines.origin);
    lines.origin = {lines.origin.x - place.left, lines.origin.y - place.top};
    lines.lineHeight = static_cast<int>(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0));
    lines.width = place.right - place.left;
    return lines;
}

// From the left, for a distance in units of the dialog.
static int PixelsIn(const NoteLines& lines, int units) {
    static constexpr int kUnitsOfList = 366;
    return lines.origin.x + units * lines.width / kUnitsOfList;
}

static RECT PartOf(const NoteLines& lines, int line, int leftUnits, int rightUnits) {
    const int top = lines.origin.y + line * lines.lineHeight;
    return {PixelsIn(lines, leftUnits), top, PixelsIn(lines, rightUnits), top + lines.lineHeight};
}

static std::vector<std::uint32_t> PixelsOf(const NoteLines& lines, const RECT& part) {
    std::vector<std::uint32_t> pixels;
    for (int y = part.top; y < part.bottom; ++y)
        for (int x = part.left; x < part.right; ++x) pixels.push_back(ColorAt(lines.picture, x, y));
    return pixels;
}

static HWND OpenMerge(const Program& program, const char* set, const char* copy) {
    Command(program, IDM_MERGE_SETS);
    const HWND dialog = WaitForDialog(program, kDialog);
    Choose(program, dialog, IDC_MERGED_SET, set);
    Choose(program, dialog, IDC_MERGED_COPY, copy);
    return dialog;
}

TEST(MergeSets, CutsWideTextsAtTheirColumn) {
    const std::string wide(200, 'W'), slim(200, 'i');
    for (const int dpi : {96, 144, 192}) {
        SCOPED_TRACE(dpi);
        const SystemScaling scaling(dpi);
        const ScratchFolder folder = FolderWithScripture();
        WriteNoteSet(folder, "Alpha", {{1, "first"}, {2, wide}, {3, slim}});
        WriteNoteSet(folder, "Beta", {{1, "other"}, {2, "x"}, {3, "x"}});
        Program program = StartProgram(folder);
        const HWND dialog = OpenMerge(program, "Alpha", "Beta");
        const NoteLines lines = LinesIn(dialog);
        SavePicture(PictureOfWindow(dialog), "merge-wide-" + std::to_string(dpi));
        for (const int line : {1, 2}) {
            EXPECT_GT(CountColors(lines.picture, PartOf(lines, line, 150, 232)), 1) << line;
            const int end = line == 1 ? 222 : 190;  // Wine draws slim letters closer than it says that they are
            EXPECT_GT(CountColors(lines.picture, PartOf(lines, line, end, end + 14)), 1) << line << ": has the room";
            EXPECT_EQ(CountColors(lines.picture, PartOf(lines, line, 237, 239)), 1) << line << ": the gap is free";
            EXPECT_GT(CountColors(lines.picture, PartOf(lines, line, 240, 250)), 1) << line;
        }
    }
}

// A font without the letters shows the same box for each.
TEST(MergeSets, ShowsLettersThatItsFontLacks) {
    static constexpr const char* kNotes[] = {"\xEF\xBB\xBF\u03B1\u03B1\u03B1", "\xEF\xBB\xBF\u03C9\u03C9\u03C9",
                                             "\xEF\xBB\xBF\u05D0\u05D0\u05D0", "\xEF\xBB\xBF\u05E9\u05E9\u05E9"};
    const ScratchFolder folder = FolderWithScripture();
    Notes notes{{1, "first"}}, other{{1, "other"}};
    for (int i = 0; i < 4; ++i) notes[2 + i] = kNotes[i], other[2 + i] = "x";
    WriteNoteSet(folder, "Alpha", notes);
    WriteNoteSet(folder, "Beta", other);
    Program program = StartProgram(folder);
    const HWND dialog = OpenMerge(program, "Alpha", "Beta");
    const NoteLines lines = LinesIn(dialog);
    SavePicture(PictureOfWindow(dialog), "merge-letters");
    for (const int line : {1, 3})
        EXPECT_NE(PixelsOf(lines, PartOf(lines, line, 140, 180)), PixelsOf(lines, PartOf(lines, line + 1, 140, 180)));
}

// The one that was chosen because it has the letters of the notes.
TEST(MergeSets, ShowsTextsInTheFontOfTheNotes) {
    const ScratchFolder folder = FolderWithScripture();
    WriteSetting(folder, "OPTIONS", "NoteFontHeight", "60");
    WriteNoteSet(folder, "Alpha", {{1, "IIII"}});
    WriteNoteSet(folder, "Beta", {{1, "I"}});
    Program program = StartProgram(folder);
    const HWND dialog = OpenMerge(program, "Alpha", "Beta");
    for (const int text : {IDC_TEXT_IN_SET, IDC_TEXT_IN_COPY}) {
        const Picture picture = PictureOfClient(Child(dialog, {text}));
        EXPECT_GT(CountPixels(picture, {0, 30, picture.width - 40, picture.height}, 0x000000), 30);
    }
}

TEST(MergeSets, ShowsTheTextsOfTheChosenLine) {
    const ScratchFolder folder = FolderInConflict();
    Program program = StartProgram(folder);
    Answer(program, WaitForDialog(program, kOffer), IDNO);
    Command(program, IDM_MERGE_SETS);
    const HWND dialog = WaitForDialog(program, kDialog);
    EXPECT_EQ(ChosenIn(dialog, IDC_MERGED_COPY), kCopy);  // chosen by itself
    Press(program, "Alt+n");
    Press(program, "Down");
    Press(program, "Down");
    EXPECT_EQ(TextOf(dialog, IDC_TEXT_IN_SET), "");
    EXPECT_EQ(TextOf(dialog, IDC_TEXT_IN_COPY), "four there");
    Press(program, "Esc");
    WaitForNoDialog(program);
    ExpectNotes(folder, "Mine", kHere);
}

TEST(MergeSets, ReadsFilesAgainThatHaveChanged) {
    const ScratchFolder folder = FolderInConflict();
    Program program = StartProgram(folder);
    Answer(program, WaitForDialog(program, kOffer), IDYES);
    const HWND dialog = WaitForDialog(program, kDialog);
    WriteNoteSet(folder, "Mine", {{9, "nine, which is longer"}});
    PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    WaitUntil(program, "the message", [&] { return !IsWindowEnabled(dialog); });
    Press(program, "Enter");
    WaitUntil(program, "the end of the message", [&] { return IsWindowEnabled(dialog) != 0; });
    ExpectNotes(folder, "Mine", {{9, "nine, which is longer"}});
    EXPECT_EQ(ListStrings(Child(dialog, {IDC_MERGED_NOTES})).size(), 5u);
    Answer(program, dialog, IDOK);
    EXPECT_TRUE(HasFile(folder, "backup/" + std::string(kCopy) + " merged.nmd"));
}

// ---- Kills ----------------------------------------------------------------------------------------------------------

// Starts the program on what a kill has left, and merges the copy if it is still there.
static void StartAndMerge(const ScratchFolder& folder) {
    Program program = LaunchProgram(folder);
    HWND report = nullptr;  // of an index that was made again, or of a whole temporary file
    WaitUntil(program, "the start", [&] {
        for (const HWND window : TopLevelWindows(program)) {
            if (TextOf(window) == "Note Sets") report = window;
            if (report || ClassOf(window) == "Versewell97") return true;
        }
        return false;
    });
    if (report) PostMessageA(report, WM_COMMAND, IDOK, 0);
    WaitForFrame(program);
    if (HasFile(folder, std::string(kCopy) + ".nmd")) {
        Answer(program, WaitForDialog(program, kOffer), IDYES);
        Answer(program, WaitForDialog(program, kDialog), IDOK);
    }
    ExpectNotes(folder, "Mine", kMerged);
    EXPECT_THAT(NoteSetNames(program), ElementsAre("Mine"));
}

// Each step is also stopped by a native test; here some file operations of the real program are its last.
TEST(MergeSets, LosesNothingWhenTheProgramIsKilled) {
    bool isKilled = true;
    for (unsigned operation = 1; isKilled && !HasFailure(); operation += StepOfFileOperations()) {
        SCOPED_TRACE(testing::Message() << "file operation " << operation);
        const ScratchFolder folder = FolderInConflict();
        {
            Program program = StartProgram(folder);
            Answer(program, WaitForDialog(program, kOffer), IDYES);
            const HWND dialog = WaitForDialog(program, kDialog);
            EndAtFileOperation(program, operation);
            PostMessageA(dialog, WM_COMMAND, IDOK, 0);
            WaitUntil(program, "the end of the merge", [&] { return !IsRunning(program) || !IsWindow(dialog); });
            isKilled = !IsRunning(program);
        }
        const std::string data = ReadFile(folder, "Mine.nmd");
        const bool isOld = data.find("two there") == std::string::npos;
        EXPECT_THAT(data, HasSubstr("two here"));
        EXPECT_TRUE(!isOld || HasFile(folder, std::string(kCopy) + ".nmd"));
        StartAndMerge(folder);
        ExpectNotes(folder, "backup/" + std::string(kCopy) + " merged", kThere);
    }
}
