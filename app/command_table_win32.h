// The command table: what each menu item, accelerator and toolbar button does, when it is enabled and ticked, and its
// button. A command has one row, however many places offer it.
#pragma once

#include <span>

#include "win32/windows_api.h"

// Groups and their buttons appear in the order of the table, with a separator before each group.
enum class ButtonGroup { kNone, kClipboard, kCopy, kSearch, kGoTo, kVerse, kEditNote, kView, kHelp };

struct ToolbarButton {
    ButtonGroup group = ButtonGroup::kNone;
    int picture = 0;  // index in the strip of pictures
};

// A tool tip, to which the command's key is added. If it names a verse, it has two forms.
struct ToolTip {
    const char* text = "";         // without a verse; also the text of the button, which only screen readers get
    const char* beforeVerse = "";  // "Note for "
    int (*verse)() = nullptr;      // the verse to name; -1 if there is none
};

struct Command {
    int id;
    void (*action)(int command);
    unsigned needs = 0;     // facts that enable it; see app/command_facts.h
    unsigned tickedBy = 0;  // the fact that ticks its item; 0: never ticked
    ToolbarButton button{};
    ToolTip tip{};
};

std::span<const Command> Commands();

// The row of `command`; null if there is none.
const Command* FindCommand(int command);

// Runs `command`. Ignored if it is unknown, or if it needs kNotEditing while a note is edited.
void Dispatch(int command);

// The facts that are true now, and the button state of `command` for given facts.
unsigned CurrentFacts();
BYTE ButtonState(const Command& command, unsigned facts);
