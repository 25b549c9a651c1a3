// The dialogs that ask for a note set's name.
#pragma once

#include <optional>
#include <string>

#include "win32/windows_api.h"

// Create New Note Set: returns the typed name, at most kNoteSetNameLimit letters, which the code page may lack;
// nullopt on Cancel.
std::optional<std::u16string> AskNewSetName(HWND frame);

// The same for a new name of the set `name`, which is the initial text of the field.
std::optional<std::u16string> AskChangedSetName(HWND frame, const std::string& name);
