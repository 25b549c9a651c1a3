// Every text of every dialog has room in its control, whatever the scaling of the screen.

#include <algorithm>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/driver/driver.h"
#include "tests/windows/helped_dialogs.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/system_scaling.h"

namespace {

// At one scaling.
struct Fitting {
    const Program& program;
    int dpi;
};

}  // namespace

static int Scaled(const Fitting& fitting, int pixels) {
    return MulDiv(pixels, fitting.dpi, 96);
}

static SIZE SizeOf(const RECT& place) {
    return {place.right - place.left, place.bottom - place.top};
}

// What the control needs for its text at a width of `width`. Of its own it has at least what Windows draws: the border
// and the focus of a button, the box of a check box and the gap behind it, the ends of a group box.
static SIZE NeededBy(const Fitting& fitting, HWND control, const std::string& text, LONG width) {
    const std::string kind = ClassOf(control);
    const DWORD style = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
    const SIZE line = SizeOfText(fitting.program, control, text);
    if (kind == "Static") {
        const UINT format = (style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0;
        return SizeOfText(fitting.program, control, text, width, format);
    }
    if (kind == "Edit" || kind == "ComboBox") return {0, line.cy + 4};  // borders are not scaled
    switch (style & BS_TYPEMASK) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON: return {line.cx + Scaled(fitting, 8), line.cy + Scaled(fitting, 6)};
        case BS_GROUPBOX: return {line.cx + Scaled(fitting, 18), line.cy};
        default: return {line.cx + Scaled(fitting, 18), line.cy};
    }
}

static bool HasMeasuredText(HWND control) {
    const std::string kind = ClassOf(control);
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    if (kind == "Static") return (style & SS_TYPEMASK) != SS_ICON && (style & SS_TYPEMASK) != SS_BITMAP;
    return kind == "Button" || (kind == "Edit" && !(style & ES_MULTILINE)) || kind == "ComboBox";
}

// A field shows what the user chooses or types, so only its height is measured, with a letter that reaches up and down.
static void ExpectRoom(const Fitting& fitting, HWND control) {
    const bool isField = ClassOf(control) == "Edit" || ClassOf(control) == "ComboBox";
    const std::string text = isField ? "Ag" : TextOf(control);
    const SIZE size = SizeOf(RectOnScreen(control));
    const SIZE needed = NeededBy(fitting, control, text, size.cx);
    EXPECT_LE(needed.cx, size.cx) << ClassOf(control) << " \"" << text << "\"";
    EXPECT_LE(needed.cy, size.cy) << ClassOf(control) << " \"" << text << "\"";
}

static void ExpectFits(const Fitting& fitting, HWND dialog) {
    const RECT client = ClientRectOf(dialog);
    int measured = 0;
    for (const HWND control : ChildrenOf(dialog)) {
        const RECT place = RectIn(control, dialog);
        EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= client.right && place.bottom <= client.bottom)
            << ClassOf(control) << " \"" << TextOf(control) << "\" leaves the dialog";
        if (!HasMeasuredText(control)) continue;
        ExpectRoom(fitting, control);
        ++measured;
    }
    EXPECT_GE(measured, 1);
}

static void ExpectFits(const Fitting& fitting, int command, const std::string& title) {
    const std::string name = std::to_string(fitting.dpi) + "-" + std::to_string(command);
    SCOPED_TRACE(title + " at " + std::to_string(fitting.dpi) + " dpi");
    const Program& program = fitting.program;
    Command(program, command);
    const HWND dialog = WaitForDialog(program, title);
    ExpectFits(fitting, dialog);
    if (testing::Test::HasFailure()) SavePicture(PictureOfWindow(dialog), "fit-" + name);
    Press(program, "Esc");
    WaitForNoDialog(program);
}

struct DialogsFit : testing::TestWithParam<int> {};

TEST_P(DialogsFit, IntoTheirControls) {
    const SystemScaling scaling(GetParam());
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "My Notes", {{0, "A note."}});
    WriteNoteSet(folder, "Sermons");
    const Program program = StartProgram(folder);
    const Fitting fitting{program, GetParam()};
    ASSERT_EQ(SizeOf(ClientRectOf(Child(program.frame, {IDC_NOTE_EDITOR, IDC_NOTE_SAVE}))).cy, Scaled(fitting, 21))
        << "the program has the scaling";
    for (const HelpedDialog& row : HelpedDialogs()) ExpectFits(fitting, row.command, row.title);
    ExpectFits(fitting, IDM_ABOUT, "About Versewell97");
}

static std::vector<int> Scalings() {
    return IsLongRun() ? std::vector<int>{96, 120, 144, 192, 288} : std::vector<int>{96, 192};
}

INSTANTIATE_TEST_SUITE_P(Scalings, DialogsFit, testing::ValuesIn(Scalings()),
                         [](const auto& row) { return std::to_string(row.param) + "Dpi"; });
