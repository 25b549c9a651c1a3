#include "notes/note_editor_window.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "notes/note_edit_control_win32.h"
#include "notes/note_files_win32.h"
#include "notes/note_history.h"
#include "notes/note_saving.h"
#include "notes/note_source.h"
#include "notes/note_tabs_win32.h"
#include "pane/status_bar_win32.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dpi.h"
#include "win32/help_viewer.h"
#include "win32/panes.h"
#include "win32/plain_text.h"

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

static constexpr UINT kTellReadOnly = WM_APP;  // posted, because the editor is shown only after it has been opened
static constexpr char kReadOnlyNote[] =
    "This note has characters that cannot be shown exactly as they are stored, perhaps because it was written on a "
    "computer with another code page, or it is too long. You can read and copy it, but not change it, so that nothing "
    "of it is lost.";

// ---- Opening and closing ------------------------------------------------------------------------------------------

// It can be edited all the same: another program may put a whole file in its place meanwhile, and what is typed can be
// copied elsewhere.
static void TellDamagedSet() {
    const NoteSet& set = *CurrentSet(theNoteSets);
    if (set.readOnly)
        ShowStatus(StatusPart::kSearchSummary, '"' + set.dataFileName + "\" is damaged: no note can be saved in it");
}

static void OpenNote() {
    std::string note;
    theNoteEditor.editing = true;
    if (!ReadStoredNote(TheNoteFiles(), theNoteSets, note)) {
        theNoteEditor.editing = false;
        Complain(Frame(), kCannotReadNote);
        return;
    }
    const bool isExact = FillNoteEdit(note);
    theNoteEditor.openedOn = std::move(note);
    ++theNoteEditor.changes;
    EnableWindow(GetDlgItem(theNoteEditor.window, IDC_NOTE_SAVE), isExact);
    RefreshFrame();
    InvalidateRect(theNoteEditor.window, nullptr, TRUE);
    SetFocus(theNoteEdit.window);
    TellDamagedSet();
    if (!isExact) PostMessageA(theNoteEditor.window, kTellReadOnly, 0, 0);
}

static void CloseEditor() {
    theNoteEditor.editing = false;
    EndDragInNoteEdit();
    FillNoteEdit("");
    theNoteEditor.openedOn.clear();
    ++theNoteEditor.changes;
    SendCommand(Frame(), IDM_END_EDITING);
}

// ---- The draft ----------------------------------------------------------------------------------------------------

static std::string NameOfCurrentSet() {
    return NoteSetName(*CurrentSet(theNoteSets));
}

unsigned EditorChanges() {
    return theNoteEditor.changes;
}

std::optional<NoteDraft> DraftInEditor() {
    if (!theNoteEditor.editing || theNoteEdit.readOnly) return std::nullopt;
    NoteDraft draft{NameOfCurrentSet(), theNoteSets.currentVerse, theNoteEditor.openedOn,
                    NoteInNoteEdit(theNoteEditor.openedOn)};
    if (draft.text == draft.openedOn) return std::nullopt;
    return draft;
}

// Chooses the set and the verse like a click on the set's tab.
static void ShowNoteOf(int set, int verse) {
    SelectSet(theNoteSets, set);
    theNoteSets.currentVerse = ClampVerse(verse);
    SelectNoteTab(set);
    NMHDR chosen{theNoteTabs.window, IDC_NOTE_TABS, static_cast<UINT>(TCN_SELCHANGE)};
    SendMessageA(Frame(), WM_NOTIFY, IDC_NOTE_TABS, reinterpret_cast<LPARAM>(&chosen));
}

static bool OpenNoteOf(const NoteDraft& draft) {
    const auto set = std::ranges::find(theNoteSets.sets, draft.setName, NoteSetName);
    if (set == theNoteSets.sets.end() || !CanReadNotes(TheNoteFiles(), *set)) return false;
    ShowNoteOf(static_cast<int>(set - theNoteSets.sets.begin()), draft.verse);
    SendCommand(Frame(), IDM_EDIT_NOTE);
    if (theNoteEditor.editing) theNoteEditor.openedOn = draft.openedOn;
    return theNoteEditor.editing;
}

