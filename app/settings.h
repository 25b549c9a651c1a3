// The settings: all values that are kept between runs, as rows of section, key, field and default.
//
// They are read once at start-up and written once when the frame is destroyed or the user's session ends, through the
// private-profile functions of Windows; in between, the session file has them (app/session.h). Numbers are decimal
// text; an 8-bit value is written signed, so 200 is written as -56. In a new file the sections are in the order of
// writing.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "app/frame_layout.h"
#include "app/navigation.h"
#include "exchange/export_choices.h"
#include "notes/listed_notes.h"
#include "output/format_options.h"
#include "search/query.h"
#include "typeset/reading_options.h"

inline constexpr char kSettingsFile[] = "Versewell.INI";
inline constexpr char kMoreSettingsFile[] = "Versewell.more.ini";

// The frame's stored normal rectangle; kUseDefault (CW_USEDEFAULT) lets the system choose.
inline constexpr int kUseDefault = -2147483647 - 1;
struct FramePlacement {
    int XPos = kUseDefault;
    int YPos = kUseDefault;
    int Width = kUseDefault;
    int Height = kUseDefault;
    int Maxed = 0;  // read: non-zero opens maximized; written: WINDOWPLACEMENT flags & 3
};

// Fonts of the three panes.
struct Fonts {
    FontChoice passage;
    FontChoice verseList;
    FontChoice notes{12, 400, "Courier New"};
};

// All settings except the placement. The first four fields have the names of their keys.
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

// Settings that older versions of the program do not know. They are in a second file beside the first, whose bytes stay
// those that older versions write. A key is only written when its value is not the default, and removed when it becomes
// the default; so the file is not created before it is needed.
struct MoreSettings {
    // The name of the current note set. It goes before the number in `Note`, which means another set when sets have
    // been added or removed between two runs. Empty, the default, if there is only one set: then the sets that are
    // newer than the settings file are the ones that were added.
    std::string CurrentSet;
    // The sets that the user does not take for a copy of another one, although their names are like those that programs
    // give to copies (notes/conflict_copies.h); each is followed by a slash, which no name contains.
    std::string OwnSets{};
    // Where the key-word colour in the first file comes from (KeyColorFromOf in typeset/pane_colors.h). That file has a
    // colour even if the user has chosen none and key words follow the system's.
    std::string KeyColorFrom{};
    int DarkPanes = 0;  // a DarkPanesChoice; other values are kept and mean off
    PaneShares shares{};
    int HitsByBook = 0;  // is the strip shown?
    NearOptions nearOptions{};
    ListNotesOptions listNotes{};
    ExportChoices exportChoices{};
    // What the taskbar offers of an installed copy (app/last_verses.h).
    std::string LastVerses{};
};

// The private-profile functions for the settings file. These functions return text without surrounding blanks and
// without one pair of quotes.
struct ProfileFile {
    void* device = nullptr;  // passed to all procedures
    int (*readInteger)(void* device, const char* section, const char* key, int missing) = nullptr;
    std::string (*readText)(void* device, const char* section, const char* key, const char* missing,
                            int limit) = nullptr;  // at most `limit` characters
    void (*writeText)(void* device, const char* section, const char* key, const char* text) = nullptr;
    void (*removeKey)(void* device, const char* section, const char* key) = nullptr;
};

// Reads the frame's placement, which is needed before the frame is created.
FramePlacement LoadPlacement(const ProfileFile& profile);

// Reads everything else: MISC, SEARCH, FORMAT, VIEW, BOOKMARKS, OPTIONS. `systemHighlight` (0x00bbggrr) is used if no
// colour is stored. A verse out of range becomes 0; a search range that is out of range or reversed becomes the whole
// Bible. The note set and its verse are not checked, because the sets are not known here. All other values are returned
// as stored, 8-bit values cut to eight bits, and the code that uses them handles any value.
Settings LoadSettings(const ProfileFile& profile, std::uint32_t systemHighlight);

// Writes SEARCH, FORMAT, VIEW, BOOKMARKS, OPTIONS, MISC, and then the placement unless it is null. Font heights are
// written without their sign.
void SaveSettings(const ProfileFile& profile, Settings settings, const FramePlacement* placement);

// The same for the second file; saving writes only keys whose value has changed.
MoreSettings LoadMoreSettings(const ProfileFile& profile);
void SaveMoreSettings(const ProfileFile& profile, MoreSettings settings);
