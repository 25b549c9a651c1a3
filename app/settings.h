// The settings: every value that outlives a run, as rows of section, key, field and default.
//
// They are read once, while the frame is created, and written once, when it is destroyed, through the private-profile
// functions of Windows. Values are decimal text; an 8-bit value is written signed, so 200 comes back as -56. The file's
// sections stand in writing order.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "app/bookmarks.h"
#include "app/frame_layout.h"
#include "notes/note_sets.h"
#include "output/format_options.h"
#include "output/reading_options.h"
#include "passage/passage_view.h"
#include "search/search_state.h"

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

// What is set, in the structs that own it.
struct Settings {
    PassageView& passage;
    NoteSets& notes;
    int& BindNotes;
    SearchState& search;
    FormatOptions& format;
    ShownPanes& shown;
    Bookmarks& bookmarks;
    ReadingOptions& reading;
    Fonts& fonts;
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
// colour never chosen. The note sets are found before. What would name a verse or a set that there is not is brought
// back: the Passage's verse, the note's, a bookmark and the set to 0, the search range, also where it is crossed, to
// the whole Bible. A font is at most 10,000 pixels high; a negative height is kept for the run. Everything else comes
// as it stands, eight-bit values cut to eight bits: their users give every value a meaning.
void LoadSettings(const ProfileFile& profile, const Settings& settings, std::uint32_t systemHighlight);

// Writes SEARCH, FORMAT, VIEW, BOOKMARKS, OPTIONS, MISC; the placement last, and only where there is one. Font heights
// are written without their sign.
void SaveSettings(const ProfileFile& profile, const Settings& settings, const FramePlacement* placement);
