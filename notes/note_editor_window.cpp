#include "notes/note_editor_window.h"

#include <algorithm>
#include <iterator>

#include "notes/note_files_win32.h"
#include "notes/note_saving.h"
#include "pane/selection_win32.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/clipboard.h"
#include "win32/controls.h"
#include "win32/help_viewer.h"
#include "win32/panes.h"
#include "win32/plain_text.h"
#include "win32/screen.h"

static constexpr char kNoteEditorClass[] = "NOTEEDIT";

NoteEditor theNoteEditor;

static constexpr int kButtonWidth = 60;  // pixels at 96 dpi
static constexpr int kButtonHeight = 21;
static constexpr int kGapBeforeLine = 8;

static HWND Frame() {
    return FrameOf(theNoteEditor.window);
}

static void RefreshFrame() {
    SendCommand(Frame(), IDM_REFRESH);
}

bool IsEditingNote() {
    return theNoteEditor.editing;
}

// ---- Opening and closing ------------------------------------------------------------------------------------------

static void FillEditor(const std::string& note) {
    SetPlainText(theNoteEditor.edit, note.substr(0, kNoteTextLimit));
    SendMessageA(theNoteEditor.edit, EM_EXLIMITTEXT, 0, kNoteTextLimit);
}

static void OpenNote() {
    std::string note;
    theNoteEditor.editing = true;
    if (!ReadStoredNote(TheNoteFiles(), theNoteSets, note)) {
        theNoteEditor.editing = false;
        Complain(Frame(), kCannotReadNote);
        return;
    }
    FillEditor(note);
    RefreshFrame();
    InvalidateRect(theNoteEditor.window, nullptr, TRUE);
    SetFocus(theNoteEditor.edit);
}

static void CloseEditor() {
    theNoteEditor.editing = false;
    FillEditor("");
    SendCommand(Frame(), IDM_END_EDITING);
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

namespace {

struct WaitCursor {
    HWND frame;
    HCURSOR before;
};

}  // namespace

static UINT BoxOf(SaveNotice notice) {
    switch (notice) {
        case SaveNotice::kCannotOpen: return MB_RETRYCANCEL | MB_ICONSTOP;
        case SaveNotice::kChangedOnDisk: return MB_OKCANCEL | MB_ICONEXCLAMATION;
        case SaveNotice::kCannotDelete: return MB_OK;
        default: return MB_OK | MB_ICONSTOP;
    }
}

// Releases the mouse while the box is open.
static bool Tell(void* device, SaveNotice notice, const std::string& text) {
    WaitCursor& wait = *static_cast<WaitCursor*>(device);
    EndWait(wait.before);
    const int answer = MessageBoxA(wait.frame, text.c_str(), kErrorCaption, BoxOf(notice));
    wait.before = BeginWait(wait.frame);
    return answer != IDCANCEL;
}

// Shows the wait cursor and captures the mouse for the frame while saving.
static NoteSaveResult SaveCurrentNote(std::string_view text) {
    const HWND frame = Frame();
    WaitCursor wait{frame, BeginWait(frame)};
    const NoteSaveResult result = SaveNote(TheNoteFiles(), {&wait, Tell}, theNoteSets, text, NoteTimeNow());
    EndWait(wait.before);
    return result;
}

static bool SaveNote() {
    const NoteSaveResult result = SaveCurrentNote(PlainText(theNoteEditor.edit));
    if (result == NoteSaveResult::kSaved) SendCommand(Frame(), IDM_SHOW_SAVED_NOTE);
    if (result != NoteSaveResult::kStopped) CloseEditor();
    return result == NoteSaveResult::kSaved;
}

// Runs `work`, a save or the question before one, unless one is already running with a message box open.
static bool UnlessSaving(bool (*work)()) {
    if (!theNoteEditor.editing || theNoteEditor.saving) return false;
    theNoteEditor.saving = true;
    const bool done = work();
    theNoteEditor.saving = false;
    return done;
}

static bool AskAndSave() {
    const std::string verse = ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName);
    const std::string question = "Do you want to save the note for " + verse + "?";
    switch (MessageBoxA(Frame(), question.c_str(), "Versewell97", MB_YESNOCANCEL | MB_ICONQUESTION)) {
        case IDYES: return SaveNote();
        case IDNO: return true;
    }
    return false;
}

