#include "output/range_dialog.h"

#include "notes/note_files_win32.h"
#include "output/format_dialog.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_dialog.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/file_dialogs.h"
#include "win32/help_viewer.h"

struct RangeDialog {
    const char* resource;
    const char* helpTopic;
    Asked asked = Asked::kRange;
    BookForm bookForm = BookForm::kAbbreviation;  // of the current verse, the initial text of the field
    bool asksForFile = false;
    bool asksForNotes = false;
};

const RangeDialog kCopyVerse = {.resource = "COPYVERSE", .helpTopic = kTopicCopyVerse, .asked = Asked::kVerse};
const RangeDialog kCopyRange = {.resource = "COPYRANGE", .helpTopic = kTopicCopyRange};
const RangeDialog kSaveRange = {
    .resource = "SAVERANGE", .helpTopic = kTopicSaveRange, .asksForFile = true, .asksForNotes = true};
const RangeDialog kPrintRange = {
    .resource = "PRINTRANGE", .helpTopic = kTopicPrintRange, .bookForm = BookForm::kName, .asksForNotes = true};

namespace {

// State of an open dialog.
struct Question {
    const RangeDialog& kind;
    int currentVerse;
    AskedRange& answer;
};

}  // namespace

static const Question& QuestionOf(HWND dialog) {
    return *static_cast<const Question*>(DataOf(dialog));
}

static void FillNoteSets(HWND list) {
    for (const NoteSet& set : theNoteSets.sets)
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(NoteSetName(set).c_str()));
    SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(theNoteSets.currentSet), 0);
}

static void Fill(HWND dialog) {
    const Question& question = QuestionOf(dialog);
    std::string start = ReferenceText(theScripture.records, question.currentVerse, question.kind.bookForm);
    if (question.kind.asked == Asked::kRange) start += " - ";
    FillReferenceField(dialog, IDC_RANGE, start);
    if (question.kind.asked == Asked::kRange) PutCaretBehind(dialog, IDC_RANGE);  // the user types the end
    if (question.kind.asksForNotes) FillNoteSets(GetDlgItem(dialog, IDC_NOTE_SET));
}

static int ChosenNoteSet(HWND dialog) {
    if (!IsChecked(dialog, IDC_INCLUDE_NOTES)) return kWithoutNotes;
    return static_cast<int>(SendDlgItemMessageA(dialog, IDC_NOTE_SET, CB_GETCURSEL, 0, 0));
}

static void OnOk(HWND dialog) {
    const Question& question = QuestionOf(dialog);
    AskedRange& answer = question.answer;
    answer.range = TakeReference(dialog, IDC_RANGE, question.kind.asked);
    if (!answer.range.ok) return;
    if (question.kind.asksForNotes) answer.noteSet = ChosenNoteSet(dialog);
    if (question.kind.asksForFile) answer.path = AskTextFileToSave(dialog, answer.range.text);
    const bool cancelled = question.kind.asksForFile && answer.path.empty();
    EndDialog(dialog, cancelled ? IDCANCEL : IDOK);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_FORMAT_BUTTON: AskFormat(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, QuestionOf(dialog).kind.helpTopic); break;
    }
}

std::optional<AskedRange> AskRange(HWND frame, const RangeDialog& kind, int currentVerse) {
    AskedRange answer;
    const Question question{kind, currentVerse, answer};
    const Meaning meaning = MeaningOfReference(IDC_RANGE, kind.asked);
    if (RunDialog(frame, {kind.resource, Fill, OnCommand, &question, meaning}) != IDOK) return std::nullopt;
    return answer;
}
