#include "output/format_dialog.h"

#include "resources/help_topics.h"
#include "resources/ids.h"
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

static void Fill(HWND dialog) {
    for (const Choice& choice : kChoices)
        CheckRadioButton(dialog, choice.first, choice.last, ButtonFor(choice, theFormat.*choice.option));
    for (const Switch& option : kSwitches) SetChecked(dialog, option.box, theFormat.*option.option != 0);
}

static void Read(HWND dialog) {
    for (const Choice& choice : kChoices)
        theFormat.*choice.option = static_cast<std::int8_t>(CheckedValue(dialog, choice));
    for (const Switch& option : kSwitches) theFormat.*option.option = IsChecked(dialog, option.box);
}

static void OnOk(HWND dialog) {
    Read(dialog);
    EndDialog(dialog, IDOK);
}

static void OnCommand(HWND dialog, int control, UINT) {
    switch (control) {
        case IDOK: OnOk(dialog); break;
        case IDC_HELP_BUTTON: OpenHelpTopic(dialog, kHelpFile, kTopicFormat); break;
    }
}

void AskFormat(HWND owner) {
    RunDialog(owner, {"FORMAT", Fill, OnCommand});
}
