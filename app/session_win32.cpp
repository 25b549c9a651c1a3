#include "app/session_win32.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "app/frame_win32.h"
#include "app/reference_index_win32.h"
#include "app/search_commands_win32.h"
#include "app/session.h"
#include "app/session_pace.h"
#include "app/set_checks_win32.h"
#include "app/spare_memory_win32.h"
#include "app/startup_win32.h"
#include "notes/note_editor_window.h"
#include "notes/note_files_win32.h"
#include "notes/note_history.h"
#include "notes/note_saving.h"
#include "notes/note_view_text_win32.h"
#include "notes/notes_window.h"
#include "notes/whole_files.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/crash_dump.h"
#include "win32/files.h"

static constexpr char kCaption[] = "Versewell97";
static constexpr char kNotKept[] =
    "The text could not be stored elsewhere. It will be offered again at the next start.";

namespace {

struct KeptSession {
    Session last;            // of the last run, until it has been offered
    bool isOffered = false;  // it has been
    bool isBlocked = false;  // a file that cannot be read or moved is in the way
    bool isOn = false;
    bool isWriting = false;
    bool isEnding = false;  // what is still in the editor has been given up by the user
    SessionPace pace;
    std::vector<NoteDraft> leftDrafts;  // of earlier sessions, not stored anywhere else
    std::optional<NoteDraft> draft;     // the editor's, at the last check
    unsigned editorChanges = 0;         // at the last check
    std::vector<unsigned char> bytes;   // of the file if it had been written at the last check
    std::vector<unsigned char> bytesInFile;
};

}  // namespace

static KeptSession theKept;

// ---- Writing --------------------------------------------------------------------------------------------------------

static Session CurrentSession() {
    Session session{CurrentSettingTexts(), theKept.leftDrafts};
    if (theKept.draft && !theKept.isEnding) session.drafts.push_back(*theKept.draft);
    return session;
}

// Reading the editor's text takes longer than the rest, so it is only read when it has changed.
static SessionCheck CheckSession() {
    if (theKept.editorChanges != EditorChanges()) {
        theKept.editorChanges = EditorChanges();
        theKept.draft = DraftInEditor();
    }
    std::vector<unsigned char> bytes = SessionBytes(CurrentSession());
    const SessionCheck check{bytes != theKept.bytesInFile, bytes != theKept.bytes};
    theKept.bytes = std::move(bytes);
    return check;
}

static void WriteChecked() {
    const std::uint64_t start = GetTickCount64();
    const bool written = WriteWholeFile(TheNoteFiles(), kSessionFile, theKept.bytes);
    if (written) theKept.bytesInFile = theKept.bytes;
    const std::uint64_t end = GetTickCount64();
    NoteWrite(theKept.pace, written, end - start, end);
}

// A crash inside comes back here.
static void UnlessWriting(void (*work)()) {
    if (!theKept.isOn || theKept.isWriting) return;
    theKept.isWriting = true;
    work();
    theKept.isWriting = false;
}

static void WriteIfDue() {
    if (IsWriteDue(theKept.pace, CheckSession(), GetTickCount64())) WriteChecked();
}

static void WriteIfChanged() {
    if (CheckSession().differsFromFile) WriteChecked();
}

void WriteSession() {
    UnlessWriting(WriteIfChanged);
}

// ---- The message loop -----------------------------------------------------------------------------------------------

static DWORD TimeToCheck() {
    const std::uint64_t now = GetTickCount64();
    if (theKept.pace.checkAt == 0 || !theKept.isOn) return INFINITE;
    return theKept.pace.checkAt > now ? static_cast<DWORD>(theKept.pace.checkAt - now) : 0;
}

// The caret blinks, the mouse moves and windows are painted without any change.
static bool IsActivity(UINT message) {
    static constexpr UINT kSystemTimer = 0x118;
    switch (message) {
        case kSystemTimer:
        case WM_TIMER:
        case WM_PAINT:
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE: return false;
    }
    return true;
}

static void KeepSession() {
    if (IsCheckDue(theKept.pace, GetTickCount64())) UnlessWriting(WriteIfDue);
}

bool NextMessage(MSG& message) {
    bool isAwake = false;
    while (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (isAwake) NoteActivity(theKept.pace, GetTickCount64());  // awake for a sent message
        isAwake = false;
        if (CompleteNoteView(theNotes.view) || PrepareSearchesInIdleTime() || CheckSetsInIdleTime()) continue;
        if (IndexInIdleTime()) continue;
        const DWORD patience = std::min({TimeToCheck(), TimeToRest(), TimeToIndex()});
        isAwake = MsgWaitForMultipleObjectsEx(0, nullptr, patience, QS_ALLINPUT, MWMO_INPUTAVAILABLE) != WAIT_TIMEOUT;
        GiveBackSpareMemory();
        KeepSession();
    }
    PutOffRest();
    if (message.message == WM_NCLBUTTONDOWN) WriteSession();  // scroll bars, too, have a loop of their own
    if (IsActivity(message.message)) {
        NoteActivity(theKept.pace, GetTickCount64());
        PutOffIndexing();
    }
    KeepSession();
    return message.message != WM_QUIT;
}

