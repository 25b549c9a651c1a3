#include "app/font_commands_win32.h"

#include <cstdlib>

#include "app/frame_look_win32.h"
#include "app/frame_win32.h"
#include "app/zoom.h"
#include "notes/note_editor_window.h"
#include "notes/note_tabs_win32.h"
#include "notes/notes_window.h"
#include "pane/pane_look_win32.h"
#include "pane/scrolling.h"
#include "passage/passage_window.h"
#include "resources/ids.h"
#include "verselist/verse_list_window.h"
#include "win32/dpi.h"

static bool ChooseFontFor(FontChoice& choice) {
    const int dpi = DpiOf(nullptr);  // of the dialog, whatever screen the frame is on
    LOGFONTA record = FontRecord(choice, dpi);
    CHOOSEFONTA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = theFrame.window;
    dialog.lpLogFont = &record;
    dialog.Flags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_FORCEFONTEXIST;
    if (!ChooseFontA(&dialog)) return false;
    choice = {UnscaledFrom(dpi, std::abs(record.lfHeight)), static_cast<int>(record.lfWeight), record.lfFaceName};
    return true;
}

void ChooseListFont(int) {
    if (ChooseFontFor(theFrame.fonts.verseList)) SetVerseListFont(theFrame.fonts.verseList);
}

void ChoosePassageFont(int) {
    if (ChooseFontFor(theFrame.fonts.passage)) SetPassageFont(theFrame.fonts.passage);
}

void ChooseNotesFont(int) {
    if (!ChooseFontFor(theFrame.fonts.notes)) return;
    SetNotesFont(theFrame.fonts.notes);
    ReadNote(theNoteSets.currentVerse);
}

void ChooseHighlightColor(int) {
    CHOOSECOLORA dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = theFrame.window;
    dialog.rgbResult = KeyColorToShow(theReading.KeyHighlightColor);
    dialog.lpCustColors = theFrame.customColors.data();
    dialog.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!ChooseColorA(&dialog)) return;
    theReading.KeyHighlightColor = dialog.rgbResult;
    thePaneLook.isKeyColorChosen = true;
    ShowChosenColors();
}

// ---- Zoom -----------------------------------------------------------------------------------------------------------

namespace {

struct PaneFont {
    FontChoice* choice = nullptr;  // null: the window is in no pane
    void (*show)(const FontChoice& choice) = nullptr;
};

}  // namespace

static bool IsIn(HWND pane, HWND window) {
    return window == pane || IsChild(pane, window);
}

static PaneFont FontOfPaneWith(HWND window) {
    Fonts& fonts = theFrame.fonts;
    if (IsIn(theVerseList.references.window, window)) return {};
    if (IsIn(theFrame.listTabs, window) && ShownListView() == theVerseList.window)
        return {&fonts.verseList, SetVerseListFont};
    if (IsIn(theFrame.passageTabs, window)) return {&fonts.passage, SetPassageFont};
    if (IsIn(theNoteTabs.window, window) || IsIn(theNoteEditor.window, window)) return {&fonts.notes, SetNotesFont};
    return {};
}

static void Zoom(const PaneFont& font, int steps) {
    const int height = ZoomedHeight(*font.choice, steps, DpiOf(nullptr));
    if (height == font.choice->height) return;
    font.choice->height = height;
    font.show(*font.choice);
}

void ZoomFocusedPane(int command) {
    const PaneFont focused = FontOfPaneWith(GetFocus());
    const bool isNoPane = GetFocus() == nullptr || GetFocus() == theFrame.window;
    const PaneFont font = isNoPane ? FontOfPaneWith(FirstPane()) : focused;
    if (font.choice) Zoom(font, command == IDM_ZOOM_IN ? 1 : -1);
}

bool ZoomsByWheel(const MSG& message) {
    static const FontChoice* turned = nullptr;  // by the fraction of a notch that is left over
    static int rest = 0;
    if (message.message != WM_MOUSEWHEEL || !(GET_KEYSTATE_WPARAM(message.wParam) & MK_CONTROL)) return false;
    const PaneFont font = FontOfPaneWith(message.hwnd);
    if (font.choice != turned) rest = 0;
    turned = font.choice;
    // The Reference List has the letters of the system. It would pass the message on, and another pane would scroll.
    if (message.hwnd == theVerseList.references.window) return true;
    if (!font.choice) return false;
    Zoom(font, WheelSteps(GET_WHEEL_DELTA_WPARAM(message.wParam), 1, rest));
    return true;
}
