// The one door to libsword: the verses of an installed module as they lie in it.
#pragma once

#include <string>

#include "data/verses.h"

// Reads all verses of the King James versification from module `name`, version `version`, in canonical order and with
// their mark-up untouched. `folder` holds `mods.d` and `modules`; empty for wherever SWORD modules are installed. The
// complaint says that the module is missing, of another version, or which verse of it cannot be read.
Complaint ReadSwordModule(const std::string& folder, const char* name, const char* version, Verses& verses);
