// The command table: what each menu item, accelerator and toolbar button does, when it is enabled and ticked, and how
// its button looks. A command that several places show is described here alone.
#pragma once

#include <span>

#include "win32/windows_api.h"

// Buttons of a group stand together, groups and buttons in the order of the table; separators part the groups.
enum class ButtonGroup { kNone, kClipboard, kCopy, kSearch, kGoTo, kVerse, kEditNote, kView, kHelp };

struct ToolbarButton {
    ButtonGroup group = ButtonGroup::kNone;
    int picture = 0;  // its number in the strip of pictures
};

// A tool tip, to which the command's key is added. One that names a verse has two forms.
struct ToolTip {
    const char* text = "";         // without a verse
    const char* beforeVerse = "";  // "Note for "
    int (*verse)() = nullptr;      // -1: there is none now
};

struct Command {
    int id;
    void (*action)(int command);
    unsigned needs = 0;     // facts that enable it; see app/command_facts.h
    unsigned tickedBy = 0;  // the fact that ticks its item; 0: it is never ticked
    ToolbarButton button{};
    ToolTip tip{};
};

std::span<const Command> Commands();

// The row of `command`; null for none.
const Command* FindCommand(int command);

// Does the work of `command`. One that is not known is ignored, and so is one that must wait for the note editor.
void Dispatch(int command);

// The facts that hold now, and the state that they give the button of `command`.
unsigned CurrentFacts();
BYTE ButtonState(const Command& command, unsigned facts);
