// The file that a text is saved to.
#pragma once

#include <string>

// Is `path` a file of the program's own, or a place where only the program puts files? It does not matter how it is
// written, or by which links it leads there.
bool IsOwnFile(const std::wstring& path);
