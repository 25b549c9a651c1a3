// A text in a file of its own, for the user's editor. The file stays where it is until it is removed, so that what was
// typed is not lost if it cannot be saved.
#pragma once

#include <string>

#include "cli/command.h"

struct Draft {
    std::string path;
    std::string original;  // the bytes at the beginning
};

// Makes the file. Text in UTF-8 whose lines end in LF; the file's are those of the system's editors. Complains if that
// is not possible.
Draft MakeDraft(const Vw& vw, const std::string& text);

// Puts another text into the file. Complains if it cannot; then the file is as it was.
void WriteDraft(const Vw& vw, const Draft& draft, const std::string& text);

// Shows the file to the user in an editor and gives its text, without the end of the last line, which editors add.
// Complains if there is no editor, if it failed, or if the file is no text in UTF-8 afterwards.
std::string EditDraft(const Vw& vw, const Draft& draft);

// Has the file other bytes than at the beginning?
bool HasChanged(const Vw& vw, const Draft& draft);

void RemoveDraft(const Vw& vw, const Draft& draft);
