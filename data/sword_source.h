// Reads the verses of an installed module with libsword, without converting them.
#pragma once

#include <string>

#include "data/verses.h"

// Reads all verses of the King James versification from module `name`, version `version`, in canonical order and with
// their mark-up. `folder` contains `mods.d` and `modules`; empty for the installed SWORD modules. The complaint says
// that the module is missing, of another version, or which verse cannot be read.
Complaint ReadSwordModule(const std::string& folder, const char* name, const char* version, Verses& verses);
