#include "app/startup_win32.h"

#include "app/commands_win32.h"
#include "app/frame_window.h"
#include "app/profile_win32.h"
#include "app/reading_commands_win32.h"
#include "app/toolbar_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "output/output_win32.h"
#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "scripture/scripture_files.h"
#include "scripture/scripture_win32.h"
#include "search/search_win32.h"
#include "verselist/verselist_window.h"
#include "win32/controls.h"
#include "win32/help_viewer.h"
#include "win32/panes.h"
#include "win32/program_files.h"
#include "win32/screen.h"

// Start-up.

static INT_PTR CALLBACK SplashProcedure(HWND splash, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) CenterOnScreen(splash);
    return message == WM_INITDIALOG;
}

static void ShowSplash(HWND frame) {
    theFrame.splash = CreateDialogParamA(GetModuleHandleA(nullptr), "SPLASHSCREEN", frame, SplashProcedure, 0);
    ShowWindow(theFrame.splash, SW_SHOWNA);
    UpdateWindow(theFrame.splash);
}

static void ReadDefaultPageSetup() {
    static constexpr LONG kMargin = 1000;
    PAGESETUPDLGA& page = theFrame.pageSetup;
    page.lStructSize = sizeof page;
    page.Flags = PSD_RETURNDEFAULT | PSD_NOWARNING;
    page.rtMargin = {kMargin, kMargin, kMargin, kMargin};
    PageSetupDlgA(&page);
}

static void CreatePanes(HWND frame) {
    CreateVerseList(theFrame.listTabs);
    CreatePassage(theFrame.passageTabs);
    CreateNotesPane(theFrame.noteTabs);
    theFrame.noteEditor = CreateNoteEditor(frame);
}

enum class StoreLoad { kLoaded, kStopped, kFailed };

static StoreLoad LoadStore() {
    const DataFiles files = ScriptureDataFiles();
    switch (LoadWordIndex(files, theWordIndex)) {
        case IndexLoad::kFailed: return StoreLoad::kFailed;
        case IndexLoad::kNoVerseLists: return StoreLoad::kStopped;
        case IndexLoad::kLoaded: break;
    }
    return LoadScripture(files, theScripture) ? StoreLoad::kLoaded : StoreLoad::kFailed;
}

static Settings AllSettings() {
    return {thePassage.view, theNotes.sets,      theNotes.BindNotes, theSearch,     theFormat,
            theFrame.shown,  theFrame.bookmarks, theReading,         theFrame.fonts};
}

static void ReadSettings() {
    LoadSettings(SettingsProfile(), AllSettings(), GetSysColor(COLOR_HIGHLIGHT));
    LabelBookmarks();
    SetPassageFont(theFrame.fonts.passage);
    SetVerseListFont(theFrame.fonts.verseList);
}

static void SetFirstMenuState() {
    if (theNotes.sets.devotionalSet == kNoDevotionalSet) RemoveDevotionalMenu();
    theFrame.startUpComplete = true;
    RefreshCommands();
}

static void ShowFirstNote() {
    SetNotesFont(theFrame.fonts.notes);
    LayOut();
    TabCtrl_SetCurSel(theFrame.noteTabs, theNotes.sets.currentSet);
    ReadNote(theNotes.sets.currentVerse);
}

bool StartUp(HWND frame) {
    theFrame.window = frame;
    theFrame.menu = GetMenu(frame);
    InitCommonControls();
    ShowSplash(frame);
    theFrame.richEdit = LoadLibraryA("RICHED32.DLL");
    if (!theFrame.richEdit) return false;
    ReadDefaultPageSetup();
    theFrame.accelerators = LoadAcceleratorsA(GetModuleHandleA(nullptr), "Accels");
    theFrame.toolbar = CreateToolbar(frame);
    if (!theFrame.toolbar) return false;
    CreateBars(frame);
    theNotes.tabs = theFrame.noteTabs;
    LoadNoteSets();
    CreatePanes(frame);
    const StoreLoad store = LoadStore();
    if (store != StoreLoad::kLoaded) return store == StoreLoad::kStopped;
    ReadSettings();
    SetFirstMenuState();
    ShowFirstNote();
    return true;
}

// Shut-down.

static FramePlacement PlacementOf(const WINDOWPLACEMENT& placement) {
    const RECT& normal = placement.rcNormalPosition;
    static constexpr UINT kKeptFlags = WPF_SETMINPOSITION | WPF_RESTORETOMAXIMIZED;
    return {static_cast<int>(normal.left), static_cast<int>(normal.top), static_cast<int>(normal.right - normal.left),
            static_cast<int>(normal.bottom - normal.top), static_cast<int>(placement.flags & kKeptFlags)};
}

static void WriteSettings() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    const bool placed = GetWindowPlacement(theFrame.window, &placement);
    const FramePlacement frame = PlacementOf(placement);
    SaveSettings(SettingsProfile(), AllSettings(), placed ? &frame : nullptr);
}

void ShutDown() {
    ReleaseDataFiles();
    RestoreNoteView();
    Unsubclass(theFrame.listTabs, theFrame.listTabProcedure);
    CloseHelp(theFrame.window, kHelpFile);
    if (theFrame.startUpComplete) WriteSettings();
}

ProfileFile SettingsProfile() {
    return WindowsProfile();
}
