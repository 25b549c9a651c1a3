// What every dialog is looked at for, and the boxes that it opens.
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
    int focus;  // where it leads
};

struct DialogLook {
    std::string title;
    std::vector<ShownControl> controls;
    std::vector<std::string> labels;  // in Tab order
    std::vector<int> tabOrder;        // the first has the focus when it opens
    std::vector<AccessKey> accessKeys;
};

// Expects the dialog to have exactly these controls, all of them within it, and OK as its default button; keeps its
// picture as `picture`. The focus ends where it began.
void ExpectLook(const Program& program, HWND dialog, const DialogLook& look, const std::string& picture);

// Expects the dialog for a range with notes to look as it should: `range` in its field, the note sets to choose from
// with the current one chosen, nothing checked, and the field as long as a reference may be.
void ExpectRangeWithNotesLook(const Program& program, HWND dialog, const std::string& title, const std::string& range,
                              const std::string& picture);

// Expects each access key to bring the focus where it leads; what the key presses on the way is pressed.
void ExpectAccessKeys(const Program& program, HWND dialog, const std::vector<AccessKey>& keys);

// Expects the dialog to say that there is no help file, and to stay open.
void ExpectMissingHelp(const Program& program, HWND dialog);

// Waits for the message box `caption`, expects its text, the stop icon and OK alone, and closes it.
void ExpectComplaint(const Program& program, std::string_view caption, std::string_view text);
