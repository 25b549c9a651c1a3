// The rows of all commands, each of which is defined in the file of its name.
#pragma once

#include "cli/command.h"

extern const Command kReadCommand;
extern const Command kFindCommand;
extern const Command kWordsCommand;
extern const Command kWhatCommand;
extern const Command kTodayCommand;
extern const Command kNotesCommand;
extern const Command kTextCommand;
extern const Command kDoctorCommand;
extern const Command kManualCommand;
extern const Command kCompletionCommand;

// Shows what follows by the user's pager if the output is a terminal.
void StartPager(Vw& vw);
