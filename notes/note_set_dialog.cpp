#include "notes/note_set_dialog.h"

#include <utility>

#include "notes/note_set_changes.h"
#include "pane/status_bar_win32.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

namespace {

struct AskedName {
    std::string title;     // empty for that of the resource
    std::u16string* name;  // in: initial text of the field; out: the typed text
};

}  // namespace

static const AskedName& AskedBy(HWND dialog) {
    return *static_cast<const AskedName*>(DataOf(dialog));
}

static void Fill(HWND dialog) {
    const AskedName& asked = AskedBy(dialog);
    SendDlgItemMessageA(dialog, IDC_SET_NAME, EM_LIMITTEXT, kNoteSetNameLimit, 0);
    SetDlgItemTextW(dialog, IDC_SET_NAME, Wide(*asked.name).c_str());
    if (!asked.title.empty()) SetWindowTextA(dialog, asked.title.c_str());
}

static void OnOk(HWND dialog) {
    *AskedBy(dialog).name = LettersOf(WideControlText(dialog, IDC_SET_NAME, kNoteSetNameLimit));
    EndDialog(dialog, IDOK);
}

// What is pasted would be cut without a word.
static std::string LimitText() {
    return "The name of a note set has at most " + std::to_string(kNoteSetNameLimit) + " letters";
}

static void OnCommand(HWND dialog, int control, UINT notification) {
    switch (control) {
        case IDC_SET_NAME:
            if (notification == EN_MAXTEXT) ShowStatus(StatusPart::kSearchSummary, LimitText());
            break;
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicNoteSets); break;
    }
}

static std::optional<std::u16string> Ask(HWND frame, const char* resource, const std::string& title,
                                         std::u16string name) {
    const AskedName asked{title, &name};
    const std::string before = StatusText(StatusPart::kSearchSummary);
    const bool isNamed = RunDialog(frame, {resource, Fill, OnCommand, &asked}) == IDOK;
    if (StatusText(StatusPart::kSearchSummary) == LimitText()) ShowStatus(StatusPart::kSearchSummary, before);
    return isNamed ? std::optional(std::move(name)) : std::nullopt;
}

std::optional<std::u16string> AskNewSetName(HWND frame) {
    return Ask(frame, "CREATENOTESET", "", u"");
}

std::optional<std::u16string> AskChangedSetName(HWND frame, const std::string& name) {
    return Ask(frame, "RENAMENOTESET", "Change name of note set " + name, LettersOf(WideOfCodePage(name)));
}