bool MayLeaveEditor() {
    return !theNoteEditor.editing || UnlessSaving(AskAndSave);
}

static void Cancel() {
    if (theNoteEditor.editing && !theNoteEditor.saving) CloseEditor();
}

// Asks before discarding changes, because Esc is easily pressed by accident.
static void Escape() {
    const bool changed = SendMessageA(theNoteEditor.edit, EM_GETMODIFY, 0, 0) != 0;
    if (!changed || MayLeaveEditor()) Cancel();
}

// ---- Clipboard ----------------------------------------------------------------------------------------------------

static bool HasFocus() {
    return GetFocus() == theNoteEditor.edit;
}

static void FollowClipboard() {
    theNoteEditor.canPaste = HasFocus() && IsClipboardFormatAvailable(CF_TEXT);
    RefreshFrame();
}

static std::string SelectionText() {
    const CHARRANGE range = SelectedPlainText(theNoteEditor.edit);
    return PlainText(theNoteEditor.edit)
        .substr(static_cast<std::size_t>(range.cpMin), static_cast<std::size_t>(range.cpMax - range.cpMin));
}

// The control's own copy would include the text's formatting.
static bool PutOnClipboard(const std::string& text) {
    const HeldClipboard clipboard = text.empty() ? nullptr : OpenEmptyClipboard(theNoteEditor.window);
    return clipboard && PutText(clipboard, text);
}

void CopyInEditor() {
    PutOnClipboard(SelectionText());
    FollowClipboard();
}

