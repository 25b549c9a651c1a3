#include "app/settings.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "typeset/pane_colors.h"

// The kinds of values: where a value is stored, and its default `missing`. Each has one Read and one Written below.

namespace {

struct IntegerField {
    int* value;
    int missing;
};

struct ByteField {  // read as a number and cut to eight bits, written signed
    std::int8_t* value;
    int missing;
};

struct HeightField {  // of a font: written without its sign
    int* value;
    int missing;
};

struct ColorField {  // unsigned, read as text
    std::uint32_t* value;
    std::uint32_t missing;
};

struct TextField {
    std::string* value;
    const char* missing;
    int limit;
};

struct SettingRow {
    const char* section;
    std::string key;
    std::variant<IntegerField, ByteField, HeightField, ColorField, TextField> field;
};

using SettingRows = std::vector<SettingRow>;

}  // namespace

static constexpr int kFontNameLimit = 31;
static constexpr int kColorTextLimit = 49;

static SettingRows MiscRows(Settings& settings) {
    return {
        {"MISC", "ReadVerse", IntegerField{&settings.ReadVerse, 0}},
        {"MISC", "Note", IntegerField{&settings.Note, 0}},
        {"MISC", "NoteVerse", IntegerField{&settings.NoteVerse, 0}},
        {"MISC", "BindNotes", IntegerField{&settings.BindNotes, 1}},
    };
}

static SettingRows PlacementRows(FramePlacement& placement) {
    return {
        {"MISC", "XPos", IntegerField{&placement.XPos, kUseDefault}},
        {"MISC", "YPos", IntegerField{&placement.YPos, kUseDefault}},
        {"MISC", "Width", IntegerField{&placement.Width, kUseDefault}},
        {"MISC", "Height", IntegerField{&placement.Height, kUseDefault}},
        {"MISC", "Maxed", IntegerField{&placement.Maxed, 0}},
    };
}

static SettingRows SearchRows(Settings& settings) {
    SearchOptions& options = settings.searchOptions;
    SearchRange& range = settings.searchRange;
    SettingRows rows = {
        {"SEARCH", "BooleanType", IntegerField{&options.BooleanType, kAllWords}},
        {"SEARCH", "CaseSensitive", IntegerField{&options.CaseSensitive, 0}},
        {"SEARCH", "SubString", IntegerField{&options.SubString, 0}},
        {"SEARCH", "Proximity", IntegerField{&options.Proximity, 0}},
        {"SEARCH", "StartVerse", IntegerField{&range.StartVerse, 0}},
        {"SEARCH", "EndVerse", IntegerField{&range.EndVerse, kLastVerse}},
    };
    int number = 0;
    for (std::string& entry : settings.searchHistory)
        rows.push_back(
            {"SEARCH", "PreviousSearch" + std::to_string(number++), TextField{&entry, " ", kSearchTextLimit}});
    return rows;
}

static SettingRows FormatRows(Settings& settings) {
    FormatOptions& format = settings.format;
    return {
        {"FORMAT", "FirstVerseStyle", ByteField{&format.FirstVerseStyle, 0}},
        {"FORMAT", "SubsequentVerseStyle", ByteField{&format.SubsequentVerseStyle, 1}},
        {"FORMAT", "Location", ByteField{&format.Location, 0}},
        {"FORMAT", "LineBreaks", IntegerField{&format.LineBreaks, 1}},
        {"FORMAT", "ParagraphMarks", IntegerField{&format.ParagraphMarks, 1}},
        {"FORMAT", "Brackets", IntegerField{&format.Brackets, 0}},
    };
}

static SettingRows ViewRows(Settings& settings) {
    return {
        {"VIEW", "VerseListWindow", IntegerField{&settings.shown.VerseListWindow, 1}},
        {"VIEW", "ReadWindow", IntegerField{&settings.shown.ReadWindow, 1}},
        {"VIEW", "NotesWindow", IntegerField{&settings.shown.NotesWindow, 1}},
        {"VIEW", "ToolBar", IntegerField{&settings.shown.ToolBar, 1}},
    };
}

static SettingRows BookmarkRows(Settings& settings) {
    SettingRows rows;
    for (int& verse : settings.bookmarks.verses)
        rows.push_back({"BOOKMARKS", std::to_string(rows.size() + 1), IntegerField{&verse, 0}});
    return rows;
}

