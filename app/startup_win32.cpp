#include "app/startup_win32.h"

#include <optional>

#include "app/frame_look_win32.h"
#include "app/frame_win32.h"
#include "app/last_verses.h"
#include "app/note_set_commands_win32.h"
#include "app/pane_focus_win32.h"
#include "app/passage_commands_win32.h"
#include "app/profile_file_win32.h"
#include "app/set_checks_win32.h"
#include "app/splash_win32.h"
#include "app/toolbar_win32.h"
#include "notes/list_notes_dialog.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "notes/whole_files.h"
#include "output/format_dialog.h"
#include "pane/pane_look_win32.h"
#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture.h"
#include "scripture/scripture_win32.h"
#include "search/search_dialog.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/files.h"
#include "win32/help_viewer.h"
#include "win32/panes.h"
#include "win32/rich_edit_layout.h"
#include "win32/system_library.h"

// ---- The settings file ----------------------------------------------------------------------------------------------

// The full path, because the system looks for a bare name in the Windows folder.
static ProfileFile SettingsProfile() {
    static std::wstring path = WorkingFilePath(kSettingsFile);
    return ProfileAt(path);
}

static ProfileFile MoreSettingsProfile() {
    static std::wstring path = WorkingFilePath(kMoreSettingsFile);
    return ProfileAt(path);
}

static std::optional<SettingTexts> firstSettings;
static std::uint64_t timeOfFirstSettings;

void StartWith(const SettingTexts& settings, std::uint64_t time) {
    firstSettings = settings;
    timeOfFirstSettings = time;
}

ProfileFile FirstSettings() {
    static ReadProfile file{WorkingFilePath(kSettingsFile)};
    return firstSettings ? ProfileOver(*firstSettings) : ProfileOver(file);
}

static ProfileFile FirstMoreSettings() {
    static ReadProfile file{WorkingFilePath(kMoreSettingsFile)};
    return firstSettings ? ProfileOver(*firstSettings) : ProfileOver(file);
}

// ---- Start-up -------------------------------------------------------------------------------------------------------

static void CreatePanes(HWND frame) {
    CreateVerseList(theFrame.listTabs);
    CreateHitsStrip(theFrame.listTabs);
    CreatePassage(theFrame.passageTabs);
    CreateNotesPane(theNoteTabs.window);
    CreateNoteEditor(frame);
}

namespace {

enum class StoreLoad { kLoaded, kStopped, kFailed };

}  // namespace

static StoreLoad LoadStore() {
    const DataFiles files = ScriptureDataFiles();
    switch (LoadWordIndex(files, theWordIndex)) {
        case IndexLoad::kFailed: return StoreLoad::kFailed;
        case IndexLoad::kNoVerseLists: return StoreLoad::kStopped;
        case IndexLoad::kLoaded: break;
    }
    return LoadScripture(files, theScripture) ? StoreLoad::kLoaded : StoreLoad::kFailed;
}

static void TakeOver(const Settings& settings) {
    thePassage.view.TopVerse = settings.ReadVerse;
    const NoteFiles& files = TheNoteFiles();
    const std::uint64_t written = firstSettings ? timeOfFirstSettings : files.stamp(files.device, kSettingsFile).time;
    SelectStoredNote(theNoteSets, SetNumberedAt(theNoteSets, settings.Note, written), settings.NoteVerse);
    theNotes.BindNotes = settings.BindNotes;
    theSearch.options = settings.searchOptions;
    theSearch.range = settings.searchRange;
    theSearch.history = settings.searchHistory;
    theFormat = settings.format;
    theReading = settings.reading;
    theFrame.shown = settings.shown;
    theFrame.bookmarks = settings.bookmarks;
    theFrame.fonts = settings.fonts;
}

// After the other settings, because it completes what they say.
static void TakeOver(const MoreSettings& settings) {
    thePaneLook.DarkPanes = settings.DarkPanes;
    theFrame.shares = settings.shares;
    theHitsStrip.HitsByBook = settings.HitsByBook;
    thePaneLook.isKeyColorChosen =
        IsKeyColorChosen(theReading.KeyHighlightColor, settings.KeyColorFrom, GetSysColor(COLOR_HIGHLIGHT));
    theFrame.ownSets = settings.OwnSets;
    theSearch.nearOptions = settings.nearOptions;
    theListNotes.options = settings.listNotes;
    theFrame.exportChoices = settings.exportChoices;
    theFrame.lastVerses = LastVersesOf(settings.LastVerses);
    if (settings.CurrentSet.empty()) return;
    const int set = SetNamed(theNoteSets, settings.CurrentSet);
    if (set != kNoSet) SelectSet(theNoteSets, set);
}

static MoreSettings CurrentMoreSettings() {
    const NoteSet* set = CurrentSet(theNoteSets);
    return {
        .CurrentSet = theNoteSets.sets.size() > 1 && set != nullptr ? NoteSetName(*set) : "",
        .OwnSets = theFrame.ownSets,
        .KeyColorFrom = KeyColorFromOf(thePaneLook.isKeyColorChosen, theReading.KeyHighlightColor),
        .DarkPanes = thePaneLook.DarkPanes,
        .shares = theFrame.shares,
        .HitsByBook = theHitsStrip.HitsByBook,
        .nearOptions = theSearch.nearOptions,
        .listNotes = theListNotes.options,
        .exportChoices = theFrame.exportChoices,
        .LastVerses = TextOfLastVerses(theFrame.lastVerses),
    };
}

