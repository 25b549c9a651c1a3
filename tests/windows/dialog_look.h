// Checks that apply to every dialog and to the message boxes it opens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/driver/driver.h"

struct ShownControl {
    int id;
    const char* className;
    std::string text;
};

struct AccessKey {
    const char* key;
    int focus;  // the control that it focuses
};

struct DialogLook {
    std::string title;
    std::vector<ShownControl> controls;
    std::vector<std::string> labels;  // in Tab order
    std::vector<int> tabOrder;        // the first has the focus when the dialog opens
    std::vector<AccessKey> accessKeys;
};

// Expects the dialog to have exactly these controls, all within its bounds, and OK as its default button. Saves its
// picture as `picture` and leaves the focus where it was.
void ExpectLook(const Program& program, HWND dialog, const DialogLook& look, const std::string& picture);

// Checks a dialog for a range with notes: `range` in its field and `meaning` below it, a list of the note sets with the
// current one selected, nothing checked, and the field limited to the length of a reference.
void ExpectRangeWithNotesLook(const Program& program, HWND dialog, const std::string& title, const std::string& range,
                              const std::string& meaning, const std::string& picture);

// Expects each access key to move the focus to its control. Note that such a key also clicks a button or check box.
void ExpectAccessKeys(const Program& program, HWND dialog, const std::vector<AccessKey>& keys);

// Expects the dialog to say that there is no help file, and to stay open.
void ExpectMissingHelp(const Program& program, HWND dialog);

// Waits for the message box `caption`, expects its text, the stop icon and only an OK button, and closes it.
void ExpectComplaint(const Program& program, std::string_view caption, std::string_view text);

// The text of a message box with all its letters.
std::wstring WideMessageText(HWND messageBox);
