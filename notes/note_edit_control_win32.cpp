#include "notes/note_edit_control_win32.h"

#include <algorithm>
#include <utility>

#include "notes/caret_keys_win32.h"
#include "notes/note_copy_win32.h"
#include "notes/note_files_win32.h"
#include "notes/note_saving.h"
#include "pane/pane_look_win32.h"
#include "pane/selection_win32.h"
#include "pane/status_bar_win32.h"
#include "resources/ids.h"
#include "scripture/latin_letters.h"
#include "win32/clipboard.h"
#include "win32/code_page.h"
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

// ---- The status bar -------------------------------------------------------------------------------------------------

// Takes back what was told, unless the part has another text now.
static void TellNothing() {
    if (theNoteEdit.told.empty()) return;
    if (StatusText(StatusPart::kSearchSummary) == theNoteEdit.told)
        ShowStatus(StatusPart::kSearchSummary, theNoteEdit.statusBefore);
    theNoteEdit.told.clear();
}

// The text has to fit into the part. It stays up to the next key.
static void TellInStatus(const std::string& text) {
    TellNothing();
    MessageBeep(MB_OK);
    theNoteEdit.statusBefore = StatusText(StatusPart::kSearchSummary);
    theNoteEdit.told = text;
    ShowStatus(StatusPart::kSearchSummary, text);
}

// ---- Text ---------------------------------------------------------------------------------------------------------

static const CodePage& Page() {
    return TheNoteFiles().codePage;
}

// Another control in the place of the one that there is, without its text.
static void RenewNoteEditControl() {
    const HWND old = theNoteEdit.window, editor = Editor();
    RestoreNoteEditControl();
    CreateNoteEditControl(editor);
    SetNoteEditFont(theNoteEdit.font);
    DarkenNewRichEdit(theNoteEdit.window);
    ReplaceChild(old, theNoteEdit.window);
}

bool FillNoteEdit(const std::string& note) {
    TellNothing();
    theNoteEdit.typed = {};
    if (IsRemovedSlowly(PlainText(theNoteEdit.window))) RenewNoteEditControl();
    const std::u16string letters = LettersOfNote(Page(), note);
    SetPlainText(theNoteEdit.window, std::u16string_view(letters).substr(0, kNoteTextLimit));
    SendMessageA(theNoteEdit.window, EM_EXLIMITTEXT, 0, kNoteTextLimit);
    theNoteEdit.readOnly = PlainText(theNoteEdit.window) != letters || !HasExactLetters(Page(), note);
    SendMessageA(theNoteEdit.window, EM_SETREADONLY, theNoteEdit.readOnly, 0);
    return !theNoteEdit.readOnly;
}

std::string NoteInNoteEdit(const std::string& before) {
    return NoteOfLetters(Page(), PlainText(theNoteEdit.window), before);
}

static void ReplaceSelection(std::u16string_view text) {
    ReplaceSelectedText(theNoteEdit.window, text);
}

void RetypeInNoteEdit(const std::string& note) {
    CHARRANGE whole{0, PlainTextLength(theNoteEdit.window)};
    SendMessageA(theNoteEdit.window, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&whole));
    ReplaceSelection(LettersOfNote(Page(), note));
}

// ---- Clipboard ----------------------------------------------------------------------------------------------------
static bool HasFocus() {
    return GetFocus() == theNoteEdit.window;
}

void FollowClipboard() {
    theNoteEdit.canPaste = HasFocus() && !theNoteEdit.readOnly && IsClipboardFormatAvailable(CF_TEXT);
    RefreshFrame();
}

static std::u16string SelectionText() {
    PutSelectionInOrder(theNoteEdit.window);
    return PlainTextOfSelection(theNoteEdit.window);
}

void CopyInEditor() {
    CopyNoteText(Editor(), SelectionText());
    FollowClipboard();
}

void CutInEditor() {
    const std::u16string text = SelectionText();
    if (!theNoteEdit.readOnly && CopyNoteText(Editor(), text)) ReplaceSelection({});
    FollowClipboard();
}

static void TellFull() {
    TellInStatus("The note is full: text was left out");
}

