// The files that the save commands write.
#pragma once

#include <string>

#include "output/saved_text.h"
#include "win32/handles.h"

inline constexpr char kCannotCreateText[] = "Could not open file for writing";

// A new file at `path`, in the place of one that is there; none where it cannot be made.
OwnedFile CreateTextFile(const std::string& path);

// What is written to `file`, which must stay. Where there is no file, every write fails.
TextFile TextFileOf(const OwnedFile& file);