static Settings CurrentSettings() {
    return {
        .ReadVerse = thePassage.view.TopVerse,
        .Note = theNoteSets.currentSet,
        .NoteVerse = theNoteSets.currentVerse,
        .BindNotes = theNotes.BindNotes,
        .searchOptions = theSearch.options,
        .searchRange = theSearch.range,
        .searchHistory = theSearch.history,
        .format = theFormat,
        .shown = theFrame.shown,
        .bookmarks = theFrame.bookmarks,
        .reading = theReading,
        .fonts = theFrame.fonts,
    };
}

static void ReadSettings() {
    TakeOver(LoadSettings(FirstSettings(), GetSysColor(COLOR_HIGHLIGHT)));
    TakeOver(LoadMoreSettings(FirstMoreSettings()));
    TakeColors();
    LabelBookmarks();
    SetPassageFont(theFrame.fonts.passage);
    SetVerseListFont(theFrame.fonts.verseList);
}

static void SetFirstMenuState() {
    UpdateDevotionalMenu();
    theFrame.startUpComplete = true;
    RefreshCommands();
}

static void ShowFirstNote() {
    SetNotesFont(theFrame.fonts.notes);
    ShowFirstTabs();
    LayOut();
    TellSetsNotShown();
    ReadFirstNote();
}

bool StartUp(HWND frame) {
    theFrame.window = frame;
    theFrame.menu = GetMenu(frame);
    InitCommonControls();
    theFrame.richEdit = SystemLibrary(L"RICHED32.DLL");
    OpeningSets opening;
    if (theFrame.richEdit)
        opening = BeginToLoadNoteSets();  // not for a start that fails: it may create and repair files
    theFrame.splash = ShowSplash(frame);
    if (!theFrame.richEdit) return false;
    LayOutLongLinesInPieces();
    NoteFirstPrinter(theFrame.printerSetup);
    theFrame.accelerators = LoadAcceleratorsA(GetModuleHandleA(nullptr), "Accels");
    FollowSystemLook(theReading.KeyHighlightColor);  // until the settings are read
    theFrame.toolbar = CreateToolbar(frame);
    if (!theFrame.toolbar) return false;
    CreateBars(frame);
    WatchTabs();
    OpenSets();
    CreatePanes(frame);
    const StoreLoad store = LoadStore();
    if (store == StoreLoad::kFailed) return false;
    if (store == StoreLoad::kStopped) return ShowNoteTabs({}), true;
    ReadSettings();
    SetFirstMenuState();
    ShowFirstNote();
    PostMessageA(frame, WM_COMMAND, IDM_OFFER_MERGE, 0);  // once the frame is shown
    return true;
}

// ---- Shut-down ------------------------------------------------------------------------------------------------------

// A maximized frame has the flag on Windows, but not under Wine; there a frame that was maximized before keeps it.
static UINT FlagsOf(const WINDOWPLACEMENT& placement) {
    const UINT flags = placement.flags & (WPF_SETMINPOSITION | WPF_RESTORETOMAXIMIZED);
    switch (placement.showCmd) {
        case SW_SHOWMAXIMIZED: return flags | WPF_RESTORETOMAXIMIZED;
        case SW_SHOWMINIMIZED: return flags;
        default: return flags & ~UINT{WPF_RESTORETOMAXIMIZED};
    }
}

static FramePlacement PlacementOf(const WINDOWPLACEMENT& placement) {
    const RECT& normal = placement.rcNormalPosition;
    return {static_cast<int>(normal.left), static_cast<int>(normal.top), static_cast<int>(normal.right - normal.left),
            static_cast<int>(normal.bottom - normal.top), static_cast<int>(FlagsOf(placement))};
}

static void SaveCurrentSettings(const ProfileFile& profile) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    const bool placed = GetWindowPlacement(theFrame.window, &placement);
    const FramePlacement frame = PlacementOf(placement);
    SaveSettings(profile, CurrentSettings(), placed ? &frame : nullptr);
}

SettingTexts CurrentSettingTexts() {
    SettingTexts texts;
    SaveCurrentSettings(ProfileOver(texts));
    SaveMoreSettings(ProfileOver(texts), CurrentMoreSettings());
    return texts;
}

// The profile functions write each setting into the file by itself. So they get a copy, which then replaces the file.
static bool ReplaceSettings() {
    const NoteFiles& files = TheNoteFiles();
    const std::string copy = std::string(kSettingsFile) + kTempEnding;
    std::wstring path = WorkingFilePath(copy);
    files.remove(files.device, copy);
    const bool isCopied = !files.stamp(files.device, kSettingsFile).exists || CopyWholeFile(files, kSettingsFile, copy);
    if (isCopied) SaveCurrentSettings(ProfileAt(path));
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, path.c_str());  // what the system may hold back
    if (isCopied && files.append(files.device, copy, {}) && files.replace(files.device, copy, kSettingsFile))
        return true;
    files.remove(files.device, copy);
    return false;
}

bool WriteSettings() {
    SaveMoreSettings(MoreSettingsProfile(), CurrentMoreSettings());
    if (ReplaceSettings()) return true;
    SaveCurrentSettings(SettingsProfile());
    return false;
}

void ShutDown() {
    ReleaseDataFiles();
    RestoreNoteView();
    UnwatchTabs();
    CloseHelp(theFrame.window, kHelpFile);
}