static void AddFontRows(SettingRows& rows, const std::string& pane, FontChoice& font, int height, const char* name) {
    rows.push_back({"OPTIONS", pane + "FontHeight", HeightField{&font.height, height}});
    rows.push_back({"OPTIONS", pane + "FontWeight", IntegerField{&font.weight, 400}});
    rows.push_back({"OPTIONS", pane + "FontName", TextField{&font.name, name, kFontNameLimit}});
}

static SettingRows OptionRows(Settings& settings, std::uint32_t systemHighlight) {
    ReadingOptions& reading = settings.reading;
    SettingRows rows = {
        {"OPTIONS", "Paragraph Format", ByteField{&reading.ParagraphFormat, 0}},
        {"OPTIONS", "Italics", ByteField{&reading.Italics, kItalicType}},
        {"OPTIONS", "KeyHighlightColor", ColorField{&reading.KeyHighlightColor, systemHighlight}},
    };
    AddFontRows(rows, "ReadWindow", settings.fonts.passage, 16, "Times New Roman");
    AddFontRows(rows, "VerseList", settings.fonts.verseList, 16, "Times New Roman");
    AddFontRows(rows, "Note", settings.fonts.notes, 12, "Courier New");
    return rows;
}

static int ReadInteger(const ProfileFile& profile, const SettingRow& row, int missing) {
    return profile.readInteger(profile.device, row.section, row.key.c_str(), missing);
}

static void Read(const ProfileFile& profile, const SettingRow& row, const IntegerField& field) {
    *field.value = ReadInteger(profile, row, field.missing);
}

static void Read(const ProfileFile& profile, const SettingRow& row, const ByteField& field) {
    *field.value = static_cast<std::int8_t>(ReadInteger(profile, row, field.missing));
}

static void Read(const ProfileFile& profile, const SettingRow& row, const HeightField& field) {
    *field.value = ReadInteger(profile, row, field.missing);
}

static void Read(const ProfileFile& profile, const SettingRow& row, const TextField& field) {
    *field.value = profile.readText(profile.device, row.section, row.key.c_str(), field.missing, field.limit);
}

static void Read(const ProfileFile& profile, const SettingRow& row, const ColorField& field) {
    std::string text;
    const std::string missing = std::to_string(field.missing);
    Read(profile, row, TextField{&text, missing.c_str(), kColorTextLimit});
    const unsigned long long color = std::strtoull(text.c_str(), nullptr, 10);
    *field.value =
        static_cast<std::uint32_t>(std::min<unsigned long long>(color, std::numeric_limits<std::uint32_t>::max()));
}

static std::string Written(const IntegerField& field) {
    return std::to_string(*field.value);
}

static std::string Written(const ByteField& field) {
    return std::to_string(static_cast<int>(*field.value));
}

static std::string Written(const HeightField& field) {
    return std::to_string(std::llabs(*field.value));
}

static std::string Written(const ColorField& field) {
    return std::to_string(*field.value);
}

static std::string Written(const TextField& field) {
    return *field.value;
}

static void LoadRows(const ProfileFile& profile, const SettingRows& rows) {
    for (const SettingRow& row : rows) std::visit([&](const auto& field) { Read(profile, row, field); }, row.field);
}

static void SaveRows(const ProfileFile& profile, const SettingRows& rows) {
    for (const SettingRow& row : rows) {
        const std::string text = std::visit([](const auto& field) { return Written(field); }, row.field);
        profile.writeText(profile.device, row.section, row.key.c_str(), text.c_str());
    }
}

static int VerseOrFirst(int verse) {
    return verse == ClampVerse(verse) ? verse : 0;
}

static bool IsRange(const SearchRange& range) {
    return range.StartVerse >= 0 && range.StartVerse <= range.EndVerse && range.EndVerse <= kLastVerse;
}

// A file written by hand or by another version may hold values that are out of range.
static void BringIntoRange(Settings& settings) {
    settings.ReadVerse = VerseOrFirst(settings.ReadVerse);
    for (int& verse : settings.bookmarks.verses) verse = VerseOrFirst(verse);
    if (!IsRange(settings.searchRange)) settings.searchRange = {};
}

FramePlacement LoadPlacement(const ProfileFile& profile) {
    FramePlacement placement;
    LoadRows(profile, PlacementRows(placement));
    return placement;
}

