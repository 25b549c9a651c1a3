// Entry point of the program: window classes, frame, message loop.

#include "app/arguments_win32.h"
#include "app/dividers_win32.h"
#include "app/end_of_session_win32.h"
#include "app/font_commands_win32.h"
#include "app/frame_win32.h"
#include "app/frame_window.h"
#include "app/note_set_commands_win32.h"
#include "app/pane_focus_win32.h"
#include "app/place_commands_win32.h"
#include "app/session_win32.h"
#include "app/single_instance_win32.h"
#include "app/startup_win32.h"
#include "app/taken_sets_win32.h"
#include "notes/note_edit_control_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_links_win32.h"
#include "notes/notes_window.h"
#include "passage/passage_window.h"
#include "scripture/scripture.h"
#include "verselist/hits_strip_window.h"
#include "verselist/verse_list_window.h"
#include "win32/controls.h"
#include "win32/files.h"
#include "win32/held_keys.h"
#include "win32/system_library.h"
#include "win32/thread_stack.h"

static constexpr char kFailureText[] =
    "Initialization of Versewell97 incomplete.\n\n"
    "One of the following errors occurred:\n"
    "1. You are out of drive space. This is the most likely error. You need to free up some space on your hard drive.\n"
    "2. A required file is missing from your Versewell97 folder. You need to reinstall Versewell97.\n"
    "3. \"RICHED32.DLL\" is missing from your \\WINDOWS\\SYSTEM folder. You need to reinstall Windows or obtain this "
    "file.";

static bool RegisterClasses() {
    return RegisterFrameClass() && RegisterPassageClass() && RegisterVerseListClass() && RegisterHitsStripClass() &&
           RegisterNotesClass() && RegisterNoteEditorClass();
}

// The system destroyed the frame whose creation failed, which posted WM_QUIT. It is removed here, because the message
// box would not wait for OK otherwise.
static void ReportFailure() {
    MSG quit;
    PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
    Complain(nullptr, kFailureText, "Initialization failure");
}

// Passes the key of an accelerator with Alt to DefWindowProc, so that releasing Alt does not activate the menu bar. Not
// F10, which would activate the menu bar itself.
static void EndAltKey(const MSG& message) {
    const bool withAlt = HIWORD(message.lParam) & KF_ALTDOWN;
    if (message.message == WM_SYSKEYDOWN && withAlt && message.wParam != VK_F10) {
        DefWindowProcA(theFrame.window, WM_SYSKEYDOWN, message.wParam, message.lParam);
    }
}

// Does the key type a character with AltGr into the note editor? AltGr arrives as Ctrl+Alt, which with a digit is also
// a command. Only the system knows which digits type something on the user's keyboard, so the key is translated and its
// character, possibly an accent for the next letter, is left in the queue.
static bool TypesWithAltGr(const MSG& message) {
    const bool isKey = message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN;
    const bool isDigit = message.wParam >= '0' && message.wParam <= '9';
    if (!isKey || !isDigit || message.hwnd != theNoteEdit.window) return false;
    if (!IsKeyDown(VK_CONTROL) || !IsKeyDown(VK_MENU)) return false;
    TranslateMessage(&message);
    MSG typed;
    if (!PeekMessageW(&typed, message.hwnd, WM_CHAR, WM_DEADCHAR, PM_NOREMOVE)) return false;
    const bool isControlCharacter = typed.message == WM_CHAR && typed.wParam < ' ';
    if (isControlCharacter) PeekMessageW(&typed, message.hwnd, WM_CHAR, WM_CHAR, PM_REMOVE);
    return !isControlCharacter;
}

static bool IsCommandKey(MSG& message) {
    if (!theFrame.accelerators || IsNoteTextKey(message) || IsKeyOfFrame(message)) return false;
    return TranslateAcceleratorA(theFrame.window, theFrame.accelerators, &message) != 0;
}

// The messages are in UTF-16, because otherwise the system would replace letters outside the code page by others.
static int RunMessageLoop() {
    MSG message;
    while (NextMessage(message)) {
        LookForHeldKey(message);
        FollowControlKey(theNotes.view, message);
        RouteWheel(message);
        if (ZoomsByWheel(message) || CancelsDrag(message)) continue;
        const bool scrollsOn = ScrollsOn(message);
        if (!scrollsOn && (TakeNoteLetter(message) || StepsThroughPanes(message) || StepsThroughPlaces(message)))
            continue;
        if (scrollsOn || TypesWithAltGr(message)) {
            DispatchMessageW(&message);
        } else if (IsCommandKey(message)) {
            EndAltKey(message);
        } else {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

static void ReleaseRichEdit() {
    if (theFrame.richEdit) FreeLibrary(theFrame.richEdit);
    theFrame.richEdit = nullptr;
}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int showState) {
    LoadOnlySystemLibraries();
    GiveBackUnusedStack();
    const ProgramArguments arguments = ArgumentsOfProcess();
    if (AnswerArguments(arguments)) return 0;
    if (!EnterArgumentFolder(arguments)) return 0;
    SettleWorkingFolder({kVerseTextFile, "*.nmi"}, "Versewell", "installed.txt");
    if (!AcceptOtherFolder(arguments)) return 0;
    const auto tellOther = [&](HWND frame) { PassOnReference(frame, arguments.reference); };
    if (!ClaimWorkingFolder(kFrameClass, tellOther) || !RegisterClasses()) return 0;
    WatchHeldKeys();
    PrepareSets();
    OpenLastSession();
    const FramePlacement placement = LoadPlacement(FirstSettings());
    const HWND frame = CreateFrame(placement);
    if (frame) {
        MarkClaimingFrame(frame);
        ShowWindow(frame, placement.Maxed ? SW_SHOWMAXIMIZED : showState);
        UpdateWindow(frame);
    }
    if (IsWindow(theFrame.splash)) DestroyWindow(theFrame.splash);
    if (!frame) {
        ReportFailure();
        return 0;
    }
    SetFocus(frame);
    AskForRestart();
    OfferLastSession();
    ShowStatesOfDamagedSet();
    GoToArgument(arguments.reference);
    const int exitCode = RunMessageLoop();
    ReleaseRichEdit();
    return exitCode;
}
