#include "passage/goto_verse_dialog.h"

#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_parser.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

static void Fill(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_REFERENCE, EM_LIMITTEXT, kReferenceLimit, 0);
    const std::string verse = ReferenceText(theScripture.records, thePassage.view.TopVerse, BookForm::kAbbreviation);
    SetDlgItemTextA(dialog, IDC_REFERENCE, verse.c_str());
}

static void OnOk(HWND dialog) {
    const std::string typed = ControlText(dialog, IDC_REFERENCE, kReferenceLimit);
    if (typed.empty()) {
        EndDialog(dialog, IDCANCEL);
        return;
    }
    const ParsedReference reference = ParseReference(theScripture.records, typed);
    if (!reference.ok) {
        Complain(dialog, kUnrecognizedReference);
        SelectField(dialog, IDC_REFERENCE);
        return;
    }
    EndDialog(dialog, IDOK);
    ScrollToVerse(reference.verse);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicGotoVerse); break;
    }
}

void AskGotoVerse(HWND frame) {
    RunDialog(frame, {"GOTOVERSE", Fill, OnCommand});
}
