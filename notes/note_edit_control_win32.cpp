#include "notes/note_edit_control_win32.h"

#include <algorithm>

#include "notes/note_saving.h"
#include "pane/selection_win32.h"
#include "resources/ids.h"
#include "win32/clipboard.h"
#include "win32/controls.h"
#include "win32/panes.h"
#include "win32/plain_text.h"

NoteEditControl theNoteEdit;

static HWND Editor() {
    return GetParent(theNoteEdit.window);
}

static void RefreshFrame() {
    SendCommand(FrameOf(theNoteEdit.window), IDM_REFRESH);
}

// ---- Text ---------------------------------------------------------------------------------------------------------

void FillNoteEdit(const std::string& text) {
    SetPlainText(theNoteEdit.window, text.substr(0, kNoteTextLimit));
    SendMessageA(theNoteEdit.window, EM_EXLIMITTEXT, 0, kNoteTextLimit);
}

std::string TextInNoteEdit() {
    return PlainText(theNoteEdit.window);
}

static void ReplaceSelection(const std::string& text) {
    SendMessageA(theNoteEdit.window, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void RetypeInNoteEdit(const std::string& text) {
    CHARRANGE whole{0, GetWindowTextLengthA(theNoteEdit.window)};
    SendMessageA(theNoteEdit.window, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&whole));
    ReplaceSelection(text.substr(0, kNoteTextLimit));
}

// ---- Clipboard ----------------------------------------------------------------------------------------------------
static bool HasFocus() {
    return GetFocus() == theNoteEdit.window;
}

void FollowClipboard() {
    theNoteEdit.canPaste = HasFocus() && IsClipboardFormatAvailable(CF_TEXT);
    RefreshFrame();
}

static std::string SelectionText() {
    const CHARRANGE range = SelectedPlainText(theNoteEdit.window);
    return PlainText(theNoteEdit.window)
        .substr(static_cast<std::size_t>(range.cpMin), static_cast<std::size_t>(range.cpMax - range.cpMin));
}

// The control's own copy would include the text's formatting.
static bool PutOnClipboard(const std::string& text) {
    const HeldClipboard clipboard = text.empty() ? nullptr : OpenEmptyClipboard(Editor());
    return clipboard && PutText(clipboard, text);
}

void CopyInEditor() {
    PutOnClipboard(SelectionText());
    FollowClipboard();
}

void CutInEditor() {
    if (PutOnClipboard(SelectionText())) ReplaceSelection("");
    FollowClipboard();
}

// Text that exceeds the limit is dropped, with a beep.
static void Insert(std::string_view text) {
    const CHARRANGE range = SelectedPlainText(theNoteEdit.window);
    const auto kept = static_cast<std::size_t>(GetWindowTextLengthA(theNoteEdit.window) - (range.cpMax - range.cpMin));
    const std::size_t room = kNoteTextLimit - std::min(kept, kNoteTextLimit);
    const std::string fitting = TextForNote(text, room);
    if (fitting.size() < TextForNote(text, text.size() * 2).size()) MessageBeep(MB_OK);
    ReplaceSelection(fitting);
}

void PasteInEditor() {
    Insert(TextOnClipboard(Editor()));
}

// ---- The editing control ------------------------------------------------------------------------------------------

static void OnEditFocus() {
    if (theSelection.SelectionOwner != kNoteEditorOwns) DropSelection();
    FollowClipboard();
}

static void OnEditFocusLost() {
    if (theSelection.SelectionOwner == kNoteEditorOwns) DropSelection();
    theNoteEdit.canPaste = false;
    RefreshFrame();
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
        case VK_ESCAPE: SendCommand(Editor(), IDCANCEL); return true;
        case VK_TAB:
            if (control || shift) StepFocus(theNoteEdit.window);
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
            if (control) SendCommand(Editor(), IDC_NOTE_SAVE);
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
    const LRESULT result = CallWindowProcA(theNoteEdit.procedure, edit, message, wParam, lParam);
    if (message == WM_SETFOCUS) OnEditFocus();
    if (message == WM_KILLFOCUS) OnEditFocusLost();
    return result;
}

void FollowNoteEditSelection() {
    if (!HasFocus()) return;
    const CHARRANGE range = SelectedPlainText(theNoteEdit.window);
    theSelection.SelectionOwner = range.cpMin < range.cpMax ? kNoteEditorOwns : kNobody;
    RefreshFrame();
}

void CreateNoteEditControl(HWND editor) {
    theNoteEdit.window = CreateChild(
        editor, "RICHEDIT", "", WS_VISIBLE | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL,
        WS_EX_CLIENTEDGE, IDC_NOTE_EDIT);
    SendMessageA(theNoteEdit.window, EM_SETTEXTMODE, TM_PLAINTEXT, 0);
    SendMessageA(theNoteEdit.window, EM_SETEVENTMASK, 0, ENM_SELCHANGE | ENM_CHANGE);
    theNoteEdit.procedure = Subclass(theNoteEdit.window, EditProcedure);
}

void RestoreNoteEditControl() {
    Unsubclass(theNoteEdit.window, theNoteEdit.procedure);
}
