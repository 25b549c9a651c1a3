// The marks « and » on the tabs of the note sets.

#include <algorithm>

#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/driver/remote_memory.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

static RECT TabRect(const Program& program, HWND tabs, int tab) {
    RECT place{};
    AskAbout(program, tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), place);
    return place;
}

static constexpr int kWept = 26558;  // the only verse with "Jesus wept"

static HWND TabsOf(const Program& program) {
    return Child(program.frame, {IDC_NOTE_TABS});
}

// Sorted by name, ignoring the marks.
static std::vector<std::string> LabelsOf(const Program& program) {
    std::vector<std::string> labels = TabLabels(program, TabsOf(program));
    std::ranges::sort(labels, {}, [](const std::string& label) { return label.substr(label.find_last_of(' ') + 1); });
    return labels;
}

using Labels = std::vector<std::string>;

// The whole name is everywhere else. Windows and Wine take no file with a longer one.
TEST(TabsOfLongNames, ShowTheirBeginningAndEnd) {
    const ScratchFolder folder = FolderWithScripture();
    const std::string name = "The first of " + std::string(170, 'W') + " long names in all";
    WriteNoteSet(folder, name, {{0, "first"}});
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    const std::string shown = "The first of " + std::string(13, 'W') + "...ames in all";
    EXPECT_THAT(TabLabels(program, TabsOf(program)), testing::UnorderedElementsAre("Mine", "\xBB " + shown));
    const RECT tabs = ClientRectOf(TabsOf(program));
    for (int tab = 0; tab < 2; ++tab) {
        const RECT place = TabRect(program, TabsOf(program), tab);
        EXPECT_LE(place.right - place.left, tabs.right / 2) << tab;
    }
    SavePicture(PictureOfWindow(program.frame), "tab-of-a-long-name");
    ClickTab(program, TabsOf(program), TabLabels(program, TabsOf(program))[0] == "Mine");
    GoTo(program, "Re 22:21");
    EXPECT_THAT(TabLabels(program, TabsOf(program)), testing::Contains(shown));
    Command(program, IDM_RENAME_NOTE_SET);
    const HWND dialog = WaitForDialog(program, "Change name of note set " + name);
    EXPECT_EQ(TextOf(dialog, IDC_SET_NAME), name);
    SetDlgItemTextA(dialog, IDC_SET_NAME, std::string(99, 'a').c_str());
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_THAT(TabLabels(program, TabsOf(program)),
                testing::Contains(std::string(26, 'a') + "..." + std::string(11, 'a')));
    EXPECT_TRUE(HasFile(folder, std::string(99, 'a') + ".nmd"));
    Command(program, IDM_CREATE_NOTE_SET);
    SetDlgItemTextA(WaitForDialog(program, "Create New Note Set"), IDC_SET_NAME, std::string(99, 'b').c_str());
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_THAT(TabLabels(program, TabsOf(program)),
                testing::Contains(std::string(26, 'b') + "..." + std::string(11, 'b')));
}

TEST(TabMarks, ShowWhichSetsHaveNotesForTheVerses) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Both", {{0, "first"}, {kWept, "wept"}, {kLastVerse, "last"}});
    WriteNoteSet(folder, "List", {{kWept, "wept"}});
    WriteNoteSet(folder, "None");
    WriteNoteSet(folder, "Passage", {{0, "first"}});
    Program program = StartProgram(folder);
    EXPECT_EQ(LabelsOf(program), (Labels{"\xBB Both", "List", "None", "\xBB Passage"}));
    GoTo(program, "Joh 11:35");
    EXPECT_EQ(LabelsOf(program), (Labels{"\xBB Both", "\xBB List", "None", "Passage"}));
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_EQ(LabelsOf(program), (Labels{"\xAB \xBB Both", "\xAB \xBB List", "None", "Passage"}));
    SavePicture(PictureOfWindow(program.frame), "tab-marks");
    GoTo(program, "Ge 1:1");
    EXPECT_EQ(LabelsOf(program), (Labels{"\xAB \xBB Both", "\xAB List", "None", "\xBB Passage"}));
    GoTo(program, "Re 22:21");  // the last note, which ends with the file
    EXPECT_EQ(LabelsOf(program), (Labels{"\xAB \xBB Both", "\xAB List", "None", "Passage"}));
    const int selected = SelectedTab(TabsOf(program));
    SearchInVain(program, {"zzz"});
    Press(program, "Enter");
    EXPECT_EQ(LabelsOf(program), (Labels{"\xBB Both", "List", "None", "Passage"}));
    EXPECT_EQ(SelectedTab(TabsOf(program)), selected);
}

