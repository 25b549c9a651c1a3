// The text as a plain file, for programs that search such files.
#pragma once

#include <string>

// Writes one verse a line, without the marks of paragraphs, which are not valid UTF-8.
void WriteVerseLines(const std::string& path);