static CHARRANGE Selected() {
    CHARRANGE range{};
    SendMessageA(theNoteEdit.window, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    return range;
}

// As much of `text` as the note has room for in the place of the selection.
static std::u16string_view Fitting(std::u16string_view text) {
    const std::u16string all = PlainText(theNoteEdit.window);
    const CHARRANGE selected = SelectedPlainText(theNoteEdit.window);
    const auto before = std::u16string_view(all).substr(0, static_cast<std::size_t>(selected.cpMin));
    const auto behind = std::u16string_view(all).substr(static_cast<std::size_t>(selected.cpMax));
    return FittingLetters(Page(), before, text, behind, kNoteTextLimit);
}

// Without looking at the text as long as it is short.
static bool HasRoomFor(std::u16string_view text) {
    static constexpr std::size_t kMostBytes = 3;  // for each unit of UTF-16
    const auto size = static_cast<std::size_t>(PlainTextLength(theNoteEdit.window)) + text.size();
    return kUtf8Mark.size() + size * kMostBytes <= kNoteTextLimit || Fitting(text).size() == text.size();
}

// Text that exceeds the limit is dropped.
static void Insert(std::u16string_view text) {
    if (theNoteEdit.readOnly) return;
    PutSelectionInOrder(theNoteEdit.window);
    const std::u16string lines = LettersOfUtf8(TextForNote(Utf8Of(text), std::string::npos));
    const std::u16string_view fitting = Fitting(lines);
    ReplaceSelection(fitting);
    if (fitting.size() < lines.size()) TellFull();
}

void PasteInEditor() {
    Insert(LettersOf(TextOnClipboard(Editor())));
}

// ---- Undo -----------------------------------------------------------------------------------------------------------

static void EndUndoStep() {
    SendMessageA(theNoteEdit.window, EM_STOPGROUPTYPING, 0, 0);
}

// To be called before what is typed reaches the control, which would make one step of Undo of all that is typed without
// moving the caret.
static void DivideTyping(bool isDeletion, bool isBlank) {
    static constexpr DWORD kPause = 1500;  // milliseconds
    const TypedLast last =
        std::exchange(theNoteEdit.typed, {isDeletion, isBlank, static_cast<DWORD>(GetMessageTime())});
    const bool isAfterPause = theNoteEdit.typed.time - last.time > kPause;
    const bool beginsWord = last.isBlank && !isBlank;
    if (isAfterPause || beginsWord || isDeletion != last.isDeletion) EndUndoStep();
}

bool CanUndoInEditor() {
    return HasFocus() && SendMessageA(theNoteEdit.window, EM_CANUNDO, 0, 0);
}

bool CanRedoInEditor() {
    return HasFocus() && SendMessageA(theNoteEdit.window, EM_CANREDO, 0, 0);
}

bool CanSelectAllInEditor() {
    return HasFocus() && PlainTextLength(theNoteEdit.window) > 0;
}

static void Change(UINT message) {
    SendMessageA(theNoteEdit.window, message, 0, 0);
    EndUndoStep();
    PutSelectionInOrder(theNoteEdit.window);
    RefreshFrame();
}

void UndoInEditor() {
    Change(EM_UNDO);
}

void RedoInEditor() {
    Change(EM_REDO);
}

void SelectAllInEditor() {
    CHARRANGE whole{0, -1};
    SendMessageA(theNoteEdit.window, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&whole));
    PutSelectionInOrder(theNoteEdit.window);
}

// ---- Letters --------------------------------------------------------------------------------------------------------

static constexpr WPARAM kFirstBeyondAscii = 0x80;

static LRESULT ToControl(UINT message, WPARAM wParam) {
    return CallWindowProcA(theNoteEdit.procedure, theNoteEdit.window, message, wParam, 1);
}

// WM_CHAR has no place for letters beyond the code page of the keyboard. What the control takes as typed is undone
// together with the rest of the word.
static void TypeLetter(char32_t letter) {
    std::string utf8;
    AppendUtf8(letter, utf8);
    const std::u16string units = LettersOfUtf8(utf8);
    if (theNoteEdit.readOnly) return;
    PutSelectionInOrder(theNoteEdit.window);
    DivideTyping(false, false);
    if (!HasRoomFor(units)) return TellFull();
    if (ToControl(WM_UNICHAR, UNICODE_NOCHAR))
        ToControl(WM_UNICHAR, letter);
    else
        Insert(units);
}

// Other programs send it, for example keyboards on the screen.
static LRESULT OnUnicodeCharacter(WPARAM letter) {
    if (letter == UNICODE_NOCHAR) return TRUE;
    if (letter < kFirstBeyondAscii)
        SendMessageA(theNoteEdit.window, WM_CHAR, letter, 1);
    else
        TypeLetter(static_cast<char32_t>(letter));
    return FALSE;
}

