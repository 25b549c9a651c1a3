#include "search/set_range_dialog.h"

#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/reference_field_win32.h"
#include "scripture/scripture_win32.h"
#include "search/search_win32.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

static std::string CurrentRange() {
    return RangeText(theScripture.records, theSearch.range.StartVerse, theSearch.range.EndVerse);
}

void ShowSearchRange(HWND frame) {
    SetStatusPart(GetDlgItem(frame, IDC_STATUS_BAR), kRangePart, CurrentRange());
}

static void Fill(HWND dialog) {
    FillReferenceField(dialog, IDC_RANGE, CurrentRange());
}

static void OnOk(HWND dialog) {
    const ParsedRange range = TakeReference(dialog, IDC_RANGE, Asked::kRange);
    if (!range.ok) return;
    EndDialog(dialog, IDOK);
    theSearch.range = {range.first, range.last};
    ShowSearchRange(FrameOf(dialog));
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicSetRange); break;
        case IDC_OLD_TESTAMENT: SetDlgItemTextA(dialog, IDC_RANGE, "Ge - Mal"); break;
        case IDC_NEW_TESTAMENT: SetDlgItemTextA(dialog, IDC_RANGE, "Mt - Re"); break;
        case IDC_ENTIRE_BIBLE: SetDlgItemTextA(dialog, IDC_RANGE, "Ge - Re"); break;
    }
}

void AskSearchRange(HWND owner) {
    RunDialog(owner, {"SETRANGE", Fill, OnCommand});
}