bool EditDraft(const NoteDraft& draft) {
    if (!theNoteEditor.editing && !OpenNoteOf(draft)) return false;
    if (draft.setName != NameOfCurrentSet() || draft.verse != theNoteSets.currentVerse) return false;
    if (theNoteEdit.readOnly) return false;
    RetypeInNoteEdit(draft.text);
    return true;
}

// ---- Saving ---------------------------------------------------------------------------------------------------------

namespace {

struct SaveInEditor {
    HWND frame;
    HCURSOR before;  // the wait cursor
    NoteEdit& edit;
};

}  // namespace

// In what was written elsewhere.
static constexpr char kLettersWithoutPlace[] =
    "The note cannot be saved, because it has characters that are not in the code page of this computer. Remove them "
    "first, or copy the text elsewhere.";

// Text can get into the control past the program, for example through an input method.
static constexpr char kTooLongToSave[] =
    "The note is too long to be saved. Remove a part of it first, or copy it elsewhere.";

static UINT BoxOf(SaveNotice notice) {
    switch (notice) {
        case SaveNotice::kCannotOpen: return MB_RETRYCANCEL | MB_ICONSTOP;
        case SaveNotice::kNoBackup:
        case SaveNotice::kMerged: return MB_OK | MB_ICONEXCLAMATION;
        case SaveNotice::kTooLong:
        case SaveNotice::kChangedOnDisk: return MB_OKCANCEL | MB_ICONEXCLAMATION;
        case SaveNotice::kCannotDelete: return MB_OK;
        default: return MB_OK | MB_ICONSTOP;
    }
}

// Shows both texts of a note that was also changed elsewhere. False if the other text has characters of another code
// page; then the editor keeps what was typed.
static bool ContinueWith(const NoteEdit& merged) {
    const std::string typed = NoteInNoteEdit(theNoteEditor.openedOn);
    const bool isExact = FillNoteEdit(merged.text);
    if (!isExact) {
        FillNoteEdit(typed);
    } else {
        theNoteEditor.openedOn = merged.openedOn;
        ++theNoteEditor.changes;
    }
    SetFocus(theNoteEdit.window);
    ShowAtOnce(theNoteEdit.window);
    return isExact;
}

// A box that says what is in the editor is shown when it can be seen there.
static int AnswerTo(const SaveInEditor& save, SaveNotice notice, const std::string& text) {
    const bool isTrue = notice != SaveNotice::kMerged || ContinueWith(save.edit);
    return MessageBoxA(save.frame, isTrue ? text.c_str() : kLettersWithoutPlace, kErrorCaption,
                       isTrue ? BoxOf(notice) : MB_OK | MB_ICONSTOP);
}

// Releases the mouse while the box is open. That there is no backup is told once.
static bool Tell(void* device, SaveNotice notice, const std::string& text) {
    if (notice == SaveNotice::kNoBackup && std::exchange(theNoteEditor.hasToldNoBackup, true)) return true;
    SaveInEditor& save = *static_cast<SaveInEditor*>(device);
    EndWait(save.before);
    const int answer = AnswerTo(save, notice, text);
    save.before = BeginWait(save.frame);
    return answer != IDCANCEL;
}

// Shows the wait cursor and captures the mouse for the frame while saving.
static NoteSaveResult Save(NoteEdit& edit) {
    const HWND frame = Frame();
    SaveInEditor save{frame, BeginWait(frame), edit};
    const NoteSaveResult result = SaveNote(TheNoteFiles(), {&save, Tell}, theNoteSets, edit, NoteTimeNow());
    EndWait(save.before);
    return result;
}

// With every line end as CR LF, unless the note already had others.
static std::string WithLineEndsOfNotes(const std::string& text) {
    const std::string& before = theNoteEditor.openedOn;
    const bool hadOthers = TextForNote(before, 2 * before.size()) != before;
    return hadOthers ? text : TextForNote(text, std::string::npos);
}

