// Seeds that are too large to be kept as files, described in text: a line each, made of items with a blank between
// them.
//   text AB\r\n\0      these characters to the end of the line, with their escapes
//   hex 6100FF         these bytes
//   fill FF 1000       a byte so many times
//   numbers 0 4 9;     32-bit integers, ended by ";"
//   ramp 31102 0 1     so many 32-bit integers, the first one, and the step
//   notes 5=one 9=two; a whole data file with these notes
//   index 5=one 9=two; the index file of that
//   bible 1:1:1=%In_it 66:22:21=[Out]; the five scripture files of these verses, with kFileEnd between two of them; "_"
//                      stands for a blank, "%" for a paragraph mark
//   end                kFileEnd
// Empty lines and those that begin with "#" are no seeds.
#pragma once

#include <string>
#include <vector>

using FuzzBytes = std::vector<unsigned char>;

// Parts the files of an input that stands for several.
inline constexpr char kFileEnd[] = "\n====\n";

FuzzBytes SeedOf(const std::string& line);

std::vector<FuzzBytes> ReadSeeds(const char* path);
