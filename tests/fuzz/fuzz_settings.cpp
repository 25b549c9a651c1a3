// A settings file of any text: read, used and written.
#include <sstream>
#include <string>

#include "search/search_engine.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/fake_profile.h"
#include "tests/support/native_scripture.h"

static FakeProfile ProfileOf(std::string_view input) {
    FakeProfile profile;
    std::istringstream lines{std::string(input)};
    std::string section;
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) section = line.substr(1, line.find(']') - 1);
        if (equals != std::string::npos)
            profile.values[section + '/' + line.substr(0, equals)] = line.substr(equals + 1);
    }
    return profile;
}

static bool IsVerse(int verse) {
    return verse >= 0 && verse < kVerseCount;
}

static void ExpectVerses(const Settings& settings) {
    Expect(IsVerse(settings.ReadVerse), "the passage begins with a verse");
    NoteSets notes;
    notes.sets.resize(1);
    SelectStoredNote(notes, settings.Note, settings.NoteVerse);
    Expect(IsVerse(notes.currentVerse) && notes.currentSet == 0, "the note is one of a set");
    const SearchRange& range = settings.searchRange;
    Expect(IsVerse(range.StartVerse) && IsVerse(range.EndVerse) && range.StartVerse <= range.EndVerse,
           "searches go from verse to verse");
    for (const int verse : settings.bookmarks.verses) Expect(IsVerse(verse), "bookmarks are verses");
    for (const FontChoice* font : {&settings.fonts.passage, &settings.fonts.verseList, &settings.fonts.notes})
        Expect(font->name.size() <= 31, "names of fonts are short");
}

// Searches for the last query, as the user may.
static void Use(const Settings& settings) {
    for (int number = 0; number < kBookmarkCount; ++number)
        BookmarkLabel(TheRealScripture().records, settings.bookmarks, number);
    HitCounters hits;
    const Query query =
        QueryOf(settings.searchHistory[0].substr(0, kSearchTextLimit), settings.searchOptions, QueryKind::kWords);
    const SearchResult found = Search(TheRealScripture(), TheRealWordIndex(), query, settings.searchRange, hits);
    for (const int verse : found.verses) Expect(IsVerse(verse), "a search finds verses");
    const FrameLayout layout = LayOutFrame({800, 600, 28, 20}, settings.shown, false);
    for (const PanePlace* pane : {&layout.list, &layout.passage, &layout.notes})
        Expect(pane->place.width >= 0 && pane->place.height >= 0, "panes have a size");
}

static Settings SettingsOf(FakeProfile& profile) {
    const Settings settings = LoadSettings(DeviceOver(profile), 0x800000);
    ExpectVerses(settings);
    return settings;
}

// Texts lose a pair of quotes each time that they are read.
static bool IsText(const std::string& path) {
    return path.starts_with("SEARCH/PreviousSearch") || path.ends_with("FontName");
}

static void ExpectSameNumbers(const FakeProfile& first, const FakeProfile& second) {
    for (const auto& [path, value] : first.values)
        Expect(IsText(path) || second.values.at(path) == value, "a number that was read and written stays");
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FakeProfile profile = ProfileOf(TextOfInput(data, size));
    const FramePlacement placement = LoadPlacement(DeviceOver(profile));
    const Settings settings = SettingsOf(profile);
    Use(settings);
    SaveSettings(DeviceOver(profile), settings, &placement);
    FakeProfile second = profile;
    const FramePlacement placementAgain = LoadPlacement(DeviceOver(second));
    SaveSettings(DeviceOver(second), SettingsOf(second), &placementAgain);
    ExpectSameNumbers(profile, second);
    return 0;
}
