// Helpers for tests in which the program ends without warning and is started again.
#pragma once

#include <string>
#include <string_view>

#include "tests/driver/driver.h"

constexpr char kSessionFileName[] = "Versewell.session";

// Does the session file hold `text`, in a setting or a note?
bool HoldsSession(const ScratchFolder& folder, std::string_view text);
void WaitForSession(const Program& program, std::string_view text);

// Ends the program as the Task Manager does.
void Kill(const Program& program);

// The folder of a program that was killed while "Mine. " was typed before "The first." in the note for Genesis 1:1 of
// the set "Mine".
ScratchFolder FolderOfKilledEdit();

// The question about that note.
extern const char* const kContinueMine;

// Starts in a folder that a killed program left, and answers the question about the note of Genesis 1:1 in "Mine" with
// a key.
Program StartAfterKill(const ScratchFolder& folder, const char* answer);

// Starts in any folder that a killed program left, and answers what the start reports with OK.
Program StartOnWhatWasLeft(const ScratchFolder& folder);
