// What is wrong with note sets, for `vw notes verify` and `vw doctor`.
#pragma once

#include <string>
#include <vector>

#include "notes/note_recovery.h"

// Sentences about one set or file each, in UTF-8.
using Findings = std::vector<std::string>;

// What the opening of the sets has found, and what reading all of them finds. What can be mended is mended in `files`.
Findings CheckSets(const NoteFiles& files, NoteSets& notes, const OpenedSets& opened);

// Was it mended by the check that has `found` it? `left` is what the next check finds.
bool IsMended(const std::string& finding, const Findings& found, const Findings& left);