// ---- The last session -----------------------------------------------------------------------------------------------

static std::wstring CrashFolder() {
    return WorkingFilePath("crash");
}

static void TellOfCrashes() {
    for (const std::wstring& path : TakeNewCrashDumps(CrashFolder())) {
        const std::wstring text =
            L"Versewell ended because of a fault. What a developer needs to find it is in the file\n\n" + path +
            L"\n\nNothing has been sent anywhere.";
        MessageBoxW(theFrame.window, text.c_str(), L"Versewell97", MB_OK | MB_ICONINFORMATION);
    }
}

// The windows belong to the program's main thread. Another thread that crashes makes it write as it does before a menu.
static void RescueSession() {
    static constexpr UINT kPatience = 3000;  // milliseconds
    if (GetWindowThreadProcessId(theFrame.window, nullptr) == GetCurrentThreadId())
        WriteSession();
    else
        SendMessageTimeoutA(theFrame.window, WM_ENTERMENULOOP, FALSE, 0, SMTO_ABORTIFHUNG, kPatience, nullptr);
}

void OpenLastSession() {
    WatchForCrashes(CrashFolder(), L"Versewell", RescueSession);
    const NoteFiles& files = TheNoteFiles();
    const LastSession found = ReadLastSession(files, theKept.last);
    theKept.isBlocked = found == LastSession::kInTheWay;
    if (found != LastSession::kLeft) return;
    theKept.bytesInFile = SessionBytes(theKept.last);
    if (!IsSessionOutdated(files)) StartWith(theKept.last.settings, files.stamp(files.device, kSessionFile).time);
}

// Was it saved just before the last run ended?
static bool IsStored(const NoteDraft& draft, int set) {
    NoteSets notes = theNoteSets;
    SelectStoredNote(notes, set, draft.verse);
    std::string stored;
    return ReadStoredNote(TheNoteFiles(), notes, stored) && stored == TextForNote(draft.text, kNoteTextLimit);
}

static bool Keep(const NoteDraft& draft) {
    const EarlierNote note{NoteTimeNow().seconds, draft.verse, KeptReason::kInterrupted, draft.text};
    if (KeepEarlierNotes(TheNoteFiles(), draft.setName, std::span(&note, 1))) return true;
    theKept.leftDrafts.push_back(draft);
    return false;
}

static void KeepAndTell(const NoteDraft& draft, const std::string& why) {
    static constexpr char kKept[] = "The text is kept among the earlier notes of that name.";
    const std::string text = why + ' ' + (Keep(draft) ? kKept : kNotKept);
    MessageBoxA(theFrame.window, text.c_str(), kCaption, MB_OK | MB_ICONEXCLAMATION);
}

static void Offer(const NoteDraft& draft) {
    const std::string ended = "Versewell ended while you were writing the note for " +
                              ReferenceText(theScripture.records, draft.verse, BookForm::kName) + " in \"" +
                              draft.setName + "\".";
    const int set = SetNamed(theNoteSets, draft.setName);
    if (set == kNoSet) return KeepAndTell(draft, ended + " There is no such note set any more.");
    if (IsStored(draft, set)) return;
    const std::string question = ended + " Continue?";
    const bool isWanted = MessageBoxA(theFrame.window, question.c_str(), kCaption, MB_YESNO | MB_ICONQUESTION) == IDYES;
    if (isWanted && !EditDraft(draft)) return KeepAndTell(draft, "The note cannot be edited now.");
    if (!isWanted && !Keep(draft)) Complain(theFrame.window, kNotKept, kCaption);
}

void OfferTakenNotes() {
    if (!theKept.isOffered) return;
    const std::vector<NoteDraft> drafts = std::exchange(theFrame.takenDrafts, {});
    for (const NoteDraft& draft : drafts) Offer(draft);
}

void OfferLastSession() {
    if (!theFrame.startUpComplete) return;
    TellOfCrashes();
    const std::vector<NoteDraft> drafts = std::move(theKept.last.drafts);
    for (const NoteDraft& draft : drafts) Offer(draft);
    theKept.isOffered = true;
    OfferTakenNotes();
    theKept.isOn = !theKept.isBlocked;
    CheckSession();
    if (theKept.bytesInFile.empty()) theKept.bytesInFile = theKept.bytes;  // no file, and nothing has changed
    NoteActivity(theKept.pace, GetTickCount64());
}

// ---- The end --------------------------------------------------------------------------------------------------------

// Without a file there is nothing to remove. What cannot be removed has no more than the settings file.
static void Leave(bool isSettled) {
    const NoteFiles& files = TheNoteFiles();
    if (isSettled)
        files.remove(files.device, kSessionFile);
    else
        WriteSession();
}

void EndSession() {
    if (!theFrame.startUpComplete) return;
    theKept.isEnding = true;
    const bool written = WriteSettings();
    if (theKept.isOn) Leave(written && theKept.leftDrafts.empty());
    theKept.isOn = false;
}

void SuspendSession() {
    if (!theFrame.startUpComplete) return;
    const bool written = WriteSettings();
    if (theKept.isOn) Leave(written && theKept.leftDrafts.empty() && !DraftInEditor());
}
