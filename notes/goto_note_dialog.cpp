#include "notes/goto_note_dialog.h"

#include "notes/notes_window.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_field_win32.h"
#include "scripture/scripture_win32.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

static void Fill(HWND dialog) {
    const int verse = theNotes.sets.currentVerse;
    FillReferenceField(dialog, IDC_REFERENCE, ReferenceText(theScripture.records, verse, BookForm::kName));
}

static void OnOk(HWND dialog) {
    const ParsedRange verse = TakeReference(dialog, IDC_REFERENCE, Asked::kVerse);
    if (!verse.ok) return;
    EndDialog(dialog, IDOK);
    ReadNote(verse.first);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicGotoNote); break;
    }
}

void AskGotoNote(HWND frame) {
    RunDialog(frame, {"GOTONOTE", Fill, OnCommand});
}
