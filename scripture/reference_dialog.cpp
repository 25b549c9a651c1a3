#include "scripture/reference_dialog.h"

#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/controls.h"
#include "win32/help_viewer.h"

// ---- The field ------------------------------------------------------------------------------------------------------

void FillReferenceField(HWND dialog, int field, const std::string& text) {
    SendDlgItemMessageA(dialog, field, EM_LIMITTEXT, kReferenceLimit, 0);
    SetDlgItemTextA(dialog, field, text.c_str());
}

static std::string MeaningOfVerse(HWND dialog, int field) {
    return ReferenceMeaning(theScripture.records, ControlText(dialog, field, kReferenceLimit), Asked::kVerse);
}

static std::string MeaningOfRange(HWND dialog, int field) {
    return ReferenceMeaning(theScripture.records, ControlText(dialog, field, kReferenceLimit), Asked::kRange);
}

Meaning MeaningOfReference(int field, Asked asked) {
    return {field, IDC_REFERENCE_MEANING, asked == Asked::kVerse ? MeaningOfVerse : MeaningOfRange};
}

ParsedRange TakeReference(HWND dialog, int field, Asked asked) {
    const std::string typed = ControlText(dialog, field, kReferenceLimit);
    if (typed.empty()) {
        EndDialog(dialog, IDCANCEL);
        return {};
    }
    ParsedRange verses = ParseAsked(theScripture.records, typed, asked);
    if (!verses.ok) {
        Complain(dialog, kUnrecognizedReference);
        SelectField(dialog, field);
    }
    return verses;
}

// ---- Asking for one verse -------------------------------------------------------------------------------------------

static const VerseDialog& QuestionOf(HWND dialog) {
    return *static_cast<const VerseDialog*>(DataOf(dialog));
}

static void Fill(HWND dialog) {
    FillReferenceField(dialog, IDC_REFERENCE, QuestionOf(dialog).start);
}

static void OnOk(HWND dialog) {
    const ParsedRange verse = TakeReference(dialog, IDC_REFERENCE, Asked::kVerse);
    if (!verse.ok) return;
    EndDialog(dialog, IDOK);
    QuestionOf(dialog).take(verse.first);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, QuestionOf(dialog).helpTopic); break;
    }
}

void AskVerse(HWND frame, const VerseDialog& dialog) {
    RunDialog(frame, {dialog.resource, Fill, OnCommand, &dialog, MeaningOfReference(IDC_REFERENCE, Asked::kVerse)});
}
