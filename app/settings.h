// The settings: every value that outlives a run, as rows of section, key, field and default.
//
// They are read once, while the frame is created, and written once, when it is destroyed, through the private-profile
// functions of Windows. Values are decimal text; an 8-bit value is written signed, so 200 comes back as -56. The file's
// sections stand in writing order.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "app/frame_layout.h"
#include "app/navigation.h"
#include "output/format_options.h"
#include "search/query.h"
#include "typeset/reading_options.h"

inline constexpr char kSettingsFile[] = "Versewell.INI";

// The frame's normal rectangle as stored; kUseDefault lets the system choose.
inline constexpr int kUseDefault = -2147483647 - 1;
struct FramePlacement {
    int XPos = kUseDefault;
    int YPos = kUseDefault;
    int Width = kUseDefault;
    int Height = kUseDefault;
    int Maxed = 0;  // read: non-zero opens maximized; written: the placement's flags & 3
};

// Fonts of the three panes and what else is set in the frame alone.
struct Fonts {
    FontChoice passage;
    FontChoice verseList;
    FontChoice notes{12, 400, "Courier New"};
};

// Everything but the placement. The names of the first four are those of their keys.
struct Settings {
    int ReadVerse = 0;  // the Passage's top verse
    int Note = 0;       // the current note set
    int NoteVerse = 0;  // the current note's verse
    int BindNotes = 1;
    SearchOptions searchOptions;
    SearchRange searchRange;
    std::array<std::string, kHistorySize> searchHistory;
    FormatOptions format;
    ShownPanes shown;
    Bookmarks bookmarks;
    ReadingOptions reading;
    Fonts fonts;
};

// The private-profile functions on the settings file. Text comes back without surrounding blanks and one pair of
// quotes, as those functions give it.
struct ProfileFile {
    void* device = nullptr;  // handed back to all
    int (*readInteger)(void* device, const char* section, const char* key, int missing) = nullptr;
    std::string (*readText)(void* device, const char* section, const char* key, const char* missing,
                            int limit) = nullptr;  // at most `limit` characters
    void (*writeText)(void* device, const char* section, const char* key, const char* text) = nullptr;
};

// Reads the frame's placement, which is needed before all else.
FramePlacement LoadPlacement(const ProfileFile& profile);

// Reads everything else: MISC, SEARCH, FORMAT, VIEW, BOOKMARKS, OPTIONS. `systemHighlight` (0x00bbggrr) stands in for a
// colour never chosen. A verse out of range becomes 0, a search range that is out of range or crossed the whole Bible;
// the note set and its verse come as they are stored, for the sets are not known here. A font is at most 10,000 pixels
// high; a negative height is kept for the run. Everything else comes as it is stored, eight-bit values cut to eight
// bits: the code that uses them handles any value.
Settings LoadSettings(const ProfileFile& profile, std::uint32_t systemHighlight);

// Writes SEARCH, FORMAT, VIEW, BOOKMARKS, OPTIONS, MISC; the placement last, and only where there is one. Font heights
// are written without their sign.
void SaveSettings(const ProfileFile& profile, Settings settings, const FramePlacement* placement);