// Deliberate: the marks are updated only when the position of the list or the verse of the Passage changes. A new list
// starts at position 0, so after a list at position 0 the old marks stay for now.
TEST(TabMarks, AreNotUpdatedWhenANewListStartsAtTheSamePosition) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{kWept, "wept"}, {1, "without form"}});
    Program program = StartProgram(folder);
    EXPECT_EQ(LabelsOf(program), Labels{"Mine"});
    SearchFor(program, {"Jesus wept", IDM_PHRASE_SEARCH});
    EXPECT_EQ(LabelsOf(program), Labels{"\xAB Mine"});
    SearchFor(program, {"the"});  // Genesis 1:1, 1:2...
    EXPECT_EQ(LabelsOf(program), Labels{"\xAB Mine"}) << "the mark is still that of the old list";
    GoTo(program, "Ge 1:3");
    EXPECT_EQ(LabelsOf(program), Labels{"Mine"}) << "the verse of the Passage has changed";
    Press(program, "Alt+1");
    Press(program, "Down");
    EXPECT_EQ(LabelsOf(program), Labels{"\xAB Mine"}) << "Genesis 1:2 has a note";
    Press(program, "Down");
    EXPECT_EQ(LabelsOf(program), Labels{"Mine"});
}

static void AnswerYes(const Program& program) {
    WaitForDialog(program, "Delete Note Set");
    Press(program, "y");
    WaitForNoDialog(program);
}

TEST(TabMarks, DisappearWithNewTabsUntilAPaneMoves) {
    const ScratchFolder folder = FolderWithScripture();
    for (const char* name : {"a", "b"}) WriteNoteSet(folder, name, {{0, "first"}, {1, "second"}});
    Program program = StartProgram(folder);
    ClickTab(program, TabsOf(program), 1);
    EXPECT_EQ(LabelsOf(program), (Labels{"\xBB a", "\xBB b"}));
    Command(program, IDM_CREATE_NOTE_SET);
    WaitForDialog(program, "Create New Note Set");
    Type(program, "c");
    Press(program, "Enter");
    WaitForNoDialog(program);
    EXPECT_EQ(LabelsOf(program), (Labels{"\xBB a", "\xBB b", "c"})) << "the other tabs keep their marks";
    Command(program, IDM_RENAME_NOTE_SET);
    WaitForDialog(program, SelectedTab(TabsOf(program)) == 1 && TabLabels(program, TabsOf(program))[1] == "\xBB b"
                               ? "Change name of note set b"
                               : "Change name of note set a");
    Type(program, "d");
    Press(program, "Enter");
    WaitForNoDialog(program);
    for (const std::string& label : LabelsOf(program)) EXPECT_EQ(label.size(), 1u) << "no name has a mark";
    InvalidateRect(PassageOf(program), nullptr, FALSE);
    Settle(program);
    for (const std::string& label : LabelsOf(program))
        EXPECT_EQ(label.size(), 1u) << "painting alone must not add marks";
    GoTo(program, "Ge 1:2");
    EXPECT_EQ(std::ranges::count_if(LabelsOf(program), [](const auto& label) { return label.starts_with('\xBB'); }), 2);
    Command(program, IDM_DELETE_NOTE_SET);
    AnswerYes(program);
    for (const std::string& label : LabelsOf(program)) EXPECT_EQ(label.size(), 1u);
    EXPECT_EQ(LabelsOf(program).size(), 2u);
}

TEST(TabMarks, AreUpdatedWhenANoteIsSaved) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine");
    Program program = StartProgram(folder);
    OpenNoteEditor(program);
    Type(program, "new");
    ClickEditorButton(program, IDC_NOTE_SAVE);
    ASSERT_EQ(TextOf(NoteViewOf(program)), "new");
    EXPECT_EQ(LabelsOf(program), Labels{"\xBB Mine"});
    GoTo(program, "Ge 1:2");
    EXPECT_EQ(LabelsOf(program), Labels{"Mine"});
}

// With the marks the tabs may need another row; the note view must then move to fill the remaining space.
TEST(TabMarks, CanAddARowOfTabs) {
    const ScratchFolder folder = FolderWithScripture();
    for (int set = 0; set < 12; ++set) WriteNoteSet(folder, "A set of notes " + std::to_string(set), {{1, "second"}});
    Program program = StartProgram(folder);
    const HWND tabs = TabsOf(program);
    const HWND view = NoteViewOf(program);
    const auto rows = [&] { return SendMessageA(tabs, TCM_GETROWCOUNT, 0, 0); };
    const auto isFilled = [&](const char* when) {
        const RECT client = ClientRectOf(tabs);
        const RECT display = TabDisplayRect(program, tabs, client);
        const RECT place = RectIn(view, tabs);
        EXPECT_EQ(place.top, display.top) << when;
        EXPECT_EQ(place.bottom, display.bottom) << when;
    };
    RECT frame = RectOnScreen(program.frame);
    const auto marked = [&] { return GoTo(program, "Ge 1:2"); };
    const auto plain = [&] { return GoTo(program, "Ge 1:1"); };
    bool grew = false;
    for (int width = 540; width < 800 && !grew; width += 20) {
        frame.right = frame.left + width;
        PlaceFrame(program, frame);
        const auto before = rows();
        marked();
        grew = rows() > before;
        isFilled("marked");
        if (grew) SavePicture(PictureOfWindow(program.frame), "tab-marks-more-rows");
        plain();
        isFilled("plain");
        if (grew) SavePicture(PictureOfWindow(program.frame), "tab-marks-fewer-rows");
    }
    EXPECT_TRUE(grew);
}
