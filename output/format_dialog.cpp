#include "output/format_dialog.h"

#include "notes/note_letters.h"
#include "output/copy_text.h"
#include "resources/help_topics.h"
#include "resources/ids.h"
#include "scripture/scripture_win32.h"
#include "win32/code_page.h"
#include "win32/controls.h"
#include "win32/dialogs.h"
#include "win32/help_viewer.h"

FormatOptions theFormat;

namespace {

// Radio buttons for the values 0, 1, ... of an option. The last one also represents all other values.
struct Choice {
    int first, last;
    std::int8_t FormatOptions::*option;
};

}  // namespace

static constexpr Choice kChoices[] = {
    {IDC_FIRST_FULL, IDC_FIRST_NONE, &FormatOptions::FirstVerseStyle},
    {IDC_SUBSEQUENT_FULL, IDC_SUBSEQUENT_NONE, &FormatOptions::SubsequentVerseStyle},
    {IDC_LABEL_BEFORE, IDC_LABEL_AFTER, &FormatOptions::Location},
};

namespace {

struct Switch {
    int box;
    int FormatOptions::*option;
};

}  // namespace

static constexpr Switch kSwitches[] = {
    {IDC_LINE_BREAKS, &FormatOptions::LineBreaks},
    {IDC_PARAGRAPH_MARKS, &FormatOptions::ParagraphMarks},
    {IDC_BRACKETS, &FormatOptions::Brackets},
};

static int ButtonFor(const Choice& choice, int value) {
    const bool hasOwn = value >= 0 && value < choice.last - choice.first;
    return hasOwn ? choice.first + value : choice.last;
}

static int CheckedValue(HWND dialog, const Choice& choice) {
    int button = choice.first;
    while (button < choice.last && !IsChecked(dialog, button)) ++button;
    return button - choice.first;
}

static FormatOptions Chosen(HWND dialog) {
    FormatOptions format;
    for (const Choice& choice : kChoices)
        format.*choice.option = static_cast<std::int8_t>(CheckedValue(dialog, choice));
    for (const Switch& option : kSwitches) format.*option.option = IsChecked(dialog, option.box);
    return format;
}

// The shortest verses on which every choice shows: the first has a supplied word, the second begins a paragraph.
static void ShowCopiedVerses(HWND dialog) {
    static constexpr int kJohn = 43, kChapter = 14, kVerse = 14;
    const int first = VerseLookup(theScripture.records, kJohn, kChapter, kVerse);
    const CopyText copied =
        CopyRangeText(theScripture, Chosen(dialog), first, first + 1, RangeCopyBudget(first, first + 1));
    SetDlgItemTextW(dialog, IDC_COPIED_VERSES, Wide(LatinLetters(nullptr, copied.text)).c_str());
}

static void Fill(HWND dialog) {
    for (const Choice& choice : kChoices)
        CheckRadioButton(dialog, choice.first, choice.last, ButtonFor(choice, theFormat.*choice.option));
    for (const Switch& option : kSwitches) SetChecked(dialog, option.box, theFormat.*option.option != 0);
    ShowCopiedVerses(dialog);
}

static void OnOk(HWND dialog) {
    theFormat = Chosen(dialog);
    EndDialog(dialog, IDOK);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicFormat); break;
        default: ShowCopiedVerses(dialog);  // another choice
    }
}

void AskFormat(HWND owner) {
    RunDialog(owner, {"FORMAT", Fill, OnCommand});
}
