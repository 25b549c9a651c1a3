// The dialogs that have a Help button.
#pragma once

#include <span>

struct HelpedDialog {
    int command;
    const char* title;  // when the current note set is "My Notes"
    const char* topic;  // of its Help button
};

std::span<const HelpedDialog> HelpedDialogs();