static void ReplaceSelection(const std::string& text) {
    SendMessageA(theNoteEditor.edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void CutInEditor() {
    if (PutOnClipboard(SelectionText())) ReplaceSelection("");
    FollowClipboard();
}

// Text that exceeds the limit is dropped, with a beep.
static void Insert(std::string_view text) {
    const CHARRANGE range = SelectedPlainText(theNoteEditor.edit);
    const auto kept = static_cast<std::size_t>(GetWindowTextLengthA(theNoteEditor.edit) - (range.cpMax - range.cpMin));
    const std::size_t room = kNoteTextLimit - std::min(kept, kNoteTextLimit);
    const std::string fitting = TextForNote(text, room);
    if (fitting.size() < TextForNote(text, text.size() * 2).size()) MessageBeep(MB_OK);
    ReplaceSelection(fitting);
}

void PasteInEditor() {
    Insert(TextOnClipboard(theNoteEditor.window));
}

static void OnDrawClipboard() {
    if (theNoteEditor.editing) FollowClipboard();
    if (theNoteEditor.nextViewer) SendNotifyMessageA(theNoteEditor.nextViewer, WM_DRAWCLIPBOARD, 0, 0);
}

static void OnChangeCbChain(HWND left, HWND next) {
    if (left == theNoteEditor.nextViewer) {
        theNoteEditor.nextViewer = next;
    } else if (theNoteEditor.nextViewer) {
        SendNotifyMessageA(theNoteEditor.nextViewer, WM_CHANGECBCHAIN, reinterpret_cast<WPARAM>(left),
                           reinterpret_cast<LPARAM>(next));
    }
}

// ---- The editing control ------------------------------------------------------------------------------------------

static void OnEditFocus() {
    if (theSelection.SelectionOwner != kNoteEditorOwns) DropSelection();
    FollowClipboard();
}

static void OnEditFocusLost() {
    if (theSelection.SelectionOwner == kNoteEditorOwns) DropSelection();
    theNoteEditor.canPaste = false;
    RefreshFrame();
}

static void StepFocus(HWND from) {
    SetFocus(GetNextDlgTabItem(theNoteEditor.window, from, IsKeyDown(VK_SHIFT)));
}

// The Ctrl keys that the control handles for plain text; its other ones would change fonts and paragraphs.
static bool IsPlainTextKey(UINT key) {
    switch (key) {
        case 'A':
        case 'Y':
        case 'Z':
        case VK_BACK:
        case VK_DELETE:
        case VK_LEFT:
        case VK_RIGHT:
        case VK_UP:
        case VK_DOWN:
        case VK_HOME:
        case VK_END:
        case VK_PRIOR:
        case VK_NEXT:
        case VK_CONTROL:
        case VK_SHIFT: return true;
    }
    return false;
}

// Returns whether the key was handled here.
static bool OnEditKey(UINT key) {
    const bool control = IsControlDown();
    const bool shift = IsKeyDown(VK_SHIFT);
    switch (key) {
        case VK_ESCAPE: Escape(); return true;
        case VK_TAB:
            if (control || shift) StepFocus(theNoteEditor.edit);
            return control || shift;
        case VK_RETURN:
            if (control || shift) Insert("\n");  // the control would insert a kind of line end that notes do not use
            return control || shift;
        case VK_INSERT:
            if (control) CopyInEditor();
            if (shift) PasteInEditor();
            return control || shift;
        case VK_DELETE:
            if (shift && !control) CutInEditor();
            return shift && !control;
        case 'S':
            if (control) SendCommand(theNoteEditor.window, IDC_NOTE_SAVE);
            return control;
    }
    return control && !IsPlainTextKey(key);
}

// Characters of keys handled by OnEditKey, and those that notes must not contain.
static bool IsStrayCharacter(UINT character) {
    static constexpr UINT kDelete = 0x7F;
    if (character == kDelete || character == VK_ESCAPE) return true;
    return character < ' ' && (IsControlDown() || (IsKeyDown(VK_SHIFT) && character != VK_BACK));
}

static LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (OnEditKey(static_cast<UINT>(wParam))) return 0;
            break;
        case WM_CHAR:
            if (IsStrayCharacter(static_cast<UINT>(wParam))) return 0;
            break;
        case WM_CUT: CutInEditor(); return 0;
        case WM_COPY: CopyInEditor(); return 0;
        case WM_PASTE: PasteInEditor(); return 0;
    }
    const LRESULT result = CallWindowProcA(theNoteEditor.editProcedure, edit, message, wParam, lParam);
    if (message == WM_SETFOCUS) OnEditFocus();
    if (message == WM_KILLFOCUS) OnEditFocusLost();
    return result;
}

// ---- The buttons --------------------------------------------------------------------------------------------------

static LRESULT CALLBACK ButtonProcedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_KEYDOWN) {
        switch (wParam) {
            case VK_ESCAPE: Escape(); return 0;
            case VK_RETURN: SendMessageA(button, BM_CLICK, 0, 0); return 0;
            case VK_TAB: StepFocus(button); return 0;
        }
    }
    return CallWindowProcA(theNoteEditor.buttonProcedure, button, message, wParam, lParam);
}

// ---- The frame of the editor --------------------------------------------------------------------------------------

static constexpr int kButtons[] = {IDC_NOTE_SAVE, IDC_NOTE_CANCEL, IDC_NOTE_HELP};

static void OnSize(HWND window, UINT, int width, int height) {
    int left = 0;
    const int top = Scaled(kButtonHeight);
    for (const int button : kButtons) {
        MoveWindow(GetDlgItem(window, button), left, 0, Scaled(kButtonWidth), top, TRUE);
        left += Scaled(kButtonWidth);
    }
    MoveWindow(theNoteEditor.edit, 0, top, width, height > top ? height - top : 0, TRUE);
}

static std::string EditingLine() {
    if (!IsEditingNote()) return {};
    return "Editing note \"" + NoteSetName(*CurrentSet(theNoteSets)) + "\" for " +
           ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName);
}

