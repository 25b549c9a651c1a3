// What the program does with its arguments (app/command_line.h), its own and those of copies that are started later.
#pragma once

#include <string>

#include "app/command_line.h"
#include "win32/windows_api.h"

ProgramArguments ArgumentsOfProcess();

// Makes the folder of /folder the current one. False, after a message, if there is none or it cannot be opened; the
// caller exits then.
bool EnterArgumentFolder(const ProgramArguments& arguments);

// To be called once the working folder is settled. If it is not the folder of /folder, asks whether to start with the
// notes that are there. False if not; the caller exits then.
bool AcceptOtherFolder(const ProgramArguments& arguments);

// Answers --help and --version: into the file or the pipe that takes the output, else on the console that the program
// was started from, else in a message box. False if neither was asked for; otherwise the caller exits.
bool AnswerArguments(const ProgramArguments& arguments);

// Goes to the verse of the reference, if there is one. If that is not possible, the status bar says why.
void GoToArgument(const std::u16string& reference);

// Passes on the reference, if there is one, to the running copy that has this frame, and tells the user if it does not
// answer.
void PassOnReference(HWND frame, const std::u16string& reference);

// WM_COPYDATA: goes to the reference that a second copy passes on. Ignores, and returns false for, messages of another
// user's programs and those that are not well formed.
bool OnCopyData(HWND sender, const COPYDATASTRUCT& data);
