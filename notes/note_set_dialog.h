// The dialogs that ask for a note set's name.
#pragma once

#include <optional>
#include <string>

#include "win32/windows_api.h"

// Create New Note Set: the name that was typed, at most kNoteSetNameLimit characters; none when it was cancelled.
std::optional<std::string> AskNewSetName(HWND frame);

// The same for the new name of the set `name`, which the field begins with.
std::optional<std::string> AskChangedSetName(HWND frame, const std::string& name);