bool TakeNoteLetter(const MSG& message) {
    if (message.message != WM_CHAR || message.hwnd != theNoteEdit.window || message.wParam < kFirstBeyondAscii) {
        return false;
    }
    theNoteEdit.letter += static_cast<char16_t>(message.wParam);
    if (IS_HIGH_SURROGATE(theNoteEdit.letter.back())) return true;  // the other half follows
    std::string utf8 = Utf8Of(std::exchange(theNoteEdit.letter, {}));
    for (std::string_view rest = utf8; !rest.empty();) TypeLetter(*TakeLetter(rest));
    return true;
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
            if (control || shift) Insert(u"\n");  // the control would insert a kind of line end that notes do not use
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

// The control would delete half of a letter that has two units.
static void TakeWholeLetter(WPARAM key) {
    PutSelectionInOrder(theNoteEdit.window);
    const CHARRANGE selected = Selected();
    if (selected.cpMin == selected.cpMax) SelectLongLetter(theNoteEdit.window, key == VK_BACK);
}

static LRESULT OnKeyDown(WPARAM key, LPARAM lParam) {
    TellNothing();
    if (OnEditKey(static_cast<UINT>(key))) return 0;
    if (key == VK_BACK || key == VK_DELETE) {
        DivideTyping(true, false);
        TakeWholeLetter(key);
    }
    if (key == VK_RETURN) {
        DivideTyping(false, true);
        if (!theNoteEdit.readOnly && !HasRoomFor(u"\r\n")) return TellFull(), 0;
    }
    return PressCaretKey({theNoteEdit.window, theNoteEdit.procedure}, key, lParam);
}

// Characters of keys handled by OnEditKey, and those that notes must not contain.
static bool IsStrayCharacter(UINT character) {
    static constexpr UINT kDelete = 0x7F;
    if (character == kDelete || character == VK_ESCAPE) return true;
    return character < ' ' && (IsControlDown() || (IsKeyDown(VK_SHIFT) && character != VK_BACK));
}

// Before the control types it. Returns whether it may. Back and Enter were already handled as keys, but Wine's control
// ends the line only now.
static bool OnCharacter(UINT character) {
    if (character == VK_BACK) return true;
    if (character == VK_RETURN) return theNoteEdit.readOnly || HasRoomFor(u"\r\n");
    DivideTyping(false, character == ' ' || character == '\t');
    const std::string letter(1, static_cast<char>(character));
    if (theNoteEdit.readOnly || HasRoomFor(LettersOfNote(Page(), letter))) return true;
    TellFull();
    return false;
}

static void OnButtonDown(HWND edit, POINT point) {
    PutCaretWhereClicked(edit, point);
    theNoteEdit.clicked = SelectionStart(edit);
}

// After a drag to the left or upwards, the right end of the selection is not under the mouse.
static void OnButtonUp(HWND edit, int y) {
    PutSelectionInOrder(edit);
    if (SelectionStart(edit) == theNoteEdit.clicked) KeepSelectionInLineAt(edit, y);
}

// What has taken the mouse from the control keeps the release of the button from it.
static void OnCaptureLost(HWND edit) {
    CallWindowProcA(theNoteEdit.procedure, edit, WM_LBUTTONUP, 0, 0);
}

void EndDragInNoteEdit() {
    if (GetCapture() == theNoteEdit.window) ReleaseCapture();
}

static LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN: return OnKeyDown(wParam, lParam);
        case WM_CHAR:
            if (IsStrayCharacter(static_cast<UINT>(wParam))) return 0;
            PutSelectionInOrder(edit);
            if (!OnCharacter(static_cast<UINT>(wParam))) return 0;
            break;
        case WM_UNICHAR: return OnUnicodeCharacter(wParam);
        case WM_CUT: CutInEditor(); return 0;
        case WM_COPY: CopyInEditor(); return 0;
        case WM_PASTE: PasteInEditor(); return 0;
    }
    const LRESULT result = CallWindowProcA(theNoteEdit.procedure, edit, message, wParam, lParam);
    switch (message) {
        case WM_SIZE:
        case WM_SETFONT: ScrollBackToText(edit); break;
        case WM_SETFOCUS: OnEditFocus(); break;
        case WM_KILLFOCUS: OnEditFocusLost(); break;
        case WM_CAPTURECHANGED: OnCaptureLost(edit); break;
        case WM_LBUTTONDOWN: OnButtonDown(edit, {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}); break;
        case WM_LBUTTONUP: OnButtonUp(edit, GET_Y_LPARAM(lParam)); break;
        case WM_LBUTTONDBLCLK: KeepSelectionInLineAt(edit, GET_Y_LPARAM(lParam)); break;
    }
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
    static constexpr WPARAM kMostSteps = 1000;
    SendMessageA(theNoteEdit.window, EM_SETTEXTMODE, TM_PLAINTEXT | TM_MULTILEVELUNDO, 0);
    SendMessageA(theNoteEdit.window, EM_SETUNDOLIMIT, kMostSteps, 0);
    SendMessageA(theNoteEdit.window, EM_SETEVENTMASK, 0, ENM_SELCHANGE | ENM_CHANGE);
    theNoteEdit.procedure = Subclass(theNoteEdit.window, EditProcedure);
}

void SetNoteEditFont(HFONT font) {
    theNoteEdit.font = font;
    SetPlainTextFont(theNoteEdit.window, font);
}

void RestoreNoteEditControl() {
    Unsubclass(theNoteEdit.window, theNoteEdit.procedure);
}