Settings LoadSettings(const ProfileFile& profile, std::uint32_t systemHighlight) {
    Settings settings;
    LoadRows(profile, MiscRows(settings));
    LoadRows(profile, SearchRows(settings));
    LoadRows(profile, FormatRows(settings));
    LoadRows(profile, ViewRows(settings));
    LoadRows(profile, BookmarkRows(settings));
    LoadRows(profile, OptionRows(settings, systemHighlight));
    BringIntoRange(settings);
    return settings;
}

void SaveSettings(const ProfileFile& profile, Settings settings, const FramePlacement* placement) {
    SaveRows(profile, SearchRows(settings));
    SaveRows(profile, FormatRows(settings));
    SaveRows(profile, ViewRows(settings));
    SaveRows(profile, BookmarkRows(settings));
    SaveRows(profile, OptionRows(settings, 0));
    SaveRows(profile, MiscRows(settings));
    if (placement == nullptr) return;
    FramePlacement written = *placement;
    SaveRows(profile, PlacementRows(written));
}

// ---- The second file ------------------------------------------------------------------------------------------------

static SettingRows MoreRows(MoreSettings& settings) {
    static constexpr int kSetNameLimit = 259;  // no path is longer
    static constexpr int kNamesLimit = 8191;   // those of all sets
    static constexpr int kLastVersesLimit = 99;
    return {
        {"NOTES", "CurrentSet", TextField{&settings.CurrentSet, "", kSetNameLimit}},
        {"NOTES", "OwnSets", TextField{&settings.OwnSets, "", kNamesLimit}},
        {"NOTES", "ExportFormat", IntegerField{&settings.exportChoices.Format, 0}},
        {"NOTES", "ExportVerses", IntegerField{&settings.exportChoices.VerseTexts, 0}},
        {"OPTIONS", "KeyColorFrom", TextField{&settings.KeyColorFrom, "", kColorTextLimit}},
        {"OPTIONS", "DarkPanes", IntegerField{&settings.DarkPanes, kDarkOff}},
        {"VIEW", "ListShare", IntegerField{&settings.shares.ListShare, PaneShares{}.ListShare}},
        {"VIEW", "UpperShare", IntegerField{&settings.shares.UpperShare, PaneShares{}.UpperShare}},
        {"VIEW", "HitsByBook", IntegerField{&settings.HitsByBook, 0}},
        {"SEARCH", "NearUnit", IntegerField{&settings.nearOptions.Unit, kNearInWords}},
        {"SEARCH", "NearDistance", IntegerField{&settings.nearOptions.Distance, NearOptions{}.Distance}},
        {"SEARCH", "NearInOrder", IntegerField{&settings.nearOptions.InOrder, 0}},
        {"NOTES", "ListSubString", IntegerField{&settings.listNotes.SubString, 0}},
        {"NOTES", "ListAllSets", IntegerField{&settings.listNotes.AllSets, 1}},
        {"NOTES", "ListInRange", IntegerField{&settings.listNotes.InRange, 0}},
        {"MISC", "LastVerses", TextField{&settings.LastVerses, "", kLastVersesLimit}},
    };
}

static std::string Written(const SettingRow& row) {
    return std::visit([](const auto& field) { return Written(field); }, row.field);
}

// A text in quotes, because the profile functions remove blanks and one pair of quotes around it.
static std::string Quoted(const SettingRow& row, const std::string& written) {
    return std::holds_alternative<TextField>(row.field) ? '"' + written + '"' : written;
}

MoreSettings LoadMoreSettings(const ProfileFile& profile) {
    MoreSettings settings;
    LoadRows(profile, MoreRows(settings));
    return settings;
}

void SaveMoreSettings(const ProfileFile& profile, MoreSettings settings) {
    MoreSettings stored = LoadMoreSettings(profile), defaults;
    const SettingRows rows = MoreRows(settings), storedRows = MoreRows(stored), defaultRows = MoreRows(defaults);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string text = Written(rows[i]);
        if (text == Written(storedRows[i])) continue;
        if (text == Written(defaultRows[i]))
            profile.removeKey(profile.device, rows[i].section, rows[i].key.c_str());
        else
            profile.writeText(profile.device, rows[i].section, rows[i].key.c_str(), Quoted(rows[i], text).c_str());
    }
}
