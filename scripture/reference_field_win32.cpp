#include "scripture/reference_field_win32.h"

#include "scripture/scripture_win32.h"
#include "win32/controls.h"

void FillReferenceField(HWND dialog, int field, const std::string& text) {
    SendDlgItemMessageA(dialog, field, EM_LIMITTEXT, kReferenceLimit, 0);
    SetDlgItemTextA(dialog, field, text.c_str());
}

static ParsedRange Parsed(const std::string& typed, Asked asked) {
    if (asked == Asked::kRange) return ParseRange(theScripture.records, typed);
    const ParsedReference reference = ParseReference(theScripture.records, typed);
    return {reference.ok, reference.verse, reference.verse, typed};
}

ParsedRange TakeReference(HWND dialog, int field, Asked asked) {
    const std::string typed = ControlText(dialog, field, kReferenceLimit);
    if (typed.empty()) {
        EndDialog(dialog, IDCANCEL);
        return {};
    }
    ParsedRange verses = Parsed(typed, asked);
    if (!verses.ok) {
        Complain(dialog, kUnrecognizedReference);
        SelectField(dialog, field);
    }
    return verses;
}
