// The table of commands, apart from the run, so that the manual can be made of it.
#include "cli/command_table.h"

static constexpr const Command* kCommands[] = {
    &kReadCommand,  &kFindCommand, &kWordsCommand,  &kWhatCommand,   &kTodayCommand,
    &kNotesCommand, &kTextCommand, &kDoctorCommand, &kManualCommand, &kCompletionCommand,
};

std::span<const Command* const> TheCommands() {
    return kCommands;
}
