// The names that screen readers find without asking the program: texts of windows, labels of fields.

#include <windows.h>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/helped_dialogs.h"
#include "tests/windows/note_steps.h"
#include "tests/windows/passage_pane.h"
#include "tests/windows/search_steps.h"

TEST(AccessibleNames, PanesAndBarsHaveOnes) {
    const Program program = StartProgram(FolderWithScripture());
    EXPECT_EQ(TextOf(PassageOf(program)), "Passage");
    EXPECT_EQ(TextOf(VerseListOf(program)), "Verse List");
    EXPECT_EQ(TextOf(ReferenceListOf(program)), "Reference List");
    EXPECT_EQ(TextOf(Child(program.frame, {IDC_LIST_TABS})), "Lists of Verses");
    EXPECT_EQ(TextOf(Child(program.frame, {IDC_PASSAGE_TABS})), "Passage");
    EXPECT_EQ(TextOf(Child(program.frame, {IDC_NOTE_TABS})), "Note Sets");
    EXPECT_EQ(TextOf(Child(program.frame, {IDC_NOTE_TABS, IDC_NOTES})), "Notes");
    EXPECT_EQ(TextOf(NoteEditorOf(program)), "Note Editor");
    EXPECT_EQ(TextOf(Child(program.frame, {IDC_TOOLBAR})), "Toolbar");
}

// Asking the frame gives the controls names that are not their texts, where the system has such names.
TEST(AccessibleNames, DoNotChangeWhatControlsShow) {
    Program program = StartProgram(FolderWithScripture());
    const HWND view = NoteViewOf(program);
    const std::string note = TextOf(view), status = StatusPart(program, 3);
    for (int turn = 0; turn < 2; ++turn) {
        SendMessageA(program.frame, WM_GETOBJECT, 0, OBJID_CLIENT);
        Settle(program);
        EXPECT_EQ(TextOf(view), note);
        EXPECT_EQ(StatusPart(program, 3), status);
        EXPECT_EQ(TextOf(program.frame), "Versewell97");
    }
    EXPECT_EQ(CloseProgram(program), 0);
}

static bool IsField(HWND control) {
    const std::string kind = ClassOf(control);
    return kind == "Edit" || kind == "ComboBox" || kind == "ListBox" || kind == "RICHEDIT";
}

static std::string LabelOf(HWND control) {
    const HWND before = GetWindow(control, GW_HWNDPREV);
    return before != nullptr && ClassOf(before) == "Static" ? TextOf(before) : "";
}

TEST(AccessibleNames, EveryFieldOfADialogHasALabelBefore) {
    const Program program = StartProgram(FolderWithScripture());
    int fields = 0;
    for (const HelpedDialog& row : HelpedDialogs()) {
        PostMessageA(program.frame, WM_COMMAND, static_cast<WPARAM>(row.command), 0);
        const HWND dialog = WaitForDialog(program, row.title);
        for (const HWND control : ChildrenOf(dialog)) {
            if (!IsField(control)) continue;
            ++fields;
            EXPECT_GE(LabelOf(control).size(), 5u) << row.title << " " << GetDlgCtrlID(control);
        }
        Press(program, "Esc");
        WaitForNoDialog(program);
    }
    EXPECT_GT(fields, 25);
}
