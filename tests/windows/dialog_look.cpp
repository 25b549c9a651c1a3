#include "tests/windows/dialog_look.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"

using testing::ElementsAre;

static bool LiesWithin(HWND control, HWND dialog) {
    const RECT place = RectIn(control, dialog);
    const RECT client = ClientRectOf(dialog);
    return place.left >= 0 && place.top >= 0 && place.right <= client.right && place.bottom <= client.bottom;
}

static std::vector<std::string> LabelsOf(HWND dialog) {
    std::vector<std::string> labels;
    for (const HWND child : ChildrenOf(dialog))
        if (GetDlgCtrlID(child) == 0xFFFF || GetDlgCtrlID(child) == -1) labels.push_back(TextOf(child));
    return labels;
}

void ExpectLook(const Program& program, HWND dialog, const DialogLook& look, const std::string& picture) {
    EXPECT_EQ(TextOf(dialog), look.title);
    EXPECT_EQ(LabelsOf(dialog), look.labels);
    EXPECT_EQ(ChildrenOf(dialog).size(), look.controls.size() + look.labels.size());
    for (const ShownControl& expected : look.controls) {
        const HWND control = Child(dialog, {expected.id});
        EXPECT_STRCASEEQ(ClassOf(control).c_str(), expected.className) << expected.id;
        EXPECT_EQ(TextOf(control), expected.text) << expected.id;
        EXPECT_TRUE(IsShown(control)) << expected.id;
        EXPECT_TRUE(LiesWithin(control, dialog)) << expected.id;
    }
    EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IDOK);
    SavePicture(PictureOfWindow(dialog), picture);
    EXPECT_EQ(TabOrder(program, dialog), look.tabOrder);
}

void ExpectRangeWithNotesLook(const Program& program, HWND dialog, const std::string& title, const std::string& range,
                              const std::string& meaning, const std::string& picture) {
    const std::vector<std::string> sets = NoteSetNames(program);
    const int current = SelectedTab(Child(program.frame, {IDC_NOTE_TABS}));
    const DialogLook look = {
        title,
        {{IDC_RANGE, "Edit", range},
         {IDC_REFERENCE_MEANING, "Static", meaning},
         {IDC_INCLUDE_NOTES, "Button", "&Include notes:"},
         {IDC_NOTE_SET, "ComboBox", sets[static_cast<std::size_t>(current)]},
         {IDOK, "Button", "OK"},
         {IDCANCEL, "Button", "Cancel"},
         {IDC_FORMAT_BUTTON, "Button", "&Format..."},
         {IDC_HELP_BUTTON, "Button", "&Help"}},
        {"&Range:", "from &set"},
        {IDC_RANGE, IDC_INCLUDE_NOTES, IDC_NOTE_SET, IDOK, IDCANCEL, IDC_FORMAT_BUTTON, IDC_HELP_BUTTON},
        {}};
    ExpectLook(program, dialog, look, picture);
    EXPECT_EQ(ComboStrings(Child(dialog, {IDC_NOTE_SET})), sets);
    EXPECT_FALSE(IsChecked(dialog, IDC_INCLUDE_NOTES));
    EXPECT_EQ(SendDlgItemMessageA(dialog, IDC_RANGE, EM_GETLIMITTEXT, 0, 0), 99);
}

static int FocusedControl(const Program& program, HWND dialog) {
    HWND control = FocusOf(program);
    while (control != nullptr && GetParent(control) != dialog) control = GetParent(control);  // a combo's field
    return GetDlgCtrlID(control);
}

void ExpectAccessKeys(const Program& program, HWND dialog, const std::vector<AccessKey>& keys) {
    for (const AccessKey& key : keys) {
        Press(program, key.key);
        EXPECT_EQ(FocusedControl(program, dialog), key.focus) << key.key;
    }
}

static void Dismiss(const Program& program, HWND box) {
    Press(program, "Enter");
    WaitUntil(program, "the message to be closed", [&] { return !IsWindow(box); });
    Settle(program);
}

void ExpectMissingHelp(const Program& program, HWND dialog) {
    Press(program, "Alt+h");
    const HWND box = WaitForDialog(program, "Help");
    EXPECT_EQ(MessageText(box), "The help file \"quill97.hlp\" cannot be found.");
    Dismiss(program, box);
    EXPECT_TRUE(IsWindow(dialog));
}

// The stop icon is the only red thing in a message box.
static bool ShowsStopIcon(HWND box) {
    const Picture picture = PictureOfWindow(box);
    const auto isRed = [](std::uint32_t color) {
        const auto red = color >> 16 & 0xFF, green = color >> 8 & 0xFF, blue = color & 0xFF;
        return red > 120 && green < red / 2 && blue < red / 2;
    };
    return std::count_if(picture.pixels.begin(), picture.pixels.end(), isRed) > 100;
}

void ExpectComplaint(const Program& program, std::string_view caption, std::string_view text) {
    const HWND box = WaitForDialog(program, caption);
    EXPECT_EQ(MessageText(box), text);
    EXPECT_THAT(ButtonsOf(box), ElementsAre("OK"));
    EXPECT_TRUE(ShowsStopIcon(box)) << text;
    Dismiss(program, box);
}

std::wstring WideMessageText(HWND messageBox) {
    std::wstring text;
    for (HWND child = nullptr; (child = FindWindowExW(messageBox, child, L"Static", nullptr)) != nullptr;) {
        wchar_t part[1000] = L"";
        SendMessageW(child, WM_GETTEXT, std::size(part), reinterpret_cast<LPARAM>(part));
        text += part;
    }
    return text;
}