// Keeps an edit that ends without being stored among the earlier notes. False if that is impossible, too.
static bool KeepEdit(const NoteDraft& draft, KeptReason reason) {
    const EarlierNote edit{NoteTimeNow().seconds, draft.verse, reason, draft.text};
    return KeepEarlierNotes(TheNoteFiles(), draft.setName, {&edit, 1});
}

// Keeps an edit that the user gives up. False if it cannot be kept, and the user then wants to go on with it.
static bool GiveUpEdit() {
    const std::optional<NoteDraft> draft = DraftInEditor();
    if (!draft || KeepEdit(*draft, KeptReason::kCancelled)) return true;
    static constexpr char kQuestion[] =
        "What you have typed cannot be kept among the earlier notes. Disk may be full! Do you want to drop it?";
    return MessageBoxA(Frame(), kQuestion, "Versewell97", MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) == IDYES;
}

static constexpr char kKeptNowhere[] =
    "What you have typed cannot be kept among the earlier notes either, so it stays in the editor. Make room on the "
    "disk and save it again, or copy the text elsewhere.";

static constexpr char kKeptText[] = "The text is kept: see Notes, Earlier Notes for this Verse.";

// After a save that failed. An edit that cannot be kept stays in the editor, because it is nowhere else.
static bool EndFailedEdit() {
    const std::optional<NoteDraft> draft = DraftInEditor();
    const bool isKept = !draft || KeepEdit(*draft, KeptReason::kNotSaved);
    if (isKept) {
        CloseEditor();
        if (draft) ShowStatus(StatusPart::kSearchSummary, kKeptText);
    } else {
        Complain(Frame(), kKeptNowhere);
        SetFocus(theNoteEdit.window);  // not on the button, where Enter would save again
    }
    return false;
}

static bool SaveTypedNote() {
    if (theNoteEdit.readOnly) return false;
    NoteEdit edit{WithLineEndsOfNotes(NoteInNoteEdit(theNoteEditor.openedOn)), theNoteEditor.openedOn};
    if (edit.text.size() > kNoteTextLimit) {
        Complain(Frame(), kTooLongToSave);
        return false;
    }
    switch (Save(edit)) {
        case NoteSaveResult::kSaved: break;
        case NoteSaveResult::kFailed: return EndFailedEdit();
        case NoteSaveResult::kStopped:
        case NoteSaveResult::kMerged: return false;
    }
    SendCommand(Frame(), IDM_SHOW_SAVED_NOTE);
    CloseEditor();
    return true;
}

// Runs `work`, a save or the question before one, unless one is already running with a message box open.
static bool UnlessSaving(bool (*work)()) {
    if (!theNoteEditor.editing || theNoteEditor.saving) return false;
    theNoteEditor.saving = true;
    EndDragInNoteEdit();
    const bool done = work();
    theNoteEditor.saving = false;
    return done;
}

static bool AskAndSave() {
    const std::string verse = ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName);
    const std::string question = "Do you want to save the note for " + verse + "?";
    switch (MessageBoxA(Frame(), question.c_str(), "Versewell97", MB_YESNOCANCEL | MB_ICONQUESTION)) {
        case IDYES: return SaveTypedNote();
        case IDNO: return GiveUpEdit();
    }
    return false;
}

bool MayLeaveEditor() {
    if (theNoteEditor.saving) return false;
    return !DraftInEditor() || UnlessSaving(AskAndSave);
}

static void Cancel() {
    if (UnlessSaving(GiveUpEdit)) CloseEditor();
}

// Asks before discarding changes, because Esc is easily pressed by accident.
static void Escape() {
    if (MayLeaveEditor() && theNoteEditor.editing) CloseEditor();
}

// ---- Clipboard ----------------------------------------------------------------------------------------------------

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
    const int buttonWidth = Scaled(window, kButtonWidth), top = Scaled(window, kButtonHeight);
    for (const int button : kButtons) {
        MoveWindow(GetDlgItem(window, button), left, 0, buttonWidth, top, TRUE);
        left += buttonWidth;
    }
    MoveWindow(theNoteEdit.window, 0, top, width, height > top ? height - top : 0, TRUE);
}

