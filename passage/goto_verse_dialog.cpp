#include "passage/goto_verse_dialog.h"

#include "passage/passage_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_parser.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"
#include "win32/screen.h"

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

static BOOL OnInitDialog(HWND dialog, HWND, LPARAM) {
    PlaceDialog(dialog);
    Fill(dialog);
    return TRUE;
}

static void OnCommand(HWND dialog, int control, HWND, UINT) {
    switch (control) {
        case IDOK:
            OnOk(dialog);
            break;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            break;
        case IDC_HELP_BUTTON:
            OpenHelpTopic(dialog, kHelpFile, kTopicGotoVerse);
            break;
    }
}

static INT_PTR CALLBACK GotoVerseProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            return HANDLE_WM_INITDIALOG(dialog, wParam, lParam, OnInitDialog);
        case WM_COMMAND:
            HANDLE_WM_COMMAND(dialog, wParam, lParam, OnCommand);
            return TRUE;
    }
    return FALSE;
}

void AskGotoVerse(HWND frame) {
    RunDialog(frame, "GOTOVERSE", GotoVerseProcedure);
}