static void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT place{};
    GetClientRect(window, &place);
    place.left = static_cast<LONG>(std::size(kButtons)) * Scaled(kButtonWidth) + Scaled(kGapBeforeLine);
    place.bottom = Scaled(kButtonHeight);
    const HGDIOBJ fontBefore = SelectObject(dc, MessageFont());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    DrawTextA(dc, EditingLine().c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, fontBefore);
    EndPaint(window, &paint);
}

static void OnCommand(HWND window, int command, HWND, UINT) {
    switch (command) {
        case IDM_EDIT_NOTE: OpenNote(); break;
        case IDC_NOTE_SAVE: UnlessSaving(SaveNote); break;
        case IDC_NOTE_CANCEL: Cancel(); break;
        case IDC_NOTE_HELP: OpenHelpTopic(window, kHelpFile, kTopicNoteEditor); break;
    }
}

static LRESULT OnNotify(HWND window, int control, NMHDR* notification) {
    if (control == IDC_NOTE_EDIT && notification->code == EN_SELCHANGE && HasFocus()) {
        const CHARRANGE range = SelectedPlainText(theNoteEditor.edit);
        theSelection.SelectionOwner = range.cpMin < range.cpMax ? kNoteEditorOwns : kNobody;
        RefreshFrame();
        return 0;
    }
    return DefWindowProcA(window, WM_NOTIFY, static_cast<WPARAM>(control), reinterpret_cast<LPARAM>(notification));
}

static void OnSetFocus(HWND, HWND) {
    SetFocus(theNoteEditor.edit);
}

static void CreateControls(HWND window) {
    static constexpr const char* kTexts[] = {"Save", "Cancel", "Help"};
    static_assert(std::size(kTexts) == std::size(kButtons));
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        const HWND button =
            CreateChild(window, "BUTTON", kTexts[i], WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0, kButtons[i]);
        SendMessageA(button, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont()), FALSE);
        theNoteEditor.buttonProcedure = Subclass(button, ButtonProcedure);
    }
    theNoteEditor.edit = CreateChild(
        window, "RICHEDIT", "", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL,
        WS_EX_CLIENTEDGE, IDC_NOTE_EDIT);
    SendMessageA(theNoteEditor.edit, EM_SETTEXTMODE, TM_PLAINTEXT, 0);
    SendMessageA(theNoteEditor.edit, EM_SETEVENTMASK, 0, ENM_SELCHANGE);
    theNoteEditor.editProcedure = Subclass(theNoteEditor.edit, EditProcedure);
}

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    theNoteEditor.window = window;
    CreateControls(window);
    theNoteEditor.nextViewer = SetClipboardViewer(window);
    return TRUE;
}

static void OnDestroy(HWND window) {
    ChangeClipboardChain(window, theNoteEditor.nextViewer);
    Unsubclass(theNoteEditor.edit, theNoteEditor.editProcedure);
}

static LRESULT CALLBACK EditorProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        HANDLE_MSG(window, WM_CREATE, OnCreate);
        HANDLE_MSG(window, WM_DESTROY, OnDestroy);
        HANDLE_MSG(window, WM_SIZE, OnSize);
        HANDLE_MSG(window, WM_PAINT, OnPaint);
        HANDLE_MSG(window, WM_COMMAND, OnCommand);
        HANDLE_MSG(window, WM_NOTIFY, OnNotify);
        HANDLE_MSG(window, WM_SETFOCUS, OnSetFocus);
        case WM_DRAWCLIPBOARD: OnDrawClipboard(); return 0;
        case WM_CHANGECBCHAIN:
            OnChangeCbChain(reinterpret_cast<HWND>(wParam), reinterpret_cast<HWND>(lParam));
            return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void SetNoteEditorFont(HFONT font) {
    SendMessageA(theNoteEditor.edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

bool RegisterNoteEditorClass() {
    return RegisterPaneClass(kNoteEditorClass, EditorProcedure, COLOR_BTNFACE);
}

void CreateNoteEditor(HWND frame) {
    CreateChild(frame, kNoteEditorClass, "", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTE_EDITOR);
}
