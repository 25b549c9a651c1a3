#include "history/earlier_notes_dialog.h"

#include "history/local_times_win32.h"
#include "history/marked_text_win32.h"
#include "history/state_lines.h"
#include "notes/note_copy_win32.h"
#include "notes/note_files_win32.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"
#include "win32/plain_text.h"

namespace {

struct AskedNote {
    const NoteHistory& history;
    std::optional<std::string>* chosen;
};

}  // namespace

static constexpr std::size_t kFirstWords = 160;  // more than the column can show

static const NoteHistory& HistoryOf(HWND dialog) {
    return static_cast<const AskedNote*>(DataOf(dialog))->history;
}

static std::u16string LettersIn(const EarlierNote& note) {
    return LettersOfNote(TheNoteFiles().codePage, note.text);
}

static std::wstring LineOf(const EarlierNote& note) {
    return WideOfCodePage(LocalDateAndTime(note.time) + "\t" + ReasonText(note.reason) + "\t") +
           Wide(FirstWords(LettersIn(note), kFirstWords));
}

static const EarlierNote* SelectedNote(HWND dialog) {
    const auto line = SendDlgItemMessageA(dialog, IDC_STATES, LB_GETCURSEL, 0, 0);
    return line == LB_ERR ? nullptr : &HistoryOf(dialog).texts[static_cast<std::size_t>(line)];
}

static void ShowSelected(HWND dialog) {
    const EarlierNote* note = SelectedNote(dialog);
    if (note != nullptr) ShowMarkedText(GetDlgItem(dialog, IDC_STATE_TEXT), note->text, HistoryOf(dialog).now);
}

static constexpr int kColumns[] = {94, 190};
static constexpr ListColumns kLists[] = {{IDC_STATES, kColumns}};

static void FillList(HWND dialog) {
    for (const EarlierNote& note : HistoryOf(dialog).texts)
        SendDlgItemMessageW(dialog, IDC_STATES, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(LineOf(note).c_str()));
    SendDlgItemMessageA(dialog, IDC_STATES, LB_SETCURSEL, 0, 0);
}

static void Fill(HWND dialog) {
    SetWindowTextA(dialog, HistoryOf(dialog).title.c_str());
    FillList(dialog);
    if (HistoryOf(dialog).texts.empty()) {
        SetPlainText(
            GetDlgItem(dialog, IDC_STATE_TEXT),
            u"There are no earlier texts of this note. From now on, each text that a save replaces is kept here, "
            u"and so is an edit that is not saved.");
        for (const int button : {IDOK, IDC_COPY_STATE}) EnableWindow(GetDlgItem(dialog, button), FALSE);
    }
    ShowSelected(dialog);
}

static void Copy(HWND dialog) {
    const EarlierNote* note = SelectedNote(dialog);
    if (note != nullptr) CopyNoteText(dialog, LettersIn(*note));
}

static void OnOk(HWND dialog) {
    const EarlierNote* note = SelectedNote(dialog);
    if (note == nullptr) return;
    *static_cast<const AskedNote*>(DataOf(dialog))->chosen = note->text;
    EndDialog(dialog, IDOK);
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_STATES:
            if (notification == LBN_SELCHANGE) ShowSelected(dialog);
            if (notification == LBN_DBLCLK) OnOk(dialog);
            break;
        case IDC_COPY_STATE: Copy(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicEarlierNotes); break;
    }
}

std::optional<std::string> AskEarlierNote(HWND frame, const NoteHistory& history) {
    std::optional<std::string> chosen;
    const AskedNote asked{history, &chosen};
    RunDialog(frame, {.name = "EARLIERNOTES",
                      .fill = Fill,
                      .command = OnCommand,
                      .data = &asked,
                      .rescaled = ShowSelected,  // a new font takes away the marks
                      .recolored = ShowSelected,
                      .lists = kLists});
    return chosen;
}