static std::string EditingLine() {
    if (!IsEditingNote()) return {};
    return "Editing note \"" + NameOfCurrentSet() + "\" for " +
           ReferenceText(theScripture.records, theNoteSets.currentVerse, BookForm::kName);
}

static void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    RECT place{};
    GetClientRect(window, &place);
    place.left = static_cast<LONG>(std::size(kButtons)) * Scaled(window, kButtonWidth) + Scaled(window, kGapBeforeLine);
    place.bottom = Scaled(window, kButtonHeight);
    const HGDIOBJ fontBefore = SelectObject(dc, MessageFont(window));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    DrawTextA(dc, EditingLine().c_str(), -1, &place, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, fontBefore);
    EndPaint(window, &paint);
}

static void OnCommand(HWND window, int command, HWND, UINT notification) {
    switch (command) {
        case IDC_NOTE_EDIT:
            if (notification == EN_CHANGE) ++theNoteEditor.changes;
            break;
        case IDCANCEL: Escape(); break;
        case IDM_EDIT_NOTE: OpenNote(); break;
        case IDC_NOTE_SAVE: UnlessSaving(SaveTypedNote); break;
        case IDC_NOTE_CANCEL: Cancel(); break;
        case IDC_NOTE_HELP: OpenHelpTopic(window, kHelpFile, kTopicNoteEditor); break;
    }
}

static LRESULT OnNotify(HWND window, int control, NMHDR* notification) {
    if (control == IDC_NOTE_EDIT && notification->code == EN_SELCHANGE) FollowNoteEditSelection();
    return DefWindowProcA(window, WM_NOTIFY, static_cast<WPARAM>(control), reinterpret_cast<LPARAM>(notification));
}

static void OnSetFocus(HWND, HWND) {
    SetFocus(theNoteEdit.window);
}

void ScaleNoteEditor() {
    const HWND window = theNoteEditor.window;
    for (const int button : kButtons)
        SendDlgItemMessageA(window, button, WM_SETFONT, reinterpret_cast<WPARAM>(MessageFont(window)), TRUE);
    RECT client{};
    GetClientRect(window, &client);
    OnSize(window, SIZE_RESTORED, client.right, client.bottom);
    InvalidateRect(window, nullptr, TRUE);
}

static void CreateControls(HWND window) {
    static constexpr const char* kTexts[] = {"Save", "Cancel", "Help"};
    static_assert(std::size(kTexts) == std::size(kButtons));
    for (std::size_t i = 0; i < std::size(kButtons); ++i) {
        const HWND button =
            CreateChild(window, "BUTTON", kTexts[i], WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON, 0, kButtons[i]);
        theNoteEditor.buttonProcedure = Subclass(button, ButtonProcedure);
    }
    CreateNoteEditControl(window);
    ScaleNoteEditor();
}

static BOOL OnCreate(HWND window, CREATESTRUCTA*) {
    theNoteEditor.window = window;
    CreateControls(window);
    theNoteEditor.nextViewer = SetClipboardViewer(window);
    return TRUE;
}

static void OnDestroy(HWND window) {
    ChangeClipboardChain(window, theNoteEditor.nextViewer);
    RestoreNoteEditControl();
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
        case kTellReadOnly: MessageBoxA(Frame(), kReadOnlyNote, "Note Editor", MB_OK | MB_ICONEXCLAMATION); return 0;
        case WM_DRAWCLIPBOARD: OnDrawClipboard(); return 0;
        case WM_CHANGECBCHAIN:
            OnChangeCbChain(reinterpret_cast<HWND>(wParam), reinterpret_cast<HWND>(lParam));
            return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

bool RegisterNoteEditorClass() {
    return RegisterPaneClass(kNoteEditorClass, EditorProcedure, COLOR_BTNFACE);
}

void CreateNoteEditor(HWND frame) {
    CreateChild(frame, kNoteEditorClass, "Note Editor", WS_CLIPCHILDREN | WS_CLIPSIBLINGS, 0, IDC_NOTE_EDITOR);
}
