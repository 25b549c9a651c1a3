// Helpers for tests of taking over notes.
#pragma once

#include <string>

#include "tests/driver/driver.h"

inline constexpr char kTakeOver[] = "Take Over Notes";
inline constexpr char kFolderDialog[] = "Folder of the other copy of Versewell";

// Answers the question, or closes the message, with a button and returns its text.
std::string AnswerQuestion(const Program& program, int button);

void ChooseFolder(const Program& program, const ScratchFolder& folder);
