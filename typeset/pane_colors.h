// The colours of the reading panes. All of them are the system's own or derived from those, so that the panes follow
// the scheme that the user has chosen for the whole system.
//
// Colours are 0x00bbggrr, like those of Windows; the highest byte is ignored.
#pragma once

#include <cstdint>
#include <string>

// The stored values of DarkPanes; others mean off.
enum DarkPanesChoice { kDarkOff = 0, kDarkOn = 1, kDarkAsSystem = 2 };

// What the system tells about its colours.
struct SystemLook {
    std::uint32_t window = 0;
    std::uint32_t windowText = 0;
    std::uint32_t highlight = 0;
    bool isHighContrast = false;
    bool prefersDark = false;  // the user wants programs to be dark
};

// What the user has chosen in the program.
struct ColorWishes {
    int DarkPanes = kDarkOff;
    bool isKeyColorChosen = false;  // otherwise key words have the system's highlight colour
    std::uint32_t KeyHighlightColor = 0;
};

struct PaneColors {
    std::uint32_t paper = 0;
    std::uint32_t text = 0;     // selected text is drawn with the two swapped
    std::uint32_t keyWord = 0;  // of the letters
    bool underlinesKeyWords = false;
    bool isDark = false;  // by the user's choice: title bar and scroll bars are to be dark, too
    bool operator==(const PaneColors&) const = default;
};

// Contrast ratio of two colours, from 1 to 21, as in the Web Content Accessibility Guidelines (WCAG 2, "contrast
// ratio"). From 4.5 on, text of an ordinary size can be read by people who see less well.
double ContrastOf(std::uint32_t color, std::uint32_t other);
inline constexpr double kReadableContrast = 4.5;

// Is it darker than a medium grey, so that white is easier to read on it than black?
bool IsDarkColor(std::uint32_t color);

// High contrast wins: then all colours are those of the system, and key words are underlined in the colour of the text.
// In dark panes, which are derived from the system's colours, the colour of key words is made lighter if it could not
// be read otherwise. In all other cases it is as chosen.
PaneColors PaneColorsFor(const SystemLook& system, const ColorWishes& wishes);

// The colour of bars on the paper: that of key words or, if it is hard to see there, that of the text.
std::uint32_t BarColorOf(const PaneColors& colors);
inline constexpr double kVisibleContrast = 3;  // of what is no text, by the same guidelines

// Has the user chosen the key-word colour `stored` in Versewell.INI? `storedFrom` is the setting KeyColorFrom of
// Versewell.more.ini (KeyColorFromOf); it is empty if an older version of the program has written the colour, which
// stores that of the system too. Then it counts as chosen unless it is the system's colour now.
bool IsKeyColorChosen(std::uint32_t stored, const std::string& storedFrom, std::uint32_t systemHighlight);

// The setting KeyColorFrom: "user", or "system" and the colour that is stored although the user has chosen none. With
// any other colour, an older version has changed it since.
std::string KeyColorFromOf(bool isChosen, std::uint32_t stored);
