// The scripture files: where they are, and what they hold.
#pragma once

#include <string>

#include "cli/command.h"
#include "scripture/scripture.h"
#include "search/word_index.h"

// The folder that the user names by --data or VERSEWELL_DATA, otherwise the first of the usual ones with a text.
// Complains if there is none.
std::string TextFolder(const Vw& vw);

// Its verses, and its word index. Complain if they cannot be read.
Scripture TextOf(const Vw& vw);
WordIndex IndexOf(const Vw& vw);

// The path of a file in a folder.
std::string PathIn(const std::string& folder, const std::string& name);

// The folder of the window's settings and notes: --folder or VERSEWELL_FOLDER, otherwise the usual one.
std::string WorkingFolder(const Vw& vw);

// What named that folder, for messages: "--folder" or "VERSEWELL_FOLDER".
const char* FolderArgument(const Vw& vw);

// The value of a variable of the environment that is set and not empty.
std::optional<std::string> VariableOf(const Vw& vw, const char* name);
