// The dialogs that have a Help button.
#pragma once

#include <span>

struct HelpedDialog {
    int command;
    const char* title;  // where the current note set is "My Notes"
    const char* topic;  // what its Help button opens
};

std::span<const HelpedDialog> HelpedDialogs();
