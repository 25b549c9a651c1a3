#include "output/copy_range_dialog.h"

#include "output/format_dialog.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_field_win32.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"
#include "win32/save_file_dialog.h"

struct RangeDialog {
    const char* resource;
    const char* helpTopic;
    Asked asked;
};

static constexpr RangeDialog kCopyVerse{"COPYVERSE", kTopicCopyVerse, Asked::kVerse};
static constexpr RangeDialog kCopyRange{"COPYRANGE", kTopicCopyRange, Asked::kRange};
static constexpr RangeDialog kSaveRange{"SAVERANGE", kTopicSaveRange, Asked::kRange};

// A dialog while it is open.
struct Question {
    const RangeDialog& kind;
    int currentVerse;
    const OfferedNoteSets* noteSets;  // none: the answer goes to no file
    RangeToSave& answer;
};

static const Question& QuestionOf(HWND dialog) {
    return *static_cast<const Question*>(DataOf(dialog));
}

static void FillNoteSets(HWND list, const OfferedNoteSets& sets) {
    for (const std::string& name : sets.names)
        SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(sets.current), 0);
}

static void Fill(HWND dialog) {
    const Question& question = QuestionOf(dialog);
    std::string start = ReferenceText(theScripture.records, question.currentVerse, BookForm::kAbbreviation);
    if (question.kind.asked == Asked::kRange) start += " - ";
    FillReferenceField(dialog, IDC_RANGE, start);
    if (question.noteSets) FillNoteSets(GetDlgItem(dialog, IDC_NOTE_SET), *question.noteSets);
}

static int ChosenNoteSet(HWND dialog) {
    if (!IsChecked(dialog, IDC_INCLUDE_NOTES)) return kWithoutNotes;
    return static_cast<int>(SendDlgItemMessageA(dialog, IDC_NOTE_SET, CB_GETCURSEL, 0, 0));
}

static void OnOk(HWND dialog) {
    const Question& question = QuestionOf(dialog);
    RangeToSave& answer = question.answer;
    answer.range = TakeReference(dialog, IDC_RANGE, question.kind.asked);
    if (!answer.range.ok) return;
    if (question.noteSets) {
        answer.noteSet = ChosenNoteSet(dialog);
        answer.path = AskTextFileToSave(dialog, answer.range.text);
    }
    const bool cancelled = question.noteSets && answer.path.empty();
    EndDialog(dialog, cancelled ? IDCANCEL : IDOK);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_FORMAT_BUTTON: AskFormat(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, QuestionOf(dialog).kind.helpTopic); break;
    }
}

static std::optional<RangeToSave> Ask(HWND frame, const RangeDialog& kind, int currentVerse,
                                      const OfferedNoteSets* noteSets) {
    RangeToSave answer;
    const Question question{kind, currentVerse, noteSets, answer};
    if (RunDialog(frame, {kind.resource, Fill, OnCommand, &question}) != IDOK) return std::nullopt;
    return answer;
}

static std::optional<ParsedRange> AskToCopy(HWND frame, const RangeDialog& kind, int currentVerse) {
    const std::optional<RangeToSave> answer = Ask(frame, kind, currentVerse, nullptr);
    if (!answer) return std::nullopt;
    return answer->range;
}

std::optional<ParsedRange> AskVerseToCopy(HWND frame, int currentVerse) {
    return AskToCopy(frame, kCopyVerse, currentVerse);
}

std::optional<ParsedRange> AskRangeToCopy(HWND frame, int currentVerse) {
    return AskToCopy(frame, kCopyRange, currentVerse);
}

std::optional<RangeToSave> AskRangeToSave(HWND frame, int currentVerse, const OfferedNoteSets& noteSets) {
    return Ask(frame, kSaveRange, currentVerse, &noteSets);
}
