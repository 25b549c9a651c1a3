// The system's colours and themes, as the user sets them, for tests of how the program follows them.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/driver/driver.h"

using ColorScheme = std::vector<std::pair<int, COLORREF>>;  // COLOR_WINDOW, ...

// Those that Windows brings for people who see less well, as far as the program shows them.
extern const ColorScheme kContrastBlack;
extern const ColorScheme kContrastWhite;

// The scripture and a set "Mine" with a note of two lines on the first verse.
ScratchFolder FolderWithTwoLines();

// The program with a list of the verses of a search, and with the mouse free.
Program StartWithList(const ScratchFolder& folder);

// While it exists, the system has these colours; the program is told of them as by the system.
struct SystemColors {
    SystemColors(const Program& program, const ColorScheme& scheme);
    // For programs that are started later.
    explicit SystemColors(const ColorScheme& scheme);
    ~SystemColors();
    SystemColors(const SystemColors&) = delete;
    SystemColors& operator=(const SystemColors&) = delete;

    ColorScheme before;
};

// The user chooses another height, in pixels, for the font of message boxes. Returns the one before, which the test has
// to choose again.
int ChooseMessageFont(const Program& program, int height);

// The system turns high contrast on or off, and says so.
void SetHighContrast(const Program& program, bool isOn);

// What the program has set for its title bar since this was called first: 1 dark, 0 light, -1 nothing.
int DarkTitle(const Program& program);

// While it exists, the user prefers programs to be dark, or light. Programs are not told.
struct PreferenceForApps {
    explicit PreferenceForApps(bool isDark);
    ~PreferenceForApps();
    PreferenceForApps(const PreferenceForApps&) = delete;
    PreferenceForApps& operator=(const PreferenceForApps&) = delete;
};

// Tells the program that a setting has changed: WM_SETTINGCHANGE with the number and the name.
void TellSettingChange(const Program& program, WPARAM number, const char* name);

// 0xRRGGBB, as in pictures, of a colour as the system has it.
std::uint32_t InPicture(COLORREF color);
