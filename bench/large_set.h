// Writes a note set with a note for every verse, to be measured.
#pragma once

#include <cstddef>
#include <string>

// A note that takes `size` bytes with its terminator: `beginning`, and lines behind it.
std::string FilledNote(std::string beginning, std::size_t size);

// Writes the files `path`.nmd and `path`.nmi.
void WriteLargeSet(const std::string& path, std::string (*textOfNote)(int verse));
